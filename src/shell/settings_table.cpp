#include <algorithm>

#include "platform/runtime/errors.h"
#include "shell/settings.h"

namespace cumeron {

namespace {

// kept: the limits that are restored differ from those of a new file, and the restored line
// setting has a capital N; both pairs have always been so.
// Message_Interval has no fallback here: it depends on the model, and a code that is no model
// reads no interval at all.
const SettingRow Table[] = {
    // key, place, if absent, restored
    {"Modem_Initialization_String", &Settings::Modem_Initialization_String, "", nullptr},
    {"Modem_used", &Settings::Modem_used, "0", nullptr},
    {"Terminal_Settings", &Settings::Terminal_Settings, "CEILO.TRM", nullptr},
    {"Start_Of_Information", &Settings::Start_Of_Information, "87", nullptr},
    {"WindowState", &Form::WindowState, "0", nullptr},
    {"Top", &Form::Top, "0", nullptr},
    {"Left", &Form::Left, "0", nullptr},
    {"Width", &Form::Width, "9600", nullptr},    // 640 pixels
    {"Height", &Form::Height, "7200", nullptr},  // 480 pixels
    {"Comm_Settings", LineProperty::Settings, "19200,n,8,1", "19200,N,8,1"},
    {"Comm_Port", LineProperty::CommPort, "1", "1"},
    {"File_Length", &Settings::File_Length, "06:00", "06:00"},
    {"File_Char", &Settings::File_Char, "A", nullptr},
    {"Log_File_Path", &Settings::Log_File_Path, "", ""},
    {"Status_Log", &Settings::Status_Log, "0", "0"},
    {"Enable_Zip", &Settings::Enable_Zip, "0", "0"},
    {"Del_After_Zip", &Settings::Del_After_Zip, "0", "0"},
    {"Zip_File_Path", &Settings::Zip_File_Path, "", ""},
    {"Zip_Exe", &Settings::Zip_Exe, "", ""},
    {"Main_Caption", &Settings::Main_Caption, "", ""},
    {"Backscatter_X_Low_Value", &Settings::Backscatter_X_Low_Value, "-1000", "-1000"},
    {"Backscatter_X_High_Value", &Settings::Backscatter_X_High_Value, "1000", "1000"},
    {"Backscatter_X_User_Defined", &Settings::Backscatter_X_User_Defined, "0", "0"},
    {"Backscatter_Y_Low_Value", &Settings::Backscatter_Y_Low_Value, "0", "0"},
    {"Backscatter_Y_High_Value", &Settings::Backscatter_Y_High_Value, "25500", "25500"},
    {"Backscatter_Y_User_Defined", &Settings::Backscatter_Y_User_Defined, "0", "0"},
    {"Backscatter_Mode", &Settings::Backscatter_Mode, "1", "1"},
    {"Backscatter_Averages", &Settings::Backscatter_Averages, "5", "5"},
    {"Back_Draw_Width", &Settings::Back_Draw_Width, "1", "1"},
    {"Step_Linear", &Settings::Step_Linear, "0", "0"},
    {"Back_Step_Linear", &Settings::Back_Step_Linear, "0", "0"},
    {"Units", &Settings::Units, "0", "0"},
    {"Cloud_Show_Grid", &Settings::Cloud_Show_Grid, "0", "0"},
    {"Backscatter_Show_Grid", &Settings::Backscatter_Show_Grid, "0", "0"},
    {"Clouds_Y_Low_Value", &Settings::Clouds_Y_Low_Value, "0", "0"},
    {"Clouds_Y_High_Value", &Settings::Clouds_Y_High_Value, "25500", "25500"},
    {"Clouds_Y_User_Defined", &Settings::Clouds_Y_User_Defined, "0", "0"},
    {"Clouds_Limit_0", SettingElement{&Settings::Clouds_Limit, 0, true}, "100", "20"},
    {"Clouds_Limit_1", SettingElement{&Settings::Clouds_Limit, 1, true}, "200", "100"},
    {"Clouds_Limit_2", SettingElement{&Settings::Clouds_Limit, 2, true}, "350", "200"},
    {"Clouds_Limit_3", SettingElement{&Settings::Clouds_Limit, 3, true}, "600", "300"},
    {"Clouds_Limit_4", SettingElement{&Settings::Clouds_Limit, 4, true}, "1000", "400"},
    {"Clouds_Color_0", SettingElement{&Settings::Clouds_Color, 0, false}, "16776960", "16776960"},
    {"Clouds_Color_1", SettingElement{&Settings::Clouds_Color, 1, false}, "8421376", "8421376"},
    {"Clouds_Color_2", SettingElement{&Settings::Clouds_Color, 2, false}, "16711680", "16711680"},
    {"Clouds_Color_3", SettingElement{&Settings::Clouds_Color, 3, false}, "8388608", "8388608"},
    {"Clouds_Color_4", SettingElement{&Settings::Clouds_Color, 4, false}, "0", "0"},
    {"Cloudhit_Color", &Settings::Cloudhit_Color, "0", "0"},
    {"Vertical_V_Color", &Settings::Vertical_V_Color, "16711680", "16711680"},
    {"Highest_S_Color", &Settings::Highest_S_Color, "16776960", "16776960"},
    {"Chit_Point_Size", &Settings::Chit_Point_Size, "1", nullptr},
    {"Cloudmode", &Settings::Cloudmode, "0", "0"},
    {"Compress", &Settings::Compress, "0", "0"},
    {"Split_Ratio", &Settings::Split_Ratio, "5", "5"},
    {"Cloud_Amount", &Settings::Cloud_Amount, "0", "0"},
    {"Show_Sky_Cond", &Settings::Show_Sky_Cond, "0", "0"},
    {"Sky_Cond_On_Top", &Settings::Sky_Cond_On_Top, "0", "0"},
    {"Sky_Win_Top", &Settings::Sky_Win_Top, "0", nullptr},
    {"Sky_Win_Left", &Settings::Sky_Win_Left, "0", nullptr},
    {"Sky_Win_Height", &Settings::Sky_Win_Height, "4356", nullptr},
    {"Sky_Win_Width", &Settings::Sky_Win_Width, "5256", nullptr},
    {"CEILOMETER", &Settings::CEILOMETER, "30", nullptr},
    {"Message_Interval", &Settings::Message_Interval, "", nullptr},
    {"Port_open", &Settings::Port_open, "0", nullptr},
    {"Log_on", &Settings::Log_on, "0", nullptr},
};

// Terminal_Settings and Start_Of_Information are the operator's own; Main_Caption, Port_open and
// Log_on are written where they are chosen.
constexpr std::string_view Saved[] = {
    "WindowState",
    "Width",
    "Height",
    "Top",
    "Left",
    "Comm_Settings",
    "Comm_Port",
    "File_Length",
    "File_Char",
    "Status_Log",
    "Log_File_Path",
    "Enable_Zip",
    "Del_After_Zip",
    "Zip_File_Path",
    "Zip_Exe",
    "Backscatter_X_Low_Value",
    "Backscatter_X_High_Value",
    "Backscatter_X_User_Defined",
    "Backscatter_Y_Low_Value",
    "Backscatter_Y_High_Value",
    "Backscatter_Y_User_Defined",
    "Backscatter_Mode",
    "Backscatter_Averages",
    "Back_Draw_Width",
    "Step_Linear",
    "Back_Step_Linear",
    "Units",
    "Cloud_Show_Grid",
    "Backscatter_Show_Grid",
    "Clouds_Y_Low_Value",
    "Clouds_Y_High_Value",
    "Clouds_Y_User_Defined",
    "Modem_Initialization_String",
    "Message_Interval",
    "CEILOMETER",
    "Modem_used",
    "Clouds_Limit_0",
    "Clouds_Limit_1",
    "Clouds_Limit_2",
    "Clouds_Limit_3",
    "Clouds_Limit_4",
    "Clouds_Color_0",
    "Clouds_Color_1",
    "Clouds_Color_2",
    "Clouds_Color_3",
    "Clouds_Color_4",
    "Cloudhit_Color",
    "Vertical_V_Color",
    "Highest_S_Color",
    "Chit_Point_Size",
    "Cloudmode",
    "Compress",
    "Split_Ratio",
    "Cloud_Amount",
    "Show_Sky_Cond",
    "Sky_Cond_On_Top",
    "Sky_Win_Top",
    "Sky_Win_Left",
    "Sky_Win_Height",
    "Sky_Win_Width",
};

}  // namespace

std::span<const SettingRow> SettingTable() { return Table; }

std::span<const std::string_view> SavedKeys() { return Saved; }

const SettingRow& SettingOf(std::string_view key) {
    const auto row = std::ranges::find(Table, key, &SettingRow::key);
    if (row == std::end(Table)) throw RuntimeError(5);
    return *row;
}

}  // namespace cumeron
