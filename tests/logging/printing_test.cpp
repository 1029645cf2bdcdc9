#include "logging/printing.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graphs/graph_station.h"
#include "graphs/time_axis.h"
#include "logging/graph_picture.h"
#include "replay.h"
#include "shell/running_program.h"

namespace cumeron {
namespace {

constexpr const char* NoPrinter = "Printer Error. Check that printer is installed.";

TEST(FitToPage, IsAsWideAsThePageOrAsHighAsItLeavesRoom) {
    const struct {
        const char* what;
        int pictureWidth, pictureHeight;
        double pageWidth, pageHeight;
        int width, height;
    } cases[] = {
        {"wide picture", 1000, 500, 4000, 6000, 4000, 2000},
        {"just as high as the room", 1000, 1000, 4000, 4500, 4000, 4000},
        {"higher than the room", 1000, 1000, 4000, 4499, 3999, 3999},
        {"much higher than the page", 100, 1000, 4000, 3000, 250, 2500},
        {"rounded, halves to even", 8, 1, 4, 6000, 4, 0},
        {"rounded up", 3, 2, 4, 6000, 4, 3},
    };
    for (const auto& c : cases) {
        const FittedSize size =
            FitToPage(c.pictureWidth, c.pictureHeight, c.pageWidth, c.pageHeight);
        EXPECT_EQ(size.width, c.width) << c.what;
        EXPECT_EQ(size.height, c.height) << c.what;
    }
}

TEST(FitToPage, RefusesWhatHasNoSize) {
    const struct {
        int pictureWidth, pictureHeight;
        double pageWidth, pageHeight;
        int error;
    } cases[] = {
        {0, 10, 4000, 6000, 11},  {10, 0, 4000, 6000, 11}, {-1, 10, 4000, 6000, 11},
        {10, 10, 4000, 500, 482}, {10, 10, 0, 6000, 482},  {10, 10, 4000, 501, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(
            ErrorOf([&] { FitToPage(c.pictureWidth, c.pictureHeight, c.pageWidth, c.pageHeight); }),
            c.error);
    }
}

// A program whose graph is on the screen.
struct Printing : testing::Test, RunningProgram {
    ScriptedPrinter& printer = machine.printer;
    Printing() : RunningProgram("CEILOMETER=30\r\n") { machine.Advance(MicrosPerSecond); }

    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
    const PagePicture& Picture() {
        return std::get<PagePicture>(printer.LastPage()->operations.back());
    }
    std::string PageText(std::size_t i) {
        return std::get<cumeron::PageText>(printer.LastPage()->operations.at(i)).text;
    }
    int ColourOf(const Surface& surface) { return surface.Pixel(0, surface.PixelHeight() - 1); }
    // Everything that a page changes for a while.
    void ExpectPutBack(const char* what) {
        for (Surface* surface : {&Form().picYLabels, &Form().picXLabels, &Form().picYLabelsBack,
                                 &Form().picXLabelsBack, &Form().picCorner}) {
            EXPECT_EQ(surface->BackColor, 0xF0F0F0) << what;
            EXPECT_EQ(ColourOf(*surface), 0xF0F0F0) << what;
        }
        EXPECT_FALSE(Form().picXLabels.Printed().empty()) << what;
        EXPECT_FALSE(Form().picYLabels.Printed().empty()) << what;
        EXPECT_EQ(Form().MousePointer, 0) << what;
        EXPECT_EQ(Form().sbaStatus.Action.Text, "") << what;
        EXPECT_FALSE(Form().picPrintXlabel.Visible || Form().picPrintAltitude.Visible) << what;
    }
};

TEST_F(Printing, APageHasTheHeadingAndThePictureBelowIt) {
    Form().Caption = "CUMERON - Hill";
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(printer.TakePages(), 1);
    EXPECT_EQ(PageText(0), "");
    EXPECT_EQ(PageText(1), "CUMERON - Hill, 01.01.2026 00:00:02");
    ASSERT_EQ(printer.LastPage()->operations.size(), 3U);
    const auto& heading = std::get<cumeron::PageText>(printer.LastPage()->operations[1]);
    EXPECT_EQ(heading.points, 11);
    EXPECT_LT(heading.y + 11 * 600 / 72.0, Picture().y) << "not printed over";
    EXPECT_EQ(Picture().x, 0);
    EXPECT_EQ(Picture().y, 300);
    EXPECT_EQ(Picture().width, 4661);
    EXPECT_EQ(Picture().pixelWidth, Form().picCombination.PixelWidth() + 44 + 24 + 2);
    EXPECT_EQ(Picture().height,
              std::nearbyint(4661.0 * Picture().pixelHeight / Picture().pixelWidth));
    EXPECT_EQ(printer.LastPage()->orientation, 1);
    ExpectPutBack("printed");
}

TEST_F(Printing, ThePageShowsWhiteLabels) {
    Click(Form().mnuPrintGraph);
    const auto row = static_cast<std::size_t>(Picture().pixelHeight - 1);
    for (std::size_t y : {std::size_t{5}, row / 2, row}) {
        EXPECT_EQ(Picture().pixels.at(y * static_cast<std::size_t>(Picture().pixelWidth) + 26),
                  0xFFFFFFFF);
    }
}

TEST_F(Printing, AHighWindowFillsTheHeightOfThePage) {
    Resize(500, 1500);
    printer.SetProperty(PrinterProperty::Orientation, Landscape);
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(Picture().height, 4661 - 500);
    EXPECT_EQ(Picture().width,
              std::nearbyint((4661 - 500) /
                             static_cast<double>(static_cast<float>(Picture().pixelHeight) /
                                                 static_cast<float>(Picture().pixelWidth))));
}

TEST_F(Printing, TheScreenIsTheWholeWindow) {
    Click(Form().mnuPrintScreen);
    EXPECT_EQ(printer.TakePages(), 1);
    EXPECT_EQ(PageText(1), "CUMERON - Port 1, 01.01.2026 00:00:02");
    EXPECT_EQ(Picture().pixelWidth, Form().ScaleWidth());
    EXPECT_EQ(Picture().pixelHeight, Form().ScaleHeight());
    EXPECT_EQ(Form().picPrinting.PixelWidth(), Form().ScaleWidth());
    EXPECT_EQ(Picture().y, 300);
    EXPECT_EQ(Box(), "no box");
}

TEST_F(Printing, AWindowThatIsNotSeenIsToldAndPrintsNothing) {
    Form().WindowState = 1;
    Click(Form().mnuPrintScreen);
    EXPECT_NE(Box().find("Error Number: 11"), std::string::npos);
    EXPECT_EQ(printer.TakePages(), 0);
    Form().WindowState = 0;
    Click(Form().mnuPrintScreen);
    EXPECT_EQ(printer.LastPage()->operations.size(), 3U) << "nothing of the first page";
}

TEST_F(Printing, ErrorsAreToldAndEverythingIsPutBack) {
    const struct {
        const char* what;
        MenuEntry& entry;
        int error;
        const char* box;
    } cases[] = {
        {"graph, printer", Form().mnuPrintGraph, 482, NoPrinter},
        {"graph, other", Form().mnuPrintGraph, 57, "\r\nError Number: 57"},
        {"screen, printer", Form().mnuPrintScreen, 482, NoPrinter},
        {"screen, other", Form().mnuPrintScreen, 61, "\r\nError Number: 61"},
    };
    for (const auto& c : cases) {
        Form().lblPrintXlabel.Caption = "before";
        printer.nextError = c.error;
        Click(c.entry);
        EXPECT_NE(Box().find(c.box), std::string::npos) << c.what;
        EXPECT_EQ(Box(), "no box") << c.what;
        EXPECT_EQ(printer.TakePages(), 0) << c.what;
        EXPECT_EQ(Form().lblPrintXlabel.Caption, "before") << c.what;
        ExpectPutBack(c.what);
        Click(c.entry);
        EXPECT_EQ(printer.TakePages(), 1) << c.what;
        EXPECT_EQ(printer.LastPage()->operations.size(), 3U) << c.what;
    }
}

TEST_F(Printing, WithoutAnyPrinterEveryCommandSaysSo) {
    printer.installed.clear();
    for (MenuEntry* entry : {&Form().mnuPrintGraph, &Form().mnuPrintScreen}) {
        Click(*entry);
        EXPECT_EQ(Box(), NoPrinter);
        ExpectPutBack("no printer");
    }
}

TEST_F(Printing, SurfacesOfNoSizeStillGiveAPage) {
    Form().picCombination.Width = Form().picCombination.Height = 0;
    Form().picXLabels.Width = 0;
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(Box(), "no box");
    EXPECT_EQ(printer.TakePages(), 1);
}

TEST_F(Printing, MessagesThatArriveMeanwhileAreOnThePage) {
    Click(Form().mnuCloudhit);
    Click(Form().mnuOpenPort);
    Form().tmrClock.SetEnabled(true);
    machine.time.At(0, [&] {
        EXPECT_EQ(Form().picXLabels.BackColor, 0xFFFFFF) << "within the turn of the command";
        AddGraphColumn(W(), std::vector<std::int32_t>(400), false);
    });
    const std::int16_t before = W().graphs.CurrentColumn;
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(W().graphs.CurrentColumn, before + 1);
    // The mark of the message is at the foot of its column.
    const std::size_t x = 69 + static_cast<std::size_t>(before);
    const std::size_t y = static_cast<std::size_t>(Form().picCombination.PixelHeight()) - 1;
    EXPECT_EQ(Picture().pixels.at(y * static_cast<std::size_t>(Picture().pixelWidth) + x),
              PixelColour(QBColor(12)));
}

TEST_F(Printing, APageWithinAPageLeavesTheColoursAsTheyWere) {
    machine.time.At(0, [&] { Form().mnuPrintGraph.Click(W()); });
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(printer.TakePages(), 2);
    EXPECT_EQ(printer.LastPage()->operations.size(), 3U);
    ExpectPutBack("twice");
}

TEST_F(Printing, ACopyIsThePictureAndNoPage) {
    machine.clipboard.SetPicture(Surface());
    Click(Form().mnuCopyPicture);
    ASSERT_TRUE(machine.clipboard.picture);
    const Surface& copied = *machine.clipboard.picture;
    EXPECT_EQ(PixelsOf(copied), PixelsOf(Form().picPrinting));
    EXPECT_EQ(copied.PixelWidth(), Form().picCombination.PixelWidth() + 70);
    EXPECT_EQ(copied.Pixel(26, copied.PixelHeight() / 2), 0xFFFFFF);
    EXPECT_EQ(printer.TakePages(), 0);
    ExpectPutBack("copied");
}

TEST_F(Printing, TheMarkOfAutomaticPrintingGoesOnAndOff) {
    for (const bool on : {true, false}) {
        Click(Form().mnuAutoPrint);
        EXPECT_EQ(Form().mnuAutoPrint.Checked, on);
    }
}

TEST_F(Printing, TheStripIsPrintedInLandscapeWhateverTheView) {
    Form().mnuAutoPrint.Checked = true;
    Click(Form().mnuLinePlot);
    int turns = 0;
    machine.time.At(0, [&] { ++turns; });
    machine.Enter([&] { PrintGraph(W(), PrintErrors::ToBox); });
    EXPECT_EQ(turns, 0) << "no events run";
    EXPECT_EQ(printer.LastPage()->orientation, Landscape);
    EXPECT_EQ(PageText(1), "CUMERON - Port 1, 01.01.2026 00:00:02");
    EXPECT_EQ(Form().lblPrintXlabel.Caption, "                   TIME (h)");
    ComposeCloudGraph(W());
    EXPECT_EQ(Picture().pixelHeight, Form().picPrinting.PixelHeight());
    EXPECT_EQ(Picture().y, 300);
    ExpectPutBack("the strip");
}

// The window comes to the front, and pointer and status bar tell what goes on.
TEST_F(Printing, TheStripShowsTheWindow) {
    HideForm(Form());
    std::string seen;
    Form().Paint = [&](Workstation& w) {
        seen = w.frmMain.sbaStatus.Action.Text + " " + std::to_string(w.frmMain.MousePointer);
    };
    machine.Enter([&] { PrintGraph(W(), PrintErrors::ToBox); });
    EXPECT_TRUE(Form().Visible);
    EXPECT_EQ(seen, "Printing Graph 11");
}

TEST_F(Printing, ErrorsOfTheStripGoWhereTheyAreRead) {
    for (const int error : {482, 57}) {
        printer.nextError = error;
        machine.Enter([&] { PrintGraph(W(), PrintErrors::ToMessageWindow); });
        const std::string told = error == 482 ? NoPrinter : ErrorText(57);
        EXPECT_EQ(W().frmDebug.txtMessage.Text.substr(0, told.size() + 18),
                  "Printing Graph: " + told + "\r\n");
        EXPECT_EQ(Box(), "no box");
        ExpectPutBack("message window");
        printer.nextError = error;
        machine.Enter([&] { PrintGraph(W(), PrintErrors::ToBox); });
        EXPECT_NE(Box(), "no box");
        ExpectPutBack("box");
    }
}

// ---- The full strip: 100 columns, of which 98 are used ----

struct FullStrip : testing::Test, GraphStation {
    FullStrip() {
        w.frmMain.mnuAutoPrint.Checked = true;
        w.frmMain.Loaded = true;
        w.frmMain.ShownSinceLoad = true;
        for (int i = 0; i < 98; ++i) {
            Record(15 * i);
            Message(15 * i);
        }
    }
};

TEST_F(FullStrip, IsPrintedAndBeginsAnewAtItsLeftEdge) {
    ASSERT_EQ(machine.printer.TakePages(), 0);
    const std::string strip = MiddleOf(Picture());
    Record(15 * 98);
    Message(15 * 98);
    EXPECT_EQ(machine.printer.TakePages(), 1);
    const auto& page = std::get<PagePicture>(machine.printer.LastPage()->operations.back());
    EXPECT_EQ(page.pixelWidth, 100 + 44 + 24 + 2);
    std::string printed;
    for (int x = 0; x < 100; ++x) {
        const std::uint32_t pixel = page.pixels.at(static_cast<std::size_t>(31 * 170 + 69 + x));
        printed += pixel == 0xFFFFFFFF ? '.' : strip[0];
    }
    EXPECT_EQ(printed, strip) << "the whole strip";
    EXPECT_EQ(Graphs().CurrentColumn, 1);
    EXPECT_EQ(MiddleOf(Picture()), strip.substr(0, 1) + std::string(99, '.'));
    EXPECT_EQ(Graphs().HistoryIndex, 0);
    EXPECT_EQ(Graphs().HistoryWrapped, 0);
    EXPECT_FALSE(machine.dialogs.TakeBox());
}

TEST_F(FullStrip, MissingColumnsComeAtTheBeginningOfTheNext) {
    Message(15 * 101);
    EXPECT_EQ(machine.printer.TakePages(), 1);
    EXPECT_EQ(Graphs().CurrentColumn, 4);
    EXPECT_EQ(FootOf(Picture()).substr(0, 3), "RRR");
}

TEST_F(FullStrip, AGapLongerThanTheStripPrintsNothing) {
    Message(15 * 400);
    EXPECT_EQ(machine.printer.TakePages(), 0);
}

TEST_F(FullStrip, TheGridIsOnThePageAndOnTheNewStrip) {
    w.settings.Cloud_Show_Grid = 1;
    UpdateAxes(w);
    ASSERT_NE(Graphs().GridOnScreen, 0);
    const std::string strip = MiddleOf(Picture());
    Message(15 * 98);
    EXPECT_NE(Graphs().GridOnScreen, 0);
    const auto& page = std::get<PagePicture>(machine.printer.LastPage()->operations.back());
    int differing = 0;
    for (int x = 0; x < 98; ++x) {
        const std::uint32_t pixel = page.pixels.at(static_cast<std::size_t>(31 * 170 + 69 + x));
        differing += pixel != page.pixels.at(static_cast<std::size_t>(31 * 170 + 69)) ? 1 : 0;
    }
    EXPECT_GT(differing, 0) << "lines of the grid cross the row";
}

TEST_F(FullStrip, AFailingPrinterStopsNoReceptionAndTheStripBeginsAnewAllTheSame) {
    w.frmMain.picYLabels.BackColor = 0xC0C0C0;
    machine.printer.nextError = 482;
    Message(15 * 98);
    EXPECT_FALSE(machine.dialogs.TakeBox());
    EXPECT_NE(w.frmDebug.txtMessage.Text.find(NoPrinter), std::string::npos);
    EXPECT_EQ(Graphs().CurrentColumn, 1);
    EXPECT_EQ(w.frmMain.picYLabels.BackColor, 0xC0C0C0);
}

TEST_F(FullStrip, ARedrawScrollsAndPrintsNothing) {
    const std::int16_t newest = Graphs().HistoryIndex;
    Graphs().HistoryRedrawCount = 30;
    RedrawHistory(w);  // behind what stands there
    EXPECT_EQ(machine.printer.TakePages(), 0);
    EXPECT_EQ(Graphs().HistoryIndex, newest) << "nothing is forgotten";
    EXPECT_EQ(Graphs().CurrentColumn, 98);
}

TEST_F(FullStrip, WithoutTheMarkItScrolls) {
    w.frmMain.mnuAutoPrint.Checked = false;
    Message(15 * 98);
    EXPECT_EQ(machine.printer.TakePages(), 0);
    EXPECT_EQ(Graphs().CurrentColumn, 98);
}

// ---- The end of a replay ----

TEST(ReplayEnd, IsPrintedBeforeItIsTold) {
    Replay replay;
    replay.Form().mnuAutoPrint.Checked = true;
    replay.OpenLog(KnLog(3));
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.machine.printer.TakePages(), 1);
    EXPECT_EQ(replay.machine.printer.LastPage()->orientation, Landscape);
    EXPECT_EQ(replay.Form().sbaStatus.Action.Text, "");
}

TEST(ReplayEnd, AnErrorIsToldInABox) {
    Replay replay;
    replay.Form().mnuAutoPrint.Checked = true;
    replay.machine.printer.nextError = 482;
    replay.OpenLog(KnLog(3));
    EXPECT_EQ(replay.Box(), NoPrinter);
    EXPECT_EQ(replay.Box(), "End of file");
    EXPECT_EQ(replay.Buttons(), "SBC");
}

TEST(ReplayEnd, EventsRunBetweenThePageAndTheBox) {
    Replay replay;
    replay.Form().mnuAutoPrint.Checked = true;
    bool ran = false;
    replay.machine.printer.nextError = 482;
    replay.machine.time.At(0, [&] { ran = replay.machine.dialogs.Boxes().size() == 1; });
    replay.OpenLog(KnLog(3));
    EXPECT_TRUE(ran);
}

TEST(ReplayEnd, WhatTheTurnBehindThePageDoesIsHeeded) {
    const struct {
        const char* what;
        void (*act)(Replay&);
        std::vector<std::string> boxes;
        std::string buttons;
        int record;
    } cases[] = {
        {"the file is closed", [](Replay& r) { r.Click(r.Bar().CloseFile); }, {}, "", 3},
        {"another file is opened", [](Replay& r) { r.Open(B); }, {"End of file"}, "SBC", 7},
        {"a stop has nothing to stop",
         [](Replay& r) { r.Click(r.Bar().Stop); },
         {"End of file"},
         "SBC",
         3},
    };
    for (const auto& c : cases) {
        Replay replay;
        replay.machine.files.Put(B, KnLog(7));
        replay.Click(replay.Form().mnuAutoPrint);
        replay.machine.time.At(0, [&] {
            replay.Form().mnuAutoPrint.Checked = false;  // one page is enough
            c.act(replay);
        });
        replay.OpenLog(KnLog(3));
        for (const std::string& box : c.boxes) EXPECT_EQ(replay.Box(), box) << c.what;
        EXPECT_EQ(replay.Box(), "no box") << c.what;
        EXPECT_EQ(replay.Buttons(), c.buttons) << c.what;
        EXPECT_EQ(replay.State().OfflineMessageNo, c.record) << c.what;
        EXPECT_EQ(replay.w().intake.ReplayBusy, 0) << c.what;
        EXPECT_TRUE(c.buttons.empty() || replay.State().PlayStopRequested == 0) << c.what;
    }
}

TEST(ReplayEnd, StoppedOrWithoutTheMarkPrintsNothing) {
    Replay replay;
    replay.OpenLog(KnLog(30));
    EXPECT_EQ(replay.machine.printer.TakePages(), 0);
    replay.Form().mnuAutoPrint.Checked = true;
    replay.Click(replay.Bar().Start);
    replay.machine.time.At(0, [&] { ToolbarStop_Click(replay.w()); });
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.machine.printer.TakePages(), 0);
    replay.Click(replay.Bar().Play);
    EXPECT_EQ(replay.machine.printer.TakePages(), 1);
}

}  // namespace
}  // namespace cumeron
