// Modal forms: which window takes input, where they stand, their keys, and how they end.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>
#include <QToolButton>
#include <QWindow>

#include "platform/runtime/errors.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct ModalTest : testing::Test, ViewBench {
    ModalTest() { ShowMain(); }
    FormWindow& Main() { return *view.WindowOf(w.frmMain); }
    FormWindow& About() { return *view.WindowOf(w.frmAbout); }
    // A real click of the mouse, as the desktop sends it.
    void ClickOnMain() {
        QWidget* button = Main().findChild<QToolButton*>("Log");
        const QPoint at = button->mapTo(&Main(), button->rect().center());
        QTest::mouseClick(Main().windowHandle(), Qt::LeftButton, {}, at);
    }
    std::function<void()> Close(Form& modal) {
        return [this, &modal] { CloseForm(w, modal); };
    }
};

TEST_F(ModalTest, OtherWindowsTakeNoInputWhileItIsOpen) {
    int clicks = 0;
    w.frmMain.Toolbar1.Log.Click = [&](Workstation&) { ++clicks; };
    ClickOnMain();
    EXPECT_EQ(clicks, 1);
    InModal(w.frmAbout, {[&] {
                             EXPECT_TRUE(About().isVisible());
                             EXPECT_EQ(About().windowHandle()->transientParent(),
                                       Main().windowHandle());
                             ClickOnMain();
                         },
                         Close(w.frmAbout)});
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(About().isVisible());
    ClickOnMain();
    EXPECT_EQ(clicks, 2);
}

TEST_F(ModalTest, WithoutAPlaceItStandsInTheMiddleOfTheOuterWindow) {
    InModal(w.frmAbout, {[&] {
                             const QPoint off =
                                 About().frameGeometry().center() - Main().frameGeometry().center();
                             EXPECT_LE(off.manhattanLength(), 2);
                             EXPECT_EQ(w.frmAbout.Left, 0);
                         },
                         Close(w.frmAbout)});
}

TEST_F(ModalTest, WithoutAPlaceItIsWhollyInSight) {
    w.frmMain.Left = 700 * TwipsPerPixel;
    w.frmMain.Top = 700 * TwipsPerPixel;
    view.Sync();
    Settle();
    InModal(w.frmAbout, {[&] {
                             const QRect screen = Main().screen()->availableGeometry();
                             EXPECT_TRUE(screen.contains(About().frameGeometry()));
                         },
                         Close(w.frmAbout)});
}

TEST_F(ModalTest, APlaceOfTheRecordStands) {
    w.frmAbout.Left = 33 * TwipsPerPixel;
    InModal(w.frmAbout, {[&] { EXPECT_EQ(About().pos(), QPoint(33, 0)); }, Close(w.frmAbout)});
}

TEST_F(ModalTest, AnInnerOneTakesTheInputFromTheOuterOne) {
    InModal(w.frmAbout, {[&] {
                InModal(w.frmCType, {[&] {
                                         EXPECT_EQ(ModalForm(w), &w.frmCType);
                                         FormWindow& inner = *view.WindowOf(w.frmCType);
                                         EXPECT_EQ(inner.windowHandle()->transientParent(),
                                                   About().windowHandle());
                                         auto* button = About().findChild<QPushButton*>("Command1");
                                         QTest::mouseClick(
                                             About().windowHandle(), Qt::LeftButton, {},
                                             button->mapTo(&About(), button->rect().center()));
                                         EXPECT_TRUE(About().isVisible());
                                     },
                                     Close(w.frmCType)});
                EXPECT_TRUE(About().isVisible());
                auto* button = About().findChild<QPushButton*>("Command1");
                QTest::mouseClick(About().windowHandle(), Qt::LeftButton, {},
                                  button->mapTo(&About(), button->rect().center()));
            }});
    EXPECT_FALSE(About().isVisible());
    EXPECT_EQ(ModalForm(w), nullptr);
}

TEST_F(ModalTest, BoxesStandInFrontOfIt) {
    const auto lookAtBox = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->parentWidget(), &About());
        box->button(QMessageBox::Ok)->click();
    };
    InModal(w.frmAbout, {[&] {
                             QTimer::singleShot(0, &view, lookAtBox);
                             machine.dialogs.MessageBox("text", BoxButtons::Ok);
                         },
                         Close(w.frmAbout)});
}

TEST_F(ModalTest, TheEndOfTheProcessComesOutOfIt) {
    w.frmAbout.Command1.Click = [](Workstation&) { throw ProcessEnd{5}; };
    InModal(w.frmAbout,
            {[&] { About().findChild<QPushButton*>("Command1")->click(); }, Close(w.frmAbout)});
    EXPECT_EQ(leftWith, 5);
}

TEST_F(ModalTest, EnterIsTheDefaultButtonAndEscapeIsCancel) {
    std::string pressed;
    w.frmStart.CmdOK.Click = [&](Workstation&) { pressed += "OK "; };
    w.frmStart.CmdCancel.Click = [&](Workstation& station) {
        pressed += "Cancel ";
        UnloadForm(station, station.frmStart);
    };
    InModal(
        w.frmStart,
        {[&] {
             auto* edit = FindIn<QLineEdit>(w.frmStart, "txtCaption");
             QTest::keyClick(edit, Qt::Key_Return);
             auto* cancel = FindIn<QPushButton>(w.frmStart, "CmdCancel");
             QTest::keyClick(cancel, Qt::Key_Tab);
             QTest::keyClick(edit, Qt::Key_Enter);
         },
         [&] { QTest::keyClick(FindIn<QLineEdit>(w.frmStart, "txtCaption"), Qt::Key_Escape); }});
    EXPECT_EQ(pressed, "OK OK Cancel ");
}

TEST_F(ModalTest, EnterIsTheButtonThatHasTheFocus) {
    std::string pressed;
    w.frmStart.CmdOK.Click = [&](Workstation&) { pressed += "OK "; };
    w.frmStart.CmdCancel.Click = [&](Workstation& station) {
        pressed += "Cancel ";
        UnloadForm(station, station.frmStart);
    };
    InModal(w.frmStart, {[&] {
                auto* cancel = FindIn<QPushButton>(w.frmStart, "CmdCancel");
                cancel->setFocus();
                QTest::keyClick(cancel, Qt::Key_Return);
            }});
    EXPECT_EQ(pressed, "Cancel ");
}

TEST_F(ModalTest, WithoutACancelButtonEscapeIsTheCloseBox) {
    InModal(w.frmAbout, {[&] {
                QTest::keyClick(About().findChild<QPushButton*>("Command1"), Qt::Key_Escape);
            }});
    EXPECT_FALSE(w.frmAbout.Loaded);
}

TEST_F(ModalTest, AWindowWithoutButtonsTakesNoNoticeOfEscape) {
    QTest::keyClick(&Main(), Qt::Key_Escape);
    EXPECT_TRUE(Main().isVisible());
    EXPECT_EQ(leftWith, -1);
}

TEST_F(ModalTest, TheSameFormCanBeShownAsAnOrdinaryWindowAfterwards) {
    InModal(w.frmAbout, {Close(w.frmAbout)});
    ShowForm(w, w.frmAbout);
    view.Sync();
    EXPECT_EQ(About().windowModality(), Qt::NonModal);
    EXPECT_EQ(About().windowHandle()->transientParent(), nullptr);
    EXPECT_TRUE(About().isVisible());
}

TEST_F(ModalTest, TheTabulatorGoesThroughAllControls) {
    QStringList names;
    InModal(w.frmCType, {[&] {
                             FormWindow& window = *view.WindowOf(w.frmCType);
                             window.BringToFront();
                             Settle();
                             for (int i = 0; i < 4; ++i) {
                                 names.append(window.focusWidget()->objectName());
                                 QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
                             }
                         },
                         Close(w.frmCType)});
    EXPECT_EQ(names[1], "Command1");
    EXPECT_EQ(names[2], "Command2");
    EXPECT_EQ(names[3], names[0]);
}

}  // namespace
}  // namespace cumeron
