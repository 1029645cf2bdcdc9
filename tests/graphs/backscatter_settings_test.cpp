#include "graphs/backscatter_settings.h"

#include <gtest/gtest.h>

#include "graphs/settings_dialog.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

using Texts = std::vector<std::string>;

struct Backscatter : SettingsDialog<FrmBackScatter> {
    explicit Backscatter(const std::string& lines = "CEILOMETER=30\r\n")
        : SettingsDialog(lines, &Workstation::frmBackScatter, &FrmMain::mnuBackscatterSettings) {}
};

TEST(BackscatterSettings, ControlsBearTheirCaptions) {
    const FrmBackScatter form;
    EXPECT_EQ(form.Caption, "Backscatter Profile Settings");
    EXPECT_EQ(form.fraDrawWidth.Caption, "Draw Width");
    EXPECT_EQ(Captions(form.optBackDrawWidth), (Texts{"1", "2", "3"}));
    EXPECT_EQ(form.fraShowGrid.Caption, "&Show Grid");
    EXPECT_EQ(Captions(form.optShowGrid), (Texts{"&No", "&Yes"}));
    EXPECT_EQ(form.fraAverages.Caption, "No. of averaged Messages");
    EXPECT_EQ(Captions(form.optNAverages), (Texts{"5", "10", "15", "20", "25", "30"}));
    EXPECT_EQ(form.fraMode.Caption, "Mode");
    EXPECT_EQ(Captions(form.optAverageMode), (Texts{"Instant", "Average", "Both"}));
    EXPECT_EQ(form.fraXRange.Caption, "&X-Axis Range (100*srad*km)^-1");
    EXPECT_EQ(Captions(form.optXUser), (Texts{"&Full", "User-defined"}));
    EXPECT_EQ(form.fraYRange.Caption, "&Y-Axis Range ");
    EXPECT_EQ(Captions(form.optYUser), (Texts{"&Predefined", "&User-defined"}));
    EXPECT_EQ(form.MetersLabel.Caption, "meters");
    EXPECT_EQ(form.FeetLabel.Caption, "feet");
    EXPECT_EQ(form.cmdOk.Caption, "OK");
    EXPECT_EQ(form.Command2.Caption, "Cancel");
}

TEST(BackscatterSettings, ShowTheSettingsInForce) {
    Backscatter dialog;
    dialog.settings.Back_Draw_Width = 3;
    dialog.settings.Backscatter_Show_Grid = 1;
    dialog.settings.Backscatter_Averages = 25;
    dialog.settings.Backscatter_Mode = 2;
    dialog.settings.Backscatter_X_User_Defined = 1;
    dialog.settings.Backscatter_X_Low_Value = -50;
    dialog.settings.Backscatter_X_High_Value = 32000;
    dialog.settings.Backscatter_Y_User_Defined = 1;
    dialog.settings.Backscatter_Y_Low_Value = 90;
    dialog.settings.Backscatter_Y_High_Value = 7000;
    dialog.settings.Back_Step_Linear = 2;
    dialog.settings.Units = 1;
    dialog.Look([&] {
        const FrmBackScatter& form = dialog.form;
        EXPECT_EQ(Chosen(form.optBackDrawWidth), 2);
        EXPECT_EQ(Chosen(form.optShowGrid), 1);
        EXPECT_EQ(Chosen(form.optNAverages), 4);
        EXPECT_EQ(Chosen(form.optAverageMode), 1);
        EXPECT_EQ(Chosen(form.optXUser), 1);
        EXPECT_EQ(form.txtXLow.Text, "-0.5");
        EXPECT_EQ(form.txtXHigh.Text, "320");
        EXPECT_EQ(Chosen(form.optYUser), 1);
        EXPECT_EQ(form.cboYRange.Text, "Step 25K");
        EXPECT_EQ(form.txtYLow.Text, "90");
        EXPECT_EQ(form.txtYHigh.Text, "7000");
        EXPECT_TRUE(form.MetersLabel.Visible);
        EXPECT_FALSE(form.FeetLabel.Visible);
    });
    dialog.settings.Backscatter_Show_Grid = 0;
    dialog.settings.Backscatter_X_User_Defined = 0;
    dialog.settings.Backscatter_Y_User_Defined = 0;
    dialog.settings.Units = 0;
    dialog.Look([&] {
        EXPECT_EQ(Chosen(dialog.form.optShowGrid), 0);
        EXPECT_EQ(Chosen(dialog.form.optXUser), 0);
        EXPECT_EQ(Chosen(dialog.form.optYUser), 0);
        EXPECT_FALSE(dialog.form.MetersLabel.Visible);
        EXPECT_TRUE(dialog.form.FeetLabel.Visible);
    });
}

TEST(BackscatterSettings, ASettingWithoutAnOptionStaysUntilOneIsChosen) {
    Backscatter dialog("CEILOMETER=20\r\n");
    const auto spoil = [&] {
        dialog.settings.Back_Draw_Width = 4;
        dialog.settings.Backscatter_Averages = 12;
        dialog.settings.Backscatter_Mode = 0;
        dialog.settings.Back_Step_Linear = 4;
    };
    spoil();
    dialog.Ok([&] {
        EXPECT_EQ(Chosen(dialog.form.optBackDrawWidth), -1);
        EXPECT_EQ(Chosen(dialog.form.optNAverages), -1);
        EXPECT_EQ(Chosen(dialog.form.optAverageMode), -1);
        EXPECT_EQ(dialog.form.cboYRange.ListIndex, -1);
    });
    EXPECT_EQ(dialog.settings.Back_Draw_Width, 4);
    EXPECT_EQ(dialog.settings.Backscatter_Averages, 12);
    EXPECT_EQ(dialog.settings.Backscatter_Mode, 0);
    EXPECT_EQ(dialog.settings.Back_Step_Linear, 4);
    dialog.Ok([&] {
        dialog.Choose(dialog.form.optNAverages[0]);
        SelectItem(dialog.w, dialog.form.cboYRange, 1);
    });
    EXPECT_EQ(dialog.settings.Backscatter_Averages, 5);
    EXPECT_EQ(dialog.settings.Back_Step_Linear, 1);
}

TEST(BackscatterSettings, OfferTheScalesOfTheModel) {
    const struct {
        int model;
        Texts scales;
    } cases[] = {
        {10, {"Full Linear", "Step 12K"}},
        {20, {"Full Linear", "Step 12K", "Step 25K"}},
        {30, {"Full Linear", "Step 12K", "Step 25K"}},
        {60, {"Full Linear", "Step 12K", "Step 25K", "Step 50K"}},
        {50, {"Full Linear", "Step 12K", "Step 25K", "Step 50K"}},
        {70, {"Full Linear", "Step 12K", "Step 25K", "Step 50K", "Step 75k"}},
    };
    for (const auto& c : cases) {
        Backscatter dialog("CEILOMETER=" + std::to_string(c.model) + "\r\n");
        dialog.Look([&] { EXPECT_EQ(dialog.form.cboYRange.Items, c.scales) << c.model; });
    }
}

TEST(BackscatterSettings, WhatTheHeightChoiceDoesNotNeedTakesNoInput) {
    Backscatter dialog;
    const auto expectUser = [&](bool user) {
        EXPECT_EQ(dialog.form.txtYLow.Enabled, user);
        EXPECT_EQ(dialog.form.txtYHigh.Enabled, user);
        EXPECT_EQ(dialog.form.cboYRange.Enabled, !user);
    };
    dialog.Look([&] {
        expectUser(false);
        dialog.Choose(dialog.form.optYUser[1]);
        expectUser(true);
        dialog.Choose(dialog.form.optYUser[0]);
        expectUser(false);
    });
    dialog.settings.Backscatter_Y_User_Defined = -1;
    dialog.Look([&] { expectUser(true); });
}

const char* const XRange = "The valid range of numbers for X-Axis is from -327 to 327.  ";
const char* const XSpan = "The minimum difference is 0.1 for X-Axis.  ";

TEST(BackscatterSettings, XLimitsAreCheckedWhenTheyAreInForce) {
    const struct {
        const char *low, *high;
        std::string refusal;
    } cases[] = {
        {"-327", "327", ""},
        {"-327.01", "0", XRange},
        {"0", "327.01", XRange},
        {"0.2", "0.3", ""},
        {"0", "0.09", XSpan},
        {"3", "2", XSpan},
        {"400", "-400", std::string(XRange) + XSpan},
    };
    for (const auto& c : cases) {
        Backscatter dialog;
        const auto type = [&] {
            dialog.form.txtXLow.Text = c.low;
            dialog.form.txtXHigh.Text = c.high;
        };
        EXPECT_EQ(dialog.Stays([&] {
            type();
            dialog.Choose(dialog.form.optXUser[1]);
            dialog.form.cmdOk.Click(dialog.w);
        }),
                  !c.refusal.empty())
            << c.low << " " << c.high;
        EXPECT_EQ(dialog.Box(), c.refusal.empty() ? "no box" : c.refusal);
        EXPECT_EQ(dialog.settings.Backscatter_X_User_Defined, c.refusal.empty() ? -1 : 0);
        dialog.Ok([&] {
            type();
            dialog.Choose(dialog.form.optXUser[0]);
        });
        EXPECT_EQ(dialog.settings.Backscatter_X_User_Defined, 0);
    }
}

TEST(BackscatterSettings, HeightsAreCheckedWhenTheyAreInForce) {
    const std::string range = "The valid range of altitudes is from 0 to ";
    const std::string span = "The altitude plotting range should be at least ";
    const struct {
        int model, units;
        double profileScale;
        const char *low, *high;
        std::string refusal;
    } cases[] = {
        {30, 0, 1, "0", "25300", ""},
        {30, 0, 1, "0", "25301", range + "25300 feet.  "},
        {30, 0, 1, "-1", "5000", range + "25300 feet.  "},
        {30, 0, 1, "0", "1999", span + "2000 feet.  "},
        {30, 0, 1, "0", "2000", ""},
        {30, 0, 1, "26000", "-1", range + "25300 feet.  " + span + "2000 feet.  "},
        {30, 1, 1, "0", "7700", ""},
        {30, 1, 1, "0", "7701", range + "7700 meters.  "},
        {30, 1, 1, "100", "699", span + "600 meters.  "},
        {30, 1, 1, "100", "700", ""},
        {50, 0, 1, "0", "50600", ""},
        {50, 0, 1, "0", "50601", range + "50600 feet.  "},
        {50, 1, 1, "0", "15400", ""},
        {50, 1, 1, "0", "15401", range + "15400 meters.  "},
        {20, 0, 1, "0", "25600", range + "25500 feet.  "},
        {20, 0, 2, "0", "12800", range + "12750 feet.  "},
        {20, 1, 1, "0", "7651", range + "7650 meters.  "},
        {20, 1, 4, "0", "1913", range + "1912 meters.  "},
        {20, 1, 4, "0", "1912", ""},
    };
    for (const auto& c : cases) {
        Backscatter dialog("CEILOMETER=" + std::to_string(c.model) + "\r\n");
        dialog.settings.Units = static_cast<std::int16_t>(c.units);
        dialog.w.intake.ProfileScale = c.profileScale;
        const auto type = [&] {
            dialog.form.txtYLow.Text = c.low;
            dialog.form.txtYHigh.Text = c.high;
        };
        EXPECT_EQ(dialog.Stays([&] {
            dialog.Choose(dialog.form.optYUser[1]);
            type();
            dialog.form.cmdOk.Click(dialog.w);
        }),
                  !c.refusal.empty())
            << c.model << " " << c.high;
        EXPECT_EQ(dialog.Box(), c.refusal.empty() ? "no box" : c.refusal);
        EXPECT_EQ(dialog.settings.Backscatter_Y_User_Defined, c.refusal.empty() ? -1 : 0);
        dialog.Ok([&] {
            type();
            dialog.Choose(dialog.form.optYUser[0]);
        });
        EXPECT_EQ(dialog.settings.Backscatter_Y_User_Defined, 0);
    }
}

TEST(BackscatterSettings, AllChecksTellInOneBox) {
    Backscatter dialog;
    dialog.Look([&] {
        dialog.Choose(dialog.form.optXUser[1]);
        dialog.Choose(dialog.form.optYUser[1]);
        dialog.form.txtXHigh.Text = "1000";
        dialog.form.txtYHigh.Text = "1000";
        dialog.form.cmdOk.Click(dialog.w);
    });
    EXPECT_EQ(dialog.Box(),
              std::string(XRange) + "The altitude plotting range should be at least 2000 feet.  ");
    EXPECT_EQ(dialog.Box(), "no box");
}

TEST(BackscatterSettings, ATextThatIsNoNumberIsToldBeforeAllElse) {
    const struct {
        TextBox HeightControls::*height;
        TextBox FrmBackScatter::*x;
    } boxes[] = {{nullptr, &FrmBackScatter::txtXLow},
                 {nullptr, &FrmBackScatter::txtXHigh},
                 {&HeightControls::txtYLow, nullptr},
                 {&HeightControls::txtYHigh, nullptr}};
    for (const auto& c : boxes) {
        Backscatter dialog;
        dialog.Look([&] {
            FrmBackScatter& form = dialog.form;
            (c.x != nullptr ? form.*c.x : form.*c.height).Text = "1 2";
            dialog.form.cmdOk.Click(dialog.w);
        });
        EXPECT_EQ(dialog.Box(), "\"1 2\" cannot be converted to a number.");
    }
    Backscatter dialog;
    dialog.Look([&] {
        dialog.Choose(dialog.form.optXUser[1]);
        dialog.form.txtXLow.Text = "ten";
        dialog.form.txtXHigh.Text = "1000";
        dialog.form.txtYHigh.Text = "";
        dialog.form.cmdOk.Click(dialog.w);
    });
    EXPECT_EQ(dialog.Box(),
              "\"ten\" cannot be converted to a number.\"\" cannot be converted to a number.");
    EXPECT_EQ(dialog.Box(), "no box");
}

TEST(BackscatterSettings, AnUncheckedLimitThatNoSettingHoldsStopsTheWholeOk) {
    const char* const overflow = "The following Error occurred:\r\n\r\nOverflow\r\nError Number: 6";
    for (const char* text : {"1e12", "1e999"}) {
        Backscatter dialog;
        dialog.Look([&] {
            dialog.Choose(dialog.form.optBackDrawWidth[2]);
            dialog.form.txtXLow.Text = text;
            dialog.form.cmdOk.Click(dialog.w);
            EXPECT_EQ(dialog.form.txtXLow.Text, text);
        });
        EXPECT_EQ(dialog.Box(), overflow);
        dialog.Look([&] {
            dialog.Choose(dialog.form.optBackDrawWidth[2]);
            dialog.form.txtYHigh.Text = text;
            dialog.form.cmdOk.Click(dialog.w);
        });
        EXPECT_EQ(dialog.Box(), overflow);
        EXPECT_EQ(dialog.settings.Back_Draw_Width, 1);
    }
}

TEST(BackscatterSettings, OkStoresEverything) {
    Backscatter dialog;
    dialog.Ok([&] {
        FrmBackScatter& form = dialog.form;
        dialog.Choose(form.optBackDrawWidth[1]);
        dialog.Choose(form.optShowGrid[1]);
        dialog.Choose(form.optNAverages[3]);
        dialog.Choose(form.optAverageMode[2]);
        dialog.Choose(form.optXUser[1]);
        form.txtXLow.Text = "-1.155";
        form.txtXHigh.Text = " 2.5E1 ";
        dialog.Choose(form.optYUser[1]);
        SelectItem(dialog.w, form.cboYRange, 2);
        form.txtYLow.Text = "1000.5";
        form.txtYHigh.Text = "3001.5";
    });
    EXPECT_EQ(dialog.Box(), "no box");
    const Settings& settings = dialog.settings;
    EXPECT_EQ(settings.Back_Draw_Width, 2);
    EXPECT_EQ(settings.Backscatter_Show_Grid, 1);
    EXPECT_EQ(settings.Backscatter_Averages, 20);
    EXPECT_EQ(settings.Backscatter_Mode, 3);
    EXPECT_EQ(settings.Backscatter_X_User_Defined, -1);
    EXPECT_EQ(settings.Backscatter_X_Low_Value, -116);
    EXPECT_EQ(settings.Backscatter_X_High_Value, 2500);
    EXPECT_EQ(settings.Backscatter_Y_User_Defined, -1);
    EXPECT_EQ(settings.Back_Step_Linear, 0);
    EXPECT_EQ(settings.Backscatter_Y_Low_Value, 1000);
    EXPECT_EQ(settings.Backscatter_Y_High_Value, 3002);
    dialog.Ok([&] {
        dialog.Choose(dialog.form.optShowGrid[0]);
        dialog.Choose(dialog.form.optYUser[0]);
        SelectItem(dialog.w, dialog.form.cboYRange, 2);
    });
    EXPECT_EQ(settings.Backscatter_Show_Grid, 0);
    EXPECT_EQ(settings.Backscatter_Y_User_Defined, 0);
    EXPECT_EQ(settings.Back_Step_Linear, 2);
}

TEST(BackscatterSettings, OkDrawsTheProfileAnewAndLeavesTheCloudGraph) {
    Backscatter dialog;
    FrmMain& main = dialog.program.Form();
    main.lblXaxis.Caption.clear();
    const unsigned timeLabels = main.picXLabels.Changes();
    const unsigned heightLabels = main.picYLabels.Changes();
    const unsigned profile = main.picLines.Changes();
    main.ResizeTimer.SetEnabled(false);
    dialog.Ok([&] { SelectItem(dialog.w, dialog.form.cboYRange, 1); });
    EXPECT_EQ(dialog.w.graphs.ProfileYHigh, 128);
    EXPECT_EQ(main.lblXaxis.Caption, "TIME (h)");
    EXPECT_GT(main.picXLabels.Changes(), timeLabels);
    EXPECT_GT(main.picYLabels.Changes(), heightLabels);
    EXPECT_GT(main.picLines.Changes(), profile);
    EXPECT_EQ(dialog.settings.Step_Linear, 0);
    EXPECT_EQ(dialog.w.graphs.CloudYHigh, 257);
    EXPECT_FALSE(main.ResizeTimer.Enabled());
}

TEST(BackscatterSettings, InTheSplitViewOtherHeightsGoToTheCloudGraphToo) {
    Backscatter dialog;
    FrmMain& main = dialog.program.Form();
    dialog.program.Click(main.mnuSplitScreen);
    main.ResizeTimer.SetEnabled(false);
    dialog.Ok([&] {
        dialog.Choose(dialog.form.optYUser[1]);
        dialog.form.txtYLow.Text = "1000";
        dialog.form.txtYHigh.Text = "9000";
    });
    EXPECT_EQ(dialog.settings.Clouds_Y_User_Defined, -1);
    EXPECT_EQ(dialog.settings.Step_Linear, 0);
    EXPECT_EQ(dialog.settings.Clouds_Y_Low_Value, 1000);
    EXPECT_EQ(dialog.settings.Clouds_Y_High_Value, 9000);
    EXPECT_EQ(dialog.w.graphs.CloudYLow, 10);
    EXPECT_EQ(dialog.w.graphs.CloudYHigh, 90);
    EXPECT_EQ(dialog.w.graphs.ProfileYHigh, 90);
    EXPECT_TRUE(main.ResizeTimer.Enabled());
    main.ResizeTimer.SetEnabled(false);
    dialog.Ok();
    EXPECT_FALSE(main.ResizeTimer.Enabled());
}

TEST(BackscatterSettings, AnErrorOfTheRangesIsToldAndTheDialogCloses) {
    for (const bool split : {false, true}) {
        Backscatter dialog;
        if (split) dialog.program.Click(dialog.program.Form().mnuSplitScreen);
        dialog.settings.Back_Step_Linear = 9;
        dialog.Ok();
        const std::string told =
            "The following Error occurred:\r\n\r\n" + ErrorText(9) + "\r\nError Number: 9";
        EXPECT_EQ(dialog.Box(), told);
        if (split) {
            EXPECT_EQ(dialog.Box(), told);
        }
        EXPECT_EQ(dialog.Box(), "no box");
        EXPECT_FALSE(dialog.program.machine.Ended());
    }
}

TEST(BackscatterSettings, AnErrorOfThePlotIsToldAndTheDialogCloses) {
    Backscatter dialog;
    dialog.w.graphs.ProfileSlot = 30;
    dialog.Ok();
    EXPECT_EQ(dialog.Box(),
              "The following Error occurred:\r\n\r\n" + ErrorText(9) + "\r\nError Number: 9");
    EXPECT_FALSE(dialog.program.machine.Ended());
}

TEST(BackscatterSettings, CancelAndCloseBoxStoreNothing) {
    Backscatter dialog;
    const auto change = [&] {
        dialog.Choose(dialog.form.optBackDrawWidth[2]);
        dialog.Choose(dialog.form.optAverageMode[2]);
        dialog.form.txtXLow.Text = "5";
    };
    dialog.Look(change);
    EXPECT_FALSE(dialog.Stays([&] {
        change();
        CloseForm(dialog.w, dialog.form);
    }));
    EXPECT_EQ(dialog.settings.Back_Draw_Width, 1);
    EXPECT_EQ(dialog.settings.Backscatter_Mode, 1);
    EXPECT_NE(dialog.settings.Backscatter_X_Low_Value, 500);
}

TEST(BackscatterSettings, ScriptsFindEveryControl) {
    FrmBackScatter form;
    EXPECT_EQ(form.Name, "frmBackScatter");
    EXPECT_EQ(Names(form), (Texts{"fraDrawWidth",
                                  "fraDrawWidth.optBackDrawWidth(0)",
                                  "fraDrawWidth.optBackDrawWidth(1)",
                                  "fraDrawWidth.optBackDrawWidth(2)",
                                  "fraShowGrid",
                                  "fraShowGrid.optShowGrid(0)",
                                  "fraShowGrid.optShowGrid(1)",
                                  "fraAverages",
                                  "fraAverages.optNAverages(5)",
                                  "fraAverages.optNAverages(10)",
                                  "fraAverages.optNAverages(15)",
                                  "fraAverages.optNAverages(20)",
                                  "fraAverages.optNAverages(25)",
                                  "fraAverages.optNAverages(30)",
                                  "fraMode",
                                  "fraMode.optAverageMode(0)",
                                  "fraMode.optAverageMode(1)",
                                  "fraMode.optAverageMode(2)",
                                  "fraXRange",
                                  "fraXRange.optXUser(0)",
                                  "fraXRange.optXUser(1)",
                                  "fraXRange.txtXLow",
                                  "fraXRange.txtXHigh",
                                  "fraYRange",
                                  "fraYRange.optYUser(0)",
                                  "fraYRange.cboYRange",
                                  "fraYRange.optYUser(1)",
                                  "fraYRange.txtYLow",
                                  "fraYRange.txtYHigh",
                                  "fraYRange.MetersLabel",
                                  "fraYRange.FeetLabel",
                                  "cmdOk",
                                  "Command2"}));
}

}  // namespace
}  // namespace cumeron
