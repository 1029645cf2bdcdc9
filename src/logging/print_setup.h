// The print setup: its dialog, the records that it is called with, and the settings that it leaves
// behind for the print jobs. The menu calls it, and each print job at its end.
#pragma once

#include <array>
#include <cstdint>

#include "platform/printer.h"

namespace cumeron {

struct Form;
struct Workstation;

inline constexpr std::int32_t SetupFlags = 64;  // the dialog that sets up and does not print

struct PrintState {
    std::array<std::uint8_t, 122> devMode{};  // as the last print setup left it
    std::int16_t settingsHeld = 0;            // 1: devMode holds something
};

// What the print setup dialog is called with: owner is the number of the form's window. Properties
// that the driver lacks stay 0.
PrintSetupRecords MakeSetupRecords(Printer& printer, std::int32_t owner, std::int32_t flags);
// Shows the dialog; when the operator agrees, selects the printer and keeps and applies what was
// chosen. Raises 380 or 482 when the printer refuses it.
void ShowPrintSetup(Workstation& w, const Form& form, std::int32_t flags);
// Gives the kept settings to the printer, if there are any; with 1 there are from now on.
void ApplyPrinterSettings(Workstation& w, std::int16_t flag);
void mnuPrintSetup_Click(Workstation& w);

}  // namespace cumeron
