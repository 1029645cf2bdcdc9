#include "intake/port.h"

#include "intake/status_enquiry.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "terminal/terminal.h"
#include "workstation.h"

namespace cumeron {
namespace {

void PressPortButtons(Workstation& w, bool open) {
    w.frmMain.Toolbar1.OpenPort.Value = open ? 1 : 0;
    w.frmMain.Toolbar1.ClosePort.Value = open ? 0 : 1;
}

void CheckPortEntries(Workstation& w, bool open) {
    w.frmMain.mnuOpenPort.Checked = open;
    w.frmMain.mnuClosePort.Checked = !open;
}

void DropModemAnswer(Workstation& w) {
    SerialLine& line = w.comCTLine();
    bool quiet = false;
    while (!quiet) {
        WaitOneSecond(w);
        quiet = line.InBufferCount() == 0;
        if (!quiet) line.Input();
    }
}

void SetLineForReception(SerialLine& line) {
    line.ParityReplace.clear();
    line.InputLen = 0;
    line.RThreshold = 1;
    line.SThreshold = 1;
}

void CountFrameError(Workstation& w) {
    w.intake.FrameErrorCount = Add16(w.intake.FrameErrorCount, 1);
}

// Goes on past any error: a full counter must not keep the line from being drained.
void TellLineFault(Workstation& w) {
    switch (w.comCTLine().CommEvent) {
        case CommEventOverrun:
            SetErrorsPanel(w, "Overrun", Red);
            break;
        case CommEventReceiveParity:
            SetErrorsPanel(w, "Parity Error", Red);
            ResumeNext([&] { CountFrameError(w); });
            break;
        default:
            return;  // the tick takes what was received
    }
    ResumeNext([&] { RecoverFromError(w); });
}

}  // namespace

void OpenPort(Workstation& w, PortNews news) {
    w.intake.IntervalSeekState = 0;
    w.comCTLine().SetPortOpen(true);
    CheckPortEntries(w, true);
    const std::string& text = w.settings.Modem_Initialization_String;
    const bool dials = w.settings.Modem_used != 0 && !text.empty();
    if (dials) SendModemInit(w, text);
    if (!w.comCTLine().PortOpen()) return;  // closed while the modem was waited for
    if (news == PortNews::Shown) {
        SetErrorsPanel(w, dials ? "Dialling" : "NO MESSAGE", dials ? Black : Red);
    }
    PressPortButtons(w, true);
    // The watch over silence starts from here.
    w.graphs.MessageTime = w.platform.clock.Now();
}

void ClosePort(Workstation& w, PortNews news) {
    HangUpModem(w);
    w.comCTLine().SetPortOpen(false);
    ShowPortState(w);
    if (news == PortNews::Shown) SetErrorsPanel(w, "OFF-line", Red);
    SetStatusPanel(w, "", Black);
}

void ShowPortState(Workstation& w) {
    const bool open = w.comCTLine().PortOpen();
    CheckPortEntries(w, open);
    PressPortButtons(w, open);
}

void mnuOpenPort_Click(Workstation& w) {
    if (w.comCTLine().PortOpen()) {
        w.frmMain.Toolbar1.OpenPort.Value = 1;
        return;
    }
    try {
        OpenPort(w, PortNews::Shown);
    } catch (const RuntimeError& error) {
        ReportError(w, error);
        w.frmMain.Toolbar1.OpenPort.Value = 0;
    }
}

void mnuClosePort_Click(Workstation& w) {
    if (!w.comCTLine().PortOpen()) {
        w.frmMain.Toolbar1.ClosePort.Value = 1;
        return;
    }
    ClosePort(w, PortNews::Shown);
}

void SendModemInit(Workstation& w, const std::string& text) {
    SerialLine& line = w.comCTLine();
    if (!line.CDHolding()) {
        line.Output(text + "\r");
        line.RThreshold = 0;  // the modem's answer raises no event
        DropModemAnswer(w);
    }
    line.RThreshold = 1;
    line.SetDTREnable(true);
    line.SetRTSEnable(true);
}

void HangUpModem(Workstation& w) {
    SerialLine& line = w.comCTLine();
    bool before = false;
    ResumeNext([&] { before = line.DTREnable(); });
    ResumeNext([&] { line.SetDTREnable(true); });
    ResumeNext([&] { line.SetDTREnable(false); });
    ResumeNext([&] { line.SetDTREnable(before); });
}

void comCTLine_OnComm(Workstation& w) {
    if (w.intake.onCommBusy) return;
    w.intake.onCommBusy = true;
    SetLineForReception(w.comCTLine());
    // Whatever fails in it, the next event is heard. The terminal has the line for itself.
    const auto handle = w.terminal.TerminalOpen != 0 ? DataArrived : TellLineFault;
    ResumeNext([&] { handle(w); });
    w.comCTLine().RThreshold = 1;
    w.intake.onCommBusy = false;
}

}  // namespace cumeron
