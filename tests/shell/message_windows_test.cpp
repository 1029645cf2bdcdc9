#include "shell/message_windows.h"

#include <gtest/gtest.h>

#include "intake/models.h"
#include "platform/scripted/scripted_machine.h"
#include "readings/status_words.h"
#include "workstation.h"

namespace cumeron {
namespace {

class MessageWindow : public testing::Test {
protected:
    MessageWindow() { w.shell.MainTitle = "CUMERON - Port 1"; }

    ScriptedMachine machine;
    Workstation w{machine.platform};
    FrmDebug& form = w.frmDebug;
};

TEST_F(MessageWindow, PutsTheNewestFirst) {
    form.txtMessage.SelStart = 9;
    AddToMessageWindow(w, "first\r\n");
    AddToMessageWindow(w, "second\r\n");
    EXPECT_EQ(form.txtMessage.Text, "second\r\nfirst\r\n");
    EXPECT_EQ(form.txtMessage.SelStart, 0);
    EXPECT_TRUE(form.Loaded);
    EXPECT_FALSE(form.Visible);
}

TEST_F(MessageWindow, IsCutOnlyPastItsLimit) {
    const struct {
        std::size_t before, added, after;
    } cases[] = {
        {14999, 1, 15000}, {15000, 1, 8000},    {14000, 1001, 8000},
        {0, 20000, 8000},  {8000, 7000, 15000},
    };
    for (const auto& c : cases) {
        form.txtMessage.Text.assign(c.before, 'o');
        const std::string added(c.added, 'n');
        AddToMessageWindow(w, added);
        const std::string& text = form.txtMessage.Text;
        EXPECT_EQ(text.size(), c.after) << c.before << "+" << c.added;
        EXPECT_EQ(text, (added + std::string(c.before, 'o')).substr(0, c.after));
    }
}

TEST_F(MessageWindow, CaptionFollowsTheTitleAtLoadAndAtEachShowing) {
    AddToMessageWindow(w, "x");
    EXPECT_EQ(form.Caption, "Message [CUMERON - Port 1]");
    w.shell.MainTitle = "CUMERON - West";
    mnuShowMessage_Click(w);
    EXPECT_EQ(form.Caption, "Message [CUMERON - West]");
}

TEST_F(MessageWindow, TheMenuShowsIt) {
    mnuShowMessage_Click(w);
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(w.shell.MessageWindowOn, -1);
    EXPECT_TRUE(w.frmMain.mnuShowMessage.Checked);
    EXPECT_EQ(form.BroughtToFront, 1u);
    mnuShowMessage_Click(w);
    EXPECT_EQ(form.BroughtToFront, 2u);
}

TEST_F(MessageWindow, ClosingHidesItAndKeepsTheText) {
    mnuShowMessage_Click(w);
    AddToMessageWindow(w, "kept");
    EXPECT_FALSE(CloseForm(w, form));
    EXPECT_FALSE(form.Visible);
    EXPECT_TRUE(form.Loaded);
    EXPECT_EQ(w.shell.MessageWindowOn, 0);
    EXPECT_FALSE(w.frmMain.mnuShowMessage.Checked);
    AddToMessageWindow(w, "while hidden, ");
    EXPECT_FALSE(form.Visible);
    mnuShowMessage_Click(w);
    EXPECT_EQ(form.txtMessage.Text, "while hidden, kept");
}

TEST_F(MessageWindow, TheTextFillsTheWindow) {
    mnuShowMessage_Click(w);
    form.txtMessage.Left = form.txtMessage.Top = 5;
    ResizeForm(w, form, 333, 222);
    EXPECT_EQ(form.txtMessage.Left, 0);
    EXPECT_EQ(form.txtMessage.Top, 0);
    EXPECT_EQ(form.txtMessage.Width, 333);
    EXPECT_EQ(form.txtMessage.Height, 222);
}

TEST_F(MessageWindow, KeysAreThrownAway) {
    ASSERT_TRUE(form.txtMessage.KeyPress);
    EXPECT_EQ(form.txtMessage.KeyPress(w, 'a'), 0);
}

// What a form and its controls look like before anything has happened to them.
std::string Design(Form& form) {
    std::string text = form.Name + "|" + form.Caption + "|" + std::to_string(form.ScaleWidth()) +
                       "x" + std::to_string(form.ScaleHeight());
    for (const NamedControl& named : form.Controls()) {
        text += "|" + named.name;
        std::visit(
            [&](auto* control) {
                using Record = std::remove_pointer_t<decltype(control)>;
                if constexpr (std::is_base_of_v<Control, Record>) {
                    text += " " + std::to_string(control->Left) + "," +
                            std::to_string(control->Top) + "," + std::to_string(control->Width) +
                            "," + std::to_string(control->Height) + (control->Enabled ? "+" : "-");
                }
                if constexpr (std::is_same_v<Record, Button> || std::is_same_v<Record, Label>) {
                    text += control->Caption;
                }
                if constexpr (std::is_same_v<Record, TextBox>) {
                    text += control->Text + control->FontName + (control->MultiLine ? "*" : "");
                }
            },
            named.control);
    }
    return text;
}

TEST_F(MessageWindow, HasADesign) {
    EXPECT_EQ(Design(form),
              "frmDebug|Message|640.000000x360.000000"
              "|txtMessage 0.000000,0.000000,640.000000,360.000000+Courier*");
}

TEST_F(MessageWindow, UnloadingBringsTheDesignBack) {
    const std::string design = Design(form);
    AddToMessageWindow(w, "x");
    ResizeForm(w, form, 10, 10);
    UnloadForm(w, form);
    EXPECT_EQ(Design(form), design);
    EXPECT_FALSE(form.Loaded);
    ShowForm(w, form);
    EXPECT_EQ(form.Caption, "Message [CUMERON - Port 1]");
}

TEST(StatusWindow, NamesItsControls) {
    FrmStatus form;
    EXPECT_EQ(form.Name, "frmStatus");
    EXPECT_EQ(form.Caption, "Status");
    EXPECT_EQ(form.Label1.Caption, "Full Status Message can be asked from Ceilometer");
    EXPECT_EQ(form.cmdViewStatuswnd.Caption, "Status Message Window");
    EXPECT_EQ(form.Fstatusbutton.Caption, "Get Status Message");
    EXPECT_EQ(form.Command1.Caption, "Close");
    std::string names;
    for (const NamedControl& named : form.Controls()) names += named.name + " ";
    EXPECT_EQ(names, "lblStatusText Label1 cmdViewStatuswnd Fstatusbutton Command1 ");
}

TEST(StatusWindow, ResetBringsTheDesignBack) {
    FrmStatus form;
    const std::string design = Design(form);
    form.Fstatusbutton.Enabled = false;
    form.Width = 1;
    form.Loaded = true;
    EXPECT_NE(Design(form), design);
    form.Reset();
    EXPECT_EQ(Design(form), design);
    EXPECT_FALSE(form.Loaded);
}

class StatusWindows : public testing::Test {
protected:
    StatusWindows() {
        w.shell.MainTitle = "CUMERON - Port 1";
        w.settings.CEILOMETER = 30;
        w.settings.Message_Interval = 15;
        LoadModel(w, LoadedBy::Start);
        w.intake.IntervalSeekState = 4;
    }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }

    ScriptedMachine machine;
    Workstation w{machine.platform};
    FrmStatus& form = w.frmStatus;
};

TEST_F(StatusWindows, TheMenuShowsTheStatus) {
    mnuShowStatus_Click(w);
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(ModalForm(w), nullptr);
    EXPECT_TRUE(w.frmMain.mnuShowStatus.Checked);
    EXPECT_EQ(form.BroughtToFront, 1u);
    mnuShowStatus_Click(w);
    EXPECT_EQ(form.BroughtToFront, 2u);
    form.Command1.Click(w);
    EXPECT_FALSE(form.Loaded);
    EXPECT_FALSE(w.frmMain.mnuShowStatus.Checked);
}

TEST_F(StatusWindows, MenuAndToolbarReachIt) {
    w.frmMain.mnuShowStatus.Click(w);
    EXPECT_TRUE(form.Visible);
    UnloadForm(w, form);
    w.frmMain.Toolbar1.Status.Click(w);
    EXPECT_TRUE(form.Visible);
}

TEST_F(StatusWindows, TheStatusOpensALittleAboveTheMiddle) {
    machine.platform.screen = {1600, 900, 0};
    mnuShowStatus_Click(w);
    EXPECT_DOUBLE_EQ(form.Top, 900 * 15 / 2.0 - 2 * form.Height / 3);
    EXPECT_DOUBLE_EQ(form.Left, 1600 * 15 / 2.0 - form.Width / 2);
    EXPECT_EQ(form.normalTop, form.Top);
}

TEST_F(StatusWindows, TheTextIsBuiltAfreshAndFollowsEachMessage) {
    w.readings.StatusText = "old";
    mnuShowStatus_Click(w);
    const std::string& shown = form.lblStatusText.Caption;
    EXPECT_TRUE(shown.starts_with("Message Interval: 15 s\nTilt Angle: degrees\n")) << shown;
    EXPECT_EQ(shown.find('\r'), shown.npos);
    w.readings.AngleText = "+02";
    BuildStatusText(w);
    EXPECT_TRUE(shown.starts_with("Message Interval: 15 s\nTilt Angle: +02degrees\n")) << shown;
}

TEST_F(StatusWindows, TheFullMessageTakesThePlaceOfTheStatus) {
    mnuShowStatus_Click(w);
    form.cmdViewStatuswnd.Click(w);
    EXPECT_EQ(Box(), "no box");
    EXPECT_FALSE(form.Loaded);
    EXPECT_TRUE(w.frmSmsg.Visible);
    EXPECT_EQ(w.frmSmsg.BroughtToFront, 1u);
    EXPECT_EQ(w.frmSmsg.Caption, "Status Message [CUMERON - Port 1]");
}

TEST_F(StatusWindows, TheRv10xHasNoFullMessage) {
    w.settings.CEILOMETER = 10;
    mnuShowStatus_Click(w);
    form.cmdViewStatuswnd.Click(w);
    EXPECT_EQ(Box(), "Function available only with RV70X and RV20X");
    form.Fstatusbutton.Click(w);
    EXPECT_EQ(Box(), "Function available only with KN30, KN50, RV70X and RV20X");
    EXPECT_EQ(Box(), "no box");
    EXPECT_TRUE(form.Visible);
    EXPECT_FALSE(w.frmSmsg.Loaded);
}

TEST_F(StatusWindows, TheEnquiryClosesTheStatusAfterPendingEvents) {
    mnuShowStatus_Click(w);
    bool served = false;
    machine.time.At(0, [&] { served = form.Visible; });
    form.Fstatusbutton.Click(w);
    EXPECT_TRUE(served);
    EXPECT_FALSE(form.Loaded);
    EXPECT_TRUE(Box().starts_with("THE COMMUNICATION PORT IS CLOSED.")) << "it has begun";
}

TEST_F(StatusWindows, OneEnquiryRunsAtATime) {
    mnuShowStatus_Click(w);
    w.intake.EnquiryBusy = 1;
    form.Fstatusbutton.Click(w);
    EXPECT_EQ(Box(), "Status Message Handling in Progress, Please Wait!");
    EXPECT_EQ(Box(), "no box");
    EXPECT_TRUE(form.Visible);
}

TEST_F(StatusWindows, TheFullMessageNamesTheTitleAndFillsItsWindow) {
    ShowForm(w, w.frmSmsg);
    w.shell.MainTitle = "CUMERON - West";
    ShowForm(w, w.frmSmsg);
    EXPECT_EQ(w.frmSmsg.Caption, "Status Message [CUMERON - West]");
    w.frmSmsg.stsMessage.Left = w.frmSmsg.stsMessage.Top = 5;
    ResizeForm(w, w.frmSmsg, 333, 222);
    EXPECT_EQ(w.frmSmsg.stsMessage.Left, 0);
    EXPECT_EQ(w.frmSmsg.stsMessage.Top, 0);
    EXPECT_EQ(w.frmSmsg.stsMessage.Width, 333);
    EXPECT_EQ(w.frmSmsg.stsMessage.Height, 222);
}

TEST_F(StatusWindows, AFullMessageNamesTheTitleAlreadyWhenLoaded) {
    LoadForm(w, w.frmSmsg);
    EXPECT_EQ(w.frmSmsg.Caption, "Status Message [CUMERON - Port 1]");
}

TEST_F(StatusWindows, TheFullMessageStaysDuringAnEnquiry) {
    ShowForm(w, w.frmSmsg);
    w.frmSmsg.stsMessage.Text = "half an answer";
    w.intake.EnquiryBusy = 1;
    EXPECT_FALSE(CloseForm(w, w.frmSmsg));
    EXPECT_EQ(Box(), "Status Message Handling in Progress, Please Wait!");
    EXPECT_EQ(w.frmSmsg.stsMessage.Text, "half an answer");
    w.intake.EnquiryBusy = 0;
    EXPECT_TRUE(CloseForm(w, w.frmSmsg));
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(w.frmSmsg.stsMessage.Text, "");
}

}  // namespace
}  // namespace cumeron
