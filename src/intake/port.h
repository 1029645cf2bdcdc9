// The serial port and the modem: opening, closing, dialling, hanging up, line faults. The menu,
// the toolbar, the start and the intake call it.
#pragma once

#include <string>

namespace cumeron {

struct Workstation;

void mnuOpenPort_Click(Workstation& w);
void mnuClosePort_Click(Workstation& w);
// Sends text and CR unless the carrier is up, and throws away what the modem answers until a
// second passes without input.
void SendModemInit(Workstation& w, const std::string& text);
// Drops the call by a falling edge of DTR; goes on past any error.
void HangUpModem(Workstation& w);
// The event of the serial control.
void comCTLine_OnComm(Workstation& w);
// Returns when InBufferCount has stood still for a second.
void WaitInputQuiet(Workstation& w);
// Drains the line after a fault and shows what was dropped in the message window.
void RecoverFromError(Workstation& w);

}  // namespace cumeron
