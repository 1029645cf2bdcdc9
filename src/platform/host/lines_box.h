// The text of a box of lines on its two sides: bytes in the record, where a line ends in CR LF, and
// characters in the widget, where it ends in one and control characters show as dots. Each side is
// brought in line with the other where they differ, and nowhere else. The form view calls it.
#pragma once

#include <QPlainTextEdit>
#include <string>

namespace cumeron {

// What the widget shows of the record's text.
QString ShownLines(const std::string& text);
// What the widget holds.
QString LinesOf(const QPlainTextEdit& edit);
// Puts the text into the widget; what stays is not touched, so that adding to a long text costs no
// more than adding to a short one, and a selection outlives it.
void ShowLines(const std::string& text, QPlainTextEdit& edit);
// The record's text after what the operator did to the widget. Bytes that were not touched stay
// what they were, whatever the widget shows for them.
std::string TakeLines(const QPlainTextEdit& edit, const std::string& before);
// Puts the cursor behind so many bytes of the record's text, and that place into sight; not while
// something is selected, since the operator is about to copy it.
void PutCursor(const std::string& text, int position, QPlainTextEdit& edit);

}  // namespace cumeron
