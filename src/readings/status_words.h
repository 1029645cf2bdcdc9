// Turns the bits of the status word into words, for frmStatus and the status log.
#pragma once

#include <string>
#include <string_view>

namespace cumeron {

struct Workstation;

// Line when text is empty, else text, CR, line.
std::string AppendLine(const std::string& text, std::string_view line);
// The alarm and warning bits, lines separated by CR.
std::string AlarmWarningText(const Workstation& w);
// Fills StatusText, sets the buttons of frmStatus, and has frmStatus painted anew.
void BuildStatusText(Workstation& w);

}  // namespace cumeron
