// The steps back of a replay.
#include <gtest/gtest.h>

#include "graphs/cloud_columns.h"
#include "graphs/graph_station.h"
#include "graphs/time_axis.h"

namespace cumeron {
namespace {

using namespace ink;

TEST(AddGraphColumnBack, GoesOneColumnBackForEachMessage) {
    GraphStation station(20);
    for (int i = 0; i < 6; ++i) station.Message(15 * i);
    ASSERT_EQ(FootOf(station.Picture()).substr(0, 8), "######G.");
    station.MessageBack(15 * 4, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, 5);
    EXPECT_EQ(station.Graphs().MarkerColumn, 5);
    EXPECT_EQ(MiddleOf(station.Picture()).substr(0, 8), "####a#..");
    EXPECT_EQ(station.Graphs().LastGraphTime, station.Graphs().MessageTime);
    station.MessageBack(15 * 3, 200);
    EXPECT_EQ(MiddleOf(station.Picture()).substr(0, 8), "###ba#..");
    EXPECT_EQ(station.Graphs().CurrentColumn, 4);
    station.Message(15 * 4, 350);
    EXPECT_EQ(MiddleOf(station.Picture()).substr(0, 8), "###bc#..") << "and forward again";
}

TEST(AddGraphColumnBack, PaintsWhateverTheMessageIs) {
    GraphStation station(20);
    station.Message(0);
    station.Message(15);
    station.w.intake.MessageId = 99;
    station.MessageBack(0, 100);
    EXPECT_EQ(MiddleOf(station.Picture()).substr(0, 3), "a#.");
    station.Message(15);
    station.w.intake.MessageId = -1;
    station.w.settings.Cloudmode = 1;
    station.w.frmMain.CloudValue[0].Caption = "12750";
    station.Picture().Cls();
    station.Graphs().MarkerColumn = -1;
    station.MessageBack(0, 100);
    EXPECT_FALSE(IsAll(station.Picture(), White));
    EXPECT_NE(ColumnOf(station.Picture(), 0), std::string(60, '.'));
}

TEST(AddGraphColumnBack, GapsAreCountedBackwards) {
    const struct {
        const char* what;
        double seconds;  // before the message on screen, at an interval of 10 s
        const char* foot;
        bool labelsDirty;
    } cases[] = {
        {"on time", -10, "########a##", false},
        {"1.4 intervals", -14, "########a##", false},
        {"1.5 intervals", -15, "#######aR##", false},
        {"2 intervals", -20, "#######aR##", false},
        {"4 intervals", -40, "#####aRRR##", false},
        {"the same moment", 0, "########a##", false},
        {"a moment later", 4, "########a##", false},
        {"an interval later", 10, "########a##", true},
        {"a year later", 365 * 86400.0, "########a##", true},
    };
    for (const auto& c : cases) {
        GraphStation station(20);
        station.w.settings.Message_Interval = 10;
        for (int i = 0; i < 11; ++i) station.Message(10 * i);
        station.MessageBack(90, 1000);
        station.Graphs().TimeLabelsDirty = 0;
        const int column = station.Graphs().CurrentColumn;
        ASSERT_EQ(column, 10);
        DrawPositionMark(station.Picture(), 10);  // out of the way of the expected letters
        station.Graphs().MarkerColumn = -1;
        station.MessageBack(90 + c.seconds, 100);
        const auto mark = static_cast<std::size_t>(station.Graphs().MarkerColumn);
        EXPECT_EQ(mark, static_cast<std::size_t>(station.Graphs().CurrentColumn)) << c.what;
        DrawPositionMark(station.Picture(), station.Graphs().MarkerColumn);
        EXPECT_EQ(FootOf(station.Picture()).substr(0, 11), c.foot) << c.what;
        EXPECT_EQ(mark, std::string(c.foot).find('a') + 1) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, c.labelsDirty ? -1 : 0) << c.what;
    }
}

TEST(AddGraphColumnBack, NoGapBeforeTheFirstMessage) {
    GraphStation station(20);
    for (int i = 0; i < 5; ++i) station.Message(15 * i);
    station.Graphs().LastGraphTime = 0;
    station.Graphs().TimeLabelsDirty = 0;
    station.MessageBack(-86400);
    EXPECT_EQ(station.Graphs().CurrentColumn, 4);
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0);
}

TEST(AddGraphColumnBack, AtTheLeftEdgeThePictureMovesRight) {
    GraphStation station(20);
    for (int i = 0; i < 3; ++i) station.Message(15 * i);
    station.MessageBack(15, 100);
    station.MessageBack(0, 200);
    ASSERT_EQ(MiddleOf(station.Picture()), "ba#.................");
    station.w.frmMain.picXLabels.Print("old");
    station.MessageBack(-15, 350);
    EXPECT_EQ(MiddleOf(station.Picture()), "cba#................");
    EXPECT_EQ(station.Graphs().CurrentColumn, 1);
    EXPECT_EQ(FootOf(station.Picture()), "c?a#................")
        << "the mark lies over the message behind";
    for (const std::string& text : TextsOf(station.w.frmMain.picXLabels)) EXPECT_NE(text, "old");
    station.MessageBack(-15 - 4 * 15, 600);
    EXPECT_EQ(MiddleOf(station.Picture()), "d...cba#............");
}

TEST(AddGraphColumnBack, AGapLongerThanTheGraphLeavesItEmpty) {
    GraphStation station(20);
    for (int i = 0; i < 3; ++i) station.Message(15 * i);
    station.w.frmMain.picXLabels.Print("old");
    station.MessageBack(-86400, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, -20) << "left of the picture";
    EXPECT_EQ(MiddleOf(station.Picture()), std::string(20, '.'));
    EXPECT_EQ(FootOf(station.Picture()), "R" + std::string(19, '.'));
    EXPECT_FALSE(TextsOf(station.w.frmMain.picXLabels) == std::vector<std::string>{"old"});
    station.Message(-86400 + 15, 200);
    EXPECT_EQ(station.Graphs().CurrentColumn, -19);
}

TEST(AddGraphColumnBack, AGapUpToTheWidthMovesThePicture) {
    const struct {
        const char* what;
        int missing;  // columns, from column 5 of 20 on
        int column;   // behind the message
        bool updated;
    } cases[] = {
        {"up to the left edge", 5, 1, false},
        {"one more", 6, 1, true},
        {"one short of the width", 19, 1, true},
        {"the width", 20, -20, true},
    };
    for (const auto& c : cases) {
        GraphStation station(20);
        station.Message(0);
        station.Graphs().CurrentColumn = 7;
        station.Graphs().TimeLabelsDirty = -1;
        station.MessageBack(-15 * (c.missing + 1), 100);
        EXPECT_EQ(station.Graphs().CurrentColumn, c.column) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, c.updated ? 0 : -1) << c.what;
        std::string foot = "a" + std::string(static_cast<std::size_t>(c.missing), 'R');
        if (c.column == 1) {
            DrawPositionMark(station.Picture(), 1);
            EXPECT_EQ(FootOf(station.Picture()).substr(0, foot.size()), foot) << c.what;
        }
    }
}

TEST(AddGraphColumnBack, CompressionStaysInTheColumnForItsMessages) {
    const struct {
        std::int16_t compress;
        std::vector<int> columns, phases;  // after each step back from column 9
    } cases[] = {
        {0, {8, 7, 6, 5}, {0, 0, 0, 0}},
        {1, {9, 8, 8, 7}, {1, 0, 1, 0}},
        {2, {9, 9, 8, 8}, {1, 2, 0, 1}},
    };
    for (const auto& c : cases) {
        GraphStation station(20);
        station.w.settings.Compress = c.compress;
        station.Graphs().CurrentColumn = 9;
        for (std::size_t i = 0; i < c.columns.size(); ++i) {
            station.MessageBack(0);
            EXPECT_EQ(station.Graphs().CurrentColumn, c.columns[i]) << c.compress << ' ' << i;
            EXPECT_EQ(station.Graphs().CompressPhase, c.phases[i]) << c.compress << ' ' << i;
        }
    }
}

TEST(AddGraphColumnBack, TheGridIsTakenOffBeforeAMove) {
    GraphStation station(60, 255);
    station.w.settings.Cloud_Show_Grid = 1;
    station.Message(0, 0);
    UpdateAxes(station.w);
    station.MessageBack(-150, 0);
    station.MessageBack(-300, 0);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
    ToggleCloudGrid(station.w, station.Picture());
    EXPECT_EQ(MiddleOf(station.Picture()), std::string(60, '.'));
}

TEST(AddGraphColumnBack, ShowsTheHourglassAndTakesItAway) {
    GraphStation station;
    station.Message(0);
    station.w.frmMain.MousePointer = 7;
    station.MessageBack(0);
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
    station.w.frmMain.MousePointer = 7;
    station.w.settings.Message_Interval = 0;
    EXPECT_EQ(ErrorOf([&] { station.MessageBack(0); }), 11);
    EXPECT_EQ(station.w.frmMain.MousePointer, 0);
}

}  // namespace
}  // namespace cumeron
