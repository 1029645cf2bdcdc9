// The cloud graph as a strip of columns: where each message goes, what stands between two of them,
// and the redraw from the history.
#include "graphs/cloud_columns.h"

#include <gtest/gtest.h>

#include <functional>

#include "graphs/graph_station.h"
#include "graphs/time_axis.h"
#include "shell/main_window.h"

namespace cumeron {
namespace {

// A row in which gap marks, position mark and columns all show, and one that columns alone reach.
std::string Foot(GraphStation& station) {
    return RowOf(station.Picture(), station.Picture().PixelHeight() - 3);
}
std::string Middle(GraphStation& station) {
    return RowOf(station.Picture(), station.Picture().PixelHeight() / 2);
}

// ---- Columns and gaps ----

TEST(AddGraphColumn, MissingMessagesLeaveGapMarks) {
    const struct {
        const char* what;
        double seconds;  // behind the message before, at an interval of 10 s
        int missing;
        bool labelsDirty;
    } cases[] = {
        {"on time", 10, 0, false},
        {"1.5 intervals", 15, 0, false},
        {"just below 1.6", 15.5, 0, false},
        {"1.6 intervals", 16, 1, false},
        {"2 intervals", 20, 1, false},
        {"2.5 intervals", 25, 1, false},
        {"2.6 intervals", 26, 2, false},
        {"10 intervals", 100, 9, false},
        {"early", 6, 0, false},
        {"0.5 intervals is early too", 5, 0, true},
        {"in the same second", 0, 0, true},
        {"a second back", -1, 0, true},
        {"a week back", -7 * 86400.0, 0, true},
        {"a year back", -365 * 86400.0, 0, true},
    };
    for (const auto& c : cases) {
        GraphStation station;
        station.w.settings.Message_Interval = 10;
        station.Message(0);
        station.Graphs().TimeLabelsDirty = 0;
        station.Message(c.seconds);
        EXPECT_EQ(station.Graphs().CurrentColumn, c.missing + 2) << c.what;
        EXPECT_EQ(station.Graphs().MarkerColumn, c.missing + 2) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, c.labelsDirty ? -1 : 0) << c.what;
        EXPECT_EQ(station.Graphs().LastGraphTime, station.Graphs().MessageTime) << c.what;
        std::string foot = "#" + std::string(static_cast<std::size_t>(c.missing), 'R') + "#G";
        foot.resize(100, '.');
        EXPECT_EQ(Foot(station), foot) << c.what;
        std::string middle = "#" + std::string(static_cast<std::size_t>(c.missing), '.') + "#";
        middle.resize(100, '.');
        EXPECT_EQ(Middle(station), middle) << c.what;
    }
}

TEST(AddGraphColumn, TheFirstMessageHasNoGapHoweverLateItIs) {
    GraphStation station;
    station.Message(0);
    station.Graphs().LastGraphTime = 0;
    station.Message(30 * 86400.0);
    EXPECT_EQ(Foot(station).substr(0, 4), "##G.");
}

TEST(AddGraphColumn, AGapAsLongAsTheGraphFillsAllButItsMargin) {
    const struct {
        const char* what;
        double seconds;
    } cases[] = {{"an hour", 3600}, {"a week", 7 * 86400.0}, {"a year", 365 * 86400.0}};
    for (const auto& c : cases) {
        GraphStation station(20);
        station.Message(0);
        station.Message(c.seconds);
        EXPECT_EQ(Foot(station), "RRRRRRRRRRRRRRRRR#G.") << c.what;
        EXPECT_EQ(Middle(station), ".................#..") << c.what;
        EXPECT_EQ(station.Graphs().CurrentColumn, 18) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, -1) << c.what;
    }
}

// 17 of 20 columns are used; 5 missing ones and the message push the first ones out.
TEST(AddGraphColumn, AGapInAFullGraphMovesIt) {
    GraphStation station(20);
    for (int i = 0; i < 15; ++i) station.Message(15 * i, i < 4 ? 100 : 1000);
    ASSERT_EQ(Foot(station), "aaaa###########G....");
    station.Message(14 * 15 + 6 * 15);
    EXPECT_EQ(Foot(station), "a###########RRRRR#G.");
    EXPECT_EQ(station.Graphs().CurrentColumn, 18);
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, 0) << "the axis was brought up to date";
}

TEST(AddGraphColumn, TheMarginFollowsThePointSize) {
    const int cases[][2] = {{0, 2}, {1, 3}, {2, 4}, {3, 4}, {4, 4}, {5, 5}, {6, 6}};
    for (const auto& [size, margin] : cases) {
        GraphStation station(20);
        station.w.settings.Chit_Point_Size = static_cast<std::int16_t>(size);
        for (int i = 0; i < 25; ++i) station.Message(15 * i);
        EXPECT_EQ(station.Graphs().CurrentColumn, 20 - margin + 1) << size;
        const auto used = static_cast<std::size_t>(20 - margin + 1);
        EXPECT_EQ(Foot(station), std::string(used, '#') + "G" +
                                     std::string(static_cast<std::size_t>(margin) - 2, '.'))
            << size;
    }
}

TEST(AddGraphColumn, AFullGraphMovesByOneColumnForEachMessage) {
    GraphStation station(20);
    for (int i = 0; i < 18; ++i) station.Message(15 * i, i % 3 == 0 ? 100 : 1000);
    ASSERT_EQ(Middle(station), "a##a##a##a##a##a##..");
    station.Graphs().TimeLabelsDirty = 0;
    station.w.frmMain.picXLabels.Print("old");
    station.Message(15 * 18, 200);
    EXPECT_EQ(Middle(station), "##a##a##a##a##a##b..");
    EXPECT_EQ(Foot(station), "##a##a##a##a##a##bG.");
    EXPECT_EQ(station.Graphs().CurrentColumn, 18);
    for (const std::string& text : TextsOf(station.w.frmMain.picXLabels)) EXPECT_NE(text, "old");
}

TEST(AddGraphColumn, TheGridMovesWithNothing) {
    GraphStation station(60, 255);
    station.w.settings.Cloud_Show_Grid = 1;
    for (int i = 0; i < 58; ++i) station.Message(15 * i, 0);
    UpdateAxes(station.w);
    ASSERT_EQ(station.Graphs().GridOnScreen, -1);
    station.Message(15 * 58, 0);
    EXPECT_EQ(station.Graphs().GridOnScreen, -1);
    EXPECT_EQ(station.Graphs().GridSnapshot.CurrentColumn, 57) << "where the message goes";
    GraphStation fresh(60, 255);
    fresh.w.settings.Cloud_Show_Grid = 1;
    fresh.Graphs().CurrentColumn = 57;
    fresh.Graphs().MessageTime = station.Graphs().MessageTime;
    UpdateAxes(fresh.w);
    DrawPositionMark(fresh.Picture(), 58);
    EXPECT_EQ(PixelsOf(station.Picture()), PixelsOf(fresh.Picture()));
}

TEST(AddGraphColumn, AStripOutsideThePictureComesBack) {
    GraphStation station(20);
    station.Message(0);
    station.Graphs().CurrentColumn = -40;
    station.Message(15, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, -39) << "there is room up to the margin";
    station.Graphs().CurrentColumn = 30;
    station.Message(30, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, 18) << "beyond it the strip moves back";
}

TEST(AddGraphColumn, RaisesDivisionForAnIntervalOfNothing) {
    GraphStation station;
    station.w.settings.Message_Interval = 0;
    EXPECT_EQ(ErrorOf([&] { station.Message(0); }), 0) << "the first message needs none";
    EXPECT_EQ(ErrorOf([&] { station.Message(15); }), 11);
    EXPECT_EQ(ErrorOf([&] { station.MessageBack(15); }), 11);
}

TEST(AddGraphColumn, ANarrowGraphWithoutRoomStillTakesMessages) {
    for (const int width : {1, 2, 3, 4, 10}) {
        GraphStation station(width, 5);
        for (int i = 0; i < 30; ++i) {
            station.Message(15 * i);
            EXPECT_LE(station.Graphs().CurrentColumn, std::max(width - 2, 1)) << width;
        }
        station.Message(86400);
        EXPECT_LE(station.Graphs().CurrentColumn, std::max(width - 2, 1)) << width;
    }
}

// ---- What a message paints ----

TEST(AddGraphColumn, TheModeTellsWhatIsPainted) {
    const struct {
        std::int16_t mode, id;
        bool valid;
        const char* column;  // of 12 rows: the point on row 6, a gap mark on the lowest four
    } cases[] = {
        {0, 15, true, "aaaaaaaaaaaa"},  {1, 15, true, "......R....."},
        {2, 15, true, "aaaaaaRaaaaa"},  {0, 99, true, "............"},
        {1, 99, true, "......R....."},  {2, 99, true, "......R....."},
        {0, 15, false, "........RRRR"}, {1, 15, false, "........RRRR"},
        {2, -1, false, "........RRRR"}, {0, -1, true, "aaaaaaaaaaaa"},
        {3, 15, true, "aaaaaaaaaaaa"},
    };
    for (const auto& c : cases) {
        GraphStation station(20, 12);
        station.w.settings.Cloudmode = c.mode;
        station.w.settings.Cloudhit_Color = Red;
        station.w.settings.Chit_Point_Size = 0;
        station.w.frmMain.CloudValue[0].Caption = "12750";
        station.w.intake.MessageId = c.id;
        station.Message(0, 100, c.valid);
        EXPECT_EQ(ColumnOf(station.Picture(), 0), c.column) << c.mode << ' ' << c.id;
        EXPECT_EQ(ColumnOf(station.Picture(), 1), ".......GGGGG");
        EXPECT_EQ(station.Graphs().CurrentColumn, 1);
    }
}

TEST(AddGraphColumn, ThePaintingHasTheLimitsOfTheGraph) {
    GraphStation station(20, 100);
    station.Graphs().CloudYLow = 50;
    station.Graphs().CloudYHigh = 150;
    station.w.settings.Cloudmode = 2;
    station.w.settings.Chit_Point_Size = 0;
    station.w.settings.Cloudhit_Color = Red;
    station.w.frmMain.CloudValue[0].Caption = "06000";
    std::vector<std::int32_t> profile = station.Level(0);
    profile[100] = 100;
    AddGraphColumn(station.w, profile, true);
    std::string column(100, '.');
    column[50] = column[51] = 'a';
    column[90] = 'R';
    EXPECT_EQ(ColumnOf(station.Picture(), 0), column);
}

// ---- Messages that share a column ----

TEST(AddGraphColumn, CompressionLetsMessagesShareAColumn) {
    const struct {
        std::int16_t compress;
        std::vector<int> columns, phases;  // after each message
        const char* middle;
    } cases[] = {
        {0, {1, 2, 3, 4, 5, 6, 7}, {0, 0, 0, 0, 0, 0, 0}, "abcdabc"},
        {1, {0, 1, 1, 2, 2, 3, 3}, {1, 0, 1, 0, 1, 0, 1}, "bdbc..."},
        {2, {0, 0, 1, 1, 1, 2, 2}, {1, 2, 0, 1, 2, 0, 1}, "cbc...."},
        {3, {0, 0, 1, 1, 1, 2, 2}, {1, 2, 0, 1, 2, 0, 1}, "cbc...."},
    };
    const std::int32_t values[] = {100, 200, 350, 600, 100, 200, 350};
    for (const auto& c : cases) {
        GraphStation station(40);
        station.w.settings.Compress = c.compress;
        station.w.settings.Message_Interval = 45;
        for (std::size_t i = 0; i < c.columns.size(); ++i) {
            const double step = c.compress == 0 ? 45 : c.compress == 1 ? 22.5 : 15;
            station.Message(step * static_cast<double>(i), values[i]);
            EXPECT_EQ(station.Graphs().CurrentColumn, c.columns[i]) << c.compress << ' ' << i;
            EXPECT_EQ(station.Graphs().MarkerColumn, c.columns[i]) << c.compress << ' ' << i;
            EXPECT_EQ(station.Graphs().CompressPhase, c.phases[i]) << c.compress << ' ' << i;
        }
        EXPECT_EQ(Middle(station).substr(0, 7), c.middle) << c.compress;
    }
}

TEST(AddGraphColumn, ThePhaseWaitsWhileNothingIsShared) {
    GraphStation station;
    station.Graphs().CompressPhase = 2;
    station.Message(0);
    EXPECT_EQ(station.Graphs().CompressPhase, 2);
    station.MessageBack(0);
    EXPECT_EQ(station.Graphs().CompressPhase, 2);
    station.w.settings.Compress = 1;  // more than this one counts to
    station.Message(15);
    EXPECT_EQ(station.Graphs().CompressPhase, 0);
}

// ---- Back ----

TEST(AddGraphColumnBack, GoesOneColumnBackForEachMessage) {
    GraphStation station(20);
    for (int i = 0; i < 6; ++i) station.Message(15 * i);
    ASSERT_EQ(Foot(station).substr(0, 8), "######G.");
    station.MessageBack(15 * 4, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, 5);
    EXPECT_EQ(station.Graphs().MarkerColumn, 5);
    EXPECT_EQ(Middle(station).substr(0, 8), "####a#..");
    EXPECT_EQ(station.Graphs().LastGraphTime, station.Graphs().MessageTime);
    station.MessageBack(15 * 3, 200);
    EXPECT_EQ(Middle(station).substr(0, 8), "###ba#..");
    EXPECT_EQ(station.Graphs().CurrentColumn, 4);
    station.Message(15 * 4, 350);
    EXPECT_EQ(Middle(station).substr(0, 8), "###bc#..") << "and forward again";
}

TEST(AddGraphColumnBack, PaintsWhateverTheMessageIs) {
    GraphStation station(20);
    station.Message(0);
    station.Message(15);
    station.w.intake.MessageId = 99;
    station.MessageBack(0, 100);
    EXPECT_EQ(Middle(station).substr(0, 3), "a#.");
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
        EXPECT_EQ(Foot(station).substr(0, 11), c.foot) << c.what;
        EXPECT_EQ(mark, std::string(c.foot).find('a') + 1) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, c.labelsDirty ? -1 : 0) << c.what;
    }
}

TEST(AddGraphColumnBack, NoGapBeforeTheFirstMessage) {
    GraphStation station(20);
    for (int i = 0; i < 5; ++i) station.Message(15 * i);
    station.Graphs().LastGraphTime = 0;
    station.MessageBack(-86400);
    EXPECT_EQ(station.Graphs().CurrentColumn, 4);
}

TEST(AddGraphColumnBack, AtTheLeftEdgeThePictureMovesRight) {
    GraphStation station(20);
    for (int i = 0; i < 3; ++i) station.Message(15 * i);
    station.MessageBack(15, 100);
    station.MessageBack(0, 200);
    ASSERT_EQ(Middle(station), "ba#.................");
    station.w.frmMain.picXLabels.Print("old");
    station.MessageBack(-15, 350);
    EXPECT_EQ(Middle(station), "cba#................");
    EXPECT_EQ(station.Graphs().CurrentColumn, 1);
    EXPECT_EQ(Foot(station), "c?a#................") << "the mark lies over the message behind";
    for (const std::string& text : TextsOf(station.w.frmMain.picXLabels)) EXPECT_NE(text, "old");
    station.MessageBack(-15 - 4 * 15, 600);
    EXPECT_EQ(Middle(station), "d...cba#............");
}

TEST(AddGraphColumnBack, AGapLongerThanTheGraphLeavesItEmpty) {
    GraphStation station(20);
    for (int i = 0; i < 3; ++i) station.Message(15 * i);
    station.w.frmMain.picXLabels.Print("old");
    station.MessageBack(-86400, 100);
    EXPECT_EQ(station.Graphs().CurrentColumn, -20) << "left of the picture";
    EXPECT_EQ(Middle(station), std::string(20, '.'));
    EXPECT_EQ(Foot(station), "R" + std::string(19, '.'));
    EXPECT_FALSE(TextsOf(station.w.frmMain.picXLabels) == std::vector<std::string>{"old"});
    station.Message(-86400 + 15, 200);
    EXPECT_EQ(station.Graphs().CurrentColumn, -19);
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
    EXPECT_EQ(Middle(station), std::string(60, '.'));
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

// ---- Marks, scrolling, clearing ----

TEST(DrawPositionMark, ASecondOneTakesItOff) {
    GraphStation station(20, 12);
    station.Message(0);
    DrawPositionMark(station.Picture(), station.Graphs().MarkerColumn);
    const auto before = PixelsOf(station.Picture());
    for (const int column : {0, 1, 19}) {
        DrawPositionMark(station.Picture(), column);
        EXPECT_NE(PixelsOf(station.Picture()), before) << column;
        DrawPositionMark(station.Picture(), column);
        EXPECT_EQ(PixelsOf(station.Picture()), before) << column;
    }
    DrawPositionMark(station.Picture(), 5);
    EXPECT_EQ(ColumnOf(station.Picture(), 5), ".......GGGGG");
    EXPECT_EQ(ColumnOf(station.Picture(), 4), std::string(12, '.'));
    EXPECT_EQ(ColumnOf(station.Picture(), 6), std::string(12, '.'));
}

TEST(DrawGapMark, IsFourPixelsHighAndStays) {
    GraphStation station(20, 12);
    DrawGapMark(station.Picture(), 5);
    DrawGapMark(station.Picture(), 5);
    EXPECT_EQ(ColumnOf(station.Picture(), 5), "........RRRR");
    EXPECT_EQ(RowOf(station.Picture(), 11), ".....R..............");
}

// Whatever the surface's scale, pen and mode were.
TEST(DrawGapMark, MarksAreDrawnInPixelsWithAThinPen) {
    GraphStation station(20, 12);
    Surface& surface = station.Picture();
    surface.ScaleMode = 0;
    surface.ScaleLeft = 3, surface.ScaleTop = 100, surface.ScaleWidth = 5,
    surface.ScaleHeight = -100;
    for (const bool gap : {true, false}) {
        surface.Cls();
        surface.DrawWidth = 5;
        surface.DrawMode = DrawInvert;
        gap ? DrawGapMark(surface, 5) : DrawPositionMark(surface, 5);
        EXPECT_EQ(RowOf(surface, 11), gap ? ".....R.............." : ".....G..............");
        EXPECT_EQ(surface.DrawMode, DrawCopy);
        EXPECT_EQ(surface.ScaleMode, 0);
        EXPECT_EQ(surface.ScaleLeft, 3);
        EXPECT_EQ(surface.ScaleTop, 100);
        EXPECT_EQ(surface.ScaleWidth, 5);
        EXPECT_EQ(surface.ScaleHeight, -100);
    }
}

TEST(ScrollGraph, MovesThePictureAndLeavesWhitePaper) {
    const struct {
        int shift;
        const char* row;  // of "abcd#R"
    } cases[] = {{1, "bcd#R."},  {2, "cd#R.."},  {5, "R....."},     {6, "......"},
                 {7, "......"},  {0, "abcd#R"},  {-1, ".abcd#"},    {-5, ".....a"},
                 {-6, "......"}, {-7, "......"}, {32767, "......"}, {-32767, "......"}};
    for (const auto& c : cases) {
        Surface surface;
        GraphStation::Size(surface, 6, 3);
        surface.BackColor = 0x808080;
        const int colours[] = {Class[0], Class[1], Class[2], Class[3], Black, Red};
        for (int x = 0; x < 6; ++x) surface.Fill(x, 0, 1, 3, colours[x]);
        ScrollGraph(c.shift, surface);
        for (int y = 0; y < 3; ++y) EXPECT_EQ(RowOf(surface, y), c.row) << c.shift;
    }
}

TEST(ClearGraph, BeginsAtTheLeftEdgeAndKeepsTheRing) {
    GraphStation station;
    station.w.settings.Cloud_Show_Grid = 1;
    station.Record(0);
    station.Message(0);
    UpdateAxes(station.w);
    station.Graphs().CompressPhase = 1;
    ClearGraph(station.w);
    EXPECT_TRUE(IsAll(station.Picture(), White));
    EXPECT_EQ(station.Graphs().CurrentColumn, 0);
    EXPECT_EQ(station.Graphs().MarkerColumn, -1);
    EXPECT_EQ(station.Graphs().GridOnScreen, 0);
    EXPECT_EQ(station.Graphs().TimeLabelsDirty, -1);
    EXPECT_EQ(station.Graphs().HeightLabelsDirty, -1);
    EXPECT_EQ(station.Graphs().HistoryIndex, 1);
    EXPECT_EQ(station.Graphs().CompressPhase, 1);
    EXPECT_NE(station.Graphs().LastGraphTime, 0);
}

TEST(EmptyPicture, LeavesTheStripWhereItIs) {
    GraphStation station;
    station.w.settings.Cloud_Show_Grid = 1;
    station.Message(0);
    UpdateAxes(station.w);
    EmptyPicture(station.w);
    EXPECT_TRUE(IsAll(station.Picture(), White));
    EXPECT_EQ(station.Graphs().CurrentColumn, 1);
    EXPECT_EQ(station.Graphs().MarkerColumn, -1);
    EXPECT_EQ(station.Graphs().GridOnScreen, 0);
}

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
        const std::string row = Middle(*this);
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
    EXPECT_EQ(Foot(station).substr(0, 7), "aRRRcG.");
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
    station.Graphs().HistoryIndex = 70;  // beyond the ring
    EXPECT_EQ(ErrorOf([&] { station.Redrawn(3); }), 9);
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
    EXPECT_EQ(Middle(station), row);
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
