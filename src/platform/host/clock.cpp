#include "platform/host/clock.h"

#include "platform/runtime/dates.h"

namespace cumeron {

double DayCount(const std::tm& time) {
    return DateSerial(time.tm_year + 1900, time.tm_mon + 1, time.tm_mday) +
           TimeSerial(time.tm_hour, time.tm_min, time.tm_sec);
}

double HostClock::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return DayCount(local);
}

}  // namespace cumeron
