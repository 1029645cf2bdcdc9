// The log and the driver script that are written without waiting.
#include "outputs.h"

#include <gtest/gtest.h>

#include <sstream>

#include "setups.h"

namespace cumeron::sim {
namespace {

std::string LogOf(const SimulatedRun& run, double hours) {
    std::ostringstream out;
    WriteLog(out, run, hours);
    return out.str();
}

std::string ScenarioOf(const SimulatedRun& run, double hours) {
    std::ostringstream out;
    WriteScenario(out, run, hours);
    return out.str();
}

int Count(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST(WriteLog, IsTheLogOfAWorkstation) {
    const SimulatedRun run = MakeRun("KN30", "15");
    std::string wanted =
        "-Ceilometer Logfile \r\n-File created: 2026-11-15 12:00:00\r\n"
        "-2026-11-15 12:00:00\r\n" +
        MessageOf(run, 0).bytes +
        "\r\n"
        "-2026-11-15 12:00:15\r\n" +
        MessageOf(run, 1).bytes +
        "\r\n"
        "-File Closed: 2026-11-15 12:00:30\r\n";
    EXPECT_EQ(LogOf(run, 30.0 / 3600), wanted);
}

TEST(WriteLog, HoldsSoundMessagesOnlyAndNoNoise) {
    SimulatedRun run = MakeRun("KN30", "15");
    run.faults.noise = 1;
    EXPECT_EQ(LogOf(run, 0.1), LogOf(MakeRun("KN30", "15"), 0.1));
    run.faults = {};
    run.faults.checksum = 1;
    EXPECT_EQ(Count(LogOf(run, 0.1), "\x01"), 0);
}

TEST(WriteLog, ChangedIntervalShowsInTheTimes) {
    SimulatedRun run = MakeRun("RV10X", "3");
    run.changedInterval = 30;
    run.changedAfter = 2;
    const std::string log = LogOf(run, 0.025);
    for (const char* time : {"12:00:00\r\n\x02", "12:00:12\r\n\x02", "12:00:24\r\n\x02",
                             "12:00:54\r\n\x02", "12:01:24\r\n\x02"})
        EXPECT_EQ(Count(log, time), 1) << time;
    EXPECT_EQ(Count(log, "\x02"), 5);
    EXPECT_EQ(IntervalAfter(run, 1), 12);
    EXPECT_EQ(IntervalAfter(run, 2), 30);
}

TEST(WriteScenario, FeedsEachMessageInTwoPieces) {
    const SimulatedRun run = MakeRun("KN30", "25");
    const std::string text = ScenarioOf(run, 15.0 / 3600);
    EXPECT_NE(text.find("setting CEILOMETER 30\nsetting Message_Interval 15\nsetting Units 0\n"
                        "clock \"2026-11-15 12:00:00\"\nstart\nclick mnuOpenPort\n"
                        "rx \"\\x01KN021025\\x02\\r\\n\" \""),
              text.npos);
    EXPECT_NE(text.find("\\x04\\r\"\nadvance 1\nrx \"\\n\"\nadvance 14\n"
                        "expect FrameErrorCount 0\n"),
              text.npos);
}

TEST(WriteScenario, SilenceIsOnlyTimeAndFaultsExpectNothing) {
    SimulatedRun run = MakeRun("KN30", "25");
    run.faults.silence = 1;
    const std::string text = ScenarioOf(run, 15.0 / 3600);
    EXPECT_EQ(Count(text, "rx"), 0);
    EXPECT_EQ(Count(text, "advance 15\n"), 1);
    EXPECT_EQ(Count(text, "expect"), 0);
}

TEST(QuotedValue, EscapesWhatAScriptWouldMisread) {
    EXPECT_EQ(QuotedValue("a \"b\" \\ \r\n\x01\xFF#"), "\"a \\\"b\\\" \\\\ \\r\\n\\x01\\xFF#\"");
}

}  // namespace
}  // namespace cumeron::sim
