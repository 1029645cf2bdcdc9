// The design of frmMain: one table each for menu entries, toolbar buttons, panels and what stands
// in the client area. Controls() and Reset() walk over them.
#include "graphs/backscatter_settings.h"
#include "graphs/cloud_settings.h"
#include "intake/intake.h"
#include "intake/port.h"
#include "logging/export.h"
#include "logging/graph_file.h"
#include "logging/log_settings.h"
#include "logging/playback.h"
#include "logging/printing.h"
#include "logging/recent_files.h"
#include "logging/rotation.h"
#include "shell/indicators.h"
#include "shell/main_window.h"
#include "shell/print_controls.h"
#include "shell/sky_frame.h"
#include "terminal/terminal.h"
#include "workstation.h"

namespace cumeron {

namespace {

using Procedure = void (*)(Workstation&);

constexpr const char* HelpFile = "CUMERON.HLP";
constexpr int HelpContents = 3, HelpTopic = 1;  // commands
constexpr int IndexTopic = 50;

// Starts the measurement of the message interval anew; known to those who were told.
void lblXaxis_Click(Workstation& w) { w.intake.IntervalSeekState = 0; }

void ShowHelp(Workstation& w, const std::string& file, int command, int topic) {
    ReportAndGoOn(w, [&] { w.platform.process.Help(file, command, topic); });
}

// kept: the contents are asked for by the full name of the file, the index by the bare one, so that
// an index of the same name in the search path of the help is found too.
void mnuContents_Click(Workstation& w) {
    const Platform& platform = w.platform;
    const char* separator = platform.files.Style() == PathStyle::Windows ? "\\" : "/";
    ShowHelp(w, platform.process.ApplicationFolder() + separator + HelpFile, HelpContents, 0);
}

void mnuIndex_Click(Workstation& w) { ShowHelp(w, HelpFile, HelpTopic, IndexTopic); }

// click is null for a menu of its own.
struct MenuRow {
    MenuEntry FrmMain::*entry;
    const char* name;
    const char* parent;
    const char* caption;
    Procedure click;
    bool separatorBefore = false;
};

constexpr bool Separator = true;

constexpr MenuRow MenuRows[] = {
    {&FrmMain::mnuMode, "mnuMode", "", "&File", nullptr},
    {&FrmMain::mnuOpenPort, "mnuOpenPort", "mnuMode", "&Open Port", mnuOpenPort_Click},
    {&FrmMain::mnuClosePort, "mnuClosePort", "mnuMode", "&Close Port", mnuClosePort_Click},
    {&FrmMain::mnuPortSettings, "mnuPortSettings", "mnuMode", "Port S&ettings...",
     mnuPortSettings_Click},
    {&FrmMain::mnuFileOpen, "mnuFileOpen", "mnuMode", "O&ff-Line File Open...", OpenOffline,
     Separator},
    {&FrmMain::mnuExcel, "mnuExcel", "mnuMode", "E&xcel Data Conversion", mnuExcel_Click},
    {&FrmMain::mnuPrintGraph, "mnuPrintGraph", "mnuMode", "&Print Graph", mnuPrintGraph_Click,
     Separator},
    {&FrmMain::mnuAutoPrint, "mnuAutoPrint", "mnuMode", "&Automatic Print Graph",
     mnuAutoPrint_Click},
    {&FrmMain::mnuPrintScreen, "mnuPrintScreen", "mnuMode", "Print &Screen", mnuPrintScreen_Click},
    {&FrmMain::mnuPrintSetup, "mnuPrintSetup", "mnuMode", "Print S&etup...", mnuPrintSetup_Click},
    {&FrmMain::mnuSaveGraph, "mnuSaveGraph", "mnuMode", "Save &Graph As...", mnuSaveGraph_Click},
    {&FrmMain::mnuCeiloType, "mnuCeiloType", "mnuMode", "Ceilo &Type...", mnuCeiloType_Click,
     Separator},
    {&FrmMain::mnuSaveSettingsNow, "mnuSaveSettingsNow", "mnuMode", "Save Settings &Now",
     mnuSaveSettingsNow_Click, Separator},
    {&FrmMain::mnuSaveSettings, "mnuSaveSettings", "mnuMode", "&Save Settings on Exit",
     mnuSaveSettings_Click},
    {&FrmMain::mnuRestore, "mnuRestore", "mnuMode", "&Restore Defaults", mnuRestore_Click},
    {&FrmMain::mnuStartup, "mnuStartup", "mnuMode", "Start &Up Options...", mnuStartup_Click},
    {&FrmMain::mnuExit, "mnuExit", "mnuMode", "&Exit", mnuExit_Click, Separator},

    {&FrmMain::mnuEdit, "mnuEdit", "", "&Edit", nullptr},
    {&FrmMain::mnuCopyPicture, "mnuCopyPicture", "mnuEdit", "&Copy Graph", mnuCopyPicture_Click},

    {&FrmMain::mnuLog, "mnuLog", "", "&Log", nullptr},
    {&FrmMain::mnuLogOn, "mnuLogOn", "mnuLog", "&On", mnuLogOn_Click},
    {&FrmMain::mnuLogOff, "mnuLogOff", "mnuLog", "O&ff", mnuLogOff_Click},
    {&FrmMain::mnuLogSettings, "mnuLogSettings", "mnuLog", "&Settings...", mnuLogSettings_Click,
     Separator},

    {&FrmMain::mnuShow, "mnuShow", "", "&View", nullptr},
    {&FrmMain::mnuLinePlot, "mnuLinePlot", "mnuShow", "Backscatter &Profile", mnuLinePlot_Click},
    {&FrmMain::mnuPoints, "mnuPoints", "mnuShow", "Cloud &Intensity Graph", mnuPoints_Click},
    {&FrmMain::mnuCloudhit, "mnuCloudhit", "mnuShow", "Cloud &Detection Graph", ShowCloudHitView},
    {&FrmMain::mnuSplitScreen, "mnuSplitScreen", "mnuShow", "Cloud Graph &and Backscatter",
     mnuSplitScreen_Click},
    {&FrmMain::mnuSkyCond, "mnuSkyCond", "mnuShow", "Sky Condition &Window", mnuSkyCond_Click},
    {&FrmMain::mnuBackscatterSettings, "mnuBackscatterSettings", "mnuShow",
     "&Backscatter Profile Settings...", mnuBackscatterSettings_Click, Separator},
    {&FrmMain::mnuCloudSettings, "mnuCloudSettings", "mnuShow", "&Cloud Graph Settings...",
     mnuCloudSettings_Click},
    {&FrmMain::mnuSkyCondSettings, "mnuSkyCondSettings", "mnuShow", "S&ky Condition Settings...",
     mnuSkyCondSettings_Click},
    {&FrmMain::mnuShowMessage, "mnuShowMessage", "mnuShow", "&Message", mnuShowMessage_Click,
     Separator},
    {&FrmMain::mnuShowStatus, "mnuShowStatus", "mnuShow", "&Status", mnuShowStatus_Click},

    {&FrmMain::mnuTerminal, "mnuTerminal", "", "&Terminal", nullptr},
    {&FrmMain::mnuOpenTerminal, "mnuOpenTerminal", "mnuTerminal", "&Open...",
     mnuOpenTerminal_Click},

    {&FrmMain::mnuHelp, "mnuHelp", "", "&Help", nullptr},
    {&FrmMain::mnuContents, "mnuContents", "mnuHelp", "&Contents", mnuContents_Click},
    {&FrmMain::mnuIndex, "mnuIndex", "mnuHelp", "&Index", mnuIndex_Click},
    {&FrmMain::mnuAbout, "mnuAbout", "mnuHelp", "&About", mnuAbout_Click, Separator},
};

using Bar = FrmMain::ToolBar;

struct ButtonRow {
    ToolButton Bar::*button;
    const char* key;
    const char* tip;
    Procedure click;
    bool checkStyle = false;
    bool enabled = true;
    bool separatorBefore = false;
};

constexpr bool Check = true, Push = false, Enabled = true, Disabled = false;

constexpr ButtonRow ButtonRows[] = {
    {&Bar::CloudHit, "CloudHit", "Cloud Detection Graph", ShowCloudHitView, Check},
    {&Bar::CloudIntensity, "CloudIntensity", "Cloud Intensity Graph", mnuPoints_Click, Check},
    {&Bar::BackScat, "BackScat", "BackScatter Graph", mnuLinePlot_Click, Check},
    {&Bar::Split, "Split", "Cloud Graph and BackScatter", mnuSplitScreen_Click, Check},
    {&Bar::Status, "Status", "Status of Ceilometer", mnuShowStatus_Click, Push, Enabled, Separator},
    {&Bar::Message, "Message", "Measurement Message", mnuShowMessage_Click},
    {&Bar::SkyCond, "SkyCond", "Sky Condition Window", mnuSkyCond_Click},
    {&Bar::OpenPort, "OpenPort", "Open Communication Port", mnuOpenPort_Click, Check, Enabled,
     Separator},
    {&Bar::ClosePort, "ClosePort", "Close Communication Port", mnuClosePort_Click, Check},
    {&Bar::OpenFile, "OpenFile", "Off-line File Open", OpenOffline, Push, Enabled, Separator},
    {&Bar::Log, "Log", "Log On / Off", ToolbarLog_Click, Check},
    {&Bar::Grid, "Grid", "Grid On / Off", ToggleGrid},
    {&Bar::Start, "Start", "Goto Start of File", GotoFileStart, Push, Disabled, Separator},
    {&Bar::Back, "Back", "One Step Backward", StepBack, Push, Disabled},
    {&Bar::Forward, "Forward", "One Step Forward", StepForward, Push, Disabled},
    {&Bar::Play, "Play", "Play Message", PlayFile, Push, Disabled},
    {&Bar::Stop, "Stop", "Stop Message Play", ToolbarStop_Click, Push, Disabled},
    {&Bar::CloseFile, "CloseFile", "Close Off-line FIle", ToolbarCloseFile_Click, Push, Disabled},
};

using Foot = FrmMain::StatusBar;

struct PanelRow {
    Panel Foot::*panel;
    const char* key;
    const char* text;  // also the tool tip
    const char* picture;
    double width;  // pixels
    bool visible = true;
};

// A picture and its empty twin of the same width take turns, so that the bar keeps its width.
constexpr PanelRow PanelRows[] = {
    {&Foot::Log, "Log", "LOG OFF", "", 76},
    {&Foot::Errors, "Errors", "OFF-Line", "", 170},
    {&Foot::Errors_Image, "Errors_Image", "", "error", 24, false},
    {&Foot::Errors_Image_Void, "Errors_Image_Void", "", "", 24},
    {&Foot::Status, "Status", "", "", 150},
    {&Foot::Status_Image, "Status_Image", "", "alarm", 24, false},
    {&Foot::Status_Image_Void, "Status_Image_Void", "", "", 24},
    {&Foot::Action, "Action", "", "", 140},
    {&Foot::Battery, "Battery", "", "", 160},
    {&Foot::Battery_Image, "Battery_Image", "", "battery", 24, false},
    {&Foot::Battery_Image_Void, "Battery_Image_Void", "", "", 24},
};

// Left, Top, Width, Height in pixels; 0 where the layout gives the place.
struct Box {
    double left, top, width, height;
};

constexpr int PaperWhite = 0xFFFFFF, WindowGrey = 0xF0F0F0, SizerGrey = 0x808080;

struct SurfaceRow {
    Surface FrmMain::*surface;
    const char* name;
    Box box;
    int backColor;
    bool visible;
};

constexpr SurfaceRow SurfaceRows[] = {
    {&FrmMain::picCombination, "picCombination", {0, 95, 10, 5}, PaperWhite, true},
    {&FrmMain::picLines, "picLines", {0, 95, 10, 5}, PaperWhite, false},
    {&FrmMain::picXLabels, "picXLabels", {0, 0, 8, 34}, WindowGrey, true},
    {&FrmMain::picYLabels, "picYLabels", {0, 96, 44, 3}, WindowGrey, true},
    {&FrmMain::picXLabelsBack, "picXLabelsBack", {0, 0, 8, 34}, WindowGrey, false},
    {&FrmMain::picYLabelsBack, "picYLabelsBack", {0, 96, 44, 3}, WindowGrey, false},
    {&FrmMain::picSplitSizer, "picSplitSizer", {0, 95, 5, 5}, SizerGrey, false},
};

struct ImageRow {
    Image FrmMain::*image;
    const char* name;
    bool visible;
};

constexpr Box AxisTitle = {0, 0, 24, 160};

constexpr ImageRow ImageRows[] = {
    {&FrmMain::imgYaxisFt, "imgYaxisFt", true},
    {&FrmMain::imgYaxisM, "imgYaxisM", false},
    {&FrmMain::imgYaxisdisFT, "imgYaxisdisFT", false},
    {&FrmMain::imgYaxisdisM, "imgYaxisdisM", false},
};

struct LabelRow {
    Label FrmMain::*label;
    const char* name;
    const char* caption;
    Box box;
    int fontSize;  // points
    bool bold;
    TextAlignment alignment;
    bool visible;
    Procedure click;
};

constexpr LabelRow LabelRows[] = {
    {&FrmMain::lblCT, "lblCT", "", {24, 54, 200, 32}, 14, true, TextAlignment::Left, true, nullptr},
    {&FrmMain::lblDateTime,
     "lblDateTime",
     "",
     {490, 50, 300, 40},
     20,
     true,
     TextAlignment::Right,
     true,
     lblDateTime_Click},
    {&FrmMain::lblXaxis,
     "lblXaxis",
     "TIME (h)",
     {0, 0, 240, 20},
     9,
     false,
     TextAlignment::Center,
     true,
     lblXaxis_Click},
    {&FrmMain::lblXaxisBack,
     "lblXaxisBack",
     "BackScatter",
     {0, 0, 120, 20},
     9,
     false,
     TextAlignment::Left,
     false,
     nullptr},
};

// The frame of the values: three rows of a text with the height below it.
constexpr Box ValuesFrame = {0, 95, 200, 244};
constexpr double FirstRow = 24, RowHeight = 72, TextHeight = 22, ValueHeight = 44;
constexpr const char* RowTexts[] = {"Cloud Height 1", "Cloud Height 2", "Cloud Height 3"};

void Place(Control& control, const Box& box) {
    control.Left = box.left;
    control.Top = box.top;
    control.Width = box.width;
    control.Height = box.height;
}

void ResetMenus(FrmMain& form) {
    for (const MenuRow& row : MenuRows) {
        MenuEntry& entry = form.*row.entry = MenuEntry();
        entry.Caption = row.caption;
        entry.SeparatorBefore = row.separatorBefore;
        entry.Click = row.click;
    }
    for (std::size_t i = 0; i < form.mnuRecent.size(); ++i) {
        MenuEntry& entry = form.mnuRecent[i] = MenuEntry();
        entry.Caption = "&" + std::to_string(i + 1);
        entry.Visible = false;
        entry.SeparatorBefore = i == 0;
        entry.Click = [i](Workstation& w) { OpenRecentFile(w, i); };
    }
    for (MenuEntry* checked :
         {&form.mnuClosePort, &form.mnuLogOff, &form.mnuSaveSettings, &form.mnuCloudhit}) {
        checked->Checked = true;
    }
}

void ResetBars(FrmMain& form) {
    form.toolbarHeight = 44;
    for (const ButtonRow& row : ButtonRows) {
        ToolButton& button = form.Toolbar1.*row.button = ToolButton();
        button.Picture = row.key;
        button.ToolTipText = row.tip;
        button.CheckStyle = row.checkStyle;
        button.Enabled = row.enabled;
        button.SeparatorBefore = row.separatorBefore;
        button.Click = row.click;
    }
    form.sbaStatus.Height = 28;
    for (const PanelRow& row : PanelRows) {
        Panel& panel = form.sbaStatus.*row.panel = Panel();
        panel.Text = row.text;
        panel.ToolTipText = row.text;
        panel.Picture = row.picture;
        panel.Width = row.width;
        panel.Visible = row.visible;
    }
}

void ResetGraphs(FrmMain& form) {
    for (const SurfaceRow& row : SurfaceRows) {
        Surface& surface = form.*row.surface;
        TextPainter* const painter = surface.painter;  // the platform's, not of the design
        surface = Surface();
        surface.painter = painter;
        Place(surface, row.box);
        surface.BackColor = row.backColor;
        surface.Visible = row.visible;
    }
    form.picSplitSizer.Enabled = false;
    form.picSplitSizer.Draggable = true;
    form.picCombination.DragDrop = picCombination_DragDrop;
    form.picLines.DragDrop = picLines_DragDrop;
    for (const ImageRow& row : ImageRows) {
        Image& image = form.*row.image = Image();
        Place(image, AxisTitle);
        image.Picture = row.name;
        image.Visible = row.visible;
    }
    for (const LabelRow& row : LabelRows) {
        Label& label = form.*row.label = Label();
        Place(label, row.box);
        label.Caption = row.caption;
        label.FontSize = row.fontSize;
        label.Bold = row.bold;
        label.Alignment = row.alignment;
        label.Visible = row.visible;
        label.Click = row.click;
    }
}

void ResetValues(FrmMain& form) {
    form.fraValues = Frame();
    form.fraValues.Caption = "Instant Values";
    Place(form.fraValues, ValuesFrame);
    ResetSkyFrame(form);
    for (std::size_t i = 0; i < form.CloudValue.size(); ++i) {
        const double top = FirstRow + RowHeight * static_cast<double>(i);
        Label& text = form.lblCloudtext[i] = Label();
        text.Caption = RowTexts[i];
        text.FontSize = 10;
        text.Click = lblCloudtext_Click;
        Place(text, {12, top, ValuesFrame.width - 24, TextHeight});
        Label& value = form.CloudValue[i] = Label();
        value.FontSize = 24;
        value.Bold = true;
        value.Alignment = TextAlignment::Right;
        value.Click = CloudValue_Click;
        Place(value, {12, top + TextHeight, ValuesFrame.width - 24, ValueHeight});
    }
}

void ResetTimers(FrmMain& form) {
    form.tmrClock.Interval = 1000;
    form.tmrClock.KeepsGrid = true;
    form.tmrClock.Tick = tmrClock_Tick;
    form.tmrClock.SetEnabled(true);
    form.ResizeTimer.Interval = 100;
    form.ResizeTimer.Tick = ResizeTimer_Tick;
    form.ResizeTimer.SetEnabled(false);
}

}  // namespace

FrmMain::FrmMain() { FrmMain::Reset(); }

void FrmMain::Reset() {
    Name = "frmMain";
    Caption = "CUMERON";
    Icon = "cumeron";
    Left = Top = 0;
    Width = 640 * TwipsPerPixel;
    Height = 480 * TwipsPerPixel;
    WindowState = 0;
    KeepNormalPlace(*this);
    MousePointer = 0;
    Enabled = true;
    Visible = Loaded = TopMost = false;
    Load = Form_Load;
    Resize = Form_Resize;
    QueryUnload = Form_QueryUnload;
    Unload = Form_Unload;
    DropFiles = OpenDropped;
    LastWindowState = 0;
    ResetMenus(*this);
    ResetBars(*this);
    ResetGraphs(*this);
    ResetPrintControls(*this);
    ResetValues(*this);
    ResetTimers(*this);
}

ControlList FrmMain::Controls() {
    ControlList list;
    for (const MenuRow& row : MenuRows) {
        list.push_back({row.name, -1, row.parent, &(this->*row.entry)});
        if (row.entry != &FrmMain::mnuStartup) continue;
        for (std::size_t i = 0; i < mnuRecent.size(); ++i) {
            list.push_back({"mnuRecent", static_cast<int>(i), row.parent, &mnuRecent[i]});
        }
    }
    for (const ButtonRow& row : ButtonRows) {
        list.push_back({row.key, -1, "Toolbar1", &(Toolbar1.*row.button)});
    }
    for (const PanelRow& row : PanelRows) {
        list.push_back({row.key, -1, "sbaStatus", &(sbaStatus.*row.panel)});
    }
    for (const LabelRow& row : LabelRows) list.push_back({row.name, -1, "", &(this->*row.label)});
    for (const ImageRow& row : ImageRows) list.push_back({row.name, -1, "", &(this->*row.image)});
    for (const SurfaceRow& row : SurfaceRows) {
        list.push_back({row.name, -1, "", &(this->*row.surface)});
    }
    AddPrintControls(*this, list);
    list.push_back({"fraValues", -1, "", &fraValues});
    ListSkyFrame(list, *this);
    for (std::size_t i = 0; i < CloudValue.size(); ++i) {
        const int index = static_cast<int>(i);
        list.push_back({"lblCloudtext", index, "fraValues", &lblCloudtext[i]});
        list.push_back({"CloudValue", index, "fraValues", &CloudValue[i]});
    }
    list.push_back({"tmrClock", -1, "", &tmrClock});
    list.push_back({"ResizeTimer", -1, "", &ResizeTimer});
    return list;
}

}  // namespace cumeron
