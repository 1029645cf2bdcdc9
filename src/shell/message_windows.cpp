#include "shell/message_windows.h"

#include <algorithm>

#include "intake/status_enquiry.h"
#include "logging/log_file.h"
#include "logging/playback.h"
#include "readings/status_words.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

// The text is cut rarely and then deeply, so that putting a message in front stays cheap.
constexpr std::size_t CutAbove = 15000;
constexpr std::size_t CutTo = 8000;

constexpr std::int16_t Rv10x = 10;  // model code

void frmDebug_ShowTitle(Workstation& w) {
    w.frmDebug.Caption = "Message [" + w.shell.MainTitle + "]";
}

void Place(Control& control, double left, double top, double width, double height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

void Fill(const Form& form, TextBox& text) {
    Place(text, 0, 0, form.ScaleWidth(), form.ScaleHeight());
}

void frmDebug_Resize(Workstation& w) { Fill(w.frmDebug, w.frmDebug.txtMessage); }

// The window is only hidden: it keeps its text and goes on taking messages.
bool frmDebug_QueryUnload(Workstation& w) {
    w.frmMain.mnuShowMessage.Checked = false;
    w.shell.MessageWindowOn = 0;
    HideForm(w.frmDebug);
    return true;
}

// Every key is thrown away: the text can be read and selected, not changed.
int txtMessage_KeyPress(Workstation&, int) { return 0; }

// A little above the middle of the screen.
void frmStatus_Load(Workstation& w) {
    FrmStatus& form = w.frmStatus;
    form.Top = w.platform.screen.height * TwipsPerPixel / 2.0 - 2 * form.Height / 3;
    form.Left = w.platform.screen.width * TwipsPerPixel / 2.0 - form.Width / 2;
    KeepNormalPlace(form);
    BuildStatusText(w);
}

void frmStatus_Paint(Workstation& w) {
    std::string text = w.readings.StatusText;
    std::replace(text.begin(), text.end(), '\r', '\n');
    w.frmStatus.lblStatusText.Caption = text;
}

void frmStatus_Unload(Workstation& w) { w.frmMain.mnuShowStatus.Checked = false; }

void frmStatus_Close(Workstation& w) { UnloadForm(w, w.frmStatus); }

// True, and a box says so, for the model that has no full status message.
// kept: the two buttons name different models in their refusals; both lists are known from the
// manual.
bool RefusesRv10x(Workstation& w, const char* models) {
    if (w.settings.CEILOMETER != Rv10x) return false;
    w.platform.dialogs.MessageBox(std::string("Function available only with ") + models,
                                  BoxButtons::Ok);
    return true;
}

void cmdViewStatuswnd_Click(Workstation& w) {
    if (RefusesRv10x(w, "RV70X and RV20X")) return;
    UnloadForm(w, w.frmStatus);
    ShowForm(w, w.frmSmsg);
    ++w.frmSmsg.BroughtToFront;
}

// True, and a box says so, while an enquiry runs.
bool RefusesDuringEnquiry(Workstation& w) {
    if (w.intake.EnquiryBusy == 0) return false;
    w.platform.dialogs.MessageBox("Status Message Handling in Progress, Please Wait!",
                                  BoxButtons::Ok);
    return true;
}

void Fstatusbutton_Click(Workstation& w) {
    w.platform.events.DoEvents();
    if (RefusesRv10x(w, "KN30, KN50, RV70X and RV20X")) return;
    // A changed status word may have started one while this window was open; two at a time would
    // take the replies from each other.
    if (RefusesDuringEnquiry(w)) return;
    UnloadForm(w, w.frmStatus);
    if (w.frmMain.mnuLogOn.Checked && w.settings.Status_Log == 1) {
        ReportAndGoOn(w, [&] { WriteStatusNote(w); });
    }
    EnquireStatus(w);
}

void frmSmsg_ShowTitle(Workstation& w) {
    w.frmSmsg.Caption = "Status Message [" + w.shell.MainTitle + "]";
}

void frmSmsg_Resize(Workstation& w) { Fill(w.frmSmsg, w.frmSmsg.stsMessage); }

// The enquiry writes its answer into the window.
bool frmSmsg_QueryUnload(Workstation& w) { return RefusesDuringEnquiry(w); }

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
    cmdViewStatuswnd.Click = cmdViewStatuswnd_Click;
    Fstatusbutton.Click = Fstatusbutton_Click;
    Command1.Click = frmStatus_Close;

    Load = frmStatus_Load;
    Paint = frmStatus_Paint;
    Unload = frmStatus_Unload;
}

ControlList FrmStatus::Controls() {
    return {{"lblStatusText", -1, "", &lblStatusText},
            {"Label1", -1, "", &Label1},
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

    Load = frmSmsg_ShowTitle;
    Activate = frmSmsg_ShowTitle;
    Resize = frmSmsg_Resize;
    QueryUnload = frmSmsg_QueryUnload;
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
    ShowCurrentRecord(w);
}

void mnuShowStatus_Click(Workstation& w) {
    ShowForm(w, w.frmStatus);
    ++w.frmStatus.BroughtToFront;
    w.frmMain.mnuShowStatus.Checked = true;
}

}  // namespace cumeron
