// Runs a scenario given as text and gives what it printed.
#pragma once

#include <sstream>
#include <string>

#include "driver.h"

namespace cumeron {

struct Outcome {
    Counts counts;
    std::string printed;
};

inline Outcome RunText(const std::string& text, const std::string& folder = "") {
    std::ostringstream out;
    std::istringstream script(text);
    const Counts counts = RunScenario("s.scn", script, folder, out);
    return {counts, out.str()};
}

// What the lines print behind a start that nothing fails in.
inline std::string Printed(const std::string& lines) { return RunText("start\n" + lines).printed; }

}  // namespace cumeron
