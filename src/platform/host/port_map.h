// Which device stands behind the number of a port: CUMERON_COM<n> of the environment, else
// ports.ini of the settings folder ([ports] 1=/dev/ttyS0), else the usual names.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/platform.h"

namespace cumeron {

// "" when there is none.
std::string PortDevice(Files& files, int number);
// 1 to 4 /dev/ttyS0 to 3, 5 to 8 /dev/ttyUSB0 to 3, 9 to 12 /dev/ttyACM0 to 3, else "".
std::string UsualDevice(int number);

// The serial devices that the system knows, under their plain names.
std::vector<SerialDevice> SystemDevices();

class HostPorts : public PortMap {
public:
    // stableNames: the folder of the links that outlive replugging, by-id and by-path.
    explicit HostPorts(Files& disk, std::string stableNames = "/dev/serial",
                       std::function<std::vector<SerialDevice>()> list = SystemDevices)
        : files(disk), links(std::move(stableNames)), present(std::move(list)) {}
    // Each device once, under the name that says which adapter it is, else the one that says where
    // it is plugged in, else its plain name. Pseudo terminals are left out.
    std::vector<SerialDevice> Devices() override;
    std::string DeviceOf(int number) override { return PortDevice(files, number); }
    bool IsPresent(int number) override;
    void Pair(int number, const std::string& device) override;

private:
    std::string StableName(const std::string& device) const;

    Files& files;
    std::string links;
    std::function<std::vector<SerialDevice>()> present;
};

}  // namespace cumeron
