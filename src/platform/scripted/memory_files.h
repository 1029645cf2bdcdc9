// The file system of the scripted platform: files in memory with Windows or POSIX names, and the
// disk that fills when the script says so. cumeron-drive and the tests of the core drive it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace cumeron {

class MemoryFiles : public Files {
public:
    MemoryFiles() { SetStyle(PathStyle::Windows); }

    // Windows: drives C: and D:, current folder C:\CUMERON, settings in C:\WINDOWS, case ignored.
    // POSIX: current folder /home/user, settings in /home/user/.config/cumeron. A change takes the
    // settings files along and drops the others.
    void SetStyle(PathStyle newStyle);

    PathStyle Style() const override { return style; }
    std::string SettingsFolder() const override;
    bool Exists(const std::string& name) override;
    std::string Read(const std::string& name) override;
    void Append(const std::string& name, std::string_view text) override;
    void AppendSafely(const std::string& name, std::string_view text) override {
        Append(name, text);
    }
    std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
    std::unique_ptr<OutputFile> OpenForAppending(const std::string& name) override;
    bool IsSame(const std::string& name, const std::string& other) override;
    void Delete(const std::string& name) override;
    std::string CurrentFolder() const override;
    // Windows: a drive alone, "D:", goes to the folder in which that drive was left, and raises 68
    // when there is no such drive.
    void ChangeFolder(const std::string& name) override;
    std::vector<std::string> Drives() override;
    std::vector<std::string> FoldersIn(const std::string& folder) override;
    void Replace(const std::string& name, std::string_view text) override;
    std::optional<double> FreeDiskSpace(const std::string& drive) override;

    // What the script does itself: no errors of the disk, missing folders are made. Both raise 76
    // for a drive that there is not.
    void Put(const std::string& name, const std::string& text);
    void MakeFolder(const std::string& name);
    std::optional<std::string> Content(const std::string& name) const;
    std::vector<std::string> Names() const;  // full names, in order

    // The next open of name raises this error.
    void FailNextOpen(const std::string& name, int error);
    // Free bytes of a drive as the program names it, or of a folder and what lies in it; nothing
    // makes the call fail.
    void SetFreeDiskSpace(const std::string& drive, std::optional<double> bytes);
    // Writes raise 61 from now on; when that many more bytes are written; the next write alone.
    void FillDisk() { room = 0; }
    void FillDiskAfter(std::size_t bytes) { room = bytes; }
    void FailNextWrite() { nextWriteFails = true; }
    void EmptyDisk();

private:
    struct File {
        std::string name;  // as it was first written, in full
        std::shared_ptr<std::string> text = std::make_shared<std::string>();
    };
    class Input;
    class Output;

    std::string Full(const std::string& name) const;
    std::string Key(const std::string& name) const;
    char Separator() const { return style == PathStyle::Windows ? '\\' : '/'; }
    std::string FolderOf(const std::string& full) const;
    std::string FullWindows(std::string name) const;
    const File& FileToRead(const std::string& name);
    bool IsFolder(const std::string& full) const;
    void AddFolder(const std::string& full);
    void RaiseOpenError(const std::string& name);
    void CheckWritable(const std::string& name);
    std::shared_ptr<std::string> FileToAppend(const std::string& name);
    void Write(std::string& file, std::string_view text);
    std::string& TextOf(const std::string& name);

    PathStyle style = PathStyle::Windows;
    std::map<std::string, File> files;                  // by key
    std::map<std::string, std::string> folders;         // full names by key
    std::map<std::string, std::string> currentFolders;  // by drive; POSIX: the one of ""
    std::string currentDrive;                           // "C:"; POSIX: ""
    std::map<std::string, int> openErrors;
    std::map<std::string, std::optional<double>> freeSpace;
    std::optional<std::size_t> room;  // bytes that still fit; nothing: no end in sight
    bool nextWriteFails = false;
};

}  // namespace cumeron
