#include "platform/host/lines_box.h"

#include <gtest/gtest.h>

#include <QTextDocument>

namespace cumeron {
namespace {

using std::string_literals::operator""s;

TEST(ShowLines, ShowsEveryByteOnce) {
    const std::pair<std::string, QString> cases[] = {
        {"", ""},
        {"a\r\nb", "a\nb"},
        {"a\rb\r", "a\nb\n"},
        {"\0\x08\x1B"s, QStringLiteral(u"\u00B7\u00B7\u00B7")},
        {"\x7F\x81\x9D", QStringLiteral(u"\u00B7\u00B7\u00B7")},
        {"\x80\xA0\xE4\xFF", QStringLiteral(u"\u20AC\u00A0\u00E4\u00FF")},
    };
    for (const auto& [text, shown] : cases) {
        QPlainTextEdit edit;
        ShowLines(text, edit);
        EXPECT_EQ(LinesOf(edit), shown);
        EXPECT_EQ(TakeLines(edit, text), text) << "untouched bytes stay what they were";
    }
}

TEST(ShowLines, FollowsEveryChangeOfTheRecord) {
    const char* texts[] = {"",      "a",           "a\r\nb", "a\r\nbc",  "a\r\nb",  "a\r",
                           "a\r\n", "x\r\na\r\ny", "y",      "yyyyyyyy", "yyyyyyy", "\r\n\r\n",
                           ""};
    QPlainTextEdit edit;
    for (const char* text : texts) {
        ShowLines(text, edit);
        EXPECT_EQ(LinesOf(edit), ShownLines(text));
    }
}

TEST(ShowLines, ASelectionOutlivesACutHead) {
    QPlainTextEdit edit;
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + "\r\n";
    ShowLines(text, edit);
    QTextCursor cursor = edit.document()->find("line 777");
    edit.setTextCursor(cursor);
    text.erase(0, 4096);
    text += "added";
    ShowLines(text, edit);
    EXPECT_EQ(LinesOf(edit), ShownLines(text));
    EXPECT_EQ(edit.textCursor().selectedText(), "line 777");
}

// The work of the widget is that of the characters that change, however much it holds.
TEST(ShowLines, AddsToALongTextWithoutTouchingIt) {
    QPlainTextEdit edit;
    std::string text(16000, 'x');
    ShowLines(text, edit);
    int changed = 0;
    QObject::connect(edit.document(), &QTextDocument::contentsChange, &edit,
                     [&](int, int removed, int added) { changed += removed + added; });
    const std::string block = "thirty characters of an answer\r\n";
    for (int i = 0; i < 100; ++i) {
        text += block;
        ShowLines(text, edit);
    }
    EXPECT_EQ(LinesOf(edit), ShownLines(text));
    // An end of line counts a few times over, since it parts two paragraphs.
    EXPECT_LE(changed, 100 * 2 * static_cast<int>(block.size()));
    changed = 0;
    text.pop_back();
    text.pop_back();
    ShowLines(text, edit);
    EXPECT_LE(changed, 100);
}

TEST(ShowLines, ASelectionOutlivesWhatIsAdded) {
    QPlainTextEdit edit;
    ShowLines("one two", edit);
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(4);
    cursor.setPosition(7, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    ShowLines("one two three", edit);
    PutCursor("one two three", 13, edit);
    EXPECT_EQ(edit.textCursor().selectedText(), "two");
}

TEST(PutCursor, CountsALineEndOnce) {
    const struct {
        int position, shown;
    } cases[] = {{-1, 0}, {0, 0}, {1, 1}, {3, 2}, {4, 3}, {99, 3}};
    for (const auto& c : cases) {
        QPlainTextEdit edit;
        ShowLines("a\r\nb", edit);
        PutCursor("a\r\nb", c.position, edit);
        EXPECT_EQ(edit.textCursor().position(), c.shown) << c.position;
    }
}

TEST(TakeLines, ChangesOnlyWhatTheOperatorChanged) {
    const std::string before = "a\0\r\nb\xA0\rc"s;
    const struct {
        const char* what;
        int from, to;
        const char* put;
        std::string taken;
    } cases[] = {
        {"typed in front", 0, 0, "x", "xa\0\r\nb\xA0\rc"s},
        {"typed at the end", 7, 7, "x", "a\0\r\nb\xA0\rcx"s},
        {"a new line", 3, 3, "\n", "a\0\r\n\r\nb\xA0\rc"s},
        {"a line end taken away", 2, 3, "", "a\0b\xA0\rc"s},
        {"a control character taken away", 1, 2, "", "a\r\nb\xA0\rc"s},
        {"all replaced", 0, 7, "x", "x"},
    };
    for (const auto& c : cases) {
        QPlainTextEdit edit;
        ShowLines(before, edit);
        QTextCursor cursor(edit.document());
        cursor.setPosition(c.from);
        cursor.setPosition(c.to, QTextCursor::KeepAnchor);
        cursor.insertText(c.put);
        EXPECT_EQ(TakeLines(edit, before), c.taken) << c.what;
    }
}

}  // namespace
}  // namespace cumeron
