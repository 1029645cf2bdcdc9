// Values as a script writes them: numbers, colours, times, truths, and how they compare with what
// the program holds. Pure. Called by the commands.
#pragma once

#include <optional>
#include <string>

#include "platform/scripted/scripted_time.h"
#include "variables.h"

namespace cumeron {

// "15", "-0.5", "&H00FF00", "qb4", "True" (-1), "False"; nothing for anything else.
std::optional<double> NumberOf(const std::string& text);
std::optional<int> WholeNumberOf(const std::string& text);
// "2026-11-15 14:41:25", optionally with ".fff", as a day count.
std::optional<double> TimeOfText(const std::string& text);

// The arguments of commands; throw CommandError.
double NumberArgument(const std::string& text);
int IntegerArgument(const std::string& text);
int PixelsArgument(const std::string& text);  // a side of a screen or window, 1 to 32767
Micros SecondsArgument(const std::string& text);
double TimeArgument(const std::string& text);
bool OnOffArgument(const std::string& text);

// True when what the program holds is what the script expects: texts byte for byte, numbers by
// value, a truth in either form.
bool Matches(const Value& held, const std::string& expected);
// What stands in a message: texts in quotes, numbers as they are.
std::string Shown(const Value& held);
std::string ShownExpectation(const Value& held, const std::string& expected);

// The value to store where held stands now.
Value ValueToStore(const Value& held, const std::string& text);

}  // namespace cumeron
