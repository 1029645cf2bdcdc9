// Faults of the line, injected on request into the bytes of one message. Pure and seeded.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue.h"

namespace cumeron::sim {

// Shares of the messages that suffer, 0 to 1 each.
struct FaultRates {
    double checksum = 0;   // one digit of the checksum is wrong (KN family only)
    double cut = 0;        // the end is missing
    double lostStart = 0;  // the first bytes are missing, the start character among them
    double noise = 0;      // 5 to 40 bytes that nobody sent stand in front of the message
    double silence = 0;    // the message does not come at all
};

struct SentMessage {
    std::string bytes;      // as they leave, empty for silence
    bool sound = true;      // a receiver finds the message whole and right
    std::size_t noise = 0;  // bytes in front of the message that are none of it
};

// number: counts the messages from 0; the same seed and number suffer the same fault.
SentMessage Spoil(const std::string& frame, const FaultRates& rates, std::uint64_t seed,
                  std::int64_t number, Family family);

}  // namespace cumeron::sim
