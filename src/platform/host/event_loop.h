// The event loop of the desktop as the program's long routines use it. Part of the host platform.
#pragma once

#include <QEventLoop>
#include <QTimer>
#include <functional>

#include "platform/platform.h"

namespace cumeron {

class HostEventLoop : public EventLoop {
public:
    HostEventLoop();
    void DoEvents() override;
    void WaitEvents() override;
    void WaitUntil(const std::function<bool()>& done) override;

    // Called before each turn; the view brings its widgets in line there.
    std::function<void()> BeforeTurn;

private:
    bool Turn();  // true when there was something to do

    QEventLoop loop;
    QTimer waker;
};

}  // namespace cumeron
