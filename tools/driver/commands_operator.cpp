// The operator: clicks, keys, inputs, windows, answers.
#include <algorithm>

#include "commands.h"
#include "names.h"
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

void CheckForm(const Form& form) {
    if (!form.Visible) throw CommandError{form.Name + " is not visible"};
    if (!form.Enabled) throw CommandError{form.Name + " is disabled"};
}

void CheckEnabled(const FoundControl& found) {
    const Control* control = SeenControl(found.named.control);
    if (!control) throw CommandError{NameOf(found.named) + " is nothing to see"};
    if (!control->Enabled) throw CommandError{NameOf(found.named) + " is disabled"};
}

// A click has to reach the control: it, what it lies in and its form are visible and enabled.
void CheckReachable(const FoundControl& found) {
    CheckForm(*found.form);
    FoundControl place = found;
    while (true) {
        CheckEnabled(place);
        if (!SeenControl(place.named.control)->Visible) {
            throw CommandError{NameOf(place.named) + " is not visible"};
        }
        const auto parent = ParentOf(*found.form, place.named);
        if (!parent) return;
        place.named = *parent;
    }
}

void Dispatch(Session& session, const Handler& handler) {
    Workstation& w = session.Running();
    session.machine.Enter([&] { DispatchEvent(w, handler); });
}

void RunClick(Session& session, const Words& arguments) {
    session.Running();
    const FoundControl found = FindControl(session, arguments[0]);
    if (!found.property.empty()) throw CommandError{arguments[0] + " is no control"};
    CheckReachable(found);
    if (auto* const* button = std::get_if<ToolButton*>(&found.named.control)) {
        if ((*button)->CheckStyle) (*button)->Value = 1 - (*button)->Value;
    }
    Dispatch(session, SeenControl(found.named.control)->Click);
}

TextBox& InputBox(const FoundControl& found, const std::string& name) {
    auto* const* box = std::get_if<TextBox*>(&found.named.control);
    if (!box || (!found.property.empty() && found.property != "Text")) {
        throw CommandError{name + " is no input"};
    }
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

void RunType(Session& session, const Words& arguments) {
    for (const char c : arguments[1]) {
        session.Running();
        const FoundControl found = FindControl(session, arguments[0]);
        TextBox& box = InputBox(found, arguments[0]);
        CheckReachable(found);
        int key = static_cast<unsigned char>(c);
        if (box.KeyPress) Dispatch(session, [&](Workstation& w) { key = box.KeyPress(w, key); });
        TypeKey(box, key);
    }
}

void RunSet(Session& session, const Words& arguments) {
    session.Running();
    const auto found = SearchControl(session, arguments[0]);
    if (!found) {
        StoreVariable(session, arguments[0], arguments[1]);
        return;
    }
    TextBox& box = InputBox(*found, arguments[0]);
    CheckEnabled(*found);
    box.Text = arguments[1];
    box.SelStart = static_cast<int>(box.Text.size());
}

void RunPaste(Session& session, const Words& arguments) {
    session.Running();
    const FoundControl found = FindControl(session, arguments[0]);
    TextBox& box = InputBox(found, arguments[0]);
    CheckReachable(found);
    InsertText(box, arguments[1]);
}

Form& VisibleForm(Session& session, const std::string& name) {
    session.Running();
    Form& form = FindForm(session, name);
    if (!form.Visible) throw CommandError{name + " is not visible"};
    return form;
}

void RunResize(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    const int width = IntegerArgument(arguments[1]);
    const int height = IntegerArgument(arguments[2]);
    if (width < 1 || height < 1) throw CommandError{"a window has a size above 0"};
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
    CheckForm(form);
    Dispatch(session, form.Activate);
    if (session.machine.Running()) Dispatch(session, form.Paint);
}

void RunClose(Session& session, const Words& arguments) {
    Form& form = VisibleForm(session, arguments[0]);
    CheckForm(form);
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

constexpr Command Commands[] = {
    {"click", "NAME", 1, 1, RunClick},
    {"type", "NAME VALUE", 2, 2, RunType},
    {"hover", "NAME", 1, 1, nullptr, "controls that notice the mouse"},
    {"set", "NAME VALUE", 2, 2, RunSet},
    {"drop", "SOURCE TARGET X Y", 4, 4, nullptr, "dragging between controls"},
    {"drop-files", "FORM NAME...", 2, AnyNumber, nullptr, "the off-line reader"},
    {"paste", "NAME VALUE", 2, 2, RunPaste},
    {"resize", "FORM WIDTH HEIGHT", 3, 3, RunResize},
    {"minimize", "FORM", 1, 1, RunMinimize},
    {"maximize", "FORM", 1, 1, RunMaximize},
    {"restore", "FORM", 1, 1, RunRestore},
    {"activate", "FORM", 1, 1, RunActivate},
    {"close", "FORM", 1, 1, RunClose},
    {"answer", "BUTTON...", 1, AnyNumber, RunAnswer},
    {"choose", "VALUE...|cancel", 1, AnyNumber, nullptr, "the file dialogs"},
    {"printer-setup", "KEY=VALUE...|cancel", 1, AnyNumber, nullptr, "the printing module"},
};

}  // namespace

std::span<const Command> CommandsOfOperator() { return Commands; }

}  // namespace cumeron
