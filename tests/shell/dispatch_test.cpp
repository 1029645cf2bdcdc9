#include "shell/dispatch.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

class Dispatch : public testing::Test {
protected:
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
    std::string Messages() { return w.frmDebug.txtMessage.Text; }

    ScriptedMachine machine;
    Workstation w{machine.platform};
    Timer timer;
};

const struct {
    const char* what;
    Handler handler;
    std::string box, message;
} errors[] = {
    {"an error of the run-time library", [](Workstation&) { throw RuntimeError(13); },
     "Run-time error '13':\r\n\r\nType mismatch", "Run-time error '13': Type mismatch\r\n"},
    {"an error with a text of the platform",
     [](Workstation&) { throw RuntimeError(70, "Ask for the group dialout"); },
     "Run-time error '70':\r\n\r\nAsk for the group dialout",
     "Run-time error '70': Ask for the group dialout\r\n"},
    {"any other exception", [](Workstation&) { throw std::out_of_range("far out"); },
     "Run-time error '51':\r\n\r\nfar out", "Run-time error '51': far out\r\n"},
};

TEST_F(Dispatch, CallsTheHandler) {
    int calls = 0;
    DispatchEvent(w, [&](Workstation& seen) { calls += &seen == &w; });
    EXPECT_EQ(calls, 1);
    DispatchEvent(w, nullptr);
    EXPECT_EQ(Box(), "no box");
}

TEST_F(Dispatch, AnUnhandledErrorIsToldAndEndsTheProcess) {
    for (const auto& c : errors) {
        try {
            DispatchEvent(w, c.handler);
            ADD_FAILURE() << c.what;
        } catch (const ProcessEnd& end) {
            EXPECT_EQ(end.status, 1) << c.what;
        }
        EXPECT_EQ(Box(), c.box) << c.what;
    }
}

TEST_F(Dispatch, TheEndOfTheProcessIsNoError) {
    try {
        DispatchEvent(w, [](Workstation&) { throw ProcessEnd{7}; });
        ADD_FAILURE();
    } catch (const ProcessEnd& end) {
        EXPECT_EQ(end.status, 7);
    }
    EXPECT_EQ(Box(), "no box");
}

TEST_F(Dispatch, AHandlerOutlivesTheRecordThatHeldIt) {
    static std::weak_ptr<int> held;
    static bool alive;
    auto token = std::make_shared<int>(0);
    held = token;
    Handler click = [&click, token](Workstation&) {
        click = nullptr;
        alive = !held.expired();
    };
    token.reset();
    alive = false;
    DispatchEvent(w, click);
    EXPECT_TRUE(alive);

    auto tick = std::make_shared<int>(0);
    held = tick;
    timer.SetEnabled(true);
    timer.Tick = [this, tick](Workstation&) {
        timer.Tick = nullptr;
        alive = !held.expired();
    };
    tick.reset();
    alive = false;
    DispatchTimer(w, timer);
    EXPECT_TRUE(alive);
}

TEST_F(Dispatch, ADisabledTimerDoesNotFire) {
    int ticks = 0;
    timer.Tick = [&](Workstation&) { ++ticks; };
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 0);
    timer.SetEnabled(true);
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Dispatch, ATimerWithoutHandlerIsNone) {
    timer.SetEnabled(true);
    DispatchTimer(w, timer);
    EXPECT_EQ(Messages(), "");
}

TEST_F(Dispatch, WhatComesDueInsideATimersHandlerFiresOnceAfterwards) {
    int ticks = 0;
    bool inside = false, nested = false;
    timer.SetEnabled(true);
    timer.Tick = [&](Workstation&) {
        nested |= inside;
        inside = true;
        if (++ticks == 1) {
            DispatchTimer(w, timer);
            DispatchTimer(w, timer);
        }
        inside = false;
    };
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 2);
    EXPECT_FALSE(nested);
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 3);
}

TEST_F(Dispatch, WhatCameDueIsLostWhenTheTimerWasDisabledMeanwhile) {
    int ticks = 0;
    timer.SetEnabled(true);
    timer.Tick = [&](Workstation&) {
        if (++ticks > 1) return;
        DispatchTimer(w, timer);
        timer.SetEnabled(false);
    };
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 1);
    timer.SetEnabled(true);
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 2);
}

TEST_F(Dispatch, AnErrorInATimerGoesToTheMessageWindow) {
    timer.SetEnabled(true);
    for (const auto& c : errors) {
        w.frmDebug.txtMessage.Text.clear();
        timer.Tick = c.handler;
        DispatchTimer(w, timer);
        EXPECT_EQ(Messages(), c.message) << c.what;
        EXPECT_EQ(Box(), "no box") << c.what;
    }
}

TEST_F(Dispatch, AnErrorInATimerDoesNotDropWhatCameDueMeanwhile) {
    int ticks = 0;
    timer.SetEnabled(true);
    timer.Tick = [&](Workstation&) {
        if (++ticks > 1) return;
        DispatchTimer(w, timer);
        throw RuntimeError(6);
    };
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 2);
}

TEST_F(Dispatch, TheEndOfTheProcessLeavesATimerFree) {
    int ticks = 0;
    timer.SetEnabled(true);
    timer.Tick = [&](Workstation&) {
        if (++ticks > 1) return;
        DispatchTimer(w, timer);
        throw ProcessEnd{};
    };
    EXPECT_THROW(DispatchTimer(w, timer), ProcessEnd);
    EXPECT_EQ(Messages(), "");
    DispatchTimer(w, timer);
    EXPECT_EQ(ticks, 2);
}

TEST_F(Dispatch, AMessageWindowThatFailsLetsNothingOut) {
    w.frmDebug.Load = [](Workstation&) { throw RuntimeError(5); };
    timer.SetEnabled(true);
    timer.Tick = [](Workstation&) { throw RuntimeError(6); };
    EXPECT_NO_THROW(DispatchTimer(w, timer));
}

TEST_F(Dispatch, OnCommRunsTheLinesHandler) {
    w.comCTLine().CommEvent = CommEventOverrun;
    DispatchOnComm(w);
    EXPECT_EQ(w.frmMain.sbaStatus.Errors.Text, "Overrun");
}

TEST_F(Dispatch, TheEndOfTheProcessPassesThroughOnComm) {
    // The wait for silence after a fault gives turns to events; in one of them the program ends.
    machine.time.At(0, [] { throw ProcessEnd{3}; });
    w.comCTLine().CommEvent = CommEventOverrun;
    try {
        DispatchOnComm(w);
        ADD_FAILURE();
    } catch (const ProcessEnd& end) {
        EXPECT_EQ(end.status, 3);
    }
}

}  // namespace
}  // namespace cumeron
