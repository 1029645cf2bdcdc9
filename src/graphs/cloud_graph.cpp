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

constexpr std::int32_t HighestValue = 32767;  // plot units
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
    tables.firstValue = FirstCountOf(-HighestValue - 1, divisor);
    const std::int32_t behind = FirstCountOf(std::int64_t{HighestValue} + 1, divisor);
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

// rows[i + 1] is the pixel row of the upper edge of gate i, counted from the foot of the column; a
// row lies between the edges of its gate and of the one below it, both included.
void MakeRows(Workstation& w, int count, int gates, int pixelHeight) {
    const double scale = w.intake.ProfileScale;
    const int stepIndex = w.settings.Step_Linear;
    ColumnTables& tables = w.graphs.columnTables;
    std::vector<double> key{static_cast<double>(count), static_cast<double>(gates),
                            static_cast<double>(pixelHeight), static_cast<double>(stepIndex),
                            stepIndex == 0 ? 0 : scale};
    if (key == tables.rowsKey) return;
    tables.rowsKey.clear();
    tables.rows.clear();
    for (int row = -1; row < gates; ++row) {
        const double y = count - 1 - EdgeOf(row, scale, stepIndex);
        const double pixel = std::floor(y * pixelHeight / (count - 1) + 0.5);
        tables.rows.push_back(ToInt32(std::clamp(pixel, -32768.0, 32767.0)));
    }
    tables.rowsKey = std::move(key);
}

// Gate by gate from the foot, so that of several gates on a row the highest stands.
void PaintColumn(const ColumnTables& tables, std::span<const std::int32_t> gates, Surface& surface,
                 int column) {
    const int width = surface.PixelWidth();
    const int height = surface.PixelHeight();
    if (column < 0 || column >= width || height == 0) return;
    std::uint32_t* pixels = surface.PixelsToPaint() + column;
    const auto values = static_cast<std::uint32_t>(tables.colours.size());
    for (std::size_t i = 0; i < gates.size(); ++i) {
        const auto at =
            static_cast<std::uint32_t>(gates[i]) - static_cast<std::uint32_t>(tables.firstValue);
        const std::uint32_t colour = at < values ? tables.colours[at] : 0;
        if (colour == 0) continue;
        const auto [above, below] = std::minmax(tables.rows[i], tables.rows[i + 1]);
        const int last = std::min(below, height - 1);
        for (int y = std::max(above, 0); y <= last; ++y) {
            pixels[static_cast<std::ptrdiff_t>(y) * width] = colour;
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
    PaintColumn(
        w.graphs.columnTables,
        profile.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(top - first + 1)),
        surface, column);
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
