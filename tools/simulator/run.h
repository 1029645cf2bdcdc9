// One run of the instrument as a sequence of messages: which one leaves when. The line (live.h)
// and the writers of files (outputs.h) walk the same sequence.
#pragma once

#include "faults.h"
#include "instrument.h"

namespace cumeron::sim {

struct SimulatedRun {
    InstrumentSetup setup;
    FaultRates faults;
    double start = 0;                // time of the first message
    int changedInterval = 0;         // seconds, 0: the interval stays
    std::int64_t changedAfter = 10;  // messages before the change
};

// Time of message `number`, counted from 0.
double TimeOfMessage(const SimulatedRun& run, std::int64_t number);

// Seconds from message `number` to the next one.
int IntervalAfter(const SimulatedRun& run, std::int64_t number);

// The message that leaves at its time, with what the faults made of it.
SentMessage MessageOf(const SimulatedRun& run, std::int64_t number);

// The text with which the instrument answers the status command: lines ended by CR LF.
std::string StatusReport(const SimulatedRun& run, double time);

}  // namespace cumeron::sim
