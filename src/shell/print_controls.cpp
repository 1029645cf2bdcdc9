#include "shell/print_controls.h"

#include "shell/main_window.h"

namespace cumeron {

namespace {

constexpr int PaperWhite = 0xFFFFFF, WindowGrey = 0xF0F0F0;

struct SurfaceRow {
    Surface FrmMain::*surface;
    const char* name;
    double width, height;  // pixels
    int backColor;
};

// The title below the graph has room for the longest one; the corner covers what lies left of and
// below the height labels.
constexpr SurfaceRow SurfaceRows[] = {
    {&FrmMain::picPrintAltitude, "picPrintAltitude", 24, 160, PaperWhite},
    {&FrmMain::picPrintXlabel, "picPrintXlabel", 240, 20, PaperWhite},
    {&FrmMain::picPrinting, "picPrinting", 10, 10, PaperWhite},
    {&FrmMain::picCorner, "picCorner", 69, 35, WindowGrey},
};

struct ImageRow {
    Image FrmMain::*image;
    const char* name;
    bool visible;
};

constexpr ImageRow ImageRows[] = {
    {&FrmMain::imgYaxisaltftBW, "imgYaxisaltftBW", true},
    {&FrmMain::imgYaxisaltMbw, "imgYaxisaltMbw", false},
    {&FrmMain::imgYaxisdisFTBW, "imgYaxisdisFTBW", false},
    {&FrmMain::imgYaxisdisMbw, "imgYaxisdisMbw", false},
};

}  // namespace

void ResetPrintControls(FrmMain& form) {
    for (const SurfaceRow& row : SurfaceRows) {
        Surface& surface = form.*row.surface;
        TextPainter* const painter = surface.painter;  // the platform's, not of the design
        surface = Surface();
        surface.painter = painter;
        surface.Width = row.width;
        surface.Height = row.height;
        surface.BackColor = row.backColor;
        surface.Visible = false;
    }
    for (const ImageRow& row : ImageRows) {
        Image& image = form.*row.image = Image();
        image.Width = form.picPrintAltitude.Width;
        image.Height = form.picPrintAltitude.Height;
        image.Picture = row.name;
        image.Visible = row.visible;
    }
    form.lblPrintXlabel = Label();
    form.lblPrintXlabel.Top = 2;
    form.lblPrintXlabel.Width = form.picPrintXlabel.Width;
    form.lblPrintXlabel.Height = form.picPrintXlabel.Height - form.lblPrintXlabel.Top;
}

void AddPrintControls(FrmMain& form, ControlList& list) {
    for (const SurfaceRow& row : SurfaceRows) {
        list.push_back({row.name, -1, "", &(form.*row.surface)});
    }
    for (const ImageRow& row : ImageRows) {
        list.push_back({row.name, -1, "picPrintAltitude", &(form.*row.image)});
    }
    list.push_back({"lblPrintXlabel", -1, "picPrintXlabel", &form.lblPrintXlabel});
}

}  // namespace cumeron
