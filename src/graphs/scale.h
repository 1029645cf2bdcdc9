// The user scale of a surface, noted while a drawing routine sets its own, and put back at its end.
// Every drawing routine of the graphs but DrawCloudHits makes one first.
#pragma once

#include "platform/surface.h"

namespace cumeron {

class KeptScale {
public:
    // The surface goes to pixels, y downwards.
    explicit KeptScale(Surface& drawn)
        : surface(drawn),
          mode(drawn.ScaleMode),
          left(drawn.ScaleLeft),
          top(drawn.ScaleTop),
          width(drawn.ScaleWidth),
          height(drawn.ScaleHeight) {
        surface.ScaleMode = 3;
    }
    ~KeptScale() {
        surface.ScaleMode = mode;
        surface.ScaleLeft = left;
        surface.ScaleTop = top;
        surface.ScaleWidth = width;
        surface.ScaleHeight = height;
    }
    KeptScale(const KeptScale&) = delete;
    KeptScale& operator=(const KeptScale&) = delete;

    // x from left on over width units; y from top down over height units, upwards when negative.
    // A width of 0 leaves x in pixels.
    void Set(double newLeft, double newTop, double newWidth, double newHeight) {
        surface.ScaleMode = 0;
        surface.ScaleLeft = newLeft;
        surface.ScaleTop = newTop;
        surface.ScaleWidth = newWidth;
        surface.ScaleHeight = newHeight;
    }

private:
    Surface& surface;
    int mode;
    double left, top, width, height;
};

}  // namespace cumeron
