#include "platform/profile_file.h"

#include <gtest/gtest.h>

#include <string>

namespace cumeron {
namespace {

std::string Value(std::string_view text, std::string_view key = "Key") {
    return ProfileValue(text, "S", key, "absent");
}

std::string With(std::string_view text, std::string_view value, std::string_view key = "Key") {
    return WithProfileValue(text, "S", key, value);
}

TEST(ProfileValue, FindsSectionAndKey) {
    const struct {
        const char *what, *text, *value;
    } cases[] = {
        {"plain", "[S]\r\nKey=5\r\n", "5"},
        {"line feed only", "[S]\nKey=5\n", "5"},
        {"no last line end", "[S]\r\nKey=5", "5"},
        {"other case", "[s]\r\nkEY=5\r\n", "5"},
        {"blanks around", " [ S ] \r\n \tKey \t= \t5 \t\r\n", "5"},
        {"text behind the section", "[S] ; here\r\nKey=5\r\n", "5"},
        {"section without its end", "[S\r\nKey=5\r\n", "5"},
        {"second section", "[T]\r\nKey=4\r\n\r\n[S]\r\nKey=5\r\n", "5"},
        {"behind other keys", "[S]\r\nKey1=4\r\nKe=3\r\nKey=5\r\n", "5"},
        {"the first counts", "[S]\r\nKey=5\r\nKey=6\r\n", "5"},
        {"empty", "[S]\r\nKey=\r\n", ""},
        {"blank", "[S]\r\nKey=   \r\n", ""},
        {"with equals signs", "[S]\r\nKey=a=b=c\r\n", "a=b=c"},
        {"semicolon in the value", "[S]\r\nKey=5;6 ; 7\r\n", "5;6 ; 7"},
        {"mark of an editor", "\xEF\xBB\xBF[S]\r\nKey=5\r\n", "5"},
        {"empty file", "", "absent"},
        {"key in another section", "[S]\r\nA=1\r\n[T]\r\nKey=5\r\n", "absent"},
        {"key before any section", "Key=5\r\n[S]\r\n", "absent"},
        {"second section of the name", "[S]\r\nA=1\r\n[T]\r\n[S]\r\nKey=5\r\n", "absent"},
        {"comment", "[S]\r\n;Key=5\r\n ; Key=5\r\n", "absent"},
        {"no equals sign", "[S]\r\nKey\r\n", "absent"},
        {"section of a longer name", "[SS]\r\nKey=5\r\n", "absent"},
    };
    for (const auto& c : cases) EXPECT_EQ(Value(c.text), c.value) << c.what;
    EXPECT_EQ(Value("[S]\nKey;=7\n;Key=5\n", ";Key"), "absent");
}

TEST(ProfileValue, TakesOnePairOfQuotesOff) {
    const struct {
        const char *written, *value;
    } cases[] = {
        {"\"5\"", "5"},   {" \" 5 \" ", " 5 "}, {"'5'", "5"}, {"\"\"5\"\"", "\"5\""},
        {"\"5", "\"5"},   {"5\"", "5\""},       {"\"", "\""}, {"\"\"", ""},
        {"\"5'", "\"5'"}, {"a\"5\"", "a\"5\""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Value(std::string("[S]\r\nKey=") + c.written + "\r\n"), c.value) << c.written;
    }
}

TEST(ProfileValue, CutsLongValues) {
    const std::string longest(2047, 'x');
    EXPECT_EQ(Value("[S]\nKey=" + longest + "\n"), longest);
    EXPECT_EQ(Value("[S]\nKey=" + longest + "yz\n"), longest);
    EXPECT_EQ(Value("[S]\nKey=\"" + longest + "yz\"\n"), longest);
}

TEST(ProfileValue, StandsAnyBytes) {
    const std::string line(20'000'000, '[');
    EXPECT_EQ(Value(line), "absent");
    EXPECT_EQ(Value("[S]\n" + line + "=1\nKey=5"), "absent");
    EXPECT_EQ(Value(std::string("[S]\nKey=a\0b\n", 12)), std::string("a\0b", 3));
    EXPECT_EQ(Value("[S]\r\r\nKey=5\r\r\n"), "5");
    EXPECT_EQ(Value("[S]\nKey=\xE4\xFF\n"), "\xE4\xFF");
    EXPECT_EQ(ProfileValue("Key=5\n[]\nKey=6\n", "", "Key", "absent"), "6");
}

TEST(WithProfileValue, ReplacesAKnownKeyInPlace) {
    const struct {
        const char *what, *text, *result;
    } cases[] = {
        {"plain", "[S]\r\nA=1\r\nKey=5\r\nB=2\r\n", "[S]\r\nA=1\r\nKey=new\r\nB=2\r\n"},
        {"line feed only", "[S]\nKey=5\nB=2\n", "[S]\nKey=new\nB=2\n"},
        {"no last line end", "[S]\r\nKey=5", "[S]\r\nKey=new"},
        {"mixed line ends", "[S]\nKey=5\r\nB=2\n", "[S]\nKey=new\r\nB=2\n"},
        {"name as it was written", "[s]\r\n kEY =5 \r\n", "[s]\r\n kEY =new\r\n"},
        {"blanks before the value go", "[S]\r\nKey = 5\r\n", "[S]\r\nKey =new\r\n"},
        {"the first of two", "[S]\nKey=5\nKey=6\n", "[S]\nKey=new\nKey=6\n"},
        {"comments stay", "; a\n[S]\n;Key=1\nKey=5\n; b\n", "; a\n[S]\n;Key=1\nKey=new\n; b\n"},
        {"foreign sections stay", "[T]\nKey=4\n[S]\nKey=5\n[U]\nKey=6\n",
         "[T]\nKey=4\n[S]\nKey=new\n[U]\nKey=6\n"},
        {"mark of an editor stays", "\xEF\xBB\xBF[S]\nKey=5\n", "\xEF\xBB\xBF[S]\nKey=new\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(With(c.text, "new"), c.result) << c.what;
        EXPECT_EQ(Value(With(c.text, "new")), "new") << c.what;
    }
}

TEST(WithProfileValue, AddsANewKeyAtTheEndOfItsSection) {
    const struct {
        const char *what, *text, *result;
    } cases[] = {
        {"last section", "[S]\r\nA=1\r\n", "[S]\r\nA=1\r\nKey=new\r\n"},
        {"before the next section", "[S]\nA=1\n[T]\nKey=2\n", "[S]\nA=1\nKey=new\n[T]\nKey=2\n"},
        {"before the blank lines", "[S]\nA=1\n\n \n[T]\n", "[S]\nA=1\nKey=new\n\n \n[T]\n"},
        {"behind a comment", "[S]\nA=1\n; end\n", "[S]\nA=1\n; end\nKey=new\n"},
        {"behind inner blank lines", "[S]\n\nA=1\n", "[S]\n\nA=1\nKey=new\n"},
        {"section without keys", "[S]\r\n[T]\r\n", "[S]\r\nKey=new\r\n[T]\r\n"},
        {"no last line end", "[S]\nA=1", "[S]\nA=1\nKey=new"},
        {"section line only", "[S]", "[S]\r\nKey=new"},
        {"blanks at the very end", "[S]\nA=1\n  ", "[S]\nA=1\nKey=new\n  "},
        {"line end of the first line", "[S]\r\nA=1\n", "[S]\r\nA=1\nKey=new\r\n"},
        {"in the first of two", "[S]\nA=1\n[S]\nKey=5\n", "[S]\nA=1\nKey=new\n[S]\nKey=5\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(With(c.text, "new"), c.result) << c.what;
        EXPECT_EQ(Value(With(c.text, "new")), "new") << c.what;
    }
}

TEST(WithProfileValue, AddsAMissingSectionAtTheEnd) {
    const struct {
        const char *what, *text, *result;
    } cases[] = {
        {"empty file", "", "[S]\r\nKey=new\r\n"},
        {"behind another", "[T]\nA=1\n", "[T]\nA=1\n[S]\nKey=new\n"},
        {"no last line end", "[T]\r\nA=1", "[T]\r\nA=1\r\n[S]\r\nKey=new"},
        {"line end only", "\n", "\n[S]\nKey=new\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(With(c.text, "new"), c.result) << c.what;
        EXPECT_EQ(Value(With(c.text, "new")), "new") << c.what;
    }
}

TEST(WithProfileValue, WritesTheValueAsItStands) {
    const struct {
        const char *value, *read;
    } cases[] = {
        {"6:0 ", "6:0"}, {" AT ", "AT"}, {"\"quoted\"", "quoted"},
        {"", ""},        {"a=b", "a=b"}, {";no comment", ";no comment"},
        {"[T]", "[T]"},
    };
    for (const auto& c : cases) {
        const std::string once = With("[S]\nKey=5\nB=2\n", c.value);
        EXPECT_EQ(once, std::string("[S]\nKey=") + c.value + "\nB=2\n");
        EXPECT_EQ(Value(once), c.read) << c.value;
        EXPECT_EQ(With(once, c.value), once) << "written again: " << c.value;
    }
}

TEST(WithProfileValue, KeepsAValueOnItsLine) {
    EXPECT_EQ(With("[S]\nKey=5\n", "a\r\n[T]\nB"), "[S]\nKey=a  [T] B\n");
}

TEST(WithProfileValue, SetsManyKeysOneByOne) {
    std::string text;
    for (int round = 0; round < 2; ++round) {
        for (const char* key : {"A", "B", "C"}) text = With(text, key, key);
    }
    EXPECT_EQ(text, "[S]\r\nA=A\r\nB=B\r\nC=C\r\n");
}

}  // namespace
}  // namespace cumeron
