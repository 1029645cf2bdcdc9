// frmClouds, "Cloud Graph Settings": points, compression, colours with their limits, grid and
// height limits of the cloud graph. The menu entry mnuCloudSettings shows it.
#pragma once

#include <array>
#include <cstdint>

#include "graphs/graph_settings.h"

namespace cumeron {

struct FrmClouds : Form, HeightControls {
    Frame fraLimits;
    std::array<Label, 5> Limit;  // Limit0 to Limit4, what the boxes are called
    std::array<TextBox, 5> txtLimit;
    Frame fraIntensity;
    Label CloudColor1, CloudColor2, CloudColor3, CloudColor4, CloudColor5;
    Frame fraDetectionColors;
    Label lblChitColor, lblVVColor, lblHSColor;  // what the boxes are called
    Label ChitColor, VVColor, HSColor;
    Frame fraColours;
    Label lblDragDrop, lblHowToColour;
    Label Cwhite, Cyellow, Cgreen, ClightCyan, Ccyan, Cblue, Cdarkblue, Cviolet, Cdarkviolet,
        Cblack, Clightgrey, Cmidgrey, Cgray, Cred, Cdarkred, CDGreen;
    Frame fraDetection;
    Label lblPointSize;
    std::array<OptionButton, 3> PointSize;
    Frame fraTimeScale;
    Label lblCompression;
    std::array<OptionButton, 3> OptCompress;
    Frame fraBothGraph;
    std::array<OptionButton, 2> OptbothGraph;  // yes, no
    Frame fraShowGrid;
    std::array<OptionButton, 2> optShowGrid;  // yes, no
    Button cmdOk, Command2;

    // Message_Interval as the dialog found it, and what it made of it.
    std::int16_t intervalBefore = 0, plainInterval = 0;  // seconds

    FrmClouds();
    ControlList Controls() override;
    void Reset() override;
};

void mnuCloudSettings_Click(Workstation& w);

}  // namespace cumeron
