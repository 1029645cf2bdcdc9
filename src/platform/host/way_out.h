// Leaving at the system's word: a signal that asks the process to end, or the end of the desktop
// session. main makes one before the start of the program.
#pragma once

#include <QSocketNotifier>
#include <memory>

namespace cumeron {

struct HostMachine;
struct Workstation;

class WayOut : public QObject {
public:
    // Takes SIGTERM, SIGINT and SIGHUP for as long as it lives.
    WayOut(Workstation& w, HostMachine& machine);
    ~WayOut() override;

    // As the menu's exit does: no question, settings saved if wanted, status 0. Errors go to the
    // error stream, since nobody may be there to answer a box.
    void Leave();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    Workstation& workstation;
    HostMachine& machine;
    std::unique_ptr<QSocketNotifier> notifier;
};

}  // namespace cumeron
