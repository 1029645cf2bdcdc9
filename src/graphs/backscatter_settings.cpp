#include "graphs/backscatter_settings.h"

#include <cmath>
#include <optional>

#include "graphs/axes.h"
#include "graphs/profile_plot.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "platform/runtime/text.h"
#include "shell/dialogs.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int FewestAverages = 5, AveragesStep = 5;
constexpr double PlotUnits = 100;  // to one of the x limits as the operator sees them
constexpr double HighestX = 327, LeastSpanX = 0.1;
// Limits that were typed 0.1 apart differ by a little less as binary numbers.
constexpr double Tolerance = 1e-9;
constexpr const char* LastScale = "Step 75k";

// Everything that is typed, in the form of the settings.
struct Typed {
    std::int32_t xLow, xHigh;  // plot units
    HeightSettings heights;
};

void frmBackScatter_Load(Workstation& w) {
    FrmBackScatter& form = w.frmBackScatter;
    const Settings& settings = w.settings;
    ChooseAt(w, form, form.optBackDrawWidth, settings.Back_Draw_Width - 1);
    ChooseAt(w, form, form.optShowGrid, settings.Backscatter_Show_Grid == 1 ? 1 : 0);
    if (settings.Backscatter_Averages % AveragesStep == 0) {
        ChooseAt(w, form, form.optNAverages, settings.Backscatter_Averages / AveragesStep - 1);
    }
    ChooseAt(w, form, form.optAverageMode, settings.Backscatter_Mode - 1);
    ChooseAt(w, form, form.optXUser, settings.Backscatter_X_User_Defined != 0 ? 1 : 0);
    form.txtXLow.Text = NumberText(settings.Backscatter_X_Low_Value / PlotUnits);
    form.txtXHigh.Text = NumberText(settings.Backscatter_X_High_Value / PlotUnits);
    ShowHeights(w, form, form, BackscatterHeights(settings), LastScale);
}

std::string XRefusal(const FrmBackScatter& form) {
    if (!form.optXUser[1].Value) return "";
    const double low = ToDouble(form.txtXLow.Text);
    const double high = ToDouble(form.txtXHigh.Text);
    std::string refusal;
    if (std::abs(low) > HighestX || std::abs(high) > HighestX) {
        refusal = "The valid range of numbers for X-Axis is from -327 to 327.  ";
    }
    if (high - low < LeastSpanX - Tolerance) {
        refusal += "The minimum difference is 0.1 for X-Axis.  ";
    }
    return refusal;
}

std::string Refusal(const Workstation& w) {
    const FrmBackScatter& form = w.frmBackScatter;
    const std::string numbers =
        NumberRefusal({&form.txtXLow, &form.txtXHigh, &form.txtYLow, &form.txtYHigh});
    return numbers.empty() ? XRefusal(form) + HeightRefusal(w, form) : numbers;
}

std::int32_t PlotUnitsOf(const TextBox& box) { return ToInt32(ToDouble(box.Text) * PlotUnits); }

// Nothing when it is refused, which is told. Limits that are not in force are not checked; one of
// them that no setting can hold is an error, told before anything is stored.
std::optional<Typed> TypedValues(Workstation& w) {
    const FrmBackScatter& form = w.frmBackScatter;
    std::optional<Typed> typed;
    ReportAndGoOn(w, [&] {
        const std::string refusal = Refusal(w);
        if (refusal.empty()) {
            typed = {PlotUnitsOf(form.txtXLow), PlotUnitsOf(form.txtXHigh),
                     ChosenHeights(form, BackscatterHeights(w.settings))};
        } else {
            w.platform.dialogs.MessageBox(refusal, BoxButtons::Ok);
        }
    });
    return typed;
}

void StoreAll(Workstation& w, const Typed& typed) {
    const FrmBackScatter& form = w.frmBackScatter;
    Settings& settings = w.settings;
    settings.Backscatter_X_Low_Value = typed.xLow;
    settings.Backscatter_X_High_Value = typed.xHigh;
    settings.Backscatter_X_User_Defined = form.optXUser[1].Value ? -1 : 0;
    StoreBackscatterHeights(settings, typed.heights);
    TakeChosen(form.optAverageMode, settings.Backscatter_Mode, 1);
    TakeChosen(form.optNAverages, settings.Backscatter_Averages, FewestAverages, AveragesStep);
    TakeChosen(form.optShowGrid, settings.Backscatter_Show_Grid);
    TakeChosen(form.optBackDrawWidth, settings.Back_Draw_Width, 1);
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
}

// In the split view both graphs share the height labels.
void GiveHeightsToClouds(Workstation& w) {
    StoreCloudHeights(w.settings, BackscatterHeights(w.settings));
    UnloadForm(w, w.frmBackScatter);
    ReportAndGoOn(w, [&] { ApplyCloudRange(w); });
    ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
    Form_Resize(w);
}

void RedrawProfile(Workstation& w) {
    ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
    SetGraphCaptions(w);
    UpdateAxes(w);
    ReportAndGoOn(w, [&] { UpdateBackscatterPlot(w); });
    UnloadForm(w, w.frmBackScatter);
}

void cmdOk_Click(Workstation& w) {
    const std::optional<Typed> typed = TypedValues(w);
    if (!typed) return;
    StoreAll(w, *typed);
    const bool apart = BackscatterHeights(w.settings) != CloudHeights(w.settings);
    if (apart && w.frmMain.mnuSplitScreen.Checked) {
        GiveHeightsToClouds(w);
    } else {
        RedrawProfile(w);
    }
}

void Command2_Click(Workstation& w) { UnloadForm(w, w.frmBackScatter); }

void NameOptions(FrmBackScatter& form) {
    form.fraDrawWidth.Caption = "Draw Width";
    form.fraShowGrid.Caption = "&Show Grid";
    form.optShowGrid[0].Caption = "&No";
    form.optShowGrid[1].Caption = "&Yes";
    form.fraAverages.Caption = "No. of averaged Messages";
    form.fraMode.Caption = "Mode";
    form.optAverageMode[0].Caption = "Instant";
    form.optAverageMode[1].Caption = "Average";
    form.optAverageMode[2].Caption = "Both";
    int number = 0;
    for (OptionButton& option : form.optBackDrawWidth) option.Caption = std::to_string(++number);
    number = 0;
    for (OptionButton& option : form.optNAverages) {
        option.Caption = std::to_string(number += AveragesStep);
    }
}

void AddOptions(ControlList& list, const char* name, const char* parent,
                std::span<OptionButton> options, int first = 0, int step = 1) {
    for (OptionButton& option : options) {
        list.push_back({name, first, parent, &option});
        first += step;
    }
}

}  // namespace

FrmBackScatter::FrmBackScatter() {
    Name = "frmBackScatter";
    Caption = "Backscatter Profile Settings";
    Width = 600 * TwipsPerPixel;
    Height = 340 * TwipsPerPixel;
    NameOptions(*this);
    fraXRange.Caption = "&X-Axis Range (100*srad*km)^-1";
    optXUser[0].Caption = "&Full";
    optXUser[1].Caption = "User-defined";
    fraYRange.Caption = "&Y-Axis Range ";
    NameHeightControls(*this);
    cmdOk.Caption = "OK";
    Command2.Caption = "Cancel";
    for (OptionButton& option : optYUser) {
        option.Click = [](Workstation& w) { EnableHeights(w.frmBackScatter); };
    }
    cmdOk.Click = cmdOk_Click;
    Command2.Click = Command2_Click;
    Load = frmBackScatter_Load;
}

ControlList FrmBackScatter::Controls() {
    ControlList list;
    list.push_back({"fraDrawWidth", -1, "", &fraDrawWidth});
    AddOptions(list, "optBackDrawWidth", "fraDrawWidth", optBackDrawWidth);
    list.push_back({"fraShowGrid", -1, "", &fraShowGrid});
    AddOptions(list, "optShowGrid", "fraShowGrid", optShowGrid);
    list.push_back({"fraAverages", -1, "", &fraAverages});
    AddOptions(list, "optNAverages", "fraAverages", optNAverages, FewestAverages, AveragesStep);
    list.push_back({"fraMode", -1, "", &fraMode});
    AddOptions(list, "optAverageMode", "fraMode", optAverageMode);
    list.push_back({"fraXRange", -1, "", &fraXRange});
    AddOptions(list, "optXUser", "fraXRange", optXUser);
    list.push_back({"txtXLow", -1, "fraXRange", &txtXLow});
    list.push_back({"txtXHigh", -1, "fraXRange", &txtXHigh});
    ListHeightControls(list, *this);
    list.push_back({"cmdOk", -1, "", &cmdOk});
    list.push_back({"Command2", -1, "", &Command2});
    return list;
}

void FrmBackScatter::Reset() { *this = FrmBackScatter(); }

void mnuBackscatterSettings_Click(Workstation& w) { ShowDialog(w, w.frmBackScatter); }

}  // namespace cumeron
