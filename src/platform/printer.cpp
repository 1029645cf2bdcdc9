#include "platform/printer.h"

#include <utility>

#include "platform/surface.h"

namespace cumeron {

namespace {

constexpr int TwipsPerInch = 1440;
constexpr int ScaleModePixels = 3;

}  // namespace

double Printer::PixelsPerUnit() const {
    return ScaleMode == ScaleModePixels ? 1.0
                                        : static_cast<double>(PagePixelsPerInch) / TwipsPerInch;
}

double Printer::ScaleWidth() { return PrintableArea().width / PixelsPerUnit(); }

double Printer::ScaleHeight() { return PrintableArea().height / PixelsPerUnit(); }

void Printer::Print(const std::string& text) {
    page.emplace_back(PageText{text, 0, lineTop, FontSize});
    lineTop += LineHeight(FontSize);
}

void Printer::PaintPicture(const Surface& picture, double x, double y, double width,
                           double height) {
    const double unit = PixelsPerUnit();
    const std::uint32_t* first = picture.Pixels();
    const std::size_t count = static_cast<std::size_t>(picture.PixelWidth()) *
                              static_cast<std::size_t>(picture.PixelHeight());
    page.emplace_back(PagePicture{picture.PixelWidth(),
                                  picture.PixelHeight(),
                                  {first, first + count},
                                  x * unit,
                                  y * unit,
                                  width * unit,
                                  height * unit});
}

void Printer::EndDoc() {
    const std::vector<PageOperation> finished = std::move(page);
    KillDoc();
    Send(finished);
}

void Printer::KillDoc() {
    page.clear();
    lineTop = 0;
}

}  // namespace cumeron
