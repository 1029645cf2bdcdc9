// frmStart, "Start up Options": what the next start does with the port and the log, and the title.
// The menu shows it.
#pragma once

#include "platform/form.h"

namespace cumeron {

struct FrmStart : Form {
    CheckBox Check1, Check2;  // open the port; switch the log on
    TextBox txtCaption;       // behind "CUMERON - " in the title
    Button CmdOK, CmdCancel;

    FrmStart();
    ControlList Controls() override;
    void Reset() override;
};

void mnuStartup_Click(Workstation& w);

}  // namespace cumeron
