#include "shell/start_options.h"

#include <string_view>

#include "shell/dialogs.h"
#include "workstation.h"

namespace cumeron {

namespace {

// No other place writes these.
constexpr std::string_view OwnKeys[] = {"Port_open", "Log_on", "Main_Caption"};

void frmStart_Load(Workstation& w) {
    FrmStart& form = w.frmStart;
    form.Check1.Value = w.settings.Port_open != 0 ? 1 : 0;
    form.Check2.Value = w.settings.Log_on != 0 ? 1 : 0;
    form.txtCaption.Text = w.settings.Main_Caption;
}

// Neither port nor log is opened here: the dialog only says what the next start does.
void CmdOK_Click(Workstation& w) {
    const FrmStart& form = w.frmStart;
    w.settings.Port_open = form.Check1.Value == 1 ? 1 : 0;
    w.settings.Log_on = form.Check2.Value == 1 ? 1 : 0;
    w.settings.Main_Caption = form.txtCaption.Text;
    MakeTitle(w);
    SaveKeys(w, OwnKeys);
    UnloadForm(w, w.frmStart);
}

void CmdCancel_Click(Workstation& w) { UnloadForm(w, w.frmStart); }

}  // namespace

FrmStart::FrmStart() {
    Name = "frmStart";
    Caption = "Start up Options";
    Width = 360 * TwipsPerPixel;
    Height = 200 * TwipsPerPixel;
    Check1.Caption = "Comm Port Open";
    Check2.Caption = "Log On";
    CmdOK.Caption = "OK";
    CmdCancel.Caption = "Cancel";
    CmdOK.Click = CmdOK_Click;
    CmdCancel.Click = CmdCancel_Click;
    Load = frmStart_Load;
}

ControlList FrmStart::Controls() {
    return {{"Check1", -1, "", &Check1},
            {"Check2", -1, "", &Check2},
            {"txtCaption", -1, "", &txtCaption},
            {"CmdOK", -1, "", &CmdOK},
            {"CmdCancel", -1, "", &CmdCancel}};
}

void FrmStart::Reset() { *this = FrmStart(); }

void mnuStartup_Click(Workstation& w) { ShowDialog(w, w.frmStart); }

}  // namespace cumeron
