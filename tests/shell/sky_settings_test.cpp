#include "shell/sky_settings.h"

#include <gtest/gtest.h>

#include "graphs/settings_dialog.h"

namespace cumeron {
namespace {

// A running program in which an operator works in the dialog.
struct Bench {
    explicit Bench(const std::string& lines = "") : program(lines) {}

    // Shows the dialog and lets the operator work in it, who is to leave it.
    void Work(const std::function<void()>& work) {
        bool worked = false;
        program.machine.time.At(0, [&] {
            EXPECT_EQ(ModalForm(w), &form);
            work();
            worked = true;
        });
        program.Click(w.frmMain.mnuSkyCondSettings);
        EXPECT_TRUE(worked);
        EXPECT_FALSE(form.Loaded);
    }
    void Look(const std::function<void()>& look) {
        Work([&] {
            look();
            form.cmdCancel.Click(w);
        });
    }
    void Ok(const std::function<void()>& work = [] {}) {
        Work([&] {
            work();
            form.cmdOk.Click(w);
        });
    }
    void Tick(CheckBox& box, int value) {
        box.Value = value;
        if (box.Click) box.Click(w);
    }
    void Receive(std::string_view block) {
        ParseSkyCondition(w.sky, block, 4, 4);
        ShowSkyCondition(w);
    }

    RunningProgram program;
    Workstation& w = program.W();
    FrmSkyCondSettings& form = w.frmSkyCondSettings;
};

TEST(SkySettings, ShowsWhatIsInForce) {
    const struct {
        const char* lines;
        int look, shown, top;
    } cases[] = {
        {"", 0, 0, 0},
        {"Cloud_Amount=1\r\nShow_Sky_Cond=1\r\n", 1, 1, 0},
        {"Cloud_Amount=2\r\nShow_Sky_Cond=-1\r\nSky_Cond_On_Top=1\r\n", 2, 1, 1},
        {"Cloud_Amount=3\r\nSky_Cond_On_Top=1\r\n", -1, 0, 1},
        {"Cloud_Amount=-1\r\nShow_Sky_Cond=1\r\nSky_Cond_On_Top=2\r\n", -1, 1, 0},
    };
    for (const auto& c : cases) {
        Bench bench(c.lines);
        bench.Look([&] {
            EXPECT_EQ(Chosen(bench.form.optCloudAmount), c.look) << c.lines;
            EXPECT_EQ(bench.form.chkShowSkyCond.Value, c.shown) << c.lines;
            EXPECT_EQ(bench.form.chkSkyCondTop.Value, c.top) << c.lines;
            EXPECT_EQ(bench.form.chkSkyCondTop.Enabled, c.shown == 1) << c.lines;
            EXPECT_EQ(bench.form.chkSkyCondTop.Visible, c.shown == 1) << c.lines;
        });
    }
}

TEST(SkySettings, OnTopIsAskedOnlyWithTheSkyConditionShown) {
    Bench bench;
    bench.Look([&] {
        for (const int shown : {1, 0, 1}) {
            bench.Tick(bench.form.chkShowSkyCond, shown);
            EXPECT_EQ(bench.form.chkSkyCondTop.Enabled, shown == 1);
            EXPECT_EQ(bench.form.chkSkyCondTop.Visible, shown == 1);
        }
    });
}

TEST(SkySettings, OkTakesEachChoice) {
    const struct {
        const char* lines;
        int choose;  // -1: nothing
        int shown, top;
        std::int16_t look;
    } cases[] = {
        {"Cloud_Amount=2\r\n", 0, 1, 0, 0},
        {"", 1, 1, 1, 1},
        {"", 2, 0, 0, 2},
        {"Cloud_Amount=7\r\n", -1, 0, 1, 2},
        {"Show_Sky_Cond=-1\r\nSky_Cond_On_Top=5\r\n", 0, 0, 0, 0},
    };
    for (const auto& c : cases) {
        Bench bench(c.lines);
        bench.Ok([&] {
            if (c.choose >= 0) {
                ChooseOption(bench.w, bench.form,
                             bench.form.optCloudAmount[static_cast<std::size_t>(c.choose)]);
            }
            bench.Tick(bench.form.chkShowSkyCond, c.shown);
            bench.Tick(bench.form.chkSkyCondTop, c.top);
        });
        EXPECT_EQ(bench.w.settings.Cloud_Amount, c.look) << c.lines;
        EXPECT_EQ(bench.w.settings.Show_Sky_Cond, c.shown) << c.lines;
        EXPECT_EQ(bench.w.settings.Sky_Cond_On_Top, c.top) << c.lines;
        EXPECT_EQ(bench.w.frmMain.fraSkyCond.Visible, c.shown == 1) << c.lines;
        EXPECT_EQ(bench.w.frmSkyCond.TopMost, c.top == 1) << c.lines;
    }
}

TEST(SkySettings, CancelTakesNothing) {
    Bench bench("Cloud_Amount=1\r\n");
    bench.Look([&] {
        ChooseOption(bench.w, bench.form, bench.form.optCloudAmount[2]);
        bench.Tick(bench.form.chkShowSkyCond, 1);
        bench.Tick(bench.form.chkSkyCondTop, 1);
    });
    EXPECT_EQ(bench.w.settings.Cloud_Amount, 1);
    EXPECT_EQ(bench.w.settings.Show_Sky_Cond, 0);
    EXPECT_EQ(bench.w.settings.Sky_Cond_On_Top, 0);
    EXPECT_FALSE(bench.w.frmMain.fraSkyCond.Visible);
}

TEST(SkySettings, OkChangesWhatIsOnTheScreen) {
    for (const bool shown : {false, true}) {
        Bench bench;
        if (shown) bench.program.Click(bench.w.frmMain.mnuSkyCond);
        bench.Receive("  2 0450 99 1200  0 ////  8 9000");
        if (shown) UpDateSkyCond(bench.w);
        bench.Ok([&] { ChooseOption(bench.w, bench.form, bench.form.optCloudAmount[1]); });
        EXPECT_EQ(bench.w.frmMain.lblSkyCond[2].Caption, "Na");
        EXPECT_EQ(bench.w.frmSkyCond.lblSkyCond[2].Caption, shown ? "Na" : "");
        bench.Ok([&] { ChooseOption(bench.w, bench.form, bench.form.optCloudAmount[2]); });
        EXPECT_EQ(bench.w.frmMain.imgSky[2].Picture, "imgSkyCond(8)");
        EXPECT_TRUE(bench.w.frmMain.imgSky[2].Visible);
        EXPECT_EQ(bench.w.frmSkyCond.imgSky[3].Picture, shown ? "imgSkyCond(8)" : "imgSkyCond(2)");
        EXPECT_TRUE(bench.w.frmSkyCond.imgSky[3].Visible);
    }
}

TEST(SkySettings, AWindowThatGoesOnTopLaysTheMainWindowOutAnew) {
    const struct {
        const char* lines;
        int top;
        bool laidOut;
    } cases[] = {{"", 1, true},
                 {"", 0, false},
                 {"Sky_Cond_On_Top=1\r\n", 1, false},
                 {"Sky_Cond_On_Top=1\r\n", 0, false}};
    for (const auto& c : cases) {
        Bench bench(c.lines);
        bench.w.frmMain.fraValues.Left = 3;
        bench.Ok([&] { bench.Tick(bench.form.chkSkyCondTop, c.top); });
        EXPECT_EQ(bench.w.frmMain.fraValues.Left != 3, c.laidOut) << c.lines << c.top;
    }
}

TEST(SkySettings, TheDialogIsNotCoveredByAWindowOnTop) {
    for (const bool shown : {false, true}) {
        Bench bench("Sky_Cond_On_Top=1\r\n");
        if (shown) bench.program.Click(bench.w.frmMain.mnuSkyCond);
        EXPECT_TRUE(bench.w.frmSkyCond.TopMost);
        bench.Look([&] { EXPECT_FALSE(bench.w.frmSkyCond.TopMost); });
        EXPECT_TRUE(bench.w.frmSkyCond.TopMost);
        bench.Work([&] { CloseForm(bench.w, bench.form); });
        EXPECT_TRUE(bench.w.frmSkyCond.TopMost);
    }
}

TEST(SkySettings, RestoredDefaultsReachBothWindows) {
    Bench bench("Cloud_Amount=2\r\nShow_Sky_Cond=1\r\nSky_Cond_On_Top=1\r\n");
    bench.program.Click(bench.w.frmMain.mnuSkyCond);
    bench.Receive("  2 0450 99 1200  0 ////  8 9000");
    bench.program.Click(bench.w.frmMain.mnuRestore);
    EXPECT_FALSE(bench.w.frmMain.fraSkyCond.Visible);
    EXPECT_FALSE(bench.w.frmMain.imgSky[1].Visible);
    EXPECT_FALSE(bench.w.frmSkyCond.imgSky[0].Visible);
    EXPECT_FALSE(bench.w.frmSkyCond.TopMost);
    EXPECT_EQ(bench.w.frmSkyCond.lblSkyCond[2].Caption, "99");
}

TEST(SkySettings, HasItsTextsAndNames) {
    FrmSkyCondSettings form;
    EXPECT_EQ(form.Name, "frmSkyCondSettings");
    EXPECT_EQ(form.Caption, "Sky Condition Settings");
    EXPECT_EQ(Captions(form.optCloudAmount),
              (std::vector<std::string>{"Numbers", "Text", "Symbols and Numbers"}));
    for (const OptionButton& option : form.optCloudAmount) EXPECT_NE(option.ToolTipText, "");
    EXPECT_EQ(form.fraCloudAmount.Caption, "Cloud Amount");
    EXPECT_EQ(form.chkShowSkyCond.Caption, "Show Sky Condition in Main Window");
    EXPECT_EQ(form.chkSkyCondTop.Caption, "Sky Condition Window Always on Top");
    EXPECT_EQ(form.cmdOk.Caption, "OK");
    EXPECT_EQ(form.cmdCancel.Caption, "Cancel");
    EXPECT_EQ(Names(form),
              (std::vector<std::string>{"fraCloudAmount", "fraCloudAmount.optCloudAmount(0)",
                                        "fraCloudAmount.optCloudAmount(1)",
                                        "fraCloudAmount.optCloudAmount(2)", "chkShowSkyCond",
                                        "chkSkyCondTop", "cmdOk", "cmdCancel"}));
}

}  // namespace
}  // namespace cumeron
