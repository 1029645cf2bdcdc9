// frmAbout: version, number of this copy, how many run, and the settings file. The menu shows it.
#pragma once

#include "platform/form.h"

namespace cumeron {

struct FrmAbout : Form {
    Label lblVersion, lblInstance;
    Button Command1;

    FrmAbout();
    ControlList Controls() override;
    void Reset() override;
};

void mnuAbout_Click(Workstation& w);

}  // namespace cumeron
