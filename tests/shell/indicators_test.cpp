#include "shell/indicators.h"

#include <gtest/gtest.h>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "platform/surface.h"
#include "workstation.h"

namespace cumeron {
namespace {

class Indicators : public testing::Test {
protected:
    ScriptedMachine machine;
    Workstation w{machine.platform};
    FrmMain::StatusBar& bar = w.frmMain.sbaStatus;
};

TEST_F(Indicators, RedShowsThePictureAnyOtherColourThePlaceHolder) {
    const struct {
        const char* what;
        void (*set)(Workstation&, std::string_view, int);
        Panel FrmMain::StatusBar::*text;
        Panel FrmMain::StatusBar::*picture;
        Panel FrmMain::StatusBar::*placeHolder;
    } panels[] = {
        {"Errors", SetErrorsPanel, &FrmMain::StatusBar::Errors, &FrmMain::StatusBar::Errors_Image,
         &FrmMain::StatusBar::Errors_Image_Void},
        {"Status", SetStatusPanel, &FrmMain::StatusBar::Status, &FrmMain::StatusBar::Status_Image,
         &FrmMain::StatusBar::Status_Image_Void},
        {"Battery", SetBatteryPanel, &FrmMain::StatusBar::Battery,
         &FrmMain::StatusBar::Battery_Image, &FrmMain::StatusBar::Battery_Image_Void},
    };
    for (const auto& panel : panels) {
        for (const int colour : {Black, Red, Green, Red, 12, Red, Black}) {
            const std::string text = std::string(panel.what) + std::to_string(colour);
            panel.set(w, text, colour);
            EXPECT_EQ((bar.*panel.text).Text, text);
            EXPECT_EQ((bar.*panel.picture).Visible, colour == Red) << text;
            EXPECT_EQ((bar.*panel.placeHolder).Visible, colour != Red) << text;
        }
    }
}

TEST_F(Indicators, OnlyARedAlarmOnTheOpenLineBeeps) {
    const struct {
        const char* text;
        int colour;
        bool portOpen;
        int beeps;
    } cases[] = {
        {"Status: ALARM", Red, true, 1},   {"ALARM", Red, true, 1},
        {"Status: ALARM", Red, false, 0},  {"Status: ALARM", Black, true, 0},
        {"Status: ALARM", Green, true, 0}, {"Status: WARN", Red, true, 0},
        {"Status: alarm", Red, true, 0},   {"", Red, true, 0},
    };
    for (const auto& c : cases) {
        machine.line.SetPortOpen(c.portOpen);
        SetStatusPanel(w, c.text, c.colour);
        EXPECT_EQ(machine.dialogs.TakeBeeps(), c.beeps)
            << c.text << " in " << c.colour << (c.portOpen ? ", open" : ", closed");
    }
}

TEST_F(Indicators, EveryAlarmBeepsAgain) {
    machine.line.SetPortOpen(true);
    SetStatusPanel(w, "Status: ALARM", Red);
    SetStatusPanel(w, "Status: ALARM", Red);
    EXPECT_EQ(machine.dialogs.TakeBeeps(), 2);
}

TEST_F(Indicators, RedErrorsDoNotBeep) {
    machine.line.SetPortOpen(true);
    SetErrorsPanel(w, "ALARM", Red);
    SetBatteryPanel(w, "ALARM", Red);
    EXPECT_EQ(machine.dialogs.TakeBeeps(), 0);
}

TEST_F(Indicators, LogAndActionShowTheirTexts) {
    SetLogPanel(w, "LOG ON");
    SetActionPanel(w, "Handling message");
    EXPECT_EQ(bar.Log.Text, "LOG ON");
    EXPECT_EQ(bar.Action.Text, "Handling message");
}

TEST_F(Indicators, ThePointerIsAnHourglassWhileBusy) {
    SetBusyPointer(w);
    EXPECT_EQ(w.frmMain.MousePointer, 11);
    SetDefaultPointer(w);
    EXPECT_EQ(w.frmMain.MousePointer, 0);
}

double At(int hour, int minute, int second) {
    return DateSerial(2026, 5, 1) + TimeSerial(hour, minute, second);
}

TEST_F(Indicators, MessageTimeShowsTheDateUnlessItIsABareTime) {
    const struct {
        double when;
        const char* caption;
    } cases[] = {
        {At(10, 1, 0), "1-May 10:01:00"},
        {TimeSerial(10, 1, 0), "10:01:00"},
        {0, "00:00:00"},
        {1.0, "00:00:00"},
        {1.5, "31-Dec 12:00:00"},
    };
    for (const auto& c : cases) {
        w.frmMain.lblDateTime.ForeColor = 1;
        ShowMessageTime(w, c.when);
        EXPECT_EQ(w.frmMain.lblDateTime.Caption, c.caption);
        EXPECT_EQ(w.frmMain.lblDateTime.ForeColor, QBColor(2));
    }
}

TEST_F(Indicators, MessageTimesMeasureTheInterval) {
    const struct {
        const char* what;
        std::int16_t compress, interval;
        std::vector<double> times;
        std::int16_t state, measured;
        bool drawnAnew;
    } cases[] = {
        {"two are too few", 0, 15, {At(10, 0, 0), At(10, 0, 30)}, 2, 15, false},
        {"as set", 0, 15, {At(10, 0, 0), At(10, 0, 15), At(10, 0, 30)}, 4, 15, false},
        {"another", 0, 15, {At(10, 0, 0), At(10, 0, 30), At(10, 1, 0)}, 4, 30, true},
        {"as set, pairs", 1, 30, {At(10, 0, 0), At(10, 0, 15), At(10, 0, 30)}, 4, 30, false},
        {"another, pairs", 1, 15, {At(10, 0, 0), At(10, 0, 30), At(10, 1, 0)}, 4, 60, true},
        {"as set, threes", 2, 45, {At(10, 0, 0), At(10, 0, 15), At(10, 0, 30)}, 4, 45, false},
        {"another, threes", 2, 45, {At(10, 0, 0), At(10, 0, 20), At(10, 0, 40)}, 4, 60, true},
        // 25 / 2 is 12, not 13, and 24 when it is multiplied back
        {"a set half goes to even",
         1,
         25,
         {At(10, 0, 0), At(10, 0, 12), At(10, 0, 24)},
         4,
         24,
         false},
        {"spans differ", 0, 15, {At(10, 0, 0), At(10, 0, 20), At(10, 0, 50)}, 2, 15, false},
        {"no span", 0, 15, {At(10, 0, 0), At(10, 0, 0), At(10, 0, 0)}, 2, 15, false},
        {"backwards", 0, 15, {At(10, 0, 30), At(10, 0, 15), At(10, 0, 0)}, 2, 15, false},
        {"spans differ at first",
         0,
         15,
         {At(10, 0, 0), At(10, 0, 20), At(10, 0, 50), At(10, 1, 20)},
         4,
         30,
         true},
        {"later ones are not measured",
         0,
         15,
         {At(10, 0, 0), At(10, 0, 15), At(10, 0, 30), At(10, 2, 30), At(10, 4, 30)},
         4,
         15,
         false},
    };
    for (const auto& c : cases) {
        Workstation fresh(machine.platform);
        fresh.settings.Compress = c.compress;
        fresh.settings.Message_Interval = c.interval;
        fresh.graphs.TimeLabelsDirty = fresh.graphs.HeightLabelsDirty = 0;
        Surface* const labels[] = {&fresh.frmMain.picXLabels, &fresh.frmMain.picYLabels};
        for (Surface* surface : labels) surface->Print("old");
        for (const double when : c.times) ShowMessageTime(fresh, when);
        EXPECT_EQ(fresh.intake.IntervalSeekState, c.state) << c.what;
        EXPECT_EQ(fresh.settings.Message_Interval, c.measured) << c.what;
        for (const Surface* surface : labels) {
            const bool old = !surface->Printed().empty() && surface->Printed()[0].text == "old";
            EXPECT_EQ(old, !c.drawnAnew) << c.what;
        }
        EXPECT_EQ(fresh.graphs.TimeLabelsDirty, 0) << c.what;
    }
}

TEST_F(Indicators, AMeasuredIntervalThatDoesNotFitIsAnOverflow) {
    const struct {
        std::int16_t compress;
        int seconds;
    } cases[] = {{2, 11000}, {0, 40000}};
    for (const auto& c : cases) {
        Workstation fresh(machine.platform);
        fresh.settings.Compress = c.compress;
        fresh.settings.Message_Interval = 45;
        const double step = c.seconds / 86400.0;
        ShowMessageTime(fresh, At(0, 0, 0));
        ShowMessageTime(fresh, At(0, 0, 0) + step);
        try {
            ShowMessageTime(fresh, At(0, 0, 0) + 2 * step);
            ADD_FAILURE() << c.seconds;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 6);
        }
        EXPECT_EQ(fresh.settings.Message_Interval, 45) << "the old interval stays";
        EXPECT_EQ(fresh.intake.IntervalSeekState, 4) << "later times are only shown";
    }
}

TEST_F(Indicators, ResetEmptiesWhatAReplayHasShown) {
    w.frmMain.CloudValue[1].Caption = "01230";
    SetBatteryPanel(w, "Working from Battery", Red);
    SetErrorsPanel(w, "Msg 1", Black);
    for (ProfileSlotRecord& slot : w.graphs.ProfileRing) slot.Valid = -1;
    ResetIndicators(w);
    EXPECT_EQ(w.frmMain.CloudValue[1].Caption, "");
    EXPECT_EQ(bar.Status.Text, "Status:    OK");
    for (const ProfileSlotRecord& slot : w.graphs.ProfileRing) EXPECT_EQ(slot.Valid, 0);
    EXPECT_EQ(bar.Errors.Text, "OFF-line");
    EXPECT_TRUE(bar.Errors_Image.Visible);
    EXPECT_EQ(bar.Battery.Text, "");
    EXPECT_FALSE(bar.Battery_Image.Visible);
}

TEST_F(Indicators, AFailedStatementIsToldAndTheNextOneRuns) {
    ReportAndGoOn(w, [] { throw RuntimeError(53); });
    EXPECT_TRUE(machine.dialogs.TakeBox().has_value());
    bool ran = false;
    ReportAndGoOn(w, [&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_FALSE(machine.dialogs.TakeBox().has_value());
    EXPECT_THROW(ReportAndGoOn(w, [] { throw ProcessEnd{0}; }), ProcessEnd);
}

TEST_F(Indicators, ReportErrorTellsTextAndNumber) {
    const std::string head = "The following Error occurred:\r\n\r\n";
    const std::string hint =
        "\r\n\r\nCommunication port may already be in use\r\n"
        "or disk drive is not available.\r\n";
    const struct {
        const char* what;
        RuntimeError error;
        bool portOpen;
        std::string box;
    } cases[] = {
        {"any", RuntimeError(53), false, head + "File not found\r\nError Number: 53"},
        {"no device", RuntimeError(68), false,
         head + "Device unavailable\r\nError Number: 68" + hint},
        {"no device, port open", RuntimeError(68), true,
         head + "Device unavailable\r\nError Number: 68"},
        {"text of the platform", RuntimeError(70, "Ask for the group dialout"), false,
         head + "Ask for the group dialout\r\nError Number: 70"},
    };
    for (const auto& c : cases) {
        machine.line.SetPortOpen(c.portOpen);
        ReportError(w, c.error);
        EXPECT_EQ(machine.dialogs.TakeBox().value_or("no box"), c.box) << c.what;
        EXPECT_EQ(machine.dialogs.TakeBeeps(), 1) << c.what;
    }
}

}  // namespace
}  // namespace cumeron
