// The controls of a form as plain records. Core code sets their fields and nothing else; the
// view of the host and the scripted platform find them through the list that each form gives,
// bring what is seen in line with them, and call their handlers through DispatchEvent.
// Places and sizes are pixels of the client area of the form (or of the frame they stand in).
#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace cumeron {

struct Workstation;
using Handler = std::function<void(Workstation&)>;
// A control was dropped; the point is in the scale of the control that it was dropped on.
struct Control;
using DropHandler = std::function<void(Workstation&, const Control& source, double x, double y)>;

// What every control has.
struct Control {
    std::string ToolTipText;
    bool Enabled = true;
    bool Visible = true;
    double Left = 0, Top = 0, Width = 0, Height = 0;
    bool Draggable = false;  // the operator can drag it onto others
    Handler Click;
    Handler MouseEnter;
    DropHandler DragDrop;
};

enum class TextAlignment { Left, Right, Center };

struct Label : Control {
    std::string Caption;
    int ForeColor = 0;   // 00BBGGRR
    int BackColor = -1;  // 00BBGGRR; -1 is that of the window
    int FontSize = 9;    // points
    bool Bold = false;
    TextAlignment Alignment = TextAlignment::Left;
};

// A titled box around other controls.
struct Frame : Control {
    std::string Caption;
    int ForeColor = 0;  // 00BBGGRR
};

struct Button : Control {
    std::string Caption;
};

// One of several of which one is chosen: those that lie in the same frame. ChooseOption (form.h)
// chooses one.
struct OptionButton : Control {
    std::string Caption;
    bool Value = false;
};

struct CheckBox : Control {
    std::string Caption;
    int Value = 0;  // 1 when ticked
};

// A list to choose from. SelectItem and TypeItem (form.h) do what the operator does.
struct ComboBox : Control {
    std::vector<std::string> Items;
    int ListIndex = -1;  // -1: none
    std::string Text;    // of the chosen item, or what was typed
    bool Editable = false;
    Handler Change;  // a text was typed; Click: an item was chosen
};

// A drive to choose, of Files::Drives().
struct DriveList : Control {
    std::string Drive;
    Handler Change;
};

// A folder to choose, with those above and below it.
struct FolderList : Control {
    std::string Path;
    Handler Change;  // Click: the chosen folder was clicked
};

// Pages of which one is selected; what they hold the form shows and hides itself.
struct TabStrip : Control {
    std::vector<std::string> Pages;  // captions
    int Selected = 0;
};

// An entry of a menu bar; an entry that others name as their parent is a menu of its own.
struct MenuEntry : Control {
    std::string Caption;  // "&" before the letter of the mnemonic
    bool Checked = false;
    bool SeparatorBefore = false;
};

// A button of a tool bar. Value is 1 when pressed. A click on a check style button changes Value
// before its handler runs; the other buttons stay 0.
struct ToolButton : Control {
    std::string Picture;  // name of the icon
    int Value = 0;
    bool CheckStyle = false;
    bool SeparatorBefore = false;
};

// A panel of a status bar: a text, or a picture of fixed width.
struct Panel : Control {
    std::string Text;
    std::string Picture;  // name of the icon; "" for a text panel
};

struct Image : Control {
    std::string Picture;  // name of the icon or of the control that the picture was taken from
};

struct TextBox : Control {
    std::string Text;
    int SelStart = 0;
    bool MultiLine = false;
    std::string FontName;  // "" is the font of the desktop
    std::string Mask;      // "##": the places that take a digit each; "" takes any text
    // Gets the code of the key and gives the one to use instead; 0 throws the key away.
    std::function<int(Workstation&, int)> KeyPress;
    // Gets a text that is pasted or dropped; true keeps it from the box.
    std::function<bool(Workstation&, const std::string&)> Paste;
    Handler Change;  // the operator has changed the text
};

// Due every Interval milliseconds, counted from the moment it was enabled.
struct Timer {
    int Interval = 0;
    Handler Tick;
    // Keeps the grid of whole intervals since the program's start for the whole run: switching it
    // off and on again does not move it.
    bool KeepsGrid = false;

    bool Enabled() const { return enabled; }
    void SetEnabled(bool on) {
        enabled = on;
        ++settings;
    }
    // How often Enabled was set; a change tells the platform to count anew.
    unsigned Settings() const { return settings; }

    // Kept by DispatchTimer: a handler is never entered again while it runs.
    bool running = false;
    bool pending = false;

private:
    bool enabled = false;
    unsigned settings = 0;
};

struct Surface;

using AnyControl = std::variant<Label*, Frame*, Button*, MenuEntry*, ToolButton*, Panel*, Image*,
                                TextBox*, Surface*, Timer*, OptionButton*, CheckBox*, ComboBox*,
                                DriveList*, FolderList*, TabStrip*>;

// One line of a form's list of controls.
struct NamedControl {
    std::string name;    // "lblDateTime"; for tool buttons and panels their key, "Log"
    int index;           // element of a control array, -1 for a single control
    std::string parent;  // "" for the form, the bar ("Toolbar1", "sbaStatus"), the menu, the frame
    AnyControl control;
};
using ControlList = std::vector<NamedControl>;

}  // namespace cumeron
