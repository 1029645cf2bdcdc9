// Service commands and the dial-up modem, on a clock of the test.
#include "service.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "setups.h"

namespace cumeron::sim {
namespace {

Service MakeService(const std::string& dialPrefix = "") {
    Service service;
    service.statusReport = [](double) { return std::string("ALL IS WELL\r\nTRULY\r\n"); };
    service.dialPrefix = dialPrefix;
    StartService(service);
    return service;
}

TEST(HearBytes, AnswersAnEnquiry) {
    Service service = MakeService();
    EXPECT_TRUE(SendsMessages(service));
    EXPECT_EQ(HearBytes(service, "OPEN\r", 0), "\r\nCEILO> ");
    EXPECT_FALSE(SendsMessages(service)) << "an open service line carries no messages";
    const std::string report = "\r\nALL IS WELL\r\nTRULY\r\nCEILO> ";
    EXPECT_EQ(HearBytes(service, "status\r", 1), report);
    EXPECT_EQ(HearBytes(service, "GET STATUS\r\n", 1), report);
    EXPECT_NE(HearBytes(service, "CLOSE\r", 2).find("CLOSED"), std::string::npos);
    EXPECT_TRUE(SendsMessages(service));
}

TEST(HearBytes, TakesCommandsInPieces) {
    Service service = MakeService();
    EXPECT_EQ(HearBytes(service, "OP", 0), "");
    EXPECT_EQ(HearBytes(service, "EN", 0), "");
    EXPECT_EQ(HearBytes(service, "\rsta", 0), "\r\nCEILO> ");
    EXPECT_NE(HearBytes(service, "tus\r", 0).find("TRULY"), std::string::npos);
}

TEST(HearBytes, EchoesOnAnOpenServiceLineWhenAsked) {
    Service service = MakeService();
    service.echo = true;
    EXPECT_EQ(HearBytes(service, "OPEN\r", 0), "\r\nCEILO> ") << "not before it is open";
    EXPECT_EQ(HearBytes(service, "hel", 0), "hel");
    EXPECT_TRUE(HearBytes(service, "p\r", 0).starts_with("p\r\r\nCOMMANDS"));
    EXPECT_TRUE(HearBytes(service, "CLOSE\r", 0).starts_with("CLOSE\r\r\nLINE CLOSED"));
    EXPECT_EQ(HearBytes(service, "x", 0), "");
}

TEST(HearBytes, IsDeafToCommandsBeforeOpen) {
    Service service = MakeService();
    for (const char* word : {"status\r", "CLOSE\r", "\r", "hello\r"})
        EXPECT_EQ(HearBytes(service, word, 0), "") << word;
}

TEST(HearBytes, TellsTheCommandsToWhoIsLost) {
    Service service = MakeService();
    HearBytes(service, "OPEN\r", 0);
    const std::string answer = HearBytes(service, "what?\r", 0);
    EXPECT_NE(answer.find("STATUS"), std::string::npos);
    EXPECT_TRUE(answer.ends_with("CEILO> "));
    EXPECT_EQ(HearBytes(service, "\r", 0), "\r\nCEILO> ");
}

TEST(HearBytes, EndlessLineDoesNotGrow) {
    Service service = MakeService();
    for (int i = 0; i < 100; ++i) HearBytes(service, std::string(1000, '\xFF'), 0);
    EXPECT_LE(service.line.size(), 200u);
    EXPECT_EQ(HearBytes(service, "\r", 0), "");
    EXPECT_EQ(HearBytes(service, "OPEN\r", 0), "\r\nCEILO> ");
}

TEST(PassTime, ClosesAForgottenServiceLine) {
    Service service = MakeService();
    HearBytes(service, "OPEN\r", 100);
    PassTime(service, 699);
    EXPECT_FALSE(SendsMessages(service));
    PassTime(service, 700);
    EXPECT_TRUE(SendsMessages(service));
}

TEST(Modem, ConnectsAfterTheDialString) {
    Service service = MakeService("ATD");
    EXPECT_FALSE(SendsMessages(service)) << "nobody has called";
    EXPECT_EQ(HearBytes(service, "ATZ\r", 0), "\r\nOK\r\n");
    EXPECT_EQ(HearBytes(service, "OPEN\r", 0), "") << "a modem is no instrument";
    EXPECT_EQ(HearBytes(service, "atdt5551234\r", 10), "");
    EXPECT_EQ(PassTime(service, 14.9), "");
    EXPECT_EQ(PassTime(service, 15), "\r\nCONNECT\r\n");
    EXPECT_TRUE(SendsMessages(service));
    EXPECT_EQ(PassTime(service, 99999), "") << "the call stays";
    EXPECT_EQ(HearBytes(service, "OPEN\r", 99999), "\r\nCEILO> ");
}

TEST(Modem, DropsTheCallAndTakesTheNext) {
    Service service = MakeService("DIAL");
    service.dropCallAfter = 60;
    HearBytes(service, "DIAL 1\r", 0);
    PassTime(service, 5);
    HearBytes(service, "OPEN\r", 6);
    EXPECT_EQ(PassTime(service, 64.9), "");
    EXPECT_EQ(PassTime(service, 65), "\r\nNO CARRIER\r\n");
    EXPECT_FALSE(SendsMessages(service));
    HearBytes(service, "DIAL 1\r", 70);
    EXPECT_EQ(PassTime(service, 75), "\r\nCONNECT\r\n");
    EXPECT_TRUE(SendsMessages(service)) << "the service line went down with the call";
}

TEST(Modem, AnythingTypedWhileDiallingEndsIt) {
    Service service = MakeService("ATD");
    HearBytes(service, "ATD1\r", 0);
    EXPECT_EQ(HearBytes(service, "x\r", 1), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(PassTime(service, 5), "");
}

TEST(StatusReport, HasManyLinesAndNeverThePrompt) {
    for (const ModelRow& model : Models()) {
        SimulatedRun run = MakeRun(model.name);
        const std::string report = StatusReport(run, Noon);
        EXPECT_EQ(report.find("CEILO"), report.npos) << "would end the answer early";
        EXPECT_GT(std::count(report.begin(), report.end(), '\n'), 6);
        EXPECT_TRUE(report.starts_with(model.name));
        EXPECT_NE(report.find("NO ALARMS"), report.npos);
        EXPECT_NE(report.find("UNITS FEET"), report.npos);
        run.setup.metres = true;
        run.setup.health = Health::Warning;
        EXPECT_NE(StatusReport(run, Noon).find("WARNING: WINDOW"), report.npos);
        EXPECT_NE(StatusReport(run, Noon).find("UNITS METERS"), report.npos);
        run.setup.health = Health::Alarm;
        EXPECT_NE(StatusReport(run, Noon).find("ALARM: TRANSMITTER"), report.npos);
        EXPECT_NE(StatusReport(run, Noon).find("NO MEASUREMENT"), report.npos);
    }
}

}  // namespace
}  // namespace cumeron::sim
