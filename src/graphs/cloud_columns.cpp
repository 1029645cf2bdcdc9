#include "graphs/cloud_columns.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graphs/cloud_graph.h"
#include "graphs/scale.h"
#include "graphs/time_axis.h"
#include "logging/printing.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t Detection = 1, Both = 2;           // Cloudmode
constexpr std::int16_t RawMessage = 99;                   // a message without a profile
constexpr int GapMarkHeight = 4, PositionMarkHeight = 5;  // pixels
constexpr int LightRed = 12, Green = 2;                   // QBColor
constexpr int White = 0xFFFFFF;
constexpr int MarginPixels = 2;       // right of the widest point
constexpr double GapTolerance = 0.6;  // a message may be that share of an interval late
constexpr int TurnEvery = 10;         // records of a redraw
constexpr int Hourglass = 11;         // MousePointer

// Without a mark, at -1, it draws left of the picture.
void TakeOffPositionMark(Workstation& w) {
    DrawPositionMark(w.frmMain.picCombination, w.graphs.MarkerColumn);
    w.graphs.MarkerColumn = -1;
}

void PutPositionMark(Workstation& w) {
    w.graphs.MarkerColumn = w.graphs.CurrentColumn;
    DrawPositionMark(w.frmMain.picCombination, w.graphs.MarkerColumn);
}

// Seconds since the message painted last, in intervals; negative when the clock went back.
double IntervalsSinceLast(const Workstation& w) {
    if (w.settings.Message_Interval == 0) throw RuntimeError(11);
    return static_cast<double>(DateDiffSeconds(w.graphs.LastGraphTime, w.graphs.MessageTime)) /
           w.settings.Message_Interval;
}

// Columns without a message in front of this one, counted in 32 bits, so that a week of silence
// stops nothing.
std::int32_t MissingColumns(Workstation& w) {
    GraphState& graphs = w.graphs;
    if (graphs.LastGraphTime == 0) return 0;
    const std::int32_t missing = ToInt32(std::floor(IntervalsSinceLast(w) - GapTolerance));
    if (missing >= 0) return missing;
    graphs.TimeLabelsDirty = -1;
    return 0;
}

// Keeps a cloud's point inside the picture.
int RightMargin(const Settings& settings) {
    return ToInt32((settings.Chit_Point_Size + 1) / 2.0) + MarginPixels;
}

void MoveStrip(Workstation& w, std::int32_t shift) {
    GraphState& graphs = w.graphs;
    Surface& picture = w.frmMain.picCombination;
    if (graphs.GridOnScreen != 0) ToggleCloudGrid(w, picture);
    ScrollGraph(shift, picture);
    graphs.TimeLabelsDirty = -1;
    graphs.CurrentColumn = ToInt16(static_cast<double>(graphs.CurrentColumn - shift));
}

// The full strip goes to the printer, and a new one begins at the left edge.
// kept: the ring is emptied with it, also of the message that brought this about, which has its
// place in it already.
void PrintAndBeginAnew(Workstation& w) {
    if (w.graphs.GridOnScreen != 0) ToggleCloudGrid(w, w.frmMain.picCombination);
    PrintGraph(w, PrintErrors::ToMessageWindow);
    w.graphs.HistoryIndex = 0;
    w.graphs.HistoryWrapped = 0;
    ClearGraph(w);
}

// Where a column comes from: a redraw paints again what there was, and prints nothing.
enum class Source { Message, Redraw };

// Makes room for the missing columns and the message; gives how many of the missing ones are drawn.
std::int32_t MakeRoom(Workstation& w, std::int32_t missing, Source source) {
    const std::int32_t width = w.frmMain.picCombination.PixelWidth();
    const std::int32_t usable = width - RightMargin(w.settings);
    if (usable - missing >= w.graphs.CurrentColumn) return missing;
    if (usable < missing) {
        // kept: the axes of a graph that begins anew are drawn when the next message moves it.
        ClearGraph(w);
        return usable;
    }
    if (source == Source::Message && w.frmMain.mnuAutoPrint.Checked) {
        PrintAndBeginAnew(w);
    } else {
        MoveStrip(w, missing + w.graphs.CurrentColumn - usable);
    }
    UpdateAxes(w);
    return missing;
}

void PaintMessage(Workstation& w, std::span<const std::int32_t> profile, bool withProfile) {
    GraphState& graphs = w.graphs;
    Surface& picture = w.frmMain.picCombination;
    const std::int16_t mode = w.settings.Cloudmode;
    if (mode != Detection && withProfile) {
        DrawIntensityColumn(w, profile, graphs.CloudYLow, graphs.CloudYHigh, picture,
                            graphs.CurrentColumn);
    }
    if (mode == Detection || mode == Both) {
        DrawCloudHits(w, graphs.CloudYLow, graphs.CloudYHigh, picture, graphs.CurrentColumn);
    }
}

int MessagesPerColumn(const Settings& settings) {
    if (settings.Compress == 0) return 1;
    return settings.Compress == 1 ? 2 : 3;
}

// kept: while nothing shares a column, what an earlier compression began stays for the next one.
void EndPhase(Workstation& w) {
    if (w.settings.Compress != 0) w.graphs.CompressPhase = 0;
}

void StepColumn(Workstation& w) {
    GraphState& graphs = w.graphs;
    if (graphs.CompressPhase < MessagesPerColumn(w.settings) - 1) {
        graphs.CompressPhase = Add16(graphs.CompressPhase, 1);
        return;
    }
    EndPhase(w);
    graphs.CurrentColumn = Add16(graphs.CurrentColumn, 1);
}

// CurrentColumn stands behind the message on screen: two back, or one when columns are shared and
// the message before it stands in the same one.
void StepColumnBack(Workstation& w) {
    GraphState& graphs = w.graphs;
    if (graphs.CompressPhase < MessagesPerColumn(w.settings) - 1) {
        graphs.CompressPhase = Add16(graphs.CompressPhase, 1);
        graphs.CurrentColumn = Add16(graphs.CurrentColumn, -1);
        return;
    }
    EndPhase(w);
    graphs.CurrentColumn = Add16(graphs.CurrentColumn, -2);
}

// Missing columns on the way back, as a negative number.
std::int32_t GapBack(Workstation& w) {
    GraphState& graphs = w.graphs;
    if (graphs.LastGraphTime == 0) return 0;
    const std::int32_t gap = ToInt32(std::trunc(IntervalsSinceLast(w) + 0.5));
    if (gap <= 0) return gap;
    graphs.TimeLabelsDirty = -1;
    return 0;
}

// The same as MakeRoom at the left edge.
std::int32_t MakeRoomBack(Workstation& w, std::int32_t gap) {
    GraphState& graphs = w.graphs;
    if (graphs.CurrentColumn >= -gap) return gap;
    const std::int32_t width = w.frmMain.picCombination.PixelWidth();
    if (width - 1 < -gap) {
        gap = -width - 1;
        ClearGraph(w);
    } else {
        MoveStrip(w, graphs.CurrentColumn + gap);
    }
    UpdateAxes(w);
    return gap;
}

void AddColumn(Workstation& w, std::span<const std::int32_t> profile, bool valid, Source source) {
    GraphState& graphs = w.graphs;
    TakeOffPositionMark(w);
    std::int32_t missing = MissingColumns(w);
    graphs.LastGraphTime = graphs.MessageTime;
    missing = MakeRoom(w, missing, source);
    for (; missing > 0; --missing) {
        DrawGapMark(w.frmMain.picCombination, graphs.CurrentColumn);
        graphs.CurrentColumn = Add16(graphs.CurrentColumn, 1);
    }
    if (valid) {
        PaintMessage(w, profile, w.intake.MessageId != RawMessage);
    } else {
        DrawGapMark(w.frmMain.picCombination, graphs.CurrentColumn);
    }
    StepColumn(w);
    PutPositionMark(w);
}

// The slot of the oldest record that a redraw replays.
std::int16_t FirstSlot(const GraphState& graphs) {
    if (graphs.HistoryWrapped == 0 && graphs.HistoryIndex <= graphs.HistoryRedrawCount) return 1;
    const int slot = graphs.HistoryIndex - graphs.HistoryRedrawCount + 1;
    return ToInt16(static_cast<double>(slot < 1 ? graphs.HistorySize + slot - 1 : slot));
}

void ReplayRecord(Workstation& w, const GraphRecord& record) {
    w.graphs.MessageTime = record.Time;
    for (std::size_t i = 0; i < w.frmMain.CloudValue.size(); ++i) {
        w.frmMain.CloudValue[i].Caption = record.CloudValue[i];
    }
    w.frmMain.lblCloudtext[0].Caption = record.CloudText;
    w.intake.MessageId = record.MessageId;
    w.intake.ProfileScale = record.Scale;
    AddColumn(w, record.Profile, record.Valid != 0, Source::Redraw);
}

void ReplayRecords(Workstation& w) {
    GraphState& graphs = w.graphs;
    const std::int16_t newest = graphs.HistoryIndex;
    std::int16_t slot = FirstSlot(graphs);
    for (int pass = 0;; ++pass) {
        if (slot == graphs.HistorySize) slot = 1;
        if (slot < 0 || static_cast<std::size_t>(slot) >= graphs.GraphHistory.size()) {
            throw RuntimeError(9);
        }
        ReplayRecord(w, graphs.GraphHistory[static_cast<std::size_t>(slot)]);
        if (pass % TurnEvery == 0) w.platform.events.DoEvents();
        // A new model empties the ring; nothing of the old one is left to replay.
        if (slot == newest || graphs.RedrawAbort == 1 || graphs.HistoryIndex != newest) return;
        ++slot;
    }
}

class HourglassPointer {
public:
    explicit HourglassPointer(Form& shown) : form(shown) { form.MousePointer = Hourglass; }
    ~HourglassPointer() { form.MousePointer = 0; }
    HourglassPointer(const HourglassPointer&) = delete;
    HourglassPointer& operator=(const HourglassPointer&) = delete;

private:
    Form& form;
};

void DrawFootMark(Surface& surface, int column, int height, int mode, int colour) {
    const KeptScale scale(surface);
    const int foot = surface.PixelHeight();
    surface.DrawWidth = 1;
    surface.DrawMode = mode;
    surface.Line(column, foot, column, foot - height, QBColor(colour));
    surface.DrawMode = DrawCopy;
}

}  // namespace

void AddGraphColumn(Workstation& w, std::span<const std::int32_t> profile, bool valid) {
    AddColumn(w, profile, valid, Source::Message);
}

void AddGraphColumnBack(Workstation& w, std::span<const std::int32_t> profile) {
    GraphState& graphs = w.graphs;
    const HourglassPointer pointer(w.frmMain);
    TakeOffPositionMark(w);
    StepColumnBack(w);
    std::int32_t gap = GapBack(w);
    graphs.LastGraphTime = graphs.MessageTime;
    gap = MakeRoomBack(w, gap);
    for (; gap < 0; ++gap) {
        DrawGapMark(w.frmMain.picCombination, graphs.CurrentColumn);
        graphs.CurrentColumn = Add16(graphs.CurrentColumn, -1);
    }
    // kept: neither the verdict on the message nor its kind is asked on the way back.
    PaintMessage(w, profile, true);
    graphs.CurrentColumn = Add16(graphs.CurrentColumn, 1);
    PutPositionMark(w);
}

// Both mark and grid invert what stands there: taking them off an empty picture would draw them.
void EmptyPicture(Workstation& w) {
    w.frmMain.picCombination.Cls();
    w.graphs.MarkerColumn = -1;
    w.graphs.GridOnScreen = 0;
}

void ClearGraph(Workstation& w) {
    EmptyPicture(w);
    w.graphs.CurrentColumn = 0;
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
}

void RedrawHistory(Workstation& w) {
    GraphState& graphs = w.graphs;
    graphs.RedrawAbort = 0;
    if (graphs.HistoryIndex == 0 || graphs.HistoryRedrawCount == 0) return;
    graphs.LastGraphTime = 0;
    const HourglassPointer pointer(w.frmMain);
    ReplayRecords(w);
}

void ScrollGraph(int shift, Surface& surface) {
    const int width = surface.PixelWidth();
    const int height = surface.PixelHeight();
    const int distance = std::abs(shift);
    const int kept = width - distance;
    if (shift > 0) {
        surface.BitBlt(0, 0, kept, height, surface, distance, 0);
        surface.Fill(kept, 0, distance, height, White);
    } else {
        surface.BitBlt(distance, 0, kept, height, surface, 0, 0);
        surface.Fill(0, 0, distance, height, White);
    }
}

void DrawGapMark(Surface& surface, int column) {
    DrawFootMark(surface, column, GapMarkHeight, DrawCopy, LightRed);
}

void DrawPositionMark(Surface& surface, int column) {
    DrawFootMark(surface, column, PositionMarkHeight, DrawNotXor, Green);
}

}  // namespace cumeron
