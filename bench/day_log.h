// The log of a day, as the benchmarks of the replay play it: 30240 records of a KN50 with 1540
// samples each, 233 MB in memory.
#pragma once

#include <cstdint>
#include <string>

#include "intake/intake.h"
#include "logging/playback.h"
#include "platform/files.h"
#include "platform/runtime/dates.h"

namespace cumeron {

inline constexpr int Records = LongestOfflineFile;
inline constexpr std::size_t Samples = 1540;
inline constexpr std::size_t FirstSample = 96;  // in the frame
inline constexpr int Interval = 15;             // seconds

inline std::string SampledFrame(std::uint32_t seed) {
    std::string counted = "KN021016\x02\r\n10 01230 ///// ///// 000000000000\r\n";
    counted.resize(85, ' ');
    counted.replace(52, 2, "10");
    counted.resize(85 + 10, ' ');
    constexpr std::string_view digits = "0123456789abcdef";
    for (std::size_t i = 0; i < Samples; ++i) {
        // Values of weak and strong signals, three digits behind two noughts.
        counted += "00";
        for (int digit = 0; digit < 3; ++digit) {
            seed = seed * 1664525 + 1013904223;
            counted += digits[seed >> 28];
        }
    }
    counted.resize(85 + 7720 - 8, ' ');
    counted += '\x03';
    const unsigned checksum = FrameChecksum(counted);
    std::string frame = "\x01" + counted;
    for (int shift = 12; shift >= 0; shift -= 4) frame += digits[checksum >> shift & 15];
    return frame + "\x04\r\n";
}

inline std::string WholeLog() {
    std::vector<std::string> frames;
    for (std::uint32_t seed = 1; seed <= 50; ++seed) frames.push_back(SampledFrame(seed));
    const double start = DateSerial(2026, 5, 1);
    std::string log;
    log.reserve(Records * (frames[0].size() + 30));
    for (int i = 0; i < Records; ++i) {
        log += "-" + Format(start + i * Interval / 86400.0, "yyyy-mm-dd hh:nn:ss") + "\r\n" +
               frames[static_cast<std::size_t>(i) % frames.size()] + "\r\n";
    }
    return log;
}

// The log as a file of the machine, without a copy of it.
class TextFile : public InputFile {
public:
    explicit TextFile(const std::string& whole) : text(whole) {}
    std::size_t Read(char* bytes, std::size_t most) override {
        const std::size_t count = text.copy(bytes, most, at);
        at += count;
        return count;
    }
    std::int64_t Size() override { return static_cast<std::int64_t>(text.size()); }
    void Seek(std::int64_t position) override { at = static_cast<std::size_t>(position); }

private:
    const std::string& text;
    std::size_t at = 0;
};

}  // namespace cumeron
