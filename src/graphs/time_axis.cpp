#include "graphs/time_axis.h"

#include <cmath>
#include <string>

#include "graphs/axes.h"
#include "graphs/scale.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int Solid = 0, Dots = 2;  // DrawStyle
constexpr double SecondsPerDay = 86400;
constexpr double Quarter = 0.25;  // hours
constexpr int LongTick = 7, ShortTick = 4;
constexpr int LabelFoot = 18;  // upper edge of the hours, pixels from the foot

// Hours of the day, without a limit at 24.
struct TimeSpan {
    double start, end;
};

double MinorTick(const Settings& settings) {
    if (settings.Compress == 0) return Quarter;
    return settings.Compress == 1 ? 2 * Quarter : 4 * Quarter;
}

bool IsMultipleOf(double x, double step) { return std::floor(x / step) * step == x; }

void DrawHour(Surface& surface, double x, double pixelsPerHour) {
    const int hour = static_cast<int>(std::fmod(RoundHalfEven(x), 24));
    const std::string label = std::to_string(hour);
    const int digits = static_cast<int>(label.size());
    surface.CurrentY = LabelFoot;
    surface.CurrentX = x - (5 + (digits - 1) * 3) / pixelsPerHour;
    surface.Print(label);
}

// Whole hours with a long tick and a label, multiples of minor with a short one; as a grid a line
// over the full height for both.
void DrawTimeTicks(const TimeSpan& span, double minor, Surface& surface, int colourNumber,
                   bool asGrid) {
    KeptScale scale(surface);
    const int colour = QBColor(colourNumber);
    surface.ForeColor = colour;
    const int height = surface.PixelHeight();
    const double pixelsPerHour = surface.PixelWidth() / (span.end - span.start);
    scale.Set(span.start, height, span.end - span.start, -height);
    const double first = std::ceil(span.start / Quarter) * Quarter;
    const std::int32_t count = ToInt32(std::floor((span.end - first) / Quarter) + 1);
    surface.DrawWidth = 1;
    surface.DrawStyle = asGrid ? Dots : Solid;
    for (int i = 0; i < count; ++i) {
        const double x = i * Quarter + first;
        const bool whole = IsMultipleOf(x, 1);
        if (!whole && !IsMultipleOf(x, minor)) continue;
        if (asGrid) {
            surface.Line(x, 0, x, height, colour);
            continue;
        }
        surface.Line(x, height, x, height - (whole ? LongTick : ShortTick), colour);
        if (whole) DrawHour(surface, x, pixelsPerHour);
    }
    surface.DrawStyle = Solid;
}

void SetSnapshot(Workstation& w) {
    const GraphState& graphs = w.graphs;
    w.graphs.GridSnapshot = {graphs.CloudYLow, graphs.CloudYHigh, graphs.CurrentColumn,
                             graphs.MessageTime, w.settings.Units};
}

}  // namespace

void UpdateAxes(Workstation& w) {
    FrmMain& form = w.frmMain;
    GraphState& graphs = w.graphs;
    if (graphs.TimeLabelsDirty != 0) {
        form.picXLabels.Cls();
        DrawTimeAxis(w, graphs.CurrentColumn, form.picXLabels, graphs.MessageTime, 0, false);
    }
    if (graphs.HeightLabelsDirty != 0) {
        form.picYLabels.Cls();
        DrawCloudHeightLabels(w);
        graphs.HeightLabelsDirty = 0;
    }
    if (graphs.GridOnScreen == 0) ToggleCloudGrid(w, form.picCombination);
}

void DrawTimeAxis(Workstation& w, int column, Surface& surface, double time, int colour,
                  bool asGrid) {
    w.graphs.TimeLabelsDirty = 0;
    const double interval = w.settings.Message_Interval;
    const double seconds = column * interval;
    // The whole days are of no account, also those before the first; only the hour is used.
    const DateParts parts = PartsOf(time - seconds / SecondsPerDay);
    const double hours = parts.hour + parts.minute / 60.0 + parts.second / 3600.0;
    const TimeSpan span{hours, hours + interval * surface.PixelWidth() / 3600};
    if (span.end <= span.start) return;
    if (asGrid) surface.DrawMode = DrawInvert;
    DrawTimeTicks(span, MinorTick(w.settings), surface, colour, asGrid);
    if (asGrid) surface.DrawMode = DrawCopy;
}

void ToggleCloudGrid(Workstation& w, Surface& surface) {
    if (w.settings.Cloud_Show_Grid != 1) return;
    GraphState& graphs = w.graphs;
    if (graphs.GridOnScreen == 0) SetSnapshot(w);
    const GridSnapshotRecord& grid = graphs.GridSnapshot;
    DrawTimeAxis(w, grid.CurrentColumn, surface, grid.MessageTime, 0, true);
    surface.DrawMode = DrawInvert;
    DrawSnapshotHeights(w, surface);
    surface.DrawMode = DrawCopy;
    graphs.GridOnScreen = static_cast<std::int16_t>(~graphs.GridOnScreen);
}

}  // namespace cumeron
