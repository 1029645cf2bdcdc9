// The operator: clicks, keys, inputs, windows, answers.
#include <algorithm>
#include <vector>

#include "commands.h"
#include "names.h"
#include "platform/runtime/text.h"
#include "properties.h"
#include "shell/dispatch.h"
#include "values.h"

namespace cumeron {

namespace {

constexpr int KeyBackspace = 8;
constexpr int KeyReturn = 13;

// The menu, frame or control that named lies in; nothing for one that lies on the form or on a bar.
std::optional<NamedControl> ParentOf(Form& form, const NamedControl& named) {
    for (const NamedControl& other : form.Controls()) {
        if (!named.parent.empty() && other.name == named.parent) return other;
    }
    return std::nullopt;
}

// A form takes input while it is seen and enabled, and none but the innermost modal form does.
void CheckForm(Session& session, const Form& form) {
    if (!form.Visible) throw CommandError{form.Name + " is not visible"};
    if (!form.Enabled) throw CommandError{form.Name + " is disabled"};
    const Form* modal = ModalForm(session.Running());
    if (modal && modal != &form) {
        throw CommandError{form.Name + " takes no input while " + modal->Name + " is open"};
    }
}

void CheckVisible(const NamedControl& named) {
    if (!SeenControl(named.control)->Visible) throw CommandError{NameOf(named) + " is not visible"};
}

void CheckEnabled(const NamedControl& named) {
    const Control* control = SeenControl(named.control);
    if (!control) throw CommandError{NameOf(named) + " is nothing to see"};
    if (!control->Enabled) throw CommandError{NameOf(named) + " is disabled"};
}

// The control and what it lies in, from the inside out.
std::vector<NamedControl> WithItsParents(const FoundControl& found) {
    std::vector<NamedControl> chain{found.named};
    while (const auto parent = ParentOf(*found.form, chain.back())) chain.push_back(*parent);
    return chain;
}

// The operator's hand has to reach the control: it, what it lies in and its form are visible and
// enabled.
void CheckReachable(Session& session, const FoundControl& found) {
    CheckForm(session, *found.form);
    for (const NamedControl& named : WithItsParents(found)) {
        CheckEnabled(named);
        CheckVisible(named);
    }
}

// An input may be hidden just now, on another page of its form or with the form itself.
void CheckTakesInput(const FoundControl& found) {
    if (!found.form->Enabled) throw CommandError{found.form->Name + " is disabled"};
    for (const NamedControl& named : WithItsParents(found)) CheckEnabled(named);
}

FoundControl FindWholeControl(Session& session, const std::string& name) {
    session.Running();
    FoundControl found = FindControl(session, name);
    if (!found.property.empty()) throw CommandError{name + " is no control"};
    return found;
}

void Dispatch(Session& session, const Handler& handler) {
    Workstation& w = session.Running();
    session.machine.Enter([&] { DispatchEvent(w, handler); });
}

// What a control does to itself at a click comes before its handler.
void ClickControl(Workstation& w, Form& form, const AnyControl& control) {
    if (auto* const* option = std::get_if<OptionButton*>(&control)) {
        ChooseOption(w, form, **option);
        return;
    }
    if (auto* const* box = std::get_if<CheckBox*>(&control)) (*box)->Value = 1 - (*box)->Value;
    if (auto* const* button = std::get_if<ToolButton*>(&control)) {
        if ((*button)->CheckStyle) (*button)->Value = 1 - (*button)->Value;
    }
    // By value: the handler may put its form back into the design state.
    if (const Handler click = SeenControl(control)->Click) click(w);
}

void RunClick(Session& session, const Words& arguments) {
    const FoundControl found = FindWholeControl(session, arguments[0]);
    if (std::holds_alternative<ComboBox*>(found.named.control)) {
        throw CommandError{arguments[0] + " is a list, in which set chooses"};
    }
    CheckReachable(session, found);
    Dispatch(session, [&](Workstation& w) { ClickControl(w, *found.form, found.named.control); });
}

void RunHover(Session& session, const Words& arguments) {
    const FoundControl found = FindWholeControl(session, arguments[0]);
    CheckReachable(session, found);
    Dispatch(session, SeenControl(found.named.control)->MouseEnter);
}

void RunDrop(Session& session, const Words& arguments) {
    const FoundControl source = FindWholeControl(session, arguments[0]);
    const FoundControl target = FindWholeControl(session, arguments[1]);
    const double x = NumberArgument(arguments[2]);
    const double y = NumberArgument(arguments[3]);
    CheckReachable(session, source);
    CheckReachable(session, target);
    const Control& dragged = *SeenControl(source.named.control);
    if (!dragged.Draggable) throw CommandError{arguments[0] + " cannot be dragged"};
    Dispatch(session, [&](Workstation& w) {
        const DropHandler drop = SeenControl(target.named.control)->DragDrop;
        if (drop) drop(w, dragged, x, y);
    });
}

[[noreturn]] void NoInput(const std::string& name) { throw CommandError{name + " is no input"}; }

TextBox& InputBox(const FoundControl& found, const std::string& name) {
    auto* const* box = std::get_if<TextBox*>(&found.named.control);
    if (!box || (!found.property.empty() && found.property != "Text")) NoInput(name);
    return **box;
}

void InsertText(TextBox& box, const std::string& text) {
    const int end = static_cast<int>(box.Text.size());
    box.SelStart = std::clamp(box.SelStart, 0, end);
    box.Text.insert(static_cast<std::size_t>(box.SelStart), text);
    box.SelStart += static_cast<int>(text.size());
}

void TypeKey(TextBox& box, int key) {
    if (key == 0) return;
    if (key == KeyReturn) {
        if (box.MultiLine) InsertText(box, "\r\n");
    } else if (key != KeyBackspace) {
        InsertText(box, std::string(1, static_cast<char>(key)));
    } else if (box.SelStart > 0 && box.SelStart <= static_cast<int>(box.Text.size())) {
        --box.SelStart;
        box.Text.erase(static_cast<std::size_t>(box.SelStart), 1);
    }
}

// One key as the box takes it: KeyPress may replace it, and may close the form; then Change.
void PressKey(Workstation& w, const Form& form, TextBox& box, int key) {
    const auto keyPress = box.KeyPress;
    if (keyPress) key = keyPress(w, key);
    if (!form.Visible) return;
    const std::string before = box.Text;
    TypeKey(box, key);
    const Handler change = box.Change;
    if (change && box.Text != before) change(w);
}

void RunType(Session& session, const Words& arguments) {
    for (const char c : arguments[1]) {
        session.Running();
        const FoundControl found = FindControl(session, arguments[0]);
        TextBox& box = InputBox(found, arguments[0]);
        CheckReachable(session, found);
        Dispatch(session, [&](Workstation& w) {
            PressKey(w, *found.form, box, static_cast<unsigned char>(c));
        });
    }
}

void RunPaste(Session& session, const Words& arguments) {
    session.Running();
    const FoundControl found = FindControl(session, arguments[0]);
    TextBox& box = InputBox(found, arguments[0]);
    CheckReachable(session, found);
    Dispatch(session, [&](Workstation& w) {
        const auto paste = box.Paste;
        if (paste && paste(w, arguments[1])) return;
        InsertText(box, arguments[1]);
        const Handler change = box.Change;
        if (change) change(w);
    });
}

// A masked box shows a line where a place is still empty.
Handler TextSetter(TextBox& box, std::string text) {
    if (text.size() < box.Mask.size()) text.resize(box.Mask.size(), '_');
    return [&box, text](Workstation& w) {
        box.Text = text;
        box.SelStart = static_cast<int>(text.size());
        if (const Handler change = box.Change) change(w);
    };
}

Handler OptionSetter(Form& form, OptionButton& option, const std::string& value) {
    if (NumberOf(value) != -1) {
        throw CommandError{"an option is set to True, which puts the others of its frame out"};
    }
    return [&form, &option](Workstation& w) { ChooseOption(w, form, option); };
}

Handler CheckSetter(CheckBox& box, const std::string& value) {
    const int ticked = IntegerArgument(value);
    if (ticked != 0 && ticked != 1) throw CommandError{"a check box is set to 0 or 1"};
    return [&box, ticked](Workstation& w) {
        box.Value = ticked;
        if (const Handler click = box.Click) click(w);
    };
}

Handler ItemSetter(ComboBox& list, int index) {
    if (index < 0 || index >= static_cast<int>(list.Items.size())) {
        throw CommandError{"the list has no such item"};
    }
    return [&list, index](Workstation& w) { SelectItem(w, list, index); };
}

// A text typed into a list that takes none but its items chooses the item.
Handler ItemTextSetter(ComboBox& list, const std::string& text) {
    if (list.Editable) return [&list, text](Workstation& w) { TypeItem(w, list, text); };
    const auto item = std::find(list.Items.begin(), list.Items.end(), text);
    return ItemSetter(list,
                      item == list.Items.end() ? -1 : static_cast<int>(item - list.Items.begin()));
}

Handler DriveSetter(DriveList& list, const std::string& drive) {
    return [&list, drive](Workstation& w) {
        list.Drive = drive;
        if (const Handler change = list.Change) change(w);
    };
}

Handler FolderSetter(FolderList& list, const std::string& folder) {
    return [&list, folder](Workstation& w) {
        list.Path = folder;
        if (const Handler change = list.Change) change(w);
    };
}

Handler PageSetter(TabStrip& strip, int page) {
    if (page < 0 || page >= static_cast<int>(strip.Pages.size())) {
        throw CommandError{"the strip has no such page"};
    }
    return [&strip, page](Workstation& w) {
        strip.Selected = page;
        if (const Handler click = strip.Click) click(w);
    };
}

// What setting the input does; throws CommandError when it is no input or the value is none of it.
Handler SetterOf(const FoundControl& found, const std::string& name, const std::string& value) {
    const AnyControl& control = found.named.control;
    const std::string property = found.property.empty() ? DefaultProperty(control) : found.property;
    if (property == "Text") {
        if (auto* const* box = std::get_if<TextBox*>(&control)) return TextSetter(**box, value);
        if (auto* const* list = std::get_if<ComboBox*>(&control)) {
            return ItemTextSetter(**list, value);
        }
    } else if (property == "Value") {
        if (auto* const* option = std::get_if<OptionButton*>(&control)) {
            return OptionSetter(*found.form, **option, value);
        }
        if (auto* const* box = std::get_if<CheckBox*>(&control)) return CheckSetter(**box, value);
    } else if (property == "ListIndex") {
        if (auto* const* list = std::get_if<ComboBox*>(&control)) {
            return ItemSetter(**list, IntegerArgument(value));
        }
    } else if (auto* const* drives = std::get_if<DriveList*>(&control)) {
        if (property == "Drive") return DriveSetter(**drives, value);
    } else if (auto* const* folders = std::get_if<FolderList*>(&control)) {
        if (property == "Path") return FolderSetter(**folders, value);
    } else if (auto* const* strip = std::get_if<TabStrip*>(&control)) {
        if (property == "Selected") return PageSetter(**strip, IntegerArgument(value));
    }
    NoInput(name);
}

void RunSet(Session& session, const Words& arguments) {
    session.Running();
    const auto found = SearchControl(session, arguments[0]);
    if (!found) {
        StoreVariable(session, arguments[0], arguments[1]);
        return;
    }
    const Handler setter = SetterOf(*found, arguments[0], arguments[1]);
    CheckTakesInput(*found);
    Dispatch(session, setter);
}

Form& VisibleForm(Session& session, const std::string& name) {
    session.Running();
    Form& form = FindForm(session, name);
    if (!form.Visible) throw CommandError{name + " is not visible"};
    return form;
}

void RunResize(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    const int width = PixelsArgument(arguments[1]);
    const int height = PixelsArgument(arguments[2]);
    Dispatch(session, [&](Workstation& w) { ResizeForm(w, form, width, height); });
}

void ChangeState(Session& session, const std::string& name, int state) {
    Form& form = VisibleForm(session, name);
    Dispatch(session, [&](Workstation& w) { ChangeWindowState(w, form, state); });
}

void RunMinimize(Session& session, const Words& arguments) {
    ChangeState(session, arguments[0], 1);
}

// The client area of a maximised window is taken to be the whole screen.
void RunMaximize(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    const ScreenSize screen = session.machine.platform.screen;
    Dispatch(session,
             [&](Workstation& w) { ChangeWindowState(w, form, 2, screen.width, screen.height); });
}

void RunRestore(Session& session, const Words& arguments) { ChangeState(session, arguments[0], 0); }

void RunActivate(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    CheckForm(session, form);
    Dispatch(session, form.Activate);
    if (session.machine.Running()) Dispatch(session, form.Paint);
}

void RunClose(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    CheckForm(session, form);
    Dispatch(session, [&](Workstation& w) { CloseForm(w, form); });
}

void RunAnswer(Session& session, const Words& arguments) {
    const std::map<std::string, Answer> answers = {{"OK", Answer::Ok},
                                                   {"Yes", Answer::Yes},
                                                   {"No", Answer::No},
                                                   {"Cancel", Answer::Cancel},
                                                   {"Retry", Answer::Retry}};
    for (const std::string& word : arguments) {
        const auto found = answers.find(word);
        if (found == answers.end()) {
            throw CommandError{Quoted(word) + " is none of OK, Yes, No, Cancel, Retry"};
        }
        session.machine.dialogs.AnswerNext(found->second);
    }
}

// One full name, or a folder and names.
void RunChoose(Session& session, const Words& arguments) {
    ScriptedDialogs& dialogs = session.machine.dialogs;
    if (arguments.size() == 1 && arguments[0] == "cancel") return dialogs.ChooseNext(std::nullopt);
    std::string chosen = arguments[0];
    for (std::size_t i = 1; i < arguments.size(); ++i) chosen += '\0' + arguments[i];
    dialogs.ChooseNext(chosen);
}

void RunPrinterSetup(Session& session, const Words& arguments) {
    ScriptedPrinter& printer = session.machine.printer;
    if (arguments.size() == 1 && arguments[0] == "cancel") return printer.ChooseNext(std::nullopt);
    SetupChoice choice;
    for (const std::string& word : arguments) {
        const std::size_t sign = word.find('=');
        const std::string key = word.substr(0, sign);
        const auto property = PrinterPropertyOf(key);
        if (sign == std::string::npos || (!property && key != "DeviceName")) {
            throw CommandError{Quoted(word) + " is no KEY=VALUE of DeviceName, " +
                               PrinterPropertyNames()};
        }
        const std::string value = word.substr(sign + 1);
        if (property) {
            choice.properties[*property] = ToInt16(NumberArgument(value));
        } else {
            choice.deviceName = value;
        }
    }
    printer.ChooseNext(choice);
}

void RunDropFiles(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    CheckForm(session, form);
    if (!form.DropFiles) throw CommandError{arguments[0] + " takes no files"};
    const Words names(arguments.begin() + 1, arguments.end());
    Dispatch(session, [&](Workstation& w) {
        // By value: the handler may put its form back into the design state.
        const auto drop = form.DropFiles;
        drop(w, names);
    });
}

constexpr Command Commands[] = {
    {"click", "NAME", 1, 1, RunClick},
    {"type", "NAME VALUE", 2, 2, RunType},
    {"hover", "NAME", 1, 1, RunHover},
    {"set", "NAME VALUE", 2, 2, RunSet},
    {"drop", "SOURCE TARGET X Y", 4, 4, RunDrop},
    {"drop-files", "FORM NAME...", 2, AnyNumber, RunDropFiles},
    {"paste", "NAME VALUE", 2, 2, RunPaste},
    {"resize", "FORM WIDTH HEIGHT", 3, 3, RunResize},
    {"minimize", "FORM", 1, 1, RunMinimize},
    {"maximize", "FORM", 1, 1, RunMaximize},
    {"restore", "FORM", 1, 1, RunRestore},
    {"activate", "FORM", 1, 1, RunActivate},
    {"close", "FORM", 1, 1, RunClose},
    {"answer", "BUTTON...", 1, AnyNumber, RunAnswer},
    {"choose", "VALUE...|cancel", 1, AnyNumber, RunChoose},
    {"printer-setup", "KEY=VALUE...|cancel", 1, AnyNumber, RunPrinterSetup},
};

}  // namespace

std::span<const Command> CommandsOfOperator() { return Commands; }

}  // namespace cumeron
