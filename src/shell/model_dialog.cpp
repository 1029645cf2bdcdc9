#include "shell/model_dialog.h"

#include <string>

#include "workstation.h"

namespace cumeron {

namespace {

constexpr const char* ModelNames[] = {"RV70X", "RV20X", "RV10X", "KN30", "KN50", "TQ60"};

}  // namespace

FrmCType::FrmCType() {
    Name = "frmCType";
    Caption = "CEILOMETER";
    Width = 280 * TwipsPerPixel;
    Height = 260 * TwipsPerPixel;
    for (std::size_t i = 0; i < optCType.size(); ++i) optCType[i].Caption = ModelNames[i];
    Command1.Caption = "OK";
    Command2.Caption = "Cancel";
}

ControlList FrmCType::Controls() {
    ControlList list;
    for (std::size_t i = 0; i < optCType.size(); ++i) {
        list.push_back({"optCType", static_cast<int>(i), "", &optCType[i]});
    }
    list.push_back({"Command1", -1, "", &Command1});
    list.push_back({"Command2", -1, "", &Command2});
    return list;
}

void FrmCType::Reset() { *this = FrmCType(); }

}  // namespace cumeron
