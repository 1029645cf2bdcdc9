#include "shell/model_dialog.h"

#include <optional>
#include <string>
#include <string_view>

#include "graphs/axes.h"
#include "graphs/cloud_columns.h"
#include "graphs/graph_history.h"
#include "graphs/profile_plot.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "intake/models.h"
#include "shell/dialogs.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t Rv10x = 10;
constexpr std::int16_t Both = 2;  // Cloudmode

// A code that is none of the six chooses nothing.
void frmCType_Load(Workstation& w) {
    FrmCType& form = w.frmCType;
    for (std::size_t i = 0; i < form.optCType.size(); ++i) {
        if (ModelCodes()[i] == w.settings.CEILOMETER) ChooseOption(w, form, form.optCType[i]);
    }
}

std::optional<std::int16_t> ChosenCode(const FrmCType& form) {
    for (std::size_t i = 0; i < form.optCType.size(); ++i) {
        if (form.optCType[i].Value) return ModelCodes()[i];
    }
    return std::nullopt;
}

// kept: a second OK for the RV10X takes mode 2 for the mode before, and the next model has it too.
void TakeModeOfModel(Workstation& w) {
    Settings& settings = w.settings;
    if (settings.CEILOMETER != Rv10x) {
        settings.Cloudmode = w.graphs.PreviousCloudmode;
        return;
    }
    // It has no intensity data: detection is drawn in either view.
    w.graphs.PreviousCloudmode = settings.Cloudmode;
    settings.Cloudmode = Both;
    settings.Status_Log = 0;
}

// kept: the value is taken as it stands in the file, without the factor of Compress; the interval
// measured from the next messages takes its place.
void ReadInterval(Workstation& w) {
    constexpr std::string_view key = "Message_Interval";
    SettingsReading reading = OpenSettings(w);
    while (SettingTable()[reading.next].key != key) ++reading.next;
    ReadSettingsThrough(w, reading, key);
}

void TakeModel(Workstation& w, std::int16_t code) {
    w.settings.CEILOMETER = code;
    LoadModel(w, LoadedBy::Dialog);
    TakeModeOfModel(w);
    // kept: the RV family goes on with the interval of the model before.
    const bool readsInterval = w.model.family == Family::KN || w.model.family == Family::TQ60;
    if (readsInterval) ReportAndGoOn(w, [&] { ReadInterval(w); });
}

// Profiles of another length do not mix, so the history goes with every OK.
void EmptyHistory(Workstation& w) {
    DimensionProfiles(w);
    w.graphs.HistoryIndex = 0;
    w.graphs.HistoryWrapped = 0;
}

void StartGraphsAfresh(Workstation& w) {
    Settings& settings = w.settings;
    settings.Step_Linear = 0;
    settings.Back_Step_Linear = 0;
    settings.Clouds_Y_User_Defined = 0;
    ApplyCloudRange(w);
    SetGraphCaptions(w);
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    UpdateAxes(w);
    EmptyPicture(w);
    settings.Backscatter_Y_User_Defined = 0;
    ReportAndGoOn(w, [&] {
        ApplyBackscatterRange(w);
        UpdateBackscatterPlot(w);
    });
}

void Command1_Click(Workstation& w) {
    if (const auto code = ChosenCode(w.frmCType)) TakeModel(w, *code);
    EmptyHistory(w);
    StartGraphsAfresh(w);
    UnloadForm(w, w.frmCType);
}

void Command2_Click(Workstation& w) { UnloadForm(w, w.frmCType); }

}  // namespace

FrmCType::FrmCType() {
    Name = "frmCType";
    Caption = "CEILOMETER";
    Width = 280 * TwipsPerPixel;
    Height = 260 * TwipsPerPixel;
    for (std::size_t i = 0; i < optCType.size(); ++i) {
        optCType[i].Caption = ModelName(ModelCodes()[i]);
    }
    Command1.Caption = "OK";
    Command2.Caption = "Cancel";
    Command1.Click = Command1_Click;
    Command2.Click = Command2_Click;
    Load = frmCType_Load;
}

ControlList FrmCType::Controls() {
    ControlList list;
    for (std::size_t i = 0; i < optCType.size(); ++i) {
        list.push_back({"optCType", static_cast<int>(i), "", &optCType[i]});
    }
    list.push_back({"Command1", -1, "", &Command1});
    list.push_back({"Command2", -1, "", &Command2});
    return list;
}

void FrmCType::Reset() { *this = FrmCType(); }

void mnuCeiloType_Click(Workstation& w) { ShowDialog(w, w.frmCType); }

}  // namespace cumeron
