// How the dialogs of the main menu are shown, all in the same way. Their menu entries call it.
#pragma once

#include "platform/form.h"

namespace cumeron {

// Shows the form modally and returns when it is gone. The sky window, if shown, goes behind
// meanwhile, and is on top again afterwards if the settings want it there.
void ShowDialog(Workstation& w, Form& form);

}  // namespace cumeron
