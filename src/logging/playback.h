// Off-line mode: the replay of one log, or of a chosen set of logs in a row, through the same
// classification, decoding and display as live messages. The menu, the toolbar and files dropped on
// the window come here; the message window asks for the record that is shown. Only positions of
// records are kept, so that the size of a file does not matter.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "logging/offline_reader.h"

namespace cumeron {

// The records that a file may have.
inline constexpr int LongestOfflineFile = 30240;

// How far the replay is, for the view.
struct ReplayProgress {
    std::int64_t position = 0, size = 0;  // bytes of the current file
    std::int32_t records = 0;             // of the current file
    std::int32_t file = 0, files = 0;     // file k of n; 0 of 0 outside off-line mode
};

struct OfflineState {
    std::shared_ptr<LineFile> file;  // open while OfflineFileNo is not 0
    std::int16_t OfflineFileNo = 0;
    std::string OfflineFileName;
    std::vector<std::string> OfflineFileList = {""};  // from 1: the folder, then the names
    std::int16_t OfflineFileCount = 0;                // elements of the list; 1: a single file
    std::int16_t OfflineFileIndex = 0;                // the element that is open, from 2
    std::int16_t OfflineMessageNo = 0;  // the record shown, from 1 in its file; 0 before the first
    std::vector<std::int32_t> OfflineRecordPos = {0};  // by number; 1 is the first byte, 0 unknown
    std::int16_t PlayStopRequested = 0;                // -1: the play is to end
    int session = 0;                // counted up whenever a replay begins or ends
    bool reading = false;           // a record is being read; events run in it, and the movers wait
    bool interrupted = false;       // the last reading ended before it had found anything
    std::int64_t turnPosition = 0;  // in the file, at the last turn of the event loop
    std::int32_t linesSinceTurn = 0;
    ReplayProgress progress;
};

// Asks for a file or several, and replays them up to the end or to a stop. A cancelled dialog
// changes nothing; any other error is told, and off-line mode ends.
void OpenOffline(Workstation& w);
// The same for files that were dropped on the window, by their full names. Those of a set have to
// lie in one folder.
void OpenDropped(Workstation& w, const std::vector<std::string>& names);
// Back to live work.
void CloseOffline(Workstation& w);

// The movers. StepForward, StepBack and GotoFileStart have no handler for errors.
void GotoFileStart(Workstation& w);
void StepForward(Workstation& w);
void StepBack(Workstation& w);
void PlayFile(Workstation& w);

// Toolbar buttons of more than one step.
void ToolbarStop_Click(Workstation& w);
void ToolbarCloseFile_Click(Workstation& w);

// Puts the record that is shown into the message window, which has just been opened.
void ShowCurrentRecord(Workstation& w);
// Brings offline.progress in line with the file.
void UpdateProgress(Workstation& w);

}  // namespace cumeron
