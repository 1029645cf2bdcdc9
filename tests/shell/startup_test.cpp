#include "shell/startup.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/main_window.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr const char* File = "C:\\WINDOWS\\CUMERON1.INI";

TEST(NumberThisCopy, TakesTheFirstFreeNumber) {
    const struct {
        const char* what;
        bool another;
        std::set<int> marks;
        int number;
        std::set<int> left;
    } cases[] = {
        {"clean machine", false, {}, 1, {1}},
        {"marks of crashed copies", false, {1, 2, 10}, 1, {1}},
        {"a mark beyond those that are cleared", false, {1, 11}, 1, {1, 11}},
        {"beside another copy", true, {1}, 2, {1, 2}},
        {"beside another copy, with the mark of a crash", true, {1, 2, 4}, 3, {1, 2, 3, 4}},
        {"beside the second copy alone", true, {2}, 1, {1, 2}},
        {"beyond ten",
         true,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
         11,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    };
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.copies.anotherRuns = c.another;
        machine.copies.marks = c.marks;
        const Micros before = machine.time.Elapsed();
        machine.Start("");
        EXPECT_EQ(machine.Program()->shell.InstanceNumber, c.number) << c.what;
        EXPECT_EQ(machine.copies.marks, c.left) << c.what;
        EXPECT_EQ(machine.Program()->shell.SettingsFile,
                  "CUMERON" + std::to_string(c.number) + ".INI");
        // Beside another copy events have a turn.
        EXPECT_EQ(machine.time.Elapsed() > before, c.another) << c.what;
    }
}

TEST(ChooseSettingsFile, TakesANumberFromOneToNinetyNine) {
    const struct {
        const char* commandLine;
        const char* file;
    } cases[] = {
        {"", "CUMERON1.INI"},    {"7", "CUMERON7.INI"},       {"1.5", "CUMERON1.5.INI"},
        {"99", "CUMERON99.INI"}, {"99.9", "CUMERON99.9.INI"}, {"0", "CUMERON1.INI"},
        {"0.5", "CUMERON1.INI"}, {"100", "CUMERON1.INI"},     {"abc", "CUMERON1.INI"},
        {"-3", "CUMERON1.INI"},
    };
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.Start(c.commandLine);
        EXPECT_EQ(machine.Program()->shell.SettingsFile, c.file) << c.commandLine;
        EXPECT_EQ(machine.copies.marks, std::set<int>{1});
    }
}

TEST(PlaceWindow, OnlyBothNoughtsAreNoPlace) {
    const struct {
        const char* lines;
        double left, top, width, height;
    } cases[] = {
        {"Top=0\r\nLeft=0\r\nWidth=6000\r\nHeight=4500\r\n", 1500, 1125, 9000, 6750},
        {"Top=0\r\nLeft=300\r\nWidth=6000\r\nHeight=4500\r\n", 300, 0, 6000, 4500},
        {"Top=-15\r\nLeft=0\r\n", 0, -15, 9600, 7200},
    };
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.platform.screen = {800, 600};
        machine.files.Put(File, std::string("[CUMERON]\r\n") + c.lines);
        machine.Start("");
        const FrmMain& form = machine.Program()->frmMain;
        EXPECT_EQ(form.Left, c.left) << c.lines;
        EXPECT_EQ(form.Top, c.top) << c.lines;
        EXPECT_EQ(form.Width, c.width) << c.lines;
        EXPECT_EQ(form.Height, c.height) << c.lines;
    }
}

TEST(PlaceSkyWindow, ReplacesEachNoughtByItself) {
    ScriptedMachine machine;
    machine.files.Put(File,
                      "[CUMERON]\r\nTop=100\r\nLeft=200\r\nWidth=8003\r\nHeight=4001\r\n"
                      "Sky_Win_Left=77\r\n");
    machine.Start("");
    EXPECT_EQ(machine.Program()->settings.Sky_Win_Top, 1100);
    EXPECT_EQ(machine.Program()->settings.Sky_Win_Left, 77);
}

TEST(Start, SetsUpEverythingOnACleanMachine) {
    ScriptedMachine machine;
    machine.time.SetNow(DateSerial(2026, 5, 1) + TimeSerial(12, 0, 0));
    machine.Start("");
    Workstation& w = *machine.Program();
    EXPECT_EQ(w.graphs.HistorySize, 3072);
    EXPECT_EQ(w.graphs.RangeTable, (std::array<std::int32_t, 5>{257, 128, 255, 514, 751}));
    EXPECT_EQ(w.graphs.GraphHistory.at(1).Profile.size(), 1501U);
    EXPECT_EQ(w.graphs.GraphsReady, -1);
    EXPECT_EQ(w.graphs.UnitLabel, "[ft]");
    EXPECT_NEAR(w.graphs.MessageTime, machine.time.Now(), 1e-9);
    EXPECT_NEAR(w.intake.MessageClockTime, TimeOf(machine.time.Now()), 1e-9);
    EXPECT_EQ(w.intake.ProfileScale, 1);
    EXPECT_EQ(w.intake.PreviousStatus, "00000");
    EXPECT_EQ(w.frmMain.lblCT.Caption, "KN30");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Port 1");
    EXPECT_TRUE(w.frmMain.mnuPoints.Checked);
    EXPECT_EQ(w.frmMain.Toolbar1.CloudIntensity.Value, 1);
    EXPECT_EQ(w.frmMain.Toolbar1.ClosePort.Value, 1);
    EXPECT_EQ(w.frmMain.sbaStatus.Errors.Text, "OFF-line");
    EXPECT_TRUE(w.frmMain.sbaStatus.Errors_Image.Visible);
    EXPECT_TRUE(machine.dialogs.Boxes().empty());
    EXPECT_GT(w.frmMain.picCombination.Width, 400);  // laid out
}

TEST(Start, TitleNamesTheCaptionOrThePort) {
    const struct {
        const char* lines;
        const char* title;
    } cases[] = {{"Main_Caption=North Field\r\nComm_Port=2\r\n", "CUMERON - North Field"},
                 {"Comm_Port=2\r\n", "CUMERON - Port 2"}};
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.files.Put(File, std::string("[CUMERON]\r\n") + c.lines);
        machine.Start("");
        EXPECT_EQ(machine.Program()->shell.MainTitle, c.title);
        EXPECT_EQ(machine.Program()->frmMain.Caption, c.title);
    }
}

TEST(Start, ModelIsNamedInBothWindows) {
    const std::pair<const char*, const char*> cases[] = {
        {"70", "RV70X"}, {"10", "RV10X"}, {"31", ""}};
    for (const auto& [code, name] : cases) {
        ScriptedMachine machine;
        machine.files.Put(File, std::string("[CUMERON]\r\nCEILOMETER=") + code + "\r\n");
        machine.Start("");
        EXPECT_EQ(machine.Program()->frmMain.lblCT.Caption, name);
        EXPECT_EQ(machine.Program()->frmSkyCond.lblCT_2.Caption, name);
    }
}

TEST(Start, AWindowThatStartsMinimisedIsLaidOutWhenItOpens) {
    ScriptedMachine machine;
    machine.files.Put(File, "[CUMERON]\r\nWindowState=1\r\nTop=15\r\nWidth=12000\r\n");
    machine.Start("");
    Workstation& w = *machine.Program();
    EXPECT_EQ(w.frmMain.WindowState, 1);
    machine.Advance(MicrosPerSecond);
    ChangeWindowState(w, w.frmMain, 0);
    EXPECT_EQ(w.frmMain.picCombination.Width, 800 - 16 - 200 - 44 - 24);
}

TEST(Start, AWindowWhosePlaceIsUnreadHasAUsableSize) {
    ScriptedMachine machine;
    machine.files.Put(File, "[CUMERON]\r\nModem_used=no\r\nWindowState=2\r\n");
    machine.Start("");
    Workstation& w = *machine.Program();
    EXPECT_EQ(w.frmMain.ScaleWidth(), 640);
    EXPECT_EQ(w.frmMain.ScaleHeight(), 480);
    EXPECT_EQ(w.frmMain.picCombination.Width, 640 - 16 - 200 - 44 - 24);
    w.frmMain.WindowState = 2;
    ChangeWindowState(w, w.frmMain, 0);
    EXPECT_EQ(w.frmMain.ScaleWidth(), 640);
}

TEST(Start, OpensThePortIfTheSettingSaysSo) {
    ScriptedMachine machine;
    machine.files.Put(File, "[CUMERON]\r\nPort_open=1\r\n");
    machine.Start("");
    EXPECT_TRUE(machine.line.PortOpen());
    EXPECT_EQ(machine.Program()->frmMain.sbaStatus.Errors.Text, "OFF-line");
}

TEST(Start, BeginsInTheIntensityViewWhateverModeWasUsed) {
    const struct {
        const char* lines;
        int mode, hitButton;
    } cases[] = {{"Cloudmode=1\r\n", 0, 0}, {"Cloudmode=2\r\n", 2, 1}};
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.files.Put(File, std::string("[CUMERON]\r\n") + c.lines);
        machine.Start("");
        Workstation& w = *machine.Program();
        EXPECT_TRUE(w.frmMain.mnuPoints.Checked);
        EXPECT_EQ(w.settings.Cloudmode, c.mode);
        EXPECT_EQ(w.graphs.PreviousCloudmode, c.mode);
        EXPECT_EQ(w.frmMain.Toolbar1.CloudHit.Value, c.hitButton);
    }
}

TEST(Start, KeepsTheStoredModeOfAnRv10xAsThePreviousOne) {
    ScriptedMachine machine;
    machine.files.Put(File, "[CUMERON]\r\nCEILOMETER=10\r\nCloudmode=1\r\n");
    machine.Start("");
    EXPECT_EQ(machine.Program()->settings.Cloudmode, 0);
    EXPECT_EQ(machine.Program()->graphs.PreviousCloudmode, 1);
}

TEST(Start, LineFaultsReachTheirHandler) {
    ScriptedMachine machine;
    machine.Start("");
    machine.line.CommEvent = CommEventReceiveParity;
    machine.line.OnComm();
    EXPECT_EQ(machine.Program()->intake.FrameErrorCount, 1);
}

TEST(Start, ScreenTooWideForTheHistoryEndsTheProgram) {
    ScriptedMachine machine;
    machine.platform.screen = {20000, 600};
    machine.Start("");
    EXPECT_EQ(machine.dialogs.TakeBox(), "Run-time error '6':\r\n\r\n" + ErrorText(6));
    EXPECT_TRUE(machine.Ended());
}

TEST(Start, AllScreensTogetherMakeTheHistoryAndTheFirstThePlace) {
    ScriptedMachine machine;
    machine.platform.screen = {800, 600, 3000};
    machine.Start("");
    EXPECT_EQ(machine.Program()->graphs.HistorySize, 9000);
    EXPECT_EQ(machine.Program()->frmMain.Width, 9000);
}

TEST(QueryUnload, OnlyYesLetsTheProgramGo) {
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        ScriptedMachine machine;
        machine.Start("");
        machine.dialogs.AnswerNext(answer);
        machine.Enter([&] { CloseForm(*machine.Program(), machine.Program()->frmMain); });
        EXPECT_EQ(machine.dialogs.TakeBox(), "Are you sure you want to Exit?");
        EXPECT_EQ(machine.Ended(), answer == Answer::Yes);
        EXPECT_EQ(machine.files.Exists(File), answer == Answer::Yes);
    }
}

TEST(Exit, AsksNothingAndFreesWhatTheCopyHeld) {
    ScriptedMachine machine;
    machine.files.Put(File, "[CUMERON]\r\nPort_open=1\r\n");
    machine.Start("");
    machine.Program()->frmMain.WindowState = 2;
    machine.Enter([&] { machine.Program()->frmMain.mnuExit.Click(*machine.Program()); });
    EXPECT_TRUE(machine.dialogs.Boxes().empty());
    EXPECT_TRUE(machine.Ended());
    EXPECT_TRUE(machine.copies.marks.empty());
    EXPECT_NE(machine.files.Content(File)->find("WindowState=0\r\n"), std::string::npos);
}

TEST(Exit, SavesTheNormalPlaceOfAWindowThatIsMaximised) {
    const struct {
        const char* what;
        const char* lines;
        void (*go)(Workstation&);
        const char* saved;
    } cases[] = {
        {"maximised by the operator", "Left=300\r\n",
         [](Workstation& w) {
             ResizeForm(w, w.frmMain, 600, 500);
             MoveForm(w, w.frmMain, 150, 75);
             ChangeWindowState(w, w.frmMain, 2, 1024, 768);
         },
         "WindowState=0\r\nWidth=9000\r\nHeight=7500\r\nTop=75\r\n"},
        {"maximised since the start", "Left=300\r\nTop=450\r\nWidth=9000\r\nWindowState=2\r\n",
         [](Workstation& w) { ResizeForm(w, w.frmMain, 1024, 768); },
         "WindowState=0\r\nWidth=9000\r\nHeight=7200\r\nTop=450\r\n"},
        {"maximised without a place", "WindowState=2\r\n",
         [](Workstation& w) { ResizeForm(w, w.frmMain, 1024, 768); },
         "WindowState=0\r\nWidth=11520\r\nHeight=8640\r\nTop=1440\r\n"},
        {"minimised", "Left=300\r\nTop=450\r\n",
         [](Workstation& w) { ChangeWindowState(w, w.frmMain, 1); },
         "WindowState=0\r\nWidth=9600\r\nHeight=7200\r\nTop=450\r\n"},
    };
    for (const auto& c : cases) {
        ScriptedMachine machine;
        machine.files.Put(File, std::string("[CUMERON]\r\n") + c.lines);
        machine.Start("");
        machine.Enter([&] { c.go(*machine.Program()); });
        machine.files.Put(File, "[CUMERON]\r\n");
        machine.Enter([&] { mnuExit_Click(*machine.Program()); });
        EXPECT_TRUE(machine.dialogs.Boxes().empty()) << c.what;
        EXPECT_TRUE(
            machine.files.Content(File)->starts_with(std::string("[CUMERON]\r\n") + c.saved))
            << c.what;
    }
}

// The layout of a window that grows out of the 16 bits of its sums fails; leaving goes on.
TEST(Exit, GoesOnPastAnErrorOfTheLayout) {
    ScriptedMachine machine;
    machine.Start("");
    Workstation& w = *machine.Program();
    w.frmMain.WindowState = 2;
    w.frmMain.normalWidth = 15.0 * 40000;
    machine.Enter([&] { mnuExit_Click(w); });
    EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 6"), std::string::npos);
    EXPECT_TRUE(machine.Ended());
    EXPECT_TRUE(machine.files.Exists(File));
}

TEST(Exit, SavesNothingWithoutTheCheckMark) {
    ScriptedMachine machine;
    machine.Start("");
    machine.Program()->frmMain.mnuSaveSettings.Checked = false;
    machine.Enter([&] { mnuExit_Click(*machine.Program()); });
    EXPECT_FALSE(machine.files.Exists(File));
    EXPECT_TRUE(machine.copies.marks.empty());
}

TEST(Exit, GoesOnPastAnErrorOfTheSave) {
    ScriptedMachine machine;
    machine.Start("");
    machine.files.FillDisk();
    machine.Enter([&] { mnuExit_Click(*machine.Program()); });
    EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 61"), std::string::npos);
    EXPECT_TRUE(machine.Ended());
}

// What the way out finds when the message window fails to close: the error is told, the end comes.
TEST(Exit, ClosesTheMessageWindowAndGoesOnPastItsErrors) {
    ScriptedMachine machine;
    machine.Start("");
    Workstation& w = *machine.Program();
    LoadForm(w, w.frmDebug);
    bool asked = false;
    w.frmDebug.Unload = [&](Workstation&) {
        asked = true;
        throw RuntimeError(5);
    };
    machine.Enter([&] { mnuExit_Click(w); });
    EXPECT_TRUE(asked);
    EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 5"), std::string::npos);
    EXPECT_TRUE(machine.Ended());
}

}  // namespace
}  // namespace cumeron
