// ConfigScrn, "Communication Settings": port number, line settings and modem string of comCTLine,
// and the device behind the number. The main menu and the terminal show it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/form.h"

namespace cumeron {

struct FrmConfigScrn : Form {
    Frame frmPorts;
    ComboBox cboPort;
    ComboBox cboBaud;
    Frame fraDataBits, fraStopBits, fraParity;
    OptionButton Data7, Data8, Stop1, Stop2, NoParity, OddParity, EvenParity;
    CheckBox ChkModem;
    Frame fraModem;
    TextBox txtModemInitialization;
    // The device behind the chosen number, and another one to put there.
    Label lblDevice;
    ComboBox cboDevice;
    Button OKButton, CancelButton;

    // What the clicks have chosen, in the words of the line's settings.
    std::string baudText, parityLetter, dataBits, stopBits;
    std::int16_t chosenPort = 0;
    std::vector<std::string> deviceNames;  // of the items of cboDevice behind the first

    FrmConfigScrn();
    ControlList Controls() override;
    void Reset() override;
};

void mnuPortSettings_Click(Workstation& w);

}  // namespace cumeron
