#include "logging/graph_picture.h"

#include <array>

#include "graphs/axes.h"
#include "graphs/time_axis.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

// The picture, in pixels. A is the title of the height axis, Y and X are the labels of height and
// time, G is the graph, L the title below. In the split view the profile and its labels follow on
// the right of G and X, in the sizes of these.
//
//      0       A           A+Y                               W
//    0 ┌───────┬───────────┬─────────────────────────────────┐  frame, to H(G)+2
//    1 │  A    │  Y        │ G at A+Y+1                      │
//      │       │           │                                 │
//      ├───────┴───────────┼─────────────────────────────────┤
//      │ picCorner         │ X at H(Y)+2                     │
//      │                   │       L at H(Y)+H(X)            │
//      └───────────────────┴─────────────────────────────────┘

namespace cumeron {

namespace {

constexpr int White = 0xFFFFFF, Black = 0;
constexpr const char* TimeTitle = "                   TIME (h)";
constexpr const char* ProfileTitle = "Backscatter (100*srad*km)^-1";
constexpr const char* SplitProfileTitle = "Backscatter ";

std::array<Surface*, 5> LabelSurfaces(FrmMain& form) {
    return {&form.picYLabels, &form.picXLabels, &form.picYLabelsBack, &form.picXLabelsBack,
            &form.picCorner};
}

// A new background empties a surface. Limits that leave nothing to draw stop neither a page nor
// the way back to the screen.
void RedrawLabels(Workstation& w, int background) {
    for (Surface* surface : LabelSurfaces(w.frmMain)) {
        surface->BackColor = background;
        surface->Cls();
    }
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    ResumeNext([&] { UpdateAxes(w); });
    ResumeNext([&] { DrawProfileAxes(w); });
}

// One graph with its labels, and the sizes that the layout is made of.
struct Layout {
    const Surface& graph;
    const Surface& heights;
    const Surface& times;
    int title, heightsWidth, graphWidth;  // widths
    int graphHeight, heightsHeight, timesHeight, captionHeight;

    Layout(FrmMain& form, const Surface& g, const Surface& y, const Surface& x)
        : graph(g),
          heights(y),
          times(x),
          title(form.picPrintAltitude.PixelWidth()),
          heightsWidth(y.PixelWidth()),
          graphWidth(g.PixelWidth()),
          graphHeight(g.PixelHeight()),
          heightsHeight(y.PixelHeight()),
          timesHeight(x.PixelHeight()),
          captionHeight(form.picPrintXlabel.PixelHeight()) {}

    int Left() const { return title + heightsWidth; }  // of the frame
    int CaptionTop() const { return heightsHeight + timesHeight; }
};

Image& ChooseAxisTitle(Workstation& w) {
    FrmMain& form = w.frmMain;
    const bool metres = w.settings.Units != 0;
    const bool distance = w.readings.Tilted == 1;
    form.imgYaxisaltftBW.Visible = !metres && !distance;
    form.imgYaxisaltMbw.Visible = metres && !distance;
    form.imgYaxisdisFTBW.Visible = !metres && distance;
    form.imgYaxisdisMbw.Visible = metres && distance;
    if (distance) return metres ? form.imgYaxisdisMbw : form.imgYaxisdisFTBW;
    return metres ? form.imgYaxisaltMbw : form.imgYaxisaltftBW;
}

// Empties the page and gives it its size; extraWidth is that of a second graph.
void PreparePage(FrmMain& form, const Layout& layout, int extraWidth) {
    Surface& page = form.picPrinting;
    page.Cls();
    page.Width = layout.graphWidth + extraWidth + layout.heightsWidth + layout.title + 2;
    page.Height = layout.graphHeight + layout.timesHeight + layout.captionHeight + 2;
    page.Fill(0, 0, page.PixelWidth(), page.PixelHeight(), White);
    page.ScaleMode = 3;
}

void CopyGraph(FrmMain& form, const Layout& layout) {
    Surface& page = form.picPrinting;
    page.BitBlt(layout.title, 1, layout.Left(),
                layout.timesHeight + layout.heightsHeight + layout.captionHeight + 1,
                layout.heights, 0, 0);
    page.BitBlt(layout.Left() + 1, layout.heightsHeight + 2, layout.times.PixelWidth(),
                layout.timesHeight, layout.times, 0, 0);
    page.BitBlt(layout.Left() + 1, 1, layout.graphWidth, layout.graphHeight, layout.graph, 0, 0);
    page.BitBlt(0, layout.heightsHeight + 1, layout.heightsWidth + 1, layout.timesHeight + 1,
                form.picCorner, 0, 0);
    page.BitBlt(0, 0, layout.Left() + 1, 1, form.picCorner, 0, 0);
}

// The label lies on its surface, the copy shows both.
void CopyCaption(FrmMain& form, const std::string& caption, int x, int y) {
    Label& label = form.lblPrintXlabel;
    Surface& paper = form.picPrintXlabel;
    label.Caption = caption;
    paper.Cls();
    paper.CurrentX = label.Left;
    paper.CurrentY = label.Top;
    paper.Print(caption);
    form.picPrinting.BitBlt(x, y, paper.PixelWidth(), paper.PixelHeight(), paper, 0, 0);
}

void CopyAxisTitle(Workstation& w, const Layout& layout) {
    Surface& paper = w.frmMain.picPrintAltitude;
    paper.Cls();
    paper.PaintDrawing(ChooseAxisTitle(w).Picture);
    const int y = layout.CaptionTop() / 2 - paper.PixelHeight() / 2;
    w.frmMain.picPrinting.BitBlt(0, y, paper.PixelWidth(), paper.PixelHeight(), paper, 0, 0);
}

void ComposeSingle(Workstation& w, const Surface& graph, const Surface& heights,
                   const Surface& times) {
    FrmMain& form = w.frmMain;
    const Layout layout(form, graph, heights, times);
    PreparePage(form, layout, 0);
    CopyGraph(form, layout);
    Surface& page = form.picPrinting;
    // kept: while graphs are printed automatically the title is that of the strip, also below a
    // profile that is printed by hand.
    const bool strip = form.mnuAutoPrint.Checked || !form.mnuLinePlot.Checked;
    // kept: the divisor 3 is what the page has always used; it centres the text, which begins with
    // blanks or fills the label.
    const int x = page.PixelWidth() / 2 - form.picPrintXlabel.PixelWidth() / 3;
    CopyCaption(form, strip ? TimeTitle : ProfileTitle, x, layout.CaptionTop());
    CopyAxisTitle(w, layout);
    DrawFrame(page, layout.Left(), 0, page.PixelWidth() - 1, layout.graphHeight + 2);
}

void ComposeSplit(Workstation& w) {
    FrmMain& form = w.frmMain;
    const Layout layout(form, form.picCombination, form.picYLabels, form.picXLabels);
    PreparePage(form, layout, form.picLines.PixelWidth());
    CopyGraph(form, layout);
    Surface& page = form.picPrinting;
    const int border = layout.Left() + layout.graphWidth;
    // kept: profile and labels in the sizes of the cloud graph's; what a wider profile has beyond
    // that is not on the page.
    page.BitBlt(border + 1, 1, layout.graphWidth, layout.graphHeight, form.picLines, 0, 0);
    page.BitBlt(border + 1, layout.graphHeight + 2, form.picXLabels.PixelWidth(),
                layout.timesHeight, form.picXLabelsBack, 0, 0);
    CopyCaption(form, TimeTitle, ToInt32(form.lblXaxis.Left), layout.CaptionTop());
    CopyCaption(form, SplitProfileTitle, ToInt32(form.lblXaxisBack.Left), layout.CaptionTop());
    CopyAxisTitle(w, layout);
    DrawFrame(page, layout.Left(), 0, border, layout.graphHeight + 2);
    DrawFrame(page, border + 1, 0, page.PixelWidth() - 1, layout.graphHeight + 2);
}

}  // namespace

WhiteLabels::WhiteLabels(Workstation& station)
    : w(station), before(station.frmMain.picYLabels.BackColor) {
    RedrawLabels(w, White);
}

WhiteLabels::~WhiteLabels() { RedrawLabels(w, before); }

void ComposeView(Workstation& w) {
    FrmMain& form = w.frmMain;
    if (form.mnuSplitScreen.Checked) return ComposeSplit(w);
    if (form.mnuLinePlot.Checked) {
        return ComposeSingle(w, form.picLines, form.picYLabelsBack, form.picXLabelsBack);
    }
    ComposeCloudGraph(w);
}

void ComposeCloudGraph(Workstation& w) {
    ComposeSingle(w, w.frmMain.picCombination, w.frmMain.picYLabels, w.frmMain.picXLabels);
}

void DrawFrame(Surface& surface, int x1, int y1, int x2, int y2) {
    surface.DrawWidth = 1;
    surface.Line(x1, y1, x2, y1, Black);
    surface.Line(x2, y1, x2, y2, Black);
    surface.Line(x2, y2, x1, y2, Black);
    surface.Line(x1, y2, x1, y1, Black);
}

}  // namespace cumeron
