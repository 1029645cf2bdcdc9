// The cloud graph as a strip of columns: where each message goes, and what stands between two of
// them.
#include "graphs/cloud_columns.h"

#include <gtest/gtest.h>

#include "graphs/graph_station.h"
#include "graphs/time_axis.h"

namespace cumeron {
namespace {

using namespace ink;

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
        EXPECT_EQ(FootOf(station.Picture()), foot) << c.what;
        std::string middle = "#" + std::string(static_cast<std::size_t>(c.missing), '.') + "#";
        middle.resize(100, '.');
        EXPECT_EQ(MiddleOf(station.Picture()), middle) << c.what;
    }
}

TEST(AddGraphColumn, TheFirstMessageHasNoGapHoweverLateItIs) {
    GraphStation station;
    station.Message(0);
    station.Graphs().LastGraphTime = 0;
    station.Message(30 * 86400.0);
    EXPECT_EQ(FootOf(station.Picture()).substr(0, 4), "##G.");
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
        EXPECT_EQ(FootOf(station.Picture()), "RRRRRRRRRRRRRRRRR#G.") << c.what;
        EXPECT_EQ(MiddleOf(station.Picture()), ".................#..") << c.what;
        EXPECT_EQ(station.Graphs().CurrentColumn, 18) << c.what;
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, -1) << c.what;
    }
}

TEST(AddGraphColumn, TheAxesAreBroughtUpToDateWhenTheStripMoves) {
    const struct {
        const char* what;
        int messages;
        double seconds;  // behind the last of them
        bool updated;
    } cases[] = {
        {"room for one more", 17, 15, false},
        {"the last column before the margin", 17, 30, true},
        {"room for a gap", 10, 8 * 15, false},
        {"one column short", 10, 9 * 15, true},
        {"a gap that leaves nothing", 10, 18 * 15, true},
        // kept: a graph that begins anew has its axes drawn with the next message.
        {"a gap longer than that", 10, 19 * 15, false},
    };
    for (const auto& c : cases) {
        GraphStation station(20);
        for (int i = 0; i < c.messages; ++i) station.Message(15 * i);
        station.Graphs().TimeLabelsDirty = -1;
        station.Message(15 * (c.messages - 1) + c.seconds);
        EXPECT_EQ(station.Graphs().TimeLabelsDirty, c.updated ? 0 : -1) << c.what;
    }
}

// 17 of 20 columns are used; 5 missing ones and the message push the first ones out.
TEST(AddGraphColumn, AGapInAFullGraphMovesIt) {
    GraphStation station(20);
    for (int i = 0; i < 15; ++i) station.Message(15 * i, i < 4 ? 100 : 1000);
    ASSERT_EQ(FootOf(station.Picture()), "aaaa###########G....");
    station.Message(14 * 15 + 6 * 15);
    EXPECT_EQ(FootOf(station.Picture()), "a###########RRRRR#G.");
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
        EXPECT_EQ(
            FootOf(station.Picture()),
            std::string(used, '#') + "G" + std::string(static_cast<std::size_t>(margin) - 2, '.'))
            << size;
    }
}

TEST(AddGraphColumn, AFullGraphMovesByOneColumnForEachMessage) {
    GraphStation station(20);
    for (int i = 0; i < 18; ++i) station.Message(15 * i, i % 3 == 0 ? 100 : 1000);
    ASSERT_EQ(MiddleOf(station.Picture()), "a##a##a##a##a##a##..");
    station.Graphs().TimeLabelsDirty = 0;
    station.w.frmMain.picXLabels.Print("old");
    station.Message(15 * 18, 200);
    EXPECT_EQ(MiddleOf(station.Picture()), "##a##a##a##a##a##b..");
    EXPECT_EQ(FootOf(station.Picture()), "##a##a##a##a##a##bG.");
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
    EXPECT_EQ(FootOf(station.Picture()).substr(0, 3), "#..") << "the mark is gone, and noted so";
    EXPECT_EQ(station.Graphs().MarkerColumn, -1);
    station.w.settings.Message_Interval = 15;
    station.Message(30);
    EXPECT_EQ(FootOf(station.Picture()).substr(0, 4), "#R#G") << "counted from the first";
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
        EXPECT_EQ(MiddleOf(station.Picture()).substr(0, 7), c.middle) << c.compress;
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

}  // namespace
}  // namespace cumeron
