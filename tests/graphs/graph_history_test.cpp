#include "graphs/graph_history.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(CreateHistory, HasThreeSlotsToThePixel) {
    const struct {
        int width, size, error;
    } cases[] = {{1024, 3072, 0},   {1, 3, 0},     {0, 0, 0},
                 {10922, 32766, 0}, {10923, 0, 6}, {-1, 0, 9}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.width);
        ScriptedMachine machine;
        Workstation w(machine.platform);
        EXPECT_EQ(ErrorOf([&] { CreateHistory(w, c.width); }), c.error);
        EXPECT_EQ(w.graphs.HistorySize, c.size);
        if (c.error == 0) {
            EXPECT_EQ(w.graphs.GraphHistory.size(), static_cast<std::size_t>(c.size) + 1);
        }
    }
}

TEST(DimensionProfiles, EmptiesEveryProfile) {
    Station station(20);
    station.w.graphs.GraphHistory[3].Profile[5] = 1;
    station.w.model.ProfileLength = 100;
    DimensionProfiles(station.w);
    for (const GraphRecord& record : station.w.graphs.GraphHistory)
        EXPECT_EQ(record.Profile, std::vector<std::int32_t>(101, 0));
}

TEST(NextHistoryRecord, GoesRoundBeforeTheLastSlot) {
    Station station(20);
    GraphState& graphs = station.w.graphs;
    ASSERT_EQ(graphs.HistorySize, 30);
    for (int written = 1; written < 30; ++written) {
        EXPECT_EQ(&NextHistoryRecord(station.w),
                  &graphs.GraphHistory[static_cast<std::size_t>(written)]);
        EXPECT_EQ(graphs.HistoryIndex, written);
        EXPECT_EQ(graphs.HistoryWrapped, 0);
    }
    EXPECT_EQ(&NextHistoryRecord(station.w), &graphs.GraphHistory[1]);
    EXPECT_EQ(graphs.HistoryIndex, 1);
    EXPECT_EQ(graphs.HistoryWrapped, -1);
}

TEST(NextHistoryRecord, RaisesSubscriptOutsideTheRing) {
    Station station(20);
    station.w.graphs.HistoryIndex = 30;
    EXPECT_EQ(ErrorOf([&] { NextHistoryRecord(station.w); }), 9);
    station.w.graphs.HistoryIndex = -2;
    EXPECT_EQ(ErrorOf([&] { NextHistoryRecord(station.w); }), 9);
    station.w.graphs.HistoryIndex = 32767;
    EXPECT_EQ(ErrorOf([&] { NextHistoryRecord(station.w); }), 6);
}

TEST(NextProfileSlot, GoesRoundFromTheLastToTheFirst) {
    Station station(20);
    GraphState& graphs = station.w.graphs;
    EXPECT_EQ(graphs.ProfileSlot, 0);
    for (std::size_t slot = 1; slot < 30; ++slot)
        EXPECT_EQ(&NextProfileSlot(station.w), &graphs.ProfileRing[slot]);
    EXPECT_EQ(&NextProfileSlot(station.w), &graphs.ProfileRing[0]);
    EXPECT_EQ(graphs.ProfileSlot, 0);
}

TEST(NextProfileSlot, RaisesSubscriptOutsideTheRing) {
    Station station(20);
    station.w.graphs.ProfileSlot = 30;
    EXPECT_EQ(ErrorOf([&] { NextProfileSlot(station.w); }), 9);
}

}  // namespace
}  // namespace cumeron
