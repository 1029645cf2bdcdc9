#include "platform/host/port_map.h"

#include <unistd.h>

#include <QSerialPortInfo>
#include <cstdlib>

#include "platform/host/unicode.h"
#include "platform/profile_file.h"
#include "platform/runtime/errors.h"

namespace cumeron {

std::string UsualDevice(int number) {
    static constexpr const char* kinds[] = {"/dev/ttyS", "/dev/ttyUSB", "/dev/ttyACM"};
    const int index = number - 1;
    if (index < 0 || index >= 12) return "";
    return kinds[index / 4] + std::to_string(index % 4);
}

std::string PortDevice(Files& files, int number) {
    const char* set = std::getenv(("CUMERON_COM" + std::to_string(number)).c_str());
    if (set != nullptr && *set != '\0') return set;
    std::string text;
    // A missing or unreadable map is an empty one.
    ResumeNext([&] { text = files.Read(files.SettingsFolder() + "/ports.ini"); });
    return ProfileValue(text, "ports", std::to_string(number), UsualDevice(number));
}

bool HostPorts::IsPresent(int number) {
    const std::string device = DeviceOf(number);
    return !device.empty() && ::access(device.c_str(), F_OK) == 0;
}

std::vector<SerialDevice> HostPorts::Devices() {
    std::vector<SerialDevice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        devices.push_back({FromUnicode(info.systemLocation()), FromUnicode(info.description()),
                           FromUnicode(info.serialNumber())});
    }
    return devices;
}

void HostPorts::Pair(int number, const std::string& device) {
    const std::string name = files.SettingsFolder() + "/ports.ini";
    const std::string text = files.Exists(name) ? files.Read(name) : "";
    files.Replace(name, WithProfileValue(text, "ports", std::to_string(number), device));
}

}  // namespace cumeron
