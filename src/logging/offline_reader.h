// Turns a text file back into records: a time and a message that can be classified as if it had
// just arrived. It knows the program's own log and the format of the data collector, in which the
// messages have no control characters and the times no date. Playback calls it; it reads forwards
// only, and speaks to the operator through the message window alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace cumeron {

struct Workstation;

// A file read line by line through a buffer of its own; of a line no more is held than a message
// can have, however long it is.
class LineFile {
public:
    explicit LineFile(std::unique_ptr<InputFile> opened);

    // The line with CR LF at its end, whichever end it had: CR or CR LF; a lone LF is an ordinary
    // character, and the last line needs no end. Behind the first 10000 characters the rest of the
    // line is dropped. False, and an empty line, at the end of the file, when it cannot be read,
    // or when goOn, asked between two pieces of a long line, says no.
    bool ReadLine(std::string& line, const std::function<bool()>& goOn);
    std::int64_t Position() const;     // of the next byte, from 0
    std::int64_t Size() const;         // bytes, when it was last read
    void Seek(std::int64_t position);  // 0 is the first byte

private:
    bool Fill();
    void SkipLineEnd();

    std::unique_ptr<InputFile> file;
    std::vector<char> buffer;
    std::int64_t bufferStart = 0;   // place in the file
    std::size_t next = 0, end = 0;  // in the buffer
    std::int64_t size;
};

// What ReadRecord found.
inline constexpr std::int16_t LogRecord = 1, CollectorRecord = -1, NoRecord = 0;

struct OfflineRecord {
    std::string message;
    double time = 0;            // date-time; below 1 a time of day without a date
    std::int32_t position = 0;  // where the reading began, 1 for the first byte of the file
};

// Opens the file and keeps it open, together with those who append to it. Raises what
// Files::OpenForReading raises.
void OpenOfflineFile(Workstation& w, const std::string& name);
void CloseOfflineFile(Workstation& w);
// The next record. NoRecord at the end of the file, for a record that the end cuts off, for a
// message over 10000 characters (told in the message window; the file stays in its midst), and
// when the operator stopped the search or closed the file (offline.interrupted; the file then
// stands where it stood before). Lets events run every 8 MB or half a million lines. Raises 5 for
// an RV10X message without its end, 6 behind 2 GB.
std::int16_t ReadRecord(Workstation& w, OfflineRecord& record);
// A turn of the event loop in the midst of a replay.
void GiveTurn(Workstation& w);
// The record of that number again; one whose position is not known counts as found and leaves the
// record untouched. Raises 9 for a number that no file has.
std::int16_t SeekRecord(Workstation& w, int number, OfflineRecord& record);

// Pure. The text behind the first character of a log's time line, "2026-11-15 14:41:40" CR LF:
// LogRecord, or NoRecord when it is none.
std::int16_t ParseRecordDate(std::string_view text, double& time);
// The text behind the second character of the data collector's, "14:41:40" CR LF:
// CollectorRecord or NoRecord.
std::int16_t ParseRecordTime(std::string_view text, double& time);

}  // namespace cumeron
