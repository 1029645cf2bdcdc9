// The panels of the status bar, the date and time label, and the error box. Everything that has
// something to tell the operator calls it.
#pragma once

#include <string>
#include <string_view>

#include "platform/runtime/errors.h"

namespace cumeron {

struct Workstation;

// Colours of the sixteen: 4 is bad, 0 normal, 2 the live time.
inline constexpr int Black = 0;
inline constexpr int Green = 2;
inline constexpr int Red = 4;

void SetErrorsPanel(Workstation& w, std::string_view text, int colour);
void SetStatusPanel(Workstation& w, std::string_view text, int colour);
void SetBatteryPanel(Workstation& w, std::string_view text, int colour);
void SetLogPanel(Workstation& w, std::string_view text);
void SetActionPanel(Workstation& w, std::string_view text);
inline constexpr int BusyPointer = 11, DefaultPointer = 0;  // Form::MousePointer
// The hourglass and the arrow of frmMain.
void SetBusyPointer(Workstation& w);
void SetDefaultPointer(Workstation& w);
// Shows the time of a replayed message and measures the interval.
void ShowMessageTime(Workstation& w, double when);
// Values, status, battery and the profiles of the averaged plot are emptied: the end of off-line
// work.
void ResetIndicators(Workstation& w);
// The one error box: a beep, then the error's text and number.
void ReportError(Workstation& w, const RuntimeError& error);
// Runs one statement; its error is told, and the procedure goes on.
template <class Statement>
void ReportAndGoOn(Workstation& w, Statement statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        ReportError(w, error);
    }
}

}  // namespace cumeron
