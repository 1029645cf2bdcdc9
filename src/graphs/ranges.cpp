#include "graphs/ranges.h"

#include <cmath>

#include "graphs/cloud_columns.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t LeastX = -32700, MostX = 32700;  // plot units
constexpr int StepInMetres = 30, StepInFeet = 100;

struct Limits {
    std::int16_t low, high;
};

struct UserLimits {
    std::int16_t defined;
    std::int32_t low, high;  // feet or metres
};

Limits HeightLimits(const Workstation& w, const UserLimits& user, std::int16_t scale) {
    if (user.defined == 0) {
        const auto& table = w.graphs.RangeTable;
        if (scale < 0 || static_cast<std::size_t>(scale) >= table.size()) throw RuntimeError(9);
        return {0, ToInt16(static_cast<double>(table[static_cast<std::size_t>(scale)]))};
    }
    const int step = w.settings.Units != 0 ? StepInMetres : StepInFeet;
    return {ToInt16(static_cast<double>(user.low / step)),
            ToInt16(static_cast<double>(user.high / step))};
}

// Where the segments of the stepped scale join, in tens of feet and of metres, and its slope.
struct StepScale {
    double aFeet, bFeet, aMetres, bMetres, k;
};
constexpr StepScale Scales[] = {
    {1200, 3600, 360, 1080, 24.5},
    {200, 600, 60, 180, 25},
    {400, 1200, 120, 360, 25},
    {800, 2400, 240, 720, 25},
};

}  // namespace

void ApplyBackscatterRange(Workstation& w) {
    const Settings& settings = w.settings;
    const Limits y =
        HeightLimits(w,
                     {settings.Backscatter_Y_User_Defined, settings.Backscatter_Y_Low_Value,
                      settings.Backscatter_Y_High_Value},
                     settings.Back_Step_Linear);
    w.graphs.ProfileYLow = y.low;
    w.graphs.ProfileYHigh = y.high;
    const bool user = settings.Backscatter_X_User_Defined != 0;
    const std::int32_t low = user ? settings.Backscatter_X_Low_Value : LeastX;
    const std::int32_t high = user ? settings.Backscatter_X_High_Value : MostX;
    w.graphs.ProfileXLow = ToInt16(static_cast<double>(low));
    w.graphs.ProfileXHigh = ToInt16(static_cast<double>(high));
}

void ApplyCloudRange(Workstation& w) {
    const Settings& settings = w.settings;
    const Limits y = HeightLimits(
        w,
        {settings.Clouds_Y_User_Defined, settings.Clouds_Y_Low_Value, settings.Clouds_Y_High_Value},
        settings.Step_Linear);
    GraphState& graphs = w.graphs;
    if (y.low == graphs.CloudYLow && y.high == graphs.CloudYHigh) return;
    ClearGraph(w);
    graphs.CloudYLow = y.low;
    graphs.CloudYHigh = y.high;
}

std::int16_t StepHeight(double height, bool metres, int stepIndex) {
    const StepScale& scale = Scales[stepIndex >= 1 && stepIndex <= 3 ? stepIndex : 0];
    const double a = metres ? scale.aMetres : scale.aFeet;
    const double b = metres ? scale.bMetres : scale.bFeet;
    double result = 0;
    if (height < a) {
        result = scale.k * height / 11;
    } else if (height < b) {
        result = (a + height) * scale.k / 22;
    } else {
        result = (b + height + 2 * a) * scale.k / 44;
    }
    return ToInt16(std::floor(result));
}

}  // namespace cumeron
