// The frames of all message kinds, by positions and lengths that are counted here by hand.
#include "encode.h"

#include <gtest/gtest.h>

#include <set>

#include "setups.h"
#include "wire_text.h"

namespace cumeron::sim {
namespace {

TEST(Catalogue, HoldsEveryKindOnce) {
    std::set<std::string> seen;
    for (const ModelRow& model : Models()) {
        EXPECT_NE(FindMessage(model, model.defaultMessage), nullptr) << model.name;
        for (const MessageRow& row : Messages())
            if (HasMessage(model, row)) {
                EXPECT_TRUE(seen.insert(std::string(model.name) + row.key).second) << row.key;
            }
    }
    EXPECT_EQ(seen.size(), 11u + 11 + 3 + 12 + 14 + 3);
}

TEST(Catalogue, FindsInAnyLetterCaseAndNothingElse) {
    EXPECT_EQ(FindModel("kn30")->code, 30);
    EXPECT_EQ(FindModel("KN31"), nullptr);
    EXPECT_STREQ(FindMessage(*FindModel("TQ60"), "ta08")->key, "TA08");
    EXPECT_EQ(FindMessage(*FindModel("KN30"), "26"), nullptr) << "longer than a KN30's profile";
}

TEST(Catalogue, ListNamesEveryDefault) {
    const std::string list = ListCatalogue();
    for (const char* line : {"RV70X  73", "RV10X  6 ", "KN30   21", "KN50   26", "TQ60   TA01"}) {
        const std::size_t at = list.find(line);
        ASSERT_NE(at, list.npos) << line;
        EXPECT_NE(list.substr(at, list.find('\n', at) - at).find("(default)"), list.npos) << line;
    }
}

// Frame lengths: what stands up to position 86, and the part from 87 on that tells the kinds
// apart (RV and KN); for the others the whole frame.
TEST(Encode, EveryKindHasItsLength) {
    const struct {
        const char* model;
        const char* key;
        std::size_t length;
    } cases[] = {
        {"RV70X", "73", 86 + 1137},   {"RV70X", "73N", 86 + 1131}, {"RV70X", "23", 86 + 1107},
        {"RV20X", "24", 86 + 1659},   {"RV20X", "28", 86 + 3246},  {"RV20X", "10", 42 + 3},
        {"RV20X", "33", 42 + 44 + 3}, {"RV20X", "60", 42 + 33},    {"RV70X", "61", 42 + 40},
        {"RV70X", "S0", 42 + 3},      {"RV20X", "R0", 86 + 1137},  {"RV10X", "3", 111},
        {"RV10X", "6", 141},          {"KN30", "11", 86 + 3870},   {"KN30", "12", 86 + 1945},
        {"KN30", "13", 86 + 7520},    {"KN30", "14", 86 + 3870},   {"KN30", "15", 96 + 8},
        {"KN50", "16", 86 + 7720},    {"KN30", "18", 96 + 8},      {"KN30", "21", 86 + 3907},
        {"KN30", "22", 86 + 1982},    {"KN30", "23", 86 + 7557},   {"KN30", "24", 86 + 3907},
        {"KN30", "25", 47 + 45},      {"KN50", "26", 86 + 7762},   {"KN30", "28", 133 + 50},
        {"TQ60", "TA01", 102 + 2051}, {"TQ60", "TA08", 213},       {"TQ60", "RD01", 5 + 2053},
    };
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup(c.model, c.key);
        for (const Reading& reading : {TwoClouds(setup), Fog(setup)})
            EXPECT_EQ(Encode(setup, reading).size(), c.length) << c.model << " " << c.key;
    }
    const InstrumentSetup raw = MakeSetup("RV10X", "R");
    EXPECT_GT(Encode(raw, TwoClouds(raw)).size(), 400u);
}

TEST(Encode, StartsAndEndsAsTheFamilyDoes) {
    for (const ModelRow& model : Models()) {
        for (const MessageRow& row : Messages()) {
            if (!HasMessage(model, row)) continue;
            const InstrumentSetup setup = MakeSetup(model.name, row.key);
            const std::string frame = Encode(setup, TwoClouds(setup));
            const std::string name = std::string(model.name) + " " + row.key;
            const bool stx = model.family == Family::RV10X || model.family == Family::TQ60;
            EXPECT_EQ(frame[0], stx ? '\x02' : '\x01') << name;
            const char* end = model.family == Family::KN     ? "\x04\r\n"
                              : model.family == Family::TQ60 ? "\r\n\x04"
                                                             : "\x03\r\n";
            EXPECT_EQ(frame.find(end), frame.size() - 3) << name << ": the end stands once";
        }
    }
}

// Frames whose checksum was worked out apart from this program.
TEST(Checksum, AgreesWithKnownFrames) {
    const struct {
        const char* text;
        const char* sum;
    } cases[] = {
        {"KN021015\x02\r\n10 01230 04500 ///// 000000000000\r\n"
         "      10              098 +02                  \r\n\x03",
         "bad9"},
        {"KN021018\x02\r\n10 01230 ///// ///// 000000000000\r\n"
         "      10              098 +02                  \r\n\x03",
         "7533"},
        {"KN021025\x02\r\n10 01230 ///// ///// 000000000000\r\n"
         "  3 0450  5 1200  0 ////  0 ////   \r\n\x03",
         "4fcd"},
        {"", "0000"},
    };
    for (const auto& c : cases) EXPECT_EQ(Checksum(c.text), c.sum);
}

TEST(EncodeKn, ChecksumCoversHeaderThroughEtx) {
    for (const char* key : {"11", "15", "21", "25", "28"}) {
        const InstrumentSetup setup = MakeSetup("KN30", key);
        const std::string frame = Encode(setup, TwoClouds(setup));
        const std::size_t etx = frame.find('\x03');
        EXPECT_EQ(frame.size(), etx + 8) << key;
        EXPECT_EQ(frame.substr(etx + 1, 4), Checksum(frame.substr(1, etx))) << key;
    }
}

TEST(EncodeKn, FieldsStandAtTheirPositions) {
    const struct {
        const char* key;
        std::size_t shift;  // of what stands behind the sky condition
        const char* gate;
    } cases[] = {{"11", 0, "10"},  {"12", 0, "20"},  {"13", 0, "05"},  {"14", 0, "05"},
                 {"21", 37, "10"}, {"22", 37, "20"}, {"26", 42, "10"}, {"28", 37, "10"}};
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup("KN50", c.key);
        const std::string frame = Encode(setup, TwoClouds(setup));
        EXPECT_EQ(At(frame, 2, 2), "KN");
        EXPECT_EQ(At(frame, 8, 2), c.key);
        EXPECT_EQ(At(frame, 13, 2), "20") << "detection and alarm";
        EXPECT_EQ(At(frame, 16, 5), "01230");
        EXPECT_EQ(At(frame, 22, 5), "04500");
        EXPECT_EQ(At(frame, 28, 5), "/////");
        EXPECT_EQ(At(frame, 34, 12), "000000000000");
        EXPECT_EQ(At(frame, 54 + c.shift, 2), c.gate) << c.key;
        EXPECT_EQ(At(frame, 70 + c.shift, 3), "098") << c.key;
        EXPECT_EQ(At(frame, 74 + c.shift, 3), "+02") << c.key;
        EXPECT_EQ(At(frame, 92 + c.shift, 3), "123") << c.key;
    }
}

TEST(EncodeKn, SkyConditionStandsWhereItIsCountedFromTheEnd) {
    const struct {
        const char* key;
        std::size_t fromEnd;
        std::size_t records;
    } cases[] = {{"21", 3946, 4}, {"24", 3946, 4}, {"22", 2021, 4}, {"23", 7596, 4},
                 {"25", 45, 4},   {"26", 7801, 5}, {"28", 50, 5}};
    const std::string sky = "  3 0123  5 0450  7 0689  0 ////  0 ////";
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup("KN50", c.key);
        const std::string frame = Encode(setup, TwoClouds(setup));
        ASSERT_GT(frame.size(), c.fromEnd);
        EXPECT_EQ(frame.substr(frame.size() - c.fromEnd, 8 * c.records),
                  sky.substr(0, 8 * c.records))
            << c.key;
    }
}

TEST(EncodeKn, SamplesAreTwentyBitsWithTheSignInTheFirstDigit) {
    const InstrumentSetup setup = MakeSetup("KN30", "12");
    Reading reading = TwoClouds(setup);
    reading.profile[0] = 1;
    reading.profile[1] = -0.1;
    reading.profile[2] = 1e9;
    reading.profile[3] = -1e9;
    EXPECT_EQ(At(Encode(setup, reading), 97, 20), "0000AFFFFF7FFFFF0000");
    const InstrumentSetup sky = MakeSetup("KN50", "26");
    EXPECT_EQ(At(Encode(sky, TwoClouds(sky)), 87 + 52, 10), "003E8003E8");
}

TEST(EncodeKn, ShortSkyNeverShowsAResolutionOfNothing) {
    const InstrumentSetup setup = MakeSetup("KN30", "25");
    Reading reading = TwoClouds(setup);
    reading.sky[0].height = 609.6;  // 2000 ft
    EXPECT_EQ(At(Encode(setup, reading), 48, 8), "  3 0201");
}

TEST(EncodeRv, FieldsStandAtTheirPositions) {
    const InstrumentSetup setup = MakeSetup("RV20X", "73");
    const std::string frame = Encode(setup, TwoClouds(setup));
    EXPECT_EQ(At(frame, 2, 2), "RV");
    EXPECT_EQ(At(frame, 7, 2), "73");
    EXPECT_EQ(At(frame, 12, 2), "20");
    EXPECT_EQ(At(frame, 15, 5), "01230");
    EXPECT_EQ(At(frame, 21, 5), "04500");
    EXPECT_EQ(At(frame, 27, 5), "/////");
    EXPECT_EQ(At(frame, 33, 8), "00000000");
    EXPECT_EQ(At(frame, 67, 3), "+02");
    EXPECT_EQ(At(frame, 80, 1), "1");
    EXPECT_EQ(At(frame, 82, 3), "123");
    EXPECT_EQ(At(frame, 87, 7), "0000064");
    EXPECT_EQ(At(frame, 87 + 15 * 69, 7), "2400064");
    EXPECT_EQ(frame.substr(frame.size() - 33, 28), "  3 012  5 045  7 069  0 ///");
}

TEST(EncodeRv, AngleTakesOneMorePlaceToTheLeftFromTenDegrees) {
    const struct {
        const char* model;
        int tilt;
        const char* text;  // from 66
    } cases[] = {{"RV20X", 9, " +09"},
                 {"RV20X", 10, "+10 "},
                 {"RV20X", -12, "-12 "},
                 {"RV70X", 0, "+90 "},
                 {"RV70X", 14, "+76 "}};
    for (const auto& c : cases) {
        InstrumentSetup setup = MakeSetup(c.model, "23");
        setup.tilt = c.tilt;
        EXPECT_EQ(At(Encode(setup, TwoClouds(setup)), 66, 4), c.text) << c.tilt;
    }
}

TEST(EncodeRv, SkyConditionOfFourDigitsAndNone) {
    const InstrumentSetup four = MakeSetup("RV20X", "61");
    const std::string frame = Encode(four, TwoClouds(four));
    EXPECT_EQ(frame.substr(frame.size() - 40, 32), "  3 0123  5 0450  7 0689  0 ////");
    const InstrumentSetup none = MakeSetup("RV20X", "73N");
    const std::string other = Encode(none, TwoClouds(none));
    EXPECT_EQ(other.substr(other.size() - 27), std::string(22, '/') + "\r\n\x03\r\n");
}

TEST(EncodeRv10x, FieldsStandAtTheirPositions) {
    const InstrumentSetup setup = MakeSetup("RV10X", "6");
    const std::string frame = Encode(setup, TwoClouds(setup));
    EXPECT_EQ(At(frame, 4, 2), "20");
    EXPECT_EQ(At(frame, 8, 5), "01230");
    EXPECT_EQ(At(frame, 14, 5), "/////");
    EXPECT_EQ(At(frame, 20, 5), "04500");
    EXPECT_EQ(At(frame, 32, 10), "0000000000");
    // 375 m to 465 m are the steps 12 to 15, two to a digit; 1372 m to 1462 m 45 to 47.
    EXPECT_EQ(At(frame, 43 + 6, 2), "99");
    EXPECT_EQ(At(frame, 43 + 22, 2), "19");
    EXPECT_EQ(frame.substr(frame.size() - 33, 28), "  3 012  5 045  7 069  0 ///");
    const std::string fog = Encode(setup, Fog(setup));
    EXPECT_EQ(At(fog, 4, 2), "30");
    EXPECT_EQ(At(fog, 8, 17), "00300 00120 /////");
    EXPECT_EQ(At(fog, 43, 3), "980") << "hits up to the vertical visibility";
}

TEST(EncodeTq60, FieldsStandAtTheirPositions) {
    const InstrumentSetup setup = MakeSetup("TQ60", "TA01");
    const std::string frame = Encode(setup, TwoClouds(setup));
    EXPECT_EQ(At(frame, 2, 6), "X0TA01");
    EXPECT_EQ(At(frame, 12, 2), "22");
    EXPECT_EQ(At(frame, 28, 17), "01230 04500 /////");
    EXPECT_EQ(At(frame, 61, 11), "///// /////");
    EXPECT_EQ(At(frame, 78, 1), "f");
    EXPECT_EQ(At(frame, 91, 1), "0");
    EXPECT_EQ(At(frame, 103, 2048), std::string(2048, '%')) << "5 times 20 plot units";
    const std::string fog = Encode(setup, Fog(setup));
    EXPECT_EQ(At(fog, 12, 2), "44");
    EXPECT_EQ(At(fog, 28, 17), "///// ///// /////");
    EXPECT_EQ(At(fog, 61, 11), "00300 00120");
}

TEST(EncodeTq60, FieldsWinOverSamplesInTheShortForm) {
    const InstrumentSetup setup = MakeSetup("TQ60", "TA08");
    const std::string frame = Encode(setup, TwoClouds(setup));
    EXPECT_EQ(At(frame, 16, 12), "006400640064");
    EXPECT_EQ(At(frame, 28, 17), "01230 04500 /////");
    EXPECT_EQ(At(frame, 48, 12), "006400640064");
    EXPECT_EQ(At(frame, 78, 1), "f");
}

TEST(EncodeTq60, NoSampleIsABlindSpot) {
    const InstrumentSetup setup = MakeSetup("TQ60", "RD01");
    Reading reading = TwoClouds(setup);
    reading.profile.assign(2048, -50);
    reading.profile[1] = 1e9;
    EXPECT_EQ(At(Encode(setup, reading), 8, 3), "!~!");
}

TEST(Encode, MetresShowInHeightsAndStatusWord) {
    const struct {
        const char* model;
        std::size_t cloud, status;
        const char* word;
    } cases[] = {{"KN30", 16, 34, "000000000080"},
                 {"RV20X", 15, 33, "00000100"},
                 {"RV10X", 8, 32, "0000000100"},
                 {"TQ60", 28, 78, "m"}};
    for (const auto& c : cases) {
        InstrumentSetup setup = MakeSetup(c.model);
        setup.metres = true;
        const std::string frame = Encode(setup, TwoClouds(setup));
        EXPECT_EQ(At(frame, c.cloud, 5), "00375") << c.model;
        EXPECT_EQ(At(frame, c.status, std::string(c.word).size()), c.word) << c.model;
    }
    InstrumentSetup sky = MakeSetup("RV20X", "60");
    sky.metres = true;
    const std::string frame = Encode(sky, TwoClouds(sky));
    EXPECT_EQ(frame.substr(frame.size() - 33, 14), "  3 038  5 137") << "tens of metres";
}

TEST(Encode, AlarmCharacterGoesWithTheStatusWord) {
    const struct {
        const char* model;
        std::size_t alarm, status;
        const char *warning, *failure;
    } cases[] = {{"KN30", 14, 34, "000080000000", "400000000000"},
                 {"RV70X", 13, 33, "00800000", "40000000"},
                 {"RV10X", 5, 32, "0010000000", "1000000000"},
                 {"TQ60", 91, 84, "", ""}};
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup(c.model);
        Reading reading = TwoClouds(setup);
        reading.health = Health::Warning;
        std::string frame = Encode(setup, reading);
        EXPECT_EQ(At(frame, c.alarm, 1), "W") << c.model;
        EXPECT_EQ(At(frame, c.status, std::string(c.warning).size()), c.warning) << c.model;
        reading.health = Health::Alarm;
        frame = Encode(setup, reading);
        EXPECT_EQ(At(frame, c.alarm, 1), "A") << c.model;
        EXPECT_EQ(At(frame, c.status, std::string(c.failure).size()), c.failure) << c.model;
        EXPECT_EQ(StatusWord(setup, reading), c.failure) << c.model;
    }
}

TEST(Encode, BodyShowsInTheStatusWord) {
    const struct {
        const char* model;
        const char* word;
    } cases[] = {{"KN30", "00000002A000"}, {"RV20X", "00000A08"}, {"RV10X", "0000011000"}};
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup(c.model);
        Reading reading = TwoClouds(setup);
        reading.blowerOn = reading.heaterOn = reading.steep = true;
        EXPECT_EQ(StatusWord(setup, reading), c.word) << c.model;
        if (setup.model->family == Family::KN) {
            EXPECT_EQ(At(Encode(setup, reading), 14, 1), "W") << "a steep tilt is a warning";
        }
    }
}

TEST(Encode, FogIsAVerticalVisibility) {
    const struct {
        const char* model;
        std::size_t detection, cloud;
    } cases[] = {{"KN30", 13, 16}, {"RV20X", 12, 15}};
    for (const auto& c : cases) {
        const InstrumentSetup setup = MakeSetup(c.model);
        const std::string frame = Encode(setup, Fog(setup));
        EXPECT_EQ(At(frame, c.detection, 1), "4");
        EXPECT_EQ(At(frame, c.cloud, 17), "00300 00120 /////");
    }
    const InstrumentSetup setup = MakeSetup("KN30", "21");
    EXPECT_EQ(At(Encode(setup, Fog(setup)), 48, 16), "  9 0030  0 ////");
}

TEST(Encode, LostMeasurementLeavesNoNumbers) {
    InstrumentSetup setup = MakeSetup("KN30", "21");
    setup.health = Health::Alarm;
    const Reading reading = Measure(setup, Noon);
    const std::string frame = Encode(setup, reading);
    EXPECT_EQ(At(frame, 13, 2), "/A");
    EXPECT_EQ(At(frame, 16, 17), "///// ///// /////");
    EXPECT_EQ(At(frame, 48, 16), "/// /////// ////");
}

}  // namespace
}  // namespace cumeron::sim
