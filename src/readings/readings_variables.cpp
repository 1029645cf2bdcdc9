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
}

}  // namespace cumeron
