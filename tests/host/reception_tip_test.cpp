#include "platform/host/reception_tip.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "view_support.h"

namespace cumeron {
namespace {

struct ReceptionTipTest : testing::Test, ViewBench {
    void LastMessage(int secondsAgo) {
        w.intake.FrameText = " KN";
        w.graphs.MessageTime = machine.clock.Now() - secondsAgo / 86400.0;
    }
};

TEST_F(ReceptionTipTest, TellsAgeAndRejectedMessages) {
    w.graphs.MessageTime = machine.clock.Now();  // the opening of the port
    EXPECT_EQ(ReceptionTip(w), "No good message yet\nRejected since the start: 0");
    w.intake.FrameErrorCount = 3;
    LastMessage(-3600);  // the clock was set back
    EXPECT_EQ(ReceptionTip(w), "Last good message 0 s ago\nRejected since the start: 3");
    LastMessage(200000);
    EXPECT_TRUE(ReceptionTip(w).startsWith("Last good message 55 h 33 min ago"));
    LastMessage(1830);
    EXPECT_TRUE(ReceptionTip(w).startsWith("Last good message 30 min 3"));
}

TEST_F(ReceptionTipTest, TheOpeningOfThePortDoesNotPassForAMessage) {
    LastMessage(0);
    w.graphs.GraphHistory.resize(3);
    w.graphs.HistoryIndex = 2;
    w.graphs.GraphHistory[2].Time = machine.clock.Now() - 2.0 / 24;
    EXPECT_TRUE(ReceptionTip(w).startsWith("Last good message 2 h 0 min ago"));
}

TEST_F(ReceptionTipTest, IsShownOverTheValuesAndAskedEachTime) {
    ShowMain();
    auto* value = FindIn<QWidget>(w.frmMain, "CloudValue(0)");
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), value->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(value, &help);
    EXPECT_TRUE(QToolTip::text().startsWith("No good message yet"));
    LastMessage(0);
    QCoreApplication::sendEvent(value, &help);
    EXPECT_TRUE(QToolTip::text().startsWith("Last good message"));
    QToolTip::hideText();
    ASSERT_TRUE(WaitUntil([] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(w.frmMain.fraValues.ToolTipText, "");
    auto* sky = FindIn<QWidget>(w.frmMain, "fraSkyCond");
    QCoreApplication::sendEvent(sky, &help);
    EXPECT_FALSE(QToolTip::isVisible());
}

}  // namespace
}  // namespace cumeron
