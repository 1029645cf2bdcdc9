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
// The same colour as a bitmap holds it: 0xFFRRGGBB.
std::uint32_t PixelColour(int colour);

enum DrawModes { DrawInvert = 6, DrawNotXor = 10, DrawCopy = 13 };

// One text printed since the last Cls, with the pixel of its top left corner.
struct PrintedText {
    std::string text;
    int x, y;
    int colour;
};

// Paints text into a bitmap; the host has fonts, the scripted platform paints nothing.
class TextPainter {
public:
    virtual ~TextPainter() = default;
    virtual void Paint(Surface& surface, const PrintedText& text) = 0;
    virtual int TextWidth(const std::string& text) = 0;  // pixels
    virtual int TextHeight() = 0;                        // pixels
    // A drawing of the program, by its name, over the whole surface in black.
    virtual void PaintDrawing(Surface&, const std::string&) {}
};

// Width and Height (pixels, taken to the nearest whole one) are plain fields; the bitmap follows
// them at the next use: what overlaps is kept, the rest is filled with BackColor. A side has at
// most 32767 pixels, and a bitmap 64 millions: the lower rows beyond are left out. User coordinates
// that are no number draw nothing.
struct Surface : Control {
    int BackColor = 0xFFFFFF;
    int ForeColor = 0;
    int ScaleMode = 3;  // 3: pixels; 0: the user scale below
    // Used in mode 0. A ScaleWidth or ScaleHeight of 0 stands for the size in pixels.
    double ScaleLeft = 0, ScaleTop = 0, ScaleWidth = 0, ScaleHeight = 0;
    int DrawMode = DrawCopy;
    int DrawStyle = 0;  // 0 solid; 2 dots, which need DrawWidth 1
    int DrawWidth = 1;  // pixels; less than 1 counts as 1
    double CurrentX = 0, CurrentY = 0;
    TextPainter* painter = nullptr;

    // Fills with BackColor and forgets what was printed; the current point goes to the origin.
    void Cls();
    // A square of DrawWidth by DrawWidth pixels.
    void PSet(double x, double y, int colour);
    // Both end points are drawn; the second becomes the current point.
    void Line(double x1, double y1, double x2, double y2, int colour);
    // At the current point, in ForeColor.
    void Print(const std::string& text);
    // The drawing of that name over the whole surface.
    void PaintDrawing(const std::string& name);
    // Raster copy and fill in pixels, whatever DrawMode says; pixels outside are dropped. The
    // source may be the surface itself.
    void BitBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                int sourceY);
    void Fill(int x, int y, int width, int height, int colour);

    int PixelWidth() const;
    int PixelHeight() const;
    int Pixel(int x, int y) const;  // 00BBGGRR; -1 outside
    // Rows from the top, PixelWidth() pixels each, 0xFFRRGGBB; valid until the next drawing.
    const std::uint32_t* Pixels() const;
    // The same for those who write into the bitmap, the text painter of the host and the columns of
    // the cloud graph; counts as a change.
    std::uint32_t* PixelsToPaint();
    // Counted up at each change, so that the view repaints only what changed.
    unsigned Changes() const;
    const std::vector<PrintedText>& Printed() const;

private:
    struct PixelPoint {
        std::int64_t x, y;
    };
    void Fit() const;
    bool ToPixel(double x, double y, PixelPoint& point) const;
    void Stroke(PixelPoint from, PixelPoint to, int colour);

    mutable std::vector<std::uint32_t> pixels;
    mutable int bitmapWidth = 0, bitmapHeight = 0;
    mutable unsigned changes = 0;
    std::vector<PrintedText> printed;
};

}  // namespace cumeron
