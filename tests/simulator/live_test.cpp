// The running instrument: pacing and schedule on a clock of the test, then a real pseudo terminal.
#include "live.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>
#include <thread>

#include "setups.h"

namespace cumeron::sim {
namespace {

Live MakeLive(const std::string& model = "KN30", const std::string& key = "15") {
    Live live;
    live.run = MakeRun(model, key);
    live.service.statusReport = [](double) { return std::string("STATUS TEXT\r\n"); };
    StartService(live.service);
    return live;
}

// Steps of 0.1 s from one time to another; gives all that was sent.
std::string Step(Live& live, double from, double to, const std::string& input = "") {
    std::string sent = LiveStep(live, from, true, input);
    for (int i = 1; from + 0.1 * i <= to; ++i) sent += LiveStep(live, from + 0.1 * i, true, "");
    return sent;
}

TEST(LiveStep, FirstMessageComesAtOnceAndTheNextAfterTheInterval) {
    Live live = MakeLive();
    EXPECT_EQ(Step(live, 0, 5), MessageOf(live.run, 0).bytes);
    EXPECT_EQ(Step(live, 5.1, 15), "");
    EXPECT_EQ(Step(live, 15.1, 20), MessageOf(live.run, 1).bytes);
}

TEST(LiveStep, WaitsForTheFirstListener) {
    Live live = MakeLive();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(LiveStep(live, i, false, ""), "");
    EXPECT_EQ(Step(live, 100, 105), MessageOf(live.run, 0).bytes);
}

TEST(LiveStep, KeepsTheBaudRate) {
    Live live = MakeLive("KN30", "13");
    live.baud = 9600;
    const std::string sent = Step(live, 0, 4.2);
    EXPECT_NEAR(static_cast<double>(sent.size()), 960 * 4.0, 200);
    EXPECT_EQ(sent, MessageOf(live.run, 0).bytes.substr(0, sent.size()));
}

TEST(LiveStep, LeavesOutAMessageThatFindsTheLineBusy) {
    Live live = MakeLive("KN30", "13");
    live.baud = 2400;  // 7606 bytes take 32 s
    const std::string sent = Step(live, 0, 34);
    EXPECT_EQ(sent, MessageOf(live.run, 0).bytes);
    EXPECT_TRUE(Step(live, 34.1, 50).starts_with(MessageOf(live.run, 3).bytes.substr(0, 100)));
}

TEST(LiveStep, AnswersBehindTheMessageThatIsLeaving) {
    Live live = MakeLive();
    EXPECT_EQ(Step(live, 0, 0.2), "");
    const std::string sent = Step(live, 0.21, 14, "OPEN\r");
    EXPECT_EQ(sent, MessageOf(live.run, 0).bytes + "\r\nCEILO> ");
    EXPECT_EQ(Step(live, 14.1, 40), "") << "no messages while the service line is open";
    EXPECT_EQ(Step(live, 40.1, 41, "status\r"), "\r\nSTATUS TEXT\r\nCEILO> ");
    EXPECT_EQ(Step(live, 41.1, 44, "CLOSE\r"), "\r\nLINE CLOSED\r\n");
    EXPECT_EQ(Step(live, 44.1, 48), MessageOf(live.run, 3).bytes);
}

TEST(LiveStep, DroppedCallCutsTheMessage) {
    Live live = MakeLive("KN30", "13");
    live.service.dialPrefix = "ATD";
    live.service.dropCallAfter = 12;
    StartService(live.service);
    std::string sent = Step(live, 0, 30, "ATD1\r");
    EXPECT_TRUE(sent.starts_with("\r\nCONNECT\r\n\x01KN021013")) << sent.substr(0, 40);
    EXPECT_TRUE(sent.ends_with("\r\nNO CARRIER\r\n"));
    EXPECT_EQ(sent.find('\x04'), sent.npos);
    EXPECT_EQ(Step(live, 30.1, 60), "");
}

TEST(LiveStep, EndsAfterTheWantedMessages) {
    Live live = MakeLive();
    live.messages = 2;
    EXPECT_EQ(Step(live, 0, 100), MessageOf(live.run, 0).bytes + MessageOf(live.run, 1).bytes);
    EXPECT_TRUE(IsDone(live));
}

// The far end of a line, as a workstation holds it.
struct Far {
    int fd;
    explicit Far(const std::string& name) : fd(open(name.c_str(), O_RDWR | O_NOCTTY)) {}
    ~Far() { close(fd); }
    Far(const Far&) = delete;
    Far& operator=(const Far&) = delete;

    // Waits for as many bytes; gives what came when nothing comes any more.
    std::string Read(std::size_t count) const {
        std::string text;
        pollfd state{fd, POLLIN, 0};
        while (text.size() < count && poll(&state, 1, 5000) > 0) {
            char bytes[4096];
            const ssize_t length = read(fd, bytes, sizeof bytes);
            if (length <= 0) break;
            text.append(bytes, static_cast<std::size_t>(length));
        }
        return text;
    }
};

TEST(PseudoTerminal, CarriesEveryByteBothWaysUnchanged) {
    Line line = OpenPseudoTerminal();
    EXPECT_FALSE(HasListener(line));
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    {
        const Far far(line.name);
        EXPECT_TRUE(HasListener(line));
        EXPECT_EQ(WriteLine(line, all), 256u);
        EXPECT_EQ(far.Read(256), all);
        ASSERT_EQ(write(far.fd, all.data(), all.size()), 256);
        WaitForInput(line, 5000);
        EXPECT_EQ(ReadLine(line), all);
    }
    EXPECT_FALSE(HasListener(line));
    CloseLine(line);
}

TEST(PseudoTerminal, NeitherBlocksNorKeepsWhatNobodyHears) {
    Line line = OpenPseudoTerminal();
    const std::string much(100000, 'x');
    EXPECT_EQ(WriteLine(line, much), much.size()) << "nobody listens: all of it is gone";
    EXPECT_EQ(ReadLine(line), "");
    {
        const Far far(line.name);
        EXPECT_LT(WriteLine(line, much), much.size()) << "a listener that does not read";
    }
    const Far again(line.name);
    EXPECT_TRUE(HasListener(line));
    tcflush(again.fd, TCIFLUSH);
    EXPECT_EQ(WriteLine(line, "new"), 3u);
    EXPECT_EQ(again.Read(3), "new");
    CloseLine(line);
}

TEST(LinkLine, ReplacesLinksOnlyAndGoesAwayWithTheLine) {
    const std::string folder = testing::TempDir() + "cumeron_sim_link." + std::to_string(getpid());
    std::filesystem::create_directory(folder);
    const std::string link = folder + "/ceilo";
    std::filesystem::create_symlink("/nowhere", link);
    Line line = OpenPseudoTerminal();
    LinkLine(line, link);
    EXPECT_EQ(std::filesystem::read_symlink(link), line.name);
    CloseLine(line);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
    std::ofstream(link) << "a file of somebody";
    line = OpenPseudoTerminal();
    EXPECT_THROW(LinkLine(line, link), std::system_error);
    CloseLine(line);
    EXPECT_TRUE(std::filesystem::is_regular_file(link));
    std::filesystem::remove_all(folder);
}

TEST(OpenDevice, RefusesWhatIsNoLine) {
    EXPECT_THROW(OpenDevice("/nowhere/tty", 9600), std::system_error);
    EXPECT_THROW(OpenDevice("/dev/null", 9600), std::system_error);
    EXPECT_THROW(OpenDevice("/dev/null", 9601), std::invalid_argument);
    EXPECT_FALSE(IsLineSpeed(9601));
    EXPECT_TRUE(IsLineSpeed(19200));
}

TEST(OpenDevice, SpeaksOverADevice) {
    Line near = OpenPseudoTerminal();
    Line device = OpenDevice(near.name, 9600);
    EXPECT_TRUE(HasListener(device));
    EXPECT_EQ(WriteLine(device, "\r\n\x03"), 3u);
    WaitForInput(near, 5000);
    EXPECT_EQ(ReadLine(near), "\r\n\x03");
    CloseLine(device);
    CloseLine(near);
}

// A workstation goes and comes back while the instrument runs, and each time finds messages.
TEST(RunLive, OutlivesItsListeners) {
    Live live = MakeLive("KN30", "25");
    live.speed = 100;
    live.run.setup.interval = 20;
    Line line = OpenPseudoTerminal();
    std::atomic<bool> stop{false};
    std::thread instrument([&] { RunLive(live, line, stop); });
    for (int visit = 0; visit < 2; ++visit) {
        const Far far(line.name);
        const std::string text = far.Read(300);
        EXPECT_NE(text.find("\x01KN021025\x02"), text.npos) << visit;
        EXPECT_NE(text.find("\x04\r\n"), text.npos) << visit;
    }
    stop = true;
    instrument.join();
    CloseLine(line);
}

TEST(RunLive, LosesNothingToASlowReader) {
    Live live = MakeLive("KN30", "13");  // 7606 bytes, more than the terminal holds
    live.speed = 1000;
    live.messages = 1;
    Line line = OpenPseudoTerminal();
    const std::string wanted = MessageOf(live.run, 0).bytes;
    std::atomic<bool> stop{false};
    const Far far(line.name);
    std::thread instrument([&] { RunLive(live, line, stop); });
    EXPECT_EQ(far.Read(wanted.size()), wanted);
    stop = true;
    instrument.join();
    CloseLine(line);
}

}  // namespace
}  // namespace cumeron::sim
