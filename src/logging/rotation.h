// Log on and log off, the cut of the log by the clock, the zip program that takes a finished log,
// and the watch over the free space of the disk. The menu, the toolbar, the start and the tick call
// it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"

namespace cumeron {

struct Settings;
struct Workstation;

// Do nothing when the log is on, or off, already. Errors are told when ReportLogErrors is 1; log on
// then leaves the log off, log off has turned it off and closed the file.
void mnuLogOn_Click(Workstation& w);
void mnuLogOff_Click(Workstation& w);
void ToolbarLog_Click(Workstation& w);

// Pure. When the slice of the clock began in which now lies: midnight for a length of 23:59, the
// last multiple of the hours where they divide the day, else the top of the hour. Raises 11 for a
// length under an hour.
double SliceStart(double now, double fileLength);
// Closes the log and opens the next when its slice is over; shows no box.
void RotateLog(Workstation& w);
// Shows whether the log is on, and how much fits on its disk when that is little.
void WatchDisk(Workstation& w);

// Free bytes, at most 2000000000; 0 when they cannot be told. On a system with drives raises 68 for
// a drive that there is not.
std::int32_t FreeDiskSpace(Workstation& w, const std::string& drive);

struct ZipCall {
    std::string program;
    std::vector<std::string> arguments;
    std::string commandLine;
};
// Pure. How the zip program is called for a finished log.
ZipCall ZipCallFor(const Settings& settings, PathStyle style, const std::string& logFileName);

}  // namespace cumeron
