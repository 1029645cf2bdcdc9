#include "terminal/terminal.h"

#include <algorithm>

#include "intake/port.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "shell/dialogs.h"
#include "shell/indicators.h"
#include "terminal/terminal_keys.h"
#include "workstation.h"

namespace cumeron {
namespace {

// The box is cut often enough to keep adding to it cheap, and seldom enough not to be noticed.
constexpr std::size_t CutAbove = 16000;
constexpr std::size_t CutBy = 4096;

void CutHead(std::string& text) {
    if (text.size() > CutAbove) text.erase(0, CutBy);
}

// kept: a backspace behind the end of a line takes half of the line's end, one character as
// anywhere else; what comes next stands on the new line all the same.
void ShowData(Workstation& w, std::string_view data) {
    TextBox& box = w.frmTerminal.txtTerm;
    CutHead(box.Text);
    const TerminalBlock block = BlockOf(data);
    box.Text.resize(box.Text.size() - std::min(block.takenBack, box.Text.size()));
    box.Text += block.text;
    box.SelStart = static_cast<int>(box.Text.size());
    WriteTerminalLog(w, block.text);
}

}  // namespace

TerminalBlock BlockOf(std::string_view data) {
    constexpr char backspace = 8;
    TerminalBlock block;
    std::string kept;
    for (const char c : data) {
        if (c != backspace) {
            kept += c;
        } else if (!kept.empty()) {
            kept.pop_back();
        } else {
            ++block.takenBack;
        }
    }
    for (const char c : kept) {
        if (c != '\n') block.text += c;
        if (c == '\r') block.text += '\n';
    }
    return block;
}

void mnuOpenTerminal_Click(Workstation& w) {
    w.terminal.TerminalOpen = -1;
    w.frmMain.tmrClock.SetEnabled(false);
    // A wait for the modem, or for a quiet line, may stand still under the terminal; it has put the
    // event of reception off, without which the terminal would stay deaf.
    w.comCTLine().RThreshold = 1;
    w.intake.onCommBusy = false;
    ReportAndGoOn(w, [&] { ShowDialog(w, w.frmTerminal); });
    w.terminal.TerminalOpen = 0;
    // Its end has come in the terminal, if at all: what follows must not be taken for it.
    w.intake.ReceiveBuffer.clear();
    w.frmMain.tmrClock.SetEnabled(true);
    // Nothing was told about the port meanwhile; of an open one the clock will tell.
    if (!w.comCTLine().PortOpen()) SetErrorsPanel(w, "OFF-line", Red);
}

// In a loop, so that what arrives while a block is shown does not wait for the next event.
void DataArrived(Workstation& w) {
    while (w.frmTerminal.Loaded && w.comCTLine().InBufferCount() > 0) {
        ShowData(w, w.comCTLine().Input());
        w.platform.events.DoEvents();
    }
}

void FollowPort(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    const bool open = w.comCTLine().PortOpen();
    form.tbrToolBar.Openport.Value = w.frmMain.Toolbar1.OpenPort.Value;
    form.tbrToolBar.Closeport.Value = w.frmMain.Toolbar1.ClosePort.Value;
    form.mnuOpenPort.Checked = w.frmMain.mnuOpenPort.Checked;
    form.mnuClosePort.Checked = w.frmMain.mnuClosePort.Checked;
    form.sbrStatus.Settings.Text = "Settings: " + (open ? w.comCTLine().Settings() : "");
    if (!open) {
        DropPaste(w);
        form.Timer1.SetEnabled(false);
        form.sbrStatus.ConnectTime.Text = "";
    } else if (!form.Timer1.Enabled()) {
        form.StartTime = w.platform.clock.Now();
        form.Timer1.SetEnabled(true);
    }
}

}  // namespace cumeron
