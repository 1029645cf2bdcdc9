// The instrument models and what follows from the model: frame marks, field positions, lengths.
// One table, a row per model. The start and the model dialog load a row; the intake, the
// readings, the graphs and the export read it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace cumeron {

struct Workstation;

enum class Family { RV, RV10X, KN, TQ60 };

// Positions are 1-based and count in the received frame, from its start character.
struct ModelTable {
    std::int16_t code = 0;  // CEILOMETER; 0: no model is loaded
    std::string name;
    Family family = Family::RV;
    std::string FrameStart;          // 1 character
    std::string FrameEnd;            // 3 characters
    std::string header;              // looked for in the frame
    std::string noHeader;            // what the Errors panel says without it
    std::int16_t ProfileLength = 0;  // highest index of a profile
    std::int32_t rangeSteps = 0;     // RangeTable entry 0
    std::int16_t AngleOffset = 0;    // degrees
    std::int16_t PosCloud1 = 0, PosCloud2 = 0, PosCloud3 = 0;  // 5 characters each
    std::int16_t PosCloud1Alt = 0, PosCloud2Alt = 0;           // 5 characters each
    std::int16_t PosStatus = 0;                                // status word
    std::int16_t PosAngle = 0;                                 // 3 characters
    std::int16_t PosDetection = 0;                             // 1 character
    std::int16_t PosAlarm = 0;                                 // 1 character
    std::int16_t PosExport = 0;
    std::int16_t statusDigits = 0;  // hexadecimal digits of the status word that are read
};

enum class LoadedBy { Start, Dialog };

// True when code is one of the six.
bool IsModel(int code);
// "KN30"; "" for no model.
std::string_view ModelName(int code);
// "15": the interval in seconds that is taken when the settings name none; "" for no model.
std::string_view DefaultMessageInterval(int code);
// The codes in the order of the table, for lists.
std::span<const std::int16_t> ModelCodes();

// Loads the constants of settings.CEILOMETER into w.model and RangeTable entry 0; a code that is
// no model changes nothing. RV10X and TQ60 differ between the start and the dialog: some of their
// positions keep what stood there, some have values of their own.
void LoadModel(Workstation& w, LoadedBy who);

}  // namespace cumeron
