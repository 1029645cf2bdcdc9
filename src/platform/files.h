// The file system as the program sees it. Names are the program's own (with the path style of the
// platform); a bare name of a settings file is looked up in the settings folder by the caller's
// use of SettingsFolder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cumeron {

enum class PathStyle { Windows, Posix };

constexpr char SeparatorOf(PathStyle style) { return style == PathStyle::Windows ? '\\' : '/'; }

// A file that is open for reading, shared with those who append to it.
class InputFile {
public:
    virtual ~InputFile() = default;
    // Up to most bytes from the place where it stands; 0 at the end. Raises 57.
    virtual std::size_t Read(char* bytes, std::size_t most) = 0;
    virtual std::int64_t Size() = 0;               // bytes, as they are now
    virtual void Seek(std::int64_t position) = 0;  // 0 is the first byte; may lie behind the end
};

// A file that is open for appending, shared with those who read it. It closes when it goes.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    // Behind all that is there. Raises 61 when the disk fills (what fitted is in the file), 57.
    virtual void Write(std::string_view text) = 0;
};

class Files {
public:
    virtual ~Files() = default;

    virtual PathStyle Style() const = 0;
    // Folder of the settings files, without a separator at its end.
    virtual std::string SettingsFolder() const = 0;

    virtual bool Exists(const std::string& name) = 0;
    // Raises 53 when there is none, 70 or 75 when it cannot be read, 76 without its folder.
    virtual std::string Read(const std::string& name) = 0;
    // Appends, making the file if missing; nothing stays open. Raises 61 when the disk fills
    // (what fitted is in the file); 70, 75 or 76 when it cannot be opened (nothing was written).
    virtual void Append(const std::string& name, std::string_view text) = 0;
    // The same, and what was written is safe on the disk before it returns.
    virtual void AppendSafely(const std::string& name, std::string_view text) = 0;
    // Raises 53 when there is none, 70 or 75 when it cannot be read, 76 without its folder.
    virtual std::unique_ptr<InputFile> OpenForReading(const std::string& name) = 0;
    // Makes the file if missing. Raises 67 when no more files can be open; 70, 75 or 76 when this
    // one cannot.
    virtual std::unique_ptr<OutputFile> OpenForAppending(const std::string& name) = 0;
    // Both names lead to one file that is there.
    virtual bool IsSame(const std::string& name, const std::string& other) = 0;
    // Raises 53 when there is none, 70 or 75 when it cannot be removed.
    virtual void Delete(const std::string& name) = 0;
    // Without a separator at its end, but for a root.
    virtual std::string CurrentFolder() const = 0;
    // Raises 76 when it is no folder or cannot be entered.
    virtual void ChangeFolder(const std::string& name) = 0;
    // What a list of drives offers: "C:" and so on; on a system without drives its mounted places,
    // "/" first.
    virtual std::vector<std::string> Drives() = 0;
    // Names of the folders in a folder, in order; none when it cannot be read.
    virtual std::vector<std::string> FoldersIn(const std::string& folder) = 0;
    // Replaces the whole file in one step (a temporary file beside it, synced, renamed): after a
    // failure the old file stands as it was. Makes the folder if missing. Raises as Append.
    virtual void Replace(const std::string& name, std::string_view text) = 0;
    // Free bytes of the drive; nothing when it cannot be told.
    virtual std::optional<double> FreeDiskSpace(const std::string& drive) = 0;
};

}  // namespace cumeron
