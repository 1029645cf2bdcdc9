#include "shell/sky_frame.h"

#include <gtest/gtest.h>

#include "shell/running_program.h"

namespace cumeron {
namespace {

bool Apart(const Control& a, const Control& b) {
    return a.Left + a.Width <= b.Left || b.Left + b.Width <= a.Left || a.Top + a.Height <= b.Top ||
           b.Top + b.Height <= a.Top;
}

TEST(SkyFrame, EverythingLiesInsideAndApart) {
    const FrmMain form;
    std::vector<const Control*> shown;
    for (const Label& label : form.lblSkyCond) {
        shown.push_back(&label);
        EXPECT_GE(label.Height, 1.5 * label.FontSize);
        EXPECT_TRUE(label.Bold);
    }
    for (std::size_t i = 1; i < form.imgSky.size(); ++i) shown.push_back(&form.imgSky[i]);
    for (const Control* control : shown) {
        EXPECT_GT(control->Left, 0);
        EXPECT_GT(control->Top, 16) << "under the title of the frame";
        EXPECT_LT(control->Left + control->Width, form.fraSkyCond.Width);
        EXPECT_LT(control->Top + control->Height, form.fraSkyCond.Height);
        for (const Control* other : shown) {
            EXPECT_TRUE(other == control || Apart(*control, *other));
        }
    }
    EXPECT_TRUE(Apart(form.fraSkyCond, form.fraValues));
    EXPECT_EQ(form.fraSkyCond.Width, form.fraValues.Width);
    EXPECT_EQ(form.fraSkyCond.Caption, "Sky Condition");
}

TEST(SkyFrame, ALayerIsARow) {
    const FrmMain form;
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        const Label& amount = form.lblSkyCond[2 * i];
        const Label& height = form.lblSkyCond[2 * i + 1];
        EXPECT_EQ(amount.Top, height.Top);
        EXPECT_LT(amount.Left, height.Left);
        EXPECT_EQ(amount.Alignment, TextAlignment::Center);
        EXPECT_EQ(height.Alignment, TextAlignment::Right);
        EXPECT_EQ(amount.ToolTipText, SkyAmountTip);
        EXPECT_EQ(height.ToolTipText, SkyHeightTip);
        EXPECT_TRUE(i == 0 || amount.Top > form.lblSkyCond[2 * i - 2].Top);
    }
}

// A symbol stands between the two layers that share it.
TEST(SkyFrame, SymbolsStandBesideTheirLayers) {
    const FrmMain form;
    const auto middle = [](const Control& control) { return control.Top + control.Height / 2; };
    const auto row = [&](std::size_t layer) { return middle(form.lblSkyCond[2 * layer]); };
    EXPECT_EQ(middle(form.imgSky[1]), (row(0) + row(1)) / 2);
    EXPECT_EQ(middle(form.imgSky[2]), (row(2) + row(3)) / 2);
    EXPECT_EQ(middle(form.imgSky[3]), row(4));
    EXPECT_EQ(form.imgSky[1].ToolTipText,
              "Amount of layer 2, or of layer 1 where there is no layer 2");
    EXPECT_EQ(form.imgSky[2].ToolTipText,
              "Amount of layer 4, or of layer 3 where there is no layer 4");
    EXPECT_EQ(form.imgSky[3].ToolTipText, "Amount of layer 5");
    for (const Image& symbol : form.imgSky) EXPECT_EQ(symbol.Picture, "imgSkyCond(2)");
}

TEST(SkyFrame, PicturesAreTakenFromAndNeverSeen) {
    FrmMain form;
    for (std::size_t i = 0; i < form.imgSkyCond.size(); ++i) {
        EXPECT_EQ(form.imgSkyCond[i].Picture, "imgSkyCond(" + std::to_string(i) + ")");
        EXPECT_FALSE(form.imgSkyCond[i].Visible);
        form.imgSkyCond[i].Picture = "other";
    }
    form.lblSkyCond[0].Caption = "old";
    form.fraSkyCond.Visible = true;
    form.imgSky[3].Picture = "old";
    form.Reset();
    EXPECT_EQ(form.imgSkyCond[0].Picture, "imgSkyCond(0)");
    EXPECT_EQ(form.lblSkyCond[0].Caption, "");
    EXPECT_EQ(form.imgSky[3].Picture, "imgSkyCond(2)");
    EXPECT_FALSE(form.fraSkyCond.Visible);
}

TEST(SkyFrame, EndsAtTheStatusBarOfALowWindow) {
    const struct {
        double windowHeight, height;
    } cases[] = {{800, 158}, {533, 158}, {532, 157}, {450, 75}, {376, 1}, {200, 1}, {800, 158}};
    for (const char* view : {"", "split"}) {
        RunningProgram program;
        if (*view != '\0') program.Click(program.Form().mnuSplitScreen);
        for (const auto& c : cases) {
            program.Resize(640, c.windowHeight);
            EXPECT_EQ(program.Form().fraSkyCond.Height, c.height) << c.windowHeight << view;
        }
    }
}

TEST(SkyFrame, ShowsWhatTheSettingsWant) {
    const struct {
        const char* lines;
        bool frame, symbols;
    } cases[] = {{"", false, false},
                 {"Show_Sky_Cond=1\r\nCloud_Amount=1\r\n", true, false},
                 {"Show_Sky_Cond=-1\r\nCloud_Amount=2\r\n", true, true},
                 {"Show_Sky_Cond=0\r\nCloud_Amount=3\r\n", false, false}};
    for (const auto& c : cases) {
        RunningProgram program(c.lines);
        const auto check = [&] {
            EXPECT_EQ(program.Form().fraSkyCond.Visible, c.frame) << c.lines;
            for (std::size_t i = 1; i < 4; ++i) {
                EXPECT_EQ(program.Form().imgSky[i].Visible, c.symbols) << c.lines;
            }
            EXPECT_FALSE(program.Form().imgSky[0].Visible);
        };
        check();
        program.Form().fraSkyCond.Visible = !c.frame;
        program.Form().imgSky[1].Visible = !c.symbols;
        ShapeSkyFrame(program.W());
        check();
    }
}

}  // namespace
}  // namespace cumeron
