// The spreadsheet export: while a log is replayed, each message becomes a row of a text file with
// commas between its columns. The menu entry arms it; playback opens and closes the file and hands
// over each message that it shows going forward.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace cumeron {

struct Workstation;

struct ExportState {
    std::int16_t ExportFileNo = 0;     // 0: no export file is open
    std::int16_t ExportHeaderDue = 0;  // -1: the heads of the columns wait for the first message
    std::string name;
    std::unique_ptr<OutputFile> file;  // open while ExportFileNo is not 0
    bool brokenOff = false;            // the file may end in the midst of a line
};

// The menu entry: arms the export or ends it. Without an off-line file the mark waits for one; with
// the port open a box says that it has to be closed.
void mnuExcel_Click(Workstation& w);
// Opens the export of the off-line file and notes its number.
void BeginExport(Workstation& w);
// Takes the mark off and closes the file; nothing when none is open.
void EndExport(Workstation& w);

// Pure. The name of the export beside a log: all up to its first dot, and "txt".
std::string ExportName(const std::string& offlineFileName);
// Opens or continues the file and writes its first lines. Gives its number; 0 after an error, which
// is told in a box.
std::int16_t OpenExportFile(Workstation& w, const std::string& offlineFileName);
// One row, and the heads of the columns in front of the first; nothing for number 0. An error
// leaves the row out. timestamp is a date-time, at most 1 for a time of day without a date; message
// is the frame from its start character on. Never throws.
void WriteExportRow(Workstation& w, std::span<const std::int32_t> profile, double timestamp,
                    std::int16_t fileNo, std::string_view message);
// Writes the closed line, whose error is told in a box, and closes the file; nothing when none is
// open.
void CloseExportFile(Workstation& w);

}  // namespace cumeron
