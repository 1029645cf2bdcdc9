#include "graphs/axes.h"

#include <cmath>
#include <string>

#include "graphs/ranges.h"
#include "graphs/scale.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int Solid = 0, Dots = 2;  // DrawStyle
constexpr int HeightTick = 5;       // pixels
constexpr int LabelLeft = 3;        // of a height label, pixels
constexpr int LabelRise = 8;        // of a height label above its tick, pixels
constexpr int XTick = 7;            // pixels
constexpr int LabelFoot = 18;       // upper edge of the labels below a graph, pixels from the foot
constexpr int StepTicks = 12;
constexpr int TickRoom = 25;  // pixels that a tick of the profile's x axis wants

// How many height steps make one unit of the labels.
double StepsPerLabelUnit(const Workstation& w, std::int16_t units) {
    if (units == 0) return 10;
    return w.model.family == Family::KN ? 33.32 : 33;
}

int Digits(std::int32_t number) { return static_cast<int>(std::to_string(number).size()); }

// One significant digit of the number, the others 0.
std::int32_t LeadingDigit(std::int32_t number) {
    const double unit = std::pow(10, Digits(number) - 1);
    return ToInt32(unit * std::floor(number / unit));
}

struct TickStep {
    double first, step;
};

// A tenth of the range, to one digit; of a range below 5 tenths of its leading digit.
// kept: both roundings, so that a range of 25.5 counts as 26 and its tenth as 3.
TickStep HeightStep(double low, double high) {
    const std::int32_t range = ToInt32(high - low);
    const double step = LeadingDigit(ToInt32(range / 10.0));
    if (step != 0) return {RoundHalfEven(std::floor((step + low) / step) * step), step};
    const double tenths = LeadingDigit(range) / 10.0;
    return {std::floor((tenths + low) * 10) / 10, tenths};
}

// The last tick, counted from 1; 0 when the range leaves no step.
std::int16_t TickCount(double high, const TickStep& ticks) {
    if (ticks.step == 0) return 0;
    return ToInt16(std::floor((high - ticks.first) / ticks.step) + 1);
}

// Draws on a surface whose y is in units of the axis and whose x is in pixels.
class HeightTicks {
public:
    HeightTicks(Surface& drawn, double low, double high, int colourNumber, bool grid)
        : surface(drawn), scale(drawn), colour(QBColor(colourNumber)), asGrid(grid) {
        surface.ForeColor = colour;
        pixelsPerUnit = surface.PixelHeight() / (high - low);
        scale.Set(0, high, 0, -(high - low));
        surface.DrawWidth = 1;
        surface.DrawStyle = asGrid ? Dots : Solid;
    }
    ~HeightTicks() { surface.DrawStyle = Solid; }
    HeightTicks(const HeightTicks&) = delete;
    HeightTicks& operator=(const HeightTicks&) = delete;

    void Draw(double y, double labelled) {
        const int width = surface.PixelWidth();
        if (asGrid) {
            surface.Line(0, y, width, y, colour);
            return;
        }
        surface.Line(width, y, width - HeightTick, y, colour);
        surface.CurrentX = LabelLeft;
        surface.CurrentY = y + LabelRise / pixelsPerUnit;
        surface.Print(NumberText(labelled) + "K");
    }

private:
    Surface& surface;
    KeptScale scale;
    int colour;
    bool asGrid;
    double pixelsPerUnit;
};

void DrawLinearHeightTicks(double low, double high, const TickStep& ticks, Surface& surface,
                           int colour, bool asGrid) {
    HeightTicks drawing(surface, low, high, colour, asGrid);
    const std::int16_t count = TickCount(high, ticks);
    for (int i = 0; i < count; ++i) {
        const double y = i * ticks.step + ticks.first;
        drawing.Draw(y, y);
    }
}

int StepMultiplier(int stepIndex) {
    if (stepIndex == 1) return 1;
    if (stepIndex == 2) return 2;
    return stepIndex == 3 ? 4 : 6;
}

// y is in height steps, from 0 to high.
void DrawStepHeightTicks(double high, Surface& surface, bool asGrid, int stepIndex,
                         std::int16_t units) {
    HeightTicks drawing(surface, 0, high, 0, asGrid);
    const bool metres = units == 1;
    const int unit = metres ? 30 : 100;
    for (int i = 1; i <= StepTicks; ++i) {
        const int height = StepMultiplier(stepIndex) * i * unit;
        drawing.Draw(StepHeight(height, metres, stepIndex) / 10.0, height / 100.0);
    }
}

void DrawHeights(const Workstation& w, double low, double high, Surface& surface, int colour,
                 bool asGrid, Plot plot, std::int16_t units) {
    const std::int16_t steps =
        plot == CloudPlot ? w.settings.Step_Linear : w.settings.Back_Step_Linear;
    if (high == low) return;
    if (steps != 0) {
        DrawStepHeightTicks(high * 10, surface, asGrid, steps, units);
    } else {
        DrawLinearHeightTicks(low, high, HeightStep(low, high), surface, colour, asGrid);
    }
}

// Ticks of the profile's x axis: only each so many-th is drawn, which keeps them apart.
class ProfileXTicks {
public:
    ProfileXTicks(Workstation& w, Surface& drawn, double low, double high, bool grid)
        : surface(drawn), scale(drawn), asGrid(grid), height(drawn.PixelHeight()) {
        surface.ForeColor = colour;
        pixelsPerUnit = surface.PixelWidth() / (high - low);
        right = high;
        room = ToInt32(&drawn == &w.frmMain.picLines ? drawn.Width : drawn.Width + 2);
        if (room == 0) throw RuntimeError(11);
        scale.Set(low, height, high - low, -height);
        surface.DrawWidth = 1;
        surface.DrawStyle = asGrid ? Dots : Solid;
    }
    ~ProfileXTicks() { surface.DrawStyle = Solid; }
    ProfileXTicks(const ProfileXTicks&) = delete;
    ProfileXTicks& operator=(const ProfileXTicks&) = delete;

    void Draw(const TickStep& ticks) {
        const std::int16_t count = TickCount(right, ticks);
        const int each = count * TickRoom / room + 1;
        for (int i = 1; i <= count; ++i) {
            if (i % each == 0) DrawOne((i - 1) * ticks.step + ticks.first);
        }
    }

private:
    // Steps are whole plot units, so that every tick that is drawn has its label.
    void DrawOne(double x) {
        if (asGrid) {
            surface.Line(x, 0, x, height, colour);
            return;
        }
        surface.Line(x, height, x, height - XTick, colour);
        PrintLabel(x);
    }

    void PrintLabel(double x) {
        const std::string text = NumberText(x / 100);
        const auto has = [&](char c) { return text.find(c) == text.npos ? 0 : 1; };
        const int digits = static_cast<int>(text.size()) - has('.') - has('-');
        surface.CurrentX = x - digits * 4 / pixelsPerUnit;
        surface.CurrentY = LabelFoot;
        if (right - digits * 5 / pixelsPerUnit >= surface.CurrentX) surface.Print(text);
    }

    Surface& surface;
    KeptScale scale;
    bool asGrid;
    double height;
    int colour = QBColor(0);
    double pixelsPerUnit = 1, right = 0;
    std::int32_t room = 1;
};

TickStep ProfileXStep(double low, double high) {
    const std::int32_t tenth = ToInt32((high - low) / 10);
    const double unit = std::pow(10, Digits(tenth) - 1);
    // kept: rounded here, where the height axis rounds down.
    TickStep ticks{0, RoundHalfEven(unit * RoundHalfEven(tenth / unit))};
    if (ticks.step == 0) throw RuntimeError(11);
    ticks.first = RoundHalfEven(std::floor((ticks.step + low) / ticks.step) * ticks.step);
    if ((high - low) / ticks.step > 10) ticks.step *= 2;
    return ticks;
}

void DrawProfileXAxis(Workstation& w) {
    FrmMain& form = w.frmMain;
    const double low = w.graphs.ProfileXLow;
    const double high = w.graphs.ProfileXHigh;
    const TickStep ticks = ProfileXStep(low, high);
    ProfileXTicks(w, form.picXLabelsBack, low, high, false).Draw(ticks);
    if (w.settings.Backscatter_Show_Grid == 1) {
        ProfileXTicks(w, form.picLines, low, high, true).Draw(ticks);
    }
}

void SetXCaptions(FrmMain& form) {
    const bool profile = form.mnuLinePlot.Checked;
    const bool split = form.mnuSplitScreen.Checked;
    const bool both = profile && split;
    form.lblXaxis.Caption = profile && !split ? "Backscatter (100*srad*km)^-1" : "TIME (h)";
    form.lblXaxisBack.Visible = both;
    if (both) form.lblXaxisBack.Caption = "BackScatter";
}

}  // namespace

void DrawHeightAxis(Workstation& w, double low, double high, Surface& surface, int colour,
                    bool asGrid, Plot plot) {
    DrawHeights(w, low, high, surface, colour, asGrid, plot, w.settings.Units);
}

void DrawCloudHeightLabels(Workstation& w) {
    const double divisor = StepsPerLabelUnit(w, w.settings.Units);
    DrawHeightAxis(w, w.graphs.CloudYLow / divisor, w.graphs.CloudYHigh / divisor,
                   w.frmMain.picYLabels, 0, false, CloudPlot);
}

void DrawSnapshotHeights(Workstation& w, Surface& surface) {
    const GridSnapshotRecord& grid = w.graphs.GridSnapshot;
    const double divisor = StepsPerLabelUnit(w, grid.Units);
    DrawHeights(w, grid.CloudYLow / divisor, grid.CloudYHigh / divisor, surface, 0, true, CloudPlot,
                grid.Units);
}

void DrawProfileAxes(Workstation& w) {
    FrmMain& form = w.frmMain;
    const double divisor = StepsPerLabelUnit(w, w.settings.Units);
    const double low = w.graphs.ProfileYLow / divisor;
    const double high = w.graphs.ProfileYHigh / divisor;
    if (w.settings.Backscatter_Show_Grid == 1) {
        DrawHeightAxis(w, low, high, form.picLines, 0, true, ProfilePlot);
    }
    DrawHeightAxis(w, low, high, form.picYLabelsBack, 0, false, ProfilePlot);
    DrawProfileXAxis(w);
}

void SetGraphCaptions(Workstation& w) {
    FrmMain& form = w.frmMain;
    SetXCaptions(form);

    const bool metres = w.settings.Units != 0;
    // What a tilted instrument measures along its beam is a distance, not an altitude.
    const bool distance = w.readings.Tilted == 1;
    form.imgYaxisFt.Visible = !metres && !distance;
    form.imgYaxisM.Visible = metres && !distance;
    form.imgYaxisdisFT.Visible = !metres && distance;
    form.imgYaxisdisM.Visible = metres && distance;

    w.graphs.UnitLabel = metres ? "[m]" : "[ft]";
    form.fraValues.Caption = "Instant Values " + w.graphs.UnitLabel;
}

}  // namespace cumeron
