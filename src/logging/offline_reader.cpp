// A record of a log, and one of the data collector:
//
//     -2026-11-15 14:41:40 CR LF       = 14:41:40 anything CR LF
//     (SOH)KN... CR LF                 KN... CR LF
//     ...                              ...
//     (ETX)checksum(EOT) CR LF         (a line of at most one character)
//     CR LF
//
// Whatever stands between two records is skipped: the head lines and the closed line of a log begin
// with "-" too, but have no time. A message ends at the first line of at most one character, which
// belongs to it; that of RV10X ends at the first line that begins with ETX.
#include "logging/offline_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::size_t BufferSize = 65536;
constexpr std::size_t LongestMessage = 10000;  // characters, with its line ends
constexpr std::size_t LongestLastLine = 3;     // one character and CR LF
// Of the event loop, counted over the records: so that a stop is heard within a tenth of a second.
constexpr std::int64_t BytesToATurn = 8388608;
constexpr std::int32_t LinesToATurn = 500000;
constexpr std::int16_t Channel = 1;  // no other file is open before the replay's
constexpr char Etx = '\x03';

// ---- Times ----

// The fields of a time, or nothing when one of them is no number. kept: what stands between the
// fields is not looked at, and a blank or a sign in a field passes, so that the hand-made logs of
// old stations are read.
template <std::size_t Count>
bool ReadFields(std::string_view text, const std::pair<long, long> (&places)[Count],
                int (&values)[Count]) {
    for (std::size_t i = 0; i < Count; ++i) {
        const std::string field = Mid(text, places[i].first, places[i].second);
        if (!IsNumeric(field)) return false;
        if (!ResumeNext([&] { values[i] = ToInt16(field); })) return false;
    }
    return true;
}

// ---- Reading one record ----

// Lets the operator in now and then, and ends when he has stopped the play or when another file has
// taken the place of this one.
class RecordReading {
public:
    explicit RecordReading(Workstation& station)
        : w(station), file(w.offline.file), start(file->Position()) {
        w.offline.reading = true;
        w.offline.turnPosition = std::min(w.offline.turnPosition, start);
    }
    ~RecordReading() {
        if (w.offline.file == file) w.offline.reading = false;
    }
    RecordReading(const RecordReading&) = delete;
    RecordReading& operator=(const RecordReading&) = delete;

    std::int64_t Start() const { return start; }
    bool ReadLine(std::string& line) {
        line.clear();
        ++w.offline.linesSinceTurn;
        return GoOn() && file->ReadLine(line, [this] { return GoOn(); });
    }
    bool Interrupted() const { return interrupted; }
    // Nothing was read: the next attempt begins at the same place.
    void StepBack() {
        w.offline.interrupted = true;
        if (w.offline.file == file) file->Seek(start);
    }

private:
    bool GoOn() {
        const bool isDue = file->Position() - w.offline.turnPosition >= BytesToATurn ||
                           w.offline.linesSinceTurn >= LinesToATurn;
        if (!isDue) return true;
        UpdateProgress(w);
        GiveTurn(w);
        interrupted = w.offline.file != file || w.offline.PlayStopRequested != 0;
        return !interrupted;
    }

    Workstation& w;
    const std::shared_ptr<LineFile> file;  // lives on when it is closed in a turn
    const std::int64_t start;
    bool interrupted = false;
};

std::int16_t KindOfLine(std::string_view line, double& time) {
    // A line that was read has its line end, and so two characters at least.
    if (line.front() == '-') return ParseRecordDate(line.substr(1), time);
    if (line.front() == '=') return ParseRecordTime(line.substr(2), time);
    return NoRecord;
}

std::int16_t FindTime(RecordReading& reading, double& time) {
    std::string line;
    while (reading.ReadLine(line)) {
        const std::int16_t kind = KindOfLine(line, time);
        if (kind != NoRecord) return kind;
    }
    return NoRecord;
}

bool AppendLine(Workstation& w, RecordReading& reading, std::int16_t kind, std::string& message,
                std::string& line) {
    if (!reading.ReadLine(line)) return false;
    if (message.size() + line.size() > LongestMessage) {
        AddToMessageWindow(w, kind == LogRecord
                                  ? "File corrupted. Message longer than 10000"
                                  : "File corrupted. Data Collector Message longer than 10000");
        return false;
    }
    message += line;
    return true;
}

bool ReadMessageBody(Workstation& w, RecordReading& reading, std::int16_t kind,
                     std::string& message) {
    std::string line;
    do {
        if (!AppendLine(w, reading, kind, message, line)) return false;
    } while (line.size() > LongestLastLine);
    return true;
}

bool ReadMessageBodyRV10X(Workstation& w, RecordReading& reading, std::string& message) {
    std::string line;
    do {
        if (AppendLine(w, reading, LogRecord, message, line)) continue;
        if (reading.Interrupted()) return false;
        // kept: a message without its end is an error and no end of the file, so that nobody takes
        // a damaged log for a whole one.
        throw RuntimeError(5);
    } while (line.front() != Etx);
    return true;
}

// Puts the control characters back that the data collector leaves out.
void RebuildMessage(const Workstation& w, std::string& message) {
    message.resize(message.size() - 2);
    message.insert(0, w.model.family == Family::RV10X ? "\r\r\n" : "\x01");
    message += "\x03\r\n";
}

bool ReadBody(Workstation& w, RecordReading& reading, std::int16_t kind, std::string& message) {
    // The model that is set decides, not the file.
    if (kind == LogRecord && w.model.family == Family::RV10X) {
        return ReadMessageBodyRV10X(w, reading, message);
    }
    if (!ReadMessageBody(w, reading, kind, message)) return false;
    if (kind == CollectorRecord) RebuildMessage(w, message);
    return true;
}

}  // namespace

// ---- LineFile ----

LineFile::LineFile(std::unique_ptr<InputFile> opened)
    : file(std::move(opened)), buffer(BufferSize), size(file->Size()) {}

bool LineFile::ReadLine(std::string& line, const std::function<bool()>& goOn) {
    line.clear();
    bool anything = false;
    while (next < end || Fill()) {
        anything = true;
        const char* const first = buffer.data() + next;
        const void* const lineEnd = std::memchr(first, '\r', end - next);
        const std::size_t length =
            lineEnd ? static_cast<std::size_t>(static_cast<const char*>(lineEnd) - first)
                    : end - next;
        line.append(first, std::min(length, LongestMessage - line.size()));
        next += length;
        if (lineEnd) {
            SkipLineEnd();
            break;
        }
        if (!goOn()) {
            line.clear();
            return false;
        }
    }
    if (anything) line += "\r\n";
    return anything;
}

std::int64_t LineFile::Position() const { return bufferStart + static_cast<std::int64_t>(next); }

std::int64_t LineFile::Size() const { return size; }

void LineFile::Seek(std::int64_t position) {
    file->Seek(position);
    bufferStart = position;
    next = end = 0;
}

// False at the end of the file; a file that cannot be read ends there.
bool LineFile::Fill() {
    bufferStart += static_cast<std::int64_t>(end);
    next = end = 0;
    ResumeNext([&] {
        end = file->Read(buffer.data(), buffer.size());
        size = file->Size();
    });
    return end > 0;
}

void LineFile::SkipLineEnd() {
    ++next;
    if ((next < end || Fill()) && buffer[next] == '\n') ++next;
}

// ---- Records ----

void OpenOfflineFile(Workstation& w, const std::string& name) {
    w.offline.file = std::make_shared<LineFile>(w.platform.files.OpenForReading(name));
    w.offline.OfflineFileNo = Channel;
    w.offline.turnPosition = 0;
}

void CloseOfflineFile(Workstation& w) {
    w.offline.file.reset();
    w.offline.OfflineFileNo = 0;
    w.offline.reading = false;  // what is being read just now notices and ends
}

void GiveTurn(Workstation& w) {
    if (w.offline.file) w.offline.turnPosition = w.offline.file->Position();
    w.offline.linesSinceTurn = 0;
    w.platform.events.DoEvents();
}

std::int16_t ReadRecord(Workstation& w, OfflineRecord& record) {
    record.message.clear();
    record.time = 0;
    w.offline.interrupted = false;
    if (!w.offline.file) return NoRecord;
    RecordReading reading(w);
    record.position = ToInt32(static_cast<double>(reading.Start()) + 1);
    const std::int16_t kind = FindTime(reading, record.time);
    if (kind != NoRecord && ReadBody(w, reading, kind, record.message)) return kind;
    record.message.clear();
    if (reading.Interrupted()) reading.StepBack();
    return NoRecord;
}

std::int16_t SeekRecord(Workstation& w, int number, OfflineRecord& record) {
    const auto& positions = w.offline.OfflineRecordPos;
    if (number < 0 || static_cast<std::size_t>(number) >= positions.size()) throw RuntimeError(9);
    const std::int32_t position = positions[static_cast<std::size_t>(number)];
    w.offline.interrupted = false;
    if (position == 0) return CollectorRecord;
    if (w.offline.file) w.offline.file->Seek(position - 1);
    return ReadRecord(w, record);
}

std::int16_t ParseRecordDate(std::string_view text, double& time) {
    if (text.size() < 19) return NoRecord;
    int value[6];
    if (!ReadFields(text, {{1, 4}, {6, 2}, {9, 2}, {12, 2}, {15, 2}, {18, 2}}, value)) {
        return NoRecord;
    }
    time = DateSerial(value[0], value[1], value[2]) + TimeSerial(value[3], value[4], value[5]);
    return LogRecord;
}

std::int16_t ParseRecordTime(std::string_view text, double& time) {
    if (text.size() < 8) return NoRecord;
    int value[3];
    if (!ReadFields(text, {{1, 2}, {4, 2}, {7, 2}}, value)) return NoRecord;
    time = TimeSerial(value[0], value[1], value[2]);
    return CollectorRecord;
}

}  // namespace cumeron
