#include "shell/sky_settings.h"

#include "graphs/graph_settings.h"
#include "shell/dialogs.h"
#include "shell/sky_frame.h"
#include "workstation.h"

namespace cumeron {

namespace {

// Whether the window is to stay on top is asked only of those who watch the sky condition.
void FollowShown(FrmSkyCondSettings& form) {
    const bool shown = form.chkShowSkyCond.Value == 1;
    form.chkSkyCondTop.Enabled = shown;
    form.chkSkyCondTop.Visible = shown;
}

void frmSkyCondSettings_Load(Workstation& w) {
    FrmSkyCondSettings& form = w.frmSkyCondSettings;
    ChooseAt(w, form, form.optCloudAmount, w.settings.Cloud_Amount);
    form.chkShowSkyCond.Value = w.settings.Show_Sky_Cond != 0 ? 1 : 0;
    form.chkSkyCondTop.Value = w.settings.Sky_Cond_On_Top == 1 ? 1 : 0;
    FollowShown(form);
    w.frmSkyCond.TopMost = false;  // until the dialog has gone
}

void chkShowSkyCond_Click(Workstation& w) { FollowShown(w.frmSkyCondSettings); }

std::int16_t ChosenLook(const FrmSkyCondSettings& form) {
    if (form.optCloudAmount[0].Value) return AmountNumbers;
    return form.optCloudAmount[1].Value ? AmountTexts : AmountSymbols;
}

void cmdOk_Click(Workstation& w) {
    const FrmSkyCondSettings& form = w.frmSkyCondSettings;
    Settings& settings = w.settings;
    const bool wasOnTop = settings.Sky_Cond_On_Top == 1;
    settings.Cloud_Amount = ChosenLook(form);
    settings.Show_Sky_Cond = form.chkShowSkyCond.Value == 1 ? 1 : 0;
    settings.Sky_Cond_On_Top = form.chkSkyCondTop.Value == 1 ? 1 : 0;
    UnloadForm(w, w.frmSkyCondSettings);
    ApplySkySettings(w);
    if (settings.Sky_Cond_On_Top == 1 && !wasOnTop) Form_Resize(w);
}

void cmdCancel_Click(Workstation& w) { UnloadForm(w, w.frmSkyCondSettings); }

}  // namespace

FrmSkyCondSettings::FrmSkyCondSettings() {
    Name = "frmSkyCondSettings";
    Caption = "Sky Condition Settings";
    Width = 340 * TwipsPerPixel;
    Height = 240 * TwipsPerPixel;
    fraCloudAmount.Caption = "Cloud Amount";
    optCloudAmount[0].Caption = "Numbers";
    optCloudAmount[1].Caption = "Text";
    optCloudAmount[2].Caption = "Symbols and Numbers";
    optCloudAmount[0].ToolTipText = "Oktas: how many eighths of the sky a layer covers";
    optCloudAmount[1].ToolTipText = "FEW, SCT, BKN, OVC, and VV for vertical visibility";
    optCloudAmount[2].ToolTipText = "The symbols of weather charts beside the oktas";
    chkShowSkyCond.Caption = "Show Sky Condition in Main Window";
    chkSkyCondTop.Caption = "Sky Condition Window Always on Top";
    chkShowSkyCond.Click = chkShowSkyCond_Click;
    cmdOk.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdOk.Click = cmdOk_Click;
    cmdCancel.Click = cmdCancel_Click;
    Load = frmSkyCondSettings_Load;
}

ControlList FrmSkyCondSettings::Controls() {
    ControlList list = {{"fraCloudAmount", -1, "", &fraCloudAmount}};
    int index = 0;
    for (OptionButton& option : optCloudAmount) {
        list.push_back({"optCloudAmount", index++, "fraCloudAmount", &option});
    }
    list.push_back({"chkShowSkyCond", -1, "", &chkShowSkyCond});
    list.push_back({"chkSkyCondTop", -1, "", &chkSkyCondTop});
    list.push_back({"cmdOk", -1, "", &cmdOk});
    list.push_back({"cmdCancel", -1, "", &cmdCancel});
    return list;
}

void FrmSkyCondSettings::Reset() { *this = FrmSkyCondSettings(); }

void ApplySkySettings(Workstation& w) {
    ShapeSkyFrame(w);
    ReShape(w);
    ShowSkyCondition(w);
    if (w.frmMain.mnuSkyCond.Checked) UpDateSkyCond(w);
}

void mnuSkyCondSettings_Click(Workstation& w) { ShowDialog(w, w.frmSkyCondSettings); }

}  // namespace cumeron
