#include "shell/start_options.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

class StartOptions : public testing::Test {
protected:
    StartOptions() { w.shell.SettingsFile = "CUMERON1.INI"; }
    // Shows the dialog and lets the operator work in it.
    void Show(const std::function<void()>& work) {
        machine.time.At(0, work);
        mnuStartup_Click(w);
    }
    std::string File() { return machine.files.Content(name).value_or("no file"); }

    static constexpr const char* name = "C:\\WINDOWS\\CUMERON1.INI";
    ScriptedMachine machine;
    Workstation w{machine.platform};
    FrmStart& form = w.frmStart;
};

TEST_F(StartOptions, ShowWhatTheSettingsSay) {
    const struct {
        std::int16_t open, log;
        const char* caption;
    } cases[] = {{0, 0, ""}, {1, 0, "West"}, {0, -1, "East"}};
    for (const auto& c : cases) {
        w.settings.Port_open = c.open;
        w.settings.Log_on = c.log;
        w.settings.Main_Caption = c.caption;
        Show([&] {
            EXPECT_EQ(form.Check1.Value, c.open != 0 ? 1 : 0);
            EXPECT_EQ(form.Check2.Value, c.log != 0 ? 1 : 0);
            EXPECT_EQ(form.txtCaption.Text, c.caption);
            form.CmdCancel.Click(w);
        });
    }
}

TEST_F(StartOptions, AreWrittenAtOnceAndAlone) {
    machine.files.Put(name, "; mine\r\n[CUMERON]\r\nCompress=2\r\nLog_on=1\r\n");
    w.settings.Compress = 1;
    w.settings.Port_open = 0;
    w.settings.Log_on = 1;
    Show([&] {
        form.Check1.Value = 1;
        form.Check2.Value = 0;
        form.txtCaption.Text = "Runway 27";
        form.CmdOK.Click(w);
    });
    EXPECT_EQ(File(),
              "; mine\r\n[CUMERON]\r\nCompress=2\r\nLog_on=0\r\nPort_open=1\r\n"
              "Main_Caption=Runway 27\r\n");
    EXPECT_EQ(w.settings.Port_open, 1);
    EXPECT_EQ(w.settings.Log_on, 0);
    EXPECT_EQ(w.settings.Main_Caption, "Runway 27");
    EXPECT_EQ(w.shell.MainTitle, "CUMERON - Runway 27");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Runway 27");
    EXPECT_FALSE(form.Loaded);
    EXPECT_FALSE(machine.line.PortOpen());
}

TEST_F(StartOptions, WithoutACaptionTheTitleNamesThePort) {
    w.settings.Main_Caption = "West";
    machine.line.SetCommPort(4);
    Show([&] {
        form.txtCaption.Text = "";
        form.CmdOK.Click(w);
    });
    EXPECT_EQ(w.settings.Main_Caption, "");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Port 4");
    EXPECT_EQ(File(), "[CUMERON]\r\nPort_open=0\r\nLog_on=0\r\nMain_Caption=\r\n");
}

TEST_F(StartOptions, CancelChangesNothing) {
    w.settings.Main_Caption = "West";
    w.frmMain.Caption = "CUMERON - West";
    Show([&] {
        form.Check1.Value = form.Check2.Value = 1;
        form.txtCaption.Text = "East";
        form.CmdCancel.Click(w);
    });
    EXPECT_FALSE(form.Loaded);
    EXPECT_EQ(w.settings.Port_open, 0);
    EXPECT_EQ(w.settings.Log_on, 0);
    EXPECT_EQ(w.settings.Main_Caption, "West");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - West");
    EXPECT_EQ(File(), "no file");
}

TEST_F(StartOptions, AfterAFailedStartTheOldFileIsKept) {
    const std::string before = "[CUMERON]\r\nCompress=x\r\nMain_Caption=West\r\n";
    machine.files.Put(name, before);
    w.shell.startFailed = true;
    Show([&] { form.CmdOK.Click(w); });
    EXPECT_EQ(machine.files.Content(std::string(name) + ".bak").value_or("no file"), before);
    EXPECT_FALSE(w.shell.startFailed);
}

TEST_F(StartOptions, AFullDiskIsToldAndTheRunGoesOnWithThem) {
    const std::string before = "[CUMERON]\r\nPort_open=0\r\n";
    machine.files.Put(name, before);
    machine.files.FillDisk();
    Show([&] {
        form.Check1.Value = 1;
        form.CmdOK.Click(w);
    });
    EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 61"), std::string::npos);
    EXPECT_FALSE(form.Loaded);
    EXPECT_EQ(w.settings.Port_open, 1);
    EXPECT_EQ(File(), before);
}

TEST_F(StartOptions, AreReachedFromTheMenu) {
    machine.time.At(0, [&] {
        EXPECT_EQ(ModalForm(w), &form);
        EXPECT_EQ(form.Caption, "Start up Options");
        EXPECT_EQ(form.Check1.Caption, "Comm Port Open");
        EXPECT_EQ(form.Check2.Caption, "Log On");
        EXPECT_EQ(form.CmdOK.Caption, "OK");
        EXPECT_EQ(form.CmdCancel.Caption, "Cancel");
        form.CmdCancel.Click(w);
    });
    w.frmMain.mnuStartup.Click(w);
}

}  // namespace
}  // namespace cumeron
