// Which device stands behind the number of a port: CUMERON_COM<n> of the environment, else
// ports.ini of the settings folder ([ports] 1=/dev/ttyS0), else the usual names.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/platform.h"

namespace cumeron {

// "" when there is none.
std::string PortDevice(Files& files, int number);
// 1 to 4 /dev/ttyS0 to 3, 5 to 8 /dev/ttyUSB0 to 3, 9 to 12 /dev/ttyACM0 to 3, else "".
std::string UsualDevice(int number);

class HostPorts : public PortMap {
public:
    explicit HostPorts(Files& disk) : files(disk) {}
    std::vector<SerialDevice> Devices() override;
    std::string DeviceOf(int number) override { return PortDevice(files, number); }
    bool IsPresent(int number) override;
    void Pair(int number, const std::string& device) override;

private:
    Files& files;
};

}  // namespace cumeron
