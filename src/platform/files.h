// The file system as the program sees it. Names are the program's own (with the path style of the
// platform); a bare name of a settings file is looked up in the settings folder by the caller's
// use of SettingsFolder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cumeron {

enum class PathStyle { Windows, Posix };

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
    // Replaces the whole file in one step (a temporary file beside it, synced, renamed): after a
    // failure the old file stands as it was. Makes the folder if missing. Raises as Append.
    virtual void Replace(const std::string& name, std::string_view text) = 0;
    // Free bytes of the drive; nothing when it cannot be told.
    virtual std::optional<double> FreeDiskSpace(const std::string& drive) = 0;
};

}  // namespace cumeron
