// What the window costs a replay: the log of a day played on the host with its window shown, and
// without one. Both sides run in turn in the same run and the quickest round of each counts. The
// window is a real one where there is a display, else an offscreen one.
//     ReplayInTheWindow.ratio     shown / not shown, 2 at most
//     ReplayInTheWindow.turn_ms   the longest way from one turn of the event loop to the next,
//     which
//                                 is what a click on Stop waits for, 100 at most
#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "day_log.h"
#include "graphs/cloud_columns.h"
#include "platform/host/host_view.h"
#include "workstation.h"

namespace cumeron {
namespace {

using WallClock = std::chrono::steady_clock;

double SecondsSince(WallClock::time_point before) {
    return std::chrono::duration<double>(WallClock::now() - before).count();
}

// Settings of its own, below the folder for temporary files.
struct NewSettings {
    std::string folder =
        (std::filesystem::temp_directory_path() / "replay_view_bench.XXXXXX").string();
    NewSettings() {
        folder = ::mkdtemp(folder.data());
        ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    }
    ~NewSettings() { std::filesystem::remove_all(folder); }
};

// Nobody is there to answer a box.
struct Unattended : Dialogs {
    std::string told;
    Answer MessageBox(const std::string& text, BoxButtons /*buttons*/, BoxSign /*sign*/) override {
        told = text;
        return Answer::Ok;
    }
    void Beep() override {}
    std::string ChooseFiles(const FileQuestion& /*question*/) override { return ""; }
};

// Measures how far its turns are apart.
struct TimedTurns : EventLoop {
    HostEventLoop& loop;
    WallClock::time_point last = WallClock::now();
    double longest = 0;

    explicit TimedTurns(HostEventLoop& inner) : loop(inner) {}
    void DoEvents() override {
        longest = std::max(longest, SecondsSince(last));
        loop.DoEvents();
        last = WallClock::now();
    }
    void WaitEvents() override { loop.WaitEvents(); }
    void WaitUntil(const std::function<bool()>& done) override { loop.WaitUntil(done); }
};

struct Player {
    HostMachine machine{"1"};
    Unattended dialogs;
    TimedTurns turns{machine.events};
    Platform platform{machine.clock,
                      turns,
                      machine.line,
                      machine.files,
                      dialogs,
                      machine.process,
                      machine.copies,
                      machine.ports,
                      {},
                      machine.printer,
                      machine.clipboard,
                      machine.pictures};
    Workstation w{platform};
    std::unique_ptr<HostView> view;

    explicit Player(bool shown) {
        if (shown) view = std::make_unique<HostView>(w, machine, w.Forms());
        StartProgram(w);
        w.settings.CEILOMETER = 50;
        LoadModel(w, LoadedBy::Start);
        w.settings.Message_Interval = Interval;
        for (int i = 0; i < 50; ++i) turns.WaitEvents();
    }
    // False when not every record came through.
    bool Play(const std::string& log) {
        OfflineState& offline = w.offline;
        offline.file = std::make_shared<LineFile>(std::make_unique<TextFile>(log));
        offline.OfflineFileNo = 1;
        offline.OfflineFileCount = 1;
        offline.OfflineMessageNo = 0;
        offline.OfflineRecordPos.assign(LongestOfflineFile + 1, 0);
        w.graphs.LastGraphTime = 0;
        ClearGraph(w);
        turns.last = WallClock::now();
        PlayFile(w);
        return dialogs.told == "End of file" && offline.OfflineMessageNo == Records;
    }
};

double SecondsOf(Player& player, const std::string& log, bool& played) {
    const auto before = WallClock::now();
    played = player.Play(log) && played;
    return SecondsSince(before);
}

void ReplayInTheWindow(benchmark::State& state) {
    if (std::getenv("DISPLAY") == nullptr) ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const NewSettings settings;
    int argc = 1;
    char name[] = "replay_view_bench";
    char* argv[] = {name, nullptr};
    const QApplication application(argc, argv);
    const std::string log = WholeLog();
    Player shown(true), bare(false);
    double ofShown = 1e9, ofBare = 1e9;
    bool played = true;
    for (auto _ : state) {
        ofShown = std::min(ofShown, SecondsOf(shown, log, played));
        ofBare = std::min(ofBare, SecondsOf(bare, log, played));
    }
    if (!played) state.SkipWithError("not every record was played");
    state.counters["ratio"] = ofShown / ofBare;
    state.counters["shown_s"] = ofShown;
    state.counters["bare_s"] = ofBare;
    state.counters["turn_ms"] = shown.turns.longest * 1000;
}
BENCHMARK(ReplayInTheWindow)->Iterations(3)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace cumeron
