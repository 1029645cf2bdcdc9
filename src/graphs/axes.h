// Captions and units of the graphs' axes. Views, readings and settings call it when the view, the
// unit or the tilt changes.
#pragma once

namespace cumeron {

struct Workstation;

// X captions by view, y title by unit and tilt, the caption of fraValues and UnitLabel.
void SetGraphCaptions(Workstation& w);

}  // namespace cumeron
