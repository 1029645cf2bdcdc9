#include "platform/host/port_map.h"

#include <cstdlib>

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

}  // namespace cumeron
