// KN frame, positions from 1:
//   1 SOH   2-3 "KN"   4-7 unit and version   8-9 message number   10 STX   11-12 CR LF
//   13 detection   14 alarm   16-20, 22-26, 28-32 cloud fields   34-45 status word   46-47 CR LF
// then the sky condition line of messages 2x: 37 characters with four records, in message 26
// 42 with five. Then the line of measuring conditions; at 48 and on without a sky condition:
//   54-55 metres between samples   70-72 window, percent   74-76 angle   92-94 sum of the
//   backscatter   95-96 CR LF
// then the samples of 5 hexadecimal digits in one line, CR LF, ETX, the checksum from "KN"
// through ETX, EOT CR LF.
// Message 25 ends behind its sky condition. Message 28 has its five records as the last line;
// the four-record line stands where message 21 has it, and so do the measuring conditions.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "encode.h"
#include "wire_text.h"

namespace cumeron::sim {

namespace {

constexpr std::int64_t Bit(int number) { return std::int64_t{1} << number; }

std::string ConditionsLine(const InstrumentSetup& setup, const Reading& reading) {
    const std::string angle = (setup.tilt < 0 ? "-" : "+") + Digits(std::abs(setup.tilt), 2);
    return Blanks(6) + Digits(std::lround(setup.message->gate), 2) + Blanks(14) +
           Digits(reading.window, 3) + ' ' + angle + Blanks(15) + Digits(reading.integral, 3, ' ') +
           NewLine;
}

// Samples are ten to the plot unit. The negative ones stay in the range whose first digit is F,
// which is how a reader knows the sign.
std::string SampleLine(const Reading& reading) {
    if (reading.profile.empty()) return "";
    std::string text;
    for (double value : reading.profile)
        text += Hex(std::clamp(std::llround(10 * value), -65536LL, 524287LL), 5);
    return text + NewLine;
}

std::string FourRecords(const InstrumentSetup& setup, const Reading& reading) {
    return SkyRecords(reading, setup.metres, 4, 4) + Blanks(3) + NewLine;
}

std::string FiveRecords(const InstrumentSetup& setup, const Reading& reading) {
    return SkyRecords(reading, setup.metres, 5, 4) + NewLine;
}

// In message 25 the last two digits of the lowest layer stand where a workstation looks for the
// metres between samples. 00 there would be a resolution of nothing, so the height says 01.
std::string ShortSky(const InstrumentSetup& setup, const Reading& reading) {
    std::string line = FourRecords(setup, reading);
    if (line.substr(6, 2) == "00") line[7] = '1';
    return line;
}

std::string Body(const InstrumentSetup& setup, const Reading& reading) {
    const std::string_view number = setup.message->number;
    const std::string conditions = ConditionsLine(setup, reading);
    if (number == "25") return ShortSky(setup, reading);
    if (number == "26") return FiveRecords(setup, reading) + conditions + SampleLine(reading);
    if (number == "28")
        return FourRecords(setup, reading) + conditions + FiveRecords(setup, reading);
    if (setup.message->skyRecords == 0) return conditions + SampleLine(reading);
    return FourRecords(setup, reading) + conditions + SampleLine(reading);
}

}  // namespace

std::string StatusWordKn(const InstrumentSetup& setup, const Reading& reading) {
    std::int64_t word = 0;
    if (reading.health == Health::Alarm) word |= Bit(46);    // transmitter failure
    if (reading.health == Health::Warning) word |= Bit(31);  // window contamination
    if (reading.blowerOn) word |= Bit(15);
    if (reading.heaterOn) word |= Bit(13);
    if (setup.metres) word |= Bit(7);
    if (reading.steep) word |= Bit(17);
    return Hex(word, 12);
}

std::string EncodeKn(const InstrumentSetup& setup, const Reading& reading) {
    const CloudFields clouds = FieldsOf(reading, setup.metres);
    const char alarm = AlarmCharacter(reading);
    std::string text = std::string("KN0210") + setup.message->number + STX + NewLine;
    text += std::string(1, reading.detection) + (alarm == '0' && reading.steep ? 'W' : alarm) +
            ' ' + clouds.first + ' ' + clouds.second + ' ' + clouds.third + ' ' +
            StatusWordKn(setup, reading) + NewLine;
    text += Body(setup, reading) + ETX;
    return SOH + text + Checksum(text) + EOT + NewLine;
}

}  // namespace cumeron::sim
