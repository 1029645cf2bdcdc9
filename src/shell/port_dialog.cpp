#include "shell/port_dialog.h"

#include "workstation.h"

namespace cumeron {

namespace {

constexpr int Ports = 15;

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

}  // namespace cumeron
