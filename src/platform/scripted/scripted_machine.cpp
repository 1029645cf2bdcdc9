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
    bool served = false;
    while (!served) {
        Enter([&] {
            time.AdvanceTo(end);
            served = true;
        });
    }
}

}  // namespace cumeron
