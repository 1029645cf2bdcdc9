#include "platform/host/dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "platform/host/unicode.h"

namespace cumeron {
namespace {

struct BoxKind {
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;
};

BoxKind KindOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::YesNo:
            return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
        case BoxButtons::YesNoCancel:
            return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    QMessageBox::Cancel};
        case BoxButtons::RetryCancel:
            return {QMessageBox::Warning, QMessageBox::Retry | QMessageBox::Cancel,
                    QMessageBox::Cancel};
        case BoxButtons::Ok:
            break;
    }
    return {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon IconOf(BoxSign sign, QMessageBox::Icon usual) {
    if (sign == BoxSign::Exclamation) return QMessageBox::Warning;
    return sign == BoxSign::Stop ? QMessageBox::Critical : usual;
}

Answer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

}  // namespace

Answer HostDialogs::MessageBox(const std::string& text, BoxButtons buttons, BoxSign sign) {
    const BoxKind kind = KindOf(buttons);
    if (ToErrorStream) {
        std::fprintf(stderr, "cumeron: %s\n", qPrintable(ToUnicode(text).simplified()));
        return AnswerOf(kind.escape);
    }
    QMessageBox box(IconOf(sign, kind.icon), Title ? ToUnicode(Title()) : QString(),
                    ToUnicode(text), kind.buttons, Owner ? Owner() : nullptr);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(kind.escape);
    return AnswerOf(box.exec());
}

void HostDialogs::Beep() {
    if (!ToErrorStream) QApplication::beep();
}

}  // namespace cumeron
