// Start and stop: numbering of running copies, choice of the settings file, the order of the
// start, and the end of the process.
#pragma once

#include <cstdint>
#include <string>

namespace cumeron {

struct Workstation;

struct ShellState {
    std::int16_t InstanceNumber = 0;
    std::string SettingsFile;  // bare name, "CUMERON1.INI"
    std::string MainTitle;
    std::int16_t MessageWindowOn = 0;  // -1 while frmDebug is shown
    bool startFailed = false;          // a bad value broke the start off: keys are unread
};

// Form_Initialize, Form_Load, then the first show of frmMain with its Resize. Never throws but
// ProcessEnd.
void StartProgram(Workstation& w);
// Numbers this copy, reads the settings, sets up model, graphs, view and line. An error is told and
// leaves the rest undone.
void Form_Load(Workstation& w);
// Builds shell.MainTitle from Main_Caption, or from the port number without one, and shows it.
void MakeTitle(Workstation& w);
// The menu's exit: no question; ends the process (throws ProcessEnd).
void mnuExit_Click(Workstation& w);
// The window's close box: asks; true keeps the program.
bool Form_QueryUnload(Workstation& w);
// Closes the port, frees the copy's mark, saves if wanted, ends the process (throws ProcessEnd).
void Form_Unload(Workstation& w);

}  // namespace cumeron
