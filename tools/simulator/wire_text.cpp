#include "wire_text.h"

#include <algorithm>
#include <cmath>

namespace cumeron::sim {

namespace {

constexpr double Foot = 0.3048;

long HeightIn(double metresHigh, double unit, long step, long highest) {
    return std::clamp(step * std::lround(metresHigh / unit / static_cast<double>(step)), 0L,
                      highest);
}

}  // namespace

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

std::string Digits(long value, int width, char pad) {
    const std::string text = std::to_string(value);
    const auto wanted = static_cast<std::size_t>(width);
    return text.size() >= wanted ? text : std::string(wanted - text.size(), pad) + text;
}

std::string Hex(std::int64_t value, int digits) {
    std::string text;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[(static_cast<std::uint64_t>(value) >> shift) & 15];
    return text;
}

std::string HeightField(double metresHigh, bool metres) {
    return Digits(HeightIn(metresHigh, metres ? 1 : Foot, metres ? 5 : 10, 99990), 5);
}

CloudFields FieldsOf(const Reading& reading, bool metres) {
    std::string fields[3] = {"/////", "/////", "/////"};
    if (reading.detection == '4') {
        fields[0] = HeightField(reading.verticalVisibility, metres);
        fields[1] = HeightField(reading.highestSignal, metres);
    }
    for (std::size_t i = 0; i < reading.bases.size() && i < 3; ++i)
        fields[i] = HeightField(reading.bases[i], metres);
    return {fields[0], fields[1], fields[2]};
}

std::string SkyRecords(const Reading& reading, bool metres, int records, int digits) {
    const double unit = metres ? 10 : digits == 4 ? 10 * Foot : 100 * Foot;
    const long highest = digits == 4 ? 9999 : 999;
    const auto width = static_cast<std::size_t>(digits);
    std::string text;
    for (std::size_t i = 0; i < static_cast<std::size_t>(records); ++i) {
        const SkyLayer& layer = reading.sky[i];
        text += reading.skyKnown ? Digits(layer.amount, 3, ' ') : "///";
        text += ' ';
        text += layer.amount > 0 ? Digits(HeightIn(layer.height, unit, 1, highest), digits)
                                 : std::string(width, '/');
    }
    return text;
}

char AlarmCharacter(const Reading& reading) {
    if (reading.health == Health::Alarm) return 'A';
    return reading.health == Health::Warning ? 'W' : '0';
}

std::string Checksum(std::string_view text) {
    unsigned crc = 0xFFFF;
    for (char c : text) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(c)) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000) != 0 ? ((crc << 1) ^ 0x1021) & 0xFFFF : (crc << 1) & 0xFFFF;
    }
    crc ^= 0xFFFF;
    std::string digits;
    for (int shift = 12; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(crc >> shift) & 15];
    return digits;
}

}  // namespace cumeron::sim
