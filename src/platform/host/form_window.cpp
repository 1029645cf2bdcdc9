#include "platform/host/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

namespace cumeron {
namespace {

constexpr int SettlingTime = 300;     // ms
constexpr QSize SeenCorner(120, 32);  // of the window, enough to take hold of it

// Drawings and colours of the records are made for paper and a light window, whatever the theme.
QPalette PaperPalette() {
    QPalette palette(QColor(0xE0, 0xE0, 0xE0), QColor(0xF0, 0xF0, 0xF0));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    }
    return palette;
}

QSize LargestScreen() {
    QSize largest(0, 0);
    for (const QScreen* screen : QGuiApplication::screens()) {
        largest = largest.expandedTo(screen->availableGeometry().size());
    }
    return largest;
}

}  // namespace

QPoint InSight(const QPoint& position, const QList<QRect>& screens) {
    QPoint nearest = position;
    int shortest = -1;
    for (const QRect& screen : screens) {
        const QPoint moved(
            std::clamp(position.x(), screen.left(),
                       std::max(screen.left(), screen.right() - SeenCorner.width())),
            std::clamp(position.y(), screen.top(),
                       std::max(screen.top(), screen.bottom() - SeenCorner.height())));
        const int way = (moved - position).manhattanLength();
        if (shortest < 0 || way < shortest) {
            shortest = way;
            nearest = moved;
        }
    }
    return nearest;
}

FormWindow::FormWindow(bool withMenuBar) : client(new QWidget(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (withMenuBar) {
        menuBar = new QMenuBar(this);
        layout->setMenuBar(menuBar);
    }
    layout->addWidget(client);
    client->installEventFilter(this);
    settling.setSingleShot(true);
    settling.setInterval(SettlingTime);
}

void FormWindow::UsePaper() {
    client->setPalette(PaperPalette());
    client->setAutoFillBackground(true);
}

void FormWindow::ResizeClient(const QSize& wanted) {
    layout()->activate();  // tells the window what its contents need
    const QSize size = wanted.boundedTo(LargestScreen() - (frameSize() - this->size()));
    const int bar = menuBar != nullptr ? layout()->totalHeightForWidth(size.width()) -
                                             layout()->heightForWidth(size.width())
                                       : 0;
    const int barHeight = menuBar != nullptr && bar <= 0 ? menuBar->sizeHint().height() : bar;
    resize(size.width(), size.height() + barHeight);
}

void FormWindow::Place(const QPoint& position) {
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append(screen->availableGeometry());
    }
    settling.start();
    move(InSight(position, screens));
}

void FormWindow::CentreOn(const QWidget& other) {
    QRect place = frameGeometry();
    place.moveCenter(other.frameGeometry().center());
    const QRect screen = other.screen()->availableGeometry();
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    Place(place.topLeft());
}

void FormWindow::SetModal(bool on, FormWindow* outer) {
    if (!on && windowModality() == Qt::NonModal) return;
    const auto kept = windowFlags() & ~Qt::WindowType_Mask;
    setWindowFlags(kept | (on ? Qt::Dialog : Qt::Window));
    setWindowModality(on ? Qt::ApplicationModal : Qt::NonModal);
    winId();  // makes the window of the desktop, which holds the tie to the outer one
    windowHandle()->setTransientParent(outer != nullptr ? outer->windowHandle() : nullptr);
}

void FormWindow::FocusFirst() {
    QWidget* next = client->nextInFocusChain();
    while (next != client && !(next->focusPolicy() & Qt::TabFocus && next->isVisibleTo(this))) {
        next = next->nextInFocusChain();
    }
    // Of options that belong together, the chosen one stands for all.
    if (qobject_cast<QRadioButton*>(next) != nullptr) {
        for (auto* option : next->parentWidget()->findChildren<QRadioButton*>()) {
            if (option->isChecked()) next = option;
        }
    }
    next->setFocus(Qt::TabFocusReason);
}

void FormWindow::ShowState(int state) {
    settling.start();
    const Qt::WindowState states[] = {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};
    setWindowState(states[std::clamp(state, 0, 2)]);
}

int FormWindow::State() const {
    if (isMinimized()) return 1;
    return isMaximized() ? 2 : 0;
}

void FormWindow::BringToFront() {
    raise();
    activateWindow();
}

void FormWindow::SetTopMost(bool on) {
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, on);  // hides the window
    if (shown) show();
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == client && event->type() == QEvent::Resize && Resized) Resized(client->size());
    return QWidget::eventFilter(watched, event);
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible() && !settling.isActive() && State() == 0 && Moved) Moved(pos());
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible() && StateChanged) {
        settling.start();
        StateChanged(State());
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (CloseAsked) CloseAsked();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (!KeyPressed || !KeyPressed(event->key())) QWidget::keyPressEvent(event);
}

void FormWindow::showEvent(QShowEvent* event) {
    settling.start();
    QWidget::showEvent(event);
}

}  // namespace cumeron
