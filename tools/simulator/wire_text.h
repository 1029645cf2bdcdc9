// Pieces of text that several families write alike: numbers, height fields, sky records, the
// checksum. Called by the encoders only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "instrument.h"

namespace cumeron::sim {

inline constexpr char SOH = 1, STX = 2, ETX = 3, EOT = 4;
inline constexpr const char* NewLine = "\r\n";

std::string Blanks(std::size_t count);

// value as at least `width` digits, padded with `pad`.
std::string Digits(long value, int width, char pad = '0');

// The lowest `digits` hexadecimal digits in capitals; negative values in two's complement.
std::string Hex(std::int64_t value, int digits);

// Five characters: the height in the unit of the message, to the nearest 10 ft or 5 m.
std::string HeightField(double metresHigh, bool metres);

// The three cloud fields, "/////" where there is nothing. Vertical visibility takes the first
// and the highest signal the second.
struct CloudFields {
    std::string first, second, third;
};
CloudFields FieldsOf(const Reading& reading, bool metres);

// `records` records of 3 characters of amount, a blank and `digits` characters of height: four
// digits count tens of feet or of metres, three digits hundreds of feet or tens of metres.
std::string SkyRecords(const Reading& reading, bool metres, int records, int digits);

char AlarmCharacter(const Reading& reading);

// CRC-16, polynomial 1021, start FFFF, inverted at the end, as four digits in lower case.
std::string Checksum(std::string_view text);

}  // namespace cumeron::sim
