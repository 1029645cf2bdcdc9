// What a repaint of a full cloud graph costs: 4185 messages of 1540 gates, three to a column, in a
// picture of 1400 x 600 pixels. Both sides are taken in turn in the same run, and the quickest
// round of each counts, since a busy machine only ever makes a round slower.
//     RepaintAgainstPlainWrites.ratio   repaint / bare writes of the same runs of pixels, 3 at most
//     RepaintAgainstPainter.times       the same lines by a general painter / repaint, 25 at least
//     ScrollAgainstMoves.ratio          a scroll by one column / bare moves of the same rows
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <vector>

#include "graphs/cloud_columns.h"
#include "graphs/graph_history.h"
#include "graphs/ranges.h"
#include "intake/models.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr int Width = 1400, Height = 600;  // pixels
constexpr int Messages = 4185;             // as many as the picture takes of them
constexpr int MessagesPerColumn = 3;
constexpr int Gates = 1541;

class NoTurns : public EventLoop {
public:
    void DoEvents() override {}
    void WaitEvents() override {}
    void WaitUntil(const std::function<bool()>&) override {}
};

// A gate's stretch of a column: rows from the top, both included.
struct Run {
    int first, last;
};

struct Repaint {
    ScriptedMachine machine;
    NoTurns noTurns;
    Platform platform{machine.time,    noTurns,           machine.line,
                      machine.files,   machine.dialogs,   machine.process,
                      machine.copies,  machine.ports,     {},
                      machine.printer, machine.clipboard, machine.pictures};
    Workstation w{platform};
    std::vector<Run> runs;  // of the gates, the lowest first
    // Of each message and gate; 0 where nothing is drawn.
    std::vector<std::vector<std::uint32_t>> colours;

    Repaint() {
        SetUp();
        for (int gate = 0; gate < Gates; ++gate) {
            runs.push_back({RowOf(gate), std::min(RowOf(gate - 1), Height - 1)});
        }
        for (int message = 0; message < Messages; ++message) FillRecord(message);
    }

    void Once() { RedrawHistory(w); }
    Surface& Picture() { return w.frmMain.picCombination; }
    const Surface& Picture() const { return w.frmMain.picCombination; }

private:
    void SetUp() {
        w.settings.CEILOMETER = 50;
        w.settings.Compress = 2;
        w.settings.Cloudmode = 0;
        w.settings.Message_Interval = 45;
        w.settings.Clouds_Limit = {100, 200, 350, 600, 1000};
        w.settings.Clouds_Color = {16776960, 8421376, 16711680, 8388608, 1};
        LoadModel(w, LoadedBy::Start);
        CreateHistory(w, 1920);
        DimensionProfiles(w);
        Picture().Width = Width;
        Picture().Height = Height;
        ApplyCloudRange(w);
        w.graphs.HistoryRedrawCount = Messages;
    }
    int Steps() const { return 3 * (w.graphs.CloudYHigh - w.graphs.CloudYLow); }
    int RowOf(int gate) const {
        return static_cast<int>(
            std::floor(static_cast<double>(Steps() - gate) * Height / Steps() + 0.5));
    }

    // Haze that thins out upwards, noise, and two clouds that wander.
    static int ValueAt(int message, int gate) {
        const auto noise =
            static_cast<int>((static_cast<unsigned>(message * 1541 + gate) * 2654435761U) >> 25);
        const int low = 300 + message % 200, high = 900 + message / 20;
        if (std::abs(gate - low) < 40) return 20000;
        if (std::abs(gate - high) < 60) return 7000 + 30 * noise;
        return 6000 - 6 * gate + 4 * noise;
    }
    void FillRecord(int message) {
        GraphRecord& record = NextHistoryRecord(w);
        record.Valid = -1;
        record.MessageId = 3116;
        record.Scale = 3;
        record.Time = 46000 + message * 15 / 86400.0;
        std::vector<std::uint32_t>& line = colours.emplace_back();
        for (int gate = 0; gate < Gates; ++gate) {
            const int value = ValueAt(message, gate);
            record.Profile[static_cast<std::size_t>(gate)] = value;
            line.push_back(ColourOf(static_cast<int>(std::lrint(value / 10.0))));
        }
    }
    std::uint32_t ColourOf(int value) const {
        std::uint32_t colour = 0;
        for (std::size_t i = 0; i < 5; ++i) {
            if (value >= w.settings.Clouds_Limit[i])
                colour = PixelColour(w.settings.Clouds_Color[i]);
        }
        return colour;
    }
};

void WritePlain(const Repaint& repaint, std::vector<std::uint32_t>& picture) {
    for (std::size_t message = 0; message < repaint.colours.size(); ++message) {
        std::uint32_t* column = picture.data() + message / MessagesPerColumn;
        const std::vector<std::uint32_t>& colours = repaint.colours[message];
        for (std::size_t gate = 0; gate < Gates; ++gate) {
            if (colours[gate] == 0) continue;
            const Run run = repaint.runs[gate];
            for (int y = run.first; y <= run.last; ++y) {
                column[static_cast<std::ptrdiff_t>(y) * Width] = colours[gate];
            }
        }
    }
    benchmark::DoNotOptimize(picture.data());
    benchmark::ClobberMemory();
}

void PaintByPainter(const Repaint& repaint, QImage& picture) {
    QPainter painter(&picture);
    for (std::size_t message = 0; message < repaint.colours.size(); ++message) {
        const int x = static_cast<int>(message) / MessagesPerColumn;
        std::uint32_t pen = 0;
        for (std::size_t gate = 0; gate < Gates; ++gate) {
            const std::uint32_t colour = repaint.colours[message][gate];
            if (colour == 0) continue;
            if (colour != pen) painter.setPen(QColor::fromRgb(colour));
            pen = colour;
            painter.drawLine(x, repaint.runs[gate].first, x, repaint.runs[gate].last);
        }
    }
}

// Pixels of the graph's columns, without the feet that its marks stand on, that differ.
int Differences(const Surface& graph, const std::uint32_t* other) {
    constexpr int marks = 6;
    int count = 0;
    for (int i = 0; i < (Height - marks) * Width; ++i) {
        if (graph.Pixels()[i] != (other[i] | 0xFF000000U)) ++count;
    }
    return count;
}

template <class Work>
double SecondsOf(Work work) {
    const auto before = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
}

void RepaintAgainstPlainWrites(benchmark::State& state) {
    Repaint repaint;
    std::vector<std::uint32_t> picture(Width * Height, 0xFFFFFFFF);
    double ofRepaint = 1e9, ofWrites = 1e9;
    for (auto _ : state) {
        ClearGraph(repaint.w);
        ofRepaint = std::min(ofRepaint, SecondsOf([&] { repaint.Once(); }));
        std::fill(picture.begin(), picture.end(), 0xFFFFFFFF);
        ofWrites = std::min(ofWrites, SecondsOf([&] { WritePlain(repaint, picture); }));
    }
    if (Differences(repaint.Picture(), picture.data()) != 0) {
        state.SkipWithError("the two pictures differ");
        return;
    }
    state.counters["ratio"] = ofRepaint / ofWrites;
    state.counters["repaint_ms"] = ofRepaint * 1e3;
    state.counters["writes_ms"] = ofWrites * 1e3;
}
BENCHMARK(RepaintAgainstPlainWrites)->Unit(benchmark::kMillisecond)->MinTime(2);

void RepaintAgainstPainter(benchmark::State& state) {
    Repaint repaint;
    QImage picture(Width, Height, QImage::Format_RGB32);
    double ofRepaint = 1e9, ofPainter = 1e9;
    for (auto _ : state) {
        ClearGraph(repaint.w);
        ofRepaint = std::min(ofRepaint, SecondsOf([&] { repaint.Once(); }));
        picture.fill(Qt::white);
        ofPainter = std::min(ofPainter, SecondsOf([&] { PaintByPainter(repaint, picture); }));
    }
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(picture.constBits());
    if (Differences(repaint.Picture(), pixels) != 0) {
        state.SkipWithError("the two pictures differ");
        return;
    }
    state.counters["times"] = ofPainter / ofRepaint;
    state.counters["repaint_ms"] = ofRepaint * 1e3;
    state.counters["painter_ms"] = ofPainter * 1e3;
}
BENCHMARK(RepaintAgainstPainter)->Unit(benchmark::kMillisecond)->MinTime(2);

void ScrollAgainstMoves(benchmark::State& state) {
    Surface graph;
    graph.Width = Width;
    graph.Height = Height;
    graph.Cls();
    std::vector<std::uint32_t> picture(Width * Height, 0xFFFFFFFF);
    double ofScroll = 1e9, ofMoves = 1e9;
    for (auto _ : state) {
        ofScroll = std::min(ofScroll, SecondsOf([&] { ScrollGraph(1, graph); }));
        ofMoves = std::min(ofMoves, SecondsOf([&] {
                               for (std::size_t y = 0; y < Height; ++y) {
                                   std::uint32_t* row = picture.data() + y * Width;
                                   std::memmove(row, row + 1, (Width - 1) * sizeof(*row));
                               }
                               benchmark::ClobberMemory();
                           }));
    }
    state.counters["ratio"] = ofScroll / ofMoves;
    state.counters["scroll_us"] = ofScroll * 1e6;
    state.counters["moves_us"] = ofMoves * 1e6;
}
BENCHMARK(ScrollAgainstMoves)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace cumeron
