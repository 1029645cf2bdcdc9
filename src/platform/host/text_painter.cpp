#include "platform/host/text_painter.h"

#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "platform/host/colours.h"
#include "platform/host/unicode.h"

namespace cumeron {
namespace {

constexpr int TextPixels = 12;

}  // namespace

HostTextPainter::HostTextPainter() { font.setPixelSize(TextPixels); }

void HostTextPainter::Paint(Surface& surface, const PrintedText& text) {
    const std::uint32_t* pixels = surface.Pixels();
    if (surface.PixelWidth() <= 0 || surface.PixelHeight() <= 0) return;
    // The surface owns the pixels and is not const here; only its getter is.
    auto* bytes = reinterpret_cast<uchar*>(const_cast<std::uint32_t*>(pixels));
    QImage image(bytes, surface.PixelWidth(), surface.PixelHeight(), surface.PixelWidth() * 4,
                 QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(ToColour(text.colour));
    painter.drawText(text.x, text.y + QFontMetrics(font).ascent(), ToUnicode(text.text));
}

int HostTextPainter::TextWidth(const std::string& text) {
    return QFontMetrics(font).horizontalAdvance(ToUnicode(text));
}

int HostTextPainter::TextHeight() { return QFontMetrics(font).height(); }

void HostTextPainter::PaintDrawing(Surface& surface, const std::string& name) {
    QFile file(":/icons/" + ToUnicode(name) + ".svg");
    if (!file.open(QIODevice::ReadOnly) || surface.PixelWidth() <= 0 ||
        surface.PixelHeight() <= 0) {
        return;
    }
    QSvgRenderer renderer(file.readAll().replace("currentColor", "black"));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(reinterpret_cast<uchar*>(surface.PixelsToPaint()), surface.PixelWidth(),
                 surface.PixelHeight(), surface.PixelWidth() * 4, QImage::Format_RGB32);
    QPainter painter(&image);
    renderer.render(&painter, image.rect());
}

}  // namespace cumeron
