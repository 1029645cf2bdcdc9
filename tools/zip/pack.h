// Packs a finished log with the system's zip. main calls it.
#pragma once

#include <string>

namespace cumeron::zip {

enum class Afterwards { Keep, Remove };

// Adds the log to the archive (".zip" is added to a name without it) as a further member. Removes
// the log only when it is packed and still what was packed; false when it has changed meanwhile and
// stays. Throws std::exception, and the log stays, when it is not packed.
bool Pack(std::string archive, const std::string& log, Afterwards afterwards);

}  // namespace cumeron::zip
