// The date and time of the operator's locale in the letters of the program's formats.
#pragma once

#include <QLocale>
#include <QString>
#include <array>
#include <string>

namespace cumeron {

// From "d.M.yy" and the like: its order and separators, with two digits for day and month and four
// for the year, so that the year is never in doubt. "dd.mm.yyyy" where a part is missing or the
// month is a word.
std::string ShortDateFormat(const QString& pattern);
// From "h:mm:ss AP t" and the like: always 24 hours, with the locale's separators.
std::string LongTimeFormat(const QString& pattern);
// The short names of the months, January first; the English ones where the code page lacks a letter
// of them.
std::array<std::string, 12> ShortMonthNames(const QLocale& locale);
// Tells the core the formats of the system's locale.
void UseLocaleFormats();

}  // namespace cumeron
