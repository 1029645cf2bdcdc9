#include <gtest/gtest.h>

#include <random>

#include "intake/intake.h"
#include "intake/messages.h"

namespace cumeron {
namespace {

ModelTable ModelOf(int code) { return Station(code).w.model; }

std::string WithBitTurned(std::string text, std::size_t at) {
    text[at] = static_cast<char>(text[at] ^ 1);
    return text;
}

std::string InCapitals(std::string frame) {
    for (std::size_t i = frame.size() - 7; i < frame.size() - 3; ++i)
        frame[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(frame[i])));
    return frame;
}

TEST(FrameChecksum, IsThatOfARecordedMessage) {
    EXPECT_EQ(FrameChecksum("KN021015\x02\r\n10 01230 ///// ///// 000000000000\r\n"
                            "      10              098 +02                  \r\n\x03"),
              0x9be0);
    EXPECT_EQ(FrameChecksum("123456789"), 0xd64e);
    EXPECT_EQ(FrameChecksum(""), 0);
}

TEST(FrameChecksum, AgreesWithTheSumBitByBit) {
    std::mt19937 random(1);
    for (std::size_t length = 0; length < 400; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i) text += static_cast<char>(random() & 0xFF);
        ASSERT_EQ(FrameChecksum(text), ChecksumBitByBit(text)) << length;
    }
}

TEST(CheckFrame, TellsWhatIsWrong) {
    const std::string kn = ShortKN("15");
    const std::string rv = "\x01RVA1010\x02\r\n10 01230\r\n\x03\r\n";
    const std::string rv10x = "\x02\r\n10  01230\r\n\x03\r\n";
    const std::string tq60 = "\x02X0TA08    11\r\n\x04";
    const struct {
        const char* what;
        int model;
        std::string frame;
        FrameVerdict verdict;
    } cases[] = {
        {"whole KN", 30, kn, FrameVerdict::Good},
        {"one bit turned", 30, WithBitTurned(kn, 20), FrameVerdict::BadChecksum},
        {"one bit of the ETX turned", 50, WithBitTurned(kn, kn.size() - 8),
         FrameVerdict::BadChecksum},
        {"one bit of the checksum turned", 50, WithBitTurned(kn, kn.size() - 5),
         FrameVerdict::BadChecksum},
        {"checksum in capitals", 30, InCapitals(kn), FrameVerdict::BadChecksum},
        {"one bit before the header turned", 30, WithBitTurned(kn, 0), FrameVerdict::Good},
        {"end cut off", 30, kn.substr(0, 40), FrameVerdict::BadEnd},
        {"header turned", 30, WithBitTurned(kn, 2), FrameVerdict::NoHeader},
        {"nothing", 30, "", FrameVerdict::NoHeader},
        {"a header and nothing else", 30, "KN", FrameVerdict::BadEnd},
        {"too short for a checksum", 30, "\x01KN1\x04\r\n", FrameVerdict::BadChecksum},
        {"a checksum of nothing", 30, "KN00\x04\r\n", FrameVerdict::BadChecksum},
        {"whole RV", 70, rv, FrameVerdict::Good},
        {"RV content is not checked", 70, WithBitTurned(rv, 12), FrameVerdict::Good},
        {"RV without its header", 20, WithBitTurned(rv, 1), FrameVerdict::NoHeader},
        {"RV with the end of KN", 20, WithBitTurned(rv, rv.size() - 3), FrameVerdict::BadEnd},
        {"whole RV10X", 10, rv10x, FrameVerdict::Good},
        {"RV10X without its start", 10, rv10x.substr(1), FrameVerdict::NoHeader},
        {"RV10X without its end", 10, rv10x.substr(0, 9), FrameVerdict::BadEnd},
        {"whole TQ60", 60, tq60, FrameVerdict::Good},
        {"TQ60: the last character alone", 60, "X\x04", FrameVerdict::Good},
        {"TQ60 without its header", 60, WithBitTurned(tq60, 1), FrameVerdict::NoHeader},
        {"TQ60 with its end turned", 60, WithBitTurned(tq60, tq60.size() - 1),
         FrameVerdict::BadEnd},
        {"no model", 0, kn, FrameVerdict::NoHeader},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CheckFrame(c.frame, ModelOf(c.model)).verdict, c.verdict) << c.what;
}

TEST(CheckFrame, GivesTheBodyFromTheHeaderOn) {
    const struct {
        const char* what;
        int model;
        std::string frame, body;
    } cases[] = {
        {"behind the start", 20, "\x01RVA\x03\r\n", "RVA\x03\r\n"},
        {"further behind", 20,
         "\x01"
         "abRVA\x03\r\n",
         "RVA\x03\r\n"},
        {"the first of two", 20, "\x01RVRVA\x03\r\n", "RVRVA\x03\r\n"},
        {"RV10X: the start itself", 10, "\x02RV\x03\r\n", "\x02RV\x03\r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CheckFrame(c.frame, ModelOf(c.model)).body, c.body) << c.what;
}

TEST(FindFrame, AnswersWholeBeginningOrNothing) {
    const struct {
        const char* what;
        int model;
        std::string buffer;
        Found found;
        std::size_t at, length;
    } cases[] = {
        {"nothing", 30, "", Found::Nothing, 0, 0},
        {"rubbish", 30, "KN0\x04\r\n", Found::Nothing, 0, 0},
        {"a start", 30, "ab\x01", Found::Beginning, 2, 0},
        {"a start without its end", 30, "\x01KN\x04\r", Found::Beginning, 0, 0},
        {"the end before the start", 30, "\x04\r\n\x01KN", Found::Beginning, 3, 0},
        {"an end before a whole frame", 30, "\x04\r\n\x01KN\x04\r\n", Found::Beginning, 3, 0},
        {"a frame", 30, "\x01KN\x04\r\n", Found::Frame, 0, 6},
        {"a frame in rubbish", 30, "ab\x01KN\x04\r\ncd", Found::Frame, 2, 6},
        {"the first of two", 30, "\x01KN\x04\r\n\x01KN1\x04\r\n", Found::Frame, 0, 6},
        {"an empty one", 30, "\x01\x04\r\n", Found::Frame, 0, 4},
        {"the end of another family", 30, "\x01RV\x03\r\n", Found::Beginning, 0, 0},
        {"RV", 70, "\x01RV\x03\r\n", Found::Frame, 0, 6},
        {"RV10X", 10, "\x02\r\n\x03\r\n", Found::Frame, 0, 6},
        {"TQ60", 60, "\x02X\r\n\x04\x02", Found::Frame, 0, 5},
        {"no model", 0, "\x01KN\x04\r\n", Found::Nothing, 0, 0},
    };
    for (const auto& c : cases) {
        const FrameSearch search = FindFrame(c.buffer, ModelOf(c.model));
        EXPECT_EQ(search.what, c.found) << c.what;
        EXPECT_EQ(search.at, c.at) << c.what;
        EXPECT_EQ(search.length, c.length) << c.what;
    }
}

}  // namespace
}  // namespace cumeron
