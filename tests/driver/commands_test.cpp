// Each command by what it does to the machine and the program.
#include "commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "run_script.h"

namespace cumeron {
namespace {

using testing::HasSubstr;

// Lines that nothing fails in; passed says how many expectations held.
struct PassingCase {
    const char* what;
    const char* script;
    int passed;
};

void CheckCases(const std::vector<PassingCase>& cases) {
    for (const PassingCase& c : cases) {
        const Outcome outcome = RunText(c.script);
        EXPECT_EQ(outcome.printed, "") << c.what;
        EXPECT_EQ(outcome.counts.passed, c.passed) << c.what;
        EXPECT_EQ(outcome.counts.failed, 0) << c.what;
    }
}

TEST(Commands, EachHasANameOfItsOwnAndRuns) {
    std::set<std::string_view> names;
    for (const std::string_view name : CommandNames()) {
        EXPECT_TRUE(names.insert(name).second) << name;
        const Command& command = *FindCommand(name);
        EXPECT_NE(command.run, nullptr) << name;
        EXPECT_LE(command.least, command.most) << name;
    }
}

TEST(Commands, ValuesAreJoinedAndDefined) {
    CheckCases({
        {"joined", "put-file A one \" two\" \"\"\nfile A \"one two\"\n", 1},
        {"let", "let X a b\nlet Y $X \"$X\"\nput-file A $Y\nfile A \"ab$X\"\n", 1},
    });
}

TEST(BeforeTheStart, SettingsStandBehindTheirSection) {
    CheckCases({
        {"in order",
         "setting B 1\nsetting A \"two words\"\n"
         "file CUMERON1.INI \"[CUMERON]\\r\\nB=1\\r\\nA=two words\\r\\n\"\n"
         "file cumeron1.ini \"[CUMERON]\\r\\nB=1\\r\\nA=two words\\r\\n\"\n",
         2},
        {"the file that the command line names",
         "setting Message_Interval 33\nfile-has CUMERON7.INI 33\nno-file CUMERON1.INI\n"
         "start 7\nexpect Message_Interval 33\n",
         3},
        {"a command line that names none",
         "setting Message_Interval 33\nfile-has CUMERON1.INI 33\nstart 100\n"
         "expect Message_Interval 33\n",
         2},
        {"the file of the second copy",
         "setting Message_Interval 33\nother-copy 1\nfile-has CUMERON2.INI 33\nstart\n"
         "expect Message_Interval 33\nexpect InstanceNumber 2\n",
         3},
        {"a mark beside a running copy counts",
         "other-copy 1\nstale-mark 2\nsetting Message_Interval 33\nstart\n"
         "expect Message_Interval 33\nexpect InstanceNumber 3\n",
         2},
        {"a mark alone does not",
         "stale-mark 1\nsetting Message_Interval 33\nstart\nexpect Message_Interval 33\n"
         "expect InstanceNumber 1\n",
         2},
        {"the file of a start that stands in a definition",
         "let N 7\nsetting Message_Interval 33\nfile-has CUMERON7.INI 33\nstart $N\n"
         "expect Message_Interval 33\n",
         2},
        {"commands on files may change the lines",
         "setting Message_Interval 33\n"
         "put-file CUMERON1.INI \"[CUMERON]\\r\\nMessage_Interval=44\\r\\n\"\n"
         "start\nexpect Message_Interval 44\n",
         1},
        {"before what an earlier run saved",
         "start\nclick mnuExit\nended yes\nsetting Message_Interval 33\nsetting CEILOMETER 20\n"
         "file-has CUMERON1.INI \"[CUMERON]\\r\\nMessage_Interval=33\\r\\nCEILOMETER=20\\r\\nW\"\n"
         "start\nended no\nexpect Message_Interval 33\nexpect CEILOMETER 20\n",
         5},
        {"posix", "setting Message_Interval 33\npaths posix\nstart\nexpect Message_Interval 33\n",
         1},
    });
    EXPECT_EQ(RunText("start\nsetting A 1\n").counts.failed, 1);
}

TEST(BeforeTheStart, MachineIsMadeUp) {
    CheckCases({
        {"clock",
         "clock \"2026-11-15 14:41:25\"\nstart\nexpect MessageTime \"2026-11-15 14:41:25\"\n", 1},
        {"clock at first", "start\nexpect MessageTime \"2026-01-01 00:00:00\"\n", 1},
        {"screen", "screen 800 600\nstart\nexpect HistorySize 2400\n", 1},
        {"screen at first", "start\nexpect HistorySize 3072\n", 1},
        {"folder", "folder C:\\LOG\nput-file C:\\LOG\\A x\nfile c:\\log\\a x\n", 1},
        {"posix", "paths posix\nput-file a x\nfile /home/user/a x\nno-file A\n", 2},
    });
    EXPECT_EQ(RunText("start\nstart\n").printed, "s.scn:2: start: the program runs already\n");
    EXPECT_EQ(RunText("paths dos\n").counts.failed, 1);
    EXPECT_EQ(RunText("start\npaths posix\n").counts.failed, 1);
    EXPECT_EQ(RunText("clock noon\n").counts.failed, 1);
    EXPECT_EQ(RunText("screen 0 600\n").counts.failed, 1);
    EXPECT_EQ(RunText("screen 800 40000\n").counts.failed, 1);
}

TEST(Line, FollowsTheScript) {
    CheckCases({
        {"closed", "start\nrx abc\nclick mnuOpenPort\nexpect comCTLine.InBufferCount 0\n", 1},
        {"open", "start\nclick mnuOpenPort\nrx abc \"d e\"\nexpect comCTLine.InBufferCount 6\n", 1},
        {"carrier",
         "start\nexpect comCTLine.CDHolding False\ncarrier on\nexpect comCTLine.CDHolding True\n"
         "carrier off\nexpect comCTLine.CDHolding False\n",
         3},
        {"overrun", "start\nclick mnuOpenPort\nfault overrun\nexpect sbaStatus.Errors Overrun\n",
         1},
        {"parity",
         "start\nclick mnuOpenPort\nfault parity\nexpect sbaStatus.Errors \"Parity Error\"\n", 1},
        {"port error",
         "start\nport-error 57\nclick mnuOpenPort\nbox-has \"Number: 57\"\nclick mnuOpenPort\n"
         "no-box\nexpect comCTLine.PortOpen True\n",
         3},
        {"settings error", "settings-error 57\nstart\nbox-has \"Number: 57\"\n", 1},
        {"modem",
         "setting Modem_used 1\nsetting Modem_Initialization_String ATD\nstart\n"
         "reply \"ATD\\r\" \"CONNECT\\r\\n\" 4\nclick mnuOpenPort\nsent \"ATD\" \"\\r\"\nsent "
         "\"\"\n"
         "advance 4\nexpect sbaStatus.Errors Connected\n",
         3},
    });
    EXPECT_EQ(RunText("fault smoke\n").counts.failed, 1);
    EXPECT_EQ(RunText("carrier maybe\n").counts.failed, 1);
    EXPECT_EQ(RunText("reply \"\" x\n").counts.failed, 1);
    const std::string longest(LongestTrigger, 'x');
    EXPECT_EQ(RunText("reply " + longest + " y\n").counts.failed, 0);
    EXPECT_EQ(RunText("reply x" + longest + " y\n").counts.failed, 1);
}

TEST(Line, ReplyComesAFifthOfASecondLaterUnlessTold) {
    CheckCases({{"usual",
                 "setting Modem_used 1\nsetting Modem_Initialization_String ATD\nstart\n"
                 "reply \"ATD\\r\" \"x\"\nat 0.19 expect comCTLine.InBufferCount 0\n"
                 "at 0.21 expect comCTLine.InBufferCount 1\nclick mnuOpenPort\n",
                 2}});
}

TEST(Time, PassesOnlyWhenTold) {
    CheckCases({
        {"the tick of the end fires",
         "clock \"2026-05-01 12:00:00\"\nstart\nadvance 0.999\nexpect-not lblDateTime "
         "\"12:00:01\"\n"
         "advance 0.001\nexpect lblDateTime \"1-May 12:00:01\"\n",
         2},
        {"a jump fires no timer",
         "clock \"2026-05-01 12:00:00\"\nstart\nadvance 1\nclock \"2026-05-02 08:00:00\"\n"
         "expect lblDateTime \"1-May 12:00:01\"\nadvance 1\nexpect lblDateTime \"2-May "
         "08:00:01\"\n",
         2},
        {"a turn", "start\nat 0.01 expect MessageId 0\ndoevents\n", 1},
        {"at 0 waits for the next turn",
         "start\nset MessageId 1\nat 0 expect MessageId 2\n"
         "set MessageId 2\ndoevents\n",
         1},
        {"a word is replaced when its line runs",
         "let A 1\nstart\nat 1 expect MessageId $A\nlet A 2\nset MessageId 1\nadvance 1\n", 1},
        {"the end of the program in it",
         "start\nat 1 click mnuExit\nat 2 ended yes\nadvance 3\nended yes\n", 2},
    });
    // What never came due counts neither way.
    EXPECT_EQ(RunText("start\nat 5 expect MessageId 0\nadvance 1\n").counts.passed, 0);
    EXPECT_EQ(RunText("advance -1\n").counts.failed, 1);
}

TEST(Operator, ClicksWhatCanBeReached) {
    CheckCases({
        {"menu", "start\nclick mnuShowMessage\nexpect frmDebug.Visible True\n", 1},
        {"check style button",
         "start\nclick Toolbar1.OpenPort\nexpect Toolbar1.OpenPort 1\n"
         "expect Toolbar1.ClosePort 0\n",
         2},
        {"other button stays up", "start\nclick Toolbar1.Message\nexpect Toolbar1.Message 0\n", 1},
        {"label", "start\nset IntervalSeekState 4\nclick lblXaxis\nexpect IntervalSeekState 0\n",
         1},
    });
    const struct {
        const char* lines;
        const char* told;
    } cases[] = {
        {"click Toolbar1.Start\n", "s.scn:2: click: Toolbar1.Start is disabled\n"},
        {"click picSplitSizer\n", "s.scn:2: click: picSplitSizer is disabled\n"},
        {"click sbaStatus.Errors_Image_Void\n",
         "s.scn:2: click: sbaStatus.Errors_Image_Void is not visible\n"},
        {"click lblXaxisBack\n", "s.scn:2: click: lblXaxisBack is not visible\n"},
        {"click frmStatus.Command1\n", "s.scn:2: click: frmStatus is not visible\n"},
        {"click tmrClock\n", "s.scn:2: click: tmrClock is nothing to see\n"},
        {"click mnuExit\nclick mnuExit\n", "s.scn:3: click: the program has ended\n"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = RunText(std::string("start\n") + c.lines);
        EXPECT_EQ(outcome.printed, c.told);
        EXPECT_EQ(outcome.counts.failed, 1);
    }
}

TEST(Operator, WorksTheWindows) {
    CheckCases({
        {"resize",
         "start\nresize frmMain 900 650\nexpect frmMain.ScaleWidth 900\n"
         "expect frmMain.Height 9750\n",
         2},
        {"minimize and restore",
         "start\nminimize frmMain\nexpect frmMain.WindowState 1\n"
         "restore frmMain\nexpect frmMain.WindowState 0\n"
         "expect frmMain.ScaleWidth 768\n",
         3},
        {"maximize and restore",
         "start\nmaximize frmMain\nexpect frmMain.WindowState 2\n"
         "expect frmMain.ScaleWidth 1024\nexpect frmMain.ScaleHeight 768\n"
         "restore frmMain\nexpect frmMain.WindowState 0\n"
         "expect frmMain.ScaleWidth 768\n",
         5},
        {"close with No",
         "start\nanswer No\nclose frmMain\nbox \"Are you sure you want to Exit?\"\n"
         "ended no\n",
         2},
        {"close with Yes",
         "start\nanswer Yes\nclose frmMain\n"
         "box \"Are you sure you want to Exit?\"\nended yes\n",
         2},
        {"close another",
         "start\nclick mnuShowMessage\nclose frmDebug\n"
         "expect frmDebug.Visible False\nended no\n",
         2},
        {"activate",
         "start\nclick mnuShowMessage\nset MainTitle T\nactivate frmDebug\n"
         "expect frmDebug.Caption \"Message [T]\"\n",
         1},
    });
    const struct {
        const char* lines;
        const char* told;
    } cases[] = {
        {"resize frmMain 0 5\n", "s.scn:2: resize: \"0\" is not 1 to 32767 pixels\n"},
        {"resize frmMain 5 32768\n", "s.scn:2: resize: \"32768\" is not 1 to 32767 pixels\n"},
        {"resize frmDebug 50 50\n", "s.scn:2: resize: frmDebug is not visible\n"},
        {"close frmDebug\n", "s.scn:2: close: frmDebug is not visible\n"},
        {"activate frmDebug\n", "s.scn:2: activate: frmDebug is not visible\n"},
        {"answer Maybe\n", "s.scn:2: answer: \"Maybe\" is none of OK, Yes, No, Cancel, Retry\n"},
    };
    for (const auto& c : cases) EXPECT_EQ(Printed(c.lines), c.told);
}

TEST(Operator, WritesIntoTextBoxes) {
    CheckCases({
        {"set",
         "start\nset frmDebug.txtMessage abc\nexpect frmDebug.txtMessage abc\n"
         "expect frmDebug.txtMessage.SelStart 3\n",
         2},
        {"set by its property",
         "start\nset frmDebug.txtMessage.Text abc\n"
         "expect frmDebug.txtMessage abc\n",
         1},
        {"paste",
         "start\nclick mnuShowMessage\nset frmDebug.txtMessage ab\n"
         "paste frmDebug.txtMessage cd\nexpect frmDebug.txtMessage abcd\n",
         1},
        {"a paste that the program keeps from the box",
         "start\nclick mnuOpenPort\nclick mnuOpenTerminal\npaste frmTerminal.txtTerm ab\n"
         "advance 1\nsent ab\nexpect frmTerminal.txtTerm \"\"\n",
         2},
    });
    EXPECT_EQ(Printed("set lblCT x\n"), "s.scn:2: set: lblCT is no input\n");
    EXPECT_EQ(Printed("paste frmDebug.txtMessage x\n"),
              "s.scn:2: paste: frmDebug is not visible\n");
    EXPECT_EQ(Printed("type frmDebug.txtMessage x\n"), "s.scn:2: type: frmDebug is not visible\n");
}

// Runs the lines on a session whose message box has been given a key handler.
std::string TextAfterTyping(bool multiLine, const std::string& keys) {
    std::ostringstream out;
    std::istringstream script;
    Session session("s.scn", script, "", out);
    RunWords(session, 1, {"start"});
    RunWords(session, 2, {"click", "mnuShowMessage"});
    TextBox& box = session.Running().frmDebug.txtMessage;
    box.MultiLine = multiLine;
    // Throws "x" away and turns "y" into "z".
    box.KeyPress = [](Workstation&, int key) { return key == 'x' ? 0 : key == 'y' ? 'z' : key; };
    RunWords(session, 3, {"type", "frmDebug.txtMessage", keys});
    EXPECT_EQ(out.str(), "");
    return box.Text;
}

TEST(Operator, KeysPassTheHandlerOneByOne) {
    const struct {
        bool multiLine;
        const char* keys;
        const char* text;
    } cases[] = {
        {false, "abc", "abc"}, {false, "axyb", "azb"}, {true, "a\rb", "a\r\nb"},
        {false, "a\rb", "ab"}, {false, "ab\bc", "ac"}, {false, "\ba", "a"},
    };
    for (const auto& c : cases) EXPECT_EQ(TextAfterTyping(c.multiLine, c.keys), c.text) << c.keys;
}

TEST(Operator, DisabledFormAndInputTakeNothing) {
    std::ostringstream out;
    std::istringstream script;
    Session session("s.scn", script, "", out);
    RunWords(session, 1, {"start"});
    RunWords(session, 1, {"click", "mnuShowMessage"});
    Workstation& w = session.Running();
    w.frmDebug.txtMessage.Enabled = false;
    RunWords(session, 2, {"set", "frmDebug.txtMessage", "x"});
    w.frmMain.mnuMode.Enabled = false;
    RunWords(session, 3, {"click", "mnuOpenPort"});
    w.frmMain.Enabled = false;
    RunWords(session, 4, {"click", "mnuLogOn"});
    RunWords(session, 5, {"close", "frmMain"});
    EXPECT_EQ(out.str(),
              "s.scn:2: set: txtMessage is disabled\ns.scn:3: click: mnuMode is disabled\n"
              "s.scn:4: click: frmMain is disabled\ns.scn:5: close: frmMain is disabled\n");
    EXPECT_EQ(w.frmDebug.txtMessage.Text, "");
}

TEST(Machine, DiskAndFilesFail) {
    const char* save = "click mnuSaveSettingsNow\n";
    const struct {
        const char* before;
        bool saved;
    } cases[] = {
        {"", true},
        {"disk-full on\n", false},
        {"disk-full on\ndisk-full off\n", true},
        {"disk-full after 10\n", false},
        {"disk-full after 100000\n", true},
        {"disk-full once\n", false},
        {"file-error CUMERON1.INI 70\n", false},
    };
    for (const auto& c : cases) {
        std::ostringstream out;
        std::istringstream script(std::string("start\n") + c.before + save);
        Session session("s.scn", script, "", out);
        while (const auto line = session.script.Next()) RunLine(session, *line);
        const std::string name = session.machine.files.SettingsFolder() + "\\CUMERON1.INI";
        EXPECT_EQ(session.machine.files.Exists(name), c.saved) << c.before;
        EXPECT_EQ(out.str(), "") << c.before;
    }
    for (const char* wrong : {"disk-full\n", "disk-full maybe\n", "disk-full after\n",
                              "disk-full on 5\n", "disk-full after -1\n"}) {
        EXPECT_EQ(RunText(wrong).counts.failed, 1) << wrong;
    }
}

TEST(Machine, DiskSpaceIsWhatTheScriptSays) {
    std::ostringstream out;
    std::istringstream script;
    Session session("s.scn", script, "", out);
    RunWords(session, 1, {"disk-free", "C:", "1000"});
    EXPECT_EQ(session.machine.files.FreeDiskSpace("C:"), 1000);
    RunWords(session, 1, {"disk-free", "C:", "-1"});
    EXPECT_EQ(session.machine.files.FreeDiskSpace("C:"), std::nullopt);
}

TEST(Expectations, LookAtSurfaces) {
    std::ostringstream out;
    std::istringstream script;
    Session session("s.scn", script, "", out);
    RunWords(session, 1, {"start"});
    Surface& surface = session.Running().frmMain.picYLabels;
    surface.Width = 20;
    surface.Height = 30;
    surface.BackColor = 0xFFFFFF;
    surface.Cls();
    surface.PSet(3, 4, 0x0000FF);
    surface.CurrentX = 5;
    surface.CurrentY = 6;
    surface.Print("\xE9 1K");
    out.str("");
    RunWords(session, 2, {"pixel", "picYLabels", "3", "4", "&H0000FF"});
    RunWords(session, 2, {"pixel", "picYLabels", "3", "5", "16777215"});
    RunWords(session, 2, {"printed", "picYLabels", "\xE9 1K", "7", "4", "2"});
    RunWords(session, 2, {"show-column", "picYLabels", "3"});
    RunWords(session, 2, {"show-printed", "picYLabels"});
    EXPECT_EQ(session.counts.passed, 3);
    EXPECT_EQ(out.str(),
              "[[16777215,4],[255,1],[16777215,25]]\n"
              "[{\"colour\":0,\"text\":\"\\u00e9 1K\",\"x\":5,\"y\":6}]\n");
    out.str("");
    RunWords(session, 3, {"pixel", "picYLabels", "3", "4", "0"});
    RunWords(session, 4, {"pixel", "picYLabels", "99", "4", "0"});
    RunWords(session, 5, {"printed", "picYLabels", "\xE9 1K", "7", "4", "1"});
    RunWords(session, 6, {"printed", "picYLabels", "2K", "7", "4", "1"});
    RunWords(session, 7, {"show-column", "picYLabels", "20"});
    EXPECT_EQ(out.str(),
              "s.scn:3: pixel: expected &H000000, got &H0000FF\n"
              "s.scn:4: pixel: expected &H000000, got no pixel\n"
              "s.scn:5: printed: expected \"\\xE9 1K\" at 7 4, got it at 5 6\n"
              "s.scn:6: printed: expected \"2K\" at 7 4, got it nowhere\n"
              "s.scn:7: show-column: no column 20\n");
}

TEST(Expectations, CountLines) {
    CheckCases(
        {{"lines",
          "put-file A \"\"\nlines A 0\nput-file B \"a\\r\\n\\r\\nb\\nc\\r\\n\"\nlines B 3\n", 2}});
}

TEST(Show, PrintsOneJsonValueALine) {
    const struct {
        const char* lines;
        const char* printed;
    } cases[] = {
        {"put-file A \"\\x01\\xFF\\\"\"\nshow-file A\n", "\"\\u0001\\u00ff\\\"\"\n"},
        {"show-file A\n", "s.scn:2: show-file: no file A\n"},
        {"put-file A x\nput-file B x\nshow-files\n",
         "[\"C:\\\\CUMERON\\\\A\",\"C:\\\\CUMERON\\\\B\"]\n"},
        {"show-boxes\n", "[]\n"},
        {"port-error 8018\nclick mnuOpenPort\nbox-has 8018\nshow-boxes\n", "[]\n"},
        {"show-sent\n", "\"\"\n"},
        {"echo a \"b  c\" d # e\n", "a b  c d\n"},
        {"show mnuOpenPort.Caption\n", "\"&Open Port\"\n"},
    };
    for (const auto& c : cases) EXPECT_EQ(Printed(c.lines), c.printed) << c.lines;
    EXPECT_THAT(Printed("show-names frmDebug\n"),
                HasSubstr("{\"kind\":\"TextBox\",\"name\":\"txtMessage\"}"));
    EXPECT_THAT(Printed("show-names ConfigScrn\n"),
                testing::AllOf(HasSubstr("{\"kind\":\"ComboBox\",\"name\":\"cboPort\"}"),
                               HasSubstr("{\"kind\":\"OptionButton\",\"name\":\"Data8\"}"),
                               HasSubstr("{\"kind\":\"CheckBox\",\"name\":\"ChkModem\"}")));
    EXPECT_THAT(Printed("show-names frmMain\n"),
                HasSubstr("{\"kind\":\"ToolButton\",\"name\":\"Toolbar1.CloudHit\"}"));
}

TEST(Show, ProfileGoesToItsLastElement) {
    const std::string printed = Printed(
        "set ProfileSlot 3\nset ProfileRing(3).Profile(0) 7\n"
        "set ProfileRing(3).Profile(256) 8\n"
        "set ProfileLength 256\nshow-profile\n");
    EXPECT_THAT(printed, testing::StartsWith("[7,0,0"));
    EXPECT_THAT(Printed("set ProfileSlot 99\nshow-profile\n"), HasSubstr("show-profile: error 9"));
}

}  // namespace
}  // namespace cumeron
