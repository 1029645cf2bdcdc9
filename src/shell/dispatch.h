// The one place that calls event handlers. Both platforms go through it for every click, key,
// timer and line event.
#pragma once

#include "platform/controls.h"

namespace cumeron {

// Calls the handler (an empty one is none). A run-time error that nobody handled is told in a box,
// "Run-time error 'N':" CR LF CR LF and its text, and ends the process (throws ProcessEnd 1).
void DispatchEvent(Workstation& w, const Handler& handler);
// A due timer. Its handler is never entered again while it runs: what comes due meanwhile fires
// once afterwards, unless the timer was disabled. Nobody sits there to read a box, so an error
// skips the rest of that event, goes to the message window and ends nothing.
void DispatchTimer(Workstation& w, Timer& timer);
// The event of the serial control; errors as for timers.
void DispatchOnComm(Workstation& w);

}  // namespace cumeron
