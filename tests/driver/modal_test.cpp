// Forms shown modally: the script goes on inside them until they close.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bench.h"
#include "platform/form.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int ComeBack = 7;  // in MessageId, when the call that opened the form has come back

// A click on lblCT opens frmStart, a click on its CmdCancel opens frmAbout in it; CmdOK and
// Command1 hide them.
struct ModalBench : Bench {
    explicit ModalBench(const std::string& lines) : Bench(lines) {
        w.frmStart.Load = w.frmAbout.Load = nullptr;
        w.frmMain.lblCT.Click = [](Workstation& of) { Open(of); };
        w.frmStart.CmdOK.Click = [](Workstation& of) { HideForm(of.frmStart); };
        w.frmStart.CmdCancel.Click = [](Workstation& of) {
            ShowModal(of, of.frmAbout);
            of.graphs.HistoryIndex = ComeBack;
        };
        w.frmAbout.Command1.Click = [](Workstation& of) { HideForm(of.frmAbout); };
    }
    static void Open(Workstation& of) {
        ShowModal(of, of.frmStart);
        of.intake.MessageId = ComeBack;
    }
    void ExpectPasses(int passed, const char* what) {
        EXPECT_EQ(Run(), "") << what;
        EXPECT_EQ(session.counts.passed, passed) << what;
    }
};

TEST(ModalForm, FollowingLinesRunInsideUntilItCloses) {
    const struct {
        const char* what;
        const char* lines;
        int passed;
    } cases[] = {
        {"opened by a click",
         "click lblCT\nexpect frmStart.Visible True\nadvance 5\nexpect MessageId 0\n"
         "click frmStart.CmdOK\nexpect frmStart.Visible False\nexpect MessageId 7\n",
         4},
        {"again after that",
         "click lblCT\nclick frmStart.CmdOK\nset MessageId 0\nclick lblCT\nexpect MessageId 0\n"
         "click frmStart.CmdOK\nexpect MessageId 7\n",
         2},
        {"closed by its close box", "click lblCT\nclose frmStart\nexpect MessageId 7\n", 1},
        {"a form in a form",
         "click lblCT\nclick frmStart.CmdCancel\nexpect frmAbout.Visible True\n"
         "click frmAbout.Command1\nexpect HistoryIndex 7\nexpect MessageId 0\n"
         "click frmStart.CmdOK\nexpect MessageId 7\n",
         4},
        {"closed by a scheduled command",
         "click lblCT\nat 2 click frmStart.CmdOK\nat 1 expect frmStart.Visible True\n"
         "at 3 expect frmStart.Visible False\nadvance 4\nexpect MessageId 7\n",
         3},
    };
    for (const auto& c : cases) ModalBench(c.lines).ExpectPasses(c.passed, c.what);
}

TEST(ModalForm, LivesOnInsideTheAdvanceThatOpenedIt) {
    const struct {
        const char* what;
        const char* lines;
        int passed;
    } cases[] = {
        {"the advance goes on to its end before the next line",
         "at 1 click lblCT\nat 2 set StatusText late\nadvance 3\nexpect frmStart.Visible True\n"
         "expect StatusText late\nexpect MessageId 0\nclick frmStart.CmdOK\nexpect MessageId 7\n",
         4},
        {"closed inside it, the rest passes outside",
         "at 1 click lblCT\nat 2 click frmStart.CmdOK\nat 2.5 expect MessageId 7\nadvance 3\n"
         "expect MessageId 7\n",
         2},
        {"the clock ticks on in it",
         "clock \"2026-05-01 12:00:00\"\nat 1 click lblCT\nadvance 60\n"
         "expect lblDateTime \"1-May 12:01:00\"\nadvance 60\n"
         "expect lblDateTime \"1-May 12:02:00\"\nclick frmStart.CmdOK\nadvance 60\n"
         "expect lblDateTime \"1-May 12:03:00\"\n",
         3},
        {"a form in a form, each opened in it",
         "at 1 click lblCT\nat 2 click frmStart.CmdCancel\nat 3 set StatusText late\nadvance 4\n"
         "expect StatusText late\nclick frmAbout.Command1\nexpect HistoryIndex 7\n"
         "expect MessageId 0\nclick frmStart.CmdOK\nexpect MessageId 7\n",
         4},
        {"at 0 in a turn of the event loop",
         "at 0 click lblCT\ndoevents\nexpect frmStart.Visible True\nclick frmStart.CmdOK\n"
         "expect MessageId 7\n",
         2},
    };
    for (const auto& c : cases) ModalBench(c.lines).ExpectPasses(c.passed, c.what);
}

TEST(ModalForm, TimerMayOpenIt) {
    ModalBench bench(
        "advance 1\nexpect frmStart.Visible True\nadvance 5\nexpect HistoryIndex 1\n"
        "click frmStart.CmdOK\nexpect MessageId 7\nexpect HistoryIndex 2\n");
    bench.w.frmMain.tmrClock.Tick = [](Workstation& w) {
        if (++w.graphs.HistoryIndex == 1) ModalBench::Open(w);
    };
    bench.ExpectPasses(4, "the ticks that came due meanwhile are one, behind it");
}

TEST(ModalForm, OpensInAWaitingLoopOfTheProgram) {
    ModalBench bench(
        "at 0.5 click lblCT\nclick lblXaxis\nexpect frmStart.Visible True\n"
        "expect RedialCount 49\nadvance 5\nexpect RedialCount 49\nclick frmStart.CmdOK\n"
        "expect MessageId 7\nexpect RedialCount 100\n");
    bench.w.frmMain.lblXaxis.Click = [](Workstation& w) {
        while (w.intake.RedialCount < 100) {
            w.platform.events.WaitEvents();
            ++w.intake.RedialCount;
        }
    };
    bench.ExpectPasses(5, "the loop goes on behind it");
}

TEST(ModalForm, AloneTakesInput) {
    const struct {
        const char* line;
        const char* told;
    } cases[] = {
        {"click lblCT\n", "s.scn:2: click: frmMain takes no input while frmStart is open\n"},
        {"click mnuExit\n", "s.scn:2: click: frmMain takes no input while frmStart is open\n"},
        {"hover lblCT\n", "s.scn:2: hover: frmMain takes no input while frmStart is open\n"},
        {"drop lblCT frmStart.CmdOK 1 1\n",
         "s.scn:2: drop: frmMain takes no input while frmStart is open\n"},
        {"type frmDebug.txtMessage x\n",
         "s.scn:2: type: frmDebug takes no input while frmStart is open\n"},
        {"paste frmDebug.txtMessage x\n",
         "s.scn:2: paste: frmDebug takes no input while frmStart is open\n"},
        {"close frmMain\n", "s.scn:2: close: frmMain takes no input while frmStart is open\n"},
        {"activate frmDebug\n",
         "s.scn:2: activate: frmDebug takes no input while frmStart is open\n"},
        {"click frmStart.CmdCancel\nclick frmStart.CmdOK\n",
         "s.scn:3: click: frmStart takes no input while frmAbout is open\n"},
    };
    for (const auto& c : cases) {
        ModalBench bench(std::string("click lblCT\n") + c.line + "expect MessageId 0\n");
        ShowForm(bench.w, bench.w.frmDebug);
        EXPECT_EQ(bench.Run(), c.told);
        EXPECT_EQ(bench.session.counts.passed, 1) << c.line;
    }
}

TEST(ModalForm, OtherFormsTakeInputAgainWhenItHasClosed) {
    ModalBench(
        "click lblCT\nclick frmStart.CmdOK\nclick mnuShowMessage\n"
        "expect frmDebug.Visible True\n")
        .ExpectPasses(1, "click");
}

TEST(ModalForm, EndOfTheScriptLeavesItOpen) {
    for (const char* opens : {"click lblCT\n", "at 1 click lblCT\nadvance 2\n",
                              "click lblCT\nclick frmStart.CmdCancel\n"}) {
        ModalBench bench(opens + std::string("expect MessageId 0\n"));
        EXPECT_EQ(bench.Run(), "") << opens;
        EXPECT_TRUE(bench.w.frmStart.Visible);
        EXPECT_EQ(bench.session.counts.passed, 1);
    }
}

TEST(ModalForm, BoxThatNobodyAskedAboutIsToldThoughItIsOpen) {
    ModalBench bench("click lblCT\nclick frmStart.CmdCancel\n");
    bench.w.frmStart.CmdCancel.Click = [](Workstation& w) {
        w.platform.dialogs.MessageBox("told", BoxButtons::Ok);
    };
    EXPECT_EQ(bench.Run(), "s.scn:2: end: expected no box, got \"told\"\n");
}

TEST(ModalForm, FailuresInsideAreToldUnderTheirLine) {
    EXPECT_EQ(ModalBench("click lblCT\nexpect MessageId 1\nclick frmStart.CmdOK\n"
                         "expect MessageId 2\nnonsense x\n")
                  .Run()
                  .substr(0, 105),
              "s.scn:2: expect: expected 1, got 0\ns.scn:4: expect: expected 2, got 7\n"
              "s.scn:5: nonsense: unknown command;");
}

TEST(ModalForm, EndOfTheProgramInsideLeavesItsCalls) {
    const struct {
        const char* what;
        const char* lines;
        int passed;
    } cases[] = {
        {"in a click",
         "click lblCT\nclick frmStart.CmdCancel\nended yes\nexpect MessageId 0\nstart\nended no\n",
         3},
        {"in an advance inside, whose time passes all the same",
         "click lblCT\nat 1 click frmStart.CmdCancel\nat 2 ended yes\nadvance 3\nended yes\n", 2},
        {"in the advance that opened it",
         "at 1 click lblCT\nat 2 click frmStart.CmdCancel\nat 3 ended yes\nadvance 4\nended yes\n",
         2},
    };
    for (const auto& c : cases) {
        ModalBench bench(c.lines);
        bench.w.frmStart.CmdCancel.Click = [](Workstation&) { throw ProcessEnd{}; };
        bench.ExpectPasses(c.passed, c.what);
    }
}

TEST(ModalForm, ErrorOfTheProgramInsideIsToldAndEndsIt) {
    ModalBench bench(
        "click lblCT\nclick frmStart.CmdCancel\nbox-has \"Run-time error '6'\"\nended yes\n"
        "expect MessageId 0\n");
    bench.w.frmStart.CmdCancel.Click = [](Workstation&) { throw RuntimeError(6); };
    bench.ExpectPasses(3, "box");
}

TEST(ModalForm, QuestionWithoutAnAnswerInsideEndsTheRun) {
    ModalBench bench("click lblCT\nclick frmStart.CmdCancel\nexpect MessageId 5\n");
    bench.w.frmStart.CmdCancel.Click = [](Workstation& w) {
        w.platform.dialogs.MessageBox("sure?", BoxButtons::YesNo);
    };
    EXPECT_EQ(bench.Run(),
              "s.scn:2: click: no answer for the box \"sure?\"; the run of this file ends\n");
}

// Each line inside runs in the same depth of calls.
TEST(ModalForm, ManyLinesInsideTakeNoMoreRoomThanOne) {
    constexpr int lines = 20000;
    std::string script = "click lblCT\n";
    for (int i = 0; i < lines; ++i) script += "no-box\n";
    ModalBench(script).ExpectPasses(lines, "lines");
}

}  // namespace
}  // namespace cumeron
