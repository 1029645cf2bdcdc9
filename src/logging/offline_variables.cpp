// The names of the replay's variables.
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
}

}  // namespace cumeron
