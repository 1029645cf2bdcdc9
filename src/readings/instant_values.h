// The instant values: heights, status, battery, unit, angle and window of the current message.
// Live reception and replay call it with each frame.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cumeron {

struct Workstation;

struct ReadingsState {
    std::string AngleText;
    std::int16_t AngleValue = 0;                  // degrees, last numeric value seen
    std::int16_t Tilted = 0;                      // 1 when 14 degrees or more from vertical
    std::string WindowCondition;                  // KN family: percentage and verdict
    std::array<std::int16_t, 12> StatusDigits{};  // first digit of the status word first
    std::string StatusText;                       // lines separated by CR
};

// True for the messages of the RV family that carry an angle: those with a profile.
bool HasAngleField(std::int16_t messageId);
// Fills the panels and captions from the frame, from its start character on.
void UpdateInstantValues(Workstation& w, std::string_view frame);
// Empties them when a replay enters or leaves its view.
void ClearInstantValues(Workstation& w);

}  // namespace cumeron
