// A drawing surface: a persistent bitmap with a user coordinate system, drawn in software. The
// graphs draw on it, the view only shows it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace cumeron {

// Colours are 00BBGGRR. QBColor: the usual palette of sixteen, 0 to 15; raises 5 outside.
int QBColor(int number);

enum DrawModes { DrawInvert = 6, DrawNotXor = 10, DrawCopy = 13 };

// One text printed since the last Cls, with the pixel of its top left corner.
struct PrintedText {
    std::string text;
    int x, y;
    int colour;
};

class Bitmap;

// Paints text into a bitmap; the host has fonts, the scripted platform paints nothing.
class TextPainter {
public:
    virtual ~TextPainter() = default;
    virtual void Paint(Surface& surface, const PrintedText& text) = 0;
    virtual int TextWidth(const std::string& text) = 0;   // pixels
    virtual int TextHeight() = 0;                          // pixels
};

// Width and Height (pixels) are plain fields; the bitmap follows them at the next use: what
// overlaps is kept, the rest is filled with BackColor.
struct Surface : Control {
    int BackColor = 0xFFFFFF;
    int ForeColor = 0;
    int ScaleMode = 3;  // 3: pixels; 0: the user scale below
    double ScaleLeft = 0, ScaleTop = 0, ScaleWidth = 0, ScaleHeight = 0;  // used in mode 0
    int DrawMode = DrawCopy;
    int DrawStyle = 0;  // 0 solid, 2 dots
    int DrawWidth = 1;
    double CurrentX = 0, CurrentY = 0;
    TextPainter* painter = nullptr;

    void Cls();
    void PSet(double x, double y, int colour);
    void Line(double x1, double y1, double x2, double y2, int colour);
    void Print(const std::string& text);
    // Raster copy and fill in pixels; pixels outside are dropped.
    void BitBlt(int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY);
    void Fill(int x, int y, int width, int height, int colour);

    int PixelWidth() const;
    int PixelHeight() const;
    int Pixel(int x, int y) const;  // 00BBGGRR; -1 outside
    // Rows from the top, PixelWidth() pixels each, 0xFFRRGGBB; valid until the next drawing.
    const std::uint32_t* Pixels() const;
    // Counted up at each change, so that the view repaints only what changed.
    unsigned Changes() const;
    const std::vector<PrintedText>& Printed() const;

private:
    void Fit() const;
    mutable std::vector<std::uint32_t> pixels;
    mutable int bitmapWidth = 0, bitmapHeight = 0;
    mutable unsigned changes = 0;
    std::vector<PrintedText> printed;
};

}  // namespace cumeron
