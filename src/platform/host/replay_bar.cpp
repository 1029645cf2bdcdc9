#include "platform/host/replay_bar.h"

#include <QEvent>
#include <QFontMetrics>
#include <algorithm>

namespace cumeron {
namespace {

constexpr int Parts = 1000;  // of a file that the bar tells apart
constexpr int Margin = 12;   // pixels left and right of the text
constexpr const char* LongestText = "2147.4 of 2147.4 MB, record 30240, file 99 of 99";

QString Megabytes(std::int64_t bytes) {
    return QString::number(static_cast<double>(bytes) / 1e6, 'f', 1);
}

int PartOf(const ReplayProgress& progress) {
    if (progress.size <= 0) return Parts;
    return static_cast<int>(
        std::min<std::int64_t>(Parts, progress.position * Parts / progress.size));
}

}  // namespace

QString ReplayText(const ReplayProgress& progress) {
    QString text = QString("%1 of %2 MB, record %3")
                       .arg(Megabytes(progress.position), Megabytes(progress.size))
                       .arg(progress.records);
    if (progress.files <= 1) return text;
    return text + QString(", file %1 of %2").arg(progress.file).arg(progress.files);
}

ReplayBar::ReplayBar(QMenuBar& bar) : QProgressBar(&bar), menus(bar) {
    setObjectName("replay");
    setAccessibleName("Replay");
    setToolTip("How far the replay of the log is");
    setRange(0, Parts);
    setAlignment(Qt::AlignCenter);
    menus.installEventFilter(this);
    hide();
}

// Beside the menus, where they leave room; in a narrow window without its text.
void ReplayBar::Arrange() {
    int menusEnd = 0;
    for (QAction* menu : menus.actions()) {
        menusEnd = std::max(menusEnd, menus.actionGeometry(menu).right());
    }
    const int wanted = fontMetrics().horizontalAdvance(LongestText) + 2 * Margin;
    const int room = std::max(0, menus.width() - menusEnd - Margin);
    const int width = std::min(wanted, room);
    setGeometry(menus.width() - width, 1, width, menus.height() - 2);
    setTextVisible(width == wanted);
}

bool ReplayBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) Arrange();
    return QProgressBar::eventFilter(watched, event);
}

void ReplayBar::Show(const ReplayProgress& progress) {
    const bool on = progress.files > 0;
    if (on && isHidden()) Arrange();
    setVisible(on);
    setValue(PartOf(progress));
    setFormat(ReplayText(progress));
}

}  // namespace cumeron
