#include "platform/host/form_view.h"

#include <QFile>
#include <QHelpEvent>
#include <QPushButton>
#include <QToolTip>
#include <cmath>

#include "platform/host/file_drop.h"
#include "platform/host/form_designs.h"
#include "platform/host/form_steps.h"
#include "platform/host/unicode.h"

namespace cumeron {
namespace {

constexpr int SameChange = 300;  // ms in which the desktop tells all of a change

QPoint PixelsOf(double leftTwips, double topTwips) {
    return {static_cast<int>(std::lround(leftTwips / TwipsPerPixel)),
            static_cast<int>(std::lround(topTwips / TwipsPerPixel))};
}

QSize ClientSize(const Form& form) {
    return {static_cast<int>(std::lround(form.ScaleWidth())),
            static_cast<int>(std::lround(form.ScaleHeight()))};
}

template <class Kind>
bool Has(const ControlList& controls) {
    for (const NamedControl& named : controls) {
        if (std::holds_alternative<Kind*>(named.control)) return true;
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
      window(std::make_unique<FormWindow>(Has<MenuEntry>(record.Controls()))),
      gestures(*window->Client(), [this](const Handler& handler) { Run(handler); }),
      controls(record.Controls()) {
    window->setObjectName(ToUnicode(form.Name));
    shownFront = form.BroughtToFront;
    shownBack = form.SentToBack;
    designed = SetUpDesign(form.Name, window->Client());
    // A design is made of the desktop's own widgets, and looks as the desktop wants it.
    if (!designed) window->UsePaper();
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
        const int state = window->State();
        if (!form.Visible || state == 1 || size == ClientSize(form)) return;
        // What the window has told is not told back to it.
        shownPlace.width = size.width() * TwipsPerPixel;
        shownPlace.height = size.height() * TwipsPerPixel;
        if (state != form.WindowState) {
            TellState(state, true);
        } else {
            NoteChange();
            Run([this, size](Workstation& w) { ResizeForm(w, form, size.width(), size.height()); });
        }
    };
    window->Moved = [this](QPoint place) {
        NoteChange();
        shownPlace.left = place.x() * TwipsPerPixel;
        shownPlace.top = place.y() * TwipsPerPixel;
        Run([this](Workstation& w) { MoveForm(w, form, shownPlace.left, shownPlace.top); });
    };
    window->StateChanged = [this](int state) {
        // A maximised window may have its size already.
        if (state != form.WindowState) TellState(state, state == 2);
    };
    window->CloseAsked = [this] { Run([this](Workstation& w) { CloseForm(w, form); }); };
    new FileDrop(
        *window, [this] { return form.Enabled && form.DropFiles; },
        [this](const FileDrop::Names& names) {
            // By value: the handler may put its form back into the design state.
            Run([drop = form.DropFiles, names](Workstation& w) { drop(w, names); });
        });
    if (Has<Button>(controls)) {
        window->KeyPressed = [this](int key) { return KeyPressed(key); };
    }
}

void FormView::NoteChange() {
    if (!sinceChange.isValid() || sinceChange.elapsed() > SameChange) {
        steadyPlace = {form.normalLeft, form.normalTop, form.normalWidth, form.normalHeight};
    }
    sinceChange.start();
}

void FormView::TellState(int state, bool withSize) {
    shownState = state;
    // Some desktops tell the size and place of a maximised window before they tell that it is one;
    // it has passed for the normal one then.
    if (state != 0 && sinceChange.isValid() && sinceChange.elapsed() <= SameChange) {
        form.Left = steadyPlace.left;
        form.Top = steadyPlace.top;
        form.Width = steadyPlace.width;
        form.Height = steadyPlace.height;
    }
    const QSize size = window->Client()->size();
    Run([=, this](Workstation& w) {
        if (withSize) {
            ChangeWindowState(w, form, state, size.width(), size.height());
        } else {
            ChangeWindowState(w, form, state);
        }
    });
}

// The keys of a dialog: Enter is the button that has the focus, else the design's default button;
// Escape is Cancel, or the close box where there is none.
bool FormView::KeyPressed(int key) {
    QPushButton* pressed = nullptr;
    if (key == Qt::Key_Escape) {
        for (auto* button : window->Client()->findChildren<QPushButton*>()) {
            if (button->text().remove('&') == "Cancel") pressed = button;
        }
        if (pressed == nullptr) window->CloseAsked();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        pressed = qobject_cast<QPushButton*>(window->focusWidget());
        for (auto* button : window->Client()->findChildren<QPushButton*>()) {
            if (pressed == nullptr && button->isDefault()) pressed = button;
        }
    } else {
        return false;
    }
    if (pressed != nullptr) pressed->click();
    return true;
}

// By value on purpose: a handler may put its form, and so itself, back into the design state.
void FormView::Run(const Handler& handler) { calls.run(Handler(handler)); }

QWidget* FormView::ParentOf(const NamedControl& named) const {
    const auto found = containers.find(named.parent);
    return found != containers.end() ? found->second : window->Client();
}

// The compiler of designs makes the names identifiers: "optCType(0)" comes as "optCType_0_".
QWidget* FormView::DesignedWidget(const NamedControl& named) const {
    const QString name = WidgetName(named);
    auto* widget =
        window->Client()->findChild<QWidget*>(QString(name).replace('(', '_').replace(')', '_'));
    if (widget == nullptr) throw std::logic_error(form.Name + ".ui: no widget " + named.name);
    widget->setObjectName(name);
    return widget;
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
    const auto found = tipped.find(watched);
    if (event->type() != QEvent::ToolTip || found == tipped.end() || !calls.tip) return false;
    const QString tip = calls.tip(found->second);
    if (tip.isEmpty()) return false;
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tip, static_cast<QWidget*>(watched));
    return true;
}

void FormView::Sync() {
    SyncBars();
    for (const auto& step : steps) step();
    gestures.Sync();
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
    const bool back = shownBack != form.SentToBack;
    shownFront = form.BroughtToFront;
    shownBack = form.SentToBack;
    if (window->isHidden() && form.Visible) Appear();
    if (!window->isHidden() && !form.Visible) window->hide();
    if (back && form.Visible) window->lower();
    if (front && form.Visible) window->BringToFront();
}

void FormView::Appear() {
    const bool modal = form.ModalDepth > 0;
    FormWindow* outer = modal && calls.outer ? calls.outer(form) : nullptr;
    window->SetModal(modal, outer);
    const bool hasPlace = form.Left != 0 || form.Top != 0;
    if (outer != nullptr && !hasPlace) window->CentreOn(*outer);
    window->show();
    if (designed) window->FocusFirst();
}

}  // namespace cumeron
