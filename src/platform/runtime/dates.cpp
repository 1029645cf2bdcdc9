#include "platform/runtime/dates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {

namespace {

constexpr double SecondsPerDay = 86400;
constexpr double MillisecondsPerDay = SecondsPerDay * 1000;
// Day 0 counted from 0000-03-01, the first day of a year that ends with its leap day.
constexpr std::int64_t DayZero = 693899;
constexpr std::int64_t DaysPer400Years = 146097;
// The dates that a four-digit year can tell: 0001-01-01 to 9999-12-31.
constexpr double FirstDay = -693593;
constexpr double LastDay = 2958465;

constexpr std::string_view FormatsInUse[] = {
    "d-mmm", "hh:nn:ss", "hh:nn", "dd.mm.yyyy", "yyyy-mm-dd", "yyyy-mm-dd hh:nn:ss", "yyyy", "yy",
    "mm",    "dd",       "hh",    "nn",         "ss",
};

struct LocaleFormats {
    std::string shortDate = "dd.mm.yyyy";
    std::string longTime = "hh:nn:ss";
    std::array<std::string, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

// The locale belongs to the process, not to a workstation: it is set once, by the host's start.
LocaleFormats& Locale() {
    static LocaleFormats formats;
    return formats;
}

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    const std::int64_t quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

// Years are counted from March, so that the leap day is the last of its year and the lengths of
// the months follow (153 m + 2) / 5.
std::int64_t DaysFromMarchYear(std::int64_t year, std::int64_t monthFromMarch) {
    return 365 * year + FloorDivide(year, 4) - FloorDivide(year, 100) + FloorDivide(year, 400) +
           (153 * monthFromMarch + 2) / 5;
}

void SetDate(DateParts& parts, std::int64_t dayNumber) {
    const std::int64_t day = dayNumber + DayZero;
    const std::int64_t era = FloorDivide(day, DaysPer400Years);
    const std::int64_t dayOfEra = day - era * DaysPer400Years;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - DaysFromMarchYear(yearOfEra, 0);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    const bool nextYear = monthFromMarch >= 10;
    parts.year = static_cast<int>(yearOfEra + era * 400 + (nextYear ? 1 : 0));
    parts.month = static_cast<int>(monthFromMarch + (nextYear ? -9 : 3));
    parts.day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
}

// Times come out of sums of fractions; what lacks less than half a millisecond to the next clock
// second belongs to it.
double ClockSecond(double when) {
    return std::floor(std::floor(when * MillisecondsPerDay + 0.5) / 1000);
}

struct Token {
    std::string_view letters;
    int DateParts::*part;
    int modulus;        // 0: the name of the month
    std::size_t width;  // with leading noughts
};

constexpr Token Tokens[] = {
    {"yyyy", &DateParts::year, 10000, 4}, {"yy", &DateParts::year, 100, 2},
    {"mmm", &DateParts::month, 0, 3},     {"mm", &DateParts::month, 100, 2},
    {"m", &DateParts::month, 100, 1},     {"dd", &DateParts::day, 100, 2},
    {"d", &DateParts::day, 100, 1},       {"hh", &DateParts::hour, 100, 2},
    {"h", &DateParts::hour, 100, 1},      {"nn", &DateParts::minute, 100, 2},
    {"n", &DateParts::minute, 100, 1},    {"ss", &DateParts::second, 100, 2},
    {"s", &DateParts::second, 100, 1},
};

std::string ValueOf(const Token& token, const DateParts& parts) {
    const int value = parts.*token.part;
    if (token.modulus == 0) return Locale().months.at(static_cast<std::size_t>(value - 1));
    return PadLeft(std::to_string(value % token.modulus), token.width, '0');
}

// Replaces the token at the front of format by its value; another character stands for itself.
void TakeToken(std::string_view& format, const DateParts& parts, std::string& result) {
    for (const Token& token : Tokens) {
        if (!format.starts_with(token.letters)) continue;
        result += ValueOf(token, parts);
        format.remove_prefix(token.letters.size());
        return;
    }
    result += format.front();
    format.remove_prefix(1);
}

// One or two digits at the front of text, at most limit.
std::optional<int> TakeTwoDigits(std::string_view& text, int limit) {
    int value = 0;
    std::size_t length = 0;
    while (length < 2 && length < text.size() && text[length] >= '0' && text[length] <= '9') {
        value = value * 10 + (text[length] - '0');
        ++length;
    }
    text.remove_prefix(length);
    if (length == 0 || value > limit) return std::nullopt;
    return value;
}

}  // namespace

double DateSerial(int year, int month, int day) {
    const std::int64_t monthsFromMarch = std::int64_t{year} * 12 + month - 3;
    const std::int64_t marchYear = FloorDivide(monthsFromMarch, 12);
    const std::int64_t firstOfMonth =
        DaysFromMarchYear(marchYear, monthsFromMarch - marchYear * 12) - DayZero;
    return static_cast<double>(firstOfMonth + day - 1);
}

double TimeSerial(int hour, int minute, int second) {
    return (hour * 3600.0 + minute * 60.0 + second) / SecondsPerDay;
}

DateParts PartsOf(double when) {
    if (std::isnan(when)) when = 0;
    const double second = std::clamp(std::floor(when * SecondsPerDay + 0.5),
                                     FirstDay * SecondsPerDay, (LastDay + 1) * SecondsPerDay - 1);
    const auto total = static_cast<std::int64_t>(second);
    const std::int64_t dayNumber = FloorDivide(total, 86400);
    const int ofDay = static_cast<int>(total - dayNumber * 86400);
    DateParts parts{};
    SetDate(parts, dayNumber);
    parts.hour = ofDay / 3600;
    parts.minute = ofDay / 60 % 60;
    parts.second = ofDay % 60;
    return parts;
}

double DateOf(double when) { return std::floor(ClockSecond(when) / SecondsPerDay); }

double TimeOf(double when) { return std::max(when - DateOf(when), 0.0); }

std::int32_t DateDiffSeconds(double first, double second) {
    const double crossings = ClockSecond(second) - ClockSecond(first);
    if (std::isnan(crossings)) return 0;
    constexpr double Least = std::numeric_limits<std::int32_t>::min();
    constexpr double Most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(crossings, Least, Most));
}

std::string Format(double when, std::string_view format) {
    const LocaleFormats& locale = Locale();
    if (format == "Short Date") {
        format = locale.shortDate;
    } else if (format == "ttttt") {
        format = locale.longTime;
    } else if (std::find(std::begin(FormatsInUse), std::end(FormatsInUse), format) ==
               std::end(FormatsInUse)) {
        throw RuntimeError(5);
    }
    const DateParts parts = PartsOf(when);
    std::string result;
    while (!format.empty()) TakeToken(format, parts, result);
    return result;
}

std::string DateAndTime(double when) {
    return Format(when, "Short Date") + " " + Format(when, "ttttt");
}

void SetLocaleFormats(std::string shortDate, std::string longTime) {
    Locale().shortDate = std::move(shortDate);
    Locale().longTime = std::move(longTime);
}

void SetLocaleMonths(std::array<std::string, 12> names) { Locale().months = std::move(names); }

double TimeValue(std::string_view text) {
    const std::string trimmed = Trim(text);
    std::string_view rest = trimmed;
    constexpr std::array Limits = {23, 59, 59};
    std::array<int, 3> parts = {0, 0, 0};
    std::size_t count = 0;
    do {
        if (count > 0) rest.remove_prefix(1);
        const std::optional<int> part = TakeTwoDigits(rest, Limits[count]);
        if (!part) throw RuntimeError(13);
        parts[count++] = *part;
    } while (count < parts.size() && rest.starts_with(':'));
    if (count < 2 || !rest.empty()) throw RuntimeError(13);
    return TimeSerial(parts[0], parts[1], parts[2]);
}

}  // namespace cumeron
