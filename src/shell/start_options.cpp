#include "shell/start_options.h"

#include "workstation.h"

namespace cumeron {

FrmStart::FrmStart() {
    Name = "frmStart";
    Caption = "Start up Options";
    Width = 360 * TwipsPerPixel;
    Height = 200 * TwipsPerPixel;
    Check1.Caption = "Comm Port Open";
    Check2.Caption = "Log On";
    CmdOK.Caption = "OK";
    CmdCancel.Caption = "Cancel";
}

ControlList FrmStart::Controls() {
    return {{"Check1", -1, "", &Check1},
            {"Check2", -1, "", &Check2},
            {"txtCaption", -1, "", &txtCaption},
            {"CmdOK", -1, "", &CmdOK},
            {"CmdCancel", -1, "", &CmdCancel}};
}

void FrmStart::Reset() { *this = FrmStart(); }

}  // namespace cumeron
