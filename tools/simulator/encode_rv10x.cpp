// RV10X frame, positions from 1:
//   1 STX   2-3 CR LF   4 detection   5 alarm   8-12 first field   14-18 highest signal
//   20-24 second field   32-41 status, ten flags   43-106 64 hexadecimal digits   107-108 CR LF
// then in message 6 a sky condition line of four records, and ETX CR LF. A digit holds the hit
// flags of two steps of 100 ft: 8 for the lower, 1 for the upper one. Raw data stand in lines of
// 16 samples of 4 digits in place of the flags.
#include <algorithm>
#include <cmath>

#include "encode.h"
#include "wire_text.h"

namespace cumeron::sim {

namespace {

constexpr double Step = 30.48;   // metres, one flag
constexpr double HitDepth = 90;  // metres that a cloud base fills with hits
constexpr std::size_t Flags = 128;

bool IsHit(const Reading& reading, double height) {
    if (reading.detection == '4') return height <= reading.verticalVisibility;
    return std::any_of(reading.bases.begin(), reading.bases.end(), [height](double base) {
        return height + Step > base && height <= base + HitDepth;
    });
}

std::string HitDigits(const Reading& reading) {
    std::string text;
    for (std::size_t i = 0; i < Flags; i += 2) {
        const auto at = static_cast<double>(i);
        const int lower = IsHit(reading, at * Step) ? 8 : 0;
        const int upper = IsHit(reading, (at + 1) * Step) ? 1 : 0;
        text += Hex(lower + upper, 1);
    }
    return text;
}

std::string RawLines(const Reading& reading) {
    std::string text;
    for (std::size_t i = 0; i < reading.profile.size(); ++i) {
        text += Hex(std::clamp(std::llround(reading.profile[i]), -32768LL, 32767LL), 4);
        if (i % 16 == 15 && i + 1 < reading.profile.size()) text += NewLine;
    }
    return text;
}

// This model tells two bases at most; its detection status 3 is the vertical visibility.
char DetectionOf(const Reading& reading) {
    if (reading.detection == '4') return '3';
    return std::min(reading.detection, '2');
}

}  // namespace

std::string StatusWordRv10x(const InstrumentSetup& setup, const Reading& reading) {
    std::string flags(10, '0');
    if (reading.health == Health::Alarm) flags[0] = '1';    // hardware
    if (reading.health == Health::Warning) flags[2] = '1';  // laser power low
    if (reading.blowerOn) flags[5] = '1';
    if (reading.heaterOn) flags[6] = '1';
    if (setup.metres) flags[7] = '1';
    return flags;
}

std::string EncodeRv10x(const InstrumentSetup& setup, const Reading& reading) {
    const MessageRow& message = *setup.message;
    const CloudFields clouds = FieldsOf(reading, setup.metres);
    const bool hidden = reading.detection == '4';
    const std::string none = "/////";
    std::string text = std::string(1, STX) + NewLine;
    text += std::string(1, DetectionOf(reading)) + AlarmCharacter(reading) + "  " + clouds.first +
            ' ' + (hidden ? clouds.second : none) + ' ' + (hidden ? none : clouds.second) +
            Blanks(7) + StatusWordRv10x(setup, reading) + ' ';
    text += std::string_view(message.number) == "R" ? RawLines(reading) : HitDigits(reading);
    text += NewLine;
    if (message.skyRecords > 0)
        text += SkyRecords(reading, setup.metres, message.skyRecords, message.skyDigits) + NewLine;
    return text + ETX + NewLine;
}

}  // namespace cumeron::sim
