#include "graphs/axes.h"

#include <gtest/gtest.h>

#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

TEST(SetGraphCaptions, XCaptionsFollowTheView) {
    const struct {
        bool linePlot, split;
        const char* caption;
        bool backVisible;
    } cases[] = {
        {false, false, "TIME (h)", false},
        {false, true, "TIME (h)", false},
        {true, true, "TIME (h)", true},
        {true, false, "Backscatter (100*srad*km)^-1", false},
    };
    ScriptedMachine machine;
    Workstation w(machine.platform);
    for (const auto& c : cases) {
        w.frmMain.mnuLinePlot.Checked = c.linePlot;
        w.frmMain.mnuSplitScreen.Checked = c.split;
        w.frmMain.lblXaxisBack.Visible = !c.backVisible;
        w.frmMain.lblXaxisBack.Caption.clear();
        SetGraphCaptions(w);
        EXPECT_EQ(w.frmMain.lblXaxis.Caption, c.caption) << c.linePlot << c.split;
        EXPECT_EQ(w.frmMain.lblXaxisBack.Visible, c.backVisible) << c.linePlot << c.split;
        if (c.backVisible) {
            EXPECT_EQ(w.frmMain.lblXaxisBack.Caption, "BackScatter");
        }
    }
}

TEST(SetGraphCaptions, UnitAndTiltPickTheImageAndTheCaption) {
    const struct {
        std::int16_t units, tilted;
        Image FrmMain::*shown;
        const char* unit;
    } cases[] = {
        {0, 0, &FrmMain::imgYaxisFt, "[ft]"},    {1, 0, &FrmMain::imgYaxisM, "[m]"},
        {0, 1, &FrmMain::imgYaxisdisFT, "[ft]"}, {1, 1, &FrmMain::imgYaxisdisM, "[m]"},
        {2, 0, &FrmMain::imgYaxisM, "[m]"},
    };
    ScriptedMachine machine;
    Workstation w(machine.platform);
    for (const auto& c : cases) {
        w.settings.Units = c.units;
        w.readings.Tilted = c.tilted;
        SetGraphCaptions(w);
        for (const auto image : {&FrmMain::imgYaxisFt, &FrmMain::imgYaxisM, &FrmMain::imgYaxisdisFT,
                                 &FrmMain::imgYaxisdisM}) {
            EXPECT_EQ((w.frmMain.*image).Visible, image == c.shown) << c.units << c.tilted;
        }
        EXPECT_EQ(w.graphs.UnitLabel, c.unit);
        EXPECT_EQ(w.frmMain.fraValues.Caption, std::string("Instant Values ") + c.unit);
    }
}

}  // namespace
}  // namespace cumeron
