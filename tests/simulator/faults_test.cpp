// Injected faults do what their names say, at the rate asked for.
#include "faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "setups.h"
#include "wire_text.h"

namespace cumeron::sim {
namespace {

std::string Frame() {
    const InstrumentSetup setup = MakeSetup("KN30", "15");
    return Encode(setup, TwoClouds(setup));
}

TEST(Spoil, WithoutRatesNothingHappens) {
    for (std::int64_t i = 0; i < 50; ++i) {
        const SentMessage sent = Spoil(Frame(), {}, 1, i, Family::KN);
        EXPECT_EQ(sent.bytes, Frame());
        EXPECT_TRUE(sent.sound);
    }
}

TEST(Spoil, WrongChecksumTurnsOneDigitOfIt) {
    FaultRates rates;
    rates.checksum = 1;
    for (std::int64_t i = 0; i < 50; ++i) {
        const SentMessage sent = Spoil(Frame(), rates, 1, i, Family::KN);
        ASSERT_EQ(sent.bytes.size(), Frame().size());
        EXPECT_FALSE(sent.sound);
        const std::size_t sum = Frame().size() - 7;
        EXPECT_EQ(sent.bytes.substr(0, sum), Frame().substr(0, sum));
        EXPECT_NE(sent.bytes.substr(sum, 4), Frame().substr(sum, 4));
        EXPECT_EQ(sent.bytes.substr(sum + 4), "\x04\r\n");
        EXPECT_EQ(Spoil(Frame(), rates, 1, i, Family::RV).bytes, Frame()) << "has no checksum";
    }
}

TEST(Spoil, CutFrameHasNoEnd) {
    FaultRates rates;
    rates.cut = 1;
    std::size_t shortest = 1000, longest = 0;
    for (std::int64_t i = 0; i < 50; ++i) {
        const SentMessage sent = Spoil(Frame(), rates, 1, i, Family::KN);
        EXPECT_FALSE(sent.sound);
        EXPECT_EQ(sent.bytes, Frame().substr(0, sent.bytes.size()));
        EXPECT_EQ(sent.bytes.find('\x04'), sent.bytes.npos);
        shortest = std::min(shortest, sent.bytes.size());
        longest = std::max(longest, sent.bytes.size());
    }
    EXPECT_LT(shortest + 20, longest);
}

TEST(Spoil, LostStartTakesTheStartCharacter) {
    FaultRates rates;
    rates.lostStart = 1;
    for (std::int64_t i = 0; i < 50; ++i) {
        const SentMessage sent = Spoil(Frame(), rates, 1, i, Family::KN);
        EXPECT_FALSE(sent.sound);
        EXPECT_EQ(sent.bytes.find('\x01'), sent.bytes.npos);
        EXPECT_TRUE(Frame().ends_with(sent.bytes));
    }
}

TEST(Spoil, NoiseStandsInFrontAndHarmsNothing) {
    FaultRates rates;
    rates.noise = 1;
    std::set<std::string> noises;
    for (std::int64_t i = 0; i < 50; ++i) {
        const SentMessage sent = Spoil(Frame(), rates, 1, i, Family::KN);
        EXPECT_TRUE(sent.sound);
        EXPECT_EQ(sent.bytes.substr(sent.noise), Frame());
        const std::string noise = sent.bytes.substr(0, sent.noise);
        EXPECT_GE(noise.size(), 5u);
        EXPECT_LE(noise.size(), 40u);
        for (char c : noise) EXPECT_GE(static_cast<unsigned char>(c), 32);
        noises.insert(noise);
    }
    EXPECT_GT(noises.size(), 45u);
}

TEST(Spoil, SilenceSendsNothing) {
    FaultRates rates;
    rates.silence = 1;
    const SentMessage sent = Spoil(Frame(), rates, 1, 0, Family::KN);
    EXPECT_EQ(sent.bytes, "");
    EXPECT_FALSE(sent.sound);
}

TEST(Spoil, KeepsTheRate) {
    FaultRates rates;
    rates.silence = 0.2;
    int silent = 0;
    for (std::int64_t i = 0; i < 2000; ++i)
        silent += Spoil(Frame(), rates, 1, i, Family::KN).bytes.empty() ? 1 : 0;
    EXPECT_NEAR(silent, 400, 60);
}

}  // namespace
}  // namespace cumeron::sim
