// Texts, options, check boxes and lists: what the operator puts in reaches the record and its
// handler, and what the record holds is shown.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

#include "view_support.h"

namespace cumeron {
namespace {

struct InputForm : Form {
    Frame fraSize;
    OptionButton optSmall, optLarge, optOther;
    CheckBox chkOn;
    ComboBox cboList, cboTyped;
    TextBox txtLine, txtGated, txtMasked;
    DriveList drvDisk;
    FolderList dirFolder;
    TabStrip tabPages;

    InputForm() {
        Name = "frmInput";
        Width = Height = 300 * TwipsPerPixel;
        fraSize.Width = fraSize.Height = 120;
        optLarge.Top = 40;
        optLarge.Width = optLarge.Height = 30;
        optSmall.Caption = "Small";
        optLarge.Caption = "Large";
        optOther.Caption = "Other";
        chkOn.Caption = "On";
        cboList.Items = {"one", "two", "three"};
        cboTyped.Items = {"300", "9600"};
        cboTyped.Editable = true;
        txtMasked.Mask = "##";
        drvDisk.Drive = dirFolder.Path = "/";
        tabPages.Pages = {"One", "Two"};
        txtGated.KeyPress = [](Workstation&, int code) {
            return code == '1' || code == 8 || code == 127 ? 0 : std::toupper(code);
        };
    }
    ControlList Controls() override {
        return {{"fraSize", -1, "", &fraSize},
                {"optSmall", -1, "fraSize", &optSmall},
                {"optLarge", -1, "fraSize", &optLarge},
                {"optOther", -1, "", &optOther},
                {"chkOn", -1, "", &chkOn},
                {"cboList", -1, "", &cboList},
                {"cboTyped", -1, "", &cboTyped},
                {"txtLine", -1, "", &txtLine},
                {"txtGated", -1, "", &txtGated},
                {"txtMasked", -1, "", &txtMasked},
                {"drvDisk", -1, "", &drvDisk},
                {"dirFolder", -1, "", &dirFolder},
                {"tabPages", -1, "", &tabPages}};
    }
    void Reset() override { *this = InputForm(); }
};

struct InputsTest : testing::Test {
    OwnFolders own;
    HostMachine machine{"1"};
    Workstation w{machine.platform};
    InputForm form;
    HostView view{w, machine, {&form}};
    std::string clicked;

    InputsTest() {
        ShowForm(w, form);
        view.Sync();
        Settle();
    }
    template <class Kind>
    Kind* Find(const char* name) {
        return view.WindowOf(form)->findChild<Kind*>(name);
    }
    Handler Note(const char* name) {
        return [this, name](Workstation&) { clicked += name; };
    }
};

TEST_F(InputsTest, AnOptionIsChosenAmongThoseOfItsFrame) {
    form.optOther.Value = true;
    form.optSmall.Click = Note("small ");
    form.optLarge.Click = Note("large ");
    view.Sync();
    Find<QRadioButton>("optSmall")->click();
    Find<QRadioButton>("optLarge")->click();
    EXPECT_EQ(clicked, "small large ");
    EXPECT_FALSE(form.optSmall.Value);
    EXPECT_TRUE(form.optLarge.Value);
    EXPECT_FALSE(Find<QRadioButton>("optSmall")->isChecked());
    EXPECT_TRUE(Find<QRadioButton>("optLarge")->isChecked());
    EXPECT_TRUE(Find<QRadioButton>("optOther")->isChecked());
}

TEST_F(InputsTest, TheRecordMayHaveNoOptionChosen) {
    form.optLarge.Value = true;
    view.Sync();
    EXPECT_TRUE(Find<QRadioButton>("optLarge")->isChecked());
    form.optLarge.Value = false;
    view.Sync();
    EXPECT_FALSE(Find<QRadioButton>("optLarge")->isChecked());
    EXPECT_EQ(Find<QRadioButton>("optLarge")->text(), "Large");
}

TEST_F(InputsTest, ArrowKeysGoThroughTheOptions) {
    view.WindowOf(form)->BringToFront();
    Settle();
    Find<QRadioButton>("optSmall")->click();
    Find<QRadioButton>("optSmall")->setFocus();
    QTest::keyClick(Find<QRadioButton>("optSmall"), Qt::Key_Down);
    EXPECT_TRUE(form.optLarge.Value);
    EXPECT_FALSE(form.optSmall.Value);
}

TEST_F(InputsTest, ACheckBoxTurnsBeforeItsHandlerRuns) {
    int seen = -1;
    form.chkOn.Click = [&](Workstation&) { seen = form.chkOn.Value; };
    Find<QCheckBox>("chkOn")->click();
    EXPECT_EQ(seen, 1);
    Find<QCheckBox>("chkOn")->click();
    EXPECT_EQ(seen, 0);
    form.chkOn.Value = 1;
    form.chkOn.Caption = "Really";
    view.Sync();
    EXPECT_TRUE(Find<QCheckBox>("chkOn")->isChecked());
    EXPECT_EQ(Find<QCheckBox>("chkOn")->text(), "Really");
}

// With a handler of their own they still do first what they do.
TEST_F(InputsTest, MouseAndSpaceBarTurnWhatHasAHandler) {
    view.WindowOf(form)->BringToFront();
    Settle();
    int seen = 0;
    form.chkOn.Click = [&](Workstation&) { seen = 10 * seen + form.chkOn.Value + 1; };
    form.optLarge.Click = [&](Workstation&) { seen = 10 * seen + (form.optLarge.Value ? 4 : 3); };
    auto* box = Find<QCheckBox>("chkOn");
    auto* option = Find<QRadioButton>("optLarge");
    const auto clickMark = [](QWidget* widget) {
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
    };
    clickMark(box);
    EXPECT_EQ(seen, 2);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(seen, 21);
    clickMark(option);
    EXPECT_EQ(seen, 214);
    EXPECT_TRUE(form.optLarge.Value);
    form.optLarge.Value = false;
    view.Sync();
    option->setFocus();
    QTest::keyClick(option, Qt::Key_Space);
    EXPECT_EQ(seen, 2144);
}

TEST_F(InputsTest, TheSpaceBarOfAListWithAHandlerIsItsOwn) {
    view.WindowOf(form)->BringToFront();
    Settle();
    int clicks = 0;
    for (Control* record :
         {static_cast<Control*>(&form.dirFolder), static_cast<Control*>(&form.cboList),
          static_cast<Control*>(&form.tabPages)}) {
        record->Click = [&](Workstation&) { ++clicks; };
    }
    for (const char* name : {"dirFolder", "cboList", "tabPages"}) {
        auto* widget = Find<QWidget>(name);
        QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
        widget->setFocus();
        QCoreApplication::sendEvent(widget, &space);
        EXPECT_EQ(clicks, 0) << name;
        if (auto* popup = QApplication::activePopupWidget()) popup->close();
    }
}

TEST_F(InputsTest, AnItemIsChosenWithTheKeys) {
    form.cboList.Click = Note("list ");
    auto* list = Find<QComboBox>("cboList");
    EXPECT_EQ(list->currentIndex(), -1);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(form.cboList.ListIndex, 1);
    EXPECT_EQ(form.cboList.Text, "two");
    EXPECT_EQ(clicked, "list list ");
}

TEST_F(InputsTest, AListShowsWhatItsRecordHolds) {
    form.cboList.ListIndex = 2;
    view.Sync();
    auto* list = Find<QComboBox>("cboList");
    EXPECT_EQ(list->currentText(), "three");
    form.cboList.Items = {"four", "five", "six"};
    view.Sync();
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->currentText(), "six");
    // A handler that does not want the choice puts it back.
    form.cboList.Click = [this](Workstation&) { form.cboList.ListIndex = 2; };
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(list->currentText(), "six");
}

TEST_F(InputsTest, WhatIsTypedIntoAListStaysAsItIs) {
    form.cboTyped.Change = Note("typed ");
    form.cboTyped.Click = Note("chosen ");
    auto* list = Find<QComboBox>("cboTyped");
    QTest::keyClicks(list->lineEdit(), "96");
    EXPECT_EQ(form.cboTyped.Text, "96");
    EXPECT_EQ(clicked, "typed typed ");
    QTest::keyClick(list->lineEdit(), Qt::Key_Return);
    view.Sync();
    EXPECT_EQ(list->currentText(), "96");
    EXPECT_EQ(list->count(), 2);
    clicked.clear();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(form.cboTyped.Text, "300");
    EXPECT_EQ(clicked, "chosen ");
    form.cboTyped.Text = "12345";
    form.cboTyped.ListIndex = -1;
    view.Sync();
    EXPECT_EQ(list->currentText(), "12345");
}

TEST_F(InputsTest, ATextOfOneLineGoesBothWays) {
    form.txtLine.Change = Note("x");
    auto* edit = Find<QLineEdit>("txtLine");
    QTest::keyClicks(edit, "ab");
    EXPECT_EQ(form.txtLine.Text, "ab");
    EXPECT_EQ(clicked, "xx");
    form.txtLine.Text = "5\xB0 from the record";
    form.txtLine.SelStart = 2;
    view.Sync();
    EXPECT_EQ(edit->text(), QStringLiteral(u"5\u00B0 from the record"));
    EXPECT_EQ(edit->cursorPosition(), 2);
    EXPECT_EQ(clicked, "xx");
}

TEST_F(InputsTest, EveryWayIntoATextOfOneLineGoesThroughItsGate) {
    auto* edit = Find<QLineEdit>("txtGated");
    QTest::keyClicks(edit, "a1B");
    EXPECT_EQ(form.txtGated.Text, "AB");
    QGuiApplication::clipboard()->setText("x1y");
    edit->setCursorPosition(1);
    edit->paste();
    EXPECT_EQ(form.txtGated.Text, "AXYB");
    EXPECT_EQ(edit->cursorPosition(), 3);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClick(edit, Qt::Key_Delete);
    edit->selectAll();
    edit->cut();
    EXPECT_EQ(edit->text(), "AXYB");
    form.txtGated.Text = "FROM RECORD";
    view.Sync();
    QGuiApplication::clipboard()->setText("x1y");
    edit->end(false);
    edit->paste();
    EXPECT_EQ(form.txtGated.Text, "FROM RECORDXY");
}

TEST_F(InputsTest, AMaskedTextTakesDigitsAndShowsWhatIsMissing) {
    auto* edit = Find<QLineEdit>("txtMasked");
    form.txtMasked.Text = "06";
    view.Sync();
    EXPECT_EQ(edit->text(), "06");
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    EXPECT_EQ(form.txtMasked.Text, "__");
    edit->setCursorPosition(0);
    QTest::keyClicks(edit, "x1");
    EXPECT_EQ(form.txtMasked.Text, "1_");
    view.Sync();
    EXPECT_EQ(edit->displayText(), "1_");
    QTest::keyClicks(edit, "23");
    EXPECT_EQ(form.txtMasked.Text, "12");
}

TEST_F(InputsTest, ADriveIsChosenAmongThoseThatAreThere) {
    form.drvDisk.Change = Note("changed ");
    auto* list = Find<QComboBox>("drvDisk");
    EXPECT_EQ(list->itemText(0), "/");
    EXPECT_EQ(list->currentText(), "/");
    form.drvDisk.Drive = "/gone";
    view.Sync();
    EXPECT_EQ(list->currentText(), "/gone");
    EXPECT_EQ(clicked, "");
    QTest::keyClick(list, Qt::Key_Home);
    EXPECT_EQ(form.drvDisk.Drive, "/");
    EXPECT_EQ(clicked, "changed ");
}

TEST_F(InputsTest, FoldersLeadUpAndDown) {
    const std::string top = own.Path("config");
    QDir(QString::fromStdString(top)).mkpath(QString::fromUtf8("H\xC3\xB6he/deep"));
    form.dirFolder.Change = Note("changed ");
    form.dirFolder.Click = Note("clicked ");
    form.dirFolder.Path = top + "/H\xF6he";
    view.Sync();
    auto* list = Find<QListWidget>("dirFolder");
    ASSERT_GE(list->count(), 4);
    EXPECT_EQ(list->item(0)->text(), "/");
    EXPECT_EQ(list->item(list->count() - 1)->text().trimmed(), "deep");
    EXPECT_EQ(list->currentItem()->text().trimmed(), QStringLiteral(u"H\u00F6he"));
    EXPECT_EQ(list->currentRow(), list->count() - 2);

    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(form.dirFolder.Path, top + "/H\xF6he") << "only where the cursor is";
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(form.dirFolder.Path, top + "/H\xF6he/deep");
    EXPECT_EQ(clicked, "changed ");
    EXPECT_EQ(list->currentItem()->text().trimmed(), "deep");
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Enter);
    EXPECT_EQ(form.dirFolder.Path, "/");
    EXPECT_EQ(list->currentRow(), 0);
    clicked.clear();
    const QRect item = list->visualItemRect(list->item(0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, item.center());
    EXPECT_EQ(clicked, "clicked ");
    list->clear();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(form.dirFolder.Path, "/");
}

TEST_F(InputsTest, APageIsSelectedBeforeItsHandlerRuns) {
    int seen = -1;
    form.tabPages.Click = [&](Workstation&) { seen = form.tabPages.Selected; };
    auto* strip = Find<QTabBar>("tabPages");
    EXPECT_EQ(strip->count(), 2);
    EXPECT_EQ(strip->tabText(1), "Two");
    QTest::keyClick(strip, Qt::Key_Right);
    EXPECT_EQ(seen, 1);
    seen = -1;
    form.tabPages.Selected = 0;
    view.Sync();
    EXPECT_EQ(strip->currentIndex(), 0);
    EXPECT_EQ(seen, -1) << "the record's own change is no click";
}

}  // namespace
}  // namespace cumeron
