#include "logging/file_set.h"

#include <algorithm>

#include "logging/log_file.h"
#include "logging/playback.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::size_t FirstOfSet = 2, SecondOfSet = 3;  // elements of OfflineFileList

std::size_t LastSeparator(const Workstation& w, const std::string& name) {
    return name.rfind(SeparatorOf(w.platform.files.Style()));
}

// The folder of a full name, without the separator; the current one for a bare name.
std::string FolderOf(const Workstation& w, const std::string& name) {
    const std::size_t last = LastSeparator(w, name);
    return last == name.npos ? w.platform.files.CurrentFolder() : name.substr(0, last);
}

std::string BareName(const Workstation& w, const std::string& name) {
    return name.substr(LastSeparator(w, name) + 1);
}

// kept: the name that was chosen first stays the first, and only those behind it are sorted; with
// it the operator says where the replay begins.
void SortFileList(std::vector<std::string>& list) {
    if (list.size() > SecondOfSet) std::sort(list.begin() + SecondOfSet, list.end());
}

std::string NameOfSet(const Workstation& w, std::size_t element) {
    const std::vector<std::string>& list = w.offline.OfflineFileList;
    return WithSeparator(w.platform.files.Style(), list.at(1), list.at(element));
}

void SelectOfSet(Workstation& w, std::size_t element) {
    w.offline.OfflineFileIndex = ToInt16(static_cast<double>(element));
    w.offline.OfflineFileName = NameOfSet(w, element);
}

void ShowFileInCaption(Workstation& w) {
    w.frmMain.Caption = w.shell.MainTitle + "  [" + w.offline.OfflineFileName + "]";
}

}  // namespace

std::string JoinedChoice(const Workstation& w, const std::vector<std::string>& names) {
    if (names.size() == 1) return names.front();
    const std::string folder = FolderOf(w, names.front());
    std::string chosen = folder;
    for (const std::string& name : names) {
        if (FolderOf(w, name) != folder) return "";
        chosen += '\0' + BareName(w, name);
    }
    return chosen;
}

void TakeChosen(Workstation& w, const std::string& chosen) {
    OfflineState& offline = w.offline;
    offline.OfflineFileList = {""};
    std::size_t from = 0;
    while (from <= chosen.size()) {
        const std::size_t end = std::min(chosen.find('\0', from), chosen.size());
        offline.OfflineFileList.push_back(chosen.substr(from, end - from));
        from = end + 1;
    }
    offline.OfflineFileCount = ToInt16(static_cast<double>(offline.OfflineFileList.size() - 1));
    if (offline.OfflineFileCount < 2) {
        offline.OfflineFileName = chosen;
        return;
    }
    SortFileList(offline.OfflineFileList);
    SelectOfSet(w, FirstOfSet);
}

void OpenSelected(Workstation& w) {
    CloseOfflineFile(w);
    OpenOfflineFile(w, w.offline.OfflineFileName);
    ShowFileInCaption(w);
    UpdateProgress(w);
}

bool IsOfSet(Workstation& w, const std::string& name) {
    for (std::size_t i = FirstOfSet; i < w.offline.OfflineFileList.size(); ++i) {
        if (w.platform.files.IsSame(name, NameOfSet(w, i))) return true;
    }
    return false;
}

void OpenFirstOfSet(Workstation& w) {
    if (w.offline.OfflineFileCount < 2) return;
    SelectOfSet(w, FirstOfSet);
    OpenSelected(w);
}

bool OpenNextOfSet(Workstation& w) {
    OfflineState& offline = w.offline;
    if (offline.OfflineFileCount < 2 || offline.OfflineFileIndex >= offline.OfflineFileCount) {
        return false;
    }
    SelectOfSet(w, static_cast<std::size_t>(offline.OfflineFileIndex) + 1);
    offline.OfflineMessageNo = 0;
    OpenSelected(w);
    return true;
}

}  // namespace cumeron
