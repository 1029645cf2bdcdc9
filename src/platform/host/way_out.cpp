#include "platform/host/way_out.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <cerrno>
#include <csignal>
#include <utility>

#include "platform/host/guard.h"
#include "platform/host/host_machine.h"
#include "platform/runtime/errors.h"
#include "shell/dispatch.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int Signals[] = {SIGTERM, SIGINT, SIGHUP};

// A handler of signals may do next to nothing: it writes a byte into this pipe, and the event loop
// goes on from there.
int signalPipe[2] = {-1, -1};

void Note(int) {
    const int kept = errno;
    const char byte = 1;
    // A full pipe holds the news already.
    static_cast<void>(!::write(signalPipe[1], &byte, 1));
    errno = kept;
}

void Handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : Signals) ::sigaction(signal, &action, nullptr);
}

}  // namespace

WayOut::WayOut(Workstation& w, HostMachine& host) : workstation(w), machine(host) {
    QCoreApplication::instance()->installEventFilter(this);
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this] {
        notifier->setEnabled(false);
        Leave();
    });
    Handle(Note);
}

WayOut::~WayOut() {
    if (!notifier) return;
    Handle(SIG_DFL);
    notifier.reset();
    for (int& end : signalPipe) ::close(std::exchange(end, -1));
}

void WayOut::Leave() {
    machine.dialogs.ToErrorStream = true;
    Guarded([this] {
        // Before the settings file is chosen there is nothing to free and nothing to save.
        if (workstation.shell.SettingsFile.empty()) throw ProcessEnd{0};
        DispatchEvent(workstation, mnuExit_Click);
    });
}

// The desktop ends the session by asking the application to quit; that would close the windows one
// by one, and each would ask its question.
bool WayOut::eventFilter(QObject* watched, QEvent* event) {
    if (watched != QCoreApplication::instance() || event->type() != QEvent::Quit) return false;
    Leave();
    return true;
}

}  // namespace cumeron
