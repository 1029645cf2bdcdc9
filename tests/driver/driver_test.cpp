// What makes a run red, how it is told, and what the program returns.
#include "driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "bench.h"
#include "run_script.h"

namespace cumeron {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// A folder with files of its own, gone at the end.
struct HostFolder {
    std::filesystem::path path;

    HostFolder() {
        const std::string name = testing::TempDir() + "cumeron_drive_";
        path = name + std::to_string(reinterpret_cast<std::uintptr_t>(this));
        std::filesystem::create_directories(path);
    }
    ~HostFolder() { std::filesystem::remove_all(path); }
    std::string Put(const std::string& name, const std::string& text) const {
        std::ofstream(path / name, std::ios::binary) << text;
        return (path / name).string();
    }
};

struct ProgramRun {
    int status;
    std::string out, errors;
};

ProgramRun RunProgram(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, errors;
    const int status = RunDriver(arguments, in, out, errors);
    return {status, out.str(), errors.str()};
}

TEST(Failures, AreToldWithFileLineAndCommand) {
    const struct {
        const char* script;
        const char* told;
    } cases[] = {
        {"start\nexpect sbaStatus.Errors \"NO MESSAGE\"\n",
         "s.scn:2: expect: expected \"NO MESSAGE\", got \"OFF-line\"\n"},
        {"start\n\n# a comment\nexpect MessageId 3\n", "s.scn:4: expect: expected 3, got 0\n"},
        {"start\nexpect mnuOpenPort True\n", "s.scn:2: expect: expected True, got False\n"},
        {"start\nexpect-near Message_Interval 20 4.5\n",
         "s.scn:2: expect-near: expected 20 within 4.5, got 15\n"},
        {"start\nexpect-near SettingsFile 20 4\n",
         "s.scn:2: expect-near: expected 20 within 4, got \"CUMERON1.INI\"\n"},
        {"start\nexpect-has SettingsFile 2\n",
         "s.scn:2: expect-has: expected a text with \"2\", got \"CUMERON1.INI\"\n"},
        {"start\nexpect-not SettingsFile 1\n",
         "s.scn:2: expect-not: expected a text without \"1\", got \"CUMERON1.INI\"\n"},
        {"start\nbox x\n", "s.scn:2: box: expected \"x\", got no box\n"},
        {"start\nbox-has x\n", "s.scn:2: box-has: expected a box with \"x\", got no box\n"},
        {"start\nbeeps 1\n", "s.scn:2: beeps: expected 1, got 0\n"},
        {"start\nended yes\n", "s.scn:2: ended: expected yes, got no\n"},
        {"start\nsent x\n", "s.scn:2: sent: expected \"x\", got \"\"\n"},
        {"put-file A x\nfile A y\n", "s.scn:2: file: expected \"y\", got \"x\"\n"},
        {"file A y\n", "s.scn:1: file: expected \"y\", got no file\n"},
        {"put-file A x\nfile-has A y\n",
         "s.scn:2: file-has: expected a file with \"y\", got \"x\"\n"},
        {"file-has A y\n", "s.scn:1: file-has: expected a file with \"y\", got no file\n"},
        {"put-file A x\nfile-not A x\n",
         "s.scn:2: file-not: expected a file without \"x\", got \"x\"\n"},
        {"file-not A x\n", "s.scn:1: file-not: expected a file without \"x\", got no file\n"},
        {"put-file A x\nno-file A\n", "s.scn:2: no-file: expected no file, got \"x\"\n"},
        {"put-file A \"a\\r\\nb\"\nlines A 1\n",
         "s.scn:2: lines: expected 1 lines, got 1 lines and a part\n"},
        {"put-file A \"a\\r\\nb\\r\\n\"\nlines A 1\n",
         "s.scn:2: lines: expected 1 lines, got 2 lines\n"},
        {"lines A 0\n", "s.scn:1: lines: expected 0 lines, got no file\n"},
        {"rx\n", "s.scn:1: rx: malformed line, it should be: rx VALUE...\n"},
        {"advance 1 2\n", "s.scn:1: advance: malformed line, it should be: advance SECONDS\n"},
        {"advance soon\n", "s.scn:1: advance: \"soon\" is no number\n"},
        {"rx \"a\n", "s.scn:1: line: malformed line, a quote is not closed\n"},
        {"rx $A\n", "s.scn:1: rx: unknown name $A; nothing is defined yet\n"},
        {"let B x\nrx $A\n", "s.scn:2: rx: unknown name $A; defined are $B\n"},
        {"clipboard 1 2\n", "s.scn:1: clipboard: expected 1 2, got no picture\n"},
        {"put-file E:\\A x\n", "s.scn:1: put-file: error 76, Path not found\n"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = RunText(c.script);
        EXPECT_EQ(outcome.printed, c.told) << c.script;
        EXPECT_EQ(outcome.counts.failed, 1) << c.script;
        EXPECT_EQ(outcome.counts.passed, 0) << c.script;
    }
}

TEST(Failures, UnknownCommandListsTheKnownOnes) {
    for (const char* script : {"expct MessageId 0\n", "at 1 expct MessageId 0\n"}) {
        const Outcome outcome = RunText(script);
        EXPECT_THAT(outcome.printed, HasSubstr(": unknown command; known are activate advance"));
        EXPECT_EQ(outcome.counts.failed, 1);
    }
}

TEST(Failures, RunGoesOnWithTheNextLine) {
    const Outcome outcome = RunText("start\nnonsense\nexpect MessageId 1\nexpect MessageId 0\n");
    EXPECT_EQ(outcome.counts.failed, 2);
    EXPECT_EQ(outcome.counts.passed, 1);
}

TEST(Failures, BoxThatNobodyAskedAboutIsToldAtTheEnd) {
    const Outcome outcome = RunText("start\nport-error 68\nclick mnuOpenPort\n\n");
    EXPECT_THAT(outcome.printed, StartsWith("s.scn:3: end: expected no box, got \"The following"));
    EXPECT_EQ(outcome.counts.failed, 1);
}

TEST(Failures, BoxIsAskedAboutOnce) {
    const Outcome outcome =
        RunText("start\nport-error 57\nclick mnuOpenPort\nbox-has \"Number: 57\"\nno-box\n");
    EXPECT_EQ(outcome.printed, "");
    EXPECT_EQ(outcome.counts.passed, 2);
}

TEST(Failures, NoBoxNamesTheOneThatStands) {
    const Outcome outcome = RunText("start\nport-error 57\nclick mnuOpenPort\nno-box\n");
    EXPECT_THAT(outcome.printed, HasSubstr("s.scn:4: no-box: expected no box, got \"The foll"));
}

TEST(Failures, QuestionWithoutAnAnswerEndsTheRunOfTheFile) {
    const Outcome outcome = RunText("start\nclose frmMain\nexpect MessageId 5\n");
    EXPECT_EQ(
        outcome.printed,
        "s.scn:2: close: no answer for the box \"Are you sure you want to Exit?\"; the run of "
        "this file ends\n");
    EXPECT_EQ(outcome.counts.failed, 1);
    EXPECT_EQ(RunText("start\nanswer Retry\nclose frmMain\nexpect MessageId 5\n").counts.failed, 1);
}

TEST(Failures, QuestionInsideAScheduledCommandIsToldUnderItsLine) {
    const Outcome outcome = RunText("start\nat 1 close frmMain\nadvance 2\nexpect MessageId 5\n");
    EXPECT_THAT(outcome.printed, StartsWith("s.scn:2: close: no answer"));
    EXPECT_EQ(outcome.counts.failed, 1);
}

TEST(Failures, ScheduledExpectationIsToldUnderItsLine) {
    const Outcome outcome = RunText("start\nat 1 expect MessageId 5\nadvance 2\nbeeps 9\n");
    EXPECT_EQ(outcome.printed,
              "s.scn:2: expect: expected 5, got 0\n"
              "s.scn:4: beeps: expected 9, got 0\n");
}

TEST(Driver, CountsOverAllFilesAndReturnsTheWorst) {
    const HostFolder folder;
    const std::string good = folder.Put("good.scn", "start\nexpect MessageId 0\n");
    const std::string bad = folder.Put("bad.scn", "start\nexpect MessageId 1\n");
    const struct {
        std::vector<std::string> files;
        int status;
        const char* last;
    } cases[] = {
        {{good}, 0, "1 passed, 0 failed\n"},
        {{good, bad}, 1, "1 passed, 1 failed\n"},
        {{good, good}, 0, "2 passed, 0 failed\n"},
        {{(folder.path / "none.scn").string(), good}, 2, "1 passed, 0 failed\n"},
        {{folder.path.string()}, 2, "0 passed, 0 failed\n"},
        {{"--nonsense"}, 2, "0 passed, 0 failed\n"},
    };
    for (const auto& c : cases) {
        const ProgramRun run = RunProgram(c.files);
        EXPECT_EQ(run.status, c.status) << c.files[0];
        EXPECT_THAT(run.out, EndsWith(c.last)) << c.files[0];
        EXPECT_EQ(run.errors.empty(), c.status != 2);
    }
    EXPECT_THAT(RunProgram({bad}).out, StartsWith(bad + ":2: expect: "));
}

TEST(Driver, ReadsStandardInputWithoutAFile) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, std::vector<std::string>{"-"}}) {
        const ProgramRun run = RunProgram(arguments, "start\nexpect MessageId 1\n");
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "-:2: expect: expected 1, got 0\n0 passed, 1 failed\n");
    }
}

TEST(Driver, HelpNamesTheCommands) {
    const ProgramRun run = RunProgram({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, StartsWith("Usage: cumeron-drive [FILE...]\n"));
    EXPECT_THAT(run.out, HasSubstr("\n  expect-near NAME NUMBER TOLERANCE\n"));
}

TEST(Driver, EachFileIsAFreshMachine) {
    const HostFolder folder;
    const std::string file = folder.Put("a.scn", "no-file A\nput-file A x\n");
    EXPECT_EQ(RunProgram({file, file}).out, "2 passed, 0 failed\n");
}

TEST(Driver, HostFilesAreRelativeToTheScenario) {
    const HostFolder folder;
    folder.Put("frame.bin", "\x01 A\xFF");
    folder.Put("two words.bin", "B");
    const std::string file = folder.Put("a.scn",
                                        "put-file X @frame.bin @\"two words.bin\" \"@frame.bin\"\n"
                                        "file X \"\\x01 A\\xFF\" B \"@frame.bin\"\nrx @none.bin\n"
                                        "rx @.\n");
    const std::string cannotRead = ": rx: cannot read the host file " + folder.path.string() + "/";
    EXPECT_EQ(RunProgram({file}).out, file + ":3" + cannotRead + "none.bin\n" + file + ":4" +
                                          cannotRead + ".\n1 passed, 2 failed\n");
}

TEST(Driver, PicturesGoToHostFiles) {
    const HostFolder folder;
    const std::string script =
        "start\nresize frmMain 400 300\nadvance 1\npicture picLines p.ppm\n"
        "picture picLines p.gif\npicture picLines none/p.ppm\npicture picLines p.png\n";
    const Outcome outcome = RunText(script, folder.path.string());
    EXPECT_EQ(outcome.counts.failed, 2) << outcome.printed;
    EXPECT_THAT(outcome.printed, HasSubstr("s.scn:5: picture: only pictures whose names end"));
    EXPECT_THAT(outcome.printed, HasSubstr("s.scn:6: picture: cannot write the host file"));
    EXPECT_THAT(*ReadHostFile((folder.path / "p.png").string()), StartsWith("\x89PNG\r\n\x1A\n"));
    std::ifstream file(folder.path / "p.ppm", std::ios::binary);
    std::string kind;
    std::size_t width = 0, height = 0;
    file >> kind >> width >> height;
    EXPECT_EQ(kind, "P6");
    const std::string head =
        "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
    EXPECT_EQ(std::filesystem::file_size(folder.path / "p.ppm"), head.size() + 3 * width * height);
}

TEST(Driver, SurfaceWithoutPixelsIsNoPicture) {
    Bench bench("picture picLines p.png\n");
    bench.w.frmMain.picLines.Width = 0;
    EXPECT_EQ(bench.Run(), "s.scn:1: picture: picLines has no pixels\n");
}

}  // namespace
}  // namespace cumeron
