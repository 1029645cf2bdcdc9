#include "platform/runtime/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr long Largest = std::numeric_limits<long>::max();

// The number of the error that the statement raises, 0 without one.
int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(Mid, GivesWhatIsThere) {
    const struct {
        const char* what;
        long position, length;
        const char* result;
    } cases[] = {
        {"from the first", 1, 2, "ab"},  {"inside", 3, 2, "cd"},
        {"across the end", 4, 9, "de"},  {"the last", 5, 1, "e"},
        {"behind the end", 6, 1, ""},    {"far behind", Largest, Largest, ""},
        {"endless", 2, Largest, "bcde"}, {"position nought", 0, 3, ""},
        {"before the text", -1, 3, ""},  {"most negative", std::numeric_limits<long>::min(), 3, ""},
        {"no length", 2, 0, ""},         {"negative length", 2, -1, ""},
    };
    for (const auto& c : cases) EXPECT_EQ(Mid("abcde", c.position, c.length), c.result) << c.what;
}

TEST(Mid, GoesToTheEndWithoutALength) {
    EXPECT_EQ(Mid("abcde", 4), "de");
    EXPECT_EQ(Mid("abcde", 6), "");
    EXPECT_EQ(Mid("abcde", 0), "");
    EXPECT_EQ(Mid("", 1), "");
}

TEST(Mid, KeepsEveryByte) {
    using namespace std::string_literals;
    EXPECT_EQ(Mid("a\0\xFF z"s, 2, 3), "\0\xFF "s);
}

TEST(InStr, FindsTheFirstPosition) {
    const struct {
        const char *text, *needle;
        long position;
    } cases[] = {
        {"abcabc", "a", 1}, {"abcabc", "ca", 3}, {"abcabc", "abcabc", 1},
        {"abc", "C", 0},    {"abc", "abcd", 0},  {"abc", "", 0},
        {"", "a", 0},       {"", "", 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(InStr(c.text, c.needle), c.position) << c.text << " " << c.needle;
    }
}

TEST(IsNumeric, TakesWhatAPersonWrites) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"0", 0},
        {"15", 15},
        {"00750", 750},
        {"  7 ", 7},
        {"-12", -12},
        {"+12", 12},
        {"12-", -12},
        {"12+", 12},
        {" -12 ", -12},
        {"0.5", 0.5},
        {".5", 0.5},
        {"5.", 5},
        {"-.25", -0.25},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"1d3", 1000},
        {"25D-1", 2.5},
        {"1.5e-2", 0.015},
        {"1e2-", -100},
        {".5E1", 5},
        {"16777215", 16777215},
        {"0.1", 0.1},
        {"123456789012345678", 123456789012345678.0},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(IsNumeric(c.text)) << c.text;
        EXPECT_EQ(ToDouble(c.text), c.value) << c.text;
    }
}

TEST(IsNumeric, RefusesWhatIsNoNumber) {
    const char* const cases[] = {
        "",    " ",        "-",    "+",    ".",      "-.",    "e",    "e5",   "E+5", "1e",
        "1e+", "1e-",      "1e5.", "1 2",  "1.2.3",  "--1",   "-1-",  "+1-",  "1--", "- 1",
        "1 -", "abc",      "12a",  "a12",  "/////",  "1,5",   "0x10", "&H10", "1f5", "nan",
        "inf", "infinity", "1\t",  "\r\n", "12\r\n", "1e5e5", "1e 5", "\xB2", "..1", "1e5d",
    };
    for (const char* text : cases) {
        EXPECT_FALSE(IsNumeric(text)) << text;
        EXPECT_EQ(ErrorOf([&] { ToDouble(text); }), 13) << text;
        EXPECT_EQ(ErrorOf([&] { ToInt16(text); }), 13) << text;
        EXPECT_EQ(ErrorOf([&] { ToInt32(text); }), 13) << text;
    }
    EXPECT_FALSE(IsNumeric(std::string_view("1\0", 2)));
}

TEST(ToDouble, OverflowsWhereNoDoubleReaches) {
    const std::string manyDigits(400, '9');
    const std::string manyNoughts = "0." + std::string(400, '0') + "1";
    const struct {
        std::string text;
        int error;
    } cases[] = {
        {"1e999", 6},
        {"-1e999", 6},
        {"1e99999999999999999999999", 6},
        {manyDigits, 6},
        {"0.001e999", 6},
        {manyNoughts + "e9999", 6},
        {"1e-999", 0},
        {"1e-99999999999999999999999", 0},
        {manyNoughts, 0},
        {"1000e-999", 0},
        {manyDigits + "e-9999", 0},
        {"0e999", 0},
    };
    for (const auto& c : cases) {
        double value = 1;
        EXPECT_EQ(ErrorOf([&] { value = ToDouble(c.text); }), c.error) << c.text;
        EXPECT_EQ(value, c.error == 0 ? 0 : 1) << c.text;
    }
}

TEST(ToDouble, StandsVeryLongTexts) {
    const std::string noughts(20'000'000, '0');
    EXPECT_EQ(ToDouble(noughts + "7"), 7);
    EXPECT_EQ(ToDouble("7." + noughts), 7);
    EXPECT_FALSE(IsNumeric(noughts + "x"));
}

TEST(ToInt, RoundsHalvesToEven) {
    const struct {
        double value;
        std::int16_t result;
    } cases[] = {
        {0.5, 0},  {1.5, 2},  {2.5, 2},  {-0.5, 0},   {-1.5, -2},       {-2.5, -2},
        {0.49, 0}, {0.51, 1}, {2.51, 3}, {-0.51, -1}, {32767.4, 32767}, {-32768.5, -32768},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ToInt16(c.value), c.result) << c.value;
        EXPECT_EQ(ToInt32(c.value), c.result) << c.value;
        EXPECT_EQ(RoundHalfEven(c.value), c.result) << c.value;
    }
    EXPECT_EQ(ToInt32("2147483647"), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToInt16(" 2.5 "), 2);
    EXPECT_EQ(ToInt32("1e5"), 100000);
}

TEST(ToInt, OverflowsOutsideItsBits) {
    for (const double value : {32767.5, -32769.0, 1e300, Inf, -Inf, NotANumber}) {
        EXPECT_EQ(ErrorOf([&] { ToInt16(value); }), 6) << value;
    }
    for (const double value : {2147483647.5, -2147483649.0, 1e300, Inf, -Inf, NotANumber}) {
        EXPECT_EQ(ErrorOf([&] { ToInt32(value); }), 6) << value;
    }
    EXPECT_EQ(ErrorOf([] { ToInt16("32768"); }), 6);
    EXPECT_EQ(ErrorOf([] { ToInt32("2147483648"); }), 6);
}

TEST(Arithmetic16, OverflowsLikeA16BitCount) {
    EXPECT_EQ(Add16(32766, 1), 32767);
    EXPECT_EQ(Add16(-32767, -1), -32768);
    EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { Add16(-32768, -1); }), 6);
    EXPECT_EQ(ErrorOf([] { Add16(1, std::numeric_limits<int>::max()); }), 6);
    EXPECT_EQ(Multiply16(10922, 3), 32766);
    EXPECT_EQ(Multiply16(-16384, 2), -32768);
    EXPECT_EQ(ErrorOf([] { Multiply16(16384, 2); }), 6);
    EXPECT_EQ(ErrorOf([] { Multiply16(-32768, std::numeric_limits<int>::min()); }), 6);
}

TEST(NumberText, IsTheShortestDecimalForm) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {15, "15"},
        {-15, "-15"},
        {0.5, "0.5"},
        {-0.5, "-0.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {100, "100"},
        {1234.5, "1234.5"},
        {16776960, "16776960"},
        {0.05, "0.05"},
        {1e-5, "0.00001"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {1.25e-15, "1.25E-15"},
        {123456789012345.0, "123456789012345"},
        {999999999999999.9, "1E+15"},
        {1e15, "1E+15"},
        {1e20, "1E+20"},
        {-1.5e20, "-1.5E+20"},
        {1e100, "1E+100"},
        {5e-324, "4.94065645841247E-324"},
        {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        {NotANumber, "nan"},
        {Inf, "inf"},
        {-Inf, "-inf"},
    };
    for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text);
}

TEST(StrOf, HasABlankInPlaceOfThePlus) {
    EXPECT_EQ(StrOf(15), " 15");
    EXPECT_EQ(StrOf(0), " 0");
    EXPECT_EQ(StrOf(0.5), " 0.5");
    EXPECT_EQ(StrOf(-15), "-15");
    EXPECT_EQ(StrOf(-0.5), "-0.5");
}

TEST(Hex, WritesCapitalsWithoutNoughts) {
    EXPECT_EQ(Hex(0), "0");
    EXPECT_EQ(Hex(10), "A");
    EXPECT_EQ(Hex(0xBEEF), "BEEF");
    EXPECT_EQ(Hex(0x0FF), "FF");
    EXPECT_EQ(Hex(0xFFFFFFFF), "FFFFFFFF");
}

TEST(PadLeft, FillsUpOnly) {
    EXPECT_EQ(PadLeft("7", 3, '0'), "007");
    EXPECT_EQ(PadLeft("", 2, ' '), "  ");
    EXPECT_EQ(PadLeft("1234", 3, '0'), "1234");
    EXPECT_EQ(PadLeft("123", 3, '0'), "123");
    EXPECT_EQ(PadLeft("", 0, '0'), "");
}

TEST(LetterCase, ChangesAsciiLettersOnly) {
    EXPECT_EQ(LowerCase("AZaz09[@`{\xC4"), "azaz09[@`{\xC4");
    EXPECT_EQ(UpperCase("AZaz09[@`{\xE4"), "AZAZ09[@`{\xE4");
}

TEST(Trim, TakesBlanksFromBothEnds) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\ta\r\n"), "\ta\r\n");
}

}  // namespace
}  // namespace cumeron
