// The serial port and the modem: opening, closing, dialling, hanging up, line faults. The menu,
// the toolbar, the start and the intake call it.
#pragma once

#include <string>

namespace cumeron {

struct Workstation;

void mnuOpenPort_Click(Workstation& w);
void mnuClosePort_Click(Workstation& w);
// Whether opening and closing tell of it in the panel Errors of the main window; the terminal
// leaves that to its end.
enum class PortNews { Shown, Silent };
// Opens the closed port, dials, and brings menu and buttons of the main window in step. Raises as
// SerialLine::SetPortOpen, and 57 when the modem cannot be written to.
void OpenPort(Workstation& w, PortNews news);
// Hangs up and closes the open port; the same of menu and buttons.
void ClosePort(Workstation& w, PortNews news);
// Menu and buttons of the main window show what the port is.
void ShowPortState(Workstation& w);
// Sends text and CR unless the carrier is up, and throws away what the modem answers until a
// second passes without input.
void SendModemInit(Workstation& w, const std::string& text);
// Drops the call by a falling edge of DTR; goes on past any error.
void HangUpModem(Workstation& w);
// The event of the serial control.
void comCTLine_OnComm(Workstation& w);

}  // namespace cumeron
