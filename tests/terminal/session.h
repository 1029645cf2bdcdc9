// A session in the terminal, with the port open or closed: for the tests of the terminal.
#pragma once

#include <functional>
#include <string>

#include "platform/scripted/scripted_machine.h"
#include "terminal/terminal.h"
#include "workstation.h"

namespace cumeron {

enum class Line { Open, Closed };

// The program after its start, at noon, with the terminal shown; it stays until Leave.
struct Session {
    ScriptedMachine machine;

    explicit Session(Line line, const std::string& settings = "") {
        machine.files.Put(machine.files.SettingsFolder() + "\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=30\r\n" + settings);
        machine.Start("");
        machine.time.SetNow(DateAtNoon);
        if (line == Line::Open) {
            machine.Enter([&] { W().frmMain.mnuOpenPort.Click(W()); });
        }
        machine.line.TakeSent();
        W().terminal.TerminalOpen = -1;
        machine.Enter([&] { ShowForm(W(), Form()); });
    }
    Workstation& W() { return *machine.Program(); }
    FrmTerminal& Form() { return W().frmTerminal; }
    const std::string& Text() { return Form().txtTerm.Text; }
    void Click(Control& control) {
        machine.Enter([&] { control.Click(W()); });
    }
    void Press(ToolButton& button) {
        button.Value = 1 - button.Value;
        Click(button);
    }
    // What the box is to take of the key.
    int Key(int code) {
        int used = 0;
        machine.Enter([&] { used = Form().txtTerm.KeyPress(W(), code); });
        return used;
    }
    bool Paste(const std::string& text) {
        bool taken = false;
        machine.Enter([&] { taken = Form().txtTerm.Paste(W(), text); });
        return taken;
    }
    void Arrive(const std::string& bytes) {
        machine.Enter([&] { machine.line.Arrive(bytes); });
    }
    void Seconds(double count) {
        machine.Advance(static_cast<Micros>(count * static_cast<double>(MicrosPerSecond)));
    }
    void Leave() {
        machine.Enter([&] { CloseForm(W(), Form()); });
    }
    std::string Sent() { return machine.line.TakeSent(); }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }

    static constexpr double DateAtNoon = 46143.5;  // 2026-05-01 12:00
};

}  // namespace cumeron
