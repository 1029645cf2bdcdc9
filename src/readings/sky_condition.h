// The sky condition: up to five layers, each with a cloud amount in oktas and a height, as some
// messages carry them in a block near their end. The instant values read it with each message; the
// frame fraSkyCond of the main window shows it, and the sky window repeats it.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "intake/models.h"

namespace cumeron {

// How amounts look; the setting Cloud_Amount.
enum CloudAmountLook : std::int16_t { AmountNumbers = 0, AmountTexts = 1, AmountSymbols = 2 };

inline constexpr std::size_t SkyLayers = 5;        // that are shown
inline constexpr std::size_t BlankSkyPicture = 2;  // of imgSkyCond
// Of a layer whose amount is no number; no amount of three characters is this one.
inline constexpr std::int16_t UnreadableAmount = std::numeric_limits<std::int16_t>::min();

// What the labels of a layer mean, for those who rest the mouse on them.
inline constexpr const char* SkyAmountTip =
    "Cloud amount of the layer in oktas, eighths of the sky; 9 or VV: sky obscured";
inline constexpr const char* SkyHeightTip = "Height of the layer, as the instrument reports it";

struct SkyState {
    std::int16_t SkyValid = 0;  // 1 when the current message held a block
    // Of layer 0 to 5; -1 in element 0 marks a block without data.
    std::array<std::int16_t, SkyLayers + 1> SkyAmounts{};
    std::array<std::string, SkyLayers + 1> SkyHeights;  // as the block writes them
};

// Takes the block of the frame, if its kind of message has one, and shows what it holds.
void UpdateSkyCondition(Workstation& w, std::string_view frame);
// Takes the records 0 to records of a block; a height has that many digits, 3 or 4.
void ParseSkyCondition(SkyState& sky, std::string_view block, int records, int digits);
// Brings the frame of the main window in line with what was taken.
void ShowSkyCondition(Workstation& w);
// Empties the frame.
void ClearSkyFrame(Workstation& w);
// The word of an amount, "" for one that has none.
std::string_view SkyAmountText(std::int16_t amount, Family family);

// The picture of what layer 0 to 4 has taken: that of its amount, of a clear sky only in layer 0,
// or the blank one.
const std::string& SkySymbol(const Workstation& w, std::size_t layer);
const std::string& BlankSkySymbol(const Workstation& w);

}  // namespace cumeron
