// Entering and leaving off-line mode: single files, sets, dropped files, and what is no log.
#include <gtest/gtest.h>

#include "logging/playback.h"
#include "logging/replay.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

// ---- Opening ----

TEST(OpenOffline, LeavesLiveWorkAndPlaysToTheEnd) {
    Replay replay;
    replay.w().graphs.HistoryIndex = 5;
    replay.w().graphs.HistoryWrapped = -1;
    replay.OpenLog(KnLog(3));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 3);
    EXPECT_EQ(replay.Shown(), "00030");
    EXPECT_EQ(replay.Seconds(), 45);
    EXPECT_EQ(replay.Buttons(), "SBC");
    EXPECT_EQ(replay.State().OfflineRecordPos.size(), 30241U);
    EXPECT_EQ(replay.w().graphs.HistoryIndex, 0);
    EXPECT_EQ(replay.w().graphs.HistoryWrapped, 0);
    EXPECT_EQ(replay.w().intake.ReplayBusy, 0);
    EXPECT_EQ(replay.machine.dialogs.LastQuestion().filter,
              "Data files (*.dat)|*.dat|All Files (*.*)|*.*");
    EXPECT_TRUE(replay.machine.dialogs.LastQuestion().several);
    EXPECT_EQ(replay.machine.dialogs.LastQuestion().fileName, "");
}

TEST(OpenOffline, MeasuresTheIntervalAnew) {
    Replay replay;
    replay.w().intake.IntervalSeekState = 4;
    std::string log;
    for (int i = 1; i <= 3; ++i) log += RecordAt(30 * i, ShortKN("15"));
    replay.OpenLog(log);
    EXPECT_EQ(replay.w().settings.Message_Interval, 30);
    EXPECT_EQ(replay.w().intake.IntervalSeekState, 4);
}

TEST(OpenOffline, TheTimeOfTheLastMessageDoesNotStayForAnEmptyFile) {
    Replay replay;
    replay.w().graphs.MessageTime = Noon;
    replay.OpenLog("");
    EXPECT_EQ(replay.w().graphs.MessageTime, 0);
}

TEST(OpenOffline, TheDialogBeginsWithTheLastFile) {
    Replay replay;
    replay.OpenLog(KnLog(1));
    replay.Open(A);
    EXPECT_EQ(replay.machine.dialogs.LastQuestion().fileName, A);
}

TEST(OpenOffline, AnEmptyFileSaysTwiceThatItIsAtItsEnd) {
    Replay replay;
    replay.OpenLog("");
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineMessageNo, 0);
    EXPECT_EQ(replay.Buttons(), "SBC");
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Box(), "Start of File");
}

TEST(OpenOffline, ACancelledDialogChangesNothing) {
    Replay replay;
    replay.machine.dialogs.ChooseNext(std::nullopt);
    replay.Click(replay.Form().mnuFileOpen);
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_FALSE(replay.Form().mnuFileOpen.Checked);
    EXPECT_TRUE(replay.Form().mnuLogOn.Enabled);
    EXPECT_TRUE(replay.Bar().Log.Enabled);
}

TEST(OpenOffline, AFileThatCannotBeOpenedIsTold) {
    for (const int error : {53, 70, 75, 76}) {
        Replay replay;
        replay.machine.files.Put(A, KnLog(1));
        replay.machine.files.FailNextOpen(A, error);
        replay.Open(A);
        EXPECT_EQ(replay.Box(), "The following Error occurred:\r\n\r\n" + ErrorText(error) +
                                    "\r\nError Number: " + std::to_string(error));
        EXPECT_FALSE(replay.Form().mnuFileOpen.Checked);
        EXPECT_TRUE(replay.Form().mnuLogOn.Enabled);
        EXPECT_TRUE(replay.Form().mnuLogOff.Enabled);
        EXPECT_TRUE(replay.Form().mnuOpenPort.Enabled);
        EXPECT_FALSE(replay.Bar().OpenPort.Enabled);
        EXPECT_FALSE(replay.Bar().Log.Enabled);
        EXPECT_EQ(replay.State().OfflineFileNo, 0);
        EXPECT_TRUE(replay.Form().tmrClock.Enabled());
        replay.Open(A);
        EXPECT_EQ(replay.Box(), "End of file");
        replay.Click(replay.Bar().CloseFile);
        EXPECT_TRUE(replay.Bar().Log.Enabled);
    }
}

TEST(OpenOffline, ABrokenFirstRecordOfRv10xEndsOffLineMode) {
    Replay replay(10);
    replay.OpenLog(RecordAt(0, "\x02\r\n10 01230").substr(0, 30));
    EXPECT_NE(replay.Box().find("Error Number: 5"), std::string::npos);
    EXPECT_EQ(replay.State().OfflineFileNo, 0);
    EXPECT_EQ(replay.State().progress.files, 0);
    EXPECT_FALSE(replay.Form().mnuFileOpen.Checked);
    // The buttons are still there, and none of them falls over the missing file.
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.Box(), "no box");
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.Box(), "End of file");
    replay.Click(replay.Bar().CloseFile);
    EXPECT_TRUE(replay.Form().tmrClock.Enabled());
    EXPECT_TRUE(replay.machine.Running());
}

TEST(OpenOffline, NeedsAClosedPort) {
    Replay replay;
    replay.Click(replay.Form().mnuOpenPort);
    replay.OpenLog(KnLog(1));
    EXPECT_EQ(replay.Box(), "Communication Port Open. Close Port to enter Off-line mode.");
    EXPECT_FALSE(replay.Form().mnuFileOpen.Checked);
    EXPECT_TRUE(replay.Form().mnuLogOn.Enabled);
    EXPECT_EQ(replay.State().OfflineFileNo, 0);
}

TEST(OpenOffline, BeginsWithAnEmptyGraph) {
    Replay replay;
    GraphState& graphs = replay.w().graphs;
    graphs.LastGraphTime = Noon - 1;
    graphs.CurrentColumn = 50;
    graphs.ProfileRing[7].Valid = -1;
    replay.OpenLog(KnLog(2));
    EXPECT_EQ(graphs.CurrentColumn, 2);
    EXPECT_EQ(graphs.ProfileRing[7].Valid, 0);
}

TEST(OpenOffline, TakesNamesWithBlanksQuotesAndUmlauts) {
    for (const char* name :
         {"C:\\LOG\\a b.DAT", "C:\\LOG\\it's \"one\".DAT", "C:\\LOG\\\xDC ber.DAT",
          "C:\\LOG\\no ending", "C:\\LOG\\$(x)`y`.DAT"}) {
        Replay replay;
        replay.machine.files.Put(name, KnLog(2));
        replay.Open(name);
        EXPECT_EQ(replay.Box(), "End of file");
        EXPECT_EQ(replay.Form().Caption, "CUMERON - Port 1  [" + std::string(name) + "]");
        EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    }
}

// ---- Closing ----

TEST(CloseOffline, GoesBackToLiveWork) {
    Replay replay;
    replay.machine.time.SetNow(Noon + 10);
    replay.OpenLog(KnLog(3));
    replay.w().graphs.HistoryIndex = 5;
    replay.w().graphs.HistoryWrapped = -1;
    replay.Click(replay.Bar().CloseFile);
    const double now = replay.machine.time.Now();
    EXPECT_EQ(replay.w().graphs.MessageTime, now);
    EXPECT_EQ(replay.w().intake.MessageClockTime, TimeOf(now));
    EXPECT_EQ(replay.w().graphs.LastGraphTime, 0);
    EXPECT_EQ(replay.w().graphs.CurrentColumn, 0);
    EXPECT_EQ(replay.w().graphs.MarkerColumn, -1);
    EXPECT_EQ(replay.w().graphs.HistoryIndex, 0);
    EXPECT_EQ(replay.w().graphs.HistoryWrapped, 0);
    EXPECT_EQ(replay.w().graphs.TimeLabelsDirty, 0) << "drawn anew";
    EXPECT_EQ(replay.Shown(), "");
    EXPECT_EQ(replay.Form().sbaStatus.Errors.Text, "OFF-line");
    EXPECT_EQ(replay.Buttons(), "");
    for (const ToolButton* button :
         {&replay.Bar().Start, &replay.Bar().Back, &replay.Bar().Forward, &replay.Bar().Play,
          &replay.Bar().Stop, &replay.Bar().CloseFile}) {
        EXPECT_FALSE(button->Visible);
    }
    EXPECT_EQ(replay.State().OfflineRecordPos.size(), 1U);
    EXPECT_EQ(replay.State().PlayStopRequested, -1);
    EXPECT_EQ(replay.State().progress.files, 0);
    EXPECT_TRUE(replay.Form().mnuOpenTerminal.Enabled);
}

TEST(CloseOffline, EndsAPlayInItsMidst) {
    Replay replay;
    replay.machine.time.At(0, [&] { replay.Click(replay.Bar().CloseFile); });
    replay.OpenLog(KnLog(40));
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.w().intake.ReplayBusy, 0);
    EXPECT_EQ(replay.State().OfflineFileNo, 0);
    EXPECT_EQ(replay.State().OfflineMessageNo, 6);
    EXPECT_EQ(replay.Buttons(), "");
    EXPECT_TRUE(replay.Form().tmrClock.Enabled());
    replay.Open(A);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 40);
}

TEST(CloseOffline, EndsTheSearchOfAnOpening) {
    Replay replay;
    replay.machine.time.At(0, [&] { replay.Click(replay.Bar().CloseFile); });
    replay.OpenLog(std::string(20'000'000, 'x'));
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineFileNo, 0);
    EXPECT_EQ(replay.Buttons(), "");
}

TEST(OpenOffline, AnotherFileMayBeOpenedInTheMidstOfAPlay) {
    Replay replay;
    replay.machine.files.Put(B, KnLog(2));
    replay.machine.time.At(0, [&] { replay.Open(B); });
    replay.OpenLog(KnLog(40));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    EXPECT_EQ(replay.Buttons(), "SBC");
    EXPECT_EQ(replay.w().intake.ReplayBusy, 0);
}

TEST(OpenOffline, TheStopOfASecondFileStopsTheFirstOneToo) {
    Replay replay;
    replay.machine.files.Put(B, KnLog(60));
    replay.machine.time.At(0, [&] {
        replay.machine.time.At(0, [&] { replay.Click(replay.Bar().Stop); });
        replay.Open(B);
    });
    replay.OpenLog(KnLog(40));
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.State().OfflineMessageNo, 6);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
    EXPECT_EQ(replay.w().intake.ReplayBusy, 0);
}

TEST(OpenOffline, TheClockStandsStillMeanwhile) {
    Replay replay;
    replay.OpenLog(KnLog(1));
    replay.machine.Advance(5 * MicrosPerSecond);
    EXPECT_EQ(replay.Form().lblDateTime.Caption, "1-May 12:00:15");
    replay.Click(replay.Bar().CloseFile);
    replay.machine.Advance(2 * MicrosPerSecond);
    EXPECT_NE(replay.Form().lblDateTime.Caption, "1-May 12:00:15");
}

// ---- Sets ----

TEST(OpenOffline, ASetKeepsItsFirstFileAndSortsTheOthers) {
    Replay replay;
    for (const char* name : {"A.DAT", "B.DAT", "C.DAT", "b.DAT"}) {
        replay.machine.files.Put("C:\\LOG\\" + std::string(name), KnLog(1));
    }
    replay.Open("C:\\LOG\0B.DAT\0b.DAT\0C.DAT\0A.DAT"s);
    EXPECT_EQ(replay.State().OfflineFileList,
              (std::vector<std::string>{"", "C:\\LOG", "B.DAT", "A.DAT", "C.DAT", "b.DAT"}));
    EXPECT_EQ(replay.State().OfflineFileCount, 5);
    EXPECT_EQ(replay.State().OfflineFileIndex, 5);
    EXPECT_EQ(replay.State().OfflineFileName, "C:\\LOG\\b.DAT");
}

TEST(OpenOffline, ASingleFileAfterASetIsASingleFile) {
    Replay replay;
    replay.machine.files.Put(B, KnLog(1));
    replay.machine.files.Put(A, KnLog(1));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    replay.Open(A);
    EXPECT_EQ(replay.State().OfflineFileCount, 1);
    EXPECT_EQ(replay.State().OfflineFileName, A);
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.State().OfflineFileName, A);
}

TEST(OpenOffline, PosixNamesAreJoinedByASlash) {
    const struct {
        std::string folder, joined;
    } cases[] = {{"/var/log", "/var/log/B.DAT"}, {"/var/log/", "/var/log/B.DAT"}, {"/", "/B.DAT"}};
    for (const auto& c : cases) {
        Replay replay;
        replay.machine.files.SetStyle(PathStyle::Posix);
        replay.machine.files.Put(c.folder + "/A.DAT", KnLog(1));
        replay.machine.files.Put(c.folder + "/B.DAT", KnLog(1));
        replay.Open(c.folder + "\0A.DAT\0B.DAT"s);
        EXPECT_EQ(replay.State().OfflineFileName, c.joined);
        EXPECT_EQ(replay.Box(), "End of file");
    }
}

TEST(PlayFile, ACutFileInASetGoesOverToTheNext) {
    Replay replay;
    const std::string log = KnLog(3);
    replay.machine.files.Put(A, log.substr(0, log.size() - 60));
    replay.machine.files.Put(B, KnLog(2));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    EXPECT_EQ(replay.Form().Caption, "CUMERON - Port 1  [" + B + "]");
}

TEST(PlayFile, AnEmptyFileEndsASet) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(3));
    replay.machine.files.Put(B, "");
    replay.machine.files.Put(C, KnLog(2));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT\0C.DAT"s);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineFileIndex, 3);
    EXPECT_EQ(replay.State().OfflineMessageNo, 0);
}

TEST(PlayFile, AMissingFileOfASetIsToldAndTheReplayCanBeginAnew) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(3));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    EXPECT_NE(replay.Box().find("Error Number: 53"), std::string::npos);
    EXPECT_EQ(replay.Buttons(), "SBC");
    EXPECT_TRUE(replay.Form().mnuFileOpen.Checked);
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.State().OfflineFileName, A);
    EXPECT_EQ(replay.State().OfflineMessageNo, 1);
}

// ---- Dropped files ----

TEST(OpenDropped, OpensThemAsIfTheyHadBeenChosen) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(1));
    replay.machine.files.Put(B, KnLog(2));
    replay.machine.Enter([&] { replay.Form().DropFiles(replay.w(), {B}); });
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.State().OfflineFileCount, 1);
    replay.machine.Enter([&] { replay.Form().DropFiles(replay.w(), {A, B}); });
    EXPECT_EQ(replay.State().OfflineFileCount, 3);
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
}

TEST(OpenDropped, FilesOfTwoFoldersAreNoSet) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(1));
    replay.machine.Enter([&] { OpenDropped(replay.w(), {A, "C:\\B.DAT"}); });
    EXPECT_EQ(replay.Box(), "Only files of one folder can be opened together.");
    EXPECT_FALSE(replay.Form().mnuFileOpen.Checked);
    EXPECT_EQ(replay.State().OfflineFileName, "");
    replay.machine.Enter([&] { OpenDropped(replay.w(), {}); });
    EXPECT_EQ(replay.Box(), "no box");
}

TEST(OpenDropped, BareNamesLieInTheCurrentFolder) {
    Replay replay;
    replay.machine.files.Put("C:\\CUMERON\\A.DAT", KnLog(1));
    replay.machine.files.Put("C:\\CUMERON\\B.DAT", KnLog(1));
    replay.machine.Enter([&] { OpenDropped(replay.w(), {"A.DAT", "B.DAT"}); });
    EXPECT_EQ(replay.State().OfflineFileName, "C:\\CUMERON\\B.DAT");
    EXPECT_EQ(replay.Box(), "End of file");
}

TEST(OpenDropped, AFolderIsNoFile) {
    Replay replay;
    replay.machine.files.MakeFolder("C:\\LOG");
    replay.machine.Enter([&] { OpenDropped(replay.w(), {"C:\\LOG"}); });
    EXPECT_NE(replay.Box().find("Error Number: 75"), std::string::npos);
}

// ---- Rubbish ----

TEST(OpenOffline, RubbishAndLogsOfOtherModelsDoNoHarm) {
    std::string rubbish;
    std::uint32_t seed = 7;
    for (int i = 0; i < 200'000; ++i) {
        seed = seed * 1664525 + 1013904223;
        rubbish += static_cast<char>(seed >> 24);
    }
    const std::string logs[] = {rubbish,
                                std::string(300'000, '\0'),
                                KnLog(3),
                                RecordAt(0, "\x01RVA1010\x02\r\n10 01230 /////\r\n\x03\r\n"),
                                RecordAt(0, "\x02\r\n10 01230\r\n\x03\r\n"),
                                RecordAt(0, "\x02X0TA08    11\r\n\x04"),
                                "= 06:00:00\r\n\r\n= 07:00:00\r\nx\r\n"};
    for (int model : {70, 20, 10, 30, 50, 60}) {
        for (const std::string& log : logs) {
            Replay replay(model);
            replay.OpenLog(log);
            EXPECT_TRUE(replay.machine.Running()) << model;
            EXPECT_EQ(replay.w().intake.ReplayBusy, 0) << model;
            while (replay.machine.dialogs.TakeBox()) {
            }
            replay.Click(replay.Bar().CloseFile);
            EXPECT_TRUE(replay.Form().tmrClock.Enabled()) << model;
        }
    }
}

TEST(OpenOffline, RepeatedAndFarTimesStopNothing) {
    const struct {
        const char* what;
        std::vector<int> seconds;
        const char* box;
    } cases[] = {
        {"the same second", {0, 0, 0, 0}, "End of file"},
        {"backwards", {60, 45, 30, 15, 0}, "End of file"},
        {"a year apart", {0, 31536000}, "End of file"},
    };
    for (const auto& c : cases) {
        Replay replay;
        std::string log;
        for (const int second : c.seconds) log += RecordAt(second, ShortKN("15"));
        replay.OpenLog(log);
        EXPECT_EQ(replay.Box(), c.box) << c.what;
        EXPECT_EQ(replay.State().OfflineMessageNo, static_cast<int>(c.seconds.size())) << c.what;
        EXPECT_EQ(replay.w().settings.Message_Interval, 15) << c.what;
    }
}

TEST(PlayFile, AnIntervalThatDoesNotFitCostsOneRecord) {
    Replay replay;
    std::string log;
    for (int i = 0; i < 5; ++i) log += RecordAt(40000 * i, ShortKN("15"));
    replay.OpenLog(log);
    EXPECT_NE(replay.Box().find("Overflow"), std::string::npos);
    replay.Click(replay.Bar().Back);
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Seconds(), 160000);
}

}  // namespace
}  // namespace cumeron
