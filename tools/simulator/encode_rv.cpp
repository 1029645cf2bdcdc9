// RV frame, positions from 1:
//   1 SOH   2-3 "RV"   4-6 unit   7-8 message number   9 STX   10-11 CR LF
//   12 detection   13 alarm   15-19, 21-25, 27-31 cloud fields   33-40 status word   41-42 CR LF
// then, for the messages with a profile, a line of measuring conditions
//   67-69 angle, one position earlier when it has two digits   80 scale digit
//   82-84 sum of the backscatter   85-86 CR LF
// and from 87 rows of 69: heading of 3 (number of the first sample), 16 samples of 4 hexadecimal
// digits, CR LF. The sky condition line is the last before ETX CR LF.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "encode.h"
#include "wire_text.h"

namespace cumeron::sim {

namespace {

constexpr std::int64_t Bit(int number) { return std::int64_t{1} << number; }

// The RV70X tells its elevation, the RV20X its angle from the vertical.
std::string AngleField(const InstrumentSetup& setup) {
    const int angle = setup.model->code == 70 ? 90 - setup.tilt : setup.tilt;
    const std::string text = (angle < 0 ? "-" : "+") + Digits(std::abs(angle), 2);
    return std::abs(angle) >= 10 ? text + " " : " " + text;
}

std::string ConditionsLine(const InstrumentSetup& setup, const Reading& reading) {
    return Blanks(23) + AngleField(setup) + Blanks(10) + "1 " + Digits(reading.integral, 3, ' ') +
           NewLine;
}

std::string Rows(const Reading& reading) {
    std::string text;
    for (std::size_t i = 0; i < reading.profile.size(); ++i) {
        if (i % 16 == 0) text += Digits(static_cast<long>(i), 3);
        text += Hex(std::clamp(std::llround(reading.profile[i]), -32768LL, 32767LL), 4);
        if (i % 16 == 15) text += NewLine;
    }
    return text;
}

// Message 61 carries three blanks behind its records. A message 73 that leaves its sky condition
// out keeps a line for it, shorter and with nothing to read.
std::string SkyLine(const InstrumentSetup& setup, const Reading& reading) {
    const MessageRow& message = *setup.message;
    if (message.skyDigits == 0) return "";
    if (message.skyRecords == 0) return std::string(22, '/') + NewLine;
    const std::string records =
        SkyRecords(reading, setup.metres, message.skyRecords, message.skyDigits);
    return records + Blanks(message.skyDigits == 4 ? 3 : 0) + NewLine;
}

}  // namespace

std::string StatusWordRv(const InstrumentSetup& setup, const Reading& reading) {
    std::int64_t word = 0;
    if (reading.health == Health::Alarm) word |= Bit(30);    // laser failure
    if (reading.health == Health::Warning) word |= Bit(23);  // window contaminated
    if (reading.blowerOn) word |= Bit(11);
    if (reading.heaterOn) word |= Bit(9);
    if (setup.metres) word |= Bit(8);
    if (reading.steep) word |= Bit(3);
    return Hex(word, 8);
}

std::string EncodeRv(const InstrumentSetup& setup, const Reading& reading) {
    const MessageRow& message = *setup.message;
    const CloudFields clouds = FieldsOf(reading, setup.metres);
    const bool conditions = message.samples > 0 || std::string_view(message.number) == "33";
    std::string text = std::string(1, SOH) + "RVA10" + message.number + STX + NewLine;
    text += std::string(1, reading.detection) + AlarmCharacter(reading) + ' ' + clouds.first + ' ' +
            clouds.second + ' ' + clouds.third + ' ' + StatusWordRv(setup, reading) + NewLine;
    if (conditions) text += ConditionsLine(setup, reading);
    text += Rows(reading) + SkyLine(setup, reading);
    return text + ETX + NewLine;
}

}  // namespace cumeron::sim
