#include "logging/print_setup.h"

#include <algorithm>
#include <string>

#include "logging/printing.h"
#include "platform/print_records.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::int32_t DevModeHandle = 1, DevNamesHandle = 2;
constexpr std::int32_t GivenFields = 0x1003;  // orientation, paper size, duplex
constexpr PrinterProperty GivenProperties[] = {PrinterProperty::Orientation,
                                               PrinterProperty::PaperSize, PrinterProperty::Duplex};

std::int16_t Length(const std::string& text) { return ToInt16(static_cast<double>(text.size())); }

void FillPrintDlg(Bytes record, std::int32_t owner, std::int32_t flags) {
    PutLong(record, print_dlg::StructSize, static_cast<std::int32_t>(record.size()));
    PutLong(record, print_dlg::Owner, owner);
    PutLong(record, print_dlg::DevMode, DevModeHandle);
    PutLong(record, print_dlg::DevNames, DevNamesHandle);
    PutLong(record, print_dlg::Flags, flags);
}

void FillDevMode(Bytes record, Printer& printer) {
    PutFixedText(record, dev_mode::DeviceName, dev_mode::DeviceNameLength,
                 printer.Identity().DeviceName);
    PutWord(record, dev_mode::Size, static_cast<std::int16_t>(record.size()));
    PutLong(record, dev_mode::Fields, GivenFields);
    for (const DevModeField& field : DevModeFields) {
        const bool given = std::find(std::begin(GivenProperties), std::end(GivenProperties),
                                     field.property) != std::end(GivenProperties);
        if (!given) continue;
        ResumeNext([&] { PutWord(record, field.offset, printer.Property(field.property)); });
    }
}

void FillDevNames(Bytes record, const PrinterIdentity& identity) {
    const auto& [device, driver, port] = identity;
    const std::int16_t deviceOffset =
        Add16(static_cast<std::int16_t>(dev_names::Text), 1 + Length(driver));
    PutWord(record, dev_names::DriverOffset, static_cast<std::int16_t>(dev_names::Text));
    PutWord(record, dev_names::DeviceOffset, deviceOffset);
    // kept: counted by the length of the port, not of the device before it; dialogs go by the name
    // in the other record, and this is how it has always been told.
    PutWord(record, dev_names::OutputOffset, Add16(deviceOffset, 1 + Length(port)));
    PutWord(record, dev_names::Default, 0);
    PutFixedText(record, dev_names::Text, dev_names::TextLength,
                 driver + '\0' + device + '\0' + port + '\0');
}

std::int32_t WindowNumber(Workstation& w, const Form& form) {
    const std::vector<Form*> forms = w.Forms();
    return static_cast<std::int32_t>(std::find(forms.begin(), forms.end(), &form) - forms.begin()) +
           1;
}

// Names are compared in capitals and as far as the record can hold them. A name that no printer
// has leaves the printer as it is.
void SelectByName(Printer& printer, const std::string& name) {
    const std::string wanted = UpperCase(name);
    if (wanted == printer.Identity().DeviceName) return;
    for (const PrinterIdentity& identity : printer.Printers()) {
        if (UpperCase(AsInDevMode(identity.DeviceName)) == wanted) return printer.Select(identity);
    }
}

}  // namespace

PrintSetupRecords MakeSetupRecords(Printer& printer, std::int32_t owner, std::int32_t flags) {
    PrintSetupRecords records;
    FillPrintDlg(records.printDlg, owner, flags);
    FillDevMode(records.devMode, printer);
    FillDevNames(records.devNames, printer.Identity());
    return records;
}

void ShowPrintSetup(Workstation& w, const Form& form, std::int32_t flags) {
    Printer& printer = w.platform.printer;
    PrintSetupRecords records = MakeSetupRecords(printer, WindowNumber(w, form), flags);
    if (!printer.ShowSetup(records)) return;
    w.printing.devMode = records.devMode;
    SelectByName(printer, DeviceNameOf(records.devMode));
    w.platform.events.DoEvents();
    ApplyPrinterSettings(w, 1);
}

void ApplyPrinterSettings(Workstation& w, std::int16_t flag) {
    PrintState& state = w.printing;
    if (flag == 1) state.settingsHeld = 1;
    if (state.settingsHeld == 0) return;
    for (const DevModeField& field : DevModeFields) {
        w.platform.printer.SetProperty(field.property, WordAt(state.devMode, field.offset));
    }
}

void mnuPrintSetup_Click(Workstation& w) {
    TellPrintErrors(w, [&] { ShowPrintSetup(w, w.frmMain, SetupFlags); });
}

}  // namespace cumeron
