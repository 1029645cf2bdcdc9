// The window of the terminal: keys, clipboard, bars and focus.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>

#include "platform/host/bars.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct TerminalViewTest : testing::Test, ViewBench {
    FrmTerminal& terminal = w.frmTerminal;
    std::string keys;  // what the box has asked about

    TerminalViewTest() {
        ShowMain();
        ShowForm(w, terminal);
        // The port is a matter of the core; here every key is taken.
        terminal.txtTerm.KeyPress = [this](Workstation&, int key) {
            keys += static_cast<char>(key);
            terminal.txtTerm.SelStart = static_cast<int>(terminal.txtTerm.Text.size());
            return 0;
        };
        view.Sync();
        view.WindowOf(terminal)->activateWindow();
        Settle();
    }
    QPlainTextEdit* Box() { return FindIn<QPlainTextEdit>(terminal, "txtTerm"); }
    void Holds(const std::string& text) {
        terminal.txtTerm.Text = text;
        terminal.txtTerm.SelStart = static_cast<int>(text.size());
        view.Sync();
    }
};

TEST_F(TerminalViewTest, TheTextHasTheKeysAndLiesBetweenTheBars) {
    EXPECT_EQ(QApplication::focusWidget(), Box());
    const QWidget* tools = FindIn<QWidget>(terminal, "tbrToolBar");
    const QWidget* foot = FindIn<QWidget>(terminal, "sbrStatus");
    EXPECT_EQ(tools->geometry().bottom() + 1, Box()->geometry().top());
    EXPECT_EQ(foot->geometry().top(), Box()->geometry().bottom() + 1);
    EXPECT_EQ(Box()->width(), Client(terminal)->width());
    EXPECT_EQ(Box()->fontMetrics().horizontalAdvance("iiii"),
              Box()->fontMetrics().horizontalAdvance("MMMM"));
    EXPECT_EQ(SpokenName(Box()), "Terminal");
    terminal.sbrStatus.Visible = terminal.tbrToolBar.Visible = false;
    view.Sync();
    EXPECT_EQ(tools->height(), 0);
    EXPECT_EQ(foot->height(), 0);
}

TEST_F(TerminalViewTest, TheTabulatorReachesEveryButton) {
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.append(QApplication::focusWidget()->objectName());
    }
    EXPECT_EQ(reached, (QStringList{"Openport", "Closeport", "Log", "txtTerm"}));
    for (const char* key : {"Openport", "Closeport", "Log"}) {
        auto* button = FindIn<QToolButton>(terminal, key);
        EXPECT_FALSE(button->icon().isNull()) << key;
        EXPECT_FALSE(button->toolTip().isEmpty()) << key;
    }
}

TEST_F(TerminalViewTest, EveryKeyWithACodeIsAskedAbout) {
    Holds("text");
    TypeInto(Box(), Qt::Key_A, "a");
    TypeInto(Box(), Qt::Key_Return, "\r");
    TypeInto(Box(), Qt::Key_Escape, "\x1B");
    TypeInto(Box(), Qt::Key_Backspace, "\b");
    TypeInto(Box(), Qt::Key_Delete, "\x7F");
    TypeInto(Box(), Qt::Key_X, "\x18");  // with Ctrl
    TypeInto(Box(), Qt::Key_Left, "");
    EXPECT_EQ(keys, "a\r\x1B\b\x7F\x18");
    EXPECT_EQ(Box()->toPlainText(), "text");
    EXPECT_TRUE(terminal.Visible) << "Escape is a key of the instrument";
}

TEST_F(TerminalViewTest, KeysOfTheClipboardAreTheDesktops) {
    Holds("text");
    QTest::keyClick(Box(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Box(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "text");
    EXPECT_EQ(keys, "");
}

TEST_F(TerminalViewTest, AComposedCharacterIsAKey) {
    QInputMethodEvent event;
    event.setCommitString(QString(QChar(0x00E9)));
    QCoreApplication::sendEvent(Box(), &event);
    EXPECT_EQ(keys, "\xE9");
    EXPECT_EQ(Box()->toPlainText(), "");
}

TEST_F(TerminalViewTest, APasteComesInOnePiece) {
    std::vector<std::string> pasted;
    bool takes = true;
    terminal.txtTerm.Paste = [&](Workstation&, const std::string& text) {
        pasted.push_back(text);
        return takes;
    };
    QGuiApplication::clipboard()->setText(QString::fromUtf8("GET STATUS\n\xC3\xA9"));
    Box()->paste();
    EXPECT_EQ(pasted, (std::vector<std::string>{"GET STATUS\n\xE9"}));
    EXPECT_EQ(keys, "");
    takes = false;
    Box()->paste();
    EXPECT_EQ(keys, "GET STATUS\n\xE9") << "what is not taken goes through the gate";
}

TEST_F(TerminalViewTest, AKeyPutsTheCursorBackToTheEnd) {
    Holds("first\r\nsecond");
    Box()->moveCursor(QTextCursor::Start);
    TypeInto(Box(), Qt::Key_A, "a");
    EXPECT_TRUE(Box()->textCursor().atEnd());
}

TEST_F(TerminalViewTest, BinaryDataShowsAsDotsAndStaysWhatItIs) {
    using std::string_literals::operator""s;
    const std::string data = "\0\x85\x90\xA0\xFFx"s;
    Holds(data);
    terminal.txtTerm.KeyPress = [](Workstation&, int key) { return key; };
    TypeInto(Box(), Qt::Key_Y, "y");
    EXPECT_EQ(terminal.txtTerm.Text, data + "y");
    EXPECT_EQ(Box()->toPlainText()[0], QChar(0x00B7));
}

TEST_F(TerminalViewTest, ThePanelOfAPasteComesAndGoes) {
    auto* panel = FindIn<QLabel>(terminal, "Paste");
    EXPECT_TRUE(panel->isHidden());
    terminal.sbrStatus.Paste.Text = "Pasting: 3 left";
    terminal.sbrStatus.Paste.Visible = true;
    view.Sync();
    EXPECT_FALSE(panel->isHidden());
    EXPECT_EQ(static_cast<StatusPanel*>(panel)->FullText(), "Pasting: 3 left");
}

}  // namespace
}  // namespace cumeron
