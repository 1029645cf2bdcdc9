// The grammar of a line: words, quotes, escapes, comments.
#include "script_parser.h"

#include <gtest/gtest.h>

#include <sstream>

namespace cumeron {
namespace {

std::vector<std::string> WordsOf(const std::string& line) {
    std::vector<std::string> texts;
    for (const ScriptWord& word : ParseLine(line, 1).words) texts.push_back(word.text);
    return texts;
}

TEST(ParseLine, CutsWords) {
    using Texts = std::vector<std::string>;
    const struct {
        const char* line;
        Texts words;
    } cases[] = {
        {"", {}},
        {"   \t ", {}},
        {"# a comment", {}},
        {"  #a comment", {}},
        {"advance 1", {"advance", "1"}},
        {" a\t b  c ", {"a", "b", "c"}},
        {"a b#c #d e", {"a", "b#c"}},
        {"a \"b c\" d", {"a", "b c", "d"}},
        {"a \"\"", {"a", ""}},
        {"a \"# b\"", {"a", "# b"}},
        {"a \"\\\"\\\\\\r\\n\\t\\x41\\xfF\"", {"a", "\"\\\r\n\tA\xFF"}},
        {"a \\r", {"a", "\\r"}},
        {"show IsNumeric(\"1 2\")", {"show", "IsNumeric(\"1 2\")"}},
        {"a b\r", {"a", "b"}},
        {"\xE9 \x80", {"\xE9", "\x80"}},
    };
    for (const auto& c : cases) EXPECT_EQ(WordsOf(c.line), c.words) << c.line;
}

TEST(ParseLine, TellsWhatIsMalformed) {
    const struct {
        const char* line;
        const char* error;
    } cases[] = {
        {"rx \"abc", "a quote is not closed"},
        {"rx \"abc\\\"", "a quote is not closed"},
        {"rx \"a\"b", "a blank is missing behind a closing quote"},
        {"rx \"\\q\"", "unknown escape; known are \\\" \\\\ \\r \\n \\t \\xHH"},
        {"rx \"\\x4\"", "unknown escape; known are \\\" \\\\ \\r \\n \\t \\xHH"},
        {"rx \"\\xG0\"", "unknown escape; known are \\\" \\\\ \\r \\n \\t \\xHH"},
        {"rx \"\\", "unknown escape; known are \\\" \\\\ \\r \\n \\t \\xHH"},
    };
    for (const auto& c : cases) {
        const ScriptLine line = ParseLine(c.line, 3);
        EXPECT_EQ(line.error, c.error) << c.line;
        EXPECT_TRUE(line.words.empty());
        EXPECT_EQ(line.number, 3);
    }
}

TEST(ParseLine, KnowsWhatWasQuoted) {
    const ScriptLine line = ParseLine("rx $A \"$A\"", 1);
    EXPECT_FALSE(line.words[1].quoted);
    EXPECT_TRUE(line.words[2].quoted);
}

TEST(ScriptReader, NumbersTheLinesOfTheFile) {
    std::istringstream text("# first\r\n\na\r\n\"\nb");
    ScriptReader reader(text);
    EXPECT_EQ(reader.LastNumber(), 0);
    for (const int number : {3, 4, 5}) {
        const auto line = reader.Next();
        ASSERT_TRUE(line);
        EXPECT_EQ(line->number, number);
        EXPECT_EQ(line->error.empty(), number != 4);
        EXPECT_EQ(reader.LastNumber(), number);
    }
    EXPECT_FALSE(reader.Next());
    EXPECT_EQ(reader.LastNumber(), 5);
}

TEST(ScriptReader, LooksAheadWithoutTakingLines) {
    std::istringstream text("a\n\nb\nc\n");
    ScriptReader reader(text);
    EXPECT_EQ(reader.Ahead(1)->words[0].text, "b");
    EXPECT_EQ(reader.Ahead(0)->words[0].text, "a");
    EXPECT_EQ(reader.LastNumber(), 0);
    EXPECT_EQ(reader.Next()->words[0].text, "a");
    EXPECT_EQ(reader.Ahead(1)->words[0].text, "c");
    EXPECT_EQ(reader.Ahead(2), nullptr);
    EXPECT_EQ(reader.Next()->number, 3);
    EXPECT_EQ(reader.Next()->number, 4);
    EXPECT_FALSE(reader.Next());
}

TEST(ScriptReader, ReadsNoFurtherThanItIsAsked) {
    std::istringstream text("a\nb\nc\n");
    ScriptReader reader(text);
    reader.Next();
    EXPECT_EQ(text.tellg(), 2);
}

TEST(Quoted, WritesWhatAScriptWouldRead) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(Unquoted(Quoted(bytes)), bytes);
    EXPECT_EQ(Quoted("a\"\r\x01\xFF"), "\"a\\\"\\r\\x01\\xFF\"");
    EXPECT_EQ(Unquoted("bare\\r"), "bare\\r");
}

}  // namespace
}  // namespace cumeron
