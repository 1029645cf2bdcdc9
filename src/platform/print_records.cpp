#include "platform/print_records.h"

#include <algorithm>

#include "platform/runtime/text.h"

namespace cumeron {

namespace {

void PutNumber(Bytes record, std::size_t offset, std::uint32_t value, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        record[offset + i] = static_cast<std::uint8_t>(value >> 8 * i);
    }
}

}  // namespace

std::int16_t WordAt(ConstBytes record, std::size_t offset) {
    return static_cast<std::int16_t>(record[offset] | record[offset + 1] << 8);
}

void PutWord(Bytes record, std::size_t offset, std::int16_t value) {
    PutNumber(record, offset, static_cast<std::uint16_t>(value), 2);
}

void PutLong(Bytes record, std::size_t offset, std::int32_t value) {
    PutNumber(record, offset, static_cast<std::uint32_t>(value), 4);
}

void PutFixedText(Bytes record, std::size_t offset, std::size_t length, std::string_view text) {
    const Bytes field = record.subspan(offset, length);
    std::fill(field.begin(), field.end(), std::uint8_t{' '});
    const std::string_view kept = text.substr(0, length);
    std::copy(kept.begin(), kept.end(), field.begin());
}

std::string DeviceNameOf(ConstBytes devMode) {
    std::string name;
    for (const std::uint8_t byte :
         devMode.subspan(dev_mode::DeviceName, dev_mode::DeviceNameLength)) {
        if (byte == 0) break;
        name += static_cast<char>(byte);
    }
    return Trim(name);
}

void PutDeviceName(Bytes devMode, std::string_view name) {
    const Bytes field = devMode.subspan(dev_mode::DeviceName, dev_mode::DeviceNameLength);
    std::fill(field.begin(), field.end(), std::uint8_t{0});
    const std::string kept = AsInDevMode(name);
    std::copy(kept.begin(), kept.end(), field.begin());
}

std::string AsInDevMode(std::string_view name) {
    return std::string(name.substr(0, dev_mode::DeviceNameLength - 1));
}

}  // namespace cumeron
