// The contents of the frame fraSkyCond of the main window: a row for each layer, with symbols
// beside them, and the pictures that the symbols are taken from. The design of the main window
// calls the first two, the start and the settings of the sky condition the third.
#pragma once

#include "platform/controls.h"

namespace cumeron {

struct FrmMain;

inline constexpr double SkyFrameHeight = 158;  // pixels, with all its layers

void ResetSkyFrame(FrmMain& form);
void ListSkyFrame(ControlList& list, FrmMain& form);
// Shows or hides the frame, and the symbols in it, as the settings want it.
void ShapeSkyFrame(Workstation& w);

}  // namespace cumeron
