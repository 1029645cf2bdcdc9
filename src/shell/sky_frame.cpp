#include "shell/sky_frame.h"

#include "workstation.h"

namespace cumeron {

namespace {

// Pixels. A row of amount and height for each layer, a symbol beside those that it may stand for.
constexpr double FrameTop = 347, FrameWidth = 200;
constexpr double FirstRow = 24, RowHeight = 26, LabelHeight = 24;
constexpr double SymbolLeft = 10, SymbolSize = 32;
constexpr double AmountLeft = 46, AmountWidth = 60, HeightLeft = 108, HeightWidth = 84;

struct SymbolRow {
    double row;  // whose middle it stands at
    const char* tip;
};

// Element 0 has been there from the first and shows nothing.
constexpr SymbolRow SymbolRows[] = {
    {0, ""},
    {0.5, "Amount of layer 2, or of layer 1 where there is no layer 2"},
    {2.5, "Amount of layer 4, or of layer 3 where there is no layer 4"},
    {4, "Amount of layer 5"},
};

void Place(Control& control, double left, double top, double width, double height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

void ResetLayers(FrmMain& form) {
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        const double top = FirstRow + RowHeight * static_cast<double>(i);
        Label& amount = form.lblSkyCond[2 * i] = Label();
        amount.ToolTipText = SkyAmountTip;
        amount.Alignment = TextAlignment::Center;
        Place(amount, AmountLeft, top, AmountWidth, LabelHeight);
        Label& height = form.lblSkyCond[2 * i + 1] = Label();
        height.ToolTipText = SkyHeightTip;
        height.Alignment = TextAlignment::Right;
        Place(height, HeightLeft, top, HeightWidth, LabelHeight);
        for (Label* label : {&amount, &height}) {
            label->FontSize = 14;
            label->Bold = true;
        }
    }
}

void ResetSymbols(FrmMain& form) {
    for (std::size_t i = 0; i < form.imgSkyCond.size(); ++i) {
        Image& picture = form.imgSkyCond[i] = Image();
        picture.Picture = "imgSkyCond(" + std::to_string(i) + ")";
        picture.Visible = false;
        Place(picture, SymbolLeft, FirstRow, SymbolSize, SymbolSize);
    }
    for (std::size_t i = 0; i < form.imgSky.size(); ++i) {
        Image& symbol = form.imgSky[i] = Image();
        const double middle = FirstRow + LabelHeight / 2 + RowHeight * SymbolRows[i].row;
        symbol.Picture = form.imgSkyCond[BlankSkyPicture].Picture;
        symbol.ToolTipText = SymbolRows[i].tip;
        symbol.Visible = false;
        Place(symbol, SymbolLeft, middle - SymbolSize / 2, SymbolSize, SymbolSize);
    }
}

}  // namespace

void ResetSkyFrame(FrmMain& form) {
    form.fraSkyCond = Frame();
    form.fraSkyCond.Caption = "Sky Condition";
    form.fraSkyCond.Visible = false;
    Place(form.fraSkyCond, 0, FrameTop, FrameWidth, SkyFrameHeight);
    ResetLayers(form);
    ResetSymbols(form);
}

void ListSkyFrame(ControlList& list, FrmMain& form) {
    list.push_back({"fraSkyCond", -1, "", &form.fraSkyCond});
    int index = 0;
    for (Label& label : form.lblSkyCond) {
        list.push_back({"lblSkyCond", index++, "fraSkyCond", &label});
    }
    index = 0;
    for (Image& symbol : form.imgSky) list.push_back({"imgSky", index++, "fraSkyCond", &symbol});
    index = 0;
    for (Image& picture : form.imgSkyCond) {
        list.push_back({"imgSkyCond", index++, "fraSkyCond", &picture});
    }
}

void ShapeSkyFrame(Workstation& w) {
    FrmMain& form = w.frmMain;
    form.fraSkyCond.Visible = w.settings.Show_Sky_Cond != 0;
    for (std::size_t i = 1; i < form.imgSky.size(); ++i) {
        form.imgSky[i].Visible = w.settings.Cloud_Amount == AmountSymbols;
    }
}

}  // namespace cumeron
