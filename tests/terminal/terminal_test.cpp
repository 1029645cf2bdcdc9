#include "terminal/terminal.h"

#include <gtest/gtest.h>

#include "intake/port.h"
#include "platform/runtime/errors.h"
#include "session.h"
#include "shell/indicators.h"

namespace cumeron {
namespace {

TEST(BlockOf, TakesLineEndsAndBackspaces) {
    using std::string_literals::operator""s;
    const struct {
        const char* what;
        std::string data;
        std::size_t takenBack;
        std::string text;
    } cases[] = {
        {"nothing", "", 0, ""},
        {"a line end", "AB\r\nC", 0, "AB\r\nC"},
        {"a carriage return alone", "AB\rC", 0, "AB\r\nC"},
        {"a line feed alone", "AB\nC", 0, "ABC"},
        {"the wrong way round", "AB\n\rC", 0, "AB\r\nC"},
        {"a character taken back", "XY\bZ", 0, "XZ"},
        {"several taken back", "XYZ\b\b\bA", 0, "A"},
        {"more than there are", "X\b\b\bA", 2, "A"},
        {"at the beginning", "\bA", 1, "A"},
        {"a line feed taken back", "A\n\bB", 0, "AB"},
        {"a carriage return taken back", "A\r\bB", 0, "AB"},
        {"nothing but backspaces", "\b\b", 2, ""},
        {"all that is no text", "\0\x01\x1B\x7F\x80\x9F\xFF"s, 0, "\0\x01\x1B\x7F\x80\x9F\xFF"s},
    };
    for (const auto& c : cases) {
        const TerminalBlock block = BlockOf(c.data);
        EXPECT_EQ(block.takenBack, c.takenBack) << c.what;
        EXPECT_EQ(block.text, c.text) << c.what;
    }
}

TEST(Terminal, BackspacesEndAtTheBeginningOfTheBox) {
    Session session(Line::Open);
    session.Arrive("AB");
    session.Arrive("\b\b\b\bC");
    EXPECT_EQ(session.Text(), "C");
    EXPECT_EQ(session.Form().txtTerm.SelStart, 1);
}

TEST(Terminal, IsCutBeforeTheNextBlock) {
    const struct {
        std::size_t held, left;
    } cases[] = {{15999, 15999}, {16000, 16000}, {16001, 11905}, {65537, 61441}, {1000000, 995904}};
    for (const auto& c : cases) {
        Session session(Line::Open);
        session.Arrive(std::string(c.held - 1, 'a') + "b");
        EXPECT_EQ(session.Text().size(), c.held);
        session.Arrive("new");
        EXPECT_EQ(session.Text().size(), c.left + 3);
        EXPECT_TRUE(session.Text().ends_with("abnew"));
        EXPECT_EQ(session.Form().txtTerm.SelStart, static_cast<int>(c.left + 3));
    }
}

// 19200 baud bring 1920 bytes a second; the box holds no more after an hour than after ten seconds.
TEST(Terminal, HoldsNoMoreAfterAnHourOfContinuousData) {
    Session session(Line::Open);
    const std::string block = std::string(62, 'x') + "\r\n";
    std::size_t most = 0;
    for (int i = 0; i < 3600 * 1920 / 64; ++i) {
        session.Arrive(block);
        most = std::max(most, session.Text().size());
    }
    EXPECT_LE(most, 16000u + 64u);
}

// What arrives while a block is shown comes without an event of its own.
TEST(Terminal, NothingWaitsForAnotherByte) {
    Session session(Line::Open);
    session.machine.time.At(5000, [&] { session.machine.line.Arrive("second "); });
    session.machine.time.At(15000, [&] { session.machine.line.Arrive("third"); });
    session.Arrive("first ");
    EXPECT_EQ(session.Text(), "first second third");
    EXPECT_EQ(session.machine.line.InBufferCount(), 0);
}

TEST(Terminal, MayBeLeftWhileABlockIsShown) {
    Session session(Line::Open);
    session.machine.time.At(5000, [&] {
        session.machine.line.Arrive("late");
        CloseForm(session.W(), session.Form());
    });
    session.Arrive("first");
    EXPECT_FALSE(session.Form().Loaded);
    EXPECT_EQ(session.Text(), "");
    EXPECT_EQ(session.machine.line.InBufferCount(), 4);
}

TEST(Terminal, HasTheLineForItself) {
    Session session(Line::Open);
    session.machine.line.Arrive("abc");
    session.machine.Enter([&] { session.machine.line.RaiseFault(CommEventReceiveParity); });
    EXPECT_EQ(session.W().intake.FrameErrorCount, 0);
    EXPECT_NE(session.W().frmMain.sbaStatus.Errors.Text, "Parity Error");
    EXPECT_EQ(session.Text(), "abc");
}

TEST(Terminal, MirrorsThePort) {
    for (const Line line : {Line::Open, Line::Closed}) {
        Session session(line);
        const bool open = line == Line::Open;
        const FrmTerminal& form = session.Form();
        EXPECT_EQ(form.Caption, "CUMERON Terminal");
        EXPECT_EQ(form.tbrToolBar.Openport.Value, open ? 1 : 0);
        EXPECT_EQ(form.tbrToolBar.Closeport.Value, open ? 0 : 1);
        EXPECT_EQ(form.mnuOpenPort.Checked, open);
        EXPECT_EQ(form.mnuClosePort.Checked, !open);
        EXPECT_EQ(form.sbrStatus.Settings.Text, open ? "Settings: 19200,n,8,1" : "Settings: ");
        EXPECT_EQ(form.Timer1.Enabled(), open);
        session.Seconds(61);
        EXPECT_EQ(form.sbrStatus.ConnectTime.Text, open ? "00:01:01 " : "");
    }
}

TEST(Terminal, OpensThePortAsTheMainWindowDoesButForItsText) {
    Session session(Line::Closed, "Modem_used=1\r\nModem_Initialization_String=ATD 1\r\n");
    session.W().intake.IntervalSeekState = 4;
    session.W().graphs.MessageTime = 0;
    session.Press(session.Form().tbrToolBar.Openport);
    EXPECT_TRUE(session.machine.line.PortOpen());
    EXPECT_EQ(session.Sent(), "ATD 1\r");
    EXPECT_EQ(session.W().intake.IntervalSeekState, 0);
    EXPECT_GT(session.W().graphs.MessageTime, 0);
    EXPECT_EQ(session.W().frmMain.sbaStatus.Errors.Text, "OFF-line");
    EXPECT_TRUE(session.W().frmMain.mnuOpenPort.Checked);
    EXPECT_EQ(session.W().frmMain.Toolbar1.OpenPort.Value, 1);
    EXPECT_TRUE(session.Form().mnuOpenPort.Checked);
    EXPECT_EQ(session.Form().tbrToolBar.Closeport.Value, 0);
}

TEST(Terminal, ClosesThePortAsTheMainWindowDoesButForItsText) {
    Session session(Line::Open);
    SetErrorsPanel(session.W(), "Msg 1", Black);
    SetStatusPanel(session.W(), "Status: WARN", Red);
    session.machine.line.SetDTREnable(true);
    session.Seconds(1);
    session.Press(session.Form().tbrToolBar.Closeport);
    EXPECT_FALSE(session.machine.line.PortOpen());
    EXPECT_EQ(session.W().frmMain.sbaStatus.Errors.Text, "Msg 1");
    EXPECT_EQ(session.W().frmMain.sbaStatus.Status.Text, "");
    EXPECT_TRUE(session.W().frmMain.mnuClosePort.Checked);
    EXPECT_EQ(session.W().frmMain.Toolbar1.ClosePort.Value, 1);
    EXPECT_TRUE(session.Form().mnuClosePort.Checked);
    EXPECT_EQ(session.Form().tbrToolBar.Openport.Value, 0);
    EXPECT_EQ(session.Form().sbrStatus.Settings.Text, "Settings: ");
    EXPECT_EQ(session.Form().sbrStatus.ConnectTime.Text, "");
    session.Seconds(2);
    EXPECT_EQ(session.Form().sbrStatus.ConnectTime.Text, "");
}

TEST(Terminal, ButtonsOfThePortAsItIsStayPressed) {
    Session session(Line::Open);
    session.Seconds(5);
    session.Press(session.Form().tbrToolBar.Openport);
    session.Click(session.Form().mnuOpenPort);
    EXPECT_EQ(session.Form().tbrToolBar.Openport.Value, 1);
    session.Seconds(5);
    EXPECT_EQ(session.Form().sbrStatus.ConnectTime.Text, "00:00:10 ") << "it goes on counting";
    session.Click(session.Form().mnuClosePort);
    session.Press(session.Form().tbrToolBar.Closeport);
    EXPECT_EQ(session.Form().tbrToolBar.Closeport.Value, 1);
    EXPECT_EQ(session.Box(), "no box");
}

TEST(Terminal, TellsAPortThatDoesNotOpen) {
    Session session(Line::Closed);
    session.machine.line.FailNextOpening(68);
    session.Press(session.Form().tbrToolBar.Openport);
    EXPECT_EQ(session.Box(), ErrorText(68));
    EXPECT_EQ(session.Form().tbrToolBar.Openport.Value, 0);
    EXPECT_EQ(session.W().frmMain.Toolbar1.OpenPort.Value, 0);
    EXPECT_EQ(session.Form().sbrStatus.Settings.Text, "Settings: ");
    EXPECT_FALSE(session.Form().Timer1.Enabled());
}

TEST(Terminal, MayBeLeftWhileItDials) {
    Session session(Line::Closed, "Modem_used=1\r\nModem_Initialization_String=ATD\r\n");
    session.machine.time.At(300000, [&] { CloseForm(session.W(), session.Form()); });
    session.Click(session.Form().mnuOpenPort);
    EXPECT_FALSE(session.Form().Loaded);
    EXPECT_EQ(session.Form().sbrStatus.Settings.Text, "Settings: ");
    EXPECT_FALSE(session.Form().Timer1.Enabled());
}

TEST(Terminal, ShowsTheLineThatTheSettingsDialogLeaves) {
    Session session(Line::Open);
    Workstation& w = session.W();
    const auto choose = [&](int port, const char* settings) {
        session.machine.time.At(0, [&w, port, settings] {
            w.comCTLine().SetSettings(settings);
            SelectItem(w, w.ConfigScrn.cboPort, port - 1);
            TypeItem(w, w.ConfigScrn.cboBaud, "9600");
            w.ConfigScrn.OKButton.Click(w);
        });
        session.Click(session.Form().mnuPortSettings);
    };
    choose(1, "9600,e,7,1");
    EXPECT_EQ(session.Form().sbrStatus.Settings.Text, "Settings: 9600,N,8,1");
    EXPECT_TRUE(session.Form().mnuOpenPort.Checked);
    session.machine.line.FailNextOpening(68);
    choose(2, "9600,n,8,1");
    EXPECT_EQ(session.Box(), ErrorText(68));
    EXPECT_FALSE(session.machine.line.PortOpen());
    EXPECT_TRUE(session.Form().mnuClosePort.Checked) << "the line was lost on the way";
    EXPECT_TRUE(w.frmMain.mnuClosePort.Checked);
    EXPECT_EQ(session.Form().sbrStatus.Settings.Text, "Settings: 9600,N,8,1");
}

TEST(Terminal, AStatusTextGoesAfterTwoSeconds) {
    Session session(Line::Closed);
    session.Form().sbrStatus.Status.Text = "Status: text";
    session.Form().Timer2.SetEnabled(true);
    session.Seconds(1.9);
    EXPECT_EQ(session.Form().sbrStatus.Status.Text, "Status: text");
    session.Seconds(0.2);
    EXPECT_EQ(session.Form().sbrStatus.Status.Text, "Status: ");
    EXPECT_FALSE(session.Form().Timer2.Enabled());
}

TEST(Terminal, TheTextFillsWhatTheBarsLeave) {
    Session session(Line::Closed);
    FrmTerminal& form = session.Form();
    const struct {
        bool tools, foot;
        double top, height;
    } cases[] = {{true, true, 44, 328}, {true, false, 44, 356}, {false, true, 0, 372}};
    for (const auto& c : cases) {
        form.tbrToolBar.Visible = c.tools;
        form.sbrStatus.Visible = c.foot;
        form.txtTerm.Left = 9;
        ResizeForm(session.W(), form, 600, 400);
        EXPECT_EQ(form.txtTerm.Left, 0);
        EXPECT_EQ(form.txtTerm.Top, c.top);
        EXPECT_EQ(form.txtTerm.Width, 600);
        EXPECT_EQ(form.txtTerm.Height, c.height);
    }
}

TEST(Terminal, EveryMenuAndButtonHasItsHandler) {
    const Session session(Line::Closed);
    FrmTerminal form;
    for (const NamedControl& named : form.Controls()) {
        const bool isMenu = named.name == "mnuFile" || named.name == "mnuPort";
        if (auto* const* entry = std::get_if<MenuEntry*>(&named.control)) {
            EXPECT_EQ(static_cast<bool>((*entry)->Click), !isMenu) << named.name;
        }
        if (auto* const* button = std::get_if<ToolButton*>(&named.control)) {
            EXPECT_TRUE((*button)->Click) << named.name;
            EXPECT_TRUE((*button)->CheckStyle) << named.name;
            EXPECT_FALSE((*button)->ToolTipText.empty()) << named.name;
        }
    }
    EXPECT_FALSE(form.mnuCloseLog.Enabled);
}

// ---- Opened from the main window ----

struct FromMainWindow : testing::Test {
    Session session{Line::Closed};
    Workstation& w = session.W();

    FromMainWindow() {
        session.Leave();
        w.terminal.TerminalOpen = 0;
    }
    // Opens the terminal, runs the step in it and leaves it.
    void InTerminal(const std::function<void()>& step) {
        session.machine.time.At(100000, [this, step] {
            step();
            CloseForm(w, w.frmTerminal);
        });
        session.Click(w.frmMain.mnuOpenTerminal);
    }
    const std::string& Errors() { return w.frmMain.sbaStatus.Errors.Text; }
};

TEST_F(FromMainWindow, TheClockStandsStill) {
    bool seen = false;
    InTerminal([&] {
        seen = true;
        EXPECT_EQ(w.terminal.TerminalOpen, -1);
        EXPECT_FALSE(w.frmMain.tmrClock.Enabled());
        EXPECT_TRUE(w.frmTerminal.Visible);
        EXPECT_EQ(ModalForm(w), &w.frmTerminal);
    });
    EXPECT_TRUE(seen);
    EXPECT_EQ(w.terminal.TerminalOpen, 0);
    EXPECT_TRUE(w.frmMain.tmrClock.Enabled());
}

TEST_F(FromMainWindow, AResizeLeavesTheClockAsItIs) {
    InTerminal([&] {
        ResizeForm(w, w.frmMain, 700, 500);
        session.Seconds(0.5);
        EXPECT_FALSE(w.frmMain.ResizeTimer.Enabled()) << "the repaint has come";
        EXPECT_FALSE(w.frmMain.tmrClock.Enabled());
    });
    ResizeForm(w, w.frmMain, 800, 600);
    session.Seconds(0.5);
    EXPECT_TRUE(w.frmMain.tmrClock.Enabled());
}

TEST_F(FromMainWindow, ItsEndTellsThePort) {
    const struct {
        const char* what;
        const char* before;
        bool openBefore, openBehind;
        const char* told;
    } cases[] = {
        {"left closed", "OFF-Line", false, false, "OFF-line"},
        {"closed", "Msg 1", true, false, "OFF-line"},
        {"opened", "OFF-line", false, true, "OFF-line"},
        {"left open", "Msg 1", true, true, "Msg 1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        session.machine.line.SetPortOpen(c.openBefore);
        SetErrorsPanel(w, c.before, Black);
        InTerminal([&] { session.machine.line.SetPortOpen(c.openBehind); });
        EXPECT_EQ(Errors(), c.told);
    }
    EXPECT_FALSE(w.frmMain.sbaStatus.Errors_Image.Visible);
}

TEST_F(FromMainWindow, AHalfReadFrameIsForgotten) {
    w.intake.ReceiveBuffer = "\x01KN02";
    InTerminal([] {});
    EXPECT_EQ(w.intake.ReceiveBuffer, "");
}

TEST_F(FromMainWindow, AWaitForTheModemDoesNotDeafenIt) {
    session.machine.line.SetPortOpen(true);
    w.comCTLine().RThreshold = 0;
    w.intake.onCommBusy = true;
    InTerminal([&] {
        session.Arrive("heard");
        EXPECT_EQ(session.Text(), "heard");
    });
}

TEST_F(FromMainWindow, TheSkyWindowDoesNotCoverIt) {
    w.frmMain.mnuSkyCond.Checked = true;
    w.frmSkyCond.TopMost = true;
    InTerminal([&] { EXPECT_FALSE(w.frmSkyCond.TopMost); });
}

}  // namespace
}  // namespace cumeron
