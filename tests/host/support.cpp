#include "support.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/runtime/errors.h"

namespace cumeron {

OwnFolders::OwnFolders() {
    const QDir here(folder.path());
    for (const char* name : {"config", "run", "tmp"}) here.mkdir(name);
    qputenv("XDG_CONFIG_HOME", here.filePath("config").toUtf8());
    qputenv("XDG_RUNTIME_DIR", here.filePath("run").toUtf8());
    qputenv("TMPDIR", here.filePath("tmp").toUtf8());
    qunsetenv("CUMERON_COM1");  // of the test before
    QFile::setPermissions(here.filePath("run"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// The next temporary folder needs one that is still there.
OwnFolders::~OwnFolders() {
    if (temporaryBefore.isEmpty()) {
        qunsetenv("TMPDIR");
    } else {
        qputenv("TMPDIR", temporaryBefore);
    }
}

std::string OwnFolders::Path(const std::string& name) const {
    return folder.filePath(QString::fromStdString(name)).toStdString();
}

bool WaitUntil(const std::function<bool()>& condition) {
    QElapsedTimer waited;
    waited.start();
    while (!condition()) {
        if (waited.elapsed() > 20000) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        usleep(1000);
    }
    return true;
}

void Settle() {
    for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
}

PseudoTerminal::PseudoTerminal(std::string name)
    : link(std::move(name)), master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
        throw std::runtime_error("no pseudo terminal");
    }
    if (::symlink(ptsname(master), link.c_str()) != 0) throw std::runtime_error("no link");
}

PseudoTerminal::~PseudoTerminal() {
    ::unlink(link.c_str());
    ::close(master);
}

void PseudoTerminal::Send(std::string_view text) const {
    while (!text.empty()) {
        const ssize_t count = ::write(master, text.data(), text.size());
        if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string PseudoTerminal::Received() {
    char block[4096];
    const ssize_t count = ::read(master, block, sizeof block);
    if (count > 0) received.append(block, static_cast<std::size_t>(count));
    return received;
}

void WriteFile(const std::string& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int ErrorOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace cumeron
