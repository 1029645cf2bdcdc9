#include "service.h"

#include <algorithm>
#include <cctype>

namespace cumeron::sim {

namespace {

constexpr const char* Prompt = "CEILO> ";
constexpr std::size_t LongestLine = 200;
constexpr double IdleLimit = 600;  // seconds

std::string Capitals(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return out;
}

std::string HangUp(Service& service) {
    service.modem = ModemState::Idle;
    service.open = false;
    return "\r\nNO CARRIER\r\n";
}

std::string AnswerModem(Service& service, const std::string& command, double time) {
    if (command.starts_with(Capitals(service.dialPrefix))) {
        service.modem = ModemState::Dialling;
        service.modemDue = time + service.connectAfter;
        return "";
    }
    if (service.modem == ModemState::Dialling) return HangUp(service);  // any key ends dialling
    return command.starts_with("AT") ? "\r\nOK\r\n" : "";
}

std::string AnswerCommand(Service& service, const std::string& command, double time) {
    if (command == "OPEN") {
        service.open = true;
        return std::string("\r\n") + Prompt;
    }
    if (!service.open) return "";
    if (command == "CLOSE") {
        service.open = false;
        return "\r\nLINE CLOSED\r\n";
    }
    if (command == "STATUS" || command == "GET STATUS")
        return "\r\n" + service.statusReport(time) + Prompt;
    return std::string("\r\nCOMMANDS: STATUS, GET STATUS, CLOSE\r\n") + Prompt;
}

}  // namespace

void StartService(Service& service) {
    service.modem = service.dialPrefix.empty() ? ModemState::None : ModemState::Idle;
}

std::string HearBytes(Service& service, std::string_view bytes, double time) {
    std::string answer;
    for (char c : bytes) {
        if (service.echo && service.open) answer += c;
        if (c == '\n') continue;
        if (c != '\r') {
            if (service.line.size() < LongestLine) service.line += c;
            continue;
        }
        const std::string command = Capitals(service.line);
        service.line.clear();
        if (command.empty()) {
            if (service.open) answer += std::string("\r\n") + Prompt;
            continue;
        }
        service.lastHeard = time;
        const bool toModem =
            service.modem == ModemState::Idle || service.modem == ModemState::Dialling;
        answer +=
            toModem ? AnswerModem(service, command, time) : AnswerCommand(service, command, time);
    }
    return answer;
}

std::string PassTime(Service& service, double time) {
    if (service.modem == ModemState::Dialling && time >= service.modemDue) {
        service.modem = ModemState::Connected;
        service.modemDue = time + service.dropCallAfter;
        return "\r\nCONNECT\r\n";
    }
    if (service.modem == ModemState::Connected && service.dropCallAfter > 0 &&
        time >= service.modemDue)
        return HangUp(service);
    if (service.open && time >= service.lastHeard + IdleLimit) service.open = false;
    return "";
}

bool SendsMessages(const Service& service) {
    const bool linked = service.modem == ModemState::None || service.modem == ModemState::Connected;
    return linked && !service.open;
}

}  // namespace cumeron::sim
