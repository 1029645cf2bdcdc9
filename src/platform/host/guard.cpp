#include "platform/host/guard.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

std::function<void(int)>& LeaveHook() {
    static std::function<void(int)> hook;
    return hook;
}

// Without destructors: handlers may still stand on the stack above the event loop.
void Leave(int status) {
    if (LeaveHook()) {
        LeaveHook()(status);
        return;
    }
    std::fflush(nullptr);
    std::_Exit(status);
}

}  // namespace

void SetLeave(std::function<void(int)> leave) { LeaveHook() = std::move(leave); }

void Guarded(const std::function<void()>& step) {
    try {
        step();
    } catch (const ProcessEnd& end) {
        Leave(end.status);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cumeron: %s\n", error.what());
        Leave(1);
    }
}

}  // namespace cumeron
