#include "shell/message_windows.h"

#include "workstation.h"

namespace cumeron {

namespace {

// The text is cut rarely and then deeply, so that putting a message in front stays cheap.
constexpr std::size_t CutAbove = 15000;
constexpr std::size_t CutTo = 8000;

void frmDebug_ShowTitle(Workstation& w) {
    w.frmDebug.Caption = "Message [" + w.shell.MainTitle + "]";
}

void frmDebug_Resize(Workstation& w) {
    TextBox& txtMessage = w.frmDebug.txtMessage;
    txtMessage.Left = 0;
    txtMessage.Top = 0;
    txtMessage.Width = w.frmDebug.ScaleWidth();
    txtMessage.Height = w.frmDebug.ScaleHeight();
}

// The window is only hidden: it keeps its text and goes on taking messages.
bool frmDebug_QueryUnload(Workstation& w) {
    w.frmMain.mnuShowMessage.Checked = false;
    w.shell.MessageWindowOn = 0;
    HideForm(w.frmDebug);
    return true;
}

// Every key is thrown away: the text can be read and selected, not changed.
int txtMessage_KeyPress(Workstation&, int) { return 0; }

void Place(Control& control, double left, double top, double width, double height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

}  // namespace

FrmDebug::FrmDebug() {
    Name = "frmDebug";
    Caption = "Message";
    Width = 640 * TwipsPerPixel;
    Height = 360 * TwipsPerPixel;
    txtMessage.MultiLine = true;
    txtMessage.FontName = "Courier";
    txtMessage.KeyPress = txtMessage_KeyPress;
    Place(txtMessage, 0, 0, 640, 360);

    Load = frmDebug_ShowTitle;
    Activate = frmDebug_ShowTitle;
    Resize = frmDebug_Resize;
    QueryUnload = frmDebug_QueryUnload;
}

ControlList FrmDebug::Controls() { return {{"txtMessage", -1, "", &txtMessage}}; }

void FrmDebug::Reset() { *this = FrmDebug(); }

FrmStatus::FrmStatus() {
    Name = "frmStatus";
    Caption = "Status";
    Width = 420 * TwipsPerPixel;
    Height = 360 * TwipsPerPixel;
    Label1.Caption = "Full Status Message can be asked from Ceilometer";
    cmdViewStatuswnd.Caption = "Status Message Window";
    Fstatusbutton.Caption = "Get Status Message";
    Command1.Caption = "Close";
    Place(Label1, 10, 295, 400, 20);
    Place(cmdViewStatuswnd, 10, 320, 160, 30);
    Place(Fstatusbutton, 180, 320, 140, 30);
    Place(Command1, 330, 320, 80, 30);
}

ControlList FrmStatus::Controls() {
    return {{"Label1", -1, "", &Label1},
            {"cmdViewStatuswnd", -1, "", &cmdViewStatuswnd},
            {"Fstatusbutton", -1, "", &Fstatusbutton},
            {"Command1", -1, "", &Command1}};
}

void FrmStatus::Reset() { *this = FrmStatus(); }

FrmSmsg::FrmSmsg() {
    Name = "frmSmsg";
    Caption = "STATUS Message";
    Width = 640 * TwipsPerPixel;
    Height = 360 * TwipsPerPixel;
    stsMessage.MultiLine = true;
    stsMessage.FontName = "Courier";
    Place(stsMessage, 0, 0, 640, 360);
}

ControlList FrmSmsg::Controls() { return {{"stsMessage", -1, "", &stsMessage}}; }

void FrmSmsg::Reset() { *this = FrmSmsg(); }

void AddToMessageWindow(Workstation& w, std::string_view text) {
    LoadForm(w, w.frmDebug);
    TextBox& txtMessage = w.frmDebug.txtMessage;
    txtMessage.Text.insert(0, text);
    if (txtMessage.Text.size() > CutAbove) txtMessage.Text.resize(CutTo);
    txtMessage.SelStart = 0;
}

void mnuShowMessage_Click(Workstation& w) {
    w.shell.MessageWindowOn = -1;
    ShowForm(w, w.frmDebug);
    ++w.frmDebug.BroughtToFront;
    w.frmMain.mnuShowMessage.Checked = true;
}

}  // namespace cumeron
