#include "shell/port_dialog.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

// Notes the sign of each box.
class SignedDialogs : public ScriptedDialogs {
public:
    Answer MessageBox(const std::string& text, BoxButtons buttons, BoxSign sign) override {
        signs.push_back(sign);
        return ScriptedDialogs::MessageBox(text, buttons, sign);
    }
    std::vector<BoxSign> signs;
};

class RefusingPorts : public ScriptedPorts {
public:
    void Pair(int number, const std::string& device) override {
        ++calls;
        if (error != 0) throw RuntimeError(error);
        ScriptedPorts::Pair(number, device);
    }
    int error = 0;
    int calls = 0;
};

// Notes each opening and closing with the number of the port.
class NotingLine : public ScriptedLine {
public:
    using ScriptedLine::ScriptedLine;
    void SetPortOpen(bool open) override {
        ScriptedLine::SetPortOpen(open);
        trace += (open ? "+" : "-") + std::to_string(CommPort());
    }
    void SetCommPort(int number) override {
        ScriptedLine::SetCommPort(number);
        if (refusedPort == number) throw RuntimeError(380);
    }
    std::string trace;
    int refusedPort = 0;
};

class PortDialog : public testing::Test {
protected:
    PortDialog() {
        line.SetCommPort(3);
        line.SetSettings("9600,e,7,2");
        ports.pairs = {{3, "/dev/a"}, {4, "/dev/gone"}};
        ports.devices = {{"/dev/a", "Adapter", "A1"}, {"/dev/b", "Adapter", "B2"}};
    }
    // Shows the dialog and lets the operator work in it; a dialog that stays is cancelled then, and
    // this says so.
    bool Stays(const std::function<void()>& work) {
        bool stays = false;
        machine.time.At(0, [&] {
            work();
            stays = form.Loaded;
            if (stays) form.CancelButton.Click(w);
        });
        w.frmMain.mnuPortSettings.Click(w);
        return stays;
    }
    void Ok(const std::function<void()>& work) {
        const bool stays = Stays([&] {
            work();
            form.OKButton.Click(w);
        });
        EXPECT_FALSE(stays);
    }
    void Look(const std::function<void()>& look) { EXPECT_TRUE(Stays(look)); }
    std::string Box() { return dialogs.TakeBox().value_or("no box"); }

    ScriptedMachine machine;
    NotingLine line{machine.time};
    SignedDialogs dialogs;
    RefusingPorts ports;
    Platform platform{machine.time,      machine.time,    line,  machine.files,  dialogs,
                      machine.process,   machine.copies,  ports, {1600, 900, 0}, machine.printer,
                      machine.clipboard, machine.pictures};
    Workstation w{platform};
    FrmConfigScrn& form = w.ConfigScrn;
};

constexpr const char* InvalidValue = "Invalid property value";

TEST_F(PortDialog, StandsInTheMiddleOfTheScreen) {
    Look([&] {
        EXPECT_EQ(ModalForm(w), &form);
        EXPECT_DOUBLE_EQ(form.Left, (1600 * 15 - form.Width) / 2);
        EXPECT_DOUBLE_EQ(form.Top, (900 * 15 - form.Height) / 2);
        EXPECT_EQ(form.normalLeft, form.Left);
    });
}

TEST_F(PortDialog, ShowsTheLineAndTheModem) {
    w.settings.Modem_used = -1;
    w.settings.Modem_Initialization_String = "ATZ";
    Look([&] {
        EXPECT_EQ(form.cboPort.ListIndex, 2);
        EXPECT_EQ(form.cboPort.Text, "com3");
        EXPECT_EQ(form.chosenPort, 3);
        EXPECT_EQ(form.cboBaud.Text, "9600");
        EXPECT_EQ(form.cboBaud.ListIndex, 5);
        EXPECT_EQ(form.baudText, "9600");
        EXPECT_EQ(form.ChkModem.Value, 1);
        EXPECT_EQ(form.txtModemInitialization.Text, "ATZ");
    });
    w.settings.Modem_used = 0;
    Look([&] { EXPECT_EQ(form.ChkModem.Value, 0); });
}

TEST_F(PortDialog, OffersTheListedPortsAndSpeeds) {
    ASSERT_EQ(form.cboPort.Items.size(), 15u);
    EXPECT_EQ(form.cboPort.Items.front(), "com1");
    EXPECT_EQ(form.cboPort.Items.back(), "com15");
    EXPECT_EQ(form.cboBaud.Items,
              (std::vector<std::string>{"300", "600", "1200", "2400", "4800", "9600", "19200"}));
    EXPECT_TRUE(form.cboBaud.Editable);
    EXPECT_EQ(form.txtModemInitialization.Text, "ATD");
}

TEST_F(PortDialog, NamesItsControls) {
    EXPECT_EQ(form.Caption, "Communication Settings");
    EXPECT_EQ(form.frmPorts.Caption, "&Com Port");
    EXPECT_EQ(form.fraDataBits.Caption, "&Data Bits");
    EXPECT_EQ(form.fraStopBits.Caption, "&Stop Bits");
    EXPECT_EQ(form.fraParity.Caption, "&Parity");
    EXPECT_EQ(form.Data7.Caption + form.Data8.Caption + form.Stop1.Caption + form.Stop2.Caption,
              "7812");
    EXPECT_EQ(form.NoParity.Caption, "None");
    EXPECT_EQ(form.OddParity.Caption, "Odd");
    EXPECT_EQ(form.EvenParity.Caption, "Even");
    EXPECT_EQ(form.ChkModem.Caption, "Modem");
    EXPECT_EQ(form.fraModem.Caption, "Modem Initialization String");
    EXPECT_EQ(form.OKButton.Caption, "OK");
    EXPECT_EQ(form.CancelButton.Caption, "Cancel");
}

TEST_F(PortDialog, ShowsEachSettingByItsButton) {
    const struct {
        const char* settings;
        std::vector<const OptionButton*> chosen;
        const char *parity, *dataBits, *stopBits;
    } cases[] = {
        {"19200,n,8,1", {&form.NoParity, &form.Data8, &form.Stop1}, "N", "8", "1"},
        {"19200,N,7,2", {&form.NoParity, &form.Data7, &form.Stop2}, "N", "7", "2"},
        {"300,E,8,1", {&form.EvenParity, &form.Data8, &form.Stop1}, "E", "8", "1"},
        {"300,o,8,1", {&form.OddParity, &form.Data8, &form.Stop1}, "O", "8", "1"},
        {"300,M,5,1.5", {}, "", "", ""},
    };
    const OptionButton* const all[] = {&form.NoParity, &form.EvenParity, &form.OddParity,
                                       &form.Data7,    &form.Data8,      &form.Stop1,
                                       &form.Stop2};
    for (const auto& c : cases) {
        line.SetSettings(c.settings);
        Look([&] {
            for (const OptionButton* option : all) {
                const bool chosen = std::count(c.chosen.begin(), c.chosen.end(), option) > 0;
                EXPECT_EQ(option->Value, chosen) << c.settings << " " << option->Caption;
            }
            EXPECT_EQ(form.parityLetter, c.parity);
            EXPECT_EQ(form.dataBits, c.dataBits);
            EXPECT_EQ(form.stopBits, c.stopBits);
        });
    }
}

TEST_F(PortDialog, OkGivesTheLineWhatWasChosen) {
    Ok([&] {
        SelectItem(w, form.cboPort, 4);
        TypeItem(w, form.cboBaud, " 38400 ");
        ChooseOption(w, form, form.OddParity);
        ChooseOption(w, form, form.Data8);
        ChooseOption(w, form, form.Stop1);
        form.ChkModem.Value = 1;
        form.txtModemInitialization.Text = "ATDT";
    });
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(line.CommPort(), 5);
    EXPECT_EQ(line.Settings(), "38400,O,8,1");
    EXPECT_EQ(line.trace, "");
    EXPECT_EQ(w.settings.Modem_used, 1);
    EXPECT_EQ(w.settings.Modem_Initialization_String, "ATDT");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Port 5");
    EXPECT_EQ(ports.calls, 0);
    EXPECT_TRUE(machine.files.Names().empty());
}

TEST_F(PortDialog, AModemThatIsNotTickedIsNotUsed) {
    w.settings.Modem_used = 1;
    Ok([&] { form.ChkModem.Value = 0; });
    EXPECT_EQ(w.settings.Modem_used, 0);
}

TEST_F(PortDialog, ATitleOfTheOperatorStays) {
    w.settings.Main_Caption = "West";
    Ok([&] { SelectItem(w, form.cboPort, 4); });
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - West");
}

TEST_F(PortDialog, CancelChangesNothing) {
    w.settings.Modem_Initialization_String = "ATZ";
    EXPECT_TRUE(Stays([&] {
        SelectItem(w, form.cboPort, 4);
        SelectItem(w, form.cboDevice, 2);
        TypeItem(w, form.cboBaud, "300");
        ChooseOption(w, form, form.OddParity);
        form.ChkModem.Value = 1;
        form.txtModemInitialization.Text = "ATX";
    }));
    EXPECT_FALSE(form.Loaded);
    EXPECT_EQ(line.CommPort(), 3);
    EXPECT_EQ(line.Settings(), "9600,e,7,2");
    EXPECT_EQ(w.settings.Modem_used, 0);
    EXPECT_EQ(w.settings.Modem_Initialization_String, "ATZ");
    EXPECT_EQ(ports.calls, 0);
}

TEST_F(PortDialog, APortWithoutAnItemIsKept) {
    line.SetCommPort(16);
    Ok([&] {
        EXPECT_EQ(form.cboPort.ListIndex, -1);
        EXPECT_EQ(form.chosenPort, 16);
    });
    EXPECT_EQ(line.CommPort(), 16);
}

TEST_F(PortDialog, AnOpenLineMovesToTheNewPort) {
    line.SetPortOpen(true);
    line.trace.clear();
    w.frmMain.mnuOpenPort.Checked = true;
    Ok([&] { SelectItem(w, form.cboPort, 4); });
    EXPECT_EQ(line.trace, "-3+5");
    EXPECT_TRUE(w.frmMain.mnuOpenPort.Checked);
}

TEST_F(PortDialog, ANewSpeedLeavesTheLineOpen) {
    line.SetPortOpen(true);
    line.trace.clear();
    Ok([&] { TypeItem(w, form.cboBaud, "2400"); });
    EXPECT_EQ(line.trace, "");
    EXPECT_EQ(line.Settings(), "2400,E,7,2");
}

TEST_F(PortDialog, ARefusedPortLeavesTheOldNumberAndAClosedLine) {
    line.SetPortOpen(true);
    w.frmMain.mnuOpenPort.Checked = true;
    line.refusedPort = 5;
    line.trace.clear();
    Ok([&] {
        SelectItem(w, form.cboPort, 4);
        TypeItem(w, form.cboBaud, "2400");
    });
    EXPECT_EQ(Box(), InvalidValue);
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(dialogs.signs, std::vector{BoxSign::Exclamation});
    EXPECT_EQ(line.CommPort(), 3);
    EXPECT_EQ(line.trace, "-3");
    EXPECT_EQ(line.Settings(), "2400,E,7,2");
    EXPECT_EQ(w.frmMain.Caption, "CUMERON - Port 3");
    EXPECT_TRUE(w.frmMain.mnuOpenPort.Checked);
}

TEST_F(PortDialog, APortThatDoesNotOpenLeavesTheOldNumber) {
    line.SetPortOpen(true);
    line.FailNextOpening(68);
    Ok([&] { SelectItem(w, form.cboPort, 4); });
    EXPECT_EQ(Box(), ErrorText(68));
    EXPECT_EQ(line.CommPort(), 3);
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(PortDialog, RefusedSettingsAreToldTwiceAndTheDialogStays) {
    EXPECT_TRUE(Stays([&] {
        SelectItem(w, form.cboPort, 4);
        TypeItem(w, form.cboBaud, "fast");
        form.OKButton.Click(w);
    }));
    EXPECT_EQ(Box(), InvalidValue);
    EXPECT_EQ(Box(), InvalidValue);
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(dialogs.signs, (std::vector{BoxSign::Exclamation, BoxSign::Exclamation}));
    EXPECT_EQ(line.Settings(), "9600,e,7,2");
    EXPECT_EQ(line.CommPort(), 5);
    EXPECT_NE(w.frmMain.Caption, "CUMERON - Port 5");
}

TEST_F(PortDialog, TheMouseOverThePortWarnsWhileItIsOpen) {
    Look([&] {
        form.frmPorts.MouseEnter(w);
        EXPECT_EQ(Box(), "no box");
        w.frmMain.mnuOpenPort.Checked = true;
        form.frmPorts.MouseEnter(w);
        EXPECT_EQ(Box(), "Close the port before changing it.");
    });
}

TEST_F(PortDialog, ShowsTheDeviceBehindTheNumber) {
    Look([&] {
        EXPECT_EQ(form.lblDevice.Caption, "/dev/a: present");
        SelectItem(w, form.cboPort, 3);
        EXPECT_EQ(form.lblDevice.Caption, "/dev/gone: not there");
        SelectItem(w, form.cboPort, 9);
        EXPECT_EQ(form.lblDevice.Caption, "no device");
    });
}

TEST_F(PortDialog, OffersTheDevicesSoThatTheyCanBeToldApart) {
    ports.devices.push_back({"/dev/c", "", ""});
    const std::vector<std::string> items = {"As it is", "/dev/a - Adapter (A1)",
                                            "/dev/b - Adapter (B2)", "/dev/c"};
    for (int showing = 0; showing < 2; ++showing) {
        Look([&] {
            EXPECT_EQ(form.cboDevice.Items, items);
            EXPECT_EQ(form.cboDevice.ListIndex, 0);
        });
    }
}

TEST_F(PortDialog, AChosenDeviceIsPairedWithTheChosenNumber) {
    Ok([&] {
        SelectItem(w, form.cboDevice, 2);
        SelectItem(w, form.cboPort, 6);
    });
    EXPECT_EQ(ports.pairs[7], "/dev/b");
    EXPECT_EQ(ports.pairs[3], "/dev/a");
    EXPECT_EQ(line.CommPort(), 7);
}

TEST_F(PortDialog, AnOpenLineIsOpenedAgainOnItsNewDevice) {
    line.SetPortOpen(true);
    line.trace.clear();
    Ok([&] { SelectItem(w, form.cboDevice, 2); });
    EXPECT_EQ(ports.pairs[3], "/dev/b");
    EXPECT_EQ(line.trace, "-3+3");
}

TEST_F(PortDialog, TheDeviceThatIsThereAlreadyIsNotPairedAgain) {
    line.SetPortOpen(true);
    line.trace.clear();
    Ok([&] { SelectItem(w, form.cboDevice, 1); });
    EXPECT_EQ(ports.calls, 0);
    EXPECT_EQ(line.trace, "");
}

TEST_F(PortDialog, AFailedPairingIsToldAndTheDialogStays) {
    ports.error = 70;
    EXPECT_TRUE(Stays([&] {
        SelectItem(w, form.cboDevice, 2);
        SelectItem(w, form.cboPort, 6);
        form.ChkModem.Value = 1;
        form.OKButton.Click(w);
    }));
    EXPECT_EQ(Box(), ErrorText(70));
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(dialogs.signs, std::vector{BoxSign::Exclamation});
    EXPECT_EQ(line.CommPort(), 3);
    EXPECT_EQ(w.settings.Modem_used, 0);
}

}  // namespace
}  // namespace cumeron
