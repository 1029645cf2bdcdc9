#include "shell/indicators.h"

#include "graphs/time_axis.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "platform/surface.h"
#include "workstation.h"

namespace cumeron {

namespace {

// Exactly one of the two is visible, so that the bar keeps its width.
void ShowPicture(Panel& picture, Panel& placeHolder, bool visible) {
    picture.Visible = visible;
    placeHolder.Visible = !visible;
}

// Three arrivals are there. Two equal spans between them are the interval; otherwise the oldest
// goes and the next arrival is compared in turn.
void SettleInterval(Workstation& w) {
    IntakeState& intake = w.intake;
    auto& times = intake.IntervalTimes;
    const auto first = DateDiffSeconds(times[0], times[1]);
    // A file that repeats a time, or runs backwards, tells no interval by it.
    if (first <= 0 || first != DateDiffSeconds(times[1], times[2])) {
        times[0] = times[1];
        times[1] = times[2];
        intake.IntervalSeekState = 2;
        return;
    }
    std::int16_t& interval = w.settings.Message_Interval;
    const int factor = CompressFactor(w.settings);
    // Before anything can fail: an interval longer than 16 bits count stops one record only.
    intake.IntervalSeekState = 4;
    const std::int16_t known = ToInt16(static_cast<double>(interval) / factor);
    if (first == known) {
        // kept: dividing and multiplying back rounds an interval that the factor does not divide.
        interval = Multiply16(known, factor);
    } else {
        interval = Multiply16(ToInt16(static_cast<double>(first)), factor);
        w.graphs.TimeLabelsDirty = -1;
        w.graphs.HeightLabelsDirty = -1;
        UpdateAxes(w);
    }
}

}  // namespace

void SetErrorsPanel(Workstation& w, std::string_view text, int colour) {
    auto& bar = w.frmMain.sbaStatus;
    bar.Errors.Text = text;
    ShowPicture(bar.Errors_Image, bar.Errors_Image_Void, colour == Red);
}

void SetStatusPanel(Workstation& w, std::string_view text, int colour) {
    auto& bar = w.frmMain.sbaStatus;
    bar.Status.Text = text;
    ShowPicture(bar.Status_Image, bar.Status_Image_Void, colour == Red);
    // With the port closed a replay shows the alarm, which is no cause to call anybody.
    if (colour == Red && w.comCTLine().PortOpen() && InStr(text, "ALARM") > 0) {
        w.platform.dialogs.Beep();
    }
    if (w.frmMain.mnuSkyCond.Checked) UpDateStatus(w, text, colour);
}

void SetBatteryPanel(Workstation& w, std::string_view text, int colour) {
    auto& bar = w.frmMain.sbaStatus;
    bar.Battery.Text = text;
    ShowPicture(bar.Battery_Image, bar.Battery_Image_Void, colour == Red);
}

void SetLogPanel(Workstation& w, std::string_view text) { w.frmMain.sbaStatus.Log.Text = text; }

void SetActionPanel(Workstation& w, std::string_view text) {
    w.frmMain.sbaStatus.Action.Text = text;
}

void SetBusyPointer(Workstation& w) { w.frmMain.MousePointer = BusyPointer; }

void SetDefaultPointer(Workstation& w) { w.frmMain.MousePointer = DefaultPointer; }

void ShowMessageTime(Workstation& w, double when) {
    Label& lblDateTime = w.frmMain.lblDateTime;
    lblDateTime.Caption = Format(when, "hh:nn:ss");
    // Up to a whole day it is a bare time of day.
    if (when > 1.0) lblDateTime.Caption = Format(when, "d-mmm") + " " + lblDateTime.Caption;
    lblDateTime.ForeColor = QBColor(Green);

    // From state 4 on the interval is known, and only the time is shown.
    IntakeState& intake = w.intake;
    if (intake.IntervalSeekState < 3) {
        intake.IntervalTimes.at(static_cast<std::size_t>(intake.IntervalSeekState)) = when;
        ++intake.IntervalSeekState;
    }
    if (intake.IntervalSeekState == 3) SettleInterval(w);
}

void ResetIndicators(Workstation& w) {
    ClearInstantValues(w);
    for (ProfileSlotRecord& slot : w.graphs.ProfileRing) slot.Valid = 0;
    SetErrorsPanel(w, "OFF-line", Red);
    SetBatteryPanel(w, "", Black);
}

void ReportError(Workstation& w, const RuntimeError& error) {
    std::string text = std::string("The following Error occurred:\r\n\r\n") + error.what() +
                       "\r\nError Number: " + std::to_string(error.Number);
    // Opening the line is the only use of a device while it is closed; then the cause can be named.
    if (error.Number == 68 && !w.comCTLine().PortOpen()) {
        text +=
            "\r\n\r\nCommunication port may already be in use\r\nor disk drive is not available."
            "\r\n";
    }
    w.platform.dialogs.Beep();
    w.platform.dialogs.MessageBox(text, BoxButtons::Ok);
}

}  // namespace cumeron
