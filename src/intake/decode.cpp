// The Payload of a profile in rows, offsets from 0; a profile in one block stands the same way,
// without headings and line ends, behind the start offset of its message:
//
//     row r   69 r        heading, 3 characters
//             69 r + 3    16 samples of 4 hexadecimal digits
//             69 r + 67   CR LF
//
// RV10X has hit flags instead, two to the hexadecimal digit, from offset 2 on.
#include "intake/decode.h"

#include <algorithm>
#include <array>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::uint8_t NoDigit = 0xFF;
constexpr auto DigitTable = [] {
    std::array<std::uint8_t, 256> table{};
    table.fill(NoDigit);
    for (unsigned i = 0; i < 10; ++i) table['0' + i] = static_cast<std::uint8_t>(i);
    for (unsigned i = 0; i < 6; ++i)
        table['a' + i] = table['A' + i] = static_cast<std::uint8_t>(10 + i);
    return table;
}();

std::uint8_t DigitOf(char character) { return DigitTable[static_cast<unsigned char>(character)]; }

struct HexNumber {
    std::uint32_t value = 0;
    int digits = 0;
};

// As far as there are digits; at most 7 of them.
HexNumber ReadHex(std::string_view text) {
    HexNumber number;
    for (const char character : text) {
        const std::uint8_t digit = DigitOf(character);
        if (digit == NoDigit) break;
        number.value = number.value << 4 | digit;
        ++number.digits;
    }
    return number;
}

// 4 digits are a signed 16-bit number, any other count a positive one.
std::int32_t PlainSample(std::string_view digits) {
    const HexNumber number = ReadHex(digits);
    if (number.digits == 4) return static_cast<std::int16_t>(number.value);
    return static_cast<std::int32_t>(number.value);
}

// The block of the KN family: a leading F stands for "ffff", so that five digits are 20 bits of a
// two's complement. kept: only F carries the sign, 8 to E in front stay positive; with fewer
// digits behind the F the number has no sign bit and is positive too.
std::int32_t SignedSample(std::string_view digits) {
    // Nearly every sample is five good digits, and a replay reads millions of them.
    if (digits.size() == 5) {
        const std::uint32_t first = DigitOf(digits[0]), second = DigitOf(digits[1]),
                            third = DigitOf(digits[2]), fourth = DigitOf(digits[3]),
                            fifth = DigitOf(digits[4]);
        if ((first | second | third | fourth | fifth) <= 15) {
            const std::uint32_t sign = first == 15 ? 0xFFF00000U : 0;
            return static_cast<std::int32_t>(sign | first << 16 | second << 12 | third << 8 |
                                             fourth << 4 | fifth);
        }
    }
    const HexNumber number = ReadHex(digits);
    if (digits.empty() || DigitOf(digits.front()) != 15)
        return static_cast<std::int32_t>(number.value);
    return static_cast<std::int32_t>(0xFFFU << 4 * number.digits | number.value);
}

// One character to the sample, steps of 20 counts from the blank on.
std::int32_t CharacterSample(std::string_view digits) {
    if (digits.empty()) return 0;
    return (static_cast<unsigned char>(digits.front()) - 32) * 20;
}

struct Layout {
    std::int16_t id;
    std::int16_t lastRow;
    std::int32_t samples;  // in a row
    std::size_t digits;    // of a sample
    std::size_t start;     // offset of the samples when there is only the one row
};

constexpr std::int32_t SamplesOfRow = 16;
constexpr std::size_t DigitsOfRow = 4;
constexpr std::size_t RowLength = 69;
constexpr std::size_t RowHeading = 3;

constexpr Layout Layouts[] = {
    {3111, 0, 770, 5, 10},  {3114, 0, 770, 5, 10},  {3112, 0, 385, 5, 10}, {3113, 0, 1500, 5, 10},
    {3116, 0, 1540, 5, 10}, {3121, 0, 770, 5, 47},  {3124, 0, 770, 5, 47}, {3122, 0, 385, 5, 47},
    {3123, 0, 1500, 5, 47}, {3126, 0, 1540, 5, 52}, {3115, 2, 16, 4, 0},   {3118, 2, 16, 4, 0},
    {3125, 2, 16, 4, 0},    {3128, 2, 16, 4, 0},    {16, 15, 16, 4, 0},    {38, 0, 16, 4, 10},
    {39, 0, 2048, 1, 97},
};

// A message that is not in the table bears the number of its last row as its id.
Layout LayoutOf(std::int16_t messageId) {
    for (const Layout& layout : Layouts)
        if (layout.id == messageId) return layout;
    return {messageId, messageId, SamplesOfRow, DigitsOfRow, 0};
}

enum class Reading { Plain, Signed, Character };

Reading ReadingOf(const ModelTable& model, const Layout& layout) {
    if (layout.id == 39 || layout.id == 40) return Reading::Character;
    if (model.family == Family::KN && layout.lastRow == 0) return Reading::Signed;
    return Reading::Plain;
}

template <class Sample>
void ReadSamples(std::string_view text, std::size_t digits, std::span<std::int32_t> samples,
                 Sample sample) {
    std::size_t offset = 0;
    for (std::int32_t& element : samples) {
        const std::size_t from = std::min(offset, text.size());
        element = sample(text.substr(from, digits));
        offset += digits;
    }
}

void ReadRow(std::string_view text, const Layout& layout, Reading reading,
             std::span<std::int32_t> samples) {
    switch (reading) {
        case Reading::Plain:
            return ReadSamples(text, layout.digits, samples, PlainSample);
        case Reading::Signed:
            return ReadSamples(text, layout.digits, samples, SignedSample);
        case Reading::Character:
            return ReadSamples(text, layout.digits, samples, CharacterSample);
    }
}

// The quotient to the nearest integer, halves to even; the divisor is positive.
std::int64_t DivideRounded(std::int64_t number, std::int64_t divisor) {
    std::int64_t quotient = number / divisor;
    std::int64_t rest = number % divisor;
    if (rest < 0) {
        rest += divisor;
        --quotient;
    }
    if (2 * rest > divisor || (2 * rest == divisor && quotient % 2 != 0)) ++quotient;
    return quotient;
}

// Where the receiver was blind the curve goes on below zero, the deeper the higher up.
void FillBlindSpots(std::span<std::int32_t> profile, std::int32_t samples) {
    constexpr std::int32_t lowest = 20;
    if (samples < lowest) return;
    const auto count = static_cast<std::size_t>(samples);
    if (profile.size() <= count) throw RuntimeError(9);
    std::int64_t sum = 0;
    for (std::size_t i = 1; i <= count; ++i) sum += profile[i];
    for (std::int32_t i = lowest; i <= samples; ++i) {
        std::int32_t& element = profile[static_cast<std::size_t>(i)];
        if (element >= 1) continue;
        // -(sum / samples) * (1 + 2 i / samples), over one divisor to stay exact
        const std::int64_t value =
            DivideRounded(-sum * (samples + 2 * i), std::int64_t{samples} * samples);
        element = ToInt32(static_cast<double>(value));
    }
}

// Samples up to the end of the profile; raises 9 when there are more.
void StoreRow(std::string_view text, const Layout& layout, Reading reading,
              std::span<std::int32_t> profile, std::size_t index) {
    const auto wanted = static_cast<std::size_t>(layout.samples);
    const std::size_t room = profile.size() - std::min(index, profile.size());
    ReadRow(text, layout, reading, profile.subspan(profile.size() - room, std::min(wanted, room)));
    if (room < wanted) throw RuntimeError(9);
}

// The number of samples read.
std::size_t DecodeRows(const ModelTable& model, std::string_view payload,
                       std::span<std::int32_t> profile, std::int16_t messageId) {
    const Layout layout = LayoutOf(messageId);
    const Reading reading = ReadingOf(model, layout);
    std::size_t index = 0;
    for (int row = 0; row <= layout.lastRow; ++row) {
        const std::size_t offset = layout.lastRow == 0
                                       ? layout.start
                                       : static_cast<std::size_t>(row) * RowLength + RowHeading;
        const auto text = payload.substr(std::min(offset, payload.size()));
        StoreRow(text, layout, reading, profile, index);
        index += static_cast<std::size_t>(layout.samples);
        if (reading == Reading::Character) FillBlindSpots(profile, layout.samples);
        if (index >= static_cast<std::size_t>(model.ProfileLength)) break;
    }
    return index;
}

// A hit flag as the graphs take it: as strong as a signal can be, or nothing.
constexpr std::int32_t Hit = 1000;

// kept: no plain bit test. The first flag stands for the two upper bits of a digit together and
// takes only the higher one away, so that 12 to 15 set the second flag as well.
void DecodeHitFlags(std::string_view payload, std::span<std::int32_t> profile) {
    constexpr std::size_t firstDigit = 2;
    constexpr std::size_t digits = 64;
    if (profile.size() < 2 * digits) throw RuntimeError(9);
    for (std::size_t i = 0; i < digits; ++i) {
        int value = 0;
        if (firstDigit + i < payload.size()) {
            const std::uint8_t digit = DigitOf(payload[firstDigit + i]);
            if (digit != NoDigit) value = digit;
        }
        profile[2 * i] = value >= 4 ? Hit : 0;
        if (value >= 8) {
            value -= 8;
        } else if (value >= 4) {
            value -= 4;
        }
        profile[2 * i + 1] = value >= 1 ? Hit : 0;
    }
}

std::string InOtherUnit(const std::string& text, bool toMetres) {
    if (!IsNumeric(text)) return text;
    const double height = ToDouble(text);
    if (height == 0) return text;
    // kept: 3 to 10 and not the length of a foot, since the instrument's own steps of 100 ft and
    // 30 m are told as the same height.
    const double converted = toMetres ? height * 3 / 10 : height * 10 / 3;
    return PadLeft(NumberText(RoundHalfEven(converted)), 5, '0');
}

}  // namespace

void DecodeProfile(const Workstation& w, std::string_view payload, std::span<std::int32_t> profile,
                   std::int16_t messageId) {
    if (messageId == 99) return;
    if (messageId == 3 || messageId == 4) return DecodeHitFlags(payload, profile);
    const std::size_t used = DecodeRows(w.model, payload, profile, messageId);
    const auto end = static_cast<std::size_t>(w.model.ProfileLength) + 1;
    if (used >= end) return;
    if (profile.size() < end) throw RuntimeError(9);
    std::fill(profile.begin() + static_cast<std::ptrdiff_t>(used),
              profile.begin() + static_cast<std::ptrdiff_t>(end), 0);
}

void DecodeStatusDigits(Workstation& w, std::string_view word) {
    auto& digits = w.readings.StatusDigits;
    const auto count = std::min(static_cast<std::size_t>(w.model.statusDigits), digits.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t digit = i < word.size() ? DigitOf(word[i]) : NoDigit;
        digits[i] = digit == NoDigit ? 0 : digit;
    }
}

void ConvertHistoryUnits(Workstation& w) {
    for (GraphRecord& record : w.graphs.GraphHistory)
        for (std::size_t i = 0; i < 3; ++i)
            record.CloudValue[i] = InOtherUnit(record.CloudValue[i], w.settings.Units == 1);
}

}  // namespace cumeron
