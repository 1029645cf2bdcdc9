// Everything in the real windows by the keyboard alone: menus, toolbar, and each dialog opened,
// changed, accepted and cancelled.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

#include "shell/startup.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct KeyboardTest : testing::Test, ViewBench {
    KeyboardTest() {
        Guarded([&] { StartProgram(w); });
        w.frmMain.tmrClock.SetEnabled(false);
        view.Sync();
        Settle();
        Main().BringToFront();
        Settle();
    }
    FormWindow& Main() { return *view.WindowOf(w.frmMain); }
    QString Letter(const QAction* action) {
        const QString text = action->text();
        const qsizetype at = text.indexOf('&');
        return at < 0 ? QString() : text.mid(at + 1, 1).toUpper();
    }
    // Chooses an entry of the main window by its mnemonic or arrow keys, as an operator without a
    // mouse does; the steps run in the dialog that it shows.
    void Choose(const char* name, std::vector<std::function<void()>> steps) {
        std::size_t next = 0;
        // The step to come is under way before each one, so that it also runs in a box of its.
        std::function<void()> runNext = [&] {
            const bool inMenu = QApplication::activePopupWidget() != nullptr;
            if (!inMenu) Settle();
            const auto step = inMenu ? [] {} : steps[next++];
            if (next < steps.size()) QTimer::singleShot(0, &view, runNext);
            step();
        };
        auto* entry = Main().findChild<QAction*>(name);
        auto* menu = qobject_cast<QMenu*>(entry->associatedObjects().first());
        menu->popup(Main().pos());
        QTimer::singleShot(0, &view, runNext);
        for (int i = 0; i < 40 && menu->activeAction() != entry; ++i) {
            QTest::keyClick(menu, Qt::Key_Down);
        }
        ASSERT_EQ(menu->activeAction(), entry);
        QTest::keyClick(menu, Qt::Key_Return);
        EXPECT_TRUE(WaitUntil([&] { return next == steps.size(); })) << name;
    }
    void Press(int key) {
        QWidget* target = QApplication::focusWidget();
        QTest::keyClick(target, static_cast<Qt::Key>(key));
    }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    // Goes on with the tabulator to the control of that name.
    void TabTo(const QString& name) {
        for (int i = 0; i < 30 && QApplication::focusWidget()->objectName() != name; ++i) {
            Press(Qt::Key_Tab);
        }
        EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
    }
    QString FrontWindow() { return QApplication::activeWindow()->objectName(); }
};

TEST_F(KeyboardTest, EveryMenuHasALetterOfItsOwnAndEveryEntryOne) {
    QStringList menuLetters;
    for (const QAction* top : Main().MenuBar()->actions()) {
        menuLetters.append(Letter(top));
        QStringList letters;
        for (const QAction* entry : top->menu()->actions()) {
            if (!entry->isSeparator()) letters.append(Letter(entry));
        }
        EXPECT_FALSE(letters.contains("")) << top->text().toStdString();
        // kept: File has three E and two S, as operators know them; a letter pressed again goes on
        // to the next entry that bears it.
        const qsizetype shared = letters.removeDuplicates();
        EXPECT_EQ(shared, top->text() == "&File" ? 3 : 0) << top->text().toStdString();
    }
    EXPECT_FALSE(menuLetters.contains(""));
    EXPECT_EQ(menuLetters.removeDuplicates(), 0);
}

TEST_F(KeyboardTest, ALetterPressedAgainGoesOnToTheNextEntryOfThatLetter) {
    QMenu* file = Main().MenuBar()->actions()[0]->menu();
    file->popup(Main().pos());
    QStringList reached;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(file, Qt::Key_E);
        ASSERT_NE(file->activeAction(), nullptr);
        reached.append(file->activeAction()->objectName());
    }
    file->close();
    EXPECT_EQ(reached, (QStringList{"mnuPortSettings", "mnuPrintSetup", "mnuExit"}));
}

TEST_F(KeyboardTest, ArrowKeysReachEveryEntryThatCanBeChosen) {
    for (QAction* top : Main().MenuBar()->actions()) {
        QMenu* menu = top->menu();
        menu->popup(Main().pos());
        for (QAction* entry : menu->actions()) {
            if (entry->isSeparator() || !entry->isEnabled()) continue;
            for (int i = 0; i < 40 && menu->activeAction() != entry; ++i) {
                QTest::keyClick(menu, Qt::Key_Down);
            }
            EXPECT_EQ(menu->activeAction(), entry) << entry->text().toStdString();
        }
        menu->close();
    }
}

TEST_F(KeyboardTest, AltAndItsLetterOpensAMenu) {
    QTest::keyClick(&Main(), Qt::Key_V, Qt::AltModifier);
    ASSERT_TRUE(WaitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "mnuShow");
    QApplication::activePopupWidget()->close();
}

TEST_F(KeyboardTest, TheTabulatorReachesEveryToolButtonThatCanBePressed) {
    QStringList wanted, reached;
    for (const auto* button : Main().findChildren<QToolButton*>()) {
        if (button->parentWidget()->objectName() == "Toolbar1" && button->isEnabled()) {
            wanted.append(button->objectName());
        }
    }
    Main().FocusFirst();
    for (int i = 0; i < 40; ++i) {
        reached.append(QApplication::focusWidget()->objectName());
        Press(Qt::Key_Tab);
    }
    EXPECT_GT(wanted.size(), 8);
    for (const QString& name : wanted) EXPECT_TRUE(reached.contains(name)) << name.toStdString();
}

TEST_F(KeyboardTest, ASpaceBarPressesAToolButton) {
    Main().FocusFirst();
    TabTo("BackScat");
    Press(Qt::Key_Space);
    EXPECT_TRUE(w.frmMain.mnuLinePlot.Checked);
}

TEST_F(KeyboardTest, TheBorderOfTheSplitViewIsMovedByKeys) {
    w.settings.Split_Ratio = 0.5F;
    view.WindowOf(w.frmMain)->findChild<QAction*>("mnuSplitScreen")->trigger();
    Settle();
    Main().FocusFirst();
    TabTo("picSplitSizer");
    const double before = w.settings.Split_Ratio;
    for (int i = 0; i < 5; ++i) Press(Qt::Key_Right);
    EXPECT_NEAR(w.settings.Split_Ratio - before, 0.05, 0.015);
    for (int i = 0; i < 5; ++i) Press(Qt::Key_Left);
    EXPECT_NEAR(w.settings.Split_Ratio, before, 0.015);
}

TEST_F(KeyboardTest, StartUpOptionsAreChangedAndAccepted) {
    Choose("mnuStartup", {[&] {
               EXPECT_EQ(FrontWindow(), "frmStart");
               Press(Qt::Key_Space);
               TabTo("txtCaption");
               Type("Tower");
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.frmStart.Loaded);
    EXPECT_EQ(w.settings.Port_open, 1);
    EXPECT_EQ(Main().windowTitle(), "CUMERON - Tower");
}

TEST_F(KeyboardTest, StartUpOptionsAreChangedAndCancelled) {
    Choose("mnuStartup", {[&] {
               Press(Qt::Key_Space);
               Press(Qt::Key_Escape);
           }});
    EXPECT_FALSE(w.frmStart.Loaded);
    EXPECT_EQ(w.settings.Port_open, 0);
}

TEST_F(KeyboardTest, TheModelIsChosenAndAccepted) {
    Choose("mnuCeiloType", {[&] {
               EXPECT_EQ(FrontWindow(), "frmCType");
               EXPECT_EQ(QApplication::focusWidget()->objectName(), "optCType(3)");
               Press(Qt::Key_Down);
               TabTo("Command1");
               Press(Qt::Key_Space);
           }});
    EXPECT_EQ(w.settings.CEILOMETER, 50);
    EXPECT_EQ(FindIn<QLabel>(w.frmMain, "lblCT")->text(), "KN50");
}

TEST_F(KeyboardTest, TheModelIsChosenAndCancelled) {
    Choose("mnuCeiloType", {[&] {
               Press(Qt::Key_Up);
               TabTo("Command2");
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.frmCType.Loaded);
    EXPECT_EQ(w.settings.CEILOMETER, 30);
}

TEST_F(KeyboardTest, PortSettingsAreChangedAndAccepted) {
    Choose("mnuPortSettings", {[&] {
               EXPECT_EQ(FrontWindow(), "ConfigScrn");
               TabTo("cboPort");
               Press(Qt::Key_Down);
               TabTo("cboBaud");
               FindIn<QComboBox>(w.ConfigScrn, "cboBaud")->lineEdit()->selectAll();
               Type("2400");
               TabTo("NoParity");
               Press(Qt::Key_Right);
               TabTo("txtModemInitialization");
               QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
               Type("ATDT1");
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.ConfigScrn.Loaded);
    EXPECT_EQ(w.comCTLine().CommPort(), 2);
    EXPECT_EQ(w.comCTLine().Settings(), "2400,O,8,1");
    EXPECT_EQ(w.settings.Modem_Initialization_String, "ATDT1");
}

TEST_F(KeyboardTest, PortSettingsAreChangedAndCancelled) {
    Choose("mnuPortSettings", {[&] {
               TabTo("cboPort");
               Press(Qt::Key_Down);
               Press(Qt::Key_Escape);
           }});
    EXPECT_FALSE(w.ConfigScrn.Loaded);
    EXPECT_EQ(w.comCTLine().CommPort(), 1);
}

TEST_F(KeyboardTest, RefusedPortSettingsLeaveTheDialogOpenBehindItsBoxes) {
    int boxes = 0;
    const auto answer = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->parentWidget(), view.WindowOf(w.ConfigScrn));
        ++boxes;
        QTest::keyClick(box, Qt::Key_Return);
    };
    Choose("mnuPortSettings",
           {[&] {
                TabTo("cboBaud");
                FindIn<QComboBox>(w.ConfigScrn, "cboBaud")->lineEdit()->selectAll();
                Type("fast");
                Press(Qt::Key_Return);
                EXPECT_TRUE(w.ConfigScrn.Visible);
                view.WindowOf(w.ConfigScrn)->BringToFront();  // as the desktop does
                Settle();
                Press(Qt::Key_Escape);
            },
            answer, answer});
    EXPECT_EQ(boxes, 2);
    EXPECT_FALSE(w.ConfigScrn.Loaded);
}

TEST_F(KeyboardTest, SkyConditionSettingsAreChangedAndAccepted) {
    Choose("mnuSkyCondSettings", {[&] {
               EXPECT_EQ(FrontWindow(), "frmSkyCondSettings");
               EXPECT_EQ(QApplication::focusWidget()->objectName(), "optCloudAmount(0)");
               Press(Qt::Key_Down);
               TabTo("chkShowSkyCond");
               Press(Qt::Key_Space);
               view.Sync();
               TabTo("chkSkyCondTop");
               Press(Qt::Key_Space);
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.frmSkyCondSettings.Loaded);
    EXPECT_EQ(w.settings.Cloud_Amount, 1);
    EXPECT_EQ(w.settings.Sky_Cond_On_Top, 1);
    EXPECT_TRUE(FindIn<QWidget>(w.frmMain, "fraSkyCond")->isVisible());
}

TEST_F(KeyboardTest, SkyConditionSettingsAreChangedAndCancelled) {
    Choose("mnuSkyCondSettings", {[&] {
               Press(Qt::Key_Down);
               Press(Qt::Key_Escape);
           }});
    EXPECT_FALSE(w.frmSkyCondSettings.Loaded);
    EXPECT_EQ(w.settings.Cloud_Amount, 0);
}

TEST_F(KeyboardTest, TheAboutBoxIsOpenedAndClosed) {
    Choose("mnuAbout", {[&] {
               EXPECT_EQ(FindIn<QLabel>(w.frmAbout, "lblInstance")->text(),
                         "Instance:1/1 CUMERON1.INI");
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.frmAbout.Loaded);
}

TEST_F(KeyboardTest, TheStatusWindowIsOpenedAndClosed) {
    Choose("mnuShowStatus", {[&] {
               view.WindowOf(w.frmStatus)->BringToFront();
               Settle();
               EXPECT_EQ(FrontWindow(), "frmStatus");
               TabTo("Command1");
               Press(Qt::Key_Return);
           }});
    EXPECT_FALSE(w.frmStatus.Loaded);
    EXPECT_FALSE(w.frmMain.mnuShowStatus.Checked);
}

}  // namespace
}  // namespace cumeron
