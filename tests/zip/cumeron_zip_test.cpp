// The packer of finished logs: nothing that was packed is lost, no log goes before it is safe, and
// names of any kind survive.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "archive.h"

extern char** environ;

namespace cumeron::zip {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

// Starts a program without a shell; what it says goes to the file, if one is named.
pid_t Start(Words words, const std::string& output = "/dev/null") {
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0666);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    pid_t child = -1;
    posix_spawnp(&child, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return child;
}

int StatusOf(pid_t child) {
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class Packer : public testing::Test {
protected:
    Packer() {
        std::string name = (fs::temp_directory_path() / "cumeron zip.XXXXXX").string();
        folder = mkdtemp(name.data());
        before = fs::current_path();
        fs::current_path(folder);
        path = std::getenv("PATH");
    }
    ~Packer() override {
        setenv("PATH", path.c_str(), 1);
        unsetenv("LOG");
        fs::current_path(before);
        fs::remove_all(folder);
    }

    static void Write(const std::string& name, const std::string& text) {
        std::ofstream(name, std::ios::binary) << text;
    }
    int Pack(const Words& arguments) {
        Words words{PACKER};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return StatusOf(Start(words, "said"));
    }
    // On the disk of late_fsync.cpp.
    int PackOnOddDisk(const Words& arguments) {
        const char* const given = std::getenv("ASAN_OPTIONS");
        const std::string options = given != nullptr ? given : "";
        setenv("ASAN_OPTIONS", (options + ":verify_asan_link_order=0").c_str(), 1);
        setenv("LD_PRELOAD", FSYNC, 1);
        const int status = Pack(arguments);
        unsetenv("LD_PRELOAD");
        setenv("ASAN_OPTIONS", options.c_str(), 1);
        return status;
    }
    static Words NamesIn(const std::string& archive) {
        Words names;
        for (const Member& member : MembersOf(archive)) names.push_back(member.name);
        std::sort(names.begin(), names.end());
        return names;
    }
    // As another program reads it.
    std::string Unpacked(const std::string& archive, const std::string& member) {
        EXPECT_EQ(StatusOf(Start({"unzip", "-p", archive, member}, "unpacked")), 0);
        return ReadWhole("unpacked");
    }
    // A zip that is found first and does this instead.
    void ReplaceZip(const std::string& script) {
        fs::create_directory("programs");
        Write("programs/zip", "#!/bin/sh\n" + script + "\n");
        fs::permissions("programs/zip", fs::perms::owner_all);
        setenv("PATH", ((folder / "programs").string() + ":" + path).c_str(), 1);
    }
    Words Files() {
        Words names;
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (name != "said" && name != "unpacked") names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    fs::path folder, before;
    std::string path;
};

TEST_F(Packer, PacksALogAndKeepsIt) {
    const std::string text("one\r\n\x01\0\xFF two\r\n", 13);
    Write("A6111514.DAT", text);
    EXPECT_EQ(Pack({"-a", "A6111514", "A6111514.DAT"}), 0);
    EXPECT_EQ(Unpacked("A6111514.zip", "A6111514.DAT"), text);
    EXPECT_EQ(ReadWhole("A6111514.DAT"), text);
    EXPECT_EQ(Files(), (Words{"A6111514.DAT", "A6111514.zip"}));
}

TEST_F(Packer, RemovesALogThatIsPacked) {
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-m", "A6111514", "A6111514.DAT"}), 0);
    EXPECT_EQ(Unpacked("A6111514.zip", "A6111514.DAT"), "text");
    EXPECT_EQ(Files(), Words{"A6111514.zip"});
}

TEST_F(Packer, ASecondLogOfTheHourReplacesNothing) {
    for (const char* text : {"first", "second", "third"}) {
        Write("A6111514.DAT", text);
        EXPECT_EQ(Pack({"-m", "A6111514.zip", "A6111514.DAT"}), 0);
    }
    EXPECT_EQ(NamesIn("A6111514.zip"), (Words{"A6111514-2.DAT", "A6111514-3.DAT", "A6111514.DAT"}));
    EXPECT_EQ(Unpacked("A6111514.zip", "A6111514.DAT"), "first");
    EXPECT_EQ(Unpacked("A6111514.zip", "A6111514-2.DAT"), "second");
    EXPECT_EQ(Unpacked("A6111514.zip", "A6111514-3.DAT"), "third");
}

TEST_F(Packer, ALogThatIsPackedAlreadyIsNotPackedAgain) {
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-a", "A", "A6111514.DAT"}), 0);
    EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 0);
    EXPECT_EQ(NamesIn("A.zip"), Words{"A6111514.DAT"});
    EXPECT_FALSE(fs::exists("A6111514.DAT"));
}

TEST_F(Packer, NamesOfAnyKindSurvive) {
    for (const std::string name :
         {"a b", "it's", "\"quoted\"", "$(touch x)", "`touch x`", "a;touch x", "[a]*?", "-a", "--",
          "@", "back\\slash", "H\xC3\xB6he", "a\nb"}) {
        const std::string log = name + "/" + name + ".DAT";
        fs::create_directory(name);
        Write(log, "text");
        EXPECT_EQ(Pack({"-m", name + "/" + name, log}), 0) << name << ReadWhole("said");
        EXPECT_EQ(NamesIn(name + "/" + name + ".zip"), Words{name + ".DAT"}) << name;
        EXPECT_FALSE(fs::exists(log)) << name;
        fs::current_path(name);
        Write(name + ".DAT", "more");
        EXPECT_EQ(Pack({"-m", name, name + ".DAT"}), 0) << name;
        EXPECT_EQ(MembersOf(name + ".zip").size(), 2U) << name;
        fs::current_path(folder);
    }
    EXPECT_FALSE(fs::exists("x"));
}

TEST_F(Packer, ALogThatGrowsMeanwhileStays) {
    ReplaceZip("/usr/bin/zip \"$@\" && printf more >>\"$LOG\"");
    setenv("LOG", (folder / "A6111514.DAT").c_str(), 1);
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 0);
    EXPECT_NE(ReadWhole("said").find("has changed"), std::string::npos);
    EXPECT_EQ(ReadWhole("A6111514.DAT"), "textmore");
    EXPECT_EQ(Unpacked("A.zip", "A6111514.DAT"), "text");
}

TEST_F(Packer, ALogThatGrowsWhileItIsReadStays) {
    ReplaceZip("printf more >>\"$LOG\"; /usr/bin/zip \"$@\"");
    setenv("LOG", (folder / "A6111514.DAT").c_str(), 1);
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 0);
    EXPECT_EQ(ReadWhole("A6111514.DAT"), "textmore");
}

TEST_F(Packer, ALogOfTheSameLengthThatWasTouchedStays) {
    ReplaceZip("/usr/bin/zip \"$@\" && touch \"$LOG\"");
    setenv("LOG", (folder / "A6111514.DAT").c_str(), 1);
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 0);
    EXPECT_TRUE(fs::exists("A6111514.DAT"));
}

TEST_F(Packer, ALogThatGrowsWhileTheArchiveIsMadeSafeStays) {
    setenv("LOG", (folder / "A6111514.DAT").c_str(), 1);
    Write("A6111514.DAT", "text");
    EXPECT_EQ(PackOnOddDisk({"-m", "A", "A6111514.DAT"}), 0) << ReadWhole("said");
    EXPECT_EQ(ReadWhole("A6111514.DAT").substr(0, 8), "textlate");
}

TEST_F(Packer, ALogStaysWhenTheArchiveIsNotSafeOnTheDisk) {
    Write("A6111514.DAT", "text");
    EXPECT_EQ(PackOnOddDisk({"-m", "A", "A6111514.DAT"}), 1);
    EXPECT_NE(ReadWhole("said").find("A.zip"), std::string::npos) << ReadWhole("said");
    EXPECT_EQ(ReadWhole("A6111514.DAT"), "text");
}

TEST_F(Packer, StandingSwitchesOfTheOperatorDoNoHarm) {
    for (const char* switches : {"-FS", "-y", "-d"}) {
        fs::remove("A.zip");
        Write("B.DAT", "other");
        EXPECT_EQ(Pack({"-m", "A", "B.DAT"}), 0);
        setenv("ZIPOPT", switches, 1);
        setenv("ZIP", switches, 1);
        Write("A6111514.DAT", "text");
        EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 0) << switches;
        unsetenv("ZIPOPT");
        unsetenv("ZIP");
        EXPECT_EQ(NamesIn("A.zip"), (Words{"A6111514.DAT", "B.DAT"})) << switches;
        EXPECT_EQ(Unpacked("A.zip", "A6111514.DAT"), "text") << switches;
    }
}

TEST_F(Packer, NoLogGoesWhenNothingWasPacked) {
    for (const char* script : {"exit 0", "exit 12", "kill -9 $$"}) {
        ReplaceZip(script);
        Write("A6111514.DAT", "text");
        EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 1) << script;
        EXPECT_EQ(ReadWhole("A6111514.DAT"), "text") << script;
    }
    setenv("PATH", "/nowhere", 1);
    EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 1);
    EXPECT_EQ(ReadWhole("A6111514.DAT"), "text");
}

TEST_F(Packer, WhatIsNoArchiveIsLeftAlone) {
    Write("A6111514.DAT", "text");
    const std::string noMember("PK\x05\x06\0\0\0\0\1\0\1\0\0\0\0\0\0\0\0\0\0\0", 22);
    const Words foreigners = {"no archive", "PK\x05\x06", "PK\x05\x06" + std::string(18, '\xFF'),
                              std::string(46, 'x') + noMember};
    for (const std::string& foreign : foreigners) {
        Write("A.zip", foreign);
        EXPECT_EQ(Pack({"-m", "A", "A6111514.DAT"}), 1);
        EXPECT_EQ(ReadWhole("A.zip"), foreign);
        EXPECT_EQ(ReadWhole("A6111514.DAT"), "text");
    }
}

TEST_F(Packer, TellsWhatIsMissing) {
    Write("A6111514.DAT", "text");
    EXPECT_EQ(Pack({"-m", "A", "none.DAT"}), 1);
    EXPECT_NE(ReadWhole("said").find("none.DAT"), std::string::npos);
    EXPECT_EQ(Pack({"-m", "nowhere/A", "A6111514.DAT"}), 1);
    EXPECT_NE(ReadWhole("said").find("nowhere/A.zip"), std::string::npos);
    EXPECT_EQ(Files(), Words{"A6111514.DAT"});
}

TEST_F(Packer, ThoseThatShareAnArchiveWaitForEachOther) {
    constexpr int Logs = 12;
    std::vector<pid_t> children;
    for (int i = 0; i < Logs; ++i) {
        const std::string place = std::to_string(i);
        fs::create_directory(place);
        Write(place + "/A.DAT", "log " + place);
        children.push_back(Start({PACKER, "-m", "A", place + "/A.DAT"}));
    }
    for (const pid_t child : children) EXPECT_EQ(StatusOf(child), 0);
    std::vector<std::string> contents;
    for (const std::string& name : NamesIn("A.zip")) contents.push_back(Unpacked("A.zip", name));
    std::sort(contents.begin(), contents.end());
    EXPECT_EQ(contents.size(), static_cast<std::size_t>(Logs));
    EXPECT_EQ(std::unique(contents.begin(), contents.end()), contents.end());
    EXPECT_FALSE(fs::exists("A.zip.lock"));
}

TEST_F(Packer, ArgumentsAreThreeWords) {
    EXPECT_EQ(Pack({"--help"}), 0);
    EXPECT_NE(ReadWhole("said").find("-a|-m ARCHIVE LOG"), std::string::npos);
    Write("A6111514.DAT", "text");
    const std::vector<Words> wrong = {{},
                                      {"-a"},
                                      {"-a", "A"},
                                      {"-x", "A", "A6111514.DAT"},
                                      {"-a", "A", "A6111514.DAT", "B"},
                                      {"--help", "A"}};
    for (const Words& arguments : wrong) {
        EXPECT_EQ(Pack(arguments), 2) << arguments.size();
        EXPECT_NE(ReadWhole("said").find("Usage"), std::string::npos);
    }
    EXPECT_FALSE(fs::exists("A.zip"));
}

}  // namespace
}  // namespace cumeron::zip
