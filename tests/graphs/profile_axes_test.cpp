// The axes around the profile plot.
#include <gtest/gtest.h>

#include <cmath>

#include "graphs/axes.h"
#include "graphs/graph_station.h"

namespace cumeron {
namespace {

using namespace ink;

struct ProfileAxisStation : GraphStation {
    ProfileAxisStation(int low, int high, int width) : GraphStation(100, 255) {
        w.graphs.ProfileXLow = static_cast<std::int16_t>(low);
        w.graphs.ProfileXHigh = static_cast<std::int16_t>(high);
        GraphStation::Size(XStrip(), width, 34);
        GraphStation::Size(w.frmMain.picLines, width + 2, 255);
    }
    Surface& XStrip() { return w.frmMain.picXLabelsBack; }
    std::string XLabels() {
        std::string labels;
        for (const PrintedText& printed : XStrip().Printed()) {
            EXPECT_EQ(printed.y, 34 - 18);
            labels += printed.text + "@" + std::to_string(printed.x) + " ";
        }
        return labels;
    }
    std::string XTicks() {
        std::string ticks;
        for (int x = 0; x < XStrip().PixelWidth(); ++x) {
            const auto length = ColumnOf(XStrip(), x).find('.');
            if (length != 0) ticks += std::to_string(x) + ":" + std::to_string(length) + " ";
        }
        return ticks;
    }
};

TEST(DrawProfileAxes, StepsOfTheXAxisAreOneRoundedDigit) {
    const struct {
        const char* what;
        int low, high, width;
        const char* labels;
    } cases[] = {
        {"a step of 200, each second of ten", -1000, 1000, 500,
         "-8@46 -6@96 -4@146 -2@196 0@246 2@296 4@346 6@396 8@446 "},
        {"a step of 100", 0, 1000, 500, "1@46 2@96 3@146 4@196 5@246 6@296 7@346 8@396 9@446 "},
        {"65400: 6540 and then 7000", -32700, 32700, 654,
         "-280@35 -210@105 -140@175 -70@249 0@323 70@389 140@455 210@525 280@595 "},
        {"1600: 160 is rounded to 200", 0, 1600, 800,
         "2@96 4@196 6@296 8@396 10@492 12@592 14@692 "},
        {"1499: 150 is rounded to 200", 0, 1499, 1499,
         "2@196 4@396 6@596 8@796 10@992 12@1192 14@1392 "},
        {"1440: 144 would be more than ten of 100", 0, 1440, 720,
         "1@46 3@146 5@246 7@346 9@446 11@542 13@642 "},
        {"hundredths", 0, 10, 500,
         "0.01@38 0.02@88 0.03@138 0.04@188 0.05@238 0.06@288 0.07@338 "
         "0.08@388 0.09@438 "},
        {"tenths below nought", -20, 0, 500,
         "-0.18@38 -0.16@88 -0.14@138 -0.12@188 -0.1@242 -0.08@288 "
         "-0.06@338 -0.04@388 -0.02@438 "},
        {"narrow: each second tick", 0, 1000, 200, "2@36 4@76 6@116 8@156 "},
        {"narrower: each fourth", 0, 1000, 70, "4@24 8@52 "},
        {"very narrow: none", 0, 1000, 20, ""},
    };
    for (const auto& c : cases) {
        ProfileAxisStation station(c.low, c.high, c.width);
        DrawProfileAxes(station.w);
        EXPECT_EQ(station.XLabels(), c.labels) << c.what;
    }
}

// It wants as many pixels as it has digits, to the right of its tick.
TEST(DrawProfileAxes, ALabelThatDoesNotFitIsLeftOut) {
    const struct {
        int low, high;  // 955 plot units, each a pixel
        const char* last;
    } cases[] = {
        {-54, 901, "9@950"}, {-55, 900, "8@851"}, {47, 1002, "10@945"}, {46, 1001, "9@850"}};
    for (const auto& c : cases) {
        ProfileAxisStation station(c.low, c.high, 955);
        DrawProfileAxes(station.w);
        const std::string labels = " " + station.XLabels();
        EXPECT_EQ(labels.substr(labels.rfind(' ', labels.size() - 2) + 1),
                  c.last + std::string(" "))
            << c.high;
    }
}

TEST(DrawProfileAxes, TicksHangFromTheUpperEdge) {
    ProfileAxisStation station(0, 1000, 500);
    DrawProfileAxes(station.w);
    EXPECT_EQ(station.XTicks(), "50:8 100:8 150:8 200:8 250:8 300:8 350:8 400:8 450:8 ");
}

TEST(DrawProfileAxes, GridLinesCountInTheWidthOfThePlot) {
    ProfileAxisStation station(0, 1000, 500);
    DrawProfileAxes(station.w);
    EXPECT_TRUE(IsAll(station.w.frmMain.picLines, White));
    for (const std::int16_t shown : {std::int16_t{-1}, std::int16_t{2}}) {
        station.w.settings.Backscatter_Show_Grid = shown;
        DrawProfileAxes(station.w);
        EXPECT_TRUE(IsAll(station.w.frmMain.picLines, White)) << "1 alone is yes";
    }
    station.w.settings.Backscatter_Show_Grid = 1;
    DrawProfileAxes(station.w);
    const Surface& plot = station.w.frmMain.picLines;  // 502 x 255
    for (int x = 0; x < 502; ++x) {
        bool line = false;
        for (int i = 1; i <= 10; ++i) line = line || x == std::lround(50.2 * i);
        EXPECT_EQ(plot.Pixel(x, 1), line ? Black : White) << x;
        EXPECT_EQ(plot.Pixel(x, 2), White) << "dots";
        EXPECT_EQ(plot.Pixel(x, 253), line ? Black : White) << x;
    }
    EXPECT_EQ(RowOf(plot, 15).substr(0, 9), "#.#.#.#.#") << "24,000 ft";
    EXPECT_TRUE(plot.Printed().empty());
}

// 250 pixels and two more of the strip's border leave each tick its room; the plot has no border.
TEST(DrawProfileAxes, TicksAreThinnedByTheWidthOfTheirSurface) {
    ProfileAxisStation station(0, 1000, 249);
    station.w.settings.Backscatter_Show_Grid = 1;
    GraphStation::Size(station.w.frmMain.picLines, 250, 255);
    DrawProfileAxes(station.w);
    EXPECT_EQ(station.XStrip().Printed().size(), 9U) << "251 of 250 for ten ticks";
    int lines = 0;
    for (int x = 0; x < 250; ++x) lines += station.w.frmMain.picLines.Pixel(x, 1) == Black ? 1 : 0;
    EXPECT_EQ(lines, 4) << "250 of 250: each second, the last behind the edge";
}

TEST(DrawProfileAxes, HeightsAreThoseOfThePlot) {
    ProfileAxisStation station(0, 1000, 500);
    station.w.frmMain.picYLabels.Print("old");
    station.Graphs().ProfileYLow = 0;
    station.Graphs().ProfileYHigh = 120;
    DrawProfileAxes(station.w);
    Surface& strip = station.w.frmMain.picYLabelsBack;
    EXPECT_EQ(HeightLabelsOf(strip).substr(0, 14), "1K@234 2K@213 ");
    EXPECT_EQ(strip.Printed().size(), 12U);
    station.w.settings.Units = 1;
    strip.Cls();
    DrawProfileAxes(station.w);
    EXPECT_EQ(TextsOf(strip).back(), "3.6K");
    EXPECT_EQ(TextsOf(station.w.frmMain.picYLabels), std::vector<std::string>{"old"});
}

TEST(DrawProfileAxes, RaisesDivisionWithoutAStep) {
    const struct {
        const char* what;
        int low, high, width;
        double labels;
        int error;
    } cases[] = {
        {"a range of 4", 0, 4, 500, 500, 11},
        {"5: halves to even", 0, 5, 500, 500, 11},
        {"a range of 6", 0, 6, 500, 500, 0},
        {"nothing", 7, 7, 500, 500, 11},
        {"the wrong way round", 100, 0, 500, 500, 11},
        {"a strip of nothing", 0, 100, 500, -2, 11},
        {"a strip of one pixel", 0, 100, 1, 1, 0},
        {"the full range", -32700, 32700, 500, 500, 0},
        {"all that 16 bits hold", -32768, 32767, 500, 500, 0},
    };
    for (const auto& c : cases) {
        ProfileAxisStation station(c.low, c.high, c.width);
        station.XStrip().Width = c.labels;
        EXPECT_EQ(ErrorOf([&] { DrawProfileAxes(station.w); }), c.error) << c.what;
    }
}

TEST(DrawProfileAxes, LeavesTheSurfacesAsTheyWere) {
    ProfileAxisStation station(0, 1000, 500);
    station.w.settings.Backscatter_Show_Grid = 1;
    for (Surface* surface : {&station.XStrip(), &station.w.frmMain.picLines}) {
        surface->ScaleMode = 0;
        surface->ScaleLeft = 1, surface->ScaleTop = 2, surface->ScaleWidth = 3;
        surface->ScaleHeight = 4;
        surface->DrawWidth = 5;
        surface->DrawStyle = 2;
        surface->ForeColor = Red;
    }
    DrawProfileAxes(station.w);
    for (const Surface* surface : {&station.XStrip(), &station.w.frmMain.picLines}) {
        EXPECT_EQ(surface->ScaleMode, 0);
        EXPECT_EQ(surface->ScaleLeft, 1);
        EXPECT_EQ(surface->ScaleTop, 2);
        EXPECT_EQ(surface->ScaleWidth, 3);
        EXPECT_EQ(surface->ScaleHeight, 4);
        EXPECT_EQ(surface->DrawWidth, 1);
        EXPECT_EQ(surface->DrawStyle, 0);
        EXPECT_EQ(surface->ForeColor, Black);
    }
    EXPECT_EQ(station.XTicks().substr(0, 5), "50:8 ") << "solid";
}

}  // namespace
}  // namespace cumeron
