// All forms of a workstation on the desktop. main makes one; the event loop of the platform and
// every event bring it in line with the records.
#pragma once

#include <QTimer>
#include <map>
#include <memory>
#include <vector>

#include "platform/host/form_view.h"
#include "platform/host/host_machine.h"
#include "platform/host/replay_bar.h"
#include "platform/host/text_painter.h"
#include "platform/host/view_timers.h"

namespace cumeron {

class HostView : public QObject {
public:
    // Shows the forms that the list gives; the first is the one that boxes stand in front of. Puts
    // itself into the machine's event loop and dialogs for as long as it lives.
    HostView(Workstation& w, HostMachine& machine, std::vector<Form*> forms);
    ~HostView() override;

    // Brings windows, widgets and timers in line with the records.
    void Sync();
    // Null before the form was first loaded.
    FormWindow* WindowOf(const Form& form);

private:
    void Run(const Handler& handler);
    void SyncInTurn();
    void SyncForms();
    void SyncSurfaces();
    FormView& ViewOf(Form& form);
    // The deepest modal window that is on the screen, else the first form's; null when that is not.
    FormWindow* FrontWindow(const Form* below = nullptr);
    void SyncIcons();

    Workstation& workstation;
    HostMachine& machine;
    std::vector<Form*> forms;
    HostTextPainter painter;
    ViewTimers timers;
    std::map<const Form*, std::unique_ptr<FormView>> views;
    ReplayBar* replay = nullptr;  // of the main window, once that was loaded
    int shownNumber = 0;          // of the copy, in the icons
    QTimer frame;                 // surfaces are painted at most once in its interval
    bool framePending = false;
    bool syncing = false;
    bool syncAgain = false;
};

}  // namespace cumeron
