#include "terminal/terminal_log.h"

#include <gtest/gtest.h>

#include "platform/runtime/errors.h"
#include "session.h"
#include "shell/startup.h"

namespace cumeron {
namespace {

constexpr const char* Name = "C:\\T.LOG";
const std::string Head = "-CUMERON Terminal logfile\r-File created: 01.05.2026 12:00:00";
const std::string Closed = "-File Closed: 01.05.2026 12:00:00";

struct Logged : Session {
    Logged() : Session(Line::Open) {}
    void OpenLog() {
        machine.dialogs.ChooseNext(Name);
        Press(Form().tbrToolBar.Log);
    }
    std::string File() { return machine.files.Content(Name).value_or("no file"); }
    void ExpectShown(bool open) {
        EXPECT_EQ(Form().Caption, open ? "CUMERON Terminal - C:\\T.LOG" : "CUMERON Terminal");
        EXPECT_EQ(Form().tbrToolBar.Log.Value, open ? 1 : 0);
        EXPECT_EQ(Form().mnuOpenLog.Enabled, !open);
        EXPECT_EQ(Form().mnuCloseLog.Enabled, open);
    }
};

TEST(TerminalLog, HoldsWhatIsShownByteForByte) {
    using std::string_literals::operator""s;
    Logged session;
    session.OpenLog();
    session.ExpectShown(true);
    session.Arrive("A\rB\b\n\0\x80\xFF"s);
    session.Press(session.Form().tbrToolBar.Log);
    session.ExpectShown(false);
    session.Arrive("behind");
    EXPECT_EQ(session.File(), Head + "A\r\n\0\x80\xFF"s + Closed);
}

TEST(TerminalLog, AsksWhatToDoWithAnOldFile) {
    const struct {
        Answer answer;
        std::string held;
        bool open;
    } cases[] = {{Answer::Yes, Head, true},
                 {Answer::No, "old" + Head, true},
                 {Answer::Cancel, "old", false}};
    for (const auto& c : cases) {
        Logged session;
        session.machine.files.Put(Name, "old");
        session.machine.dialogs.AnswerNext(c.answer);
        session.OpenLog();
        EXPECT_EQ(session.Box(), "Replace existing file - C:\\T.LOG?");
        EXPECT_EQ(session.File(), c.held);
        session.ExpectShown(c.open);
    }
}

TEST(TerminalLog, ACancelledDialogReleasesTheButton) {
    Logged session;
    session.machine.dialogs.ChooseNext(std::nullopt);
    session.Press(session.Form().tbrToolBar.Log);
    session.ExpectShown(false);
    EXPECT_EQ(session.Box(), "no box");
}

TEST(TerminalLog, AFileThatDoesNotOpenIsTold) {
    Logged session;
    session.machine.files.FailNextOpen(Name, 70);
    session.OpenLog();
    EXPECT_EQ(session.Box(), ErrorText(70));
    session.ExpectShown(false);
    session.Arrive("text");
    EXPECT_EQ(session.Text(), "text");
    EXPECT_EQ(session.Box(), "no box");
}

TEST(TerminalLog, RetryGoesOnBehindWhatWasWritten) {
    for (const std::size_t fits : {0u, 4u}) {
        Logged session;
        session.OpenLog();
        session.Arrive("before ");
        session.machine.files.FillDiskAfter(fits);
        session.machine.dialogs.OnBox = [&] { session.machine.files.EmptyDisk(); };
        session.machine.dialogs.AnswerNext(Answer::Retry);
        session.Arrive("meanwhile ");
        EXPECT_EQ(session.Box(), ErrorText(61));
        session.Arrive("behind");
        EXPECT_EQ(session.File(), Head + "before meanwhile behind");
        EXPECT_EQ(session.Box(), "no box");
        session.ExpectShown(true);
    }
}

TEST(TerminalLog, NothingGetsIntoAClosingLineThatIsTriedAgain) {
    Logged session;
    session.OpenLog();
    session.machine.files.FillDiskAfter(5);
    session.machine.dialogs.OnBox = [&] {
        session.machine.files.EmptyDisk();
        session.machine.line.Arrive("late");
    };
    session.machine.dialogs.AnswerNext(Answer::Retry);
    session.Click(session.Form().mnuCloseLog);
    EXPECT_EQ(session.Box(), ErrorText(61));
    EXPECT_EQ(session.Box(), "no box");
    EXPECT_EQ(session.File(), Head + Closed);
    EXPECT_EQ(session.Text(), "late");
    session.ExpectShown(false);
}

TEST(TerminalLog, AsksAgainAfterEachFailure) {
    Logged session;
    session.OpenLog();
    session.machine.files.FillDisk();
    session.machine.dialogs.AnswerNext(Answer::Retry);
    session.machine.dialogs.AnswerNext(Answer::Cancel);
    session.Arrive("text");
    EXPECT_EQ(session.Box(), ErrorText(61));
    EXPECT_EQ(session.Box(), ErrorText(61));
    EXPECT_EQ(session.Box(), "no box") << "the closing line fails too, and nothing more is asked";
    session.ExpectShown(false);
    EXPECT_EQ(session.File(), Head);
    session.Arrive(" goes on");
    EXPECT_EQ(session.Text(), "text goes on");
}

TEST(TerminalLog, CancelStillWritesTheClosingLineIfItFits) {
    Logged session;
    session.OpenLog();
    session.machine.files.FailNextWrite();
    session.machine.dialogs.AnswerNext(Answer::Cancel);
    session.Arrive("lost");
    EXPECT_EQ(session.File(), Head + Closed);
    session.ExpectShown(false);
}

TEST(TerminalLog, AFailedClosingLineIsAskedAboutAtItsClosing) {
    Logged session;
    session.OpenLog();
    session.machine.files.FillDisk();
    session.machine.dialogs.AnswerNext(Answer::Cancel);
    session.Click(session.Form().mnuCloseLog);
    EXPECT_EQ(session.Box(), ErrorText(61));
    session.ExpectShown(false);
    EXPECT_EQ(session.File(), Head);
}

TEST(TerminalLog, IsClosedWithTheTerminal) {
    Logged session;
    session.OpenLog();
    session.Leave();
    EXPECT_EQ(session.File(), Head + Closed);
    EXPECT_EQ(session.Form().log.number, 0);
}

TEST(TerminalLog, IsClosedWithTheProgram) {
    Logged session;
    session.OpenLog();
    session.machine.Enter([&] { mnuExit_Click(session.W()); });
    EXPECT_TRUE(session.machine.Ended());
    EXPECT_EQ(session.File(), Head + Closed);
}

TEST(TerminalLog, AFileThatVanishedBeginsAnew) {
    Logged session;
    session.OpenLog();
    session.machine.files.Delete(Name);
    session.Arrive("text");
    EXPECT_EQ(session.File(), "text");
}

TEST(TerminalLog, TheDialogIsOneForWriting) {
    Logged session;
    session.OpenLog();
    const FileQuestion& asked = session.machine.dialogs.LastQuestion();
    EXPECT_EQ(asked.title, "Open Communications Log File");
    EXPECT_EQ(asked.filter, "Log Files (*.LOG)|*.log|All Files (*.*)|*.*");
    EXPECT_EQ(asked.fileName, "");
    EXPECT_TRUE(asked.forWriting && asked.asksItself) << "the question comes once";
}

}  // namespace
}  // namespace cumeron
