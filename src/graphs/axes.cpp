#include "graphs/axes.h"

#include "workstation.h"

namespace cumeron {

namespace {

void SetXCaptions(FrmMain& form) {
    const bool profile = form.mnuLinePlot.Checked;
    const bool split = form.mnuSplitScreen.Checked;
    const bool both = profile && split;
    form.lblXaxis.Caption = profile && !split ? "Backscatter (100*srad*km)^-1" : "TIME (h)";
    form.lblXaxisBack.Visible = both;
    if (both) form.lblXaxisBack.Caption = "BackScatter";
}

}  // namespace

void SetGraphCaptions(Workstation& w) {
    FrmMain& form = w.frmMain;
    SetXCaptions(form);

    const bool metres = w.settings.Units != 0;
    // What a tilted instrument measures along its beam is a distance, not an altitude.
    const bool distance = w.readings.Tilted == 1;
    form.imgYaxisFt.Visible = !metres && !distance;
    form.imgYaxisM.Visible = metres && !distance;
    form.imgYaxisdisFT.Visible = !metres && distance;
    form.imgYaxisdisM.Visible = metres && distance;

    w.graphs.UnitLabel = metres ? "[m]" : "[ft]";
    form.fraValues.Caption = "Instant Values " + w.graphs.UnitLabel;
}

}  // namespace cumeron
