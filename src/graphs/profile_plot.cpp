#include "graphs/profile_plot.h"

#include <cmath>
#include <type_traits>

#include "graphs/axes.h"
#include "graphs/ranges.h"
#include "graphs/scale.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t Instant = 1, Average = 2, BothLines = 3;  // Backscatter_Mode
constexpr std::int16_t RawMessage = 99;                          // a message without a profile
constexpr int Black = 0, Green = 2;                              // QBColor
constexpr int FinerUnits = 10;                                   // KN counts to a plot unit

bool HasFinerUnits(const Workstation& w) { return w.model.family == Family::KN; }

// The gates that the plot shows.
struct GateRange {
    int first, last;
};

GateRange ShownGates(const Workstation& w) {
    const double scale = w.intake.ProfileScale;
    const double high = w.graphs.ProfileYHigh * scale;
    const std::int16_t last = high > w.model.ProfileLength ? w.model.ProfileLength : ToInt16(high);
    return {ToInt16(w.graphs.ProfileYLow * scale), last};
}

template <class Profile>
auto& GateOf(Profile& profile, int gate) {
    if (gate < 0 || static_cast<std::size_t>(gate) >= profile.size()) throw RuntimeError(9);
    return profile[static_cast<std::size_t>(gate)];
}

// A line that runs to the edge where the profile leaves the range, creeps along it undrawn, and
// comes back from where it left it.
class ClippedLine {
public:
    ClippedLine(Surface& drawn, double lower, double upper)
        : surface(drawn), lowerBound(lower), upperBound(upper) {}

    // lowerIsOutside: a value on the lower bound counts as outside.
    void To(double value, double y, bool lowerIsOutside) {
        if (value >= upperBound) {
            Edge(upperBound, y);
        } else if (value < lowerBound || (lowerIsOutside && value == lowerBound)) {
            Edge(lowerBound, y);
        } else {
            Draw(value, y);
            outside = false;
        }
    }

private:
    void Draw(double x, double y) {
        surface.Line(surface.CurrentX, surface.CurrentY, x, y, surface.ForeColor);
    }

    void Edge(double bound, double y) {
        if (outside) {
            surface.CurrentX = bound;
            surface.CurrentY = y;
        } else {
            Draw(bound, y);
            outside = true;
        }
    }

    Surface& surface;
    double lowerBound, upperBound;
    bool outside = false;
};

double HeightOf(const Workstation& w, int gate) {
    const double scale = w.intake.ProfileScale;
    const int stepIndex = w.settings.Back_Step_Linear;
    if (stepIndex == 0) return gate - w.graphs.ProfileYLow * scale;
    return StepHeight(gate * 10 / scale, false, stepIndex) * scale / 10;
}

template <class Value>
void PlotProfile(Workstation& w, std::span<const Value> profile, int colour) {
    Surface& surface = w.frmMain.picLines;
    const double xLow = w.graphs.ProfileXLow;
    const double xHigh = w.graphs.ProfileXHigh;
    const std::int16_t count =
        ToInt16((w.graphs.ProfileYHigh - w.graphs.ProfileYLow) * w.intake.ProfileScale + 1);
    if (count == 1 || xLow == xHigh || surface.PixelWidth() == 0) return;
    KeptScale scale(surface);
    scale.Set(xLow, count - 1, xHigh - xLow, 1 - count);
    const double unitsPerPixel = (xHigh - xLow) / surface.PixelWidth();
    surface.DrawWidth = w.settings.Back_Draw_Width;
    surface.ForeColor = QBColor(colour);
    // kept: both bounds lie to the left of the limits, so that the line may run off the picture
    // there.
    const double margin = (w.settings.Back_Draw_Width + 1) * unitsPerPixel;
    ClippedLine line(surface, xLow - margin, xHigh - margin);
    surface.CurrentX = 0;
    surface.CurrentY = 0;
    const GateRange gates = ShownGates(w);
    for (int gate = gates.first; gate <= gates.last; ++gate) {
        // kept: only the averaged and the finer values stop on the lower bound itself.
        line.To(static_cast<double>(GateOf(profile, gate)), HeightOf(w, gate),
                std::is_floating_point_v<Value>);
    }
}

void ClearPlot(FrmMain& form) {
    form.picLines.Cls();
    form.picXLabelsBack.Cls();
    form.picYLabelsBack.Cls();
}

const ProfileSlotRecord& SlotAt(const GraphState& graphs, int slot) {
    return GateOf(graphs.ProfileRing, slot);
}

void PlotInstantProfile(Workstation& w, const ProfileSlotRecord& slot) {
    ClearPlot(w.frmMain);
    if (!HasFinerUnits(w)) {
        PlotProfile<std::int32_t>(w, slot.Profile, Black);
    } else {
        AveragedProfile finer{};
        const GateRange gates = ShownGates(w);
        for (int gate = gates.first; gate <= gates.last; ++gate) {
            GateOf(finer, gate) = static_cast<float>(GateOf(slot.Profile, gate)) / FinerUnits;
        }
        PlotProfile<float>(w, finer, Black);
    }
    DrawProfileAxes(w);
}

int SlotBefore(const GraphState& graphs, int slot) {
    return slot == 0 ? static_cast<int>(graphs.ProfileRing.size()) - 1 : slot - 1;
}

int ValidSlots(const GraphState& graphs, int count) {
    int valid = 0;
    int slot = graphs.ProfileSlot;
    for (int i = 0; i < count; ++i) {
        if (SlotAt(graphs, slot).Valid != 0) ++valid;
        slot = SlotBefore(graphs, slot);
    }
    return valid;
}

std::int32_t SumAt(const GraphState& graphs, int gate, int slots) {
    std::int32_t sum = 0;
    int slot = graphs.ProfileSlot;
    for (int i = 0; i < slots; ++i) {
        sum = ToInt32(static_cast<double>(sum) + GateOf(SlotAt(graphs, slot).Profile, gate));
        slot = SlotBefore(graphs, slot);
    }
    return sum;
}

// Profiles of another range resolution do not match the current one.
void ForgetOtherScales(Workstation& w) {
    GraphState& graphs = w.graphs;
    if (graphs.AverageScale != w.intake.ProfileScale) {
        for (std::size_t i = 0; i < graphs.ProfileRing.size(); ++i) {
            if (static_cast<int>(i) != graphs.ProfileSlot) graphs.ProfileRing[i].Valid = 0;
        }
    }
    graphs.AverageScale = w.intake.ProfileScale;
}

}  // namespace

void UpdateBackscatterPlot(Workstation& w) {
    const std::int16_t mode = w.settings.Backscatter_Mode;
    const ProfileSlotRecord& slot = SlotAt(w.graphs, w.graphs.ProfileSlot);
    const bool instant = mode == Instant || mode == BothLines;
    if (w.intake.MessageId == RawMessage || !instant || slot.Valid == 0) {
        ClearPlot(w.frmMain);
        DrawProfileAxes(w);
        if (w.intake.MessageId == RawMessage) return;
    } else {
        PlotInstantProfile(w, slot);
    }
    if (mode != Average && mode != BothLines) return;
    AveragedProfile averaged{};
    if (AverageProfiles(w, averaged, w.settings.Backscatter_Averages)) {
        PlotProfile<float>(w, averaged, Green);
    }
}

bool AverageProfiles(Workstation& w, AveragedProfile& averaged, int count) {
    ForgetOtherScales(w);
    const int slots = ValidSlots(w.graphs, count);
    const GateRange gates = ShownGates(w);
    const int divisor = slots * (HasFinerUnits(w) ? FinerUnits : 1);
    for (int gate = gates.first; gate <= gates.last; ++gate) {
        // kept: the newest slots go in, valid or not, as many as are valid.
        GateOf(averaged, gate) =
            divisor == 0
                ? 0
                : static_cast<float>(SumAt(w.graphs, gate, slots) / static_cast<double>(divisor));
    }
    return slots > 0;
}

}  // namespace cumeron
