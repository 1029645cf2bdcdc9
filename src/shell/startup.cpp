#include "shell/startup.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "graphs/axes.h"
#include "graphs/profile_plot.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "intake/models.h"
#include "intake/port.h"
#include "logging/export.h"
#include "logging/recent_files.h"
#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/dispatch.h"
#include "shell/indicators.h"
#include "shell/sky_frame.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int MarksCleared = 10;  // marks of crashed copies that the first copy takes away

void Form_Initialize(Workstation& w) {
    const ScreenSize& screen = w.platform.screen;
    CreateHistory(w, std::max(screen.width, screen.desktopWidth));
    constexpr std::int32_t fixedRanges[] = {128, 255, 514, 751};
    std::ranges::copy(fixedRanges, w.graphs.RangeTable.begin() + 1);
    w.intake.ProfileScale = 1;
    w.logging.ReportLogErrors = 1;
}

void NumberThisCopy(Workstation& w) {
    RunningCopies& copies = w.platform.copies;
    if (copies.AnotherRuns()) {
        w.platform.events.DoEvents();
    } else {
        for (int number = 1; number <= MarksCleared; ++number) {
            if (copies.HasMark(number)) copies.DeleteMark(number);
        }
    }
    std::int16_t number = 1;
    while (copies.HasMark(number)) number = Add16(number, 1);
    copies.AddMark(number);
    w.shell.InstanceNumber = number;
}

// A number from 1 to 99 on the command line names the file, as the text stands.
void ChooseSettingsFile(Workstation& w) {
    std::string name = std::to_string(w.shell.InstanceNumber);
    const std::string commandLine = w.platform.process.CommandLine();
    if (IsNumeric(commandLine)) {
        const double number = std::floor(ToDouble(commandLine));
        if (number > 0 && number < 100) name = commandLine;
    }
    w.shell.SettingsFile = "CUMERON" + name + ".INI";
}

// A window without a stored place takes 75 % of the screen and stands in its middle.
void CentreWindow(Workstation& w) {
    FrmMain& form = w.frmMain;
    const double screenWidth = w.platform.screen.width * TwipsPerPixel;
    const double screenHeight = w.platform.screen.height * TwipsPerPixel;
    form.Width = screenWidth * 0.75;
    form.Height = screenHeight * 0.75;
    form.Left = (screenWidth - form.Width) / 2;
    form.Top = (screenHeight - form.Height) / 2;
}

// A stored state counts from here on: the window is laid out for its normal size first, so that one
// that starts minimised looks right when it is opened.
void PlaceWindow(Workstation& w) {
    FrmMain& form = w.frmMain;
    if (form.Top == 0 && form.Left == 0) CentreWindow(w);
    KeepNormalPlace(form);
    const int stored = std::exchange(form.WindowState, 0);
    Form_Resize(w);
    form.WindowState = stored;
}

// The window exists from here on, also when nobody looks at it.
void SetUpSkyWindow(Workstation& w) {
    PlaceSkyWindow(w);
    ShapeSkyFrame(w);
    LoadForm(w, w.frmSkyCond);
}

// A code that is no model reads no interval and loads no constants.
void ReadModel(Workstation& w, SettingsReading& reading) {
    ReadSettingsThrough(w, reading, "CEILOMETER");
    if (!IsModel(w.settings.CEILOMETER)) {
        ++reading.next;
        return;
    }
    ReadSettingsThrough(w, reading, "Message_Interval");
    LoadModel(w, LoadedBy::Start);
}

void ReadAllButStartOptions(Workstation& w, SettingsReading& reading) {
    ReadSettingsThrough(w, reading, "Height");
    PlaceWindow(w);
    ReadSettingsThrough(w, reading, "Main_Caption");
    MakeTitle(w);
    ReadSettingsThrough(w, reading, "Cloudmode");
    w.graphs.PreviousCloudmode = w.settings.Cloudmode;
    ReadSettingsThrough(w, reading, "Sky_Win_Width");
    SetUpSkyWindow(w);
    ReadModel(w, reading);
    w.settings.Message_Interval =
        Multiply16(w.settings.Message_Interval, CompressFactor(w.settings));
}

void SetUpGraphs(Workstation& w) {
    DimensionProfiles(w);
    ApplyCloudRange(w);
    ApplyBackscatterRange(w);
    w.graphs.GraphsReady = -1;
    w.graphs.MessageTime = w.platform.clock.Now();
    w.intake.MessageClockTime = TimeOf(w.graphs.MessageTime);
    UpdateAxes(w);
    UpdateBackscatterPlot(w);
    SetGraphCaptions(w);
    w.frmMain.Toolbar1.CloudIntensity.Value = 1;
    w.frmMain.Toolbar1.ClosePort.Value = 1;
    mnuPoints_Click(w);
}

void LoadMainWindow(Workstation& w) {
    w.intake.PreviousStatus = "00000";
    NumberThisCopy(w);
    ChooseSettingsFile(w);
    ReadRecentFiles(w);
    SettingsReading reading = OpenSettings(w);
    ReadAllButStartOptions(w, reading);
    SetUpGraphs(w);
    ReadSettingsThrough(w, reading, "Log_on");
    if (w.settings.Port_open != 0) mnuOpenPort_Click(w);
    if (w.settings.Log_on != 0) mnuLogOn_Click(w);
    // kept: this comes last, over the "NO MESSAGE" of a port that was just opened; the next tick or
    // message puts the panel right.
    SetErrorsPanel(w, "OFF-line", Red);
}

}  // namespace

void StartProgram(Workstation& w) {
    w.comCTLine().OnComm = [&w] { DispatchOnComm(w); };
    DispatchEvent(w, Form_Initialize);
    DispatchEvent(w, [](Workstation& station) { ShowForm(station, station.frmMain); });
}

void MakeTitle(Workstation& w) {
    const std::string& caption = w.settings.Main_Caption;
    w.shell.MainTitle =
        "CUMERON - " +
        (caption.empty() ? "Port " + std::to_string(w.comCTLine().CommPort()) : caption);
    w.frmMain.Caption = w.shell.MainTitle;
}

void Form_Load(Workstation& w) {
    try {
        LoadMainWindow(w);
    } catch (const RuntimeError& error) {
        w.shell.startFailed = true;
        ReportError(w, error);
    }
}

// kept: the menu leaves without the question that the close box asks.
void mnuExit_Click(Workstation& w) { Form_Unload(w); }

bool Form_QueryUnload(Workstation& w) {
    const Answer answer =
        w.platform.dialogs.MessageBox("Are you sure you want to Exit?", BoxButtons::YesNo);
    return answer != Answer::Yes;
}

void Form_Unload(Workstation& w) {
    ReportAndGoOn(w, [&] {
        if (w.comCTLine().PortOpen()) w.comCTLine().SetPortOpen(false);
    });
    ReportAndGoOn(w, [&] { w.platform.copies.DeleteMark(w.shell.InstanceNumber); });
    if (w.frmMain.mnuSaveSettings.Checked) {
        // The normal size and place are what is saved.
        ReportAndGoOn(w, [&] { ChangeWindowState(w, w.frmMain, 0); });
        mnuSaveSettingsNow_Click(w);
    }
    ReportAndGoOn(w, [&] {
        if (w.frmMain.mnuLogOn.Checked) WriteClosedLine(w);
    });
    CloseExportFile(w);
    ReportAndGoOn(w, [&] { UnloadForm(w, w.frmDebug); });
    // Its log gets its closing line, also when the session of the desktop ends.
    ReportAndGoOn(w, [&] { UnloadForm(w, w.frmTerminal); });
    throw ProcessEnd{0};
}

}  // namespace cumeron
