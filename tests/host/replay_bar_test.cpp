#include "platform/host/replay_bar.h"

#include <gtest/gtest.h>

#include "view_support.h"

namespace cumeron {
namespace {

TEST(ReplayText, TellsPlaceRecordAndFileOfASet) {
    EXPECT_EQ(ReplayText({0, 100000000, 0, 1, 1}), "0.0 of 100.0 MB, record 0");
    EXPECT_EQ(ReplayText({12340000, 233000000, 1520, 2, 3}),
              "12.3 of 233.0 MB, record 1520, file 2 of 3");
}

struct ReplayBarTest : testing::Test, ViewBench {
    ReplayBar* Bar() { return FindIn<ReplayBar>(w.frmMain, "replay"); }
    void Show(const ReplayProgress& progress) {
        w.offline.progress = progress;
        view.Sync();
        Settle();
    }
};

TEST_F(ReplayBarTest, IsSeenWhileThereIsAFile) {
    ShowMain();
    ASSERT_NE(Bar(), nullptr);
    EXPECT_FALSE(Bar()->isVisible());
    Show({50, 200, 7, 1, 1});
    EXPECT_TRUE(Bar()->isVisible());
    EXPECT_EQ(Bar()->value() * 4, Bar()->maximum());
    EXPECT_EQ(Bar()->text(), "0.0 of 0.0 MB, record 7");
    Show({200, 200, 28, 1, 1});
    EXPECT_EQ(Bar()->value(), Bar()->maximum());
    Show({});
    EXPECT_FALSE(Bar()->isVisible());
}

TEST_F(ReplayBarTest, StandsBesideTheMenusHoweverWideTheWindowIs) {
    ShowMain();
    const QMenuBar* menus = view.WindowOf(w.frmMain)->MenuBar();
    const int height = menus->height();
    Show({1, 2147000000, 30240, 99, 99});
    EXPECT_EQ(menus->height(), height);
    for (const int width : {640, 1024, 360, 1920}) {
        view.WindowOf(w.frmMain)->resize(width, 500);
        Settle();
        EXPECT_TRUE(menus->rect().contains(Bar()->geometry())) << width;
        EXPECT_GE(Bar()->geometry().right(), menus->width() - 1) << width;
        EXPECT_EQ(Bar()->isTextVisible(), width >= 640) << width;
        if (Bar()->isTextVisible()) {
            EXPECT_LT(Bar()->fontMetrics().horizontalAdvance(Bar()->text()), Bar()->width());
        }
        for (QAction* menu : menus->actions()) {
            EXPECT_FALSE(menus->actionGeometry(menu).intersects(Bar()->geometry()))
                << width << menu->text().toStdString();
        }
    }
}

TEST_F(ReplayBarTest, AnEmptyFileIsAtItsEnd) {
    ShowMain();
    Show({0, 0, 0, 1, 1});
    EXPECT_EQ(Bar()->value(), Bar()->maximum());
}

TEST_F(ReplayBarTest, APlaceBehindTheEndIsTheEnd) {
    ShowMain();
    Show({300, 200, 0, 1, 1});
    EXPECT_EQ(Bar()->value(), Bar()->maximum());
}

}  // namespace
}  // namespace cumeron
