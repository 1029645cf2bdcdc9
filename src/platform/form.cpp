#include "platform/form.h"

#include <algorithm>

#include "workstation.h"

namespace cumeron {

namespace {

// By value: a handler may unload its own form, which puts the record, and the handler in it, back
// into the design state.
void Run(Workstation& w, Handler handler) {
    if (handler) handler(w);
}

void SetClientArea(Form& form, double widthPixels, double heightPixels) {
    form.Width = widthPixels * TwipsPerPixel;
    form.Height = heightPixels * TwipsPerPixel;
}

void TakeWindowState(Form& form, int state) {
    if (form.WindowState == 0) KeepNormalPlace(form);
    if (state == 0) {
        form.Left = form.normalLeft;
        form.Top = form.normalTop;
        form.Width = form.normalWidth;
        form.Height = form.normalHeight;
    }
    form.WindowState = state;
}

}  // namespace

void LoadForm(Workstation& w, Form& form) {
    if (form.Loaded) return;
    form.Loaded = true;
    form.ShownSinceLoad = false;
    Run(w, form.Load);
}

void ShowForm(Workstation& w, Form& form) {
    LoadForm(w, form);
    form.Visible = true;
    if (!form.ShownSinceLoad) {
        form.ShownSinceLoad = true;
        Run(w, form.Resize);
    }
    Run(w, form.Activate);
    Run(w, form.Paint);
}

void ShowModal(Workstation& w, Form& form) {
    if (form.Visible) return;
    const Form* outer = ModalForm(w);
    form.ModalDepth = outer ? outer->ModalDepth + 1 : 1;
    ShowForm(w, form);
    w.platform.events.WaitUntil([&form] { return !form.Visible; });
}

Form* ModalForm(Workstation& w) {
    Form* deepest = nullptr;
    for (Form* form : w.Forms()) {
        if (!form->Visible || form->ModalDepth == 0) continue;
        if (!deepest || form->ModalDepth > deepest->ModalDepth) deepest = form;
    }
    return deepest;
}

void HideForm(Form& form) {
    form.Visible = false;
    form.ModalDepth = 0;
}

bool CloseForm(Workstation& w, Form& form) {
    const auto queryUnload = form.QueryUnload;
    if (queryUnload && queryUnload(w)) return false;
    UnloadForm(w, form);
    return true;
}

void UnloadForm(Workstation& w, Form& form) {
    if (!form.Loaded) return;
    Run(w, form.Unload);
    // The views look for a change of these numbers; starting afresh could repeat one they have
    // seen.
    const unsigned broughtToFront = form.BroughtToFront;
    const unsigned sentToBack = form.SentToBack;
    form.Reset();
    form.BroughtToFront = broughtToFront;
    form.SentToBack = sentToBack;
}

void KeepNormalPlace(Form& form) {
    form.normalLeft = form.Left;
    form.normalTop = form.Top;
    form.normalWidth = form.Width;
    form.normalHeight = form.Height;
}

void MoveForm(Workstation&, Form& form, double left, double top) {
    if (!form.Loaded) return;
    form.Left = left;
    form.Top = top;
    if (form.WindowState == 0) KeepNormalPlace(form);
}

void ResizeForm(Workstation& w, Form& form, double widthPixels, double heightPixels) {
    if (!form.Loaded) return;
    SetClientArea(form, widthPixels, heightPixels);
    if (form.WindowState == 0) KeepNormalPlace(form);
    Run(w, form.Resize);
}

void ChangeWindowState(Workstation& w, Form& form, int state) {
    if (!form.Loaded) return;
    TakeWindowState(form, state);
    Run(w, form.Resize);
}

void ChangeWindowState(Workstation& w, Form& form, int state, double widthPixels,
                       double heightPixels) {
    if (!form.Loaded) return;
    TakeWindowState(form, state);
    SetClientArea(form, widthPixels, heightPixels);
    if (state == 0) KeepNormalPlace(form);
    Run(w, form.Resize);
}

void ChooseOption(Workstation& w, Form& form, OptionButton& option) {
    const ControlList controls = form.Controls();
    const auto isChosen = [&](const NamedControl& named) {
        auto* const* other = std::get_if<OptionButton*>(&named.control);
        return other && *other == &option;
    };
    const auto chosen = std::find_if(controls.begin(), controls.end(), isChosen);
    for (const NamedControl& named : controls) {
        auto* const* other = std::get_if<OptionButton*>(&named.control);
        if (other && named.parent == chosen->parent) (*other)->Value = false;
    }
    option.Value = true;
    Run(w, option.Click);
}

void SelectItem(Workstation& w, ComboBox& list, int index) {
    const bool inside = index >= 0 && index < static_cast<int>(list.Items.size());
    list.ListIndex = inside ? index : -1;
    list.Text = inside ? list.Items[static_cast<std::size_t>(index)] : "";
    Run(w, list.Click);
}

void TypeItem(Workstation& w, ComboBox& list, const std::string& text) {
    const auto item = std::find(list.Items.begin(), list.Items.end(), text);
    list.Text = text;
    list.ListIndex = item == list.Items.end() ? -1 : static_cast<int>(item - list.Items.begin());
    Run(w, list.Change);
}

}  // namespace cumeron
