#include "shell/settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/profile_file.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/startup.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr const char* File = "C:\\WINDOWS\\CUMERON1.INI";

// A program that was started with these lines in its settings file; none: without a file.
struct Program {
    explicit Program(const std::string& lines = "") {
        if (!lines.empty()) machine.files.Put(File, "[CUMERON]\r\n" + lines);
        machine.Start("");
    }
    Workstation& W() { return *machine.Program(); }
    std::string Text(std::string_view key) { return SettingText(W(), SettingOf(key)); }
    void Save() { mnuSaveSettingsNow_Click(W()); }
    std::string InFile(std::string_view key) {
        return ProfileValue(machine.files.Content(File).value_or(""), "CUMERON", key, "absent");
    }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }

    ScriptedMachine machine;
};

TEST(SettingTable, SavesEachKeyOnceAndLeavesFiveToOthers) {
    std::set<std::string_view> saved;
    for (const std::string_view key : SavedKeys()) {
        EXPECT_EQ(SettingOf(key).key, key);
        EXPECT_TRUE(saved.insert(key).second) << key;
    }
    for (const SettingRow& row : SettingTable()) {
        const std::set<std::string_view> others = {"Terminal_Settings", "Start_Of_Information",
                                                   "Main_Caption", "Port_open", "Log_on"};
        EXPECT_NE(saved.contains(row.key), others.contains(row.key)) << row.key;
    }
    EXPECT_THROW(SettingOf("No_Such_Key"), RuntimeError);
}

TEST(ReadSettings, MissingFileIsNoErrorAndIsNotMade) {
    Program program;
    EXPECT_TRUE(program.machine.dialogs.Boxes().empty());
    EXPECT_FALSE(program.W().shell.startFailed);
    EXPECT_EQ(program.W().settings.CEILOMETER, 30);
    EXPECT_FALSE(program.machine.files.Exists(File));
}

TEST(ReadSettings, IntervalDependsOnTheModelAndTheCompression) {
    const struct {
        const char* lines;
        int interval;
    } cases[] = {
        {"CEILOMETER=70\r\n", 60},
        {"CEILOMETER=20\r\n", 15},
        {"CEILOMETER=10\r\n", 12},
        {"CEILOMETER=60\r\nCompress=1\r\n", 30},
        {"Message_Interval=15\r\nCompress=2\r\n", 45},
        {"Message_Interval=20\r\nCompress=1\r\n", 40},
        {"Message_Interval=20\r\nCompress=3\r\n", 20},
        {"CEILOMETER=31\r\nMessage_Interval=20\r\n", 0},
    };
    for (const auto& c : cases) {
        Program program(c.lines);
        EXPECT_EQ(program.W().settings.Message_Interval, c.interval) << c.lines;
        EXPECT_FALSE(program.W().shell.startFailed) << c.lines;
    }
    Program tooLong("Message_Interval=20000\r\nCompress=1\r\n");
    EXPECT_NE(tooLong.Box().find("Error Number: 6"), std::string::npos);
}

TEST(ReadSettings, FileThatCannotBeReadIsToldAndKept) {
    Program program;
    const std::string old = "[CUMERON]\r\nUnits=1\r\n";
    program.machine.files.Put(File, old);
    program.machine.files.FailNextOpen(File, 70);
    program.machine.Start("");
    EXPECT_NE(program.Box().find("Error Number: 75"), std::string::npos);
    EXPECT_TRUE(program.W().shell.startFailed);
    EXPECT_TRUE(program.W().frmMain.Visible);

    program.machine.files.FailNextOpen(File, 70);
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 70"), std::string::npos);
    EXPECT_EQ(program.machine.files.Content(File), old);
}

TEST(SaveSettings, UnscalesTheIntervalForGood) {
    const struct {
        const char* lines;
        const char* saved;
    } cases[] = {
        {"Message_Interval=15\r\nCompress=2\r\n", "15"},
        {"Message_Interval=20\r\nCompress=1\r\n", "20"},
        {"Message_Interval=10\r\n", "15"},
        {"CEILOMETER=10\r\n", "15"},
        {"CEILOMETER=31\r\n", "15"},
    };
    for (const auto& c : cases) {
        Program program(c.lines);
        program.Save();
        EXPECT_EQ(program.InFile("Message_Interval"), c.saved) << c.lines;
        EXPECT_EQ(program.Text("Message_Interval"), c.saved) << c.lines;
    }
    Program half("Compress=1\r\n");
    half.W().settings.Message_Interval = 61;  // 30.5 goes to the even 30
    half.Save();
    EXPECT_EQ(half.InFile("Message_Interval"), "30");
}

TEST(SaveSettings, WritesTheSplitInWholeTenths) {
    const struct {
        float ratio;
        const char* saved;
    } cases[] = {{0.55F, "6"}, {0.45F, "4"}, {0.25F, "2"}, {0.02F, "0"}, {0.5F, "5"}};
    for (const auto& c : cases) {
        Program program;
        program.W().settings.Split_Ratio = c.ratio;
        program.Save();
        EXPECT_EQ(program.InFile("Split_Ratio"), c.saved) << c.ratio;
    }
    Program program("Split_Ratio=5\r\n");
    EXPECT_EQ(program.W().settings.Split_Ratio, 0.5F);
}

TEST(SaveSettings, WritesTheLogLengthWithoutNoughts) {
    const struct {
        const char* read;
        const char* line;
    } cases[] = {{"06:00", "File_Length=6:0 \r\n"},
                 {"06:15", "File_Length=6:15\r\n"},
                 {"0:5", "File_Length=0:5 \r\n"}};
    for (const auto& c : cases) {
        Program program(std::string("File_Length=") + c.read + "\r\n");
        program.Save();
        EXPECT_NE(program.machine.files.Content(File)->find(c.line), std::string::npos) << c.read;
    }
}

TEST(SaveSettings, ValueThatTheFileCannotHoldIsToldAndTheOthersAreSaved) {
    Program program("Split_Ratio=5\r\n");
    program.W().settings.Split_Ratio = 5000;
    program.W().settings.Cloud_Amount = 2;
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 6"), std::string::npos);
    EXPECT_EQ(program.InFile("Split_Ratio"), "5");
    EXPECT_EQ(program.InFile("Cloud_Amount"), "2");
}

TEST(SaveSettings, WritesTheWindowInWholeTwipsOfSevenDigits) {
    const struct {
        const char* read;
        const char* saved;
    } cases[] = {{"1234.5", "1234"},       {"1235.5", "1236"},       {"-0.5", "0"},
                 {"1234567", "1234567"},   {"12345678", "12345680"}, {"-123456789", "-123456800"},
                 {"99999995", "99999990"}, {"1e30", "1E+30"},        {"0.4", "0"}};
    for (const auto& c : cases) {
        Program program(std::string("Left=15\r\nTop=") + c.read + "\r\n");
        program.Save();
        EXPECT_EQ(program.InFile("Top"), c.saved) << c.read;
    }
}

TEST(SaveSettings, ASkyWindowBeyondSixteenBitsIsToldAndTheRestIsSaved) {
    Program program("Sky_Win_Top=77\r\n");
    FrmSkyCond& sky = program.W().frmSkyCond;
    sky.Top = 40000;
    sky.Left = -1234.5;
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 6"), std::string::npos);
    EXPECT_TRUE(program.machine.dialogs.Boxes().empty());
    EXPECT_EQ(program.InFile("Sky_Win_Top"), "77");
    EXPECT_EQ(program.InFile("Sky_Win_Left"), "-1234");
    EXPECT_EQ(program.InFile("Sky_Win_Height"), "4356");
    EXPECT_EQ(program.InFile("Sky_Win_Width"), "5256");
    EXPECT_EQ(program.W().settings.Sky_Win_Top, 77);
}

TEST(SaveSettings, MakesTheSkyWindowWhenAFailedStartHasNot) {
    Program program("Modem_used=no\r\n");
    ASSERT_FALSE(program.W().frmSkyCond.Loaded);
    program.Save();
    EXPECT_TRUE(program.W().frmSkyCond.Loaded);
    EXPECT_EQ(program.InFile("Sky_Win_Left"), "2400");
}

TEST(SaveSettings, KeepsWhatOthersHaveWritten) {
    const struct {
        const char* what;
        std::string before, after;  // around the section's own keys
    } cases[] = {
        {"comments and keys of others",
         "; head\r\n[CUMERON]\r\nUnits=1\r\n; mine\r\nMain_Caption=South\r\nMine=7\r\n", ""},
        {"a section behind", "[CUMERON]\r\nUnits=1\r\n", "\r\n[other]\r\nUnits=7\r\n"},
        {"line feeds alone", "[CUMERON]\n # mine\nUnits=1\n", "\n\n[other]\nUnits=7"},
        {"blanks and quotes", "[CUMERON]\r\nunits =1\r\n  odd line\r\n", ""},
        {"a mark of an editor", "\xEF\xBB\xBF[CUMERON]\r\nUnits=1\r\n", ""},
    };
    for (const auto& c : cases) {
        Program program("Units=1\r\n");
        program.machine.files.Put(File, c.before + c.after);
        program.Save();
        const std::string file = program.machine.files.Content(File).value();
        EXPECT_TRUE(file.starts_with(c.before + "WindowState=0")) << c.what;
        EXPECT_TRUE(file.ends_with(c.after)) << c.what;
        const bool feeds = c.before.find('\r') == std::string::npos;
        EXPECT_EQ(file.find('\r') == std::string::npos, feeds) << c.what;
        program.Save();
        EXPECT_EQ(program.machine.files.Content(File), file) << c.what;
    }
}

// Whatever fails: it is told, the program goes on, and the old file stands.
TEST(SaveSettings, AFileThatCannotBeReplacedIsToldAndStands) {
    const std::string old = "[CUMERON]\r\nUnits=1\r\n";
    for (const int error : {70, 75, 76}) {
        Program program("Units=1\r\n");
        program.W().settings.Units = 0;
        program.machine.files.FailNextOpen(File, error);  // of the reading
        program.Save();
        EXPECT_NE(program.Box().find("Error Number: " + std::to_string(error)), std::string::npos);
        EXPECT_EQ(program.machine.files.Content(File), old);
        EXPECT_TRUE(program.machine.Running());
        program.Save();
        EXPECT_EQ(program.InFile("Units"), "0");
    }
    Program program;
    program.machine.files.FailNextOpen(File, 76);  // of the replacing: there is none to read
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 76"), std::string::npos);
    EXPECT_FALSE(program.machine.files.Exists(File));
}

TEST(SaveSettings, FullDiskIsToldAndLeavesTheFile) {
    Program program("Units=1\r\n");
    program.machine.files.FillDisk();
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 61"), std::string::npos);
    EXPECT_EQ(program.machine.files.Content(File), "[CUMERON]\r\nUnits=1\r\n");
}

TEST(SaveKeys, WritesTheseAloneAndTellsWhatFails) {
    Program program("Units=1\r\nLog_on=0\r\n");
    program.W().settings.Log_on = 1;
    program.W().settings.Units = 0;
    const std::string_view keys[] = {"Log_on", "Main_Caption"};
    program.machine.files.FillDisk();
    SaveKeys(program.W(), keys);
    EXPECT_NE(program.Box().find("Error Number: 61"), std::string::npos);
    program.machine.files.EmptyDisk();
    SaveKeys(program.W(), keys);
    EXPECT_EQ(program.machine.files.Content(File),
              "[CUMERON]\r\nUnits=1\r\nLog_on=1\r\nMain_Caption=\r\n");
}

TEST(SaveSettings, FirstSaveAfterAFailedStartKeepsTheOldFile) {
    const std::string bad = "Compress=many\r\n";
    const std::string backup = std::string(File) + ".bak";
    Program program(bad);
    program.Box();
    program.machine.files.FailNextOpen(backup, 70);
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 70"), std::string::npos);
    EXPECT_EQ(program.machine.files.Content(File), "[CUMERON]\r\n" + bad);

    program.Save();
    EXPECT_EQ(program.machine.files.Content(backup), "[CUMERON]\r\n" + bad);
    EXPECT_EQ(program.InFile("Compress"), "0");

    program.Save();
    EXPECT_EQ(program.machine.files.Content(backup), "[CUMERON]\r\n" + bad);
}

TEST(SaveSettings, GoodStartKeepsNoOldFile) {
    Program program("Compress=1\r\n");
    program.Save();
    EXPECT_FALSE(program.machine.files.Exists(std::string(File) + ".bak"));
}

TEST(SaveSettings, PosixFolderIsJoinedWithASlash) {
    ScriptedMachine machine;
    machine.files.SetStyle(PathStyle::Posix);
    machine.Start("");
    mnuSaveSettingsNow_Click(*machine.Program());
    EXPECT_TRUE(machine.files.Exists("/home/user/.config/cumeron/CUMERON1.INI"));
}

TEST(SaveSettingsOnExit, EachClickTurnsTheCheckMark) {
    Program program;
    MenuEntry& entry = program.W().frmMain.mnuSaveSettings;
    mnuSaveSettings_Click(program.W());
    EXPECT_FALSE(entry.Checked);
    mnuSaveSettings_Click(program.W());
    EXPECT_TRUE(entry.Checked);
}

TEST(RestoreDefaults, IntervalDependsOnTheModelAlone) {
    const struct {
        const char* lines;
        int interval;
    } cases[] = {
        {"CEILOMETER=70\r\nCompress=2\r\n", 60},
        {"CEILOMETER=20\r\n", 15},
        {"CEILOMETER=10\r\nCompress=1\r\n", 12},
        {"Message_Interval=99\r\n", 15},
        {"CEILOMETER=50\r\n", 15},
        {"CEILOMETER=60\r\n", 15},
    };
    for (const auto& c : cases) {
        Program program(c.lines);
        RestoreDefaults(program.W());
        EXPECT_EQ(program.W().settings.Message_Interval, c.interval) << c.lines;
    }
    Program unknown("CEILOMETER=31\r\n");
    unknown.W().settings.Message_Interval = 99;
    RestoreDefaults(unknown.W());
    EXPECT_EQ(unknown.W().settings.Message_Interval, 99);
}

TEST(RestoreDefaults, DisplayFollows) {
    Program program(
        "Main_Caption=North\r\nComm_Port=2\r\nUnits=1\r\nCloudmode=2\r\nShow_Sky_Cond=1\r\n"
        "Sky_Cond_On_Top=1\r\n");
    Workstation& w = program.W();
    program.machine.Advance(MicrosPerSecond);
    ASSERT_TRUE(w.frmMain.fraSkyCond.Visible);
    ASSERT_TRUE(w.frmSkyCond.TopMost);
    ASSERT_FALSE(w.frmMain.ResizeTimer.Enabled());
    w.frmMain.mnuRestore.Click(w);
    EXPECT_EQ(w.shell.MainTitle, "CUMERON - Port 1");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Port 1");
    EXPECT_FALSE(w.frmMain.fraSkyCond.Visible);
    EXPECT_FALSE(w.frmSkyCond.TopMost);
    EXPECT_EQ(w.graphs.PreviousCloudmode, 0);
    EXPECT_EQ(w.graphs.UnitLabel, "[ft]");
    EXPECT_TRUE(w.frmMain.ResizeTimer.Enabled()) << "laid out anew";
    EXPECT_TRUE(program.machine.dialogs.Boxes().empty());
}

TEST(RestoreDefaults, IsRefusedWithAnOpenPortOrFile) {
    for (MenuEntry FrmMain::*entry : {&FrmMain::mnuOpenPort, &FrmMain::mnuFileOpen}) {
        Program program("Units=1\r\nMain_Caption=North\r\n");
        (program.W().frmMain.*entry).Checked = true;
        mnuRestore_Click(program.W());
        EXPECT_EQ(program.Box(), "Close port and open log files before restoring defaults");
        EXPECT_EQ(program.W().settings.Units, 1);
        EXPECT_EQ(program.W().shell.MainTitle, "CUMERON - North");
    }
}

TEST(RestoreDefaults, ARefusedLineSettingIsToldAndTheRestIsRestored) {
    Program program("Comm_Settings=9600,e,7,1\r\nComm_Port=2\r\nUnits=1\r\n");
    program.machine.line.FailNextSettings(380);
    mnuRestore_Click(program.W());
    EXPECT_NE(program.Box().find("Error Number: 380"), std::string::npos);
    EXPECT_EQ(program.W().comCTLine().Settings(), "9600,e,7,1");
    EXPECT_EQ(program.W().comCTLine().CommPort(), 1);
    EXPECT_EQ(program.W().settings.Units, 0);
}

TEST(ListSettings, NamesEveryKeyAndStoresByIt) {
    Program program;
    VariableList list;
    ListSettings(list);
    ASSERT_EQ(list.variables.size(), SettingTable().size());
    const struct {
        const char* key;
        Value value;
        const char* text;
    } cases[] = {
        {"Zip_Exe", std::string("zip.exe"), "zip.exe"},
        {"Units", std::int64_t{1}, "1"},
        {"Clouds_Limit_3", std::int64_t{12345}, "12345"},
        {"Clouds_Color_1", std::int64_t{255}, "255"},
        {"File_Length", 0.5, "12:0 "},
        {"Split_Ratio", 0.5, "5"},
        {"WindowState", std::int64_t{2}, "2"},
        {"Left", 300.0, "300"},
        {"Comm_Settings", std::string("9600,N,8,1"), "9600,N,8,1"},
        {"Comm_Port", std::string("4"), "4"},
    };
    for (const auto& c : cases) {
        const auto found = std::ranges::find(list.variables, c.key, &Variable::name);
        ASSERT_NE(found, list.variables.end()) << c.key;
        found->set(program.W(), {}, c.value);
        EXPECT_EQ(program.Text(c.key), c.text);
        EXPECT_EQ(AsText(found->get(program.W(), {})), AsText(c.value)) << c.key;
    }
}

}  // namespace
}  // namespace cumeron
