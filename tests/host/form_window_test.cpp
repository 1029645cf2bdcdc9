#include "platform/host/form_window.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QScreen>

#include "platform/runtime/errors.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct FormWindowTest : testing::Test, ViewBench {
    FormWindowTest() { ShowSample(); }
    FormWindow& Window() { return *view.WindowOf(form); }
    void OperatorMoves(const QPoint& place) {
        ASSERT_TRUE(WaitUntil([&] {
            Window().move(place + QPoint(1, 1));
            Window().move(place);
            Settle();
            return form.Left == place.x() * TwipsPerPixel;
        }));
    }
};

TEST(InSight, MovesOnlyWhatCannotBeReached) {
    const QList<QRect> screens = {QRect(0, 0, 800, 600), QRect(800, 0, 1000, 700)};
    const struct {
        QPoint wanted, given;
    } cases[] = {{{10, 20}, {10, 20}}, {{900, 650}, {900, 650}},    {{-500, 20}, {0, 20}},
                 {{10, -40}, {10, 0}}, {{5000, 5000}, {1679, 667}}, {{790, 10}, {800, 10}}};
    for (const auto& c : cases) EXPECT_EQ(InSight(c.wanted, screens), c.given);
    EXPECT_EQ(InSight({7, 8}, {}), QPoint(7, 8));
}

TEST_F(FormWindowTest, ShowsTheFormAsItsRecordTells) {
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Window().windowTitle(), "Sample");
    EXPECT_EQ(Window().objectName(), "frmSample");
    EXPECT_EQ(Window().Client()->size(), QSize(400, 300));
    EXPECT_EQ(Window().pos(), QPoint(40, 30));
    form.Caption = "Other";
    form.MousePointer = 11;
    form.Enabled = false;
    form.TopMost = true;
    view.Sync();
    EXPECT_EQ(Window().windowTitle(), "Other");
    EXPECT_EQ(Window().cursor().shape(), Qt::WaitCursor);
    EXPECT_FALSE(Window().isEnabled());
    EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(Window().isVisible());
    HideForm(form);
    view.Sync();
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(FormWindowTest, AFormThatIsNotLoadedHasNoWindow) {
    EXPECT_EQ(view.WindowOf(w.frmDebug), nullptr);
}

TEST_F(FormWindowTest, TheRecordsSizeAndPlaceReachTheWindow) {
    form.Width = 500 * TwipsPerPixel;
    form.Height = 200 * TwipsPerPixel;
    form.Left = 60 * TwipsPerPixel;
    view.Sync();
    Settle();
    EXPECT_EQ(Window().Client()->size(), QSize(500, 200));
    EXPECT_EQ(Window().pos(), QPoint(60, 30));
    EXPECT_EQ(form.Width, 500 * TwipsPerPixel);
}

TEST_F(FormWindowTest, TheOperatorsSizeReachesTheRecordAndRunsResize) {
    int resizes = 0;
    form.Resize = [&](Workstation&) { ++resizes; };
    Window().resize(Window().size() + QSize(20, 10));
    Settle();
    EXPECT_EQ(form.ScaleWidth(), 420);
    EXPECT_EQ(form.ScaleHeight(), 310);
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(Window().Client()->size(), QSize(420, 310));
}

TEST_F(FormWindowTest, TheOperatorsPlaceReachesTheRecord) {
    OperatorMoves({80, 90});
    EXPECT_EQ(form.Top, 90 * TwipsPerPixel);
    EXPECT_EQ(Window().pos(), QPoint(80, 90));
}

TEST_F(FormWindowTest, AWindowOutOfSightIsShownInSightButKeepsItsStoredPlace) {
    form.Left = -30000;
    form.Top = 300000;
    view.Sync();
    Settle();
    EXPECT_GE(Window().x(), 0);
    EXPECT_LT(Window().y(), 10000);
    EXPECT_EQ(form.Left, -30000);
    EXPECT_EQ(form.Top, 300000);
    OperatorMoves({20, 20});
}

TEST_F(FormWindowTest, WindowStatesGoBothWays) {
    int resizes = 0;
    form.Resize = [&](Workstation&) { ++resizes; };
    Window().showMinimized();
    Settle();
    EXPECT_EQ(form.WindowState, 1);
    EXPECT_EQ(resizes, 1);
    EXPECT_EQ(form.ScaleWidth(), 400);
    Window().showNormal();
    Settle();
    EXPECT_EQ(form.WindowState, 0);
    form.WindowState = 2;
    view.Sync();
    Settle();
    EXPECT_TRUE(Window().isMaximized());
    EXPECT_EQ(form.ScaleWidth(), Window().Client()->width());
    form.WindowState = 0;
    form.Width = 300 * TwipsPerPixel;
    view.Sync();
    Settle();
    EXPECT_EQ(Window().State(), 0);
    EXPECT_EQ(Window().Client()->width(), 300);
}

// Of a form that is shown for the first time.
struct FirstShow : testing::Test, ViewBench {
    void Show(int state) {
        form.WindowState = state;
        KeepNormalPlace(form);
        ShowSample();
    }
    FormWindow& Window() { return *view.WindowOf(form); }
};

TEST_F(FirstShow, AMaximisedWindowKnowsItsNormalPlace) {
    Show(2);
    EXPECT_TRUE(Window().isMaximized());
    EXPECT_EQ(form.ScaleWidth(), Window().Client()->width());
    EXPECT_EQ(form.normalWidth, 400 * TwipsPerPixel);
    EXPECT_EQ(form.normalLeft, 40 * TwipsPerPixel);
    Window().showNormal();
    Settle();
    EXPECT_EQ(form.WindowState, 0);
    EXPECT_EQ(form.ScaleWidth(), 400);
    EXPECT_EQ(Window().Client()->size(), QSize(400, 300));
    EXPECT_EQ(Window().pos(), QPoint(40, 30));
}

TEST_F(FirstShow, AMinimisedWindowKnowsItsNormalPlace) {
    Show(1);
    EXPECT_TRUE(Window().isMinimized());
    EXPECT_EQ(form.WindowState, 1);
    EXPECT_EQ(form.normalWidth, 400 * TwipsPerPixel);
    Window().showNormal();
    Settle();
    EXPECT_EQ(Window().Client()->size(), QSize(400, 300));
}

TEST_F(FormWindowTest, AMaximisedWindowsSizeDoesNotPassForTheNormalOne) {
    Window().showMaximized();
    Settle();
    EXPECT_EQ(form.WindowState, 2);
    EXPECT_EQ(form.ScaleWidth(), Window().Client()->width());
    EXPECT_GT(form.ScaleWidth(), 400);
    EXPECT_EQ(form.normalWidth, 400 * TwipsPerPixel);
    EXPECT_EQ(form.normalTop, 30 * TwipsPerPixel);
}

TEST_F(FormWindowTest, AWindowLargerThanTheScreenIsShownAsLargeAsTheScreen) {
    form.Width = 50000 * TwipsPerPixel;
    form.Height = 50000 * TwipsPerPixel;
    view.Sync();
    Settle();
    const QSize screen = Window().screen()->availableGeometry().size();
    EXPECT_EQ(Window().frameGeometry().width(), screen.width());
    EXPECT_LE(Window().Client()->height(), screen.height());
    EXPECT_EQ(form.ScaleWidth(), Window().Client()->width());
    EXPECT_EQ(form.ScaleHeight(), Window().Client()->height());
}

TEST_F(FormWindowTest, ASizeToldBeforeTheStateItBelongsToIsNotTheNormalOneEither) {
    KeepNormalPlace(form);
    Window().resize(700, 650);
    Window().showMaximized();
    Settle();
    EXPECT_EQ(form.WindowState, 2);
    EXPECT_EQ(form.normalWidth, 400 * TwipsPerPixel);
    EXPECT_EQ(form.normalHeight, 300 * TwipsPerPixel);
}

// Counts how often a window went to the front or to the back.
struct OrderCounter : QObject {
    int changes = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ZOrderChange) ++changes;
        return false;
    }
};

TEST_F(FormWindowTest, AFormIsSentBehindTheOthersOnceWhenAsked) {
    OrderCounter order;
    Window().installEventFilter(&order);
    ++form.SentToBack;
    view.Sync();
    view.Sync();
    EXPECT_EQ(order.changes, 1);
    HideForm(form);
    ++form.SentToBack;
    view.Sync();
    EXPECT_EQ(order.changes, 1);
}

TEST_F(FormWindowTest, TheCloseBoxAsksFirst) {
    bool stay = true;
    int unloads = 0;
    form.QueryUnload = [&](Workstation&) { return stay; };
    form.Unload = [&](Workstation&) { ++unloads; };
    Window().close();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(form.Loaded);
    stay = false;
    Window().close();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_FALSE(form.Loaded);
    EXPECT_EQ(unloads, 1);
}

TEST_F(FormWindowTest, AHiddenMessageWindowComesBackWithItsText) {
    ShowForm(w, w.frmDebug);
    w.frmDebug.txtMessage.Text = "kept";
    w.shell.MessageWindowOn = -1;
    view.Sync();
    view.WindowOf(w.frmDebug)->close();
    EXPECT_FALSE(view.WindowOf(w.frmDebug)->isVisible());
    EXPECT_EQ(w.shell.MessageWindowOn, 0);
    ShowForm(w, w.frmDebug);
    view.Sync();
    EXPECT_TRUE(view.WindowOf(w.frmDebug)->isVisible());
    EXPECT_EQ(w.frmDebug.txtMessage.Text, "kept");
}

TEST_F(FormWindowTest, TheEndOfTheProcessLeavesWithItsStatus) {
    form.cmdGo.Click = [](Workstation&) { throw ProcessEnd{3}; };
    ClickOn(Find<QWidget>("cmdGo"));
    EXPECT_EQ(leftWith, 3);
}

TEST_F(FormWindowTest, AFormIsBroughtToTheFrontWhenAsked) {
    ShowForm(w, w.frmDebug);
    view.Sync();
    Settle();
    view.WindowOf(w.frmDebug)->BringToFront();
    Settle();
    ASSERT_TRUE(view.WindowOf(w.frmDebug)->isActiveWindow());
    ++form.BroughtToFront;
    view.Sync();
    Settle();
    EXPECT_TRUE(Window().isActiveWindow());
}

}  // namespace
}  // namespace cumeron
