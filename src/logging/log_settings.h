// frmSetLog: length, letter and folder of the log, the status log, and the zip program that takes a
// finished log. The menu entry mnuLogSettings shows it. New values count from the next opening of a
// log on.
#pragma once

#include <cstdint>
#include <string>

#include "platform/form.h"

namespace cumeron {

struct FrmSetLog : Form {
    TabStrip tabLogSet;
    Frame fraLog, fraZip;  // what the pages hold
    TextBox medLogFileLength, tboFileChar;
    TextBox txtLogPath, txtZipPath, txtZipExe;
    DriveList drvLogPath, drvZipPath;
    FolderList dirLogPath, dirZipPath;
    Label lblFreeSpace, lblFreeZipSpace;
    CheckBox chkStatusLog, chkEnableZip, chkDelAfterZip;
    Button cmdFindZipExe, Command1, Command2;

    FrmSetLog();
    ControlList Controls() override;
    void Reset() override;
};

void mnuLogSettings_Click(Workstation& w);

// Pure. "5.9 MB", or "> 2000 MB" when there is that much.
std::string FreeSpaceText(std::int32_t bytes);
// Makes a file there and removes it again; an error is told, and gives false.
bool TestLogPath(Workstation& w, const std::string& path);

}  // namespace cumeron
