// Widgets that Qt does not have: a drawing surface, an axis title, a label whose text always fits
// and a text box that asks before each key. The form view makes them.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QWidget>
#include <functional>

#include "platform/surface.h"

namespace cumeron {

// Shows the pixels of a surface, on dense screens enlarged.
class SurfaceWidget : public QWidget {
public:
    SurfaceWidget(const Surface& surface, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const Surface& record;
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

// Every character on its way into the text, typed, pasted or dropped, goes through the gate first.
class GatedTextEdit : public QPlainTextEdit {
public:
    // Gets a character's code (code page 1252; 8 and 127 for the two delete keys) and gives the one
    // to use; 0 throws it away.
    std::function<int(int)> Gate;

    explicit GatedTextEdit(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void InsertThroughGate(const QString& text);
};

// Control characters of a text as dots, so that the frame around a message can be seen; fonts show
// nothing or boxes for them.
QString WithDotsForControls(QString text);

}  // namespace cumeron
