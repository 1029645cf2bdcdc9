#include "platform/scripted/scripted_machine.h"

#include "shell/startup.h"
#include "workstation.h"

namespace cumeron {

ScriptedMachine::ScriptedMachine() = default;
ScriptedMachine::~ScriptedMachine() = default;

void ScriptedMachine::Start(const std::string& commandLine) {
    process.commandLine = commandLine;
    line.BeginProcess();
    workstation = std::make_unique<Workstation>(platform);
    time.Attach(*workstation);
    running = true;
    Enter([this] { StartProgram(*workstation); });
}

void ScriptedMachine::EndProcess() {
    running = false;
    time.Detach();
    line.BeginProcess();
}

void ScriptedMachine::Advance(Micros duration) {
    const Micros end = time.Elapsed() + duration;
    const std::optional<Micros> outer = advanceEnd;
    advanceEnd = std::max(end, outer.value_or(end));
    Enter([&] { time.AdvanceTo(end); });
    advanceEnd = outer;
}

// An end of the process in a form that is shown modally leaves the advance in which it came; the
// script goes on behind that advance, so its time passes here. The program may have been started
// again in it, and end again.
void ScriptedMachine::FinishAdvance() {
    while (advanceEnd) {
        try {
            time.AdvanceTo(*advanceEnd);
            advanceEnd.reset();
        } catch (const ProcessEnd&) {
            EndProcess();
        }
    }
}

}  // namespace cumeron
