// The names of the terminal's variables.
#include "variables.h"
#include "workstation.h"

namespace cumeron {

void ListTerminalVariables(VariableList& list) {
    list.Add(
        "TerminalOpen", [](Workstation & w) -> auto& { return w.terminal.TerminalOpen; });
    list.Add(
        "TerminalEchoOff", [](Workstation & w) -> auto& { return w.terminal.TerminalEchoOff; });
}

}  // namespace cumeron
