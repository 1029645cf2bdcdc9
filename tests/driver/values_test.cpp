// Numbers, colours, times and truths as a script writes them.
#include "values.h"

#include <gtest/gtest.h>

#include "platform/runtime/dates.h"
#include "session.h"

namespace cumeron {
namespace {

TEST(NumberOf, TakesNumbersColoursAndTruths) {
    const struct {
        const char* text;
        std::optional<double> number;
    } cases[] = {
        {"15", 15},        {"-0.5", -0.5}, {"&HFF0010", 0xFF0010}, {"&Hff", 255},
        {"qb4", 0x000080}, {"qb0", 0},     {"qb15", 0xFFFFFF},     {"True", -1},
        {"False", 0},      {"qb16", {}},   {"qb1.5", {}},          {"qb", {}},
        {"&H", {}},        {"&HG", {}},    {"&H123456789", {}},    {"", {}},
        {"ten", {}},       {"true", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(NumberOf(c.text), c.number) << c.text;
}

TEST(TimeOfText, TakesOneFormOnly) {
    const double day = DateSerial(2026, 11, 15);
    const struct {
        const char* text;
        std::optional<double> time;
    } cases[] = {
        {"2026-11-15 14:41:25", day + TimeSerial(14, 41, 25)},
        {"2026-11-15 14:41:25.5", day + TimeSerial(14, 41, 25) + 0.5 / 86400},
        {"2026-11-15 14:41:25.", {}},
        {"2026-11-15 14:41:25x5", {}},
        {"2026-11-15 14:41:25.x", {}},
        {"2026-11-15", {}},
        {"2026-13-15 14:41:25", {}},
        {"2026-00-15 14:41:25", {}},
        {"2026-11-32 14:41:25", {}},
        {"2026-11-00 14:41:25", {}},
        {"2026-11-15 24:41:25", {}},
        {"2026-11-15 14:60:25", {}},
        {"2026-11-15 14:41:60", {}},
        {"2026-11-15T14:41:25", {}},
        {"2026-1a-15 14:41:25", {}},
        {"15.11.2026 14:41:25", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(TimeOfText(c.text), c.time) << c.text;
}

TEST(Matches, ComparesByTheKindThatIsHeld) {
    const DateValue date{DateSerial(2026, 11, 15) + TimeSerial(14, 41, 25)};
    const struct {
        Value held;
        const char* expected;
        bool same;
    } cases[] = {
        {std::string("00450"), "00450", true},
        {std::string("00450"), "450", false},
        {std::int64_t{450}, "00450", true},
        {std::int64_t{450}, "451", false},
        {std::int64_t{-1}, "True", true},
        {std::int64_t{-1}, "-1", true},
        {std::int64_t{0}, "False", true},
        {std::int64_t{1}, "True", false},
        {true, "True", true},
        {true, "-1", true},
        {true, "False", false},
        {false, "0", true},
        {false, "", false},
        {1.5, "1.50", true},
        {1.5, "1.6", false},
        {static_cast<double>(0.3F), "0.3", true},
        {0.30000001, "0.3", false},
        {0.1 + 0.2, "0.3", true},
        {std::int64_t{0x0000FF}, "&H0000FF", true},
        {std::int64_t{0x000080}, "qb4", true},
        {date, "2026-11-15 14:41:25", true},
        {date, "2026-11-15 14:41:26", false},
        {date, "2026-11-15 14:41:25.000", true},
        {DateValue{date.when + 0.25 / 86400}, "2026-11-15 14:41:25.25", true},
        {DateValue{date.when + 0.25 / 86400}, "2026-11-15 14:41:25", true},
        {DateValue{date.when + 0.25 / 86400}, "2026-11-15 14:41:25.26", false},
        {date.when, "2026-11-15 14:41:25", false},
        {DateValue{0}, "0", true},
        {DateValue{0.25}, "0.25", true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Matches(c.held, c.expected), c.same) << Shown(c.held) << " " << c.expected;
    }
}

TEST(Arguments, TellWhatIsWrongWithThem) {
    EXPECT_EQ(IntegerArgument("-3"), -3);
    EXPECT_EQ(SecondsArgument("0.25"), 250000);
    EXPECT_THROW(NumberArgument("x"), CommandError);
    EXPECT_THROW(IntegerArgument("1.5"), CommandError);
    EXPECT_THROW(IntegerArgument("1E10"), CommandError);
    EXPECT_THROW(SecondsArgument("-1"), CommandError);
    EXPECT_THROW(SecondsArgument("1E10"), CommandError);
    EXPECT_EQ(PixelsArgument("32767"), 32767);
    EXPECT_THROW(PixelsArgument("0"), CommandError);
    EXPECT_THROW(PixelsArgument("32768"), CommandError);
    EXPECT_THROW(TimeArgument("noon"), CommandError);
    EXPECT_TRUE(OnOffArgument("on"));
    EXPECT_FALSE(OnOffArgument("off"));
    EXPECT_THROW(OnOffArgument("ON"), CommandError);
}

}  // namespace
}  // namespace cumeron
