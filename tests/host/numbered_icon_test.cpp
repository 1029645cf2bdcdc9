#include "platform/host/numbered_icon.h"

#include <gtest/gtest.h>

#include <QImage>

#include "platform/host/form_view.h"
#include "view_support.h"

namespace cumeron {
namespace {

QImage Picture(const QIcon& icon, int side) {
    return icon.pixmap(QSize(side, side), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
}

struct NumberedIconTest : testing::Test, ViewBench {};

TEST_F(NumberedIconTest, OnlyTheFirstCopyHasNoNumber) {
    const QIcon plain = IconOf("cumeron");
    for (const int side : {16, 64}) {
        EXPECT_EQ(Picture(NumberedIcon(plain, 1), side), Picture(plain, side));
        const QImage second = Picture(NumberedIcon(plain, 2), side);
        EXPECT_EQ(second.size(), QSize(side, side));
        EXPECT_NE(second, Picture(plain, side));
        EXPECT_NE(second, Picture(NumberedIcon(plain, 3), side));
        EXPECT_NE(second, Picture(NumberedIcon(plain, 22), side));
        EXPECT_EQ(second.pixel(side / 8, side / 8), Picture(plain, side).pixel(side / 8, side / 8));
    }
}

TEST_F(NumberedIconTest, EveryWindowBearsTheNumberOfTheCopy) {
    ShowMain();
    const QImage before = Picture(view.WindowOf(w.frmMain)->windowIcon(), 48);
    EXPECT_FALSE(before.isNull());
    w.shell.InstanceNumber = 2;
    view.Sync();
    const QImage numbered = Picture(view.WindowOf(w.frmMain)->windowIcon(), 48);
    EXPECT_NE(numbered, before);
    ShowForm(w, w.frmDebug);
    view.Sync();
    EXPECT_EQ(Picture(view.WindowOf(w.frmDebug)->windowIcon(), 48), numbered);
}

}  // namespace
}  // namespace cumeron
