#include "platform/surface.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <utility>

#include "platform/runtime/errors.h"

namespace cumeron {

namespace {

constexpr double LargestSide = 32767;
constexpr int LargestArea = 64'000'000;
// Points further away than this are taken as that far, so that products of distances fit 64 bits.
constexpr double FurthestPixel = 1 << 29;
constexpr int StyleDots = 2;
constexpr int ScaleModePixels = 3;

constexpr std::uint32_t Opaque = 0xFF000000;
constexpr std::uint32_t ColourBits = 0x00FFFFFF;

constexpr int Palette[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                           0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                           0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

// Exchanges red and blue: 00BBGGRR of the interface and 00RRGGBB of the bitmap.
std::uint32_t ExchangeRedAndBlue(std::uint32_t colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

int ToSide(double size) {
    if (std::isnan(size)) return 0;
    return static_cast<int>(std::clamp(std::floor(size + 0.5), 0.0, LargestSide));
}

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    const std::int64_t quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

std::uint32_t Blend(std::uint32_t pixel, std::uint32_t pen, int drawMode) {
    switch (drawMode) {
        case DrawInvert:
            return pixel ^ ColourBits;
        case DrawNotXor:
            return Opaque | ~(pen ^ pixel);
        default:
            return pen;
    }
}

// A stretch of a line along the axis on which it is longer, from the lower end to the higher.
struct Slope {
    std::int64_t start, end;              // along that axis
    std::int64_t startAcross, endAcross;  // on the other one

    // The pixel across that lies nearest to the ideal line, the same in both directions.
    std::int64_t AcrossAt(std::int64_t along) const {
        const std::int64_t length = end - start;
        if (length == 0) return startAcross;
        const std::int64_t rise = endAcross - startAcross;
        return startAcross + FloorDivide(2 * (along - start) * rise + length, 2 * length);
    }
};

// A copied stretch of one axis; Clip leaves what lies in both bitmaps.
struct Stretch {
    std::int64_t to, from, length;

    void Clip(std::int64_t toSize, std::int64_t fromSize) {
        const std::int64_t skipped = std::max({std::int64_t{0}, -to, -from});
        to += skipped;
        from += skipped;
        length = std::min({length - skipped, toSize - to, fromSize - from});
    }
};

}  // namespace

std::uint32_t PixelColour(int colour) {
    return Opaque | ExchangeRedAndBlue(static_cast<std::uint32_t>(colour) & ColourBits);
}

int QBColor(int number) {
    if (number < 0 || number >= static_cast<int>(std::size(Palette))) throw RuntimeError(5);
    return Palette[number];
}

void Surface::Fit() const {
    const int newWidth = ToSide(Width);
    int newHeight = ToSide(Height);
    if (newWidth > 0) newHeight = std::min(newHeight, LargestArea / newWidth);
    if (newWidth == bitmapWidth && newHeight == bitmapHeight) return;

    std::vector<std::uint32_t> fitted(
        static_cast<std::size_t>(newWidth) * static_cast<std::size_t>(newHeight),
        PixelColour(BackColor));
    const int keptWidth = std::min(newWidth, bitmapWidth);
    for (int y = 0; y < std::min(newHeight, bitmapHeight); ++y) {
        std::copy_n(pixels.begin() + std::ptrdiff_t{y} * bitmapWidth, keptWidth,
                    fitted.begin() + std::ptrdiff_t{y} * newWidth);
    }
    pixels = std::move(fitted);
    bitmapWidth = newWidth;
    bitmapHeight = newHeight;
    ++changes;
}

bool Surface::ToPixel(double x, double y, PixelPoint& point) const {
    if (ScaleMode != ScaleModePixels) {
        if (ScaleWidth == 0) {
            x -= ScaleLeft;
        } else {
            x = (x - ScaleLeft) * bitmapWidth / ScaleWidth;
        }
        if (ScaleHeight == 0) {
            y -= ScaleTop;
        } else {
            y = (y - ScaleTop) * bitmapHeight / ScaleHeight;
        }
    }
    if (std::isnan(x) || std::isnan(y)) return false;
    const auto nearest = [](double at) {
        return static_cast<std::int64_t>(
            std::clamp(std::floor(at + 0.5), -FurthestPixel, FurthestPixel));
    };
    point = {nearest(x), nearest(y)};
    return true;
}

// Goes pixel by pixel along the longer axis and paints there, in one go across, what the pen
// covers on its way: each pixel once, as the inverting modes need it.
void Surface::Stroke(PixelPoint from, PixelPoint to, int colour) {
    ++changes;
    const bool steep = std::abs(to.y - from.y) > std::abs(to.x - from.x);
    if (steep) {
        std::swap(from.x, from.y);
        std::swap(to.x, to.y);
    }
    const std::int64_t first = from.x;
    if (from.x > to.x) std::swap(from, to);
    const Slope slope{from.x, to.x, from.y, to.y};
    const std::int64_t lengthAlong = steep ? bitmapHeight : bitmapWidth;
    const std::int64_t lengthAcross = steep ? bitmapWidth : bitmapHeight;
    const std::int64_t stepAlong = steep ? bitmapWidth : 1;
    const std::int64_t stepAcross = steep ? 1 : bitmapWidth;

    // The pen's square reaches further up and left when its width is even.
    const std::int64_t penWidth = std::max(DrawWidth, 1);
    const std::int64_t before = penWidth / 2;
    const std::int64_t behind = penWidth - 1 - before;
    const bool dots = DrawStyle == StyleDots && penWidth == 1;
    const std::uint32_t pen = PixelColour(colour);

    const std::int64_t last = std::min(slope.end + behind, lengthAlong - 1);
    for (std::int64_t at = std::max<std::int64_t>(slope.start - before, 0); at <= last; ++at) {
        if (dots && (at - first) % 2 != 0) continue;
        const auto [low, high] =
            std::minmax({slope.AcrossAt(std::clamp(at - behind, slope.start, slope.end)),
                         slope.AcrossAt(std::clamp(at + before, slope.start, slope.end))});
        const std::int64_t lastAcross = std::min(high + behind, lengthAcross - 1);
        for (std::int64_t across = std::max<std::int64_t>(low - before, 0); across <= lastAcross;
             ++across) {
            std::uint32_t& pixel =
                pixels[static_cast<std::size_t>(at * stepAlong + across * stepAcross)];
            pixel = Blend(pixel, pen, DrawMode);
        }
    }
}

void Surface::Cls() {
    Fit();
    std::fill(pixels.begin(), pixels.end(), PixelColour(BackColor));
    printed.clear();
    CurrentX = 0;
    CurrentY = 0;
    ++changes;
}

void Surface::PSet(double x, double y, int colour) {
    Fit();
    PixelPoint point{};
    if (ToPixel(x, y, point)) Stroke(point, point, colour);
}

void Surface::Line(double x1, double y1, double x2, double y2, int colour) {
    Fit();
    CurrentX = x2;
    CurrentY = y2;
    PixelPoint from{};
    PixelPoint to{};
    if (ToPixel(x1, y1, from) && ToPixel(x2, y2, to)) Stroke(from, to, colour);
}

void Surface::Print(const std::string& text) {
    Fit();
    PixelPoint corner{};
    if (!ToPixel(CurrentX, CurrentY, corner)) return;
    printed.push_back({text, static_cast<int>(corner.x), static_cast<int>(corner.y), ForeColor});
    ++changes;
    if (painter != nullptr) painter->Paint(*this, printed.back());
}

void Surface::PaintDrawing(const std::string& name) {
    Fit();
    ++changes;
    if (painter != nullptr) painter->PaintDrawing(*this, name);
}

void Surface::BitBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                     int sourceY) {
    Fit();
    source.Fit();
    Stretch across{x, sourceX, width};
    Stretch down{y, sourceY, height};
    across.Clip(bitmapWidth, source.bitmapWidth);
    down.Clip(bitmapHeight, source.bitmapHeight);
    if (across.length < 0) return;

    // Within one bitmap the rows go in the order in which none is overwritten before it is read.
    const bool upwards = down.to > down.from;
    for (std::int64_t i = 0; i < down.length; ++i) {
        const std::int64_t row = upwards ? down.length - 1 - i : i;
        std::memmove(pixels.data() + (down.to + row) * bitmapWidth + across.to,
                     source.pixels.data() + (down.from + row) * source.bitmapWidth + across.from,
                     static_cast<std::size_t>(across.length) * sizeof(std::uint32_t));
    }
    ++changes;
}

void Surface::Fill(int x, int y, int width, int height, int colour) {
    Fit();
    Stretch across{x, x, width};
    Stretch down{y, y, height};
    across.Clip(bitmapWidth, bitmapWidth);
    down.Clip(bitmapHeight, bitmapHeight);
    for (std::int64_t row = down.to; row < down.to + down.length; ++row) {
        std::fill_n(pixels.begin() + row * bitmapWidth + across.to, across.length,
                    PixelColour(colour));
    }
    ++changes;
}

int Surface::PixelWidth() const {
    Fit();
    return bitmapWidth;
}

int Surface::PixelHeight() const {
    Fit();
    return bitmapHeight;
}

int Surface::Pixel(int x, int y) const {
    Fit();
    if (x < 0 || y < 0 || x >= bitmapWidth || y >= bitmapHeight) return -1;
    const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmapWidth) +
                           static_cast<std::size_t>(x);
    return static_cast<int>(ExchangeRedAndBlue(pixels[at]));
}

const std::uint32_t* Surface::Pixels() const {
    Fit();
    return pixels.data();
}

std::uint32_t* Surface::PixelsToPaint() {
    Fit();
    ++changes;
    return pixels.data();
}

unsigned Surface::Changes() const {
    Fit();
    return changes;
}

const std::vector<PrintedText>& Surface::Printed() const { return printed; }

}  // namespace cumeron
