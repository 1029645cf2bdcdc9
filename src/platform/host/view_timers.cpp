#include "platform/host/view_timers.h"

namespace cumeron {
namespace {

constexpr int Slack = 10;  // ms by which a timer may fire early

}  // namespace

int TimeToGrid(qint64 elapsed, int interval) {
    const int rest = interval - static_cast<int>(elapsed % interval);
    return rest > Slack || rest == interval ? rest : rest + interval;
}

ViewTimers::ViewTimers(std::function<void(Timer&)> due) : dueTimer(std::move(due)) {
    sinceStart.start();
}

void ViewTimers::Add(Timer& record) {
    timers.push_back(std::make_unique<Running>(Running{&record, std::make_unique<QTimer>()}));
    Running& running = *timers.back();
    running.timer->setTimerType(Qt::PreciseTimer);
    // Queued, so that a turn of the event loop inside a handler still hears of further ticks.
    connect(
        running.timer.get(), &QTimer::timeout, this, [this, &running] { Due(running); },
        Qt::QueuedConnection);
}

void ViewTimers::Sync() {
    for (const auto& running : timers) {
        const Timer& record = *running->record;
        if (running->settings == record.Settings() && running->interval == record.Interval &&
            running->enabled == record.Enabled()) {
            continue;
        }
        running->settings = record.Settings();
        running->interval = record.Interval;
        running->enabled = record.Enabled();
        Start(*running);
    }
}

void ViewTimers::Start(Running& running) {
    running.timer->stop();
    if (!running.enabled || running.interval <= 0) return;
    const bool grid = running.record->KeepsGrid;
    running.timer->setSingleShot(grid);
    running.timer->start(grid ? TimeToGrid(sinceStart.elapsed(), running.interval)
                              : running.interval);
}

void ViewTimers::Due(Running& running) {
    // A tick that was under way when the timer was set anew does not count any more.
    if (!running.record->Enabled() || running.settings != running.record->Settings()) return;
    if (running.record->KeepsGrid) Start(running);
    dueTimer(*running.record);
}

}  // namespace cumeron
