// The names of the variables of the replay and of its export.
#include "variables.h"
#include "workstation.h"

namespace cumeron {

void ListOfflineVariables(VariableList& list) {
    list.Add(
        "OfflineFileNo", [](Workstation & w) -> auto& { return w.offline.OfflineFileNo; });
    list.Add(
        "OfflineFileName", [](Workstation & w) -> auto& { return w.offline.OfflineFileName; });
    list.Add(
        "OfflineFileCount", [](Workstation & w) -> auto& { return w.offline.OfflineFileCount; });
    list.Add(
        "OfflineFileIndex", [](Workstation & w) -> auto& { return w.offline.OfflineFileIndex; });
    list.AddArray(
        "OfflineFileList", [](Workstation & w) -> auto& { return w.offline.OfflineFileList; });
    list.Add(
        "OfflineMessageNo", [](Workstation & w) -> auto& { return w.offline.OfflineMessageNo; });
    list.AddArray(
        "OfflineRecordPos", [](Workstation & w) -> auto& { return w.offline.OfflineRecordPos; });
    list.Add(
        "PlayStopRequested", [](Workstation & w) -> auto& { return w.offline.PlayStopRequested; });
    list.Add(
        "ExportFileNo", [](Workstation & w) -> auto& { return w.exporting.ExportFileNo; });
    list.Add(
        "ExportHeaderDue", [](Workstation & w) -> auto& { return w.exporting.ExportHeaderDue; });
}

}  // namespace cumeron
