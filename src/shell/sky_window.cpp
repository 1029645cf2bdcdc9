#include "shell/sky_window.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/runtime/text.h"
#include "platform/surface.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

// Left, Top, Width, Height in pixels.
void Place(Control& control, double left, double top, double width, double height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

// A quarter of the main window's size in from its edge, as far as a setting can tell; twips.
std::int16_t QuarterInto(double edge, double size) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double place = edge + std::trunc(RoundHalfEven(size) / 4);
    return ToInt16(std::clamp<double>(place, Limits::min(), Limits::max()));
}

void NoteDesign(FrmSkyCond& form) {
    form.notedWidth = form.Width;
    form.notedHeight = form.Height;
    const auto note = [&form](Control& control, Label* label) {
        form.notedControls.push_back({&control, label, control.Left, control.Top, control.Width,
                                      control.Height, label != nullptr ? label->FontSize : 0});
    };
    for (const NamedControl& named : form.Controls()) {
        if (auto* const* label = std::get_if<Label*>(&named.control)) note(**label, *label);
        if (auto* const* image = std::get_if<Image*>(&named.control)) note(**image, nullptr);
    }
}

void frmSkyCond_Load(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    const Settings& settings = w.settings;
    NoteDesign(form);
    if (settings.Sky_Cond_On_Top == 1) {
        form.Left = settings.Sky_Win_Left;
        form.Top = settings.Sky_Win_Top;
        // A window without a size could not be seen, nor pulled open.
        if (settings.Sky_Win_Width > 0) form.Width = settings.Sky_Win_Width;
        if (settings.Sky_Win_Height > 0) form.Height = settings.Sky_Win_Height;
    } else {
        form.Left = QuarterInto(w.frmMain.Left, w.frmMain.Width);
        form.Top = QuarterInto(w.frmMain.Top, w.frmMain.Height);
    }
    KeepNormalPlace(form);
    ReShape(w);
}

// The smaller of the two ratios scales everything, so that the layout keeps its shape.
void frmSkyCond_Resize(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    const double ratio =
        std::max(0.0, std::min(form.Width / form.notedWidth, form.Height / form.notedHeight));
    for (const FrmSkyCond::NotedControl& noted : form.notedControls) {
        Place(*noted.control, noted.left * ratio, noted.top * ratio, noted.width * ratio,
              noted.height * ratio);
        if (noted.label == nullptr) continue;
        noted.label->FontSize =
            std::max(1, static_cast<int>(RoundHalfEven(noted.fontSize * ratio)));
    }
}

// The window is only hidden: what it shows goes on being kept up.
bool frmSkyCond_QueryUnload(Workstation& w) {
    w.frmMain.mnuSkyCond.Checked = false;
    HideForm(w.frmSkyCond);
    return true;
}

void tmrAlarm_Tick(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    const int red = QBColor(Red);
    const int quiet = form.lblDateTime.BackColor;
    form.lblStatus.BackColor = form.lblStatus.BackColor == red ? quiet : red;
}

template <std::size_t Count>
void CopyCaptions(std::array<Label, Count>& to, const std::array<Label, Count>& from) {
    for (std::size_t i = 0; i < to.size(); ++i) to[i].Caption = from[i].Caption;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

void Write(Label& label, int fontSize, bool bold, TextAlignment alignment) {
    label.FontSize = fontSize;
    label.Bold = bold;
    label.Alignment = alignment;
}

// A column for each layer, side by side: the amount with the symbol at its left, below it the
// height. A number is nearer to its own symbol than to that of the next layer.
void PlaceLayers(FrmSkyCond& form) {
    constexpr double firstLeft = 7, pitch = 69, amountWidth = 60, heightWidth = 62;
    constexpr double symbolSize = 36;
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        const double left = firstLeft + pitch * static_cast<double>(i);
        Label& amount = form.lblSkyCond[2 * i];
        Place(amount, left, 198, amountWidth, 46);
        Write(amount, 18, true, TextAlignment::Center);
        amount.ToolTipText = SkyAmountTip;
        Label& height = form.lblSkyCond[2 * i + 1];
        Place(height, left - (heightWidth - amountWidth) / 2, 246, heightWidth, 38);
        Write(height, 14, true, TextAlignment::Center);
        height.ToolTipText = SkyHeightTip;
        Place(form.imgSky[i], left, 203, symbolSize, symbolSize);
        form.imgSky[i].Picture = "imgSkyCond(2)";  // the blank one
        form.imgSky[i].ToolTipText = SkyAmountTip;
    }
}

// kept: the first four alone, so that the symbol of the fifth layer stays until the next block.
constexpr std::size_t ClearedSymbols = 4;

}  // namespace

// The design, 350 pixels wide: a line with model and date, the status, a row for each height, and
// below them the sky condition.
FrmSkyCond::FrmSkyCond() {
    Name = "frmSkyCond";
    Caption = "Sky Condition";
    Width = 5256;
    Height = 4356;
    Place(lblCT_2, 8, 4, 110, 26);
    Write(lblCT_2, 12, true, TextAlignment::Left);
    Place(lblDateTime, 122, 4, 220, 26);
    Write(lblDateTime, 12, true, TextAlignment::Right);
    Place(lblStatus, 8, 32, 334, 26);
    Write(lblStatus, 12, true, TextAlignment::Left);
    for (std::size_t i = 0; i < CloudValue.size(); ++i) {
        const double top = 62 + 38 * static_cast<double>(i);
        Place(lblCloudtext[i], 8, top, 170, 36);
        Write(lblCloudtext[i], 12, false, TextAlignment::Left);
        Place(CloudValue[i], 182, top, 160, 36);
        Write(CloudValue[i], 22, true, TextAlignment::Right);
    }
    lblSkyHead.Caption = "Sky condition, lowest layer first";
    Place(lblSkyHead, 8, 178, 334, 18);
    Write(lblSkyHead, 9, false, TextAlignment::Left);
    PlaceLayers(*this);
    tmrAlarm.Interval = 500;
    tmrAlarm.Tick = tmrAlarm_Tick;

    Load = frmSkyCond_Load;
    Resize = frmSkyCond_Resize;
    QueryUnload = frmSkyCond_QueryUnload;
}

ControlList FrmSkyCond::Controls() {
    ControlList list = {{"lblCT_2", -1, "", &lblCT_2},
                        {"lblDateTime", -1, "", &lblDateTime},
                        {"lblStatus", -1, "", &lblStatus}};
    for (std::size_t i = 0; i < CloudValue.size(); ++i) {
        const int index = static_cast<int>(i);
        list.push_back({"lblCloudtext", index, "", &lblCloudtext[i]});
        list.push_back({"CloudValue", index, "", &CloudValue[i]});
    }
    list.push_back({"lblSkyHead", -1, "", &lblSkyHead});
    int index = 0;
    for (Label& label : lblSkyCond) list.push_back({"lblSkyCond", index++, "", &label});
    index = 0;
    for (Image& symbol : imgSky) list.push_back({"imgSky", index++, "", &symbol});
    list.push_back({"tmrAlarm", -1, "", &tmrAlarm});
    return list;
}

void FrmSkyCond::Reset() { *this = FrmSkyCond(); }

void PlaceSkyWindow(Workstation& w) {
    const FrmMain& form = w.frmMain;
    Settings& settings = w.settings;
    if (settings.Sky_Win_Top == 0) settings.Sky_Win_Top = QuarterInto(form.Top, form.Height);
    if (settings.Sky_Win_Left == 0) settings.Sky_Win_Left = QuarterInto(form.Left, form.Width);
}

void mnuSkyCond_Click(Workstation& w) {
    MenuEntry& entry = w.frmMain.mnuSkyCond;
    entry.Checked = !entry.Checked;
    if (!entry.Checked) {
        HideForm(w.frmSkyCond);
        return;
    }
    LoadForm(w, w.frmSkyCond);  // a start that failed has not
    if (w.frmSkyCond.WindowState == 1) ChangeWindowState(w, w.frmSkyCond, 0);
    UpdateAll(w);
    ShowForm(w, w.frmSkyCond);
    ++w.frmSkyCond.BroughtToFront;
}

void UpdateAll(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    const FrmMain& main = w.frmMain;
    form.Caption = "Sky Condition [" + w.shell.MainTitle + "]";
    RepeatValues(w);
    UpDateStatus(w, main.sbaStatus.Status.Text, main.sbaStatus.Status_Image.Visible ? Red : Black);
    UpDateSkyCond(w);
}

void RepeatValues(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    const FrmMain& main = w.frmMain;
    form.lblDateTime.Caption = WithoutLeadingBlanks(main.lblDateTime.Caption);
    CopyCaptions(form.lblCloudtext, main.lblCloudtext);
    CopyCaptions(form.CloudValue, main.CloudValue);
}

void UpDateSkyCond(Workstation& w) {
    if (w.sky.SkyValid == 0) return ClearSkyCond(w);
    FrmSkyCond& form = w.frmSkyCond;
    CopyCaptions(form.lblSkyCond, w.frmMain.lblSkyCond);
    if (w.settings.Cloud_Amount != AmountSymbols) return;
    for (std::size_t i = 0; i < form.imgSky.size(); ++i) {
        form.imgSky[i].Picture = SkySymbol(w, i);
    }
}

void ClearSkyCond(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    for (Label& label : form.lblSkyCond) label.Caption.clear();
    for (std::size_t i = 0; i < ClearedSymbols; ++i) form.imgSky[i].Picture = BlankSkySymbol(w);
}

void ClearValues(Workstation& w) {
    for (Label& value : w.frmSkyCond.CloudValue) value.Caption.clear();
    ClearSkyCond(w);
}

void UpDateStatus(Workstation& w, std::string_view text, int colour) {
    FrmSkyCond& form = w.frmSkyCond;
    Label& line = form.lblStatus;
    line.Caption = WithoutLeadingBlanks(text);
    if (colour != Red) {
        form.tmrAlarm.SetEnabled(false);
        line.BackColor = form.lblDateTime.BackColor;
        line.ForeColor = QBColor(Black);
    } else if (InStr(line.Caption, "ALARM") > 0) {
        line.BackColor = QBColor(Red);
        // A further alarm goes on with the blinking: begun anew each time it would never be seen.
        if (!form.tmrAlarm.Enabled()) form.tmrAlarm.SetEnabled(true);
    } else {
        // kept: a warning behind an alarm goes on blinking; only a good status ends that, so that
        // nobody misses the alarm.
        line.ForeColor = QBColor(Red);
    }
}

void SetTop(Workstation& w) { w.frmSkyCond.TopMost = w.settings.Sky_Cond_On_Top == 1; }

void ReShape(Workstation& w) {
    FrmSkyCond& form = w.frmSkyCond;
    SetTop(w);
    const bool symbols = w.settings.Cloud_Amount == AmountSymbols;
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        form.imgSky[i].Visible = symbols;
        if (!symbols) form.imgSky[i].Picture = BlankSkySymbol(w);
        form.lblSkyCond[2 * i].Alignment = symbols ? TextAlignment::Right : TextAlignment::Center;
        form.lblSkyCond[2 * i].Caption.clear();
    }
}

void CloudValue_Click(Workstation& w) {
    if (w.frmMain.mnuSkyCond.Checked) CopyCaptions(w.frmSkyCond.CloudValue, w.frmMain.CloudValue);
}

void lblCloudtext_Click(Workstation& w) {
    if (!w.frmMain.mnuSkyCond.Checked) return;
    CopyCaptions(w.frmSkyCond.lblCloudtext, w.frmMain.lblCloudtext);
}

void lblDateTime_Click(Workstation& w) {
    if (!w.frmMain.mnuSkyCond.Checked) return;
    w.frmSkyCond.lblDateTime.Caption = w.frmMain.lblDateTime.Caption;
}

}  // namespace cumeron
