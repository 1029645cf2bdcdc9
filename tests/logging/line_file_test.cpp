// Lines of a file, however they end, however long they are.
#include <gtest/gtest.h>

#include "logging/made_file.h"
#include "logging/offline_reader.h"
#include "platform/scripted/scripted_machine.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

bool Always() { return true; }

std::vector<std::string> LinesOf(LineFile& file) {
    std::vector<std::string> lines;
    std::string line;
    while (file.ReadLine(line, Always)) lines.push_back(line);
    EXPECT_EQ(line, "");
    return lines;
}

TEST(LineFile, ALineEndsAtCrOrAtCrLf) {
    const struct {
        const char* what;
        std::string text;
        std::vector<std::string> lines;
    } cases[] = {
        {"nothing", "", {}},
        {"both ends", "a\r\nb\rc\r\n", {"a\r\n", "b\r\n", "c\r\n"}},
        {"an empty line", "\r\n\r", {"\r\n", "\r\n"}},
        {"a lone LF is a character", "a\nb\r\n\n\r\n", {"a\nb\r\n", "\n\r\n"}},
        {"the last line without an end", "a\r\nb", {"a\r\n", "b\r\n"}},
        {"LF CR is no end", "a\n\rb", {"a\n\r\n", "b\r\n"}},
        {"NUL and high bytes", "a\0\xFC\r\n"s, {"a\0\xFC\r\n"s}},
    };
    for (const auto& c : cases) {
        LineFile file(FileOf(c.text));
        EXPECT_EQ(LinesOf(file), c.lines) << c.what;
        EXPECT_EQ(file.Position(), static_cast<std::int64_t>(c.text.size())) << c.what;
    }
}

TEST(LineFile, ALineEndMayLieOnTheEdgeOfTheBuffer) {
    for (std::int64_t length = 65533; length <= 65537; ++length) {
        LineFile file(FileAround("", length, "x\r", "\r\nlast\r\n"));
        const std::vector<std::string> lines = LinesOf(file);
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(lines.back(), "last\r\n") << length;
        EXPECT_EQ(file.Position(), length + 8) << length;
    }
}

TEST(LineFile, HoldsNoMoreOfALineThanAMessageCanHave) {
    constexpr std::int64_t long100MB = 100'000'000;
    LineFile file(FileAround("", long100MB, "x", "\r\nnext\r\n"));
    std::string line;
    int pauses = 0;
    ASSERT_TRUE(file.ReadLine(line, [&] { return ++pauses > 0; }));
    EXPECT_EQ(line, std::string(10000, 'x') + "\r\n");
    EXPECT_LT(line.capacity(), 100000U);
    EXPECT_GT(pauses, 1000);
    ASSERT_TRUE(file.ReadLine(line, Always));
    EXPECT_EQ(line, "next\r\n");
}

TEST(LineFile, ALongLineCanBeBrokenOff) {
    LineFile file(FileAround("", 1'000'000, "x", "\r\n"));
    std::string line = "kept";
    EXPECT_FALSE(file.ReadLine(line, [] { return false; }));
    EXPECT_EQ(line, "");
    EXPECT_LT(file.Position(), 1'000'000);
}

TEST(LineFile, AFileThatCannotBeReadEndsThere) {
    auto broken = FileAround("", 300'000, "x\r\n", "");
    broken->failsFrom = 200'000;
    LineFile file(std::move(broken));
    EXPECT_GT(LinesOf(file).size(), 60'000U);
    EXPECT_LT(file.Position(), 300'000);
}

TEST(LineFile, ReadsOnWhereItWasPut) {
    LineFile file(FileOf("one\r\ntwo\r\nthree\r\n"));
    LinesOf(file);
    file.Seek(5);
    EXPECT_EQ(file.Position(), 5);
    EXPECT_EQ(LinesOf(file), (std::vector<std::string>{"two\r\n", "three\r\n"}));
    EXPECT_EQ(file.Size(), 17);
}

TEST(LineFile, FindsWhatWasAppendedBehindItsEnd) {
    ScriptedMachine machine;
    machine.files.Put("C:\\A.DAT", "one\r\n");
    LineFile file(machine.files.OpenForReading("C:\\A.DAT"));
    LinesOf(file);
    machine.files.Append("C:\\A.DAT", "two\r\n");
    EXPECT_EQ(LinesOf(file), std::vector<std::string>{"two\r\n"});
    EXPECT_EQ(file.Size(), 10);
}

}  // namespace
}  // namespace cumeron
