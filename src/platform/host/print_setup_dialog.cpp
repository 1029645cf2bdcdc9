#include "platform/host/print_setup_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSize>
#include <QVBoxLayout>

#include "platform/host/unicode.h"

namespace cumeron {
namespace {

constexpr QPageSize::PageSizeId Papers[] = {QPageSize::A4, QPageSize::A3, QPageSize::A5,
                                            QPageSize::Letter, QPageSize::Legal};
constexpr int MostCopies = 9999;

template <class Widget>
Widget* Named(const char* name, Widget* widget) {
    widget->setObjectName(name);
    return widget;
}

QWidget* Row(QWidget* first, QWidget* second, int stretch) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(first, stretch);
    layout->addWidget(second);
    if (stretch == 0) layout->addStretch();
    return row;
}

}  // namespace

PrintSetupDialog::PrintSetupDialog(const std::vector<std::string>& devices,
                                   const std::string& pdfDevice, const PrintChoice& current,
                                   QWidget* owner)
    : QDialog(owner),
      pdf(ToUnicode(pdfDevice)),
      device(Named("device", new QComboBox)),
      file(Named("file", new QLineEdit)),
      browse(Named("browse", new QPushButton("&Browse..."))),
      portrait(Named("portrait", new QRadioButton("P&ortrait"))),
      landscape(Named("landscape", new QRadioButton("&Landscape"))),
      paper(Named("paper", new QComboBox)),
      sides(Named("sides", new QComboBox)),
      copies(Named("copies", new QSpinBox)),
      colour(Named("colour", new QComboBox)) {
    setWindowTitle("Print Setup");
    for (const std::string& name : devices) device->addItem(ToUnicode(name));
    sides->addItems({"One side", "Both sides, long edge", "Both sides, short edge"});
    colour->addItems({"Grey", "Colour"});
    copies->setRange(1, MostCopies);
    file->setToolTip(
        "Each page goes to a file of its own: to a name that is taken a number is"
        " added");
    MakeLayout();
    ShowCurrent(current);
    connect(device, &QComboBox::currentIndexChanged, this, [this] { FollowDevice(); });
    connect(file, &QLineEdit::textChanged, this, [this] { FollowDevice(); });
    connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
    FollowDevice();
}

void PrintSetupDialog::MakeLayout() {
    auto* form = new QFormLayout;
    form->addRow("&Printer:", device);
    form->addRow("&File:", Row(file, browse, 1));
    form->addRow("Orientation:", Row(portrait, landscape, 0));
    form->addRow("P&aper:", paper);
    form->addRow("&Sides:", sides);
    form->addRow("&Copies:", copies);
    form->addRow("Colo&ur:", colour);
    // The buddy of a row is the widget in it that takes the keys.
    static_cast<QLabel*>(form->labelForField(file->parentWidget()))->setBuddy(file);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    constexpr int roomForPath = 420;
    setMinimumWidth(roomForPath);
}

// The usual sizes, and the one that is set.
void PrintSetupDialog::OfferPaper(std::int16_t current) {
    for (const QPageSize::PageSizeId id : Papers) {
        paper->addItem(QPageSize::name(id), QPageSize::windowsId(id));
    }
    if (paper->findData(current) < 0) {
        paper->addItem(QPageSize::name(QPageSize::id(current)), static_cast<int>(current));
    }
    paper->setCurrentIndex(paper->findData(current));
}

void PrintSetupDialog::ShowCurrent(const PrintChoice& current) {
    const auto value = [&](PrinterProperty property) { return current.properties.at(property); };
    const int known = device->findText(ToUnicode(current.device));
    device->setCurrentIndex(known >= 0 ? known : 0);
    file->setText(QString::fromStdString(ToFileName(current.pdfFile)));
    (value(PrinterProperty::Orientation) == Landscape ? landscape : portrait)->setChecked(true);
    OfferPaper(value(PrinterProperty::PaperSize));
    sides->setCurrentIndex(value(PrinterProperty::Duplex) - 1);
    copies->setValue(value(PrinterProperty::Copies));
    colour->setCurrentIndex(value(PrinterProperty::ColorMode) - 1);
}

// Only the PDF file has a name, which it needs; a file knows neither sides nor copies.
void PrintSetupDialog::FollowDevice() {
    const bool toFile = device->currentText() == pdf;
    file->setEnabled(toFile);
    browse->setEnabled(toFile);
    sides->setEnabled(!toFile);
    copies->setEnabled(!toFile);
    ok->setEnabled(!toFile || QFileInfo(file->text()).isAbsolute());
}

void PrintSetupDialog::Browse() {
    const QString name =
        QFileDialog::getSaveFileName(this, "Print to File", file->text(), "PDF documents (*.pdf)",
                                     nullptr, QFileDialog::DontConfirmOverwrite);
    if (!name.isEmpty()) file->setText(name);
}

PrintChoice PrintSetupDialog::Choice() const {
    const auto word = [](int number) { return static_cast<std::int16_t>(number); };
    return {FromUnicode(device->currentText()),
            FromFileName(file->text().toStdString()),
            {{PrinterProperty::Orientation, landscape->isChecked() ? Landscape : Portrait},
             {PrinterProperty::PaperSize, word(paper->currentData().toInt())},
             {PrinterProperty::Duplex, word(sides->currentIndex() + 1)},
             {PrinterProperty::Copies, word(copies->value())},
             {PrinterProperty::ColorMode, word(colour->currentIndex() + 1)}}};
}

}  // namespace cumeron
