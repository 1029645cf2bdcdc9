// What the operator does to inputs: options, check boxes, lists, texts, dragging, the mouse.
#include <gtest/gtest.h>

#include "bench.h"
#include "platform/form.h"

namespace cumeron {
namespace {

// ConfigScrn is shown, its controls note which event ran and what they held then.
struct InputBench : Bench {
    std::string trace;

    explicit InputBench(const std::string& lines) : Bench(lines) {
        FrmConfigScrn& form = w.ConfigScrn;
        form.Load = nullptr;
        form.Data7.Click = Note("Data7", form.Data7.Value);
        form.Data8.Click = Note("Data8", form.Data8.Value);
        form.ChkModem.Click = Note("ChkModem", form.ChkModem.Value);
        form.cboPort.Click = Note("cboPort", form.cboPort.ListIndex);
        form.cboBaud.Click = Note("cboBaud", form.cboBaud.ListIndex);
        form.cboBaud.Change = Note("cboBaud.Change", form.cboBaud.Text);
        form.txtModemInitialization.Text = "";
        form.txtModemInitialization.Change = Note("Change", form.txtModemInitialization.Text);
        form.frmPorts.MouseEnter = Note("MouseEnter", form.cboPort.ListIndex);
        form.fraParity.DragDrop = [this](Workstation&, const Control& source, double x, double y) {
            EXPECT_EQ(&source, &w.ConfigScrn.lblDevice);
            trace += "drop=" + AsText(x) + "," + AsText(y) + " ";
        };
        form.lblDevice.Draggable = true;
        ShowForm(w, form);
    }

    template <class Field>
    Handler Note(const char* name, const Field& field) {
        return [this, name, &field](Workstation&) {
            trace += std::string(name) + "=" + AsText(LoadValue(field)) + " ";
        };
    }
};

struct Case {
    const char* lines;
    const char* trace;
};

void CheckTraces(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        InputBench bench(c.lines);
        EXPECT_EQ(bench.Run(), "") << c.lines;
        EXPECT_EQ(bench.trace, c.trace) << c.lines;
    }
}

TEST(Inputs, TakeTheirValueBeforeTheirEvent) {
    CheckTraces({
        {"click ConfigScrn.Data8\nexpect ConfigScrn.Data8 True\n", "Data8=True "},
        {"click ConfigScrn.Data8\nclick ConfigScrn.Data7\nexpect ConfigScrn.Data8 False\n",
         "Data8=True Data7=True "},
        {"set ConfigScrn.Data8 True\nset ConfigScrn.Data7.Value -1\nexpect ConfigScrn.Data8 0\n",
         "Data8=True Data7=True "},
        {"click ConfigScrn.ChkModem\nclick ConfigScrn.ChkModem\n", "ChkModem=1 ChkModem=0 "},
        {"set ConfigScrn.ChkModem 1\nset ConfigScrn.ChkModem.Value 0\n", "ChkModem=1 ChkModem=0 "},
        {"set ConfigScrn.cboPort 4\nexpect ConfigScrn.cboPort.Text com5\n", "cboPort=4 "},
        {"set ConfigScrn.cboPort.ListIndex 0\n", "cboPort=0 "},
        {"set ConfigScrn.cboPort.Text com15\n", "cboPort=14 "},
        {"set ConfigScrn.cboBaud.Text 1200\nexpect ConfigScrn.cboBaud 2\n", "cboBaud.Change=1200 "},
        {"set ConfigScrn.cboBaud.Text \"57600\"\nexpect ConfigScrn.cboBaud -1\n",
         "cboBaud.Change=57600 "},
        {"set ConfigScrn.cboBaud 6\nexpect ConfigScrn.cboBaud.Text 19200\n", "cboBaud=6 "},
        {"set ConfigScrn.txtModemInitialization ATDT\n", "Change=ATDT "},
        {"type ConfigScrn.txtModemInitialization \"AT\\x08\\r\"\n", "Change=A Change=AT Change=A "},
        {"set ConfigScrn.txtModemInitialization AT\npaste ConfigScrn.txtModemInitialization 12\n",
         "Change=AT Change=AT12 "},
        {"hover ConfigScrn.frmPorts\n", "MouseEnter=-1 "},
        {"hover ConfigScrn.Data7\n", ""},
        {"drop ConfigScrn.lblDevice ConfigScrn.fraParity 12.5 -3\n", "drop=12.5,-3 "},
        {"drop ConfigScrn.lblDevice ConfigScrn.fraModem 1 1\n", ""},
    });
}

// frmSetLog is shown without its Load.
TEST(Inputs, TakeDrivesFoldersPagesAndMasks) {
    const struct {
        const char *lines, *trace;
    } cases[] = {
        {"set frmSetLog.drvLogPath D:\nexpect frmSetLog.drvLogPath D:\n", "drive=D: "},
        {"set frmSetLog.drvLogPath.Drive D:\n", "drive=D: "},
        {"set frmSetLog.dirLogPath \"C:\\\\LOG\"\nexpect frmSetLog.dirLogPath.Path \"C:\\\\LOG\"\n",
         "folder=C:\\LOG "},
        {"set frmSetLog.tabLogSet 1\nexpect frmSetLog.tabLogSet 1\n", "page=1 "},
        {"set frmSetLog.medLogFileLength 12\nexpect frmSetLog.medLogFileLength 12\n", ""},
        {"set frmSetLog.medLogFileLength 6\nexpect frmSetLog.medLogFileLength 6_\n", ""},
        {"expect frmSetLog.medLogFileLength.Mask \"##\"\n", ""},
    };
    for (const auto& c : cases) {
        Bench bench(c.lines);
        FrmSetLog& form = bench.w.frmSetLog;
        std::string trace;
        form.Load = nullptr;
        form.drvLogPath.Change = [&](Workstation&) {
            trace += "drive=" + form.drvLogPath.Drive + " ";
        };
        form.dirLogPath.Change = [&](Workstation&) {
            trace += "folder=" + form.dirLogPath.Path + " ";
        };
        form.tabLogSet.Click = [&](Workstation&) {
            trace += "page=" + std::to_string(form.tabLogSet.Selected) + " ";
        };
        ShowForm(bench.w, form);
        EXPECT_EQ(bench.Run(), "") << c.lines;
        EXPECT_EQ(trace, c.trace) << c.lines;
    }
}

TEST(Inputs, TellWhatTheyDoNotTake) {
    const struct {
        const char* line;
        const char* told;
    } cases[] = {
        {"click ConfigScrn.cboPort", "ConfigScrn.cboPort is a list, in which set chooses"},
        {"set ConfigScrn.cboPort 15", "the list has no such item"},
        {"set ConfigScrn.cboPort -1", "the list has no such item"},
        {"set frmSetLog.tabLogSet 2", "the strip has no such page"},
        {"set frmSetLog.tabLogSet -1", "the strip has no such page"},
        {"set frmSetLog.drvLogPath.Visible True", "frmSetLog.drvLogPath.Visible is no input"},
        {"set frmSetLog.dirLogPath.Visible True", "frmSetLog.dirLogPath.Visible is no input"},
        {"set frmSetLog.tabLogSet.Visible True", "frmSetLog.tabLogSet.Visible is no input"},
        {"set ConfigScrn.cboPort com5", "\"com5\" is no number"},
        {"set ConfigScrn.cboPort.Text com16", "the list has no such item"},
        {"set ConfigScrn.cboPort.Left 5", "ConfigScrn.cboPort.Left is no input"},
        {"set ConfigScrn.ChkModem 2", "a check box is set to 0 or 1"},
        {"set ConfigScrn.ChkModem -1", "a check box is set to 0 or 1"},
        {"set ConfigScrn.ChkModem.Caption x", "ConfigScrn.ChkModem.Caption is no input"},
        {"set ConfigScrn.Data8 False",
         "an option is set to True, which puts the others of its frame out"},
        {"set ConfigScrn.Data8 x",
         "an option is set to True, which puts the others of its frame out"},
        {"set ConfigScrn.Data8.Text x", "ConfigScrn.Data8.Text is no input"},
        {"set ConfigScrn.cboPort.Value 1", "ConfigScrn.cboPort.Value is no input"},
        {"set ConfigScrn.OKButton x", "ConfigScrn.OKButton is no input"},
        {"type ConfigScrn.cboBaud x", "ConfigScrn.cboBaud is no input"},
        {"hover ConfigScrn.Data7.Value", "ConfigScrn.Data7.Value is no control"},
        {"hover tmrClock", "tmrClock is nothing to see"},
        {"hover frmAbout.Command1", "frmAbout is not visible"},
        {"drop ConfigScrn.Data7 ConfigScrn.fraParity 1 1", "ConfigScrn.Data7 cannot be dragged"},
        {"drop ConfigScrn.lblDevice frmAbout.Command1 1 1", "frmAbout is not visible"},
        {"drop ConfigScrn.lblDevice ConfigScrn.fraParity here 1", "\"here\" is no number"},
    };
    for (const auto& c : cases) {
        InputBench bench(std::string(c.line) + "\n");
        const std::string told = bench.Run();
        EXPECT_TRUE(told.ends_with(std::string(": ") + c.told + "\n")) << told;
        EXPECT_EQ(bench.trace, "") << c.line;
    }
}

TEST(Inputs, HiddenOnesCanBeSetAndDisabledOnesCannot) {
    InputBench hidden("set ConfigScrn.ChkModem 1\nset ConfigScrn.cboPort 3\n");
    hidden.w.ConfigScrn.ChkModem.Visible = hidden.w.ConfigScrn.frmPorts.Visible = false;
    HideForm(hidden.w.ConfigScrn);
    EXPECT_EQ(hidden.Run(), "");
    EXPECT_EQ(hidden.trace, "ChkModem=1 cboPort=3 ");

    InputBench disabled(
        "set ConfigScrn.ChkModem 1\nset ConfigScrn.cboPort 3\nclick ConfigScrn.cboDevice\n"
        "set frmStart.Check1 1\n");
    disabled.w.ConfigScrn.ChkModem.Enabled = disabled.w.ConfigScrn.frmPorts.Enabled = false;
    disabled.w.frmStart.Enabled = false;
    EXPECT_EQ(disabled.Run(),
              "s.scn:1: set: ChkModem is disabled\ns.scn:2: set: frmPorts is disabled\n"
              "s.scn:3: click: ConfigScrn.cboDevice is a list, in which set chooses\n"
              "s.scn:4: set: frmStart is disabled\n");
    EXPECT_EQ(disabled.trace, "");
}

TEST(Inputs, KeyThatClosesTheFormGoesNowhere) {
    InputBench bench("type ConfigScrn.txtModemInitialization ab\n");
    FrmConfigScrn& form = bench.w.ConfigScrn;
    form.txtModemInitialization.KeyPress = [&form](Workstation& w, int key) {
        UnloadForm(w, form);
        return key;
    };
    EXPECT_EQ(bench.Run(), "s.scn:1: type: ConfigScrn is not visible\n");
    EXPECT_EQ(form.txtModemInitialization.Text, FrmConfigScrn().txtModemInitialization.Text);
}

TEST(Inputs, HandlerMayUnloadItsForm) {
    for (const char* line : {"click ConfigScrn.ChkModem\n", "set ConfigScrn.ChkModem 1\n"}) {
        InputBench bench(line);
        FrmConfigScrn& form = bench.w.ConfigScrn;
        std::string after;
        form.ChkModem.Click = [&form, &after, text = std::string(100, 'x')](Workstation& w) {
            UnloadForm(w, form);
            after = text;
        };
        EXPECT_EQ(bench.Run(), "");
        EXPECT_EQ(after, std::string(100, 'x')) << line;
    }
}

TEST(Programs, StartsAreAskedAboutInTheirOrder) {
    Bench bench(
        "ran-none\nclick lblCT\nshow-ran\nran \"help A.HLP 3 0\"\nran \"help A.HLP 1 50\"\n"
        "ran-none\nclick lblCT\nran-none\nran x\nran-none\nran \"help A.HLP 1 50\"\n");
    bench.w.frmMain.lblCT.Click = [](Workstation& w) {
        w.platform.process.Help("A.HLP", 3, 0);
        w.platform.process.Help("A.HLP", 1, 50);
    };
    EXPECT_EQ(bench.Run(),
              "[\"help A.HLP 3 0\",\"help A.HLP 1 50\"]\n"
              "s.scn:8: ran-none: expected none, got \"help A.HLP 3 0\"\n"
              "s.scn:9: ran: expected \"x\", got \"help A.HLP 3 0\"\n"
              "s.scn:10: ran-none: expected none, got \"help A.HLP 1 50\"\n");
    EXPECT_EQ(bench.session.counts.passed, 5);
}

TEST(Programs, RefusedStartIsNone) {
    Bench bench(
        "shell-error 53\nclick lblCT\nran-none\nclick lblCT\nran \"help A.HLP 3 0\"\nran x\n");
    bench.w.frmMain.lblCT.Click = [](Workstation& w) {
        ResumeNext([&] { w.platform.process.Help("A.HLP", 3, 0); });
    };
    EXPECT_EQ(bench.Run(), "s.scn:6: ran: expected \"x\", got none\n");
    EXPECT_EQ(bench.session.counts.passed, 2);
}

}  // namespace
}  // namespace cumeron
