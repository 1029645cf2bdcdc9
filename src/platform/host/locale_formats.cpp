#include "platform/host/locale_formats.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

#include "platform/host/unicode.h"
#include "platform/runtime/dates.h"

namespace cumeron {
namespace {

constexpr const char* DefaultDate = "dd.mm.yyyy";

struct PatternLetter {
    char letter;          // in the pattern of the locale
    const char* letters;  // in the program's formats
};

// The fields in the order of the pattern, with the separator of its first two fields between them;
// "" unless each field is there once.
std::string Rewrite(const QString& pattern, const std::array<PatternLetter, 3>& table) {
    std::string fields[3];
    std::string separator;
    std::size_t count = 0;
    char last = '\0';
    // Words between quotes are no fields.
    static const QRegularExpression words("'[^']*'");
    const QString bare = QString(pattern).remove(words);
    for (const QChar character : bare) {
        const char c = character.toLatin1();
        const auto* row = std::find_if(table.begin(), table.end(),
                                       [c](const PatternLetter& r) { return r.letter == c; });
        if (row == table.end()) {
            if (count == 1 && separator.empty()) separator = FromUnicode(character);
        } else if (c != last) {
            if (count == 3) return "";
            fields[count++] = row->letters;
        }
        last = c;
    }
    std::string sorted[3] = {fields[0], fields[1], fields[2]};
    std::sort(std::begin(sorted), std::end(sorted));
    const bool whole = std::unique(std::begin(sorted), std::end(sorted)) == std::end(sorted);
    if (count != 3 || !whole) return "";
    return fields[0] + separator + fields[1] + separator + fields[2];
}

}  // namespace

std::string ShortDateFormat(const QString& pattern) {
    if (pattern.contains("MMM")) return DefaultDate;
    const std::string format = Rewrite(pattern, {{{'d', "dd"}, {'M', "mm"}, {'y', "yyyy"}}});
    return format.empty() ? DefaultDate : format;
}

std::string LongTimeFormat(const QString& pattern) {
    QString lower = pattern;
    lower.replace('H', 'h');
    const std::string format = Rewrite(lower, {{{'h', "hh"}, {'m', "nn"}, {'s', "ss"}}});
    return format.empty() ? "hh:nn:ss" : format;
}

std::array<std::string, 12> ShortMonthNames(const QLocale& locale) {
    std::array<std::string, 12> names;
    for (std::size_t month = 0; month < names.size(); ++month) {
        const QString name =
            locale.standaloneMonthName(static_cast<int>(month) + 1, QLocale::ShortFormat);
        names[month] = FromUnicode(name);
        if (ToUnicode(names[month]) != name) return ShortMonthNames(QLocale::c());
    }
    return names;
}

void UseLocaleFormats() {
    const QLocale locale = QLocale::system();
    // The short time has no seconds in most locales; the long one has them before its zone.
    SetLocaleFormats(ShortDateFormat(locale.dateFormat(QLocale::ShortFormat)),
                     LongTimeFormat(locale.timeFormat(QLocale::LongFormat)));
    SetLocaleMonths(ShortMonthNames(locale));
}

}  // namespace cumeron
