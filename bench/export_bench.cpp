// What the spreadsheet export of a day costs: 30240 records with 1500 columns of samples each,
// without the replay around it, against the same integers put by std::to_chars into one buffer and
// written, a record at a time. Both go to real files in one new folder (below TMPDIR, /tmp without
// it), in turn in the same run; the quickest round of each counts, since a busy machine only ever
// makes a round slower.
//     WriteExportRowAgainstBareDigits.ratio      export / bare digits, 3 at most
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "logging/export.h"
#include "platform/host/files.h"
#include "platform/runtime/dates.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int Records = 30240;
constexpr std::size_t Samples = 1500;
constexpr int Interval = 15;  // seconds

// Without a dot in its name, at which the name of the export would end.
struct NewFolder {
    std::string name = (std::filesystem::temp_directory_path() / "export_bench_XXXXXX").string();
    NewFolder() { name = ::mkdtemp(name.data()); }
    ~NewFolder() { std::filesystem::remove_all(name); }
};

using Profile = std::array<std::int32_t, 2049>;

// Profiles of weak and strong signals, of one to five digits, some below nought.
std::vector<Profile> Profiles() {
    std::vector<Profile> profiles(50);
    std::uint32_t seed = 20260501;
    for (Profile& profile : profiles) {
        for (std::int32_t& sample : profile) {
            seed = seed * 1664525 + 1013904223;
            sample = (static_cast<std::int32_t>(seed) >> 14) >> (seed >> 8 & 15);
        }
    }
    return profiles;
}

struct Exporter {
    ScriptedMachine machine;
    HostFiles files;
    Platform platform{machine.time,      machine.time,    machine.line,  files, machine.dialogs,
                      machine.process,   machine.copies,  machine.ports, {},    machine.printer,
                      machine.clipboard, machine.pictures};
    Workstation w{platform};
    std::string message = "\x01" + std::string(7600, '0');

    Exporter() {
        w.settings.CEILOMETER = 50;
        LoadModel(w, LoadedBy::Start);
        w.intake.MessageId = 3123;
        w.graphs.ProfileYLow = 1;  // and 1500 is the last
    }
    void Run(const std::string& folder, const std::vector<Profile>& profiles) {
        const double start = DateSerial(2026, 5, 1);
        const std::int16_t number = OpenExportFile(w, folder + "/rows.DAT");
        for (int i = 0; i < Records; ++i) {
            WriteExportRow(w, profiles[static_cast<std::size_t>(i) % profiles.size()],
                           start + i * Interval / 86400.0, number, message);
        }
        CloseExportFile(w);
    }
};

void WriteBareDigits(const std::string& folder, const std::vector<Profile>& profiles) {
    std::vector<char> buffer(Samples * 12);
    const int file = ::open((folder + "/digits").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    for (int i = 0; i < Records; ++i) {
        const Profile& profile = profiles[static_cast<std::size_t>(i) % profiles.size()];
        char* at = buffer.data();
        for (std::size_t sample = 1; sample <= Samples; ++sample) {
            at = std::to_chars(at, buffer.data() + buffer.size(), profile[sample]).ptr;
        }
        const auto length = static_cast<std::size_t>(at - buffer.data());
        if (::write(file, buffer.data(), length) != static_cast<ssize_t>(length)) break;
    }
    ::close(file);
}

template <class Work>
double SecondsOf(Work work) {
    const auto before = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
}

void WriteExportRowAgainstBareDigits(benchmark::State& state) {
    const std::vector<Profile> profiles = Profiles();
    const NewFolder folder;
    const std::string rows = folder.name + "/rows.txt", digits = folder.name + "/digits";
    Exporter exporter;
    double ofExport = 1e9, ofDigits = 1e9, written = 0;
    for (auto _ : state) {
        ofExport = std::min(ofExport, SecondsOf([&] { exporter.Run(folder.name, profiles); }));
        written = static_cast<double>(std::filesystem::file_size(rows));
        std::filesystem::remove(rows);
        ofDigits = std::min(ofDigits, SecondsOf([&] { WriteBareDigits(folder.name, profiles); }));
        // A comma to each sample at least.
        const auto least = std::filesystem::file_size(digits) + Records * Samples;
        if (written < static_cast<double>(least)) {
            state.SkipWithError("not every row was written");
            return;
        }
        std::filesystem::remove(digits);
    }
    state.counters["ratio"] = ofExport / ofDigits;
    state.counters["export_s"] = ofExport;
    state.counters["digits_s"] = ofDigits;
    state.counters["export_MB"] = written / 1e6;
}
BENCHMARK(WriteExportRowAgainstBareDigits)->Iterations(5)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace cumeron
