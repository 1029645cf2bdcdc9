#include "shell/port_dialog.h"

#include <sstream>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/dialogs.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int Ports = 15;

// A click on an option sets its text and nothing else.
struct OptionRow {
    OptionButton FrmConfigScrn::*option;
    std::string FrmConfigScrn::*text;
    const char* value;
};

constexpr OptionRow OptionRows[] = {
    {&FrmConfigScrn::Data7, &FrmConfigScrn::dataBits, "7"},
    {&FrmConfigScrn::Data8, &FrmConfigScrn::dataBits, "8"},
    {&FrmConfigScrn::NoParity, &FrmConfigScrn::parityLetter, "N"},
    {&FrmConfigScrn::EvenParity, &FrmConfigScrn::parityLetter, "E"},
    {&FrmConfigScrn::OddParity, &FrmConfigScrn::parityLetter, "O"},
    {&FrmConfigScrn::Stop1, &FrmConfigScrn::stopBits, "1"},
    {&FrmConfigScrn::Stop2, &FrmConfigScrn::stopBits, "2"},
};

void ChooseByValue(Workstation& w, std::string FrmConfigScrn::*text, const std::string& value) {
    FrmConfigScrn& form = w.ConfigScrn;
    for (const OptionRow& row : OptionRows) {
        if (row.text == text && row.value == value) ChooseOption(w, form, form.*row.option);
    }
}

// kept: a parity, data or stop bits that the dialog has no button for leave it without a choice,
// and OK asks for one, by the refusal of the line.
void ShowLineSettings(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    std::istringstream settings(w.comCTLine().Settings());
    std::string parity, dataBits, stopBits;
    std::getline(settings, form.baudText, ',');
    std::getline(settings, parity, ',');
    std::getline(settings, dataBits, ',');
    std::getline(settings, stopBits, ',');
    TypeItem(w, form.cboBaud, form.baudText);
    ChooseByValue(w, &FrmConfigScrn::parityLetter, UpperCase(parity));
    ChooseByValue(w, &FrmConfigScrn::dataBits, dataBits);
    ChooseByValue(w, &FrmConfigScrn::stopBits, stopBits);
}

// Description and serial number tell two adapters of one kind apart.
std::string DeviceText(const SerialDevice& device) {
    std::string text = device.name;
    if (!device.description.empty()) text += " - " + device.description;
    if (!device.serialNumber.empty()) text += " (" + device.serialNumber + ")";
    return text;
}

void OfferDevices(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    form.cboDevice.Items = {"As it is"};
    form.deviceNames.clear();
    for (const SerialDevice& device : w.platform.ports.Devices()) {
        form.cboDevice.Items.push_back(DeviceText(device));
        form.deviceNames.push_back(device.name);
    }
    SelectItem(w, form.cboDevice, 0);
}

void ShowDevice(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    PortMap& ports = w.platform.ports;
    const std::string device = ports.DeviceOf(form.chosenPort);
    const char* presence = ports.IsPresent(form.chosenPort) ? ": present" : ": not there";
    form.lblDevice.Caption = device.empty() ? "no device" : device + presence;
}

void ConfigScrn_Load(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    form.Left = (w.platform.screen.width * TwipsPerPixel - form.Width) / 2;
    form.Top = (w.platform.screen.height * TwipsPerPixel - form.Height) / 2;
    KeepNormalPlace(form);
    OfferDevices(w);
    // Port 16 has no item; it stays chosen all the same.
    form.chosenPort = ToInt16(w.comCTLine().CommPort());
    SelectItem(w, form.cboPort, form.chosenPort - 1);
    form.txtModemInitialization.Text = w.settings.Modem_Initialization_String;
    form.ChkModem.Value = w.settings.Modem_used != 0 ? 1 : 0;
    ShowLineSettings(w);
}

void cboPort_Click(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    if (form.cboPort.ListIndex >= 0) form.chosenPort = ToInt16(form.cboPort.ListIndex + 1);
    ShowDevice(w);
}

// It only warns: OK moves an open line over to another port.
void frmPorts_MouseEnter(Workstation& w) {
    if (!w.frmMain.mnuOpenPort.Checked) return;
    w.platform.dialogs.MessageBox("Close the port before changing it.", BoxButtons::Ok);
}

void Tell(Workstation& w, const RuntimeError& error) {
    w.platform.dialogs.MessageBox(error.what(), BoxButtons::Ok, BoxSign::Exclamation);
}

enum class Pairing { Unchanged, Changed, Failed };

Pairing PairChosenDevice(Workstation& w) {
    const FrmConfigScrn& form = w.ConfigScrn;
    if (form.cboDevice.ListIndex < 1) return Pairing::Unchanged;
    const auto chosen = static_cast<std::size_t>(form.cboDevice.ListIndex - 1);
    const std::string& device = form.deviceNames.at(chosen);
    if (device == w.platform.ports.DeviceOf(form.chosenPort)) return Pairing::Unchanged;
    try {
        w.platform.ports.Pair(form.chosenPort, device);
    } catch (const RuntimeError& error) {
        Tell(w, error);
        return Pairing::Failed;
    }
    return Pairing::Changed;
}

// An open line is closed for the change and opened again on the new port. After an error the old
// number is in force, and the line stays closed.
void MoveToChosenPort(Workstation& w) {
    SerialLine& line = w.comCTLine();
    const int before = line.CommPort();
    const bool wasOpen = line.PortOpen();
    try {
        if (wasOpen) line.SetPortOpen(false);
        line.SetCommPort(w.ConfigScrn.chosenPort);
        if (wasOpen) line.SetPortOpen(true);
    } catch (const RuntimeError& error) {
        Tell(w, error);
        ResumeNext([&] { line.SetCommPort(before); });
    }
}

// False when the line refuses them.
bool TakeLineSettings(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    form.baudText = Trim(form.cboBaud.Text);
    try {
        w.comCTLine().SetSettings(form.baudText + "," + form.parityLetter + "," + form.dataBits +
                                  "," + form.stopBits);
    } catch (const RuntimeError& error) {
        // kept: a refusal is told twice, so that a box that was clicked away in a hurry is read.
        Tell(w, error);
        Tell(w, error);
        return false;
    }
    return true;
}

void OKButton_Click(Workstation& w) {
    FrmConfigScrn& form = w.ConfigScrn;
    const Pairing pairing = PairChosenDevice(w);
    if (pairing == Pairing::Failed) return;
    w.settings.Modem_used = form.ChkModem.Value == 1 ? 1 : 0;
    w.settings.Modem_Initialization_String = form.txtModemInitialization.Text;
    const bool otherPort = form.chosenPort != w.comCTLine().CommPort();
    if (otherPort || pairing == Pairing::Changed) MoveToChosenPort(w);
    if (!TakeLineSettings(w)) return;
    MakeTitle(w);
    UnloadForm(w, form);
}

void CancelButton_Click(Workstation& w) { UnloadForm(w, w.ConfigScrn); }

}  // namespace

FrmConfigScrn::FrmConfigScrn() {
    Name = "ConfigScrn";
    Caption = "Communication Settings";
    Width = 480 * TwipsPerPixel;
    Height = 400 * TwipsPerPixel;
    frmPorts.Caption = "&Com Port";
    for (int number = 1; number <= Ports; ++number) {
        cboPort.Items.push_back("com" + std::to_string(number));
    }
    cboBaud.Items = {"300", "600", "1200", "2400", "4800", "9600", "19200"};
    cboBaud.Editable = true;
    fraDataBits.Caption = "&Data Bits";
    fraStopBits.Caption = "&Stop Bits";
    fraParity.Caption = "&Parity";
    Data7.Caption = "7";
    Data8.Caption = "8";
    Stop1.Caption = "1";
    Stop2.Caption = "2";
    NoParity.Caption = "None";
    OddParity.Caption = "Odd";
    EvenParity.Caption = "Even";
    ChkModem.Caption = "Modem";
    fraModem.Caption = "Modem Initialization String";
    txtModemInitialization.Text = "ATD";
    OKButton.Caption = "OK";
    CancelButton.Caption = "Cancel";
    frmPorts.MouseEnter = frmPorts_MouseEnter;
    cboPort.Click = cboPort_Click;
    for (const OptionRow& row : OptionRows) {
        (this->*row.option).Click = [row](Workstation& w) { w.ConfigScrn.*row.text = row.value; };
    }
    OKButton.Click = OKButton_Click;
    CancelButton.Click = CancelButton_Click;
    Load = ConfigScrn_Load;
}

ControlList FrmConfigScrn::Controls() {
    return {{"frmPorts", -1, "", &frmPorts},
            {"cboPort", -1, "frmPorts", &cboPort},
            {"lblDevice", -1, "frmPorts", &lblDevice},
            {"cboDevice", -1, "frmPorts", &cboDevice},
            {"cboBaud", -1, "", &cboBaud},
            {"fraDataBits", -1, "", &fraDataBits},
            {"Data7", -1, "fraDataBits", &Data7},
            {"Data8", -1, "fraDataBits", &Data8},
            {"fraStopBits", -1, "", &fraStopBits},
            {"Stop1", -1, "fraStopBits", &Stop1},
            {"Stop2", -1, "fraStopBits", &Stop2},
            {"fraParity", -1, "", &fraParity},
            {"NoParity", -1, "fraParity", &NoParity},
            {"OddParity", -1, "fraParity", &OddParity},
            {"EvenParity", -1, "fraParity", &EvenParity},
            {"ChkModem", -1, "", &ChkModem},
            {"fraModem", -1, "", &fraModem},
            {"txtModemInitialization", -1, "fraModem", &txtModemInitialization},
            {"OKButton", -1, "", &OKButton},
            {"CancelButton", -1, "", &CancelButton}};
}

void FrmConfigScrn::Reset() { *this = FrmConfigScrn(); }

void mnuPortSettings_Click(Workstation& w) { ShowDialog(w, w.ConfigScrn); }

}  // namespace cumeron
