#include "intake/intake.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/surface.h"

namespace cumeron {
namespace {

const double Noon = DateSerial(2026, 5, 1) + TimeSerial(12, 0, 0);

// Started at noon, so that ticks fall on whole seconds of the clock.
struct AtNoon : RunningStation {
    explicit AtNoon(int model, const std::string& settings = "") : RunningStation(model, settings) {
        machine.time.SetNow(Noon);
        w().graphs.MessageTime = Noon;
    }
    std::int32_t MessageSeconds() { return DateDiffSeconds(Noon, w().graphs.MessageTime); }
    const Label& Clock() { return w().frmMain.lblDateTime; }
};

std::string WithChecksumTurned(std::string frame) {
    frame[frame.size() - 4] = frame[frame.size() - 4] == '0' ? '1' : '0';
    return frame;
}

// ---- Reception and frame search ----

TEST(Tick, TakesAFrameThatComesInPieces) {
    AtNoon station(30);
    const std::string frame = ShortKN("15");
    station.Receive("noise" + frame.substr(0, 20));
    EXPECT_EQ(station.w().intake.ReceiveBuffer, frame.substr(0, 20));
    station.Receive(frame.substr(20, frame.size() - 21));
    EXPECT_EQ(station.Errors(), "NO MESSAGE");
    station.Receive(frame.substr(frame.size() - 1));
    EXPECT_EQ(station.Errors(), "Msg15, No Errors");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "");
    EXPECT_EQ(station.w().graphs.HistoryIndex, 1);
    EXPECT_EQ(station.MessageSeconds(), 3);
}

TEST(Tick, KeepsWhatTheLastPieceBringsOfTheNextFrame) {
    AtNoon station(30);
    const std::string frame = ShortKN("15");
    station.Receive(frame.substr(0, 20));
    station.Receive(frame.substr(20) + "\x01KN0");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "\x01KN0");
    station.Receive(frame.substr(4));
    EXPECT_EQ(station.w().graphs.HistoryIndex, 2);
    EXPECT_EQ(station.w().intake.FrameErrorCount, 0);
}

TEST(Tick, HandlesAFrameThatCameInOnePieceTwice) {
    AtNoon station(30);
    station.Receive(ShortKN("15"));
    EXPECT_EQ(station.w().intake.ReceiveBuffer, ShortKN("15"));
    station.Receive("lost");
    EXPECT_EQ(station.w().graphs.HistoryIndex, 2);
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "");
}

TEST(Tick, HandlesOneFrameAtMost) {
    AtNoon station(30);
    station.Receive(ShortKN("15") + ShortKN("18"));
    EXPECT_EQ(station.w().graphs.HistoryIndex, 1);
    EXPECT_EQ(station.w().intake.MessageId, 3115);
}

TEST(Tick, EmptiesTheBufferWithoutInput) {
    AtNoon station(30);
    station.Receive("\x01KN0");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "\x01KN0");
    station.Seconds(1);
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "");
}

TEST(Tick, EmptiesTheBufferWithTheLineClosed) {
    AtNoon station(30);
    station.w().intake.ReceiveBuffer = "\x01KN0";
    station.machine.Enter([&] { mnuClosePort_Click(station.w()); });
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "\x01KN0");
    station.Receive("\x01KN0");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "");
}

TEST(Tick, KeepsTenCharactersOfRubbish) {
    AtNoon station(30);
    station.Receive("0123456789AB");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "23456789AB");
    station.Receive("C");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "3456789ABC");
    station.Seconds(1);
    station.Receive("short");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "short");
}

TEST(Tick, DropsWhatStandsBeforeAStart) {
    AtNoon station(30);
    station.Receive("\x04\r\nabc\x01KN\x04\r\n");
    EXPECT_EQ(station.w().intake.ReceiveBuffer, "\x01KN\x04\r\n") << "and waits";
    EXPECT_EQ(station.w().intake.FrameErrorCount, 0);
}

TEST(Tick, CutsAFrameThatNeverEnds) {
    const struct {
        std::size_t first, second, left;
    } cases[] = {{16000, 384, 16384}, {16000, 385, 0}};
    for (const auto& c : cases) {
        AtNoon station(30);
        station.Receive("\x01" + std::string(c.first - 1, 'a'));
        station.Receive(std::string(c.second, 'b'));
        EXPECT_EQ(station.w().intake.ReceiveBuffer.size(), c.left == 0 ? 10 : c.left);
    }
    AtNoon station(30);
    station.Receive("\x01" + std::string(16000, 'a'));
    station.Receive("bb\x01KN0" + std::string(1000, 'b'));
    EXPECT_EQ(station.w().intake.ReceiveBuffer.substr(0, 4), "\x01KN0") << "starts afresh";
    EXPECT_EQ(station.w().intake.ReceiveBuffer.size(), 1004U);
}

TEST(Tick, DoesNothingWhileOthersHaveTheLine) {
    const struct {
        std::int16_t IntakeState::*flag;
        int value;
        bool stops;
    } cases[] = {{&IntakeState::IntakeBusy, 1, true},  {&IntakeState::IntakeBusy, -1, false},
                 {&IntakeState::EnquiryBusy, 1, true}, {&IntakeState::EnquiryBusy, -1, false},
                 {&IntakeState::ReplayBusy, -1, true}, {&IntakeState::ReplayBusy, 1, false}};
    for (const auto& c : cases) {
        AtNoon station(30);
        station.w().intake.*c.flag = static_cast<std::int16_t>(c.value);
        station.Receive("\x01KN0");
        EXPECT_EQ(station.w().intake.ReceiveBuffer, c.stops ? "" : "\x01KN0");
        EXPECT_EQ(station.Clock().Caption == "1-May 12:00:01", !c.stops);
    }
}

// ---- Modem words ----

TEST(Tick, FindsModemWords) {
    const struct {
        const char* what;
        std::vector<std::string> pieces;
        const char* errors;
        int state;
        const char* buffer;
    } cases[] = {
        {"CONNECT", {"\r\nCONNECT 1200\r\n"}, "Connected", 1, "\r\nCONNECT 1200\r\n"},
        {"in pieces", {"abcdefgNO CAR", "RIER"}, "Re Dial", 0, "defgNO CARRIER"},
        {"again with each piece", {"CONNECT", "a"}, "Connected", 2, "CONNECTa"},
        {"until a frame begins", {"CONNECT", "\x01KN"}, "Connected", 1, "\x01KN"},
        {"CONNECT goes first", {"NO CARRIER CONNECT"}, "Connected", 1, "NO CARRIER CONNECT"},
        {"small letters", {"no carrier"}, "NO MESSAGE", 0, "no carrier"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AtNoon station(30);
        station.w().intake.RedialCount = 5;
        for (const std::string& piece : c.pieces) station.Receive(piece);
        EXPECT_EQ(station.Errors(), c.errors);
        EXPECT_EQ(station.w().intake.IntervalSeekState, c.state);
        EXPECT_EQ(station.w().intake.RedialCount, station.Errors() == "Connected" ? 0 : 5);
        EXPECT_EQ(station.w().intake.ReceiveBuffer, c.buffer);
        EXPECT_FALSE(station.Errors() != "NO MESSAGE" && station.ErrorShown());
    }
}

TEST(HandleMessage, DialsAgainWithoutACarrier) {
    const struct {
        const char *used, *text, *sent;
    } cases[] = {{"1", "ATD", "ATD\r"}, {"0", "ATD", ""}, {"1", "", ""}};
    for (const auto& c : cases) {
        AtNoon station(30);
        station.w().settings.Modem_used = c.used[0] == '1';
        station.w().settings.Modem_Initialization_String = c.text;
        station.machine.Enter([&] { HandleMessage(station.w(), "NO CARRIER\r\n"); });
        EXPECT_EQ(station.machine.line.TakeSent(), c.sent);
        EXPECT_EQ(station.Errors(), "Re Dial");
        EXPECT_EQ(station.w().intake.IntervalSeekState, 0);
    }
}

// ---- The road of a message ----

TEST(HandleMessage, SendsAGoodFrameDownTheRoad) {
    AtNoon station(30);
    station.Seconds(2);
    const std::string frame = ShortKN("15");
    station.machine.Enter([&] { HandleMessage(station.w(), frame); });
    Workstation& w = station.w();
    EXPECT_EQ(w.intake.FrameText, " " + frame.substr(1));
    EXPECT_EQ(w.intake.Payload, frame.substr(86));
    EXPECT_EQ(w.intake.MessageId, 3115);
    EXPECT_EQ(station.MessageSeconds(), 2);
    EXPECT_NEAR(w.intake.MessageClockTime, 0.5 + 2 / 86400.0, 1e-9);
    EXPECT_EQ(station.MessageWindow(),
              "The following message received: 01.05.2026 12:00:02\r\n" + frame);
    EXPECT_EQ(w.frmMain.CloudValue[0].Caption, "01230");
    EXPECT_EQ(w.graphs.ProfileSlot, 1);
    EXPECT_EQ(w.graphs.ProfileRing[1].Valid, -1);
    const GraphRecord& record = w.graphs.GraphHistory[1];
    EXPECT_EQ(record.Valid, -1);
    EXPECT_EQ(record.Time, w.graphs.MessageTime);
    EXPECT_EQ(record.CloudValue, (std::array<std::string, 4>{"01230", "-----", "-----", ""}));
    EXPECT_EQ(record.CloudText, "Cloud Height 1");
    EXPECT_EQ(record.MessageId, 3115);
    EXPECT_EQ(record.Scale, w.intake.ProfileScale);
    EXPECT_EQ(w.intake.IntakeBusy, 0);
    EXPECT_EQ(w.frmMain.MousePointer, 0);
    EXPECT_EQ(w.frmMain.sbaStatus.Action.Text, "");
}

TEST(HandleMessage, StoresTheProfileInBothRings) {
    AtNoon station(50);
    std::string counted = Padded("KN021012\x02\r\n10 01230 ///// ///// 000000000000\r\n", 85);
    counted += std::string(10, ' ');
    for (int i = 0; i < 385; ++i) counted += "FFFFE";
    counted = Padded(counted, 85 + 1945 - 8) + "\x03";
    counted.replace(52, 2, "10");
    station.machine.Enter([&] { HandleMessage(station.w(), SealedKN(counted)); });
    Workstation& w = station.w();
    ASSERT_EQ(w.intake.MessageId, 3112);
    EXPECT_EQ(w.intake.ProfileScale, 3);
    EXPECT_EQ(w.graphs.GraphHistory[1].Scale, 3);
    for (const std::size_t i : {std::size_t{0}, std::size_t{384}}) {
        EXPECT_EQ(w.graphs.ProfileRing[1].Profile[i], -2);
        EXPECT_EQ(w.graphs.GraphHistory[1].Profile[i], -2);
    }
    EXPECT_EQ(w.graphs.GraphHistory[1].Profile[385], 0);
}

TEST(HandleMessage, MarksAMessageThatIsNotValid) {
    AtNoon station(30);
    station.w().graphs.ProfileRing[1].Profile[0] = 5;
    station.machine.Enter([&] { HandleMessage(station.w(), ShortKN("99")); });
    EXPECT_EQ(station.w().graphs.ProfileRing[1].Valid, 0);
    EXPECT_EQ(station.w().graphs.ProfileRing[1].Profile[0], 0);
    EXPECT_EQ(station.w().graphs.GraphHistory[1].Valid, 0);
    EXPECT_EQ(station.w().graphs.GraphHistory[1].MessageId, -1);
    EXPECT_EQ(station.MessageSeconds(), 0);
    EXPECT_TRUE(station.ErrorShown());
}

TEST(HandleMessage, ShowsNoInstantValuesOfId40) {
    AtNoon station(60);
    station.w().frmMain.CloudValue[0].Caption = "old";
    const std::string frame = Padded("\x02X0RD", 5 + 2053 - 3) + "\r\n\x04";
    station.machine.Enter([&] { HandleMessage(station.w(), frame); });
    EXPECT_EQ(station.w().intake.MessageId, 40);
    EXPECT_EQ(station.w().frmMain.CloudValue[0].Caption, "old");
    EXPECT_EQ(station.w().graphs.HistoryIndex, 1);
}

TEST(HandleMessage, TellsTheWindowOnlyWhileItIsShown) {
    AtNoon station(30);
    station.w().shell.MessageWindowOn = 0;
    station.machine.Enter([&] { HandleMessage(station.w(), ShortKN("15")); });
    EXPECT_EQ(station.MessageWindow(), "");
    station.machine.Enter([&] { HandleMessage(station.w(), "\x01KN\x04\r\n"); });
    EXPECT_EQ(station.MessageWindow(),
              "Receiving Error, got the following message\r\n\x01KN\x04\r\n");
}

TEST(HandleMessage, RejectsAndCounts) {
    const struct {
        const char* what;
        int model;
        std::string frame;
        const char* errors;
    } cases[] = {
        {"KN header", 30, "\x01KM021015\x04\r\n", "No KN Header"},
        {"KN end", 30, "\x01KN021015\x03\r\n", "Frame Error"},
        {"KN checksum", 50, WithChecksumTurned(ShortKN("15")), "Checksum Error"},
        {"RV header", 70, "\x01RWA1010\x03\r\n", "No RV Header"},
        {"RV end", 20, "\x01RVA1010\x04\r\n", "Frame Error"},
        {"RV10X header", 10, "10\x03\r\n", "No <STX>"},
        {"RV10X end", 10,
         "\x02"
         "10\x04\r\n",
         "Frame Error"},
        {"TQ60 header", 60, "\x02Y0TA\r\n\x04", "No RV Header"},
        {"TQ60 end", 60, "\x02X0TA\r\n\x03", "Frame Error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AtNoon station(c.model);
        station.Seconds(2);
        station.machine.Enter([&] { HandleMessage(station.w(), c.frame); });
        EXPECT_EQ(station.Errors(), c.errors);
        EXPECT_TRUE(station.ErrorShown());
        EXPECT_EQ(station.w().intake.FrameErrorCount, 1);
        EXPECT_EQ(station.MessageWindow(),
                  "Receiving Error, got the following message\r\n" + c.frame);
        EXPECT_EQ(station.MessageSeconds(), 0) << "counts for silence";
        EXPECT_EQ(station.w().graphs.HistoryIndex, 0);
        EXPECT_EQ(station.w().graphs.ProfileSlot, 0);
        EXPECT_EQ(station.w().intake.IntervalSeekState, 1) << "takes part in the measurement";
        EXPECT_EQ(station.w().intake.IntakeBusy, 0);
        EXPECT_EQ(station.w().frmMain.sbaStatus.Action.Text, "");
    }
}

TEST(HandleMessage, TrapsErrorsAndTellsThem) {
    AtNoon station(30);
    std::string counted = Padded("KN021015\x02\r\n10 01230 ///// ///// 000000000000\r\n", 90);
    counted.replace(52, 2, "00");
    const std::string frame = SealedKN(counted + "\x03");
    station.machine.Enter([&] { HandleMessage(station.w(), frame); });
    const std::string& window = station.MessageWindow();
    EXPECT_TRUE(window.starts_with("Receiving Error, got the following message\r\n" + frame +
                                   "Ihme error: 11 Division by zero 0"))
        << window;
    EXPECT_EQ(station.w().graphs.HistoryIndex, 0) << "the road stops after classification";
    EXPECT_EQ(station.w().intake.FrameText, " " + frame.substr(1)) << "what was done stays";
    EXPECT_EQ(station.w().intake.IntakeBusy, 0);
    EXPECT_EQ(station.w().frmMain.MousePointer, 0);
    EXPECT_EQ(station.w().frmMain.sbaStatus.Action.Text, "");
}

TEST(HandleMessage, TrapsAProfileThatIsTooLongForTheHistory) {
    AtNoon station(30);
    station.machine.Enter([&] {
        HandleMessage(station.w(),
                      SealedKN(Padded("KNTA09", 90) + std::string(2200, '!') + "\x03"));
    });
    EXPECT_NE(station.MessageWindow().find("Ihme error: 9 "), std::string::npos);
    EXPECT_EQ(station.w().graphs.ProfileRing[1].Profile[2047], 20);
    EXPECT_EQ(station.w().graphs.HistoryIndex, 1);
}

TEST(HandleMessage, TrapsAFullCounter) {
    AtNoon station(30);
    station.w().intake.FrameErrorCount = 32767;
    station.machine.Enter([&] { HandleMessage(station.w(), "\x01KM\x04\r\n"); });
    EXPECT_EQ(station.w().intake.FrameErrorCount, 32767);
    EXPECT_NE(station.MessageWindow().find("Ihme error: 6 Overflow 0"), std::string::npos);
}

TEST(HandleMessage, RemembersAChangedStatusWordForTheStatusLog) {
    const struct {
        int statusLog;
        const char* word;
        const char* remembered;
    } cases[] = {{1, "400000000000", "40000"},
                 {1, "000001000000", "00000"},
                 {0, "400000000000", "00000"},
                 {2, "400000000000", "00000"}};
    for (const auto& c : cases) {
        AtNoon station(30);
        station.w().settings.Status_Log = static_cast<std::int16_t>(c.statusLog);
        station.machine.Enter([&] { HandleMessage(station.w(), ShortKN("15", c.word)); });
        EXPECT_EQ(station.w().intake.PreviousStatus, c.remembered);
    }
}

// ---- The watch over silence ----

TEST(Tick, TellsSilence) {
    const struct {
        const char* what;
        int state, age, interval;
        bool told;
    } cases[] = {
        {"in time", 4, 25, 15, false},   {"known", 4, 26, 15, true},
        {"seeking", 3, 130, 15, false},  {"seeking long", 3, 131, 15, true},
        {"confirming", 5, 26, 15, true}, {"Compress 2 in time", 4, 55, 45, false},
        {"Compress 2", 4, 56, 45, true}, {"seeking, a slow one", 0, 150, 145, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AtNoon station(30);
        station.w().intake.IntervalSeekState = static_cast<std::int16_t>(c.state);
        station.w().settings.Message_Interval = static_cast<std::int16_t>(c.interval);
        station.w().intake.MessageClockTime = 0.25;
        station.w().graphs.UnitLabel = "[ft]";
        SetErrorsPanel(station.w(), "Msg 1", Black);
        Frame& values = station.w().frmMain.fraValues;
        values.Caption = "Instant Values [ft]";
        station.Seconds(c.age);
        EXPECT_EQ(station.Errors(), c.told ? "NO MESSAGE" : "Msg 1");
        EXPECT_EQ(station.ErrorShown(), c.told);
        EXPECT_EQ(station.Clock().ForeColor, QBColor(c.told ? Red : Black));
        EXPECT_EQ(
            station.Clock().Caption,
            c.told ? "1-May 06:00:00" : "1-May " + Format(Noon + c.age / 86400.0, "hh:nn:ss"));
        EXPECT_EQ(values.Caption, c.told ? "Last Values [ft]" : "Instant Values [ft]");
        EXPECT_EQ(values.ForeColor, QBColor(c.told ? Red : Black));
    }
}

TEST(Tick, EndsLastValuesWhenAMessageIsNoLongerOverdue) {
    AtNoon station(30);
    Frame& values = station.w().frmMain.fraValues;
    station.w().graphs.UnitLabel = "[m]";
    station.w().intake.IntervalSeekState = 4;
    station.Seconds(30);
    EXPECT_EQ(values.Caption, "Last Values [m]");
    station.w().intake.IntervalSeekState = 3;
    station.Seconds(1);
    EXPECT_EQ(station.Clock().Caption, "1-May 12:00:31");
    EXPECT_EQ(values.Caption, "Last Values [m]") << "the clock, and nothing else";
    station.w().graphs.MessageTime = station.machine.time.Now();
    station.Seconds(1);
    EXPECT_EQ(values.Caption, "Instant Values [m]");
    EXPECT_EQ(values.ForeColor, QBColor(Black));
}

TEST(Tick, LeavesACaptionThatIsNeither) {
    AtNoon station(30);
    Frame& values = station.w().frmMain.fraValues;
    values.Caption = "else";
    station.w().intake.IntervalSeekState = 4;
    station.Seconds(30);
    EXPECT_EQ(values.Caption, "else");
}

TEST(Tick, TellsNoSilenceOfAClosedLine) {
    AtNoon station(30);
    station.machine.Enter([&] { mnuClosePort_Click(station.w()); });
    station.w().intake.IntervalSeekState = 4;
    station.Seconds(200);
    EXPECT_EQ(station.Errors(), "OFF-line");
    EXPECT_EQ(station.Clock().Caption, "1-May 12:03:20");
    EXPECT_EQ(station.Clock().ForeColor, QBColor(Black));
}

// ---- Redial ----

TEST(Tick, RedialsEach32Ticks) {
    AtNoon station(30, "Modem_used=1\r\n");
    station.w().intake.IntervalSeekState = 4;
    station.Seconds(30);
    EXPECT_EQ(station.w().intake.RedialCount, 0);
    station.Seconds(31);
    EXPECT_EQ(station.w().intake.RedialCount, 31);
    EXPECT_EQ(station.w().intake.IntervalSeekState, 4);
    station.Seconds(1);
    EXPECT_EQ(station.w().intake.RedialCount, 0);
    EXPECT_EQ(station.w().intake.IntervalSeekState, 0);
    EXPECT_EQ(station.Errors(), "ReDial");
    EXPECT_FALSE(station.ErrorShown());
    EXPECT_EQ(station.machine.line.TakeSent(), "");
    station.w().settings.Modem_Initialization_String = "ATD";
    station.Seconds(32);
    EXPECT_EQ(station.machine.line.TakeSent(), "ATD\r");
}

TEST(Tick, RedialsOnlyAModemWithoutCarrierOnAnOpenLine) {
    const auto counted = [](auto change) {
        AtNoon station(30, "Modem_used=1\r\n");
        change(station);
        station.Seconds(40);
        return station.w().intake.RedialCount;
    };
    EXPECT_EQ(counted([](AtNoon&) {}), 10);
    EXPECT_EQ(counted([](AtNoon& s) { s.w().settings.Modem_used = 0; }), 0);
    EXPECT_EQ(counted([](AtNoon& s) { s.machine.line.SetCarrier(true); }), 0);
    EXPECT_EQ(counted([](AtNoon& s) { s.machine.line.SetPortOpen(false); }), 0);
}

TEST(Tick, KeepsTheRedialCountOverAMessage) {
    AtNoon station(30, "Modem_used=1\r\n");
    station.w().intake.RedialCount = 7;
    station.ReceiveMessage(ShortKN("15"));
    EXPECT_EQ(station.w().graphs.HistoryIndex, 1);
    EXPECT_EQ(station.w().intake.RedialCount, 7);
}

// Statements of the tick that fail are passed over; what stands behind them is done.
struct FailingLine : ScriptedLine {
    using ScriptedLine::ScriptedLine;
    bool inputFails = false;
    int InBufferCount() override { return inputFails ? 1 : ScriptedLine::InBufferCount(); }
    std::string Input() override {
        if (inputFails) throw RuntimeError(57);
        return ScriptedLine::Input();
    }
    void Output(std::string_view) override { throw RuntimeError(57); }
};

TEST(Tick, GoesOnWhenTheDeviceFails) {
    ScriptedMachine machine;
    FailingLine line(machine.time);
    Platform platform{
        machine.time,   machine.time,  line, machine.files,   machine.dialogs,   machine.process,
        machine.copies, machine.ports, {},   machine.printer, machine.clipboard, machine.pictures};
    Workstation w(platform);
    w.settings.CEILOMETER = 30;
    LoadModel(w, LoadedBy::Start);
    w.settings.Modem_used = 1;
    w.settings.Modem_Initialization_String = "ATD";
    w.intake.RedialCount = 31;
    w.intake.ReceiveBuffer = "abc\x01KN0";
    w.graphs.MessageTime = Noon;
    machine.time.SetNow(Noon + 40 / 86400.0);
    line.SetPortOpen(true);
    line.inputFails = true;
    EXPECT_NO_THROW(tmrClock_Tick(w));
    EXPECT_EQ(w.intake.ReceiveBuffer, "\x01KN0") << "the search goes on with what is there";
    EXPECT_EQ(w.frmMain.sbaStatus.Errors.Text, "ReDial");
    EXPECT_EQ(w.intake.RedialCount, 0);
    EXPECT_EQ(w.frmMain.sbaStatus.Log.Text, "LOG OFF");
}

// ---- The log panel ----

TEST(Tick, ShowsThatTheLogIsOff) {
    const struct {
        bool on;
        const char *before, *after;
    } cases[] = {{false, "LOG ON", "LOG OFF"},
                 {false, "DISK FULL", "DISK FULL"},
                 {true, "LOG ON", "LOG ON"}};
    for (const auto& c : cases) {
        AtNoon station(30);
        station.w().frmMain.mnuLogOn.Checked = c.on;
        station.w().frmMain.sbaStatus.Log.Text = c.before;
        station.Seconds(1);
        EXPECT_EQ(station.w().frmMain.sbaStatus.Log.Text, c.after);
    }
}

}  // namespace
}  // namespace cumeron
