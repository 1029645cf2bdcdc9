// The main window frmMain: its record of controls, the views, and the layout arithmetic.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/form.h"
#include "platform/surface.h"

namespace cumeron {

struct FrmMain : Form {
    // Menus
    MenuEntry mnuMode, mnuOpenPort, mnuClosePort, mnuPortSettings, mnuFileOpen, mnuExcel,
        mnuPrintGraph, mnuAutoPrint, mnuPrintScreen, mnuPrintSetup, mnuCeiloType,
        mnuSaveSettingsNow, mnuSaveSettings, mnuRestore, mnuStartup, mnuExit;
    MenuEntry mnuSaveGraph;
    static constexpr std::size_t RecentFiles = 6;
    std::array<MenuEntry, RecentFiles> mnuRecent;  // off-line files; ToolTipText: the full name
    MenuEntry mnuEdit, mnuCopyPicture;
    MenuEntry mnuLog, mnuLogOn, mnuLogOff, mnuLogSettings;
    MenuEntry mnuShow, mnuLinePlot, mnuPoints, mnuCloudhit, mnuSplitScreen, mnuSkyCond,
        mnuBackscatterSettings, mnuCloudSettings, mnuSkyCondSettings, mnuShowMessage, mnuShowStatus;
    MenuEntry mnuTerminal, mnuOpenTerminal;
    MenuEntry mnuHelp, mnuContents, mnuIndex, mnuAbout;
    // Toolbar1, by key
    struct ToolBar {
        ToolButton CloudHit, CloudIntensity, BackScat, Split, Status, Message, SkyCond, OpenPort,
            ClosePort, OpenFile, Log, Grid, Start, Back, Forward, Play, Stop, CloseFile;
    } Toolbar1;
    double toolbarHeight = 0;  // pixels; the bar lies along the top of the client area
    // sbaStatus, by key
    struct StatusBar {
        Panel Log, Errors, Errors_Image, Errors_Image_Void, Status, Status_Image, Status_Image_Void,
            Action, Battery, Battery_Image, Battery_Image_Void;
        double Height = 0;  // pixels; the bar lies along the foot of the client area
    } sbaStatus;
    // Title
    Label lblCT, lblDateTime;
    // Values
    Frame fraValues;
    std::array<Label, 3> CloudValue, lblCloudtext;
    // Sky condition: amount and height of each layer, symbols, and the pictures that they show
    Frame fraSkyCond;
    std::array<Label, 10> lblSkyCond;
    std::array<Image, 4> imgSky;
    std::array<Image, 10> imgSkyCond;
    // Graphs
    Surface picCombination, picLines, picXLabels, picYLabels, picXLabelsBack, picYLabelsBack,
        picSplitSizer;
    Label lblXaxis, lblXaxisBack;
    Image imgYaxisFt, imgYaxisM, imgYaxisdisFT, imgYaxisdisM;
    Surface picPrintAltitude, picPrintXlabel;
    // The page: where it is composed, the corner between the labels, and the titles of its axes,
    // which lie on picPrintXlabel and picPrintAltitude.
    Surface picPrinting, picCorner;
    Label lblPrintXlabel;
    Image imgYaxisaltftBW, imgYaxisaltMbw, imgYaxisdisFTBW, imgYaxisdisMbw;
    // Timers
    Timer tmrClock, ResizeTimer;

    std::int16_t LastWindowState = 0;  // window state at the last layout

    FrmMain();
    ControlList Controls() override;
    void Reset() override;
};

void Form_Resize(Workstation& w);
void ArrangeSplitView(Workstation& w);
// The sizer was dropped on a surface, at x in its scale: divides the split view there.
void picCombination_DragDrop(Workstation& w, const Control& source, double x, double y);
void picLines_DragDrop(Workstation& w, const Control& source, double x, double y);
void ResizeTimer_Tick(Workstation& w);
void mnuPoints_Click(Workstation& w);
void mnuLinePlot_Click(Workstation& w);
void mnuSplitScreen_Click(Workstation& w);
// Also the handler of mnuCloudhit; classification calls it for messages without a profile.
void ShowCloudHitView(Workstation& w);
// The grid of what is on view; in the split view of both.
void ToggleGrid(Workstation& w);

}  // namespace cumeron
