// frmCType, "CEILOMETER": the model of the instrument. The menu shows it.
#pragma once

#include <array>

#include "platform/form.h"

namespace cumeron {

struct FrmCType : Form {
    std::array<OptionButton, 6> optCType;  // in the order of ModelCodes()
    Button Command1, Command2;             // OK, Cancel

    FrmCType();
    ControlList Controls() override;
    void Reset() override;
};

void mnuCeiloType_Click(Workstation& w);

}  // namespace cumeron
