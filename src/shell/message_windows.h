// The windows that show texts from the instrument: frmDebug (messages). The intake adds to it,
// the menu shows it.
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

// The record only; what the readings set in it is kept here.
struct FrmStatus : Form {
    Button cmdViewStatuswnd, Fstatusbutton, Command1;
    Label Label1;

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

}  // namespace cumeron
