// What goes over the line; the instrument answers each command with its prompt in the end:
//
//     OPEN<CR>                        CEILO>
//     status<CR> or GET STATUS<CR>    lines of text, CEILO>
//     CLOSE<CR>
#include "intake/status_enquiry.h"

#include <cmath>

#include "logging/log_file.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "readings/status_words.h"
#include "shell/indicators.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr const char* Prompt = "CEILO";
constexpr int MostWaits = 4;  // for a quiet line, for each reply

// The text is cut rarely and then deeply, so that putting a reply in front stays cheap.
constexpr std::size_t CutAbove = 15000;
constexpr std::size_t CutTo = 8000;

double SecondsSinceMidnight(Workstation& w) {
    constexpr double milliseconds = 86400000;
    return std::round(TimeOf(w.platform.clock.Now()) * milliseconds) / 1000;
}

const char* CommandOf(const ModelTable& model) {
    return model.family == Family::KN ? "status\r" : "GET STATUS\r";
}

void BeginEnquiry(Workstation& w) {
    w.intake.EnquiryBusy = Add16(w.intake.EnquiryBusy, 1);
    ShowForm(w, w.frmSmsg);
    ++w.frmSmsg.BroughtToFront;
    w.frmMain.Enabled = false;
    w.frmSmsg.MousePointer = BusyPointer;
    SetBusyPointer(w);
    SetErrorsPanel(w, "Status Msg", Black);
    w.platform.events.DoEvents();  // the window is painted
}

// Each statement goes on past its error: a device that vanishes in the middle leaves the enquiry
// without a reply, and that is what the window says.
std::string AskInstrument(Workstation& w, const std::string& command) {
    SerialLine& line = w.comCTLine();
    ResumeNext([&] { line.Output("OPEN\r"); });
    // What comes back is not looked at: an instrument whose line is open already need not answer.
    ResumeNext([&] { WaitForReply(w, Prompt); });
    ResumeNext([&] { line.Output(command); });
    std::string reply;
    ResumeNext([&] { reply = WaitForReply(w, Prompt); });
    if (reply.empty()) {
        reply = "Status message enquiring failed!\r\n";
    } else {
        reply.resize(reply.find(Prompt));
    }
    ResumeNext([&] { line.Output("CLOSE\r"); });
    ResumeNext([&] { WaitInputQuiet(w); });
    return reply;
}

// CR LF behind every line, whichever of the two the instrument sent.
// kept: a line feed alone ends no line, and goes; instruments end theirs with a carriage return.
std::string WithRegularLineEnds(const std::string& text) {
    std::string regular;
    for (const char c : text) {
        if (c != '\n') regular += c;
        if (c == '\r') regular += '\n';
    }
    return regular;
}

void ShowReply(Workstation& w, const std::string& reply) {
    TextBox& box = w.frmSmsg.stsMessage;
    const std::string head = "\r\n" + DateAndTime(w.platform.clock.Now()) + "\r\n" +
                             w.frmMain.sbaStatus.Status.Text + "\r\n" + AlarmWarningText(w) +
                             "\r\n";
    box.Text = WithRegularLineEnds(head + "\r\n" + reply + "\r\n" + box.Text);
    if (box.Text.size() > CutAbove) box.Text.resize(CutTo);
    box.SelStart = 0;
}

void EndEnquiry(Workstation& w) {
    // Messages that came in between the replies are in pieces.
    ResumeNext([&] { w.comCTLine().ClearInput(); });
    w.frmSmsg.MousePointer = DefaultPointer;
    SetDefaultPointer(w);
    w.frmMain.Enabled = true;
    w.intake.EnquiryBusy = 0;
}

}  // namespace

void EnquireStatus(Workstation& w) {
    if (!w.comCTLine().PortOpen()) {
        w.platform.dialogs.MessageBox(
            "THE COMMUNICATION PORT IS CLOSED.\r\n"
            "THE STATUS MESSAGE FROM CEILOMETER CAN NOT BE ASKED.",
            BoxButtons::Ok);
        return;
    }
    const std::string command = CommandOf(w.model);
    ResumeNext([&] { BeginEnquiry(w); });
    const std::string reply = AskInstrument(w, command);
    ResumeNext([&] { ShowReply(w, reply); });
    if (w.frmMain.mnuLogOn.Checked && w.settings.Status_Log == 1) {
        ResumeNext([&] { WriteStatusReply(w, reply); });
    }
    EndEnquiry(w);
}

// Midnight, or a clock that is set back, ends it early.
void WaitOneSecond(Workstation& w) {
    const double start = std::floor(SecondsSinceMidnight(w));
    double passed = 0;
    do {
        w.platform.events.WaitEvents();
        passed = SecondsSinceMidnight(w) - start;
    } while (passed < 1 && passed >= -10);
}

void WaitInputQuiet(Workstation& w) {
    int before = 0;
    int count = 0;
    do {
        before = count;
        count = w.comCTLine().InBufferCount();
        WaitOneSecond(w);
    } while (count != before);
}

std::string WaitForReply(Workstation& w, const std::string& wanted) {
    std::string collected;
    for (int wait = 0; wait < MostWaits && collected.find(wanted) == collected.npos; ++wait) {
        WaitInputQuiet(w);
        collected += w.comCTLine().Input();
    }
    return collected.find(wanted) != collected.npos ? collected : "";
}

void RecoverFromError(Workstation& w) {
    SetActionPanel(w, "Recovery from error");
    ResumeNext([&] { WaitInputQuiet(w); });
    std::string dumped;
    ResumeNext([&] {
        if (w.comCTLine().PortOpen()) dumped = w.comCTLine().Input();
    });
    AddToMessageWindow(w, "The following message dumped:\r\n" + dumped);
    SetActionPanel(w, "");
}

}  // namespace cumeron
