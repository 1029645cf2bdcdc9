#include "platform/host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <QStorageInfo>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(int systemCode) {
    throw RuntimeError(FileErrorNumber(systemCode), systemCode);
}

// ENOENT stands for a missing folder as well as for a missing file.
[[noreturn]] void FailToOpen(const std::string& path, int systemCode) {
    const fs::path folder = fs::path(path).parent_path();
    std::error_code ignored;
    const bool folderMissing = !folder.empty() && !fs::is_directory(folder, ignored);
    throw RuntimeError(systemCode == ENOENT && folderMissing ? 76 : FileErrorNumber(systemCode),
                       systemCode);
}

// Writing makes a missing file, so that what is missing then is its folder.
[[noreturn]] void FailToAppend(const std::string& path, int systemCode) {
    if (systemCode == ENOENT) throw RuntimeError(path.empty() ? 75 : 76, systemCode);
    Fail(systemCode);
}

// A file descriptor that closes itself.
class Descriptor {
public:
    Descriptor(const std::string& path, int flags)
        : number(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~Descriptor() {
        if (number >= 0) ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number; }
    // Some file systems tell only now that the disk is full.
    void Close() {
        if (::close(std::exchange(number, -1)) != 0) Fail(errno);
    }

private:
    int number;
};

void WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            Fail(errno);
        }
    }
}

std::string ReadAll(int descriptor) {
    std::string text;
    char block[65536];
    for (;;) {
        const ssize_t count = ::read(descriptor, block, sizeof block);
        if (count > 0) {
            text.append(block, static_cast<std::size_t>(count));
        } else if (count == 0) {
            return text;
        } else if (errno != EINTR) {
            Fail(errno);
        }
    }
}

// The new contents beside the old file, safe on the disk.
void WriteBeside(const std::string& temporary, const std::string& path, std::string_view text) {
    Descriptor file(temporary, O_WRONLY | O_CREAT | O_TRUNC);
    if (file.Number() < 0) FailToOpen(temporary, errno);
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0) ::fchmod(file.Number(), old.st_mode & 07777);
    WriteAll(file.Number(), text);
    if (::fsync(file.Number()) != 0) Fail(errno);
    file.Close();
}

// So that the new name outlives a power failure; a file system that cannot sync a folder has done
// what it can.
void SyncFolder(const std::string& folder) {
    const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
    if (descriptor.Number() >= 0) ::fsync(descriptor.Number());
}

constexpr std::string_view TemporaryEnd = ".new";

std::string TemporaryName(const std::string& path, const std::string& process) {
    return path + "." + process + std::string(TemporaryEnd);
}

// What a save that was killed has left behind. The files of processes that still live are theirs.
void RemoveLeftOvers(const std::string& folder, const std::string& path) {
    const std::string start = path + ".";
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().string();
        if (name.rfind(start, 0) != 0) continue;
        const int process = std::atoi(name.c_str() + start.size());
        const bool isTemporary =
            process > 0 && name == TemporaryName(path, std::to_string(process));
        if (isTemporary && ::kill(process, 0) != 0 && errno == ESRCH) ::unlink(name.c_str());
    }
}

void SyncFolderOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    SyncFolder(folder.empty() ? "." : folder.string());
}

// Devices and pipes have nothing to sync.
void SyncData(int descriptor) {
    if (::fdatasync(descriptor) != 0 && errno != EINVAL && errno != EROFS) Fail(errno);
}

class HostInput : public InputFile {
public:
    // A pipe that nobody writes to must not hold the program.
    explicit HostInput(const std::string& path) : file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY) {
        if (file.Number() < 0) FailToOpen(path, errno);
        struct stat found {};
        if (::fstat(file.Number(), &found) != 0) Fail(errno);
        if (!S_ISREG(found.st_mode)) Fail(EISDIR);
    }
    std::size_t Read(char* bytes, std::size_t most) override {
        for (;;) {
            const ssize_t count = ::read(file.Number(), bytes, most);
            if (count >= 0) return static_cast<std::size_t>(count);
            if (errno != EINTR) throw RuntimeError(57, errno);
        }
    }
    std::int64_t Size() override {
        struct stat found {};
        return ::fstat(file.Number(), &found) == 0 ? found.st_size : 0;
    }
    void Seek(std::int64_t position) override { ::lseek(file.Number(), position, SEEK_SET); }

private:
    Descriptor file;
};

// Without waiting for the reader of a pipe.
constexpr int ToAppend = O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY;

// What is open for appending: no pipe, into which a text of any length does not go.
void CheckAppending(const std::string& path, const Descriptor& file) {
    if (file.Number() < 0) FailToAppend(path, errno == ENXIO ? EISDIR : errno);
    struct stat found {};
    if (::fstat(file.Number(), &found) == 0 && S_ISFIFO(found.st_mode)) Fail(EISDIR);
}

class HostOutput : public OutputFile {
public:
    explicit HostOutput(std::unique_ptr<Descriptor> opened) : file(std::move(opened)) {}
    void Write(std::string_view text) override { WriteAll(file->Number(), text); }

private:
    std::unique_ptr<Descriptor> file;
};

// Places of the system's own, in which nobody keeps files.
bool IsOfTheSystem(const QString& place) {
    for (const char* folder : {"/proc", "/sys", "/dev", "/run", "/snap", "/boot"}) {
        if (place == folder || place.startsWith(QString(folder) + '/')) {
            return !place.startsWith("/run/media/");
        }
    }
    return false;
}

// The file itself where the name is a link to it.
std::string ResolveLink(const std::string& path) {
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ? path : real.string();
}

}  // namespace

int FileErrorNumber(int systemCode) {
    switch (systemCode) {
        case ENOENT:
            return 53;
        case EIO:
        case ENXIO:
            return 57;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return 61;
        case EMFILE:
        case ENFILE:
            return 67;
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            return 70;
        case ENOTDIR:
            return 76;
        default:
            return 75;
    }
}

std::string HostFiles::SettingsFolder() const {
    // A relative path there counts as unset.
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') {
        const std::string folder = fs::path(config).lexically_normal().string();
        return folder + (folder.back() == '/' ? "cumeron" : "/cumeron");
    }
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.config/cumeron";
}

bool HostFiles::Exists(const std::string& name) {
    return ::access(ToFileName(name).c_str(), F_OK) == 0;
}

std::string HostFiles::Read(const std::string& name) {
    const std::string path = ToFileName(name);
    const Descriptor file(path, O_RDONLY);
    if (file.Number() < 0) FailToOpen(path, errno);
    return ReadAll(file.Number());
}

void HostFiles::Append(const std::string& name, std::string_view text) {
    const std::string path = ToFileName(name);
    Descriptor file(path, ToAppend);
    CheckAppending(path, file);
    WriteAll(file.Number(), text);
    file.Close();
}

void HostFiles::AppendSafely(const std::string& name, std::string_view text) {
    const std::string path = ToFileName(name);
    Descriptor file(path, ToAppend);
    CheckAppending(path, file);
    struct stat before {};
    ::fstat(file.Number(), &before);
    WriteAll(file.Number(), text);
    SyncData(file.Number());
    file.Close();
    if (before.st_size == 0) SyncFolderOf(path);
}

std::unique_ptr<InputFile> HostFiles::OpenForReading(const std::string& name) {
    return std::make_unique<HostInput>(ToFileName(name));
}

std::unique_ptr<OutputFile> HostFiles::OpenForAppending(const std::string& name) {
    const std::string path = ToFileName(name);
    auto file = std::make_unique<Descriptor>(path, ToAppend);
    CheckAppending(path, *file);
    return std::make_unique<HostOutput>(std::move(file));
}

bool HostFiles::IsSame(const std::string& name, const std::string& other) {
    std::error_code ignored;
    return fs::equivalent(ToFileName(name), ToFileName(other), ignored);
}

void HostFiles::Delete(const std::string& name) {
    if (::unlink(ToFileName(name).c_str()) != 0) Fail(errno);
}

std::string HostFiles::CurrentFolder() const {
    std::error_code error;
    return FromFileName(fs::current_path(error).string());
}

void HostFiles::ChangeFolder(const std::string& name) {
    if (::chdir(ToFileName(name).c_str()) != 0) throw RuntimeError(76, errno);
}

std::vector<std::string> HostFiles::Drives() {
    std::vector<std::string> places{"/"};
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString place = volume.rootPath();
        const bool offered = volume.isReady() && volume.bytesTotal() > 0 && place != "/";
        if (!offered || IsOfTheSystem(place)) continue;
        places.push_back(FromFileName(place.toStdString()));
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

std::vector<std::string> HostFiles::FoldersIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(ToFileName(folder), error);
    while (!error && entry != fs::directory_iterator()) {
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            names.push_back(FromFileName(entry->path().filename().string()));
        }
        entry.increment(error);
    }
    std::sort(names.begin(), names.end());
    return names;
}

void HostFiles::Replace(const std::string& name, std::string_view text) {
    const std::string path = ResolveLink(ToFileName(name));
    const fs::path parent = fs::path(path).parent_path();
    const std::string folder = parent.empty() ? "." : parent.string();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) Fail(error.value());
    // A renaming would get past the protection of the file itself.
    if (::access(path.c_str(), F_OK) == 0 && ::access(path.c_str(), W_OK) != 0) Fail(errno);

    RemoveLeftOvers(folder, (fs::path(folder) / fs::path(path).filename()).string());
    const std::string temporary = TemporaryName(path, std::to_string(::getpid()));
    try {
        WriteBeside(temporary, path, text);
        if (::rename(temporary.c_str(), path.c_str()) != 0) Fail(errno);
    } catch (...) {
        ::unlink(temporary.c_str());
        throw;
    }
    SyncFolder(folder);
}

std::optional<double> HostFiles::FreeDiskSpace(const std::string& drive) {
    struct statvfs space {};
    if (::statvfs(ToFileName(drive).c_str(), &space) != 0) return std::nullopt;
    return static_cast<double>(space.f_bavail) * static_cast<double>(space.f_frsize);
}

}  // namespace cumeron
