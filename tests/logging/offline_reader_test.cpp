// The reader of logs: times, records, and files that are damaged in every way.
#include "logging/offline_reader.h"

#include <gtest/gtest.h>

#include <functional>

#include "intake/messages.h"
#include "logging/made_file.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

const std::string Time1 = "-2026-11-15 14:41:40\r\n", Time2 = "-2026-11-15 14:41:55\r\n";
const std::string RvFrame = "\x01RVA1010\x02\r\n10 01230 ///// ///// 00000000\r\n\x03\r\n";
const std::string Rv10xFrame = "\x02\r\n10 01230\r\n\r\nxx\r\n\x03\r\n";
const std::string Tq60Frame = "\x02X0TA08    11\r\n\x04";
const std::string CollectorBody = "KN021015 \r\n10 01230 /////\r\n";
const std::string TooLong = "File corrupted. Message longer than 10000";

double At(int hour, int minute, int second) {
    return DateSerial(2026, 11, 15) + TimeSerial(hour, minute, second);
}

// A workstation with an open off-line file.
struct Reader : Station {
    OfflineRecord record;
    int turns = 0;

    explicit Reader(int model) : Station(model) {}
    Reader(int model, const std::string& text) : Station(model) { Open(FileOf(text)); }
    void Open(std::unique_ptr<InputFile> file) {
        w.offline.file = std::make_shared<LineFile>(std::move(file));
        w.offline.OfflineFileNo = 1;
    }
    std::int16_t Read() { return ReadRecord(w, record); }
    const std::string& Window() { return w.frmDebug.txtMessage.Text; }
    // Runs in each turn of the event loop until it was wanted often enough.
    void InEachTurn(std::function<void()> act) {
        machine.time.At(MicrosPerTurn, [this, act] {
            ++turns;
            act();
            InEachTurn(act);
        });
    }
};

int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

// ---- Times ----

TEST(ParseRecordDate, TakesSixNumbersAndLooksAtNothingElse) {
    const struct {
        const char* text;
        double time;  // 0: none
    } cases[] = {
        {"2026-11-15 14:41:40\r\n", At(14, 41, 40)},
        {"2026-11-15 14:41:40", At(14, 41, 40)},
        {"2026/11/15x14.41.40 and more\r\n", At(14, 41, 40)},
        {"2026-13-01 00:00:00\r\n", DateSerial(2027, 1, 1)},
        {"2026-11-31 25:61:61\r\n", DateSerial(2026, 12, 2) + TimeSerial(2, 2, 1)},
        {"2026-+1- 2 +1:1-:1.\r\n", DateSerial(2026, 1, 2) + TimeSerial(1, -1, 1)},
        {"2026-11-15 14:41:4\r", 0},
        {"2026-11-15 14:41:4\r\n", 0},
        {"2026-1x-15 14:41:40\r\n", 0},
        {"Ceilometer Logfile \r\n", 0},
        {"File created: 15.11.2026 14:41:25\r\n", 0},
        {"File Closed: 15.11.2026 14:41:25\r\n", 0},
        {"9e99-11-15 14:41:40\r\n", 0},
        {"1e5 -11-15 14:41:40\r\n", 0},
        {"", 0},
    };
    for (const auto& c : cases) {
        double time = 0;
        const std::int16_t kind = ParseRecordDate(c.text, time);
        EXPECT_EQ(kind, c.time == 0 ? NoRecord : LogRecord) << c.text;
        EXPECT_NEAR(time, c.time, 1e-9) << c.text;
    }
}

TEST(ParseRecordTime, TakesThreeNumbers) {
    const struct {
        const char* text;
        std::int16_t kind;
        double time;
    } cases[] = {
        {"06:00:00\r\n", CollectorRecord, 0.25},
        {"06:00:00 some words\r\n", CollectorRecord, 0.25},
        {"18x30x00\r\n", CollectorRecord, 18.5 / 24},
        {"00:00:00\r\n", CollectorRecord, 0},
        {"48:00:00\r\n", CollectorRecord, 2},
        {"06:00:0", NoRecord, 0},
        {"06:0x:00\r\n", NoRecord, 0},
        {"x6:00:00\r\n", NoRecord, 0},
        {"06:00:  \r\n", NoRecord, 0},
        {"", NoRecord, 0},
    };
    for (const auto& c : cases) {
        double time = 0;
        EXPECT_EQ(ParseRecordTime(c.text, time), c.kind) << c.text;
        EXPECT_DOUBLE_EQ(time, c.time) << c.text;
    }
}

// ---- Records ----

TEST(ReadRecord, ReadsEachModelAsItIsWritten) {
    const std::string knFrame = ShortKN("15");
    const struct {
        int model;
        std::string frame, message;
    } cases[] = {
        {70, RvFrame, RvFrame},          {20, RvFrame, RvFrame},
        {10, Rv10xFrame, Rv10xFrame},    {30, knFrame, knFrame + "\r\n"},
        {50, knFrame, knFrame + "\r\n"}, {60, Tq60Frame, Tq60Frame + "\r\n"},
    };
    for (const auto& c : cases) {
        const std::string first = "-Ceilometer Logfile \r\n-File created: 15.11.2026 14:41:25\r\n" +
                                  Time1 + c.frame + "\r\n";
        Reader reader(c.model, first + Time2 + c.frame + "\r\n-File Closed: x\r\n");
        EXPECT_EQ(reader.Read(), LogRecord) << c.model;
        EXPECT_EQ(reader.record.message, c.message) << c.model;
        EXPECT_DOUBLE_EQ(reader.record.time, At(14, 41, 40)) << c.model;
        EXPECT_EQ(reader.record.position, 1) << c.model;
        EXPECT_EQ(reader.Read(), LogRecord) << c.model;
        EXPECT_EQ(reader.record.message, c.message) << c.model;
        EXPECT_DOUBLE_EQ(reader.record.time, At(14, 41, 55)) << c.model;
        EXPECT_EQ(reader.Read(), NoRecord) << c.model;
        EXPECT_EQ(reader.record.message, "") << c.model;
    }
}

TEST(ReadRecord, ThePositionLiesBehindTheRecordBefore) {
    const std::string records = Time1 + RvFrame + "\r\n" + Time2 + RvFrame + "\r\n";
    Reader reader(20, records);
    reader.Read();
    reader.Read();
    // The empty line that the writer has put behind the first record is still unread there.
    EXPECT_EQ(reader.record.position, static_cast<int>((Time1 + RvFrame).size()) + 1);
    reader.w.offline.file->Seek(reader.record.position - 1);
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_DOUBLE_EQ(reader.record.time, At(14, 41, 55));
}

TEST(ReadRecord, FindsNothingInWhatHoldsNoRecord) {
    const std::string texts[] = {
        "",
        "\r\n\r\n",
        "-Ceilometer Logfile \r\n-File created: 15.11.2026 14:41:25\r\n",
        "=\r\n",
        "-\r\n",
        "-2026-11-15 14:41\r\n" + RvFrame,
        " " + Time1 + RvFrame,
        "\n" + Time1 + RvFrame,
        Time1,
        Time1 + "no end",
        Time1 + "no end\r\nof the message\r\n",
    };
    for (const std::string& text : texts) {
        Reader reader(20, text);
        EXPECT_EQ(reader.Read(), NoRecord) << text;
        EXPECT_EQ(reader.record.message, "") << text;
        EXPECT_EQ(reader.Window(), "") << text;
    }
}

TEST(ReadRecord, WithoutAFileThereIsNone) {
    Reader reader(20);
    EXPECT_EQ(reader.Read(), NoRecord);
}

TEST(ReadRecord, GoesOnBehindAClosedLine) {
    Reader reader(20, Time1 + RvFrame + "\r\n-File Closed: 15.11.2026 20:00:00\r\n" +
                          "-Ceilometer Logfile \r\n-File created: 15.11.2026 20:30:00\r\n" + Time2 +
                          RvFrame + "\r\n");
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.Read(), NoRecord);
}

TEST(ReadRecord, AMessageEndsAtALineOfOneCharacter) {
    Reader reader(20,
                  Time1 + "ab\r\nx\r\nrest\r\n" + Time2 + "cd\r\n\r\n" + Time1 + "ef\r\n\n\r\n");
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, "ab\r\nx\r\n");
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, "cd\r\n\r\n");
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, "ef\r\n\n\r\n");
}

TEST(ReadRecord, ReadsTheLastLineWithoutItsEnd) {
    Reader reader(20, Time1 + RvFrame.substr(0, RvFrame.size() - 2));
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, RvFrame);
}

TEST(ReadRecord, TakesTenThousandCharactersAndNoMore) {
    const struct {
        int model;
        std::string time, end;
        std::string told;
    } cases[] = {
        {20, Time1, "\x03\r\n", TooLong},
        {30, Time1, "\r\n", TooLong},
        {20, "= 06:00:00\r\n", "\r\n", "File corrupted. Data Collector Message longer than 10000"},
        {10, "= 06:00:00\r\n", "\r\n", "File corrupted. Data Collector Message longer than 10000"},
    };
    for (const auto& c : cases) {
        // Lines of 100 characters with their line ends, and a last one.
        std::string body;
        while (body.size() < 9900) body += std::string(98, 'x') + "\r\n";
        const std::size_t rest = 10000 - body.size() - c.end.size() - 2;
        Reader good(c.model, c.time + body + std::string(rest, 'y') + "\r\n" + c.end);
        EXPECT_NE(good.Read(), NoRecord) << c.model;
        EXPECT_EQ(good.Window(), "") << c.model;
        const std::string behind = Time2 + "next\r\n\x03\r\n";
        Reader bad(c.model, c.time + body + std::string(rest + 1, 'y') + "\r\n" + c.end + behind);
        EXPECT_EQ(bad.Read(), NoRecord) << c.model;
        EXPECT_EQ(bad.record.message, "") << c.model;
        EXPECT_EQ(bad.Window(), c.told) << c.model;
        // The file stays in the midst of the record, and the next one is found from there.
        EXPECT_EQ(bad.Read(), LogRecord) << c.model;
        EXPECT_EQ(bad.record.message, "next\r\n\x03\r\n") << c.model;
    }
}

TEST(ReadRecord, OfRv10xEndsAtALineThatBeginsWithEtx) {
    Reader reader(10, Time1 + "\x02\r\n\r\nx\r\n\x03 and more\r\n" + Time2 + Rv10xFrame);
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, "\x02\r\n\r\nx\r\n\x03 and more\r\n");
    EXPECT_EQ(reader.Read(), LogRecord);
    EXPECT_EQ(reader.record.message, Rv10xFrame);
    EXPECT_EQ(reader.Read(), NoRecord);
}

TEST(ReadRecord, OfRv10xWithoutItsEndIsAnError) {
    Reader cut(10, Time1 + "\x02\r\n10 01230\r\n");
    EXPECT_EQ(ErrorOf([&] { cut.Read(); }), 5);
    EXPECT_FALSE(cut.w.offline.reading);
    Reader longer(10, Time1 + std::string(9999, 'x') + "\r\n" + Time2 + Rv10xFrame);
    EXPECT_EQ(ErrorOf([&] { longer.Read(); }), 5);
    EXPECT_EQ(longer.Window(), TooLong);
    EXPECT_EQ(longer.Read(), LogRecord);
}

TEST(ReadRecord, PutsBackWhatTheDataCollectorLeftOut) {
    const std::string text = "= 06:00:00\r\n" + CollectorBody + "\r\n";
    Reader kn(30, text);
    EXPECT_EQ(kn.Read(), CollectorRecord);
    EXPECT_EQ(kn.record.message, "\x01" + CollectorBody + "\x03\r\n");
    EXPECT_DOUBLE_EQ(kn.record.time, 0.25);
    Reader rv10x(10, text);
    EXPECT_EQ(rv10x.Read(), CollectorRecord);
    EXPECT_EQ(rv10x.record.message, "\r\r\n" + CollectorBody + "\x03\r\n");
    Reader cut(10, "= 06:00:00\r\n" + CollectorBody);
    EXPECT_EQ(cut.Read(), NoRecord) << "no error: it is no record of the log";
}

// Whatever a break left of the last record: the records in front of it are found, and the last one
// is either whole or none.
TEST(ReadRecord, ALogCutAnywhereInItsLastRecordKeepsTheOthers) {
    const struct {
        int model;
        std::string frame;
    } cases[] = {{20, RvFrame}, {10, Rv10xFrame}, {30, ShortKN("15")}, {60, Tq60Frame}};
    for (const auto& c : cases) {
        const std::string first = Time1 + c.frame + "\r\n";
        const std::string last = Time2 + c.frame + "\r\n";
        for (std::size_t length = 0; length <= last.size(); ++length) {
            Reader reader(c.model, first + last.substr(0, length));
            ASSERT_EQ(reader.Read(), LogRecord) << c.model << " " << length;
            const std::string message = reader.record.message;
            std::int16_t kind = NoRecord;
            const int error = ErrorOf([&] { kind = reader.Read(); });
            EXPECT_TRUE(error == 0 || (error == 5 && c.model == 10)) << c.model << " " << length;
            if (kind != NoRecord && length + 4 >= last.size()) {
                EXPECT_EQ(reader.record.message, message) << c.model << " " << length;
            }
            if (length == last.size()) {
                EXPECT_EQ(kind, LogRecord) << c.model;
            }
        }
    }
}

TEST(ReadRecord, NoBytesMakeItFail) {
    std::uint32_t seed = 1;
    for (int model : {70, 20, 10, 30, 50, 60}) {
        std::string rubbish;
        const std::string likely = "-=0123456789 :\r\r\n\n\x01\x02\x03\x04\xFC";
        for (int i = 0; i < 100'000; ++i) {
            seed = seed * 1664525 + 1013904223;
            const auto byte = static_cast<unsigned char>(seed >> 16);
            rubbish += seed >> 31 ? likely[byte % likely.size()] : static_cast<char>(byte);
            if (seed >> 24 == 7) rubbish += "\r\n" + Time1;
        }
        Reader reader(model, rubbish);
        int records = 0;
        const auto size = static_cast<std::int64_t>(rubbish.size());
        while (reader.w.offline.file->Position() < size) {
            const int error = ErrorOf([&] { records += reader.Read() != NoRecord ? 1 : 0; });
            ASSERT_TRUE(error == 0 || (error == 5 && model == 10)) << model;
        }
        EXPECT_GT(records, 0) << model;
    }
}

// ---- The operator in a long search ----

constexpr std::int64_t RubbishSize = 100'000'000;

TEST(ReadRecord, LetsEventsRunInALongSearch) {
    const struct {
        const char* what;
        std::string pattern;
        std::int64_t size;
        int turns;
    } cases[] = {{"one line", "x", RubbishSize, 11},
                 {"short lines", "xxxxxx\r\n", RubbishSize / 5, 5},
                 {"only line ends", "\r", RubbishSize / 5, 40}};
    for (const auto& c : cases) {
        Reader reader(20);
        reader.Open(FileAround("\r\n", c.size, c.pattern, "\r\n" + Time1 + RvFrame));
        reader.InEachTurn([] {});
        EXPECT_EQ(reader.Read(), LogRecord) << c.what;
        EXPECT_EQ(reader.record.message, RvFrame) << c.what;
        EXPECT_EQ(reader.turns, c.turns) << c.what;
        EXPECT_FALSE(reader.w.offline.interrupted) << c.what;
        EXPECT_GT(reader.w.offline.progress.position, c.size / 2) << c.what;
    }
}

TEST(ReadRecord, AStopLeavesTheFileWhereItStood) {
    const struct {
        const char* what;
        int model;
        std::string front, pattern;
    } cases[] = {
        {"in a long line", 20, "\r\n", "x"},
        {"between lines", 20, "\r\n", "xxxxxx\r\n"},
        {"in a message", 20, "\r\n" + Time1, "x"},
        {"in a message of RV10X", 10, "\r\n" + Time1, "x"},
    };
    for (const auto& c : cases) {
        Reader reader(c.model);
        reader.Open(FileAround(Time1 + Rv10xFrame + c.front, RubbishSize, c.pattern, "\r\n"));
        reader.InEachTurn([&] { reader.w.offline.PlayStopRequested = -1; });
        EXPECT_EQ(reader.Read(), LogRecord) << c.what;
        const std::int64_t position = reader.w.offline.file->Position();
        EXPECT_EQ(reader.Read(), NoRecord) << c.what;
        EXPECT_TRUE(reader.w.offline.interrupted) << c.what;
        EXPECT_EQ(reader.w.offline.file->Position(), position) << c.what;
        EXPECT_EQ(reader.turns, 1) << c.what;
        EXPECT_FALSE(reader.w.offline.reading) << c.what;
    }
}

TEST(ReadRecord, ClosingTheFileEndsTheSearch) {
    Reader reader(20);
    reader.Open(FileAround("", RubbishSize, "x", ""));
    reader.InEachTurn([&] {
        EXPECT_TRUE(reader.w.offline.reading || !reader.w.offline.file);
        CloseOfflineFile(reader.w);
    });
    EXPECT_EQ(reader.Read(), NoRecord);
    EXPECT_TRUE(reader.w.offline.interrupted);
    EXPECT_EQ(reader.w.offline.OfflineFileNo, 0);
    EXPECT_FALSE(reader.w.offline.reading);
}

TEST(ReadRecord, PositionsBehindTwoGigabytesOverflow) {
    Reader reader(20);
    reader.Open(FileAround("", 3'000'000'000, "\r", ""));
    reader.w.offline.file->Seek(2'147'483'647);
    EXPECT_EQ(ErrorOf([&] { reader.Read(); }), 6);
    EXPECT_FALSE(reader.w.offline.reading);
}

// ---- Going back ----

TEST(SeekRecord, ReadsARememberedRecordAgain) {
    Reader reader(20, Time1 + RvFrame + "\r\n" + Time2 + RvFrame + "\r\n");
    reader.w.offline.OfflineRecordPos = {0, 1, 0};
    reader.Read();
    reader.Read();
    EXPECT_EQ(SeekRecord(reader.w, 1, reader.record), LogRecord);
    EXPECT_DOUBLE_EQ(reader.record.time, At(14, 41, 40));
    // A position that was never stored counts as found and changes nothing.
    reader.record.message = "untouched";
    EXPECT_EQ(SeekRecord(reader.w, 2, reader.record), -1);
    EXPECT_EQ(reader.record.message, "untouched");
    EXPECT_DOUBLE_EQ(reader.record.time, At(14, 41, 40));
    EXPECT_EQ(ErrorOf([&] { SeekRecord(reader.w, 3, reader.record); }), 9);
    EXPECT_EQ(ErrorOf([&] { SeekRecord(reader.w, -1, reader.record); }), 9);
}

TEST(OpenOfflineFile, RaisesWhatTheDiskSays) {
    Reader reader(20);
    reader.machine.files.Put("C:\\A.DAT", Time1 + RvFrame);
    OpenOfflineFile(reader.w, "C:\\A.DAT");
    EXPECT_EQ(reader.w.offline.OfflineFileNo, 1);
    EXPECT_EQ(reader.Read(), LogRecord);
    CloseOfflineFile(reader.w);
    EXPECT_EQ(reader.w.offline.OfflineFileNo, 0);
    EXPECT_EQ(ErrorOf([&] { OpenOfflineFile(reader.w, "C:\\B.DAT"); }), 53);
    EXPECT_EQ(reader.w.offline.OfflineFileNo, 0);
}

}  // namespace
}  // namespace cumeron
