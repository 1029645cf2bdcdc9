// The talking side of the instrument: service commands, and the dial-up modem in front of it.
// No clock and no line of its own; times are seconds on the instrument's clock. Called by the
// live loop with what the line brought.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace cumeron::sim {

enum class ModemState { None, Idle, Dialling, Connected };

struct Service {
    std::function<std::string(double time)> statusReport;
    // Modem. An empty prefix means that there is none.
    std::string dialPrefix;
    double connectAfter = 5;   // seconds from the dial string to "CONNECT"
    double dropCallAfter = 0;  // seconds from "CONNECT" to "NO CARRIER", 0: never
    bool echo = false;         // characters come back while the service line is open
    // State
    ModemState modem = ModemState::None;
    double modemDue = 0;   // time of "CONNECT" or "NO CARRIER"
    bool open = false;     // between OPEN and CLOSE, when no messages are sent
    double lastHeard = 0;  // time of the last command
    std::string line;      // what has come in since the last CR
};

// Sets the state from the modem's settings.
void StartService(Service& service);

// Takes bytes from the line, gives what is answered at once. Unknown bytes do no harm.
std::string HearBytes(Service& service, std::string_view bytes, double time);

// What the instrument or the modem says on its own because of the time. It closes a service
// line on which nothing was said for ten minutes, since a caller may have gone away.
std::string PassTime(Service& service, double time);

// False while the service line is open or no call stands.
bool SendsMessages(const Service& service);

}  // namespace cumeron::sim
