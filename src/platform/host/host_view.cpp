#include "platform/host/host_view.h"

#include <algorithm>

#include "platform/host/guard.h"
#include "platform/host/numbered_icon.h"
#include "platform/host/reception_tip.h"
#include "shell/dispatch.h"
#include "shell/main_window.h"
#include "workstation.h"

// Outside any namespace, as the macro wants it: a static library keeps its resources only so.
static void UseIcons() { Q_INIT_RESOURCE(icons); }

namespace cumeron {
namespace {

constexpr int FrameInterval = 16;  // ms
constexpr int MostRounds = 8;      // of bringing in line what windows answer to being placed

BarHeights HeightsOf(Form& form) {
    if (auto* main = dynamic_cast<FrmMain*>(&form)) {
        return {[main] { return main->toolbarHeight; }, [main] { return main->sbaStatus.Height; }};
    }
    auto* terminal = dynamic_cast<FrmTerminal*>(&form);
    if (terminal == nullptr) return {};
    return {[&bar = terminal->tbrToolBar] { return bar.Visible ? bar.Height : 0; },
            [&bar = terminal->sbrStatus] { return bar.Visible ? bar.Height : 0; }};
}

}  // namespace

HostView::HostView(Workstation& w, HostMachine& host, std::vector<Form*> shown)
    : workstation(w), machine(host), forms(std::move(shown)), timers([this](Timer& timer) {
          Guarded([&] { DispatchTimer(workstation, timer); });
          Sync();
      }) {
    UseIcons();
    for (Form* form : forms) {
        for (const NamedControl& named : form->Controls()) {
            if (auto* const* timer = std::get_if<Timer*>(&named.control)) timers.Add(**timer);
            if (auto* const* surface = std::get_if<Surface*>(&named.control)) {
                (*surface)->painter = &painter;
            }
        }
    }
    frame.setSingleShot(true);
    frame.setInterval(FrameInterval);
    connect(&frame, &QTimer::timeout, this, [this] {
        if (framePending) Sync();
    });
    machine.events.BeforeTurn = [this] { SyncInTurn(); };
    machine.dialogs.Title = [this] { return forms.front()->Caption; };
    machine.dialogs.Owner = [this]() -> QWidget* {
        Sync();  // a form that was shown just now is the one to stand in front of
        return FrontWindow();
    };
    machine.printer.Owner = machine.dialogs.Owner;
    machine.pictures.Window = [this](const Form& form) -> QWidget* {
        Sync();
        return WindowOf(form);
    };
}

HostView::~HostView() {
    machine.events.BeforeTurn = nullptr;
    machine.dialogs.Title = nullptr;
    machine.dialogs.Owner = nullptr;
    machine.printer.Owner = nullptr;
    machine.pictures.Window = nullptr;
}

FormWindow* HostView::WindowOf(const Form& form) {
    const auto found = views.find(&form);
    return found == views.end() ? nullptr : &found->second->Window();
}

FormWindow* HostView::FrontWindow(const Form* below) {
    FormWindow* front = nullptr;
    int depth = -1;
    for (const Form* form : forms) {
        FormWindow* window = WindowOf(*form);
        const bool eligible = form == forms.front() || form->ModalDepth > 0;
        if (window == nullptr || !window->isVisible() || form == below || !eligible) continue;
        if (form->ModalDepth <= depth) continue;
        depth = form->ModalDepth;
        front = window;
    }
    return front;
}

void HostView::Run(const Handler& handler) {
    Guarded([&] { DispatchEvent(workstation, handler); });
    Sync();
}

FormView& HostView::ViewOf(Form& form) {
    std::unique_ptr<FormView>& view = views[&form];
    if (!view) {
        ViewCalls calls;
        calls.run = [this](const Handler& handler) { Run(handler); };
        calls.outer = [this](const Form& modal) { return FrontWindow(&modal); };
        calls.tip = [this](const std::string& control) {
            return control == "fraValues" ? ReceptionTip(workstation) : QString();
        };
        calls.drives = [this] { return machine.files.Drives(); };
        calls.foldersIn = [this](const std::string& folder) {
            return machine.files.FoldersIn(folder);
        };
        view = std::make_unique<FormView>(form, calls, HeightsOf(form));
        shownNumber = 0;  // its window has no icon yet
        if (&form == &workstation.frmMain) replay = new ReplayBar(*view->Window().MenuBar());
    }
    return *view;
}

// Showing and placing windows makes events of its own, which end up here again.
void HostView::Sync() {
    syncAgain = true;
    if (syncing) return;
    syncing = true;
    for (int round = 0; syncAgain && round < MostRounds; ++round) {
        syncAgain = false;
        SyncForms();
    }
    syncing = false;
}

// A play gives a turn every few messages, far more often than a display can show.
void HostView::SyncInTurn() {
    if (workstation.intake.ReplayBusy != 0 && frame.isActive()) {
        framePending = true;
    } else {
        Sync();
    }
}

void HostView::SyncForms() {
    for (Form* form : forms) {
        if (form->Loaded || views.contains(form)) ViewOf(*form).Sync();
    }
    if (replay != nullptr) replay->Show(workstation.offline.progress);
    SyncIcons();
    timers.Sync();
    framePending = true;
    if (!frame.isActive()) SyncSurfaces();
}

// Before it is numbered, a copy counts as the first.
void HostView::SyncIcons() {
    const int number = std::max<int>(1, workstation.shell.InstanceNumber);
    if (number == shownNumber) return;
    shownNumber = number;
    const QIcon icon = NumberedIcon(IconOf("cumeron"), number);
    for (const auto& [form, view] : views) view->Window().setWindowIcon(icon);
}

void HostView::SyncSurfaces() {
    framePending = false;
    for (const auto& [form, view] : views) view->SyncSurfaces();
    frame.start();
}

}  // namespace cumeron
