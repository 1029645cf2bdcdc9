#include "readings/status_words.h"

#include <cstdint>
#include <span>

#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

enum class BitKind { Trouble, State };  // Trouble: an alarm (A) or a warning (W)
using enum BitKind;

// A bit of the status word: digit 0 is the first hexadecimal digit of the word. Rows stand in the
// order of the lines.
struct StatusBit {
    BitKind kind;
    std::size_t digit;
    int mask;
    std::string_view set;
    std::string_view clear = "";       // "" : no line when the bit is clear
    std::string_view setOnRv70x = "";  // "" : as the other models
};

// 12 digits, bit 47 first.
constexpr StatusBit KnBits[] = {
    {Trouble, 0, 8, "Transmitter shut-off (A)"},
    {Trouble, 0, 4, "Transmitter failure (A)"},
    {Trouble, 0, 2, "Receiver failure (A)"},
    {Trouble, 0, 1, "voltage failure (A)"},  // kept: the small v of old status logs
    {Trouble, 1, 8, "Alignment failure (A)"},
    {Trouble, 1, 4, "Memory Error (A)"},
    {Trouble, 1, 2, "Light path obstruction (A)"},
    {Trouble, 1, 1, "Receiver saturation (A)"},
    {Trouble, 2, 8, "(Unknown b39) (A)"},
    {Trouble, 2, 4, "(Unknown b38) (A)"},
    {Trouble, 2, 2, "(Unknown b37) (A)"},
    {Trouble, 2, 1, "(Unknown b36) (A)"},
    {Trouble, 3, 8, "(Unknown b35) (A)"},
    {Trouble, 3, 4, "(Unknown b34) (A)"},
    {Trouble, 3, 2, "Coaxial cable failure (A)"},
    {Trouble, 3, 1, "Ceilometer engine board failure (A)"},
    {Trouble, 4, 8, "Window contamination (W)"},
    {Trouble, 4, 4, "Battery voltage low (W)"},
    {Trouble, 4, 2, "Transmitter expires (W)"},
    {Trouble, 4, 1, "High Humidity (W)"},
    {Trouble, 5, 8, "(Unknown b27) (W)"},
    {Trouble, 5, 4, "Blower failure (W)"},
    {Trouble, 5, 2, "(Unknown b25) (W)"},
    {Trouble, 5, 1, "Humidity sensor failure (W)"},
    {Trouble, 6, 8, "Heater fault (W)"},
    {Trouble, 6, 4, "High background radiance (W)"},
    {Trouble, 6, 2, "Ceilometer engine board failure (W)"},
    {Trouble, 6, 1, "Battery failure (W)"},
    {Trouble, 7, 8, "Laser monitor failure (W)"},
    {Trouble, 7, 4, "Receiver Warning (W)"},
    {Trouble, 7, 2, "Tilt angle > 45 deg warning (W)"},
    {Trouble, 7, 1, "(Unknown b16) (W)"},
    {State, 8, 8, "Blower is on"},
    {State, 8, 4, "Blower Heater is on"},
    {State, 8, 2, "Internal Heater is on"},
    {State, 8, 1, "Working from Battery"},
    {State, 9, 8, "Standby"},
    {State, 9, 4, "Self Test in progress"},
    {State, 9, 2, "Service mode is on (manual settings are effective)"},
    {State, 9, 1, "(Unknown b08)"},
    {State, 10, 8, "Units are meters", "Units are feet"},
    {State, 10, 4, "Manual Blower control"},
    {State, 10, 2, "Polling mode is on"},
    {State, 10, 1, "(spare b04)"},
    {State, 11, 8, "(spare b03)"},
    {State, 11, 4, "(spare b02)"},
    {State, 11, 2, "(spare b01)"},
    {State, 11, 1, "(spare b00)"},
};

// 8 digits, bit 31 first.
constexpr StatusBit RvBits[] = {
    {Trouble, 0, 8, "Laser Temperature shut-off (A)"},
    {Trouble, 0, 4, "Laser Failure (A)"},
    {Trouble, 0, 2, "Receiver failure (A)"},
    {Trouble, 0, 1, "Voltage failure (A)"},
    {Trouble, 1, 8, "Profile Error (A)"},
    {Trouble, 1, 4, "b26 Unknown (A)"},
    {Trouble, 1, 2, "b25 Unknown (A)"},
    {Trouble, 1, 1, "b24 Unknown (A)"},
    {Trouble, 2, 8, "Window contaminated (W)"},
    {Trouble, 2, 4, "Battery low (W)"},
    {Trouble, 2, 2, "Laser power low (W)"},
    {Trouble, 2, 1, "Laser temperature high or low (W)"},
    {Trouble, 3, 8, "Internal temperature high or low (W)"},
    {Trouble, 3, 4, "Voltage high or low (W)"},
    {Trouble, 3, 2, "Relative Humidity is > 85% (W)"},
    {Trouble, 3, 1, "Receiver optical cross-talk compensation poor (W)"},
    {Trouble, 4, 8, "Blower suspect (W)"},
    {Trouble, 4, 4, "Profile Warning (W)"},
    {Trouble, 4, 2, "b13 Unknown (W)"},
    {Trouble, 4, 1, "b12 Unknown (W)"},
    {State, 5, 8, "Blower is ON"},
    {State, 5, 4, "Blower Heater is ON"},
    {State, 5, 2, "Internal Heater is ON"},
    {State, 5, 1, "Units are METERS", "Units are FEET"},
    {State, 6, 8, "Polling mode is on"},
    {State, 6, 4, "Working from battery"},
    {State, 6, 2, "Single sequence mode is ON"},
    {State, 6, 1, "Manual settings are effective"},
    {State, 7, 8, "Tilt angle is > 45 degrees", "", "Elevation angle is < 45 degrees"},
    {State, 7, 4, "High background radiance"},
    {State, 7, 2, "Blower is manually controlled"},
    {State, 7, 1, "b00 Unknown"},
};

// 10 digits, each of them one flag.
constexpr StatusBit Rv10xBits[] = {
    {State, 0, 1, "HARDWARE ALARM "},  {State, 1, 1, "SUPPLY VOLTAGE ALARM"},
    {State, 2, 1, "LASER POWER LOW"},  {State, 3, 1, "TEMPERATURE ALARM"},
    {State, 4, 1, "SOLAR SHUTTER ON"}, {State, 5, 1, "BLOWER ON"},
    {State, 6, 1, "HEATER ON"},        {State, 7, 1, "UNIT IS METERS", "UNIT IS FEET"},
    {State, 8, 1, "SAVING MODE ON"},   {State, 9, 1, "POLLING MODE ON"},
};

constexpr std::int16_t Rv70x = 70;

std::string_view LineOf(const Workstation& w, const StatusBit& bit) {
    if ((w.readings.StatusDigits[bit.digit] & bit.mask) == 0) return bit.clear;
    return w.model.code == Rv70x && !bit.setOnRv70x.empty() ? bit.setOnRv70x : bit.set;
}

std::string WithLinesOf(const Workstation& w, std::string text, std::span<const StatusBit> bits,
                        BitKind kind) {
    for (const StatusBit& bit : bits) {
        const std::string_view line = bit.kind == kind ? LineOf(w, bit) : "";
        if (!line.empty()) text = AppendLine(text, line);
    }
    return text;
}

std::string IntervalLine(const Workstation& w) {
    const double interval = w.settings.Message_Interval;
    const std::string seconds = StrOf(RoundHalfEven(interval / CompressFactor(w.settings))) + " s";
    const bool known = w.intake.IntervalSeekState >= 4;
    return known ? "Message Interval:" + seconds
                 : "Message Interval: Not yet defined. (used value" + seconds + ")";
}

std::string WithTrouble(const Workstation& w, const std::string& text) {
    const std::string trouble = AlarmWarningText(w);
    return trouble.empty() ? text : AppendLine(text, trouble);
}

std::string KnText(const Workstation& w, std::string text) {
    text = WithTrouble(w, text);
    // kept: no blank before "degrees", the form in which this line has always been shown
    text = AppendLine(text, "Tilt Angle: " + w.readings.AngleText + "degrees");
    text = AppendLine(text, "Window Condition: " + w.readings.WindowCondition);
    return WithLinesOf(w, text, KnBits, State);
}

std::string RvText(const Workstation& w, std::string text) {
    if (HasAngleField(w.intake.MessageId)) {
        const char* name = w.model.code == Rv70x ? "Elevation Angle:" : "Tilt Angle:";
        text = AppendLine(text, name + w.readings.AngleText);
    }
    return WithLinesOf(w, WithTrouble(w, text), RvBits, State);
}

std::string ModelText(const Workstation& w, const std::string& text) {
    switch (w.model.family) {
        case Family::KN:
            return KnText(w, text);
        case Family::RV:
            return RvText(w, text);
        case Family::RV10X:
            return WithLinesOf(w, text, Rv10xBits, State);
        case Family::TQ60:
            break;  // its status word is not decoded
    }
    return text;
}

void SetStatusButtons(Workstation& w) {
    const bool portOpen = w.frmMain.mnuOpenPort.Checked;
    w.frmStatus.cmdViewStatuswnd.Enabled = portOpen;
    w.frmStatus.Fstatusbutton.Enabled = portOpen;
    w.frmStatus.Label1.Enabled = portOpen;
}

}  // namespace

std::string AppendLine(const std::string& text, std::string_view line) {
    return text.empty() ? std::string(line) : text + '\r' + std::string(line);
}

std::string AlarmWarningText(const Workstation& w) {
    // kept: RV10X words are read with the RV names too, whatever their digits hold, because notes
    // in status logs have always been written so.
    const auto bits = w.model.family == Family::KN ? std::span<const StatusBit>(KnBits)
                                                   : std::span<const StatusBit>(RvBits);
    return WithLinesOf(w, "", bits, Trouble);
}

void BuildStatusText(Workstation& w) {
    SetStatusButtons(w);
    w.readings.StatusText = ModelText(w, IntervalLine(w));
    if (w.frmStatus.Loaded && w.frmStatus.Paint) w.frmStatus.Paint(w);
}

}  // namespace cumeron
