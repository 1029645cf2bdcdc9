// The picture of the graphs for paper: what is on the screen, redrawn on white and put together on
// picPrinting with its axes, titles and frames. Printing, copying and saving call it.
#pragma once

#include <cstdint>

#include "platform/surface.h"

namespace cumeron {

struct Workstation;

// The labels of both graphs on white for as long as it lives; afterwards they have their old colour
// again, whatever happened in between.
class WhiteLabels {
public:
    explicit WhiteLabels(Workstation& station);
    ~WhiteLabels();
    WhiteLabels(const WhiteLabels&) = delete;
    WhiteLabels& operator=(const WhiteLabels&) = delete;

private:
    Workstation& w;
    int before;  // background of the height labels, which is that of all
};

// The view that is on the screen: one graph, or both in the split view.
void ComposeView(Workstation& w);
// The cloud graph, whatever the view.
void ComposeCloudGraph(Workstation& w);
// A rectangle of four lines, in pixels.
void DrawFrame(Surface& surface, int x1, int y1, int x2, int y2);

}  // namespace cumeron
