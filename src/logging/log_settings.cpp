#include "logging/log_settings.h"

#include <algorithm>
#include <optional>

#include "logging/log_file.h"
#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/dialogs.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int PathNotFound = 76, Cancelled = 32755;
constexpr std::string_view NoFileChars = ".\\/:*?<>|";
constexpr const char* OwnZipProgram = "cumeron-zip";

// The controls with which a folder is chosen, and the setting behind them.
struct PlaceRow {
    TextBox FrmSetLog::*text;
    DriveList FrmSetLog::*drive;
    FolderList FrmSetLog::*folder;
    Label FrmSetLog::*free;
    std::string Settings::*setting;
};

constexpr PlaceRow PlaceRows[] = {
    {&FrmSetLog::txtLogPath, &FrmSetLog::drvLogPath, &FrmSetLog::dirLogPath,
     &FrmSetLog::lblFreeSpace, &Settings::Log_File_Path},
    {&FrmSetLog::txtZipPath, &FrmSetLog::drvZipPath, &FrmSetLog::dirZipPath,
     &FrmSetLog::lblFreeZipSpace, &Settings::Zip_File_Path},
};

constexpr const PlaceRow& ZipPlace = PlaceRows[1];

// A check box and the setting behind it.
struct CheckRow {
    CheckBox FrmSetLog::*box;
    std::int16_t Settings::*setting;
};

constexpr CheckRow CheckRows[] = {
    {&FrmSetLog::chkStatusLog, &Settings::Status_Log},
    {&FrmSetLog::chkEnableZip, &Settings::Enable_Zip},
    {&FrmSetLog::chkDelAfterZip, &Settings::Del_After_Zip},
};

bool HasDrives(Workstation& w) { return w.platform.files.Style() == PathStyle::Windows; }

void Tell(Workstation& w, const std::string& text) {
    w.platform.dialogs.MessageBox(text, BoxButtons::Ok);
}

std::string FullName(Workstation& w, const std::string& folder) {
    return DriveOf(PathStyle::Posix, folder, w.platform.files.CurrentFolder());
}

bool LiesBelow(const std::string& folder, const std::string& place) {
    const std::string start = place.ends_with('/') ? place : place + '/';
    return (folder + '/').starts_with(start);
}

// The item of the drive list to which the folder belongs; without drives the mounted place.
std::string DriveOfFolder(Workstation& w, const std::string& folder) {
    if (HasDrives(w)) return folder.substr(0, 2);
    std::string longest = "/";
    for (const std::string& place : w.platform.files.Drives()) {
        if (LiesBelow(folder, place) && place.size() > longest.size()) longest = place;
    }
    return longest;
}

void ShowFreeSpace(Workstation& w, const PlaceRow& row) {
    FrmSetLog& form = w.frmSetLog;
    const std::string drive =
        HasDrives(w) ? (form.*row.drive).Drive.substr(0, 2) : (form.*row.folder).Path;
    (form.*row.free).Caption = FreeSpaceText(FreeDiskSpace(w, drive));
}

void ShowFolder(Workstation& w, const PlaceRow& row, const std::string& folder) {
    FrmSetLog& form = w.frmSetLog;
    (form.*row.folder).Path = folder;
    (form.*row.drive).Drive = DriveOfFolder(w, folder);
}

void ShowPlace(Workstation& w, const PlaceRow& row) {
    const std::string& path = w.settings.*row.setting;
    (w.frmSetLog.*row.text).Text = path;
    const std::string current = w.platform.files.CurrentFolder();
    const std::string folder = path.size() > 1 ? path : current;
    ShowFolder(w, row, HasDrives(w) ? folder : FullName(w, folder));
    ReportAndGoOn(w, [&] { ShowFreeSpace(w, row); });
}

// Going to a drive leads to the folder in which it was left.
void DriveChosen(Workstation& w, const PlaceRow& row) {
    FrmSetLog& form = w.frmSetLog;
    ReportAndGoOn(w, [&] {
        const std::string drive = (form.*row.drive).Drive;
        if (!HasDrives(w)) (form.*row.folder).Path = drive;
        ShowFreeSpace(w, row);
        if (HasDrives(w)) (form.*row.folder).Path = w.platform.files.CurrentFolder();
        (form.*row.text).Text = (form.*row.folder).Path;
    });
}

void FolderChosen(Workstation& w, const PlaceRow& row) {
    FrmSetLog& form = w.frmSetLog;
    const std::string folder = (form.*row.folder).Path;
    (form.*row.text).Text = folder;
    if (HasDrives(w)) return;
    (form.*row.drive).Drive = DriveOfFolder(w, folder);
    ShowFreeSpace(w, row);
}

// What the own zip program needs is filled in; it counts when OK stores it.
void OfferOwnZipProgram(Workstation& w) {
    const Settings& settings = w.settings;
    const bool isFree = settings.Zip_Exe.empty() && settings.Zip_File_Path.empty();
    if (HasDrives(w) || !isFree) return;
    w.frmSetLog.txtZipExe.Text = OwnZipProgram;
    const std::string folder = FullName(w, settings.Log_File_Path);
    w.frmSetLog.txtZipPath.Text = folder;
    ShowFolder(w, ZipPlace, folder);
    ShowFreeSpace(w, ZipPlace);
}

std::string LengthText(double fileLength) {
    const DateParts length = PartsOf(fileLength);
    if (length.hour == 23 && length.minute == 59) return "24";
    return PadLeft(std::to_string(length.hour), 2, '0');
}

void frmSetLog_Load(Workstation& w) {
    FrmSetLog& form = w.frmSetLog;
    form.medLogFileLength.Text = LengthText(w.settings.File_Length);
    form.tboFileChar.Text = w.settings.File_Char;
    for (const CheckRow& row : CheckRows) {
        (form.*row.box).Value = w.settings.*row.setting != 0 ? 1 : 0;
    }
    form.txtZipExe.Text = w.settings.Zip_Exe;
    for (const PlaceRow& row : PlaceRows) ShowPlace(w, row);
    OfferOwnZipProgram(w);
}

void tabLogSet_Click(Workstation& w) {
    FrmSetLog& form = w.frmSetLog;
    const bool log = form.tabLogSet.Selected == 0;
    form.fraLog.Visible = form.fraLog.Enabled = log;
    form.fraZip.Visible = form.fraZip.Enabled = !log;
}

void cmdFindZipExe_Click(Workstation& w) {
    try {
        FileQuestion question;
        question.filter = "Application files (*.exe)|*.exe|All Files (*.*)|*.*";
        w.frmSetLog.txtZipExe.Text = w.platform.dialogs.ChooseFiles(question);
    } catch (const RuntimeError& error) {
        if (error.Number != Cancelled) ReportError(w, error);
    }
}

// Goes to the folder of the log and tries it. kept: the log itself may be told with a backslash at
// its end and no folder in its name; the current folder is then where it lies.
bool LogPathStands(Workstation& w) {
    std::string& path = w.frmSetLog.txtLogPath.Text;
    if (path.empty()) return true;
    if (!HasDrives(w)) path = FullName(w, path);  // a relative one would mean another folder then
    try {
        w.platform.files.ChangeFolder(path);
    } catch (const RuntimeError& error) {
        if (error.Number != PathNotFound) {
            ReportError(w, error);
        } else {
            Tell(w, "The Log Path is not valid");
        }
        return false;
    }
    return TestLogPath(w, path);
}

// Nothing, and a box says so, when the length box holds no length.
std::optional<double> LengthOf(Workstation& w) {
    const std::string hours = w.frmSetLog.medLogFileLength.Text.substr(0, 2);
    if (!IsNumeric(hours)) {
        Tell(w, "The Log file length box was not completely filled");
        return std::nullopt;
    }
    const std::int16_t count = ToInt16(hours);
    if (count >= 25) {
        Tell(w, "The Log file length should be max 24 hours");
        return std::nullopt;
    }
    if (count < 1) {
        Tell(w, "Then Log File length should be at least 1 hour");
        return std::nullopt;
    }
    return count == 24 ? TimeSerial(23, 59, 59) : TimeSerial(count, 0, 0);
}

bool FileCharStands(Workstation& w) {
    if (w.frmSetLog.tboFileChar.Text.find_first_of(NoFileChars) == std::string::npos) return true;
    Tell(w, "File Char should be Alphanumeric");
    return false;
}

// False when the zip program is missing. kept: what was stored up to there stays stored.
bool StoreValues(Workstation& w, double length) {
    FrmSetLog& form = w.frmSetLog;
    Settings& settings = w.settings;
    settings.File_Char = form.tboFileChar.Text;
    settings.Log_File_Path = form.txtLogPath.Text;
    settings.File_Length = length;
    settings.Status_Log = form.chkStatusLog.Value == 1 ? 1 : 0;
    settings.Enable_Zip = form.chkEnableZip.Value == 1 ? 1 : 0;
    if (settings.Enable_Zip != 0 && form.txtZipExe.Text.empty()) {
        Tell(w, "Zip Application is not specified");
        settings.Enable_Zip = 0;
        return false;
    }
    settings.Del_After_Zip = form.chkDelAfterZip.Value == 1 ? 1 : 0;
    settings.Zip_File_Path = form.txtZipPath.Text;
    settings.Zip_Exe = form.txtZipExe.Text;
    return true;
}

// The archives of later logs go where the operator meant now, whatever folder is the current one.
void FixZipPath(Workstation& w) {
    std::string& path = w.frmSetLog.txtZipPath.Text;
    if (!HasDrives(w) && !path.empty()) path = FullName(w, path);
}

void Command1_Click(Workstation& w) {
    FixZipPath(w);
    if (!LogPathStands(w)) return;
    const std::optional<double> length = LengthOf(w);
    if (!length || !FileCharStands(w)) return;
    if (StoreValues(w, *length)) UnloadForm(w, w.frmSetLog);
}

void Command2_Click(Workstation& w) { UnloadForm(w, w.frmSetLog); }

}  // namespace

FrmSetLog::FrmSetLog() {
    Name = "frmSetLog";
    Caption = "Log Settings";
    Width = 480 * TwipsPerPixel;
    Height = 440 * TwipsPerPixel;
    tabLogSet.Pages = {"Log", "Zip"};
    fraLog.Caption = "Log";
    fraZip.Caption = "Zip";
    fraZip.Visible = false;
    medLogFileLength.Mask = "##";
    lblFreeSpace.Caption = ">2000 MB";
    lblFreeZipSpace.Caption = "> 2000 MB";
    chkStatusLog.Caption = "Enable Status Message Logging";
    chkEnableZip.Caption = "Enable Log File Zipping";
    chkDelAfterZip.Caption = "Remove Log File after Zipping";
    txtZipExe.Text = "pkzip.exe";
    cmdFindZipExe.Caption = "Find";
    Command1.Caption = "OK";
    Command2.Caption = "Cancel";
    for (const PlaceRow& row : PlaceRows) {
        (this->*row.drive).Change = [row](Workstation& w) { DriveChosen(w, row); };
        (this->*row.folder).Change = [row](Workstation& w) { FolderChosen(w, row); };
        (this->*row.folder).Click = [row](Workstation& w) { FolderChosen(w, row); };
    }
    tabLogSet.Click = tabLogSet_Click;
    cmdFindZipExe.Click = cmdFindZipExe_Click;
    Command1.Click = Command1_Click;
    Command2.Click = Command2_Click;
    Load = frmSetLog_Load;
}

ControlList FrmSetLog::Controls() {
    return {{"tabLogSet", -1, "", &tabLogSet},
            {"fraLog", -1, "", &fraLog},
            {"medLogFileLength", -1, "fraLog", &medLogFileLength},
            {"tboFileChar", -1, "fraLog", &tboFileChar},
            {"txtLogPath", -1, "fraLog", &txtLogPath},
            {"drvLogPath", -1, "fraLog", &drvLogPath},
            {"dirLogPath", -1, "fraLog", &dirLogPath},
            {"chkStatusLog", -1, "fraLog", &chkStatusLog},
            {"lblFreeSpace", -1, "fraLog", &lblFreeSpace},
            {"fraZip", -1, "", &fraZip},
            {"chkEnableZip", -1, "fraZip", &chkEnableZip},
            {"chkDelAfterZip", -1, "fraZip", &chkDelAfterZip},
            {"txtZipExe", -1, "fraZip", &txtZipExe},
            {"cmdFindZipExe", -1, "fraZip", &cmdFindZipExe},
            {"txtZipPath", -1, "fraZip", &txtZipPath},
            {"drvZipPath", -1, "fraZip", &drvZipPath},
            {"dirZipPath", -1, "fraZip", &dirZipPath},
            {"lblFreeZipSpace", -1, "fraZip", &lblFreeZipSpace},
            {"Command1", -1, "", &Command1},
            {"Command2", -1, "", &Command2}};
}

void FrmSetLog::Reset() { *this = FrmSetLog(); }

void mnuLogSettings_Click(Workstation& w) { ShowDialog(w, w.frmSetLog); }

std::string FreeSpaceText(std::int32_t bytes) {
    const std::string shown = NumberText(bytes / 100000 / 10.0) + " MB";
    return bytes / 1000000 < 2000 ? shown : "> " + shown;
}

bool TestLogPath(Workstation& w, const std::string& path) {
    Files& files = w.platform.files;
    // kept: with drives the name is put right behind the path, so that the file lies beside the
    // folder; who may not write there is told so too.
    const std::string name =
        HasDrives(w) ? path + "TEST.TMP" : WithSeparator(PathStyle::Posix, path, "TEST.TMP");
    try {
        files.Append(name, "");
        files.Delete(name);
    } catch (const RuntimeError& error) {
        ReportError(w, error);
        return false;
    }
    return true;
}

}  // namespace cumeron
