#include "shell/settings.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graphs/axes.h"
#include "graphs/ranges.h"
#include "graphs/time_axis.h"
#include "intake/models.h"
#include "platform/profile_file.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr std::string_view Section = "CUMERON";
constexpr std::int16_t ShortestSavedInterval = 15;  // seconds

std::string SettingsPath(const Workstation& w) {
    const Files& files = w.platform.files;
    const char* separator = files.Style() == PathStyle::Windows ? "\\" : "/";
    return files.SettingsFolder() + separator + w.shell.SettingsFile;
}

// "" when there is no file. Raises what the reading raises.
std::string ReadSettingsFile(Workstation& w) {
    const std::string name = SettingsPath(w);
    return w.platform.files.Exists(name) ? w.platform.files.Read(name) : std::string();
}

float ToSingle(std::string_view text) {
    const double value = ToDouble(text);
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) throw RuntimeError(6);
    return static_cast<float>(value);
}

// Stores a text of the file, by the kind of place.
struct Storer {
    Workstation& w;
    const std::string& text;

    void operator()(std::string Settings::*place) const { w.settings.*place = text; }
    void operator()(std::int16_t Settings::*place) const { w.settings.*place = ToInt16(text); }
    void operator()(std::int32_t Settings::*place) const { w.settings.*place = ToInt32(text); }
    void operator()(double Settings::*place) const { w.settings.*place = TimeValue(text); }
    void operator()(float Settings::*place) const { w.settings.*place = ToSingle(text) / 10.0F; }
    void operator()(const SettingElement& place) const {
        (w.settings.*place.array)[place.index] = place.sixteenBit ? ToInt16(text) : ToInt32(text);
    }
    // A window's size in pixels is counted in 16 bits.
    void operator()(double Form::*place) const {
        const double value = ToSingle(text);
        if (place == &Form::Width || place == &Form::Height) ToInt16(value / TwipsPerPixel);
        w.frmMain.*place = value;
    }
    void operator()(int Form::*place) const { w.frmMain.*place = ToInt16(text); }
    void operator()(LineProperty place) const {
        if (place == LineProperty::Settings) {
            w.comCTLine().SetSettings(text);
        } else {
            w.comCTLine().SetCommPort(ToInt16(text));
        }
    }
};

// kept: a minute of one digit stands in a field of two and keeps a blank behind it, "6:0 ". The
// reader drops the blank, and older copies of the program write the same.
std::string TimeOfDayText(double when) {
    const DateParts parts = PartsOf(when);
    std::string minute = std::to_string(parts.minute);
    minute.resize(2, ' ');
    return std::to_string(parts.hour) + ":" + minute;
}

// A place of the window: whole twips, with the digits that a 32-bit float can tell.
std::string TwipsText(double value) {
    constexpr int significantDigits = 7;
    const double whole = RoundHalfEven(value);
    const double places = std::floor(std::log10(std::max(1.0, std::abs(whole)))) + 1;
    const double unit = std::pow(10.0, std::max(0.0, places - significantDigits));
    return NumberText(RoundHalfEven(whole / unit) * unit);
}

// The text for the file, by the kind of place.
struct Writer {
    Workstation& w;

    std::string operator()(std::string Settings::*place) const { return w.settings.*place; }
    std::string operator()(std::int16_t Settings::*place) const {
        return std::to_string(w.settings.*place);
    }
    std::string operator()(std::int32_t Settings::*place) const {
        return std::to_string(w.settings.*place);
    }
    std::string operator()(double Settings::*place) const {
        return TimeOfDayText(w.settings.*place);
    }
    // kept: the file holds whole tenths, so that 0.25 comes back as 0.2.
    std::string operator()(float Settings::*place) const {
        return std::to_string(ToInt16(w.settings.*place * 10.0F));
    }
    std::string operator()(const SettingElement& place) const {
        return std::to_string((w.settings.*place.array)[place.index]);
    }
    std::string operator()(double Form::*place) const { return TwipsText(w.frmMain.*place); }
    std::string operator()(int Form::*place) const { return std::to_string(w.frmMain.*place); }
    std::string operator()(LineProperty place) const {
        return place == LineProperty::Settings ? w.comCTLine().Settings()
                                               : std::to_string(w.comCTLine().CommPort());
    }
};

std::string FallbackOf(const Workstation& w, const SettingRow& row) {
    if (row.key == "Message_Interval") {
        return std::string(DefaultMessageInterval(w.settings.CEILOMETER));
    }
    return std::string(row.fallback);
}

// The file holds the plain interval. kept: what a save has taken out of Message_Interval stays out
// for the rest of the run, and no file holds less than 15 s.
void UnscaleInterval(Settings& settings) {
    const double plain = static_cast<double>(settings.Message_Interval) / CompressFactor(settings);
    settings.Message_Interval = std::max(ToInt16(plain), ShortestSavedInterval);
}

// Where frmSkyCond stands is noted with the keys of its place.
constexpr struct {
    std::string_view key;
    std::int16_t Settings::*setting;
    double Form::*place;
} SkyPlaces[] = {
    {"Sky_Win_Top", &Settings::Sky_Win_Top, &Form::Top},
    {"Sky_Win_Left", &Settings::Sky_Win_Left, &Form::Left},
    {"Sky_Win_Height", &Settings::Sky_Win_Height, &Form::Height},
    {"Sky_Win_Width", &Settings::Sky_Win_Width, &Form::Width},
};

void NoteSkyPlace(Workstation& w, std::string_view key) {
    for (const auto& row : SkyPlaces) {
        if (row.key == key) w.settings.*row.setting = ToInt16(w.frmSkyCond.*row.place);
    }
}

// Sets the keys in the text; a value that the file cannot hold is told and left out.
std::string WithKeys(Workstation& w, std::string text, std::span<const std::string_view> keys) {
    for (const std::string_view key : keys) {
        ReportAndGoOn(w, [&] {
            NoteSkyPlace(w, key);
            text = WithProfileValue(text, Section, key, SettingText(w, SettingOf(key)));
        });
    }
    return text;
}

// After a start that failed the variables behind the bad value hold nothing of the file: a save
// would overwrite the operator's settings with noughts.
void KeepOldFile(Workstation& w, const std::string& text) {
    if (!w.shell.startFailed) return;
    if (!text.empty()) w.platform.files.Replace(SettingsPath(w) + ".bak", text);
    w.shell.startFailed = false;
}

}  // namespace

int CompressFactor(const Settings& settings) {
    if (settings.Compress == 1) return 2;
    return settings.Compress == 2 ? 3 : 1;
}

void StoreSetting(Workstation& w, const SettingRow& row, const std::string& text) {
    std::visit(Storer{w, text}, row.place);
}

std::string SettingText(Workstation& w, const SettingRow& row) {
    return std::visit(Writer{w}, row.place);
}

SettingsReading OpenSettings(Workstation& w) {
    try {
        return {ReadSettingsFile(w), 0};
    } catch (const RuntimeError& error) {
        throw RuntimeError(75, error.SystemCode);
    }
}

void ReadSettingsThrough(Workstation& w, SettingsReading& reading, std::string_view lastKey) {
    const SettingRow* row = nullptr;
    do {
        row = &SettingTable()[reading.next];
        StoreSetting(w, *row, ProfileValue(reading.text, Section, row->key, FallbackOf(w, *row)));
        ++reading.next;
    } while (row->key != lastKey);
}

void SaveKeys(Workstation& w, std::span<const std::string_view> keys) {
    ReportAndGoOn(w, [&] {
        const std::string old = ReadSettingsFile(w);
        KeepOldFile(w, old);
        w.platform.files.Replace(SettingsPath(w), WithKeys(w, old, keys));
    });
}

void mnuSaveSettingsNow_Click(Workstation& w) {
    ReportAndGoOn(w, [&] {
        const std::string old = ReadSettingsFile(w);
        KeepOldFile(w, old);
        LoadForm(w, w.frmSkyCond);
        UnscaleInterval(w.settings);
        w.platform.files.Replace(SettingsPath(w), WithKeys(w, old, SavedKeys()));
    });
}

void mnuSaveSettings_Click(Workstation& w) {
    w.frmMain.mnuSaveSettings.Checked = !w.frmMain.mnuSaveSettings.Checked;
}

void mnuRestore_Click(Workstation& w) {
    if (w.frmMain.mnuOpenPort.Checked || w.frmMain.mnuFileOpen.Checked) {
        w.platform.dialogs.MessageBox("Close port and open log files before restoring defaults",
                                      BoxButtons::Ok);
        return;
    }
    RestoreDefaults(w);
}

void RestoreDefaults(Workstation& w) {
    for (const SettingRow& row : SettingTable()) {
        if (row.restored == nullptr) continue;
        ReportAndGoOn(w, [&] { StoreSetting(w, row, row.restored); });
    }
    MakeTitle(w);
    w.graphs.PreviousCloudmode = w.settings.Cloudmode;
    ApplySkySettings(w);
    // The plain interval: nothing shares a column from now on.
    if (IsModel(w.settings.CEILOMETER)) {
        w.settings.Message_Interval = ToInt16(DefaultMessageInterval(w.settings.CEILOMETER));
    }
    w.graphs.CompressPhase = 0;
    ReportAndGoOn(w, [&] { ApplyBackscatterRange(w); });
    ReportAndGoOn(w, [&] { ApplyCloudRange(w); });
    w.graphs.TimeLabelsDirty = -1;
    w.graphs.HeightLabelsDirty = -1;
    UpdateAxes(w);
    SetGraphCaptions(w);
    Form_Resize(w);
}

}  // namespace cumeron
