#include "platform/scripted/scripted_time.h"

#include <algorithm>
#include <cmath>

#include "platform/runtime/dates.h"
#include "shell/dispatch.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr double MicrosPerDay = 86400.0 * MicrosPerSecond;

Micros ToMicros(double days) { return std::llround(days * MicrosPerDay); }

Micros PeriodOf(const Timer& timer) { return Micros{timer.Interval} * 1000; }

}  // namespace

ScriptedTime::ScriptedTime() : wallAtStart(ToMicros(DateSerial(2026, 1, 1))) {}

// Counted in whole microseconds, so that a second that has passed is a second on the clock and not
// the rounding of many small sums.
double ScriptedTime::Now() { return static_cast<double>(wallAtStart + elapsed) / MicrosPerDay; }

void ScriptedTime::SetNow(double when) { wallAtStart = ToMicros(when) - elapsed; }

void ScriptedTime::DoEvents() { AdvanceTo(elapsed + MicrosPerTurn); }

void ScriptedTime::WaitEvents() { DoEvents(); }

void ScriptedTime::WaitUntil(const std::function<bool()>& done) {
    const Micros end = underWay;
    while (!done() && ServeNext(end)) {
    }
    if (!done()) elapsed = std::max(elapsed, end);
    while (!done()) {
        if (ServeMeanwhile) {
            ServeMeanwhile();
        } else {
            WaitEvents();
        }
    }
}

void ScriptedTime::AdvanceTo(Micros end) {
    struct UnderWay {  // put back on every way out, also when the process ends
        Micros& latest;
        const Micros outer;
        UnderWay(Micros& underWay, Micros until) : latest(underWay), outer(underWay) {
            latest = std::max(outer, until);
        }
        ~UnderWay() { latest = outer; }
    } const mark(underWay, end);
    while (ServeNext(end)) {
    }
    elapsed = std::max(elapsed, end);
}

void ScriptedTime::At(Micros delay, std::function<void()> action) {
    actions.push_back({elapsed + delay, std::move(action)});
}

void ScriptedTime::Attach(Workstation& w) {
    Detach();
    workstation = &w;
    gridOrigin = elapsed;
    for (Form* form : w.Forms()) {
        for (const NamedControl& named : form->Controls()) {
            if (auto* const* timer = std::get_if<Timer*>(&named.control)) {
                timers.push_back({form, *timer});
            }
        }
    }
}

void ScriptedTime::Detach() {
    workstation = nullptr;
    timers.clear();
}

// Runs before any time passes, so that a timer that was enabled since the last look is counted
// from that very moment.
void ScriptedTime::WatchTimers() {
    for (WatchedTimer& watched : timers) {
        const Timer& timer = *watched.timer;
        const bool active = watched.form->Loaded && timer.Enabled() && timer.Interval > 0;
        const bool same = watched.active && watched.interval == timer.Interval &&
                          (timer.KeepsGrid || watched.settings == timer.Settings());
        watched.active = active;
        watched.settings = timer.Settings();
        watched.interval = timer.Interval;
        if (active && !same) CountAnew(watched);
    }
}

void ScriptedTime::CountAnew(WatchedTimer& watched) {
    const Micros period = PeriodOf(*watched.timer);
    const Micros into = watched.timer->KeepsGrid ? (elapsed - gridOrigin) % period : 0;
    watched.due = elapsed - into + period;
}

// At the same moment timers come before actions, and actions in the order of their asking: a
// script that looks at a moment sees what the tick of that moment did.
bool ScriptedTime::ServeNext(Micros end) {
    WatchTimers();
    WatchedTimer* nextTimer = nullptr;
    for (WatchedTimer& watched : timers) {
        if (watched.active && (!nextTimer || watched.due < nextTimer->due)) nextTimer = &watched;
    }
    const auto nextAction =
        std::min_element(actions.begin(), actions.end(),
                         [](const Action& a, const Action& b) { return a.due < b.due; });
    const bool actionDue = nextAction != actions.end() && nextAction->due <= end;
    if (nextTimer && nextTimer->due <= end && !(actionDue && nextAction->due < nextTimer->due)) {
        elapsed = std::max(elapsed, nextTimer->due);
        Fire(*nextTimer);
        return true;
    }
    if (!actionDue) return false;
    elapsed = std::max(elapsed, nextAction->due);
    const std::function<void()> run = std::move(nextAction->run);
    actions.erase(nextAction);
    run();
    return true;
}

// The next due time stands before the handler runs, since the handler may give turns of its own.
void ScriptedTime::Fire(WatchedTimer& watched) {
    watched.due += PeriodOf(*watched.timer);
    DispatchTimer(*workstation, *watched.timer);
}

}  // namespace cumeron
