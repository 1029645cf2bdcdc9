#include "intake/intake.h"

#include <algorithm>

#include "graphs/cloud_columns.h"
#include "graphs/graph_history.h"
#include "graphs/profile_plot.h"
#include "intake/classify.h"
#include "intake/decode.h"
#include "intake/interval.h"
#include "intake/port.h"
#include "intake/status_enquiry.h"
#include "logging/log_file.h"
#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "readings/instant_values.h"
#include "shell/indicators.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::size_t LongestReceiveBuffer = 16384;
constexpr std::size_t ModemWordTail = 10;      // as long as "NO CARRIER"
constexpr std::int32_t OverdueMargin = 10;     // seconds beyond the interval
constexpr std::int32_t SeekingPatience = 130;  // seconds of silence while the interval is unknown
constexpr std::int16_t IntervalKnown = 4;      // IntervalSeekState from here on
constexpr std::int16_t RedialTicks = 31;
constexpr std::string_view Connect = "CONNECT";
constexpr std::string_view NoCarrier = "NO CARRIER";
constexpr std::string_view InstantCaption = "Instant Values";
constexpr std::string_view LastCaption = "Last Values";

double Now(Workstation& w) { return w.platform.clock.Now(); }

// ---- HandleMessage ----

void TellRejected(Workstation& w, std::string_view frame) {
    AddToMessageWindow(w, "Receiving Error, got the following message\r\n" + std::string(frame));
}

std::string_view WordsFor(FrameVerdict verdict, const ModelTable& model) {
    switch (verdict) {
        case FrameVerdict::NoHeader:
            return model.noHeader;
        case FrameVerdict::BadEnd:
            return "Frame Error";
        case FrameVerdict::BadChecksum:
            return "Checksum Error";
        case FrameVerdict::Good:
            break;
    }
    return "";
}

// Counts for silence: MessageTime and all that is shown stay.
void RejectFrame(Workstation& w, std::string_view frame, FrameVerdict verdict) {
    w.intake.FrameErrorCount = Add16(w.intake.FrameErrorCount, 1);
    SetErrorsPanel(w, WordsFor(verdict, w.model), Red);
    TellRejected(w, frame);
}

void TellConnected(Workstation& w) {
    SetErrorsPanel(w, "Connected", Black);
    w.intake.RedialCount = 0;
}

void DialAgain(Workstation& w) {
    SetErrorsPanel(w, "No Carrier", Red);
    w.intake.IntervalSeekState = 0;
    if (w.settings.Modem_used != 0 && !w.settings.Modem_Initialization_String.empty())
        SendModemInit(w, w.settings.Modem_Initialization_String);
    // kept: two words here and one in the tick, so that the operator can tell which of the two
    // dialled.
    SetErrorsPanel(w, "Re Dial", Black);
}

void AcceptFrame(Workstation& w, std::string_view frame, std::string_view body, double now) {
    w.intake.FrameText.assign(1, ' ').append(body);
    if (w.shell.MessageWindowOn != 0)
        AddToMessageWindow(w, "The following message received: " + Format(now, "Short Date") + " " +
                                  Format(now, "ttttt") + "\r\n" + std::string(frame));
    w.intake.MessageClockTime = TimeOf(now);
    w.graphs.MessageTime = now;
}

const ProfileSlotRecord& StoreMessage(Workstation& w) {
    const IntakeState& intake = w.intake;
    ProfileSlotRecord& slot = NextProfileSlot(w);
    slot.Valid = intake.MessageId != -1 ? -1 : 0;
    DecodeProfile(w, intake.Payload, slot.Profile, intake.MessageId);

    GraphRecord& record = NextHistoryRecord(w);
    DecodeProfile(w, intake.Payload, record.Profile, intake.MessageId);
    record.Time = w.graphs.MessageTime;
    record.Valid = slot.Valid;
    for (std::size_t i = 0; i < w.frmMain.CloudValue.size(); ++i)
        record.CloudValue[i] = w.frmMain.CloudValue[i].Caption;
    record.CloudText = w.frmMain.lblCloudtext[0].Caption;
    record.MessageId = intake.MessageId;
    record.Scale = intake.ProfileScale;
    return slot;
}

void NoteStatusChange(Workstation& w, std::string_view frame) {
    if (w.settings.Status_Log != 1) return;
    const std::string status = Mid(frame, w.model.PosStatus, 5);
    if (status == w.intake.PreviousStatus) return;
    w.intake.PreviousStatus = status;
    if (w.frmMain.mnuLogOn.Checked) WriteStatusNote(w);
    EnquireStatus(w);
}

void SendDownTheRoad(Workstation& w, std::string_view frame) {
    w.intake.MessageId = ClassifyMessage(w, w.intake.FrameText, w.intake.Payload);
    if (w.intake.MessageId != 40) UpdateInstantValues(w, frame);
    const ProfileSlotRecord& slot = StoreMessage(w);
    if (w.frmMain.mnuLinePlot.Checked) UpdateBackscatterPlot(w);
    AddGraphColumn(w, slot.Profile, slot.Valid != 0);
    if (w.frmMain.mnuLogOn.Checked) WriteLogRecord(w, w.logging.LogFileNumber, frame);
    NoteStatusChange(w, frame);
}

void TakeMessage(Workstation& w, std::string_view frame) {
    const double now = Now(w);
    // Before any check: whatever arrives tells when the instrument sends.
    MeasureInterval(w, now);
    if (frame.find(Connect) != frame.npos) return TellConnected(w);
    if (frame.find(NoCarrier) != frame.npos) return DialAgain(w);
    const FrameCheck check = CheckFrame(frame, w.model);
    if (check.verdict != FrameVerdict::Good) return RejectFrame(w, frame, check.verdict);
    AcceptFrame(w, frame, check.body, now);
    SendDownTheRoad(w, frame);
}

void TellTrapped(Workstation& w, std::string_view frame, int number, std::string_view description,
                 int code) {
    AddToMessageWindow(w, "Ihme error: " + std::to_string(number) + " " + std::string(description) +
                              " " + std::to_string(code));
    TellRejected(w, frame);
}

// Whatever a frame brings about ends here; what was done up to then stays done.
void TakeMessageTrapped(Workstation& w, std::string_view frame) {
    try {
        TakeMessage(w, frame);
    } catch (const RuntimeError& error) {
        TellTrapped(w, frame, error.Number, error.what(), error.SystemCode);
    } catch (const std::exception& error) {
        TellTrapped(w, frame, 0, error.what(), 0);
    }
}

// ---- The tick ----

void HandleModemWord(Workstation& w) {
    std::string& buffer = w.intake.ReceiveBuffer;
    for (const std::string_view word : {Connect, NoCarrier}) {
        const std::size_t at = buffer.find(word);
        if (at == buffer.npos) continue;
        // kept: the word stays in the buffer and counts again at each piece that follows, until a
        // frame begins. A copy goes down, since dialling lets other events run.
        return HandleMessage(w, buffer.substr(at));
    }
    buffer.erase(0, buffer.size() - std::min(buffer.size(), ModemWordTail));
}

void HandleFoundFrame(Workstation& w, const FrameSearch& search, std::string_view incoming) {
    std::string& buffer = w.intake.ReceiveBuffer;
    const std::string frame = buffer.substr(search.at, search.length);
    HandleMessage(w, frame);
    buffer.clear();
    // kept: looked for in the new piece and not behind the frame, so that a frame that came in one
    // piece stands in the buffer again and is handled once more at the next reception.
    const std::size_t next = incoming.find(w.model.FrameStart);
    if (next != incoming.npos) buffer = incoming.substr(next);
}

void SearchFrame(Workstation& w, std::string_view incoming) {
    const FrameSearch search = FindFrame(w.intake.ReceiveBuffer, w.model);
    switch (search.what) {
        case Found::Nothing:
            return HandleModemWord(w);
        case Found::Beginning:
            w.intake.ReceiveBuffer.erase(0, search.at);
            return;
        case Found::Frame:
            return HandleFoundFrame(w, search, incoming);
    }
}

void Receive(Workstation& w) {
    std::string& buffer = w.intake.ReceiveBuffer;
    SerialLine& line = w.comCTLine();
    if (!line.PortOpen() || line.InBufferCount() < 1) {
        // kept: a second without input ends what had begun, also in the middle of a frame.
        buffer.clear();
        return;
    }
    std::string incoming;
    ResumeNext([&] { incoming = line.Input(); });
    buffer += incoming;
    if (buffer.size() > LongestReceiveBuffer) buffer = incoming;
    SearchFrame(w, incoming);
}

void ShowClock(Workstation& w, double day, double time, int colour) {
    w.frmMain.lblDateTime.Caption = Format(day, "d-mmm") + " " + Format(time, "hh:nn:ss");
    w.frmMain.lblDateTime.ForeColor = QBColor(colour);
}

void RenameValues(Workstation& w, std::string_view from, std::string_view to, int colour) {
    Frame& values = w.frmMain.fraValues;
    if (values.Caption.find(from) == values.Caption.npos) return;
    values.ForeColor = QBColor(colour);
    values.Caption = std::string(to) + " " + w.graphs.UnitLabel;
}

void WatchSilence(Workstation& w, double now, std::int32_t age) {
    const bool overdue =
        age > w.settings.Message_Interval + OverdueMargin && w.comCTLine().PortOpen();
    const bool patient = w.intake.IntervalSeekState < IntervalKnown && age <= SeekingPatience;
    if (overdue && !patient) {
        ShowClock(w, w.graphs.MessageTime, w.intake.MessageClockTime, Red);
        SetErrorsPanel(w, "NO MESSAGE", Red);
        RenameValues(w, InstantCaption, LastCaption, Red);
        return;
    }
    ShowClock(w, now, now, Black);
    if (!overdue) RenameValues(w, LastCaption, InstantCaption, Black);
}

void Redial(Workstation& w, std::int32_t age) {
    if (age <= 2 * w.settings.Message_Interval || w.settings.Modem_used == 0) return;
    if (!w.comCTLine().PortOpen() || w.comCTLine().CDHolding()) return;
    if (w.intake.RedialCount < RedialTicks) {
        ++w.intake.RedialCount;
        return;
    }
    w.intake.IntervalSeekState = 0;
    const std::string& text = w.settings.Modem_Initialization_String;
    if (!text.empty()) ResumeNext([&] { SendModemInit(w, text); });
    SetErrorsPanel(w, "ReDial", Black);
    w.intake.RedialCount = 0;
}

}  // namespace

void HandleMessage(Workstation& w, std::string_view frame) {
    w.intake.IntakeBusy = -1;
    SetBusyPointer(w);
    SetActionPanel(w, "Handling message");
    ResumeNext([&] { TakeMessageTrapped(w, frame); });
    SetActionPanel(w, "");
    SetDefaultPointer(w);
    w.intake.IntakeBusy = 0;
}

void tmrClock_Tick(Workstation& w) {
    const IntakeState& intake = w.intake;
    // kept: IntakeBusy is -1 and never 1 while a message is handled, so that this test lets a tick
    // through that comes in while the modem is dialled.
    if (intake.IntakeBusy == 1 || intake.EnquiryBusy == 1 || intake.ReplayBusy == -1) return;
    ResumeNext([&] { Receive(w); });
    const double now = Now(w);
    const std::int32_t age = DateDiffSeconds(w.graphs.MessageTime, now);
    ResumeNext([&] { WatchSilence(w, now, age); });
    ResumeNext([&] { Redial(w, age); });
    ResumeNext([&] { RotateLog(w); });
    ResumeNext([&] { WatchDisk(w); });
}

}  // namespace cumeron
