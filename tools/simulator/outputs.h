// Files written without any waiting: the log that a workstation would have kept of a run, and a
// driver script that feeds the run to a workstation. Called by the command line.
#pragma once

#include <iosfwd>

#include "run.h"

namespace cumeron::sim {

// The data log of `hours` hours: title, created line, a timestamp line and the message for each
// sound message, closed line. A message that a fault has spoilt is in no log.
void WriteLog(std::ostream& out, const SimulatedRun& run, double hours);

// The driver script of `hours` hours, faults included. Each message comes in two pieces a second
// apart, all but its last byte first: a message that is read in one piece is taken twice.
// Needs intervals of 2 seconds or more, changed ones too.
void WriteScenario(std::ostream& out, const SimulatedRun& run, double hours);

// Text as a quoted value of a driver script.
std::string QuotedValue(std::string_view bytes);

}  // namespace cumeron::sim
