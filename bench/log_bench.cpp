// What logging costs on a real disk: records of a KN50's longest message, each opened, written,
// made safe and closed. The counter is the measure, in processor time, since the disk makes a round
// take longer without using the processor:
//     WriteLogRecord.share_of_a_core   at 100 records a second, 0.20 at most
// The folder is a new one below TMPDIR, /tmp without it.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "logging/log_file.h"
#include "logging/rotation.h"
#include "platform/host/files.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::size_t MessageLength = 7801;
constexpr double RecordsASecond = 100;

struct NewFolder {
    std::string name = (std::filesystem::temp_directory_path() / "log_bench.XXXXXX").string();
    NewFolder() { name = ::mkdtemp(name.data()); }
    ~NewFolder() { std::filesystem::remove_all(name); }
};

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double ProcessorSeconds() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    return Seconds(used.ru_utime) + Seconds(used.ru_stime);
}

void WriteRecords(benchmark::State& state) {
    const NewFolder folder;
    ScriptedMachine machine;
    HostFiles files;
    Platform platform{machine.time,      machine.time,    machine.line,  files, machine.dialogs,
                      machine.process,   machine.copies,  machine.ports, {},    machine.printer,
                      machine.clipboard, machine.pictures};
    Workstation w(platform);
    w.settings.Log_File_Path = folder.name;
    w.settings.File_Char = "A";
    w.settings.File_Length = 0.25;
    mnuLogOn_Click(w);
    const std::string message = "\x01" + std::string(MessageLength - 4, '0') + "\x04\r\n";
    const double before = ProcessorSeconds();
    for (auto _ : state) WriteLogRecord(w, w.logging.LogFileNumber, message);
    const double each = (ProcessorSeconds() - before) / static_cast<double>(state.iterations());
    state.counters["share_of_a_core"] = each * RecordsASecond;
    if (w.logging.LogWriteOk != 1) state.SkipWithError("a write failed");
}
BENCHMARK(WriteRecords)->Name("WriteLogRecord")->Iterations(1000)->UseRealTime();

}  // namespace
}  // namespace cumeron
