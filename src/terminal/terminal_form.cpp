// The design of frmTerminal, and what its menus, buttons and timers do.
#include "intake/port.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "shell/dialogs.h"
#include "terminal/terminal.h"
#include "terminal/terminal_keys.h"
#include "workstation.h"

namespace cumeron {
namespace {

using Procedure = void (*)(Workstation&);

constexpr double DesignWidth = 720, DesignHeight = 520;  // pixels

// ---- The window ----

void frmTerminal_Load(Workstation& w) { FollowPort(w); }

void frmTerminal_Resize(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    const double top = form.tbrToolBar.Visible ? form.tbrToolBar.Height : 0;
    const double foot = form.sbrStatus.Visible ? form.sbrStatus.Height : 0;
    form.txtTerm.Left = 0;
    form.txtTerm.Top = top;
    form.txtTerm.Width = form.ScaleWidth();
    form.txtTerm.Height = form.ScaleHeight() - top - foot;
}

void frmTerminal_Unload(Workstation& w) {
    if (w.frmTerminal.log.number != 0) mnuCloseLog_Click(w);
}

void mnuFileExit_Click(Workstation& w) { UnloadForm(w, w.frmTerminal); }

// ---- The port ----

void mnuTerminalOpenPort_Click(Workstation& w) {
    if (!w.comCTLine().PortOpen()) {
        try {
            OpenPort(w, PortNews::Silent);
        } catch (const RuntimeError& error) {
            w.platform.dialogs.MessageBox(error.what(), BoxButtons::Ok, BoxSign::Exclamation);
        }
    }
    // Dialling takes its time, in which the terminal may be closed.
    ShowPortState(w);
    if (w.frmTerminal.Loaded) FollowPort(w);
}

void mnuTerminalClosePort_Click(Workstation& w) {
    if (w.comCTLine().PortOpen()) ClosePort(w, PortNews::Silent);
    ShowPortState(w);
    FollowPort(w);
}

// The dialog may have lost the line on the way to another port.
void mnuTerminalPortSettings_Click(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    ShowDialog(w, w.ConfigScrn);
    if (w.comCTLine().PortOpen() != form.mnuOpenPort.Checked) {
        ShowPortState(w);
        FollowPort(w);
    }
    form.sbrStatus.Settings.Text = "Settings: " + w.comCTLine().Settings();
}

// ---- Timers ----

void Timer1_Tick(Workstation& w) {
    FrmTerminal& form = w.frmTerminal;
    form.sbrStatus.ConnectTime.Text =
        Format(w.platform.clock.Now() - form.StartTime, "hh:nn:ss") + " ";
}

void Timer2_Tick(Workstation& w) {
    w.frmTerminal.sbrStatus.Status.Text = "Status: ";
    w.frmTerminal.Timer2.SetEnabled(false);
}

// ---- The design ----

struct MenuRow {
    MenuEntry FrmTerminal::*entry;
    const char* name;
    const char* parent;
    const char* caption;
    Procedure click;
    bool separatorBefore = false;
};

constexpr MenuRow MenuRows[] = {
    {&FrmTerminal::mnuFile, "mnuFile", "", "&File", nullptr},
    {&FrmTerminal::mnuOpenLog, "mnuOpenLog", "mnuFile", "&Open Log File...", mnuOpenLog_Click},
    {&FrmTerminal::mnuCloseLog, "mnuCloseLog", "mnuFile", "&Close Log File", mnuCloseLog_Click},
    {&FrmTerminal::mnuFileExit, "mnuFileExit", "mnuFile", "&Close Terminal", mnuFileExit_Click,
     true},
    {&FrmTerminal::mnuPort, "mnuPort", "", "&ComPort", nullptr},
    {&FrmTerminal::mnuOpenPort, "mnuOpenPort", "mnuPort", "&Open Port", mnuTerminalOpenPort_Click},
    {&FrmTerminal::mnuClosePort, "mnuClosePort", "mnuPort", "&Close Port",
     mnuTerminalClosePort_Click},
    {&FrmTerminal::mnuPortSettings, "mnuPortSettings", "mnuPort", "Port Settings...",
     mnuTerminalPortSettings_Click, true},
};

using Bar = FrmTerminal::ToolBar;

struct ButtonRow {
    ToolButton Bar::*button;
    const char* key;
    const char* tip;
    const char* picture;
    Procedure click;
};

constexpr ButtonRow ButtonRows[] = {
    {&Bar::Openport, "Openport", "Open Port", "OpenPort", mnuTerminalOpenPort_Click},
    {&Bar::Closeport, "Closeport", "Close Port", "ClosePort", mnuTerminalClosePort_Click},
    {&Bar::Log, "Log", "Log On / Off", "Log", tbrToolBarLog_Click},
};

using Foot = FrmTerminal::StatusBar;

struct PanelRow {
    Panel Foot::*panel;
    const char* key;
    const char* text;
    const char* tip;
    double width;  // pixels
    bool visible = true;
};

constexpr PanelRow PanelRows[] = {
    {&Foot::Status, "Status", "Status: ", "Communications Port Status", 240},
    {&Foot::Paste, "Paste", "", "Characters of a paste that are still to be sent", 160, false},
    {&Foot::Settings, "Settings", "Settings: ", "Communications Port Settings", 200},
    {&Foot::ConnectTime, "ConnectTime", "", "Connect Time", 90},
};

void DesignMenus(FrmTerminal& form) {
    for (const MenuRow& row : MenuRows) {
        MenuEntry& entry = form.*row.entry;
        entry.Caption = row.caption;
        entry.SeparatorBefore = row.separatorBefore;
        if (row.click != nullptr) entry.Click = row.click;
    }
    form.mnuCloseLog.Enabled = false;
}

void DesignBars(FrmTerminal& form) {
    for (const ButtonRow& row : ButtonRows) {
        ToolButton& button = form.tbrToolBar.*row.button;
        button.Picture = row.picture;
        button.ToolTipText = row.tip;
        button.CheckStyle = true;
        button.Click = row.click;
    }
    form.tbrToolBar.Log.SeparatorBefore = true;
    for (const PanelRow& row : PanelRows) {
        Panel& panel = form.sbrStatus.*row.panel;
        panel.Text = row.text;
        panel.ToolTipText = row.tip;
        panel.Width = row.width;
        panel.Visible = row.visible;
    }
}

}  // namespace

FrmTerminal::FrmTerminal() {
    Name = "frmTerminal";
    Caption = "CUMERON Terminal";
    Width = DesignWidth * TwipsPerPixel;
    Height = DesignHeight * TwipsPerPixel;
    KeepNormalPlace(*this);
    DesignMenus(*this);
    DesignBars(*this);
    txtTerm.MultiLine = true;
    txtTerm.FontName = "Courier";
    txtTerm.KeyPress = txtTerm_KeyPress;
    txtTerm.Paste = txtTerm_Paste;
    Timer1.Interval = 1000;
    Timer1.Tick = Timer1_Tick;
    Timer2.Interval = 2000;
    Timer2.Tick = Timer2_Tick;
    tmrPaste.Tick = tmrPaste_Tick;

    Load = frmTerminal_Load;
    Resize = frmTerminal_Resize;
    Unload = frmTerminal_Unload;
}

// The text comes first, so that it has the keys when the window opens.
ControlList FrmTerminal::Controls() {
    ControlList list = {{"txtTerm", -1, "", &txtTerm}};
    for (const MenuRow& row : MenuRows) {
        list.push_back({row.name, -1, row.parent, &(this->*row.entry)});
    }
    for (const ButtonRow& row : ButtonRows) {
        list.push_back({row.key, -1, "tbrToolBar", &(tbrToolBar.*row.button)});
    }
    for (const PanelRow& row : PanelRows) {
        list.push_back({row.key, -1, "sbrStatus", &(sbrStatus.*row.panel)});
    }
    list.push_back({"Timer1", -1, "", &Timer1});
    list.push_back({"Timer2", -1, "", &Timer2});
    list.push_back({"tmrPaste", -1, "", &tmrPaste});
    return list;
}

void FrmTerminal::Reset() { *this = FrmTerminal(); }

}  // namespace cumeron
