// Date-times: day counts as double, local time, the time of day as the fraction; day 0 is
// 1899-12-30.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cumeron {

struct DateParts {
    int year, month, day, hour, minute, second;
};

double DateSerial(int year, int month, int day);      // carries over
double TimeSerial(int hour, int minute, int second);  // carries over
// To the nearest whole second. Dates outside the years 1 to 9999 give the first or the last moment
// of these, no number gives day 0.
DateParts PartsOf(double when);
// The date without the time of day, and the time of day without the date. Less than half a
// millisecond before midnight is the next day, 0:00.
double DateOf(double when);
double TimeOf(double when);
// Crossings of the clock second from first to second; negative backwards.
std::int32_t DateDiffSeconds(double first, double second);
// Formats in use: "d-mmm" (the short name of the month), "hh:nn:ss", "hh:nn",
// "dd.mm.yyyy", "yyyy-mm-dd", "yyyy-mm-dd hh:nn:ss", "Short Date", "ttttt", and each of "yyyy",
// "yy", "mm", "dd", "hh", "nn", "ss" alone; raises 5 for another.
std::string Format(double when, std::string_view format);
// "Short Date", a blank and "ttttt": how files and windows name a moment.
std::string DateAndTime(double when);
// "Short Date" and "ttttt" are the locale's; the host sets them at its start (with the letters of
// the formats above, also one letter alone). At the beginning "dd.mm.yyyy" and "hh:nn:ss".
void SetLocaleFormats(std::string shortDate, std::string longTime);
// The short names of the months, January first. At the beginning the first three letters of the
// English ones.
void SetLocaleMonths(std::array<std::string, 12> names);
// A time of day as a person writes it, "6:0", "06:15", "06:15:30", to a fraction of a day;
// raises 13 otherwise.
double TimeValue(std::string_view text);

}  // namespace cumeron
