// The print setup dialog: which printer or the PDF file, and what the program can ask of it. The
// printer of the host shows it.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <map>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace cumeron {

struct PrintChoice {
    std::string device;
    std::string pdfFile;
    std::map<PrinterProperty, std::int16_t> properties;  // all of them
};

class PrintSetupDialog : public QDialog {
public:
    // pdfDevice is the one of the devices that takes a file name. A current device that is not
    // among them leaves the first one chosen.
    PrintSetupDialog(const std::vector<std::string>& devices, const std::string& pdfDevice,
                     const PrintChoice& current, QWidget* owner);

    PrintChoice Choice() const;

private:
    void MakeLayout();
    void OfferPaper(std::int16_t current);
    void ShowCurrent(const PrintChoice& current);
    void FollowDevice();
    void Browse();

    QString pdf;
    QComboBox* device;
    QLineEdit* file;
    QPushButton* browse;
    QRadioButton* portrait;
    QRadioButton* landscape;
    QComboBox* paper;
    QComboBox* sides;
    QSpinBox* copies;
    QComboBox* colour;
    QPushButton* ok = nullptr;
};

}  // namespace cumeron
