// Names of controls, properties, variables and functions, and what is told about unknown ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run_script.h"

namespace cumeron {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Names, ReachEveryKindOfThing) {
    const struct {
        const char* name;
        const char* value;
    } cases[] = {
        {"frmMain.lblDateTime.Visible", "True"},
        {"lblCT", "KN30"},
        {"frmMain", "\"CUMERON - Port 1\""},
        {"frmMain.Caption", "\"CUMERON - Port 1\""},
        {"frmMain.Enabled", "True"},
        {"frmMain.WindowState", "0"},
        {"frmMain.MousePointer", "0"},
        {"frmMain.Width", "11520"},
        {"frmMain.ScaleWidth", "768"},
        {"frmMain.ScaleHeight", "576"},
        {"frmDebug.Visible", "False"},
        {"frmDebug.txtMessage", "\"\""},
        {"mnuClosePort", "-1"},
        {"mnuOpenPort.Caption", "\"&Open Port\""},
        {"Toolbar1.ClosePort", "1"},
        {"frmMain.Toolbar1.ClosePort.Value", "1"},
        {"sbaStatus.Errors", "OFF-line"},
        {"sbaStatus.Errors_Image.Visible", "True"},
        {"CloudValue(0).Visible", "True"},
        {"tmrClock.Enabled", "True"},
        {"tmrClock.Interval", "1000"},
        {"tmrClock", "True"},
        {"comCTLine", "False"},
        {"comCTLine.Settings", "19200,n,8,1"},
        {"comCTLine.RThreshold", "1"},
        {"picLines.Top", "95"},
        {"ConfigScrn.Data8", "False"},
        {"ConfigScrn.Data8.Value", "0"},
        {"ConfigScrn.Data8.Caption", "8"},
        {"ConfigScrn.ChkModem", "0"},
        {"ConfigScrn.ChkModem.Caption", "Modem"},
        {"ConfigScrn.cboPort", "-1"},
        {"ConfigScrn.cboPort.ListCount", "15"},
        {"ConfigScrn.cboBaud.Text", "\"\""},
        {"frmCType.optCType(5).Caption", "TQ60"},
        {"frmSkyCond.lblCT_2.BackColor", "-1"},
        {"Message_Interval", "15"},
        {"MessageId", "0"},
        {"ProfileRing(3).Valid", "0"},
        {"ProfileRing(3).Profile(10)", "0"},
        {"SettingsFile", "CUMERON1.INI"},
        {"PosCloud1", "16"},
        {"FrameStart", "\"\\x01\""},
    };
    for (const auto& c : cases) {
        const Outcome outcome =
            RunText(std::string("start\nexpect ") + c.name + " " + c.value + "\n");
        EXPECT_EQ(outcome.counts.passed, 1) << outcome.printed;
    }
}

TEST(Names, SurfaceTellsItsSizeInItsScale) {
    EXPECT_EQ(Printed("resize frmMain 1000 700\nexpect-near picLines.ScaleHeight 500 499\n"
                      "expect-near picLines.ScaleWidth 500 499\n"),
              "");
}

TEST(Names, UnknownOnesAreToldWithThoseLikeThem) {
    const struct {
        const char* line;
        const char* told;
    } cases[] = {
        {"expect mnuOpenPrt 0", "s.scn:2: expect: unknown name mnuOpenPrt; known are mnuOpenPort"},
        {"expect frmMain.mnuOpenPrt 0", "unknown name frmMain.mnuOpenPrt; known are mnuOpenPort"},
        {"expect frmMain.mnuOpenPrt.Caption 0", "unknown name frmMain.mnuOpenPrt.Caption"},
        {"expect frmMain.Captoin x", "unknown name frmMain.Captoin; known are Caption"},
        {"expect lblCT.Text x", "unknown property Text; known are"},
        {"expect picLines 1", "a property of picLines is wanted; known are"},
        {"expect comCTLine.Speed 1", "unknown property Speed; known are"},
        {"expect Toolbar1.Nothing 1", "unknown name Toolbar1.Nothing"},
        {"expect CloudValue 1", "unknown name CloudValue"},
        {"expect CloudValue(3) 1", "unknown name CloudValue(3)"},
        {"expect ProfileRing(30).Valid 0", "error 9"},
        {"expect ProfileRing(-1).Valid 0", "error 9"},
        {"expect ProfileRing.Valid 0", "ProfileRing.Valid takes 1 numbers in brackets"},
        {"expect a..b 0", "malformed name a..b"},
        {"expect a(1 0", "malformed name a(1"},
        {"expect a(x) 0", "malformed name a(x)"},
        {"expect a(1)b 0", "malformed name a(1)b"},
        {"expect .a 0", "malformed name .a"},
        {"click mnuNothing", "click: unknown control mnuNothing"},
        {"click frmMain", "frmMain is a form, and no control"},
        {"click lblCT.Caption", "lblCT.Caption is no control"},
        {"resize frmOther 10 10", "unknown form frmOther; known are ConfigScrn frm"},
        {"pixel lblCT 0 0 0", "lblCT is no surface"},
        {"set MessageIdd 1", "unknown name MessageIdd; known are Message"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = RunText(std::string("start\n") + c.line + "\n");
        EXPECT_THAT(outcome.printed, HasSubstr(c.told)) << c.line;
        EXPECT_EQ(outcome.counts.failed, 1) << c.line;
    }
}

TEST(Names, NothingIsThereBeforeTheStart) {
    EXPECT_EQ(RunText("expect MessageId 0\n").printed,
              "s.scn:1: expect: the program has not been started\n");
}

TEST(Names, VariablesTakeWhatIsSet) {
    EXPECT_EQ(Printed("set MessageId 7\nexpect MessageId 7\n"
                      "set ProfileRing(2).Profile(5) -12\nexpect ProfileRing(2).Profile(5) -12\n"
                      "set FrameText \"&H10\"\nexpect FrameText \"&H10\"\n"
                      "set ProfileScale 1.5\nexpect ProfileScale 1.5\n"
                      "set Cloudhit_Color &H0000FF\nexpect Cloudhit_Color 255\n"
                      "set MessageTime \"2026-11-15 14:41:25\"\n"
                      "expect MessageTime \"2026-11-15 14:41:25\"\n"),
              "");
    EXPECT_EQ(Printed("set MessageId seven\n"), "s.scn:2: set: \"seven\" is no number\n");
}

TEST(Names, VariableListsArePrintedAsJson) {
    EXPECT_EQ(Printed("show MessageId\nshow SettingsFile\nshow ProfileScale\nshow mnuOpenPort\n"
                      "show MessageClockTime\nshow MessageTime\n"),
              "0\n\"CUMERON1.INI\"\n1.0\nfalse\n0.0\n\"2026-01-01 00:00:00\"\n");
}

}  // namespace
}  // namespace cumeron
