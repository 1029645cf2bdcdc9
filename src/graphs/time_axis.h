// The time axis of the cloud graph and its grid. The columns, the views and the settings call it.
#pragma once

namespace cumeron {

struct Surface;
struct Workstation;

// Draws anew what is out of date: time labels, height labels, and the grid when it is wanted.
void UpdateAxes(Workstation& w);
// The ticks and hours of a strip whose given column stands at that moment; the left edge is worked
// out from it and Message_Interval. As a grid the lines invert what stands there. An interval of 0
// leaves no axis to draw.
void DrawTimeAxis(Workstation& w, int column, Surface& surface, double time, int colour,
                  bool asGrid);
// Lays the grid over the picture or takes it off again: both draw the same inverting lines.
void ToggleCloudGrid(Workstation& w, Surface& surface);

}  // namespace cumeron
