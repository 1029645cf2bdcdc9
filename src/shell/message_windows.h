// The windows that show texts from the instrument: frmDebug (messages), frmStatus (the decoded
// status) and frmSmsg (the full status message). The intake and the readings feed them, the menu
// shows them.
#pragma once

#include <string_view>

#include "platform/form.h"

namespace cumeron {

struct FrmDebug : Form {
    TextBox txtMessage;

    FrmDebug();
    ControlList Controls() override;
    void Reset() override;
};

// The status in words. BuildStatusText has it painted anew; Paint copies StatusText.
struct FrmStatus : Form {
    Label lblStatusText;  // its lines are parted by LF
    Label Label1;
    Button cmdViewStatuswnd, Fstatusbutton, Command1;

    FrmStatus();
    ControlList Controls() override;
    void Reset() override;
};

// The full status message that the instrument sent in reply.
struct FrmSmsg : Form {
    TextBox stsMessage;

    FrmSmsg();
    ControlList Controls() override;
    void Reset() override;
};

// Puts text in front of what txtMessage holds; past 15000 characters it is cut to the first 8000.
void AddToMessageWindow(Workstation& w, std::string_view text);
void mnuShowMessage_Click(Workstation& w);
void mnuShowStatus_Click(Workstation& w);

}  // namespace cumeron
