#include "graphs/axes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graphs/graph_station.h"

namespace cumeron {
namespace {

using namespace ink;

TEST(SetGraphCaptions, XCaptionsFollowTheView) {
    const struct {
        bool linePlot, split;
        const char* caption;
        bool backVisible;
    } cases[] = {
        {false, false, "TIME (h)", false},
        {false, true, "TIME (h)", false},
        {true, true, "TIME (h)", true},
        {true, false, "Backscatter (100*srad*km)^-1", false},
    };
    ScriptedMachine machine;
    Workstation w(machine.platform);
    for (const auto& c : cases) {
        w.frmMain.mnuLinePlot.Checked = c.linePlot;
        w.frmMain.mnuSplitScreen.Checked = c.split;
        w.frmMain.lblXaxisBack.Visible = !c.backVisible;
        w.frmMain.lblXaxisBack.Caption.clear();
        SetGraphCaptions(w);
        EXPECT_EQ(w.frmMain.lblXaxis.Caption, c.caption) << c.linePlot << c.split;
        EXPECT_EQ(w.frmMain.lblXaxisBack.Visible, c.backVisible) << c.linePlot << c.split;
        if (c.backVisible) {
            EXPECT_EQ(w.frmMain.lblXaxisBack.Caption, "BackScatter");
        }
    }
}

TEST(SetGraphCaptions, UnitAndTiltPickTheImageAndTheCaption) {
    const struct {
        std::int16_t units, tilted;
        Image FrmMain::*shown;
        const char* unit;
    } cases[] = {
        {0, 0, &FrmMain::imgYaxisFt, "[ft]"},    {1, 0, &FrmMain::imgYaxisM, "[m]"},
        {0, 1, &FrmMain::imgYaxisdisFT, "[ft]"}, {1, 1, &FrmMain::imgYaxisdisM, "[m]"},
        {2, 0, &FrmMain::imgYaxisM, "[m]"},
    };
    ScriptedMachine machine;
    Workstation w(machine.platform);
    for (const auto& c : cases) {
        w.settings.Units = c.units;
        w.readings.Tilted = c.tilted;
        SetGraphCaptions(w);
        for (const auto image : {&FrmMain::imgYaxisFt, &FrmMain::imgYaxisM, &FrmMain::imgYaxisdisFT,
                                 &FrmMain::imgYaxisdisM}) {
            EXPECT_EQ((w.frmMain.*image).Visible, image == c.shown) << c.units << c.tilted;
        }
        EXPECT_EQ(w.graphs.UnitLabel, c.unit);
        EXPECT_EQ(w.frmMain.fraValues.Caption, std::string("Instant Values ") + c.unit);
    }
}

// ---- Height axes ----

// A label strip of 44 x height pixels.
struct HeightStation : GraphStation {
    explicit HeightStation(int height = 255, int model = 20) : GraphStation(100, height, model) {}
    Surface& Strip() { return w.frmMain.picYLabels; }
    void Draw(double low, double high, Plot plot = CloudPlot) {
        DrawHeightAxis(w, low, high, Strip(), 0, false, plot);
    }
    std::string Labels() { return HeightLabelsOf(Strip()); }
    std::string Texts() {
        std::string texts;
        for (const std::string& text : TextsOf(Strip())) texts += text + " ";
        return texts;
    }
};

TEST(DrawHeightAxis, StepsAreOneDigitOfATenthOfTheRange) {
    const struct {
        const char* what;
        double low, high;
        const char* labels;
    } cases[] = {
        {"25.5: 26 and then 3", 0, 25.5, "3K 6K 9K 12K 15K 18K 21K 24K "},
        {"24.4: 24 and then 2", 0, 24.4, "2K 4K 6K 8K 10K 12K 14K 16K 18K 20K 22K 24K "},
        {"25: halves go to the even 2", 0, 25, "2K 4K 6K 8K 10K 12K 14K 16K 18K 20K 22K 24K "},
        {"75.1: one digit of 8", 0, 75.1, "8K 16K 24K 32K 40K 48K 56K 64K 72K "},
        {"160: one digit of 16", 0, 160,
         "10K 20K 30K 40K 50K 60K 70K 80K 90K 100K 110K 120K 130K 140K 150K 160K "},
        {"7.7 kilometres", 0, 7.7, "1K 2K 3K 4K 5K 6K 7K "},
        {"6: the least range of whole steps", 0, 6, "1K 2K 3K 4K 5K 6K "},
        {"5: tenths", 0, 5, "0.5K 1K 1.5K 2K 2.5K 3K 3.5K 4K 4.5K 5K "},
        {"3: tenths", 0, 3, "0.3K 0.6K 0.9K 1.2K 1.5K 1.8K 2.1K 2.4K 2.7K 3K "},
        {"12.6 from 2.4 on", 2.4, 15, "3K 4K 5K 6K 7K 8K 9K 10K 11K 12K 13K 14K 15K "},
        {"tenths from 3 on; 1.8 / 0.2 is a hair below 9", 3, 5,
         "3.2K 3.4K 3.6K 3.8K 4K 4.2K 4.4K 4.6K 4.8K "},
        {"below the ground", -8, 4, "-7K -6K -5K -4K -3K -2K -1K 0K 1K 2K 3K 4K "},
        {"tenths on both sides", -1, 1, "-0.8K -0.6K -0.4K -0.2K 0K 0.2K 0.4K 0.6K 0.8K 1K "},
        {"less than a half: no step", 0, 0.4, ""},
        {"nothing", 7, 7, ""},
    };
    for (const auto& c : cases) {
        HeightStation station;
        station.Draw(c.low, c.high);
        EXPECT_EQ(station.Texts(), c.labels) << c.what;
    }
}

TEST(DrawHeightAxis, TicksAndLabelsStandAtTheirHeights) {
    HeightStation station;
    station.Draw(0, 25.5);
    EXPECT_EQ(station.Labels(), "3K@225 6K@195 9K@165 12K@135 15K@105 18K@75 21K@45 24K@15 ");
    for (const PrintedText& label : station.Strip().Printed()) EXPECT_EQ(label.x, 3);
    for (int y = 0; y < 255; ++y) {
        const bool tick = y >= 15 && (255 - y) % 30 == 0;
        EXPECT_EQ(RowOf(station.Strip(), y), std::string(39, '.') + (tick ? "#####" : "....."))
            << y;
    }
}

TEST(DrawHeightAxis, ALowLimitIsTheFootAndATopLabelStandsAboveItsTick) {
    HeightStation station(200);
    station.Draw(4, 14);
    EXPECT_EQ(station.Labels(),
              "5K@180 6K@160 7K@140 8K@120 9K@100 10K@80 11K@60 12K@40 13K@20 14K@0 ");
    EXPECT_EQ(RowOf(station.Strip(), 0), std::string(39, '.') + "#####");
}

TEST(DrawHeightAxis, AsAGridLinesGoAcrossInDots) {
    HeightStation station;
    Surface& picture = station.Picture();
    DrawHeightAxis(station.w, 0, 25.5, picture, 4, true, CloudPlot);
    EXPECT_TRUE(picture.Printed().empty());
    for (int y = 0; y < 255; ++y) {
        for (int x = 0; x < 100; ++x) {
            const bool line = y >= 15 && (255 - y) % 30 == 0 && x % 2 == 0;
            ASSERT_EQ(picture.Pixel(x, y), line ? QBColor(4) : White) << x << ' ' << y;
        }
    }
}

TEST(DrawHeightAxis, TheStepScaleHasTwelveTicksAlways) {
    const struct {
        std::int16_t step, units;
        const char* labels;
    } cases[] = {
        {1, 0, "1K 2K 3K 4K 5K 6K 7K 8K 9K 10K 11K 12K "},
        {2, 0, "2K 4K 6K 8K 10K 12K 14K 16K 18K 20K 22K 24K "},
        {3, 0, "4K 8K 12K 16K 20K 24K 28K 32K 36K 40K 44K 48K "},
        {4, 0, "6K 12K 18K 24K 30K 36K 42K 48K 54K 60K 66K 72K "},
        {1, 1, "0.3K 0.6K 0.9K 1.2K 1.5K 1.8K 2.1K 2.4K 2.7K 3K 3.3K 3.6K "},
        {2, 1, "0.6K 1.2K 1.8K 2.4K 3K 3.6K 4.2K 4.8K 5.4K 6K 6.6K 7.2K "},
        {3, 1, "1.2K 2.4K 3.6K 4.8K 6K 7.2K 8.4K 9.6K 10.8K 12K 13.2K 14.4K "},
        {4, 1, "1.8K 3.6K 5.4K 7.2K 9K 10.8K 12.6K 14.4K 16.2K 18K 19.8K 21.6K "},
        {1, 2, "1K 2K 3K 4K 5K 6K 7K 8K 9K 10K 11K 12K "},
    };
    for (const auto& c : cases) {
        for (const Plot plot : {CloudPlot, ProfilePlot}) {
            HeightStation station;
            station.w.settings.Units = c.units;
            (plot == CloudPlot ? station.w.settings.Step_Linear
                               : station.w.settings.Back_Step_Linear) = c.step;
            station.Draw(0, 12.8, plot);
            EXPECT_EQ(station.Texts(), c.labels) << c.step << ' ' << c.units << ' ' << plot;
            station.Strip().Cls();
            station.Draw(0, 5, plot == CloudPlot ? ProfilePlot : CloudPlot);
            EXPECT_EQ(station.Texts(), "0.5K 1K 1.5K 2K 2.5K 3K 3.5K 4K 4.5K 5K ")
                << "the scale of the other plot";
        }
    }
}

// 128 height steps on 1280 pixels: a tenth of a step to the pixel.
TEST(DrawHeightAxis, TicksOfTheStepScaleStandWhereItsHeightsAre) {
    HeightStation feet(1280);
    feet.w.settings.Step_Linear = 1;
    feet.Draw(0, 12.8);
    std::string expected;
    for (int i = 1; i <= 12; ++i) {
        const int row = 1280 - StepHeight(100 * i, false, 1);
        expected += std::to_string(i) + "K@" + std::to_string(row) + " ";
        EXPECT_EQ(RowOf(feet.Strip(), row), std::string(39, '.') + "#####") << i;
    }
    EXPECT_EQ(feet.Labels(), expected);

    HeightStation metres(388);  // 12.8 / 3.3 kilometres
    metres.w.settings.Step_Linear = metres.w.settings.Units = 1;
    metres.Draw(0, 3.88);
    EXPECT_EQ(metres.Labels().substr(0, 16), "0.3K@320 0.6K@25");
    EXPECT_EQ(388 - StepHeight(30, true, 1), 320);
}

TEST(DrawHeightAxis, ARangeOfNothingHasNoSteps) {
    for (const double height : {0.0, 12.8}) {
        HeightStation station;
        station.w.settings.Step_Linear = 1;
        station.Draw(height, height);
        EXPECT_TRUE(IsAll(station.Strip(), White));
        EXPECT_EQ(station.Texts(), "");
    }
}

TEST(DrawHeightAxis, StepsAreDrawnInBlackWhateverTheColour) {
    HeightStation station;
    station.w.settings.Step_Linear = 1;
    DrawHeightAxis(station.w, 0, 12.8, station.Picture(), 4, true, CloudPlot);
    EXPECT_EQ(station.Picture().ForeColor, Black);
    int black = 0;
    for (int y = 0; y < 255; ++y) black += station.Picture().Pixel(0, y) == Black ? 1 : 0;
    EXPECT_EQ(black, 12);
    EXPECT_EQ(station.Picture().Pixel(1, 5), White);
}

TEST(DrawHeightAxis, LeavesTheSurfaceAsItWas) {
    for (const std::int16_t step : {std::int16_t{0}, std::int16_t{1}}) {
        for (const bool asGrid : {false, true}) {
            HeightStation station;
            station.w.settings.Step_Linear = step;
            Surface& surface = station.Strip();
            surface.ScaleMode = 0;
            surface.ScaleLeft = 1, surface.ScaleTop = 2, surface.ScaleWidth = 3;
            surface.ScaleHeight = 4;
            surface.DrawWidth = 5;
            surface.DrawStyle = 2;
            DrawHeightAxis(station.w, 0, 12.8, surface, 4, asGrid, CloudPlot);
            EXPECT_EQ(surface.ScaleMode, 0);
            EXPECT_EQ(surface.ScaleLeft, 1);
            EXPECT_EQ(surface.ScaleTop, 2);
            EXPECT_EQ(surface.ScaleWidth, 3);
            EXPECT_EQ(surface.ScaleHeight, 4);
            EXPECT_EQ(surface.DrawStyle, 0);
            EXPECT_EQ(surface.DrawWidth, 1);
            EXPECT_EQ(surface.ForeColor, step == 0 ? QBColor(4) : Black);
            // A solid tick, or every second pixel.
            const int row = step == 0 ? 235 : surface.PixelHeight() - 45;
            EXPECT_EQ(RowOf(surface, row).substr(40, 2),
                      asGrid ? (step == 0 ? "?." : "#.") : (step == 0 ? "??" : "##"));
        }
    }
}

TEST(DrawHeightAxis, ASurfaceOfNothingTakesIt) {
    for (const std::int16_t step : {std::int16_t{0}, std::int16_t{1}}) {
        HeightStation station;
        station.w.settings.Step_Linear = step;
        GraphStation::Size(station.Strip(), 44, 0);
        station.Draw(0, 12.8);
        GraphStation::Size(station.Strip(), 0, 60);
        station.Draw(0, 12.8);
        EXPECT_EQ(station.Strip().PixelWidth(), 0);
    }
}

TEST(DrawCloudHeightLabels, AreThousandsOfFeetOrKilometres) {
    const struct {
        int model;
        std::int16_t units;
        const char* last;
        std::size_t count;
    } cases[] = {
        {20, 0, "24K", 8},  {20, 1, "7K", 7},  {70, 0, "72K", 9},  {70, 1, "22K", 11},
        {30, 0, "24K", 8},  {30, 1, "7K", 7},  {50, 0, "50K", 10}, {50, 1, "14K", 7},
        {60, 0, "50K", 10}, {60, 1, "14K", 7}, {10, 0, "12K", 12}, {10, 2, "3.6K", 9},
    };
    for (const auto& c : cases) {
        HeightStation station(255, c.model);
        station.w.settings.Units = c.units;
        DrawCloudHeightLabels(station.w);
        const auto texts = TextsOf(station.Strip());
        ASSERT_EQ(texts.size(), c.count) << c.model << ' ' << c.units;
        EXPECT_EQ(texts.back(), c.last) << c.model << ' ' << c.units;
    }
}

// 257 steps of a KN are 7.713 kilometres, 255 of an RV 7.727: the divisors are not the same.
TEST(DrawCloudHeightLabels, StandWhereTheirHeightsAre) {
    HeightStation kn(2570, 30);
    kn.w.settings.Units = 1;
    DrawCloudHeightLabels(kn.w);
    EXPECT_EQ(kn.Labels(), "1K@2237 2K@1904 3K@1570 4K@1237 5K@904 6K@571 7K@238 ");
    HeightStation rv(2550, 20);
    rv.w.settings.Units = 1;
    DrawCloudHeightLabels(rv.w);
    EXPECT_EQ(rv.Labels(), "1K@2220 2K@1890 3K@1560 4K@1230 5K@900 6K@570 7K@240 ");
    rv.w.settings.Units = 0;
    rv.Graphs().CloudYLow = 100;
    rv.Graphs().CloudYHigh = 200;
    rv.Strip().Cls();
    DrawCloudHeightLabels(rv.w);
    EXPECT_EQ(rv.Labels().substr(0, 17), "11K@2295 12K@2040");
}

TEST(DrawSnapshotHeights, AreThoseOfTheSnapshot) {
    HeightStation station(240);
    station.Graphs().GridSnapshot = {0, 120, 0, 0, 0};
    station.w.settings.Units = 1;
    DrawSnapshotHeights(station.w, station.Picture());
    for (int y = 0; y < 240; ++y) {  // a line each 1000 ft of 12
        EXPECT_EQ(station.Picture().Pixel(0, y), y % 20 == 0 ? Black : White) << y;
        EXPECT_EQ(station.Picture().Pixel(1, y), White) << y;
    }
    station.Picture().Cls();
    station.Graphs().GridSnapshot = {0, 128, 0, 0, 1};
    station.w.settings.Units = 0;
    station.w.settings.Step_Linear = 1;
    DrawSnapshotHeights(station.w, station.Picture());
    const int row = static_cast<int>(
        std::floor(240 - StepHeight(30, true, 1) / 10.0 / (128 / 33.0 * 10) * 240 + 0.5));
    EXPECT_EQ(station.Picture().Pixel(0, row), Black) << "the heights of metres";
}

}  // namespace
}  // namespace cumeron
