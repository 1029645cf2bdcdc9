// What goes through Qt's event loop: turns, timers, boxes and the border for exceptions.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "platform/host/clock.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct EventTest : testing::Test, ViewBench {
    // Answers the next box, and keeps what it showed.
    QString title, text;
    void AnswerWith(std::function<void(QMessageBox&)> answer) {
        QTimer::singleShot(0, &view, [this, answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            title = box->windowTitle();
            text = box->text();
            answer(*box);
        });
    }
    void AnswerWith(QMessageBox::StandardButton button) {
        AnswerWith([button](QMessageBox& box) { box.button(button)->click(); });
    }
};

TEST_F(EventTest, BoxesShowTextAndTitleAndGiveTheAnswer) {
    w.frmMain.Caption = "CUMERON - Tower";
    const struct {
        BoxButtons buttons;
        QMessageBox::StandardButton pressed;
        Answer answer;
    } cases[] = {{BoxButtons::Ok, QMessageBox::Ok, Answer::Ok},
                 {BoxButtons::YesNo, QMessageBox::Yes, Answer::Yes},
                 {BoxButtons::YesNo, QMessageBox::No, Answer::No},
                 {BoxButtons::RetryCancel, QMessageBox::Retry, Answer::Retry},
                 {BoxButtons::RetryCancel, QMessageBox::Cancel, Answer::Cancel}};
    for (const auto& c : cases) {
        AnswerWith(c.pressed);
        EXPECT_EQ(machine.dialogs.MessageBox("<b>5\xB0</b>", c.buttons), c.answer);
        EXPECT_EQ(title, "CUMERON - Tower");
        EXPECT_EQ(text, QStringLiteral(u"<b>5\u00B0</b>"));
    }
}

TEST_F(EventTest, ClosingABoxIsTheCautiousAnswer) {
    AnswerWith([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(machine.dialogs.MessageBox("Leave?", BoxButtons::YesNo), Answer::No);
    AnswerWith([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(machine.dialogs.MessageBox("Again?", BoxButtons::RetryCancel), Answer::Cancel);
}

TEST_F(EventTest, AnErrorThatNobodyHandledIsToldAndEndsTheProcess) {
    ShowSample();
    form.cmdGo.Click = [](Workstation&) { throw RuntimeError(6); };
    AnswerWith(QMessageBox::Ok);
    Find<QPushButton>("cmdGo")->click();
    EXPECT_TRUE(text.startsWith("Run-time error '6':"));
    EXPECT_EQ(leftWith, 1);
}

TEST_F(EventTest, NoExceptionLeavesTheGuard) {
    Guarded([] { throw std::runtime_error("unexpected"); });
    EXPECT_EQ(leftWith, 1);
    Guarded([] { throw ProcessEnd{0}; });
    EXPECT_EQ(leftWith, 0);
}

TEST_F(EventTest, DoEventsShowsTheRecordsAndHandlesWhatIsPending) {
    ShowSample();
    form.lblText.Caption = "during a long routine";
    bool handled = false;
    QMetaObject::invokeMethod(
        &view, [&] { handled = true; }, Qt::QueuedConnection);
    machine.events.DoEvents();
    EXPECT_TRUE(handled);
    EXPECT_EQ(Find<QLabel>("lblText")->text(), "during a long routine");
}

TEST_F(EventTest, WaitEventsComesBackWithoutAnyEvent) {
    for (int i = 0; i < 5; ++i) machine.events.WaitEvents();
    bool handled = false;
    QTimer::singleShot(20, &view, [&] { handled = true; });
    for (int i = 0; i < 1000 && !handled; ++i) machine.events.WaitEvents();
    EXPECT_TRUE(handled);
}

TEST_F(EventTest, TimersRunWhileTheyAreEnabled) {
    ShowSample();
    int ticks = 0;
    form.tmrTick.Interval = 5;
    form.tmrTick.Tick = [&](Workstation& ws) {
        form.lblText.Caption = "ticked";
        static_cast<void>(ws);
        if (++ticks == 3) form.tmrTick.SetEnabled(false);
    };
    form.tmrTick.SetEnabled(true);
    view.Sync();
    ASSERT_TRUE(WaitUntil([&] { return ticks == 3; }));
    EXPECT_EQ(Find<QLabel>("lblText")->text(), "ticked");
    Settle();
    EXPECT_EQ(ticks, 3);
    form.tmrTick.SetEnabled(true);
    view.Sync();
    ASSERT_TRUE(WaitUntil([&] { return ticks > 3; }));
}

TEST_F(EventTest, ATickThatComesDueInALongHandlerFollowsIt) {
    ShowSample();
    int entered = 0;
    int deepest = 0;
    int depth = 0;
    form.tmrTick.Interval = 1;
    form.tmrTick.Tick = [&](Workstation& ws) {
        deepest = std::max(deepest, ++depth);
        if (++entered == 1) {
            EXPECT_TRUE(WaitUntil([&] {
                ws.platform.events.DoEvents();
                return form.tmrTick.pending;
            }));
        } else {
            form.tmrTick.SetEnabled(false);
        }
        --depth;
    };
    form.tmrTick.SetEnabled(true);
    view.Sync();
    EXPECT_TRUE(WaitUntil([&] { return entered == 2; }));
    EXPECT_EQ(deepest, 1);
}

TEST_F(EventTest, AGridTimerGoesOnTicking) {
    ShowSample();
    int ticks = 0;
    form.tmrTick.Interval = 30;
    form.tmrTick.KeepsGrid = true;
    form.tmrTick.Tick = [&](Workstation&) { ++ticks; };
    form.tmrTick.SetEnabled(true);
    view.Sync();
    EXPECT_TRUE(WaitUntil([&] { return ticks >= 3; }));
}

TEST(TimeToGrid, PointsToTheNextWholeInterval) {
    const struct {
        int elapsed, wait;
    } cases[] = {{0, 1000},   {1, 999},     {400, 600},  {989, 11},
                 {995, 1005}, {1000, 1000}, {2300, 700}, {2999, 1001}};
    for (const auto& c : cases) EXPECT_EQ(TimeToGrid(c.elapsed, 1000), c.wait) << c.elapsed;
}

TEST(HostClock, CountsDaysInLocalTime) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 15;
    time.tm_hour = 14;
    time.tm_min = 41;
    time.tm_sec = 25;
    EXPECT_EQ(Format(DayCount(time), "yyyy-mm-dd hh:nn:ss"), "2026-11-15 14:41:25");
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    HostClock clock;
    EXPECT_LE(std::abs(DateDiffSeconds(DayCount(local), clock.Now())), 5);
}

}  // namespace
}  // namespace cumeron
