// The redraw of the cloud graph from the history, and the timer that has it done.
#include <gtest/gtest.h>

#include <functional>

#include "graphs/cloud_columns.h"
#include "graphs/graph_station.h"
#include "shell/main_window.h"

namespace cumeron {
namespace {

// ---- The redraw from the ring ----

// A ring of 60 slots, 59 in use, and a graph of 100 columns.
struct RedrawStation : GraphStation {
    RedrawStation() { CreateHistory(w, 20); }

    void Fill(int from, int to) {
        const std::int32_t values[] = {100, 200, 350, 600};
        for (int i = from; i < to; ++i) Record(15 * i, values[i % 4]);
    }
    std::string Redrawn(int count) {
        w.graphs.HistoryRedrawCount = static_cast<std::int16_t>(count);
        ClearGraph(w);
        RedrawHistory(w);
        const std::string row = MiddleOf(Picture());
        return row.substr(0, row.find_last_not_of('.') + 1);
    }
};

std::string Letters(int from, int to) {
    std::string letters;
    for (int i = from; i < to; ++i) letters += "abcd"[i % 4];
    return letters;
}

TEST(RedrawHistory, ReplaysTheNewestRecordsInOrder) {
    const struct {
        const char* what;
        int written, count, from;
    } cases[] = {
        {"all there is", 10, 30, 0},        {"just as many", 10, 10, 0},
        {"fewer than there are", 10, 9, 1}, {"the newest", 10, 1, 9},
        {"a ring that is full", 59, 59, 0}, {"full, fewer", 59, 58, 1},
        {"begun again", 60, 59, 1},         {"around its end", 75, 30, 45},
        {"from its end", 75, 16, 59},       {"up to its end", 75, 17, 58},
        {"behind its end", 75, 15, 60},     {"twice round", 130, 59, 71},
    };
    for (const auto& c : cases) {
        RedrawStation station;
        station.Fill(0, c.written);
        EXPECT_EQ(station.Redrawn(c.count), Letters(c.from, c.written)) << c.what;
        EXPECT_EQ(station.Graphs().CurrentColumn, c.written - c.from) << c.what;
    }
}

TEST(RedrawHistory, NothingToReplayLeavesNothingBehind) {
    RedrawStation station;
    station.Graphs().RedrawAbort = 1;
    station.Graphs().LastGraphTime = 7;
    EXPECT_EQ(station.Redrawn(30), "");
    EXPECT_EQ(station.Graphs().RedrawAbort, 0);
    EXPECT_EQ(station.Graphs().LastGraphTime, 7);
    station.Fill(0, 3);
    EXPECT_EQ(station.Redrawn(0), "");
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
}

TEST(RedrawHistory, TheNewestRecordBecomesTheCurrentMessage) {
    RedrawStation station;
    station.Fill(0, 2);
    GraphRecord& record = NextHistoryRecord(station.w);
    record.Profile = station.Level(3000);
    record.Valid = -1;
    record.Time = station.noon + 30 / 86400.0;
    record.CloudValue = {"01230", "02340", "03450", ""};
    record.CloudText = "V-Visibility";
    record.MessageId = 16;
    record.Scale = 0.5;
    station.w.intake.MessageId = 99;
    EXPECT_EQ(station.Redrawn(30), "ab#");
    Workstation& w = station.w;
    EXPECT_EQ(w.graphs.MessageTime, record.Time);
    EXPECT_EQ(w.graphs.LastGraphTime, record.Time);
    EXPECT_EQ(w.frmMain.CloudValue[0].Caption, "01230");
    EXPECT_EQ(w.frmMain.CloudValue[1].Caption, "02340");
    EXPECT_EQ(w.frmMain.CloudValue[2].Caption, "03450");
    EXPECT_EQ(w.frmMain.lblCloudtext[0].Caption, "V-Visibility");
    EXPECT_EQ(w.intake.MessageId, 16);
    EXPECT_EQ(w.intake.ProfileScale, 0.5);
}

TEST(RedrawHistory, RecordsComeBackWithGapsAndVerdicts) {
    RedrawStation station;
    station.Record(0, 100);
    station.Record(15, 200, false);
    station.Record(60, 350);
    station.Graphs().LastGraphTime = station.noon - 1;
    EXPECT_EQ(station.Redrawn(30), "a...c");
    EXPECT_EQ(FootOf(station.Picture()).substr(0, 7), "aRRRcG.");
}

TEST(RedrawHistory, AMessageThereAndAfterARedrawLooksTheSame) {
    for (const int mode : {0, 1, 2}) {
        RedrawStation station;
        station.w.settings.Cloudmode = static_cast<std::int16_t>(mode);
        const std::vector<double> times = {0, 15, 30, 75, 90, 80, 95};
        for (std::size_t i = 0; i < times.size(); ++i) {
            const auto value = static_cast<std::int32_t>(150 * i);
            const bool valid = i != 2;
            station.w.frmMain.CloudValue[0].Caption = "0" + std::to_string(1000 + 1000 * i);
            station.Record(times[i], value, valid);
            station.Graphs().GraphHistory[i + 1].CloudValue[0] =
                station.w.frmMain.CloudValue[0].Caption;
            station.Message(times[i], value, valid);
        }
        const auto live = PixelsOf(station.Picture());
        station.Redrawn(30);
        EXPECT_EQ(PixelsOf(station.Picture()), live) << mode;
    }
}

TEST(RedrawHistory, LetsEventsRunEveryTenRecords) {
    const int cases[][2] = {{1, 1}, {10, 1}, {11, 2}, {20, 2}, {21, 3}, {59, 6}};
    for (const auto& [records, turns] : cases) {
        RedrawStation station;
        station.Fill(0, records);
        const Micros before = station.machine.time.Elapsed();
        station.Redrawn(59);
        EXPECT_EQ(station.machine.time.Elapsed() - before, turns * MicrosPerTurn) << records;
    }
}

// What the operator does in the turn behind the eleventh record.
std::string InterruptedBy(RedrawStation& station, const std::function<void()>& action) {
    station.machine.time.At(MicrosPerTurn + 1, action);
    return station.Redrawn(59);
}

TEST(RedrawHistory, ALayoutChangeEndsIt) {
    RedrawStation station;
    station.Fill(0, 40);
    int pointer = 0;
    EXPECT_EQ(InterruptedBy(station,
                            [&] {
                                pointer = station.w.frmMain.MousePointer;
                                station.Graphs().RedrawAbort = 1;
                            }),
              Letters(0, 11));
    EXPECT_EQ(station.Graphs().RedrawAbort, 1);
    EXPECT_EQ(pointer, 11);
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
}

TEST(RedrawHistory, AnotherModelInATurnEndsIt) {
    RedrawStation station;
    station.Fill(0, 40);
    const std::string shown = InterruptedBy(station, [&] {
        Workstation& w = station.w;
        w.settings.CEILOMETER = 10;  // profiles of 128 gates where the graph shows 255
        LoadModel(w, LoadedBy::Dialog);
        DimensionProfiles(w);
        w.graphs.HistoryIndex = w.graphs.HistoryWrapped = 0;
        ApplyCloudRange(w);
    });
    EXPECT_EQ(shown, "");
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
    station.Record(0, 100);
    EXPECT_EQ(station.Redrawn(59), "a");
}

TEST(RedrawHistory, AFullRingGoesWithTheModel) {
    RedrawStation station;
    station.Fill(0, 130);
    ASSERT_EQ(station.Graphs().HistoryWrapped, -1);
    station.w.settings.CEILOMETER = 50;
    LoadModel(station.w, LoadedBy::Dialog);
    DimensionProfiles(station.w);
    station.Graphs().HistoryIndex = station.Graphs().HistoryWrapped = 0;
    ApplyCloudRange(station.w);
    EXPECT_EQ(station.Redrawn(59), "");
    station.Record(0, 1000);
    EXPECT_EQ(station.Redrawn(59), "a");
}

TEST(RedrawHistory, AnErrorLeavesNoHourglass) {
    RedrawStation station;
    station.Fill(0, 5);
    station.Graphs().GraphHistory[3].Profile.clear();
    EXPECT_EQ(ErrorOf([&] { station.Redrawn(59); }), 9);
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
    station.Graphs().HistoryIndex = 62;  // the ring ends with 60
    EXPECT_EQ(ErrorOf([&] { station.Redrawn(2); }), 9);
    station.Graphs().HistoryIndex = 1;
    station.Graphs().HistoryWrapped = -1;
    EXPECT_EQ(ErrorOf([&] { station.Redrawn(200); }), 9) << "more than it holds";
}

// ---- With the window ----

TEST(ResizeTimer, ASizeThereAndBackGivesTheSamePicture) {
    GraphStation station(100, 60);
    for (int i = 0; i < 50; ++i) {
        station.Record(15 * i, 40 * i, i % 7 != 0);
        station.Message(15 * i, 40 * i, i % 7 != 0);
    }
    const auto before = PixelsOf(station.Picture());
    const auto resize = [&](int width, int height) {
        station.Picture().Width = width;
        station.Picture().Height = height;
        EmptyPicture(station.w);
        ResizeTimer_Tick(station.w);
        ResizeTimer_Tick(station.w);
    };
    resize(37, 20);
    EXPECT_EQ(station.Graphs().HistoryRedrawCount, 32);
    resize(100, 60);
    EXPECT_EQ(station.Graphs().HistoryRedrawCount, 59) << "all that the ring can hold";
    EXPECT_EQ(PixelsOf(station.Picture()), before);
}

TEST(ResizeTimer, AsksForTheRecordsThatTheGraphTakes) {
    const struct {
        double width;
        std::int16_t compress;
        int count;
    } cases[] = {{500, 0, 495}, {500, 1, 990}, {500, 2, 1485}, {5, 0, 0},
                 {3, 0, 0},     {10.5, 0, 6},  {9.5, 0, 4},    {2000, 2, 2999}};
    for (const auto& c : cases) {
        GraphStation station(100, 5);
        CreateHistory(station.w, 1000);
        station.w.settings.Compress = c.compress;
        station.Picture().Width = c.width;
        ResizeTimer_Tick(station.w);
        ResizeTimer_Tick(station.w);
        EXPECT_EQ(station.Graphs().HistoryRedrawCount, c.count) << c.width << ' ' << c.compress;
    }
}

TEST(ResizeTimer, StartsAgainWhenTheSizeChangesInTheRedraw) {
    GraphStation station(100, 60);
    for (int i = 0; i < 30; ++i) station.Record(15 * i, 100);
    ResizeTimer_Tick(station.w);
    bool clockOff = false;
    station.machine.time.At(MicrosPerTurn + 1, [&] {
        clockOff = !station.w.frmMain.tmrClock.Enabled();
        station.Picture().Width = 50;
        station.Graphs().RedrawAbort = 1;
    });
    ResizeTimer_Tick(station.w);
    EXPECT_TRUE(clockOff);
    EXPECT_TRUE(station.w.frmMain.tmrClock.Enabled());
    EXPECT_FALSE(station.w.frmMain.ResizeTimer.Enabled());
    EXPECT_EQ(station.Graphs().HistoryRedrawCount, 45);
    std::string row(30, 'a');
    row.resize(50, '.');
    EXPECT_EQ(MiddleOf(station.Picture()), row);
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0);
    EXPECT_EQ(station.Graphs().HeightLabelsDirty, 0);
}

TEST(ResizeTimer, AGraphOfTenByFivePixelsIsRedrawnToo) {
    GraphStation station(10, 5);
    station.w.settings.Cloud_Show_Grid = 1;
    for (int i = 0; i < 40; ++i) station.Record(15 * i, 1000);
    ResizeTimer_Tick(station.w);
    ResizeTimer_Tick(station.w);
    EXPECT_EQ(station.Graphs().HistoryRedrawCount, 5);
    EXPECT_EQ(station.Graphs().CurrentColumn, 5);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
}

}  // namespace
}  // namespace cumeron
