#include "shell/message_windows.h"

#include <gtest/gtest.h>

#include "platform/scripted/scripted_machine.h"
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
    EXPECT_EQ(names, "Label1 cmdViewStatuswnd Fstatusbutton Command1 ");
}

TEST(StatusWindow, ControlsLieInTheWindowSideBySide) {
    FrmStatus form;
    const Control* row[] = {&form.cmdViewStatuswnd, &form.Fstatusbutton, &form.Command1};
    double right = 0;
    for (const Control* button : row) {
        EXPECT_GT(button->Left, right);
        EXPECT_GT(button->Width, 0);
        EXPECT_GE(button->Top, form.Label1.Top + form.Label1.Height);
        EXPECT_LE(button->Top + button->Height, form.ScaleHeight());
        right = button->Left + button->Width;
    }
    EXPECT_LE(right, form.ScaleWidth());
    EXPECT_GT(form.Label1.Height, 0);
    EXPECT_LE(form.Label1.Left + form.Label1.Width, form.ScaleWidth());
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

}  // namespace
}  // namespace cumeron
