#include "platform/host/lines_box.h"

#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "platform/host/unicode.h"
#include "platform/host/widgets.h"

namespace cumeron {
namespace {

// The stretch in which two texts differ: what is before it and behind it is the same in both.
struct Difference {
    qsizetype before;
    qsizetype behind;
};

Difference Compare(const QString& one, const QString& other) {
    const qsizetype shorter = std::min(one.size(), other.size());
    const auto before = std::mismatch(one.begin(), one.begin() + shorter, other.begin());
    const qsizetype same = before.first - one.begin();
    const auto behind =
        std::mismatch(one.rbegin(), one.rbegin() + (shorter - same), other.rbegin());
    return {same, behind.first - one.rbegin()};
}

// Where in the record's text the character stands that the widget shows at this place.
std::size_t PlaceInRecord(const std::string& text, qsizetype shown) {
    std::size_t at = 0;
    for (; shown > 0 && at < text.size(); --shown) {
        at += text.compare(at, 2, "\r\n") == 0 ? 2 : 1;
    }
    return at;
}

// How many characters have gone from the front of the text, when what is left of it begins the
// wanted one; else 0.
qsizetype CutFromHead(const QString& now, const QString& wanted) {
    constexpr qsizetype longestProbe = 1024;
    const QString probe = wanted.left(longestProbe);
    for (qsizetype at = now.indexOf(probe); at > 0; at = now.indexOf(probe, at + 1)) {
        if (wanted.startsWith(QStringView(now).mid(at))) return at;
    }
    return 0;
}

}  // namespace

QString ShownLines(const std::string& text) {
    return WithDotsForControls(ToUnicode(text)).replace("\r\n", "\n").replace('\r', '\n');
}

// The plain text would give a blank for a blank that does not break.
QString LinesOf(const QPlainTextEdit& edit) {
    return edit.document()->toRawText().replace(QChar::ParagraphSeparator, '\n');
}

void ShowLines(const std::string& text, QPlainTextEdit& edit) {
    const QString wanted = ShownLines(text);
    QString now = LinesOf(edit);
    if (wanted == now) return;
    if (const qsizetype gone = CutFromHead(now, wanted); gone > 0) {
        // Apart from what is added behind, so that a selection in what stays is kept.
        QTextCursor head(edit.document());
        head.setPosition(static_cast<int>(gone), QTextCursor::KeepAnchor);
        head.removeSelectedText();
        now.remove(0, gone);
    }
    const Difference difference = Compare(now, wanted);
    QTextCursor cursor(edit.document());
    cursor.setPosition(static_cast<int>(difference.before));
    cursor.setPosition(static_cast<int>(now.size() - difference.behind), QTextCursor::KeepAnchor);
    const QTextCursor selected = edit.textCursor();
    const int anchor = selected.anchor();
    const int end = selected.position();
    cursor.insertText(
        wanted.mid(difference.before, wanted.size() - difference.before - difference.behind));
    // What is added right behind a selection does not become a part of it.
    if (anchor == end || std::max(anchor, end) != difference.before) return;
    QTextCursor restored = edit.textCursor();
    restored.setPosition(anchor);
    restored.setPosition(end, QTextCursor::KeepAnchor);
    edit.setTextCursor(restored);
}

std::string TakeLines(const QPlainTextEdit& edit, const std::string& before) {
    const QString shown = ShownLines(before);
    const QString now = LinesOf(edit);
    const Difference difference = Compare(shown, now);
    const QString put =
        now.mid(difference.before, now.size() - difference.before - difference.behind);
    return before.substr(0, PlaceInRecord(before, difference.before)) +
           FromUnicode(QString(put).replace("\n", "\r\n")) +
           before.substr(PlaceInRecord(before, shown.size() - difference.behind));
}

void PutCursor(const std::string& text, int position, QPlainTextEdit& edit) {
    QTextCursor cursor = edit.textCursor();
    if (cursor.hasSelection()) return;
    const auto before = static_cast<std::size_t>(std::max(position, 0));
    const qsizetype place = ShownLines(text.substr(0, before)).size();
    cursor.setPosition(static_cast<int>(std::min(place, LinesOf(edit).size())));
    edit.setTextCursor(cursor);
}

}  // namespace cumeron
