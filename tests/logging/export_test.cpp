// The spreadsheet export: its lines, the menu entry, and when the file opens and closes.
#include "logging/export.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "logging/replay.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

const std::string Exported = "C:\\LOG\\A.txt";
constexpr std::string_view Title =
    "Ceilometer Measurement data profile in the Excel suitable format (comma as column "
    "separator)\r\n";

std::string BoxOf(int error) {
    return "The following Error occurred:\r\n\r\n" + ErrorText(error) +
           "\r\nError Number: " + std::to_string(error);
}

std::vector<std::string> SplitAt(const std::string& text, const std::string& mark) {
    std::vector<std::string> parts;
    std::size_t at = 0;
    for (std::size_t end; (end = text.find(mark, at)) != text.npos; at = end + mark.size()) {
        parts.push_back(text.substr(at, end - at));
    }
    parts.push_back(text.substr(at));
    return parts;
}

// Rows without a replay around them, from a profile whose sample i is -i and a message whose
// character at position p is the p-th of a row of letters.
struct Rows : Station {
    std::vector<std::int32_t> profile = std::vector<std::int32_t>(2049);
    std::string message;

    explicit Rows(int model = 30) : Station(model) {
        for (int i = 0; i < 2049; ++i) profile[static_cast<std::size_t>(i)] = -i;
        for (int i = 0; i < 200; ++i) message += static_cast<char>('A' + i % 26);
        machine.files.MakeFolder("C:\\LOG");
        w.intake.MessageId = 2;
        w.graphs.ProfileYLow = 0;
        w.graphs.ProfileYHigh = 3;
        w.exporting.ExportFileNo = OpenExportFile(w, A);
    }
    void Write(double when = Noon) {
        WriteExportRow(w, profile, when, w.exporting.ExportFileNo, message);
    }
    // Line by line, and the rest behind the last line end.
    std::vector<std::string> Lines() { return SplitAt(*machine.files.Content(Exported), "\r\n"); }
    std::string Line(std::size_t number) { return Lines().at(number - 1); }
    std::vector<std::string> Columns(std::size_t line) { return SplitAt(Line(line), ","); }
};

TEST(ExportName, EndsAtTheFirstDot) {
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\LOG\\A.DAT", "C:\\LOG\\A.txt"},
        {"C:\\LOG\\A.B.DAT", "C:\\LOG\\A.txt"},
        {"C:\\V1.2\\LOG\\A.DAT", "C:\\V1.txt"},
        {"/home/a.b/log/A.DAT", "/home/a.txt"},
        {"C:\\LOG\\A", "C:\\LOG\\A.txt"},
        {"C:\\LOG\\A.", "C:\\LOG\\A.txt"},
        {"/home/u/H\xF6he.DAT", "/home/u/H\xF6he.txt"},
        {"", ".txt"}};
    for (const auto& [log, name] : cases) EXPECT_EQ(ExportName(log), name);
}

// ---- Lines ----

TEST(OpenExportFile, WritesThreeLinesAndWaitsForTheHeads) {
    const std::pair<int, const char*> cases[] = {{30, "100000"}, {50, "100000"}, {70, "10000"},
                                                 {20, "10000"},  {10, "10000"},  {60, "10000"}};
    for (const auto& [model, unit] : cases) {
        Rows rows(model);
        const double now = rows.machine.time.Now();
        EXPECT_EQ(rows.machine.files.Content(Exported),
                  std::string(Title) + "The unit of the data is [" + unit +
                      "*srad*km]^-1\r\nFile created: " + Format(now, "Short Date") + " " +
                      Format(now, "ttttt") + "\r\n");
        EXPECT_EQ(rows.w.exporting.ExportFileNo, 2) << "1 is the off-line file";
        EXPECT_EQ(rows.w.exporting.ExportHeaderDue, -1);
    }
}

TEST(WriteExportRow, WritesTheHeadsOnceForTheFirstMessage) {
    Rows rows;
    rows.Write();
    EXPECT_EQ(rows.w.exporting.ExportHeaderDue, 0);
    rows.w.graphs.ProfileYHigh = 1;
    rows.Write();
    const std::vector<std::string> lines = rows.Lines();
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(lines[3], ",,Status,Height1,Height2,Height3,Sig. Sum,Feets,0,98,197,295");
    EXPECT_EQ(lines[4], ",,,Feets,Feets,Feets,,Meters,0,30,60,90");
    EXPECT_EQ(lines[5], "1-May,12:00:00,H,PQRST,VWXYZ,BCDEF,NOP,,0,-1,-2,-3");
    EXPECT_EQ(lines[6], "1-May,12:00:00,H,PQRST,VWXYZ,BCDEF,NOP,,0,-1");
    EXPECT_EQ(lines[7], "");
}

TEST(WriteExportRow, TellsTheHeightsOfTheSamples) {
    const struct {
        const char* what;
        int model;
        double scale;
        std::int16_t units;
        std::int16_t low, high;
        const char *feet, *metres;
    } cases[] = {
        {"to the nearest foot", 50, 3, 0, 1, 4, "33,66,98,131", "Feets,,Meters,10,20,30,40"},
        {"high samples", 50, 3, 1, 1539, 1540, "50492,50525", "Meters,,Meters,15390,15400"},
        {"halves to even", 30, 98.4252 / 0.5, 0, 1, 5, "0,1,2,2,2", "Feets,,Meters,0,0,0,0,0"},
        {"cut feet", 20, 3, 0, 1, 4, "33,66,100,133", "Feets,,Meters,10,20,30,40"},
        {"cut metres", 60, 4, 1, 1, 4, "25,50,75,100", "Meters,,Meters,7,15,22,30"},
        {"other units", 70, 1, -1, 2, 3, "200,300", "Feets,,Meters,60,90"},
        {"below the ground", 20, 3, 0, -2, 0, "-66,-33,0", "Feets,,Meters,-20,-10,0"},
        {"none", 20, 1, 0, 5, 4, "", "Feets,,Meters"},
    };
    for (const auto& c : cases) {
        Rows rows(c.model);
        rows.w.intake.ProfileScale = c.scale;
        rows.w.settings.Units = c.units;
        rows.w.graphs.ProfileYLow = c.low;
        rows.w.graphs.ProfileYHigh = c.high;
        rows.Write();
        const std::string comma = c.low > c.high ? "" : ",";
        EXPECT_EQ(rows.Line(4), ",,Status,Height1,Height2,Height3,Sig. Sum,Feets" + comma + c.feet)
            << c.what;
        EXPECT_TRUE(rows.Line(5).ends_with(c.metres)) << c.what << ": " << rows.Line(5);
        EXPECT_TRUE(rows.Line(5).starts_with(c.units == 1 ? ",,,Meters,Meters,Meters,,Meters"
                                                          : ",,,Feets,Feets,Feets,,Meters"))
            << c.what;
    }
}

TEST(WriteExportRow, TheMessageTellsTheLastSample) {
    const std::pair<std::int16_t, int> cases[] = {
        {3111, 770},  {3114, 770}, {3121, 770}, {3124, 770}, {3112, 385},  {3122, 385},
        {3115, 0},    {3118, 0},   {3125, 0},   {3128, 0},   {3116, 1540}, {3126, 1540},
        {3123, 1500}, {3113, 250}, {2, 250},    {-1, 250},   {39, 250}};
    for (const auto& [id, last] : cases) {
        Rows rows;
        rows.w.intake.MessageId = id;
        rows.w.graphs.ProfileYHigh = 250;
        rows.Write();
        const std::vector<std::string> columns = rows.Columns(6);
        EXPECT_EQ(columns.size(), 8U + static_cast<std::size_t>(last) + 1) << id;
        EXPECT_EQ(columns.back(), std::to_string(-last)) << id;
        EXPECT_EQ(rows.Columns(4).size(), columns.size()) << id;
        EXPECT_EQ(rows.Columns(5).size(), columns.size()) << id;
    }
}

TEST(WriteExportRow, ARangeWithoutSamplesEndsBehindTheEighthColumn) {
    Rows rows;
    rows.w.intake.MessageId = 3115;
    rows.w.graphs.ProfileYLow = 1;
    rows.Write();
    EXPECT_EQ(rows.Line(6), "1-May,12:00:00,H,PQRST,VWXYZ,BCDEF,NOP,");
    rows.w.graphs.ProfileYLow = 3000;  // beyond the profile, but nothing is taken of it
    rows.Write();
    EXPECT_EQ(rows.Line(7), "1-May,12:00:00,H,PQRST,VWXYZ,BCDEF,NOP,");
}

TEST(WriteExportRow, TakesTheFieldsOfTheModelAsTheyStand) {
    const struct {
        int model;
        std::int16_t id;
        std::string_view fields;  // letters of the positions 1 = A, 27 = A ...
    } cases[] = {
        {20, 15, "G,OPQRS,UVWXY,ABCDE,DEF"},   {70, 2, "G,OPQRS,UVWXY,ABCDE,DEF"},
        {30, 3116, "H,PQRST,VWXYZ,BCDEF,NOP"}, {30, 3119, "H,PQRST,VWXYZ,BCDEF,NOP"},
        {30, 3120, "H,PQRST,VWXYZ,BCDEF,YZA"}, {50, 3121, "H,PQRST,VWXYZ,BCDEF,YZA"},
        {50, 3126, "H,PQRST,VWXYZ,BCDEF,DEF"}, {50, 3129, "H,PQRST,VWXYZ,BCDEF,YZA"},
        {50, 3130, "H,PQRST,VWXYZ,BCDEF,NOP"}, {60, 39, "F,BCDEF,HIJKL,NOPQR,DEF"},
    };
    for (const auto& c : cases) {
        Rows rows(c.model);
        rows.w.intake.MessageId = c.id;
        rows.Write();
        EXPECT_TRUE(rows.Line(6).starts_with("1-May,12:00:00," + std::string(c.fields) + ",,0,"))
            << c.model << " " << c.id << ": " << rows.Line(6);
    }
}

TEST(WriteExportRow, AShortMessageLeavesItsColumnsShort) {
    const std::pair<std::size_t, const char*> cases[] = {
        {0, ",,,,"}, {17, ",PQ,,,"}, {34, "H,PQRST,VWXYZ,BCDEF,"}, {93, "H,PQRST,VWXYZ,BCDEF,NO"}};
    for (const auto& [length, fields] : cases) {
        Rows rows;
        rows.message.resize(length);
        rows.Write();
        EXPECT_EQ(rows.Line(6), "1-May,12:00:00," + std::string(fields) + ",,0,-1,-2,-3");
    }
}

TEST(WriteExportRow, ATimeWithoutADateHasSixBlanks) {
    const std::pair<double, const char*> cases[] = {{0.25, "      ,06:00:00,"},
                                                    {1.0, "      ,00:00:00,"},
                                                    {1.5, "31-Dec,12:00:00,"},
                                                    {Noon + 30.25, "31-May,18:00:00,"}};
    for (const auto& [when, start] : cases) {
        Rows rows;
        rows.Write(when);
        EXPECT_TRUE(rows.Line(6).starts_with(start)) << rows.Line(6);
    }
}

TEST(WriteExportRow, NumbersOfAnySizeStandInPlainDecimals) {
    Rows rows;
    rows.profile = {-2147483648, 2147483647, 0, 100000};
    rows.Write();
    EXPECT_TRUE(rows.Line(6).ends_with(",NOP,,-2147483648,2147483647,0,100000"));
}

TEST(WriteExportRow, WhatCannotBeMadeIsLeftOutWithoutAWord) {
    const struct {
        const char* what;
        void (*spoil)(Rows&);
        std::size_t lines;  // that are there afterwards
    } cases[] = {
        {"a range beyond the profile", [](Rows& rows) { rows.w.graphs.ProfileYHigh = 2049; }, 5},
        {"a range below the ground", [](Rows& rows) { rows.w.graphs.ProfileYLow = -1; }, 5},
        {"heights without a scale", [](Rows& rows) { rows.w.intake.ProfileScale = 0; }, 3},
        {"no place of a signal sum", [](Rows& rows) { rows.w.model.PosExport = 0; }, 5},
        {"a full disk", [](Rows& rows) { rows.machine.files.FillDisk(); }, 3},
    };
    for (const auto& c : cases) {
        Rows rows;
        c.spoil(rows);
        rows.Write();
        EXPECT_EQ(rows.Lines().size() - 1, c.lines) << c.what;
        EXPECT_EQ(rows.Lines().back(), "") << c.what;
        EXPECT_TRUE(rows.machine.dialogs.Boxes().empty()) << c.what;
        // The next message has what this one lacks.
        rows.w.graphs.ProfileYLow = 0;
        rows.w.graphs.ProfileYHigh = 2048;
        rows.w.intake.ProfileScale = 1;
        rows.w.model.PosExport = 92;
        rows.machine.files.EmptyDisk();
        rows.Write();
        EXPECT_EQ(rows.Lines().size() - 1, 6U) << c.what;
        EXPECT_EQ(rows.Columns(6).size(), 8U + 2049) << c.what;
    }
}

TEST(WriteExportRow, NumberNoughtWritesNothing) {
    Rows rows;
    WriteExportRow(rows.w, rows.profile, Noon, 0, rows.message);
    EXPECT_EQ(rows.Lines().size(), 4U);
    EXPECT_EQ(rows.w.exporting.ExportHeaderDue, -1);
    CloseExportFile(rows.w);
    WriteExportRow(rows.w, rows.profile, Noon, 2, rows.message);
    EXPECT_EQ(rows.Lines().size(), 5U);
}

TEST(WriteExportRow, Rv10xHasASignalSumOnlyFromAModelBefore) {
    Rows rows(10);
    rows.w.intake.MessageId = 4;
    rows.Write();
    EXPECT_EQ(rows.Lines().size() - 1, 5U) << "the heads alone";
    EXPECT_TRUE(rows.machine.dialogs.Boxes().empty());
    Rows changed(20);
    changed.w.settings.CEILOMETER = 10;
    LoadModel(changed.w, LoadedBy::Dialog);
    changed.Write();
    EXPECT_EQ(changed.Line(6), "1-May,12:00:00,F,HIJKL,TUVWX,NOPQR,DEF,,0,-1,-2,-3");
}

// ---- Broken files ----

TEST(WriteExportRow, ADiskThatFillsInARowDoesNotGlueTheNextToIt) {
    Rows rows;
    rows.Write();
    const std::string before = *rows.machine.files.Content(Exported);
    rows.machine.files.FillDiskAfter(10);
    rows.Write(Noon + 1);
    rows.Write(Noon + 2);
    rows.machine.files.EmptyDisk();
    rows.Write(Noon + 3);
    rows.machine.files.FailNextWrite();
    rows.Write(Noon + 4);
    rows.Write(Noon + 5);
    const std::string fields = ",12:00:00,H,PQRST,VWXYZ,BCDEF,NOP,,0,-1,-2,-3\r\n";
    EXPECT_EQ(*rows.machine.files.Content(Exported),
              before + "2-May,12:0\r\n4-May" + fields + "6-May" + fields);
}

TEST(OpenExportFile, GoesOnBehindWhatIsThere) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"old\r\n-File Closed: 01.05.2026 12:00:00\r\n",
         "old\r\n-File Closed: 01.05.2026 12:00:00\r\n"},
        {"old\r\n1-May,12:0", "old\r\n1-May,12:0\r\n"},
        {"old\r", "old\r\r\n"},
    };
    for (const auto& [old, kept] : cases) {
        Station station(30);
        station.machine.files.Put(Exported, old);
        OpenExportFile(station.w, A);
        const std::string text = *station.machine.files.Content(Exported);
        EXPECT_TRUE(text.starts_with(kept + std::string(Title))) << old;
        EXPECT_TRUE(station.w.exporting.file);
    }
}

TEST(OpenExportFile, TellsWhyThereIsNone) {
    for (const int error : {57, 70, 75, 76}) {
        Station station(30);
        station.machine.files.MakeFolder("C:\\LOG");
        station.machine.files.FailNextOpen(Exported, error);
        EXPECT_EQ(OpenExportFile(station.w, A), 0);
        EXPECT_EQ(station.machine.dialogs.TakeBox(), BoxOf(error));
        EXPECT_FALSE(station.w.exporting.file);
        EXPECT_EQ(station.w.exporting.ExportHeaderDue, 0);
    }
}

TEST(OpenExportFile, WithoutRoomForAnotherOpenFileThereIsNoNumber) {
    Station station(30);
    station.machine.files.MakeFolder("C:\\LOG");
    station.machine.files.FailNextOpen(Exported, 67);
    EXPECT_EQ(OpenExportFile(station.w, A), 0);
    EXPECT_EQ(station.machine.dialogs.TakeBox(), "Could not create File for Excel formatted data");
    EXPECT_EQ(station.machine.dialogs.TakeBeeps(), 0);
}

TEST(OpenExportFile, AFullDiskLeavesNoFileOpen) {
    Station station(30);
    station.machine.files.MakeFolder("C:\\LOG");
    station.machine.files.FillDiskAfter(20);
    EXPECT_EQ(OpenExportFile(station.w, A), 0);
    EXPECT_EQ(station.machine.dialogs.TakeBox(), BoxOf(61));
    EXPECT_FALSE(station.w.exporting.file);
    EXPECT_EQ(station.machine.files.Content(Exported), std::string(Title.substr(0, 20)));
}

TEST(OpenExportFile, DoesNotWriteIntoTheFileThatIsRead) {
    Replay replay(20);
    const std::string log = ShortLog(2);
    replay.machine.files.Put("C:\\LOG\\A.TXT", log);
    replay.Click(replay.Form().mnuExcel);
    replay.Open("C:\\LOG\\A.TXT");
    EXPECT_EQ(replay.Box(), BoxOf(55));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.w().exporting.ExportFileNo, 0);
    EXPECT_EQ(replay.machine.files.Content("C:\\LOG\\A.TXT"), log);
}

TEST(OpenExportFile, DoesNotWriteIntoALaterFileOfTheSetThatIsRead) {
    Replay replay(20);
    const std::string log = ShortLog(2);
    replay.machine.files.Put(A, log);
    replay.machine.files.Put("C:\\LOG\\A.TXT", log);
    replay.Click(replay.Form().mnuExcel);
    replay.Open("C:\\LOG\0A.DAT\0A.TXT"s);
    EXPECT_EQ(replay.Box(), BoxOf(55));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.machine.files.Content("C:\\LOG\\A.TXT"), log);
}

TEST(CloseExportFile, TellsThatTheClosedLineDidNotFit) {
    Rows rows;
    rows.machine.files.FillDisk();
    CloseExportFile(rows.w);
    EXPECT_EQ(rows.machine.dialogs.TakeBox(), BoxOf(61));
    EXPECT_EQ(rows.w.exporting.ExportFileNo, 0);
    EXPECT_FALSE(rows.w.exporting.file);
    CloseExportFile(rows.w);
    EXPECT_EQ(rows.machine.dialogs.TakeBox(), std::nullopt);
}

// ---- With a replay ----

struct ExportReplay : Replay {
    using Replay::Replay;
    bool Armed() { return Form().mnuExcel.Checked; }
    std::int16_t Number() { return w().exporting.ExportFileNo; }
    std::string Text(const std::string& name = Exported) {
        return machine.files.Content(name).value_or("no file");
    }
    // Seconds of the rows, "-" for a closed line, "*" for a title.
    std::string Story(const std::string& name = Exported) {
        std::string story;
        for (const std::string& line : SplitAt(Text(name), "\r\n")) {
            if (line.starts_with("-File Closed: ")) story += "- ";
            if (line + "\r\n" == Title) story += "* ";
            const std::vector<std::string> columns = SplitAt(line, ",");
            if (columns.size() > 7 && columns[1].size() == 8) story += columns[1].substr(3) + " ";
        }
        return story;
    }
};

TEST(mnuExcel, NeedsAClosedPort) {
    ExportReplay replay;
    replay.Click(replay.Form().mnuOpenPort);
    replay.Click(replay.Form().mnuExcel);
    EXPECT_EQ(replay.Box(), "Excel conversion available only in Off-line mode");
    EXPECT_FALSE(replay.Armed());
    replay.Click(replay.Form().mnuClosePort);
    replay.Click(replay.Form().mnuExcel);
    EXPECT_TRUE(replay.Armed());
    // What is armed can be taken back also with the port open.
    replay.Click(replay.Form().mnuOpenPort);
    replay.Click(replay.Form().mnuExcel);
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_FALSE(replay.Armed());
}

TEST(mnuExcel, ArmedBeforeItWaitsForTheFile) {
    ExportReplay replay;
    replay.Click(replay.Form().mnuExcel);
    EXPECT_EQ(replay.Number(), 0);
    EXPECT_EQ(replay.Text(), "no file");
    replay.OpenLog(KnLog(2));
    EXPECT_EQ(replay.Number(), 2);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 ");
}

TEST(mnuExcel, OpensAndClosesInOffLineMode) {
    ExportReplay replay;
    replay.OpenLog(KnLog(3));
    EXPECT_EQ(replay.Text(), "no file");
    replay.Click(replay.Form().mnuExcel);
    EXPECT_EQ(replay.Story(), "* ");
    replay.Click(replay.Bar().Start);
    replay.Click(replay.Bar().Forward);
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 ") << "a step back writes nothing";
    replay.Click(replay.Bar().Play);
    replay.Click(replay.Form().mnuExcel);
    EXPECT_FALSE(replay.Armed());
    EXPECT_EQ(replay.Number(), 0);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 00:30 00:45 - ");
    replay.Click(replay.Bar().Start);
    replay.Click(replay.Form().mnuExcel);
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 00:30 00:45 - * 00:30 ");
}

TEST(mnuExcel, AFailedFileLeavesTheReplayAndTheMark) {
    ExportReplay replay;
    replay.Click(replay.Form().mnuExcel);
    replay.machine.files.FailNextOpen(Exported, 70);
    replay.OpenLog(KnLog(2));
    EXPECT_EQ(replay.Box(), BoxOf(70));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    EXPECT_EQ(replay.Number(), 0);
    EXPECT_TRUE(replay.Armed());
    EXPECT_EQ(replay.Text(), "no file");
    replay.Open(A);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 ") << "the next opening tries again";
}

TEST(Export, EachWayOutOfOffLineModeClosesTheFile) {
    const struct {
        const char* what;
        void (*leave)(ExportReplay&);
        bool armed;
        const char* story;
    } cases[] = {
        {"closing the file", [](ExportReplay& r) { r.Click(r.Bar().CloseFile); }, false,
         "* 00:15 00:30 - "},
        {"another file",
         [](ExportReplay& r) {
             r.machine.files.Put(B, KnLog(1));
             r.Open(B);
         },
         false, "* 00:15 00:30 - "},
        {"a file that cannot be opened", [](ExportReplay& r) { r.Open(C); }, false,
         "* 00:15 00:30 - "},
        {"leaving the program", [](ExportReplay& r) { r.Click(r.Form().mnuExit); }, true,
         "* 00:15 00:30 - "},
        {"a cancelled dialog",
         [](ExportReplay& r) {
             r.machine.dialogs.ChooseNext(std::nullopt);
             r.Click(r.Form().mnuFileOpen);
         },
         true, "* 00:15 00:30 "},
    };
    for (const auto& c : cases) {
        ExportReplay replay;
        replay.Click(replay.Form().mnuExcel);
        replay.OpenLog(KnLog(2));
        c.leave(replay);
        EXPECT_EQ(replay.Story(), c.story) << c.what;
        EXPECT_EQ(replay.Armed(), c.armed) << c.what;
        EXPECT_EQ(replay.Number() == 0, std::string(c.story).ends_with("- ")) << c.what;
        EXPECT_EQ(replay.Text("C:\\LOG\\B.txt"), "no file") << c.what;
    }
}

TEST(Export, AReplayThatFailsAtItsStartClosesTheFileAndStaysArmed) {
    ExportReplay replay(10);
    replay.w().model.PosExport = 20;
    replay.Click(replay.Form().mnuExcel);
    replay.OpenLog(RecordAt(0, "\x02\r\n10 01230").substr(0, 30));
    EXPECT_EQ(replay.Box(), BoxOf(5));
    EXPECT_EQ(replay.Number(), 0);
    EXPECT_EQ(replay.Story(), "* - ");
    EXPECT_TRUE(replay.Armed());
}

TEST(Export, ASetOfLogsIsOneExport) {
    ExportReplay replay;
    replay.machine.files.Put(A, KnLog(2));
    replay.machine.files.Put(B, KnLog(1, 3));
    replay.Click(replay.Form().mnuExcel);
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    replay.Click(replay.Bar().CloseFile);
    EXPECT_EQ(replay.Story(), "* 00:15 00:30 00:45 - ");
    EXPECT_EQ(replay.Text("C:\\LOG\\B.txt"), "no file");
}

TEST(Export, MessagesThatAreDroppedHaveNoRow) {
    ExportReplay replay(20);
    replay.Click(replay.Form().mnuExcel);
    replay.OpenLog(RecordAt(1, "\x01RV\r\n\x03\r\n") + RecordAt(2, "\x01RV\r\nno end\r\n") +
                   RecordAt(3, "\x01RV\r\n\x03\r\n"));
    EXPECT_EQ(replay.Story(), "* 00:01 00:03 ");
}

TEST(Export, ADataCollectorFileHasTimesAndProfilesOfItsMessages) {
    ExportReplay replay(30, "Backscatter_Y_User_Defined=-1\r\nBackscatter_Y_High_Value=300\r\n");
    replay.Click(replay.Form().mnuExcel);
    replay.OpenLog("= 06:00:00\r\nKN021015 \r\n10 01230 /////\r\n\r\n");
    EXPECT_NE(replay.Text().find("\r\n      ,06:00:00,"), std::string::npos) << replay.Text();
    replay.machine.files.Put(B, RecordAt(15, KnProfile(25)));
    replay.Click(replay.Form().mnuExcel);
    replay.Open(B);
    replay.Click(replay.Bar().Start);
    replay.Click(replay.Form().mnuExcel);
    replay.Click(replay.Bar().Start);
    const std::vector<std::string> columns =
        SplitAt(SplitAt(replay.Text("C:\\LOG\\B.txt"), "\r\n").at(5), ",");
    ASSERT_EQ(columns.size(), 8U + 386);
    EXPECT_EQ(columns[3], "01230");
    EXPECT_EQ(columns[100], "25");
}

TEST(Export, IsTakenBackInTheMidstOfAPlay) {
    ExportReplay replay;
    replay.Click(replay.Form().mnuExcel);
    replay.machine.files.Put(A, KnLog(12));
    replay.machine.time.At(0, [&] { replay.Click(replay.Form().mnuExcel); });
    replay.Open(A);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 12);
    EXPECT_FALSE(replay.Armed());
    EXPECT_TRUE(replay.Story().ends_with("- "));
    EXPECT_LT(replay.Story().size(), 12U * 6);
}

}  // namespace
}  // namespace cumeron
