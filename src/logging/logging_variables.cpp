// The names of the log's variables.
#include "variables.h"
#include "workstation.h"

namespace cumeron {

void ListLoggingVariables(VariableList& list) {
    list.Add(
        "LogFileNumber", [](Workstation & w) -> auto& { return w.logging.LogFileNumber; });
    list.Add(
        "LogFileName", [](Workstation & w) -> auto& { return w.logging.LogFileName; });
    list.Add(
        "StatusLogFile", [](Workstation & w) -> auto& { return w.logging.StatusLogFile; });
    list.Add(
        "LogDrive", [](Workstation & w) -> auto& { return w.logging.LogDrive; });
    list.AddDate(
        "LogSliceStart", [](Workstation & w) -> auto& { return w.logging.LogSliceStart; });
    list.Add(
        "LogWriteOk", [](Workstation & w) -> auto& { return w.logging.LogWriteOk; });
    list.Add(
        "ReportLogErrors", [](Workstation & w) -> auto& { return w.logging.ReportLogErrors; });
}

}  // namespace cumeron
