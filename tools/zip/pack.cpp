#include "pack.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "archive.h"

extern char** environ;

namespace cumeron::zip {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// Two that pack into one archive would each replace what the other has added. Whoever gets the lock
// makes sure that the file is still the one that others see.
class ArchiveLock {
public:
    explicit ArchiveLock(const std::string& archive) : path(archive + ".lock") {
        do {
            if (file >= 0) ::close(file);
            file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
            if (file < 0 || ::flock(file, LOCK_EX) != 0) Fail(path);
        } while (!IsSeen());
    }
    ~ArchiveLock() {
        ::unlink(path.c_str());
        ::close(file);
    }
    ArchiveLock(const ArchiveLock&) = delete;
    ArchiveLock& operator=(const ArchiveLock&) = delete;

private:
    bool IsSeen() const {
        struct stat held {
        }, seen{};
        return ::fstat(file, &held) == 0 && ::stat(path.c_str(), &seen) == 0 &&
               held.st_ino == seen.st_ino;
    }

    std::string path;
    int file = -1;
};

// A folder in which the log has the name that it is to have in the archive.
class LinkFolder {
public:
    LinkFolder(const fs::path& log, const std::string& name) {
        std::string folder = (fs::temp_directory_path() / "cumeron-zip.XXXXXX").string();
        if (::mkdtemp(folder.data()) == nullptr) Fail(folder);
        link = fs::path(folder) / name;
        std::error_code error;
        fs::create_symlink(fs::absolute(log), link, error);
        if (!error) return;
        Remove();
        throw std::system_error(error, link.string());
    }
    ~LinkFolder() { Remove(); }
    LinkFolder(const LinkFolder&) = delete;
    LinkFolder& operator=(const LinkFolder&) = delete;
    std::string Link() const { return link.string(); }

private:
    void Remove() {
        std::error_code ignored;
        fs::remove_all(link.parent_path(), ignored);
    }

    fs::path link;
};

// The words reach zip as they are; no shell reads them.
void RunZip(std::string archive, std::string file) {
    std::string program = "zip", quiet = "-q", withoutFolders = "-j";
    const std::array<char*, 6> words = {program.data(), quiet.data(), withoutFolders.data(),
                                        archive.data(), file.data(),  nullptr};
    // Standing switches of the operator's, which could remove members or store the mere link.
    ::unsetenv("ZIPOPT");
    ::unsetenv("ZIP");
    pid_t child = 0;
    errno = ::posix_spawnp(&child, words[0], nullptr, nullptr, words.data(), environ);
    if (errno != 0) Fail("zip");
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error("zip could not pack the log");
    }
}

struct stat StateOf(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0) Fail(path);
    return found;
}

bool IsUnchanged(const struct stat& before, const struct stat& now) {
    return before.st_ino == now.st_ino && before.st_size == now.st_size &&
           before.st_mtim.tv_sec == now.st_mtim.tv_sec &&
           before.st_mtim.tv_nsec == now.st_mtim.tv_nsec;
}

bool Holds(const std::vector<Member>& members, const std::string& content) {
    const std::uint32_t checksum = Checksum(content);
    return std::ranges::any_of(members, [&](const Member& member) {
        return member.size == content.size() && member.checksum == checksum;
    });
}

// So that a power failure does not take the archive after the log has gone.
void Sync(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) Fail(path);
    // EINVAL: a file system that has nothing to make safe for a folder.
    const int error = ::fsync(file) == 0 || errno == EINVAL ? 0 : errno;
    ::close(file);
    errno = error;
    if (error != 0) Fail(path);
}

}  // namespace

bool Pack(std::string archive, const std::string& log, Afterwards afterwards) {
    if (!archive.ends_with(".zip")) archive += ".zip";
    archive = fs::absolute(archive).string();
    const struct stat before = StateOf(log);
    const std::string content = ReadWhole(log);

    const ArchiveLock lock(archive);
    const std::vector<Member> members = MembersOf(archive);
    // A log that is packed already was not removed then.
    if (!Holds(members, content)) {
        const std::string name = FreeName(fs::path(log).filename().string(), members);
        RunZip(archive, LinkFolder(log, name).Link());
    }
    const bool packed = Holds(MembersOf(archive), content);
    if (packed && afterwards == Afterwards::Remove) {
        Sync(archive);
        Sync(fs::path(archive).parent_path().string());
    }
    // The last look before the log goes: logging may have gone on in the same hour.
    const bool unchanged = IsUnchanged(before, StateOf(log));
    if (!packed && unchanged) throw std::runtime_error(archive + " does not hold the log");
    if (!packed || !unchanged) return false;
    if (afterwards == Afterwards::Keep) return true;
    if (::unlink(log.c_str()) != 0) Fail(log);
    return true;
}

}  // namespace cumeron::zip
