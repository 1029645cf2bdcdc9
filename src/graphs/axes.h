// The axes of the graphs: height scales with ticks, labels and grid lines, the x axis of the
// profile plot, captions and units. Views, readings, settings and the graphs themselves call it.
#pragma once

#include <cstdint>

namespace cumeron {

struct Surface;
struct Workstation;

enum Plot { CloudPlot = 0, ProfilePlot = 1 };

// The height limits are in thousands of feet or in kilometres, as the labels tell them; colour is a
// QBColor. As a grid the lines go across the whole surface, in dots.
void DrawHeightAxis(Workstation& w, double low, double high, Surface& surface, int colour,
                    bool asGrid, Plot plot);
// The labels of the cloud graph on picYLabels.
void DrawCloudHeightLabels(Workstation& w);
// The grid lines of the heights that the grid snapshot holds.
void DrawSnapshotHeights(Workstation& w, Surface& surface);
// Everything around the profile plot. Raises 11 for an x range too small for a tick.
void DrawProfileAxes(Workstation& w);
// X captions by view, y title by unit and tilt, the caption of fraValues and UnitLabel.
void SetGraphCaptions(Workstation& w);

}  // namespace cumeron
