#include "platform/host/gestures.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTabBar>
#include <algorithm>
#include <cmath>

namespace cumeron {
namespace {

constexpr double KeyStep = 0.01;  // of the width that the drop targets share

constexpr int PixelScale = 3;

// One coordinate, from pixels of the surface to its user scale; a scale of 0 stands for pixels.
double InScale(double pixel, double start, double scale, int pixels) {
    return scale == 0 ? start + pixel : start + pixel * scale / std::max(1, pixels);
}

QPointF InScaleOf(const Surface& surface, const QPointF& pixel) {
    if (surface.ScaleMode == PixelScale) return pixel;
    return {InScale(pixel.x(), surface.ScaleLeft, surface.ScaleWidth, surface.PixelWidth()),
            InScale(pixel.y(), surface.ScaleTop, surface.ScaleHeight, surface.PixelHeight())};
}

// Labels show no focus of their own: a framed one gets a heavy frame.
void ShowFocus(QWidget* widget, bool focused) {
    auto* frame = qobject_cast<QLabel*>(widget);
    if (frame == nullptr || frame->frameShape() == QFrame::NoFrame) return;
    frame->setFrameShadow(focused ? QFrame::Plain : QFrame::Sunken);
    frame->setLineWidth(focused ? 3 : 1);
}

// These take clicks and keys themselves, and run the handler when they have changed.
bool ClicksItself(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const QTabBar*>(widget) != nullptr;
}

QRectF PlaceIn(const QWidget& client, const QWidget& widget) {
    return QRectF(widget.mapTo(&client, QPoint(0, 0)), widget.size());
}

}  // namespace

Gestures::Gestures(QWidget& area, std::function<void(const Handler&)> runHandler)
    : client(area), run(std::move(runHandler)) {}

void Gestures::Watch(Control& record, QWidget* widget) {
    all[widget].record = &record;
    widget->installEventFilter(this);
}

void Gestures::Watch(Surface& record, QWidget* widget) {
    Watch(static_cast<Control&>(record), widget);
    all[widget].surface = &record;
}

void Gestures::Sync() {
    for (auto& [widget, watched] : all) {
        if (watched.drags == watched.record->Draggable) continue;
        watched.drags = watched.record->Draggable;
        widget->setFocusPolicy(watched.drags ? Qt::StrongFocus : Qt::NoFocus);
        const Qt::CursorShape grip = watched.IsBar() ? Qt::SplitHCursor : Qt::OpenHandCursor;
        widget->setCursor(watched.drags ? grip : Qt::ArrowCursor);
    }
}

bool Gestures::eventFilter(QObject* object, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(object);
    const auto found = all.find(widget);
    if (found == all.end()) return false;
    Watched& watched = found->second;
    if (watched.record->Draggable && Drag(watched, widget, event)) return true;
    switch (event->type()) {
        case QEvent::KeyPress:
            return KeyPressed(watched, widget, static_cast<QKeyEvent*>(event)->key());
        case QEvent::MouseButtonRelease:
            return Released(watched, widget, event);
        case QEvent::Enter:
            Entered(watched, widget);
            return false;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            ShowFocus(widget, event->type() == QEvent::FocusIn);
            return false;
        case QEvent::Leave:
            // Behind a box that the entering has opened, the mouse has not left.
            if (client.window()->isActiveWindow()) watched.inside = false;
            return false;
        default:
            return false;
    }
}

bool Gestures::Released(Watched& watched, QWidget* widget, QEvent* event) {
    if (ClicksItself(widget)) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const bool inside = widget->rect().contains(mouse->position().toPoint());
    if (mouse->button() != Qt::LeftButton || !inside || !watched.record->Click) return false;
    run(watched.record->Click);
    return true;
}

void Gestures::Entered(Watched& watched, QWidget* widget) {
    if (watched.inside || !watched.record->MouseEnter) return;
    watched.inside = true;
    run(watched.record->MouseEnter);
    // Whether the mouse is still there after a box was answered nobody else tells.
    watched.inside = widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}

// What has the focus and takes a click takes it from the space bar too.
bool Gestures::KeyPressed(Watched& watched, QWidget* widget, int key) {
    if (watched.record->Draggable && watched.IsBar()) return MoveByKey(watched, widget, key);
    if (key != Qt::Key_Space || !watched.record->Click || ClicksItself(widget)) return false;
    run(watched.record->Click);
    return true;
}

// A release without a movement between is a click, and not taken.
bool Gestures::Drag(Watched& watched, QWidget* widget, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF point = widget->mapTo(&client, mouse->position());
    if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        dragged = widget;
        dragStart = point;
        carried = watched.IsBar();
        if (!carried) widget->setCursor(Qt::ClosedHandCursor);
    }
    if (dragged != widget) return false;
    if ((point - dragStart).manhattanLength() >= QApplication::startDragDistance()) carried = true;
    if (watched.IsBar()) ShowLine(widget, point.x());
    if (type != QEvent::MouseButtonRelease || mouse->button() != Qt::LeftButton) return true;
    dragged = nullptr;
    line.reset();
    if (!watched.IsBar()) widget->setCursor(Qt::OpenHandCursor);
    if (!carried) return false;
    Drop(watched, point);
    return true;
}

void Gestures::ShowLine(QWidget* widget, double x) {
    if (!line) line = std::make_unique<QRubberBand>(QRubberBand::Line, &client);
    const QRectF place = PlaceIn(client, *widget);
    line->setGeometry(static_cast<int>(std::lround(x)), static_cast<int>(place.top()),
                      widget->width(), widget->height());
    line->show();
}

// The arrow keys move the bar by the same drop that the mouse would make.
bool Gestures::MoveByKey(Watched& watched, QWidget* widget, int key) {
    if (key != Qt::Key_Left && key != Qt::Key_Right) return false;
    QRectF targets;
    for (const auto& [other, target] : all) {
        if (target.record->DragDrop && !other->isHidden()) targets |= PlaceIn(client, *other);
    }
    const QRectF place = PlaceIn(client, *widget);
    const double step = std::max(1.0, targets.width() * KeyStep);
    // The bar stands one pixel left of the border that it moves.
    const double x = place.left() + 1 + (key == Qt::Key_Left ? -step : step);
    const double last = std::max(targets.left(), targets.right() - 1);
    Drop(watched, {std::clamp(x, targets.left(), last), place.center().y()});
    return true;
}

void Gestures::Drop(const Watched& source, QPointF point) {
    for (const auto& [widget, target] : all) {
        const QRectF place = PlaceIn(client, *widget);
        if (!target.record->DragDrop || widget->isHidden() || !place.contains(point)) continue;
        const QPointF inside = point - place.topLeft();
        const QPointF at = target.surface ? InScaleOf(*target.surface, inside) : inside;
        // By value: the handler may put its form, and so itself, back into the design state.
        run([drop = target.record->DragDrop, from = source.record, at](Workstation& w) {
            drop(w, *from, at.x(), at.y());
        });
        return;
    }
}

}  // namespace cumeron
