// frmSkyCondSettings, "Sky Condition Settings": how amounts look, and whether the sky condition
// stands in the main window and its own window in front of all others. The menu shows it.
#pragma once

#include <array>

#include "platform/form.h"

namespace cumeron {

struct FrmSkyCondSettings : Form {
    Frame fraCloudAmount;
    std::array<OptionButton, 3> optCloudAmount;  // numbers, text, symbols and numbers
    CheckBox chkShowSkyCond, chkSkyCondTop;      // in the main window; its own window on top
    Button cmdOk, cmdCancel;

    FrmSkyCondSettings();
    ControlList Controls() override;
    void Reset() override;
};

// The frame of the main window and the sky window take the settings as they are now, and show the
// last sky condition accordingly.
void ApplySkySettings(Workstation& w);
void mnuSkyCondSettings_Click(Workstation& w);

}  // namespace cumeron
