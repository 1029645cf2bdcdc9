// Saving against kills, and into folders that take nothing: never half a file, never a heap of
// temporary ones, and the operator is told.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>

#include "platform/host/files.h"
#include "shell/settings.h"
#include "view_support.h"

namespace cumeron {
namespace {

// Saves one text and the other by turns until it is killed.
[[noreturn]] void SaveForEver(const std::string& name, const std::string& one,
                              const std::string& other) {
    HostFiles files;
    for (;;) {
        files.Replace(name, one);
        files.Replace(name, other);
    }
}

std::set<std::string> NamesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

TEST(Saving, AKillAtAnyMomentLeavesAWholeFileAndNoHeapOfOthers) {
    const OwnFolders own;
    const std::string name = own.Path("config/CUMERON1.INI");
    const std::string one(20000, 'a'), other(70000, 'b');
    HostFiles files;
    files.Replace(name, one);
    std::mt19937 random(20261115);
    std::uniform_int_distribution<useconds_t> moment(0, 4000);
    std::size_t mostFiles = 0;
    for (int i = 0; i < 200; ++i) {
        const pid_t child = ::fork();
        if (child == 0) SaveForEver(name, one, other);
        ::usleep(moment(random));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string text = ReadFile(name);
        ASSERT_TRUE(text == one || text == other) << "kill " << i << ": " << text.size();
        mostFiles = std::max(mostFiles, NamesIn(own.Path("config")).size());
    }
    EXPECT_LE(mostFiles, 8U);  // a child killed before its first save has cleaned nothing
    files.Replace(name, one);
    EXPECT_EQ(NamesIn(own.Path("config")), std::set<std::string>{"CUMERON1.INI"});
}

TEST(Saving, OnlyWhatADeadSaveOfTheSameFileLeftIsRemoved) {
    const OwnFolders own;
    const pid_t dead = ::fork();
    if (dead == 0) ::_exit(0);
    ::waitpid(dead, nullptr, 0);
    const std::string deadNumber = std::to_string(dead);
    const std::string livingNumber = std::to_string(::getppid());
    for (const std::string& name :
         {"CUMERON1.INI." + livingNumber + ".new", "CUMERON2.INI." + deadNumber + ".new",
          "CUMERON1.INI." + deadNumber + ".news", std::string("CUMERON1.INI.bak"),
          "CUMERON1.INI." + deadNumber + ".new"}) {
        WriteFile(own.Path("config/" + name), "x");
    }
    HostFiles().Replace(own.Path("config/CUMERON1.INI"), "text");
    EXPECT_EQ(NamesIn(own.Path("config")),
              (std::set<std::string>{"CUMERON1.INI", "CUMERON1.INI." + livingNumber + ".new",
                                     "CUMERON2.INI." + deadNumber + ".new",
                                     "CUMERON1.INI." + deadNumber + ".news", "CUMERON1.INI.bak"}));
}

// The rights of a folder bind everybody but root.
struct AsOrdinaryUser {
    const bool wasRoot = ::geteuid() == 0;
    AsOrdinaryUser() {
        if (wasRoot && ::seteuid(65534) != 0) ADD_FAILURE() << "still root";
    }
    ~AsOrdinaryUser() {
        if (wasRoot && ::seteuid(0) != 0) ADD_FAILURE() << "not root again";
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
};

struct SettingsFolderTest : testing::Test, ViewBench {
    QString told;

    SettingsFolderTest() {
        w.shell.SettingsFile = "CUMERON1.INI";
        w.settings.CEILOMETER = 30;
    }
    std::string File() { return own.Path("config/cumeron/CUMERON1.INI"); }
    void MakeOldFile() {
        machine.files.Replace(File(), "[CUMERON]\r\nCEILOMETER=50\r\n");
        ::chmod(own.Path("").c_str(), 0755);
    }
    void Save() {
        QTimer answerer;
        QObject::connect(&answerer, &QTimer::timeout, &view, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            told += box->text();
            box->button(QMessageBox::Ok)->click();
        });
        answerer.start(0);
        mnuSaveSettingsNow_Click(w);
    }
};

TEST_F(SettingsFolderTest, AMissingOneIsMade) {
    Save();
    EXPECT_EQ(told, "");
    EXPECT_NE(ReadFile(File()).find("CEILOMETER=30\r\n"), std::string::npos);
}

TEST_F(SettingsFolderTest, OneThatCannotBeMadeIsTold) {
    WriteFile(own.Path("config/cumeron"), "a file in its place");
    Save();
    EXPECT_TRUE(told.contains("The following Error occurred:")) << told.toStdString();
    EXPECT_EQ(ReadFile(own.Path("config/cumeron")), "a file in its place");
}

TEST_F(SettingsFolderTest, OneThatIsReadOnlyIsToldAndTheOldFileStands) {
    MakeOldFile();
    ::chmod(own.Path("config/cumeron").c_str(), 0555);
    {
        const AsOrdinaryUser user;
        Save();
    }
    ::chmod(own.Path("config/cumeron").c_str(), 0755);
    EXPECT_TRUE(told.contains("Error Number: 70")) << told.toStdString();
    EXPECT_EQ(ReadFile(File()), "[CUMERON]\r\nCEILOMETER=50\r\n");
}

// Files take no more than so many bytes, as on a disk that fills.
class RoomFor {
public:
    explicit RoomFor(rlim_t bytes) : signal(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~RoomFor() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signal);
    }
    RoomFor(const RoomFor&) = delete;
    RoomFor& operator=(const RoomFor&) = delete;

private:
    void (*signal)(int);
    rlimit before{};
};

TEST_F(SettingsFolderTest, AFullDiskIsToldAndTheOldFileStands) {
    MakeOldFile();
    {
        const RoomFor small(100);
        Save();
    }
    EXPECT_TRUE(told.contains("Error Number: 61")) << told.toStdString();
    EXPECT_EQ(ReadFile(File()), "[CUMERON]\r\nCEILOMETER=50\r\n");
    EXPECT_EQ(NamesIn(own.Path("config/cumeron")), (std::set<std::string>{"CUMERON1.INI"}));
}

}  // namespace
}  // namespace cumeron
