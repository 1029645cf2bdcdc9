#include "shell/main_window.h"

#include <algorithm>
#include <initializer_list>

#include "graphs/cloud_columns.h"
#include "graphs/profile_plot.h"
#include "graphs/time_axis.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/sky_frame.h"
#include "workstation.h"

// The window, in pixels of the client area. X, W and H are worked out here, the rest is design.
//
//   0 ┌──────────────────────────────────────────────────────┐
//     │ Toolbar1                                             │
//     │ lblCT                                    lblDateTime │
//  95 ├──────┬─────────┬──────────────────────┬──┬───────────┤
//     │ img  │ picY-   │ picCombination       │10│ fraValues │
//     │ Yaxis│ Labels  │ or picLines   W × H  │  │           │
//     │      │         │ or both, by the      │  │           │
//     │      │         X sizer between them   │  │           │
//     │      │         ├──────────────────────┤  │           │
//     │      │         │ picXLabels           │  │           │
//     │      │         │ lblXaxis             │  │           │
//     ├──────┴─────────┴──────────────────────┴──┴───────────┤
//     │ sbaStatus                                            │
//     └──────────────────────────────────────────────────────┘

namespace cumeron {

namespace {

constexpr int GraphTop = 95;  // below tool bar and title
constexpr int LowestHeight = 5;
constexpr int LowestWidth = 10;
constexpr int LowestShare = 3;  // of one surface in the split view
constexpr int GapToValues = 10;
constexpr double LowestSplit = 0.02, HighestSplit = 0.98;  // by dragging the sizer

std::int16_t GraphHeight(const FrmMain& form) {
    const double height = form.ScaleHeight() - 1 - GraphTop - form.lblXaxis.Height -
                          form.picXLabels.Height - form.sbaStatus.Height;
    return ToInt16(std::max<double>(height, LowestHeight));
}

std::int16_t GraphLeft(const FrmMain& form) {
    return ToInt16(form.imgYaxisFt.Left + form.imgYaxisFt.Width + form.picYLabels.Width);
}

// What the window leaves to the graphs; less than nothing in a very small one.
// kept: the left edge of the axis title is added, not taken off; it stands at the window's edge,
// where that makes no difference.
double RoomForGraphs(const FrmMain& form) {
    return form.ScaleWidth() - 16 - form.fraValues.Width - form.picYLabels.Width -
           form.imgYaxisFt.Width + form.imgYaxisFt.Left;
}

std::int16_t GraphWidth(const FrmMain& form) {
    return ToInt16(std::max<double>(RoomForGraphs(form), LowestWidth));
}

void PlaceRows(FrmMain& form) {
    const std::int16_t height = GraphHeight(form);
    for (Surface* graph : {&form.picCombination, &form.picLines}) {
        graph->Top = GraphTop;
        graph->Height = height;
    }
    for (Surface* labels : {&form.picYLabels, &form.picYLabelsBack}) {
        labels->Top = GraphTop + 1;
        labels->Height = height - 2;
    }
    form.picXLabelsBack.Height = form.picXLabels.Height;
    form.lblXaxis.Top = height + GraphTop + form.picXLabels.Height;
    form.lblXaxisBack.Top = form.lblXaxis.Top;
    const double middle = form.picCombination.Top + form.picCombination.Height / 2;
    for (Control* title :
         std::initializer_list<Control*>{&form.imgYaxisFt, &form.imgYaxisM, &form.imgYaxisdisFT,
                                         &form.imgYaxisdisM, &form.picPrintAltitude}) {
        title->Top = middle - title->Height / 2;
    }
    for (Surface* labels : {&form.picXLabels, &form.picXLabelsBack, &form.picPrintXlabel}) {
        labels->Top = height + GraphTop;
    }
    form.picYLabelsBack.Width = form.picYLabels.Width;
}

// What stands left and right of the graph, whichever view is on.
void PlaceSides(FrmMain& form) {
    const double graphLeft = GraphLeft(form);
    form.picYLabels.Left = graphLeft - form.picYLabels.Width;
    form.picYLabelsBack.Left = form.picYLabels.Left;
    form.fraValues.Left = ToInt16(graphLeft + GraphWidth(form) + GapToValues);
    form.fraSkyCond.Left = form.fraValues.Left;
    // In a low window it ends at the status bar.
    const double roomBelow = form.ScaleHeight() - form.sbaStatus.Height - form.fraSkyCond.Top;
    form.fraSkyCond.Height = std::clamp(roomBelow, 1.0, SkyFrameHeight);
    // The clock ends where the values end.
    form.lblDateTime.Left = form.fraValues.Left + form.fraValues.Width - form.lblDateTime.Width;
    form.lblXaxis.Left =
        form.picCombination.Left + form.picCombination.Width / 2 - form.lblXaxis.Width / 2;
}

// A repaint that runs is broken off, and what depended on the old size is out of date.
void ForgetOldSize(Workstation& w) {
    w.graphs.RedrawAbort = 1;
    if (w.graphs.GraphsReady == 0) return;
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    // Limits that leave nothing to draw do not stop the layout.
    ResumeNext([&] { UpdateBackscatterPlot(w); });
    ResumeNext([&] { UpdateAxes(w); });
    EmptyPicture(w);
}

// So that the widest ring is not asked for more than it holds.
std::int16_t RecordsThatFit(const Workstation& w) {
    const double records = (w.frmMain.picCombination.Width - 5) * (w.settings.Compress + 1);
    const double most = w.graphs.HistorySize - 1;
    return ToInt16(std::clamp(RoundHalfEven(records), 0.0, std::max(most, 0.0)));
}

// Whatever a repaint brings about, messages are taken again afterwards.
class StoppedClock {
public:
    explicit StoppedClock(Workstation& stopped) : w(stopped) {
        w.frmMain.tmrClock.SetEnabled(false);
    }
    ~StoppedClock() {
        FrmMain& form = w.frmMain;
        form.ResizeTimer.SetEnabled(false);
        // With an off-line file or the terminal open the clock stays off.
        const bool stays = form.Toolbar1.CloseFile.Enabled || w.terminal.TerminalOpen != 0;
        if (!stays) form.tmrClock.SetEnabled(true);
    }
    StoppedClock(const StoppedClock&) = delete;
    StoppedClock& operator=(const StoppedClock&) = delete;

private:
    Workstation& w;
};

// The sizer was dropped: its place is the share of the cloud graph.
void TakeSplitFromSizer(Workstation& w) {
    const FrmMain& form = w.frmMain;
    const double share = (form.picSplitSizer.Left - GraphLeft(form)) / RoomForGraphs(form);
    // Without room the share is no number, and goes to the lower limit.
    const double limited = share >= LowestSplit ? std::min(share, HighestSplit) : LowestSplit;
    w.settings.Split_Ratio = static_cast<float>(limited);
    ArrangeSplitView(w);
}

}  // namespace

void Form_Resize(Workstation& w) {
    FrmMain& form = w.frmMain;
    if (form.WindowState == 1) {
        form.LastWindowState = 1;
        return;
    }
    // The first resize after minimising: the size is the one that was laid out before.
    if (form.LastWindowState == 1) {
        form.LastWindowState = 0;
        return;
    }
    if (form.mnuSplitScreen.Checked) {
        ArrangeSplitView(w);
        return;
    }
    form.LastWindowState = static_cast<std::int16_t>(form.WindowState);
    PlaceRows(form);
    for (Surface* graph : {&form.picCombination, &form.picLines}) {
        graph->Left = GraphLeft(form);
        graph->Width = GraphWidth(form);
    }
    for (Surface* labels : {&form.picXLabels, &form.picXLabelsBack}) {
        labels->Left = GraphLeft(form) + 1;
        labels->Width = GraphWidth(form) - 2;
    }
    PlaceSides(form);
    ForgetOldSize(w);
    // The profile view is drawn at once; it has no history to repaint.
    if (form.mnuCloudhit.Checked || form.mnuPoints.Checked) form.ResizeTimer.SetEnabled(true);
}

void ArrangeSplitView(Workstation& w) {
    FrmMain& form = w.frmMain;
    PlaceRows(form);
    const double width = GraphWidth(form);
    const double share = static_cast<double>(w.settings.Split_Ratio);
    form.picCombination.Width = std::max<double>(width * share, LowestShare);
    form.picLines.Width = std::max<double>(width * (1 - share), LowestShare);
    form.picCombination.Left = GraphLeft(form);
    form.picLines.Left = form.picCombination.Left + form.picCombination.Width;
    form.picSplitSizer.Left = form.picLines.Left - 1;
    form.picSplitSizer.Top = form.picLines.Top;
    form.picSplitSizer.Height = form.picLines.Height;
    form.picXLabels.Left = form.picCombination.Left + 1;
    form.picXLabels.Width = form.picCombination.Width - 2;
    form.picXLabelsBack.Left = form.picLines.Left + 1;
    form.picXLabelsBack.Width = form.picLines.Width - 2;
    PlaceSides(form);
    // kept: a fifth of the title's width, not half, so that it stands a little right of the middle.
    form.lblXaxisBack.Left =
        form.picLines.Left + form.picLines.Width / 2 - form.lblXaxisBack.Width / 5;
    ForgetOldSize(w);
    form.ResizeTimer.SetEnabled(true);
}

void picCombination_DragDrop(Workstation& w, const Control&, double x, double) {
    FrmMain& form = w.frmMain;
    form.picSplitSizer.Left = form.picCombination.Left + x;
    TakeSplitFromSizer(w);
}

void picLines_DragDrop(Workstation& w, const Control&, double x, double) {
    FrmMain& form = w.frmMain;
    const Surface& lines = form.picLines;
    form.picSplitSizer.Left = lines.Left + x - (lines.ScaleMode == 0 ? lines.ScaleLeft : 0);
    TakeSplitFromSizer(w);
}

void ResizeTimer_Tick(Workstation& w) {
    FrmMain& form = w.frmMain;
    GraphState& graphs = w.graphs;
    const bool stillMoving = form.picCombination.Width != graphs.resizeSeenWidth ||
                             form.picCombination.Height != graphs.resizeSeenHeight;
    if (stillMoving) {
        graphs.resizeSeenWidth = form.picCombination.Width;
        graphs.resizeSeenHeight = form.picCombination.Height;
        return;
    }
    const StoppedClock noMessageMeanwhile(w);
    do {
        graphs.HistoryRedrawCount = RecordsThatFit(w);
        ClearGraph(w);
        RedrawHistory(w);
    } while (graphs.RedrawAbort == 1);
    graphs.TimeLabelsDirty = -1;
    graphs.HeightLabelsDirty = -1;
    UpdateAxes(w);
}

}  // namespace cumeron
