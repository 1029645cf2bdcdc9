#include "platform/scripted/memory_files.h"

#include <algorithm>
#include <utility>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {

namespace {

constexpr double FreeSpaceAtFirst = 3000000000.0;

bool HasDrive(const std::string& name) { return name.size() >= 2 && name[1] == ':'; }

// The parts between separators, with "." and ".." carried out.
std::vector<std::string> PartsOfPath(const std::string& path, char separator) {
    std::vector<std::string> parts;
    std::size_t at = 0;
    while (at <= path.size()) {
        const std::size_t end = std::min(path.find(separator, at), path.size());
        const std::string part = path.substr(at, end - at);
        at = end + 1;
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
    }
    return parts;
}

std::string JoinPath(const std::string& root, const std::vector<std::string>& parts,
                     char separator) {
    std::string path = root;
    for (const std::string& part : parts) {
        if (path.back() != separator) path += separator;
        path += part;
    }
    return path;
}

}  // namespace

// Stays what it was when it is deleted meanwhile, and grows with what is appended.
class MemoryFiles::Input : public InputFile {
public:
    explicit Input(std::shared_ptr<const std::string> shared) : text(std::move(shared)) {}
    std::size_t Read(char* bytes, std::size_t most) override {
        const std::size_t start = std::min(static_cast<std::size_t>(place), text->size());
        const std::size_t count = text->copy(bytes, most, start);
        place += static_cast<std::int64_t>(count);
        return count;
    }
    std::int64_t Size() override { return static_cast<std::int64_t>(text->size()); }
    void Seek(std::int64_t position) override { place = position; }

private:
    std::shared_ptr<const std::string> text;
    std::int64_t place = 0;
};

class MemoryFiles::Output : public OutputFile {
public:
    Output(MemoryFiles& files, std::shared_ptr<std::string> shared)
        : disk(files), text(std::move(shared)) {}
    void Write(std::string_view added) override { disk.Write(*text, added); }

private:
    MemoryFiles& disk;
    std::shared_ptr<std::string> text;
};

void MemoryFiles::SetStyle(PathStyle newStyle) {
    std::vector<File> settingsFiles;
    for (auto& [key, file] : files) {
        if (FolderOf(file.name) == SettingsFolder()) settingsFiles.push_back(std::move(file));
    }
    const char oldSeparator = Separator();
    style = newStyle;
    files.clear();
    folders.clear();
    if (style == PathStyle::Windows) {
        currentDrive = "C:";
        currentFolders = {{"C:", "C:\\CUMERON"}, {"D:", "D:\\"}};
        folders = {{Key("C:\\"), "C:\\"}, {Key("D:\\"), "D:\\"}};
        AddFolder("C:\\CUMERON");
    } else {
        currentDrive = "";
        currentFolders = {{"", "/home/user"}};
        folders = {{"/", "/"}};
        AddFolder("/home/user");
        AddFolder("/usr/bin");
        AddFolder("/tmp");
    }
    AddFolder(SettingsFolder());
    for (const File& file : settingsFiles) {
        const std::string bare = file.name.substr(file.name.rfind(oldSeparator) + 1);
        Put(SettingsFolder() + Separator() + bare, *file.text);
    }
}

std::string MemoryFiles::SettingsFolder() const {
    return style == PathStyle::Windows ? "C:\\WINDOWS" : "/home/user/.config/cumeron";
}

std::string MemoryFiles::Full(const std::string& name) const {
    if (style == PathStyle::Windows) return FullWindows(name);
    const std::string path = name.starts_with('/') ? name : CurrentFolder() + "/" + name;
    return JoinPath("/", PartsOfPath(path, '/'), '/');
}

// A name without a drive is one of the current drive, a name without a separator behind the drive
// one of the folder in which that drive was left.
std::string MemoryFiles::FullWindows(std::string name) const {
    std::replace(name.begin(), name.end(), '/', '\\');
    const std::string drive = HasDrive(name) ? UpperCase(name.substr(0, 2)) : currentDrive;
    std::string path = HasDrive(name) ? name.substr(2) : name;
    const auto current = currentFolders.find(drive);
    if (!path.starts_with('\\') && current != currentFolders.end()) {
        path = current->second.substr(2) + "\\" + path;
    }
    return JoinPath(drive + "\\", PartsOfPath(path, '\\'), '\\');
}

std::string MemoryFiles::Key(const std::string& name) const {
    return style == PathStyle::Windows ? LowerCase(Full(name)) : Full(name);
}

std::string MemoryFiles::FolderOf(const std::string& full) const {
    const std::size_t last = full.rfind(Separator());
    const std::size_t root = full.find(Separator());
    return full.substr(0, last == root ? last + 1 : last);
}

bool MemoryFiles::IsFolder(const std::string& full) const { return folders.contains(Key(full)); }

void MemoryFiles::AddFolder(const std::string& full) {
    if (IsFolder(full)) return;
    const std::string parent = FolderOf(full);
    if (Key(parent) == Key(full)) throw RuntimeError(76);
    AddFolder(parent);
    folders.emplace(Key(full), full);
}

bool MemoryFiles::Exists(const std::string& name) { return files.contains(Key(name)); }

void MemoryFiles::RaiseOpenError(const std::string& name) {
    const auto found = openErrors.find(Key(name));
    if (found == openErrors.end()) return;
    const int error = found->second;
    openErrors.erase(found);
    throw RuntimeError(error);
}

const MemoryFiles::File& MemoryFiles::FileToRead(const std::string& name) {
    RaiseOpenError(name);
    const auto found = files.find(Key(name));
    if (found != files.end()) return found->second;
    if (IsFolder(Full(name))) throw RuntimeError(75);
    throw RuntimeError(IsFolder(FolderOf(Full(name))) ? 53 : 76);
}

std::string MemoryFiles::Read(const std::string& name) { return *FileToRead(name).text; }

std::unique_ptr<InputFile> MemoryFiles::OpenForReading(const std::string& name) {
    return std::make_unique<Input>(FileToRead(name).text);
}

std::unique_ptr<OutputFile> MemoryFiles::OpenForAppending(const std::string& name) {
    return std::make_unique<Output>(*this, FileToAppend(name));
}

bool MemoryFiles::IsSame(const std::string& name, const std::string& other) {
    return Exists(name) && Key(name) == Key(other);
}

void MemoryFiles::Delete(const std::string& name) {
    if (IsFolder(Full(name))) throw RuntimeError(75);
    if (files.erase(Key(name)) == 0) throw RuntimeError(53);
}

std::string MemoryFiles::CurrentFolder() const { return currentFolders.at(currentDrive); }

void MemoryFiles::ChangeFolder(const std::string& name) {
    const std::string full = Full(name);
    const bool driveAlone = style == PathStyle::Windows && HasDrive(name) && name.size() == 2;
    if (driveAlone && !currentFolders.contains(UpperCase(name))) throw RuntimeError(68);
    if (!IsFolder(full)) throw RuntimeError(76);
    currentDrive = style == PathStyle::Windows ? full.substr(0, 2) : "";
    currentFolders[currentDrive] = full;
}

std::vector<std::string> MemoryFiles::Drives() {
    if (style == PathStyle::Windows) return {"C:", "D:"};
    return {"/"};
}

std::vector<std::string> MemoryFiles::FoldersIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& [key, full] : folders) {
        const bool isRoot = FolderOf(full) == full;
        if (isRoot || Key(FolderOf(full)) != Key(folder)) continue;
        names.push_back(full.substr(full.rfind(Separator()) + 1));
    }
    return names;
}

void MemoryFiles::CheckWritable(const std::string& name) {
    RaiseOpenError(name);
    if (IsFolder(Full(name))) throw RuntimeError(75);
}

std::string& MemoryFiles::TextOf(const std::string& name) {
    return *files.try_emplace(Key(name), File{Full(name)}).first->second.text;
}

std::shared_ptr<std::string> MemoryFiles::FileToAppend(const std::string& name) {
    CheckWritable(name);
    if (!IsFolder(FolderOf(Full(name)))) throw RuntimeError(76);
    return files.try_emplace(Key(name), File{Full(name)}).first->second.text;
}

void MemoryFiles::Append(const std::string& name, std::string_view text) {
    Write(*FileToAppend(name), text);
}

void MemoryFiles::Write(std::string& file, std::string_view text) {
    if (text.empty()) return;
    if (std::exchange(nextWriteFails, false)) throw RuntimeError(61);
    const std::size_t fits = std::min(text.size(), room.value_or(text.size()));
    file += text.substr(0, fits);
    if (room) *room -= fits;
    if (fits < text.size()) throw RuntimeError(61);
}

void MemoryFiles::Replace(const std::string& name, std::string_view text) {
    CheckWritable(name);
    AddFolder(FolderOf(Full(name)));
    if (!text.empty()) {
        if (std::exchange(nextWriteFails, false)) throw RuntimeError(61);
        if (room && *room < text.size()) throw RuntimeError(61);
        if (room) *room -= text.size();
    }
    TextOf(name) = text;
}

std::optional<double> MemoryFiles::FreeDiskSpace(const std::string& drive) {
    std::string place = Full(drive + "/");
    if (!IsFolder(place) && !freeSpace.contains(Key(place))) return std::nullopt;
    while (true) {
        const auto found = freeSpace.find(Key(place));
        if (found != freeSpace.end()) return found->second;
        const std::string above = FolderOf(place);
        if (above == place) return FreeSpaceAtFirst;
        place = above;
    }
}

void MemoryFiles::Put(const std::string& name, const std::string& text) {
    AddFolder(FolderOf(Full(name)));
    TextOf(name) = text;
}

void MemoryFiles::MakeFolder(const std::string& name) { AddFolder(Full(name)); }

std::optional<std::string> MemoryFiles::Content(const std::string& name) const {
    const auto found = files.find(Key(name));
    if (found == files.end()) return std::nullopt;
    return *found->second.text;
}

std::vector<std::string> MemoryFiles::Names() const {
    std::vector<std::string> names;
    for (const auto& [key, file] : files) names.push_back(file.name);
    return names;
}

void MemoryFiles::FailNextOpen(const std::string& name, int error) {
    openErrors[Key(name)] = error;
}

void MemoryFiles::SetFreeDiskSpace(const std::string& drive, std::optional<double> bytes) {
    freeSpace[Key(drive + "/")] = bytes;
}

void MemoryFiles::EmptyDisk() {
    room.reset();
    nextWriteFails = false;
}

}  // namespace cumeron
