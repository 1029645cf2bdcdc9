#include "live.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace cumeron::sim {

namespace {

constexpr double BitsPerByte = 10;  // start bit, eight bits, stop bit
constexpr double LongestBurst = 1;  // seconds outside that an idle loop may catch up
constexpr int StepMilliseconds = 10;
constexpr int FarewellSteps = 200;  // two seconds outside

// A workstation that has just opened the line may still be setting it up, and would throw the
// first bytes away.
constexpr double SettlingTime = 0.2;  // seconds outside

double TimeAt(const Live& live, double elapsed) {
    return live.run.start + (live.begun ? std::max(0.0, elapsed - live.beganAt) : 0);
}

void QueueDueMessages(Live& live, double elapsed) {
    const double now = live.run.start + elapsed - live.beganAt;
    while (!IsDone(live) && TimeOfMessage(live.run, live.next) <= now) {
        const bool current = TimeOfMessage(live.run, live.next + 1) > now;
        if (current && live.outgoing.empty() && SendsMessages(live.service))
            live.outgoing += MessageOf(live.run, live.next).bytes;
        ++live.next;
    }
}

std::string TakePaced(Live& live, double passed) {
    const double rate = live.baud / BitsPerByte;
    const double most = std::max(1.0, rate * LongestBurst * live.speed);
    live.credit = std::min(live.credit + rate * passed, most);
    const auto count = std::min(live.outgoing.size(), static_cast<std::size_t>(live.credit));
    std::string bytes = live.outgoing.substr(0, count);
    live.outgoing.erase(0, count);
    live.credit -= static_cast<double>(count);
    if (live.outgoing.empty()) live.credit = 0;  // an idle line saves nothing up
    return bytes;
}

}  // namespace

bool IsDone(const Live& live) { return live.messages > 0 && live.next >= live.messages; }

std::string LiveStep(Live& live, double elapsed, bool listener, std::string_view input) {
    if (!live.begun && listener) {
        live.begun = true;
        live.beganAt = elapsed + SettlingTime * live.speed;
    }
    const double passed = elapsed - live.lastElapsed;
    live.lastElapsed = elapsed;
    const double time = TimeAt(live, elapsed);
    live.outgoing += HearBytes(live.service, input, time);
    const std::string word = PassTime(live.service, time);
    if (word.find("NO CARRIER") != word.npos) live.outgoing.clear();  // the call is gone
    live.outgoing += word;
    std::string bytes = TakePaced(live, passed);
    if (live.begun) QueueDueMessages(live, elapsed);
    return bytes;
}

void RunLive(Live& live, const Line& line, const std::atomic<bool>& stop) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    while (!stop && !(IsDone(live) && live.outgoing.empty())) {
        const double outside = std::chrono::duration<double>(Clock::now() - start).count();
        const std::string input = ReadLine(line);
        const std::string bytes = LiveStep(live, outside * live.speed, HasListener(line), input);
        // A listener that reads too slowly gets the rest later; messages due meanwhile are left
        // out, so that the instrument never waits and no message arrives with a hole.
        live.outgoing.insert(0, bytes.substr(WriteLine(line, bytes)));
        if (input.empty()) WaitForInput(line, StepMilliseconds);
    }
    // Closing the line throws away what the listener has not read yet: give it the time.
    for (int i = 0; i < FarewellSteps && line.pseudo && HasListener(line) && !stop; ++i)
        WaitForInput(line, StepMilliseconds);
}

}  // namespace cumeron::sim
