#include "platform/form.h"

namespace cumeron {

namespace {

// By value: a handler may unload its own form, which puts the record, and the handler in it, back
// into the design state.
void Run(Workstation& w, Handler handler) {
    if (handler) handler(w);
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

void HideForm(Form& form) { form.Visible = false; }

bool CloseForm(Workstation& w, Form& form) {
    const auto queryUnload = form.QueryUnload;
    if (queryUnload && queryUnload(w)) return false;
    UnloadForm(w, form);
    return true;
}

void UnloadForm(Workstation& w, Form& form) {
    if (!form.Loaded) return;
    Run(w, form.Unload);
    // The views look for a change of this number; starting afresh could repeat one they have seen.
    const unsigned broughtToFront = form.BroughtToFront;
    form.Reset();
    form.BroughtToFront = broughtToFront;
}

void ResizeForm(Workstation& w, Form& form, double widthPixels, double heightPixels) {
    if (!form.Loaded) return;
    form.Width = widthPixels * TwipsPerPixel;
    form.Height = heightPixels * TwipsPerPixel;
    Run(w, form.Resize);
}

void ChangeWindowState(Workstation& w, Form& form, int state) {
    if (!form.Loaded) return;
    form.WindowState = state;
    Run(w, form.Resize);
}

}  // namespace cumeron
