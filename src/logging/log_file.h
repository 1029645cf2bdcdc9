// The log files: the data log, which holds every message that passed its checks behind a line with
// the time, and the status log beside it. Log on opens, the intake writes, log off and the end of
// the program close. No file is held open between two of these calls.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace cumeron {

struct Workstation;

struct LogState {
    std::int16_t LogFileNumber = 0;  // 0: no log could be opened
    std::string LogFileName;         // the data log, in full
    std::string StatusLogFile;       // set when Status_Log is 1 at the opening of the data log
    std::string openedIn;            // the current folder at the opening
    std::string LogDrive;            // whose free space is watched: "C:", or the folder of the log
    double LogSliceStart = 0;        // when the slice of the clock began that the log covers
    std::int16_t LogWriteOk = 0;     // 0 after a write that failed, but for a full disk
    std::int16_t ReportLogErrors = 0;  // 1; 0 while a rotation is under way, which shows no box
};

// Pure. The name of a log that is opened now: the letter, the last digit of the year, month, day
// and hour, "A6111514.DAT".
std::string LogName(double now, std::string_view fileChar);
// Pure. The folder made part of a log's name.
std::string InLogFolder(PathStyle style, const std::string& folder, const std::string& name);
// Pure. Folder and name with a separator between them; POSIX: a slash at the folder's end goes.
std::string WithSeparator(PathStyle style, std::string folder, const std::string& name);
// Pure. What is watched for free space: the drive of the folder or, without drives, the folder
// itself in full.
std::string DriveOf(PathStyle style, const std::string& folder, const std::string& current);
// Pure. Whether the end of a log is that of a whole record or head line, so that what is appended
// will be found.
bool EndsWhole(std::string_view end);

// Opens or continues the log of this hour and notes its names and the start of its slice. Gives the
// number of the log; 0 after an error, which is told when ReportLogErrors is 1.
std::int16_t OpenLogFile(Workstation& w);
// Appends one record, safe on the disk when it returns; nothing for number 0. A full disk turns the
// log off, any other error is noted in LogWriteOk. Never throws.
void WriteLogRecord(Workstation& w, std::int16_t number, std::string_view message);
// Where the log lies: its name, in full when it was opened in a folder that is no longer the
// current one.
std::string PlaceOfLog(Workstation& w);
// Raises as Files::Append.
void WriteClosedLine(Workstation& w);
// One note in the status log: the time, the text of the panel, the alarms and warnings. Raises as
// Files::Append, 75 when the log was opened without a status log.
void WriteStatusNote(Workstation& w);
// What the instrument answered to an enquiry, behind the notes. Raises as WriteStatusNote.
void WriteStatusReply(Workstation& w, std::string_view reply);

}  // namespace cumeron
