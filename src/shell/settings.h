// The settings: one variable per key of the settings file, the table that names them, and the
// procedures that read and save the file. The start reads them; menu entries save and restore.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/form.h"

namespace cumeron {

struct Workstation;

struct Settings {
    std::string Modem_Initialization_String;
    std::int16_t Modem_used = 0;  // non-zero: a modem is in use
    std::string Terminal_Settings;
    std::int16_t Start_Of_Information = 0;  // position in FrameText where the Payload begins
    double File_Length = 0;                 // length of a log file, fraction of a day
    std::string File_Char;
    std::string Log_File_Path;
    std::int16_t Status_Log = 0;
    std::int16_t Enable_Zip = 0;
    std::int16_t Del_After_Zip = 0;
    std::string Zip_File_Path;
    std::string Zip_Exe;
    std::string Main_Caption;
    std::int32_t Backscatter_X_Low_Value = 0;  // plot units
    std::int32_t Backscatter_X_High_Value = 0;
    std::int16_t Backscatter_X_User_Defined = 0;
    std::int32_t Backscatter_Y_Low_Value = 0;  // feet or metres, as Units says
    std::int32_t Backscatter_Y_High_Value = 0;
    std::int16_t Backscatter_Y_User_Defined = 0;
    std::int16_t Backscatter_Mode = 0;
    std::int16_t Backscatter_Averages = 0;
    std::int16_t Back_Draw_Width = 0;
    std::int16_t Step_Linear = 0;
    std::int16_t Back_Step_Linear = 0;
    std::int16_t Units = 0;  // 1 metres, 0 feet; follows the instrument
    std::int16_t Cloud_Show_Grid = 0;
    std::int16_t Backscatter_Show_Grid = 0;
    std::int32_t Clouds_Y_Low_Value = 0;  // feet or metres
    std::int32_t Clouds_Y_High_Value = 0;
    std::int16_t Clouds_Y_User_Defined = 0;
    std::array<std::int32_t, 5> Clouds_Limit{};  // Clouds_Limit_0 to 4; read as 16-bit
    std::array<std::int32_t, 5> Clouds_Color{};  // Clouds_Color_0 to 4; 00BBGGRR
    std::int32_t Cloudhit_Color = 0;             // 00BBGGRR
    std::int32_t Vertical_V_Color = 0;
    std::int32_t Highest_S_Color = 0;
    std::int16_t Chit_Point_Size = 0;
    std::int16_t Cloudmode = 0;  // 0 intensity, 1 detection, 2 both
    std::int16_t Compress = 0;   // 0, 1, 2: one, two, three messages to a column
    float Split_Ratio = 0;       // share of the cloud graph in the split view; tenths in the file
    std::int16_t Cloud_Amount = 0;
    std::int16_t Show_Sky_Cond = 0;
    std::int16_t Sky_Cond_On_Top = 0;
    std::int16_t Sky_Win_Top = 0;  // twips
    std::int16_t Sky_Win_Left = 0;
    std::int16_t Sky_Win_Height = 4356;
    std::int16_t Sky_Win_Width = 5256;
    std::int16_t CEILOMETER = 0;        // model code
    std::int16_t Message_Interval = 0;  // seconds to a column: the interval times CompressFactor
    std::int16_t Port_open = 0;
    std::int16_t Log_on = 0;
};

// How many messages share a column of the graph, from Compress: 2 for 1, 3 for 2, else 1.
int CompressFactor(const Settings& settings);

// One colour or limit of the cloud graph. A limit is held in 32 bits and read as 16.
struct SettingElement {
    std::array<std::int32_t, 5> Settings::*array;
    std::size_t index;
    bool sixteenBit;
};
enum class LineProperty { Settings, CommPort };

// Where a setting is held. The type also tells the form of its value in the file: a double of
// Settings is a time of day ("06:00"), a float a fraction told in tenths ("5" is 0.5), a double
// of the form a place in twips.
using SettingPlace = std::variant<std::string Settings::*, std::int16_t Settings::*,
                                  std::int32_t Settings::*, double Settings::*, float Settings::*,
                                  SettingElement, double Form::*, int Form::*, LineProperty>;

struct SettingRow {
    std::string_view key;
    SettingPlace place;
    std::string_view fallback;  // value of a key that is absent
    const char* restored;       // value of "Restore Defaults"; null: left as it is
};

// Every key, in the order in which the start reads them.
std::span<const SettingRow> SettingTable();
// The keys that a save writes, in its order.
std::span<const std::string_view> SavedKeys();
// Raises 5 for a key that is not in the table.
const SettingRow& SettingOf(std::string_view key);

// Puts a value, in the form of the file, into its place. Raises 13 for a text that is no value of
// its kind, 6 for one that does not fit, and what the line refuses.
void StoreSetting(Workstation& w, const SettingRow& row, const std::string& text);
// The value in the form of the file. Raises 6 when the file's form cannot hold it.
std::string SettingText(Workstation& w, const SettingRow& row);

// The start's way through the table: the file as it was found, and the row to read next.
struct SettingsReading {
    std::string text;
    std::size_t next = 0;
};
// Reads shell.SettingsFile once; a missing file has no keys. Raises 75 when it is there but cannot
// be read.
SettingsReading OpenSettings(Workstation& w);
// Stores the following rows up to the one of lastKey; an error leaves that row and all behind it
// as they were.
void ReadSettingsThrough(Workstation& w, SettingsReading& reading, std::string_view lastKey);

// Saves these keys alone into the file, which is read afresh and replaced in one step: for dialogs
// that write their own keys at once. An error is told.
void SaveKeys(Workstation& w, std::span<const std::string_view> keys);
// Saves all keys of SavedKeys in the same way. The first save after a start that failed keeps the
// old file as NAME.bak.
void mnuSaveSettingsNow_Click(Workstation& w);
void mnuSaveSettings_Click(Workstation& w);
// Refuses with a box while the port or an off-line file is open.
void mnuRestore_Click(Workstation& w);
// The table's restored values in memory, and the display after them; writes nothing. An error of
// the line is told, and the rest is restored.
void RestoreDefaults(Workstation& w);

}  // namespace cumeron
