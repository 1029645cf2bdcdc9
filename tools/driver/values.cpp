#include "values.h"

#include <cmath>
#include <cstdlib>

#include "platform/runtime/dates.h"
#include "platform/runtime/text.h"
#include "platform/surface.h"
#include "script_parser.h"
#include "session.h"

namespace cumeron {

namespace {

std::optional<double> HexNumber(const std::string& text) {
    const std::string digits = text.substr(2);
    if (digits.empty() || digits.size() > 8 ||
        digits.find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos) {
        return std::nullopt;
    }
    return static_cast<double>(std::strtoul(digits.c_str(), nullptr, 16));
}

std::optional<double> PaletteColour(const std::string& text) {
    const std::string number = text.substr(2);
    if (!IsNumeric(number)) return std::nullopt;
    const double index = ToDouble(number);
    if (index < 0 || index > 15 || index != std::floor(index)) return std::nullopt;
    return QBColor(static_cast<int>(index));
}

// digits places from at on, as a number.
std::optional<int> Digits(const std::string& text, std::size_t at, std::size_t digits) {
    int number = 0;
    for (std::size_t i = at; i < at + digits; ++i) {
        if (i >= text.size() || text[i] < '0' || text[i] > '9') return std::nullopt;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

constexpr double HalfAMillisecond = 0.5e-3 / 86400;

// A number held as a 32-bit float is compared as one: 0.3 in the script is 0.3 there.
bool SameNumber(double held, double expected) {
    if (held == expected || NumberText(held) == NumberText(expected)) return true;
    const auto narrow = static_cast<float>(held);
    return static_cast<double>(narrow) == held && narrow == static_cast<float>(expected);
}

}  // namespace

std::optional<double> NumberOf(const std::string& text) {
    if (text == "True") return -1;
    if (text == "False") return 0;
    if (text.starts_with("&H")) return HexNumber(text);
    if (text.starts_with("qb")) return PaletteColour(text);
    if (!IsNumeric(text)) return std::nullopt;
    return ToDouble(text);
}

std::optional<double> TimeOfText(const std::string& text) {
    const std::string pattern = "....-..-.. ..:..:..";
    if (text.size() < pattern.size()) return std::nullopt;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '.' && pattern[i] != text[i]) return std::nullopt;
    }
    const auto year = Digits(text, 0, 4), month = Digits(text, 5, 2), day = Digits(text, 8, 2);
    const auto hour = Digits(text, 11, 2), minute = Digits(text, 14, 2),
               second = Digits(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
    if (*month < 1 || *month > 12 || *day < 1 || *day > 31 || *hour > 23 || *minute > 59 ||
        *second > 59) {
        return std::nullopt;
    }
    double fraction = 0;
    if (text.size() > pattern.size()) {
        const std::string rest = text.substr(pattern.size());
        if (rest.size() < 2 || rest[0] != '.' || !Digits(rest, 1, rest.size() - 1)) {
            return std::nullopt;
        }
        fraction = ToDouble("0" + rest);
    }
    return DateSerial(*year, *month, *day) + TimeSerial(*hour, *minute, *second) + fraction / 86400;
}

double NumberArgument(const std::string& text) {
    const std::optional<double> number = NumberOf(text);
    if (!number) throw CommandError{Quoted(text) + " is no number"};
    return *number;
}

std::optional<int> WholeNumberOf(const std::string& text) {
    const std::optional<double> number = NumberOf(text);
    if (!number || *number != std::floor(*number) || std::abs(*number) > 2147483647.0) {
        return std::nullopt;
    }
    return static_cast<int>(*number);
}

int IntegerArgument(const std::string& text) {
    NumberArgument(text);
    const std::optional<int> number = WholeNumberOf(text);
    if (!number) throw CommandError{Quoted(text) + " is no whole number"};
    return *number;
}

int PixelsArgument(const std::string& text) {
    const int pixels = IntegerArgument(text);
    if (pixels < 1 || pixels > 32767)
        throw CommandError{Quoted(text) + " is not 1 to 32767 pixels"};
    return pixels;
}

Micros SecondsArgument(const std::string& text) {
    const double seconds = NumberArgument(text);
    if (seconds < 0 || seconds > 1e9) throw CommandError{Quoted(text) + " are no seconds"};
    return std::llround(seconds * MicrosPerSecond);
}

double TimeArgument(const std::string& text) {
    const std::optional<double> when = TimeOfText(text);
    if (!when) throw CommandError{Quoted(text) + " is no time as \"2026-11-15 14:41:25\""};
    return *when;
}

bool OnOffArgument(const std::string& text) {
    if (text != "on" && text != "off") throw CommandError{Quoted(text) + " is neither on nor off"};
    return text == "on";
}

bool Matches(const Value& held, const std::string& expected) {
    if (std::holds_alternative<std::string>(held)) return AsText(held) == expected;
    if (AsText(held) == expected) return true;
    if (const std::optional<double> number = NumberOf(expected)) {
        return SameNumber(AsDouble(held), *number);
    }
    const auto* date = std::get_if<DateValue>(&held);
    const std::optional<double> when = TimeOfText(expected);
    return date && when && std::abs(date->when - *when) < HalfAMillisecond;
}

std::string Shown(const Value& held) {
    return std::holds_alternative<std::string>(held) ? Quoted(AsText(held)) : AsText(held);
}

std::string ShownExpectation(const Value& held, const std::string& expected) {
    return std::holds_alternative<std::string>(held) ? Quoted(expected) : expected;
}

Value ValueToStore(const Value& held, const std::string& text) {
    if (std::holds_alternative<std::string>(held)) return text;
    if (const std::optional<double> when = TimeOfText(text)) return DateValue{*when};
    return NumberArgument(text);
}

}  // namespace cumeron
