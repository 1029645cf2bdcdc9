// The live path: the tick of once a second that takes what the line has buffered, finds frames,
// checks them and sends them down the road to panels and history, and the watch over silence.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "intake/models.h"

namespace cumeron {

struct Workstation;

struct IntakeState {
    std::string ReceiveBuffer;              // received and not yet consumed
    std::int16_t IntakeBusy = 0;            // -1 while HandleMessage runs
    std::int16_t EnquiryBusy = 0;           // 1 while the status enquiry runs
    std::int16_t ReplayBusy = 0;            // -1 while a replay runs
    double MessageClockTime = 0;            // time of day of MessageTime
    std::int16_t RedialCount = 0;           // ticks spent in the redial condition
    std::int16_t FrameErrorCount = 0;       // frames rejected, and parity errors
    std::int16_t IntervalSeekState = 0;     // 0 to 6; 4 and up: the interval is known
    std::int16_t IntervalCandidate = 0;     // last differing interval measured, seconds
    std::array<double, 3> IntervalTimes{};  // last arrival times
    std::string PreviousStatus;             // first five characters of the status word
    std::string FrameText;                  // a blank and the frame from its header on
    std::string Payload;
    std::int16_t MessageId = 0;
    double ProfileScale = 1;  // samples per height step of 100 ft or 30 m
    bool onCommBusy = false;  // keeps a nested OnComm out
};

enum class Found { Nothing, Beginning, Frame };
struct FrameSearch {
    Found what = Found::Nothing;
    std::size_t at = 0;
    std::size_t length = 0;
};
// Pure; takes any bytes.
FrameSearch FindFrame(std::string_view buffer, const ModelTable& model);

enum class FrameVerdict { Good, NoHeader, BadEnd, BadChecksum };
struct FrameCheck {
    FrameVerdict verdict = FrameVerdict::Good;
    std::string_view body;  // the frame from its header on
};
// Pure; takes any bytes. Header, end and, for the KN family, the checksum.
FrameCheck CheckFrame(std::string_view frame, const ModelTable& model);
// CRC-16 with the polynomial 1021 hexadecimal, started at FFFF, inverted at the end.
std::uint16_t FrameChecksum(std::string_view text);

// The handler of tmrClock.
void tmrClock_Tick(Workstation& w);
// One frame, or a text that begins with "CONNECT" or "NO CARRIER".
void HandleMessage(Workstation& w, std::string_view frame);

}  // namespace cumeron
