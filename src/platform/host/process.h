// What the system knows of this process. Part of the host platform.
#pragma once

#include "platform/platform.h"

namespace cumeron {

class HostProcess : public Process {
public:
    explicit HostProcess(std::string line) : commandLine(std::move(line)) {}
    std::string CommandLine() const override { return commandLine; }
    std::string ApplicationFolder() const override;
    void Help(const std::string& file, int command, int topic) override;

private:
    std::string commandLine;
};

}  // namespace cumeron
