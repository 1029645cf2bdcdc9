#include "terminal/terminal_keys.h"

#include "platform/runtime/errors.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int Escape = 27;

// A paste goes out no faster than the slowest line of the settings dialog carries it: 300 baud are
// 27 characters a second. So nothing piles up on the way, and an instrument that is busy with each
// character keeps up. Behind a line it gets the time to carry the line out and to answer.
constexpr int CharacterPause = 40;  // ms
constexpr int LinePause = 500;      // ms

// False, and a box says so, when the device fails.
bool Send(Workstation& w, char c) {
    try {
        w.comCTLine().Output({&c, 1});
    } catch (const RuntimeError& error) {
        ReportError(w, error);
        return false;
    }
    return true;
}

bool PasteUnderWay(const FrmTerminal& form) { return form.paste.sent < form.paste.text.size(); }

void ShowPaste(FrmTerminal& form) {
    const std::size_t left = form.paste.text.size() - form.paste.sent;
    form.sbrStatus.Paste.Visible = left > 0;
    form.sbrStatus.Paste.Text = left > 0 ? "Pasting: " + std::to_string(left) + " left" : "";
}

// Where the instrument echoes nothing, each character appears as a typed one does.
void ShowOwn(Workstation& w, char c) {
    if (w.terminal.TerminalEchoOff == 0) return;
    TextBox& box = w.frmTerminal.txtTerm;
    box.Text += c == '\r' ? std::string("\r\n") : std::string(1, c);
    box.SelStart = static_cast<int>(box.Text.size());
}

// CR behind each line, as the Enter key sends it, whatever the clipboard has.
std::string WithReturns(const std::string& text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool second = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (!second) lines += text[i] == '\n' ? '\r' : text[i];
    }
    return lines;
}

void SendNextOfPaste(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    const char c = form.paste.text[form.paste.sent++];
    form.tmrPaste.SetEnabled(false);  // a box about a failure stands still
    if (!Send(w, c)) return DropPaste(w);
    form.tmrPaste.Interval = c == '\r' ? LinePause : CharacterPause;
    form.tmrPaste.SetEnabled(PasteUnderWay(form));
    ShowPaste(form);
    ShowOwn(w, c);
}

}  // namespace

int txtTerm_KeyPress(Workstation& w, int key) {
    FrmTerminal& form = w.frmTerminal;
    if (!w.comCTLine().PortOpen()) return key;
    if (PasteUnderWay(form)) {
        // Keys queue up behind the paste, so that no line is torn; Escape ends it.
        if (key == Escape) {
            DropPaste(w);
        } else {
            form.paste.text += static_cast<char>(key);
            ShowPaste(form);
        }
        return 0;
    }
    Send(w, static_cast<char>(key));
    if (w.terminal.TerminalEchoOff != 0) return key;
    form.txtTerm.SelStart = static_cast<int>(form.txtTerm.Text.size());
    return 0;
}

bool txtTerm_Paste(Workstation& w, const std::string& text) {
    FrmTerminal& form = w.frmTerminal;
    if (!w.comCTLine().PortOpen()) return false;
    const bool underWay = PasteUnderWay(form);
    if (!underWay) form.paste = {};
    form.paste.text += WithReturns(text);
    if (!underWay && PasteUnderWay(form)) SendNextOfPaste(w);
    ShowPaste(form);
    return true;
}

// Timers of the form stop with it, so that nothing is sent behind its end.
void tmrPaste_Tick(Workstation& w) { SendNextOfPaste(w); }

void DropPaste(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    form.paste = {};
    form.tmrPaste.SetEnabled(false);
    ShowPaste(form);
}

}  // namespace cumeron
