// The four views of the main window: which surfaces are shown, which entry is checked, which
// button is pressed; and the grid of the view.
#include "graphs/axes.h"
#include "graphs/profile_plot.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "shell/indicators.h"
#include "shell/main_window.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t Intensity = 0, Detection = 1, Both = 2;  // Cloudmode
constexpr std::int16_t Rv10x = 10;                              // model code

void ShowSizer(FrmMain& form, bool shown) {
    form.picSplitSizer.Enabled = shown;
    form.picSplitSizer.Visible = shown;
}

void ShowCloudGraph(FrmMain& form, bool shown) {
    form.picCombination.Visible = shown;
    form.picXLabels.Visible = shown;
    form.picYLabels.Visible = shown;
}

void ShowProfile(FrmMain& form, bool shown) {
    form.picLines.Visible = shown;
    form.picXLabelsBack.Visible = shown;
}

void PressViewButtons(FrmMain& form, bool hit, bool intensity, bool profile, bool split) {
    form.Toolbar1.CloudHit.Value = hit ? 1 : 0;
    form.Toolbar1.CloudIntensity.Value = intensity ? 1 : 0;
    form.Toolbar1.BackScat.Value = profile ? 1 : 0;
    form.Toolbar1.Split.Value = split ? 1 : 0;
}

// 1 becomes 0, anything else 1.
void Flip(std::int16_t& shown) { shown = shown == 1 ? 0 : 1; }

// The cloud graph alone, as own; other is the mode that ends. Mode Both is left standing.
void ShowCloudView(Workstation& w, std::int16_t own, std::int16_t other) {
    FrmMain& form = w.frmMain;
    const bool both = w.settings.Cloudmode == Both;
    ShowSizer(form, false);
    form.mnuLinePlot.Checked = false;
    form.mnuPoints.Checked = own == Intensity;
    form.mnuCloudhit.Checked = own == Detection;
    PressViewButtons(form, own == Detection || both, own == Intensity || both, false, false);
    ShowCloudGraph(form, true);
    ShowProfile(form, false);
    form.picYLabelsBack.Visible = false;
    SetGraphCaptions(w);
    if (w.settings.Cloudmode == other || form.mnuSplitScreen.Checked) {
        if (w.settings.Cloudmode == other) w.settings.Cloudmode = own;
        form.mnuSplitScreen.Checked = false;
        Form_Resize(w);
    }
    // kept: the RV10X does not keep up the mode of the last view; the graph settings rely on it.
    if (w.settings.CEILOMETER != Rv10x) w.graphs.PreviousCloudmode = w.settings.Cloudmode;
}

}  // namespace

void mnuPoints_Click(Workstation& w) { ShowCloudView(w, Intensity, Detection); }

void ShowCloudHitView(Workstation& w) { ShowCloudView(w, Detection, Intensity); }

void mnuLinePlot_Click(Workstation& w) {
    FrmMain& form = w.frmMain;
    ShowSizer(form, false);
    if (form.mnuSplitScreen.Checked) {
        form.mnuSplitScreen.Checked = false;
        Form_Resize(w);
    }
    ShowCloudGraph(form, false);
    ShowProfile(form, true);
    form.picYLabelsBack.Visible = true;
    form.mnuLinePlot.Checked = true;
    form.mnuCloudhit.Checked = false;
    form.mnuPoints.Checked = false;
    PressViewButtons(form, false, false, true, false);
    SetGraphCaptions(w);
    ReportAndGoOn(w, [&] { UpdateBackscatterPlot(w); });
}

void mnuSplitScreen_Click(Workstation& w) {
    FrmMain& form = w.frmMain;
    Settings& settings = w.settings;
    ShowSizer(form, true);
    form.mnuLinePlot.Checked = true;
    form.mnuSplitScreen.Checked = true;
    (settings.Cloudmode != Detection ? form.mnuPoints : form.mnuCloudhit).Checked = true;
    PressViewButtons(form, false, false, false, true);
    // kept: both surfaces share the height labels, so the profile takes over the cloud graph's
    // range, and keeps it when the view is left.
    settings.Backscatter_Y_Low_Value = settings.Clouds_Y_Low_Value;
    settings.Backscatter_Y_High_Value = settings.Clouds_Y_High_Value;
    settings.Backscatter_Y_User_Defined = settings.Clouds_Y_User_Defined;
    settings.Back_Step_Linear = settings.Step_Linear;
    ReportAndGoOn(w, [&] { ApplyCloudRange(w); });
    ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
    SetGraphCaptions(w);
    Form_Resize(w);
    ShowCloudGraph(form, true);
    ShowProfile(form, true);
}

void ToggleGrid(Workstation& w) {
    const FrmMain& form = w.frmMain;
    Settings& settings = w.settings;
    if (!form.mnuLinePlot.Checked || form.mnuSplitScreen.Checked) {
        if (w.graphs.GridOnScreen != 0) ToggleCloudGrid(w, w.frmMain.picCombination);
        Flip(settings.Cloud_Show_Grid);
        w.graphs.TimeLabelsDirty = -1;
        w.graphs.HeightLabelsDirty = -1;
        UpdateAxes(w);
    }
    if (form.mnuLinePlot.Checked) {
        Flip(settings.Backscatter_Show_Grid);
        ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
        SetGraphCaptions(w);
        ReportAndGoOn(w, [&] { UpdateBackscatterPlot(w); });
    }
}

}  // namespace cumeron
