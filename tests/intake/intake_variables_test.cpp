#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "intake/messages.h"
#include "platform/runtime/errors.h"
#include "variables.h"

namespace cumeron {
namespace {

const Variable* Find(const VariableList& list, const std::string& name) {
    const auto at = std::find_if(list.variables.begin(), list.variables.end(),
                                 [&](const Variable& v) { return v.name == name; });
    return at == list.variables.end() ? nullptr : &*at;
}

struct Case {
    const char* name;
    std::vector<long> indices;
};

// Each is set to a number of its own and read again after all are set, so that no two names share
// a place.
void ExpectPlacesOfTheirOwn(Workstation& w, const VariableList& list,
                            const std::vector<Case>& cases) {
    std::int64_t number = 10;
    for (const Case& c : cases) {
        const Variable* variable = Find(list, c.name);
        ASSERT_TRUE(variable) << c.name;
        ASSERT_EQ(variable->indexCount, static_cast<int>(c.indices.size())) << c.name;
        variable->set(w, c.indices, number++);
    }
    number = 10;
    for (const Case& c : cases) {
        const Value value = Find(list, c.name)->get(w, c.indices);
        const double read = std::holds_alternative<DateValue>(value)
                                ? std::get<DateValue>(value).when
                                : AsDouble(value);
        EXPECT_EQ(read, static_cast<double>(number++)) << c.name;
    }
}

void ExpectNamesOnce(const VariableList& list) {
    std::set<std::string> names;
    for (const Variable& variable : list.variables)
        EXPECT_TRUE(names.insert(variable.name).second) << variable.name;
}

TEST(IntakeVariables, HaveAPlaceEach) {
    Station station(30);
    VariableList list;
    ListIntakeVariables(list);
    ExpectNamesOnce(list);
    ExpectPlacesOfTheirOwn(
        station.w, list,
        {{"ReceiveBuffer", {}},    {"IntakeBusy", {}},        {"EnquiryBusy", {}},
         {"ReplayBusy", {}},       {"RedialCount", {}},       {"FrameErrorCount", {}},
         {"MessageClockTime", {}}, {"IntervalSeekState", {}}, {"IntervalCandidate", {}},
         {"IntervalTimes", {0}},   {"IntervalTimes", {1}},    {"IntervalTimes", {2}},
         {"PreviousStatus", {}},   {"FrameText", {}},         {"Payload", {}},
         {"MessageId", {}},        {"ProfileScale", {}},      {"FrameStart", {}},
         {"FrameEnd", {}},         {"ProfileLength", {}},     {"AngleOffset", {}},
         {"PosCloud1", {}},        {"PosCloud2", {}},         {"PosCloud3", {}},
         {"PosCloud1Alt", {}},     {"PosCloud2Alt", {}},      {"PosStatus", {}},
         {"PosAngle", {}},         {"PosDetection", {}},      {"PosAlarm", {}},
         {"PosExport", {}}});
    EXPECT_EQ(station.w.intake.MessageId, 10 + 15);
    EXPECT_EQ(station.w.model.PosExport, 10 + 30);
}

TEST(GraphVariables, HaveAPlaceEach) {
    Station station(30);
    VariableList list;
    ListGraphVariables(list);
    ExpectNamesOnce(list);
    ExpectPlacesOfTheirOwn(station.w, list,
                           {{"HistorySize", {}},
                            {"HistoryIndex", {}},
                            {"HistoryWrapped", {}},
                            {"GraphHistory.Profile", {3, 10}},
                            {"GraphHistory.Profile", {2, 1500}},
                            {"GraphHistory.Valid", {3}},
                            {"GraphHistory.Time", {3}},
                            {"GraphHistory.CloudValue", {3, 0}},
                            {"GraphHistory.CloudValue", {3, 3}},
                            {"GraphHistory.CloudText", {3}},
                            {"GraphHistory.MessageId", {3}},
                            {"GraphHistory.Scale", {3}},
                            {"ProfileRing.Valid", {3}},
                            {"ProfileRing.Profile", {3, 2048}},
                            {"MessageTime", {}},
                            {"TimeLabelsDirty", {}},
                            {"HeightLabelsDirty", {}},
                            {"GraphsReady", {}},
                            {"RedrawAbort", {}},
                            {"RangeTable", {0}},
                            {"RangeTable", {4}},
                            {"PreviousCloudmode", {}},
                            {"UnitLabel", {}}});
    EXPECT_EQ(station.w.graphs.GraphHistory[3].Scale, 10 + 11);
}

TEST(GraphVariables, ShowTheProfileOfTheCurrentSlot) {
    Station station(30);
    VariableList list;
    ListGraphVariables(list);
    Find(list, "ProfileSlot")->set(station.w, {}, std::int64_t{7});
    Find(list, "BackscatterProfile")->set(station.w, {10}, std::int64_t{-5});
    EXPECT_EQ(station.w.graphs.ProfileRing[7].Profile[10], -5);
    EXPECT_EQ(AsInteger(Find(list, "BackscatterProfile")->get(station.w, {10})), -5);
}

TEST(Variables, RaiseSubscriptForAnIndexOutside) {
    Station station(30);
    VariableList list;
    ListIntakeVariables(list);
    ListGraphVariables(list);
    const Case cases[] = {{"IntervalTimes", {3}},
                          {"IntervalTimes", {-1}},
                          {"GraphHistory.Time", {31}},
                          {"GraphHistory.Profile", {1, 1501}},
                          {"GraphHistory.CloudValue", {1, 4}},
                          {"ProfileRing.Valid", {30}},
                          {"ProfileRing.Profile", {0, 2049}},
                          {"BackscatterProfile", {-1}},
                          {"RangeTable", {5}}};
    for (const Case& c : cases) {
        try {
            Find(list, c.name)->get(station.w, c.indices);
            FAIL() << c.name;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 9) << c.name;
        }
    }
}

}  // namespace
}  // namespace cumeron
