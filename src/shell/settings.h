// The settings: one variable per key of the settings file, the table that names them, and the
// procedures that read and save the file. The start reads them; menu entries save and restore.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <variant>

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
    std::int16_t Sky_Win_Height = 0;
    std::int16_t Sky_Win_Width = 0;
    std::int16_t CEILOMETER = 0;        // model code
    std::int16_t Message_Interval = 0;  // seconds to a column: the interval times CompressFactor
    std::int16_t Port_open = 0;
    std::int16_t Log_on = 0;
};

// How many messages share a column of the graph, from Compress: 2 for 1, 3 for 2, else 1.
int CompressFactor(const Settings& settings);

}  // namespace cumeron
