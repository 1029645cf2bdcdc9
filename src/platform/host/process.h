// What the system knows of this process, and the manual. Part of the host platform.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>

#include "platform/platform.h"

namespace cumeron {

// The folders where the manual may lie, the one of the installed program first, then that of its
// sources.
QStringList ManualFolders();

class HostProcess : public Process {
public:
    explicit HostProcess(std::string line) : ownCommandLine(std::move(line)) {}
    std::string CommandLine() const override { return ownCommandLine; }
    std::string ApplicationFolder() const override;
    // Looks for a bare name beside this program first, then where the system looks.
    void Start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& commandLine) override;
    // The manual is one for all help files: its pages are web pages.
    void Help(const std::string& file, int command, int topic) override;

    QStringList manualFolders = ManualFolders();
    // Shows a page; false when there is no browser.
    std::function<bool(const QUrl&)> openPage;

private:
    std::string ownCommandLine;
};

}  // namespace cumeron
