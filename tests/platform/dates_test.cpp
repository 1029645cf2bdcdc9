#include "platform/runtime/dates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Second = 1.0 / 86400;
constexpr int LargestInt = std::numeric_limits<int>::max();
constexpr int LeastInt = std::numeric_limits<int>::min();

std::string Written(double when) { return Format(when, "yyyy-mm-dd hh:nn:ss"); }

TEST(DateSerial, CountsDaysAndCarriesOver) {
    const struct {
        int year, month, day;
        double number;
    } cases[] =
        {
            {1899, 12, 30, 0},      {1899, 12, 31, 1},     {1899, 12, 29, -1},
            {1900, 1, 1, 2},        {1970, 1, 1, 25569},   {2000, 2, 29, 36585},
            {2000, 3, 1, 36586},    {2026, 11, 15, 46341}, {9999, 12, 31, 2958465},
            {1, 1, 1, -693593},     {2026, 13, 1, 46388},  // January of the next year
            {2025, 13, 320, 46342},                        // and on into November
            {2026, 0, 15, 46006},                          // December of the year before
            {2026, -11, 1, 45658},                         // January of the year before
            {2026, 3, 0, 46081},                           // the last of February
            {2024, 2, 30, 45352},                          // 1 March
            {2023, 2, 29, 44986},                          // 1 March
            {1900, 2, 29, 61},                             // no leap year
        };
    for (const auto& c : cases) {
        EXPECT_EQ(DateSerial(c.year, c.month, c.day), c.number)
            << c.year << "-" << c.month << "-" << c.day;
    }
}

TEST(DateSerial, StandsAnyNumbers) {
    EXPECT_GT(DateSerial(LargestInt, LargestInt, LargestInt), 7e11);
    EXPECT_LT(DateSerial(LeastInt, LeastInt, LeastInt), -7e11);
}

TEST(TimeSerial, CarriesOver) {
    EXPECT_EQ(TimeSerial(6, 0, 0), 0.25);
    EXPECT_EQ(TimeSerial(0, 0, 0), 0);
    EXPECT_EQ(TimeSerial(0, 90, 0), TimeSerial(1, 30, 0));
    EXPECT_EQ(TimeSerial(1, 0, -1), TimeSerial(0, 59, 59));
    EXPECT_EQ(TimeSerial(36, 0, 0), 1.5);
    EXPECT_GT(TimeSerial(LargestInt, LargestInt, LargestInt), 8e7);
}

TEST(PartsOf, FindsEveryDayAgain) {
    for (int day = -693593; day <= 2958465; day += 13) {
        const DateParts parts = PartsOf(day);
        ASSERT_EQ(DateSerial(parts.year, parts.month, parts.day), day);
        ASSERT_EQ(parts.hour + parts.minute + parts.second, 0);
    }
}

TEST(PartsOf, GoesToTheNearestSecond) {
    const double noon = DateSerial(2026, 11, 15) + TimeSerial(12, 0, 0);
    const struct {
        const char* what;
        double when;
        const char* written;
    } cases[] = {
        {"exact", noon, "2026-11-15 12:00:00"},
        {"noise below", noon - 1e-9, "2026-11-15 12:00:00"},
        {"0.4 s", noon + 0.4 * Second, "2026-11-15 12:00:00"},
        {"0.6 s", noon + 0.6 * Second, "2026-11-15 12:00:01"},
        {"-0.4 s", noon - 0.4 * Second, "2026-11-15 12:00:00"},
        {"-0.6 s", noon - 0.6 * Second, "2026-11-15 11:59:59"},
        {"up to midnight", DateSerial(2027, 1, 1) - 0.3 * Second, "2027-01-01 00:00:00"},
        {"last second", DateSerial(2027, 1, 1) - Second, "2026-12-31 23:59:59"},
        {"before day nought", -0.25, "1899-12-29 18:00:00"},
        {"leap day", DateSerial(2028, 3, 1) - Second, "2028-02-29 23:59:59"},
    };
    for (const auto& c : cases) EXPECT_EQ(Written(c.when), c.written) << c.what;
}

TEST(PartsOf, StandsNonsense) {
    EXPECT_EQ(Written(NotANumber), "1899-12-30 00:00:00");
    EXPECT_EQ(Written(Inf), "9999-12-31 23:59:59");
    EXPECT_EQ(Written(1e300), "9999-12-31 23:59:59");
    EXPECT_EQ(Written(2958466), "9999-12-31 23:59:59");
    EXPECT_EQ(Written(-1e300), "0001-01-01 00:00:00");
    EXPECT_EQ(Written(-Inf), "0001-01-01 00:00:00");
}

TEST(DateOf, SplitsDateAndTime) {
    const double day = DateSerial(2026, 11, 15);
    const struct {
        const char* what;
        double when, date, time;
    } cases[] = {
        {"midnight", day, day, 0},
        {"evening", day + 0.75, day, 0.75},
        {"noise before midnight", day - 1e-10, day, 0},
        {"last second", day - Second, day - 1, 1 - Second},
        {"before day nought", -0.25, -1, 0.75},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DateOf(c.when), c.date) << c.what;
        EXPECT_NEAR(TimeOf(c.when), c.time, 1e-9) << c.what;
        EXPECT_GE(TimeOf(c.when), 0) << c.what;
    }
}

TEST(DateDiffSeconds, CountsCrossingsOfTheClockSecond) {
    const double noon = DateSerial(2026, 11, 15) + TimeSerial(12, 0, 0);
    const struct {
        const char* what;
        double first, second;
        std::int32_t seconds;
    } cases[] = {
        {"the same moment", noon, noon, 0},
        {"one second", noon, noon + Second, 1},
        {"backwards", noon + 15 * Second, noon, -15},
        {"0.1 s over a boundary", noon - 0.05 * Second, noon + 0.05 * Second, 1},
        {"0.9 s without a boundary", noon + 0.05 * Second, noon + 0.95 * Second, 0},
        {"1.8 s over one boundary", noon + 0.1 * Second, noon + 1.9 * Second, 1},
        {"noise below the second", noon, noon + Second - 1e-10, 1},
        {"noise above the second", noon, noon + Second + 1e-10, 1},
        {"noise at the beginning", noon - 1e-10, noon + Second, 1},
        {"over midnight", DateSerial(2026, 12, 31) + TimeSerial(23, 59, 59), DateSerial(2027, 1, 1),
         1},
        {"a day", 0, 1, 86400},
        {"before day nought", -Second, Second, 2},
    };
    for (const auto& c : cases) EXPECT_EQ(DateDiffSeconds(c.first, c.second), c.seconds) << c.what;
}

TEST(DateDiffSeconds, KeepsStepWithManyAddedSeconds) {
    double when = DateSerial(2026, 11, 15);
    const double start = when;
    for (int second = 1; second <= 20000; ++second) {
        when += Second;
        ASSERT_EQ(DateDiffSeconds(start, when), second);
    }
}

TEST(DateDiffSeconds, StaysWithinItsBits) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(DateDiffSeconds(0, 46341), Most);
    EXPECT_EQ(DateDiffSeconds(46341, 0), Least);
    EXPECT_EQ(DateDiffSeconds(0, Inf), Most);
    EXPECT_EQ(DateDiffSeconds(0, -1e300), Least);
    EXPECT_EQ(DateDiffSeconds(Inf, Inf), 0);
    EXPECT_EQ(DateDiffSeconds(NotANumber, 0), 0);
}

TEST(Format, KnowsTheFormatsInUse) {
    const double when = DateSerial(2026, 3, 5) + TimeSerial(7, 8, 9);
    const struct {
        const char *format, *text;
    } cases[] = {
        {"d-mmm", "5-Mar"},
        {"hh:nn:ss", "07:08:09"},
        {"hh:nn", "07:08"},
        {"dd.mm.yyyy", "05.03.2026"},
        {"yyyy-mm-dd", "2026-03-05"},
        {"yyyy-mm-dd hh:nn:ss", "2026-03-05 07:08:09"},
        {"yyyy", "2026"},
        {"yy", "26"},
        {"mm", "03"},
        {"dd", "05"},
        {"hh", "07"},
        {"nn", "08"},
        {"ss", "09"},
        {"Short Date", "05.03.2026"},
        {"ttttt", "07:08:09"},
    };
    for (const auto& c : cases) EXPECT_EQ(Format(when, c.format), c.text) << c.format;
}

TEST(Format, NamesTheMonthsInEnglishAtFirst) {
    const char* const names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(Format(DateSerial(2026, month, 28), "d-mmm"),
                  std::string("28-") + names[month - 1]);
    }
}

TEST(Format, RaisesForAnother) {
    for (const char* format : {"", "d-mmmm", "short date", "Fixed", "hh:mm", "yyyy-mm-dd "}) {
        try {
            Format(0, format);
            ADD_FAILURE() << format;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 5) << format;
        }
    }
}

TEST(Format, FollowsTheLocale) {
    const double when = DateSerial(2026, 3, 5) + TimeSerial(7, 8, 9);
    const struct {
        const char *shortDate, *longTime, *date, *time;
    } cases[] = {
        {"m/d/yy", "h:nn:ss", "3/5/26", "7:08:09"},
        {"d. mmm yyyy", "h.n.s", "5. Mar 2026", "7.8.9"},
        {"", "", "", ""},
    };
    for (const auto& c : cases) {
        SetLocaleFormats(c.shortDate, c.longTime);
        EXPECT_EQ(Format(when, "Short Date"), c.date);
        EXPECT_EQ(Format(when, "ttttt"), c.time);
        EXPECT_EQ(Format(when, "dd.mm.yyyy"), "05.03.2026");
    }
    SetLocaleFormats("dd.mm.yyyy", "hh:nn:ss");
}

TEST(Format, NamesTheMonthsAsTheLocaleDoes) {
    const std::array<std::string, 12> english = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    SetLocaleMonths({"a", "b", "M\xE4r", "d", "e", "f", "g", "h", "i", "j", "k", "Dez."});
    EXPECT_EQ(Format(DateSerial(2026, 3, 5), "d-mmm"), "5-M\xE4r");
    EXPECT_EQ(Format(DateSerial(2026, 12, 31), "d-mmm"), "31-Dez.");
    SetLocaleMonths(english);
    EXPECT_EQ(Format(DateSerial(2026, 3, 5), "d-mmm"), "5-Mar");
}

TEST(TimeValue, ReadsWhatAPersonWrites) {
    const struct {
        const char* text;
        double time;
    } cases[] = {
        {"6:0", TimeSerial(6, 0, 0)},
        {"6:0 ", TimeSerial(6, 0, 0)},
        {" 06:15", TimeSerial(6, 15, 0)},
        {"06:15:30", TimeSerial(6, 15, 30)},
        {"0:0", 0},
        {"23:59:59", TimeSerial(23, 59, 59)},
    };
    for (const auto& c : cases) EXPECT_EQ(TimeValue(c.text), c.time) << c.text;
}

TEST(TimeValue, RaisesForAnythingElse) {
    const char* const cases[] = {
        "",       " ",    "6",      ":",       "6:",       ":30",   "24:00",   "6:60",
        "6:0:60", "6:0:", "6:0:0:", "6:0:0:0", "006:00",   "6:000", "6:0:000", "-6:00",
        "6 :00",  "6: 0", "6.00",   "6:00 PM", "six:noon", "0.25",  "6:00x",   "99999999999:0",
    };
    for (const char* text : cases) {
        try {
            TimeValue(text);
            ADD_FAILURE() << text;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 13) << text;
        }
    }
}

}  // namespace
}  // namespace cumeron
