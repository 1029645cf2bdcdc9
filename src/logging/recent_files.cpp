#include "logging/recent_files.h"

#include <algorithm>
#include <vector>

#include "logging/playback.h"
#include "platform/profile_file.h"
#include "platform/runtime/errors.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr const char* Section = "recent";
using Names = std::vector<std::string>;

char Separator(const Workstation& w) { return SeparatorOf(w.platform.files.Style()); }

std::string ListName(const Workstation& w) {
    return w.platform.files.SettingsFolder() + Separator(w) + "recent.ini";
}

std::string ListText(Workstation& w) {
    std::string text;
    ResumeNext([&] { text = w.platform.files.Read(ListName(w)); });
    return text;
}

std::string KeyOf(std::size_t index) { return std::to_string(index + 1); }

Names ReadNames(const std::string& text) {
    Names names;
    for (std::size_t i = 0; i < FrmMain::RecentFiles; ++i) {
        const std::string name = ProfileValue(text, Section, KeyOf(i), "");
        if (!name.empty()) names.push_back(name);
    }
    return names;
}

// The quotes keep blanks and quotes at the ends of a name.
std::string WithNames(std::string text, const Names& names) {
    for (std::size_t i = 0; i < FrmMain::RecentFiles; ++i) {
        const std::string value = i < names.size() ? "\"" + names[i] + "\"" : "";
        text = WithProfileValue(text, Section, KeyOf(i), value);
    }
    return text;
}

// "&1 A6111514.DAT"; what is an ampersand in the name shall be seen as one.
std::string CaptionOf(const Workstation& w, std::size_t index, const std::string& name) {
    std::string caption = "&" + KeyOf(index) + " ";
    for (const char c : name.substr(name.rfind(Separator(w)) + 1)) {
        caption += c;
        if (c == '&') caption += c;
    }
    return caption;
}

void ShowNames(Workstation& w, const Names& names) {
    for (std::size_t i = 0; i < FrmMain::RecentFiles; ++i) {
        MenuEntry& entry = w.frmMain.mnuRecent[i];
        const std::string name = i < names.size() ? names[i] : "";
        entry.Visible = !name.empty();
        entry.ToolTipText = name;
        entry.Caption = CaptionOf(w, i, name);
    }
}

}  // namespace

void ReadRecentFiles(Workstation& w) { ShowNames(w, ReadNames(ListText(w))); }

void NoteRecentFile(Workstation& w, const std::string& name) {
    // A line of the list takes no line end; such a name can still be chosen in the dialog.
    if (std::ranges::any_of(name, [](unsigned char c) { return c < ' '; })) return;
    const std::string text = ListText(w);  // another copy may have noted files too
    Names names = ReadNames(text);
    std::erase(names, name);
    names.insert(names.begin(), name);
    names.resize(std::min(names.size(), FrmMain::RecentFiles));
    ShowNames(w, names);
    ResumeNext([&] { w.platform.files.Replace(ListName(w), WithNames(text, names)); });
}

void OpenRecentFile(Workstation& w, std::size_t index) {
    const std::string name = w.frmMain.mnuRecent.at(index).ToolTipText;
    if (!name.empty()) OpenDropped(w, {name});
}

}  // namespace cumeron
