// The running instrument: messages at their interval, paced at the baud rate, while the service
// commands are listened to. LiveStep holds all decisions and no clock; RunLive is the loop that
// gives it the real clock and the line.
#pragma once

#include <atomic>
#include <string>

#include "line.h"
#include "run.h"
#include "service.h"

namespace cumeron::sim {

struct Live {
    SimulatedRun run;
    Service service;
    int baud = 19200;
    double speed = 1;           // seconds of the instrument in one second outside
    std::int64_t messages = 0;  // ends the run after so many, 0: never
    // State
    bool begun = false;     // the first listener has come
    double beganAt = 0;     // elapsed time of the first message
    std::int64_t next = 0;  // number of the next message
    std::string outgoing;   // what waits for its turn on the line
    double credit = 0;      // bytes that the line could have carried and has not
    double lastElapsed = 0;
};

// elapsed: seconds of the instrument since the program's start, never going back. input: what
// came in. Returns the bytes that leave now. The first message leaves when `listener` first
// turns true; a message that falls due while another one is leaving, or while none may be sent,
// is left out.
std::string LiveStep(Live& live, double elapsed, bool listener, std::string_view input);

// True when the wanted number of messages has left.
bool IsDone(const Live& live);

// Runs until `stop` is set or the wanted number of messages has left.
void RunLive(Live& live, const Line& line, const std::atomic<bool>& stop);

}  // namespace cumeron::sim
