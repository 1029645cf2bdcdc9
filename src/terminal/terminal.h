// The terminal, frmTerminal: a session with the instrument by hand on the port of the main window,
// whose clock stands still meanwhile. The menu opens it; the port's event handler brings what
// arrives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/form.h"
#include "terminal/terminal_log.h"

namespace cumeron {

struct TerminalState {
    std::int16_t TerminalOpen = 0;     // -1 while the terminal is shown: it has the line
    std::int16_t TerminalEchoOff = 0;  // 0: only what the instrument echoes appears; else each key
};

// What of a paste is still to be sent, with the keys that were typed behind it.
struct PendingPaste {
    std::string text;  // lines end in CR
    std::size_t sent = 0;
};

struct FrmTerminal : Form {
    MenuEntry mnuFile, mnuOpenLog, mnuCloseLog, mnuFileExit;
    MenuEntry mnuPort, mnuOpenPort, mnuClosePort, mnuPortSettings;
    // The bars, by key; heights in pixels.
    struct ToolBar {
        ToolButton Openport, Closeport, Log;
        double Height = 44;
        bool Visible = true;
    } tbrToolBar;
    struct StatusBar {
        Panel Status, Settings, ConnectTime;
        Panel Paste;  // shown while a paste is under way
        double Height = 28;
        bool Visible = true;
    } sbrStatus;
    TextBox txtTerm;
    Timer Timer1;    // counts the time of the connection
    Timer Timer2;    // takes a status text away
    Timer tmrPaste;  // sends the next character of a paste

    double StartTime = 0;  // when the port was opened, or the terminal on an open port
    TerminalLog log;
    PendingPaste paste;

    FrmTerminal();
    ControlList Controls() override;
    void Reset() override;
};

// What a block of received bytes does to the box: first that many of its last characters go, then
// the text is added.
struct TerminalBlock {
    std::size_t takenBack = 0;
    std::string text;
};
// Pure; takes any bytes. A backspace takes the character before it, each carriage return becomes CR
// LF, line feeds go.
TerminalBlock BlockOf(std::string_view data);

// Shows the terminal and returns when it is closed.
void mnuOpenTerminal_Click(Workstation& w);
// Takes all that waits in the port, and shows and logs it.
void DataArrived(Workstation& w);
// Buttons, menus and panels of both windows show what the port is.
void FollowPort(Workstation& w);

}  // namespace cumeron
