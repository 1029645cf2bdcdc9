// The names of the shell's variables, and every setting by its key.
#include "shell/settings.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {

namespace {

// Adds one setting, by the kind of its place.
struct Lister {
    VariableList& list;
    std::string key;

    template <class T>
    void operator()(T Settings::*place) const {
        list.Add(
            key, [place](Workstation & w) -> auto& { return w.settings.*place; });
    }
    template <class T>
    void operator()(T Form::*place) const {
        list.Add(
            key, [place](Workstation & w) -> auto& { return w.frmMain.*place; });
    }
    void operator()(const SettingElement& place) const {
        list.Add(
            key, [place](Workstation & w) -> auto& {
                return (w.settings.*place.array)[place.index];
            });
    }
    // The line keeps these two itself; they go by their text.
    void operator()(LineProperty) const {
        const SettingRow& row = SettingOf(key);
        list.variables.push_back(
            {key, 0,
             [&row](Workstation& w, const std::vector<long>&) -> Value {
                 return SettingText(w, row);
             },
             [&row](Workstation& w, const std::vector<long>&, const Value& value) {
                 StoreSetting(w, row, AsText(value));
             }});
    }
};

}  // namespace

void ListSettings(VariableList& list) {
    for (const SettingRow& row : SettingTable()) {
        std::visit(Lister{list, std::string(row.key)}, row.place);
    }
}

void ListShellVariables(VariableList& list) {
    list.Add(
        "InstanceNumber", [](Workstation & w) -> auto& { return w.shell.InstanceNumber; });
    list.Add(
        "SettingsFile", [](Workstation & w) -> auto& { return w.shell.SettingsFile; });
    list.Add(
        "MainTitle", [](Workstation & w) -> auto& { return w.shell.MainTitle; });
    list.Add(
        "MessageWindowOn", [](Workstation & w) -> auto& { return w.shell.MessageWindowOn; });
    list.Add(
        "LastWindowState", [](Workstation & w) -> auto& { return w.frmMain.LastWindowState; });
}

}  // namespace cumeron
