#include "shell/settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
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

TEST(SettingTable, HasEachKeyOnce) {
    std::set<std::string_view> keys;
    for (const SettingRow& row : SettingTable())
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    EXPECT_EQ(keys.size(), 65U);
}

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

TEST(SettingTable, RestoresOnlyWhatCanBeStored) {
    Program program;
    const std::map<std::string_view, std::string> others = {{"File_Length", "6:0 "}};
    for (const SettingRow& row : SettingTable()) {
        if (row.restored == nullptr) continue;
        ASSERT_NO_THROW(StoreSetting(program.W(), row, row.restored)) << row.key;
        const auto other = others.find(row.key);
        EXPECT_EQ(program.Text(row.key), other == others.end() ? row.restored : other->second);
    }
}

TEST(ReadSettings, MissingFileGivesEveryDefault) {
    Program program;
    const std::map<std::string_view, std::string> others = {
        {"Top", "1440"},          {"Left", "1920"},          {"Width", "11520"},
        {"Height", "8640"},       {"File_Length", "6:0 "},   {"Sky_Win_Top", "3600"},
        {"Sky_Win_Left", "4800"}, {"Message_Interval", "15"}};
    for (const SettingRow& row : SettingTable()) {
        const auto other = others.find(row.key);
        EXPECT_EQ(program.Text(row.key), other == others.end() ? row.fallback : other->second)
            << row.key;
    }
    EXPECT_FALSE(program.machine.files.Exists(File));
    EXPECT_FALSE(program.W().shell.startFailed);
}

// A value of its own for each key, in the form in which the file is written.
std::string OwnValue(const SettingRow& row, int number) {
    const std::map<std::string_view, std::string> special = {
        {"WindowState", "2"}, {"Comm_Settings", "4800,E,7,2"},
        {"Comm_Port", "3"},   {"File_Length", "12:30"},
        {"Compress", "0"},    {"CEILOMETER", "50"},
        {"Cloudmode", "2"},   {"Port_open", "0"},
        {"Units", "0"},       {"Message_Interval", "77"}};
    const auto found = special.find(row.key);
    return found == special.end() ? std::to_string(number) : found->second;
}

TEST(ReadSettings, TakesEachValueAndSavesItAgain) {
    std::string lines;
    int number = 100;
    for (const SettingRow& row : SettingTable()) {
        lines += std::string(row.key) + "=" + OwnValue(row, number++) + "\r\n";
    }
    Program program(lines);
    EXPECT_TRUE(program.machine.dialogs.Boxes().empty());
    number = 100;
    for (const SettingRow& row : SettingTable()) {
        EXPECT_EQ(program.Text(row.key), OwnValue(row, number++)) << row.key;
    }
    program.Save();
    EXPECT_EQ(program.machine.files.Content(File), "[CUMERON]\r\n" + lines);
}

TEST(ReadSettings, BadValueLeavesItAndAllBehindItUndone) {
    const struct {
        std::string_view key;
        const char* value;
        int error;
    } cases[] = {
        {"Modem_used", "", 13},
        {"Modem_used", "yes", 13},
        {"Start_Of_Information", "1 2", 13},
        {"WindowState", "40000", 6},
        {"Top", "high", 13},
        {"Width", "1e39", 6},
        {"Comm_Settings", "fast", 380},
        {"Comm_Port", "17", 380},
        {"Comm_Port", "40000", 6},
        {"File_Length", "later", 13},
        {"Backscatter_X_Low_Value", "3000000000", 6},
        {"Units", "-40000", 6},
        {"Clouds_Limit_0", "40000", 6},
        {"Clouds_Color_4", "red", 13},
        {"Split_Ratio", "half", 13},
        {"Sky_Win_Width", "32768", 6},
        {"CEILOMETER", "KN30", 13},
        {"Message_Interval", "32768", 6},
        {"Log_on", ",", 13},
    };
    for (const auto& c : cases) {
        std::string lines = "Terminal_Settings=X.TRM\r\n";
        lines += std::string(c.key) + "=" + c.value + "\r\n";
        Program program(lines);
        EXPECT_EQ(program.machine.dialogs.TakeBeeps(), 1) << c.key;
        EXPECT_NE(program.Box().find("Error Number: " + std::to_string(c.error)), std::string::npos)
            << c.key << " " << c.value;
        EXPECT_TRUE(program.W().shell.startFailed) << c.key;
        EXPECT_TRUE(program.W().frmMain.Visible) << c.key;
        EXPECT_EQ(program.W().frmMain.sbaStatus.Errors.Text, "OFF-Line") << c.key;
    }
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

TEST(SaveSettings, KeepsWhatOthersHaveWritten) {
    Program program("Units=1\r\n; mine\r\nMain_Caption=North\r\n[other]\r\nUnits=7\r\n");
    program.machine.files.Put(File, "[CUMERON]\r\nUnits=1\r\n; mine\r\nMain_Caption=South\r\n");
    program.Save();
    EXPECT_TRUE(program.machine.files.Content(File)->starts_with(
        "[CUMERON]\r\nUnits=1\r\n; mine\r\nMain_Caption=South\r\nWindowState=0\r\nWidth="));
}

TEST(SaveSettings, FullDiskIsToldAndLeavesTheFile) {
    Program program("Units=1\r\n");
    program.machine.files.FillDisk();
    program.Save();
    EXPECT_NE(program.Box().find("Error Number: 61"), std::string::npos);
    EXPECT_EQ(program.machine.files.Content(File), "[CUMERON]\r\nUnits=1\r\n");
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
