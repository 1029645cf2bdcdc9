#include "graphs/ranges.h"

#include <gtest/gtest.h>

#include "graphs/graph_station.h"

namespace cumeron {
namespace {

using namespace ink;

TEST(ApplyBackscatterRange, HeightsComeFromTheScaleOrFromTheUser) {
    const struct {
        const char* what;
        std::int16_t user, scale, units;
        std::int32_t lowValue, highValue;
        int low, high;
    } cases[] = {
        {"full linear is the model's", 0, 0, 0, 1000, 9000, 0, 255},
        {"step 12K", 0, 1, 0, 1000, 9000, 0, 128},
        {"step 25K", 0, 2, 0, 1000, 9000, 0, 255},
        {"step 50K", 0, 3, 0, 1000, 9000, 0, 514},
        {"step 75K", 0, 4, 0, 1000, 9000, 0, 751},
        {"the unit changes no scale", 0, 1, 1, 1000, 9000, 0, 128},
        {"feet", -1, 0, 0, 1000, 9000, 10, 90},
        {"metres", -1, 0, 1, 300, 2700, 10, 90},
        {"any unit but 0 is metres", -1, 0, 2, 300, 2700, 10, 90},
        {"cut, not rounded", -1, 0, 0, 199, 9099, 1, 90},
        {"cut towards nought", -1, 0, 0, -199, -99, -1, 0},
        {"the user's go before the scale", -1, 4, 0, 1000, 9000, 10, 90},
    };
    for (const auto& c : cases) {
        GraphStation station;
        Settings& settings = station.w.settings;
        settings.Backscatter_Y_User_Defined = c.user;
        settings.Back_Step_Linear = c.scale;
        settings.Units = c.units;
        settings.Backscatter_Y_Low_Value = c.lowValue;
        settings.Backscatter_Y_High_Value = c.highValue;
        ApplyBackscatterRange(station.w);
        EXPECT_EQ(station.Graphs().ProfileYLow, c.low) << c.what;
        EXPECT_EQ(station.Graphs().ProfileYHigh, c.high) << c.what;
    }
}

TEST(ApplyBackscatterRange, EveryModelHasItsFullRange) {
    const int cases[][2] = {{70, 751}, {20, 255}, {10, 128}, {30, 257}, {50, 514}, {60, 512}};
    for (const auto& [model, steps] : cases) {
        GraphStation station(100, 60, model);
        EXPECT_EQ(station.Graphs().ProfileYHigh, steps) << model;
        EXPECT_EQ(station.Graphs().CloudYHigh, steps) << model;
    }
}

TEST(ApplyBackscatterRange, PlotUnitsAreTheUsersOrAll) {
    GraphStation station;
    Settings& settings = station.w.settings;
    settings.Backscatter_X_Low_Value = -500;
    settings.Backscatter_X_High_Value = 2500;
    ApplyBackscatterRange(station.w);
    EXPECT_EQ(station.Graphs().ProfileXLow, -32700);
    EXPECT_EQ(station.Graphs().ProfileXHigh, 32700);
    settings.Backscatter_X_User_Defined = -1;
    ApplyBackscatterRange(station.w);
    EXPECT_EQ(station.Graphs().ProfileXLow, -500);
    EXPECT_EQ(station.Graphs().ProfileXHigh, 2500);
}

TEST(ApplyBackscatterRange, RaisesWhatDoesNotFit) {
    const struct {
        const char* what;
        std::int16_t scale, userY, userX;
        std::int32_t value;
        int error;
    } cases[] = {
        {"a scale behind the table", 5, 0, 0, 0, 9},
        {"a scale before it", -1, 0, 0, 0, 9},
        {"the last scale", 4, 0, 0, 0, 0},
        {"steps beyond 16 bits", 0, -1, 0, 3276800, 6},
        {"the most steps", 0, -1, 0, 3276799, 0},
        {"fewest steps", 0, -1, 0, -3276900, 6},
        {"plot units beyond 16 bits", 0, 0, -1, 32768, 6},
        {"the most plot units", 0, 0, -1, 32767, 0},
        {"a scale that the user's limits hide", 5, -1, 0, 100, 0},
    };
    for (const auto& c : cases) {
        GraphStation station;
        Settings& settings = station.w.settings;
        settings.Back_Step_Linear = settings.Step_Linear = c.scale;
        settings.Backscatter_Y_User_Defined = settings.Clouds_Y_User_Defined = c.userY;
        settings.Backscatter_X_User_Defined = c.userX;
        for (const auto limit :
             {&Settings::Backscatter_Y_Low_Value, &Settings::Backscatter_Y_High_Value,
              &Settings::Backscatter_X_Low_Value, &Settings::Backscatter_X_High_Value,
              &Settings::Clouds_Y_Low_Value, &Settings::Clouds_Y_High_Value}) {
            settings.*limit = c.value;
        }
        EXPECT_EQ(ErrorOf([&] { ApplyBackscatterRange(station.w); }), c.error) << c.what;
        const int cloudError = c.userX != 0 ? 0 : c.error;
        EXPECT_EQ(ErrorOf([&] { ApplyCloudRange(station.w); }), cloudError) << c.what;
    }
}

// A graph with a message, its mark, a grid and clean labels.
void FillGraph(GraphStation& station) {
    station.Message(0);
    station.Graphs().GridOnScreen = -1;
    station.Graphs().TimeLabelsDirty = station.Graphs().HeightLabelsDirty = 0;
}

TEST(ApplyCloudRange, LeavesTheGraphWhileTheLimitsStay) {
    GraphStation station;
    FillGraph(station);
    station.w.settings.Step_Linear = 2;  // 255 steps, as many as the RV20X has
    station.w.settings.Units = 1;
    const auto pixels = PixelsOf(station.Picture());
    ApplyCloudRange(station.w);
    EXPECT_EQ(PixelsOf(station.Picture()), pixels);
    EXPECT_EQ(station.Graphs().CurrentColumn, 1);
    EXPECT_EQ(station.Graphs().MarkerColumn, 1);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0);
    EXPECT_EQ(station.Graphs().HeightLabelsDirty, 0);
}

TEST(ApplyCloudRange, ClearsTheGraphWithEitherLimit) {
    const std::int32_t cases[][2] = {{100, 25500}, {0, 25400}};
    for (const auto& [low, high] : cases) {
        GraphStation station;
        FillGraph(station);
        Settings& settings = station.w.settings;
        settings.Clouds_Y_User_Defined = -1;
        settings.Clouds_Y_Low_Value = low;
        settings.Clouds_Y_High_Value = high;
        ApplyCloudRange(station.w);
        EXPECT_EQ(station.Graphs().CloudYLow, low / 100);
        EXPECT_EQ(station.Graphs().CloudYHigh, high / 100);
        EXPECT_TRUE(IsAll(station.Picture(), White));
        EXPECT_EQ(station.Graphs().CurrentColumn, 0);
        EXPECT_EQ(station.Graphs().MarkerColumn, -1);
        EXPECT_EQ(station.Graphs().GridOnScreen, 0);
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, -1);
        EXPECT_EQ(station.Graphs().HeightLabelsDirty, -1);
    }
}

TEST(ApplyCloudRange, TakesItsOwnSettings) {
    GraphStation station;
    Settings& settings = station.w.settings;
    settings.Back_Step_Linear = 4;
    settings.Step_Linear = 1;
    settings.Backscatter_Y_User_Defined = -1;
    ApplyCloudRange(station.w);
    EXPECT_EQ(station.Graphs().CloudYHigh, 128);
    EXPECT_EQ(station.Graphs().ProfileYHigh, 255);
}

TEST(StepHeight, HasThreeSegments) {
    const struct {
        double height;
        bool metres;
        int stepIndex, result;
    } cases[] = {
        // Feet: the foot, within each segment, at both joints and just below them.
        {0, false, 1, 0},
        {100, false, 1, 227},
        {199, false, 1, 452},
        {200, false, 1, 454},
        {400, false, 1, 681},
        {599, false, 1, 907},
        {600, false, 1, 909},
        {1200, false, 1, 1250},
        {399, false, 2, 906},
        {400, false, 2, 909},
        {1200, false, 2, 1818},
        {2400, false, 2, 2500},
        {800, false, 3, 1818},
        {2400, false, 3, 3636},
        {4800, false, 3, 5000},
        {1200, false, 4, 2672},
        {3600, false, 4, 5345},
        {7200, false, 4, 7350},
        // Metres.
        {59, true, 1, 134},
        {60, true, 1, 136},
        {180, true, 1, 272},
        {360, true, 1, 375},
        {120, true, 2, 272},
        {360, true, 2, 545},
        {240, true, 3, 545},
        {720, true, 3, 1090},
        {360, true, 4, 801},
        {1080, true, 4, 1603},
        {2160, true, 4, 2205},
        // Any other index has the scale of the widest range.
        {7200, false, 0, 7350},
        {7200, false, 5, 7350},
        {7200, false, -1, 7350},
        // Below the ground, and between whole heights: rounded down.
        {-10, false, 1, -23},
        {1.5, false, 1, 3},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(StepHeight(c.height, c.metres, c.stepIndex), c.result)
            << c.height << (c.metres ? " m " : " ft ") << c.stepIndex;
    }
}

TEST(StepHeight, RaisesOverflow) {
    EXPECT_EQ(ErrorOf([] { StepHeight(60000, false, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { StepHeight(-20000, false, 1); }), 6);
}

}  // namespace
}  // namespace cumeron
