// Virtual time: letting it pass, and commands for a later moment.
#include "commands.h"
#include "values.h"

namespace cumeron {

namespace {

void RunAdvance(Session& session, const Words& arguments) {
    session.machine.Advance(SecondsArgument(arguments[0]));
}

void RunAt(Session& session, const Words& arguments) {
    const Words words(arguments.begin() + 1, arguments.end());
    CheckWords(words);
    session.machine.time.At(SecondsArgument(arguments[0]), [&session, line = session.line, words] {
        RunWords(session, line, words);
    });
}

void RunDoEvents(Session& session, const Words&) { session.machine.Advance(MicrosPerTurn); }

constexpr Command Commands[] = {
    {"advance", "SECONDS", 1, 1, RunAdvance},
    {"at", "SECONDS COMMAND...", 2, AnyNumber, RunAt},
    {"doevents", "", 0, 0, RunDoEvents},
};

}  // namespace

std::span<const Command> CommandsOfTime() { return Commands; }

}  // namespace cumeron
