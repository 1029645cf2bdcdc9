// The printer: its properties, the page that is being made, and the print setup dialog. The print
// commands call it. A page is kept here until it is whole and goes out in one piece, so that a
// failure never leaves half a page on the paper.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace cumeron {

struct Surface;

// How a printer is known. Without any printer all three are empty.
struct PrinterIdentity {
    std::string DeviceName, DriverName, Port;
};

// What a driver can be asked for: 1 portrait, 2 landscape; the number of the paper size (9 is A4,
// 1 letter); 1 one side, 2 long edge, 3 short edge; number of copies; 1 grey, 2 colour.
enum class PrinterProperty { Orientation, PaperSize, Duplex, Copies, ColorMode };
inline constexpr std::int16_t Portrait = 1, Landscape = 2;

// The records of the print setup dialog as bytes; print_records.h has their layout. The handles in
// printDlg are 1 for devMode and 2 for devNames.
struct PrintSetupRecords {
    std::array<std::uint8_t, 66> printDlg{};
    std::array<std::uint8_t, 122> devMode{};
    std::array<std::uint8_t, 108> devNames{};
};

// Places and sizes on the page are pixels, 600 to the inch, from the corner of the printable area.
inline constexpr int PagePixelsPerInch = 600;

struct PageText {
    std::string text;
    double x, y;  // top left corner
    int points;
};

struct PagePicture {
    int pixelWidth, pixelHeight;
    std::vector<std::uint32_t> pixels;  // as Surface::Pixels
    double x, y, width, height;
};

using PageOperation = std::variant<PageText, PagePicture>;

struct PageSize {
    double width, height;  // pixels of the printable area
};

class Printer {
public:
    virtual ~Printer() = default;

    virtual PrinterIdentity Identity() = 0;
    virtual std::vector<PrinterIdentity> Printers() = 0;
    // From now on this one, with the properties that it begins with.
    virtual void Select(const PrinterIdentity& chosen) = 0;

    // Raises 482 when there is no printer or its driver lacks the property.
    virtual std::int16_t Property(PrinterProperty property) = 0;
    // Raises 380 for a value that there is not, 482 as above.
    virtual void SetProperty(PrinterProperty property, std::int16_t value) = 0;

    // Shows the print setup dialog. True: the operator agreed, and devMode and devNames tell the
    // choice; false: nothing has changed.
    virtual bool ShowSetup(PrintSetupRecords& records) = 0;

    int ScaleMode = 1;  // 1 twips, 3 pixels: the unit of what follows
    int FontSize = 10;  // points

    // The printable area of the page as the orientation has it. Raise 482 without a printer.
    double ScaleWidth();
    double ScaleHeight();
    // A line of text below the lines before it.
    void Print(const std::string& text);
    // The picture as it is now, stretched over that area.
    void PaintPicture(const Surface& picture, double x, double y, double width, double height);
    // Sends the page off. Raises 482 when the printer fails, or there is none; the page is gone.
    void EndDoc();
    // Throws away a page that was begun; does nothing without one.
    void KillDoc();

private:
    virtual PageSize PrintableArea() = 0;                           // raises 482 without a printer
    virtual double LineHeight(int points) = 0;                      // pixels
    virtual void Send(const std::vector<PageOperation>& page) = 0;  // raises as EndDoc

    double PixelsPerUnit() const;

    std::vector<PageOperation> page;
    double lineTop = 0;  // of the next line of text, pixels
};

}  // namespace cumeron
