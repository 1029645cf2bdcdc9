#include "platform/runtime/text.h"
#include "readings/sky_condition.h"
#include "readings/status_words.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {

void ListReadingsVariables(VariableList& list) {
    list.Add(
        "AngleText", [](Workstation & w) -> auto& { return w.readings.AngleText; });
    list.Add(
        "AngleValue", [](Workstation & w) -> auto& { return w.readings.AngleValue; });
    list.Add(
        "Tilted", [](Workstation & w) -> auto& { return w.readings.Tilted; });
    list.Add(
        "WindowCondition", [](Workstation & w) -> auto& { return w.readings.WindowCondition; });
    list.AddArray(
        "StatusDigits", [](Workstation & w) -> auto& { return w.readings.StatusDigits; });
    list.Add(
        "StatusText", [](Workstation & w) -> auto& { return w.readings.StatusText; });
    // Worked out from StatusDigits at each asking, so it cannot be set.
    list.variables.push_back(
        {"AlarmWarningText",
         0,
         [](Workstation& w, const std::vector<long>&) -> Value { return AlarmWarningText(w); },
         {}});
    list.Add(
        "SkyValid", [](Workstation & w) -> auto& { return w.sky.SkyValid; });
    list.AddArray(
        "SkyAmounts", [](Workstation & w) -> auto& { return w.sky.SkyAmounts; });
    list.AddArray(
        "SkyHeights", [](Workstation & w) -> auto& { return w.sky.SkyHeights; });
    list.functions.push_back(
        {"SkyAmountText", 1,
         [](Workstation& w, const std::vector<std::string>& arguments) -> Value {
             return std::string(SkyAmountText(ToInt16(arguments[0]), w.model.family));
         }});
}

}  // namespace cumeron
