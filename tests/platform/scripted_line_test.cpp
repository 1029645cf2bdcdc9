// The scripted serial line: what arrives, what it refuses, what it answers.
#include "platform/scripted/scripted_line.h"

#include <gtest/gtest.h>

#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

struct Bench {
    ScriptedTime time;
    ScriptedLine line{time};
    int events = 0;

    Bench() {
        line.OnComm = [this] { ++events; };
    }
    void Advance(double seconds) {
        time.AdvanceTo(time.Elapsed() + static_cast<Micros>(seconds * MicrosPerSecond));
    }
};

TEST(ScriptedLine, ClosedPortLosesBytes) {
    Bench bench;
    bench.line.Arrive("lost");
    bench.line.SetPortOpen(true);
    EXPECT_EQ(bench.line.InBufferCount(), 0);
    bench.line.Arrive("kept");
    EXPECT_EQ(bench.line.Input(), "kept");
    EXPECT_EQ(bench.line.Input(), "");
    bench.line.Arrive("gone");
    bench.line.SetPortOpen(false);
    EXPECT_EQ(bench.line.InBufferCount(), 0);
    EXPECT_EQ(bench.events, 2);
}

TEST(ScriptedLine, OnCommComesOnceAPieceFromTheThresholdOn) {
    const struct {
        int threshold;
        int events;
    } cases[] = {{0, 0}, {1, 2}, {4, 1}, {7, 0}};
    for (const auto& c : cases) {
        Bench bench;
        bench.line.SetPortOpen(true);
        bench.line.RThreshold = c.threshold;
        bench.line.Arrive("abc");
        bench.line.Arrive("def");
        EXPECT_EQ(bench.events, c.events) << c.threshold;
        EXPECT_EQ(bench.line.CommEvent, c.events > 0 ? CommEventReceive : 0);
        EXPECT_EQ(bench.line.InBufferCount(), 6);
    }
}

TEST(ScriptedLine, ClearInputThrowsAwayWhatWaits) {
    Bench bench;
    bench.line.SetPortOpen(true);
    bench.line.Arrive("abc");
    bench.line.ClearInput();
    EXPECT_EQ(bench.line.Input(), "");
}

TEST(ScriptedLine, FaultTellsItsEvent) {
    Bench bench;
    bench.line.RaiseFault(CommEventOverrun);
    EXPECT_EQ(bench.line.CommEvent, CommEventOverrun);
    EXPECT_EQ(bench.events, 1);
}

TEST(ScriptedLine, TakesUsualSettingsOnly) {
    const struct {
        const char* settings;
        int error;
    } cases[] = {
        {"19200,N,8,1", 0},   {"300,e,7,2", 0},      {"9600,O,5,1.5", 0},
        {"1200,m,8,1", 0},    {"2400,S,7,1", 0},     {"", 380},
        {"19200", 380},       {"19200,N,8", 380},    {"x,N,8,1", 380},
        {"19201,N,8,1", 380}, {"19200,X,8,1", 380},  {"19200,N,9,1", 380},
        {"19200,N,8,3", 380}, {"19200,N,8,1,", 380}, {"19200, N,8,1", 380},
    };
    for (const auto& c : cases) {
        Bench bench;
        const std::string before = bench.line.Settings();
        EXPECT_EQ(ErrorOf([&] { bench.line.SetSettings(c.settings); }), c.error) << c.settings;
        EXPECT_EQ(bench.line.Settings(), c.error ? before : c.settings);
    }
}

TEST(ScriptedLine, TakesPortsOneToSixteen) {
    const struct { int port, error; } cases[] = {{0, 380}, {1, 0}, {16, 0}, {17, 380}, {-1, 380}};
    for (const auto& c : cases) {
        Bench bench;
        EXPECT_EQ(ErrorOf([&] { bench.line.SetCommPort(c.port); }), c.error) << c.port;
        EXPECT_EQ(bench.line.CommPort(), c.error ? 1 : c.port);
    }
}

TEST(ScriptedLine, OpeningFailsOnceWhenTheScriptSaysSo) {
    Bench bench;
    bench.line.FailNextOpening(68);
    bench.line.SetPortOpen(false);
    EXPECT_EQ(ErrorOf([&] { bench.line.SetPortOpen(true); }), 68);
    EXPECT_FALSE(bench.line.PortOpen());
    bench.line.SetPortOpen(true);
    EXPECT_TRUE(bench.line.PortOpen());
}

TEST(ScriptedLine, SettingsErrorHitsTheNextAssignmentOfEither) {
    Bench bench;
    bench.line.FailNextSettings(57);
    EXPECT_EQ(ErrorOf([&] { bench.line.SetCommPort(2); }), 57);
    EXPECT_EQ(bench.line.CommPort(), 1);
    EXPECT_EQ(ErrorOf([&] { bench.line.SetSettings("9600,n,8,1"); }), 0);
    bench.line.FailNextSettings(57);
    EXPECT_EQ(ErrorOf([&] { bench.line.SetSettings("1200,n,8,1"); }), 57);
    EXPECT_EQ(bench.line.Settings(), "9600,n,8,1");
}

TEST(ScriptedLine, ClosedPortTakesNoOutput) {
    Bench bench;
    EXPECT_EQ(ErrorOf([&] { bench.line.Output("x"); }), 8018);
    EXPECT_EQ(bench.line.TakeSent(), "");
}

TEST(ScriptedLine, SentIsWhatWentOutSinceTheLastLook) {
    Bench bench;
    bench.line.SetPortOpen(true);
    bench.line.Output("one");
    bench.line.Output("two");
    EXPECT_EQ(bench.line.Sent(), "onetwo");
    EXPECT_EQ(bench.line.TakeSent(), "onetwo");
    bench.line.Output("three");
    EXPECT_EQ(bench.line.TakeSent(), "three");
}

TEST(ScriptedLine, RepliesWhenTheSentTextEndsInTheTrigger) {
    Bench bench;
    bench.line.SetPortOpen(true);
    bench.line.ReplyTo("OPEN\r", "early", MicrosPerSecond);
    bench.line.ReplyTo("OPEN\r", "ready", MicrosPerSecond / 2);
    bench.line.Output("OPEN");
    bench.line.TakeSent();
    bench.line.Output("\r");
    bench.line.Output("OPEN\r behind");
    bench.Advance(0.49);
    EXPECT_EQ(bench.line.InBufferCount(), 0);
    bench.Advance(0.01);
    EXPECT_EQ(bench.line.Input(), "ready");
    bench.Advance(5);
    EXPECT_EQ(bench.line.InBufferCount(), 0);
    bench.line.Output("OPEN\r");
    bench.Advance(0.5);
    EXPECT_EQ(bench.line.Input(), "ready");
}

TEST(ScriptedLine, LooksBackNoFurtherThanTheLongestTrigger) {
    Bench bench;
    bench.line.SetPortOpen(true);
    const std::string longest(LongestTrigger, 'a');
    bench.line.ReplyTo(longest, "longest", 0);
    bench.line.ReplyTo(longest + "a", "longer", 0);
    for (std::size_t i = 0; i < LongestTrigger - 1; ++i) bench.line.Output("a");
    bench.Advance(1);
    EXPECT_EQ(bench.line.Input(), "");
    bench.line.Output("a");
    bench.line.Output("a");
    bench.Advance(1);
    EXPECT_EQ(bench.line.Input(), "longestlongest");
}

TEST(ScriptedLine, NewProcessHasAControlOfItsOwn) {
    Bench bench;
    bench.line.SetSettings("9600,n,8,1");
    bench.line.SetCommPort(3);
    bench.line.SetPortOpen(true);
    bench.line.SetDTREnable(false);
    bench.line.SetRTSEnable(true);
    bench.line.RThreshold = 0;
    bench.line.SThreshold = 7;
    bench.line.InputLen = 7;
    bench.line.ParityReplace = "?";
    bench.line.RaiseFault(CommEventOverrun);
    bench.line.Arrive("waiting");
    bench.line.SetCarrier(true);
    bench.line.BeginProcess();
    EXPECT_EQ(bench.line.Settings(), "19200,N,8,1");
    EXPECT_EQ(bench.line.CommPort(), 1);
    EXPECT_FALSE(bench.line.PortOpen());
    EXPECT_TRUE(bench.line.DTREnable());
    EXPECT_FALSE(bench.line.RTSEnable());
    EXPECT_EQ(bench.line.RThreshold, 1);
    EXPECT_EQ(bench.line.SThreshold, 1);
    EXPECT_EQ(bench.line.InputLen, 0);
    EXPECT_EQ(bench.line.ParityReplace, "");
    EXPECT_EQ(bench.line.CommEvent, 0);
    EXPECT_FALSE(bench.line.OnComm);
    EXPECT_EQ(bench.line.InBufferCount(), 0);
    EXPECT_TRUE(bench.line.CDHolding());
}

TEST(ScriptedLine, OneOutputFailsWhenTheScriptWantsIt) {
    Bench bench;
    bench.line.SetPortOpen(true);
    bench.line.FailNextOutput(57);
    EXPECT_EQ(ErrorOf([&] { bench.line.Output("a"); }), 57);
    EXPECT_EQ(ErrorOf([&] { bench.line.Output("b"); }), 0);
    EXPECT_EQ(bench.line.TakeSent(), "b");
}

}  // namespace
}  // namespace cumeron
