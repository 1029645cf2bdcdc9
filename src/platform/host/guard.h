// The border between the program and Qt: no C++ exception crosses it, and the end of the process
// is carried out there. Everything that Qt or a device calls runs inside Guarded.
#pragma once

#include <functional>

namespace cumeron {

// Runs the step. ProcessEnd flushes the standard streams and leaves with its status at once; an
// exception that no handler may throw is told on the error stream and leaves with status 1.
void Guarded(const std::function<void()>& step);

// What leaving means; tests put their own here. Empty is the real end again.
void SetLeave(std::function<void(int status)> leave);

}  // namespace cumeron
