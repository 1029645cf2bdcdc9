// Marks of running copies: empty files in a folder of the user's own, $XDG_RUNTIME_DIR/cumeron or
// one under the temporary folder, and a lock that dies with its process. Part of the host
// platform.
#pragma once

#include "platform/platform.h"

namespace cumeron {

// A folder that belongs to this user alone, made if missing; "" when there is none to be had,
// since a folder of somebody else's could be made to lie.
std::string MarksFolder();

class HostRunningCopies : public RunningCopies {
public:
    // Without a folder every copy takes itself for the only one.
    explicit HostRunningCopies(std::string folder);
    ~HostRunningCopies() override;
    HostRunningCopies(const HostRunningCopies&) = delete;
    HostRunningCopies& operator=(const HostRunningCopies&) = delete;

    bool AnotherRuns() override;
    bool HasMark(int number) override;
    void AddMark(int number) override;
    void DeleteMark(int number) override;

private:
    std::string MarkFile(int number) const;

    std::string folder;
    int lock = -1;  // shared by every running copy
};

}  // namespace cumeron
