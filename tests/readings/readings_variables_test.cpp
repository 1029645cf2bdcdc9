#include <gtest/gtest.h>

#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {
namespace {

TEST(ReadingsVariables, AreAllThereByName) {
    ScriptedMachine machine;
    Workstation w(machine.platform);
    w.readings.AngleText = "+02";
    w.readings.AngleValue = 2;
    w.readings.Tilted = 1;
    w.readings.WindowCondition = "98% (Ok)";
    w.readings.StatusDigits = {8, 4};
    w.readings.StatusText = "all";
    w.sky.SkyValid = 1;
    w.sky.SkyAmounts = {3, 5};
    w.sky.SkyHeights = {" 0450", " 1200"};
    VariableList list;
    ListReadingsVariables(list);
    std::string seen;
    for (const Variable& variable : list.variables) {
        const std::vector<long> indices(static_cast<std::size_t>(variable.indexCount), 1);
        seen += variable.name + "=" + AsText(variable.get(w, indices)) + ";";
    }
    EXPECT_EQ(seen,
              "AngleText=+02;AngleValue=2;Tilted=1;WindowCondition=98% (Ok);StatusDigits=4;"
              "StatusText=all;AlarmWarningText=Laser Temperature shut-off (A)\rb26 Unknown (A);"
              "SkyValid=1;SkyAmounts=5;SkyHeights= 1200;");
}

TEST(ReadingsVariables, TheWordOfAnAmountDependsOnTheModel) {
    ScriptedMachine machine;
    Workstation w(machine.platform);
    VariableList list;
    ListReadingsVariables(list);
    ASSERT_EQ(list.functions.size(), 1U);
    EXPECT_EQ(list.functions[0].name, "SkyAmountText");
    EXPECT_EQ(list.functions[0].argumentCount, 1);
    EXPECT_EQ(AsText(list.functions[0].call(w, {"-1"})), "Miss");
    w.settings.CEILOMETER = 10;
    LoadModel(w, LoadedBy::Start);
    EXPECT_EQ(AsText(list.functions[0].call(w, {"-1"})), "Na");
}

TEST(ReadingsVariables, WhatIsWorkedOutCannotBeSet) {
    VariableList list;
    ListReadingsVariables(list);
    for (const Variable& variable : list.variables) {
        EXPECT_EQ(static_cast<bool>(variable.set), variable.name != "AlarmWarningText")
            << variable.name;
    }
}

}  // namespace
}  // namespace cumeron
