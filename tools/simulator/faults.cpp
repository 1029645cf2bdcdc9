#include "faults.h"

#include <algorithm>

#include "atmosphere.h"

namespace cumeron::sim {

namespace {

enum Channel : std::uint64_t {
    Silence = 200,
    LostStart,
    Cut,
    WrongDigit,
    Noise,
    LostBytes,
    CutAt,
    DigitAt,
    NoiseLength,
    NoiseBytes = 300,
};

// The checksum's four digits stand in front of EOT CR LF.
void TurnChecksumDigit(std::string& frame, double where) {
    const std::size_t at = frame.size() - 7 + static_cast<std::size_t>(where * 4);
    frame[at] = frame[at] == '0' ? '1' : '0';
}

// No byte below 32, so that the noise opens and ends no frame of its own.
std::string NoiseText(std::uint64_t seed, std::int64_t number) {
    const auto length = 5 + static_cast<std::size_t>(36 * HashUnit(seed, NoiseLength, number));
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += static_cast<char>(
            static_cast<unsigned char>(32 + 224 * HashUnit(seed, NoiseBytes + i, number)));
    return text;
}

}  // namespace

SentMessage Spoil(const std::string& frame, const FaultRates& rates, std::uint64_t seed,
                  std::int64_t number, Family family) {
    const auto happens = [&](Channel channel, double rate) {
        return HashUnit(seed, channel, number) < rate;
    };
    const auto share = [&](Channel channel) { return HashUnit(seed, channel, number); };
    const auto length = static_cast<double>(frame.size());
    if (happens(Silence, rates.silence)) return {"", false, 0};
    SentMessage message{frame, true, 0};
    if (family == Family::KN && happens(WrongDigit, rates.checksum)) {
        TurnChecksumDigit(message.bytes, share(DigitAt));
        message.sound = false;
    }
    if (happens(Cut, rates.cut)) {
        message.bytes.resize(static_cast<std::size_t>(length * (0.3 + 0.6 * share(CutAt))));
        message.sound = false;
    }
    if (happens(LostStart, rates.lostStart)) {
        message.bytes.erase(0, 1 + static_cast<std::size_t>(20 * share(LostBytes)));
        message.sound = false;
    }
    if (happens(Noise, rates.noise)) {
        const std::string noise = NoiseText(seed, number);
        message.bytes.insert(0, noise);
        message.noise = noise.size();
    }
    return message;
}

}  // namespace cumeron::sim
