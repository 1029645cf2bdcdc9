// What the road of a whole KN50 message of 1540 samples costs, against the bare passes that it
// cannot do without: one search for a byte, one checksum by table, one table-driven reading of the
// hexadecimal digits. The counters are the measure: both sides are taken in turn in the same run,
// and the quickest round of each counts, since a busy machine only ever makes a round slower.
//     RoadAgainstBarePasses.ratio      road / bare passes, 3 at most
//     ChecksumAgainstBitByBit.times    bit by bit / by table, 5 at least
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "intake/classify.h"
#include "intake/decode.h"
#include "intake/intake.h"
#include "intake/models.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::size_t Samples = 1540;
constexpr std::size_t PayloadLength = 7720;
constexpr std::size_t TailLength = 8;  // ETX, checksum, EOT CR LF

std::string WholeMessage() {
    std::string counted = "KN021016\x02\r\n10 01230 ///// ///// 000000000000\r\n";
    counted.resize(85, ' ');
    counted.replace(52, 2, "10");
    counted.resize(85 + 10, ' ');
    constexpr std::string_view digits = "0123456789abcdef";
    std::uint32_t value = 1;
    for (std::size_t i = 0; i < 5 * Samples; ++i) {
        value = value * 1664525 + 1013904223;
        counted += digits[value >> 28];
    }
    counted.resize(85 + PayloadLength - TailLength, ' ');
    counted += '\x03';
    const unsigned checksum = FrameChecksum(counted);
    std::string frame = "\x01" + counted;
    for (int shift = 12; shift >= 0; shift -= 4) frame += digits[checksum >> shift & 15];
    return frame + "\x04\r\n";
}

struct Road {
    ScriptedMachine machine;
    Workstation w{machine.platform};
    std::vector<std::int32_t> profile;
    std::string frameText, payload;

    Road() {
        w.settings.CEILOMETER = 50;
        w.settings.Start_Of_Information = 87;
        LoadModel(w, LoadedBy::Start);
        profile.resize(static_cast<std::size_t>(w.model.ProfileLength) + 1);
    }
    // False when the message is not what it should be.
    bool Take(const std::string& buffer) {
        const FrameSearch search = FindFrame(buffer, w.model);
        const std::string frame = buffer.substr(search.at, search.length);
        const FrameCheck check = CheckFrame(frame, w.model);
        frameText.assign(1, ' ').append(check.body);
        const std::int16_t id = ClassifyMessage(w, frameText, payload);
        DecodeProfile(w, payload, profile, id);
        return check.verdict == FrameVerdict::Good && id == 3116;
    }
};

// The tables of the bare passes, made here so that they share nothing with the program.
struct Tables {
    std::array<std::uint16_t, 256> checksum{};
    std::array<std::uint8_t, 256> digit{};

    Tables() {
        for (unsigned code = 0; code < 256; ++code) {
            unsigned rest = code << 8;
            for (int i = 0; i < 8; ++i) rest = (rest & 0x8000U) ? (rest << 1) ^ 4129 : rest << 1;
            checksum[code] = static_cast<std::uint16_t>(rest);
        }
        for (unsigned i = 0; i < 16; ++i)
            digit[static_cast<unsigned char>("0123456789abcdef"[i])] = static_cast<std::uint8_t>(i);
    }
};

void BarePasses(const Tables& tables, const std::string& frame,
                std::vector<std::int32_t>& samples) {
    benchmark::DoNotOptimize(std::memchr(frame.data(), 0xFF, frame.size()));
    unsigned rest = 0xFFFF;
    for (const char c : frame) {
        const unsigned index = (rest >> 8 ^ static_cast<unsigned char>(c)) & 0xFFU;
        rest = (rest << 8 & 0xFFFFU) ^ tables.checksum[index];
    }
    benchmark::DoNotOptimize(rest);
    const char* at = frame.data() + 96;
    for (std::int32_t& sample : samples) {
        std::uint32_t value = 0;
        for (int i = 0; i < 5; ++i)
            value = value << 4 | tables.digit[static_cast<unsigned char>(*at++)];
        sample = static_cast<std::int32_t>(value);
    }
    benchmark::DoNotOptimize(samples.data());
    benchmark::ClobberMemory();
}

unsigned ChecksumBitByBit(const std::string& text) {
    unsigned rest = 0xFFFF;
    for (const char c : text) {
        rest ^= static_cast<unsigned>(static_cast<unsigned char>(c)) << 8;
        for (int i = 0; i < 8; ++i)
            rest = (rest & 0x8000U) ? (rest << 1 & 0xFFFFU) ^ 4129 : rest << 1;
    }
    return rest ^ 0xFFFFU;
}

template <class Work>
double SecondsOf(Work work) {
    const auto before = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
}

void RoadAgainstBarePasses(benchmark::State& state) {
    Road road;
    const Tables tables;
    const std::string frame = WholeMessage();
    std::vector<std::int32_t> samples(Samples);
    if (!road.Take(frame)) {
        state.SkipWithError("the message is not taken for what it is");
        return;
    }
    double ofRoad = 1, ofPasses = 1;
    for (auto _ : state) {
        ofRoad = std::min(ofRoad, SecondsOf([&] { benchmark::DoNotOptimize(road.Take(frame)); }));
        ofPasses = std::min(ofPasses, SecondsOf([&] { BarePasses(tables, frame, samples); }));
    }
    state.counters["ratio"] = ofRoad / ofPasses;
    state.counters["road_us"] = ofRoad * 1e6;
    state.counters["passes_us"] = ofPasses * 1e6;
}
BENCHMARK(RoadAgainstBarePasses);

void ChecksumAgainstBitByBit(benchmark::State& state) {
    const std::string frame = WholeMessage();
    if (FrameChecksum(frame) != ChecksumBitByBit(frame)) {
        state.SkipWithError("the two checksums differ");
        return;
    }
    double byTable = 1, bitByBit = 1;
    for (auto _ : state) {
        byTable =
            std::min(byTable, SecondsOf([&] { benchmark::DoNotOptimize(FrameChecksum(frame)); }));
        bitByBit = std::min(bitByBit,
                            SecondsOf([&] { benchmark::DoNotOptimize(ChecksumBitByBit(frame)); }));
    }
    state.counters["times"] = bitByBit / byTable;
    state.counters["table_us"] = byTable * 1e6;
    state.counters["bits_us"] = bitByBit * 1e6;
}
BENCHMARK(ChecksumAgainstBitByBit);

}  // namespace
}  // namespace cumeron
