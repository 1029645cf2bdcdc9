// The program itself in processes of its own: its words, signals, and several copies.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QProcess>
#include <csignal>
#include <memory>

#include "support.h"

namespace cumeron {
namespace {

#ifdef PROGRAM

// From then on a signal does not kill it any more.
bool HeedsSignals(const QProcess& copy) {
    const std::string status = ReadFile("/proc/" + std::to_string(copy.processId()) + "/status");
    const std::size_t caught = status.find("SigCgt:");
    if (caught == status.npos) return false;
    return std::stoull(status.substr(caught + 7), nullptr, 16) & (1ULL << (SIGTERM - 1));
}

struct ProgramTest : testing::Test {
    OwnFolders own;

    std::string Settings(int number) {
        return own.Path("config/cumeron/CUMERON" + std::to_string(number) + ".INI");
    }
    bool HasMark(int number) {
        const std::string mark = "run/cumeron/CUMERON" + std::to_string(number) + ".INI";
        return ::access(own.Path(mark).c_str(), F_OK) == 0;
    }
    bool HasKey(int number, const std::string& line) {
        return ReadFile(Settings(number)).find(line + "\r\n") != std::string::npos;
    }
    void WriteSettings(const std::string& keys) {
        ::mkdir(own.Path("config/cumeron").c_str(), 0755);
        WriteFile(Settings(1), "[CUMERON]\r\n" + keys);
    }
    // A copy that has taken the number.
    std::unique_ptr<QProcess> Start(int number) {
        auto copy = std::make_unique<QProcess>();
        copy->start(PROGRAM, {});
        EXPECT_TRUE(copy->waitForStarted());
        EXPECT_TRUE(WaitUntil([&] { return HasMark(number); })) << number;
        return copy;
    }
    void End(QProcess& copy, int signal) {
        ::kill(static_cast<pid_t>(copy.processId()), signal);
        ASSERT_TRUE(copy.waitForFinished());
        EXPECT_EQ(copy.exitStatus(), QProcess::NormalExit) << signal;
        EXPECT_EQ(copy.exitCode(), 0) << signal;
    }
};

TEST_F(ProgramTest, TellsHelpVersionAndTheSettingsFileWithoutAWindow) {
    const std::string file = "Settings of the first copy: " + Settings(1) + "\n";
    const struct {
        QStringList words;
        std::string start;
    } cases[] = {{{"--help"}, "Usage: cumeron [NUMBER]\n"}, {{"1", "--version"}, "Cumeron 2.0\n"}};
    qputenv("QT_QPA_PLATFORM", "none such");
    for (const auto& c : cases) {
        QProcess program;
        program.start(PROGRAM, c.words);
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0);
        const std::string told = program.readAllStandardOutput().toStdString();
        EXPECT_EQ(told.rfind(c.start, 0), 0U) << told;
        EXPECT_EQ(told.substr(told.size() - std::min(told.size(), file.size())), file);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

TEST_F(ProgramTest, ASignalSavesTheSettingsAndLeavesWithoutAQuestion) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        WriteSettings("Comm_Port=7\r\n");
        const auto copy = Start(1);
        End(*copy, signal);
        EXPECT_TRUE(HasKey(1, "Comm_Port=7")) << signal;
        EXPECT_TRUE(HasKey(1, "CEILOMETER=30")) << signal;
        EXPECT_FALSE(HasMark(1)) << signal;
        EXPECT_FALSE(copy->readAllStandardError().contains("cumeron:"));
    }
}

TEST_F(ProgramTest, AFileAtItsLimitDoesNotEndIt) {
    WriteSettings("Log_on=1\r\nLog_File_Path=" + own.Path("log") + "\r\n");
    ::mkdir(own.Path("log").c_str(), 0755);
    QProcess copy;
    copy.setChildProcessModifier([] {
        const rlimit twentyBytes{20, 20};
        ::setrlimit(RLIMIT_FSIZE, &twentyBytes);
    });
    copy.start(PROGRAM, {});
    ASSERT_TRUE(copy.waitForStarted());
    const auto logs = [&] {
        return QDir(QString::fromStdString(own.Path("log"))).entryInfoList(QDir::Files);
    };
    EXPECT_TRUE(WaitUntil([&] { return !logs().isEmpty() && logs()[0].size() == 20; }));
    End(copy, SIGTERM);
}

TEST_F(ProgramTest, ASignalLeavesWhileABoxIsOpen) {
    qputenv("CUMERON_COM1", own.Path("no such device").c_str());
    WriteSettings("Port_open=1\r\n");  // whose refusal the program tells in a box
    const auto copy = Start(1);
    End(*copy, SIGTERM);
    EXPECT_TRUE(HasKey(1, "CEILOMETER=30"));
    qunsetenv("CUMERON_COM1");
}

TEST_F(ProgramTest, ASignalLeavesInTheMiddleOfAFailedStart) {
    WriteSettings("CEILOMETER=abc\r\n");
    const auto copy = Start(1);
    End(*copy, SIGTERM);
    EXPECT_EQ(ReadFile(Settings(1) + ".bak"), "[CUMERON]\r\nCEILOMETER=abc\r\n");
}

TEST_F(ProgramTest, ErrorsOnTheWayOutGoToTheErrorStream) {
    const auto copy = Start(1);
    ::mkdir(own.Path("config/cumeron").c_str(), 0755);
    ::mkdir(Settings(1).c_str(), 0755);  // in the place of the file
    End(*copy, SIGTERM);
    const QString told = QString::fromUtf8(copy->readAllStandardError());
    EXPECT_TRUE(told.contains("cumeron: The following Error occurred: Path/File access error"))
        << told.toStdString();
    EXPECT_TRUE(told.contains("Error Number: 75"));
}

TEST_F(ProgramTest, ThreeCopiesHaveNumbersAndFilesOfTheirOwn) {
    const auto first = Start(1);
    const auto second = Start(2);
    const auto third = Start(3);
    End(*second, SIGTERM);
    EXPECT_TRUE(HasMark(1) && !HasMark(2) && HasMark(3));
    const auto fourth = Start(2);  // takes the number that became free
    for (QProcess* copy : {first.get(), third.get(), fourth.get()}) End(*copy, SIGTERM);
    for (int number = 1; number <= 3; ++number) {
        EXPECT_TRUE(HasKey(number, "CEILOMETER=30")) << number;
        EXPECT_FALSE(HasMark(number)) << number;
    }
}

TEST_F(ProgramTest, CopiesStartedAtTheSameInstantAllEndWell) {
    QProcess copies[3];
    for (QProcess& copy : copies) copy.start(PROGRAM, {});
    for (QProcess& copy : copies) ASSERT_TRUE(WaitUntil([&] { return HeedsSignals(copy); }));
    for (QProcess& copy : copies) End(copy, SIGTERM);
    for (int number = 1; number <= 3; ++number) {
        EXPECT_FALSE(HasMark(number)) << number;
        const bool saved = ::access(Settings(number).c_str(), F_OK) == 0;
        EXPECT_TRUE(!saved || HasKey(number, "CEILOMETER=30")) << number;
    }
    EXPECT_TRUE(HasKey(1, "CEILOMETER=30"));
}

TEST_F(ProgramTest, ACopyStartedAloneTakesTheNumberOfACrashedOne) {
    const auto crashed = Start(1);
    crashed->kill();
    ASSERT_TRUE(crashed->waitForFinished());
    ASSERT_TRUE(HasMark(1));
    QProcess next;
    next.start(PROGRAM, {});
    ASSERT_TRUE(WaitUntil([&] { return HeedsSignals(next); }));
    End(next, SIGTERM);
    EXPECT_FALSE(HasMark(1));
    EXPECT_TRUE(HasKey(1, "CEILOMETER=30"));
}

TEST_F(ProgramTest, BesideARunningCopyTheMarkOfACrashedOneStands) {
    const auto crashed = Start(1);
    const auto running = Start(2);
    crashed->kill();
    ASSERT_TRUE(crashed->waitForFinished());
    const auto third = Start(3);
    EXPECT_TRUE(HasMark(1));
    End(*third, SIGTERM);
    End(*running, SIGTERM);
}

#endif

}  // namespace
}  // namespace cumeron
