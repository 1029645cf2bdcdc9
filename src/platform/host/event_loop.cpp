#include "platform/host/event_loop.h"

namespace cumeron {
namespace {

constexpr int LongestSleep = 10;  // ms

}  // namespace

HostEventLoop::HostEventLoop() {
    waker.setSingleShot(true);
    waker.setTimerType(Qt::PreciseTimer);
    waker.setInterval(LongestSleep);
}

bool HostEventLoop::Turn() {
    if (BeforeTurn) BeforeTurn();
    return loop.processEvents(QEventLoop::AllEvents);
}

void HostEventLoop::DoEvents() { Turn(); }

// What the wait is for comes from an event, so it sleeps until there is one.
void HostEventLoop::WaitUntil(const std::function<bool()>& done) {
    while (!done()) {
        if (BeforeTurn) BeforeTurn();
        loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    if (BeforeTurn) BeforeTurn();
}

void HostEventLoop::WaitEvents() {
    if (Turn()) return;
    waker.start();
    loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    waker.stop();
}

}  // namespace cumeron
