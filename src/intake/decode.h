// Turns the Payload into a profile, the status word into digits, and rewrites stored heights when
// the instrument changes its unit. Called on the road of every message.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace cumeron {

struct Workstation;

// Fills profile (elements 0 to ProfileLength; the instrument's counts) from the payload, by
// MessageId. Id 99 leaves it as it is. Raises 9 when the message holds more samples than profile.
void DecodeProfile(const Workstation& w, std::string_view payload, std::span<std::int32_t> profile,
                   std::int16_t messageId);
// Fills StatusDigits from the word; a character that is no hexadecimal digit reads as 0.
void DecodeStatusDigits(Workstation& w, std::string_view word);
// Rewrites the cloud heights of the whole history after a change of Units, with 3/10 or 10/3.
void ConvertHistoryUnits(Workstation& w);

}  // namespace cumeron
