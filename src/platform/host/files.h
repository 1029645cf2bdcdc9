// The file system of the machine. Part of the host platform.
#pragma once

#include "platform/files.h"

namespace cumeron {

// The run-time error for a refusal of the system: 53 missing file, 57 device error, 61 full, 67 too
// many open files, 70 not permitted, 76 missing folder, 75 anything else.
int FileErrorNumber(int systemCode);

class HostFiles : public Files {
public:
    PathStyle Style() const override { return PathStyle::Posix; }
    // $XDG_CONFIG_HOME/cumeron or ~/.config/cumeron, in the bytes of the file system.
    std::string SettingsFolder() const override;
    bool Exists(const std::string& name) override;
    std::string Read(const std::string& name) override;
    void Append(const std::string& name, std::string_view text) override;
    void AppendSafely(const std::string& name, std::string_view text) override;
    std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
    std::unique_ptr<OutputFile> OpenForAppending(const std::string& name) override;
    bool IsSame(const std::string& name, const std::string& other) override;
    void Delete(const std::string& name) override;
    std::string CurrentFolder() const override;
    void ChangeFolder(const std::string& name) override;
    std::vector<std::string> Drives() override;
    std::vector<std::string> FoldersIn(const std::string& folder) override;
    // Also takes away the temporary files of processes that were killed in a save of that file.
    void Replace(const std::string& name, std::string_view text) override;
    std::optional<double> FreeDiskSpace(const std::string& drive) override;
};

}  // namespace cumeron
