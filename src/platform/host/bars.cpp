#include "platform/host/bars.h"

#include <QPainter>
#include <algorithm>

namespace cumeron {
namespace {

constexpr int Margin = 2;
constexpr int SeparatorWidth = 9;
constexpr int NarrowestButton = 18;
constexpr int IconMargin = 8;  // of a button around its icon

}  // namespace

void ToolStrip::Add(QToolButton* button, bool separatorBefore) {
    places.push_back({button, separatorBefore});
    Arrange();
}

void ToolStrip::Arrange() {
    separators.clear();
    const auto separatorCount = std::count_if(places.begin(), places.end(),
                                              [](const Place& p) { return p.separatorBefore; });
    const int room = width() - 2 * Margin - static_cast<int>(separatorCount) * SeparatorWidth;
    const int count = std::max(1, static_cast<int>(places.size()));
    const int side = height() - 2 * Margin;
    const int buttonWidth =
        std::clamp(room / count, NarrowestButton, std::max(side, NarrowestButton));
    const int icon = std::max(1, std::min(buttonWidth, side) - IconMargin);
    int x = Margin;
    for (const Place& place : places) {
        if (place.separatorBefore) {
            separators.push_back(x + SeparatorWidth / 2);
            x += SeparatorWidth;
        }
        place.button->setGeometry(x, Margin, buttonWidth, side);
        place.button->setIconSize(QSize(icon, icon));
        x += buttonWidth;
    }
    update();
}

void ToolStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (const int x : separators) painter.drawLine(x, 2 * Margin, x, height() - 2 * Margin);
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

StatusPanel::StatusPanel(QWidget* parent) : QLabel(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setTextFormat(Qt::PlainText);
}

void StatusPanel::SetWidth(int pixels, bool fixed) {
    wantedWidth = pixels;
    fixedWidth = fixed;
}

void StatusPanel::SetContents(const QString& text, const QIcon& icon) {
    fullText = text;
    picture = icon;
    ShowContents();
}

void StatusPanel::ShowContents() {
    const QRect inside = contentsRect();
    if (picture.isNull()) {
        const int room = inside.width() - 2 * Margin;
        setText(fontMetrics().elidedText(fullText, Qt::ElideRight, room));
        return;
    }
    const int side = std::min(inside.width(), inside.height());
    setAlignment(Qt::AlignCenter);
    setPixmap(picture.pixmap(QSize(side, side), devicePixelRatioF()));
}

int StatusPanel::NeededWidth() const {
    const int frame = width() - contentsRect().width();
    const int needed = fontMetrics().horizontalAdvance(fullText) + 2 * Margin + frame;
    return std::min(needed, wantedWidth);
}

std::vector<int> StatusStrip::Widths() const {
    std::vector<int> widths(panels.size());
    std::vector<int> shares(panels.size());  // weights of what is shared among the texts
    int room = width();
    int shareSum = 0;
    int wantedSum = 0;
    for (const StatusPanel* panel : panels) {
        if (!panel->isHidden()) wantedSum += panel->WantedWidth();
    }
    const bool narrow = wantedSum > room;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const StatusPanel& panel = *panels[i];
        if (panel.isHidden()) continue;
        if (panel.HasFixedWidth()) {
            widths[i] = panel.WantedWidth();
        } else {
            widths[i] = narrow ? panel.NeededWidth() : 0;
            shares[i] = panel.WantedWidth() - widths[i];
        }
        room -= widths[i];
        shareSum += shares[i];
    }
    int shared = 0;  // as a sum, so that roundings do not add up
    for (std::size_t i = 0; i < panels.size(); ++i) {
        if (shares[i] <= 0 || shareSum <= 0 || room <= 0) continue;
        const int before = room * shared / shareSum;
        shared += shares[i];
        widths[i] += room * shared / shareSum - before;
    }
    return widths;
}

void StatusStrip::Arrange() {
    const std::vector<int> widths = Widths();
    int x = 0;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        if (panels[i]->isHidden()) continue;
        const QRect place(x, 0, widths[i], height());
        if (panels[i]->geometry() != place) panels[i]->setGeometry(place);
        x += widths[i];
    }
}

}  // namespace cumeron
