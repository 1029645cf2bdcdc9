// The profile of the current message as a line, and the average of the last ones.
#include "graphs/profile_plot.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

#include "graphs/graph_station.h"
#include "platform/runtime/text.h"

namespace cumeron {
namespace {

using namespace ink;

using Value = std::function<std::int32_t(int gate)>;

// Height steps 0 to 50 on 50 rows, plot units 0 to 100 on 100 columns, a gate to the step.
struct PlotStation : GraphStation {
    explicit PlotStation(int model = 20) : GraphStation(100, 50, model) {
        w.graphs.ProfileYLow = 0;
        w.graphs.ProfileYHigh = 50;
        w.graphs.ProfileXLow = 0;
        w.graphs.ProfileXHigh = 100;
        w.graphs.ProfileSlot = 4;
    }
    Surface& Plot() { return w.frmMain.picLines; }
    ProfileSlotRecord& Slot(int back = 0) {
        const int slot = (w.graphs.ProfileSlot - back + 60) % 30;
        return w.graphs.ProfileRing[static_cast<std::size_t>(slot)];
    }
    void Fill(int back, const Value& value, bool valid = true) {
        for (int gate = 0; gate < 2049; ++gate) {
            Slot(back).Profile[static_cast<std::size_t>(gate)] = value(gate);
        }
        Slot(back).Valid = valid ? -1 : 0;
    }
    void FillLevel(int back, std::int32_t level, bool valid = true) {
        Fill(
            back, [level](int) { return level; }, valid);
    }
    // The columns of a row that are not white: "12#13#".
    std::string Row(int y) {
        std::string row;
        for (int x = 0; x < Plot().PixelWidth(); ++x) {
            const char letter = LetterOf(Plot().Pixel(x, y));
            if (letter != '.') row += std::to_string(x) + letter;
        }
        return row;
    }
};

// ---- What is drawn ----

TEST(UpdateBackscatterPlot, ModeVerdictAndKindTellWhatIsDrawn) {
    const struct {
        std::int16_t mode, id;
        bool valid, others;  // the slots before the current one
        const char* row;     // 30 the message's value, 20 the average's
    } cases[] = {
        {1, 15, true, true, "30#"}, {2, 15, true, true, "20G"},  {3, 15, true, true, "20G30#"},
        {1, -1, false, true, ""},   {2, -1, false, true, "20G"}, {3, -1, false, true, "20G"},
        {2, -1, false, false, ""},  {1, 99, true, true, ""},     {2, 99, true, true, ""},
        {3, 99, true, true, ""},    {0, 15, true, true, ""},     {4, 15, true, true, ""},
    };
    for (const auto& c : cases) {
        PlotStation station;
        station.w.settings.Backscatter_Mode = c.mode;
        station.w.settings.Backscatter_Averages = 2;
        station.w.intake.MessageId = c.id;
        station.Graphs().AverageScale = 1;
        station.FillLevel(0, 30, c.valid);
        // An invalid slot takes part in the sum as it stands.
        station.FillLevel(1, 10, c.others);
        if (!c.valid) station.FillLevel(0, 20, false);
        for (Surface* surface : {&station.Plot(), &station.w.frmMain.picXLabelsBack,
                                 &station.w.frmMain.picYLabelsBack}) {
            surface->Fill(0, 0, 44, 34, Red);
            surface->Print("old");
        }
        UpdateBackscatterPlot(station.w);
        EXPECT_EQ(station.Row(25), c.row) << c.mode << ' ' << c.id;
        EXPECT_TRUE(station.Plot().Printed().empty());
        for (const Surface* labels :
             {&station.w.frmMain.picXLabelsBack, &station.w.frmMain.picYLabelsBack}) {
            EXPECT_FALSE(labels->Printed().empty()) << "the axes are drawn";
            EXPECT_NE(labels->Printed()[0].text, "old") << "once";
            EXPECT_EQ(labels->Pixel(1, 20), White);
        }
    }
}

TEST(UpdateBackscatterPlot, TheGreenLineStandsOnTheBlackOne) {
    PlotStation station;
    station.w.settings.Backscatter_Mode = 3;
    station.FillLevel(0, 30);
    UpdateBackscatterPlot(station.w);
    EXPECT_EQ(station.Row(25), "30G");
}

TEST(UpdateBackscatterPlot, TheGridIsDrawnWithThePlot) {
    PlotStation station;
    station.w.settings.Backscatter_Show_Grid = 1;
    station.FillLevel(0, 30);
    UpdateBackscatterPlot(station.w);
    EXPECT_NE(station.Row(25), "30#");
    station.w.settings.Backscatter_Show_Grid = 0;
    UpdateBackscatterPlot(station.w);
    EXPECT_EQ(station.Row(25), "30#");
}

TEST(UpdateBackscatterPlot, RaisesForASlotOutsideTheRing) {
    PlotStation station;
    station.Graphs().ProfileSlot = 30;
    EXPECT_EQ(ErrorOf([&] { UpdateBackscatterPlot(station.w); }), 9);
    station.Graphs().ProfileSlot = -1;
    EXPECT_EQ(ErrorOf([&] { UpdateBackscatterPlot(station.w); }), 9);
}

// ---- The line ----

TEST(PlotProfile, TheLineGoesFromGateToGate) {
    PlotStation station;
    station.Fill(0, [](int gate) { return gate % 2 == 0 ? 20 : 24; });
    UpdateBackscatterPlot(station.w);
    EXPECT_EQ(station.Row(0), "20#21#") << "the last gate stands at the top";
    EXPECT_EQ(station.Row(10), "20#21#22#");
    EXPECT_EQ(station.Row(11), "22#23#24#") << "and each gate on its own row";
    EXPECT_EQ(station.Row(49), "22#23#24#");
}

TEST(PlotProfile, TheLineBeginsAtNoughtAtTheFoot) {
    for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{3}}) {
        PlotStation station;
        station.Graphs().ProfileYLow = 10;  // so that the first gate stands at the foot too
        station.Graphs().ProfileYHigh = 20;
        station.w.settings.Back_Draw_Width = 3;
        station.w.settings.Backscatter_Mode = mode;
        station.FillLevel(0, 40);
        UpdateBackscatterPlot(station.w);
        const std::string letter = mode == 1 ? "#" : "G";  // the average over the message
        std::string foot;
        for (int x = 0; x <= 41; ++x) foot += std::to_string(x) + letter;
        EXPECT_EQ(station.Row(49), foot);
        EXPECT_EQ(station.Row(47), "39" + letter + "40" + letter + "41" + letter);
    }
}

TEST(PlotProfile, LowLimitAndScaleFindTheGates) {
    const struct {
        const char* what;
        std::int16_t low, high;
        double scale;
        int gate;  // that alone has a value
        int row;   // where it stands
    } cases[] = {
        {"a gate to the step", 0, 50, 1, 20, 30},
        {"from a low limit on", 10, 60, 1, 20, 40},
        {"two gates to the step", 0, 50, 2, 20, 40},
        {"half a gate to the step", 0, 50, 0.5, 20, 10},
        {"a third, from low on", 10, 60, 3, 60, 40},
    };
    for (const auto& c : cases) {
        PlotStation station;
        station.Graphs().ProfileYLow = c.low;
        station.Graphs().ProfileYHigh = c.high;
        station.w.intake.ProfileScale = c.scale;
        station.Fill(0, [&](int gate) { return gate == c.gate ? 80 : 10; });
        UpdateBackscatterPlot(station.w);
        EXPECT_EQ(station.Plot().Pixel(80, c.row), Black) << c.what;
        EXPECT_EQ(station.Plot().Pixel(79, 2), White) << c.what;
    }
}

TEST(PlotProfile, TheLineEndsWithTheProfile) {
    PlotStation station;  // 255 gates
    station.Graphs().ProfileYHigh = 510;
    station.FillLevel(0, 30);
    UpdateBackscatterPlot(station.w);
    EXPECT_EQ(station.Row(24), "");
    EXPECT_EQ(station.Row(25), "30#");
    EXPECT_EQ(station.Row(40), "30#");
}

TEST(PlotProfile, OnTheSteppedScaleLowGatesHaveMoreRoom) {
    PlotStation station;
    station.w.settings.Back_Step_Linear = 1;
    station.Graphs().ProfileYHigh = 128;
    GraphStation::Size(station.Plot(), 100, 128);
    station.Fill(0, [](int gate) { return gate == 20 || gate == 60 || gate == 120 ? 80 : 10; });
    UpdateBackscatterPlot(station.w);
    for (const int gate : {20, 60, 120}) {
        const int row = 128 - (StepHeight(gate * 10, false, 1) + 5) / 10;
        EXPECT_EQ(station.Plot().Pixel(80, row), Black) << gate;
    }
    EXPECT_EQ(station.Plot().Pixel(80, 128 - 20), White);
}

// Draw widths of 1 move both bounds two plot units to the left: the picture ends at 98, and the
// line may run off it by two on the other side.
TEST(PlotProfile, ValuesOutsideAreTakenToTheBounds) {
    const struct {
        const char* what;
        int model;
        std::int32_t value;  // of the gates 20 to 30; the others have 50 plot units
        const char* along;   // in the middle of them
        int first, last;     // where the line goes to the first of them
    } cases[] = {
        {"inside", 20, 97, "97#", 74, 97},
        {"on the upper bound", 20, 98, "", 75, 98},
        {"beyond it", 20, 5000, "", 75, 98},
        {"the greatest of all", 20, 2147483647, "", 75, 98},
        {"at the left edge", 20, 0, "0#", 0, 24},
        {"left of the picture", 20, -1, "", 0, 24},
        {"on the lower bound", 20, -2, "", 0, 23},
        {"beyond it too", 20, -3, "", 0, 23},
        {"the least of all", 20, -2147483647 - 1, "", 0, 23},
        {"finer values: inside", 30, 970, "97#", 74, 97},
        {"finer: on the upper bound", 30, 980, "", 75, 98},
    };
    for (const auto& c : cases) {
        PlotStation station(c.model);
        const int finer = c.model == 30 ? 10 : 1;
        station.Fill(0, [&](int gate) { return gate >= 20 && gate <= 30 ? c.value : 50 * finer; });
        UpdateBackscatterPlot(station.w);
        EXPECT_EQ(station.Row(25), c.along) << c.what;
        std::string reached;
        for (int x = c.first; x <= c.last; ++x) reached += std::to_string(x) + "#";
        EXPECT_EQ(station.Row(30), reached) << c.what;
        EXPECT_EQ(station.Row(10), "50#") << c.what;
    }
}

// It runs to the edge, creeps along it undrawn, and comes back from where it left it.
TEST(PlotProfile, ALineAlongABoundIsNotDrawn) {
    PlotStation station;
    station.w.settings.Back_Draw_Width = 9;  // the bounds are 90 and -10, and the pen is wide
    station.Fill(0, [](int gate) {
        if (gate < 10 || gate > 40) return 50;
        return gate <= 25 ? 5000 : -5000;
    });
    UpdateBackscatterPlot(station.w);
    EXPECT_NE(station.Row(40).find("80#"), std::string::npos) << "it runs to the edge";
    for (int y = 16; y < 34; ++y) EXPECT_EQ(station.Row(y), "") << y << ": nor from side to side";
    EXPECT_NE(station.Row(9).find("10#"), std::string::npos) << "and comes back from the other one";
}

// The rules word by word, for both forms of the profile.
void DrawByRules(PlotStation& station, Surface& surface, bool finer) {
    Workstation& w = station.w;
    const double scale = w.intake.ProfileScale;
    const double low = w.graphs.ProfileYLow, high = w.graphs.ProfileYHigh;
    const double xLow = w.graphs.ProfileXLow, xHigh = w.graphs.ProfileXHigh;
    const double count = RoundHalfEven((high - low) * scale + 1);
    surface.ScaleMode = 0;
    surface.ScaleLeft = xLow, surface.ScaleWidth = xHigh - xLow;
    surface.ScaleTop = count - 1, surface.ScaleHeight = 1 - count;
    surface.DrawWidth = w.settings.Back_Draw_Width;
    const double margin = (surface.DrawWidth + 1) * (xHigh - xLow) / surface.PixelWidth();
    double x = 0, y = 0;
    bool out = false;
    const double top =
        high * scale > w.model.ProfileLength ? w.model.ProfileLength : RoundHalfEven(high * scale);
    for (double gate = RoundHalfEven(low * scale); gate <= top; ++gate) {
        double newY = gate - low * scale;
        const int step = w.settings.Back_Step_Linear;
        if (step != 0) newY = StepHeight(gate * 10 / scale, false, step) * scale / 10;
        const std::int32_t stored = station.Slot().Profile[static_cast<std::size_t>(gate)];
        double value = stored;
        if (finer) value = static_cast<double>(static_cast<float>(stored) / 10);
        const bool above = value >= xHigh - margin;
        const bool below = finer ? value <= xLow - margin : value < xLow - margin;
        const double newX = above ? xHigh - margin : below ? xLow - margin : value;
        if (!((above || below) && out)) surface.Line(x, y, newX, newY, Black);
        out = above || below;
        x = newX, y = newY;
    }
    surface.ScaleMode = 3;
}

TEST(PlotProfile, DrawsWhatTheRulesSay) {
    std::mt19937 random(7);
    const auto pick = [&](std::initializer_list<double> from) {
        return from.begin()[random() % from.size()];
    };
    for (const int model : {20, 50}) {
        PlotStation station(model);
        Workstation& w = station.w;
        for (int round = 0; round < 200; ++round) {
            w.graphs.ProfileYLow = static_cast<std::int16_t>(pick({0, 0, 7}));
            w.graphs.ProfileYHigh = static_cast<std::int16_t>(pick({50, 128, 255}));
            w.graphs.ProfileXLow = static_cast<std::int16_t>(pick({0, -100, 20, -32700}));
            w.graphs.ProfileXHigh = static_cast<std::int16_t>(pick({100, 1000, 32700}));
            w.settings.Back_Step_Linear = static_cast<std::int16_t>(pick({0, 0, 1, 2, 4}));
            w.settings.Back_Draw_Width = static_cast<std::int16_t>(pick({1, 2, 3}));
            w.intake.ProfileScale = pick({1, 2, 0.5, 0.333333});
            const std::int32_t most = static_cast<std::int32_t>(pick({150, 3000, 100000}));
            station.Fill(0, [&](int) {
                return static_cast<std::int32_t>(random() % 100000) % most - most / 4;
            });
            UpdateBackscatterPlot(w);
            Surface expected;
            GraphStation::Size(expected, 100, 50);
            DrawByRules(station, expected, model == 50);
            ASSERT_EQ(PixelsOf(station.Plot()), PixelsOf(expected)) << model << ' ' << round;
        }
    }
}

// A line that comes from the other side is drawn down to a value on the bound, and not to one that
// stops there.
TEST(PlotProfile, OnlyTheFinerFormStopsOnTheLowerBound) {
    for (const int model : {20, 30}) {
        PlotStation station(model);
        const int finer = model == 30 ? 10 : 1;
        station.Fill(0, [&](int gate) {
            if (gate == 20) return 5000 * finer;  // to 98 on row 30
            return (gate == 21 ? -2 : 50) * finer;
        });
        UpdateBackscatterPlot(station.w);
        EXPECT_EQ(station.Plot().Pixel(60, 30), model == 20 ? Black : White) << model;
        EXPECT_EQ(station.Plot().Pixel(80, 30), Black) << model;
        EXPECT_EQ(station.Plot().Pixel(10, 29), Black) << model;
    }
}

TEST(PlotProfile, NothingToDrawOrToDrawOn) {
    const struct {
        const char* what;
        std::int16_t yLow, yHigh, xLow, xHigh;
        int width, height;
        int error;
    } cases[] = {
        {"no heights", 50, 50, 0, 100, 100, 50, 0},
        {"heights the wrong way round", 60, 50, 0, 100, 100, 50, 0},
        {"no plot units", 0, 50, 100, 100, 100, 50, 11},
        {"no columns", 0, 50, 0, 100, 0, 50, 0},
        {"no rows", 0, 50, 0, 100, 100, 0, 0},
        {"a gate below the first", -1, 50, 0, 100, 100, 50, 9},
        {"more than 16 bits of gates", 0, 32767, 0, 100, 100, 50, 6},
    };
    for (const auto& c : cases) {
        PlotStation station;
        station.Graphs().ProfileYLow = c.yLow;
        station.Graphs().ProfileYHigh = c.yHigh;
        station.Graphs().ProfileXLow = c.xLow;
        station.Graphs().ProfileXHigh = c.xHigh;
        station.FillLevel(0, 30);
        GraphStation::Size(station.Plot(), c.width, c.height);
        EXPECT_EQ(ErrorOf([&] { UpdateBackscatterPlot(station.w); }), c.error) << c.what;
        EXPECT_TRUE(IsAll(station.Plot(), White)) << c.what;
    }
}

TEST(PlotProfile, RaisesForMoreGatesThanASlotHolds) {
    for (const int model : {20, 30}) {
        PlotStation station(model);
        station.w.model.ProfileLength = 3000;
        station.Graphs().ProfileYHigh = 2048;
        station.FillLevel(0, 30);
        EXPECT_EQ(ErrorOf([&] { UpdateBackscatterPlot(station.w); }), 0) << model;
        station.Graphs().ProfileYHigh = 2049;
        EXPECT_EQ(ErrorOf([&] { UpdateBackscatterPlot(station.w); }), 9) << model;
    }
}

TEST(PlotProfile, LeavesTheScaleAsItWas) {
    PlotStation station;
    station.Plot().ScaleMode = 0;
    station.Plot().ScaleLeft = 1, station.Plot().ScaleTop = 2;
    station.Plot().ScaleWidth = 3, station.Plot().ScaleHeight = 4;
    station.FillLevel(0, 30);
    UpdateBackscatterPlot(station.w);
    EXPECT_EQ(station.Plot().ScaleMode, 0);
    EXPECT_EQ(station.Plot().ScaleLeft, 1);
    EXPECT_EQ(station.Plot().ScaleTop, 2);
    EXPECT_EQ(station.Plot().ScaleWidth, 3);
    EXPECT_EQ(station.Plot().ScaleHeight, 4);
}

// ---- The average ----

// The mean at gate 7; nothing when no message went in.
double MeanOf(PlotStation& station, int count) {
    AveragedProfile averaged{};
    averaged[7] = -1;
    const bool any = AverageProfiles(station.w, averaged, count);
    EXPECT_EQ(any, averaged[7] != 0);
    return static_cast<double>(averaged[7]);
}

TEST(AverageProfiles, TheNewestSlotsGoInAsManyAsAreValid) {
    const struct {
        const char* what;
        std::vector<int> invalid;  // slots back from the current one
        int count;
        double mean;  // the slots hold 100, 200, 300 ... from the current one back
    } cases[] = {
        {"one", {}, 1, 100},
        {"five", {}, 5, 300},
        {"all", {}, 30, 1550},
        {"round and round", {}, 60, 1550},
        {"one of five is not valid: the four newest", {4}, 5, 250},
        {"whichever it was", {0}, 5, 250},
        {"two of five", {1, 3}, 5, 200},
        {"an invalid one behind the count", {5}, 5, 300},
        {"no message", {0, 1, 2, 3, 4}, 5, 0},
        {"none wanted", {}, 0, 0},
        {"less than none", {}, -3, 0},
    };
    for (const auto& c : cases) {
        PlotStation station;
        station.Graphs().AverageScale = 1;
        for (int back = 0; back < 30; ++back) station.FillLevel(back, 100 * (back + 1));
        for (const int back : c.invalid) station.Slot(back).Valid = 0;
        EXPECT_EQ(MeanOf(station, c.count), c.mean) << c.what;
    }
}

TEST(AverageProfiles, EachGateHasItsOwnMeanWithinTheRange) {
    PlotStation station;
    station.Graphs().AverageScale = 1;
    station.Graphs().ProfileYLow = 10;
    station.Fill(0, [](int gate) { return gate; });
    station.Fill(1, [](int gate) { return 2 * gate + 1; });
    AveragedProfile averaged{};
    averaged.fill(-1);
    EXPECT_TRUE(AverageProfiles(station.w, averaged, 2));
    for (int gate = 0; gate < 2049; ++gate) {
        const double mean = gate >= 10 && gate <= 50 ? 1.5 * gate + 0.5 : -1;
        EXPECT_EQ(static_cast<double>(averaged[static_cast<std::size_t>(gate)]), mean) << gate;
    }
    station.Graphs().ProfileYHigh = 300;  // beyond the profile
    EXPECT_TRUE(AverageProfiles(station.w, averaged, 2));
    EXPECT_EQ(averaged[255], 383.0F);
    EXPECT_EQ(averaged[256], -1.0F);
}

TEST(AverageProfiles, FinerCountsBecomePlotUnits) {
    for (const int model : {30, 50}) {
        PlotStation station(model);
        station.Graphs().AverageScale = 1;
        station.FillLevel(0, 25);
        station.FillLevel(1, 30);
        EXPECT_EQ(MeanOf(station, 2), 2.75) << model;
    }
}

TEST(AverageProfiles, AnotherScaleBeginsAfresh) {
    PlotStation station;
    station.Graphs().AverageScale = 1;
    for (int back = 0; back < 30; ++back) station.FillLevel(back, 100 * (back + 1));
    EXPECT_EQ(MeanOf(station, 5), 300);
    station.w.intake.ProfileScale = 2;
    EXPECT_EQ(MeanOf(station, 5), 100);
    EXPECT_EQ(station.Graphs().AverageScale, 2);
    for (int back = 0; back < 30; ++back) EXPECT_EQ(station.Slot(back).Valid, back == 0 ? -1 : 0);
    station.Graphs().ProfileSlot = 5;
    station.FillLevel(0, 500);
    EXPECT_EQ(MeanOf(station, 5), 300) << "500 and 100";
}

TEST(AverageProfiles, SumsThatOverflow) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t newest, before;
        int error;
    } cases[] = {{most - 1, 1, 0}, {most, 1, 6}, {-most, -1, 0}, {-most, -2, 6}, {most, -most, 0}};
    for (const auto& c : cases) {
        PlotStation station;
        station.Graphs().AverageScale = 1;
        station.FillLevel(0, c.newest);
        station.FillLevel(1, c.before);
        AveragedProfile averaged{};
        EXPECT_EQ(ErrorOf([&] { AverageProfiles(station.w, averaged, 2); }), c.error) << c.newest;
    }
    PlotStation station;
    station.Graphs().AverageScale = 1;
    station.FillLevel(0, most);
    station.FillLevel(1, most);
    station.FillLevel(2, -most);
    AveragedProfile averaged{};
    EXPECT_EQ(ErrorOf([&] { AverageProfiles(station.w, averaged, 3); }), 6) << "on its way";
}

TEST(AverageProfiles, GoesRoundTheRing) {
    PlotStation station;
    station.Graphs().AverageScale = 1;
    station.Graphs().ProfileSlot = 0;
    station.FillLevel(0, 100);
    station.FillLevel(1, 300);  // slot 29
    EXPECT_EQ(station.Graphs().ProfileRing[29].Profile[7], 300);
    EXPECT_EQ(MeanOf(station, 2), 200);
}

}  // namespace
}  // namespace cumeron
