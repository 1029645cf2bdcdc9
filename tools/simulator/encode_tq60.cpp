// TQ60 frame, positions from 1:
//   1 STX   2 "X"   3 unit   4-7 message kind
//   12, 13 detection, twice   28-32, 34-38, 40-44 cloud fields
//   61-65 vertical visibility   67-71 highest signal   78 "m" or "f"   91 alarm
// TA01: 2048 samples of one character from 103: code 32 and one more for each 20 plot units.
// TA08: sixteen samples of 4 hexadecimal digits from 16 to 79. The fields above stand among
//   them and win; only the samples that touch no field are written (the first three, and the
//   ninth to eleventh).
// RD01: no fields, 2048 samples of one character from 8.
// CR LF EOT ends a frame.
#include <algorithm>
#include <cmath>

#include "encode.h"
#include "wire_text.h"

namespace cumeron::sim {

namespace {

constexpr std::size_t ShortLength = 210;  // of TA08, without its end
constexpr std::size_t LongLength = 102;   // of TA01 in front of its samples

void Put(std::string& line, std::size_t position, std::string_view text) {
    line.replace(position - 1, text.size(), text);
}

// A sample that was measured is never sent as 32: that code means that there is none.
std::string SampleCharacters(const Reading& reading) {
    std::string text;
    for (double value : reading.profile)
        text += static_cast<char>(std::clamp(32 + std::lround(value / 20), 33L, 126L));
    return text;
}

void PutFields(std::string& line, const InstrumentSetup& setup, const Reading& reading) {
    const CloudFields clouds = FieldsOf(reading, setup.metres);
    const CloudFields none = FieldsOf({}, setup.metres);
    const bool hidden = reading.detection == '4';
    const CloudFields& upper = hidden ? none : clouds;
    const CloudFields& lower = hidden ? clouds : none;
    Put(line, 12, std::string(2, reading.detection));
    Put(line, 28, upper.first + ' ' + upper.second + ' ' + upper.third);
    Put(line, 61, lower.first + ' ' + lower.second);
    Put(line, 78, setup.metres ? "m" : "f");
    Put(line, 91, std::string(1, AlarmCharacter(reading)));
}

void PutFreeSamples(std::string& line, const Reading& reading) {
    for (std::size_t i : {0U, 1U, 2U, 8U, 9U, 10U})
        Put(line, 16 + 4 * i,
            Hex(std::clamp(std::llround(reading.profile[i]), -32768LL, 32767LL), 4));
}

}  // namespace

std::string EncodeTq60(const InstrumentSetup& setup, const Reading& reading) {
    const std::string_view kind = setup.message->number;
    std::string line = std::string(1, STX) + "X0" + setup.message->number;
    if (kind == "RD01") {
        line += SampleCharacters(reading);
    } else {
        line.resize(kind == "TA08" ? ShortLength : LongLength, ' ');
        PutFields(line, setup, reading);
        if (kind == "TA08") PutFreeSamples(line, reading);
        if (kind == "TA01") line += SampleCharacters(reading);
    }
    return line + NewLine + EOT;
}

}  // namespace cumeron::sim
