#include "platform/host/pictures.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QSvgGenerator>
#include <QWidget>
#include <algorithm>

#include "platform/form.h"
#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"
#include "platform/surface.h"

namespace cumeron {
namespace {

constexpr int PixelsPerInch = 96;
constexpr double PointsPerInch = 72;
constexpr const char* Maker = "Cumeron";

// A copy; the surface may change meanwhile.
QImage ImageOf(const Surface& surface) {
    return QImage(reinterpret_cast<const uchar*>(surface.Pixels()), surface.PixelWidth(),
                  surface.PixelHeight(), surface.PixelWidth() * 4, QImage::Format_RGB32)
        .copy();
}

// "2026-05-01 12:00:00" as formats for machines have it.
QString IsoTime(const std::string& time) { return ToUnicode(time).replace(' ', 'T'); }

QString Description(const PictureNotes& notes) {
    return ToUnicode("First time: " + notes.firstTime + "\nLast time: " + notes.lastTime +
                     "\nSaved: " + notes.savedTime);
}

// The writer takes no keys of two words; the image does.
void WritePng(QIODevice& out, const QImage& image, const PictureNotes& notes) {
    QImage titled = image;
    titled.setText("Title", ToUnicode(notes.title));
    titled.setText("First Time", ToUnicode(notes.firstTime));
    titled.setText("Last Time", ToUnicode(notes.lastTime));
    titled.setText("Creation Time", ToUnicode(notes.savedTime));
    titled.setText("Software", Maker);
    if (!titled.save(&out, "png")) throw RuntimeError(5);
}

void Paint(QPaintDevice& paper, const QImage& image) {
    QPainter painter;
    if (!painter.begin(&paper)) throw RuntimeError(5);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.drawImage(image.rect(), image);
    painter.end();
}

void WriteSvg(QIODevice& out, const QImage& image, const PictureNotes& notes) {
    QSvgGenerator paper;
    paper.setOutputDevice(&out);
    paper.setResolution(PixelsPerInch);
    paper.setSize(image.size());
    paper.setViewBox(image.rect());
    paper.setTitle(ToUnicode(notes.title).toHtmlEscaped());
    paper.setDescription(Description(notes).toHtmlEscaped());
    Paint(paper, image);
}

QByteArray XmpOf(const PictureNotes& notes) {
    return QString(R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/"
 xmlns:xmp="http://ns.adobe.com/xap/1.0/">
<dc:title><rdf:Alt><rdf:li xml:lang="x-default">%1</rdf:li></rdf:Alt></dc:title>
<dc:description><rdf:Alt><rdf:li xml:lang="x-default">%2</rdf:li></rdf:Alt></dc:description>
<xmp:CreatorTool>%3</xmp:CreatorTool><xmp:CreateDate>%4</xmp:CreateDate>
</rdf:Description></rdf:RDF></x:xmpmeta>
<?xpacket end="w"?>)")
        .arg(ToUnicode(notes.title).toHtmlEscaped(), Description(notes).toHtmlEscaped(), Maker,
             IsoTime(notes.savedTime))
        .toUtf8();
}

void WritePdf(QIODevice& out, const QImage& image, const PictureNotes& notes) {
    QPdfWriter paper(&out);
    const QSizeF points = QSizeF(image.size()) * PointsPerInch / PixelsPerInch;
    paper.setResolution(PixelsPerInch);
    paper.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    paper.setPageMargins(QMarginsF());
    paper.setTitle(ToUnicode(notes.title));
    paper.setCreator(Maker);
    paper.setDocumentXmpMetadata(XmpOf(notes));
    Paint(paper, image);
}

}  // namespace

void HostClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

void HostClipboard::SetPicture(const Surface& picture) {
    QGuiApplication::clipboard()->setImage(ImageOf(picture));
}

void HostPictures::GrabWindow(const Form& form, Surface& into) {
    QWidget* window = Window ? Window(form) : nullptr;
    const bool seen = window != nullptr && window->isVisible() && !window->isMinimized();
    const QImage image =
        seen ? window->grab().toImage().convertToFormat(QImage::Format_RGB32) : QImage();
    into.Width = image.width();
    into.Height = image.height();
    std::uint32_t* row = into.PixelsToPaint();
    for (int y = 0; y < image.height(); ++y, row += image.width()) {
        std::copy_n(reinterpret_cast<const std::uint32_t*>(image.constScanLine(y)), image.width(),
                    row);
    }
}

std::string HostPictures::Encode(const Surface& picture, PictureFormat format,
                                 const PictureNotes& notes) {
    const QImage image = ImageOf(picture);
    if (image.isNull()) throw RuntimeError(5);
    constexpr void (*writers[])(QIODevice&, const QImage&, const PictureNotes&) = {
        WritePng, WriteSvg, WritePdf};
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    writers[static_cast<int>(format)](bytes, image, notes);
    return bytes.data().toStdString();
}

}  // namespace cumeron
