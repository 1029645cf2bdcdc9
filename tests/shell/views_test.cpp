// The four views, and the grid of what is on view.
#include <gtest/gtest.h>

#include <map>

#include "graphs/label_strips.h"
#include "shell/main_window.h"
#include "shell/running_program.h"

namespace cumeron {
namespace {

using Program = RunningProgram;

// What a view shows, one letter each: c picCombination and its labels, p picLines and its x labels,
// y picYLabelsBack, s the sizer; then the checked entries (i d p s) and the pressed buttons.
std::string Shown(const FrmMain& form) {
    std::string text;
    const auto add = [&](bool shown, char letter) {
        if (shown) text += letter;
    };
    add(form.picCombination.Visible && form.picXLabels.Visible && form.picYLabels.Visible, 'c');
    add(form.picLines.Visible && form.picXLabelsBack.Visible, 'p');
    add(form.picYLabelsBack.Visible, 'y');
    add(form.picSplitSizer.Visible && form.picSplitSizer.Enabled, 's');
    text += ' ';
    add(form.mnuPoints.Checked, 'i');
    add(form.mnuCloudhit.Checked, 'd');
    add(form.mnuLinePlot.Checked, 'p');
    add(form.mnuSplitScreen.Checked, 's');
    text += ' ';
    add(form.Toolbar1.CloudIntensity.Value == 1, 'i');
    add(form.Toolbar1.CloudHit.Value == 1, 'd');
    add(form.Toolbar1.BackScat.Value == 1, 'p');
    add(form.Toolbar1.Split.Value == 1, 's');
    return text;
}

TEST(Views, ShowCheckAndPressWhatIsTheirs) {
    const struct {
        const char* clicks;  // i d p s, from the start on
        int mode;            // at the start
        const char* shown;
        int modeAfter;
    } cases[] = {
        {"", 0, "c i i", 0},        {"d", 0, "c d d", 1},     {"i", 1, "c i i", 0},
        {"p", 0, "py p p", 0},      {"s", 0, "cps ips s", 0}, {"ds", 0, "cps dps s", 1},
        {"si", 0, "c i i", 0},      {"sd", 0, "c d d", 1},    {"sp", 0, "py p p", 0},
        {"ps", 0, "cpys ips s", 0}, {"psi", 0, "c i i", 0},   {"", 2, "c i id", 2},
        {"d", 2, "c d id", 2},      {"s", 2, "cps ips s", 2}, {"pd", 0, "c d d", 1},
    };
    for (const auto& c : cases) {
        Program program("Cloudmode=" + std::to_string(c.mode) + "\r\n");
        FrmMain& form = program.Form();
        const std::map<char, ToolButton*> buttons = {{'i', &form.Toolbar1.CloudIntensity},
                                                     {'d', &form.Toolbar1.CloudHit},
                                                     {'p', &form.Toolbar1.BackScat},
                                                     {'s', &form.Toolbar1.Split}};
        for (const char* click = c.clicks; *click != '\0'; ++click) {
            program.Click(*buttons.at(*click));
        }
        EXPECT_EQ(Shown(form), c.shown) << c.clicks << " from mode " << c.mode;
        EXPECT_EQ(program.W().settings.Cloudmode, c.modeAfter) << c.clicks;
        EXPECT_EQ(program.W().graphs.PreviousCloudmode, c.modeAfter) << c.clicks;
    }
}

TEST(Views, Rv10xDoesNotKeepUpThePreviousMode) {
    Program program("CEILOMETER=10\r\n");
    program.Click(program.Form().mnuCloudhit);
    EXPECT_EQ(program.W().settings.Cloudmode, 1);
    EXPECT_EQ(program.W().graphs.PreviousCloudmode, 0);
}

TEST(Views, CaptionsFollow) {
    Program program;
    FrmMain& form = program.Form();
    program.Click(form.mnuLinePlot);
    EXPECT_EQ(form.lblXaxis.Caption, "Backscatter (100*srad*km)^-1");
    program.Click(form.mnuSplitScreen);
    EXPECT_EQ(form.lblXaxis.Caption, "TIME (h)");
    EXPECT_TRUE(form.lblXaxisBack.Visible);
    program.Click(form.mnuPoints);
    EXPECT_FALSE(form.lblXaxisBack.Visible);
}

TEST(Views, SplitGivesTheProfileTheRangeOfTheCloudGraphForGood) {
    Program program(
        "Clouds_Y_Low_Value=1000\r\nClouds_Y_High_Value=9000\r\nClouds_Y_User_Defined=-1\r\n"
        "Step_Linear=2\r\n");
    program.Click(program.Form().mnuSplitScreen);
    program.Click(program.Form().mnuPoints);
    const Settings& settings = program.W().settings;
    EXPECT_EQ(settings.Backscatter_Y_Low_Value, 1000);
    EXPECT_EQ(settings.Backscatter_Y_High_Value, 9000);
    EXPECT_EQ(settings.Backscatter_Y_User_Defined, -1);
    EXPECT_EQ(settings.Back_Step_Linear, 2);
}

TEST(Views, LeavingTheSplitLaysTheWindowOutAnew) {
    for (MenuEntry FrmMain::*view :
         {&FrmMain::mnuPoints, &FrmMain::mnuCloudhit, &FrmMain::mnuLinePlot}) {
        Program program;
        program.Click(program.Form().mnuSplitScreen);
        ASSERT_NE(program.Form().picLines.Left, 68);
        program.Click(program.Form().*view);
        EXPECT_EQ(program.Form().picLines.Left, 68);
    }
}

TEST(Grid, ButtonServesWhatIsOnView) {
    const struct {
        const char* what;
        MenuEntry FrmMain::*view;
        std::int16_t cloud, profile;            // before
        std::int16_t cloudAfter, profileAfter;  // and after
        bool labelsNew;
    } cases[] = {
        {"cloud intensity", &FrmMain::mnuPoints, 0, 0, 1, 0, true},
        {"cloud detection", &FrmMain::mnuCloudhit, 1, 1, 0, 1, true},
        {"any number but 1 is off", &FrmMain::mnuPoints, 7, 0, 1, 0, true},
        {"profile", &FrmMain::mnuLinePlot, 1, 0, 1, 1, false},
        {"profile, off", &FrmMain::mnuLinePlot, 0, 1, 0, 0, false},
        {"split", &FrmMain::mnuSplitScreen, 0, 1, 1, 0, true},
    };
    for (const auto& c : cases) {
        Program program;
        Workstation& w = program.W();
        program.Click(w.frmMain.*c.view);
        w.settings.Cloud_Show_Grid = c.cloud;
        w.settings.Backscatter_Show_Grid = c.profile;
        MarkLabelStrips(w);
        w.frmMain.fraValues.Caption = "";
        program.Click(w.frmMain.Toolbar1.Grid);
        EXPECT_EQ(w.settings.Cloud_Show_Grid, c.cloudAfter) << c.what;
        EXPECT_EQ(w.settings.Backscatter_Show_Grid, c.profileAfter) << c.what;
        EXPECT_TRUE(c.labelsNew ? LabelStripsAreNew(w) : LabelStripsAreOld(w)) << c.what;
        EXPECT_EQ(w.frmMain.fraValues.Caption.empty(), !w.frmMain.mnuLinePlot.Checked) << c.what;
    }
}

}  // namespace
}  // namespace cumeron
