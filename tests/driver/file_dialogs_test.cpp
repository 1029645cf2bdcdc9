// choose and drop-files: the files that the operator picks.
#include <gtest/gtest.h>

#include "bench.h"
#include "run_script.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

// Asks for files when its frame is clicked, and notes what came.
struct Asking {
    Bench bench;
    std::vector<std::string> chosen;
    std::vector<std::string> dropped;

    explicit Asking(const std::string& lines) : bench(lines) {
        FileQuestion question;
        question.filter = "Logs|*.dat";
        bench.w.frmMain.fraValues.Click = [this, question](Workstation& w) {
            try {
                chosen.push_back(w.platform.dialogs.ChooseFiles(question));
            } catch (const RuntimeError& error) {
                chosen.push_back("error " + std::to_string(error.Number));
            }
        };
        bench.w.frmMain.DropFiles = [this](Workstation& w, const std::vector<std::string>& names) {
            dropped = names;
            w.frmMain.DropFiles = nullptr;
        };
    }
};

TEST(Choose, AnswersTheNextDialogsInOrder) {
    Asking asking(
        "choose \"C:\\\\A B.DAT\"\nchoose cancel\nchoose C:\\LOG a.dat \"b c.dat\"\n"
        "click fraValues\nclick fraValues\nclick fraValues\n");
    EXPECT_EQ(asking.bench.Run(), "");
    EXPECT_EQ(asking.chosen,
              (std::vector<std::string>{"C:\\A B.DAT", "error 32755", "C:\\LOG\0a.dat\0b c.dat"s}));
}

TEST(Choose, ADialogThatNothingWasChosenForEndsTheRun) {
    Asking asking("click fraValues\nexpect MessageId 7\n");
    EXPECT_EQ(asking.bench.Run(),
              "s.scn:1: click: no answer for the box \"file dialog, Logs|*.dat\"; the run of this "
              "file ends\n");
}

TEST(DropFiles, GivesTheNamesToTheForm) {
    Asking asking(
        "drop-files frmMain C:\\A.DAT \"C:\\\\B C.DAT\"\ndrop-files frmMain C:\\A.DAT\n"
        "drop-files frmAbout C:\\A.DAT\n");
    EXPECT_EQ(asking.bench.Run(),
              "s.scn:2: drop-files: frmMain takes no files\n"
              "s.scn:3: drop-files: frmAbout is not visible\n");
    EXPECT_EQ(asking.dropped, (std::vector<std::string>{"C:\\A.DAT", "C:\\B C.DAT"}));
}

TEST(DropFiles, NothingIsTakenWhileADialogIsOpen) {
    EXPECT_EQ(Printed("click mnuAbout\ndrop-files frmMain C:\\A.DAT\nclick frmAbout.Command1\n"),
              "s.scn:3: drop-files: frmMain takes no input while frmAbout is open\n");
}

}  // namespace
}  // namespace cumeron
