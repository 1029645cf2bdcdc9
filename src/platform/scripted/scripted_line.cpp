#include "platform/scripted/scripted_line.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {

namespace {

template <std::size_t N>
bool IsOneOf(const std::string& text, const std::array<const char*, N>& known) {
    return std::find(known.begin(), known.end(), text) != known.end();
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> parts{""};
    for (const char c : text) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

}  // namespace

bool AreLineSettings(const std::string& settings) {
    static constexpr std::array bauds = {"110",   "300",    "600",    "1200",  "2400",  "4800",
                                         "9600",  "14400",  "19200",  "28800", "38400", "56000",
                                         "57600", "115200", "128000", "256000"};
    static constexpr std::array parities = {"N", "E", "O", "M", "S"};
    static constexpr std::array dataBits = {"4", "5", "6", "7", "8"};
    static constexpr std::array stopBits = {"1", "1.5", "2"};
    const std::vector<std::string> parts = SplitAtCommas(settings);
    return parts.size() == 4 && IsOneOf(parts[0], bauds) &&
           IsOneOf(UpperCase(parts[1]), parities) && IsOneOf(parts[2], dataBits) &&
           IsOneOf(parts[3], stopBits);
}

void ScriptedLine::RaiseSettingsError() {
    if (const int error = std::exchange(settingsError, 0)) throw RuntimeError(error);
}

void ScriptedLine::SetSettings(const std::string& text) {
    RaiseSettingsError();
    if (!AreLineSettings(text)) throw RuntimeError(380);
    settings = text;
}

void ScriptedLine::SetCommPort(int number) {
    RaiseSettingsError();
    if (number < 1 || number > 16) throw RuntimeError(380);
    commPort = number;
}

void ScriptedLine::SetPortOpen(bool open) {
    if (open) {
        if (const int error = std::exchange(openingError, 0)) throw RuntimeError(error);
    }
    if (open != portOpen) waiting.clear();
    portOpen = open;
}

std::string ScriptedLine::Input() { return std::exchange(waiting, ""); }

void ScriptedLine::Output(std::string_view text) {
    if (!portOpen) throw RuntimeError(8018);
    if (const int error = std::exchange(outputError, 0)) throw RuntimeError(error);
    transcript += text;
    if (transcript.size() > LongestTrigger) {
        transcript.erase(0, transcript.size() - LongestTrigger);
    }
    sent += text;
    for (const Reply& reply : replies) {
        if (transcript.ends_with(reply.trigger)) {
            time.At(reply.delay, [this, value = reply.value] { Arrive(value); });
        }
    }
}

void ScriptedLine::Arrive(const std::string& bytes) {
    if (!portOpen) return;
    waiting += bytes;
    if (RThreshold > 0 && InBufferCount() >= RThreshold) {
        CommEvent = CommEventReceive;
        if (OnComm) OnComm();
    }
}

void ScriptedLine::RaiseFault(int commEvent) {
    CommEvent = commEvent;
    if (OnComm) OnComm();
}

void ScriptedLine::ReplyTo(const std::string& trigger, const std::string& value, Micros delay) {
    const auto earlier = std::find_if(replies.begin(), replies.end(),
                                      [&](const Reply& r) { return r.trigger == trigger; });
    if (earlier != replies.end()) {
        *earlier = {trigger, value, delay};
    } else {
        replies.push_back({trigger, value, delay});
    }
}

std::string ScriptedLine::TakeSent() { return std::exchange(sent, ""); }

void ScriptedLine::BeginProcess() {
    const ScriptedLine fresh(time);
    settings = fresh.settings;
    commPort = fresh.commPort;
    portOpen = fresh.portOpen;
    dtrEnable = fresh.dtrEnable;
    rtsEnable = fresh.rtsEnable;
    RThreshold = fresh.RThreshold;
    SThreshold = fresh.SThreshold;
    InputLen = fresh.InputLen;
    ParityReplace = fresh.ParityReplace;
    CommEvent = fresh.CommEvent;
    OnComm = nullptr;
    waiting.clear();
}

}  // namespace cumeron
