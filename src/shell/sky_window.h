// frmSkyCond: the sky condition in a window of its own, which repeats status, date and heights in
// large type and can stay on top. The start places it, the menu shows it.
#pragma once

#include <array>

#include "platform/form.h"

namespace cumeron {

struct FrmSkyCond : Form {
    Label lblCT_2, lblDateTime, lblStatus;
    std::array<Label, 3> CloudValue, lblCloudtext;

    FrmSkyCond();
    ControlList Controls() override;
    void Reset() override;
};

}  // namespace cumeron
