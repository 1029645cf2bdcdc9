// The movers of off-line mode: play, steps forwards and backwards, and what a record may do to
// them.
#include "logging/playback.h"

#include <gtest/gtest.h>

#include "logging/replay.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

// ---- Messages ----

TEST(StepForward, DropsMessagesThatHaveNoEnd) {
    const std::string knFrame = ShortKN("15");
    const struct {
        const char* what;
        int model;
        std::string body;  // up to the line that ends it
        bool taken;
    } cases[] = {
        {"RV", 20, "\x01RVA1010\x02\r\nxx\r\n\x03\r\n", true},
        {"RV cut short by a short line", 20, "\x01RVA1010\x02\r\n\r\n", false},
        {"RV with an EOT", 20, "\x01RVA1010\x02\r\n\x04\r\n", false},
        {"RV10X", 10, "\x02\r\n10 01230\r\n\x03\r\n", true},
        {"RV10X with more behind its ETX", 10, "\x02\r\n10 01230\r\n\x03 more\r\n", false},
        {"KN", 30, knFrame + "\r\n", true},
        {"KN50", 50, knFrame + "\r\n", true},
        {"KN with a short checksum", 30,
         "\x01KN021015\x02\r\n\x03"
         "9be\x04\r\n\r\n",
         false},
        {"KN without a checksum", 30, "\x01KN021015\x02\r\nxxxx\r\n\x03\r\n", true},
        {"KN, nothing", 30, "\r\n", false},
        {"TQ60", 60, "\x02X0TA08    11\r\n\x04\r\n", true},
        {"TQ60 with an ETX", 60, "\x02X0TA08    11\r\n\x03\r\n", true},
        {"TQ60 with neither", 60, "\x02X0TA08    11\r\nx\r\n", false},
        {"frame of another family", 30, "\x01RVA1010\x02\r\nxx\r\n\x03\r\n", true},
        {"KN frame on an RV", 20, knFrame + "\r\n", false},
    };
    for (const auto& c : cases) {
        Replay replay(c.model);
        replay.OpenLog(RecordAt(30, c.body));
        EXPECT_EQ(replay.State().OfflineMessageNo, c.taken ? 1 : 0) << c.what;
        EXPECT_EQ(replay.Form().lblDateTime.Caption, "1-May 12:00:30") << c.what;
        EXPECT_EQ(replay.Window().empty(), !c.taken) << c.what;
        EXPECT_EQ(replay.Box(), "End of file") << c.what;
    }
}

TEST(StepForward, MakesTheMessageTheFrameThatItWas) {
    const std::string knFrame = ShortKN("15");
    const struct {
        const char* what;
        int model;
        std::string record, message;
    } cases[] = {
        {"KN", 30, RecordAt(0, knFrame), knFrame},
        {"TQ60", 60, RecordAt(0, "\x02X0TA08\r\n\x04"), "\x02X0TA08\r\n\x04"},
        {"RV", 20, RecordAt(0, "\x01RV\r\n\x03\r\n"), "\x01RV\r\n\x03\r\n"},
        {"RV10X", 10, RecordAt(0, "\x02\r\nx\r\n\x03\r\n"), "\x02\r\nx\r\n\x03\r\n"},
        {"of the data collector", 30, "= 12:00:00\r\nKN021015\r\nxx\r\n\r\n",
         "\x01KN021015\r\nxx\r\n\x03\r\n12345"},
        {"of the data collector, RV", 20, "= 12:00:00\r\nRVA1010\r\nxx\r\n\r\n",
         "\x01RVA1010\r\nxx\r\n\x03\r\n"},
    };
    for (const auto& c : cases) {
        Replay replay(c.model);
        replay.OpenLog(c.record);
        const std::string& window = replay.Window();
        EXPECT_EQ(window.substr(window.find("\r\n") + 2), c.message) << c.what;
    }
}

TEST(StepForward, ClassifiesTheFrameFromItsHeaderOn) {
    const std::string knFrame = ShortKN("15");
    const struct {
        const char* what;
        int model;
        std::string frame, frameText;
    } cases[] = {
        {"KN", 30, knFrame, " " + knFrame.substr(1)},
        {"noise in front of the header", 30, "\x01#!" + knFrame.substr(1), " " + knFrame.substr(1)},
        {"without a header", 20, "\x01??A1010\x02\r\n\x03\r\n", " ??A1010\x02\r\n\x03\r\n"},
        {"RV10X as it stands", 10, "?\x02\r\nx\r\n\x03\r\n", " ?\x02\r\nx\r\n\x03\r\n"},
    };
    for (const auto& c : cases) {
        Replay replay(c.model);
        replay.OpenLog(RecordAt(0, c.frame));
        EXPECT_EQ(replay.w().intake.FrameText, c.frameText) << c.what;
    }
}

TEST(StepForward, AnUnknownMessageLeavesAnInvalidProfile) {
    Replay replay;
    replay.OpenLog(RecordAt(0, SealedKN("KN021099\x02\r\n\x03")) + RecordAt(15, ShortKN("15")));
    const GraphState& graphs = replay.w().graphs;
    const auto slot = static_cast<std::size_t>(graphs.ProfileSlot);
    EXPECT_EQ(graphs.ProfileRing[slot].Valid, -1);
    EXPECT_EQ(graphs.ProfileRing[slot - 1].Valid, 0);
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.w().intake.MessageId, -1);
}

TEST(StepForward, TheLongRdMessageShowsNoInstantValues) {
    Replay replay;
    replay.OpenLog(RecordAt(0, KnWithHeight("00120")) +
                   RecordAt(15, SealedKN(Padded("KNRD10", 2053 + 85 - 8) + "\x03")));
    EXPECT_EQ(replay.w().intake.MessageId, 40);
    EXPECT_EQ(replay.Shown(), "00120");
}

TEST(StepForward, AtTheEndSaysSoAndGoesNoFurther) {
    Replay replay;
    replay.OpenLog(KnLog(2));
    replay.Box();
    replay.Click(replay.Bar().Back);
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Buttons(), "SBC");
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
}

TEST(StepForward, ABrokenRecordOfRv10xEndsTheProgram) {
    Replay replay(10);
    const std::string good = "\x02\r\n10 01230\r\n\x03\r\n";
    replay.OpenLog(RecordAt(0, good) + RecordAt(12, good) +
                   RecordAt(24, "\x02\r\n10").substr(0, 25));
    EXPECT_NE(replay.Box().find("Error Number: 5"), std::string::npos);
    EXPECT_EQ(replay.Buttons(), "SBC") << "the play has ended as at a stop";
    EXPECT_EQ(replay.w().intake.ReplayBusy, 0);
    replay.Click(replay.Bar().Back);
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(replay.Box(), "Run-time error '5':\r\n\r\nInvalid procedure call or argument");
    EXPECT_TRUE(replay.machine.Ended());
}

TEST(StepForward, DrawsTheGraphAndItsAxes) {
    Replay replay;
    replay.OpenLog(KnLog(2));
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.w().graphs.CurrentColumn, 1);
    EXPECT_EQ(replay.w().graphs.TimeLabelsDirty, 0);
    EXPECT_EQ(replay.State().OfflineMessageNo, 1);
    EXPECT_EQ(replay.Shown(), "00010");
}

// ---- Playing ----

TEST(PlayFile, HearsStopAtEveryFifthMessage) {
    Replay replay;
    replay.machine.time.At(0, [&] {
        EXPECT_EQ(replay.Buttons(), "XC");
        EXPECT_EQ(replay.w().intake.ReplayBusy, -1);
        replay.Click(replay.Bar().Stop);
    });
    replay.OpenLog(KnLog(13));
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineMessageNo, 6);
    EXPECT_EQ(replay.State().PlayStopRequested, 0);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.State().OfflineMessageNo, 13);
}

TEST(PlayFile, WithTheProfileShownHearsItAtEveryMessage) {
    Replay replay;
    std::string log;
    for (int i = 0; i < 13; ++i) log += RecordAt(15 * i, KnProfile(100));
    replay.Click(replay.Form().mnuLinePlot);
    replay.machine.time.At(0, [&] { replay.Click(replay.Bar().Stop); });
    replay.OpenLog(log);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
}

TEST(PlayFile, DroppedMessagesCountForTheTurnsToo) {
    Replay replay;
    std::string log;
    for (int i = 0; i < 13; ++i) log += RecordAt(i, "no frame\r\n");
    replay.machine.time.At(0, [&] { replay.Click(replay.Bar().Stop); });
    replay.OpenLog(log + KnLog(1));
    EXPECT_EQ(replay.State().OfflineMessageNo, 0);
    EXPECT_EQ(replay.Form().lblDateTime.Caption, "1-May 12:00:05");
}

TEST(PlayFile, HearsStopInALongSearch) {
    Replay replay;
    const std::string rubbish(30'000'000, 'x');
    replay.machine.time.At(0, [&] { replay.Click(replay.Bar().Stop); });
    replay.OpenLog(rubbish + "\r\n" + KnLog(3));
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineMessageNo, 0);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
    EXPECT_EQ(replay.State().OfflineFileNo, 1);
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 3);
}

TEST(PlayFile, GivesATurnWhateverTheRubbishBetweenItsRecords) {
    Replay replay;
    std::string log;
    for (int i = 1; i <= 4; ++i) log += std::string(7'000'000, 'x') + "\r\n" + KnLog(1, i);
    replay.machine.time.At(0, [&] {
        EXPECT_EQ(replay.State().OfflineMessageNo, 1);
        replay.Click(replay.Bar().Stop);
    });
    replay.OpenLog(log);
    EXPECT_EQ(replay.State().OfflineMessageNo, 1);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
}

TEST(PlayFile, TheMoversWaitForALongSearch) {
    Replay replay;
    const std::string rubbish(30'000'000, 'x');
    replay.OpenLog(KnLog(3) + rubbish + "\r\n" + KnLog(1, 4));
    ASSERT_EQ(replay.State().OfflineMessageNo, 4);
    replay.Click(replay.Bar().Back);
    ASSERT_EQ(replay.State().OfflineMessageNo, 3);
    int turns = 0;
    const std::string window = replay.Window();
    replay.machine.time.At(0, [&] {
        ++turns;
        for (const auto mover : {StepForward, StepBack, GotoFileStart, PlayFile}) {
            mover(replay.w());
        }
        replay.Click(replay.Form().mnuShowMessage);
        EXPECT_EQ(replay.State().OfflineMessageNo, 3);
        EXPECT_EQ(replay.Window(), window);
    });
    replay.Click(replay.Bar().Forward);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(replay.State().OfflineMessageNo, 4);
    EXPECT_EQ(replay.Shown(), "00040");
}

TEST(PlayFile, FillsTheMessageWindowWhenItIsShown) {
    Replay replay;
    replay.OpenLog(KnLog(3));
    const std::string first = "-01.05.2026 12:00:15\r\n" + KnWithHeight("00010");
    EXPECT_EQ(replay.Window(), first) << "of the first step alone";
    replay.Click(replay.Form().mnuShowMessage);
    EXPECT_EQ(replay.Window(), "\r\n01.05.2026-12:00:45 " + KnWithHeight("00030") + "\r\n" + first);
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Window().substr(0, first.size()),
              "-01.05.2026 12:00:30\r\n" + KnWithHeight("00020"));
    EXPECT_EQ(replay.Shown(), "00020");
}

TEST(PlayFile, TheWindowStaysAsItIsBeforeTheFirstRecord) {
    Replay replay;
    replay.Click(replay.Form().mnuShowMessage);
    replay.OpenLog("");
    replay.Click(replay.Form().mnuShowMessage);
    EXPECT_EQ(replay.Window(), "");
}

TEST(PlayFile, ThirtyThousandAndMoreRecordsAreTooMany) {
    Replay replay(20);
    replay.OpenLog(ShortLog(LongestOfflineFile));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 30240);
    EXPECT_TRUE(replay.machine.Running());
    replay.machine.files.Put(B, ShortLog(40000));
    replay.Open(B);
    EXPECT_EQ(replay.Box(), "Too long off-line file");
    EXPECT_EQ(replay.Box(), "no box") << "no question";
    EXPECT_TRUE(replay.machine.Ended());
    EXPECT_NE(replay.State().OfflineRecordPos[30240], 0);
}

TEST(PlayFile, ASetOfMoreThan16BitsCountPauses) {
    Replay replay(20);
    replay.machine.files.Put(A, ShortLog(20000));
    replay.machine.files.Put(B, ShortLog(20000));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    EXPECT_NE(replay.Box().find("Overflow"), std::string::npos);
    EXPECT_EQ(replay.State().OfflineFileName, B);
    EXPECT_EQ(replay.Buttons(), "SBC");
    replay.Click(replay.Bar().Back);
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.State().OfflineMessageNo, 20000);
}

TEST(PlayFile, LeavingTheProgramInItsMidstIsClean) {
    Replay replay;
    replay.machine.dialogs.AnswerNext(Answer::Yes);
    replay.machine.time.At(0, [&] { CloseForm(replay.w(), replay.Form()); });
    replay.OpenLog(KnLog(40));
    EXPECT_TRUE(replay.machine.Ended());
    EXPECT_EQ(replay.Box(), "Are you sure you want to Exit?");
}

TEST(PlayFile, TellsHowFarItIs) {
    Replay replay;
    std::vector<ReplayProgress> seen;
    replay.machine.files.Put(B, KnLog(7));
    replay.machine.time.At(0, [&] { seen.push_back(replay.State().progress); });
    replay.machine.files.Put(A, KnLog(40));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].records, 6);
    EXPECT_EQ(seen[0].file, 1);
    EXPECT_EQ(seen[0].files, 2);
    EXPECT_EQ(seen[0].size, static_cast<std::int64_t>(KnLog(40).size()));
    EXPECT_GT(seen[0].position, seen[0].size / 10);
    EXPECT_LT(seen[0].position, seen[0].size / 5);
    const ReplayProgress& end = replay.State().progress;
    EXPECT_EQ(end.records, 7);
    EXPECT_EQ(end.position, end.size);
    EXPECT_EQ(end.file, 2);
    EXPECT_EQ(end.size, static_cast<std::int64_t>(KnLog(7).size()));
    replay.Open(A);
    EXPECT_EQ(replay.State().progress.file, 1);
    EXPECT_EQ(replay.State().progress.files, 1);
}

// ---- Backwards ----

TEST(StepBack, WindsBackRecordByRecord) {
    Replay replay;
    replay.OpenLog(KnLog(40));
    replay.Box();
    for (int number = 39; number >= 1; --number) {
        replay.Click(replay.Bar().Back);
        ASSERT_EQ(replay.Box(), "no box") << number;
        ASSERT_EQ(replay.State().OfflineMessageNo, number);
        ASSERT_EQ(replay.Shown(), Height(number));
        ASSERT_EQ(replay.Seconds(), 15 * number);
    }
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Box(), "Start of File");
    EXPECT_EQ(replay.State().OfflineMessageNo, 1);
    EXPECT_EQ(replay.Buttons(), "SBFPC");
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.State().OfflineMessageNo, 40);
    EXPECT_EQ(replay.Shown(), "00400");
}

TEST(StepBack, RefillsTheFarEndOfTheRing) {
    Replay replay;
    std::string log;
    for (int i = 1; i <= 40; ++i) log += RecordAt(15 * i, KnProfile(100 * i));
    replay.OpenLog(log);
    const GraphState& graphs = replay.w().graphs;
    ASSERT_EQ(replay.w().intake.MessageId, 3112);
    const auto ring = [&](int back) -> const ProfileSlotRecord& {
        return graphs.ProfileRing[static_cast<std::size_t>((graphs.ProfileSlot + 30 - back) % 30)];
    };
    for (int number = 39; number >= 25; --number) {
        replay.Click(replay.Bar().Back);
        for (int back = 0; back < 30; ++back) {
            const bool known = number - back >= 1;
            ASSERT_EQ(ring(back).Valid, known ? -1 : 0) << number << " " << back;
            if (known) {
                ASSERT_EQ(ring(back).Profile[10], 100 * (number - back)) << number;
            }
        }
    }
}

TEST(StepBack, TellsWhenARecordIsNoLongerThere) {
    Replay replay;
    const std::string log = KnLog(35);
    replay.OpenLog(log);
    replay.Box();
    replay.machine.files.Put(A, log.substr(0, 200));
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Box(), "Saved message invalid") << "record 5 for the ring";
    EXPECT_EQ(replay.Box(), "Saved message invalid") << "record 34 itself";
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineMessageNo, 34);
    EXPECT_EQ(replay.Buttons(), "SBC");
    EXPECT_TRUE(replay.machine.Running());
}

// A log whose records from the second on lie behind more rubbish than one turn takes.
std::string LogBehindRubbish(int records) {
    return KnLog(1) + std::string(20'000'000, 'x') + "\r\n" + KnLog(records - 1, 2);
}

TEST(StepBack, AFileThatIsClosedInItsSearchEndsIt) {
    for (const int records : {3, 32}) {  // with the ring full, the search is for its far end
        Replay replay;
        replay.OpenLog(LogBehindRubbish(records));
        replay.Box();
        replay.State().OfflineRecordPos[2] = replay.State().OfflineRecordPos[1] + 200;
        while (replay.State().OfflineMessageNo > (records == 3 ? 3 : 32)) {
            replay.Click(replay.Bar().Back);
        }
        replay.machine.time.At(0, [&] { replay.Click(replay.Bar().CloseFile); });
        replay.Click(replay.Bar().Back);
        EXPECT_EQ(replay.Box(), "no box") << records;
        EXPECT_TRUE(replay.machine.Running()) << records;
        EXPECT_EQ(replay.State().OfflineFileNo, 0) << records;
        EXPECT_EQ(replay.Form().CloudValue[0].Caption, "") << records;
        EXPECT_EQ(replay.State().progress.files, 0) << records;
        EXPECT_EQ(replay.Buttons(), "") << records;
    }
}

TEST(StepBack, AFileThatIsOpenedInItsSearchStays) {
    Replay replay;
    replay.OpenLog(LogBehindRubbish(3));
    replay.Box();
    replay.State().OfflineRecordPos[2] = replay.State().OfflineRecordPos[1] + 200;
    replay.machine.files.Put(B, KnLog(7));
    replay.machine.time.At(0, [&] { replay.Open(B); });
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Box(), "no box");
    EXPECT_EQ(replay.State().OfflineMessageNo, 7);
    EXPECT_EQ(replay.Shown(), "00070");
    EXPECT_EQ(replay.Buttons(), "SBC");
}

TEST(StepBack, WhatIsNoFrameAnyMoreIsNotShown) {
    Replay replay;
    std::string log = KnLog(3);
    replay.OpenLog(log);
    log[log.find("\x03", static_cast<std::size_t>(replay.State().OfflineRecordPos[2]))] = 'x';
    replay.machine.files.Put(A, log);
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.State().OfflineMessageNo, 2);
    EXPECT_EQ(replay.Shown(), "00030");
    EXPECT_EQ(replay.Buttons(), "SBFPC");
}

TEST(StepBack, StopsAtTheFirstRecordOfTheCurrentFile) {
    Replay replay;
    replay.machine.files.Put(A, KnLog(3));
    replay.machine.files.Put(B, KnLog(2, 11));
    replay.Open("C:\\LOG\0A.DAT\0B.DAT"s);
    replay.Box();
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Shown(), "00110");
    replay.Click(replay.Bar().Back);
    EXPECT_EQ(replay.Box(), "Start of File");
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.Shown(), "00010");
    EXPECT_EQ(replay.Form().Caption, "CUMERON - Port 1  [" + A + "]");
}

TEST(GotoFileStart, EmptiesGraphAndRing) {
    Replay replay;
    replay.OpenLog(KnLog(10));
    replay.w().graphs.HistoryIndex = 3;
    replay.w().graphs.HistoryWrapped = -1;
    replay.Click(replay.Bar().Start);
    EXPECT_EQ(replay.w().graphs.CurrentColumn, 1);
    EXPECT_EQ(replay.w().graphs.HistoryIndex, 0);
    EXPECT_EQ(replay.w().graphs.HistoryWrapped, 0);
    int valid = 0;
    for (const ProfileSlotRecord& slot : replay.w().graphs.ProfileRing) valid += slot.Valid != 0;
    EXPECT_EQ(valid, 1);
}

}  // namespace
}  // namespace cumeron
