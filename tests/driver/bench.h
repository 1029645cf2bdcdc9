// A started program on which a test puts handlers of its own before the script's lines run.
#pragma once

#include <sstream>
#include <string>

#include "commands.h"
#include "driver.h"

namespace cumeron {

struct Bench {
    std::istringstream script;
    std::ostringstream out;
    Session session{"s.scn", script, "", out};
    Workstation& w;

    explicit Bench(const std::string& lines) : script(lines), w(Start(session)) {}

    // What the lines print.
    std::string Run() {
        RunScript(session);
        return out.str();
    }

private:
    static Workstation& Start(Session& session) {
        RunWords(session, 0, {"start"});
        return session.Running();
    }
};

}  // namespace cumeron
