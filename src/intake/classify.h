// Tells what a frame that passed its checks is. Live reception and replay call it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cumeron {

struct Workstation;

// The MessageId of the frame, -1 when it is none that is known. Cuts the Payload, writes a word to
// the Errors panel, forces the detection view for a message without a profile, sets ProfileScale.
// Raises 11 for a range resolution of "00".
std::int16_t ClassifyMessage(Workstation& w, std::string_view frameText, std::string& payload);

}  // namespace cumeron
