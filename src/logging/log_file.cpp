// A data log; every line ends in CR LF:
//
//     -Ceilometer Logfile_            a blank at its end
//     -File created: DATE TIME
//     -2026-11-15 14:41:40            20 characters: when the record was written
//     <the message, byte for byte, from its frame start to its frame end>
//     <CR LF>
//     ... further records
//     -File Closed: DATE TIME         missing when the program died or the disk filled up
//
// A log that is opened twice in an hour goes on behind its closed line with new head lines.
#include "logging/log_file.h"

#include <algorithm>

#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "readings/status_words.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t LogNumber = 1;  // logs are known by their names; any number but 0 serves
constexpr std::int16_t Rv10x = 10;     // model code
constexpr int DiskFull = 61;
constexpr std::int64_t LongestRecord = 65536;  // bytes; the intake takes no message as long
constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view StampLine = "\n-dddd-dd-dd dd:dd:dd\r\n";  // d: a digit

// How a record ends: the frame end of its model and the line end behind it.
constexpr std::string_view RecordEnds[] = {"\x03\r\n\r\n", "\x04\r\n\r\n", "\r\n\x04\r\n"};
constexpr std::string_view HeadLines[] = {"\n-Ceilometer Logfile ",
                                          "\n-File created: ", "\n-File Closed: "};

double Now(Workstation& w) { return w.platform.clock.Now(); }

bool IsStampAt(std::string_view text, std::size_t at) {
    const std::string_view found = text.substr(at, StampLine.size());
    return found.size() == StampLine.size() &&
           std::equal(found.begin(), found.end(), StampLine.begin(), [](char c, char pattern) {
               return pattern == 'd' ? c >= '0' && c <= '9' : c == pattern;
           });
}

// Where the last record begins, at the end of the line before it; npos when there is none.
std::size_t LastStamp(std::string_view text) {
    std::size_t at = text.rfind("\n-");
    while (at != text.npos && !IsStampAt(text, at)) {
        at = at == 0 ? text.npos : text.rfind("\n-", at - 1);
    }
    return at;
}

std::string EndOfFile(Files& files, const std::string& name) {
    const auto file = files.OpenForReading(name);
    const std::int64_t length = std::min(file->Size(), LongestRecord);
    file->Seek(file->Size() - length);
    std::string text(static_cast<std::size_t>(length), '\0');
    text.resize(file->Read(text.data(), text.size()));
    return text;
}

// What has to go in front of the next text: nothing, or the end of a record that a crash or a full
// disk cut. A reader takes the cut record up to that end, drops it, and finds what follows.
std::string EndOfBreak(Workstation& w, const std::string& name) {
    Files& files = w.platform.files;
    if (!files.Exists(name) || EndsWhole(EndOfFile(files, name))) return "";
    // The blank behind the ETX keeps a cut message from passing for a whole one.
    return w.settings.CEILOMETER == Rv10x ? "\r\n\x03 \r\n" : "\r\n\r\n";
}

// A log in the current folder stays where it was opened when the program goes to another folder.
// kept: with drives such a name follows the program.
std::string PlaceOf(Workstation& w, const std::string& name) {
    const Files& files = w.platform.files;
    const std::string& folder = w.logging.openedIn;
    const bool stays = files.Style() == PathStyle::Windows || name.empty() ||
                       name.starts_with('/') || files.CurrentFolder() == folder;
    return stays ? name : WithSeparator(PathStyle::Posix, folder, name);
}

// In one write, so that a crash finds the text written or not.
void AppendToLog(Workstation& w, const std::string& text) {
    const LogState& log = w.logging;
    const std::string name = PlaceOfLog(w);
    const std::string ending = log.LogWriteOk == 1 ? "" : EndOfBreak(w, name);
    w.platform.files.AppendSafely(name, ending + text);
}

void TurnOffFullLog(Workstation& w) {
    // kept: the button stays pressed and the panel tells why the log is off, until the operator
    // turns it on again.
    w.frmMain.mnuLogOn.Checked = false;
    w.frmMain.mnuLogOff.Checked = true;
    SetLogPanel(w, "DISK FULL");
}

void BeginLog(Workstation& w, double now) {
    LogState& log = w.logging;
    const Settings& settings = w.settings;
    Files& files = w.platform.files;
    const std::string name =
        InLogFolder(files.Style(), settings.Log_File_Path, LogName(now, settings.File_Char));
    log.LogDrive = DriveOf(files.Style(), settings.Log_File_Path, files.CurrentFolder());
    files.AppendSafely(name, EndOfBreak(w, name) + "-Ceilometer Logfile \r\n-File created: " +
                                 DateAndTime(now) + "\r\n");
    log.LogFileName = name;
    log.openedIn = files.CurrentFolder();
    log.LogWriteOk = 1;
}

}  // namespace

std::string LogName(double now, std::string_view fileChar) {
    return std::string(fileChar) + Format(now, "yy").back() + Format(now, "mm") +
           Format(now, "dd") + Format(now, "hh") + ".DAT";
}

std::string InLogFolder(PathStyle style, const std::string& folder, const std::string& name) {
    // kept: nothing goes in front of the name for the root of a drive, or any folder told with a
    // backslash at its end; the log settings have made that folder the current one.
    const bool isCurrent =
        folder.empty() || (style == PathStyle::Windows && folder.ends_with('\\'));
    return isCurrent ? name : WithSeparator(style, folder, name);
}

std::string WithSeparator(PathStyle style, std::string folder, const std::string& name) {
    if (style == PathStyle::Windows) return folder + "\\" + name;
    if (folder.ends_with('/')) folder.pop_back();
    return folder + "/" + name;
}

std::string DriveOf(PathStyle style, const std::string& folder, const std::string& current) {
    if (style == PathStyle::Windows) {
        const bool hasDrive = folder.size() >= 2 && folder[1] == ':';
        return (hasDrive ? folder : current).substr(0, 2);
    }
    if (folder.empty()) return current;
    return folder.starts_with('/') ? folder : WithSeparator(style, current, folder);
}

bool EndsWhole(std::string_view end) {
    if (end.empty()) return true;
    if (!end.ends_with(LineEnd)) return false;
    const std::string text = "\n" + std::string(end);
    const std::size_t stamp = LastStamp(text);
    if (stamp == text.npos) return true;  // head lines alone
    const std::string_view record = std::string_view(text).substr(stamp);
    return std::ranges::any_of(RecordEnds, [&](auto e) { return record.ends_with(e); }) ||
           std::ranges::any_of(HeadLines, [&](auto h) { return record.find(h) != record.npos; });
}

std::int16_t OpenLogFile(Workstation& w) {
    LogState& log = w.logging;
    std::int16_t number = 0;
    try {
        const double now = Now(w);
        BeginLog(w, now);
        number = LogNumber;
        if (w.settings.Status_Log == 1) {
            log.StatusLogFile = log.LogFileName.substr(0, log.LogFileName.size() - 3) + "sta";
        }
        log.LogSliceStart = SliceStart(now, w.settings.File_Length);
    } catch (const RuntimeError& error) {
        if (log.ReportLogErrors != 1) return number;
        ReportError(w, error);
        return 0;
    }
    return number;
}

void WriteLogRecord(Workstation& w, std::int16_t number, std::string_view message) {
    try {
        if (number != 0) {
            AppendToLog(w, "-" + Format(Now(w), "yyyy-mm-dd hh:nn:ss") + "\r\n" +
                               std::string(message) + "\r\n");
        }
    } catch (const RuntimeError& error) {
        if (error.Number == DiskFull) {
            TurnOffFullLog(w);
        } else {
            w.logging.LogWriteOk = 0;
        }
        return;
    }
    w.logging.LogWriteOk = 1;
}

std::string PlaceOfLog(Workstation& w) { return PlaceOf(w, w.logging.LogFileName); }

void WriteClosedLine(Workstation& w) {
    AppendToLog(w, "-File Closed: " + DateAndTime(Now(w)) + "\r\n");
}

void WriteStatusNote(Workstation& w) {
    w.platform.files.AppendSafely(PlaceOf(w, w.logging.StatusLogFile),
                                  DateAndTime(Now(w)) + "\r\n" + w.frmMain.sbaStatus.Status.Text +
                                      "\r\n" + AlarmWarningText(w) + "\r\n");
}

void WriteStatusReply(Workstation& w, std::string_view reply) {
    w.platform.files.AppendSafely(w.logging.StatusLogFile, std::string(reply) + "\r\n");
}

}  // namespace cumeron
