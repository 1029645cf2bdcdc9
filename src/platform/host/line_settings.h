// The settings text of a serial line, "19200,N,8,1", and the faults that a driver counts: pure
// functions of the serial line.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace cumeron {

struct LineSettings {
    int baud = 19200;
    char parity = 'N';  // N E O M S
    int dataBits = 8;   // 5 to 8
    int stopBits = 1;   // 1 or 2; "1.5" counts as 2, a receiver sees no difference
};

// Nothing for a text of another kind. Blanks around a part do not matter.
std::optional<LineSettings> ParseLineSettings(std::string_view text);

// What a driver has counted since the machine started.
struct FaultCounts {
    long parity = 0;
    long overrun = 0;
};

// The events that the faults between two readings raise, one of a kind.
std::vector<int> FaultEvents(const FaultCounts& before, const FaultCounts& after);

}  // namespace cumeron
