// The off-line files in the file menu.
#include "logging/recent_files.h"

#include <gtest/gtest.h>

#include "logging/replay.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

const std::string List = "C:\\WINDOWS\\recent.ini";

std::vector<std::string> Shown(Workstation& w) {
    std::vector<std::string> captions;
    for (const MenuEntry& entry : w.frmMain.mnuRecent) {
        if (entry.Visible) captions.push_back(entry.Caption);
    }
    return captions;
}

TEST(RecentFiles, AreNoneAtFirst) {
    Replay replay;
    EXPECT_EQ(Shown(replay.w()), std::vector<std::string>{});
    EXPECT_FALSE(replay.machine.files.Exists(List));
    replay.machine.Enter([&] { OpenRecentFile(replay.w(), 0); });
    EXPECT_EQ(replay.Box(), "no box");
}

TEST(RecentFiles, TheNewestStandsFirstAndNoneTwice) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(1));
    replay.machine.files.Put(B, KnLog(1));
    for (const std::string& name : {A, B, A}) replay.Open(name);
    EXPECT_EQ(Shown(replay.w()), (std::vector<std::string>{"&1 A.DAT", "&2 B.DAT"}));
    EXPECT_EQ(
        replay.machine.files.Content(List).value_or(""),
        "[recent]\r\n1=\"C:\\LOG\\A.DAT\"\r\n2=\"C:\\LOG\\B.DAT\"\r\n3=\r\n4=\r\n5=\r\n6=\r\n");
}

TEST(RecentFiles, ANameWithALineEndIsOpenedAndNotNoted) {
    Replay replay;
    const std::string name = "C:\\LOG\\a\n[recent]\n2=x.DAT";
    replay.machine.files.Put(name, KnLog(1));
    replay.Open(name);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(Shown(replay.w()), std::vector<std::string>{});
    EXPECT_FALSE(replay.machine.files.Exists(List));
}

TEST(RecentFiles, AFileIsNotedBeforeItIsPlayed) {
    Replay replay;
    replay.machine.files.Put(B, KnLog(1));
    replay.machine.time.At(0, [&] { replay.Open(B); });
    replay.OpenLog(KnLog(40));
    EXPECT_EQ(Shown(replay.w()), (std::vector<std::string>{"&1 B.DAT", "&2 A.DAT"}));
    Replay broken(10);
    broken.OpenLog(RecordAt(0, "\x02\r\n10 01230").substr(0, 30));
    EXPECT_EQ(Shown(broken.w()), std::vector<std::string>{"&1 A.DAT"});
}

TEST(RecentFiles, SixOutliveTheProgram) {
    Replay replay;
    for (int i = 1; i <= 8; ++i) {
        const std::string name = "C:\\LOG\\ \"" + std::to_string(i) + " & \xDC\" ";
        replay.machine.files.Put(name, KnLog(i));
        replay.Open(name);
    }
    const std::vector<std::string> captions = {
        "&1  \"8 && \xDC\" ", "&2  \"7 && \xDC\" ", "&3  \"6 && \xDC\" ",
        "&4  \"5 && \xDC\" ", "&5  \"4 && \xDC\" ", "&6  \"3 && \xDC\" ",
    };
    EXPECT_EQ(Shown(replay.w()), captions);
    replay.machine.Start("");
    EXPECT_EQ(Shown(replay.w()), captions);
    replay.Click(replay.Form().mnuRecent[1]);
    EXPECT_EQ(replay.State().OfflineMessageNo, 7);
    EXPECT_EQ(Shown(replay.w())[0], "&1  \"7 && \xDC\" ");
}

TEST(RecentFiles, OfASetTheFirstIsKeptAndOpensAlone) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(1));
    replay.machine.files.Put(B, KnLog(2));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    EXPECT_EQ(Shown(replay.w()), std::vector<std::string>{"&1 A.DAT"});
    replay.Click(replay.Form().mnuRecent[0]);
    EXPECT_EQ(replay.State().OfflineFileCount, 1);
    EXPECT_EQ(replay.State().OfflineMessageNo, 1);
}

TEST(RecentFiles, WhatCannotBeOpenedIsNotNoted) {
    Replay replay;
    replay.Open(A);
    EXPECT_NE(replay.Box().find("Error Number: 76"), std::string::npos);
    EXPECT_EQ(Shown(replay.w()), std::vector<std::string>{});
}

TEST(RecentFiles, AFullDiskCostsTheListOnly) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(1));
    replay.machine.files.FillDisk();
    replay.Open(A);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(Shown(replay.w()), std::vector<std::string>{"&1 A.DAT"});
    EXPECT_FALSE(replay.machine.files.Exists(List));
}

}  // namespace
}  // namespace cumeron
