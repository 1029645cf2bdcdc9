#include "logging/printing.h"

#include <string>

#include "logging/graph_picture.h"
#include "logging/print_setup.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int PrinterError = 482;
constexpr const char* NoPrinterText = "Printer Error. Check that printer is installed.";
constexpr int HeadingPoints = 11;
constexpr int ScaleModePixels = 3;
// Pixels of the page: where the picture begins, below the heading, and what it leaves free of the
// page's height.
constexpr int PictureTop = 300, RoomForHeading = 500;

// A page that is not finished when this goes is thrown away; the title below the graph and the
// printer's settings are then as they were before.
class BegunPage {
public:
    explicit BegunPage(Workstation& station)
        : w(station), titleBefore(station.frmMain.lblPrintXlabel.Caption) {
        w.platform.printer.ScaleMode = ScaleModePixels;
        w.platform.printer.FontSize = HeadingPoints;
    }
    ~BegunPage() {
        if (finished) return;
        w.platform.printer.KillDoc();
        w.frmMain.lblPrintXlabel.Caption = titleBefore;
        ResumeNext([&] { ApplyPrinterSettings(w, 0); });
    }
    BegunPage(const BegunPage&) = delete;
    BegunPage& operator=(const BegunPage&) = delete;
    void Finish() {
        w.platform.printer.EndDoc();
        ApplyPrinterSettings(w, 0);
        finished = true;
    }

private:
    Workstation& w;
    std::string titleBefore;
    bool finished = false;
};

// What the operator sees while a strip goes to the printer.
class PrintingShown {
public:
    explicit PrintingShown(Workstation& station) : w(station) {
        SetActionPanel(w, "Printing Graph");
        SetBusyPointer(w);
    }
    ~PrintingShown() {
        SetDefaultPointer(w);
        SetActionPanel(w, "");
    }
    PrintingShown(const PrintingShown&) = delete;
    PrintingShown& operator=(const PrintingShown&) = delete;

private:
    Workstation& w;
};

void PrintHeading(Workstation& w) {
    const double now = w.platform.clock.Now();
    w.platform.printer.Print("");
    w.platform.printer.Print(w.frmMain.Caption + ", " + Format(now, "Short Date") + " " +
                             Format(now, "ttttt"));
}

void PaintPage(Workstation& w) {
    Printer& printer = w.platform.printer;
    const Surface& picture = w.frmMain.picPrinting;
    const FittedSize size = FitToPage(picture.PixelWidth(), picture.PixelHeight(),
                                      printer.ScaleWidth(), printer.ScaleHeight());
    printer.PaintPicture(picture, 0, PictureTop, size.width, size.height);
}

// One page with the heading and what compose puts on picPrinting.
void PrintPage(Workstation& w, const std::function<void()>& compose) {
    BegunPage page(w);
    PrintHeading(w);
    compose();
    PaintPage(w);
    page.Finish();
}

void PrintView(Workstation& w) {
    const WhiteLabels labels(w);
    w.platform.events.DoEvents();
    PrintPage(w, [&] { ComposeView(w); });
}

void PrintWindow(Workstation& w) {
    PrintPage(w, [&] {
        Surface window;
        w.platform.pictures.GrabWindow(w.frmMain, window);
        Surface& page = w.frmMain.picPrinting;
        page.Width = window.PixelWidth();
        page.Height = window.PixelHeight();
        page.BitBlt(0, 0, window.PixelWidth(), window.PixelHeight(), window, 0, 0);
    });
}

void CopyView(Workstation& w) {
    const WhiteLabels labels(w);
    w.platform.events.DoEvents();
    ComposeView(w);
    w.platform.clipboard.Clear();
    w.platform.clipboard.SetPicture(w.frmMain.picPrinting);
}

void PrintStrip(Workstation& w) {
    const PrintingShown shown(w);
    ShowForm(w, w.frmMain);
    const WhiteLabels labels(w);
    w.platform.printer.SetProperty(PrinterProperty::Orientation, Landscape);
    PrintPage(w, [&] { ComposeCloudGraph(w); });
}

}  // namespace

FittedSize FitToPage(int pictureWidth, int pictureHeight, double pageWidth, double pageHeight) {
    if (pictureWidth <= 0 || pictureHeight <= 0) throw RuntimeError(11);
    const double room = pageHeight - RoomForHeading;
    if (room < 1 || pageWidth < 1) throw RuntimeError(PrinterError);
    const float ratio = static_cast<float>(pictureHeight) / static_cast<float>(pictureWidth);
    const FittedSize wide{ToInt32(pageWidth), ToInt32(static_cast<double>(ratio) * pageWidth)};
    if (wide.height <= room) return wide;
    return {ToInt32(room / static_cast<double>(ratio)), ToInt32(room)};
}

void TellPrintErrors(Workstation& w, const std::function<void()>& step, PrintErrors errors) {
    try {
        step();
    } catch (const RuntimeError& error) {
        const bool ofPrinter = error.Number == PrinterError;
        if (errors == PrintErrors::ToMessageWindow) {
            AddToMessageWindow(w, std::string("Printing Graph: ") +
                                      (ofPrinter ? NoPrinterText : error.what()) + "\r\n");
        } else if (ofPrinter) {
            w.platform.dialogs.MessageBox(NoPrinterText, BoxButtons::Ok);
        } else {
            ReportError(w, error);
        }
    }
}

void PrintGraph(Workstation& w, PrintErrors errors) {
    TellPrintErrors(
        w, [&] { PrintStrip(w); }, errors);
}

void mnuPrintGraph_Click(Workstation& w) {
    TellPrintErrors(w, [&] { PrintView(w); });
}

void mnuAutoPrint_Click(Workstation& w) {
    w.frmMain.mnuAutoPrint.Checked = !w.frmMain.mnuAutoPrint.Checked;
}

void mnuPrintScreen_Click(Workstation& w) {
    TellPrintErrors(w, [&] { PrintWindow(w); });
}

void mnuCopyPicture_Click(Workstation& w) {
    TellPrintErrors(w, [&] { CopyView(w); });
}

}  // namespace cumeron
