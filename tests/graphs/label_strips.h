// Whether the label strips of the cloud graph were drawn anew: for the tests of those who have the
// axes brought up to date.
#pragma once

#include <algorithm>

#include "workstation.h"

namespace cumeron {

// Leaves a text on both strips, and the flags that nothing is out of date.
inline void MarkLabelStrips(Workstation& w) {
    for (Surface* strip : {&w.frmMain.picXLabels, &w.frmMain.picYLabels}) strip->Print("old");
    w.graphs.TimeLabelsDirty = w.graphs.HeightLabelsDirty = 0;
}

inline bool IsMarked(const Surface& strip) {
    return std::ranges::any_of(strip.Printed(),
                               [](const PrintedText& printed) { return printed.text == "old"; });
}

// Both were drawn since, and nothing has gone out of date again.
inline bool LabelStripsAreNew(const Workstation& w) {
    return !IsMarked(w.frmMain.picXLabels) && !IsMarked(w.frmMain.picYLabels) &&
           w.graphs.TimeLabelsDirty == 0 && w.graphs.HeightLabelsDirty == 0;
}

// Neither was drawn since, nor is it to be.
inline bool LabelStripsAreOld(const Workstation& w) {
    return IsMarked(w.frmMain.picXLabels) && IsMarked(w.frmMain.picYLabels) &&
           w.graphs.TimeLabelsDirty == 0 && w.graphs.HeightLabelsDirty == 0;
}

}  // namespace cumeron
