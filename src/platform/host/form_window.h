// The top-level window of a form: a client area of exact size, above it the menu bar if there is
// one. It tells what the desktop and the operator do to it; the form view owns it.
#pragma once

#include <QMenuBar>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace cumeron {

class FormWindow : public QWidget {
public:
    explicit FormWindow(bool withMenuBar);

    QWidget* Client() const { return client; }
    QMenuBar* MenuBar() const { return menuBar; }

    // The client area in the colours of paper, whatever the theme of the desktop.
    void UsePaper();
    // At least as large as the layout of the client area needs, at most as a screen has room for.
    void ResizeClient(const QSize& size);
    // Moves the frame there, or as near as it stays in sight. Not told to Moved.
    void Place(const QPoint& position);
    void CentreOn(const QWidget& other);
    // Before it is shown: a modal window takes all input and stands in front of the outer one.
    void SetModal(bool on, FormWindow* outer);
    // Puts the keys to the first control of the tab order.
    void FocusFirst();
    void ShowState(int state);  // 0 normal, 1 minimised, 2 maximised
    int State() const;
    void BringToFront();
    void SetTopMost(bool on);

    // From the desktop: the client's size, the frame's place after the operator moved it, the
    // window state, and the close box.
    std::function<void(QSize)> Resized;
    std::function<void(QPoint)> Moved;
    std::function<void(int state)> StateChanged;
    std::function<void()> CloseAsked;
    // A key that no widget wanted; true when it was used.
    std::function<bool(int key)> KeyPressed;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QMenuBar* menuBar = nullptr;
    QWidget* client;
    QTimer settling;  // runs while the desktop answers to the program's own placing
};

// The nearest place to that of the frame at which its title can be seen and reached.
QPoint InSight(const QPoint& position, const QList<QRect>& screens);

}  // namespace cumeron
