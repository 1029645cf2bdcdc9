// The commands of the language: one row each, in a table by topic. RunLine finds the row, checks
// the number of arguments and carries it out.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session.h"

namespace cumeron {

using Words = std::vector<std::string>;
inline constexpr std::size_t AnyNumber = static_cast<std::size_t>(-1);

struct Command {
    std::string_view name;
    std::string_view usage;   // of its arguments
    std::size_t least, most;  // arguments
    void (*run)(Session&, const Words& arguments);
};

std::span<const Command> CommandsBeforeStart();
std::span<const Command> CommandsOfLine();
std::span<const Command> CommandsOfTime();
std::span<const Command> CommandsOfOperator();
std::span<const Command> CommandsOfMachine();
std::span<const Command> CommandsOfExpectations();
std::span<const Command> CommandsOfShowing();

// Null when there is none.
const Command* FindCommand(std::string_view name);
std::vector<std::string_view> CommandNames();

// Carries out one line of the script; what goes wrong is told and counted in the session. Throws
// StopRun when the run cannot go on, ProcessEnd when the program ends below another call into it.
void RunLine(Session& session, const ScriptLine& line);
// The same for words whose "$" and "@" have been replaced.
void RunWords(Session& session, int line, const Words& words);
// Throws CommandError when there is no such command or the number of arguments is wrong.
const Command& CheckWords(const Words& words);

// arguments from the first on, one behind the other.
std::string Joined(const Words& arguments, std::size_t first);

}  // namespace cumeron
