#include "platform/host/printer.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>
#include <filesystem>

#include "platform/host/unicode.h"
#include "platform/print_records.h"
#include "platform/profile_file.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {
namespace {

constexpr const char* Section = "printer";
constexpr int PrinterError = 482, InvalidValue = 380;
constexpr std::int16_t Grey = 1, Colour = 2, A4Number = 9;
constexpr std::int16_t OneSide = 1, ShortEdge = 3, MostCopies = 9999;
constexpr int PointsPerInch = 72;
constexpr double PdfMargin = 10;  // mm

std::string ChoiceName(const Files& files) { return files.SettingsFolder() + "/printer.ini"; }

std::string ProposedPdf() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return FromFileName((folder + "/cumeron.pdf").toStdString());
}

QFont PageFont(int points) {
    QFont font;
    font.setPixelSize(points * PagePixelsPerInch / PointsPerInch);
    return font;
}

std::int16_t PaperNumber(const QPageSize& size) {
    const int number = size.windowsId();
    return number > 0 ? static_cast<std::int16_t>(number) : A4Number;
}

bool IsPaperNumber(std::int16_t number) { return QPageSize::id(number) != QPageSize::Custom; }

std::string LocationOf(const QString& name) {
    return FromUnicode(QPrinterInfo::printerInfo(name).location());
}

// How a printer that was just chosen stands.
std::int16_t FirstValue(const std::string& device, PrinterProperty property) {
    if (property == PrinterProperty::ColorMode) return Colour;
    if (property != PrinterProperty::PaperSize) return 1;
    const QPrinterInfo info = QPrinterInfo::printerInfo(ToUnicode(device));
    return info.isNull() ? A4Number : PaperNumber(info.defaultPageSize());
}

bool IsValue(PrinterProperty property, std::int16_t value) {
    switch (property) {
        case PrinterProperty::Orientation:
            return value == Portrait || value == Landscape;
        case PrinterProperty::PaperSize:
            return IsPaperNumber(value);
        case PrinterProperty::Duplex:
            return value >= OneSide && value <= ShortEdge;
        case PrinterProperty::Copies:
            return value >= 1 && value <= MostCopies;
        case PrinterProperty::ColorMode:
            return value == Grey || value == Colour;
    }
    return false;
}

void Draw(QPainter& painter, const PageText& text) {
    const QFont font = PageFont(text.points);
    painter.setFont(font);
    painter.drawText(QPointF(text.x, text.y + QFontMetricsF(font).ascent()), ToUnicode(text.text));
}

void Draw(QPainter& painter, const PagePicture& picture) {
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.pixelWidth,
                       picture.pixelHeight, picture.pixelWidth * 4, QImage::Format_RGB32);
    painter.drawImage(QRectF(picture.x, picture.y, picture.width, picture.height), image);
}

PagePicture InGrey(PagePicture picture) {
    for (std::uint32_t& pixel : picture.pixels) {
        const auto grey = static_cast<std::uint32_t>(qGray(pixel));
        pixel = 0xFF000000 | grey << 16 | grey << 8 | grey;
    }
    return picture;
}

}  // namespace

// ---- Which printer ----

HostPrinter::HostPrinter(Files& disk)
    : Installed(QPrinterInfo::availablePrinterNames),
      Usual(QPrinterInfo::defaultPrinterName),
      files(disk) {}

void HostPrinter::ReadChoice() {
    if (choiceRead) return;
    choiceRead = true;
    std::string text;
    // A missing or unreadable file is no choice.
    ResumeNext([&] { text = files.Read(ChoiceName(files)); });
    device = ProfileValue(text, Section, "Device", "");
    pdfFile = ProfileValue(text, Section, "File", ProposedPdf());
    const bool known = device == PdfDevice || Installed().contains(ToUnicode(device));
    if (!known) device = FromUnicode(Usual());
}

void HostPrinter::KeepChoice(const PrintChoice& choice) {
    pdfFile = choice.pdfFile;
    ResumeNext([&] {
        std::string text;
        ResumeNext([&] { text = files.Read(ChoiceName(files)); });
        text = WithProfileValue(text, Section, "Device", choice.device);
        text = WithProfileValue(text, Section, "File", "\"" + choice.pdfFile + "\"");
        files.Replace(ChoiceName(files), text);
    });
}

PrinterIdentity HostPrinter::Identity() {
    ReadChoice();
    if (device.empty()) return {};
    if (device == PdfDevice) return {PdfDevice, "PDF", pdfFile};
    return {device, "CUPS", LocationOf(ToUnicode(device))};
}

std::vector<PrinterIdentity> HostPrinter::Printers() {
    ReadChoice();
    std::vector<PrinterIdentity> all;
    for (const QString& name : Installed()) {
        all.push_back({FromUnicode(name), "CUPS", LocationOf(name)});
    }
    all.push_back({PdfDevice, "PDF", pdfFile});
    return all;
}

void HostPrinter::Select(const PrinterIdentity& chosen) {
    ReadChoice();
    device = chosen.DeviceName;
    properties.clear();
}

std::int16_t HostPrinter::Property(PrinterProperty property) {
    ReadChoice();
    if (device.empty()) throw RuntimeError(PrinterError);
    const auto found = properties.find(property);
    return found == properties.end() ? FirstValue(device, property) : found->second;
}

void HostPrinter::SetProperty(PrinterProperty property, std::int16_t value) {
    ReadChoice();
    if (device.empty()) throw RuntimeError(PrinterError);
    if (!IsValue(property, value)) throw RuntimeError(InvalidValue);
    properties[property] = value;
}

bool HostPrinter::ShowSetup(PrintSetupRecords& records) {
    ReadChoice();
    PrintChoice choice;
    choice.device = DeviceNameOf(records.devMode);
    choice.pdfFile = pdfFile;
    for (const DevModeField& field : DevModeFields) {
        const std::int16_t told = WordAt(records.devMode, field.offset);
        std::int16_t now = FirstValue(device, field.property);
        ResumeNext([&] { now = Property(field.property); });
        choice.properties[field.property] = IsValue(field.property, told) ? told : now;
    }
    std::vector<std::string> devices;
    for (const PrinterIdentity& identity : Printers()) devices.push_back(identity.DeviceName);
    PrintSetupDialog dialog(devices, PdfDevice, choice, Owner ? Owner() : nullptr);
    if (dialog.exec() != QDialog::Accepted) return false;
    choice = dialog.Choice();
    KeepChoice(choice);
    PutDeviceName(records.devMode, choice.device);
    for (const DevModeField& field : DevModeFields) {
        PutWord(records.devMode, field.offset, choice.properties[field.property]);
    }
    return true;
}

// ---- The page ----

void HostPrinter::SetUp(QPrinter& printer) {
    printer.setPrinterName(ToUnicode(device));
    printer.setResolution(PagePixelsPerInch);
    printer.setPageSize(QPageSize(QPageSize::id(Property(PrinterProperty::PaperSize))));
    printer.setPageOrientation(Property(PrinterProperty::Orientation) == Landscape
                                   ? QPageLayout::Landscape
                                   : QPageLayout::Portrait);
    constexpr QPrinter::DuplexMode sides[] = {QPrinter::DuplexNone, QPrinter::DuplexLongSide,
                                              QPrinter::DuplexShortSide};
    printer.setDuplex(sides[Property(PrinterProperty::Duplex) - OneSide]);
    printer.setCopyCount(Property(PrinterProperty::Copies));
    printer.setColorMode(Property(PrinterProperty::ColorMode) == Grey ? QPrinter::GrayScale
                                                                      : QPrinter::Color);
}

QPageLayout HostPrinter::Layout() {
    ReadChoice();
    if (device.empty()) throw RuntimeError(PrinterError);
    if (device != PdfDevice) {
        QPrinter printer(QPrinter::HighResolution);
        SetUp(printer);
        if (!printer.isValid()) throw RuntimeError(PrinterError);
        return printer.pageLayout();
    }
    return {QPageSize(QPageSize::id(Property(PrinterProperty::PaperSize))),
            Property(PrinterProperty::Orientation) == Landscape ? QPageLayout::Landscape
                                                                : QPageLayout::Portrait,
            QMarginsF(PdfMargin, PdfMargin, PdfMargin, PdfMargin), QPageLayout::Millimeter};
}

PageSize HostPrinter::PrintableArea() {
    const QRect area = Layout().paintRectPixels(PagePixelsPerInch);
    return {static_cast<double>(area.width()), static_cast<double>(area.height())};
}

double HostPrinter::LineHeight(int points) { return QFontMetricsF(PageFont(points)).lineSpacing(); }

void HostPrinter::Render(QPagedPaintDevice& paper, const std::vector<PageOperation>& operations) {
    QPainter painter;
    if (!painter.begin(&paper)) throw RuntimeError(PrinterError);
    // The labels in the picture stay as sharp as they are.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    const bool grey = Property(PrinterProperty::ColorMode) == Grey;
    for (const PageOperation& operation : operations) {
        const auto* picture = std::get_if<PagePicture>(&operation);
        if (picture != nullptr) {
            Draw(painter, grey ? InGrey(*picture) : *picture);
        } else {
            Draw(painter, std::get<PageText>(operation));
        }
    }
    if (!painter.end()) throw RuntimeError(PrinterError);
}

std::string HostPrinter::FreePdfName() {
    const std::filesystem::path chosen(pdfFile);
    const std::string stem = (chosen.parent_path() / chosen.stem()).string();
    std::string name = pdfFile;
    for (int number = 2; files.Exists(name); ++number) {
        name = stem + "-" + std::to_string(number) + chosen.extension().string();
    }
    return name;
}

void HostPrinter::SendToPdf(const std::vector<PageOperation>& operations) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter paper(&bytes);
    paper.setResolution(PagePixelsPerInch);
    paper.setPageLayout(Layout());
    paper.setCreator("Cumeron");
    Render(paper, operations);
    const QByteArray& written = bytes.data();
    files.Replace(FreePdfName(),
                  std::string_view(written.constData(), static_cast<std::size_t>(written.size())));
}

void HostPrinter::Send(const std::vector<PageOperation>& operations) {
    Layout();  // raises without a printer
    if (device == PdfDevice) return SendToPdf(operations);
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer);
    printer.setDocName("Cumeron");
    Render(printer, operations);
    if (printer.printerState() == QPrinter::Error) throw RuntimeError(PrinterError);
}

}  // namespace cumeron
