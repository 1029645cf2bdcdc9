// The log on a real file system: disks that fill, folders that go, and a writer that is killed.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "logging/log_file.h"
#include "logging/offline_reader.h"
#include "logging/rotation.h"
#include "platform/host/files.h"
#include "platform/scripted/scripted_machine.h"
#include "support.h"
#include "workstation.h"

namespace cumeron {
namespace {

namespace fs = std::filesystem;

// The core on real files; the rest of the machine is made up.
struct RealLog {
    ScriptedMachine machine;
    HostFiles files;
    Platform platform{machine.time,      machine.time,    machine.line,  files, machine.dialogs,
                      machine.process,   machine.copies,  machine.ports, {},    machine.printer,
                      machine.clipboard, machine.pictures};
    Workstation w{platform};

    explicit RealLog(const std::string& folder) {
        w.settings.CEILOMETER = 30;
        w.settings.Log_File_Path = folder;
        w.settings.File_Char = "A";
        w.settings.File_Length = 0.25;
        LoadModel(w, LoadedBy::Start);
    }
    void On() { mnuLogOn_Click(w); }
    bool IsOn() const { return w.frmMain.mnuLogOn.Checked; }
    void Record(const std::string& message) { WriteLogRecord(w, w.logging.LogFileNumber, message); }
    // Messages that a reader finds whole. Those that were cut have no frame end.
    std::vector<std::string> Found() {
        std::vector<std::string> messages;
        OpenOfflineFile(w, w.logging.LogFileName);
        OfflineRecord record;
        while (ReadRecord(w, record) == LogRecord) {
            if (record.message.ends_with("\x04\r\n\r\n")) {
                messages.push_back(record.message.substr(0, record.message.size() - 2));
            }
        }
        CloseOfflineFile(w);
        return messages;
    }
};

// No two are alike, and their lengths are those of short and of long messages.
std::string MessageOf(int round, int number) {
    const std::string name = std::to_string(round) + "." + std::to_string(number);
    std::string message = "\x01KN" + name + "\x02\r\n";
    for (int line = 0; line < number * 7 % 120; ++line) {
        message += name + std::string(60, static_cast<char>('a' + line % 26)) + "\r\n";
    }
    return message + "\x03" + "0000\x04\r\n";
}

struct LogFaults : testing::Test {
    OwnFolders own;
    const std::string folder = own.Path("log");

    LogFaults() { fs::create_directory(folder); }
};

TEST_F(LogFaults, AFolderThatGoesLosesOnlyWhatComesMeanwhile) {
    RealLog log(folder);
    log.On();
    log.Record(MessageOf(0, 1));
    fs::rename(folder, folder + ".away");
    log.Record(MessageOf(0, 2));
    EXPECT_EQ(log.w.logging.LogWriteOk, 0);
    EXPECT_TRUE(log.IsOn());
    fs::rename(folder + ".away", folder);
    log.Record(MessageOf(0, 3));
    EXPECT_EQ(log.w.logging.LogWriteOk, 1);
    EXPECT_EQ(log.Found(), (std::vector<std::string>{MessageOf(0, 1), MessageOf(0, 3)}));
}

// Nobody may write for as long as this lives; the super-user counts as somebody else meanwhile.
class WriteProtection {
public:
    explicit WriteProtection(std::string protectedFile) : file(std::move(protectedFile)) {
        ::chmod(file.c_str(), 0444);
        if (::geteuid() == 0) isRoot = ::seteuid(65534) == 0;
    }
    ~WriteProtection() {
        if (isRoot) isRoot = ::seteuid(0) != 0;
        ::chmod(file.c_str(), 0644);
    }
    WriteProtection(const WriteProtection&) = delete;
    WriteProtection& operator=(const WriteProtection&) = delete;

private:
    std::string file;
    bool isRoot = false;
};

TEST_F(LogFaults, AProtectedLogGoesOnWhenItMayBeWrittenAgain) {
    RealLog log(folder);
    log.On();
    log.Record(MessageOf(0, 1));
    {
        const WriteProtection protection(log.w.logging.LogFileName);
        log.Record(MessageOf(0, 2));
        EXPECT_EQ(log.w.logging.LogWriteOk, 0);
        EXPECT_TRUE(log.IsOn());
    }
    log.Record(MessageOf(0, 3));
    EXPECT_EQ(log.Found(), (std::vector<std::string>{MessageOf(0, 1), MessageOf(0, 3)}));
}

TEST_F(LogFaults, ALogThatIsDeletedBeginsAnew) {
    RealLog log(folder);
    log.On();
    log.Record(MessageOf(0, 1));
    fs::remove(log.w.logging.LogFileName);
    log.Record(MessageOf(0, 2));
    EXPECT_EQ(log.w.logging.LogWriteOk, 1);
    EXPECT_EQ(log.Found(), std::vector<std::string>{MessageOf(0, 2)});
}

// Writes until the log goes off, gives room, and goes on.
void FillAndGoOn(RealLog& log, const std::function<void()>& giveRoom) {
    std::vector<std::string> written;
    for (int number = 0; number < 1000 && log.IsOn(); ++number) {
        const std::string message = MessageOf(0, number);
        log.Record(message);
        if (log.IsOn()) written.push_back(message);
    }
    EXPECT_FALSE(log.IsOn());
    EXPECT_FALSE(written.empty());
    EXPECT_EQ(log.w.frmMain.sbaStatus.Log.Text, "DISK FULL");
    EXPECT_EQ(log.Found(), written);
    giveRoom();
    log.On();
    log.Record(MessageOf(1, 1));
    written.push_back(MessageOf(1, 1));
    EXPECT_EQ(log.Found(), written);
}

TEST_F(LogFaults, ADiskThatFillsInTheMidstOfARecordCostsThatRecord) {
    const std::string disk = own.Path("disk");
    fs::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=128k") != 0) {
        GTEST_SKIP() << "only the super-user can make a small disk";
    }
    {
        WriteFile(disk + "/other", std::string(40000, 'x'));
        RealLog log(disk);
        log.On();
        EXPECT_GT(FreeDiskSpace(log.w, log.w.logging.LogDrive), 0);
        EXPECT_LT(FreeDiskSpace(log.w, log.w.logging.LogDrive), 128 * 1024);
        FillAndGoOn(log, [&] { fs::remove(disk + "/other"); });
    }
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

TEST_F(LogFaults, AQuotaThatEndsInTheMidstOfARecordCostsThatRecord) {
    RealLog log(folder);
    log.On();
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{50000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    FillAndGoOn(log, [&] { ::setrlimit(RLIMIT_FSIZE, &before); });
}

// Writes messages, and tells the number of each that is safe, until it is killed.
[[noreturn]] void WriteForEver(const std::string& folder, int round, int told) {
    RealLog log(folder);
    log.On();
    for (int number = 0;; ++number) {
        log.Record(MessageOf(round, number));
        if (::write(told, &number, sizeof number) != sizeof number) ::_exit(1);
    }
}

// Kills a writer at a random moment; the number of messages that it had told to be safe.
int KillAWriter(const std::string& folder, int round, std::chrono::microseconds after) {
    int ends[2];
    if (::pipe(ends) != 0) return -1;
    const pid_t child = ::fork();
    if (child == 0) WriteForEver(folder, round, ends[1]);
    ::close(ends[1]);
    std::this_thread::sleep_for(after);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    int number = 0, safe = 0;
    while (::read(ends[0], &number, sizeof number) == sizeof number) safe = number + 1;
    ::close(ends[0]);
    return safe;
}

TEST_F(LogFaults, AKilledWriterLosesTheRecordInHandAtMost) {
    constexpr int Rounds = 500, RoundsToALog = 10;
    std::mt19937 random(20261115);
    std::uniform_int_distribution<int> moment(0, 20000);  // microseconds
    RealLog reader(folder);
    reader.w.logging.LogFileName = folder + "/" + LogName(reader.machine.time.Now(), "A");
    std::vector<std::string> expected;
    int safeInAll = 0;
    for (int round = 0; round < Rounds; ++round) {
        if (round % RoundsToALog == 0) {
            fs::remove(reader.w.logging.LogFileName);
            expected.clear();
        }
        const int safe = KillAWriter(folder, round, std::chrono::microseconds(moment(random)));
        ASSERT_GE(safe, 0);
        safeInAll += safe;
        for (int number = 0; number < safe; ++number) expected.push_back(MessageOf(round, number));
        if (!fs::exists(reader.w.logging.LogFileName)) continue;
        const std::vector<std::string> found = reader.Found();
        // The record in hand may be there as well, when it was not told any more.
        if (found.size() == expected.size() + 1) expected.push_back(MessageOf(round, safe));
        ASSERT_EQ(found, expected) << "round " << round;
    }
    EXPECT_GT(safeInAll, Rounds / 10) << "the writers came to write";
}

}  // namespace
}  // namespace cumeron
