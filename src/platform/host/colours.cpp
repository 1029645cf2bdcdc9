#include "platform/host/colours.h"

#include <algorithm>
#include <cmath>

namespace cumeron {
namespace {

constexpr double ReadableContrast = 4.5;

double Linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

QColor Mix(const QColor& from, const QColor& to, int tenths) {
    const auto part = [tenths](int a, int b) { return a + (b - a) * tenths / 10; };
    return QColor(part(from.red(), to.red()), part(from.green(), to.green()),
                  part(from.blue(), to.blue()));
}

}  // namespace

QColor ToColour(int bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

double Contrast(const QColor& a, const QColor& b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor ReadableOn(const QColor& background, const QColor& colour) {
    const QColor end = Contrast(background, Qt::black) > Contrast(background, Qt::white)
                           ? QColor(Qt::black)
                           : QColor(Qt::white);
    for (int tenths = 0; tenths < 10; ++tenths) {
        const QColor mixed = Mix(colour, end, tenths);
        if (Contrast(background, mixed) >= ReadableContrast) return mixed;
    }
    return end;
}

}  // namespace cumeron
