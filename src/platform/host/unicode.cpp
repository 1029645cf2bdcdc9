#include "platform/host/unicode.h"

#include <algorithm>
#include <array>

namespace cumeron {
namespace {

// Characters of the bytes 80 to 9F hexadecimal; the others are their own number.
constexpr std::array<char16_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned FirstHighControl = 0x80;

QChar ToCharacter(char c) {
    const unsigned byte = static_cast<unsigned char>(c);
    const unsigned offset = byte - FirstHighControl;
    return offset < HighControls.size() ? QChar(HighControls[offset]) : QChar(byte);
}

char FromCharacter(QChar c) {
    const char16_t code = c.unicode();
    const auto* found = std::find(HighControls.begin(), HighControls.end(), code);
    if (found != HighControls.end()) {
        return static_cast<char>(FirstHighControl + (found - HighControls.begin()));
    }
    return code < 0x100 ? static_cast<char>(code) : '?';
}

}  // namespace

QString ToUnicode(std::string_view text) {
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(), ToCharacter);
    return result;
}

std::string FromUnicode(const QString& text) {
    std::string result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        result += FromCharacter(text[i]);
        if (text[i].isHighSurrogate()) ++i;
    }
    return result;
}

std::string ToFileName(std::string_view name) {
    const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
    // What is no UTF-8 does not come back as it was.
    if (QString::fromUtf8(bytes).toUtf8() == bytes) return std::string(name);
    return ToUnicode(name).toStdString();
}

std::string FromFileName(const std::string& bytes) {
    const std::string text = FromUnicode(QString::fromStdString(bytes));
    return ToFileName(text) == bytes ? text : bytes;
}

}  // namespace cumeron
