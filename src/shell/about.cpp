#include "shell/about.h"

#include "workstation.h"

namespace cumeron {

FrmAbout::FrmAbout() {
    Name = "frmAbout";
    Caption = "About CUMERON";
    Width = 360 * TwipsPerPixel;
    Height = 200 * TwipsPerPixel;
    lblVersion.Caption = "Cumeron  Version 2.0";
    Command1.Caption = "OK";
}

ControlList FrmAbout::Controls() {
    return {{"lblVersion", -1, "", &lblVersion},
            {"lblInstance", -1, "", &lblInstance},
            {"Command1", -1, "", &Command1}};
}

void FrmAbout::Reset() { *this = FrmAbout(); }

}  // namespace cumeron
