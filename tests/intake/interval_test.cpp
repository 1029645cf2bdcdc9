#include "intake/interval.h"

#include <gtest/gtest.h>

#include "graphs/label_strips.h"
#include "intake/messages.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

const double Noon = DateSerial(2026, 5, 1) + TimeSerial(12, 0, 0);

double At(int seconds) { return Noon + seconds / 86400.0; }

struct Step {
    int seconds;
    int state, candidate, interval;
};

void ExpectSteps(Workstation& w, std::initializer_list<Step> steps) {
    for (const Step& step : steps) {
        SCOPED_TRACE(step.seconds);
        MeasureInterval(w, At(step.seconds));
        EXPECT_EQ(w.intake.IntervalSeekState, step.state);
        EXPECT_EQ(w.intake.IntervalCandidate, step.candidate);
        EXPECT_EQ(w.settings.Message_Interval, step.interval);
    }
}

TEST(MeasureInterval, KeepsASettingThatArrivalsAgreeWith) {
    Station station(30);
    MarkLabelStrips(station.w);
    ExpectSteps(station.w, {{0, 1, 0, 15}, {15, 2, 0, 15}, {30, 4, 0, 15}});
    EXPECT_TRUE(LabelStripsAreOld(station.w));
    EXPECT_EQ(station.w.frmMain.sbaStatus.Action.Text, "Interval Seek");
}

TEST(MeasureInterval, LearnsFromThreeArrivals) {
    Station station(30);
    MarkLabelStrips(station.w);
    ExpectSteps(station.w, {{0, 1, 0, 15}, {30, 2, 0, 15}, {60, 4, 30, 30}});
    EXPECT_TRUE(LabelStripsAreNew(station.w));
    EXPECT_EQ(station.w.graphs.RedrawAbort, 1) << "laid out anew";
    EXPECT_EQ(station.w.frmMain.sbaStatus.Action.Text, "MSG Interval:  30s");
}

TEST(MeasureInterval, TriesAgainWhileTwoSpansDiffer) {
    Station station(30);
    ExpectSteps(station.w,
                {{0, 1, 0, 15}, {20, 2, 0, 15}, {50, 2, 0, 15}, {81, 2, 0, 15}, {112, 4, 31, 31}});
}

TEST(MeasureInterval, DecidesAStateThatStandsAtThree) {
    Station station(30);
    station.w.intake.IntervalSeekState = 3;
    station.w.intake.IntervalTimes = {At(0), At(20), At(40)};
    ExpectSteps(station.w, {{41, 4, 20, 20}});
}

TEST(MeasureInterval, ChangesAKnownIntervalWithTheThirdMessage) {
    Station station(30);
    station.w.intake.IntervalSeekState = 4;
    station.w.intake.IntervalTimes[0] = At(0);
    MarkLabelStrips(station.w);
    ExpectSteps(station.w, {{15, 4, 0, 15}, {45, 4, 30, 15}, {75, 5, 30, 15}});
    EXPECT_TRUE(LabelStripsAreOld(station.w));
    ExpectSteps(station.w, {{105, 4, 30, 30}});
    EXPECT_TRUE(LabelStripsAreNew(station.w));
}

TEST(MeasureInterval, ForgetsAConfirmationWhenTheSpanChangesAgain) {
    Station station(30);
    station.w.intake.IntervalSeekState = 4;
    station.w.intake.IntervalTimes[0] = At(0);
    ExpectSteps(station.w, {{30, 4, 30, 15},
                            {60, 5, 30, 15},
                            {100, 4, 40, 15},
                            {130, 4, 30, 15},
                            {160, 5, 30, 15},
                            {175, 5, 30, 15},
                            {205, 4, 30, 30}});
}

TEST(MeasureInterval, WorksWithTheIntervalOfOneMessage) {
    const struct {
        int compress, stored, learnt;
    } cases[] = {{0, 15, 20}, {1, 30, 40}, {2, 45, 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.compress);
        Station station(30);
        station.w.settings.Compress = static_cast<std::int16_t>(c.compress);
        station.w.settings.Message_Interval = static_cast<std::int16_t>(c.stored);
        ExpectSteps(station.w, {{0, 1, 0, c.stored}, {15, 2, 0, c.stored}, {30, 4, 0, c.stored}});
        station.w.intake.IntervalSeekState = 0;
        ExpectSteps(station.w, {{0, 1, 0, c.stored}, {20, 2, 0, c.stored}, {40, 4, 20, c.learnt}});
    }
}

TEST(MeasureInterval, LeavesAMultipleOfTheFactorRoundedToEven) {
    const struct {
        int stored, arrivals, left;
    } cases[] = {{25, 12, 24}, {27, 14, 28}, {24, 12, 24}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stored);
        Station station(30);
        station.w.settings.Compress = 1;
        station.w.settings.Message_Interval = static_cast<std::int16_t>(c.stored);
        ExpectSteps(
            station.w,
            {{0, 1, 0, c.stored}, {c.arrivals, 2, 0, c.stored}, {2 * c.arrivals, 4, 0, c.left}});
        station.w.settings.Message_Interval = static_cast<std::int16_t>(c.stored);
        MeasureInterval(station.w, At(c.arrivals));
        EXPECT_EQ(station.w.settings.Message_Interval, c.left);
    }
}

TEST(MeasureInterval, LosesOneMessageToASilenceBeyondSixteenBits) {
    Station station(30);
    station.w.intake.IntervalSeekState = 4;
    station.w.intake.IntervalTimes[0] = At(0);
    ExpectSteps(station.w, {{32767, 4, 32767, 15}});
    try {
        MeasureInterval(station.w, At(32767 + 32768));
        FAIL() << "32768 seconds fitted";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, 6);
    }
    ExpectSteps(station.w, {{32767 + 32768 + 15, 4, 32767, 15}});
}

TEST(MeasureInterval, RaisesOverflowForAnIntervalThatTheFactorMakesTooLong) {
    Station station(30);
    station.w.settings.Compress = 2;
    station.w.settings.Message_Interval = 45;
    MeasureInterval(station.w, At(0));
    MeasureInterval(station.w, At(11000));
    EXPECT_THROW(MeasureInterval(station.w, At(22000)), RuntimeError);
    EXPECT_EQ(station.w.settings.Message_Interval, 45);
}

}  // namespace
}  // namespace cumeron
