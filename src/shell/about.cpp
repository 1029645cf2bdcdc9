#include "shell/about.h"

#include <string>

#include "shell/dialogs.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int NumbersCounted = 20;  // copies beyond these are not told

void frmAbout_Load(Workstation& w) {
    int running = 0;
    for (int number = 1; number <= NumbersCounted; ++number) {
        if (w.platform.copies.HasMark(number)) ++running;
    }
    w.frmAbout.lblInstance.Caption = "Instance:" + std::to_string(w.shell.InstanceNumber) + "/" +
                                     std::to_string(running) + " " + w.shell.SettingsFile;
}

void Command1_Click(Workstation& w) { UnloadForm(w, w.frmAbout); }

}  // namespace

FrmAbout::FrmAbout() {
    Name = "frmAbout";
    Caption = "About CUMERON";
    Width = 360 * TwipsPerPixel;
    Height = 200 * TwipsPerPixel;
    lblVersion.Caption = "Cumeron  Version 2.0";
    Command1.Caption = "OK";
    Command1.Click = Command1_Click;
    Load = frmAbout_Load;
}

ControlList FrmAbout::Controls() {
    return {{"lblVersion", -1, "", &lblVersion},
            {"lblInstance", -1, "", &lblInstance},
            {"Command1", -1, "", &Command1}};
}

void FrmAbout::Reset() { *this = FrmAbout(); }

void mnuAbout_Click(Workstation& w) { ShowDialog(w, w.frmAbout); }

}  // namespace cumeron
