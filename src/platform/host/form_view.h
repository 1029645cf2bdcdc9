// One form on the desktop: its window and a widget for each control of its record, found by name.
// The widgets follow the records; what the operator does comes back as calls of handlers. The host
// view makes one per form.
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

#include "platform/form.h"
#include "platform/host/bars.h"
#include "platform/host/form_window.h"
#include "platform/host/gestures.h"
#include "platform/surface.h"

namespace cumeron {

// How a form view reaches the program: everything it calls goes through here.
struct ViewCalls {
    // Runs the step as an event and brings all views in line afterwards.
    std::function<void(const Handler&)> run;
    // The window that a modal form opens in front of; null for none.
    std::function<FormWindow*(const Form&)> outer;
    // The tip over a control that changes with time, asked when it is shown; "" for none.
    std::function<QString(const std::string& control)> tip;
    // What lists of drives and folders offer; empty functions offer nothing.
    std::function<std::vector<std::string>()> drives;
    std::function<std::vector<std::string>(const std::string& folder)> foldersIn;
};

// Heights of the bars in pixels, for forms that have them.
struct BarHeights {
    std::function<double()> toolBar;
    std::function<double()> statusBar;
};

class FormView : public QObject {
public:
    // A form whose design (form_designs.h) lacks a control, or has another kind of widget in its
    // place, is an error of the program: std::logic_error.
    FormView(Form& form, ViewCalls calls, BarHeights heights);
    ~FormView() override;

    // Brings the window and its widgets in line with the records.
    void Sync();
    // Has the surfaces painted that have changed.
    void SyncSurfaces();

    FormWindow& Window() { return *window; }

private:
    struct Place {
        double left = 0, top = 0, width = 0, height = 0;
    };

    void Bind(const NamedControl& named, Label& record);
    void Bind(const NamedControl& named, Frame& record);
    void Bind(const NamedControl& named, Button& record);
    void Bind(const NamedControl& named, MenuEntry& record);
    void Bind(const NamedControl& named, ToolButton& record);
    void Bind(const NamedControl& named, Panel& record);
    void Bind(const NamedControl& named, Image& record);
    void Bind(const NamedControl& named, TextBox& record);
    void Bind(const NamedControl& named, Surface& record);
    void Bind(const NamedControl& named, OptionButton& record);
    void Bind(const NamedControl& named, CheckBox& record);
    void Bind(const NamedControl& named, ComboBox& record);
    void Bind(const NamedControl& named, DriveList& record);
    void Bind(const NamedControl& named, FolderList& record);
    void Bind(const NamedControl& named, TabStrip& record);
    void Bind(const NamedControl&, Timer&) {}  // the host view's

    void BindAll();
    void BindWindow();
    QWidget* ParentOf(const NamedControl& named) const;
    QWidget* DesignedWidget(const NamedControl& named) const;
    // The control's widget: the one of the form's design, else a new one of that kind.
    template <class Widget, class New = Widget>
    Widget* WidgetFor(const NamedControl& named) {
        if (!designed) return new New(ParentOf(named));
        auto* widget = dynamic_cast<Widget*>(DesignedWidget(named));
        if (widget == nullptr) {
            throw std::logic_error(form.Name + ".ui: wrong kind of widget " + named.name);
        }
        return widget;
    }
    // Name, place, visibility and tool tip, which every placed control has.
    void Follow(const NamedControl& named, Control& record, QWidget* widget);
    void BindMenu(MenuEntry& record, QMenu* menu);
    void BindAction(MenuEntry& record, QAction* action);
    void BindLine(const NamedControl& named, TextBox& record);
    void BindLines(const NamedControl& named, TextBox& record);
    std::function<int(int)> GateOf(TextBox& record);
    std::function<bool(const std::string&)> PasteGateOf(TextBox& record);
    void TakeText(TextBox& record, const std::string& typed);
    void NoteChange();
    void TellState(int state, bool withSize);
    bool KeyPressed(int key);
    void SyncWindow();
    void SyncPlace();
    void SyncVisible();
    void Appear();
    void SyncBars();
    void Run(const Handler& handler);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Form& form;
    ViewCalls calls;
    BarHeights heights;
    std::unique_ptr<FormWindow> window;
    Gestures gestures;
    ControlList controls;
    bool designed = false;
    std::vector<std::function<void()>> steps;         // one or more per control
    std::vector<std::function<void()>> surfaceSteps;  // one per surface
    std::map<std::string, QWidget*> containers;       // frames, by name
    std::map<std::string, QMenu*> menus;
    std::map<QObject*, std::string> tipped;  // widgets whose tip changes with time
    ToolStrip* toolStrip = nullptr;
    StatusStrip* statusStrip = nullptr;

    // What the window was told or has told last; only a record that differs touches it.
    std::string shownCaption;
    Place shownPlace;
    Place steadyPlace;  // the normal one before the latest changes
    QElapsedTimer sinceChange;
    int shownState = 0;
    unsigned shownFront = 0;
    unsigned shownBack = 0;
    bool shownTopMost = false;
    int shownPointer = 0;
};

// The icon of that name, none when there is none.
QIcon IconOf(const std::string& name);

}  // namespace cumeron
