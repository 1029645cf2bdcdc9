// The backscatter profile of the current message as a line, the average of the last messages as
// another. The intake calls it for each message while the plot is shown, replay, layout and
// settings when it changes.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace cumeron {

struct Surface;
struct Workstation;

using AveragedProfile = std::array<float, 2049>;  // plot units

// The whole plot with its axes.
void UpdateBackscatterPlot(Workstation& w);
// Fills averaged with the mean of the newest messages, of at most count, and returns true when at
// least one went in. A new ProfileScale leaves only the current one. Raises 6 when a sum does not
// fit 32 bits, 9 for a range beyond the profile.
bool AverageProfiles(Workstation& w, AveragedProfile& averaged, int count);

}  // namespace cumeron
