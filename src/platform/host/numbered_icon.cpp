#include "platform/host/numbered_icon.h"

#include <QPainter>

namespace cumeron {
namespace {

constexpr int Sides[] = {16, 24, 32, 48, 64, 128, 256};  // pixels
const QColor Badge(0xC6, 0x28, 0x28);

// A disc with the number in the lower right corner.
void DrawNumber(QPixmap& picture, int number) {
    const double side = picture.width();
    const QRectF disc(side * 0.4, side * 0.4, side * 0.6, side * 0.6);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, side / 24));
    painter.setBrush(Badge);
    painter.drawEllipse(disc.adjusted(side / 48, side / 48, -side / 48, -side / 48));
    const QString text = QString::number(number);
    QFont font;
    font.setBold(true);
    font.setPixelSize(static_cast<int>(text.size() > 1 ? side * 0.32 : side * 0.45));
    painter.setFont(font);
    painter.drawText(disc, Qt::AlignCenter, text);
}

}  // namespace

QIcon NumberedIcon(const QIcon& icon, int number) {
    if (number <= 1) return icon;
    QIcon numbered;
    for (const int side : Sides) {
        QPixmap picture = icon.pixmap(QSize(side, side), 1.0);
        DrawNumber(picture, number);
        numbered.addPixmap(picture);
    }
    return numbered;
}

}  // namespace cumeron
