#include "platform/host/line_settings.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/runtime/text.h"
#include "platform/serial_line.h"

namespace cumeron {
namespace {

constexpr std::string_view Bauds[] = {"110",   "300",    "600",    "1200",  "2400",  "4800",
                                      "9600",  "14400",  "19200",  "28800", "38400", "56000",
                                      "57600", "115200", "128000", "256000"};
constexpr std::string_view Parities[] = {"N", "E", "O", "M", "S"};
constexpr std::string_view DataBits[] = {"5", "6", "7", "8"};
constexpr std::string_view StopBits[] = {"1", "1.5", "2"};

std::vector<std::string> Split(std::string_view text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    std::transform(parts.begin(), parts.end(), parts.begin(),
                   [](const std::string& part) { return UpperCase(Trim(part)); });
    return parts;
}

template <class Table>
bool Has(const Table& table, std::string_view text) {
    return std::find(std::begin(table), std::end(table), text) != std::end(table);
}

}  // namespace

std::optional<LineSettings> ParseLineSettings(std::string_view text) {
    const std::vector<std::string> parts = Split(text);
    if (parts.size() != 4 || !Has(Bauds, parts[0]) || !Has(Parities, parts[1]) ||
        !Has(DataBits, parts[2]) || !Has(StopBits, parts[3])) {
        return std::nullopt;
    }
    return LineSettings{std::stoi(parts[0]), parts[1][0], std::stoi(parts[2]),
                        parts[3] == "1" ? 1 : 2};
}

std::vector<int> FaultEvents(const FaultCounts& before, const FaultCounts& after) {
    std::vector<int> events;
    if (after.parity > before.parity) events.push_back(CommEventReceiveParity);
    if (after.overrun > before.overrun) events.push_back(CommEventOverrun);
    return events;
}

}  // namespace cumeron
