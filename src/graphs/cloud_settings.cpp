#include "graphs/cloud_settings.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "graphs/cloud_columns.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "platform/runtime/text.h"
#include "shell/dialogs.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int16_t Intensity = 0, Both = 2;  // Cloudmode
constexpr std::int16_t Rv10x = 10;               // model code
constexpr double PlotUnits = 100;                // to one of the limits as the operator sees them
constexpr double HighestLimit = 327, LeastStep = 0.01;
// Limits that were typed 0.01 apart differ by a little less as binary numbers.
constexpr double Tolerance = 1e-9;
constexpr const char* LastScale = "Step 75K";
constexpr const char* ChosenMark = "\x95";  // a bullet

using ColourBox = Label FrmClouds::*;

// The boxes that have a colour of the graph, and its setting.
struct BoxRow {
    ColourBox box;
    const char* name;
    const char* parent;
    std::int32_t& (*setting)(Settings&);
};

template <std::size_t Index>
std::int32_t& CloudColour(Settings& settings) {
    return settings.Clouds_Color[Index];
}

template <std::int32_t Settings::*Setting>
std::int32_t& Colour(Settings& settings) {
    return settings.*Setting;
}

constexpr BoxRow BoxRows[] = {
    {&FrmClouds::CloudColor1, "CloudColor1", "fraIntensity", CloudColour<0>},
    {&FrmClouds::CloudColor2, "CloudColor2", "fraIntensity", CloudColour<1>},
    {&FrmClouds::CloudColor3, "CloudColor3", "fraIntensity", CloudColour<2>},
    {&FrmClouds::CloudColor4, "CloudColor4", "fraIntensity", CloudColour<3>},
    {&FrmClouds::CloudColor5, "CloudColor5", "fraIntensity", CloudColour<4>},
    {&FrmClouds::ChitColor, "ChitColor", "fraDetectionColors", Colour<&Settings::Cloudhit_Color>},
    {&FrmClouds::VVColor, "VVColor", "fraDetectionColors", Colour<&Settings::Vertical_V_Color>},
    {&FrmClouds::HSColor, "HSColor", "fraDetectionColors", Colour<&Settings::Highest_S_Color>},
};

struct PaletteRow {
    ColourBox colour;
    const char* name;
    int value;  // 00BBGGRR
};

constexpr PaletteRow Palette[] = {
    {&FrmClouds::Cwhite, "Cwhite", 0xFFFFFF},
    {&FrmClouds::Cyellow, "Cyellow", 0x00FFFF},
    {&FrmClouds::Cgreen, "Cgreen", 0x00FF00},
    {&FrmClouds::ClightCyan, "ClightCyan", 0xFFFF00},
    {&FrmClouds::Ccyan, "Ccyan", 0x808000},
    {&FrmClouds::Cblue, "Cblue", 0xFF0000},
    {&FrmClouds::Cdarkblue, "Cdarkblue", 0x800000},
    {&FrmClouds::Cviolet, "Cviolet", 0xFF00FF},
    {&FrmClouds::Cdarkviolet, "Cdarkviolet", 0x800080},
    {&FrmClouds::Cblack, "Cblack", 0x000000},
    {&FrmClouds::Clightgrey, "Clightgrey", 0xC0C0C0},
    {&FrmClouds::Cmidgrey, "Cmidgrey", 0xA0A0A0},
    {&FrmClouds::Cgray, "Cgray", 0x808080},
    {&FrmClouds::Cred, "Cred", 0x0000FF},
    {&FrmClouds::Cdarkred, "Cdarkred", 0x000080},
    {&FrmClouds::CDGreen, "CDGreen", 0x008000},
};

std::string LimitText(std::int32_t plotUnits) {
    char digits[32] = {};
    const auto end = std::to_chars(digits, digits + sizeof digits, plotUnits / PlotUnits,
                                   std::chars_format::fixed, 2);
    return {digits, end.ptr};
}

std::int16_t PlainInterval(const Settings& settings) {
    return ToInt16(static_cast<double>(settings.Message_Interval) / CompressFactor(settings));
}

// While the dialog is open the interval is that of the messages, without the factor.
void NoteInterval(Workstation& w) {
    FrmClouds& form = w.frmClouds;
    form.intervalBefore = w.settings.Message_Interval;
    form.plainInterval = PlainInterval(w.settings);
    w.settings.Message_Interval = form.plainInterval;
}

// An interval that was measured meanwhile has the factor already.
void PutIntervalBack(Workstation& w) {
    const FrmClouds& form = w.frmClouds;
    std::int16_t& interval = w.settings.Message_Interval;
    if (interval == form.plainInterval) interval = form.intervalBefore;
}

void frmClouds_Load(Workstation& w) {
    FrmClouds& form = w.frmClouds;
    Settings& settings = w.settings;
    NoteInterval(w);
    for (std::size_t i = 0; i < form.txtLimit.size(); ++i) {
        form.txtLimit[i].Text = LimitText(settings.Clouds_Limit[i]);
    }
    for (const BoxRow& row : BoxRows) (form.*row.box).BackColor = row.setting(settings);
    ChooseAt(w, form, form.PointSize, settings.Chit_Point_Size);
    ChooseAt(w, form, form.OptCompress, settings.Compress);
    ChooseAt(w, form, form.OptbothGraph, settings.Cloudmode == Both ? 0 : 1);
    ChooseAt(w, form, form.optShowGrid, settings.Cloud_Show_Grid == 1 ? 0 : 1);
    ShowHeights(w, form, form, CloudHeights(settings), LastScale);
}

// Everything that is typed, in the form of the settings.
struct Typed {
    std::array<std::int16_t, 5> limits;  // plot units
    HeightSettings heights;
};

std::string TextsThatAreNoNumbers(const FrmClouds& form) {
    std::string refusal = NumberRefusal({&form.txtYLow, &form.txtYHigh});
    for (const TextBox& box : form.txtLimit) {
        if (!IsNumeric(box.Text)) refusal += "Can not be converted to a number: " + box.Text + " ";
    }
    return refusal;
}

std::string LimitRefusal(const FrmClouds& form) {
    std::string refusal;
    std::optional<double> before;
    for (const TextBox& box : form.txtLimit) {
        const double limit = ToDouble(box.Text);
        if (std::abs(limit) > HighestLimit) {
            refusal += "The valid range of numbers for color limits is from -327 to 327. ";
        }
        if (before && *before + LeastStep > limit + Tolerance) {
            refusal += "The color limits are not in an ascending order. ";
        }
        before = limit;
    }
    return refusal;
}

std::string Refusal(const Workstation& w) {
    const FrmClouds& form = w.frmClouds;
    const std::string numbers = TextsThatAreNoNumbers(form);
    return numbers.empty() ? HeightRefusal(w, form) + LimitRefusal(form) : numbers;
}

Typed ReadTyped(const FrmClouds& form, const Settings& settings) {
    Typed typed{{}, ChosenHeights(form, CloudHeights(settings))};
    for (std::size_t i = 0; i < typed.limits.size(); ++i) {
        typed.limits[i] = ToInt16(ToDouble(form.txtLimit[i].Text) * PlotUnits);
    }
    return typed;
}

// Nothing when it is refused, which is told. Height limits that are not in force are not checked;
// one of them that no setting can hold is an error, told before anything is stored.
std::optional<Typed> TypedValues(Workstation& w) {
    std::optional<Typed> typed;
    ReportAndGoOn(w, [&] {
        const std::string refusal = Refusal(w);
        if (refusal.empty()) {
            typed = ReadTyped(w.frmClouds, w.settings);
        } else {
            w.platform.dialogs.MessageBox(refusal, BoxButtons::Ok);
        }
    });
    return typed;
}

// The mode as a change of model gives it back; not kept up for the RV10X, which has no other.
void SetMode(Workstation& w, std::int16_t mode) {
    w.settings.Cloudmode = mode;
    if (w.settings.CEILOMETER != Rv10x) w.graphs.PreviousCloudmode = mode;
}

void TakeMode(Workstation& w) {
    auto& buttons = w.frmMain.Toolbar1;
    if (w.frmClouds.OptbothGraph[0].Value) {
        SetMode(w, Both);
        buttons.CloudHit.Value = 1;
        buttons.CloudIntensity.Value = 1;
    } else if (w.settings.Cloudmode == Both) {
        SetMode(w, Intensity);
        buttons.CloudHit.Value = 0;
    }
}

// The grid is drawn with interval and compression: it goes before either changes, or other lines
// than its own would be drawn. Raises 6 for an interval beyond 16 bits; nothing has changed then.
void TakeCompression(Workstation& w) {
    Settings& settings = w.settings;
    PutIntervalBack(w);
    Settings chosen = settings;
    TakeChosen(w.frmClouds.OptCompress, chosen.Compress);
    const std::int16_t interval = Multiply16(PlainInterval(settings), CompressFactor(chosen));
    if (w.graphs.GridOnScreen != 0) ToggleCloudGrid(w, w.frmMain.picCombination);
    const bool changes = chosen.Compress != settings.Compress;
    settings.Compress = chosen.Compress;
    settings.Message_Interval = interval;
    if (changes) ClearGraph(w);
}

void StoreAll(Workstation& w, const Typed& typed) {
    const FrmClouds& form = w.frmClouds;
    Settings& settings = w.settings;
    StoreCloudHeights(settings, typed.heights);
    TakeMode(w);
    for (std::size_t i = 0; i < typed.limits.size(); ++i) {
        settings.Clouds_Limit[i] = typed.limits[i];
    }
    for (const BoxRow& row : BoxRows) row.setting(settings) = (form.*row.box).BackColor;
    TakeChosen(form.PointSize, settings.Chit_Point_Size);
    ReportAndGoOn(w, [&] { TakeCompression(w); });
    TakeChosen(form.optShowGrid, settings.Cloud_Show_Grid, 1, -1);
}

void cmdOk_Click(Workstation& w) {
    const std::optional<Typed> typed = TypedValues(w);
    if (!typed) return;
    StoreAll(w, *typed);
    ReportAndGoOn(w, [&] { ApplyCloudRange(w); });
    // In the split view both graphs share the height labels.
    if (w.frmMain.mnuSplitScreen.Checked) {
        StoreBackscatterHeights(w.settings, CloudHeights(w.settings));
        ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
    }
    UnloadForm(w, w.frmClouds);
    Form_Resize(w);
}

void Command2_Click(Workstation& w) {
    PutIntervalBack(w);
    UnloadForm(w, w.frmClouds);
}

// The close box is another Cancel.
bool frmClouds_QueryUnload(Workstation& w) {
    PutIntervalBack(w);
    return false;
}

// The mark in a box is also what says that it is chosen.
void ChooseBox(Workstation& w, ColourBox chosen) {
    for (const BoxRow& row : BoxRows) {
        (w.frmClouds.*row.box).Caption = row.box == chosen ? ChosenMark : "";
    }
}

// The same as a drop, for those who have no mouse to drag with.
void ColourChosenBox(Workstation& w, ColourBox colour) {
    FrmClouds& form = w.frmClouds;
    for (const BoxRow& row : BoxRows) {
        Label& box = form.*row.box;
        if (box.Caption == ChosenMark) box.BackColor = (form.*colour).BackColor;
    }
}

// What is dropped gives its colour, if it is one of the palette.
void DropColour(FrmClouds& form, ColourBox box, const Control& source) {
    for (const PaletteRow& row : Palette) {
        const Label& colour = form.*row.colour;
        if (&colour == &source) (form.*box).BackColor = colour.BackColor;
    }
}

void SetUpColours(FrmClouds& form) {
    for (const PaletteRow& row : Palette) {
        Label& colour = form.*row.colour;
        colour.BackColor = row.value;
        colour.Draggable = true;
        colour.Click = [row](Workstation& w) { ColourChosenBox(w, row.colour); };
    }
    for (const BoxRow& row : BoxRows) {
        Label& box = form.*row.box;
        box.Click = [row](Workstation& w) { ChooseBox(w, row.box); };
        box.DragDrop = [row](Workstation& w, const Control& source, double, double) {
            DropColour(w.frmClouds, row.box, source);
        };
    }
}

void NameColours(FrmClouds& form) {
    form.fraLimits.Caption = "&Limits for Colors (100*srad*km)^-1";
    form.fraIntensity.Caption = "Cloud Intensity Graph";
    form.fraDetectionColors.Caption = "Cloud Detection Graph";
    form.lblChitColor.Caption = "Cloud Base Det.";
    form.lblVVColor.Caption = "Vertical Visibility";
    form.lblHSColor.Caption = "Highest Signal";
    form.fraColours.Caption = "Colours";
    form.lblDragDrop.Caption = "Drag && Drop";
    form.lblHowToColour.Caption =
        "Drag a colour onto a box, or choose a box and then a colour (click or Space).";
    for (std::size_t i = 0; i < form.Limit.size(); ++i) {
        form.Limit[i].Caption = "Limit " + std::to_string(i + 1);
    }
}

void NameOptions(FrmClouds& form) {
    form.fraDetection.Caption = "Detection";
    form.lblPointSize.Caption = "Point Size";
    form.PointSize[0].Caption = "1";
    form.PointSize[1].Caption = "2";
    form.PointSize[2].Caption = "3";
    form.fraTimeScale.Caption = "&Time Scale";
    form.lblCompression.Caption = "Compression";
    form.OptCompress[0].Caption = "Off";
    form.OptCompress[1].Caption = "2:1";
    form.OptCompress[2].Caption = "3:1";
    form.fraBothGraph.Caption = "Show both Intensity && Detection in same Graph";
    form.OptbothGraph[0].Caption = "&Yes";
    form.OptbothGraph[1].Caption = "&No";
    form.fraShowGrid.Caption = "&Show Grid";
    form.optShowGrid[0].Caption = "&Yes";
    form.optShowGrid[1].Caption = "&No";
}

template <class Kind, std::size_t Size>
void AddArray(ControlList& list, const char* name, const char* parent,
              std::array<Kind, Size>& controls) {
    for (std::size_t i = 0; i < Size; ++i) {
        list.push_back({name, static_cast<int>(i), parent, &controls[i]});
    }
}

void ListColours(ControlList& list, FrmClouds& form) {
    list.push_back({"fraLimits", -1, "", &form.fraLimits});
    for (std::size_t i = 0; i < form.Limit.size(); ++i) {
        list.push_back({"Limit" + std::to_string(i), -1, "fraLimits", &form.Limit[i]});
    }
    AddArray(list, "txtLimit", "fraLimits", form.txtLimit);
    list.push_back({"fraIntensity", -1, "", &form.fraIntensity});
    list.push_back({"fraDetectionColors", -1, "", &form.fraDetectionColors});
    list.push_back({"lblChitColor", -1, "fraDetectionColors", &form.lblChitColor});
    list.push_back({"lblVVColor", -1, "fraDetectionColors", &form.lblVVColor});
    list.push_back({"lblHSColor", -1, "fraDetectionColors", &form.lblHSColor});
    for (const BoxRow& row : BoxRows) list.push_back({row.name, -1, row.parent, &(form.*row.box)});
    list.push_back({"fraColours", -1, "", &form.fraColours});
    list.push_back({"lblDragDrop", -1, "fraColours", &form.lblDragDrop});
    for (const PaletteRow& row : Palette) {
        list.push_back({row.name, -1, "fraColours", &(form.*row.colour)});
    }
    list.push_back({"lblHowToColour", -1, "", &form.lblHowToColour});
}

}  // namespace

FrmClouds::FrmClouds() {
    Name = "frmClouds";
    Caption = "Cloud Graph Settings";
    Width = 620 * TwipsPerPixel;
    Height = 450 * TwipsPerPixel;
    NameColours(*this);
    SetUpColours(*this);
    NameOptions(*this);
    fraYRange.Caption = "&Y-Axis Range";
    NameHeightControls(*this);
    cmdOk.Caption = "OK";
    Command2.Caption = "Cancel";
    for (OptionButton& option : optYUser) {
        option.Click = [](Workstation& w) { EnableHeights(w.frmClouds); };
    }
    cmdOk.Click = cmdOk_Click;
    Command2.Click = Command2_Click;
    Load = frmClouds_Load;
    QueryUnload = frmClouds_QueryUnload;
}

ControlList FrmClouds::Controls() {
    ControlList list;
    ListColours(list, *this);
    list.push_back({"fraDetection", -1, "", &fraDetection});
    list.push_back({"lblPointSize", -1, "fraDetection", &lblPointSize});
    AddArray(list, "PointSize", "fraDetection", PointSize);
    list.push_back({"fraTimeScale", -1, "", &fraTimeScale});
    list.push_back({"lblCompression", -1, "fraTimeScale", &lblCompression});
    AddArray(list, "OptCompress", "fraTimeScale", OptCompress);
    list.push_back({"fraBothGraph", -1, "", &fraBothGraph});
    AddArray(list, "OptbothGraph", "fraBothGraph", OptbothGraph);
    list.push_back({"fraShowGrid", -1, "", &fraShowGrid});
    AddArray(list, "optShowGrid", "fraShowGrid", optShowGrid);
    ListHeightControls(list, *this);
    list.push_back({"cmdOk", -1, "", &cmdOk});
    list.push_back({"Command2", -1, "", &Command2});
    return list;
}

void FrmClouds::Reset() { *this = FrmClouds(); }

void mnuCloudSettings_Click(Workstation& w) { ShowDialog(w, w.frmClouds); }

}  // namespace cumeron
