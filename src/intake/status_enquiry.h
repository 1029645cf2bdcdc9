// The enquiry for the instrument's full status message, over the line that carries its data, and
// the waiting for a quiet line. The status window and the intake ask; the port's event handler
// drains the line after a fault.
#pragma once

#include <string>

namespace cumeron {

struct Workstation;

// Opens the instrument's service line, asks, shows the reply in frmSmsg and closes the line again;
// a silent instrument takes some nine seconds. Events run meanwhile, the tick does nothing. With
// the port closed a box says so. Never raises.
void EnquireStatus(Workstation& w);

// Lets other events run for a second, counted from the whole second of the start.
void WaitOneSecond(Workstation& w);
// Returns when InBufferCount has stood still for a second: as long as the instrument goes on
// sending there is no end. Raises what the line raises.
void WaitInputQuiet(Workstation& w);
// What has come in when wanted is in it, after four waits for a quiet line at most; else "".
std::string WaitForReply(Workstation& w, const std::string& wanted);
// Drains the line after a fault and shows what was dropped in the message window.
void RecoverFromError(Workstation& w);

}  // namespace cumeron
