// Log on and off, the cut by the clock, the call of the zip program, and the watch over the disk.
#include "logging/rotation.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "logging/log_file.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "shell/settings.h"

namespace cumeron {
namespace {

const double Day = DateSerial(2026, 11, 15);

double At(int hour, int minute, int second) { return Day + TimeSerial(hour, minute, second); }

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(SliceStart, FollowsTheClock) {
    const struct {
        double now, length, start;
    } cases[] = {
        {At(14, 41, 28), TimeSerial(6, 0, 0), At(12, 0, 0)},
        {At(11, 59, 59), TimeSerial(6, 0, 0), At(6, 0, 0)},
        {At(12, 0, 0), TimeSerial(6, 0, 0), At(12, 0, 0)},
        {At(0, 0, 0), TimeSerial(6, 0, 0), At(0, 0, 0)},
        {At(14, 41, 28), TimeSerial(6, 45, 59), At(12, 0, 0)},
        {At(14, 41, 28), TimeSerial(1, 0, 0), At(14, 0, 0)},
        {At(23, 59, 59), TimeSerial(12, 0, 0), At(12, 0, 0)},
        {At(14, 41, 28), TimeSerial(5, 0, 0), At(14, 0, 0)},
        {At(14, 41, 28), TimeSerial(23, 0, 0), At(14, 0, 0)},
        {At(14, 41, 28), TimeSerial(23, 59, 0), Day},
        {At(14, 41, 28), TimeSerial(23, 59, 59), Day},
        {At(14, 0, 0) - 0.4 / 86400, TimeSerial(1, 0, 0), At(13, 0, 0)},
    };
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(SliceStart(c.now, c.length), c.start) << Format(c.length, "hh:nn:ss");
    }
    EXPECT_EQ(ErrorOf([] { SliceStart(Day, TimeSerial(0, 30, 0)); }), 11);
}

TEST(ZipCallFor, QuotesForTheEyeAndPassesWords) {
    const struct {
        PathStyle style;
        const char *exe, *archives, *log;
        int remove;
        std::vector<std::string> words;
        const char* line;
    } cases[] = {
        {PathStyle::Windows,
         "C:\\PK\\pkzip.exe",
         "D:\\ARC",
         "C:\\LOG\\A6111514.DAT",
         1,
         {"-m", "D:\\ARC\\A6111514", "C:\\LOG\\A6111514.DAT"},
         "C:\\PK\\pkzip.exe -m \"D:\\ARC\\A6111514\" \"C:\\LOG\\A6111514.DAT\""},
        {PathStyle::Windows,
         "Z",
         "",
         "A6111514.DAT",
         0,
         {"-a", "\\A6111514", "A6111514.DAT"},
         "Z -a \"\\A6111514\" \"A6111514.DAT\""},
        {PathStyle::Windows,
         "Z",
         "D:\\",
         "A.DAT",
         0,
         {"-a", "D:\\\\A.DAT", "A.DAT"},
         "Z -a \"D:\\\\A.DAT\" \"A.DAT\""},
        {PathStyle::Posix,
         "a b/z",
         "/arc \"x\"/",
         "/l o/A6111514.DAT",
         -1,
         {"-m", "/arc \"x\"/A6111514", "/l o/A6111514.DAT"},
         "a b/z -m \"/arc \"x\"/A6111514\" \"/l o/A6111514.DAT\""},
    };
    for (const auto& c : cases) {
        Settings settings;
        settings.Zip_Exe = c.exe;
        settings.Zip_File_Path = c.archives;
        settings.Del_After_Zip = static_cast<std::int16_t>(c.remove);
        const ZipCall call = ZipCallFor(settings, c.style, c.log);
        EXPECT_EQ(call.program, c.exe);
        EXPECT_EQ(call.arguments, c.words);
        EXPECT_EQ(call.commandLine, c.line);
    }
}

// The program with the log on since 14:41:25.
struct Logging : RunningStation {
    explicit Logging(const std::string& settings = "") : RunningStation(30, settings) {
        machine.time.SetNow(At(14, 41, 25));
        machine.Enter([&] { mnuLogOn_Click(w()); });
    }
    FrmMain& Form() { return w().frmMain; }
    const std::string& Panel() { return Form().sbaStatus.Log.Text; }
    void Off() {
        machine.Enter([&] { mnuLogOff_Click(w()); });
    }
    std::string Text(const std::string& name) { return machine.files.Content(name).value_or(""); }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
};

TEST(LogOn, ShowsTheLogInTheTitleUnlessItHasACaption) {
    Logging plain;
    EXPECT_EQ(plain.Form().Caption, "CUMERON - Port 1  [A6111514.DAT]");
    EXPECT_EQ(plain.Panel(), "LOG ON");
    EXPECT_EQ(plain.Form().Toolbar1.Log.Value, 1);
    plain.Off();
    EXPECT_EQ(plain.Form().Caption, "CUMERON - Port 1");
    EXPECT_EQ(plain.Panel(), "LOG OFF");
    EXPECT_EQ(plain.Form().Toolbar1.Log.Value, 0);
    Logging named("Main_Caption=North\r\n");
    EXPECT_EQ(named.Form().Caption, "CUMERON - North");
}

TEST(LogOn, AndOffDoNothingTwice) {
    Logging station;
    const std::string log = station.Text("A6111514.DAT");
    station.machine.Enter([&] { mnuLogOn_Click(station.w()); });
    EXPECT_EQ(station.Text("A6111514.DAT"), log);
    station.Off();
    const std::string closed = station.Text("A6111514.DAT");
    EXPECT_EQ(closed, log + "-File Closed: 15.11.2026 14:41:25\r\n");
    station.Off();
    EXPECT_EQ(station.Text("A6111514.DAT"), closed);
    EXPECT_TRUE(station.machine.process.started.empty());
}

TEST(LogButton, FollowsTheMenu) {
    Logging station;
    ToolButton& button = station.Form().Toolbar1.Log;
    for (const int pressed : {0, 1, 0}) {
        button.Value = pressed;  // as the click leaves it
        station.machine.Enter([&] { button.Click(station.w()); });
        EXPECT_EQ(button.Value, pressed);
        EXPECT_EQ(station.Form().mnuLogOn.Checked, pressed == 1);
    }
    station.w().settings.Log_File_Path = "C:\\NOWHERE";
    button.Value = 1;
    station.machine.Enter([&] { button.Click(station.w()); });
    EXPECT_EQ(button.Value, 0);
    EXPECT_EQ(station.w().logging.LogFileNumber, 0);
    EXPECT_FALSE(station.Form().mnuLogOn.Checked);
    EXPECT_TRUE(station.Form().mnuLogOff.Checked);
    EXPECT_EQ(station.Panel(), "LOG OFF");
}

TEST(LogOff, TellsWhatFailedWithTheLogOff) {
    const struct {
        int shellError, fileError;
        const char* told;
    } cases[] = {{53, 0, "File Error. Zip application possibly not found."},
                 {5, 0, "Error Number: 5"},
                 {0, 70, "Error Number: 70"}};
    for (const auto& c : cases) {
        Logging station("Enable_Zip=1\r\nZip_Exe=Z\r\n");
        station.machine.process.nextStartError = c.shellError;
        if (c.fileError != 0) station.machine.files.FailNextOpen("A6111514.DAT", c.fileError);
        station.Off();
        EXPECT_NE(station.Box().find(c.told), std::string::npos) << c.told;
        EXPECT_TRUE(station.Form().mnuLogOff.Checked);
        EXPECT_TRUE(station.machine.process.started.empty());
    }
}

TEST(LogOff, StartsTheZipProgramForAnyValueButNought) {
    for (const char* value : {"1", "-1", "2", "0"}) {
        Logging station("Zip_Exe=Z\r\nZip_File_Path=D:\\\r\nEnable_Zip=" + std::string(value) +
                        "\r\n");
        station.Off();
        EXPECT_EQ(station.machine.process.started.size(), *value == '0' ? 0U : 1U) << value;
    }
    Logging station("Zip_Exe=Z\r\nZip_File_Path=D:\r\nEnable_Zip=1\r\n");
    station.Off();
    EXPECT_EQ(station.machine.process.startedWords,
              (std::vector<std::string>{"Z", "-a", "D:\\A6111514", "A6111514.DAT"}));
}

TEST(Rotation, ComesWithTheWholeSecondInWhichTheSliceIsOver) {
    const struct {
        const char* length;
        double last, next;
        const char* name;
    } cases[] = {
        {"06:00", At(17, 59, 59), At(18, 0, 0), "A6111518.DAT"},
        {"05:00", At(18, 59, 59), At(19, 0, 0), "A6111519.DAT"},
        {"23:59", At(23, 59, 59), At(24, 0, 0), "A6111600.DAT"},
        {"01:00", At(14, 59, 59), At(15, 0, 0), "A6111515.DAT"},
    };
    for (const auto& c : cases) {
        Logging station("File_Length=" + std::string(c.length) + "\r\n");
        station.machine.time.SetNow(c.last);
        RotateLog(station.w());
        EXPECT_EQ(station.w().logging.LogFileName, "A6111514.DAT") << c.length;
        station.machine.time.SetNow(c.next);
        RotateLog(station.w());
        EXPECT_EQ(station.w().logging.LogFileName, c.name) << c.length;
        EXPECT_EQ(station.w().logging.LogSliceStart, c.next) << c.length;
        EXPECT_TRUE(station.Text("A6111514.DAT").find("-File Closed: ") != std::string::npos);
        EXPECT_EQ(station.w().logging.ReportLogErrors, 1);
        RotateLog(station.w());
        EXPECT_EQ(station.Text(c.name).find("-File Closed: "), std::string::npos);
    }
}

TEST(Rotation, ClockSetBackCutsNothing) {
    Logging station;
    station.machine.time.SetNow(At(2, 0, 0));
    RotateLog(station.w());
    EXPECT_EQ(station.w().logging.LogFileName, "A6111514.DAT");
    EXPECT_EQ(station.Text("A6111514.DAT").find("-File Closed: "), std::string::npos);
}

TEST(Rotation, IsOneOfTheDutiesOfTheTickWhileTheLogIsOn) {
    Logging station;
    station.machine.time.SetNow(At(18, 0, 0));
    station.Seconds(1);
    EXPECT_EQ(station.w().logging.LogFileName, "A6111518.DAT");
    station.Off();
    station.machine.time.SetNow(At(23, 0, 0) + 1);
    station.Seconds(1);
    EXPECT_EQ(station.w().logging.LogFileName, "A6111518.DAT");
}

TEST(Rotation, ShowsNoBoxWhateverFails) {
    Logging station("Enable_Zip=1\r\nZip_Exe=Z\r\n");
    station.machine.process.nextStartError = 53;
    station.w().settings.Log_File_Path = "C:\\NOWHERE";
    station.machine.time.SetNow(At(18, 0, 0));
    station.Seconds(1);
    EXPECT_EQ(station.Box(), "no box");
    EXPECT_TRUE(station.Form().mnuLogOff.Checked);
    EXPECT_EQ(station.Panel(), "LOG OFF");
    EXPECT_EQ(station.w().logging.ReportLogErrors, 1);
    station.w().settings.Log_File_Path = "";
    station.Seconds(5);
    EXPECT_TRUE(station.Form().mnuLogOff.Checked) << "stays off until the operator acts";
}

TEST(WatchDisk, CountsWholeMegabytesBelowSix) {
    const struct {
        double bytes;
        const char* shown;
    } cases[] = {{6000000, "LOG ON"},  {5999999.4, "5MB free"}, {5999999.6, "LOG ON"},
                 {999999, "0MB free"}, {1000000, "1MB free"},   {9e15, "LOG ON"}};
    for (const auto& c : cases) {
        Logging station;
        station.machine.files.SetFreeDiskSpace("C:", c.bytes);
        station.Seconds(1);
        EXPECT_EQ(station.Panel(), c.shown);
        EXPECT_TRUE(station.Form().mnuLogOn.Checked);
    }
    Logging station;
    station.machine.files.SetFreeDiskSpace("C:", std::nullopt);
    station.Seconds(1);
    EXPECT_EQ(station.Panel(), "0MB free");
}

TEST(FreeDiskSpace, IsAWholeNumberOfAtMostTwoThousandMillions) {
    const struct {
        double bytes;
        std::int32_t told;
    } cases[] = {{0, 0},
                 {0.5, 0},
                 {1.5, 2},
                 {1999999999, 1999999999},
                 {2000000001, 2000000000},
                 {1e18, 2000000000}};
    for (const auto& c : cases) {
        Station station(30);
        station.machine.files.SetFreeDiskSpace("D:", c.bytes);
        EXPECT_EQ(FreeDiskSpace(station.w, "D:"), c.told);
    }
}

TEST(FreeDiskSpace, GoesToTheDriveWhereThereAreDrives) {
    Station station(30);
    MemoryFiles& files = station.machine.files;
    files.MakeFolder("D:\\ARC");
    files.ChangeFolder("D:\\ARC");
    files.ChangeFolder("C:");
    EXPECT_EQ(files.CurrentFolder(), "C:\\CUMERON");
    FreeDiskSpace(station.w, "D:");
    EXPECT_EQ(files.CurrentFolder(), "D:\\ARC");
    EXPECT_EQ(ErrorOf([&] { FreeDiskSpace(station.w, "E:"); }), 68);
    files.SetStyle(PathStyle::Posix);
    FreeDiskSpace(station.w, "/tmp");
    EXPECT_EQ(files.CurrentFolder(), "/home/user");
    EXPECT_EQ(FreeDiskSpace(station.w, "/nowhere"), 0);
}

}  // namespace
}  // namespace cumeron
