// The whole virtual machine: a start, an end, and a start after that.
#include "platform/scripted/scripted_machine.h"

#include <gtest/gtest.h>

#include "shell/startup.h"
#include "workstation.h"

namespace cumeron {
namespace {

TEST(ScriptedMachine, RunsTheProgramFromStartToEnd) {
    ScriptedMachine machine;
    EXPECT_EQ(machine.Program(), nullptr);
    EXPECT_FALSE(machine.Ended());
    machine.Start("7");
    ASSERT_TRUE(machine.Running());
    EXPECT_EQ(machine.Program()->shell.SettingsFile, "CUMERON7.INI");
    EXPECT_TRUE(machine.copies.HasMark(1));
    machine.line.SetPortOpen(true);
    machine.Enter([&] { mnuExit_Click(*machine.Program()); });
    EXPECT_TRUE(machine.Ended());
    EXPECT_FALSE(machine.line.PortOpen());
    EXPECT_FALSE(machine.copies.HasMark(1));
    EXPECT_TRUE(machine.files.Exists(machine.files.SettingsFolder() + "\\CUMERON7.INI"));
}

TEST(ScriptedMachine, SecondStartFindsTheClockAndTheFilesOfTheFirst) {
    ScriptedMachine machine;
    machine.Start("");
    machine.files.Put("KEPT", "text");
    machine.Advance(5 * MicrosPerSecond);
    const double before = machine.time.Now();
    machine.Enter([&] { mnuExit_Click(*machine.Program()); });
    machine.Start("");
    EXPECT_TRUE(machine.Running());
    EXPECT_EQ(machine.time.Now(), before);
    EXPECT_TRUE(machine.files.Exists("KEPT"));
}

TEST(ScriptedMachine, TimePassesOnWhenTheProgramEndsInIt) {
    ScriptedMachine machine;
    machine.Start("");
    bool after = false;
    machine.time.At(MicrosPerSecond, [&] { mnuExit_Click(*machine.Program()); });
    machine.time.At(2 * MicrosPerSecond, [&] { after = machine.Ended(); });
    machine.Advance(2 * MicrosPerSecond);
    EXPECT_TRUE(after);
    EXPECT_EQ(machine.time.Elapsed(), 2 * MicrosPerSecond);
}

TEST(ScriptedMachine, InnerCallLetsTheEndThrough) {
    ScriptedMachine machine;
    machine.Start("");
    bool wentOn = false;
    machine.Enter([&] {
        machine.Enter([] { throw ProcessEnd{}; });
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(machine.Ended());
}

// A call that is under way when the program ends is left; an advance in it still takes its time.
TEST(ScriptedMachine, TimePassesOnWhenTheProgramEndsInAnInnerAdvance) {
    ScriptedMachine machine;
    machine.Start("");
    std::string order;
    machine.time.At(MicrosPerSecond, [&] { mnuExit_Click(*machine.Program()); });
    machine.time.At(2 * MicrosPerSecond, [&] { machine.Start(""); });
    machine.time.At(3 * MicrosPerSecond, [&] { mnuExit_Click(*machine.Program()); });
    machine.time.At(4 * MicrosPerSecond, [&] { order += machine.Ended() ? "ended" : "runs"; });
    machine.Enter([&] {
        machine.Advance(4 * MicrosPerSecond);
        order += "went on";
    });
    EXPECT_EQ(order, "ended");
    EXPECT_EQ(machine.time.Elapsed(), 4 * MicrosPerSecond);
}

TEST(ScriptedMachine, EndOutsideAnAdvanceTakesNoTime) {
    ScriptedMachine machine;
    machine.Start("");
    machine.Advance(MicrosPerSecond);
    bool ran = false;
    machine.time.At(0, [&] { ran = true; });
    machine.Enter([&] { mnuExit_Click(*machine.Program()); });
    EXPECT_FALSE(ran);
    EXPECT_EQ(machine.time.Elapsed(), MicrosPerSecond);
}

TEST(ScriptedMachine, RefusedStartOfAProgramIsNone) {
    ScriptedMachine machine;
    machine.process.nextStartError = 53;
    EXPECT_THROW(machine.process.Help("A.HLP", 3, 0), RuntimeError);
    EXPECT_TRUE(machine.process.started.empty());
    machine.process.Help("A.HLP", 1, 50);
    EXPECT_EQ(machine.process.started.front(), "help A.HLP 1 50");
    machine.process.nextStartError = 53;
    EXPECT_THROW(machine.process.Start("zip", {}, "zip"), RuntimeError);
    machine.process.Start("zip", {"a b", "c"}, "zip \"a b\" c");
    EXPECT_EQ(machine.process.started.back(), "zip \"a b\" c");
    EXPECT_EQ(machine.process.startedWords, (std::vector<std::string>{"zip", "a b", "c"}));
}

TEST(ScriptedMachine, ApplicationFolderFollowsTheStyle) {
    ScriptedMachine machine;
    EXPECT_EQ(machine.process.ApplicationFolder(), "C:\\CUMERON");
    machine.files.SetStyle(PathStyle::Posix);
    EXPECT_EQ(machine.process.ApplicationFolder(), "/usr/bin");
}

}  // namespace
}  // namespace cumeron
