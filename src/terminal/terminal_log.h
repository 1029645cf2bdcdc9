// The log of the terminal: what its box is given, between a head and a closing line. The terminal's
// menu and button open and close it. No file is held open between two calls.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cumeron {

struct Workstation;

struct TerminalLog {
    std::int16_t number = 0;  // of the file; 0: no log is open
    std::string name;         // in full
    std::int64_t size = 0;    // bytes that the file has
};

// Asks for a file and writes the head of the log. Errors are told in a box.
void mnuOpenLog_Click(Workstation& w);
void mnuCloseLog_Click(Workstation& w);
// The button: opens a log, or closes the open one.
void tbrToolBarLog_Click(Workstation& w);
// Adds to the open log, if there is one. A failed write asks whether to try again; the answer
// Cancel closes the log.
void WriteTerminalLog(Workstation& w, std::string_view text);

}  // namespace cumeron
