// frmSkyCond: the sky condition in a window of its own, which repeats status, date and heights in
// large type and can stay on top. The start creates it, the menu shows it, the save notes its
// place, and whoever writes to the main window's labels passes on what it repeats.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "platform/form.h"

namespace cumeron {

struct FrmSkyCond : Form {
    Label lblCT_2, lblDateTime, lblStatus;
    std::array<Label, 3> CloudValue, lblCloudtext;
    Label lblSkyHead;                  // what the layers below it are
    std::array<Label, 10> lblSkyCond;  // amount and height of each layer
    std::array<Image, 5> imgSky;       // symbol of each layer
    Timer tmrAlarm;                    // blinks the alarm

    // The size of the form, in twips, and places and fonts of its controls, noted when it is
    // loaded: what a resize scales.
    struct NotedControl {
        Control* control;
        Label* label;  // null for what has no font
        double left, top, width, height;
        int fontSize;
    };
    double notedWidth = 0, notedHeight = 0;
    std::vector<NotedControl> notedControls;

    FrmSkyCond();
    ControlList Controls() override;
    void Reset() override;
};

// Replaces a Sky_Win_Top or Sky_Win_Left of 0: a quarter of the main window's size in from its
// edge.
void PlaceSkyWindow(Workstation& w);
// Shows the window, with everything brought up to date, or hides it.
void mnuSkyCond_Click(Workstation& w);
// Caption, date, status, texts, heights and sky condition as the main window shows them now.
void UpdateAll(Workstation& w);
// The part of it that follows each message: date, texts and heights.
void RepeatValues(Workstation& w);
// The layers of the sky condition as the main window shows them, with a symbol for each.
void UpDateSkyCond(Workstation& w);
// Empties the layers; ClearValues also the cloud heights.
void ClearSkyCond(Workstation& w);
void ClearValues(Workstation& w);
// The status line; an alarm in red blinks.
void UpDateStatus(Workstation& w, std::string_view text, int colour);
// On top of all windows if Sky_Cond_On_Top is 1.
void SetTop(Workstation& w);
// Makes room for symbols or not, as Cloud_Amount says, with SetTop; the layers are empty then.
void ReShape(Workstation& w);

// Clicks on labels of the main window: each copies its captions while the sky window is shown.
void CloudValue_Click(Workstation& w);
void lblCloudtext_Click(Workstation& w);
void lblDateTime_Click(Workstation& w);

}  // namespace cumeron
