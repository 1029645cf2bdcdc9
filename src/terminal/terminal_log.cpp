// A log of the terminal, byte for byte; only the head's first line ends, in CR:
//
//     -CUMERON Terminal logfile<CR>
//     -File created: DATE TIME<what was shown>-File Closed: DATE TIME
//
// A log that goes on in an old file stands behind what the file held.
#include "terminal/terminal_log.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t LogNumber = 1;  // logs are known by their names; any number but 0 serves
constexpr int Cancelled = 32755;
constexpr const char* Title = "CUMERON Terminal";

void Tell(Workstation& w, const RuntimeError& error) {
    w.platform.dialogs.MessageBox(error.what(), BoxButtons::Ok, BoxSign::Exclamation);
}

// The name of the log, with the file made ready for it; "" when the operator does not want it.
// Raises as Files::Delete.
std::string ChooseLog(Workstation& w) {
    FileQuestion question;
    question.title = "Open Communications Log File";
    question.filter = "Log Files (*.LOG)|*.log|All Files (*.*)|*.*";
    question.forWriting = true;
    question.asksItself = true;
    std::string name;
    try {
        name = w.platform.dialogs.ChooseFiles(question);
    } catch (const RuntimeError& error) {
        if (error.Number != Cancelled) throw;
        return "";
    }
    if (!w.platform.files.Exists(name)) return name;
    const Answer answer = w.platform.dialogs.MessageBox("Replace existing file - " + name + "?",
                                                        BoxButtons::YesNoCancel);
    if (answer == Answer::Cancel) return "";
    if (answer == Answer::Yes) w.platform.files.Delete(name);
    return name;
}

void ShowLog(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    const bool open = form.log.number != 0;
    form.Caption = open ? Title + (" - " + form.log.name) : Title;
    form.tbrToolBar.Log.Value = open ? 1 : 0;
    form.mnuOpenLog.Enabled = !open;
    form.mnuCloseLog.Enabled = open;
}

std::string ClosingLine(Workstation& w) {
    return "-File Closed: " + DateAndTime(w.platform.clock.Now());
}

// How much of a text that could not be written whole is in the file.
std::size_t WrittenPart(Workstation& w, const TerminalLog& log, std::size_t length) {
    std::int64_t size = log.size;
    ResumeNext([&] { size = w.platform.files.OpenForReading(log.name)->Size(); });
    const auto most = static_cast<std::int64_t>(length);
    return static_cast<std::size_t>(std::clamp<std::int64_t>(size - log.size, 0, most));
}

// Asks after each failure whether to go on behind what has been written; false when not.
bool WriteAsking(Workstation& w, TerminalLog& log, std::string_view text) {
    while (true) {
        try {
            w.platform.files.Append(log.name, text);
            log.size += static_cast<std::int64_t>(text.size());
            return true;
        } catch (const RuntimeError& error) {
            const std::size_t written = WrittenPart(w, log, text.size());
            log.size += static_cast<std::int64_t>(written);
            text.remove_prefix(written);
            const Answer answer =
                w.platform.dialogs.MessageBox(error.what(), BoxButtons::RetryCancel, BoxSign::Stop);
            if (answer == Answer::Cancel) return false;
        }
    }
}

void EndLog(Workstation& w) {
    w.frmTerminal.log = {};
    ShowLog(w);
}

}  // namespace

void mnuOpenLog_Click(Workstation& w) {
    TerminalLog log;
    try {
        log.name = ChooseLog(w);
        if (!log.name.empty()) {
            w.platform.files.Append(log.name, "-CUMERON Terminal logfile\r-File created: " +
                                                  DateAndTime(w.platform.clock.Now()));
            log.size = w.platform.files.OpenForReading(log.name)->Size();
            log.number = LogNumber;
        }
    } catch (const RuntimeError& error) {
        Tell(w, error);
    }
    w.frmTerminal.log = log;
    ShowLog(w);
}

void mnuCloseLog_Click(Workstation& w) {
    // What arrives while a box stands open is not to get into the closing line.
    TerminalLog closing = std::exchange(w.frmTerminal.log, {});
    WriteAsking(w, closing, ClosingLine(w));
    ShowLog(w);
}

void tbrToolBarLog_Click(Workstation& w) {
    if (w.frmTerminal.log.number == 0) {
        mnuOpenLog_Click(w);
    } else {
        mnuCloseLog_Click(w);
    }
}

void WriteTerminalLog(Workstation& w, std::string_view text) {
    TerminalLog& log = w.frmTerminal.log;
    if (log.number == 0 || WriteAsking(w, log, text)) return;
    // The operator has given the file up: its closing line is tried, and nothing more is asked.
    ResumeNext([&] { w.platform.files.Append(log.name, ClosingLine(w)); });
    EndLog(w);
}

}  // namespace cumeron
