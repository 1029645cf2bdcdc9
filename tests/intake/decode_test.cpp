#include "intake/decode.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

using Profile = std::vector<std::int32_t>;
constexpr std::int32_t Old = 7;

// Into an array of ProfileLength + 1 elements that hold something old.
Profile Decoded(int model, int id, const std::string& payload) {
    const Station station(model);
    Profile profile(static_cast<std::size_t>(station.w.model.ProfileLength) + 1, Old);
    DecodeProfile(station.w, payload, profile, static_cast<std::int16_t>(id));
    return profile;
}

std::string Repeated(const std::string& text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i) result += text;
    return result;
}

std::string Rows(std::size_t count, const std::string& sample) {
    return Repeated("00 " + Repeated(sample, 16) + "\r\n", count);
}

std::size_t Filled(const Profile& profile, std::int32_t value) {
    return static_cast<std::size_t>(std::count(profile.begin(), profile.end(), value));
}

TEST(DecodeProfile, ReadsASampleOfABlock) {
    const struct {
        const char* digits;
        int onKN, onTQ60;
    } cases[] = {
        {"00000", 0, 0},
        {"00001", 1, 1},
        {"FFFFF", -1, 0xFFFFF},
        {"fffff", -1, 0xFFFFF},
        {"F0000", -65536, 0xF0000},
        {"80000", 524288, 524288},
        {"EFFFF", 0xEFFFF, 0xEFFFF},
        {"1G000", 1, 1},
        {"FG000", 65535, 15},
        {" 1234", 0, 0},
        {"1 234", 1, 1},
        {"G1234", 0, 0},
        {"\xFF\x80\x01\x7F\x20", 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.digits);
        const std::string payload = std::string(10, 'F') + c.digits;
        EXPECT_EQ(Decoded(30, 3112, payload)[0], c.onKN);
        EXPECT_EQ(Decoded(60, 3112, payload)[0], c.onTQ60);
    }
}

TEST(DecodeProfile, ReadsASampleOfARow) {
    const struct {
        const char* digits;
        int value;
    } cases[] = {{"0000", 0}, {"7FFF", 32767}, {"8000", -32768}, {"FFFF", -1}, {"ffff", -1},
                 {"1G00", 1}, {"FFF ", 4095},  {" FFF", 0},      {"000a", 10}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.digits);
        EXPECT_EQ(Decoded(20, 15, std::string("00 ") + c.digits)[0], c.value);
        EXPECT_EQ(Decoded(30, 3115, std::string("00 ") + c.digits)[0], c.value);
    }
}

TEST(DecodeProfile, ReadsSevenDigitsOfAShortBlockOnKN) {
    const std::string payload = std::string(10, ' ') + "FFFE" + "8001";
    EXPECT_EQ(Decoded(30, 38, payload)[0], 0xFFFFFFE);
    EXPECT_EQ(Decoded(30, 38, payload)[1], 0x8001);
    EXPECT_EQ(Decoded(60, 38, payload)[0], -2);
    EXPECT_EQ(Decoded(60, 38, payload)[1], -32767);
}

TEST(DecodeProfile, TakesEachBlockFromItsPlace) {
    const struct {
        int id;
        std::size_t start, samples;
    } cases[] = {
        {3111, 10, 770}, {3114, 10, 770}, {3112, 10, 385}, {3113, 10, 1500}, {3116, 10, 1540},
        {3121, 47, 770}, {3124, 47, 770}, {3122, 47, 385}, {3123, 47, 1500}, {3126, 52, 1540},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        const std::string payload =
            std::string(c.start, '1') + Repeated("00002", c.samples - 1) + "00003" + "00004";
        const Profile profile = Decoded(50, c.id, payload);
        EXPECT_EQ(Filled(profile, 2), c.samples - 1);
        EXPECT_EQ(profile[c.samples - 1], 3);
        EXPECT_EQ(Filled(profile, 0), profile.size() - c.samples);
    }
}

TEST(DecodeProfile, TakesAsManyRowsAsTheMessageHas) {
    const struct {
        const char* what;
        int model, id;
        std::size_t samples;
    } cases[] = {
        {"3 rows", 30, 3115, 48},
        {"3 rows", 30, 3118, 48},
        {"3 rows", 30, 3125, 48},
        {"3 rows", 30, 3128, 48},
        {"16 rows", 20, 15, 256},
        {"16 rows, id 16", 70, 16, 256},
        {"the profile ends before the rows", 20, 23, 256},
        {"24 rows", 70, 23, 384},
        {"the last sample of the last row is the profile's last", 70, 46, 752},
        {"an id without rows of its own", 70, 2, 48},
        {"one beyond all profiles", 70, 60, 752},
        {"none", 70, -1, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.what) + ", id " + std::to_string(c.id));
        const Profile profile = Decoded(c.model, c.id, Rows(70, "0003"));
        EXPECT_EQ(Filled(profile, 3), c.samples);
        EXPECT_EQ(Filled(profile, 0), profile.size() - c.samples);
    }
}

TEST(DecodeProfile, TakesRowsBehindTheirHeadings) {
    const std::string payload = "001" + Repeated("0002", 16) + "\r\n" + "003" + "0004";
    const Profile profile = Decoded(20, 15, payload);
    EXPECT_EQ(profile[15], 2);
    EXPECT_EQ(profile[16], 4);
    EXPECT_EQ(profile[17], 0);
}

TEST(DecodeProfile, ClearsTheProfileForAMessageWithoutOne) {
    for (const int id : {-1, 2, 60, 61, 15, 3112, 3125, 38, 39, 40}) {
        const Profile profile = Decoded(60, id, "");
        EXPECT_EQ(Filled(profile, 0), profile.size()) << id;
    }
}

TEST(DecodeProfile, LeavesTheProfileOfARawMessage) {
    const Profile profile = Decoded(20, 99, Rows(16, "0003"));
    EXPECT_EQ(Filled(profile, Old), profile.size());
}

TEST(DecodeProfile, GivesTwoFlagsToADigitOfRV10X) {
    const std::string pairs[] = {"00", "01", "01", "01", "10", "11", "11", "11",
                                 "10", "11", "11", "11", "11", "11", "11", "11"};
    const std::string digits = "0123456789ABCDEF";
    const std::string payload = "FF" + Repeated(digits, 3) +
                                "abcdef G!\xFF"
                                "00000C";
    for (const int id : {3, 4}) {
        const Profile profile = Decoded(10, id, payload);
        for (std::size_t i = 0; i < 48; ++i) {
            EXPECT_EQ(profile[2 * i], pairs[i % 16][0] == '1' ? 1000 : 0) << i;
            EXPECT_EQ(profile[2 * i + 1], pairs[i % 16][1] == '1' ? 1000 : 0) << i;
        }
        EXPECT_EQ(profile[2 * 48], 1000) << "a small letter";
        for (std::size_t i = 54; i < 58; ++i) EXPECT_EQ(profile[2 * i], 0) << "no digit " << i;
        EXPECT_EQ(profile[126], 1000) << "the last digit";
        EXPECT_EQ(profile[127], 1000);
        EXPECT_EQ(profile[128], Old);
    }
    EXPECT_EQ(Filled(Decoded(10, 3, "FFF"), 1000), 2U) << "digits behind the payload's end are 0";
}

// A Payload of id 39: 97 characters, then one to the sample, 32 and the value in steps of 20.
std::string PayloadOf39(const std::vector<int>& steps) {
    std::string payload(97, '~');
    for (const int step : steps) payload += static_cast<char>(32 + step);
    return payload;
}

TEST(DecodeProfile, FillsTheBlindSpotsOfId39) {
    std::vector<int> steps(2048, 0);
    steps[0] = 100;  // not in the sum
    for (std::size_t i = 1; i <= 4; ++i) steps[i] = 200;
    steps[100] = 224 - 32;
    steps[19] = 32;
    // The mean of elements 1 to 2048 is 20 * 1024 / 2048 = 10.
    const Station station(60);
    Profile profile(2049, 0);
    DecodeProfile(station.w, PayloadOf39(steps), profile, 39);
    const struct {
        std::size_t index;
        int value;
        const char* what;
    } cases[] = {
        {0, 2000, "in front of the sum"},
        {1, 4000, "a sample"},
        {18, 0, "below 20 nothing is filled"},
        {20, -10, "-10.195"},
        {100, 3840, "a sample of 1 and more stays"},
        {256, -12, "-12.5 to the even side"},
        {768, -18, "-17.5 to the even side"},
        {1024, -20, "-20"},
        {2047, -30, "-29.99"},
        {2048, 0, "behind the last sample"},
    };
    for (const auto& c : cases) EXPECT_EQ(profile[c.index], c.value) << c.index << ": " << c.what;
}

// Element 2048 lies behind the last sample and still counts.
TEST(DecodeProfile, TakesTheElementBehindTheSamplesIntoTheMeanOfId39) {
    const Station station(60);
    Profile profile(2049, 0);
    profile[2048] = 20480;
    DecodeProfile(station.w, PayloadOf39({}), profile, 39);
    EXPECT_EQ(profile[1024], -20);
    EXPECT_EQ(profile[2048], 0);
}

TEST(DecodeProfile, ReadsACharacterAsItsCodeLess32) {
    std::string payload = PayloadOf39({});
    payload += "!\x1F\xFF";
    const Profile profile = Decoded(60, 39, payload);
    EXPECT_EQ(profile[0], 20);
    EXPECT_EQ(profile[1], -20);
    EXPECT_EQ(profile[2], 4460);
    EXPECT_EQ(profile[3], 0) << "behind the payload's end";
}

TEST(DecodeProfile, ReadsId40ByRowsAndFirstCharacters) {
    const Profile profile = Decoded(60, 40, Rows(41, "!~~~"));
    EXPECT_EQ(Filled(profile, 20), 41U * 16);
    EXPECT_EQ(Filled(profile, 0), profile.size() - 41U * 16);
}

TEST(DecodeProfile, RaisesSubscriptForMoreSamplesThanTheProfileHolds) {
    for (const int model : {30, 50}) {
        SCOPED_TRACE(model);
        const Station station(model);
        ProfileSlotRecord slot;
        const std::string payload = PayloadOf39(std::vector<int>(2048, 1));
        EXPECT_NO_THROW(DecodeProfile(station.w, payload, slot.Profile, 39));
        EXPECT_EQ(slot.Profile[2047], 20);
        Profile profile(static_cast<std::size_t>(station.w.model.ProfileLength) + 1, Old);
        try {
            DecodeProfile(station.w, payload, profile, 39);
            FAIL() << "2048 samples fitted";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 9);
        }
        EXPECT_EQ(profile.back(), 20) << "what fits is stored";
    }
}

TEST(DecodeProfile, RaisesSubscriptForAProfileThatIsTooShort) {
    const Station station(20);
    Profile none, tooShort(255);
    EXPECT_THROW(DecodeProfile(station.w, "", none, -1), RuntimeError);
    EXPECT_THROW(DecodeProfile(station.w, "", tooShort, 2), RuntimeError);
    EXPECT_THROW(DecodeProfile(station.w, "", none, 3), RuntimeError);
}

TEST(DecodeStatusDigits, ReadsTheWordOfEachModel) {
    const struct {
        int model;
        std::size_t digits;
    } cases[] = {{70, 8}, {20, 8}, {10, 10}, {30, 12}, {50, 12}, {60, 8}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.model);
        Station station(c.model);
        auto& digits = station.w.readings.StatusDigits;
        digits.fill(Old);
        DecodeStatusDigits(station.w, "0Ff9x 1234567890");
        const std::int16_t expected[] = {0, 15, 15, 9, 0, 0, 1, 2, 3, 4, 5, 6};
        for (std::size_t i = 0; i < digits.size(); ++i)
            EXPECT_EQ(digits[i], i < c.digits ? expected[i] : Old) << i;
        DecodeStatusDigits(station.w, "1");
        EXPECT_EQ(digits[0], 1);
        EXPECT_EQ(digits[1], 0);
    }
}

TEST(ConvertHistoryUnits, RewritesTheHeightsOfAllRecords) {
    const struct {
        int units;
        const char *before, *after;
    } cases[] = {
        {1, "01000", "00300"},  {1, "00005", "00002"}, {1, "00015", "00004"}, {1, "00035", "00010"},
        {1, "   10", "00003"},  {1, "-----", "-----"}, {1, "00000", "00000"}, {1, "", ""},
        {1, "0100x", "0100x"},  {0, "00300", "01000"}, {0, "00001", "00003"}, {0, "00002", "00007"},
        {0, "99999", "333330"}, {0, "-0030", "0-100"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        Station station(30);
        station.w.settings.Units = static_cast<std::int16_t>(c.units);
        for (GraphRecord& record : station.w.graphs.GraphHistory) record.CloudValue.fill(c.before);
        ConvertHistoryUnits(station.w);
        for (const GraphRecord& record : station.w.graphs.GraphHistory) {
            for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(record.CloudValue[i], c.after);
            EXPECT_EQ(record.CloudValue[3], c.before);
        }
    }
}

}  // namespace
}  // namespace cumeron
