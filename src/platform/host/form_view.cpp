#include "platform/host/form_view.h"

#include <QFile>
#include <QMouseEvent>
#include <cmath>

#include "platform/host/unicode.h"

namespace cumeron {
namespace {

QPoint PixelsOf(double leftTwips, double topTwips) {
    return {static_cast<int>(std::lround(leftTwips / TwipsPerPixel)),
            static_cast<int>(std::lround(topTwips / TwipsPerPixel))};
}

QSize ClientSize(const Form& form) {
    return {static_cast<int>(std::lround(form.ScaleWidth())),
            static_cast<int>(std::lround(form.ScaleHeight()))};
}

bool HasMenu(const ControlList& controls) {
    for (const NamedControl& named : controls) {
        if (std::holds_alternative<MenuEntry*>(named.control)) return true;
    }
    return false;
}

}  // namespace

QIcon IconOf(const std::string& name) {
    const QString file = ":/icons/" + ToUnicode(name) + ".svg";
    return !name.empty() && QFile::exists(file) ? QIcon(file) : QIcon();
}

FormView::FormView(Form& record, ViewCalls viewCalls, BarHeights barHeights)
    : form(record),
      calls(std::move(viewCalls)),
      heights(std::move(barHeights)),
      controls(record.Controls()) {
    window = std::make_unique<FormWindow>(HasMenu(controls));
    window->setObjectName(ToUnicode(form.Name));
    window->setWindowIcon(IconOf("cumeron"));
    shownFront = form.BroughtToFront;
    BindAll();
    BindWindow();
}

// The widgets go first; what they still tell while they go needs the rest.
FormView::~FormView() { window.reset(); }

void FormView::BindAll() {
    for (const NamedControl& named : controls) {
        std::visit([&](auto* record) { Bind(named, *record); }, named.control);
    }
}

void FormView::BindWindow() {
    window->Resized = [this](QSize size) {
        SyncBars();
        if (!form.Visible || form.WindowState == 1 || size == ClientSize(form)) return;
        Run([this, size](Workstation& w) { ResizeForm(w, form, size.width(), size.height()); });
    };
    window->Moved = [this](QPoint place) {
        form.Left = shownPlace.left = place.x() * TwipsPerPixel;
        form.Top = shownPlace.top = place.y() * TwipsPerPixel;
    };
    window->StateChanged = [this](int state) {
        if (state == form.WindowState) return;
        shownState = state;
        Run([this, state](Workstation& w) { ChangeWindowState(w, form, state); });
    };
    window->CloseAsked = [this] { Run([this](Workstation& w) { CloseForm(w, form); }); };
}

// By value on purpose: a handler may put its form, and so itself, back into the design state.
void FormView::Run(const Handler& handler) { calls.run(Handler(handler)); }

QWidget* FormView::ParentOf(const NamedControl& named) const {
    const auto found = containers.find(named.parent);
    return found != containers.end() ? found->second : window->Client();
}

void FormView::ClickOnRelease(Control& record, QWidget* widget) {
    clickable[widget] = &record;
    widget->installEventFilter(this);
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
    const auto found = clickable.find(watched);
    if (found == clickable.end() || event->type() != QEvent::MouseButtonRelease) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const auto* widget = static_cast<QWidget*>(watched);
    const bool inside = widget->rect().contains(mouse->position().toPoint());
    if (mouse->button() != Qt::LeftButton || !inside || !found->second->Click) return false;
    Run(found->second->Click);
    return true;
}

void FormView::Sync() {
    SyncBars();
    for (const auto& step : steps) step();
    if (statusStrip != nullptr) statusStrip->Arrange();
    SyncWindow();
}

void FormView::SyncSurfaces() {
    for (const auto& step : surfaceSteps) step();
}

void FormView::SyncBars() {
    const QSize client = window->Client()->size();
    if (toolStrip != nullptr && heights.toolBar) {
        const QRect place(0, 0, client.width(), static_cast<int>(heights.toolBar()));
        if (toolStrip->geometry() != place) toolStrip->setGeometry(place);
    }
    if (statusStrip != nullptr && heights.statusBar) {
        const int height = static_cast<int>(heights.statusBar());
        const QRect place(0, client.height() - height, client.width(), height);
        if (statusStrip->geometry() != place) statusStrip->setGeometry(place);
    }
}

void FormView::SyncWindow() {
    if (shownCaption != form.Caption) {
        shownCaption = form.Caption;
        window->setWindowTitle(ToUnicode(form.Caption));
    }
    if (window->isEnabled() != form.Enabled) window->setEnabled(form.Enabled);
    if (shownPointer != form.MousePointer) {
        shownPointer = form.MousePointer;
        window->setCursor(form.MousePointer == 11 ? Qt::WaitCursor : Qt::ArrowCursor);
    }
    if (shownTopMost != form.TopMost) {
        shownTopMost = form.TopMost;
        window->SetTopMost(form.TopMost);
    }
    if (form.Visible) SyncPlace();
    SyncVisible();
}

void FormView::SyncPlace() {
    const bool resized = shownPlace.width != form.Width || shownPlace.height != form.Height;
    const bool moved = shownPlace.left != form.Left || shownPlace.top != form.Top;
    const bool stateChanged = shownState != form.WindowState;
    shownPlace = {form.Left, form.Top, form.Width, form.Height};
    shownState = form.WindowState;
    const bool restored = stateChanged && form.WindowState == 0;
    if (restored && window->State() != 0) window->ShowState(0);
    // The normal size and place come first, so that the desktop knows them behind a maximised one.
    if (resized && window->State() == 0) window->ResizeClient(ClientSize(form));
    if (moved && window->State() == 0) window->Place(PixelsOf(form.Left, form.Top));
    if (stateChanged && window->State() != form.WindowState) window->ShowState(form.WindowState);
}

void FormView::SyncVisible() {
    const bool front = shownFront != form.BroughtToFront;
    shownFront = form.BroughtToFront;
    if (window->isHidden() == form.Visible) window->setVisible(form.Visible);
    if (front && form.Visible) window->BringToFront();
}

}  // namespace cumeron
