// The timers of the records, driven by the desktop's event loop. The host view owns them.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "platform/form.h"

namespace cumeron {

// Milliseconds to the next point of the grid; from a point just ahead, which a timer that fires a
// little early stands before, to the one behind it.
int TimeToGrid(qint64 elapsed, int interval);

class ViewTimers : public QObject {
public:
    explicit ViewTimers(std::function<void(Timer&)> due);
    void Add(Timer& record);
    // Starts, stops or restarts what was set since the last call.
    void Sync();

private:
    struct Running {
        Timer* record;
        std::unique_ptr<QTimer> timer;
        unsigned settings = 0;
        int interval = 0;
        bool enabled = false;
    };

    void Start(Running& running);
    void Due(Running& running);

    std::function<void(Timer&)> dueTimer;
    QElapsedTimer sinceStart;
    std::vector<std::unique_ptr<Running>> timers;
};

}  // namespace cumeron
