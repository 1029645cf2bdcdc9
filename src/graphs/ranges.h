// The limits of the graphs from the settings, in height steps (100 ft or 30 m) and plot units, and
// the stepped height scale. The start, the settings dialogs, a change of model and a change of the
// instrument's unit apply them.
#pragma once

#include <cstdint>

namespace cumeron {

struct Workstation;

// ProfileYLow, ProfileYHigh, ProfileXLow, ProfileXHigh. Both raise 9 for a scale that RangeTable
// does not have and 6 for limits beyond 16 bits.
void ApplyBackscatterRange(Workstation& w);
// CloudYLow, CloudYHigh; clears the graph when they change, since its columns are of the old scale.
void ApplyCloudRange(Workstation& w);

// A height in tens of feet (tens of metres) on the stepped scale, in tenths of a height step: three
// straight segments, each half as steep as the one below it, so that low clouds have more room.
// Raises 6 when the result does not fit.
std::int16_t StepHeight(double height, bool metres, int stepIndex);

}  // namespace cumeron
