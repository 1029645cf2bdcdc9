#include "shell/sky_window.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/scripted/scripted_machine.h"
#include "platform/surface.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

struct Program {
    explicit Program(const std::string& lines = "") {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI", "[CUMERON]\r\n" + lines);
        machine.Start("");
    }
    Workstation& W() { return *machine.Program(); }
    FrmMain& Main() { return W().frmMain; }
    FrmSkyCond& Sky() { return W().frmSkyCond; }
    void Click(Control& control) {
        machine.Enter([&] { control.Click(W()); });
    }
    void Show() { Click(Main().mnuSkyCond); }

    ScriptedMachine machine;
};

TEST(SkyWindow, OpensAQuarterIntoTheMainWindowUnlessItHasAPlaceOnTop) {
    const std::string main = "Top=100\r\nLeft=200\r\nWidth=8003\r\nHeight=4001\r\n";
    const std::string place =
        "Sky_Win_Top=50\r\nSky_Win_Left=60\r\nSky_Win_Height=3000\r\nSky_Win_Width=4000\r\n";
    const struct {
        const char* what;
        std::string lines;
        double left, top, width, height;
        bool topMost;
    } cases[] = {
        {"no place", main, 2200, 1100, 5256, 4356, false},
        {"a place, not on top", main + place, 2200, 1100, 5256, 4356, false},
        {"a place, on top", main + place + "Sky_Cond_On_Top=1\r\n", 60, 50, 4000, 3000, true},
        {"no place, on top", main + "Sky_Cond_On_Top=1\r\n", 2200, 1100, 5256, 4356, true},
        {"another number than 1", main + place + "Sky_Cond_On_Top=2\r\n", 2200, 1100, 5256, 4356,
         false},
        {"far to the right", "Top=15\r\nLeft=40000\r\n", 32767, 1815, 5256, 4356, false},
        {"far above", "Top=-40000\r\nLeft=15\r\n", 2415, -32768, 5256, 4356, false},
    };
    for (const auto& c : cases) {
        Program program(c.lines);
        const FrmSkyCond& sky = program.Sky();
        EXPECT_TRUE(program.machine.dialogs.Boxes().empty()) << c.what;
        EXPECT_TRUE(sky.Loaded) << c.what;
        EXPECT_FALSE(sky.Visible) << c.what;
        EXPECT_EQ(sky.Left, c.left) << c.what;
        EXPECT_EQ(sky.Top, c.top) << c.what;
        EXPECT_EQ(sky.Width, c.width) << c.what;
        EXPECT_EQ(sky.Height, c.height) << c.what;
        EXPECT_EQ(sky.normalTop, c.top) << c.what;
        EXPECT_EQ(sky.TopMost, c.topMost) << c.what;
    }
}

TEST(SkyWindow, FrameOfTheMainWindowFollowsTheSetting) {
    for (const char* value : {"0", "1", "-1"}) {
        Program program(std::string("Show_Sky_Cond=") + value + "\r\n");
        EXPECT_EQ(program.Main().fraSkyCond.Visible, value != std::string("0"));
    }
}

TEST(SkyWindow, MenuAndButtonShowAndHideIt) {
    Program program;
    for (Control* way : {static_cast<Control*>(&program.Main().mnuSkyCond),
                         static_cast<Control*>(&program.Main().Toolbar1.SkyCond)}) {
        const unsigned front = program.Sky().BroughtToFront;
        program.Click(*way);
        EXPECT_TRUE(program.Sky().Visible);
        EXPECT_TRUE(program.Main().mnuSkyCond.Checked);
        EXPECT_EQ(program.Sky().BroughtToFront, front + 1);
        program.Click(*way);
        EXPECT_FALSE(program.Sky().Visible);
        EXPECT_FALSE(program.Main().mnuSkyCond.Checked);
        EXPECT_EQ(program.Sky().BroughtToFront, front + 1);
    }
}

TEST(SkyWindow, CloseBoxHidesItAndItKeepsItsPlace) {
    Program program;
    program.Show();
    MoveForm(program.W(), program.Sky(), 30, 45);
    EXPECT_FALSE(CloseForm(program.W(), program.Sky()));
    EXPECT_FALSE(program.Sky().Visible);
    EXPECT_TRUE(program.Sky().Loaded);
    EXPECT_FALSE(program.Main().mnuSkyCond.Checked);
    program.Show();
    EXPECT_EQ(program.Sky().Left, 30);
    EXPECT_EQ(program.Sky().Top, 45);
}

TEST(SkyWindow, ShowsWhatTheMainWindowShows) {
    Program program("Main_Caption=North\r\n");
    FrmMain& main = program.Main();
    main.lblDateTime.Caption = "  1-May 12:00:00 ";
    for (std::size_t i = 0; i < 3; ++i) {
        main.CloudValue[i].Caption = "0010" + std::to_string(i);
        main.lblCloudtext[i].Caption = "Text " + std::to_string(i);
    }
    SetStatusPanel(program.W(), "  Status: WARN ", Red);
    EXPECT_EQ(program.Sky().Caption, "Sky Condition");
    EXPECT_EQ(program.Sky().lblStatus.Caption, "") << "not shown";
    program.Show();
    const FrmSkyCond& sky = program.Sky();
    EXPECT_EQ(sky.Caption, "Sky Condition [CUMERON - North]");
    EXPECT_EQ(sky.lblCT_2.Caption, "KN30");
    EXPECT_EQ(sky.lblDateTime.Caption, "1-May 12:00:00 ");
    EXPECT_EQ(sky.lblStatus.Caption, "Status: WARN ");
    EXPECT_EQ(sky.lblStatus.ForeColor, QBColor(Red));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(sky.CloudValue[i].Caption, main.CloudValue[i].Caption);
        EXPECT_EQ(sky.lblCloudtext[i].Caption, main.lblCloudtext[i].Caption);
    }
    SetStatusPanel(program.W(), "Status: OK", Black);
    EXPECT_EQ(sky.lblStatus.Caption, "Status: OK");
    EXPECT_EQ(sky.lblStatus.ForeColor, QBColor(Black));
    program.Show();
    SetStatusPanel(program.W(), "Status: ?", Red);
    EXPECT_EQ(sky.lblStatus.Caption, "Status: OK") << "hidden again";
    main.lblDateTime.Caption = "   ";
    program.Show();
    EXPECT_EQ(sky.lblDateTime.Caption, "");
    EXPECT_EQ(sky.lblStatus.Caption, "Status: ?");
}

TEST(SkyWindow, StatusLineTellsAlarmFromWarning) {
    Program program;
    FrmSkyCond& sky = program.Sky();
    sky.lblDateTime.BackColor = 0xABCDEF;
    const struct {
        const char* text;
        int colour;
        int fore, back;
        bool blinks;
    } steps[] = {
        {"Status: WARN", Red, QBColor(Red), -1, false},
        {"Status: OK", Black, QBColor(Black), 0xABCDEF, false},
        {"Status: ALARM", Red, QBColor(Black), QBColor(Red), true},
        {"Status: WARN", Red, QBColor(Red), QBColor(Red), true},
        {"Status: ALARM", Black, QBColor(Black), 0xABCDEF, false},
    };
    for (const auto& step : steps) {
        UpDateStatus(program.W(), step.text, step.colour);
        EXPECT_EQ(sky.lblStatus.Caption, step.text);
        EXPECT_EQ(sky.lblStatus.ForeColor, step.fore) << step.text;
        EXPECT_EQ(sky.lblStatus.BackColor, step.back) << step.text;
        EXPECT_EQ(sky.tmrAlarm.Enabled(), step.blinks) << step.text;
    }
}

TEST(SkyWindow, AlarmBlinksOnceASecond) {
    Program program;
    Label& line = program.Sky().lblStatus;
    UpDateStatus(program.W(), "Status: ALARM", Red);
    program.machine.Advance(MicrosPerSecond / 4);
    for (int half = 0; half < 4; ++half) {
        EXPECT_EQ(line.BackColor, half % 2 == 0 ? QBColor(Red) : -1) << half;
        program.machine.Advance(MicrosPerSecond / 2);
    }
    UpDateStatus(program.W(), "Status: OK", Black);
    program.machine.Advance(MicrosPerSecond / 2);
    EXPECT_EQ(line.BackColor, -1);
}

TEST(SkyWindow, ResizeScalesEverythingByTheSmallerRatio) {
    const struct {
        double width, height, ratio;
    } cases[] = {{2, 3, 2}, {3, 2, 2}, {0.5, 1, 0.5}, {1, 1, 1}};
    for (const auto& c : cases) {
        Program program;
        FrmSkyCond& sky = program.Sky();
        const Label before[] = {sky.lblCT_2,       sky.lblStatus,       sky.lblDateTime,
                                sky.CloudValue[2], sky.lblCloudtext[1], sky.lblSkyCond[9],
                                sky.lblSkyHead};
        const Label* after[] = {&sky.lblCT_2,       &sky.lblStatus,       &sky.lblDateTime,
                                &sky.CloudValue[2], &sky.lblCloudtext[1], &sky.lblSkyCond[9],
                                &sky.lblSkyHead};
        const Image symbol = sky.imgSky[4];
        program.Show();
        ResizeForm(program.W(), sky, 350.4 * c.width, 290.4 * c.height);
        for (std::size_t i = 0; i < std::size(before); ++i) {
            EXPECT_GT(before[i].Width, 0);
            EXPECT_NEAR(after[i]->Left, before[i].Left * c.ratio, 1e-9);
            EXPECT_NEAR(after[i]->Top, before[i].Top * c.ratio, 1e-9);
            EXPECT_NEAR(after[i]->Width, before[i].Width * c.ratio, 1e-9);
            EXPECT_NEAR(after[i]->Height, before[i].Height * c.ratio, 1e-9);
            EXPECT_EQ(after[i]->FontSize, std::nearbyint(before[i].FontSize * c.ratio));
        }
        EXPECT_GT(symbol.Width, 0);
        EXPECT_NEAR(sky.imgSky[4].Left, symbol.Left * c.ratio, 1e-9);
        EXPECT_NEAR(sky.imgSky[4].Top, symbol.Top * c.ratio, 1e-9);
        EXPECT_NEAR(sky.imgSky[4].Width, symbol.Width * c.ratio, 1e-9);
        EXPECT_NEAR(sky.imgSky[4].Height, symbol.Height * c.ratio, 1e-9);
    }
}

TEST(SkyWindow, SmallestFontIsOnePoint) {
    Program program;
    program.Show();
    ResizeForm(program.W(), program.Sky(), 0, 0);
    EXPECT_EQ(program.Sky().lblCT_2.FontSize, 1);
    ResizeForm(program.W(), program.Sky(), -10, 300);
    EXPECT_EQ(program.Sky().lblCT_2.Width, 0);
}

TEST(SkyWindow, AStoredSizeScalesTheDesign) {
    Program program(
        "Sky_Cond_On_Top=1\r\nSky_Win_Top=15\r\nSky_Win_Width=10512\r\nSky_Win_Height=8712\r\n");
    const double before = FrmSkyCond().CloudValue[0].Width;
    program.Show();
    EXPECT_NEAR(program.Sky().CloudValue[0].Width, 2 * before, 1e-9);
}

TEST(SkyWindow, LabelsLieInsideAndApart) {
    FrmSkyCond form;
    std::vector<const Label*> labels;
    for (const NamedControl& named : form.Controls()) {
        if (auto* const* label = std::get_if<Label*>(&named.control)) labels.push_back(*label);
    }
    EXPECT_EQ(form.Name, "frmSkyCond");
    EXPECT_EQ(form.CloudValue[0].Alignment, TextAlignment::Right);
    EXPECT_TRUE(form.CloudValue[0].Bold);
    for (const Label* label : labels) {
        EXPECT_GE(label->Height, 1.5 * label->FontSize);
        EXPECT_GE(label->Left, 0);
        EXPECT_LE(label->Left + label->Width, form.ScaleWidth());
        EXPECT_LE(label->Top + label->Height, form.ScaleHeight());
        for (const Label* other : labels) {
            if (other == label) continue;
            const bool apart = label->Left + label->Width <= other->Left ||
                               other->Left + other->Width <= label->Left ||
                               label->Top + label->Height <= other->Top ||
                               other->Top + other->Height <= label->Top;
            EXPECT_TRUE(apart);
        }
    }
}

TEST(SkyWindow, SymbolsStandBesideTheNumbersOfTheirLayers) {
    const FrmSkyCond form;
    for (std::size_t i = 0; i < form.imgSky.size(); ++i) {
        const Label& amount = form.lblSkyCond[2 * i];
        const Label& height = form.lblSkyCond[2 * i + 1];
        const Image& symbol = form.imgSky[i];
        EXPECT_EQ(symbol.Picture, "imgSkyCond(2)");
        EXPECT_EQ(symbol.Left, amount.Left);
        EXPECT_GE(symbol.Top, amount.Top);
        EXPECT_LE(symbol.Top + symbol.Height, amount.Top + amount.Height);
        EXPECT_EQ(symbol.Width, symbol.Height);
        EXPECT_LE(symbol.Width, amount.Width - amount.FontSize) << "no room for a number";
        EXPECT_EQ(2 * height.Left + height.Width, 2 * amount.Left + amount.Width);
        if (i > 0) {
            const Label& before = form.lblSkyCond[2 * i - 2];
            EXPECT_GE(symbol.Left - before.Left - before.Width, 9) << "whose number is it?";
        }
        EXPECT_GE(height.Top, amount.Top + amount.Height);
        for (const Control* control :
             {static_cast<const Control*>(&amount), static_cast<const Control*>(&symbol)}) {
            EXPECT_EQ(control->ToolTipText, SkyAmountTip);
        }
        EXPECT_EQ(height.ToolTipText, SkyHeightTip);
        for (const Label* label : {&amount, &height}) EXPECT_TRUE(label->Bold);
        EXPECT_EQ(height.Alignment, TextAlignment::Center);
    }
    EXPECT_EQ(form.lblSkyHead.Caption, "Sky condition, lowest layer first");
}

// The numbers of the pictures, "13562".
std::string Symbols(const FrmSkyCond& form) {
    std::string text;
    for (const Image& image : form.imgSky) text += image.Picture.at(11);
    return text;
}

std::string Captions(const std::array<Label, 10>& labels) {
    std::string text;
    for (const Label& label : labels) text += label.Caption + "|";
    return text;
}

TEST(SkyWindow, RepeatsTheLayersWithASymbolForEach) {
    const struct {
        const char* look;
        const char* block;
        const char* captions;
        const char* symbols;
    } cases[] = {
        {"0", "  1 0100  2 0200  0 ////  4 0400  9 0500", "1| 0100|2| 0200|||4| 0400|9| 0500|",
         "22222"},
        {"1", "  1 0100  2 0200  0 ////  4 0400  9 0500",
         "FEW| 0100|FEW| 0200|||SCT| 0400|VV| 0500|", "22222"},
        {"2", "  1 0100  2 0200  0 ////  4 0400  9 0500", "1| 0100|2| 0200|||4| 0400|9| 0500|",
         "11249"},
        {"2", "  0 ////  0 ////  3 0300  5 0400 10 0500", "||||3| 0300|5| 0400|10| 0500|", "02352"},
        {"2", "  6 ////  7 ////  8 ////  x ////  2 ////", "6||7||8||||2||", "67821"},
        {"2", "/// //// /// //// /// //// /// //// /// ////", "-1||||||||||", "22222"},
    };
    for (const auto& c : cases) {
        Program program(std::string("Cloud_Amount=") + c.look + "\r\n");
        Workstation& w = program.W();
        ParseSkyCondition(w.sky, c.block, 4, 4);
        ShowSkyCondition(w);
        program.Show();
        EXPECT_EQ(Captions(program.Sky().lblSkyCond), c.captions) << c.block;
        EXPECT_EQ(Symbols(program.Sky()), c.symbols) << c.look << c.block;
    }
}

TEST(SkyWindow, WithoutABlockItIsEmptyButForTheSymbolOfTheHighestLayer) {
    Program program("Cloud_Amount=2\r\n");
    Workstation& w = program.W();
    program.Show();
    const auto showLayers = [&] {
        ParseSkyCondition(w.sky, "  1 0100  3 0200  4 0300  5 0400  6 0500", 4, 4);
        ShowSkyCondition(w);
        UpDateSkyCond(w);
        program.Sky().CloudValue[1].Caption = "00100";
    };
    showLayers();
    w.sky.SkyValid = 0;
    UpDateSkyCond(w);
    EXPECT_EQ(Captions(program.Sky().lblSkyCond), "||||||||||");
    EXPECT_EQ(Symbols(program.Sky()), "22226");
    EXPECT_EQ(program.Sky().CloudValue[1].Caption, "00100");
    showLayers();
    ClearValues(w);
    EXPECT_EQ(Captions(program.Sky().lblSkyCond), "||||||||||");
    EXPECT_EQ(Symbols(program.Sky()), "22226");
    for (const Label& value : program.Sky().CloudValue) EXPECT_EQ(value.Caption, "");
}

TEST(SkyWindow, ShapeFollowsTheLookOfTheAmounts) {
    for (const std::int16_t look : {AmountNumbers, AmountTexts, AmountSymbols}) {
        const bool symbols = look == AmountSymbols;
        Program program("Cloud_Amount=" + std::to_string(look) + "\r\n");
        FrmSkyCond& sky = program.Sky();
        const auto checkShape = [&](const char* when) {
            for (std::size_t i = 0; i < sky.imgSky.size(); ++i) {
                EXPECT_EQ(sky.imgSky[i].Visible, symbols) << when;
                EXPECT_EQ(sky.lblSkyCond[2 * i].Alignment,
                          symbols ? TextAlignment::Right : TextAlignment::Center)
                    << when;
            }
        };
        checkShape("from the start");
        for (std::size_t i = 0; i < sky.imgSky.size(); ++i) {
            sky.imgSky[i].Visible = !symbols;
            sky.imgSky[i].Picture = "imgSkyCond(8)";
            sky.lblSkyCond[2 * i].Alignment = TextAlignment::Left;
        }
        for (Label& label : sky.lblSkyCond) label.Caption = "old";
        program.W().settings.Sky_Cond_On_Top = 1;
        ReShape(program.W());
        checkShape("again");
        EXPECT_EQ(Symbols(sky), symbols ? "88888" : "22222");
        EXPECT_EQ(Captions(sky.lblSkyCond), "|old||old||old||old||old|");
        EXPECT_TRUE(sky.TopMost);
    }
}

TEST(SkyWindow, IsUpToDateBeforeItIsSeen) {
    Program program("Main_Caption=North\r\n");
    std::string seen;
    program.Sky().Activate = [&](Workstation& w) { seen = w.frmSkyCond.Caption; };
    program.Show();
    EXPECT_EQ(seen, "Sky Condition [CUMERON - North]");
}

TEST(SkyWindow, AfterAStartThatFailedItIsShownAllTheSame) {
    Program program("Units=no number\r\nCloud_Amount=2\r\n");
    ASSERT_FALSE(program.Sky().Loaded);
    program.machine.dialogs.TakeBox();
    program.Show();
    EXPECT_TRUE(program.Sky().Visible);
    EXPECT_EQ(program.Sky().lblStatus.Caption, program.Main().sbaStatus.Status.Text);
    EXPECT_FALSE(program.Sky().imgSky[0].Visible);
}

TEST(SkyWindow, HasASizeWhateverTheSettingsSay) {
    for (const char* settings : {"Sky_Cond_On_Top=1\r\nSky_Win_Height=abc\r\n",
                                 "Sky_Cond_On_Top=1\r\nSky_Win_Height=0\r\nSky_Win_Width=-3\r\n"}) {
        Program program(settings);
        while (program.machine.dialogs.TakeBox()) {
        }
        program.Show();
        EXPECT_EQ(program.Sky().Width, 5256) << settings;
        EXPECT_EQ(program.Sky().Height, 4356) << settings;
    }
}

TEST(SkyWindow, TheEntryOpensAMinimisedWindow) {
    Program program;
    program.Show();
    ChangeWindowState(program.W(), program.Sky(), 1);
    program.Click(program.Main().mnuSkyCond);
    program.Click(program.Main().mnuSkyCond);
    EXPECT_TRUE(program.Sky().Visible);
    EXPECT_EQ(program.Sky().WindowState, 0);
}

TEST(SkyWindow, FurtherAlarmsDoNotBeginTheBlinkingAnew) {
    Program program;
    program.Show();
    UpDateStatus(program.W(), "ALARM", Red);
    const unsigned settings = program.Sky().tmrAlarm.Settings();
    UpDateStatus(program.W(), "ALARM again", Red);
    EXPECT_EQ(program.Sky().tmrAlarm.Settings(), settings);
}

TEST(SkyWindow, ClicksOnTheMainWindowCopyCaptions) {
    Program program;
    FrmMain& main = program.Main();
    FrmSkyCond& sky = program.Sky();
    for (const bool shown : {false, true}) {
        if (shown) program.Show();
        for (std::size_t i = 0; i < 3; ++i) {
            const std::string mark = std::to_string(i) + (shown ? " shown" : " hidden");
            for (std::size_t label = 0; label < 3; ++label) {
                main.CloudValue[label].Caption = "value " + mark + std::to_string(label);
                main.lblCloudtext[label].Caption = "text " + mark + std::to_string(label);
            }
            main.lblDateTime.Caption = " " + mark;
            program.Click(main.CloudValue[i]);
            program.Click(main.lblCloudtext[i]);
            program.Click(main.lblDateTime);
            for (std::size_t label = 0; label < 3; ++label) {
                EXPECT_EQ(sky.CloudValue[label].Caption == main.CloudValue[label].Caption, shown);
                EXPECT_EQ(sky.lblCloudtext[label].Caption == main.lblCloudtext[label].Caption,
                          shown);
            }
            EXPECT_EQ(sky.lblDateTime.Caption == main.lblDateTime.Caption, shown);
        }
    }
}

TEST(SkyWindow, ResetPutsTheDesignBack) {
    FrmSkyCond form;
    form.lblCT_2.Caption = "KN30";
    form.Loaded = true;
    form.Left = 5;
    form.Reset();
    EXPECT_EQ(form.lblCT_2.Caption, "");
    EXPECT_FALSE(form.Loaded);
    EXPECT_EQ(form.Left, 0);
    EXPECT_EQ(form.tmrAlarm.Interval, 500);
    EXPECT_FALSE(form.tmrAlarm.Enabled());
}

}  // namespace
}  // namespace cumeron
