// The off-line files opened last, as entries of the file menu. Playback notes a file that was
// opened; the list lies in recent.ini in the settings folder and is common to all running copies.
#pragma once

#include <cstddef>
#include <string>

namespace cumeron {

struct Workstation;

// Fills the menu at the start; without the file, or when it cannot be read, there is nothing in it.
void ReadRecentFiles(Workstation& w);
// Puts the full name at the head of the list. A list that cannot be written is told to nobody: the
// file is open all the same.
void NoteRecentFile(Workstation& w, const std::string& name);
// Opens the file of that entry, from 0, alone. Nothing for an empty entry.
void OpenRecentFile(Workstation& w, std::size_t index);

}  // namespace cumeron
