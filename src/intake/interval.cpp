#include "intake/interval.h"

#include "graphs/time_axis.h"
#include "intake/intake.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t Deciding = 3;   // three arrivals are there
constexpr std::int16_t Settled = 4;    // the interval is known
constexpr std::int16_t Confirmed = 6;  // a candidate was seen twice more

std::int16_t RawInterval(const Workstation& w) {
    return ToInt16(static_cast<double>(w.settings.Message_Interval) / CompressFactor(w.settings));
}

// The time axis shows the interval: its labels are out of date with it.
void TakeInterval(Workstation& w, std::int16_t seconds) {
    w.settings.Message_Interval = Multiply16(seconds, CompressFactor(w.settings));
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    UpdateAxes(w);
    Form_Resize(w);
}

void CollectArrival(Workstation& w, double now) {
    w.intake.IntervalTimes.at(static_cast<std::size_t>(w.intake.IntervalSeekState)) = now;
    SetActionPanel(w, "Interval Seek");
    ++w.intake.IntervalSeekState;
}

// kept: what the settings hold is divided and multiplied back with every look at it, so that an
// interval that the factor does not divide comes out rounded to a multiple.
std::int16_t RoundedInterval(Workstation& w) {
    const std::int16_t raw = RawInterval(w);
    w.settings.Message_Interval = Multiply16(raw, CompressFactor(w.settings));
    return raw;
}

// A known interval changes only after two further messages in a row have confirmed it.
void WatchInterval(Workstation& w, double now) {
    IntakeState& intake = w.intake;
    const std::int16_t known = RoundedInterval(w);
    const std::int32_t seconds = DateDiffSeconds(intake.IntervalTimes[0], now);
    // Before anything can fail: after a silence longer than 16 bits count, only one message is
    // lost to the overflow and not every one that follows.
    intake.IntervalTimes[0] = now;
    if (seconds == known) return;
    if (seconds != intake.IntervalCandidate) {
        intake.IntervalCandidate = ToInt16(static_cast<double>(seconds));
        intake.IntervalSeekState = Settled;
        return;
    }
    intake.IntervalSeekState = Add16(intake.IntervalSeekState, 1);
    if (intake.IntervalSeekState != Confirmed) return;
    intake.IntervalSeekState = Settled;
    TakeInterval(w, intake.IntervalCandidate);
}

void DecideInterval(Workstation& w) {
    IntakeState& intake = w.intake;
    auto& times = intake.IntervalTimes;
    const std::int32_t first = DateDiffSeconds(times[0], times[1]);
    const std::int32_t second = DateDiffSeconds(times[1], times[2]);
    if (first != second) {
        times[0] = times[1];
        times[1] = times[2];
        intake.IntervalSeekState = Deciding - 1;
        return;
    }
    if (first != RoundedInterval(w)) {
        const std::int16_t seconds = ToInt16(static_cast<double>(first));
        SetActionPanel(w, "MSG Interval: " + StrOf(seconds) + "s");
        intake.IntervalCandidate = seconds;
        TakeInterval(w, seconds);
    }
    intake.IntervalSeekState = Settled;
}

}  // namespace

void MeasureInterval(Workstation& w, double now) {
    const std::int16_t state = w.intake.IntervalSeekState;
    if (state > Deciding) return WatchInterval(w, now);
    if (state < Deciding) CollectArrival(w, now);
    if (w.intake.IntervalSeekState == Deciding) DecideInterval(w);
}

}  // namespace cumeron
