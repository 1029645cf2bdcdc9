// A running program in which an operator works in one of the dialogs of the graph settings.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "shell/running_program.h"

namespace cumeron {

template <class Dialog>
struct SettingsDialog {
    SettingsDialog(const std::string& lines, Dialog Workstation::*dialog, MenuEntry FrmMain::*entry)
        : program(lines), form(program.W().*dialog), menu(program.Form().*entry) {}

    // Shows the dialog and lets the operator work in it. A dialog that stays is cancelled then, and
    // this says so.
    bool Stays(const std::function<void()>& work) {
        bool stays = false;
        program.machine.time.At(0, [&] {
            EXPECT_EQ(ModalForm(w), &form);
            work();
            stays = form.Loaded;
            if (stays) form.Command2.Click(w);
        });
        program.Click(menu);
        EXPECT_FALSE(form.Loaded);
        return stays;
    }
    void Look(const std::function<void()>& look) { EXPECT_TRUE(Stays(look)); }
    void Ok(const std::function<void()>& work = [] {}) {
        const auto workAndOk = [&] {
            work();
            form.cmdOk.Click(w);
        };
        EXPECT_FALSE(Stays(workAndOk));
    }
    void Choose(OptionButton& option) { ChooseOption(w, form, option); }
    std::string Box() { return program.machine.dialogs.TakeBox().value_or("no box"); }

    RunningProgram program;
    Workstation& w = program.W();
    Settings& settings = w.settings;
    Dialog& form;
    MenuEntry& menu;
};

// The place of the chosen one, -1 for none, -2 for more than one.
inline int Chosen(std::span<const OptionButton> options) {
    int chosen = -1;
    for (std::size_t i = 0; i < options.size(); ++i) {
        if (options[i].Value) chosen = chosen == -1 ? static_cast<int>(i) : -2;
    }
    return chosen;
}

inline std::vector<std::string> Captions(std::span<const OptionButton> options) {
    std::vector<std::string> captions;
    for (const OptionButton& option : options) captions.push_back(option.Caption);
    return captions;
}

// The controls as a script names them, each with the frame that it lies in: "fraMode.optMode(1)".
inline std::vector<std::string> Names(Form& form) {
    std::vector<std::string> names;
    for (const NamedControl& named : form.Controls()) {
        std::string name = named.parent.empty() ? named.name : named.parent + "." + named.name;
        if (named.index >= 0) name += "(" + std::to_string(named.index) + ")";
        names.push_back(name);
    }
    return names;
}

}  // namespace cumeron
