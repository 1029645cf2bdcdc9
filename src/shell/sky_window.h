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
    Timer tmrAlarm;  // blinks the alarm

    // The size of the form, in twips, and those of its labels, noted when it is loaded: what a
    // resize scales.
    struct NotedLabel {
        Label* label;
        double left, top, width, height;
        int fontSize;
    };
    double notedWidth = 0, notedHeight = 0;
    std::vector<NotedLabel> notedLabels;

    FrmSkyCond();
    ControlList Controls() override;
    void Reset() override;
};

// Replaces a Sky_Win_Top or Sky_Win_Left of 0: a quarter of the main window's size in from its
// edge.
void PlaceSkyWindow(Workstation& w);
// Shows the window, with everything brought up to date, or hides it.
void mnuSkyCond_Click(Workstation& w);
// Caption, date, status, texts and heights as the main window shows them now.
void UpdateAll(Workstation& w);
// The status line; an alarm in red blinks.
void UpDateStatus(Workstation& w, std::string_view text, int colour);
// On top of all windows if Sky_Cond_On_Top is 1.
void SetTop(Workstation& w);

// Clicks on labels of the main window: each copies its captions while the sky window is shown.
void CloudValue_Click(Workstation& w);
void lblCloudtext_Click(Workstation& w);
void lblDateTime_Click(Workstation& w);

}  // namespace cumeron
