#include "logging/playback.h"

#include <algorithm>
#include <utility>

#include "graphs/cloud_columns.h"
#include "graphs/profile_plot.h"
#include "graphs/time_axis.h"
#include "intake/classify.h"
#include "intake/decode.h"
#include "logging/export.h"
#include "logging/file_set.h"
#include "logging/log_file.h"
#include "logging/printing.h"
#include "logging/recent_files.h"
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

constexpr char Etx = '\x03', Eot = '\x04';
constexpr std::size_t FrameEndLength = 3;      // ETX CR LF
constexpr std::size_t ChecksumEndLength = 10;  // ETX, checksum, EOT CR LF and one more CR LF
constexpr std::string_view ChecksumStandIn = "1234567";  // of checksum and EOT CR LF
constexpr std::int16_t SkyRawMessage = 40;               // MessageId without instant values
constexpr int RingRefill = 29;  // records between the current one and the oldest of the ring
constexpr int TurnEvery = 5;    // messages of a play

bool IsKn(const Workstation& w) { return w.model.family == Family::KN; }

bool HasTwoLineEnds(const Workstation& w) { return IsKn(w) || w.model.family == Family::TQ60; }

// ---- One message ----

bool StandsBeforeEnd(std::string_view message, std::size_t places, char character) {
    return message.size() >= places && message[message.size() - places] == character;
}

void CutLineEnd(std::string& message) {
    message.resize(message.size() - std::min<std::size_t>(message.size(), 2));
}

// Makes the message the frame that it was; false for one that has no end.
bool RepairMessage(const Workstation& w, std::string& message) {
    const std::size_t places = IsKn(w) ? ChecksumEndLength : FrameEndLength;
    const bool whole = StandsBeforeEnd(message, places, Etx);
    const bool withoutChecksum = IsKn(w) && StandsBeforeEnd(message, FrameEndLength, Etx);
    const bool ofTq60 = w.model.family == Family::TQ60 && StandsBeforeEnd(message, places, Eot);
    if (!whole && !withoutChecksum && !ofTq60) return false;
    // So that fields counted from the end of the frame are found.
    if (IsKn(w) && !whole) message += ChecksumStandIn;
    // The reader took the line end along that stands behind the frame in the file.
    if (HasTwoLineEnds(w)) CutLineEnd(message);
    return true;
}

// FrameText as live reception makes it: a blank, and the frame from its header on. The header of
// RV10X is the start itself.
void ClassifyRecord(Workstation& w, std::string_view message) {
    std::size_t from = 0;
    if (w.model.family != Family::RV10X) {
        const std::size_t header = message.find(w.model.header);
        from = header == message.npos ? std::min<std::size_t>(1, message.size()) : header;
    }
    w.intake.FrameText.assign(1, ' ').append(message.substr(from));
    w.intake.MessageId = ClassifyMessage(w, w.intake.FrameText, w.intake.Payload);
}

ProfileSlotRecord& CurrentSlot(Workstation& w) {
    return w.graphs.ProfileRing.at(static_cast<std::size_t>(w.graphs.ProfileSlot));
}

void DecodeIntoSlot(Workstation& w, ProfileSlotRecord& slot) {
    slot.Valid = w.intake.MessageId != -1 ? -1 : 0;
    DecodeProfile(w, w.intake.Payload, slot.Profile, w.intake.MessageId);
}

void ShowReadings(Workstation& w, const OfflineRecord& record) {
    w.graphs.MessageTime = record.time;
    ClassifyRecord(w, record.message);
    if (w.intake.MessageId != SkyRawMessage) UpdateInstantValues(w, record.message);
}

// As the record stands in the file.
void ShowInMessageWindow(Workstation& w, const OfflineRecord& record) {
    AddToMessageWindow(w, "-" + DateAndTime(record.time) + "\r\n" + record.message);
}

// ---- Buttons, captions, boxes ----

void ShowOfflineButtons(Workstation& w, bool on) {
    auto& bar = w.frmMain.Toolbar1;
    for (ToolButton* button :
         {&bar.Start, &bar.Forward, &bar.Back, &bar.Play, &bar.Stop, &bar.CloseFile}) {
        button->Enabled = on;
        button->Visible = on;
    }
}

void EnableForwardAndPlay(Workstation& w, bool on) {
    w.frmMain.Toolbar1.Forward.Enabled = on;
    w.frmMain.Toolbar1.Play.Enabled = on;
}

void EnableStartAndBack(Workstation& w, bool on) {
    w.frmMain.Toolbar1.Start.Enabled = on;
    w.frmMain.Toolbar1.Back.Enabled = on;
}

void EnableLiveMenus(Workstation& w, bool on) {
    for (MenuEntry* entry : {&w.frmMain.mnuLogOn, &w.frmMain.mnuLogOff, &w.frmMain.mnuOpenPort}) {
        entry->Enabled = on;
    }
}

void EnableLiveButtons(Workstation& w, bool on) {
    w.frmMain.Toolbar1.OpenPort.Enabled = on;
    w.frmMain.Toolbar1.Log.Enabled = on;
}

void ShowBaseCaption(Workstation& w) { w.frmMain.Caption = w.shell.MainTitle; }

void Tell(Workstation& w, const char* text) { w.platform.dialogs.MessageBox(text, BoxButtons::Ok); }

void TellEnd(Workstation& w) {
    UpdateProgress(w);
    Tell(w, "End of file");
    EnableForwardAndPlay(w, false);
}

// ---- Opening and closing ----

std::string AskForFiles(Workstation& w) {
    FileQuestion question;
    question.title = "Off-Line File Open";
    question.filter = "Data files (*.dat)|*.dat|All Files (*.*)|*.*";
    question.fileName = w.offline.OfflineFileName;
    question.several = true;
    return w.platform.dialogs.ChooseFiles(question);
}

void LeaveLive(Workstation& w) {
    FrmMain& form = w.frmMain;
    mnuLogOff_Click(w);
    EnableLiveMenus(w, false);
    form.mnuOpenTerminal.Enabled = false;
    form.mnuFileOpen.Checked = true;
    EnableLiveButtons(w, false);
}

void ForgetMessages(Workstation& w) {
    w.graphs.HistoryIndex = 0;
    w.graphs.HistoryWrapped = 0;
}

void BeginReplay(Workstation& w) {
    w.graphs.LastGraphTime = 0;
    w.graphs.MessageTime = 0;
    ClearGraph(w);
    ResetIndicators(w);
    w.frmMain.tmrClock.SetEnabled(false);
    w.offline.OfflineRecordPos.assign(LongestOfflineFile + 1, 0);
    w.offline.OfflineMessageNo = 0;
    w.intake.IntervalSeekState = 0;
    ForgetMessages(w);
}

void ReplayChosen(Workstation& w) {
    if (w.frmMain.mnuFileOpen.Checked) CloseOfflineFile(w);
    EndExport(w);
    if (w.frmMain.mnuOpenPort.Checked) {
        return Tell(w, "Communication Port Open. Close Port to enter Off-line mode.");
    }
    LeaveLive(w);
    OpenSelected(w);
    ++w.offline.session;
    NoteRecentFile(w, w.offline.OfflineFileName);
    if (w.frmMain.mnuExcel.Checked) BeginExport(w);
    BeginReplay(w);
    ShowOfflineButtons(w, true);
    StepForward(w);
    PlayFile(w);
}

// kept: the menus come back and the buttons of port and log do not, until a file has been closed.
void GiveUpOpening(Workstation& w) {
    EnableLiveMenus(w, true);
    w.frmMain.mnuFileOpen.Checked = false;
    EnableLiveButtons(w, false);
    CloseOfflineFile(w);
    UpdateProgress(w);
    // kept: the mark of the export stays, and the next file that is opened is exported.
    CloseExportFile(w);
}

template <class Choice>
void OpenChosen(Workstation& w, Choice choose) {
    constexpr int cancelled = 32755;
    try {
        w.offline.PlayStopRequested = 0;
        TakeChosen(w, choose());
        ReplayChosen(w);
    } catch (const RuntimeError& error) {
        if (error.Number == cancelled) return;
        ReportError(w, error);
        GiveUpOpening(w);
    }
}

// ---- Forwards ----

[[noreturn]] void LeaveTooLongFile(Workstation& w) {
    Tell(w, "Too long off-line file");
    UnloadForm(w, w.frmMain);
    throw ProcessEnd{0};
}

// Everything up to the graph.
void TakeRecord(Workstation& w, const OfflineRecord& record) {
    OfflineState& offline = w.offline;
    offline.OfflineMessageNo = Add16(offline.OfflineMessageNo, 1);
    if (offline.OfflineMessageNo > LongestOfflineFile) LeaveTooLongFile(w);
    offline.OfflineRecordPos.at(static_cast<std::size_t>(offline.OfflineMessageNo)) =
        record.position;
    UpdateProgress(w);
    ShowReadings(w, record);
    DecodeIntoSlot(w, NextProfileSlot(w));
    if (w.frmMain.mnuExcel.Checked) {
        WriteExportRow(w, CurrentSlot(w).Profile, record.time, w.exporting.ExportFileNo,
                       record.message);
    }
}

void DrawRecord(Workstation& w) {
    const ProfileSlotRecord& slot = CurrentSlot(w);
    AddGraphColumn(w, slot.Profile, slot.Valid != 0);
}

// The next record of the file or, behind its last one, the first of the next file.
std::int16_t ReadOn(Workstation& w, OfflineRecord& record) {
    const std::int16_t kind = ReadRecord(w, record);
    if (kind != NoRecord || w.offline.interrupted || !OpenNextOfSet(w)) return kind;
    // kept: an empty file ends the play also in the middle of a set, where the caption names it.
    return ReadRecord(w, record);
}

void PlayRecord(Workstation& w, OfflineRecord& record, std::int16_t& turn) {
    ShowMessageTime(w, record.time);
    if (!RepairMessage(w, record.message)) return;
    TakeRecord(w, record);
    if (w.frmMain.mnuShowMessage.Checked) ShowInMessageWindow(w, record);
    if (w.frmMain.mnuLinePlot.Checked) {
        UpdateBackscatterPlot(w);
        turn = TurnEvery;  // the plot is to be seen
    }
    DrawRecord(w);
}

// True when the end was reached.
bool PlayRecords(Workstation& w) {
    OfflineState& offline = w.offline;
    OfflineRecord record;
    std::int16_t turn = 0;
    bool ended = false;
    const int session = offline.session;
    while (offline.OfflineFileNo != 0 && offline.session == session &&
           offline.PlayStopRequested == 0 && !ended) {
        // kept: 16 bits; a set of more messages than they count pauses there with an error.
        turn = Add16(turn, 1);
        if (ReadOn(w, record) != NoRecord) {
            PlayRecord(w, record, turn);
        } else {
            ended = !offline.interrupted;
        }
        if (turn % TurnEvery == 0) GiveTurn(w);
    }
    return ended;
}

// A page of what was played, and a turn for the operator, who may close the file in it.
void PrintReplay(Workstation& w) {
    if (!w.frmMain.mnuAutoPrint.Checked) return;
    const int session = w.offline.session;
    PrintGraph(w, PrintErrors::ToBox);
    w.platform.events.DoEvents();
    // A stop that comes now finds nothing to stop.
    if (w.offline.session == session) w.offline.PlayStopRequested = 0;
}

void FinishPlay(Workstation& w) {
    if (w.offline.PlayStopRequested == 0) return TellEnd(w);
    w.offline.PlayStopRequested = 0;
    UpdateBackscatterPlot(w);
    EnableForwardAndPlay(w, true);
}

// ---- Backwards ----

// The slot that the last record leaves takes the record at the far end of the ring.
void RefillRing(Workstation& w, int number) {
    OfflineRecord record;
    const std::int16_t kind = SeekRecord(w, number, record);
    if (w.offline.interrupted) return;
    if (kind == NoRecord) return Tell(w, "Saved message invalid");
    if (HasTwoLineEnds(w)) CutLineEnd(record.message);
    ClassifyRecord(w, record.message);
    DecodeIntoSlot(w, CurrentSlot(w));
}

void WindBackRing(Workstation& w) {
    GraphState& graphs = w.graphs;
    const auto last = static_cast<std::int16_t>(graphs.ProfileRing.size() - 1);
    graphs.ProfileSlot = graphs.ProfileSlot == 0 ? last : Add16(graphs.ProfileSlot, -1);
}

void ShowRecordBefore(Workstation& w, const OfflineRecord& record) {
    WindBackRing(w);
    ShowReadings(w, record);
    AddGraphColumnBack(w, CurrentSlot(w).Profile);
    UpdateBackscatterPlot(w);
    ShowInMessageWindow(w, record);
}

}  // namespace

void OpenOffline(Workstation& w) {
    OpenChosen(w, [&] { return AskForFiles(w); });
}

void OpenDropped(Workstation& w, const std::vector<std::string>& names) {
    if (names.empty()) return;
    std::string chosen = JoinedChoice(w, names);
    if (chosen.empty()) return Tell(w, "Only files of one folder can be opened together.");
    OpenChosen(w, [&] { return chosen; });
}

void CloseOffline(Workstation& w) {
    ShowOfflineButtons(w, false);
    ClearGraph(w);
    ResetIndicators(w);
    UpdateBackscatterPlot(w);
    w.graphs.MessageTime = w.platform.clock.Now();
    w.intake.MessageClockTime = TimeOf(w.graphs.MessageTime);
    w.graphs.LastGraphTime = 0;
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    UpdateAxes(w);
    EmptyPicture(w);
    w.frmMain.tmrClock.SetEnabled(true);
    CloseOfflineFile(w);
    ShowBaseCaption(w);
    w.frmMain.mnuFileOpen.Checked = false;
    EnableLiveMenus(w, true);
    EnableLiveButtons(w, true);
    ++w.offline.session;
    w.offline.OfflineRecordPos.assign(1, 0);
    w.offline.progress = {};
    ForgetMessages(w);
    w.offline.PlayStopRequested = -1;
    EndExport(w);
}

void GotoFileStart(Workstation& w) {
    if (w.offline.reading) return;
    OpenFirstOfSet(w);
    if (w.offline.file) w.offline.file->Seek(0);
    ClearGraph(w);
    ResetIndicators(w);
    w.offline.OfflineMessageNo = 0;
    ForgetMessages(w);
    EnableForwardAndPlay(w, true);
    StepForward(w);
    UpdateBackscatterPlot(w);
    UpdateAxes(w);
}

void StepForward(Workstation& w) {
    if (w.offline.reading) return;
    OfflineRecord record;
    if (ReadRecord(w, record) == NoRecord) {
        if (!w.offline.interrupted) TellEnd(w);
        return;
    }
    ShowMessageTime(w, record.time);
    if (!RepairMessage(w, record.message)) return;
    TakeRecord(w, record);
    DrawRecord(w);
    UpdateAxes(w);
    UpdateBackscatterPlot(w);
    ShowInMessageWindow(w, record);
}

void StepBack(Workstation& w) {
    OfflineState& offline = w.offline;
    if (offline.reading) return;
    if (offline.OfflineMessageNo <= 1) return Tell(w, "Start of File");
    CurrentSlot(w).Valid = 0;
    --offline.OfflineMessageNo;
    offline.interrupted = false;
    if (offline.OfflineMessageNo > RingRefill) RefillRing(w, offline.OfflineMessageNo - RingRefill);
    // The file was closed meanwhile, or another one opened: what is shown now is not of this step.
    if (offline.interrupted) return;
    OfflineRecord record;
    const std::int16_t kind = SeekRecord(w, offline.OfflineMessageNo, record);
    if (offline.interrupted) return;
    UpdateProgress(w);
    ShowMessageTime(w, record.time);
    if (kind == NoRecord) return Tell(w, "Saved message invalid");
    if (RepairMessage(w, record.message)) ShowRecordBefore(w, record);
    EnableForwardAndPlay(w, true);
}

void PlayFile(Workstation& w) {
    if (w.offline.reading || w.offline.OfflineFileNo == 0) return;
    w.intake.ReplayBusy = -1;
    EnableForwardAndPlay(w, false);
    EnableStartAndBack(w, false);
    w.frmMain.Toolbar1.Stop.Enabled = true;
    const int session = w.offline.session;
    try {
        const bool atEnd = PlayRecords(w) && w.offline.PlayStopRequested == 0;
        if (atEnd && w.offline.session == session) PrintReplay(w);
        if (w.offline.OfflineFileNo == 0) {
            w.intake.ReplayBusy = 0;
            return;
        }
        // Another file was opened in a turn, and its own play has left the window as it is to be.
        if (w.offline.session != session) return;
        FinishPlay(w);
    } catch (const RuntimeError& error) {
        ReportError(w, error);
    }
    w.intake.ReplayBusy = 0;
    EnableStartAndBack(w, true);
    w.frmMain.Toolbar1.Stop.Enabled = false;
}

void ToolbarStop_Click(Workstation& w) { w.offline.PlayStopRequested = -1; }

void ToolbarCloseFile_Click(Workstation& w) {
    w.frmMain.mnuOpenTerminal.Enabled = true;
    CloseOffline(w);
}

void ShowCurrentRecord(Workstation& w) {
    if (!w.frmMain.mnuFileOpen.Checked || w.offline.reading) return;
    OfflineRecord record;
    SeekRecord(w, w.offline.OfflineMessageNo, record);
    if (w.offline.interrupted || record.message.empty()) return;
    AddToMessageWindow(w, "\r\n" + Format(record.time, "Short Date") + "-" +
                              Format(record.time, "ttttt") + " " + record.message);
}

void UpdateProgress(Workstation& w) {
    const OfflineState& offline = w.offline;
    ReplayProgress& progress = w.offline.progress;
    if (!offline.file) {
        progress = {};
        return;
    }
    progress.position = offline.file->Position();
    progress.size = offline.file->Size();
    progress.records = offline.OfflineMessageNo;
    const bool set = offline.OfflineFileCount > 1;
    progress.file = set ? offline.OfflineFileIndex - 1 : 1;
    progress.files = set ? offline.OfflineFileCount - 1 : 1;
}

}  // namespace cumeron
