// Every key of the settings file, one line each: where it is held, its value when it is absent, a
// value of its own in the file and in memory, what a save writes and what "Restore Defaults" sets.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "intake/port.h"
#include "platform/runtime/text.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/dispatch.h"
#include "shell/settings.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr const char* File = "C:\\WINDOWS\\CUMERON1.INI";

std::string Text(const std::string& value) { return value; }
std::string Text(double value) { return NumberText(value); }

template <auto Member>
std::string Held(Workstation& w) {
    return Text(w.settings.*Member);
}
template <auto Member>
std::string HeldByForm(Workstation& w) {
    return Text(w.frmMain.*Member);
}
template <std::size_t Index>
std::string Limit(Workstation& w) {
    return Text(w.settings.Clouds_Limit[Index]);
}
template <std::size_t Index>
std::string Color(Workstation& w) {
    return Text(w.settings.Clouds_Color[Index]);
}
std::string LineSettings(Workstation& w) { return w.comCTLine().Settings(); }
std::string LinePort(Workstation& w) { return Text(w.comCTLine().CommPort()); }

constexpr const char* NotTouched = nullptr;
constexpr const char* NotSaved = nullptr;

struct Key {
    const char* name;
    std::string (*held)(Workstation&);
    const char* ifAbsent;  // in memory, in a program whose window has a stored Left of 15
    const char* own;       // in the file
    const char* ownHeld;   // in memory
    const char* saved;     // in the file again
    const char* restored;  // in memory
};

using S = Settings;

// clang-format off
const Key Keys[] = {
    {"Modem_Initialization_String", Held<&S::Modem_Initialization_String>, "", "ATDT 5", "ATDT 5", "ATDT 5", NotTouched},
    {"Modem_used", Held<&S::Modem_used>, "0", "4", "4", "4", NotTouched},
    {"Terminal_Settings", Held<&S::Terminal_Settings>, "CEILO.TRM", "X.TRM", "X.TRM", NotSaved, NotTouched},
    {"Start_Of_Information", Held<&S::Start_Of_Information>, "87", "88", "88", NotSaved, NotTouched},
    {"WindowState", HeldByForm<&Form::WindowState>, "0", "2", "2", "2", NotTouched},
    {"Top", HeldByForm<&Form::Top>, "0", "150", "150", "150", NotTouched},
    {"Left", HeldByForm<&Form::Left>, "15", "300", "300", "300", NotTouched},
    {"Width", HeldByForm<&Form::Width>, "9600", "9000", "9000", "9000", NotTouched},
    {"Height", HeldByForm<&Form::Height>, "7200", "8400", "8400", "8400", NotTouched},
    {"Comm_Settings", LineSettings, "19200,n,8,1", "4800,E,7,2", "4800,E,7,2", "4800,E,7,2", "19200,N,8,1"},
    {"Comm_Port", LinePort, "1", "3", "3", "3", "1"},
    {"File_Length", Held<&S::File_Length>, "0.25", "12:00", "0.5", "12:0 ", "0.25"},
    {"File_Char", Held<&S::File_Char>, "A", "Q", "Q", "Q", NotTouched},
    {"Log_File_Path", Held<&S::Log_File_Path>, "", "C:\\LOG", "C:\\LOG", "C:\\LOG", ""},
    {"Status_Log", Held<&S::Status_Log>, "0", "6", "6", "6", "0"},
    {"Enable_Zip", Held<&S::Enable_Zip>, "0", "7", "7", "7", "0"},
    {"Del_After_Zip", Held<&S::Del_After_Zip>, "0", "8", "8", "8", "0"},
    {"Zip_File_Path", Held<&S::Zip_File_Path>, "", "C:\\ZIP", "C:\\ZIP", "C:\\ZIP", ""},
    {"Zip_Exe", Held<&S::Zip_Exe>, "", "zip.exe", "zip.exe", "zip.exe", ""},
    {"Main_Caption", Held<&S::Main_Caption>, "", "North", "North", NotSaved, ""},
    {"Backscatter_X_Low_Value", Held<&S::Backscatter_X_Low_Value>, "-1000", "-21021", "-21021", "-21021", "-1000"},
    {"Backscatter_X_High_Value", Held<&S::Backscatter_X_High_Value>, "1000", "21022", "21022", "21022", "1000"},
    {"Backscatter_X_User_Defined", Held<&S::Backscatter_X_User_Defined>, "0", "23", "23", "23", "0"},
    {"Backscatter_Y_Low_Value", Held<&S::Backscatter_Y_Low_Value>, "0", "70024", "70024", "70024", "0"},
    {"Backscatter_Y_High_Value", Held<&S::Backscatter_Y_High_Value>, "25500", "70025", "70025", "70025", "25500"},
    {"Backscatter_Y_User_Defined", Held<&S::Backscatter_Y_User_Defined>, "0", "26", "26", "26", "0"},
    {"Backscatter_Mode", Held<&S::Backscatter_Mode>, "1", "27", "27", "27", "1"},
    {"Backscatter_Averages", Held<&S::Backscatter_Averages>, "5", "28", "28", "28", "5"},
    {"Back_Draw_Width", Held<&S::Back_Draw_Width>, "1", "29", "29", "29", "1"},
    {"Step_Linear", Held<&S::Step_Linear>, "0", "3", "3", "3", "0"},
    {"Back_Step_Linear", Held<&S::Back_Step_Linear>, "0", "4", "4", "4", "0"},
    {"Units", Held<&S::Units>, "0", "1", "1", "1", "0"},
    {"Cloud_Show_Grid", Held<&S::Cloud_Show_Grid>, "0", "33", "33", "33", "0"},
    {"Backscatter_Show_Grid", Held<&S::Backscatter_Show_Grid>, "0", "34", "34", "34", "0"},
    {"Clouds_Y_Low_Value", Held<&S::Clouds_Y_Low_Value>, "0", "70035", "70035", "70035", "0"},
    {"Clouds_Y_High_Value", Held<&S::Clouds_Y_High_Value>, "25500", "70036", "70036", "70036", "25500"},
    {"Clouds_Y_User_Defined", Held<&S::Clouds_Y_User_Defined>, "0", "37", "37", "37", "0"},
    {"Clouds_Limit_0", Limit<0>, "100", "38", "38", "38", "20"},
    {"Clouds_Limit_1", Limit<1>, "200", "39", "39", "39", "100"},
    {"Clouds_Limit_2", Limit<2>, "350", "40", "40", "40", "200"},
    {"Clouds_Limit_3", Limit<3>, "600", "41", "41", "41", "300"},
    {"Clouds_Limit_4", Limit<4>, "1000", "42", "42", "42", "400"},
    {"Clouds_Color_0", Color<0>, "16776960", "70043", "70043", "70043", "16776960"},
    {"Clouds_Color_1", Color<1>, "8421376", "70044", "70044", "70044", "8421376"},
    {"Clouds_Color_2", Color<2>, "16711680", "70045", "70045", "70045", "16711680"},
    {"Clouds_Color_3", Color<3>, "8388608", "70046", "70046", "70046", "8388608"},
    {"Clouds_Color_4", Color<4>, "0", "70047", "70047", "70047", "0"},
    {"Cloudhit_Color", Held<&S::Cloudhit_Color>, "0", "70048", "70048", "70048", "0"},
    {"Vertical_V_Color", Held<&S::Vertical_V_Color>, "16711680", "70049", "70049", "70049", "16711680"},
    {"Highest_S_Color", Held<&S::Highest_S_Color>, "16776960", "70050", "70050", "70050", "16776960"},
    {"Chit_Point_Size", Held<&S::Chit_Point_Size>, "1", "51", "51", "51", NotTouched},
    {"Cloudmode", Held<&S::Cloudmode>, "0", "2", "2", "2", "0"},
    {"Compress", Held<&S::Compress>, "0", "1", "1", "1", "0"},
    {"Split_Ratio", Held<&S::Split_Ratio>, "0.5", "25", "2.5", "25", "0.5"},
    {"Cloud_Amount", Held<&S::Cloud_Amount>, "0", "55", "55", "55", "0"},
    {"Show_Sky_Cond", Held<&S::Show_Sky_Cond>, "0", "56", "56", "56", "0"},
    {"Sky_Cond_On_Top", Held<&S::Sky_Cond_On_Top>, "0", "1", "1", "1", "0"},
    {"Sky_Win_Top", Held<&S::Sky_Win_Top>, "1800", "58", "58", "58", NotTouched},
    {"Sky_Win_Left", Held<&S::Sky_Win_Left>, "2415", "59", "59", "59", NotTouched},
    {"Sky_Win_Height", Held<&S::Sky_Win_Height>, "4356", "60", "60", "60", NotTouched},
    {"Sky_Win_Width", Held<&S::Sky_Win_Width>, "5256", "61", "61", "61", NotTouched},
    {"CEILOMETER", Held<&S::CEILOMETER>, "30", "70", "70", "70", NotTouched},
    {"Message_Interval", Held<&S::Message_Interval>, "15", "77", "154", "77", "60"},
    {"Port_open", Held<&S::Port_open>, "0", "2", "2", NotSaved, NotTouched},
    {"Log_on", Held<&S::Log_on>, "0", "3", "3", NotSaved, NotTouched},
};
// clang-format on

// A program with these lines in its settings file.
struct Program {
    explicit Program(const std::string& lines) {
        machine.files.Put(File, "[CUMERON]\r\n" + lines);
        machine.Start("");
    }
    Workstation& W() { return *machine.Program(); }

    ScriptedMachine machine;
};

std::string OwnLines() {
    std::string lines;
    for (const Key& key : Keys) lines += std::string(key.name) + "=" + key.own + "\r\n";
    return lines;
}

TEST(SettingTable, HoldsTheKeysInTheirOrder) {
    ASSERT_EQ(std::size(Keys), SettingTable().size());
    EXPECT_EQ(std::size(Keys), 65U);
    for (std::size_t i = 0; i < std::size(Keys); ++i)
        EXPECT_EQ(SettingTable()[i].key, Keys[i].name);
}

TEST(SettingTable, AnAbsentKeyHasItsDefault) {
    Program program("Left=15\r\n");
    for (const Key& key : Keys) EXPECT_EQ(key.held(program.W()), key.ifAbsent) << key.name;
    Program top("Top=15\r\n");
    EXPECT_EQ(top.W().frmMain.Left, 0);
}

// The graph takes 16 bits of them, and only when the user's own limits are in use.
TEST(SettingTable, LimitsOfTheProfilePlotHave32Bits) {
    Program program("Backscatter_X_Low_Value=-70021\r\nBackscatter_X_High_Value=70022\r\n");
    EXPECT_EQ(program.W().settings.Backscatter_X_Low_Value, -70021);
    EXPECT_EQ(program.W().settings.Backscatter_X_High_Value, 70022);
    EXPECT_FALSE(program.W().shell.startFailed);
}

TEST(SettingTable, EachKeyIsReadSavedAndRestored) {
    Program program(OwnLines());
    Workstation& w = program.W();
    for (const Key& key : Keys) EXPECT_EQ(key.held(w), key.ownHeld) << key.name;

    program.machine.files.Put(File, "");
    mnuSaveSettingsNow_Click(w);
    const std::string file = program.machine.files.Content(File).value();
    for (const Key& key : Keys) {
        const std::string line = "\r\n" + std::string(key.name) + "=";
        if (key.saved == NotSaved) {
            EXPECT_EQ(file.find(line), std::string::npos) << key.name;
        } else {
            EXPECT_NE(file.find(line + key.saved + "\r\n"), std::string::npos) << key.name;
        }
    }
    EXPECT_EQ(std::ranges::count(file, '\n'), 61);  // the section and sixty keys

    mnuClosePort_Click(w);
    RestoreDefaults(w);
    for (const Key& key : Keys) {
        const bool restored = key.restored != NotTouched;
        EXPECT_EQ(key.held(w), restored ? key.restored : key.ownHeld) << key.name;
    }
    EXPECT_EQ(program.machine.files.Content(File), file) << "restoring writes nothing";
}

const std::set<std::string> TextKeys = {"Modem_Initialization_String",
                                        "Terminal_Settings",
                                        "Comm_Settings",
                                        "File_Char",
                                        "Log_File_Path",
                                        "Zip_File_Path",
                                        "Zip_Exe",
                                        "Main_Caption"};

// Values of the key that the start refuses, with the number of the error.
std::vector<std::pair<std::string, int>> BadValues(const std::string& key) {
    if (key == "Comm_Settings") return {{"fast", 380}, {"", 380}};
    if (key == "File_Length") return {{"later", 13}, {"25:00", 13}, {"", 13}};
    std::string tooLarge = "40000";
    for (const char* word : {"Color", "Low_Value", "High_Value"}) {
        if (key.find(word) != key.npos) tooLarge = "3000000000";
    }
    for (const char* word : {"Top", "Left", "Width", "Height", "Split_Ratio"}) {
        if (key == word) tooLarge = "1e39";
    }
    return {{"red", 13}, {"", 13}, {"1 2", 13}, {"NaN", 13}, {tooLarge, 6}, {"-" + tooLarge, 6}};
}

// All that stands before the bad value counts, it and all behind it is undone.
TEST(SettingTable, ABadValueEndsTheReadingThere) {
    ScriptedMachine untouched;
    Workstation blank(untouched.platform);
    for (const Key& bad : Keys) {
        if (TextKeys.contains(bad.name) && bad.name != std::string("Comm_Settings")) continue;
        for (const auto& [value, error] : BadValues(bad.name)) {
            std::string lines = std::string(bad.name) + "=" + value + "\r\n";  // the first counts
            Program program(lines + OwnLines());
            Workstation& w = program.W();
            const std::string what = lines;
            EXPECT_EQ(program.machine.dialogs.TakeBeeps(), 1) << what;
            ASSERT_EQ(program.machine.dialogs.Boxes().size(), 1U) << what;
            EXPECT_NE(program.machine.dialogs.TakeBox()->find("\r\nError Number: " +
                                                              std::to_string(error)),
                      std::string::npos)
                << what;
            EXPECT_TRUE(program.machine.Running()) << what;
            EXPECT_TRUE(w.frmMain.Visible) << what;
            EXPECT_TRUE(w.shell.startFailed) << what;
            EXPECT_EQ(w.frmMain.sbaStatus.Errors.Text, "OFF-Line") << what;
            bool before = true;
            for (const Key& key : Keys) {
                before = before && key.name != bad.name;
                EXPECT_EQ(key.held(w), before ? key.ownHeld : key.held(blank)) << key.name << what;
            }
        }
    }
}

void Do(ScriptedMachine& machine, const Handler& handler) {
    machine.Enter([&] { DispatchEvent(*machine.Program(), handler); });
}

// Whatever stands in the file: the program comes up, and lives.
TEST(SettingTable, AbsurdValuesDoNotStopTheProgram) {
    const char* cases[] = {
        "WindowState=7\r\nLeft=15\r\n",
        "WindowState=-3\r\nLeft=15\r\n",
        "WindowState=1\r\n",
        "Width=-100\r\nTop=15\r\n",
        "Height=-100\r\nTop=15\r\n",
        "Width=-491505\r\nHeight=-491505\r\nTop=15\r\n",
        "Width=491505\r\nHeight=491505\r\nTop=15\r\n",
        "Width=1e30\r\nTop=15\r\n",
        "Height=491600\r\nTop=15\r\n",
        "Top=1e30\r\n",
        "Left=-1e30\r\nSky_Cond_On_Top=1\r\n",
        "Split_Ratio=99\r\n",
        "Split_Ratio=-1e38\r\n",
        "Split_Ratio=1e38\r\n",
        "Compress=9\r\n",
        "Compress=-1\r\n",
        "Cloudmode=7\r\n",
        "Cloudmode=-1\r\n",
        "Chit_Point_Size=32767\r\n",
        "Message_Interval=32767\r\nCompress=2\r\n",
        "Message_Interval=0\r\n",
        "Message_Interval=-32768\r\n",
        "Units=5\r\n",
        "File_Length=25:00\r\n",
        "CEILOMETER=-1\r\n",
        "Comm_Port=16\r\nPort_open=1\r\n",
        "Sky_Win_Width=-1\r\nSky_Win_Height=0\r\nSky_Cond_On_Top=1\r\n",
        "Sky_Win_Width=32767\r\nSky_Win_Height=32767\r\nSky_Cond_On_Top=1\r\n",
        "Clouds_Y_User_Defined=-1\r\nClouds_Y_High_Value=-2147483648\r\n",
        "Backscatter_Averages=32767\r\nBack_Draw_Width=-32768\r\n",
    };
    for (const char* lines : cases) {
        Program program(lines);
        ScriptedMachine& machine = program.machine;
        ASSERT_TRUE(machine.Running()) << lines;
        FrmMain& form = machine.Program()->frmMain;
        EXPECT_TRUE(form.Visible) << lines;
        for (const ToolButton* button :
             {&form.Toolbar1.BackScat, &form.Toolbar1.Split, &form.Toolbar1.CloudHit,
              &form.Toolbar1.CloudIntensity, &form.Toolbar1.SkyCond, &form.Toolbar1.Grid}) {
            Do(machine, button->Click);
            machine.Advance(3 * MicrosPerSecond);
            Do(machine, [](Workstation& w) { ResizeForm(w, w.frmMain, 800, 600); });
            Do(machine, [](Workstation& w) { ResizeForm(w, w.frmSkyCond, 1, 1); });
            machine.Advance(MicrosPerSecond);
            ASSERT_TRUE(machine.Running()) << lines;
        }
        EXPECT_EQ(machine.Program()->frmDebug.txtMessage.Text, "") << lines;
        Do(machine, mnuRestore_Click);
        Do(machine, mnuSaveSettingsNow_Click);
        EXPECT_TRUE(machine.Running()) << lines;
        for (const std::string& box : machine.dialogs.Boxes()) {
            EXPECT_EQ(box.find("Run-time error"), std::string::npos) << lines;
        }
    }
}

}  // namespace
}  // namespace cumeron
