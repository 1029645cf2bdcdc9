// What the operator does with the mouse on controls that are no buttons: clicks, entering, and
// dragging one control onto another. The form view has one for its form.
#pragma once

#include <QPointF>
#include <QRubberBand>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>

#include "platform/controls.h"
#include "platform/surface.h"

namespace cumeron {

class Gestures : public QObject {
public:
    // run: how handlers are called. Drops are looked for among the controls of the client area.
    Gestures(QWidget& client, std::function<void(const Handler&)> run);

    void Watch(Control& record, QWidget* widget);
    // A drop on a surface comes in the surface's own scale.
    void Watch(Surface& record, QWidget* widget);
    // Takes what can be dragged as the record has it now.
    void Sync();

private:
    struct Watched {
        Control* record = nullptr;
        const Surface* surface = nullptr;
        bool inside = false;  // the mouse has entered and not left
        bool drags = false;   // has the cursor and the focus of what can be dragged

        // A bar between surfaces is moved; anything else is carried onto a target.
        bool IsBar() const { return surface != nullptr; }
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool Released(Watched& watched, QWidget* widget, QEvent* event);
    void Entered(Watched& watched, QWidget* widget);
    bool KeyPressed(Watched& watched, QWidget* widget, int key);
    bool Drag(Watched& watched, QWidget* widget, QEvent* event);
    bool MoveByKey(Watched& watched, QWidget* widget, int key);
    void ShowLine(QWidget* widget, double x);
    // The point is one of the client area.
    void Drop(const Watched& source, QPointF point);

    QWidget& client;
    std::function<void(const Handler&)> run;
    std::map<QWidget*, Watched> all;
    QWidget* dragged = nullptr;
    QPointF dragStart;
    bool carried = false;               // the mouse has gone far enough for a drag
    std::unique_ptr<QRubberBand> line;  // where the dragged bar would come to stand
};

}  // namespace cumeron
