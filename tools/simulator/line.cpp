#include "line.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace cumeron::sim {

namespace {

struct Speed {
    int baud;
    speed_t code;
};
constexpr Speed Speeds[] = {{300, B300},     {600, B600},      {1200, B1200},   {2400, B2400},
                            {4800, B4800},   {9600, B9600},    {19200, B19200}, {38400, B38400},
                            {57600, B57600}, {115200, B115200}};

const Speed* FindSpeed(int baud) {
    for (const Speed& speed : Speeds)
        if (speed.baud == baud) return &speed;
    return nullptr;
}

[[noreturn]] void Fail(int fd, const std::string& what) {
    const int error = errno;
    if (fd >= 0) close(fd);
    throw std::system_error(error, std::generic_category(), what);
}

// On the first end of a pseudo terminal this sets the other end, too.
void MakeRaw(int fd, const std::string& name, const Speed* speed) {
    termios modes{};
    if (tcgetattr(fd, &modes) != 0) Fail(fd, name);
    cfmakeraw(&modes);
    modes.c_cflag |= CLOCAL | CREAD;
    if (speed != nullptr && cfsetspeed(&modes, speed->code) != 0) Fail(fd, name);
    if (tcsetattr(fd, TCSANOW, &modes) != 0) Fail(fd, name);
}

void AwaitMilliseconds(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

bool LeadsTo(const std::string& link, const std::string& name) {
    char target[4096];
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    return length >= 0 && name == std::string_view(target, static_cast<std::size_t>(length));
}

}  // namespace

bool IsLineSpeed(int baud) { return FindSpeed(baud) != nullptr; }

Line OpenPseudoTerminal() {
    const int fd = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0 || grantpt(fd) != 0 || unlockpt(fd) != 0) Fail(fd, "pseudo terminal");
    const char* name = ptsname(fd);
    if (name == nullptr) Fail(fd, "pseudo terminal");
    Line line{fd, true, name, ""};
    // The far end tells that nobody listens only after it has been open once.
    const int far = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (far < 0) Fail(fd, line.name);
    close(far);
    MakeRaw(fd, line.name, nullptr);
    return line;
}

Line OpenDevice(const std::string& path, int baud) {
    const Speed* speed = FindSpeed(baud);
    if (speed == nullptr) throw std::invalid_argument("no such line speed");
    const int fd = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) Fail(fd, path);
    MakeRaw(fd, path, speed);
    return {fd, false, path, ""};
}

void LinkLine(Line& line, const std::string& path) {
    struct stat there {};
    if (lstat(path.c_str(), &there) == 0 && S_ISLNK(there.st_mode)) unlink(path.c_str());
    if (symlink(line.name.c_str(), path.c_str()) != 0)
        throw std::system_error(errno, std::generic_category(), path);
    line.link = path;
}

void CloseLine(Line& line) {
    if (!line.link.empty() && LeadsTo(line.link, line.name)) unlink(line.link.c_str());
    line.link.clear();
    if (line.fd >= 0) close(line.fd);
    line.fd = -1;
}

bool HasListener(const Line& line) {
    if (!line.pseudo) return true;
    pollfd state{line.fd, 0, 0};
    return poll(&state, 1, 0) >= 0 && (state.revents & POLLHUP) == 0;
}

std::string ReadLine(const Line& line) {
    char bytes[1024];
    const ssize_t length = read(line.fd, bytes, sizeof bytes);
    return length > 0 ? std::string(bytes, static_cast<std::size_t>(length)) : std::string();
}

std::size_t WriteLine(const Line& line, std::string_view bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        if (!HasListener(line)) return bytes.size();
        const ssize_t length = write(line.fd, bytes.data() + sent, bytes.size() - sent);
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) break;
        sent += static_cast<std::size_t>(length);
    }
    return sent;
}

// Without a listener poll would return at once each time, and the loop around it would spin.
void WaitForInput(const Line& line, int milliseconds) {
    if (!HasListener(line)) {
        AwaitMilliseconds(milliseconds);
        return;
    }
    pollfd state{line.fd, POLLIN, 0};
    poll(&state, 1, milliseconds);
}

}  // namespace cumeron::sim
