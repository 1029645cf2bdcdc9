// What the tests of the host share: a folder and an environment of their own, waiting in the event
// loop, and pseudo terminals.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <string>
#include <string_view>

namespace cumeron {

// Points settings, marks and temporary files to a folder that is gone afterwards.
class OwnFolders {
public:
    OwnFolders();
    ~OwnFolders();
    OwnFolders(const OwnFolders&) = delete;
    OwnFolders& operator=(const OwnFolders&) = delete;
    std::string Path(const std::string& name) const;

private:
    QTemporaryDir folder;
    QByteArray temporaryBefore = qgetenv("TMPDIR");
};

// Turns the event loop until the condition holds; false when it did not within 20 s.
bool WaitUntil(const std::function<bool()>& condition);
// Turns it until nothing is pending.
void Settle();

// The instrument's end of a line, with a link to the other end.
class PseudoTerminal {
public:
    explicit PseudoTerminal(std::string link);
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    void Send(std::string_view text) const;
    // What has arrived so far.
    std::string Received();

private:
    std::string link;
    int master;
    std::string received;
};

void WriteFile(const std::string& path, std::string_view text);
std::string ReadFile(const std::string& path);

// The number of the run-time error that the step raises, 0 for none.
int ErrorOf(const std::function<void()>& step);

}  // namespace cumeron
