// What the operator sends from the terminal: keys at once, pastes character by character. The text
// box of the terminal calls it.
#pragma once

#include <string>

namespace cumeron {

struct Workstation;

// Sends the key and gives 0, since only its echo is to appear; the key itself with the port closed,
// which the box then takes.
int txtTerm_KeyPress(Workstation& w, int key);
// True: the text will be sent, a character at a time. False with the port closed.
bool txtTerm_Paste(Workstation& w, const std::string& text);
void tmrPaste_Tick(Workstation& w);
// What is left of a paste is forgotten.
void DropPaste(Workstation& w);

}  // namespace cumeron
