// The clock of the machine: local time as a day count. Part of the host platform.
#pragma once

#include <ctime>

#include "platform/platform.h"

namespace cumeron {

class HostClock : public Clock {
public:
    // Whole seconds, so that no text shows a second before it has begun.
    double Now() override;
};

// The day count of broken-down local time.
double DayCount(const std::tm& time);

}  // namespace cumeron
