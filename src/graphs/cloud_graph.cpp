#include "graphs/cloud_graph.h"

#include <algorithm>
#include <cmath>

#include "graphs/ranges.h"
#include "graphs/scale.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int64_t HighestValue = 32767;  // plot units
constexpr int Classes = 5;                    // of colours
constexpr int FinerUnits = 10;                // KN counts to a plot unit
constexpr double FeetPerMetre = 3.28;         // as the picture has always had it

// ---- The colours of the values ----

std::int32_t PlotDivisor(const Workstation& w) {
    return w.model.family == Family::KN ? FinerUnits : 1;
}

// The profile values that come out as value plot units or more, halves rounded to even.
std::int32_t FirstCountOf(std::int64_t value, std::int32_t divisor) {
    if (divisor == 1) return static_cast<std::int32_t>(value);
    const std::int64_t half = divisor / 2;
    const bool even = value % 2 == 0;
    return static_cast<std::int32_t>(value * divisor - half + (even ? 0 : 1));
}

// Paints the values from first to last plot units; the table holds counts.
void FillColours(ColumnTables& tables, std::int64_t first, std::int64_t last, std::int32_t divisor,
                 std::uint32_t colour) {
    first = std::max<std::int64_t>(first, -HighestValue - 1);
    last = std::min<std::int64_t>(last, HighestValue);
    if (first > last) return;
    const auto begin = tables.colours.begin() + (FirstCountOf(first, divisor) - tables.firstValue);
    const auto end = tables.colours.begin() + (FirstCountOf(last + 1, divisor) - tables.firstValue);
    std::fill(begin, end, colour);
}

// A value belongs to the first class that takes it; limits out of order can leave classes empty.
void MakeColours(Workstation& w) {
    const Settings& settings = w.settings;
    const std::int32_t divisor = PlotDivisor(w);
    std::vector<double> key{static_cast<double>(divisor)};
    key.insert(key.end(), settings.Clouds_Limit.begin(), settings.Clouds_Limit.end());
    key.insert(key.end(), settings.Clouds_Color.begin(), settings.Clouds_Color.end());
    ColumnTables& tables = w.graphs.columnTables;
    if (key == tables.coloursKey) return;
    tables.coloursKey = std::move(key);
    // Below the lowest limit nothing is drawn; from there on each value is of some class.
    const std::int64_t lowest = std::clamp<std::int64_t>(
        *std::ranges::min_element(settings.Clouds_Limit), -HighestValue - 1, HighestValue + 1);
    tables.firstValue = FirstCountOf(lowest, divisor);
    const std::int32_t behind = FirstCountOf(HighestValue + 1, divisor);
    tables.colours.assign(static_cast<std::size_t>(behind - tables.firstValue), 0);
    for (int i = Classes - 1; i >= 0; --i) {
        const auto at = static_cast<std::size_t>(i);
        const std::int64_t last =
            i == Classes - 1 ? HighestValue : std::int64_t{settings.Clouds_Limit[at + 1]} - 1;
        FillColours(tables, settings.Clouds_Limit[at], last, divisor,
                    PixelColour(settings.Clouds_Color[at]));
    }
}

// ---- The rows of the gates ----

// The height of a gate's edge in the column, in gates above its foot.
double EdgeOf(int row, double profileScale, int stepIndex) {
    if (stepIndex == 0) return row;
    // kept: the scale's feet are used in metres too; both count the same steps.
    return StepHeight(row * 10 / profileScale, false, stepIndex) * profileScale / 10;
}

// A gate lies between its own edge and that of the gate below it, and takes both edges' rows.
void MakeRows(Workstation& w, int count, int gates, int pixelHeight) {
    const double scale = w.intake.ProfileScale;
    const int stepIndex = w.settings.Step_Linear;
    ColumnTables& tables = w.graphs.columnTables;
    std::vector<double> key{static_cast<double>(count), static_cast<double>(gates),
                            static_cast<double>(pixelHeight), static_cast<double>(stepIndex),
                            stepIndex == 0 ? 0 : scale};
    if (key == tables.rowsKey) return;
    tables.rowsKey.clear();
    tables.rows.assign(static_cast<std::size_t>(pixelHeight), RowGates());
    const auto rowOf = [&](int gate) {
        const double y = count - 1 - EdgeOf(gate, scale, stepIndex);
        const double row = std::floor(y * pixelHeight / (count - 1) + 0.5);
        return static_cast<int>(std::clamp(row, -1.0, static_cast<double>(pixelHeight)));
    };
    for (int gate = 0; gate < gates; ++gate) {
        const auto [above, below] = std::minmax({rowOf(gate), rowOf(gate - 1)});
        for (int y = std::max(above, 0); y <= std::min(below, pixelHeight - 1); ++y) {
            RowGates& row = tables.rows[static_cast<std::size_t>(y)];
            if (row.highest < row.lowest) row.lowest = gate;
            row.highest = gate;
        }
    }
    tables.rowsKey = std::move(key);
}

// Of several gates on a row the highest that has a colour stands, as if each had been drawn over
// those below it. From the foot upwards, in the order in which the profile lies in memory.
void PaintColumn(const ColumnTables& tables, std::span<const std::int32_t> gates, Surface& surface,
                 int column) {
    const int width = surface.PixelWidth();
    if (column < 0 || column >= width) return;
    const std::span<const std::uint32_t> colours = tables.colours;
    const auto firstValue = static_cast<std::uint32_t>(tables.firstValue);
    std::uint32_t* pixels = surface.PixelsToPaint();
    auto pixel = static_cast<std::ptrdiff_t>(tables.rows.size()) * width + column;
    for (auto row = tables.rows.rbegin(); row != tables.rows.rend(); ++row) {
        pixel -= width;
        for (int gate = row->highest; gate >= row->lowest; --gate) {
            const std::uint32_t at =
                static_cast<std::uint32_t>(gates[static_cast<std::size_t>(gate)]) - firstValue;
            if (at >= colours.size()) continue;
            pixels[pixel] = colours[at];
            break;
        }
    }
}

// ---- The points ----

std::int16_t HitHeight(const Workstation& w, const std::string& caption) {
    if (!IsNumeric(caption)) return 0;
    const double value = ToDouble(caption);
    if (w.settings.Units == 0) return ToInt16(std::trunc(value / 10));
    // kept: the 5 belongs to the scale, as the points in metres have always been drawn.
    return ToInt16(std::floor(value * FeetPerMetre / 10 + 5));
}

}  // namespace

void DrawIntensityColumn(Workstation& w, std::span<const std::int32_t> profile, std::int16_t low,
                         std::int16_t high, Surface& surface, int column) {
    const double scale = w.intake.ProfileScale;
    const std::int16_t count = ToInt16((high - low) * scale + 1);
    const std::int16_t top =
        high * scale > w.model.ProfileLength ? w.model.ProfileLength : ToInt16(high * scale);
    const std::int16_t first = ToInt16(low * scale);
    if (first > top || count == 1) return;
    if (first < 0 || static_cast<std::size_t>(top) >= profile.size()) throw RuntimeError(9);
    MakeColours(w);
    MakeRows(w, count, top - first + 1, surface.PixelHeight());
    PaintColumn(w.graphs.columnTables, profile.subspan(static_cast<std::size_t>(first)), surface,
                column);
}

void DrawCloudHits(Workstation& w, std::int16_t low, std::int16_t high, Surface& surface,
                   int column) {
    const int range = high - low + 1;
    surface.DrawMode = DrawCopy;
    surface.ScaleMode = 0;
    surface.ScaleLeft = 0;
    surface.ScaleWidth = 0;  // pixels
    surface.ScaleTop = range;
    surface.ScaleHeight = 1 - range;
    auto& heights = w.graphs.CloudHitHeights;
    for (std::size_t i = 1; i < heights.size(); ++i) {
        heights[i] = HitHeight(w, w.frmMain.CloudValue[i - 1].Caption);
        if (w.settings.Step_Linear != 0) {
            heights[i] = StepHeight(heights[i], false, w.settings.Step_Linear);
        }
    }
    if (range == 1) return;
    surface.DrawWidth = w.settings.Chit_Point_Size + 1;
    const bool visibility = w.frmMain.lblCloudtext[0].Caption == "V-Visibility";
    const std::int32_t colours[] = {
        visibility ? w.settings.Vertical_V_Color : w.settings.Cloudhit_Color,
        visibility ? w.settings.Highest_S_Color : w.settings.Cloudhit_Color,
        w.settings.Cloudhit_Color};
    const std::size_t drawn = visibility ? 2 : 3;
    for (std::size_t i = 1; i <= drawn; ++i) {
        // kept: tens of feet against height steps; only a height of 0 is meant to be left out.
        if (heights[i] <= low) continue;
        surface.PSet(column, heights[i] / 10.0 + 1 - low, colours[i - 1]);
    }
}

}  // namespace cumeron
