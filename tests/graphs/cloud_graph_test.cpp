// What one message paints into the cloud graph.
#include "graphs/cloud_graph.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "graphs/graph_station.h"
#include "platform/runtime/text.h"

namespace cumeron {
namespace {

using namespace ink;

// ---- The colours of the profile ----

struct IntensityStation : GraphStation {
    explicit IntensityStation(int model = 20, int height = 60) : GraphStation(9, height, model) {}

    void Draw(const std::vector<std::int32_t>& profile, int column = 4) {
        DrawIntensityColumn(w, profile, w.graphs.CloudYLow, w.graphs.CloudYHigh, Picture(), column);
    }
    // What a column of one value shows in the middle.
    char Shown(std::int32_t value) {
        Picture().Cls();
        Draw(Level(value));
        return ColumnOf(Picture(), 4)[30];
    }
};

TEST(DrawIntensityColumn, AValueHasTheColourOfItsClass) {
    const struct {
        std::int32_t value;
        char shown;
    } cases[] = {{-32768, '.'},  {-1, '.'},        {0, '.'},    {99, '.'},    {100, 'a'},
                 {199, 'a'},     {200, 'b'},       {349, 'b'},  {350, 'c'},   {599, 'c'},
                 {600, 'd'},     {999, 'd'},       {1000, '#'}, {32767, '#'}, {32768, '.'},
                 {1 << 30, '.'}, {-(1 << 30), '.'}};
    IntensityStation station;
    for (const auto& c : cases) EXPECT_EQ(station.Shown(c.value), c.shown) << c.value;
}

TEST(DrawIntensityColumn, FinerCountsAreRoundedToPlotUnits) {
    const struct {
        std::int32_t limit, count;  // of the lowest class; halves go to the even plot unit
        char shown;
    } cases[] = {
        {100, 994, '.'},        {100, 995, 'a'},    {100, 1004, 'a'},   {100, 1994, 'a'},
        {100, 1995, 'b'},       {101, 1005, '.'},   {101, 1006, 'a'},   {-100, -1005, 'a'},
        {-100, -1006, '.'},     {-101, -1015, '.'}, {-101, -1014, 'a'}, {100, 5994, 'c'},
        {100, 5995, 'd'},       {100, 327674, '#'}, {100, 327675, '.'}, {-32768, -327685, 'a'},
        {-32768, -327686, '.'},
    };
    for (const int model : {30, 50}) {
        IntensityStation station(model);
        for (const auto& c : cases) {
            station.w.settings.Clouds_Limit[0] = c.limit;
            EXPECT_EQ(station.Shown(c.count), c.shown) << model << ' ' << c.limit << ' ' << c.count;
        }
    }
    IntensityStation tq60(60);
    EXPECT_EQ(tq60.Shown(199), 'a') << "the other models count plot units";
}

TEST(DrawIntensityColumn, LimitsOutOfOrderLeaveClassesEmpty) {
    const struct {
        const char* what;
        std::array<std::int32_t, 5> limits;
        std::int32_t value;
        char shown;
    } cases[] = {
        {"a class that ends below its beginning", {100, 50, 350, 600, 1000}, 100, 'b'},
        {"what lies below it goes to the next", {100, 50, 350, 600, 1000}, 50, 'b'},
        {"the first that takes a value has it", {100, 500, 200, 600, 1000}, 250, 'a'},
        {"below the first limit, in a later class", {500, 100, 200, 1000, 400}, 450, 'c'},
        {"behind classes that end too early", {500, 100, 200, 1000, 400}, 1000, '#'},
        {"in the class that begins last below it", {100, 200, 150, 160, 1000}, 500, 'd'},
        {"below every limit", {500, 100, 200, 1000, 400}, 99, '.'},
        {"behind the first class", {100, 200, 150, 160, 1000}, 155, 'a'},
        {"a limit above all values", {100, 40000, 350, 600, 1000}, 32767, 'a'},
        {"and beyond them", {100, 40000, 350, 600, 1000}, 32768, '.'},
        {"all limits above them", {40000, 50000, 60000, 70000, 80000}, 32767, '.'},
        {"a limit below all values", {-40000, 200, 350, 600, 1000}, -32768, 'a'},
        {"all alike", {100, 100, 100, 100, 100}, 100, '#'},
    };
    for (const auto& c : cases) {
        IntensityStation station;
        station.w.settings.Clouds_Limit = c.limits;
        EXPECT_EQ(station.Shown(c.value), c.shown) << c.what;
    }
}

TEST(DrawIntensityColumn, FollowsTheSettingsFromColumnToColumn) {
    IntensityStation station;
    EXPECT_EQ(station.Shown(150), 'a');
    station.w.settings.Clouds_Color[0] = Red;
    EXPECT_EQ(station.Shown(150), 'R');
    station.w.settings.Clouds_Limit[1] = 150;
    EXPECT_EQ(station.Shown(150), 'b');
    station.w.settings.CEILOMETER = 30;
    LoadModel(station.w, LoadedBy::Dialog);
    EXPECT_EQ(station.Shown(1500), 'b');
}

// The rules word by word, with lines, gate by gate from the foot.
void DrawByLines(Workstation& w, const std::vector<std::int32_t>& profile, Surface& surface,
                 int column) {
    const double scale = w.intake.ProfileScale;
    const double low = w.graphs.CloudYLow, high = w.graphs.CloudYHigh;
    const int step = w.settings.Step_Linear;
    const auto edge = [&](double row) {
        return step == 0 ? row : StepHeight(row * 10 / scale, false, step) * scale / 10;
    };
    const double count = RoundHalfEven((high - low) * scale + 1);
    if (count == 1) return;
    surface.ScaleMode = 0;
    surface.ScaleLeft = surface.ScaleWidth = 0;
    surface.ScaleTop = count - 1;
    surface.ScaleHeight = 1 - count;
    surface.DrawWidth = 1;
    const double top =
        high * scale > w.model.ProfileLength ? w.model.ProfileLength : RoundHalfEven(high * scale);
    double row = 0;
    for (double gate = RoundHalfEven(low * scale); gate <= top; ++gate, ++row) {
        const double count32 = profile.at(static_cast<std::size_t>(gate));
        const bool finer = w.model.family == Family::KN;
        const double value = finer ? RoundHalfEven(count32 / 10) : count32;
        for (std::size_t i = 0; i < 5; ++i) {
            const double last = i == 4 ? 32767 : w.settings.Clouds_Limit[i + 1] - 1;
            if (value < w.settings.Clouds_Limit[i] || value > last) continue;
            surface.Line(column, edge(row), column, edge(row - 1), w.settings.Clouds_Color[i]);
            break;
        }
    }
    surface.ScaleMode = 3;
}

TEST(DrawIntensityColumn, PaintsWhatLinesFromGateToGateWould) {
    std::mt19937 random(5);
    const auto pick = [&](std::initializer_list<double> from) {
        return from.begin()[random() % from.size()];
    };
    for (const int model : {20, 30, 60}) {
        IntensityStation station(model);
        Workstation& w = station.w;
        std::vector<std::int32_t> profile = station.Level(0);
        for (int round = 0; round < 300; ++round) {
            w.graphs.CloudYLow = static_cast<std::int16_t>(pick({0, 0, 3, 20}));
            w.graphs.CloudYHigh = static_cast<std::int16_t>(pick({21, 128, 255, 257}));
            w.settings.Step_Linear = static_cast<std::int16_t>(pick({0, 0, 1, 2, 3, 4}));
            w.intake.ProfileScale = pick({1, 3, 6, 0.5, 0.333333, 1.875});
            w.settings.Clouds_Limit[random() % 5] = static_cast<int>(random() % 1000);
            w.settings.Clouds_Color[random() % 5] = static_cast<int>(random() % 0x1000000);
            const int height = static_cast<int>(pick({1, 5, 60, 257, 400, 1600}));
            GraphStation::Size(station.Picture(), 9, height);
            Surface expected = station.Picture();
            for (int message = 0; message < 3; ++message) {  // the later over the earlier ones
                for (std::int32_t& value : profile) {
                    value = static_cast<std::int32_t>(random() % 12000) - 2000;
                }
                station.Draw(profile);
                DrawByLines(w, profile, expected, 4);
            }
            ASSERT_EQ(PixelsOf(station.Picture()), PixelsOf(expected))
                << model << " round " << round << " height " << height << " scale "
                << w.intake.ProfileScale << " step " << w.settings.Step_Linear;
        }
    }
}

TEST(DrawIntensityColumn, ALowLimitBeginsAtItsGate) {
    IntensityStation station(20, 10);
    station.w.graphs.CloudYLow = 100;
    station.w.graphs.CloudYHigh = 110;
    std::vector<std::int32_t> profile = station.Level(0);
    profile[101] = 100;  // the gates 100 to 110 stand on 10 rows, the first below the foot
    profile[105] = 200;
    profile[111] = 1000;
    station.Draw(profile);
    EXPECT_EQ(ColumnOf(station.Picture(), 4), ".....bb..a");
}

TEST(DrawIntensityColumn, ValuesWithoutAColourLeaveWhatStandsThere) {
    IntensityStation station;
    station.Draw(station.Level(1000));
    std::vector<std::int32_t> profile = station.Level(99);
    for (std::size_t i = 120; i < 140; ++i) profile[i] = 100;
    station.Draw(profile);
    const std::string column = ColumnOf(station.Picture(), 4);
    EXPECT_EQ(column.find('.'), column.npos);
    EXPECT_EQ(column[30], 'a');
    EXPECT_EQ(column[0], '#');
    EXPECT_EQ(column[59], '#');
}

TEST(DrawIntensityColumn, EndsWithTheProfile) {
    IntensityStation station(50);       // 1540 gates, 514 steps
    station.w.intake.ProfileScale = 6;  // 256.7 steps of them
    station.Draw(station.Level(20000));
    const std::string column = ColumnOf(station.Picture(), 4);
    EXPECT_EQ(column.substr(0, 30), std::string(30, '.'));
    EXPECT_EQ(column.substr(30), std::string(30, '#'));
}

TEST(DrawIntensityColumn, KeepsToItsColumnAndToTheSurface) {
    for (const int column : {-1, 0, 8, 9, 20000, -20000}) {
        IntensityStation station;
        station.Draw(station.Level(1000), column);
        for (int x = 0; x < 9; ++x) {
            EXPECT_EQ(ColumnOf(station.Picture(), x), std::string(60, x == column ? '#' : '.'))
                << column << ' ' << x;
        }
    }
}

TEST(DrawIntensityColumn, NothingToDrawOrToDrawOn) {
    const struct {
        const char* what;
        std::int16_t low, high;
        int width, height;
    } cases[] = {
        {"a range of 0", 50, 50, 9, 60},
        {"limits the wrong way round", 60, 50, 9, 60},
        {"behind the profile", 300, 400, 9, 60},
        {"no columns", 0, 255, 0, 60},
        {"no rows", 0, 255, 9, 0},
    };
    for (const auto& c : cases) {
        IntensityStation station;
        GraphStation::Size(station.Picture(), c.width, c.height);
        DrawIntensityColumn(station.w, station.Level(1000), c.low, c.high, station.Picture(), 0);
        EXPECT_TRUE(IsAll(station.Picture(), White)) << c.what;
    }
}

TEST(DrawIntensityColumn, RaisesWhatTheProfileDoesNotHave) {
    const struct {
        const char* what;
        std::int16_t low, high;
        double scale;
        std::size_t gates;
        int error;
    } cases[] = {
        {"all there", 0, 255, 1, 256, 0},
        {"a gate short", 0, 255, 1, 255, 9},
        {"a gate below the first", -1, 255, 1, 256, 9},
        {"limits beyond 16 bits", 0, 30000, 2, 256, 6},
        {"a scale beyond 16 bits", 0, 255, 1e300, 256, 6},
        {"no number", 0, 255, std::nan(""), 256, 6},
    };
    for (const auto& c : cases) {
        IntensityStation station;
        station.w.intake.ProfileScale = c.scale;
        const std::vector<std::int32_t> profile(c.gates, 1000);
        EXPECT_EQ(ErrorOf([&] {
                      DrawIntensityColumn(station.w, profile, c.low, c.high, station.Picture(), 4);
                  }),
                  c.error)
            << c.what;
    }
}

// Three gates to the thousand more move rows without another gate.
TEST(DrawIntensityColumn, OnTheSteppedScaleEachResolutionHasItsRows) {
    const auto draw = [](IntensityStation& station, double scale) {
        station.w.settings.Step_Linear = 1;
        station.Graphs().CloudYHigh = 128;
        station.w.intake.ProfileScale = scale;
        std::vector<std::int32_t> profile = station.Level(100);
        for (std::size_t i = 0; i < profile.size(); i += 2) profile[i] = 200;
        station.Picture().Cls();
        station.Draw(profile);
        return ColumnOf(station.Picture(), 4);
    };
    IntensityStation station(20, 1600);
    IntensityStation fresh(20, 1600);
    const std::string coarse = draw(station, 1);
    const std::string fine = draw(station, 1.003);
    EXPECT_NE(fine, coarse);
    EXPECT_EQ(fine, draw(fresh, 1.003));
}

TEST(DrawIntensityColumn, AFailedColumnSpoilsNoLaterOne) {
    IntensityStation station;
    station.w.settings.Step_Linear = 1;
    station.Graphs().CloudYHigh = 128;
    EXPECT_EQ(station.Shown(1000), '#');
    station.w.intake.ProfileScale = 0.001;
    station.w.graphs.CloudYHigh = 32000;  // the step scale of it leaves 16 bits
    EXPECT_EQ(ErrorOf([&] { station.Draw(station.Level(1000)); }), 6);
    EXPECT_EQ(ErrorOf([&] { station.Draw(station.Level(1000)); }), 6) << "and again";
    station.w.intake.ProfileScale = 1;
    station.w.graphs.CloudYHigh = 128;
    EXPECT_EQ(station.Shown(1000), '#');
}

// ---- The points of the cloud heights ----

// A graph in which a height step is a row: h tens of feet stand 255 - h / 10 rows from the top.
struct HitStation : GraphStation {
    HitStation() : GraphStation(9, 255) {
        w.settings.Cloudhit_Color = Red;
        w.settings.Vertical_V_Color = Class[0];
        w.settings.Highest_S_Color = Class[1];
        w.settings.Chit_Point_Size = 0;
    }
    void Draw(const char* first, const char* second, const char* third,
              const char* text = "Cloud Height 1") {
        w.frmMain.CloudValue[0].Caption = first;
        w.frmMain.CloudValue[1].Caption = second;
        w.frmMain.CloudValue[2].Caption = third;
        w.frmMain.lblCloudtext[0].Caption = text;
        DrawCloudHits(w, w.graphs.CloudYLow, w.graphs.CloudYHigh, Picture(), 4);
    }
    // The rows of a column that are not white, each with its letter: "R204".
    std::string Points(int column = 4) {
        std::string points;
        const std::string letters = ColumnOf(Picture(), column);
        for (std::size_t y = 0; y < letters.size(); ++y) {
            if (letters[y] != '.') points += letters[y] + std::to_string(y) + ' ';
        }
        return points;
    }
};

TEST(DrawCloudHits, ReadsTheCaptionsByTheUnit) {
    const struct {
        const char* caption;
        std::int16_t feet, metres;  // tens of feet
    } cases[] = {{"05130", 513, 1687}, {"00009", 0, 7},     {"00010", 1, 8},    {"  123", 12, 45},
                 {"-----", 0, 0},      {"", 0, 0},          {"/////", 0, 0},    {"00000", 0, 5},
                 {"00999", 99, 332},   {"-0100", -10, -28}, {"01000", 100, 333}};
    for (const auto& c : cases) {
        HitStation station;
        station.Draw(c.caption, "", "");
        EXPECT_EQ(station.Graphs().CloudHitHeights[1], c.feet) << c.caption;
        for (const std::int16_t units : {std::int16_t{1}, std::int16_t{2}}) {
            station.w.settings.Units = units;
            station.Draw("", c.caption, c.caption);
            EXPECT_EQ(station.Graphs().CloudHitHeights[1], 0) << c.caption;
            EXPECT_EQ(station.Graphs().CloudHitHeights[2], c.metres) << c.caption;
            EXPECT_EQ(station.Graphs().CloudHitHeights[3], c.metres) << c.caption;
        }
    }
}

TEST(DrawCloudHits, HeightsStandOnTheScaleOfTheGraph) {
    const struct {
        const char* what;
        std::int16_t step, low, high;
        const char* height;
        const char* points;
    } cases[] = {
        {"a row to the step", 0, 0, 255, "05100", "R204 "},
        {"to the nearest row", 0, 0, 255, "05140", "R204 "},
        {"and up from the half", 0, 0, 255, "05150", "R204 "},
        {"above it", 0, 0, 255, "05160", "R203 "},
        {"at the top", 0, 0, 255, "25500", "R0 "},
        {"above the top", 0, 0, 255, "25600", ""},
        {"from a low limit on", 0, 40, 295, "05000", "R245 "},
        {"below the low limit", 0, 40, 295, "03000", ""},
        {"on the stepped scale", 2, 0, 255, "12000", "R73 "},
        {"one step higher at its top", 2, 0, 255, "24000", "R5 "},
    };
    for (const auto& c : cases) {
        HitStation station;
        station.w.settings.Step_Linear = c.step;
        station.Graphs().CloudYLow = c.low;
        station.Graphs().CloudYHigh = c.high;
        station.Draw(c.height, "-----", "-----");
        EXPECT_EQ(station.Points(), c.points) << c.what;
        EXPECT_EQ(station.Points(3) + station.Points(5), "") << c.what;
    }
}

TEST(DrawCloudHits, StepsAreCountedInFeetInEitherUnit) {
    HitStation station;
    station.w.settings.Step_Linear = 2;
    station.w.settings.Units = 1;
    station.Draw("03000", "", "");
    EXPECT_EQ(station.Graphs().CloudHitHeights[1], StepHeight(989, false, 2));
    EXPECT_EQ(station.Graphs().CloudHitHeights[2], 0);
}

TEST(DrawCloudHits, APointIsOnePixelWiderThanItsSize) {
    const struct {
        std::int16_t size;
        int from, to;  // rows and columns around row 204, column 4
    } cases[] = {{0, 0, 0}, {1, -1, 0}, {2, -1, 1}};
    for (const auto& c : cases) {
        HitStation station;
        station.w.settings.Chit_Point_Size = c.size;
        station.Draw("05100", "-----", "-----");
        for (int y = 200; y < 209; ++y) {
            for (int x = 0; x < 9; ++x) {
                const bool inside =
                    x - 4 >= c.from && x - 4 <= c.to && y - 204 >= c.from && y - 204 <= c.to;
                EXPECT_EQ(station.Picture().Pixel(x, y), inside ? Red : White)
                    << c.size << ' ' << x << ' ' << y;
            }
        }
    }
}

TEST(DrawCloudHits, TheTextPicksTheColours) {
    const struct {
        const char* text;
        const char* points;
    } cases[] = {{"Cloud Height 1", "R154 R204 R245 "},
                 {"V-Visibility", "b204 a245 "},
                 {"V-Visibility ", "R154 R204 R245 "},
                 {"v-visibility", "R154 R204 R245 "},
                 {"", "R154 R204 R245 "}};
    for (const auto& c : cases) {
        HitStation station;
        station.Draw("01000", "05100", "10100", c.text);
        EXPECT_EQ(station.Points(), c.points) << c.text;
    }
}

TEST(DrawCloudHits, EachHeightIsDrawnOrLeftOutForItself) {
    const struct {
        const char* what;
        const char* heights[3];
        const char* text;
        const char* points;
    } cases[] = {
        {"no cloud", {"-----", "-----", "-----"}, "Cloud Height 1", ""},
        {"the second alone", {"-----", "05100", "-----"}, "Cloud Height 1", "R204 "},
        {"the third alone", {"-----", "00000", "05100"}, "Cloud Height 1", "R204 "},
        {"no visibility, but a signal", {"-----", "05100", "01000"}, "V-Visibility", "b204 "},
        {"no signal", {"05100", "-----", ""}, "V-Visibility", "a204 "},
    };
    for (const auto& c : cases) {
        HitStation station;
        station.w.settings.Chit_Point_Size = 0;
        station.Draw(c.heights[0], c.heights[1], c.heights[2], c.text);
        EXPECT_EQ(station.Points(), c.points) << c.what;
    }
}

// A wide point on the foot would reach into the picture.
TEST(DrawCloudHits, ComparesTensOfFeetWithTheLowLimitAsTheyStand) {
    const struct {
        const char* height;
        std::int16_t low;
        bool drawn;
    } cases[] = {{"00000", 0, false},
                 {"00010", 0, true},
                 {"00009", 0, false},
                 {"00020", 2, false},
                 {"00030", 2, true}};
    for (const auto& c : cases) {
        HitStation station;
        station.w.settings.Chit_Point_Size = 8;
        station.Graphs().CloudYLow = c.low;
        station.Graphs().CloudYHigh = static_cast<std::int16_t>(c.low + 255);
        station.Draw(c.height, "", "");
        EXPECT_EQ(!station.Points().empty(), c.drawn) << c.height;
    }
}

TEST(DrawCloudHits, LeavesItsScaleOnTheSurface) {
    HitStation station;
    Surface& surface = station.Picture();
    surface.ScaleLeft = surface.ScaleWidth = 7;
    surface.DrawMode = DrawInvert;
    station.Graphs().CloudYLow = 10;
    station.Draw("05100", "", "");
    EXPECT_EQ(surface.ScaleMode, 0);
    EXPECT_EQ(surface.ScaleLeft, 0);
    EXPECT_EQ(surface.ScaleTop, 246);
    EXPECT_EQ(surface.ScaleWidth, 0);
    EXPECT_EQ(surface.ScaleHeight, -245);
    EXPECT_EQ(surface.DrawMode, DrawCopy);
}

TEST(DrawCloudHits, ARangeOfNothingDrawsNothing) {
    HitStation station;
    station.Graphs().CloudYLow = station.Graphs().CloudYHigh = 50;
    station.Draw("05100", "", "");
    EXPECT_EQ(station.Graphs().CloudHitHeights[1], 510);
    EXPECT_TRUE(IsAll(station.Picture(), White));
}

TEST(DrawCloudHits, RaisesAHeightBeyond16Bits) {
    HitStation station;
    EXPECT_EQ(ErrorOf([&] { station.Draw("327670", "", ""); }), 0);
    EXPECT_EQ(ErrorOf([&] { station.Draw("327680", "", ""); }), 6);
    station.w.settings.Units = 1;
    EXPECT_EQ(ErrorOf([&] { station.Draw("99999", "", ""); }), 6);
}

}  // namespace
}  // namespace cumeron
