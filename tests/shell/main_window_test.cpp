#include "shell/main_window.h"

#include <gtest/gtest.h>

#include <set>

#include "graphs/label_strips.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/running_program.h"
#include "workstation.h"

namespace cumeron {
namespace {

using Program = RunningProgram;

template <class T>
T* Find(FrmMain& form, const std::string& parent, const std::string& name) {
    for (const NamedControl& line : form.Controls()) {
        if (line.parent == parent && line.name == name) return std::get<T*>(line.control);
    }
    return nullptr;
}

TEST(MainWindow, ListsEachControlOnceUnderAParentThatIsThere) {
    FrmMain form;
    std::set<std::tuple<std::string, std::string, int>> names;
    std::set<std::string> parents = {"", "Toolbar1", "sbaStatus"};
    for (const NamedControl& line : form.Controls()) {
        EXPECT_TRUE(names.insert({line.parent, line.name, line.index}).second) << line.name;
        if (line.parent.empty()) parents.insert(line.name);
    }
    for (const NamedControl& line : form.Controls()) {
        EXPECT_TRUE(parents.contains(line.parent)) << line.name;
    }
    EXPECT_EQ(names.size(), 40U + 6 + 18 + 11 + 5 + 8 + 11 + 2 + 6 + 2 + 10 + 4 + 10);
}

TEST(MainWindow, EachEntryAndButtonDoesSomething) {
    FrmMain form;
    std::set<std::string> menus;
    for (const NamedControl& line : form.Controls()) menus.insert(line.parent);
    for (const NamedControl& line : form.Controls()) {
        if (const auto* entry = std::get_if<MenuEntry*>(&line.control)) {
            EXPECT_NE(static_cast<bool>((*entry)->Click), menus.contains(line.name)) << line.name;
            EXPECT_NE((*entry)->Caption.find('&'), std::string::npos) << line.name;
        }
        if (const auto* button = std::get_if<ToolButton*>(&line.control)) {
            EXPECT_TRUE((*button)->Click) << line.name;
            EXPECT_FALSE((*button)->ToolTipText.empty()) << line.name;
        }
    }
}

TEST(MainWindow, MnemonicsOfTheMenuBarAreDistinct) {
    FrmMain form;
    std::set<char> letters;
    for (const MenuEntry* menu : {&form.mnuMode, &form.mnuEdit, &form.mnuLog, &form.mnuShow,
                                  &form.mnuTerminal, &form.mnuHelp}) {
        EXPECT_TRUE(letters.insert(menu->Caption.at(menu->Caption.find('&') + 1)).second);
    }
}

TEST(MainWindow, DesignMarksAndStates) {
    FrmMain form;
    const std::set<const MenuEntry*> checked = {&form.mnuClosePort, &form.mnuLogOff,
                                                &form.mnuSaveSettings, &form.mnuCloudhit};
    const auto& bar = form.Toolbar1;
    const std::set<const ToolButton*> disabled = {&bar.Start, &bar.Back, &bar.Forward,
                                                  &bar.Play,  &bar.Stop, &bar.CloseFile};
    const std::set<const ToolButton*> checkStyle = {
        &bar.CloudHit, &bar.CloudIntensity, &bar.BackScat, &bar.Split,
        &bar.OpenPort, &bar.ClosePort,      &bar.Log};
    for (const NamedControl& line : form.Controls()) {
        if (const auto* entry = std::get_if<MenuEntry*>(&line.control)) {
            EXPECT_EQ((*entry)->Checked, checked.contains(*entry)) << line.name;
        }
        if (const auto* button = std::get_if<ToolButton*>(&line.control)) {
            EXPECT_NE((*button)->Enabled, disabled.contains(*button)) << line.name;
            EXPECT_EQ((*button)->CheckStyle, checkStyle.contains(*button)) << line.name;
        }
    }
    EXPECT_EQ(form.sbaStatus.Log.Text, "LOG OFF");
    EXPECT_EQ(form.sbaStatus.Log.ToolTipText, "LOG OFF");
    EXPECT_EQ(form.sbaStatus.Errors.Text, "OFF-Line");
    EXPECT_TRUE(form.tmrClock.Enabled());
    EXPECT_TRUE(form.tmrClock.KeepsGrid);
    EXPECT_FALSE(form.ResizeTimer.Enabled());
}

TEST(MainWindow, PicturesAndTheirEmptyTwinsHaveOneWidth) {
    FrmMain form;
    for (const char* key : {"Errors_Image", "Status_Image", "Battery_Image"}) {
        const Panel* picture = Find<Panel>(form, "sbaStatus", key);
        const Panel* twin = Find<Panel>(form, "sbaStatus", std::string(key) + "_Void");
        EXPECT_EQ(picture->Width, twin->Width) << key;
        EXPECT_NE(picture->Visible, twin->Visible) << key;
        EXPECT_FALSE(picture->Picture.empty()) << key;
    }
}

TEST(MainWindow, ResetPutsEverythingBack) {
    FrmMain form;
    TextPainter* const painter = reinterpret_cast<TextPainter*>(&form);
    form.picLines.painter = painter;
    form.mnuOpenPort.Checked = true;
    form.mnuLogOff.Checked = false;
    form.Toolbar1.Log.Value = 1;
    form.sbaStatus.Action.Text = "busy";
    form.CloudValue[1].Caption = "01230";
    form.lblCT.Caption = "KN30";
    form.picLines.Width = 700;
    form.imgYaxisM.Visible = true;
    form.fraValues.ForeColor = 255;
    form.LastWindowState = 1;
    form.Loaded = form.Visible = true;
    form.tmrClock.SetEnabled(false);
    form.Reset();
    EXPECT_FALSE(form.mnuOpenPort.Checked);
    EXPECT_TRUE(form.mnuLogOff.Checked);
    EXPECT_EQ(form.Toolbar1.Log.Value, 0);
    EXPECT_EQ(form.sbaStatus.Action.Text, "");
    EXPECT_EQ(form.CloudValue[1].Caption, "");
    EXPECT_EQ(form.lblCT.Caption, "");
    EXPECT_EQ(form.picLines.Width, 10);
    EXPECT_FALSE(form.imgYaxisM.Visible);
    EXPECT_EQ(form.fraValues.ForeColor, 0);
    EXPECT_EQ(form.LastWindowState, 0);
    EXPECT_FALSE(form.Loaded || form.Visible);
    EXPECT_TRUE(form.tmrClock.Enabled());
    EXPECT_EQ(form.picLines.painter, painter);
}

TEST(MainWindow, HelpIsAskedForByTwoNames) {
    Program program;
    program.Click(program.Form().mnuContents);
    program.Click(program.Form().mnuIndex);
    program.machine.files.SetStyle(PathStyle::Posix);
    program.Click(program.Form().mnuContents);
    EXPECT_EQ(program.machine.process.started,
              (std::deque<std::string>{"help C:\\CUMERON\\CUMERON.HLP 3 0", "help CUMERON.HLP 1 50",
                                       "help /usr/bin/CUMERON.HLP 3 0"}));
}

struct NoHelp : Process {
    std::string CommandLine() const override { return ""; }
    std::string ApplicationFolder() const override { return ""; }
    void Start(const std::string&, const std::vector<std::string>&, const std::string&) override {}
    void Help(const std::string&, int, int) override { throw RuntimeError(53); }
};

TEST(MainWindow, MissingHelpIsTold) {
    ScriptedMachine machine;
    NoHelp process;
    Platform platform{machine.time,    machine.time,      machine.line,
                      machine.files,   machine.dialogs,   process,
                      machine.copies,  machine.ports,     {},
                      machine.printer, machine.clipboard, machine.pictures};
    Workstation w(platform);
    for (const MenuEntry* entry : {&w.frmMain.mnuContents, &w.frmMain.mnuIndex}) {
        entry->Click(w);
        EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 53"),
                  std::string::npos);
    }
}

TEST(MainWindow, AutomaticPrintTurnsItsMark) {
    Program program;
    program.Click(program.Form().mnuAutoPrint);
    EXPECT_TRUE(program.Form().mnuAutoPrint.Checked);
    program.Click(program.Form().mnuAutoPrint);
    EXPECT_FALSE(program.Form().mnuAutoPrint.Checked);
}

TEST(MainWindow, ClickBelowTheTimeAxisSeeksTheIntervalAnew) {
    Program program;
    program.W().intake.IntervalSeekState = 4;
    program.Click(program.Form().lblXaxis);
    EXPECT_EQ(program.W().intake.IntervalSeekState, 0);
}

// Moves what the layout places to where nothing may stay.
void Disturb(FrmMain& form) {
    for (Surface* surface :
         {&form.picCombination, &form.picLines, &form.picXLabels, &form.picYLabels,
          &form.picXLabelsBack, &form.picYLabelsBack, &form.picSplitSizer}) {
        surface->Left = surface->Top = 7777;
    }
    form.picXLabelsBack.Height = form.picYLabelsBack.Width = 7777;
}

// The layout, in pixels. Shared constants of the design: axis title 24, y labels 44, values 200,
// x labels 34, title below 20, status bar 28.
TEST(Layout, FillsTheWindow) {
    const struct {
        const char* what;
        double width, height;
        double graphWidth, graphHeight;
    } cases[] = {
        {"large", 1024, 768, 1024 - 16 - 200 - 44 - 24, 768 - 1 - 95 - 20 - 34 - 28},
        {"usable", 800, 600, 516, 422},
        {"smallest", 20, 20, 10, 5},
    };
    for (const auto& c : cases) {
        Program program;
        Disturb(program.Form());
        program.Resize(c.width, c.height);
        const FrmMain& form = program.Form();
        EXPECT_EQ(form.picXLabelsBack.Height, form.picXLabels.Height) << c.what;
        EXPECT_EQ(form.picYLabelsBack.Width, form.picYLabels.Width) << c.what;
        for (const Surface* graph : {&form.picCombination, &form.picLines}) {
            EXPECT_EQ(graph->Left, 68) << c.what;
            EXPECT_EQ(graph->Top, 95) << c.what;
            EXPECT_EQ(graph->Width, c.graphWidth) << c.what;
            EXPECT_EQ(graph->Height, c.graphHeight) << c.what;
        }
        for (const Surface* labels : {&form.picYLabels, &form.picYLabelsBack}) {
            EXPECT_EQ(labels->Left, 24) << c.what;
            EXPECT_EQ(labels->Top, 96) << c.what;
            EXPECT_EQ(labels->Width, 44) << c.what;
            EXPECT_EQ(labels->Height, c.graphHeight - 2) << c.what;
        }
        for (const Surface* labels : {&form.picXLabels, &form.picXLabelsBack}) {
            EXPECT_EQ(labels->Left, 69) << c.what;
            EXPECT_EQ(labels->Top, 95 + c.graphHeight) << c.what;
            EXPECT_EQ(labels->Width, c.graphWidth - 2) << c.what;
            EXPECT_EQ(labels->Height, 34) << c.what;
        }
        EXPECT_EQ(form.picPrintXlabel.Top, 95 + c.graphHeight) << c.what;
        EXPECT_EQ(form.lblXaxis.Top, 95 + c.graphHeight + 34) << c.what;
        EXPECT_EQ(form.lblXaxisBack.Top, form.lblXaxis.Top) << c.what;
        EXPECT_EQ(form.lblXaxis.Left, 68 + c.graphWidth / 2 - 120) << c.what;
        EXPECT_EQ(form.fraValues.Left, 68 + c.graphWidth + 10) << c.what;
        EXPECT_EQ(form.fraSkyCond.Left, form.fraValues.Left) << c.what;
        EXPECT_EQ(form.lblDateTime.Left + form.lblDateTime.Width, form.fraValues.Left + 200);
        for (const Image* title :
             {&form.imgYaxisFt, &form.imgYaxisM, &form.imgYaxisdisFT, &form.imgYaxisdisM}) {
            EXPECT_EQ(title->Top, 95 + c.graphHeight / 2 - 80) << c.what;
        }
        EXPECT_EQ(form.picPrintAltitude.Top, 95 + c.graphHeight / 2 - 80) << c.what;
    }
}

TEST(Layout, StaysInsideAWindowOfUsableSize) {
    Program program;
    program.Resize(800, 600);
    const FrmMain& form = program.Form();
    EXPECT_LE(form.fraValues.Left + form.fraValues.Width, 800);
    EXPECT_LE(form.lblXaxis.Top + form.lblXaxis.Height, 600 - form.sbaStatus.Height);
    EXPECT_LE(form.fraSkyCond.Top + form.fraSkyCond.Height, 600 - form.sbaStatus.Height);
    EXPECT_GE(form.fraSkyCond.Top, form.fraValues.Top + form.fraValues.Height);
    EXPECT_GE(form.lblDateTime.Left, form.lblCT.Left + form.lblCT.Width);
    EXPECT_LE(form.CloudValue[2].Top + form.CloudValue[2].Height, form.fraValues.Height);
    double width = 0;
    for (const NamedControl& line : program.Form().Controls()) {
        const auto* panel = std::get_if<Panel*>(&line.control);
        if (panel != nullptr && (*panel)->Visible) width += (*panel)->Width;
    }
    EXPECT_LE(width, 800);
}

TEST(Layout, TooLargeForSixteenBitsIsAnError) {
    Program program;
    program.Form().Width = 15.0 * 40000;
    EXPECT_THROW(Form_Resize(program.W()), RuntimeError);
}

TEST(Layout, MinimisingAndRestoringLaysNothingOut) {
    Program program;
    FrmMain& form = program.Form();
    form.picCombination.Width = 1;  // a layout would change it
    ChangeWindowState(program.W(), form, 1);
    ChangeWindowState(program.W(), form, 0);
    EXPECT_EQ(form.picCombination.Width, 1);
    EXPECT_FALSE(form.ResizeTimer.Enabled());
    EXPECT_EQ(form.LastWindowState, 0);
    ChangeWindowState(program.W(), form, 2);
    EXPECT_GT(form.picCombination.Width, 1);
    EXPECT_EQ(form.LastWindowState, 2);
}

TEST(Layout, EndsARepaintAndDropsThePicture) {
    Program program;
    Workstation& w = program.W();
    for (const bool ready : {true, false}) {
        w.graphs.GraphsReady = ready ? -1 : 0;
        w.graphs.RedrawAbort = 0;
        MarkLabelStrips(w);
        w.frmMain.picCombination.PSet(3, 3, 0x0000FF);
        program.Resize(900, 650);
        EXPECT_EQ(w.graphs.RedrawAbort, 1);
        EXPECT_TRUE(ready ? LabelStripsAreNew(w) : LabelStripsAreOld(w));
        EXPECT_EQ(w.frmMain.picCombination.Pixel(3, 3), ready ? 0xFFFFFF : 0x0000FF);
    }
}

TEST(SplitLayout, SharesTheWidthByTheRatio) {
    const struct {
        float ratio;
        double cloud, profile;  // of 516 pixels
    } cases[] = {{0.5F, 258, 258}, {0.25F, 129, 387}, {0.0F, 3, 516}, {1.0F, 516, 3}};
    for (const auto& c : cases) {
        Program program;
        program.Click(program.Form().mnuSplitScreen);
        program.W().settings.Split_Ratio = c.ratio;
        Disturb(program.Form());
        program.Resize(800, 600);
        const FrmMain& form = program.Form();
        EXPECT_EQ(form.picCombination.Left, 68);
        EXPECT_EQ(form.picCombination.Width, c.cloud);
        EXPECT_EQ(form.picLines.Left, 68 + c.cloud);
        EXPECT_EQ(form.picLines.Width, c.profile);
        EXPECT_EQ(form.picSplitSizer.Left, 68 + c.cloud - 1);
        EXPECT_EQ(form.picSplitSizer.Top, 95);
        EXPECT_EQ(form.picSplitSizer.Height, 422);
        EXPECT_EQ(form.picXLabels.Left, 69);
        EXPECT_EQ(form.picXLabels.Width, c.cloud - 2);
        EXPECT_EQ(form.picXLabelsBack.Left, form.picLines.Left + 1);
        EXPECT_EQ(form.picXLabelsBack.Width, c.profile - 2);
        EXPECT_EQ(form.lblXaxis.Left, 68 + c.cloud / 2 - 120);
        EXPECT_EQ(form.lblXaxisBack.Left, form.picLines.Left + c.profile / 2 - 24);
        EXPECT_EQ(form.fraValues.Left, 594);
        EXPECT_EQ(program.W().graphs.RedrawAbort, 1);
        EXPECT_TRUE(form.ResizeTimer.Enabled());
    }
}

TEST(Layout, SumsBeyondSixteenBitsAreAnError) {
    Program program;
    program.Resize(32900, 600);  // the values end at 32767 at the most
    EXPECT_THROW(program.Resize(33000, 600), RuntimeError);
    EXPECT_NO_THROW(program.Resize(-40000, -40000));
    EXPECT_EQ(program.Form().picCombination.Width, 10);
    EXPECT_EQ(program.Form().picCombination.Height, 5);
}

// Surfaces of 516 pixels together, from 68 on.
TEST(Sizer, DividesTheSplitViewWhereItIsDropped) {
    const struct {
        const char* what;
        bool onLines;
        double x, ratio, width;
    } cases[] = {
        {"on the cloud graph", false, 129, 0.25, 129},
        {"on the profile", true, 129, 0.75, 387},
        {"to the far left", false, 0, 0.02, 10.32},
        {"beyond it", false, -500, 0.02, 10.32},
        {"to the far right", true, 258, 0.98, 505.68},
        {"beyond that", true, 5000, 0.98, 505.68},
        {"the lower limit", false, 10.4, 0.0201550, 10.4},
    };
    for (const auto& c : cases) {
        Program program;
        program.Resize(800, 600);
        program.Click(program.Form().mnuSplitScreen);
        FrmMain& form = program.Form();
        program.machine.Advance(MicrosPerSecond);
        ASSERT_TRUE(form.picSplitSizer.Draggable);
        (c.onLines ? form.picLines : form.picCombination)
            .DragDrop(program.W(), form.picSplitSizer, c.x, 20);
        EXPECT_NEAR(static_cast<double>(program.W().settings.Split_Ratio), c.ratio, 1e-6) << c.what;
        EXPECT_NEAR(form.picCombination.Width, c.width, 1e-3) << c.what;
        EXPECT_NEAR(form.picSplitSizer.Left, 68 + c.width - 1, 1e-3) << c.what;
        EXPECT_TRUE(form.ResizeTimer.Enabled()) << c.what;
    }
}

TEST(Sizer, ADropOnTheProfileCountsFromTheLeftEdgeOfItsScale) {
    Program program;
    program.Resize(800, 600);
    program.Click(program.Form().mnuSplitScreen);
    FrmMain& form = program.Form();
    form.picLines.ScaleLeft = -1000;
    form.picLines.DragDrop(program.W(), form.picSplitSizer, 129, 20);
    EXPECT_NEAR(form.picCombination.Width, 387, 1e-3);
    form.picLines.ScaleMode = 0;
    form.picLines.DragDrop(program.W(), form.picSplitSizer, -1000 + 64.5, 20);
    EXPECT_NEAR(form.picCombination.Width, 451.5, 1e-3);
}

TEST(Sizer, AWindowWithoutRoomTakesTheLowerLimit) {
    for (const double width : {284.0, 100.0}) {
        Program program;
        program.Click(program.Form().mnuSplitScreen);
        program.Resize(width, 600);
        FrmMain& form = program.Form();
        form.picCombination.DragDrop(program.W(), form.picSplitSizer, 0, 20);
        EXPECT_EQ(program.W().settings.Split_Ratio, 0.02F) << width;
        EXPECT_EQ(form.picCombination.Width, 3) << width;
    }
}

TEST(ResizeTimer, WaitsUntilTheSizeStandsStill) {
    Program program;
    FrmMain& form = program.Form();
    program.machine.Advance(MicrosPerSecond);
    ASSERT_FALSE(form.ResizeTimer.Enabled());
    program.Resize(900, 650);
    ResizeTimer_Tick(program.W());
    EXPECT_TRUE(form.ResizeTimer.Enabled());
    program.Resize(900, 651);
    ResizeTimer_Tick(program.W());
    EXPECT_TRUE(form.ResizeTimer.Enabled());
    MarkLabelStrips(program.W());
    ResizeTimer_Tick(program.W());
    EXPECT_FALSE(form.ResizeTimer.Enabled());
    EXPECT_EQ(program.W().graphs.RedrawAbort, 0);
    EXPECT_TRUE(LabelStripsAreNew(program.W()));
    EXPECT_TRUE(form.tmrClock.Enabled());
}

TEST(ResizeTimer, LeavesTheClockOffWithAnOfflineFile) {
    Program program;
    program.Form().Toolbar1.CloseFile.Enabled = true;
    program.Resize(900, 650);
    program.machine.Advance(MicrosPerSecond);
    EXPECT_FALSE(program.Form().ResizeTimer.Enabled());
    EXPECT_FALSE(program.Form().tmrClock.Enabled());
}

TEST(ResizeTimer, ProfileViewHasNothingToRepaint) {
    Program program;
    program.Click(program.Form().mnuLinePlot);
    program.machine.Advance(MicrosPerSecond);
    program.Resize(900, 650);
    EXPECT_FALSE(program.Form().ResizeTimer.Enabled());
}

}  // namespace
}  // namespace cumeron
