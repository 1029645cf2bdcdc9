// frmBackScatter, "Backscatter Profile Settings": pen, grid, averaging and limits of the profile
// plot. The menu entry mnuBackscatterSettings shows it.
#pragma once

#include <array>

#include "graphs/graph_settings.h"

namespace cumeron {

struct FrmBackScatter : Form, HeightControls {
    Frame fraDrawWidth, fraShowGrid, fraAverages, fraMode, fraXRange;
    std::array<OptionButton, 3> optBackDrawWidth;
    std::array<OptionButton, 2> optShowGrid;  // no, yes
    std::array<OptionButton, 6> optNAverages;
    std::array<OptionButton, 3> optAverageMode;
    std::array<OptionButton, 2> optXUser;  // full, user-defined
    TextBox txtXLow, txtXHigh;
    Button cmdOk, Command2;

    FrmBackScatter();
    ControlList Controls() override;
    void Reset() override;
};

void mnuBackscatterSettings_Click(Workstation& w);

}  // namespace cumeron
