// The controls of a form view: a widget for each kind of record, and the step that brings it in
// line. Each step remembers what it has shown and touches the widget only where the record differs.
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "platform/host/colours.h"
#include "platform/host/form_steps.h"
#include "platform/host/form_view.h"
#include "platform/host/unicode.h"
#include "platform/host/widgets.h"

namespace cumeron {
namespace {

int PixelsOfPoints(int points) { return points * 96 / 72; }

struct SpokenRow {
    const char* name;
    const char* spoken;
};

// Of controls that can have the focus or show a picture, and have no caption to be called by.
constexpr SpokenRow SpokenRows[] = {
    {"picCombination", "Cloud graph"},
    {"picLines", "Backscatter profile"},
    {"picSplitSizer", "Border between cloud graph and profile"},
    {"txtMessage", "Messages"},
    {"stsMessage", "Status message"},
    {"txtTerm", "Terminal"},
};

QRect PlaceOf(const Control& record) {
    return {static_cast<int>(std::lround(record.Left)), static_cast<int>(std::lround(record.Top)),
            static_cast<int>(std::lround(record.Width)),
            static_cast<int>(std::lround(record.Height))};
}

void FollowState(const Control& record, QWidget* widget) {
    if (widget->isHidden() == record.Visible) widget->setVisible(record.Visible);
    if (widget->testAttribute(Qt::WA_ForceDisabled) == record.Enabled) {
        widget->setEnabled(record.Enabled);
    }
}

Qt::Alignment AlignmentOf(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Right:
            return Qt::AlignRight | Qt::AlignVCenter;
        case TextAlignment::Center:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        case TextAlignment::Left:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

// -1 stands for the colour of the window behind. Black on it is its own colour of text, which in a
// dark theme is a light one.
void ShowColours(int colour, int background, QWidget* widget) {
    widget->setAutoFillBackground(background >= 0);
    QPalette palette;
    if (colour != 0 || background >= 0) {
        palette = widget->parentWidget()->palette();
        if (background >= 0) palette.setColor(QPalette::Window, ToColour(background));
        const QColor behind = palette.color(QPalette::Window);
        palette.setColor(QPalette::WindowText, ReadableOn(behind, ToColour(colour)));
    }
    widget->setPalette(palette);
}

}  // namespace

QString WidgetName(const NamedControl& named) {
    const QString name = ToUnicode(named.name);
    return named.index < 0 ? name : QString("%1(%2)").arg(name).arg(named.index);
}

QString SpokenName(const NamedControl& named) {
    const auto* row = std::find_if(std::begin(SpokenRows), std::end(SpokenRows),
                                   [&](const SpokenRow& r) { return named.name == r.name; });
    return row == std::end(SpokenRows) ? WidgetName(named) : QString(row->spoken);
}

void FormView::Follow(const NamedControl& named, Control& record, QWidget* widget) {
    gestures.Watch(record, widget);
    if (!designed) {
        widget->setObjectName(WidgetName(named));
        if (record.Width <= 0 && record.Height <= 0) widget->adjustSize();
        steps.push_back([&record, widget] {
            const QRect place = PlaceOf(record);
            if (!place.isEmpty() && widget->geometry() != place) widget->setGeometry(place);
        });
    }
    steps.push_back([&record, widget] { FollowState(record, widget); });
    steps.push_back(OnChange(
        record, [](const Control& r) { return r.ToolTipText; },
        [widget](const Control& r) { widget->setToolTip(ToUnicode(r.ToolTipText)); }));
}

void FormView::Bind(const NamedControl& named, Label& record) {
    auto* label = WidgetFor<QLabel, FittingLabel>(named);
    Follow(named, record, label);
    steps.push_back(OnChange(
        record, [](const Label& r) { return std::make_tuple(r.Caption, r.ForeColor, r.BackColor); },
        [label](const Label& r) {
            label->setText(ToUnicode(r.Caption));  // also its accessible name
            ShowColours(r.ForeColor, r.BackColor, label);
        }));
    auto* fitting = dynamic_cast<FittingLabel*>(label);
    if (fitting == nullptr) return;  // font and alignment are the design's
    steps.push_back(OnChange(
        record,
        [](const Label& r) { return std::make_tuple(r.Caption, r.FontSize, r.Bold, r.Alignment); },
        [fitting](const Label& r) {
            fitting->setAlignment(AlignmentOf(r.Alignment));
            fitting->SetFontPixels(PixelsOfPoints(r.FontSize), r.Bold);
        }));
}

void FormView::Bind(const NamedControl& named, Frame& record) {
    auto* box = WidgetFor<QGroupBox>(named);
    containers[named.name] = box;
    tipped[box] = named.name;
    box->installEventFilter(this);
    Follow(named, record, box);
    steps.push_back(OnChange(
        record, [](const Frame& r) { return std::make_tuple(r.Caption, r.ForeColor); },
        [box](const Frame& r) {
            box->setTitle(ToUnicode(r.Caption));
            ShowColours(r.ForeColor, -1, box);
        }));
}

void FormView::Bind(const NamedControl& named, Button& record) {
    auto* button = WidgetFor<QPushButton>(named);
    button->setText(ToUnicode(record.Caption));
    Follow(named, record, button);
    connect(button, &QPushButton::clicked, this, [this, &record] { Run(record.Click); });
    steps.push_back(OnChange(
        record, [](const Button& r) { return r.Caption; },
        [button](const Button& r) { button->setText(ToUnicode(r.Caption)); }));
}

void FormView::Bind(const NamedControl& named, MenuEntry& record) {
    const auto parent = menus.find(named.parent);
    if (parent != menus.end() && record.SeparatorBefore) parent->second->addSeparator();
    const bool isMenu = std::any_of(controls.begin(), controls.end(), [&](const NamedControl& c) {
        return c.parent == named.name && std::holds_alternative<MenuEntry*>(c.control);
    });
    const QString name = WidgetName(named);
    if (parent == menus.end() || isMenu) {
        QMenu* menu = parent == menus.end() ? window->MenuBar()->addMenu(QString())
                                            : parent->second->addMenu(QString());
        menu->setObjectName(name);
        menus[named.name] = menu;
        BindMenu(record, menu);
    } else {
        QAction* action = parent->second->addAction(QString());
        action->setObjectName(name);
        BindAction(record, action);
    }
}

void FormView::BindMenu(MenuEntry& record, QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this, &record] {
        if (record.Click) Run(record.Click);
    });
    steps.push_back([&record, menu] {
        QAction* action = menu->menuAction();
        const QString caption = ToUnicode(record.Caption);
        if (action->text() != caption) action->setText(caption);
        if (action->isEnabled() != record.Enabled) action->setEnabled(record.Enabled);
        if (action->isVisible() != record.Visible) action->setVisible(record.Visible);
    });
}

void FormView::BindAction(MenuEntry& record, QAction* action) {
    connect(action, &QAction::triggered, this, [this, &record] {
        if (record.Enabled) Run(record.Click);
    });
    steps.push_back(OnChange(
        record, [](const MenuEntry& r) { return r.Caption; },
        [action](const MenuEntry& r) { action->setText(ToUnicode(r.Caption)); }));
    steps.push_back([&record, action] {
        // An entry is a check box only while it bears its mark; the others show no empty one.
        if (action->isCheckable() != record.Checked) action->setCheckable(record.Checked);
        if (action->isChecked() != record.Checked) action->setChecked(record.Checked);
        if (action->isEnabled() != record.Enabled) action->setEnabled(record.Enabled);
        if (action->isVisible() != record.Visible) action->setVisible(record.Visible);
    });
}

void FormView::Bind(const NamedControl& named, ToolButton& record) {
    if (toolStrip == nullptr) {
        toolStrip = new ToolStrip(window->Client());
        toolStrip->setObjectName(ToUnicode(named.parent));
    }
    auto* button = new QToolButton(toolStrip);
    button->setObjectName(WidgetName(named));
    button->setAutoRaise(true);
    button->setCheckable(true);
    // The tabulator reaches it; a click leaves the keys where they were.
    button->setFocusPolicy(Qt::TabFocus);
    toolStrip->Add(button, record.SeparatorBefore);
    connect(button, &QToolButton::clicked, this, [this, &record] {
        if (record.CheckStyle) record.Value = record.Value == 0 ? 1 : 0;
        Run(record.Click);
    });
    steps.push_back(OnChange(
        record, [](const ToolButton& r) { return std::make_tuple(r.Picture, r.ToolTipText); },
        [button, key = named.name](const ToolButton& r) {
            const QIcon icon = IconOf(r.Picture);
            button->setIcon(icon.isNull() ? IconOf(key) : icon);
            button->setToolTip(ToUnicode(r.ToolTipText));
            button->setAccessibleName(button->toolTip());
        }));
    steps.push_back([&record, button] {
        if (button->isChecked() != (record.Value != 0)) button->setChecked(record.Value != 0);
        FollowState(record, button);
    });
}

void FormView::Bind(const NamedControl& named, Panel& record) {
    if (statusStrip == nullptr) {
        statusStrip = new StatusStrip(window->Client());
        statusStrip->setObjectName(ToUnicode(named.parent));
    }
    auto* panel = new StatusPanel(statusStrip);
    panel->setObjectName(WidgetName(named));
    statusStrip->Add(panel);
    // Pictures and their empty twins take turns at one fixed width.
    const bool fixed = named.name.find("_Image") != std::string::npos;
    steps.push_back(OnChange(
        record,
        [](const Panel& r) { return std::make_tuple(r.Text, r.Picture, r.ToolTipText, r.Width); },
        [panel, fixed](const Panel& r) {
            panel->SetWidth(static_cast<int>(r.Width), fixed);
            panel->SetContents(ToUnicode(r.Text), IconOf(r.Picture));
            panel->setToolTip(ToUnicode(r.ToolTipText));
            panel->setAccessibleName(ToUnicode(r.Text.empty() ? r.ToolTipText : r.Text));
        }));
    steps.push_back([&record, panel] { FollowState(record, panel); });
}

void FormView::Bind(const NamedControl& named, Image& record) {
    auto* picture = WidgetFor<PictureWidget>(named);
    Follow(named, record, picture);
    steps.push_back(OnChange(
        record, [](const Image& r) { return r.Picture; },
        [picture](const Image& r) { picture->SetPicture(ToUnicode(r.Picture)); }));
}

void FormView::Bind(const NamedControl& named, Surface& record) {
    auto* widget = WidgetFor<SurfaceWidget>(named);
    containers[named.name] = widget;  // of the titles that lie on it
    widget->SetSurface(record);
    Follow(named, record, widget);
    gestures.Watch(record, widget);
    widget->setAccessibleName(SpokenName(named));
    surfaceSteps.push_back(OnChange(
        record, [](const Surface& r) { return r.Changes(); },
        [widget](const Surface&) { widget->update(); }));
}

}  // namespace cumeron
