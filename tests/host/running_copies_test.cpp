#include "platform/host/running_copies.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>

#include "support.h"

namespace cumeron {
namespace {

TEST(RunningCopies, MarksStandUntilDeletedAndAreSeenByAll) {
    const OwnFolders own;
    HostRunningCopies first(MarksFolder());
    HostRunningCopies second(MarksFolder());
    EXPECT_FALSE(first.HasMark(1));
    first.AddMark(1);
    EXPECT_TRUE(second.HasMark(1));
    EXPECT_FALSE(second.HasMark(11));
    second.DeleteMark(1);
    EXPECT_FALSE(first.HasMark(1));
}

TEST(RunningCopies, AnotherRunsOnlyWhileItRuns) {
    const OwnFolders own;
    HostRunningCopies first(MarksFolder());
    EXPECT_FALSE(first.AnotherRuns());
    auto second = std::make_unique<HostRunningCopies>(MarksFolder());
    EXPECT_TRUE(first.AnotherRuns());
    EXPECT_TRUE(second->AnotherRuns());
    EXPECT_TRUE(first.AnotherRuns()) << "asking took the lock away";
    second.reset();
    EXPECT_FALSE(first.AnotherRuns());
}

TEST(RunningCopies, ACrashLeavesTheMarkButNotTheLock) {
    const OwnFolders own;
    const std::string folder = MarksFolder();
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        HostRunningCopies other(folder);
        other.AddMark(1);
        if (::write(ready[1], "x", 1) == 1) ::pause();
        ::_exit(1);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    HostRunningCopies copies(folder);
    EXPECT_TRUE(copies.AnotherRuns());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(copies.AnotherRuns());
    EXPECT_TRUE(copies.HasMark(1));
}

TEST(MarksFolder, IsOfTheUserAlone) {
    const OwnFolders own;
    EXPECT_EQ(MarksFolder(), own.Path("run/cumeron"));
    struct stat found {};
    ASSERT_EQ(::stat(own.Path("run/cumeron").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0700U);
}

TEST(MarksFolder, AFolderThatOthersCanChangeIsNotUsed) {
    const OwnFolders own;
    const std::string name = "cumeron-" + std::to_string(::getuid());
    ::mkdir(own.Path("run/cumeron").c_str(), 0700);
    ::chmod(own.Path("run/cumeron").c_str(), 0777);
    EXPECT_EQ(MarksFolder(), own.Path("tmp/" + name));
    ::rmdir(own.Path("tmp/" + name).c_str());
    ASSERT_EQ(::symlink(own.Path("config").c_str(), own.Path("tmp/" + name).c_str()), 0);
    EXPECT_EQ(MarksFolder(), "");
}

TEST(RunningCopies, WithoutAFolderThereIsNoOtherCopy) {
    HostRunningCopies copies("");
    copies.AddMark(1);
    EXPECT_FALSE(copies.HasMark(1));
    EXPECT_FALSE(copies.AnotherRuns());
    copies.DeleteMark(1);
}

}  // namespace
}  // namespace cumeron
