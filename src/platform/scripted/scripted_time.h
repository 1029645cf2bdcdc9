// The virtual clock and the event loop of the scripted platform. Time passes only in Advance and
// in the turns that the program itself gives; what is due meanwhile (timers of the forms, actions
// of the script) is served in order of time. cumeron-drive and the tests of the core drive it.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/form.h"
#include "platform/platform.h"

namespace cumeron {

using Micros = std::int64_t;
inline constexpr Micros MicrosPerSecond = 1'000'000;
inline constexpr Micros MicrosPerTurn = 10'000;  // what one turn of the event loop takes

class ScriptedTime : public Clock, public EventLoop {
public:
    ScriptedTime();

    // What the clock on the wall shows: a day count. A jump fires no timer.
    double Now() override;
    void SetNow(double when);

    // Both take MicrosPerTurn and serve what is due.
    void DoEvents() override;
    void WaitEvents() override;
    // A form is shown modally: first the advances that it was opened in go on to their end, then
    // ServeMeanwhile runs again and again until done(); without one, turns.
    void WaitUntil(const std::function<bool()>& done) override;
    // What goes on while a form is shown modally: the script's next step.
    std::function<void()> ServeMeanwhile;

    // Virtual time since the beginning; a jump of the clock does not touch it.
    Micros Elapsed() const { return elapsed; }
    // Lets time pass up to end, which is served as well. Returns at once when end is past.
    void AdvanceTo(Micros end);
    // Runs action that much later, in the first turn in which it is due.
    void At(Micros delay, std::function<void()> action);

    // The timers of these forms are served from now on; this moment begins the grid of the timers
    // that keep one.
    void Attach(Workstation& w);
    void Detach();

private:
    struct WatchedTimer {
        Form* form;
        Timer* timer;
        bool active = false;
        unsigned settings = 0;
        int interval = 0;
        Micros due = 0;
    };
    struct Action {
        Micros due;
        std::function<void()> run;
    };

    void WatchTimers();
    void CountAnew(WatchedTimer& watched);
    bool ServeNext(Micros end);
    void Fire(WatchedTimer& watched);

    Micros wallAtStart;  // since day 0, at elapsed 0
    Micros elapsed = 0;
    Micros underWay = -1;  // the latest end of the calls of AdvanceTo under way; -1: there is none
    Micros gridOrigin = 0;
    Workstation* workstation = nullptr;
    std::vector<WatchedTimer> timers;
    std::vector<Action> actions;  // in the order in which they were asked for
};

}  // namespace cumeron
