#include <gtest/gtest.h>

#include "platform/host/colours.h"
#include "platform/host/locale_formats.h"
#include "platform/host/unicode.h"
#include "platform/host/widgets.h"

namespace cumeron {
namespace {

TEST(Unicode, EveryByteComesBack) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(FromUnicode(ToUnicode(text)), text) << byte;
    }
}

TEST(Unicode, KnowsTheCodePage) {
    const struct {
        const char* text;
        char16_t character;
    } cases[] = {{"A", u'A'},      {"\x80", 0x20AC}, {"\x85", 0x2026}, {"\x9F", 0x0178},
                 {"\xA0", 0x00A0}, {"\xB0", 0x00B0}, {"\xE4", 0x00E4}, {"\x81", 0x0081}};
    for (const auto& c : cases) EXPECT_EQ(ToUnicode(c.text), QString(QChar(c.character)));
}

TEST(Unicode, CharactersOutsideTheCodePageBecomeAQuestionMark) {
    EXPECT_EQ(FromUnicode(QStringLiteral(u"\u4E00")), "?");
    EXPECT_EQ(FromUnicode(QString::fromUtf8("a\xF0\x9F\x8C\xA9z")), "a?z");
}

TEST(ToFileName, KeepsUtf8AndTranslatesTheRest) {
    EXPECT_EQ(ToFileName("/home/a/log.DAT"), "/home/a/log.DAT");
    EXPECT_EQ(ToFileName("/home/\xC5\xBC"), "/home/\xC5\xBC");
    EXPECT_EQ(ToFileName("/home/\xE4"), "/home/\xC3\xA4");
}

TEST(WithDotsForControls, LeavesTextAndLineEnds) {
    EXPECT_EQ(WithDotsForControls(QString("\x01KN\x02\t\r\n\x03")),
              QStringLiteral(u"\u00B7KN\u00B7\t\r\n\u00B7"));
    EXPECT_EQ(WithDotsForControls(QStringLiteral(u"~\u007F\u0081\u009F\u00A0\u20AC")),
              QStringLiteral(u"~\u00B7\u00B7\u00B7\u00A0\u20AC"));
}

TEST(LocaleFormats, DatesKeepOrderAndSeparator) {
    const struct {
        const char* pattern;
        const char* format;
    } cases[] = {
        {"dd.MM.yy", "dd.mm.yyyy"},   {"M/d/yy", "mm/dd/yyyy"}, {"yyyy-MM-dd", "yyyy-mm-dd"},
        {"d. M. yyyy", "dd.mm.yyyy"}, {"dddd", "dd.mm.yyyy"},   {"", "dd.mm.yyyy"},
        {"d MMM yyyy", "dd.mm.yyyy"}, {"d.M.d", "dd.mm.yyyy"},  {"yyyy'y' M/d", "yyyy mm dd"}};
    for (const auto& c : cases) EXPECT_EQ(ShortDateFormat(c.pattern), c.format) << c.pattern;
}

TEST(LocaleFormats, MonthsHaveShortNamesThatTheCodePageHas) {
    const auto german = ShortMonthNames(QLocale(QLocale::German));
    EXPECT_EQ(german[0], "Jan");
    EXPECT_EQ(german[2], "M\xE4r");
    EXPECT_EQ(german[11], "Dez");
    const auto greek = ShortMonthNames(QLocale(QLocale::Greek));
    EXPECT_EQ(greek, ShortMonthNames(QLocale::c()));
    EXPECT_EQ(greek[4], "May");
}

TEST(LocaleFormats, TimesHaveTwentyFourHoursAndNoZone) {
    const struct {
        const char* pattern;
        const char* format;
    } cases[] = {{"h:mm:ss AP t", "hh:nn:ss"},
                 {"HH.mm.ss t", "hh.nn.ss"},
                 {"HH:mm", "hh:nn:ss"},
                 {"H 'h' mm 'min' ss 's'", "hh nn ss"}};
    for (const auto& c : cases) EXPECT_EQ(LongTimeFormat(c.pattern), c.format) << c.pattern;
}

TEST(Colours, RedStandsInTheLowestByte) {
    EXPECT_EQ(ToColour(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(ToColour(0x010203), QColor(3, 2, 1));
}

TEST(ReadableOn, ChangesOnlyWhatCannotBeRead) {
    const QColor light(0xF0, 0xF0, 0xF0), dark(0x20, 0x20, 0x20);
    EXPECT_EQ(ReadableOn(light, Qt::black), QColor(Qt::black));
    for (const QColor& background : {light, dark}) {
        for (const QColor& colour : {QColor(255, 255, 0), QColor(0, 128, 0), QColor(128, 0, 0)}) {
            EXPECT_GE(Contrast(background, ReadableOn(background, colour)), 4.5);
        }
    }
    EXPECT_GT(ReadableOn(dark, QColor(0, 128, 0)).green(),
              ReadableOn(dark, QColor(0, 128, 0)).red());
}

}  // namespace
}  // namespace cumeron
