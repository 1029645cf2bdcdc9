// A form: a window as a record, with its controls and the handlers of its life. The procedures
// below carry it through that life (Load, Resize, Activate, Paint, QueryUnload, Unload); they are
// called by menu handlers, by the start and by both platforms.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace cumeron {

inline constexpr int TwipsPerPixel = 15;

struct Form {
    std::string Name;  // "frmMain"
    std::string Caption;
    std::string Icon;
    double Left = 0, Top = 0;      // twips, of the window on the screen
    double Width = 0, Height = 0;  // twips, of the client area: 15 to the pixel
    int WindowState = 0;           // 0 normal, 1 minimised, 2 maximised
    int MousePointer = 0;          // 0 arrow, 11 hourglass
    bool Enabled = true;
    bool Visible = false;
    bool TopMost = false;
    bool Loaded = false;
    unsigned BroughtToFront = 0;  // counted up each time the form is to come to the front
    unsigned SentToBack = 0;      // the same for going behind the others
    int ModalDepth = 0;           // 0: not modal; of several modal forms the deepest has the input
    // Place and size, in twips, to which a minimised or maximised window goes back. The procedures
    // below keep them; who sets Left, Top, Width or Height itself calls KeepNormalPlace.
    double normalLeft = 0, normalTop = 0, normalWidth = 0, normalHeight = 0;
    bool ShownSinceLoad = false;  // kept by ShowForm: Resize has come

    Handler Load, Resize, Activate, Paint, Unload;
    std::function<bool(Workstation&)> QueryUnload;  // true keeps the form
    // Files were dragged onto the window, by their full names; empty: it takes none.
    std::function<void(Workstation&, const std::vector<std::string>& names)> DropFiles;

    double ScaleWidth() const { return Width / TwipsPerPixel; }    // pixels
    double ScaleHeight() const { return Height / TwipsPerPixel; }  // pixels

    virtual ~Form() = default;
    virtual ControlList Controls() = 0;
    // Puts the record back into its design state (also Loaded and Visible).
    virtual void Reset() = 0;
};

// Loads the form if it is not loaded: Loaded, then its Load.
void LoadForm(Workstation& w, Form& form);
// Loads it if needed and shows it without waiting; Resize comes once, at the first show after a
// load, then Activate and Paint.
void ShowForm(Workstation& w, Form& form);
// Shows it and gives turns to the event loop until it is hidden or unloaded. Meanwhile no other
// form takes input. Returns at once when it is shown already.
void ShowModal(Workstation& w, Form& form);
// The form that alone takes input now; null when all do.
Form* ModalForm(Workstation& w);
// Hides it; it stays loaded and keeps what it holds.
void HideForm(Form& form);
// Asks QueryUnload, then unloads. False when the form stays.
bool CloseForm(Workstation& w, Form& form);
// Unload without the question, then the design state; BroughtToFront and SentToBack go on counting.
void UnloadForm(Workstation& w, Form& form);
// The place and size of the record are the normal ones, whatever WindowState says.
void KeepNormalPlace(Form& form);
// The operator has moved the window; twips.
void MoveForm(Workstation& w, Form& form, double left, double top);
// The window has a new client area, in pixels: stores it and runs Resize. A size that comes with a
// new window state goes to ChangeWindowState, so that it does not pass for the normal one.
void ResizeForm(Workstation& w, Form& form, double widthPixels, double heightPixels);
// The window is normal (0), minimised (1) or maximised (2) now; runs Resize. State 0 puts the
// normal place and size into the record.
void ChangeWindowState(Workstation& w, Form& form, int state);
// The same with the client area that came with the state, in pixels.
void ChangeWindowState(Workstation& w, Form& form, int state, double widthPixels,
                       double heightPixels);

// Chooses the option, puts the others of its frame out, and runs its Click.
void ChooseOption(Workstation& w, Form& form, OptionButton& option);
// Chooses the item, from 0, and runs Click; an index outside the list selects nothing.
void SelectItem(Workstation& w, ComboBox& list, int index);
// Types a text into the list's box and runs Change; an item of that text counts as chosen.
void TypeItem(Workstation& w, ComboBox& list, const std::string& text);

}  // namespace cumeron
