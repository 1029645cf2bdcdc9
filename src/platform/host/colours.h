// Colours of the records (00BBGGRR) as colours of the desktop.
#pragma once

#include <QColor>

namespace cumeron {

QColor ToColour(int bgr);
// The colour itself where it can be read on that background, else a lighter or darker one of the
// same kind: a theme may be dark, the colours of the records are not made for that.
QColor ReadableOn(const QColor& background, const QColor& colour);
// 1 (the same) to 21 (black on white).
double Contrast(const QColor& a, const QColor& b);

}  // namespace cumeron
