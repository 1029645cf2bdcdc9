// Pages as they come out of the PDF file that stands in for a printer, drawn again and looked at;
// the print setup dialog; the clipboard; picture files.
#include "logging/printing.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include "logging/graph_picture.h"
#include "logging/print_setup.h"
#include "platform/host/print_setup_dialog.h"
#include "platform/print_records.h"
#include "view_support.h"

namespace cumeron {
namespace {

constexpr int Dpi = 200;
constexpr double PixelOfPage = static_cast<double>(Dpi) / PagePixelsPerInch;
constexpr double Margin = 10 / 25.4 * Dpi;                 // of the page, pixels of the drawing
constexpr int CloudInk = 0x0000FF, ProfileInk = 0xFF0000;  // red and blue

QImage ImageOf(const Surface& surface) {
    return QImage(reinterpret_cast<const uchar*>(surface.Pixels()), surface.PixelWidth(),
                  surface.PixelHeight(), QImage::Format_RGB32)
        .copy();
}

bool IsDark(QRgb pixel) { return qGray(pixel) < 110 && qRed(pixel) < 150 && qBlue(pixel) < 150; }
bool IsRed(QRgb pixel) { return qRed(pixel) > 200 && qGreen(pixel) < 60 && qBlue(pixel) < 60; }
bool IsBlue(QRgb pixel) { return qBlue(pixel) > 200 && qGreen(pixel) < 60 && qRed(pixel) < 60; }

// The smallest rectangle around the pixels that are so, within an area; empty when there are none.
QRect Around(const QImage& image, QRect area, bool (*is)(QRgb)) {
    QRect found;
    area &= image.rect();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (is(image.pixel(x, y))) found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

// The program on the desktop without any printer but the PDF file, which is chosen on demand.
struct PrintBench : testing::Test, ViewBench {
    QStringList boxes;

    PrintBench() {
        machine.printer.Installed = [] { return QStringList(); };
        machine.printer.Usual = [] { return QString(); };
        ShowMain();
        w.frmMain.Caption = "CUMERON - Port 1";
        w.graphs.ProfileXLow = -1000;
        w.graphs.ProfileXHigh = 1000;
        w.graphs.CloudYHigh = w.graphs.ProfileYHigh = 255;
        w.settings.Message_Interval = 15;
        w.settings.Split_Ratio = 0.5F;
        w.graphs.MessageTime = 46143.5;
        view.Sync();
    }
    std::string Pdf() const { return own.Path("page.pdf"); }
    void ChoosePdf() {
        machine.files.Replace(
            machine.files.SettingsFolder() + "/printer.ini",
            "[printer]\r\nDevice=" + std::string(PdfDevice) + "\r\nFile=" + Pdf() + "\r\n");
    }
    void Ink() {
        FrmMain& main = w.frmMain;
        main.picCombination.Fill(0, 0, 9999, 9999, CloudInk);
        main.picLines.Fill(0, 0, 9999, 9999, ProfileInk);
    }
    void Click(Control& control) { control.Click(w); }
    // Clicks while a step waits for the box or dialog that the click brings.
    void ClickAndThen(Control& control, std::function<void(QDialog&)> step) {
        QTimer pulse;
        QObject::connect(&pulse, &QTimer::timeout, &pulse, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            pulse.stop();
            step(*dialog);
        });
        pulse.start(5);
        Click(control);
    }
    void ClickAndNoteBox(Control& control) {
        ClickAndThen(control, [&](QDialog& dialog) {
            boxes.append(static_cast<QMessageBox&>(dialog).text());
            dialog.accept();
        });
    }
    static QImage Drawn(const std::string& pdf) {
        const QString program = QStandardPaths::findExecutable("pdftoppm");
        EXPECT_FALSE(program.isEmpty()) << "poppler-utils draw the pages";
        const QString out = QString::fromStdString(pdf) + ".drawn";
        QProcess::execute(program, {"-r", QString::number(Dpi), "-png", "-singlefile",
                                    QString::fromStdString(pdf), out});
        const QString keep = qEnvironmentVariable("CUMERON_KEEP_PAGES");
        if (!keep.isEmpty()) {
            static int number = 0;
            QFile::copy(out + ".png", keep + QString("/page-%1.png").arg(++number));
        }
        return QImage(out + ".png").convertToFormat(QImage::Format_RGB32);
    }
};

struct PageCase {
    const char* name;
    std::int16_t orientation;
    bool split;
};

struct PrintedPage : PrintBench, testing::WithParamInterface<PageCase> {
    // An area of the composed picture on the drawn page.
    QRect OnPage(int x, int y, int width, int height) const {
        const QRectF place(left + x * scale, top + y * scale, width * scale, height * scale);
        return place.toAlignedRect();
    }
    // Within one pixel of the picture on each side.
    void ExpectAt(const QRect& found, const QRect& expected, const char* what) const {
        const double tolerance = scale + 1;
        EXPECT_NEAR(found.left(), expected.left(), tolerance) << what;
        EXPECT_NEAR(found.top(), expected.top(), tolerance) << what;
        EXPECT_NEAR(found.right(), expected.right(), tolerance) << what;
        EXPECT_NEAR(found.bottom(), expected.bottom(), tolerance) << what;
    }
    double left = Margin, top = Margin + 300 * PixelOfPage, scale = 1;
};

TEST_P(PrintedPage, HasHeadingGraphAxesAndFrameWhereTheyBelong) {
    ChoosePdf();
    FrmMain& main = w.frmMain;
    if (GetParam().split) {
        main.mnuSplitScreen.Checked = main.mnuLinePlot.Checked = true;
        ArrangeSplitView(w);
    }
    Ink();
    machine.printer.SetProperty(PrinterProperty::Orientation, GetParam().orientation);
    Click(main.mnuPrintGraph);
    const QImage page = Drawn(Pdf());
    ASSERT_FALSE(page.isNull());

    // A4, upright or turned.
    const bool upright = GetParam().orientation == Portrait;
    EXPECT_NEAR(page.width(), (upright ? 210 : 297) / 25.4 * Dpi, 2);
    EXPECT_NEAR(page.height(), (upright ? 297 : 210) / 25.4 * Dpi, 2);

    const Surface& picture = main.picPrinting;
    machine.printer.ScaleMode = 3;
    const FittedSize size = FitToPage(picture.PixelWidth(), picture.PixelHeight(),
                                      machine.printer.ScaleWidth(), machine.printer.ScaleHeight());
    scale = size.width * PixelOfPage / picture.PixelWidth();
    EXPECT_LE(top + size.height * PixelOfPage, page.height() - Margin) << "on the paper";

    // The heading, and white between it and the picture.
    const QRect heading =
        Around(page, QRect(0, 0, page.width(), static_cast<int>(top) - 2), IsDark);
    ASSERT_FALSE(heading.isEmpty());
    EXPECT_NEAR(heading.left(), Margin, 4);
    EXPECT_GT(heading.top(), Margin + 60 * PixelOfPage) << "below an empty line";
    EXPECT_GT(heading.width(), 1000 * PixelOfPage);
    EXPECT_LT(heading.bottom(), top - 10 * PixelOfPage) << "not printed over";

    const int frameLeft = 24 + 44;
    const int width = main.picCombination.PixelWidth();
    const int height = main.picCombination.PixelHeight();
    // In the split view the frames stand on the columns where the graphs meet.
    const int hidden = GetParam().split ? 1 : 0;
    ExpectAt(Around(page, page.rect(), IsRed), OnPage(frameLeft + 1, 1, width - hidden, height),
             "graph");
    const QRect blue = Around(page, page.rect(), IsBlue);
    if (GetParam().split) {
        const int shown = std::min(width, main.picLines.PixelWidth());
        ExpectAt(blue, OnPage(frameLeft + width + 2, 1, shown - 1, height), "profile");
    } else {
        EXPECT_TRUE(blue.isEmpty());
    }

    // Frame: its left, right and lower edge; the upper one is the first row of the picture.
    const int right = picture.PixelWidth() - 1;
    for (const QRect& edge : {OnPage(frameLeft, height / 3, 1, 1), OnPage(right, height / 3, 1, 1),
                              OnPage(frameLeft + width / 2, height + 2, 1, 1),
                              OnPage(frameLeft + width / 2, 0, 1, 1)}) {
        EXPECT_FALSE(Around(page, edge, IsDark).isEmpty()) << edge.x() << " " << edge.y();
    }
    // Labels of the heights, of the time, and the two titles.
    for (const QRect& area :
         {OnPage(26, 1, 40, height - 4), OnPage(frameLeft + 1, height + 4, width - 2, 28),
          OnPage(2, 1, 20, height), OnPage(frameLeft + 1, height + 36, width, 16)}) {
        EXPECT_FALSE(Around(page, area, IsDark).isEmpty()) << area.x() << " " << area.y();
    }
    // The corner between the labels is paper.
    EXPECT_TRUE(Around(page, OnPage(26, height + 5, 36, 26), IsDark).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Pages, PrintedPage,
                         testing::Values(PageCase{"PortraitSingle", Portrait, false},
                                         PageCase{"LandscapeSingle", Landscape, false},
                                         PageCase{"PortraitSplit", Portrait, true},
                                         PageCase{"LandscapeSplit", Landscape, true}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(PrintBench, EachPageGetsAFileOfItsOwn) {
    ChoosePdf();
    WriteFile(Pdf(), "of yesterday");
    Click(w.frmMain.mnuPrintGraph);
    Click(w.frmMain.mnuPrintScreen);
    EXPECT_EQ(ReadFile(Pdf()), "of yesterday");
    for (const char* name : {"page-2.pdf", "page-3.pdf"}) {
        EXPECT_EQ(ReadFile(own.Path(name)).substr(0, 5), "%PDF-") << name;
    }
}

TEST_F(PrintBench, AGreyPageHasNoColour) {
    ChoosePdf();
    Ink();
    machine.printer.SetProperty(PrinterProperty::ColorMode, 1);
    Click(w.frmMain.mnuPrintGraph);
    const QImage page = Drawn(Pdf());
    EXPECT_TRUE(Around(page, page.rect(), IsRed).isEmpty());
    EXPECT_FALSE(Around(page, page.rect(), IsDark).isEmpty());
}

TEST_F(PrintBench, ThePrintedScreenIsTheWindow) {
    ChoosePdf();
    Ink();
    view.Sync();
    Click(w.frmMain.mnuPrintScreen);
    const Surface& picture = w.frmMain.picPrinting;
    EXPECT_EQ(ImageOf(picture),
              view.WindowOf(w.frmMain)->grab().toImage().convertToFormat(QImage::Format_RGB32));
    const QImage page = Drawn(Pdf());
    EXPECT_GT(Around(page, page.rect(), IsRed).width(), page.width() / 3);
}

TEST_F(PrintBench, WithoutAPrinterABoxSaysSo) {
    for (MenuEntry* entry : {&w.frmMain.mnuPrintGraph, &w.frmMain.mnuPrintScreen}) {
        boxes.clear();
        ClickAndNoteBox(*entry);
        EXPECT_EQ(boxes, QStringList("Printer Error. Check that printer is installed."));
        EXPECT_EQ(w.frmMain.picYLabels.BackColor, 0xF0F0F0);
    }
    EXPECT_EQ(machine.printer.Identity().DeviceName, "");
    EXPECT_EQ(ErrorOf([&] { machine.printer.Property(PrinterProperty::Copies); }), 482);
    EXPECT_EQ(ErrorOf([&] { machine.printer.SetProperty(PrinterProperty::Copies, 1); }), 482);
}

TEST_F(PrintBench, APrinterThatIsGoneIsAPrinterError) {
    machine.printer.Installed = [] { return QStringList("Ghost"); };
    machine.printer.Usual = [] { return QString("Ghost"); };
    EXPECT_EQ(machine.printer.Identity().DeviceName, "Ghost");
    EXPECT_EQ(machine.printer.Printers().size(), 2U);
    ClickAndNoteBox(w.frmMain.mnuPrintGraph);
    EXPECT_EQ(boxes, QStringList("Printer Error. Check that printer is installed."));
}

TEST_F(PrintBench, AFileThatCannotBeWrittenIsTold) {
    machine.files.Replace(machine.files.SettingsFolder() + "/printer.ini",
                          "[printer]\r\nDevice=PDF file\r\nFile=/dev/null/page.pdf\r\n");
    ClickAndNoteBox(w.frmMain.mnuPrintGraph);
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("Error Number: 76")) << boxes[0].toStdString();
    EXPECT_EQ(w.frmMain.picYLabels.BackColor, 0xF0F0F0);
}

TEST_F(PrintBench, ValuesThatThereAreNotAreRefused) {
    ChoosePdf();
    const struct {
        PrinterProperty property;
        int value, error;
    } cases[] = {
        {PrinterProperty::Orientation, 0, 380}, {PrinterProperty::Orientation, 3, 380},
        {PrinterProperty::PaperSize, 0, 380},   {PrinterProperty::PaperSize, 1, 0},
        {PrinterProperty::Duplex, 4, 380},      {PrinterProperty::Duplex, 2, 0},
        {PrinterProperty::Copies, 0, 380},      {PrinterProperty::Copies, 5, 0},
        {PrinterProperty::ColorMode, 3, 380},   {PrinterProperty::ColorMode, 1, 0},
    };
    for (const auto& c : cases) {
        const auto value = static_cast<std::int16_t>(c.value);
        EXPECT_EQ(ErrorOf([&] { machine.printer.SetProperty(c.property, value); }), c.error);
        if (c.error == 0) {
            EXPECT_EQ(machine.printer.Property(c.property), value);
        }
    }
    machine.printer.Select({PdfDevice, "PDF", Pdf()});
    EXPECT_EQ(machine.printer.Property(PrinterProperty::Copies), 1);
    EXPECT_EQ(machine.printer.Property(PrinterProperty::PaperSize), 9);
    EXPECT_EQ(machine.printer.Property(PrinterProperty::ColorMode), 2);
}

// ---- The dialog ----

TEST_F(PrintBench, TheDialogOffersThePdfFileAndKeepsTheChoice) {
    ClickAndThen(w.frmMain.mnuPrintSetup, [&](QDialog& dialog) {
        auto* device = dialog.findChild<QComboBox*>("device");
        ASSERT_EQ(device->count(), 1);
        EXPECT_EQ(device->currentText(), PdfDevice);
        auto* file = dialog.findChild<QLineEdit*>("file");
        auto* ok = dialog.findChild<QPushButton*>();
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isDefault()) ok = button;
        }
        file->setText("no folder.pdf");
        EXPECT_FALSE(ok->isEnabled());
        file->setText(QString::fromStdString(Pdf()));
        EXPECT_TRUE(ok->isEnabled());
        EXPECT_FALSE(dialog.findChild<QSpinBox*>("copies")->isEnabled()) << "a file has none";
        dialog.findChild<QRadioButton*>("landscape")->setChecked(true);
        auto* paper = dialog.findChild<QComboBox*>("paper");
        EXPECT_EQ(paper->currentText(), "A4");
        paper->setCurrentText("Letter / ANSI A");
        dialog.accept();
    });
    EXPECT_EQ(machine.printer.Identity().DeviceName, PdfDevice);
    EXPECT_EQ(machine.printer.Identity().Port, Pdf());
    EXPECT_EQ(machine.printer.Property(PrinterProperty::Orientation), Landscape);
    EXPECT_EQ(machine.printer.Property(PrinterProperty::PaperSize), 1);
    EXPECT_EQ(WordAt(w.printing.devMode, dev_mode::PaperSize), 1);
    Click(w.frmMain.mnuPrintGraph);
    EXPECT_EQ(ReadFile(Pdf()).substr(0, 5), "%PDF-");

    HostPrinter next(machine.files);
    next.Installed = [] { return QStringList(); };
    EXPECT_EQ(next.Identity().DeviceName, PdfDevice);
    EXPECT_EQ(next.Identity().Port, Pdf());
}

TEST_F(PrintBench, ACancelledDialogChangesNothing) {
    machine.printer.Installed = [] { return QStringList({"One", "Two"}); };
    machine.printer.Usual = [] { return QString("Two"); };
    ClickAndThen(w.frmMain.mnuPrintSetup, [&](QDialog& dialog) {
        auto* device = dialog.findChild<QComboBox*>("device");
        EXPECT_EQ(device->count(), 3);
        EXPECT_EQ(device->currentText(), "Two");
        EXPECT_FALSE(dialog.findChild<QLineEdit*>("file")->isEnabled());
        EXPECT_TRUE(dialog.findChild<QSpinBox*>("copies")->isEnabled());
        device->setCurrentIndex(0);
        dialog.reject();
    });
    EXPECT_EQ(machine.printer.Identity().DeviceName, "Two");
    EXPECT_EQ(w.printing.settingsHeld, 0);
    EXPECT_FALSE(machine.files.Exists(machine.files.SettingsFolder() + "/printer.ini"));
}

TEST_F(PrintBench, TheDialogGivesBackEverythingThatWasChosen) {
    PrintSetupDialog dialog({"One", "PDF file"}, "PDF file",
                            {"One",
                             "/x.pdf",
                             {{PrinterProperty::Orientation, Portrait},
                              {PrinterProperty::PaperSize, std::int16_t{13}},
                              {PrinterProperty::Duplex, std::int16_t{1}},
                              {PrinterProperty::Copies, std::int16_t{1}},
                              {PrinterProperty::ColorMode, std::int16_t{2}}}},
                            nullptr);
    EXPECT_EQ(dialog.Choice().properties[PrinterProperty::PaperSize], 13) << "an unusual size";
    dialog.findChild<QComboBox*>("sides")->setCurrentIndex(2);
    dialog.findChild<QSpinBox*>("copies")->setValue(7);
    dialog.findChild<QComboBox*>("colour")->setCurrentIndex(0);
    PrintChoice choice = dialog.Choice();
    EXPECT_EQ(choice.device, "One");
    EXPECT_EQ(choice.pdfFile, "/x.pdf");
    EXPECT_EQ(choice.properties[PrinterProperty::Orientation], Portrait);
    EXPECT_EQ(choice.properties[PrinterProperty::Duplex], 3);
    EXPECT_EQ(choice.properties[PrinterProperty::Copies], 7);
    EXPECT_EQ(choice.properties[PrinterProperty::ColorMode], 1);
}

// ---- The clipboard and picture files ----

TEST_F(PrintBench, TheCopiedPictureIsOnTheClipboard) {
    Ink();
    QApplication::clipboard()->setText("before");
    Click(w.frmMain.mnuCopyPicture);
    const QImage copied = QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(copied, ImageOf(w.frmMain.picPrinting));
    EXPECT_EQ(QApplication::clipboard()->text(), "");
    EXPECT_FALSE(Around(copied, copied.rect(), IsRed).isEmpty());
    machine.clipboard.Clear();
    EXPECT_TRUE(QApplication::clipboard()->image().isNull());
}

TEST_F(PrintBench, TheTitleOfTheHeightsIsDrawnInBlack) {
    Surface& title = w.frmMain.picPrintAltitude;
    for (const char* name :
         {"imgYaxisaltftBW", "imgYaxisaltMbw", "imgYaxisdisFTBW", "imgYaxisdisMbw"}) {
        title.Cls();
        title.PaintDrawing(name);
        const QRect text = Around(ImageOf(title), QRect(0, 0, 24, 160), IsDark);
        EXPECT_GT(text.height(), 60) << name;
        EXPECT_LT(text.width(), 20) << name;
    }
    const QImage before = ImageOf(title);
    title.PaintDrawing("no such drawing");
    EXPECT_EQ(ImageOf(title), before);
}

// The titles of the page are children of surfaces that are never seen.
TEST_F(PrintBench, NothingOfThePageIsSeenInTheWindow) {
    for (const char* name : {"imgYaxisaltftBW", "lblPrintXlabel", "picPrinting", "picCorner"}) {
        auto* widget = view.WindowOf(w.frmMain)->findChild<QWidget*>(name);
        ASSERT_NE(widget, nullptr) << name;
        EXPECT_FALSE(widget->isVisible()) << name;
    }
}

struct PictureFile : PrintBench {
    const PictureNotes notes{"CUMERON - Tower & \"Hill\"", "2026-05-01 10:00:00",
                             "2026-05-01 12:00:00", "2026-05-01 12:01:00"};
    QImage picture;
    PictureFile() {
        Ink();
        ComposeView(w);
        picture = ImageOf(w.frmMain.picPrinting);
    }
    QByteArray Encoded(PictureFormat format) {
        return QByteArray::fromStdString(
            machine.pictures.Encode(w.frmMain.picPrinting, format, notes));
    }
};

TEST_F(PictureFile, PngHasThePictureTheTitleAndTheTimes) {
    const QByteArray bytes = Encoded(PictureFormat::Png);
    const std::pair<const char*, std::string> texts[] = {{"Title", notes.title},
                                                         {"First Time", notes.firstTime},
                                                         {"Last Time", notes.lastTime},
                                                         {"Creation Time", notes.savedTime}};
    for (const auto& [key, text] : texts) {
        const std::string chunk = std::string("tEXt") + key + '\0' + text;
        EXPECT_TRUE(bytes.contains(QByteArray::fromStdString(chunk))) << key;
    }
    EXPECT_EQ(QImage::fromData(bytes, "png").convertToFormat(QImage::Format_RGB32), picture);
}

TEST_F(PictureFile, SvgHasThePictureTheTitleAndTheTimes) {
    const QByteArray bytes = Encoded(PictureFormat::Svg);
    EXPECT_TRUE(bytes.contains("<title>CUMERON - Tower &amp; &quot;Hill&quot;</title>"))
        << bytes.left(600).toStdString();
    EXPECT_TRUE(
        bytes.contains("First time: 2026-05-01 10:00:00\nLast time: 2026-05-01 12:00:00\n"
                       "Saved: 2026-05-01 12:01:00"));
    QImage drawn = QImage::fromData(bytes, "svg");
    EXPECT_TRUE(bytes.contains(
        QString("viewBox=\"0 0 %1 %2\"").arg(picture.width()).arg(picture.height()).toLatin1()));
    EXPECT_FALSE(Around(drawn, drawn.rect(), IsRed).isEmpty());
}

TEST_F(PictureFile, PdfHasThePictureTheTitleAndTheTimes) {
    const QByteArray bytes = Encoded(PictureFormat::Pdf);
    EXPECT_TRUE(bytes.contains("Last time: 2026-05-01 12:00:00"));
    EXPECT_TRUE(bytes.contains("<xmp:CreateDate>2026-05-01T12:01:00</xmp:CreateDate>"));
    EXPECT_TRUE(bytes.contains("CUMERON - Tower &amp; &quot;Hill&quot;"));
    WriteFile(Pdf(), bytes.toStdString());
    const QImage page = Drawn(Pdf());
    EXPECT_NEAR(page.width(), picture.width() * Dpi / 96.0, 4);
    const QRect red = Around(page, page.rect(), IsRed);
    EXPECT_NEAR(red.left(), 69 * Dpi / 96.0, 3);
    EXPECT_NEAR(red.width(), w.frmMain.picCombination.PixelWidth() * Dpi / 96.0, 4);
}

TEST_F(PictureFile, OfNoSizeIsRefused) {
    Surface none;
    for (const auto format : {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf}) {
        EXPECT_EQ(ErrorOf([&] { machine.pictures.Encode(none, format, notes); }), 5);
    }
}

TEST_F(PictureFile, AWindowThatIsNotSeenGivesNoPicture) {
    Surface into;
    into.Width = into.Height = 10;
    machine.pictures.GrabWindow(w.frmAbout, into);
    EXPECT_EQ(into.PixelWidth(), 0);
}

}  // namespace
}  // namespace cumeron
