#include "logging/rotation.h"

#include <algorithm>

#include "logging/log_file.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int32_t MostFreeSpace = 2000000000;  // bytes
constexpr std::int32_t EnoughSpace = 6000000;       // bytes; from here on the panel counts none
constexpr std::int32_t Megabyte = 1000000;
constexpr double NearlyADay = 0.99;  // a length above it is a day: 23:59 and a little stand for 24
constexpr int SecondsPerDay = 86400;
constexpr int FileNotFound = 53;

void TellClosingError(Workstation& w, const RuntimeError& error) {
    if (error.Number != FileNotFound) return ReportError(w, error);
    w.platform.dialogs.MessageBox("File Error. Zip application possibly not found.",
                                  BoxButtons::Ok);
}

void StartZip(Workstation& w) {
    const ZipCall call = ZipCallFor(w.settings, w.platform.files.Style(), PlaceOfLog(w));
    w.platform.process.Start(call.program, call.arguments, call.commandLine);
}

void ShowLogOff(Workstation& w) {
    FrmMain& form = w.frmMain;
    form.mnuLogOn.Checked = false;
    form.mnuLogOff.Checked = true;
    form.Toolbar1.Log.Value = 0;
    SetLogPanel(w, "LOG OFF");
    form.Caption = w.shell.MainTitle;
}

void ShowLogOn(Workstation& w) {
    FrmMain& form = w.frmMain;
    form.mnuLogOff.Checked = false;
    form.mnuLogOn.Checked = true;
    form.Toolbar1.Log.Value = 1;
    if (w.settings.Main_Caption.empty()) {
        form.Caption = w.shell.MainTitle + "  [" + w.logging.LogFileName + "]";
    }
    SetLogPanel(w, "LOG ON");
}

}  // namespace

void mnuLogOn_Click(Workstation& w) {
    if (!w.frmMain.mnuLogOff.Checked) return;
    w.logging.LogFileNumber = OpenLogFile(w);
    if (w.logging.LogFileNumber == 0) {
        w.frmMain.Toolbar1.Log.Value = 0;
        return;
    }
    ShowLogOn(w);
}

void mnuLogOff_Click(Workstation& w) {
    if (w.frmMain.mnuLogOff.Checked) return;
    try {
        ShowLogOff(w);
        WriteClosedLine(w);
        if (w.settings.Enable_Zip != 0) StartZip(w);
    } catch (const RuntimeError& error) {
        if (w.logging.ReportLogErrors == 1) TellClosingError(w, error);
    }
}

void ToolbarLog_Click(Workstation& w) {
    w.frmMain.mnuLogOff.Checked ? mnuLogOn_Click(w) : mnuLogOff_Click(w);
}

double SliceStart(double now, double fileLength) {
    const DateParts length = PartsOf(fileLength);
    const double today = DateOf(now);
    if (length.hour == 23 && length.minute == 59) return today;
    if (length.hour == 0) throw RuntimeError(11);
    const int hourNow = DateDiffSeconds(today, now) / 3600;
    // kept: hours that do not divide the day have no grid, and a log of theirs lasts that long from
    // the top of the hour in which it was opened.
    const int hour = 24 % length.hour == 0 ? hourNow / length.hour * length.hour : hourNow;
    return today + TimeSerial(hour, 0, 0);
}

void RotateLog(Workstation& w) {
    if (!w.frmMain.mnuLogOn.Checked) return;
    const double length = w.settings.File_Length > NearlyADay ? 1 : w.settings.File_Length;
    const std::int32_t age = DateDiffSeconds(w.logging.LogSliceStart, w.platform.clock.Now());
    if (age < ToInt32(length * SecondsPerDay)) return;
    w.logging.ReportLogErrors = 0;
    mnuLogOff_Click(w);
    mnuLogOn_Click(w);
    w.logging.ReportLogErrors = 1;
}

void WatchDisk(Workstation& w) {
    if (!w.frmMain.mnuLogOn.Checked) {
        if (w.frmMain.sbaStatus.Log.Text != "DISK FULL") SetLogPanel(w, "LOG OFF");
        return;
    }
    const std::int32_t bytes = FreeDiskSpace(w, w.logging.LogDrive);
    SetLogPanel(w, bytes >= EnoughSpace ? "LOG ON" : std::to_string(bytes / Megabyte) + "MB free");
}

std::int32_t FreeDiskSpace(Workstation& w, const std::string& drive) {
    Files& files = w.platform.files;
    // kept: asking for a drive goes there, and stays there; logs in the current folder follow to
    // the drive that is watched.
    if (files.Style() == PathStyle::Windows) files.ChangeFolder(drive);
    const double bytes = RoundHalfEven(files.FreeDiskSpace(drive).value_or(0));
    return ToInt32(std::min<double>(bytes, MostFreeSpace));
}

ZipCall ZipCallFor(const Settings& settings, PathStyle style, const std::string& logFileName) {
    constexpr std::size_t NameLength = 12, BaseLength = 8;
    const std::size_t cut = std::min(logFileName.size(), NameLength);
    const std::string base = logFileName.substr(logFileName.size() - cut, BaseLength);
    const std::string archive = WithSeparator(style, settings.Zip_File_Path, base);
    const std::string mode = settings.Del_After_Zip != 0 ? "-m" : "-a";
    return {settings.Zip_Exe,
            {mode, archive, logFileName},
            settings.Zip_Exe + " " + mode + " \"" + archive + "\" \"" + logFileName + "\""};
}

}  // namespace cumeron
