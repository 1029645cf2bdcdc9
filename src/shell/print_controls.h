// The controls of frmMain that make up a page and are never seen on the screen. The design of the
// main window calls it.
#pragma once

#include "platform/controls.h"

namespace cumeron {

struct FrmMain;

void ResetPrintControls(FrmMain& form);
void AddPrintControls(FrmMain& form, ControlList& list);

}  // namespace cumeron
