#include "intake/status_enquiry.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/dates.h"
#include "readings/status_words.h"

namespace cumeron {
namespace {

TEST(WaitInputQuiet, ReturnsWhenTheCountStandsStill) {
    const struct {
        const char* what;
        std::vector<double> arrivals;  // seconds
        int waiting;
        Micros taken;
    } cases[] = {{"an empty line", {}, 0, 1},
                 {"what waits is not read", {}, 3, 2},
                 {"what comes in the first second", {0.5}, 0, 1},
                 {"it goes on", {0.5, 1.5, 2.5}, 1, 5}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Station station(30);
        auto& line = station.machine.line;
        line.SetPortOpen(true);
        line.Arrive(std::string(static_cast<std::size_t>(c.waiting), 'a'));
        for (const double at : c.arrivals) {
            station.machine.time.At(static_cast<Micros>(at * MicrosPerSecond),
                                    [&] { line.Arrive("b"); });
        }
        WaitInputQuiet(station.w);
        EXPECT_EQ(station.machine.time.Elapsed(), c.taken * MicrosPerSecond);
    }
}

TEST(WaitInputQuiet, CountsFromTheWholeSecondOfTheStart) {
    Station station(30);
    station.machine.time.SetNow(DateSerial(2026, 5, 1) + 0.75 / 86400);
    WaitInputQuiet(station.w);
    EXPECT_EQ(station.machine.time.Elapsed(), MicrosPerSecond / 4);
}

TEST(WaitInputQuiet, EndsAtMidnightAndWhenTheClockIsSetBack) {
    Station station(30);
    station.machine.time.SetNow(DateSerial(2026, 5, 1) + TimeSerial(23, 59, 59) + 0.5 / 86400);
    WaitInputQuiet(station.w);
    EXPECT_EQ(station.machine.time.Elapsed(), MicrosPerSecond / 2);
    const double noon = DateSerial(2026, 5, 1) + 0.5;
    station.machine.time.SetNow(noon);
    station.machine.time.At(200000, [&] { station.machine.time.SetNow(noon - 60 / 86400.0); });
    WaitInputQuiet(station.w);
    EXPECT_EQ(station.machine.time.Elapsed(), MicrosPerSecond / 2 + 200000);
}

TEST(WaitForReply, CollectsPiecesUntilTheWantedComes) {
    const struct {
        const char* what;
        std::vector<std::pair<double, std::string>> arrivals;  // seconds
        const char* reply;
        Micros taken;
    } cases[] = {
        {"nothing", {}, "", 4},
        {"all at once", {{0, "CEILO"}}, "CEILO", 1},
        {"rubbish", {{0.2, "xyz"}, {1.2, "\xFF\x01"}}, "", 4},
        {"late", {{2.5, "CEILO>"}}, "CEILO>", 3},
        {"in pieces, with rubbish", {{0.2, "a CE"}, {1.5, "IL"}, {2.5, "O> b"}}, "a CEILO> b", 3},
        {"too late", {{4.5, "CEILO>"}}, "", 4},
        {"the end of it too late", {{0.2, "CEIL"}, {4.5, "O"}}, "", 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Station station(30);
        auto& line = station.machine.line;
        line.SetPortOpen(true);
        for (const auto& [at, text] : c.arrivals) {
            station.machine.time.At(static_cast<Micros>(at * MicrosPerSecond),
                                    [&line, arrived = text] { line.Arrive(arrived); });
        }
        EXPECT_EQ(WaitForReply(station.w, "CEILO"), c.reply);
        EXPECT_EQ(station.machine.time.Elapsed(), c.taken * MicrosPerSecond);
    }
}

TEST(RecoverFromError, TellsThatNothingCameFromAClosedLine) {
    RunningStation station(30);
    station.machine.Enter([&] { mnuClosePort_Click(station.w()); });
    station.machine.Enter([&] { RecoverFromError(station.w()); });
    EXPECT_EQ(station.MessageWindow(), "The following message dumped:\r\n");
}

// The program on a line on which nothing has been said yet; its clock shows noon.
struct Enquirer : RunningStation {
    explicit Enquirer(int model, const std::string& settings = "")
        : RunningStation(model, settings) {
        machine.time.SetNow(DateSerial(2026, 5, 1) + 0.5);
        machine.line.TakeSent();
    }
    void Answers(const std::string& command, const std::string& reply, double seconds = 0.2) {
        machine.line.ReplyTo(command, reply,
                             static_cast<Micros>(seconds * static_cast<double>(MicrosPerSecond)));
    }
    void Asks() {
        machine.Enter([&] { EnquireStatus(w()); });
    }
    const std::string& Shown() { return w().frmSmsg.stsMessage.Text; }
};

TEST(EnquireStatus, AsksInTheWordsOfTheFamily) {
    const std::pair<int, const char*> cases[] = {{30, "status\r"},     {50, "status\r"},
                                                 {20, "GET STATUS\r"}, {70, "GET STATUS\r"},
                                                 {10, "GET STATUS\r"}, {60, "GET STATUS\r"}};
    for (const auto& [model, command] : cases) {
        Enquirer station(model);
        station.Asks();
        EXPECT_EQ(station.machine.line.TakeSent(), std::string("OPEN\r") + command + "CLOSE\r");
    }
}

TEST(EnquireStatus, OnlyTellsThatThePortIsClosed) {
    Enquirer station(30);
    station.machine.Enter([&] { mnuClosePort_Click(station.w()); });
    station.Asks();
    EXPECT_EQ(station.machine.dialogs.TakeBox(),
              "THE COMMUNICATION PORT IS CLOSED.\r\n"
              "THE STATUS MESSAGE FROM CEILOMETER CAN NOT BE ASKED.");
    EXPECT_FALSE(station.w().frmSmsg.Loaded);
    EXPECT_EQ(station.Errors(), "OFF-line");
    EXPECT_EQ(station.w().intake.EnquiryBusy, 0);
}

TEST(EnquireStatus, PutsTheReplyOnTop) {
    Enquirer station(30);
    station.w().frmMain.sbaStatus.Status.Text = "Status: WARN";
    station.Answers("OPEN\r", "CEILO> ");
    station.Answers("status\r", "first\r\nCEILO> CEILO> ");
    station.Asks();
    const std::string alarms = AlarmWarningText(station.w());
    const std::string first =
        "\r\n01.05.2026 12:00:03\r\nStatus: WARN\r\n" + alarms + "\r\n\r\nfirst\r\n\r\n";
    EXPECT_EQ(station.Shown(), first);
    station.w().frmSmsg.stsMessage.SelStart = 7;
    // Each carriage return ends a line, a line feed alone none.
    station.Answers("status\r", "sec\nond\rthird\n\rCEILO> ");
    station.Asks();
    EXPECT_EQ(station.Shown(), "\r\n01.05.2026 12:00:06\r\nStatus: WARN\r\n" + alarms +
                                   "\r\n\r\nsecond\r\nthird\r\n\r\n" + first);
    EXPECT_EQ(station.w().frmSmsg.stsMessage.SelStart, 0);
}

TEST(EnquireStatus, IsCutOnlyPastItsLimit) {
    const std::pair<std::size_t, std::size_t> cases[] = {{15000, 15000}, {15001, 8000}};
    for (const auto& [length, left] : cases) {
        Enquirer station(30);
        station.Asks();
        const std::size_t added = station.Shown().size();
        station.w().frmSmsg.stsMessage.Text.assign(length - added, 'o');
        station.Asks();
        EXPECT_EQ(station.Shown().size(), left);
        EXPECT_TRUE(station.Shown().starts_with("\r\n01.05.2026"));
    }
}

TEST(EnquireStatus, ShowsWhatItIsAt) {
    Enquirer station(30);
    Workstation& w = station.w();
    SetErrorsPanel(w, "NO MESSAGE", Red);
    bool seen = false;
    station.machine.time.At(500000, [&] {
        seen = true;
        EXPECT_EQ(w.intake.EnquiryBusy, 1);
        EXPECT_TRUE(w.frmSmsg.Visible);
        EXPECT_GT(w.frmSmsg.BroughtToFront, 0u);
        EXPECT_EQ(w.frmSmsg.MousePointer, BusyPointer);
        EXPECT_EQ(w.frmMain.MousePointer, BusyPointer);
        EXPECT_FALSE(w.frmMain.Enabled);
        EXPECT_EQ(station.Errors(), "Status Msg");
        EXPECT_FALSE(station.ErrorShown());
    });
    station.Asks();
    EXPECT_TRUE(seen);
    EXPECT_EQ(w.intake.EnquiryBusy, 0);
    EXPECT_EQ(w.frmSmsg.MousePointer, DefaultPointer);
    EXPECT_EQ(w.frmMain.MousePointer, DefaultPointer);
    EXPECT_TRUE(w.frmMain.Enabled);
}

TEST(EnquireStatus, LetsTheWindowBePaintedFirst) {
    Enquirer station(30);
    bool painted = false;
    station.machine.time.At(
        0, [&] { painted = station.w().frmSmsg.Visible && station.machine.line.Sent().empty(); });
    station.Asks();
    EXPECT_TRUE(painted);
}

TEST(EnquireStatus, AsksAllTheSameWhenNothingAnswersOpen) {
    Enquirer station(30);
    station.Answers("status\r", "fine\r\nCEILO");
    station.Asks();
    EXPECT_NE(station.Shown().find("\r\nfine\r\n"), std::string::npos);
}

TEST(EnquireStatus, TellsThatNoReplyCame) {
    const std::pair<const char*, const char*> cases[] = {
        {"an instrument that never answers", ""},
        {"no prompt", "TRANSMITTER OK\r\n"},
        {"rubbish", "\xFF\x01\x02 CEIL \x7F"},
    };
    for (const auto& [what, reply] : cases) {
        SCOPED_TRACE(what);
        Enquirer station(30);
        station.Answers("status\r", reply);
        station.Asks();
        EXPECT_NE(station.Shown().find("\r\n\r\nStatus message enquiring failed!\r\n\r\n"),
                  std::string::npos);
        EXPECT_EQ(station.Shown().find("TRANSMITTER"), std::string::npos);
    }
}

TEST(EnquireStatus, ShowsAnEmptyReplyAsOne) {
    Enquirer station(30);
    station.Answers("status\r", "CEILO> ");
    station.Asks();
    // The prompt alone is a reply, and an empty one.
    EXPECT_TRUE(station.Shown().ends_with("\r\n\r\n\r\n")) << station.Shown();
    EXPECT_EQ(station.Shown().find("failed"), std::string::npos);
}

TEST(EnquireStatus, WaitsAsLongAsTheInstrumentGoesOnSending) {
    Enquirer station(30);
    auto& line = station.machine.line;
    line.Arrive("message ");
    for (int second = 0; second < 30; ++second) {
        station.machine.time.At(second * MicrosPerSecond + 300000, [&] { line.Arrive("more "); });
    }
    station.machine.time.At(30 * MicrosPerSecond, [&] { EXPECT_EQ(line.TakeSent(), "OPEN\r"); });
    station.Asks();
    EXPECT_EQ(line.TakeSent(), "status\rCLOSE\r");
}

TEST(EnquireStatus, DropsWhatStandsInTheLineAtItsEnd) {
    Enquirer station(30);
    station.Answers("CLOSE\r", "LINE CLOSED\r\n");
    station.Asks();
    EXPECT_EQ(station.machine.line.InBufferCount(), 0);
}

TEST(EnquireStatus, OutlivesADeviceThatVanishes) {
    const struct {
        double closesAt;  // seconds; an enquiry takes nine
        const char* sent;
    } cases[] = {{0, ""}, {0.5, "OPEN\r"}, {4.5, "OPEN\rstatus\r"}, {8.5, "OPEN\rstatus\rCLOSE\r"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.closesAt);
        Enquirer station(30);
        // Every use of the line raises from now on.
        station.machine.time.At(
            static_cast<Micros>(c.closesAt * static_cast<double>(MicrosPerSecond)),
            [&] { station.machine.line.SetPortOpen(false); });
        station.Asks();
        EXPECT_EQ(station.machine.line.TakeSent(), c.sent);
        EXPECT_NE(station.Shown().find("Status message enquiring failed!"), std::string::npos);
        EXPECT_EQ(station.w().intake.EnquiryBusy, 0);
        EXPECT_TRUE(station.w().frmMain.Enabled);
        EXPECT_EQ(station.machine.dialogs.TakeBox(), std::nullopt);
    }
}

TEST(EnquireStatus, WritesTheReplyToTheStatusLogIfThereIsOne) {
    const struct {
        const char* settings;
        bool logOn;
        const char* held;
    } cases[] = {{"Status_Log=1\r\n", true, "fine\r\n\r\n"},
                 {"Status_Log=1\r\n", false, ""},
                 {"Status_Log=0\r\n", true, ""}};
    for (const auto& c : cases) {
        Enquirer station(30, c.settings);
        station.Answers("status\r", "fine\r\nCEILO>");
        station.w().logging.StatusLogFile = "C:\\A.sta";
        station.w().frmMain.mnuLogOn.Checked = c.logOn;
        station.Asks();
        EXPECT_EQ(station.machine.files.Content("C:\\A.sta").value_or(""), c.held);
    }
}

TEST(EnquireStatus, OutlivesAFullDisk) {
    Enquirer station(30, "Status_Log=1\r\n");
    station.w().logging.StatusLogFile = "C:\\A.sta";
    station.w().frmMain.mnuLogOn.Checked = true;
    station.machine.files.FillDisk();
    station.Asks();
    EXPECT_TRUE(station.w().frmMain.Enabled);
    EXPECT_EQ(station.machine.dialogs.TakeBox(), std::nullopt);
}

TEST(ChangedStatus, AsksWithThePortClosedByABoxAlone) {
    Enquirer station(30, "Status_Log=1\r\n");
    station.machine.line.SetPortOpen(false);
    const std::string frame = ShortKN("15", "400000000000");
    station.machine.Enter([&] { HandleMessage(station.w(), frame); });
    EXPECT_TRUE(station.machine.dialogs.TakeBox().value_or("").starts_with("THE COMMUNICATION"));
    EXPECT_EQ(station.w().intake.PreviousStatus, "40000");
    EXPECT_EQ(station.w().intake.IntakeBusy, 0);
}

TEST(ChangedStatus, KeepsTheTickOutWhileItAsks) {
    Enquirer station(30, "Status_Log=1\r\n");
    station.Answers("OPEN\r", ShortKN("15", "111110000000"));
    station.ReceiveMessage(ShortKN("15", "400000000000"));
    EXPECT_EQ(station.w().intake.PreviousStatus, "40000") << "what came meanwhile is dropped";
    EXPECT_EQ(station.machine.line.TakeSent(), "OPEN\rstatus\rCLOSE\r");
}

}  // namespace
}  // namespace cumeron
