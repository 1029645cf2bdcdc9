#include "shell/dispatch.h"

#include <string>

#include "intake/port.h"
#include "platform/runtime/errors.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {

namespace {

// The run-time library's number for an error that it did not raise itself.
constexpr int InternalError = 51;

std::string Headline(const std::exception& error) {
    const auto* runtimeError = dynamic_cast<const RuntimeError*>(&error);
    const int number = runtimeError ? runtimeError->Number : InternalError;
    return "Run-time error '" + std::to_string(number) + "':";
}

// For events at which nobody sits: an error goes to the message window and ends nothing, even when
// the message window itself fails. Takes a copy, since a handler may reset its own form.
void RunUnattended(Workstation& w, Handler handler) {
    try {
        if (handler) handler(w);
    } catch (const std::exception& error) {
        ResumeNext([&] { AddToMessageWindow(w, Headline(error) + " " + error.what() + "\r\n"); });
    }
}

// Gives the timer free on every way out, also when the process ends.
struct RunningMark {
    explicit RunningMark(Timer& marked) : timer(marked) { timer.running = true; }
    ~RunningMark() { timer.running = timer.pending = false; }
    Timer& timer;
};

}  // namespace

void DispatchEvent(Workstation& w, const Handler& handler) {
    const Handler copy = handler;  // a handler may reset its own form
    try {
        if (copy) copy(w);
    } catch (const std::exception& error) {
        w.platform.dialogs.MessageBox(Headline(error) + "\r\n\r\n" + error.what(), BoxButtons::Ok);
        throw ProcessEnd{1};
    }
}

void DispatchTimer(Workstation& w, Timer& timer) {
    if (timer.running) {
        timer.pending = true;
        return;
    }
    if (!timer.Enabled()) return;
    const RunningMark mark(timer);
    do {
        timer.pending = false;
        RunUnattended(w, timer.Tick);
    } while (timer.pending && timer.Enabled());
}

void DispatchOnComm(Workstation& w) { RunUnattended(w, comCTLine_OnComm); }

}  // namespace cumeron
