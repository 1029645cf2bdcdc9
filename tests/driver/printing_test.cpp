// The printer, the clipboard and the print setup dialog in the hands of a script.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run_script.h"

namespace cumeron {
namespace {

TEST(PrintingCommands, HoldWhatTheyExpect) {
    const Outcome outcome = RunText(
        "clock \"2026-05-01 12:00:00\"\nstart\nadvance 1\n"
        "pages 0\nno-clipboard\n"
        "click mnuPrintGraph\nclick mnuPrintGraph\npages 2\npages 0\n"
        "page-has \"CUMERON - Port 1, 01.05.2026 12:00:01\"\npage-has \"\"\n"
        "click mnuCopyPicture\nclipboard picPrinting.Width picPrinting.Height\nclipboard 554 454\n"
        "expect Printer \"Office Printer\"\nexpect Printer.ScaleMode 3\n"
        "expect Printer.FontSize 11\nexpect Printer.Port LPT1:\n"
        "printer-setup cancel\nclick mnuPrintSetup\nexpect Printer.Orientation 1\n"
        "printer-setup Orientation=2 PaperSize=1 Duplex=3 Copies=4 ColorMode=1 "
        "\"DeviceName=Second Printer\"\nclick mnuPrintSetup\n"
        "expect Printer.DeviceName \"Second Printer\"\nexpect Printer.Orientation 2\n"
        "expect Printer.PaperSize 1\nexpect Printer.Duplex 3\nexpect Printer.Copies 4\n"
        "expect Printer.ColorMode 1\nexpect Printer.ScaleWidth 6716\n"
        "expect Printer.ScaleHeight 4661\n"
        "printer-error 482\nclick mnuPrintGraph\npages 0\nbox-has \"Printer Error.\"\n");
    EXPECT_EQ(outcome.printed, "");
    EXPECT_EQ(outcome.counts.passed, 24);
}

TEST(PrintingCommands, TellWhatFails) {
    const struct {
        const char* lines;
        const char* told;
    } cases[] = {
        {"pages 1\n", "s.scn:2: pages: expected 1, got 0\n"},
        {"page-has x\n", "s.scn:2: page-has: expected \"x\", got no page\n"},
        {"show-page\n", "s.scn:2: show-page: no page was printed\n"},
        {"click mnuPrintScreen\npage-has x\n",
         "s.scn:3: page-has: expected \"x\", got \"\" \"CUMERON - Port 1, 01.01.2026 00:00:00\"\n"},
        {"click mnuCopyPicture\nno-clipboard\n",
         "s.scn:3: no-clipboard: expected no picture, got 554 454\n"},
        {"click mnuCopyPicture\nclipboard 554 1\n",
         "s.scn:3: clipboard: expected 554 1, got 554 454\n"},
        {"printer-setup Colour=1\n",
         "s.scn:2: printer-setup: \"Colour=1\" is no KEY=VALUE of DeviceName, Orientation, "
         "PaperSize, Duplex, Copies, ColorMode\n"},
        {"printer-setup Copies\n",
         "s.scn:2: printer-setup: \"Copies\" is no KEY=VALUE of DeviceName, Orientation, "
         "PaperSize, Duplex, Copies, ColorMode\n"},
        {"printer-setup Copies=x\n", "s.scn:2: printer-setup: \"x\" is no number\n"},
        {"click mnuPrintSetup\n",
         "s.scn:2: click: no answer for the box \"print setup dialog\"; the run of this file "
         "ends\n"},
        {"expect Printer.Paper 1\n",
         "s.scn:2: expect: unknown property Paper; known are ColorMode Copies DeviceName "
         "DriverName Duplex FontSize Orientation PaperSize Port ScaleHeight ScaleMode "
         "ScaleWidth\n"},
    };
    for (const auto& c : cases) EXPECT_EQ(Printed(c.lines), c.told);
}

TEST(PrintingCommands, ShowThePageAsItWasSent) {
    EXPECT_EQ(Printed("click mnuPrintScreen\nshow-page\n"),
              "{\"height\":6716.0,\"operations\":[{\"size\":11,\"text\":\"\",\"x\":0.0,\"y\":0.0},"
              "{\"size\":11,\"text\":\"CUMERON - Port 1, 01.01.2026 00:00:00\",\"x\":0.0,"
              "\"y\":110.0},{\"height\":3496.0,\"picture\":[640,480],\"width\":4661.0,"
              "\"x\":0.0,\"y\":300.0}],\"orientation\":1,\"width\":4661.0}\n");
}

}  // namespace
}  // namespace cumeron
