#include "intake/port.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

struct Closed : RunningStation {
    explicit Closed(const std::string& settings = "") : RunningStation(30, settings) {
        machine.Enter([&] { mnuClosePort_Click(w()); });
        machine.time.SetNow(DateSerial(2026, 5, 1) + TimeSerial(12, 0, 0));
        machine.line.TakeSent();
    }
    void Open() {
        machine.Enter([&] { mnuOpenPort_Click(w()); });
    }
    void Close() {
        machine.Enter([&] { mnuClosePort_Click(w()); });
    }
    Micros TakenBy(const std::function<void()>& call) {
        const Micros before = machine.time.Elapsed();
        machine.Enter(call);
        return machine.time.Elapsed() - before;
    }
    FrmMain& form() { return w().frmMain; }
};

void ExpectShownOpen(FrmMain& form, bool open) {
    EXPECT_EQ(form.mnuOpenPort.Checked, open);
    EXPECT_EQ(form.mnuClosePort.Checked, !open);
    EXPECT_EQ(form.Toolbar1.OpenPort.Value, open ? 1 : 0);
    EXPECT_EQ(form.Toolbar1.ClosePort.Value, open ? 0 : 1);
}

TEST(OpenPort, BeginsTheWatchAfresh) {
    Closed station;
    station.w().intake.IntervalSeekState = 4;
    station.w().graphs.MessageTime = 0;
    station.Open();
    EXPECT_TRUE(station.machine.line.PortOpen());
    ExpectShownOpen(station.form(), true);
    EXPECT_EQ(station.Errors(), "NO MESSAGE");
    EXPECT_TRUE(station.ErrorShown());
    EXPECT_EQ(station.w().intake.IntervalSeekState, 0);
    EXPECT_EQ(station.w().graphs.MessageTime, station.machine.time.Now());
    EXPECT_EQ(station.machine.line.TakeSent(), "");
}

TEST(OpenPort, DialsWithAModemAndItsText) {
    const struct {
        int used;
        const char *text, *sent, *errors;
    } cases[] = {{1, "ATD", "ATD\r", "Dialling"},
                 {-1, "ATD", "ATD\r", "Dialling"},
                 {1, "", "", "NO MESSAGE"},
                 {0, "ATD", "", "NO MESSAGE"}};
    for (const auto& c : cases) {
        Closed station;
        station.w().settings.Modem_used = static_cast<std::int16_t>(c.used);
        station.w().settings.Modem_Initialization_String = c.text;
        station.Open();
        EXPECT_EQ(station.machine.line.TakeSent(), c.sent);
        EXPECT_EQ(station.Errors(), c.errors);
        EXPECT_EQ(station.w().graphs.MessageTime, station.machine.time.Now());
    }
}

TEST(OpenPort, OnlyPressesItsButtonWhenOpen) {
    Closed station;
    station.Open();
    station.w().intake.IntervalSeekState = 4;
    station.form().Toolbar1.OpenPort.Value = 0;
    SetErrorsPanel(station.w(), "Msg 1", Black);
    station.Open();
    EXPECT_EQ(station.form().Toolbar1.OpenPort.Value, 1);
    EXPECT_EQ(station.w().intake.IntervalSeekState, 4);
    EXPECT_EQ(station.Errors(), "Msg 1");
}

TEST(OpenPort, TellsAFailureAndChangesNoMenu) {
    Closed station;
    station.form().Toolbar1.OpenPort.Value = 1;  // a click has pressed it
    station.machine.line.FailNextOpening(68);
    station.machine.dialogs.TakeBeeps();
    station.Open();
    EXPECT_FALSE(station.machine.line.PortOpen());
    ExpectShownOpen(station.form(), false);
    EXPECT_EQ(station.Errors(), "OFF-line");
    EXPECT_EQ(station.machine.dialogs.TakeBeeps(), 1);
    EXPECT_NE(station.machine.dialogs.TakeBox().value_or("").find("Error Number: 68"),
              std::string::npos);
}

TEST(ClosePort, HangsUpAndTellsOffLine) {
    Closed station;
    station.Open();
    station.machine.line.SetDTREnable(true);
    SetStatusPanel(station.w(), "Status: WARN", Red);
    station.Close();
    EXPECT_FALSE(station.machine.line.PortOpen());
    ExpectShownOpen(station.form(), false);
    EXPECT_EQ(station.Errors(), "OFF-line");
    EXPECT_TRUE(station.ErrorShown());
    EXPECT_EQ(station.form().sbaStatus.Status.Text, "");
    EXPECT_FALSE(station.form().sbaStatus.Status_Image.Visible);
}

TEST(ClosePort, OnlyPressesItsButtonWhenClosed) {
    Closed station;
    station.form().Toolbar1.ClosePort.Value = 0;
    SetErrorsPanel(station.w(), "Msg 1", Black);
    station.Close();
    EXPECT_EQ(station.form().Toolbar1.ClosePort.Value, 1);
    EXPECT_EQ(station.Errors(), "Msg 1");
}

// A line that notes what is done to DTR, and fails when told to.
struct NotingLine : ScriptedLine {
    using ScriptedLine::ScriptedLine;
    std::string noted;
    bool fails = false;
    void SetDTREnable(bool on) override {
        noted += on ? '1' : '0';
        if (fails) throw RuntimeError(57);
        ScriptedLine::SetDTREnable(on);
    }
};

TEST(HangUpModem, DropsDTRWhateverItWas) {
    for (const bool before : {false, true}) {
        for (const bool fails : {false, true}) {
            ScriptedMachine machine;
            NotingLine line(machine.time);
            Platform platform{machine.time,    machine.time,      line,
                              machine.files,   machine.dialogs,   machine.process,
                              machine.copies,  machine.ports,     {},
                              machine.printer, machine.clipboard, machine.pictures};
            Workstation w(platform);
            line.ScriptedLine::SetDTREnable(before);
            line.fails = fails;
            EXPECT_NO_THROW(HangUpModem(w));
            EXPECT_EQ(line.noted, before ? "101" : "100");
            EXPECT_EQ(line.DTREnable(), before);
        }
    }
}

TEST(SendModemInit, ThrowsTheAnswerAwayUntilASecondIsQuiet) {
    Closed station;
    station.Open();
    auto& line = station.machine.line;
    line.ReplyTo("ATZ\r", "OK", 500000);
    line.ReplyTo("ATZ\r", "OK\r\n", 1500000);
    line.SetDTREnable(false);
    line.SetRTSEnable(false);
    int events = 0;
    line.OnComm = [&] { ++events; };
    const Micros taken = station.TakenBy([&] { SendModemInit(station.w(), "ATZ"); });
    EXPECT_EQ(line.TakeSent(), "ATZ\r");
    EXPECT_EQ(events, 0) << "the answer raises no event";
    EXPECT_EQ(line.RThreshold, 1);
    EXPECT_TRUE(line.DTREnable());
    EXPECT_TRUE(line.RTSEnable());
    EXPECT_EQ(line.InBufferCount(), 0);
    EXPECT_EQ(taken, MicrosPerSecond) << "the tick took the answer away before";
}

TEST(SendModemInit, WaitsAnotherSecondWhenTheModemAnswers) {
    Station station(30);
    auto& line = station.machine.line;
    line.SetPortOpen(true);
    line.ReplyTo("ATZ\r", "OK\r\n", 500000);
    SendModemInit(station.w, "ATZ");
    EXPECT_EQ(station.machine.time.Elapsed(), 2 * MicrosPerSecond);
    EXPECT_EQ(line.InBufferCount(), 0);
}

TEST(SendModemInit, SendsNothingWithTheCarrierUp) {
    Station station(30);
    auto& line = station.machine.line;
    line.SetPortOpen(true);
    line.SetCarrier(true);
    line.RThreshold = 0;
    line.SetDTREnable(false);
    SendModemInit(station.w, "ATZ");
    EXPECT_EQ(line.TakeSent(), "");
    EXPECT_EQ(station.machine.time.Elapsed(), 0);
    EXPECT_EQ(line.RThreshold, 1);
    EXPECT_TRUE(line.DTREnable());
    EXPECT_TRUE(line.RTSEnable());
}

TEST(OnComm, DrainsTheLineAfterAFault) {
    const struct {
        int event;
        const char* errors;
        int counted;
        const char* window;
    } cases[] = {
        {CommEventOverrun, "Overrun", 0, "The following message dumped:\r\nabc"},
        {CommEventReceiveParity, "Parity Error", 1, "The following message dumped:\r\nabc"},
        {CommEventReceive, "NO MESSAGE", 0, ""},
        {1001, "NO MESSAGE", 0, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.event);
        Closed station;
        station.Open();
        station.w().intake.EnquiryBusy = 1;  // keeps the tick from the input
        auto& line = station.machine.line;
        line.Arrive("abc");
        line.ParityReplace = "?";
        line.InputLen = 5;
        line.RThreshold = line.SThreshold = 7;
        station.machine.Enter([&] { line.RaiseFault(c.event); });
        EXPECT_EQ(station.Errors(), c.errors);
        EXPECT_EQ(station.w().intake.FrameErrorCount, c.counted);
        EXPECT_EQ(station.MessageWindow(), c.window);
        EXPECT_EQ(station.form().sbaStatus.Action.Text, "");
        EXPECT_EQ(line.ParityReplace, "");
        EXPECT_EQ(line.InputLen, 0);
        EXPECT_EQ(line.RThreshold, 1);
        EXPECT_EQ(line.SThreshold, 1);
        EXPECT_FALSE(station.w().intake.onCommBusy);
    }
}

TEST(OnComm, GoesOnWithAFullCounter) {
    Closed station;
    station.Open();
    station.w().intake.FrameErrorCount = 32767;
    station.machine.Enter([&] { station.machine.line.RaiseFault(CommEventReceiveParity); });
    EXPECT_EQ(station.w().intake.FrameErrorCount, 32767);
    EXPECT_EQ(station.MessageWindow(), "The following message dumped:\r\n");
    EXPECT_FALSE(station.w().intake.onCommBusy);
}

TEST(OnComm, KeepsANestedEventOut) {
    Closed station;
    station.Open();
    auto& line = station.machine.line;
    station.machine.time.At(500000, [&] { line.RaiseFault(CommEventReceiveParity); });
    station.machine.Enter([&] { line.RaiseFault(CommEventOverrun); });
    EXPECT_EQ(station.Errors(), "Overrun");
    EXPECT_EQ(station.w().intake.FrameErrorCount, 0);
}

}  // namespace
}  // namespace cumeron
