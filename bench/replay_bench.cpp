// What the replay of a day's log costs: 30240 records of a KN50 with 1540 samples each, 233 MB, on
// a graph of 700 by 400 pixels, against the bare passes that it cannot do without: one look for the
// line ends, one table-driven reading of the hexadecimal digits, the writing of the columns, and
// one move of the picture for each record that finds it full. Both sides run in turn in the same
// run, and the quickest round of each counts, since a busy machine only ever makes a round slower.
//     ReplayAgainstBarePasses.ratio      replay / bare passes, 3 at most
//     ReplayAgainstBarePasses.grown_MB   memory taken in a replay, which no file makes larger
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "day_log.h"
#include "graphs/cloud_columns.h"
#include "graphs/ranges.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int Width = 700, Height = 400;

struct Player {
    ScriptedMachine machine;

    Player() {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=50\r\nMessage_Interval=15\r\nUnits=0\r\n");
        machine.Start("");
        Surface& picture = w().frmMain.picCombination;
        picture.Width = Width;
        picture.Height = Height;
        w().settings.Cloudmode = 0;
        ApplyCloudRange(w());
    }
    Workstation& w() { return *machine.Program(); }
    // False when not every record came through.
    bool Play(const std::string& log) {
        OfflineState& offline = w().offline;
        offline.file = std::make_shared<LineFile>(std::make_unique<TextFile>(log));
        offline.OfflineFileNo = 1;
        offline.OfflineFileCount = 1;
        offline.OfflineMessageNo = 0;
        offline.OfflineRecordPos.assign(LongestOfflineFile + 1, 0);
        w().graphs.LastGraphTime = 0;
        ClearGraph(w());
        PlayFile(w());
        return machine.dialogs.TakeBox() == "End of file" && w().intake.MessageId == 3116 &&
               offline.OfflineMessageNo == Records;
    }
};

struct Passes {
    std::array<std::uint8_t, 256> digit{};
    std::vector<std::int32_t> samples = std::vector<std::int32_t>(Samples);
    std::vector<std::uint32_t> picture = std::vector<std::uint32_t>(Width * Height);

    Passes() {
        for (unsigned i = 0; i < 16; ++i)
            digit[static_cast<unsigned char>("0123456789abcdef"[i])] = static_cast<std::uint8_t>(i);
    }
    void Run(const std::string& log) {
        const char* at = log.data();
        const char* const end = at + log.size();
        int column = 0;
        while (at < end) {
            // A time line, the three lines of a message, and an empty one.
            const char* const frame = NextLine(at, end);
            at = frame;
            for (int line = 0; line < 4; ++line) at = NextLine(at, end);
            Decode(frame + FirstSample);
            if (column == Width) {
                std::memmove(picture.data(), picture.data() + 1,
                             (picture.size() - 1) * sizeof picture[0]);
                --column;
            }
            WriteColumn(column++);
        }
        benchmark::DoNotOptimize(picture.data());
        benchmark::ClobberMemory();
    }

private:
    static const char* NextLine(const char* at, const char* end) {
        const auto* lineEnd =
            static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at)));
        return lineEnd == nullptr ? end : std::min(lineEnd + 2, end);
    }
    void Decode(const char* at) {
        for (std::int32_t& sample : samples) {
            std::uint32_t value = 0;
            for (int i = 0; i < 5; ++i)
                value = value << 4 | digit[static_cast<unsigned char>(*at++)];
            sample = static_cast<std::int32_t>(value);
        }
    }
    void WriteColumn(int column) {
        for (int y = 0; y < Height; ++y) {
            picture[static_cast<std::size_t>(y * Width + column)] =
                static_cast<std::uint32_t>(samples[static_cast<std::size_t>(y) * 3]);
        }
    }
};

template <class Work>
double SecondsOf(Work work) {
    const auto before = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
}

// Pages that the process holds, in MB.
double HeldMemory() {
    std::ifstream file("/proc/self/statm");
    double size = 0, resident = 0;
    file >> size >> resident;
    return resident * 4096 / 1e6;
}

void ReplayAgainstBarePasses(benchmark::State& state) {
    const std::string log = WholeLog();
    Player player;
    Passes passes;
    double ofReplay = 1e9, ofPasses = 1e9;
    const double before = HeldMemory();
    for (auto _ : state) {
        bool played = false;
        ofReplay = std::min(ofReplay, SecondsOf([&] { played = player.Play(log); }));
        ofPasses = std::min(ofPasses, SecondsOf([&] { passes.Run(log); }));
        if (!played) {
            state.SkipWithError("not every record was played");
            return;
        }
    }
    state.counters["ratio"] = ofReplay / ofPasses;
    state.counters["replay_s"] = ofReplay;
    state.counters["passes_s"] = ofPasses;
    state.counters["log_MB"] = static_cast<double>(log.size()) / 1e6;
    state.counters["grown_MB"] = HeldMemory() - before;
}
BENCHMARK(ReplayAgainstBarePasses)->Iterations(3)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace cumeron
