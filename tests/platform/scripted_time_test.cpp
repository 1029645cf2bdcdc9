// The virtual clock and the event loop: what comes due when, and what never does.
#include "platform/scripted/scripted_time.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr Micros Milli = 1000;

// A loaded frmMain whose timers note the virtual moment, in milliseconds.
struct Bench {
    ScriptedMachine machine;
    Workstation w{machine.platform};
    ScriptedTime& time = machine.time;
    Timer& grid = w.frmMain.tmrClock;
    Timer& counted = w.frmMain.ResizeTimer;
    std::vector<long> gridTicks, countedTicks;

    Bench() {
        w.frmMain.Loaded = true;
        grid.KeepsGrid = true;
        grid.Interval = 1000;
        grid.SetEnabled(false);
        counted.KeepsGrid = false;
        counted.Interval = 100;
        counted.SetEnabled(false);
        grid.Tick = [this](Workstation&) { gridTicks.push_back(Now()); };
        counted.Tick = [this](Workstation&) { countedTicks.push_back(Now()); };
        time.Attach(w);
    }
    long Now() const { return static_cast<long>(time.Elapsed() / Milli); }
    void Advance(long milliseconds) { time.AdvanceTo(time.Elapsed() + milliseconds * Milli); }
};

using Moments = std::vector<long>;

TEST(ScriptedTime, TimerIsCountedFromTheMomentItWasEnabled) {
    Bench bench;
    bench.Advance(30);
    bench.counted.SetEnabled(true);
    bench.Advance(99);
    EXPECT_EQ(bench.countedTicks, Moments{});
    bench.Advance(101);
    EXPECT_EQ(bench.countedTicks, (Moments{130, 230}));
}

TEST(ScriptedTime, EnablingAgainCountsAnew) {
    Bench bench;
    bench.counted.SetEnabled(true);
    bench.Advance(60);
    bench.counted.SetEnabled(true);
    bench.Advance(60);
    EXPECT_EQ(bench.countedTicks, Moments{});
    bench.Advance(40);
    EXPECT_EQ(bench.countedTicks, Moments{160});
}

TEST(ScriptedTime, ChangeOfTheIntervalCountsAnew) {
    Bench bench;
    bench.counted.SetEnabled(true);
    bench.Advance(60);
    bench.counted.Interval = 50;
    bench.Advance(60);
    EXPECT_EQ(bench.countedTicks, Moments{110});
}

TEST(ScriptedTime, GridStaysWhenTheTimerIsSwitched) {
    Bench bench;
    bench.grid.SetEnabled(true);
    bench.Advance(1500);
    bench.grid.SetEnabled(false);
    bench.Advance(1000);  // the tick at 2000 is lost
    bench.grid.SetEnabled(true);
    bench.Advance(1000);
    EXPECT_EQ(bench.gridTicks, (Moments{1000, 3000}));
}

TEST(ScriptedTime, GridTickOfThisMomentIsNotLostBySwitchingTwice) {
    Bench bench;
    bench.grid.SetEnabled(true);
    bench.Advance(999);
    bench.grid.SetEnabled(false);
    bench.grid.SetEnabled(true);
    bench.Advance(1);
    EXPECT_EQ(bench.gridTicks, Moments{1000});
}

TEST(ScriptedTime, TimerOfAFormThatIsNotLoadedStandsStill) {
    Bench bench;
    bench.counted.SetEnabled(true);
    bench.w.frmMain.Loaded = false;
    bench.Advance(500);
    EXPECT_EQ(bench.countedTicks, Moments{});
}

TEST(ScriptedTime, TimerWithoutAnIntervalStandsStill) {
    Bench bench;
    bench.counted.Interval = 0;
    bench.counted.SetEnabled(true);
    bench.Advance(500);
    EXPECT_EQ(bench.countedTicks, Moments{});
}

TEST(ScriptedTime, TimerThatWasDisabledBeforeItsTurnDoesNotFire) {
    Bench bench;
    bench.counted.SetEnabled(true);
    bench.time.At(90 * Milli, [&] { bench.counted.SetEnabled(false); });
    bench.Advance(500);
    EXPECT_EQ(bench.countedTicks, Moments{});
}

TEST(ScriptedTime, WhatComesDueInsideTheHandlerFiresOnceAfterwards) {
    Bench bench;
    bench.counted.Tick = [&](Workstation& w) {
        bench.countedTicks.push_back(bench.Now());
        if (bench.countedTicks.size() > 1) return;
        for (int turn = 0; turn < 35; ++turn) w.platform.events.DoEvents();
    };
    bench.counted.SetEnabled(true);
    bench.Advance(500);
    // 200, 300 and 400 came due while the first ran until 450.
    EXPECT_EQ(bench.countedTicks, (Moments{100, 450, 500}));
}

TEST(ScriptedTime, JumpOfTheClockFiresNothing) {
    Bench bench;
    bench.grid.SetEnabled(true);
    bench.time.SetNow(DateSerial(2027, 5, 1));
    bench.Advance(0);
    EXPECT_EQ(bench.gridTicks, Moments{});
    bench.Advance(1000);
    EXPECT_EQ(bench.gridTicks, Moments{1000});
    EXPECT_EQ(Format(bench.time.Now(), "yyyy-mm-dd hh:nn:ss"), "2027-05-01 00:00:01");
}

TEST(ScriptedTime, BeginsWithTheYear2026) {
    EXPECT_EQ(ScriptedTime().Now(), DateSerial(2026, 1, 1));
}

TEST(ScriptedTime, ATurnTakesTenMilliseconds) {
    Bench bench;
    bench.time.DoEvents();
    EXPECT_EQ(bench.Now(), 10);
    bench.time.WaitEvents();
    EXPECT_EQ(bench.Now(), 20);
}

TEST(ScriptedTime, ServesInOrderOfTimeAndTimersFirst) {
    Bench bench;
    std::string order;
    bench.counted.Tick = [&](Workstation&) { order += "t"; };
    bench.counted.SetEnabled(true);
    bench.time.At(100 * Milli, [&] { order += "b"; });
    bench.time.At(100 * Milli, [&] { order += "c"; });
    bench.time.At(50 * Milli, [&] { order += "a"; });
    bench.time.At(101 * Milli, [&] { order += "late"; });
    bench.Advance(100);
    EXPECT_EQ(order, "atbc");
    EXPECT_EQ(bench.Now(), 100);
}

TEST(ScriptedTime, ActionForNowComesAtTheNextTurn) {
    Bench bench;
    bool ran = false;
    bench.time.At(0, [&] { ran = true; });
    EXPECT_FALSE(ran);
    bench.time.DoEvents();
    EXPECT_TRUE(ran);
}

TEST(ScriptedTime, TimeNeverRunsBackwards) {
    Bench bench;
    bench.time.At(10 * Milli, [&] {
        for (int turn = 0; turn < 10; ++turn) bench.time.DoEvents();
    });
    long late = 0;
    bench.time.At(150 * Milli, [&] { late = bench.Now(); });
    bench.Advance(50);
    EXPECT_EQ(bench.Now(), 110);
    bench.Advance(40);
    EXPECT_EQ(late, 150);
}

TEST(ScriptedTime, TimerThatTheOneBeforeItDisabledDoesNotFire) {
    Bench bench;
    bench.counted.Interval = 1000;
    bench.counted.SetEnabled(true);
    bench.grid.SetEnabled(true);
    bench.grid.Tick = [&](Workstation&) { bench.counted.SetEnabled(false); };
    bench.Advance(1500);
    EXPECT_EQ(bench.countedTicks, Moments{});
}

TEST(ScriptedTime, WaitingLastsUntilItIsDoneAndNoLonger) {
    Bench bench;
    bench.time.WaitUntil([] { return true; });
    EXPECT_EQ(bench.Now(), 0);
    bench.time.WaitUntil([&] { return bench.Now() >= 30; });
    EXPECT_EQ(bench.Now(), 30);
    int steps = 0;
    bench.time.ServeMeanwhile = [&] { ++steps; };
    bench.time.WaitUntil([&] { return steps == 3; });
    EXPECT_EQ(bench.Now(), 30);
}

TEST(ScriptedTime, WaitingServesTheAdvanceThatItBeganInBeforeTheScript) {
    Bench bench;
    std::string order;
    bench.time.ServeMeanwhile = [&] { order += "s" + std::to_string(bench.Now()) + " "; };
    bench.time.At(10 * Milli, [&] {
        bench.time.WaitUntil([&] { return order.ends_with("s100 "); });
        order += "end ";
    });
    bench.time.At(60 * Milli, [&] { order += "a60 "; });
    bench.time.At(100 * Milli, [&] { order += "a100 "; });
    bench.time.At(101 * Milli, [&] { order += "late "; });
    bench.Advance(100);
    EXPECT_EQ(order, "a60 a100 s100 end ");
}

TEST(ScriptedTime, WaitingThatIsDoneInAnAdvanceLeavesTheRestToIt) {
    Bench bench;
    std::string order;
    bool done = false;
    bench.time.ServeMeanwhile = [&] { order += "script "; };
    bench.time.At(10 * Milli, [&] {
        bench.time.WaitUntil([&] { return done; });
        order += "end" + std::to_string(bench.Now()) + " ";
    });
    bench.time.At(20 * Milli, [&] { done = true; });
    bench.time.At(30 * Milli, [&] { order += "a30 "; });
    bench.Advance(100);
    EXPECT_EQ(order, "end20 a30 ");
    EXPECT_EQ(bench.Now(), 100);
}

// A turn that the program gives inside an advance is no end of that advance.
TEST(ScriptedTime, WaitingInATurnOfTheProgramServesTheOutermostAdvance) {
    Bench bench;
    long served = 0;
    bench.time.ServeMeanwhile = [&] { served = bench.Now(); };
    bench.time.At(10 * Milli, [&] { bench.time.DoEvents(); });
    bench.time.At(15 * Milli, [&] { bench.time.WaitUntil([&] { return served > 0; }); });
    bench.Advance(100);
    EXPECT_EQ(served, 100);
}

TEST(ScriptedTime, AdvanceThatAnExceptionLeftIsNoLongerUnderWay) {
    Bench bench;
    bench.time.At(10 * Milli, [] { throw ProcessEnd{}; });
    bench.time.At(50 * Milli, [] {});
    EXPECT_THROW(bench.Advance(100), ProcessEnd);
    long served = 0;
    bench.time.ServeMeanwhile = [&] { served = bench.Now(); };
    bench.time.WaitUntil([&] { return served > 0; });
    EXPECT_EQ(served, 10);
}

TEST(ScriptedTime, DetachedTimersStandStill) {
    Bench bench;
    bench.counted.SetEnabled(true);
    bench.Advance(10);
    bench.time.Detach();
    bench.Advance(500);
    EXPECT_EQ(bench.countedTicks, Moments{});
}

}  // namespace
}  // namespace cumeron
