// The program as it is typed: exit statuses, texts, and an end on SIGTERM that leaves nothing.
#include <gtest/gtest.h>
#include <signal.h>
#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

namespace cumeron::sim {
namespace {

struct Outcome {
    int status;
    std::string text;  // standard output and errors
};

Outcome RunSimulator(const std::string& arguments) {
    FILE* pipe = popen((std::string(SIMULATOR) + " " + arguments + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return {-1, ""};
    std::string text;
    std::array<char, 4096> bytes;
    for (std::size_t n; (n = fread(bytes.data(), 1, bytes.size(), pipe)) > 0;)
        text.append(bytes.data(), n);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

TEST(CommandLine, RefusesBadArgumentsWithAReason) {
    const struct {
        const char* arguments;
        const char* reason;
    } cases[] = {
        {"--model KN99", "no model KN99"},
        {"--model KN30 --message 26", "sends no message 26"},
        {"--interval 0", "--interval"},
        {"--units yards", "--units"},
        {"--start yesterday", "no time yesterday"},
        {"--baud 9601", "no speed of a serial line"},
        {"--speed 0", "--speed"},
        {"--tilt 61", "--tilt"},
        {"--alarm perhaps", "--alarm"},
        {"--hours 0", "--hours"},
        {"--fault-cut 1.5", "--fault-cut"},
        {"--model RV20X --fault-checksum 0.5", "sends no checksum"},
        {"--device /dev/null --link /tmp/x", "a device has a name of its own"},
        {"--scenario - --interval 1", "2 seconds or more"},
        {"--scenario - --fault-interval 1", "2 seconds or more"},
        {"--nonsense", "--nonsense"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = RunSimulator(c.arguments);
        EXPECT_EQ(outcome.status, 2) << c.arguments;
        EXPECT_NE(outcome.text.find(c.reason), outcome.text.npos)
            << c.arguments << ": " << outcome.text;
    }
}

TEST(CommandLine, TellsWhatFailsOutside) {
    for (const char* arguments : {"--log /nowhere/file", "--scenario /nowhere/file",
                                  "--device /nowhere/tty", "--link /nowhere/link"})
        EXPECT_EQ(RunSimulator(arguments).status, 1) << arguments;
}

TEST(CommandLine, HelpAndListSucceed) {
    const Outcome help = RunSimulator("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.text.find("--fault-lost-start"), help.text.npos);
    EXPECT_NE(help.text.find("Examples:"), help.text.npos);
    const Outcome list = RunSimulator("--list");
    EXPECT_EQ(list.status, 0);
    EXPECT_NE(list.text.find("KN50   26"), list.text.npos);
}

TEST(CommandLine, OptionsReachTheMessages) {
    const std::string base = "--log - --hours 0.004 --start '2026-11-15 12:00:00' ";
    const std::string plain = RunSimulator(base + "--message 15").text;
    EXPECT_NE(plain.find("-2026-11-15 12:00:00\r\n\x01KN021015\x02"), plain.npos);
    EXPECT_EQ(plain, RunSimulator(base + "--message 15 --seed 1").text);
    for (const char* option :
         {"--message 15 --seed 7", "--message 15 --units m", "--message 15 --tilt 20",
          "--message 15 --alarm warning", "--message 15 --alarm alarm --alarm-after 0",
          "--message 15 --interval 5", "--message 15 --fault-silence 1", "--message 18",
          "--model KN50"})
        EXPECT_NE(RunSimulator(base + option).text, plain) << option;
    EXPECT_EQ(RunSimulator(base + "--message 15 --alarm alarm --alarm-after 99").text, plain);
}

TEST(CommandLine, EndsOnATermSignalWithoutLeavingItsLink) {
    const std::string link = testing::TempDir() + "cumeron_sim_end." + std::to_string(getpid());
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execl(SIMULATOR, "cumeron-sim", "--link", link.c_str(), nullptr);
        _exit(127);
    }
    ASSERT_GT(child, 0);
    close(ends[1]);
    std::string name;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) name += c;
    EXPECT_TRUE(name.starts_with("/dev/pts/")) << name;
    EXPECT_EQ(std::filesystem::read_symlink(link), name);
    kill(child, SIGTERM);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    close(ends[0]);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
}

}  // namespace
}  // namespace cumeron::sim
