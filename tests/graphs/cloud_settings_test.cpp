#include "graphs/cloud_settings.h"

#include <gtest/gtest.h>

#include "graphs/settings_dialog.h"
#include "graphs/time_axis.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

using Texts = std::vector<std::string>;

struct Clouds : SettingsDialog<FrmClouds> {
    explicit Clouds(const std::string& lines = "CEILOMETER=30\r\n")
        : SettingsDialog(lines, &Workstation::frmClouds, &FrmMain::mnuCloudSettings) {}
};

constexpr Label FrmClouds::*Boxes[] = {
    &FrmClouds::CloudColor1, &FrmClouds::CloudColor2, &FrmClouds::CloudColor3,
    &FrmClouds::CloudColor4, &FrmClouds::CloudColor5, &FrmClouds::ChitColor,
    &FrmClouds::VVColor,     &FrmClouds::HSColor,
};

std::vector<std::int32_t> Colours(const Settings& settings) {
    std::vector<std::int32_t> colours(settings.Clouds_Color.begin(), settings.Clouds_Color.end());
    colours.push_back(settings.Cloudhit_Color);
    colours.push_back(settings.Vertical_V_Color);
    colours.push_back(settings.Highest_S_Color);
    return colours;
}

TEST(CloudSettings, ControlsBearTheirCaptions) {
    const FrmClouds form;
    EXPECT_EQ(form.Caption, "Cloud Graph Settings");
    EXPECT_EQ(form.fraDetection.Caption, "Detection");
    EXPECT_EQ(form.lblPointSize.Caption, "Point Size");
    EXPECT_EQ(Captions(form.PointSize), (Texts{"1", "2", "3"}));
    EXPECT_EQ(form.fraTimeScale.Caption, "&Time Scale");
    EXPECT_EQ(form.lblCompression.Caption, "Compression");
    EXPECT_EQ(Captions(form.OptCompress), (Texts{"Off", "2:1", "3:1"}));
    EXPECT_EQ(form.fraBothGraph.Caption, "Show both Intensity && Detection in same Graph");
    EXPECT_EQ(Captions(form.OptbothGraph), (Texts{"&Yes", "&No"}));
    EXPECT_EQ(form.fraLimits.Caption, "&Limits for Colors (100*srad*km)^-1");
    EXPECT_EQ(form.Limit[0].Caption, "Limit 1");
    EXPECT_EQ(form.Limit[4].Caption, "Limit 5");
    EXPECT_EQ(form.fraIntensity.Caption, "Cloud Intensity Graph");
    EXPECT_EQ(form.fraDetectionColors.Caption, "Cloud Detection Graph");
    EXPECT_EQ(form.lblChitColor.Caption, "Cloud Base Det.");
    EXPECT_EQ(form.lblVVColor.Caption, "Vertical Visibility");
    EXPECT_EQ(form.lblHSColor.Caption, "Highest Signal");
    EXPECT_EQ(form.fraColours.Caption, "Colours");
    EXPECT_EQ(form.lblDragDrop.Caption, "Drag && Drop");
    EXPECT_EQ(form.lblHowToColour.Caption,
              "Drag a colour onto a box, or choose a box and then a colour (click or Space).");
    EXPECT_EQ(form.fraShowGrid.Caption, "&Show Grid");
    EXPECT_EQ(Captions(form.optShowGrid), (Texts{"&Yes", "&No"}));
    EXPECT_EQ(form.fraYRange.Caption, "&Y-Axis Range");
    EXPECT_EQ(Captions(form.optYUser), (Texts{"&Predefined", "&User-defined"}));
    EXPECT_EQ(form.MetersLabel.Caption, "meters");
    EXPECT_EQ(form.FeetLabel.Caption, "feet");
    EXPECT_EQ(form.cmdOk.Caption, "OK");
    EXPECT_EQ(form.Command2.Caption, "Cancel");
}

TEST(CloudSettings, ScriptsFindEveryControl) {
    FrmClouds form;
    EXPECT_EQ(form.Name, "frmClouds");
    EXPECT_EQ(Names(form), (Texts{"fraLimits",
                                  "fraLimits.Limit0",
                                  "fraLimits.Limit1",
                                  "fraLimits.Limit2",
                                  "fraLimits.Limit3",
                                  "fraLimits.Limit4",
                                  "fraLimits.txtLimit(0)",
                                  "fraLimits.txtLimit(1)",
                                  "fraLimits.txtLimit(2)",
                                  "fraLimits.txtLimit(3)",
                                  "fraLimits.txtLimit(4)",
                                  "fraIntensity",
                                  "fraDetectionColors",
                                  "fraDetectionColors.lblChitColor",
                                  "fraDetectionColors.lblVVColor",
                                  "fraDetectionColors.lblHSColor",
                                  "fraIntensity.CloudColor1",
                                  "fraIntensity.CloudColor2",
                                  "fraIntensity.CloudColor3",
                                  "fraIntensity.CloudColor4",
                                  "fraIntensity.CloudColor5",
                                  "fraDetectionColors.ChitColor",
                                  "fraDetectionColors.VVColor",
                                  "fraDetectionColors.HSColor",
                                  "fraColours",
                                  "fraColours.lblDragDrop",
                                  "fraColours.Cwhite",
                                  "fraColours.Cyellow",
                                  "fraColours.Cgreen",
                                  "fraColours.ClightCyan",
                                  "fraColours.Ccyan",
                                  "fraColours.Cblue",
                                  "fraColours.Cdarkblue",
                                  "fraColours.Cviolet",
                                  "fraColours.Cdarkviolet",
                                  "fraColours.Cblack",
                                  "fraColours.Clightgrey",
                                  "fraColours.Cmidgrey",
                                  "fraColours.Cgray",
                                  "fraColours.Cred",
                                  "fraColours.Cdarkred",
                                  "fraColours.CDGreen",
                                  "lblHowToColour",
                                  "fraDetection",
                                  "fraDetection.lblPointSize",
                                  "fraDetection.PointSize(0)",
                                  "fraDetection.PointSize(1)",
                                  "fraDetection.PointSize(2)",
                                  "fraTimeScale",
                                  "fraTimeScale.lblCompression",
                                  "fraTimeScale.OptCompress(0)",
                                  "fraTimeScale.OptCompress(1)",
                                  "fraTimeScale.OptCompress(2)",
                                  "fraBothGraph",
                                  "fraBothGraph.OptbothGraph(0)",
                                  "fraBothGraph.OptbothGraph(1)",
                                  "fraShowGrid",
                                  "fraShowGrid.optShowGrid(0)",
                                  "fraShowGrid.optShowGrid(1)",
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

TEST(CloudSettings, ShowTheSettingsInForce) {
    Clouds dialog;
    dialog.settings.Clouds_Limit = {-50, 0, 7, 355, 32700};
    dialog.settings.Clouds_Color = {1, 2, 3, 4, 5};
    dialog.settings.Cloudhit_Color = 6;
    dialog.settings.Vertical_V_Color = 7;
    dialog.settings.Highest_S_Color = 8;
    dialog.settings.Chit_Point_Size = 2;
    dialog.settings.Compress = 1;
    dialog.settings.Cloudmode = 2;
    dialog.settings.Cloud_Show_Grid = 1;
    dialog.settings.Clouds_Y_User_Defined = -1;
    dialog.settings.Clouds_Y_Low_Value = 300;
    dialog.settings.Clouds_Y_High_Value = 7000;
    dialog.settings.Step_Linear = 1;
    dialog.settings.Units = 1;
    dialog.Look([&] {
        const FrmClouds& form = dialog.form;
        Texts limits;
        for (const TextBox& box : form.txtLimit) limits.push_back(box.Text);
        EXPECT_EQ(limits, (Texts{"-0.50", "0.00", "0.07", "3.55", "327.00"}));
        int expected = 0;
        for (const auto box : Boxes) EXPECT_EQ((form.*box).BackColor, ++expected);
        EXPECT_EQ(Chosen(form.PointSize), 2);
        EXPECT_EQ(Chosen(form.OptCompress), 1);
        EXPECT_EQ(Chosen(form.OptbothGraph), 0);
        EXPECT_EQ(Chosen(form.optShowGrid), 0);
        EXPECT_EQ(Chosen(form.optYUser), 1);
        EXPECT_EQ(form.cboYRange.Text, "Step 12K");
        EXPECT_EQ(form.txtYLow.Text, "300");
        EXPECT_EQ(form.txtYHigh.Text, "7000");
        EXPECT_TRUE(form.txtYLow.Enabled);
        EXPECT_TRUE(form.MetersLabel.Visible);
        EXPECT_FALSE(form.FeetLabel.Visible);
    });
    dialog.settings.Cloudmode = 1;
    dialog.settings.Cloud_Show_Grid = 0;
    dialog.Look([&] {
        EXPECT_EQ(Chosen(dialog.form.OptbothGraph), 1);
        EXPECT_EQ(Chosen(dialog.form.optShowGrid), 1);
        dialog.Choose(dialog.form.optYUser[0]);
        EXPECT_FALSE(dialog.form.txtYLow.Enabled);
    });
}

TEST(CloudSettings, SpellTheHighestScaleTheirOwnWay) {
    Clouds dialog("CEILOMETER=70\r\n");
    dialog.Look([&] { EXPECT_EQ(dialog.form.cboYRange.Items.back(), "Step 75K"); });
}

struct Refusals : testing::Test {
    // OK is refused with this text, and nothing is stored.
    void Expect(const std::string& refusal, const std::function<void()>& type) {
        const auto limits = dialog.settings.Clouds_Limit;
        dialog.Look([&] {
            dialog.Choose(dialog.form.PointSize[2]);
            type();
            dialog.form.cmdOk.Click(dialog.w);
        });
        EXPECT_EQ(dialog.Box(), refusal);
        EXPECT_EQ(dialog.Box(), "no box");
        EXPECT_EQ(dialog.settings.Clouds_Limit, limits);
        EXPECT_EQ(dialog.settings.Chit_Point_Size, 1);
        EXPECT_EQ(dialog.settings.Clouds_Y_User_Defined, 0);
    }
    void TypeLimits(const std::array<const char*, 5>& texts) {
        for (std::size_t i = 0; i < texts.size(); ++i) dialog.form.txtLimit[i].Text = texts[i];
    }
    void TypeHeights(const char* low, const char* high) {
        dialog.Choose(dialog.form.optYUser[1]);
        dialog.form.txtYLow.Text = low;
        dialog.form.txtYHigh.Text = high;
    }
    Clouds dialog;
};

const std::string LimitRange = "The valid range of numbers for color limits is from -327 to 327. ";
const std::string LimitOrder = "The color limits are not in an ascending order. ";

TEST_F(Refusals, LimitsAreCheckedOneByOne) {
    const struct {
        std::array<const char*, 5> limits;
        std::string refusal;
    } cases[] = {
        {{"1", "2", "2", "6", "10"}, LimitOrder},
        {{"1", "1.009", "2", "6", "10"}, LimitOrder},
        {{"5", "4", "3", "6", "10"}, LimitOrder + LimitOrder},
        {{"-327.01", "2", "3", "6", "327.01"}, LimitRange + LimitRange},
        {{"1", "400", "3", "6", "10"}, LimitRange + LimitOrder},
    };
    for (const auto& c : cases) Expect(c.refusal, [&] { TypeLimits(c.limits); });
}

TEST_F(Refusals, LimitsThatRiseByAHundredthPass) {
    const std::array<const char*, 5> cases[] = {{"1", "2", "3.5", "6", "10"},
                                                {"1", "1.01", "1.02", "1.03", "1.04"},
                                                {"0.1", "0.11", "0.2", "0.21", "0.22"},
                                                {"-327", "-1", "0", "1", "327"}};
    for (const auto& limits : cases) {
        dialog.Ok([&] { TypeLimits(limits); });
        EXPECT_EQ(dialog.Box(), "no box") << limits[1];
    }
    EXPECT_EQ(dialog.settings.Clouds_Limit,
              (std::array<std::int32_t, 5>{-32700, -100, 0, 100, 32700}));
}

TEST_F(Refusals, HeightsComeBeforeLimitsInOneBox) {
    Expect("The valid range of altitudes is from 0 to 25300 feet.  " + LimitOrder, [&] {
        TypeHeights("0", "25301");
        dialog.form.txtLimit[1].Text = "1";
    });
    Expect("The altitude plotting range should be at least 2000 feet.  ",
           [&] { TypeHeights("0", "1999"); });
}

TEST_F(Refusals, ATextThatIsNoNumberIsToldBeforeAllElse) {
    Expect("Can not be converted to a number: much Can not be converted to a number:  ", [&] {
        TypeLimits({"much", "900", "", "6", "10"});
        TypeHeights("0", "25301");
    });
    Expect("\"low\" cannot be converted to a number.\"high\" cannot be converted to a number.",
           [&] { TypeHeights("low", "high"); });
}

TEST_F(Refusals, AnUncheckedHeightThatNoSettingHoldsStopsTheWholeOk) {
    Expect("The following Error occurred:\r\n\r\nOverflow\r\nError Number: 6",
           [&] { dialog.form.txtYHigh.Text = "1e12"; });
}

TEST(CloudSettings, OkStoresEverything) {
    Clouds dialog;
    dialog.Ok([&] {
        FrmClouds& form = dialog.form;
        form.txtLimit[0].Text = "-0.505";
        form.txtLimit[4].Text = "12.34";
        int colour = 100;
        for (const auto box : Boxes) (form.*box).BackColor = ++colour;
        dialog.Choose(form.PointSize[0]);
        dialog.Choose(form.optShowGrid[0]);
        dialog.Choose(form.optYUser[1]);
        form.txtYLow.Text = "1000";
        form.txtYHigh.Text = "9000";
    });
    EXPECT_EQ(dialog.Box(), "no box");
    const Settings& settings = dialog.settings;
    EXPECT_EQ(settings.Clouds_Limit, (std::array<std::int32_t, 5>{-50, 200, 350, 600, 1234}));
    EXPECT_EQ(Colours(settings),
              (std::vector<std::int32_t>{101, 102, 103, 104, 105, 106, 107, 108}));
    EXPECT_EQ(settings.Chit_Point_Size, 0);
    EXPECT_EQ(settings.Cloud_Show_Grid, 1);
    EXPECT_EQ(settings.Clouds_Y_User_Defined, -1);
    EXPECT_EQ(settings.Step_Linear, 0);
    EXPECT_EQ(settings.Clouds_Y_Low_Value, 1000);
    EXPECT_EQ(settings.Clouds_Y_High_Value, 9000);
    EXPECT_EQ(dialog.w.graphs.CloudYLow, 10);
    EXPECT_EQ(dialog.w.graphs.CloudYHigh, 90);
    dialog.Ok([&] {
        dialog.Choose(dialog.form.optShowGrid[1]);
        dialog.Choose(dialog.form.optYUser[0]);
        SelectItem(dialog.w, dialog.form.cboYRange, 2);
    });
    EXPECT_EQ(settings.Cloud_Show_Grid, 0);
    EXPECT_EQ(settings.Clouds_Y_User_Defined, 0);
    EXPECT_EQ(settings.Step_Linear, 2);
    EXPECT_EQ(dialog.w.graphs.CloudYHigh, 255);
}

TEST(CloudSettings, TheProfileTakesTheHeightsInTheSplitViewOnly) {
    for (const bool split : {false, true}) {
        Clouds dialog;
        FrmMain& main = dialog.program.Form();
        if (split) dialog.program.Click(main.mnuSplitScreen);
        main.ResizeTimer.SetEnabled(false);
        dialog.Ok([&] {
            dialog.Choose(dialog.form.optYUser[1]);
            dialog.form.txtYLow.Text = "1000";
            dialog.form.txtYHigh.Text = "9000";
        });
        const bool taken = dialog.settings.Backscatter_Y_User_Defined == -1 &&
                           dialog.settings.Backscatter_Y_Low_Value == 1000 &&
                           dialog.settings.Backscatter_Y_High_Value == 9000;
        EXPECT_EQ(taken, split);
        EXPECT_EQ(dialog.w.graphs.ProfileYHigh, split ? 90 : 257);
        EXPECT_TRUE(main.ResizeTimer.Enabled());
    }
}

TEST(CloudSettings, ErrorsOfTheRangesAreToldAndTheDialogCloses) {
    Clouds dialog;
    dialog.program.Click(dialog.program.Form().mnuSplitScreen);
    dialog.settings.Step_Linear = 9;
    dialog.Ok();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(dialog.Box(),
                  "The following Error occurred:\r\n\r\n" + ErrorText(9) + "\r\nError Number: 9");
    }
    EXPECT_FALSE(dialog.program.machine.Ended());
    EXPECT_EQ(dialog.settings.Step_Linear, 9);
}

TEST(CloudSettings, BothGraphsInOneAreAModeOfTheirOwn) {
    const struct {
        int model, mode, previous;
        bool both;
        int modeAfter, previousAfter, hit, intensity;  // buttons: 0 before
    } cases[] = {
        {30, 0, 0, true, 2, 2, 1, 1},  {30, 1, 1, true, 2, 2, 1, 1},  {30, 2, 2, true, 2, 2, 1, 1},
        {30, 0, 0, false, 0, 0, 1, 0}, {30, 1, 1, false, 1, 1, 1, 0}, {30, 2, 2, false, 0, 0, 0, 0},
        {10, 0, 1, true, 2, 1, 1, 1},  {10, 2, 1, false, 0, 1, 0, 0},
    };
    for (const auto& c : cases) {
        Clouds dialog("CEILOMETER=" + std::to_string(c.model) + "\r\n");
        auto& buttons = dialog.program.Form().Toolbar1;
        dialog.settings.Cloudmode = static_cast<std::int16_t>(c.mode);
        dialog.w.graphs.PreviousCloudmode = static_cast<std::int16_t>(c.previous);
        buttons.CloudHit.Value = c.both ? 0 : 1;
        buttons.CloudIntensity.Value = 0;
        dialog.Ok([&] { dialog.Choose(dialog.form.OptbothGraph[c.both ? 0 : 1]); });
        EXPECT_EQ(dialog.settings.Cloudmode, c.modeAfter) << c.model << c.mode << c.both;
        EXPECT_EQ(dialog.w.graphs.PreviousCloudmode, c.previousAfter) << c.model << c.mode;
        EXPECT_EQ(buttons.CloudHit.Value, c.hit) << c.model << c.mode << c.both;
        EXPECT_EQ(buttons.CloudIntensity.Value, c.intensity) << c.model << c.mode << c.both;
    }
}

TEST(CloudSettings, TheIntervalFollowsTheCompression) {
    const struct {
        int compress, interval, chosen, inside, after;
    } cases[] = {
        {0, 15, 0, 15, 15}, {0, 15, 1, 15, 30},  {0, 15, 2, 15, 45},
        {1, 30, 0, 15, 15}, {1, 30, 1, 15, 30},  {2, 45, 1, 15, 30},
        {2, 45, 2, 15, 45}, {7, 15, -1, 15, 15}, {1, 31, 0, 16, 16},
    };
    for (const auto& c : cases) {
        Clouds dialog;
        const auto show = [&] {
            EXPECT_EQ(Chosen(dialog.form.OptCompress), c.compress > 2 ? -1 : c.compress);
            EXPECT_EQ(dialog.settings.Message_Interval, c.inside) << c.compress;
            if (c.chosen >= 0) {
                dialog.Choose(dialog.form.OptCompress[static_cast<std::size_t>(c.chosen)]);
            }
        };
        dialog.settings.Compress = static_cast<std::int16_t>(c.compress);
        dialog.settings.Message_Interval = static_cast<std::int16_t>(c.interval);
        dialog.Look(show);
        EXPECT_EQ(dialog.settings.Message_Interval, c.interval) << c.compress;
        EXPECT_EQ(dialog.settings.Compress, c.compress);
        EXPECT_FALSE(dialog.Stays([&] { CloseForm(dialog.w, dialog.form); }));
        EXPECT_EQ(dialog.settings.Message_Interval, c.interval) << c.compress;
        dialog.Ok(show);
        EXPECT_EQ(dialog.settings.Message_Interval, c.after) << c.compress << c.chosen;
        EXPECT_EQ(dialog.settings.Compress, c.chosen >= 0 ? c.chosen : c.compress);
    }
}

TEST(CloudSettings, AnIntervalMeasuredMeanwhileStays) {
    Clouds dialog;
    dialog.settings.Compress = 1;
    dialog.settings.Message_Interval = 30;
    dialog.Look([&] { dialog.settings.Message_Interval = 120; });
    EXPECT_EQ(dialog.settings.Message_Interval, 120);
    dialog.Ok([&] {
        dialog.settings.Message_Interval = 80;
        dialog.Choose(dialog.form.OptCompress[2]);
    });
    EXPECT_EQ(dialog.settings.Message_Interval, 120);
}

TEST(CloudSettings, AnIntervalThatDoesNotFitIsToldAndTheCompressionStays) {
    Clouds dialog;
    dialog.settings.Compress = 1;
    dialog.settings.Message_Interval = 30000;
    dialog.Ok([&] {
        dialog.Choose(dialog.form.OptCompress[2]);
        dialog.Choose(dialog.form.PointSize[2]);
        dialog.Choose(dialog.form.optShowGrid[0]);
    });
    EXPECT_EQ(dialog.Box(), "The following Error occurred:\r\n\r\nOverflow\r\nError Number: 6");
    EXPECT_EQ(dialog.settings.Compress, 1);
    EXPECT_EQ(dialog.settings.Message_Interval, 30000);
    EXPECT_EQ(dialog.settings.Chit_Point_Size, 2);
    EXPECT_EQ(dialog.settings.Cloud_Show_Grid, 1);
}

TEST(CloudSettings, OnlyAnotherCompressionBeginsTheGraphAnew) {
    for (const int chosen : {0, 1}) {
        Clouds dialog;
        dialog.w.graphs.CurrentColumn = 17;
        dialog.Ok(
            [&] { dialog.Choose(dialog.form.OptCompress[static_cast<std::size_t>(chosen)]); });
        EXPECT_EQ(dialog.w.graphs.CurrentColumn, chosen == 0 ? 17 : 0);
    }
}

std::vector<std::uint32_t> PixelsOf(const Surface& surface) {
    const int count = surface.PixelWidth() * surface.PixelHeight();
    return {surface.Pixels(), surface.Pixels() + count};
}

// A minimised window keeps its picture, since it is not laid out.
TEST(CloudSettings, TheGridIsTakenOffTheWayItWasDrawn) {
    Clouds dialog("CEILOMETER=30\r\nCompress=1\r\n");
    FrmMain& main = dialog.program.Form();
    main.WindowState = 1;
    const auto paper = PixelsOf(main.picCombination);
    dialog.settings.Cloud_Show_Grid = 1;
    ToggleCloudGrid(dialog.w, main.picCombination);
    ASSERT_NE(PixelsOf(main.picCombination), paper);
    dialog.Ok();
    EXPECT_EQ(dialog.w.graphs.GridOnScreen, 0);
    EXPECT_EQ(PixelsOf(main.picCombination), paper);
    dialog.Ok();
    EXPECT_EQ(PixelsOf(main.picCombination), paper);
}

const std::vector<std::pair<const char*, int>> PaletteColours = {
    {"Cwhite", 0xFFFFFF},     {"Cyellow", 0x00FFFF},    {"Cgreen", 0x00FF00},
    {"ClightCyan", 0xFFFF00}, {"Ccyan", 0x808000},      {"Cblue", 0xFF0000},
    {"Cdarkblue", 0x800000},  {"Cviolet", 0xFF00FF},    {"Cdarkviolet", 0x800080},
    {"Cblack", 0x000000},     {"Clightgrey", 0xC0C0C0}, {"Cmidgrey", 0xA0A0A0},
    {"Cgray", 0x808080},      {"Cred", 0x0000FF},       {"Cdarkred", 0x000080},
    {"CDGreen", 0x008000},
};

TEST(CloudColours, ThePaletteHasSixteenToDrag) {
    FrmClouds form;
    std::vector<std::pair<std::string, int>> found;
    for (const NamedControl& named : form.Controls()) {
        auto* const* label = std::get_if<Label*>(&named.control);
        if (label != nullptr && (*label)->Draggable) {
            found.emplace_back(named.name, (*label)->BackColor);
        }
    }
    ASSERT_EQ(found.size(), PaletteColours.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].first, PaletteColours[i].first);
        EXPECT_EQ(found[i].second, PaletteColours[i].second) << found[i].first;
    }
}

TEST(CloudColours, ABoxTakesADroppedColourOfThePaletteOnly) {
    Clouds dialog;
    dialog.Ok([&] {
        FrmClouds& form = dialog.form;
        for (const auto box : Boxes) {
            (form.*box).DragDrop(dialog.w, form.Cred, 1, 1);
            EXPECT_EQ((form.*box).BackColor, 0x0000FF);
        }
        form.HSColor.DragDrop(dialog.w, form.CDGreen, 1, 1);
        Label stranger;
        stranger.BackColor = 0x123456;
        form.HSColor.DragDrop(dialog.w, stranger, 1, 1);
        form.HSColor.DragDrop(dialog.w, form.CloudColor1, 1, 1);
        form.HSColor.DragDrop(dialog.w, form.cmdOk, 1, 1);
    });
    const std::int32_t red = 0x0000FF;
    EXPECT_EQ(Colours(dialog.settings),
              (std::vector<std::int32_t>{red, red, red, red, red, red, red, 0x008000}));
}

TEST(CloudColours, WithoutAMouseTheChosenBoxTakesTheColourOfThePalette) {
    Clouds dialog;
    dialog.Look([&] {
        FrmClouds& form = dialog.form;
        const int before = form.CloudColor1.BackColor;
        form.Cviolet.Click(dialog.w);
        EXPECT_EQ(form.CloudColor1.BackColor, before);
        for (const auto box : Boxes) {
            (form.*box).Click(dialog.w);
            for (const auto other : Boxes) {
                EXPECT_EQ((form.*other).Caption, other == box ? "\x95" : "");
            }
            form.Cviolet.Click(dialog.w);
            EXPECT_EQ((form.*box).BackColor, 0xFF00FF);
        }
        form.Cblack.Click(dialog.w);
        EXPECT_EQ(form.HSColor.BackColor, 0x000000);
        EXPECT_EQ(form.VVColor.BackColor, 0xFF00FF);
    });
    dialog.Look([&] {
        EXPECT_EQ(dialog.form.HSColor.Caption, "");
        const int before = dialog.form.HSColor.BackColor;
        dialog.form.Cyellow.Click(dialog.w);
        EXPECT_EQ(dialog.form.HSColor.BackColor, before);
    });
}

}  // namespace
}  // namespace cumeron
