// The files of a replay: a single one, or a set in a row, and which of them is open. Playback calls
// it.
#pragma once

#include <string>
#include <vector>

namespace cumeron {

struct Workstation;

// Full names as a file dialog would give them: one name, or the folder and each name, a NUL between
// them. "" when they do not lie in one folder.
std::string JoinedChoice(const Workstation& w, const std::vector<std::string>& names);
// Takes what a file dialog gave; the first file of a set is selected. Raises 6 for more names than
// 16 bits count.
void TakeChosen(Workstation& w, const std::string& chosen);
// Opens the selected file in place of another and shows its name in the caption. Raises what
// Files::OpenForReading raises; then no file is open.
void OpenSelected(Workstation& w);
// Whether the name leads to a file of the set that is replayed.
bool IsOfSet(Workstation& w, const std::string& name);
// Selects and opens the first file of a set; a single file stays as it is.
void OpenFirstOfSet(Workstation& w);
// The same with the next one, whose records count from 1 again. False, and nothing done, when the
// file now open is the last.
bool OpenNextOfSet(Workstation& w);

}  // namespace cumeron
