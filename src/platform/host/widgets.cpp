#include "platform/host/widgets.h"

#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <utility>

#include "platform/host/colours.h"
#include "platform/host/unicode.h"

namespace cumeron {
namespace {

constexpr int SmallestFont = 8;  // pixels
constexpr char16_t ControlDot = 0x00B7;
constexpr int BackspaceCode = 8, DeleteCode = 127;

bool IsKept(char16_t c) { return c == '\r' || c == '\n' || c == '\t'; }

bool IsControl(char16_t c) { return c < ' ' || (c >= 0x7F && c < 0xA0); }

// A key that would change the text, as the code of the gate; 0 for all others.
int CodeOfKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace) return BackspaceCode;
    if (event.key() == Qt::Key_Delete) return DeleteCode;
    for (const auto key : {QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll}) {
        if (event.matches(key)) return 0;
    }
    const QString text = event.text();
    return text.isEmpty() ? 0 : static_cast<unsigned char>(FromUnicode(text)[0]);
}

}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SurfaceWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const std::uint32_t* pixels = record->Pixels();
    const int columns = record->PixelWidth();
    const int rows = record->PixelHeight();
    painter.fillRect(rect(), ToColour(record->BackColor));
    if (columns > 0 && rows > 0) {
        const QImage image(reinterpret_cast<const uchar*>(pixels), columns, rows, columns * 4,
                           QImage::Format_RGB32);
        painter.drawImage(QRect(0, 0, columns, rows), image);
    }
    if (hasFocus()) painter.fillRect(rect(), palette().color(QPalette::Highlight));
}

void PictureWidget::SetPicture(const QString& name) {
    QFile file(":/icons/" + name + ".svg");
    drawing = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    if (drawing.isEmpty()) return;
    QByteArray coloured = drawing;
    coloured.replace("currentColor", palette().color(QPalette::WindowText).name().toLatin1());
    QPainter painter(this);
    QSvgRenderer renderer(coloured);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, rect());
}

void FittingLabel::SetFontPixels(int pixels, bool bold) {
    wantedPixels = pixels;
    QFont face = font();
    face.setBold(bold);
    setFont(face);
    Fit();
}

void FittingLabel::Fit() {
    QFont face = font();
    for (int pixels = wantedPixels; pixels >= SmallestFont; --pixels) {
        face.setPixelSize(pixels);
        const QFontMetrics metrics(face);
        if (metrics.horizontalAdvance(text()) <= width() && metrics.ascent() <= height()) break;
    }
    setFont(face);
}

GatedTextEdit::GatedTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
}

void GatedTextEdit::keyPressEvent(QKeyEvent* event) {
    const int code = Gate ? CodeOfKey(*event) : 0;
    if (code == 0) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    const int used = Gate(code);
    if (used == code) {
        QPlainTextEdit::keyPressEvent(event);
    } else if (used != 0) {
        insertPlainText(ToUnicode(std::string(1, static_cast<char>(used))));
    }
}

void GatedTextEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (!Gate || event->commitString().isEmpty()) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    const QString composed = event->commitString();
    event->setCommitString(QString());
    QPlainTextEdit::inputMethodEvent(event);
    InsertThroughGate(composed);
}

void GatedTextEdit::insertFromMimeData(const QMimeData* source) {
    if (PasteGate && PasteGate(FromUnicode(source->text()))) return;
    if (Gate) {
        InsertThroughGate(source->text());
    } else {
        QPlainTextEdit::insertFromMimeData(source);
    }
}

void GatedTextEdit::InsertThroughGate(const QString& text) {
    std::string passed;
    for (const char c : FromUnicode(text)) {
        if (const int used = Gate(static_cast<unsigned char>(c))) passed += static_cast<char>(used);
    }
    insertPlainText(ToUnicode(passed));
}

LineGate::LineGate(QLineEdit* line, std::function<int(int)> passes)
    : QObject(line), edit(line), gate(std::move(passes)), before(line->text()) {
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this, &LineGate::PassInserted);
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!edit->isModified()) before = text;  // set by the program
    });
}

bool LineGate::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int code = CodeOfKey(*static_cast<QKeyEvent*>(event));
    const int used = code != 0 ? gate(code) : 0;
    keyPassed = used == code;
    if (keyPassed || code == 0) return false;
    if (used != 0) {
        keyPassed = true;
        edit->insert(ToUnicode(std::string(1, static_cast<char>(used))));
    }
    return true;
}

void LineGate::PassInserted() {
    const QString text = edit->text();
    if (std::exchange(keyPassed, false)) {
        before = text;
        return;
    }
    const auto shorter = std::min(before.size(), text.size());
    qsizetype start = 0;
    while (start < shorter && before[start] == text[start]) ++start;
    qsizetype end = 0;  // what both end with
    while (end < shorter - start &&
           before[before.size() - 1 - end] == text[text.size() - 1 - end]) {
        ++end;
    }
    std::string passed;
    for (const char c : FromUnicode(text.mid(start, text.size() - start - end))) {
        if (const int used = gate(static_cast<unsigned char>(c))) passed += static_cast<char>(used);
    }
    const bool removed = before.size() > start + end;
    const bool kept = removed && text.size() == start + end && gate(DeleteCode) == 0;
    const QString result = kept ? before : text.left(start) + ToUnicode(passed) + text.right(end);
    before = result;
    if (result == text) return;
    edit->setText(result);
    edit->setCursorPosition(static_cast<int>(start + static_cast<qsizetype>(passed.size())));
}

QString WithDotsForControls(QString text) {
    for (QChar& c : text) {
        if (IsControl(c.unicode()) && !IsKept(c.unicode())) c = QChar(ControlDot);
    }
    return text;
}

}  // namespace cumeron
