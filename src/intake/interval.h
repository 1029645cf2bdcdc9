// Learns the interval at which the instrument really sends from the times of arrival; the
// time-outs of the tick and the time axis of the graphs follow it. HandleMessage calls it for
// whatever arrives, good or bad.
#pragma once

namespace cumeron {

struct Workstation;

// One arrival at now. Raises 6 when an interval does not fit 16 bits.
void MeasureInterval(Workstation& w, double now);

}  // namespace cumeron
