#include "platform/host/port_map.h"

#include <unistd.h>

#include <QSerialPortInfo>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>

#include "platform/host/unicode.h"
#include "platform/profile_file.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

namespace fs = std::filesystem;

// /dev/pts/7, and the old pairs /dev/ttyp0 to /dev/ttyef.
bool IsPseudoTerminal(const std::string& device) {
    static const std::regex names("/dev/(pts/.*|ptmx|pty.*|tty[p-za-e][0-9a-f])");
    return std::regex_match(device, names);
}

}  // namespace

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

std::vector<SerialDevice> SystemDevices() {
    std::vector<SerialDevice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        devices.push_back({FromUnicode(info.systemLocation()), FromUnicode(info.description()),
                           FromUnicode(info.serialNumber())});
    }
    return devices;
}

// Of several links to one device the first by name, so that the answer is always the same.
std::string HostPorts::StableName(const std::string& device) const {
    for (const char* kind : {"by-id", "by-path"}) {
        std::error_code gone;
        std::string first;
        fs::directory_iterator link(fs::path(links) / kind, gone);
        for (; !gone && link != fs::directory_iterator(); link.increment(gone)) {
            const std::string name = link->path().string();
            std::error_code dangling;
            if (!fs::equivalent(link->path(), device, dangling)) continue;
            if (first.empty() || name < first) first = name;
        }
        if (!first.empty()) return first;
    }
    return device;
}

std::vector<SerialDevice> HostPorts::Devices() {
    std::vector<SerialDevice> devices;
    for (SerialDevice device : present()) {
        if (IsPseudoTerminal(device.name)) continue;
        device.name = StableName(device.name);
        const bool known = std::any_of(devices.begin(), devices.end(), [&](const auto& other) {
            return other.name == device.name;
        });
        if (!known) devices.push_back(device);
    }
    return devices;
}

void HostPorts::Pair(int number, const std::string& device) {
    const std::string name = files.SettingsFolder() + "/ports.ini";
    const std::string text = files.Exists(name) ? files.Read(name) : "";
    files.Replace(name, WithProfileValue(text, "ports", std::to_string(number), device));
}

}  // namespace cumeron
