// The printers of the desktop, and a PDF file that stands in for one. Which of them, and the name
// of that file, are kept in printer.ini of the settings folder ([printer] Device=, File=).
#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QStringList>
#include <functional>
#include <map>

#include "platform/files.h"
#include "platform/host/print_setup_dialog.h"
#include "platform/printer.h"

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace cumeron {

// The name by which the PDF file is chosen.
inline constexpr const char* PdfDevice = "PDF file";

class HostPrinter : public Printer {
public:
    explicit HostPrinter(Files& disk);

    // At first the printer of the last choice, else that of the desktop, else none.
    PrinterIdentity Identity() override;
    // The PDF file is always there.
    std::vector<PrinterIdentity> Printers() override;
    void Select(const PrinterIdentity& chosen) override;
    std::int16_t Property(PrinterProperty property) override;
    void SetProperty(PrinterProperty property, std::int16_t value) override;
    bool ShowSetup(PrintSetupRecords& records) override;

    // The window that the dialog stands in front of.
    std::function<QWidget*()> Owner;
    // The names of the printers that are set up on this machine, and that of the usual one.
    std::function<QStringList()> Installed;
    std::function<QString()> Usual;

private:
    PageSize PrintableArea() override;
    double LineHeight(int points) override;
    // Pages go to files of their own: a name that is taken gets "-2", "-3" and so on. Raises as
    // Files::Replace when the file cannot be written.
    void Send(const std::vector<PageOperation>& operations) override;

    void ReadChoice();
    void KeepChoice(const PrintChoice& choice);
    QPageLayout Layout();
    void SetUp(QPrinter& printer);
    void Render(QPagedPaintDevice& device, const std::vector<PageOperation>& operations);
    void SendToPdf(const std::vector<PageOperation>& operations);
    std::string FreePdfName();

    Files& files;
    bool choiceRead = false;
    std::string device, pdfFile;
    std::map<PrinterProperty, std::int16_t> properties;  // those that were set
};

}  // namespace cumeron
