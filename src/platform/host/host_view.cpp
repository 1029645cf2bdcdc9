#include "platform/host/host_view.h"

#include "platform/host/guard.h"
#include "shell/dispatch.h"
#include "shell/main_window.h"

// Outside any namespace, as the macro wants it: a static library keeps its resources only so.
static void UseIcons() { Q_INIT_RESOURCE(icons); }

namespace cumeron {
namespace {

constexpr int FrameInterval = 16;  // ms
constexpr int MostRounds = 8;      // of bringing in line what windows answer to being placed

BarHeights HeightsOf(Form& form) {
    auto* main = dynamic_cast<FrmMain*>(&form);
    if (main == nullptr) return {};
    return {[main] { return main->toolbarHeight; }, [main] { return main->sbaStatus.Height; }};
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
        if (framePending) SyncSurfaces();
    });
    machine.events.BeforeTurn = [this] { Sync(); };
    machine.dialogs.Title = [this] { return forms.front()->Caption; };
    machine.dialogs.Owner = [this]() -> QWidget* {
        FormWindow* window = WindowOf(*forms.front());
        return window != nullptr && window->isVisible() ? window : nullptr;
    };
}

HostView::~HostView() {
    machine.events.BeforeTurn = nullptr;
    machine.dialogs.Title = nullptr;
    machine.dialogs.Owner = nullptr;
}

FormWindow* HostView::WindowOf(const Form& form) {
    const auto found = views.find(&form);
    return found == views.end() ? nullptr : &found->second->Window();
}

void HostView::Run(const Handler& handler) {
    Guarded([&] { DispatchEvent(workstation, handler); });
    Sync();
}

FormView& HostView::ViewOf(Form& form) {
    std::unique_ptr<FormView>& view = views[&form];
    if (!view) {
        const ViewCalls calls{[this](const Handler& handler) { Run(handler); }};
        view = std::make_unique<FormView>(form, calls, HeightsOf(form));
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

void HostView::SyncForms() {
    for (Form* form : forms) {
        if (form->Loaded || views.contains(form)) ViewOf(*form).Sync();
    }
    timers.Sync();
    framePending = true;
    if (!frame.isActive()) SyncSurfaces();
}

void HostView::SyncSurfaces() {
    framePending = false;
    for (const auto& [form, view] : views) view->SyncSurfaces();
    frame.start();
}

}  // namespace cumeron
