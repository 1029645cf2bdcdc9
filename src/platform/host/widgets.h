// Widgets that Qt does not have: a drawing surface, an axis title, a label whose text always fits
// and a text box that asks before each key. The form view makes them.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWidget>
#include <functional>

#include "platform/surface.h"

namespace cumeron {

// Shows the pixels of a surface, on dense screens enlarged. Designs may hold one; it is given its
// surface before it is shown.
class SurfaceWidget : public QWidget {
public:
    explicit SurfaceWidget(QWidget* parent);
    void SetSurface(const Surface& surface) { record = &surface; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const Surface* record = nullptr;
};

// A drawing of the program, in the colours of the window where it asks for them.
class PictureWidget : public QWidget {
public:
    explicit PictureWidget(QWidget* parent) : QWidget(parent) {}
    void SetPicture(const QString& name);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QByteArray drawing;
};

// A label with a font in pixels of the client area; a text too wide is shown smaller, since a
// height that lacks its last digit would be read as another.
class FittingLabel : public QLabel {
public:
    explicit FittingLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }
    void SetFontPixels(int pixels, bool bold);
    void Fit();

protected:
    void resizeEvent(QResizeEvent*) override { Fit(); }

private:
    int wantedPixels = 12;
};

// Every character on its way into the text, typed, composed, pasted or dropped, goes through the
// gate first.
class GatedTextEdit : public QPlainTextEdit {
public:
    // Gets a character's code (code page 1252; 8 and 127 for the two delete keys) and gives the one
    // to use; 0 throws it away.
    std::function<int(int)> Gate;
    // Gets what is pasted or dropped, as a whole, before the gate does; true keeps it.
    std::function<bool(const std::string&)> PasteGate;

    explicit GatedTextEdit(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void InsertThroughGate(const QString& text);
};

// The same for a text of one line; works on any edit of the kind, and belongs to it.
class LineGate : public QObject {
public:
    LineGate(QLineEdit* edit, std::function<int(int)> gate);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    // What came in otherwise than by a key: pasted, dropped, composed.
    void PassInserted();

    QLineEdit* edit;
    std::function<int(int)> gate;
    QString before;          // the text as it was passed last
    bool keyPassed = false;  // the change to come is that of a key that was let through
};

// Control characters of a text as dots, those behind the letters too, so that the frame around a
// message can be seen; fonts show nothing or boxes for them.
QString WithDotsForControls(QString text);

}  // namespace cumeron
