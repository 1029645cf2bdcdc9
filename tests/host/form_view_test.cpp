#include "platform/host/form_view.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/host/colours.h"
#include "platform/runtime/errors.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct FormViewTest : testing::Test, ViewBench {
    FormViewTest() { ShowSample(); }

    FormWindow& Window() { return *view.WindowOf(form); }
    QPlainTextEdit* Edit() { return Find<QPlainTextEdit>("txtText"); }
    QMenu* Menu(const char* name) { return Find<QMenu>(name); }
    QAction* Action(const char* name) { return Find<QAction>(name); }
};

TEST_F(FormViewTest, EveryFieldOfALabelReachesItsWidget) {
    auto* label = Find<QLabel>("lblText");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "Text");
    EXPECT_EQ(label->geometry(), QRect(10, 10, 200, 40));

    form.lblText.Caption = "12\xB0";
    form.lblText.ForeColor = 0x0000C0;
    form.lblText.FontSize = 18;
    form.lblText.Bold = true;
    form.lblText.Alignment = TextAlignment::Right;
    form.lblText.ToolTipText = "tip";
    form.lblText.Enabled = false;
    form.lblText.Left = 15;
    view.Sync();
    EXPECT_EQ(label->text(), QStringLiteral(u"12\u00B0"));
    EXPECT_EQ(SpokenName(label), label->text());
    EXPECT_EQ(label->palette().color(QPalette::Active, QPalette::WindowText), QColor(0xC0, 0, 0));
    EXPECT_EQ(label->font().pixelSize(), 24);
    EXPECT_TRUE(label->font().bold());
    EXPECT_TRUE(label->alignment().testFlag(Qt::AlignRight));
    EXPECT_EQ(label->toolTip(), "tip");
    EXPECT_FALSE(label->isEnabled());
    EXPECT_EQ(label->x(), 15);

    form.lblText.Visible = false;
    form.lblText.Alignment = TextAlignment::Center;
    view.Sync();
    EXPECT_TRUE(label->isHidden());
    EXPECT_TRUE(label->alignment().testFlag(Qt::AlignHCenter));
}

TEST_F(FormViewTest, ALabelHasABackgroundOfItsOwnWhenItsRecordSaysSo) {
    auto* label = Find<QLabel>("lblText");
    EXPECT_FALSE(label->autoFillBackground());
    const QColor usual = label->palette().color(QPalette::Window);
    form.lblText.BackColor = 0x000080;
    view.Sync();
    EXPECT_TRUE(label->autoFillBackground());
    EXPECT_EQ(label->grab().toImage().pixelColor(190, 5), QColor(0x80, 0, 0));
    const QColor text = label->palette().color(QPalette::WindowText);
    EXPECT_GE(Contrast(QColor(0x80, 0, 0), text), 4.5);
    form.lblText.BackColor = -1;
    view.Sync();
    EXPECT_FALSE(label->autoFillBackground());
    EXPECT_EQ(label->palette().color(QPalette::Window), usual);
}

TEST_F(FormViewTest, ATextTooWideIsShownSmallerNotCut) {
    auto* label = Find<QLabel>("lblText");
    form.lblText.FontSize = 24;
    form.lblText.Caption = "a height with very many digits";
    view.Sync();
    EXPECT_LT(label->font().pixelSize(), 32);
    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
    form.lblText.Caption = "5";
    view.Sync();
    EXPECT_EQ(label->font().pixelSize(), 32);
}

TEST_F(FormViewTest, ControlsOfAFrameStandInIt) {
    auto* frame = Find<QGroupBox>("fraBox");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->title(), "Box");
    auto* inside = frame->findChild<QLabel*>("lblInside(1)");
    ASSERT_NE(inside, nullptr);
    EXPECT_EQ(inside->pos(), QPoint(20, 25));
    form.fraBox.Caption = "New";
    view.Sync();
    EXPECT_EQ(frame->title(), "New");
}

TEST_F(FormViewTest, AClickReachesTheHandlerAndWhatItDidIsShown) {
    form.cmdGo.Click = [this](Workstation&) { form.lblText.Caption = "clicked"; };
    Find<QPushButton>("cmdGo")->click();
    EXPECT_EQ(Find<QLabel>("lblText")->text(), "clicked");
    EXPECT_EQ(Find<QPushButton>("cmdGo")->text(), "&Go");
}

TEST_F(FormViewTest, LabelsAndSurfacesTakeClicks) {
    int clicks = 0;
    for (Control* control : std::initializer_list<Control*>{&form.lblText, &form.picGraph}) {
        control->Click = [&](Workstation&) { ++clicks; };
    }
    ClickOn(Find<QLabel>("lblText"));
    ClickOn(Find<QWidget>("picGraph"));
    EXPECT_EQ(clicks, 2);
}

TEST_F(FormViewTest, AHandlerMayUnloadItsOwnForm) {
    form.cmdGo.Click = [this](Workstation&) { UnloadForm(w, form); };
    Find<QPushButton>("cmdGo")->click();
    EXPECT_FALSE(form.Loaded);
    EXPECT_TRUE(Window().isHidden());
}

TEST_F(FormViewTest, MenusStandAsTheRecordsTell) {
    QMenu* file = Menu("mnuFile");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(Window().MenuBar()->actions(), QList<QAction*>{file->menuAction()});
    ASSERT_EQ(file->actions().size(), 4);
    EXPECT_EQ(file->actions()[0]->text(), "&Open...");
    EXPECT_EQ(file->actions()[1]->menu(), Menu("mnuMore"));
    EXPECT_EQ(Menu("mnuMore")->title(), "&More");
    EXPECT_TRUE(file->actions()[2]->isSeparator());
    EXPECT_EQ(file->actions()[3], Action("mnuExit"));
    EXPECT_EQ(Menu("mnuMore")->actions(), QList<QAction*>{Action("mnuDeep")});
}

TEST_F(FormViewTest, MenuEntriesFollowAndCall) {
    int opened = 0;
    form.mnuOpen.Click = [&](Workstation&) { form.mnuOpen.Checked = ++opened == 1; };
    Action("mnuOpen")->trigger();
    EXPECT_TRUE(Action("mnuOpen")->isChecked());
    Action("mnuOpen")->trigger();
    EXPECT_EQ(opened, 2);
    EXPECT_FALSE(Action("mnuOpen")->isCheckable());
    form.mnuOpen.Enabled = false;
    form.mnuDeep.Visible = false;
    form.mnuDeep.Caption = "Deeper";
    form.mnuFile.Enabled = false;
    view.Sync();
    EXPECT_FALSE(Action("mnuOpen")->isEnabled());
    EXPECT_FALSE(Action("mnuDeep")->isVisible());
    EXPECT_EQ(Action("mnuDeep")->text(), "Deeper");
    EXPECT_FALSE(Menu("mnuFile")->menuAction()->isEnabled());
}

TEST_F(FormViewTest, AMarkStaysAsTheRecordHasItWhateverTheMenuDoes) {
    form.mnuOpen.Checked = true;
    view.Sync();
    Action("mnuOpen")->trigger();  // turns the mark of the action itself
    EXPECT_TRUE(Action("mnuOpen")->isChecked());
}

TEST_F(FormViewTest, TextsGoBothWays) {
    form.txtText.Text = "\x02one\r\ntwo";
    view.Sync();
    EXPECT_EQ(Edit()->toPlainText(), QStringLiteral(u"\u00B7one\ntwo"));
    Edit()->selectAll();
    Edit()->insertPlainText("three\nfour");
    EXPECT_EQ(form.txtText.Text, "three\r\nfour");
    view.Sync();
    EXPECT_EQ(Edit()->toPlainText(), "three\nfour");
}

TEST_F(FormViewTest, TheCursorGoesWhereTheRecordHasIt) {
    form.txtText.Text = "0123456789";
    form.txtText.SelStart = 4;
    view.Sync();
    EXPECT_EQ(Edit()->textCursor().position(), 4);
    form.txtText.SelStart = 0;
    form.txtText.Text = "new 0123456789";
    view.Sync();
    EXPECT_EQ(Edit()->textCursor().position(), 0);
    form.txtText.SelStart = 4000;
    view.Sync();
    EXPECT_EQ(Edit()->textCursor().position(), 14);
    form.txtText.Text = "one\r\ntwo";
    form.txtText.SelStart = 5;
    view.Sync();
    EXPECT_EQ(Edit()->textCursor().position(), 4);
}

struct ReadOnlyTextTest : FormViewTest {
    int asked = 0;

    ReadOnlyTextTest() {
        UnloadForm(w, form);
        ShowMain();
        ShowForm(w, w.frmDebug);
        w.frmDebug.txtMessage.Text = "message";
        view.Sync();
    }
    QPlainTextEdit* Messages() {
        return view.WindowOf(w.frmDebug)->findChild<QPlainTextEdit*>("txtMessage");
    }
};

TEST_F(ReadOnlyTextTest, KeysAndPastedTextAreThrownAway) {
    TypeInto(Messages(), Qt::Key_A, "a");
    TypeInto(Messages(), Qt::Key_Delete, "\x7F");
    TypeInto(Messages(), Qt::Key_Return, "\r");
    QGuiApplication::clipboard()->setText("pasted");
    Messages()->paste();
    Messages()->selectAll();
    TypeInto(Messages(), Qt::Key_Backspace, "\b");
    EXPECT_EQ(Messages()->toPlainText(), "message");
    EXPECT_EQ(w.frmDebug.txtMessage.Text, "message");
}

TEST_F(ReadOnlyTextTest, TheTextFillsTheWindowInAFixedFont) {
    Settle();
    EXPECT_EQ(Messages()->size(), Client(w.frmDebug)->size());
    EXPECT_EQ(Messages()->fontMetrics().horizontalAdvance("iiii"),
              Messages()->fontMetrics().horizontalAdvance("MMMM"));
}

TEST_F(FormViewTest, AGateMayChangeACharacter) {
    UnloadForm(w, form);
    Window().hide();
    SampleForm upper;
    upper.txtText.KeyPress = [](Workstation&, int code) {
        return code == '1' ? 0 : std::toupper(code);
    };
    HostView upperView(w, machine, {&upper});
    ShowForm(w, upper);
    upperView.Sync();
    auto* edit = upperView.WindowOf(upper)->findChild<QPlainTextEdit*>("txtText");
    TypeInto(edit, Qt::Key_A, "a");
    TypeInto(edit, Qt::Key_1, "1");
    TypeInto(edit, Qt::Key_B, "B");
    QGuiApplication::clipboard()->setText("c1d");
    edit->paste();
    EXPECT_EQ(upper.txtText.Text, "ABCD");
}

TEST_F(FormViewTest, ASurfaceShowsItsPixels) {
    form.picGraph.Fill(0, 0, 25, 40, 0x0000FF);
    view.Sync();
    ASSERT_TRUE(WaitUntil([&] {
        const QImage seen = Find<QWidget>("picGraph")->grab().toImage();
        return seen.pixelColor(10, 10) == QColor(255, 0, 0) &&
               seen.pixelColor(40, 10) == QColor(255, 255, 255);
    }));
}

TEST_F(FormViewTest, TextsAreDrawnIntoTheSurface) {
    ASSERT_NE(form.picGraph.painter, nullptr);
    form.picGraph.ForeColor = 0xFF0000;
    form.picGraph.CurrentX = 5;
    form.picGraph.CurrentY = 5;
    form.picGraph.Print("MMM");
    int painted = 0;
    for (int x = 0; x < 50; ++x) {
        for (int y = 0; y < 40; ++y) {
            const int pixel = form.picGraph.Pixel(x, y);
            if (pixel == 0xFFFFFF) continue;
            ++painted;
            EXPECT_EQ(pixel >> 16, 0xFF) << "not a shade of blue";
        }
    }
    EXPECT_GT(painted, 10);
    EXPECT_GT(form.picGraph.painter->TextWidth("MMM"), form.picGraph.painter->TextWidth("M"));
    EXPECT_GT(form.picGraph.painter->TextHeight(), 8);
}

TEST_F(FormViewTest, APictureIsDrawn) {
    const QImage seen = Find<QWidget>("imgMark")->grab().toImage();
    EXPECT_EQ(seen.pixelColor(6, 18), QColor(0xFF, 0xB3, 0x00));
}

}  // namespace
}  // namespace cumeron
