#include "readings/instant_values.h"

#include <cmath>
#include <cstdlib>

#include "graphs/axes.h"
#include "graphs/ranges.h"
#include "intake/decode.h"
#include "platform/runtime/text.h"
#include "platform/surface.h"
#include "readings/sky_condition.h"
#include "readings/status_words.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr long FieldLength = 5;      // of a cloud field
constexpr int TiltLimit = 14;        // degrees
constexpr long WindowPosition = 70;  // in a frame of the KN family without a sky condition block
constexpr long UnitLetterPosition = 78;  // in a frame of the TQ60

// How far a sky condition block pushes the fields behind it in a message of the KN family.
// kept: number 25 counts as pushed here; its fields have always been looked for there.
long KNExtra(std::int16_t messageId) {
    if (messageId < 3120 || messageId > 3129) return 0;
    return messageId == 3126 ? 42 : 37;
}

bool IsKn(const Workstation& w) { return w.model.family == Family::KN; }

void ShowAlarm(Workstation& w, std::string_view frame) {
    static constexpr struct {
        std::string_view characters, text;
        int colour;
    } alarms[] = {
        {"0", "Status: OK", Black},
        {"W", "Status: WARN", Red},
        {"A1456", "Status: ALARM", Red},
        {"2", "Setup altered", Red},
    };
    const std::string alarm = Mid(frame, w.model.PosAlarm, 1);
    for (const auto& row : alarms) {
        if (InStr(row.characters, alarm) > 0) return SetStatusPanel(w, row.text, row.colour);
    }
    SetStatusPanel(w, "Status: ?", Red);
}

bool Bit(const Workstation& w, std::size_t digit, int mask) {
    return (w.readings.StatusDigits[digit] & mask) != 0;
}

void ShowBattery(Workstation& w, bool working) {
    if (working) {
        SetBatteryPanel(w, "Working from Battery", Red);
    } else {
        SetBatteryPanel(w, "", Black);
    }
}

// Reads the status word, shows the battery and tells whether the instrument uses metres.
bool ReadStatusWord(Workstation& w, std::string_view frame) {
    if (w.model.family == Family::TQ60) {
        ShowBattery(w, false);
        return Mid(frame, UnitLetterPosition, 1) == "m";
    }
    DecodeStatusDigits(w, Mid(frame, w.model.PosStatus, w.model.statusDigits));
    switch (w.model.family) {
        case Family::KN:
            ShowBattery(w, Bit(w, 8, 1));
            return Bit(w, 10, 8);
        case Family::RV:
            ShowBattery(w, Bit(w, 6, 4));
            return Bit(w, 5, 1);
        default:  // RV10X knows no battery
            return Bit(w, 7, 1);
    }
}

std::string_view WindowVerdict(int percentage) {
    if (percentage < 21) return "% (Ceilometer Inoperative)";
    if (percentage < 35) return "% (Cleaning Required)";
    return percentage >= 70 ? "% (Ok)" : "% (Cleaning Recommended)";
}

void ReadWindowCondition(Workstation& w, std::string_view frame) {
    std::string text = Mid(frame, WindowPosition + KNExtra(w.intake.MessageId), 3);
    if (text.starts_with('0')) text.erase(0, 1);
    if (IsNumeric(text)) text += WindowVerdict(ToInt16(text));
    w.readings.WindowCondition = text;
}

void SetTilted(Workstation& w, std::int16_t tilted) {
    if (w.readings.Tilted == tilted) return;
    w.readings.Tilted = tilted;
    SetGraphCaptions(w);
}

void ReadAngle(Workstation& w, std::string_view frame) {
    ReadingsState& readings = w.readings;
    const long position = w.model.PosAngle + KNExtra(w.intake.MessageId);
    // The field is three wide with its sign, so an angle of two digits begins one place earlier.
    const std::string early = Mid(frame, position - 1, 3);
    const std::string late = Mid(frame, position, 3);
    readings.AngleText = early;
    if (IsNumeric(late)) {
        readings.AngleValue = ToInt16(std::floor(ToDouble(late)));
        const bool twoDigits = std::abs(readings.AngleValue) >= 10;
        readings.AngleText = twoDigits && !IsKn(w) ? early : late;
    }
    const bool upright = std::abs(readings.AngleValue - w.model.AngleOffset) < TiltLimit;
    SetTilted(w, upright ? 0 : 1);
}

// The stored heights, the limits that the user chose and the captions follow the instrument.
void ChangeUnits(Workstation& w, std::int16_t units) {
    w.settings.Units = units;
    w.settings.Clouds_Y_User_Defined = 0;
    ApplyCloudRange(w);
    SetGraphCaptions(w);
    w.settings.Backscatter_Y_User_Defined = 0;
    ApplyBackscatterRange(w);
    ConvertHistoryUnits(w);
    Form_Resize(w);
}

// The frame's caption also ends a display of last values.
void ShowUnit(Workstation& w, bool metres) {
    w.frmMain.fraValues.ForeColor = QBColor(Black);
    w.frmMain.fraValues.Caption = "Instant Values " + w.graphs.UnitLabel;
    const std::int16_t units = metres ? 1 : 0;
    if (w.settings.Units != units) ChangeUnits(w, units);
}

std::string Field(std::string_view frame, long position) {
    return Mid(frame, position, FieldLength);
}

std::string Height(std::string_view frame, long position) {
    const std::string text = Field(frame, position);
    return IsNumeric(text) ? text : "-----";
}

// True when a TQ60 sends its alternative pair of fields in place of the first field.
bool UsesAlternativeFields(const Workstation& w, std::string_view frame) {
    return w.model.family == Family::TQ60 && !IsNumeric(Field(frame, w.model.PosCloud1)) &&
           IsNumeric(Field(frame, w.model.PosCloud1Alt));
}

void ShowCloudValues(Workstation& w, std::string_view frame) {
    auto& values = w.frmMain.CloudValue;
    const bool alternative = UsesAlternativeFields(w, frame);
    values[0].Caption = Height(frame, alternative ? w.model.PosCloud1Alt : w.model.PosCloud1);
    values[1].Caption = Height(frame, alternative ? w.model.PosCloud2Alt : w.model.PosCloud2);
    values[2].Caption = Height(frame, w.model.PosCloud3);
}

void SetCloudLabels(Workstation& w, const char* first, const char* second, const char* third) {
    auto& labels = w.frmMain.lblCloudtext;
    labels[0].Caption = first;
    labels[1].Caption = second;
    labels[2].Caption = third;
}

void SetHeightLabels(Workstation& w) {
    SetCloudLabels(w, "Cloud Height 1", "Cloud Height 2", "Cloud Height 3");
}

void SetVisibilityLabels(Workstation& w) {
    SetCloudLabels(w, "V-Visibility", "Highest Signal", "Not Used");
    w.frmMain.CloudValue[2].Caption.clear();
}

void ShowLabels(Workstation& w, std::string_view frame) {
    const std::string detection = Mid(frame, w.model.PosDetection, 1);
    if (w.model.family != Family::RV10X) {
        const bool visibility = detection == "4" || UsesAlternativeFields(w, frame);
        return visibility ? SetVisibilityLabels(w) : SetHeightLabels(w);
    }
    if (detection == "3") {
        SetVisibilityLabels(w);
        w.frmMain.CloudValue[1].Caption = Field(frame, w.model.PosCloud3);
    } else {
        SetCloudLabels(w, "Cloud Height 1", "Cloud Height 2", "Not Used");
        w.frmMain.CloudValue[2].Caption.clear();
    }
}

}  // namespace

bool HasAngleField(std::int16_t messageId) {
    return messageId == 15 || messageId == 16 || messageId == 23 || messageId == 46;
}

void UpdateInstantValues(Workstation& w, std::string_view frame) {
    ShowAlarm(w, frame);
    const bool metres = ReadStatusWord(w, frame);
    // kept: the text is built before angle and window are read and so shows those of the message
    // before, as the status window always has.
    BuildStatusText(w);
    if (IsKn(w)) ReadWindowCondition(w, frame);
    if (IsKn(w) || HasAngleField(w.intake.MessageId)) ReadAngle(w, frame);
    ShowUnit(w, metres);
    ShowCloudValues(w, frame);
    ShowLabels(w, frame);
    UpdateSkyCondition(w, frame);
}

void ClearInstantValues(Workstation& w) {
    SetHeightLabels(w);
    for (Label& value : w.frmMain.CloudValue) value.Caption.clear();
    SetStatusPanel(w, "Status:    OK", Black);
    w.sky.SkyValid = 0;  // so that new sky settings do not bring the layers back
    ClearSkyFrame(w);
    if (w.frmMain.mnuSkyCond.Checked) ClearValues(w);
    DecodeStatusDigits(w, "000000000000");
}

}  // namespace cumeron
