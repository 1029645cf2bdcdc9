#include "variables.h"

#include <cmath>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {

std::int64_t AsInteger(const Value& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return *integer;
    const double rounded = RoundHalfEven(AsDouble(value));
    if (!(std::abs(rounded) <= 9e15)) throw RuntimeError(6);
    return static_cast<std::int64_t>(rounded);
}

double AsDouble(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return ToDouble(*text);
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*integer);
    }
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
    if (const auto* date = std::get_if<DateValue>(&value)) return date->when;
    return std::get<double>(value);
}

std::string AsText(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
    if (const auto* date = std::get_if<DateValue>(&value); date && date->when >= 1) {
        return Format(date->when, "yyyy-mm-dd hh:nn:ss");
    }
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
    return NumberText(AsDouble(value));
}

void CheckIndex(long index, std::size_t size) {
    if (index < 0 || static_cast<std::size_t>(index) >= size) throw RuntimeError(9);
}

VariableList ListVariables() {
    VariableList list;
    ListSettings(list);
    ListIntakeVariables(list);
    ListReadingsVariables(list);
    ListGraphVariables(list);
    ListLoggingVariables(list);
    ListOfflineVariables(list);
    ListShellVariables(list);
    ListTerminalVariables(list);
    return list;
}

}  // namespace cumeron
