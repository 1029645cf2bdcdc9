// The time axis of the cloud graph, and the grid that lies over the picture.
#include "graphs/time_axis.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graphs/axes.h"
#include "graphs/graph_station.h"
#include "graphs/label_strips.h"

namespace cumeron {
namespace {

using namespace ink;

const double Day = DateSerial(2026, 5, 1);

struct AxisStation : GraphStation {
    explicit AxisStation(int width = 720, int height = 60) : GraphStation(width, height) {}
    Surface& Strip() { return w.frmMain.picXLabels; }
    void Draw(double time, int column = 0, int interval = 15) {
        w.settings.Message_Interval = static_cast<std::int16_t>(interval);
        Strip().Cls();
        DrawTimeAxis(w, column, Strip(), time, 0, false);
    }
    // "x:length" of each tick.
    std::string Ticks() {
        std::string ticks;
        for (int x = 0; x < Strip().PixelWidth(); ++x) {
            const auto length = ColumnOf(Strip(), x).find('.');
            if (length != 0) ticks += std::to_string(x) + ":" + std::to_string(length) + " ";
        }
        return ticks;
    }
    // "text@x" of each label.
    std::string Labels() {
        std::string labels;
        for (const PrintedText& printed : Strip().Printed()) {
            EXPECT_EQ(printed.y, 34 - 18);
            EXPECT_EQ(printed.colour, Black);
            labels += printed.text + "@" + std::to_string(printed.x) + " ";
        }
        return labels;
    }
};

// Three hours, a pixel to 15 s: 240 pixels to the hour. Long ticks reach from the upper edge down
// to the seventh pixel below it, short ones to the fourth.
TEST(DrawTimeAxis, TicksStandOnQuarterHours) {
    const struct {
        const char* what;
        double hour;
        int column;
        std::int16_t compress;
        const char* ticks;
        const char* labels;
    } cases[] = {
        {"from a full hour", 9, 0, 0,
         "0:8 60:5 120:5 180:5 240:8 300:5 360:5 420:5 480:8 540:5 600:5 660:5 ",
         "9@-5 10@232 11@472 12@712 "},
        {"in between", 9.1, 0, 0,
         "36:5 96:5 156:5 216:8 276:5 336:5 396:5 456:8 516:5 576:5 636:5 696:8 ",
         "10@208 11@448 12@688 "},
        {"half hours", 9.1, 0, 1, "96:5 216:8 336:5 456:8 576:5 696:8 ", "10@208 11@448 12@688 "},
        {"hours alone", 9.1, 0, 2, "216:8 456:8 696:8 ", "10@208 11@448 12@688 "},
        {"the time of a later column", 11, 480, 2, "0:8 240:8 480:8 ",
         "9@-5 10@232 11@472 12@712 "},
        {"across midnight", 22.5, 0, 2, "120:8 360:8 600:8 ", "23@112 0@355 1@595 "},
        {"from midnight", 0, 0, 2, "0:8 240:8 480:8 ", "0@-5 1@235 2@475 3@715 "},
        {"a left edge on the day before", 1, 480, 2, "0:8 240:8 480:8 ",
         "23@-8 0@235 1@475 2@715 "},
        {"to the nearest second", 9 - 0.3 / 3600, 0, 2, "0:8 240:8 480:8 ",
         "9@-5 10@232 11@472 12@712 "},
        {"behind the nearest second", 9 - 0.7 / 3600, 0, 2, "0:8 240:8 480:8 ",
         "9@-5 10@232 11@472 "},
    };
    for (const auto& c : cases) {
        AxisStation station;
        station.w.settings.Compress = c.compress;
        station.Draw(Day + c.hour / 24, c.column);
        EXPECT_EQ(station.Ticks(), c.ticks) << c.what;
        EXPECT_EQ(station.Labels(), c.labels) << c.what;
    }
}

TEST(DrawTimeAxis, MinutesAndSecondsCount) {
    AxisStation station;
    station.w.settings.Compress = 2;
    station.Draw(Day + TimeSerial(9, 45, 0));
    EXPECT_EQ(station.Ticks(), "60:8 300:8 540:8 ");
    station.Draw(Day + TimeSerial(9, 59, 30));
    EXPECT_EQ(station.Ticks(), "2:8 242:8 482:8 ");
}

TEST(DrawTimeAxis, TheIntervalIsThePaceOfTheColumns) {
    AxisStation station;
    station.w.settings.Compress = 2;
    station.Draw(Day + 0.5, 60, 60);
    EXPECT_EQ(station.Labels(),
              "11@-8 12@52 13@112 14@172 15@232 16@292 17@352 18@412 19@472 "
              "20@532 21@592 22@652 23@712 ");
    station.Draw(Day + 0.5, 0, 5);
    EXPECT_EQ(station.Labels(), "12@-8 13@712 ");
}

TEST(DrawTimeAxis, EveryHourOfDaysHasItsLabel) {
    AxisStation station;
    station.w.settings.Compress = 2;
    station.Draw(Day, 0, 900);  // 180 hours
    const auto texts = TextsOf(station.Strip());
    ASSERT_EQ(texts.size(), 181U);
    for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(texts[i], std::to_string(i % 24));
}

TEST(DrawTimeAxis, ATimeBeforeTheFirstDayHasItsHourToo) {
    AxisStation station;
    station.w.settings.Compress = 2;
    station.Draw(0, 240);  // an hour before day 0
    EXPECT_EQ(station.Labels(), "23@-8 0@235 1@475 2@715 ");
    station.Draw(0.5, 0);
    EXPECT_EQ(station.Labels(), "12@-8 13@232 14@472 15@712 ");
}

TEST(DrawTimeAxis, NoIntervalHasNoAxis) {
    AxisStation station;
    station.Graphs().TimeLabelsDirty = -1;
    station.Draw(Day, 0, 0);
    EXPECT_EQ(station.Ticks() + station.Labels(), "");
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0) << "there is nothing to bring up to date";
    station.Draw(Day, 0, -15);
    EXPECT_EQ(station.Ticks() + station.Labels(), "");
    station.Strip().Width = 0;
    station.Draw(Day);
    EXPECT_EQ(station.Ticks() + station.Labels(), "");
}

TEST(DrawTimeAxis, LeavesTheSurfaceAsItWas) {
    for (const bool asGrid : {false, true}) {
        AxisStation station;
        Surface& surface = station.Picture();
        surface.ScaleMode = 0;
        surface.ScaleLeft = 1, surface.ScaleTop = 2, surface.ScaleWidth = 3;
        surface.ScaleHeight = 4;
        surface.DrawWidth = 5;
        surface.DrawStyle = 2;
        DrawTimeAxis(station.w, 0, surface, Day, 4, asGrid);
        EXPECT_EQ(surface.ScaleMode, 0);
        EXPECT_EQ(surface.ScaleLeft, 1);
        EXPECT_EQ(surface.ScaleTop, 2);
        EXPECT_EQ(surface.ScaleWidth, 3);
        EXPECT_EQ(surface.ScaleHeight, 4);
        EXPECT_EQ(surface.DrawStyle, 0);
        EXPECT_EQ(surface.DrawWidth, 1);
        EXPECT_EQ(surface.DrawMode, DrawCopy);
        EXPECT_EQ(surface.ForeColor, QBColor(4));
        EXPECT_EQ(surface.Printed().empty(), asGrid);
        // Solid ticks in the colour, or every second pixel of the whole height inverted.
        EXPECT_EQ(surface.Pixel(0, 1), asGrid ? White : QBColor(4));
        EXPECT_EQ(surface.Pixel(0, 2), asGrid ? Black : QBColor(4));
        EXPECT_EQ(surface.Pixel(0, 58), asGrid ? Black : White);
        EXPECT_EQ(surface.Pixel(1, 2), White);
    }
}

TEST(DrawTimeAxis, GridLinesFollowTheTicks) {
    for (const std::int16_t compress : {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}}) {
        AxisStation station;
        station.w.settings.Compress = compress;
        station.Draw(Day + 9.1 / 24);
        DrawTimeAxis(station.w, 0, station.Picture(), Day + 9.1 / 24, 0, true);
        for (int x = 0; x < 720; ++x) {
            EXPECT_EQ(station.Picture().Pixel(x, 2), station.Strip().Pixel(x, 2)) << x;
        }
    }
}

// ---- The grid ----

struct GridStation : GraphStation {
    GridStation() : GraphStation(300, 255) {
        w.settings.Cloud_Show_Grid = 1;
        for (int i = 0; i < 60; ++i) Message(15 * i, 37 * i);
    }
    void Toggle() { ToggleCloudGrid(w, Picture()); }
    std::vector<std::uint32_t> Pixels() { return PixelsOf(Picture()); }
};

TEST(ToggleCloudGrid, IsTakenOffWithoutATrace) {
    GridStation station;
    const auto before = station.Pixels();
    station.Toggle();
    EXPECT_NE(station.Pixels(), before);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
    EXPECT_EQ(station.Picture().DrawMode, DrawCopy);
    station.Toggle();
    EXPECT_EQ(station.Pixels(), before);
    EXPECT_EQ(station.Graphs().GridOnScreen, 0);
}

TEST(ToggleCloudGrid, IsTakenOffAsItWasPutOn) {
    const struct {
        const char* what;
        void (*change)(Workstation&);
    } cases[] = {
        {"a lower limit", [](Workstation& w) { w.graphs.CloudYLow = 20; }},
        {"a lower top", [](Workstation& w) { w.graphs.CloudYHigh = 100; }},
        {"a later column", [](Workstation& w) { w.graphs.CurrentColumn = 77; }},
        {"a later message", [](Workstation& w) { w.graphs.MessageTime += 0.01; }},
        {"the other unit", [](Workstation& w) { w.settings.Units = 1; }},
    };
    for (const auto& c : cases) {
        GridStation station;
        const auto before = station.Pixels();
        station.Toggle();
        const auto grid = station.Pixels();
        c.change(station.w);
        station.Toggle();
        EXPECT_EQ(station.Pixels(), before) << c.what;
        station.Toggle();
        EXPECT_NE(station.Pixels(), grid) << c.what << ": put on anew it is another one";
        station.Toggle();
        EXPECT_EQ(station.Pixels(), before) << c.what;
    }
}

TEST(ToggleCloudGrid, NotesWhatItIsDrawnFrom) {
    GridStation station;
    station.w.settings.Units = 1;
    station.Graphs().CloudYLow = 7;
    station.Toggle();
    const GridSnapshotRecord& grid = station.Graphs().GridSnapshot;
    EXPECT_EQ(grid.CloudYLow, 7);
    EXPECT_EQ(grid.CloudYHigh, 255);
    EXPECT_EQ(grid.CurrentColumn, 60);
    EXPECT_EQ(grid.MessageTime, station.Graphs().MessageTime);
    EXPECT_EQ(grid.Units, 1);
}

TEST(ToggleCloudGrid, OnlyOneIsYes) {
    for (const std::int16_t shown : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{2}}) {
        GridStation station;
        const auto before = station.Pixels();
        station.w.settings.Cloud_Show_Grid = shown;
        station.Toggle();
        EXPECT_EQ(station.Pixels(), before) << shown;
        EXPECT_EQ(station.Graphs().GridOnScreen, 0) << shown;
        station.Graphs().GridOnScreen = -1;
        station.Toggle();
        EXPECT_EQ(station.Graphs().GridOnScreen, -1) << shown;
    }
}

// 240 columns to the hour, a row to the height step: 12 h stands on column 0, the lines of height
// on each 30th row up from the foot. Where two lines cross, the second takes the first off.
TEST(ToggleCloudGrid, LinesStandWhereTheLabelsAre) {
    GraphStation station(300, 255);
    station.w.settings.Cloud_Show_Grid = 1;
    ToggleCloudGrid(station.w, station.Picture());
    for (int y = 0; y < 255; ++y) {
        for (int x = 0; x < 300; ++x) {
            const bool time = x % 60 == 0 && (255 - y) % 2 == 0;
            const bool height = y != 254 && (255 - y) % 30 == 0 && x % 2 == 0;
            ASSERT_EQ(station.Picture().Pixel(x, y), time != height ? Black : White)
                << x << ' ' << y;
        }
    }
}

// ---- What is out of date ----

TEST(UpdateAxes, DrawsWhatIsOutOfDate) {
    const struct {
        std::int16_t time, height;
    } cases[] = {{0, 0}, {-1, 0}, {0, -1}, {-1, -1}, {1, 1}};
    for (const auto& c : cases) {
        GraphStation station(300, 255);
        MarkLabelStrips(station.w);
        station.Graphs().TimeLabelsDirty = c.time;
        station.Graphs().HeightLabelsDirty = c.height;
        UpdateAxes(station.w);
        const FrmMain& form = station.w.frmMain;
        EXPECT_EQ(IsMarked(form.picXLabels), c.time == 0);
        EXPECT_EQ(IsMarked(form.picYLabels), c.height == 0);
        EXPECT_EQ(form.picXLabels.Printed().size(), c.time == 0 ? 1U : 2U);
        EXPECT_EQ(form.picYLabels.Printed().size(), c.height == 0 ? 1U : 8U);
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0);
        EXPECT_EQ(station.Graphs().HeightLabelsDirty, 0);
    }
}

TEST(UpdateAxes, TheTimeAxisBelongsToTheNextColumn) {
    AxisStation station;
    station.w.settings.Compress = 2;
    station.Graphs().CurrentColumn = 480;
    station.Graphs().TimeLabelsDirty = -1;
    UpdateAxes(station.w);
    EXPECT_EQ(station.Labels(), "10@-8 11@232 12@472 13@712 ");
}

TEST(UpdateAxes, PutsTheGridOnOnce) {
    GridStation station;
    const auto before = station.Pixels();
    UpdateAxes(station.w);
    const auto grid = station.Pixels();
    EXPECT_NE(grid, before);
    UpdateAxes(station.w);
    EXPECT_EQ(station.Pixels(), grid);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
}

}  // namespace
}  // namespace cumeron
