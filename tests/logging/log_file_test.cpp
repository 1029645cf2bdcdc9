// The writer of logs: names, bytes, and every way in which a write can go wrong.
#include "logging/log_file.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "logging/offline_reader.h"
#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

constexpr PathStyle Win = PathStyle::Windows, Posix = PathStyle::Posix;
constexpr const char* Log = "C:\\LOG\\A6111514.DAT";
const double Afternoon = DateSerial(2026, 11, 15) + TimeSerial(14, 41, 25);
const std::string Head = "-Ceilometer Logfile \r\n-File created: 15.11.2026 14:41:25\r\n";
const std::string Closed = "-File Closed: 15.11.2026 14:41:25\r\n";
const std::string Stamp = "-2026-11-15 14:41:25\r\n";
const std::string RvFrame = "\x01RVA1010\x02\r\n10 01230 ///// ///// 00000000\r\n\x03\r\n";
const std::string Rv10xFrame = "\x02\r\n10 01230\r\n\r\nxx\r\n\x03\r\n";
const std::string Tq60Frame = "\x02X0TA08    11\r\n\x04";

std::string FrameOf(int model) {
    if (model == 10) return Rv10xFrame;
    if (model == 60) return Tq60Frame;
    return model == 30 || model == 50 ? ShortKN("15") : RvFrame;
}

TEST(LogName, HoldsYearDigitMonthDayAndHour) {
    const struct {
        double when;
        const char *fileChar, *name;
    } cases[] = {{Afternoon, "A", "A6111514.DAT"},
                 {DateSerial(2030, 3, 7) + TimeSerial(5, 59, 59), "K", "K0030705.DAT"},
                 {DateSerial(2027, 1, 1), "", "7010100.DAT"}};
    for (const auto& c : cases) EXPECT_EQ(LogName(c.when, c.fileChar), c.name);
}

TEST(InLogFolder, PutsTheFolderInFront) {
    const struct {
        PathStyle style;
        const char *folder, *name;
    } cases[] = {
        {Win, "C:\\LOG", "C:\\LOG\\N"}, {Win, "LOG", "LOG\\N"},  {Win, "", "N"},
        {Win, "D:\\LOG\\", "N"},        {Win, "C:\\", "N"},      {Win, "/log/", "/log/\\N"},
        {Posix, "/log", "/log/N"},      {Posix, "log", "log/N"}, {Posix, "", "N"},
        {Posix, "/log/", "/log/N"},     {Posix, "/", "/N"}};
    for (const auto& c : cases) EXPECT_EQ(InLogFolder(c.style, c.folder, "N"), c.name) << c.folder;
}

TEST(DriveOf, IsTheDriveOrTheFolderInFull) {
    const struct {
        PathStyle style;
        const char *folder, *current, *drive;
    } cases[] = {{Win, "D:\\LOG", "C:\\X", "D:"}, {Win, "D:", "C:\\X", "D:"},
                 {Win, "LOG", "C:\\X", "C:"},     {Win, "D", "C:\\X", "C:"},
                 {Win, "", "E:\\", "E:"},         {Posix, "/log", "/home", "/log"},
                 {Posix, "", "/home", "/home"},   {Posix, "log", "/home", "/home/log"},
                 {Posix, "log", "/", "/log"}};
    for (const auto& c : cases) EXPECT_EQ(DriveOf(c.style, c.folder, c.current), c.drive);
}

TEST(EndsWhole, KnowsWhatAReaderFindsTheEndOf) {
    const std::string record = Stamp + RvFrame + "\r\n";
    const struct {
        const char* what;
        std::string text;
        bool whole;
    } cases[] = {
        {"nothing", "", true},
        {"head lines", Head, true},
        {"closed line", record + Closed, true},
        {"RV", Head + record, true},
        {"KN", Stamp + ShortKN("15") + "\r\n", true},
        {"RV10X", Stamp + Rv10xFrame + "\r\n", true},
        {"TQ60", Stamp + Tq60Frame + "\r\n", true},
        {"cut head line", Head.substr(0, 30), false},
        {"cut closed line", record + Closed.substr(0, Closed.size() - 1), false},
        {"cut time", record + Stamp.substr(0, 9), false},
        {"time alone", record + Stamp, false},
        {"cut frame", record + Stamp + RvFrame.substr(0, 20), false},
        {"cut behind a line", record + Stamp + RvFrame.substr(0, 11), false},
        {"KN frame end alone", Stamp + ShortKN("15"), false},
        {"TQ60 frame end alone", Stamp + Tq60Frame, false},
        {"an ended break", Stamp + RvFrame.substr(0, 20) + "\r\n\r\n" + Head, true},
        {"a time that is none", "-2026-11-15 14:41:2x\r\nabc\r\n", true},
        {"a time in the midst of a line", "x" + Stamp, true},
        {"a dash at the very beginning", "-\r\n", true},
        {"a dash before a time", "-\r\n" + Stamp, false},
    };
    for (const auto& c : cases) EXPECT_EQ(EndsWhole(c.text), c.whole) << c.what;
}

// A log folder, a clock that stands, and a model.
struct Writer : Station {
    explicit Writer(int model = 30) : Station(model) {
        machine.files.MakeFolder("C:\\LOG");
        machine.time.SetNow(Afternoon);
        w.settings.Log_File_Path = "C:\\LOG";
        w.settings.File_Char = "A";
        w.settings.File_Length = 0.25;
        w.logging.ReportLogErrors = 1;
    }
    std::string Text(const std::string& name = Log) {
        return machine.files.Content(name).value_or("none");
    }
    void On() { mnuLogOn_Click(w); }
    void Record(const std::string& message) { WriteLogRecord(w, w.logging.LogFileNumber, message); }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
    // The messages that a reader finds in the log.
    std::vector<std::string> Found() {
        std::vector<std::string> messages;
        OpenOfflineFile(w, Log);
        OfflineRecord record;
        while (ReadRecord(w, record) == LogRecord) messages.push_back(record.message);
        CloseOfflineFile(w);
        return messages;
    }
};

TEST(OpenLogFile, WritesTheHeadAndNotesItsNames) {
    Writer writer;
    writer.w.settings.Status_Log = 1;
    EXPECT_NE(OpenLogFile(writer.w), 0);
    EXPECT_EQ(writer.Text(), Head);
    EXPECT_EQ(writer.w.logging.LogFileName, Log);
    EXPECT_EQ(writer.w.logging.StatusLogFile, "C:\\LOG\\A6111514.sta");
    EXPECT_FALSE(writer.machine.files.Exists("C:\\LOG\\A6111514.sta"));
    EXPECT_EQ(writer.w.logging.LogDrive, "C:");
    EXPECT_EQ(writer.w.logging.LogWriteOk, 1);
    EXPECT_DOUBLE_EQ(writer.w.logging.LogSliceStart, DateSerial(2026, 11, 15) + 0.5);
}

TEST(OpenLogFile, StatusLogIsOnForOneAlone) {
    for (const int value : {0, 2, -1}) {
        Writer writer;
        writer.w.settings.Status_Log = static_cast<std::int16_t>(value);
        OpenLogFile(writer.w);
        EXPECT_EQ(writer.w.logging.StatusLogFile, "");
    }
}

TEST(OpenLogFile, TellsWhyItCannot) {
    for (const int report : {1, 0}) {
        Writer writer;
        writer.w.settings.Log_File_Path = "C:\\NOWHERE";
        writer.w.logging.ReportLogErrors = static_cast<std::int16_t>(report);
        EXPECT_EQ(OpenLogFile(writer.w), 0);
        EXPECT_EQ(writer.w.logging.LogFileName, "");
        EXPECT_EQ(writer.w.logging.LogWriteOk, 0);
        EXPECT_EQ(writer.Box().find("Error Number: 76") != std::string::npos, report == 1);
    }
}

TEST(OpenLogFile, LengthUnderAnHourFailsBehindTheFile) {
    for (const int report : {1, 0}) {
        Writer writer;
        writer.w.settings.File_Length = TimeSerial(0, 30, 0);
        writer.w.logging.LogSliceStart = 5;
        writer.w.logging.ReportLogErrors = static_cast<std::int16_t>(report);
        EXPECT_EQ(OpenLogFile(writer.w) != 0, report == 0);
        EXPECT_EQ(writer.Text(), Head);
        EXPECT_EQ(writer.w.logging.LogFileName, Log);
        EXPECT_EQ(writer.w.logging.LogSliceStart, 5);
        EXPECT_EQ(writer.Box().find("Error Number: 11") != std::string::npos, report == 1);
    }
}

TEST(OpenLogFile, GoesOnBehindAClosedLog) {
    Writer writer;
    writer.machine.files.Put(Log, Head + Closed);
    writer.On();
    EXPECT_EQ(writer.Text(), Head + Closed + Head);
}

TEST(OpenLogFile, TellsALogThatCannotBeLookedInto) {
    Writer writer;
    writer.machine.files.Put(Log, Head);
    writer.machine.files.FailNextOpen(Log, 70);
    writer.On();
    EXPECT_NE(writer.Box().find("Error Number: 70"), std::string::npos);
    EXPECT_FALSE(writer.w.frmMain.mnuLogOn.Checked);
    EXPECT_EQ(writer.Text(), Head);
}

// A crash may end the file at any byte. What stood before is found, and what follows too.
TEST(OpenLogFile, EndsWhatACrashCutAtAnyByte) {
    for (const int model : {70, 20, 10, 30, 50, 60}) {
        const std::string frame = FrameOf(model);
        const std::string record = Stamp + frame + "\r\n";
        Writer whole(model);
        whole.machine.files.Put(Log, Head + record);
        const std::vector<std::string> one = whole.Found();
        ASSERT_EQ(one.size(), 1U) << model;
        for (std::size_t cut = 0; cut < record.size(); ++cut) {
            Writer writer(model);
            writer.machine.files.Put(Log, Head + record + record.substr(0, cut));
            writer.On();
            writer.Record(frame);
            const std::vector<std::string> found = writer.Found();
            ASSERT_GE(found.size(), 2U) << model << " " << cut;
            EXPECT_EQ(found.front(), one[0]) << model << " " << cut;
            EXPECT_EQ(found.back(), one[0]) << model << " " << cut;
            EXPECT_LE(found.size(), 3U) << model << " " << cut;
        }
    }
}

TEST(OpenLogFile, ACutMessageOfRv10xDoesNotPassForAWholeOne) {
    Writer writer(10);
    const std::string cut = Head + Stamp + "\x02\r\n10 01230";
    writer.machine.files.Put(Log, cut);
    writer.On();
    EXPECT_EQ(writer.Text(), cut + "\r\n\x03 \r\n" + Head) << "no frame ends in ETX and a blank";
}

TEST(OpenLogFile, ALogInTheCurrentFolderStaysThere) {
    Writer writer;
    writer.machine.files.SetStyle(PathStyle::Posix);
    writer.machine.files.MakeFolder("/home/user");
    writer.machine.files.MakeFolder("/data");
    writer.machine.files.ChangeFolder("/home/user");
    writer.w.settings.Log_File_Path = "";
    writer.w.settings.Status_Log = 1;
    writer.w.settings.Enable_Zip = 1;
    writer.w.settings.Zip_Exe = "zip";
    writer.w.settings.Zip_File_Path = "/arc";
    writer.On();
    EXPECT_EQ(writer.w.logging.LogFileName, "A6111514.DAT");
    writer.machine.files.ChangeFolder("/data");
    writer.Record(ShortKN("15"));
    WriteStatusNote(writer.w);
    mnuLogOff_Click(writer.w);
    EXPECT_EQ(writer.machine.files.Content("/home/user/A6111514.DAT"),
              Head + Stamp + ShortKN("15") + "\r\n" + Closed);
    EXPECT_TRUE(writer.machine.files.Exists("/home/user/A6111514.sta"));
    EXPECT_FALSE(writer.machine.files.Exists("/data/A6111514.DAT"));
    ASSERT_EQ(writer.machine.process.started.size(), 1U);
    EXPECT_EQ(writer.machine.process.started[0],
              "zip -a \"/arc/A6111514\" \"/home/user/A6111514.DAT\"");
}

TEST(OpenLogFile, LooksAtTheEndOfALongLogAlone) {
    Writer writer;
    const std::string record = Stamp + ShortKN("15") + "\r\n";
    std::string log = Head;
    while (log.size() < 200000) log += record;
    writer.machine.files.Put(Log, log);
    writer.On();
    EXPECT_EQ(writer.Text(), log + Head);
    writer.machine.files.Put(Log, log.substr(0, log.size() - 1));
    mnuLogOff_Click(writer.w);
    writer.machine.files.Put(Log, log.substr(0, log.size() - 1));
    writer.On();
    EXPECT_EQ(writer.Text(), log.substr(0, log.size() - 1) + "\r\n\r\n" + Head);
}

TEST(WriteLogRecord, PutsTheTimeBeforeTheMessage) {
    Writer writer;
    writer.On();
    const std::string message = "\x01\0\xFF\r\nany bytes\x04\r\n"s;
    writer.Record(message);
    EXPECT_EQ(writer.Text(), Head + Stamp + message + "\r\n");
}

TEST(WriteLogRecord, WithoutALogWritesNothingAndIsContent) {
    Writer writer;
    writer.w.logging.LogFileName = Log;
    WriteLogRecord(writer.w, 0, "text");
    EXPECT_FALSE(writer.machine.files.Exists(Log));
    EXPECT_EQ(writer.w.logging.LogWriteOk, 1);
}

TEST(WriteLogRecord, FullDiskEndsTheLogWhereverItFills) {
    const std::string record = Stamp + RvFrame + "\r\n";
    for (std::size_t room = 0; room < record.size(); ++room) {
        Writer writer(70);
        writer.On();
        writer.Record(RvFrame);
        writer.machine.files.FillDiskAfter(room);
        writer.Record(RvFrame);
        EXPECT_FALSE(writer.w.frmMain.mnuLogOn.Checked);
        EXPECT_TRUE(writer.w.frmMain.mnuLogOff.Checked);
        EXPECT_EQ(writer.w.frmMain.Toolbar1.Log.Value, 1);
        EXPECT_EQ(writer.w.frmMain.sbaStatus.Log.Text, "DISK FULL");
        EXPECT_EQ(writer.w.logging.LogWriteOk, 1);
        EXPECT_EQ(writer.Text(), Head + record + record.substr(0, room));
        EXPECT_EQ(writer.Box(), "no box");
        // Room again: the log goes on, and nothing but the cut record is lost.
        writer.machine.files.EmptyDisk();
        writer.On();
        writer.Record(RvFrame);
        const std::vector<std::string> found = writer.Found();
        ASSERT_GE(found.size(), 2U) << room;
        EXPECT_EQ(found.front(), RvFrame) << room;
        EXPECT_EQ(found.back(), RvFrame) << room;
    }
}

TEST(WriteLogRecord, AnyOtherErrorIsNotedAndTheNextMessageTriesAgain) {
    for (const int error : {53, 57, 70, 75, 76}) {
        Writer writer;
        writer.On();
        writer.machine.files.FailNextOpen(Log, error);
        writer.Record("lost");
        EXPECT_EQ(writer.w.logging.LogWriteOk, 0);
        EXPECT_TRUE(writer.w.frmMain.mnuLogOn.Checked);
        writer.Record("kept");
        EXPECT_EQ(writer.w.logging.LogWriteOk, 1);
        EXPECT_EQ(writer.Text(), Head + Stamp + "kept\r\n");
        EXPECT_EQ(writer.Box(), "no box");
    }
}

// The write failed in the midst of the record, as on a disk that was pulled out.
TEST(WriteLogRecord, EndsWhatAFailedWriteLeft) {
    Writer writer(70);
    writer.On();
    writer.machine.files.Append(Log, Stamp + RvFrame.substr(0, 20));
    writer.w.logging.LogWriteOk = 0;
    writer.Record(RvFrame);
    EXPECT_EQ(writer.Text(),
              Head + Stamp + RvFrame.substr(0, 20) + "\r\n\r\n" + Stamp + RvFrame + "\r\n");
    writer.machine.files.Append(Log, Stamp + RvFrame.substr(0, 20));
    writer.w.logging.LogWriteOk = 0;
    mnuLogOff_Click(writer.w);
    EXPECT_TRUE(writer.Text().ends_with(RvFrame.substr(0, 20) + "\r\n\r\n" + Closed));
}

TEST(WriteLogRecord, ALogThatWasDeletedBeginsAnew) {
    Writer writer;
    writer.On();
    writer.machine.files.Delete(Log);
    writer.Record("kept");
    EXPECT_EQ(writer.Text(), Stamp + "kept\r\n");
}

TEST(WriteStatusNote, HoldsTheTimeAndBothTexts) {
    Writer writer;
    writer.w.frmMain.sbaStatus.Status.Text = "Status: OK";
    writer.w.logging.StatusLogFile = "C:\\LOG\\A.sta";
    WriteStatusNote(writer.w);
    WriteStatusNote(writer.w);
    const std::string note = "15.11.2026 14:41:25\r\nStatus: OK\r\n\r\n";
    EXPECT_EQ(writer.Text("C:\\LOG\\A.sta"), note + note);
}

// ---- The road of a message ----

struct Running : RunningStation {
    explicit Running(const std::string& settings = "") : RunningStation(30, settings) {
        machine.time.SetNow(Afternoon);
        machine.Enter([&] { mnuLogOn_Click(w()); });
    }
    // The clock stands, which is no interval to measure.
    void Message(const std::string& statusWord = "000000000000") {
        w().intake.IntervalSeekState = 0;
        machine.Enter([&] { HandleMessage(w(), ShortKN("15", statusWord)); });
    }
    std::string Text(const std::string& name = "A6111514.DAT") {
        return machine.files.Content(name).value_or("none");
    }
};

TEST(HandleMessage, LogsWhatPassedTheChecksWhileTheLogIsOn) {
    Running station;
    station.Message();
    station.machine.Enter([&] { HandleMessage(station.w(), "\x01KM\x04\r\n"); });
    const std::string log = Head + Stamp + ShortKN("15") + "\r\n";
    EXPECT_EQ(station.Text(), log);
    station.w().frmMain.mnuLogOn.Checked = false;
    station.Message();
    EXPECT_EQ(station.Text(), log);
}

TEST(HandleMessage, TellsAFailedWriteWithTheNextMessage) {
    Running station;
    station.machine.files.FailNextOpen("A6111514.DAT", 70);
    station.Message();
    EXPECT_EQ(station.Errors(), "Msg15, No Errors");
    station.Message();
    EXPECT_EQ(station.Errors(), "SAVE ERROR");
    EXPECT_TRUE(station.ErrorShown());
    station.Message();
    EXPECT_EQ(station.Errors(), "Msg15, No Errors");
    station.w().logging.LogWriteOk = 0;
    station.w().frmMain.mnuLogOn.Checked = false;
    station.Message();
    EXPECT_EQ(station.Errors(), "Msg15, No Errors");
}

TEST(HandleMessage, NotesAChangedStatusWord) {
    Running station("Status_Log=1\r\n");
    station.Message();
    EXPECT_EQ(station.Text("A6111514.sta"), "none");
    station.Message("000080000000");
    const std::string first = station.Text("A6111514.sta");
    EXPECT_TRUE(first.starts_with("15.11.2026 14:41:25\r\nStatus: ")) << first;
    EXPECT_NE(first.find("\r\nWindow contamination (W)\r\nStatus message"), first.npos) << first;
    station.Message("000080000000");
    EXPECT_EQ(station.Text("A6111514.sta"), first);
    station.w().frmMain.mnuLogOn.Checked = false;
    station.Message("000000000000");
    EXPECT_EQ(station.Text("A6111514.sta"), first);
    EXPECT_EQ(station.w().intake.PreviousStatus, "00000");
}

// The status log was put on while the log was open, which named no file for it.
TEST(HandleMessage, TrapsAStatusLogWithoutAName) {
    Running station;
    station.w().settings.Status_Log = 1;
    station.Message("000080000000");
    EXPECT_NE(station.MessageWindow().find("Ihme error: 75 "), std::string::npos);
    EXPECT_NE(station.Text().find(Stamp), std::string::npos) << "the message itself is logged";
}

TEST(StatusButton, NotesTheStatusWhileTheStatusLogIsOn) {
    const struct {
        int statusLog;
        bool on;
        bool noted;
    } cases[] = {{1, true, true}, {0, true, false}, {2, true, false}, {1, false, false}};
    for (const auto& c : cases) {
        Running station("Status_Log=1\r\n");
        station.w().settings.Status_Log = static_cast<std::int16_t>(c.statusLog);
        station.w().frmMain.mnuLogOn.Checked = c.on;
        station.w().frmMain.sbaStatus.Status.Text = "Status: OK";
        station.machine.Enter([&] { station.w().frmStatus.Fstatusbutton.Click(station.w()); });
        EXPECT_EQ(station.Text("A6111514.sta"), c.noted
                                                    ? "15.11.2026 14:41:25\r\nStatus: OK\r\n\r\n"
                                                      "Status message enquiring failed!\r\n\r\n"
                                                    : "none");
    }
    Running station;
    station.w().settings.Status_Log = 1;
    station.machine.Enter([&] { station.w().frmStatus.Fstatusbutton.Click(station.w()); });
    EXPECT_NE(station.machine.dialogs.TakeBox().value_or("").find("Error Number: 75"),
              std::string::npos);
    EXPECT_TRUE(station.machine.Running());
}

TEST(Start, OpensTheLogWhenTheSettingsSaySo) {
    RunningStation on(30, "Log_on=1\r\n");
    EXPECT_TRUE(on.w().frmMain.mnuLogOn.Checked);
    EXPECT_EQ(on.w().logging.ReportLogErrors, 1);
    RunningStation off(30, "Log_on=0\r\n");
    EXPECT_FALSE(off.w().frmMain.mnuLogOn.Checked);
}

TEST(Exit, WritesTheClosedLineAndStartsNoZip) {
    Running station("Enable_Zip=1\r\nZip_Exe=Z\r\n");
    station.machine.Enter([&] { mnuExit_Click(station.w()); });
    EXPECT_EQ(station.Text(), Head + Closed);
    EXPECT_TRUE(station.machine.process.started.empty());
    RunningStation without(30);
    without.machine.Enter([&] { mnuExit_Click(without.w()); });
    EXPECT_TRUE(without.machine.Ended());
    EXPECT_EQ(without.machine.dialogs.TakeBox(), std::nullopt);
}

TEST(Exit, TellsAClosedLineThatCannotBeWritten) {
    Running station;
    station.machine.files.FailNextOpen("A6111514.DAT", 70);
    station.machine.Enter([&] { mnuExit_Click(station.w()); });
    EXPECT_NE(station.machine.dialogs.TakeBox().value_or("").find("Error Number: 70"),
              std::string::npos);
    EXPECT_TRUE(station.machine.Ended());
}

}  // namespace
}  // namespace cumeron
