// Values of the program's variables in each form, and their names.
#include "variables.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

TEST(Values, TurnIntoNumbersAndTexts) {
    const double noon = DateSerial(2026, 11, 15) + TimeSerial(14, 41, 25);
    const struct {
        Value value;
        double number;
        const char* text;
    } cases[] = {
        {std::int64_t{-7}, -7, "-7"},
        {2.5, 2.5, "2.5"},
        {true, -1, "True"},
        {false, 0, "False"},
        {DateValue{0.5}, 0.5, "0.5"},
        {DateValue{noon}, noon, "2026-11-15 14:41:25"},
        {std::string("12"), 12, "12"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(AsDouble(c.value), c.number) << c.text;
        EXPECT_EQ(AsText(c.value), c.text);
    }
}

TEST(Values, IntegersRoundHalvesToEven) {
    EXPECT_EQ(AsInteger(2.5), 2);
    EXPECT_EQ(AsInteger(3.5), 4);
    EXPECT_EQ(AsInteger(std::string("-1.4")), -1);
    EXPECT_EQ(AsInteger(true), -1);
    EXPECT_EQ(AsInteger(std::int64_t{9007199254740993}), 9007199254740993);
}

TEST(Values, TellWhatIsNoNumber) {
    const struct {
        Value value;
        int error;
    } cases[] = {{std::string("ten"), 13}, {std::string(""), 13}, {1e300, 6}};
    for (const auto& c : cases) {
        try {
            AsInteger(c.value);
            ADD_FAILURE() << AsText(c.value);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, c.error);
        }
    }
}

TEST(Values, ThatDoNotFitAreNotStored) {
    std::int16_t small = 7;
    StoreValue(small, Value{std::int64_t{32767}});
    EXPECT_EQ(small, 32767);
    for (const std::int64_t outside : {std::int64_t{32768}, std::int64_t{-32769}}) {
        EXPECT_THROW(StoreValue(small, Value{outside}), RuntimeError);
        EXPECT_EQ(small, 32767);
    }
    bool truth = false;
    StoreValue(truth, Value{std::int64_t{-1}});
    EXPECT_TRUE(truth);
}

TEST(CheckIndex, RefusesWhatIsOutside) {
    EXPECT_NO_THROW(CheckIndex(0, 1));
    EXPECT_THROW(CheckIndex(-1, 1), RuntimeError);
    EXPECT_THROW(CheckIndex(1, 1), RuntimeError);
}

TEST(ListVariables, NamesEachVariableOnce) {
    const VariableList list = ListVariables();
    std::set<std::string> names;
    for (const Variable& variable : list.variables) {
        EXPECT_TRUE(names.insert(variable.name).second) << variable.name;
        EXPECT_TRUE(variable.get) << variable.name;
    }
    for (const char* name : {"Message_Interval", "MessageId", "StatusText", "HistoryIndex",
                             "SettingsFile", "PosCloud1", "FrameStart", "FrameEnd"}) {
        EXPECT_TRUE(names.contains(name)) << name;
    }
}

}  // namespace
}  // namespace cumeron
