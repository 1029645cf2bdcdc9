// A program that was started with these lines in its settings file, a second ago: for the tests of
// the main window and its views.
#pragma once

#include <string>

#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {

struct RunningProgram {
    explicit RunningProgram(const std::string& lines = "") {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI", "[CUMERON]\r\n" + lines);
        machine.Start("");
        machine.Advance(MicrosPerSecond);
    }
    Workstation& W() { return *machine.Program(); }
    FrmMain& Form() { return W().frmMain; }
    void Click(Control& control) {
        machine.Enter([&] { control.Click(W()); });
    }
    void Resize(double width, double height) { ResizeForm(W(), Form(), width, height); }

    ScriptedMachine machine;
};

}  // namespace cumeron
