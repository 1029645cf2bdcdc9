#include "platform/host/running_copies.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace cumeron {
namespace {

bool IsOurs(const std::string& folder) {
    struct stat found {};
    return ::lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == ::getuid() && (found.st_mode & 077) == 0;
}

bool MakeOurs(const std::string& folder) {
    return (::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) && IsOurs(folder);
}

}  // namespace

std::string MarksFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime == '/') {
        std::string folder = std::string(runtime) + "/cumeron";
        if (MakeOurs(folder)) return folder;
    }
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error) return "";
    std::string folder = (temporary / ("cumeron-" + std::to_string(::getuid()))).string();
    return MakeOurs(folder) ? folder : "";
}

HostRunningCopies::HostRunningCopies(std::string marks) : folder(std::move(marks)) {
    if (folder.empty()) return;
    lock = ::open((folder + "/lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock >= 0) ::flock(lock, LOCK_SH);
}

HostRunningCopies::~HostRunningCopies() {
    if (lock >= 0) ::close(lock);
}

// Only the one copy that runs alone can have the lock to itself; it is shared again at once.
bool HostRunningCopies::AnotherRuns() {
    if (lock < 0) return false;
    const bool alone = ::flock(lock, LOCK_EX | LOCK_NB) == 0;
    ::flock(lock, LOCK_SH);
    return !alone;
}

std::string HostRunningCopies::MarkFile(int number) const {
    return folder + "/CUMERON" + std::to_string(number) + ".INI";
}

bool HostRunningCopies::HasMark(int number) {
    return !folder.empty() && ::access(MarkFile(number).c_str(), F_OK) == 0;
}

void HostRunningCopies::AddMark(int number) {
    if (folder.empty()) return;
    const int file = ::open(MarkFile(number).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    if (file >= 0) ::close(file);
}

void HostRunningCopies::DeleteMark(int number) {
    if (!folder.empty()) ::unlink(MarkFile(number).c_str());
}

}  // namespace cumeron
