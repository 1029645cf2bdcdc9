#include "outputs.h"

#include <ostream>

namespace cumeron::sim {

namespace {

template <typename Action>
void ForEachMessage(const SimulatedRun& run, double hours, Action action) {
    const double end = run.start + hours * 3600;
    for (std::int64_t i = 0; TimeOfMessage(run, i) < end; ++i) action(i, MessageOf(run, i));
}

bool HasFaults(const FaultRates& rates) {
    return rates.checksum + rates.cut + rates.lostStart + rates.noise + rates.silence > 0;
}

// One value for each line of the message, so that the script stays readable.
std::string QuotedLines(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::size_t length = end == bytes.npos ? bytes.size() : end + 1;
        text += ' ' + QuotedValue(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return text;
}

void WritePieces(std::ostream& out, const std::string& bytes, int interval) {
    if (bytes.empty()) {
        out << "advance " << interval << "\n";
        return;
    }
    out << "rx" << QuotedLines(std::string_view(bytes).substr(0, bytes.size() - 1)) << "\n"
        << "advance 1\n"
        << "rx " << QuotedValue(std::string_view(bytes).substr(bytes.size() - 1)) << "\n"
        << "advance " << interval - 1 << "\n";
}

}  // namespace

std::string QuotedValue(std::string_view bytes) {
    std::string text = "\"";
    for (char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\r') {
            text += "\\r";
        } else if (c == '\n') {
            text += "\\n";
        } else if (c == '"' || c == '\\') {
            text += std::string("\\") + c;
        } else if (code < 32 || code > 126) {
            text +=
                std::string("\\x") + "0123456789ABCDEF"[code >> 4] + "0123456789ABCDEF"[code & 15];
        } else {
            text += c;
        }
    }
    return text + '"';
}

void WriteLog(std::ostream& out, const SimulatedRun& run, double hours) {
    out << "-Ceilometer Logfile \r\n"
        << "-File created: " << FormatTime(run.start) << "\r\n";
    ForEachMessage(run, hours, [&](std::int64_t number, const SentMessage& message) {
        if (!message.sound) return;
        out << "-" << FormatTime(TimeOfMessage(run, number)) << "\r\n"
            << message.bytes.substr(message.noise) << "\r\n";
    });
    out << "-File Closed: " << FormatTime(run.start + hours * 3600) << "\r\n";
}

void WriteScenario(std::ostream& out, const SimulatedRun& run, double hours) {
    const InstrumentSetup& setup = run.setup;
    out << "# " << setup.model->name << " sends message " << setup.message->key << " every "
        << setup.interval << " s for " << hours << " h from " << FormatTime(run.start) << ", seed "
        << setup.seed << "\n"
        << "setting CEILOMETER " << setup.model->code << "\n"
        << "setting Message_Interval " << setup.interval << "\n"
        << "setting Units " << (setup.metres ? 1 : 0) << "\n"
        << "clock \"" << FormatTime(run.start) << "\"\n"
        << "start\n"
        << "click mnuOpenPort\n";
    ForEachMessage(run, hours, [&](std::int64_t number, const SentMessage& message) {
        WritePieces(out, message.bytes, IntervalAfter(run, number));
    });
    if (!HasFaults(run.faults)) out << "expect FrameErrorCount 0\n";
}

}  // namespace cumeron::sim
