// The envelope of a frame. A KN frame, positions from 1:
//
//     1     SOH, the FrameStart
//     2     "KN", the header; the checksum counts from here ...
//     n     ETX ... to here
//     n+1   the checksum, four hexadecimal digits, small letters
//     n+5   EOT CR LF, the FrameEnd
//
// The RV family has ETX CR LF behind its text and no checksum, RV10X begins with STX, and TQ60
// ends in CR LF EOT.
#include <array>

#include "intake/intake.h"

namespace cumeron {
namespace {

constexpr std::size_t ChecksumDigits = 4;
constexpr std::size_t EnvelopeTail = ChecksumDigits + 3;  // with EOT CR LF

// The longest messages have 7700 characters: eight of them are taken at a time, each through a
// table of its own, so that no look-up waits for the one before.
constexpr std::size_t Stride = 8;
using ChecksumTable = std::array<std::uint16_t, 256>;

// Table n: what a character becomes with n characters of code 0 behind it.
constexpr auto ChecksumTables = [] {
    std::array<ChecksumTable, Stride> tables{};
    for (unsigned code = 0; code < 256; ++code) {
        unsigned rest = code << 8;
        for (ChecksumTable& table : tables) {
            for (int bit = 0; bit < 8; ++bit)
                rest = ((rest & 0x8000u) ? (rest << 1) ^ 0x1021u : rest << 1) & 0xFFFFu;
            table[code] = static_cast<std::uint16_t>(rest);
        }
    }
    return tables;
}();

unsigned CodeOf(char character) { return static_cast<unsigned char>(character); }

// The rest lies over the first two characters of the stride.
unsigned ChecksumOfStride(unsigned rest, std::string_view stride) {
    unsigned sum = ChecksumTables[Stride - 1][CodeOf(stride[0]) ^ rest >> 8] ^
                   ChecksumTables[Stride - 2][CodeOf(stride[1]) ^ (rest & 0xFFu)];
    for (std::size_t i = 2; i < Stride; ++i)
        sum ^= ChecksumTables[Stride - 1 - i][CodeOf(stride[i])];
    return sum;
}

// An empty mark, before a model is loaded, is found nowhere.
std::size_t Find(std::string_view text, std::string_view mark) {
    return mark.empty() ? text.npos : text.find(mark);
}

// kept: only small letters agree; no instrument sends capitals.
std::array<char, ChecksumDigits> DigitsOf(std::uint16_t checksum) {
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[checksum >> 12], digits[checksum >> 8 & 15], digits[checksum >> 4 & 15],
            digits[checksum & 15]};
}

bool EndIsRight(std::string_view frame, const ModelTable& model) {
    if (model.family == Family::TQ60) return frame.back() == model.FrameEnd.back();
    return frame.size() >= 3 && frame[frame.size() - 3] == model.FrameEnd.front();
}

bool ChecksumIsRight(std::string_view body) {
    if (body.size() < EnvelopeTail) return false;
    const std::size_t counted = body.size() - EnvelopeTail;
    const auto wanted = DigitsOf(FrameChecksum(body.substr(0, counted)));
    return body.substr(counted, ChecksumDigits) == std::string_view(wanted.data(), wanted.size());
}

}  // namespace

FrameSearch FindFrame(std::string_view buffer, const ModelTable& model) {
    const std::size_t start = Find(buffer, model.FrameStart);
    if (start == buffer.npos) return {};
    // From the front of the buffer and not from the start: the tail of a frame whose start was
    // lost makes the text before the start go first, and the search wait for the next bytes.
    const std::size_t end = Find(buffer, model.FrameEnd);
    if (end == buffer.npos || end < start) return {Found::Beginning, start, 0};
    return {Found::Frame, start, end - start + model.FrameEnd.size()};
}

FrameCheck CheckFrame(std::string_view frame, const ModelTable& model) {
    const std::size_t header = Find(frame, model.header);
    if (header == frame.npos) return {FrameVerdict::NoHeader, {}};
    const std::string_view body = frame.substr(header);
    if (!EndIsRight(frame, model)) return {FrameVerdict::BadEnd, body};
    if (model.family == Family::KN && !ChecksumIsRight(body))
        return {FrameVerdict::BadChecksum, body};
    return {FrameVerdict::Good, body};
}

std::uint16_t FrameChecksum(std::string_view text) {
    unsigned rest = 0xFFFF;
    for (; text.size() >= Stride; text.remove_prefix(Stride)) rest = ChecksumOfStride(rest, text);
    for (const char character : text)
        rest = (rest << 8 & 0xFFFFu) ^ ChecksumTables[0][CodeOf(character) ^ rest >> 8];
    return static_cast<std::uint16_t>(~rest);
}

}  // namespace cumeron
