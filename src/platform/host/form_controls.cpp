// The controls of a form view: a widget for each kind of record, and the step that brings it in
// line. Each step remembers what it has shown and touches the widget only where the record differs.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <cmath>

#include "platform/host/colours.h"
#include "platform/host/form_view.h"
#include "platform/host/unicode.h"
#include "platform/host/widgets.h"

namespace cumeron {
namespace {

int PixelsOfPoints(int points) { return points * 96 / 72; }

QString NameOf(const NamedControl& named) {
    const QString name = ToUnicode(named.name);
    return named.index < 0 ? name : QString("%1(%2)").arg(name).arg(named.index);
}

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

// A step that calls show(record) when the fields that pick(record) gives have changed.
template <class Record, class Pick, class Show>
std::function<void()> OnChange(Record& record, Pick pick, Show show) {
    using Fields = decltype(pick(record));
    auto shown = std::make_shared<std::unique_ptr<Fields>>();
    return [&record, pick, show, shown] {
        Fields now = pick(record);
        if (*shown && **shown == now) return;
        *shown = std::make_unique<Fields>(std::move(now));
        show(record);
    };
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

void ShowColour(int colour, QWidget* widget) {
    QPalette palette = widget->palette();
    const QColor background = palette.color(QPalette::Window);
    palette.setColor(QPalette::WindowText, ReadableOn(background, ToColour(colour)));
    widget->setPalette(palette);
}

QFont FontOf(const std::string& name) {
    if (name.empty()) return QApplication::font();
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(PixelsOfPoints(11));
    return font;
}

QString ShownText(const TextBox& record) {
    return WithDotsForControls(ToUnicode(record.Text)).replace("\r\n", "\n").replace('\r', '\n');
}

// The end of a line is two characters of the record and one of the widget.
void PutCursor(const TextBox& record, QPlainTextEdit& edit) {
    const std::string before = record.Text.substr(0, static_cast<std::size_t>(record.SelStart));
    const auto position = ToUnicode(before).replace("\r\n", "\n").size();
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(static_cast<int>(position));
    edit.setTextCursor(cursor);
}

}  // namespace

void FormView::Follow(const NamedControl& named, Control& record, QWidget* widget) {
    widget->setObjectName(NameOf(named));
    const bool hasPlace = record.Width > 0 || record.Height > 0;
    if (!hasPlace) widget->adjustSize();
    steps.push_back([&record, widget] {
        const QRect place = PlaceOf(record);
        if (!place.isEmpty() && widget->geometry() != place) widget->setGeometry(place);
        FollowState(record, widget);
    });
    steps.push_back(OnChange(
        record, [](const Control& r) { return r.ToolTipText; },
        [widget](const Control& r) { widget->setToolTip(ToUnicode(r.ToolTipText)); }));
}

void FormView::Bind(const NamedControl& named, Label& record) {
    auto* label = new FittingLabel(ParentOf(named));
    Follow(named, record, label);
    ClickOnRelease(record, label);
    steps.push_back(OnChange(
        record,
        [](const Label& r) {
            return std::make_tuple(r.Caption, r.ForeColor, r.FontSize, r.Bold, r.Alignment);
        },
        [label](const Label& r) {
            label->setText(ToUnicode(r.Caption));
            label->setAccessibleName(label->text());
            label->setAlignment(AlignmentOf(r.Alignment));
            ShowColour(r.ForeColor, label);
            label->SetFontPixels(PixelsOfPoints(r.FontSize), r.Bold);
        }));
}

void FormView::Bind(const NamedControl& named, Frame& record) {
    auto* box = new QGroupBox(ParentOf(named));
    containers[named.name] = box;
    Follow(named, record, box);
    ClickOnRelease(record, box);
    steps.push_back(OnChange(
        record, [](const Frame& r) { return std::make_tuple(r.Caption, r.ForeColor); },
        [box](const Frame& r) {
            box->setTitle(ToUnicode(r.Caption));
            ShowColour(r.ForeColor, box);
        }));
}

void FormView::Bind(const NamedControl& named, Button& record) {
    auto* button = new QPushButton(ParentOf(named));
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
    const QString name = NameOf(named);
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
    button->setObjectName(NameOf(named));
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
    panel->setObjectName(NameOf(named));
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
    auto* picture = new PictureWidget(ParentOf(named));
    Follow(named, record, picture);
    ClickOnRelease(record, picture);
    steps.push_back(OnChange(
        record, [](const Image& r) { return r.Picture; },
        [picture](const Image& r) { picture->SetPicture(ToUnicode(r.Picture)); }));
}

void FormView::Bind(const NamedControl& named, TextBox& record) {
    auto* edit = new GatedTextEdit(ParentOf(named));
    Follow(named, record, edit);
    edit->setAccessibleName(NameOf(named));
    edit->setFont(FontOf(record.FontName));
    if (record.KeyPress) {
        edit->Gate = [this, &record](int code) {
            int used = code;
            Run([&record, &used, code](Workstation& w) { used = record.KeyPress(w, code); });
            return used;
        };
    }
    // A change that comes from the record does not go back there.
    connect(edit, &QPlainTextEdit::textChanged, this, [&record, edit] {
        if (edit->property("following").toBool()) return;
        record.Text = FromUnicode(edit->toPlainText().replace("\n", "\r\n"));
    });
    steps.push_back(OnChange(
        record, [](const TextBox& r) { return r.Text; },
        [edit](const TextBox& r) {
            if (ShownText(r) == edit->toPlainText()) return;
            edit->setProperty("following", true);
            edit->setPlainText(ShownText(r));
            edit->setProperty("following", false);
            PutCursor(r, *edit);
        }));
    steps.push_back(OnChange(
        record, [](const TextBox& r) { return r.SelStart; },
        [edit](const TextBox& r) { PutCursor(r, *edit); }));
}

void FormView::Bind(const NamedControl& named, Surface& record) {
    auto* widget = new SurfaceWidget(record, ParentOf(named));
    Follow(named, record, widget);
    widget->setAccessibleName(NameOf(named));
    ClickOnRelease(record, widget);
    surfaceSteps.push_back(OnChange(
        record, [](const Surface& r) { return r.Changes(); },
        [widget](const Surface&) { widget->update(); }));
}

void FormView::Bind(const NamedControl& named, OptionButton& record) {
    auto* option = new QRadioButton(ParentOf(named));
    option->setAutoExclusive(false);  // the records know which belong together
    Follow(named, record, option);
    connect(option, &QRadioButton::clicked, this, [this, &record] {
        Run([this, &record](Workstation& w) { ChooseOption(w, form, record); });
    });
    steps.push_back([&record, option] {
        if (option->text() != ToUnicode(record.Caption)) option->setText(ToUnicode(record.Caption));
        if (option->isChecked() != record.Value) option->setChecked(record.Value);
    });
}

void FormView::Bind(const NamedControl& named, CheckBox& record) {
    auto* box = new QCheckBox(ParentOf(named));
    Follow(named, record, box);
    connect(box, &QCheckBox::clicked, this, [this, &record](bool ticked) {
        record.Value = ticked ? 1 : 0;
        Run(record.Click);
    });
    steps.push_back([&record, box] {
        if (box->text() != ToUnicode(record.Caption)) box->setText(ToUnicode(record.Caption));
        if (box->isChecked() != (record.Value != 0)) box->setChecked(record.Value != 0);
    });
}

void FormView::Bind(const NamedControl& named, ComboBox& record) {
    auto* list = new QComboBox(ParentOf(named));
    list->setEditable(record.Editable);
    Follow(named, record, list);
    connect(list, &QComboBox::activated, this, [this, &record](int index) {
        Run([&record, index](Workstation& w) { SelectItem(w, record, index); });
    });
    connect(list, &QComboBox::editTextChanged, this, [this, &record](const QString& text) {
        const std::string typed = FromUnicode(text);
        if (typed == record.Text) return;
        Run([&record, typed](Workstation& w) { TypeItem(w, record, typed); });
    });
    steps.push_back(OnChange(
        record, [](const ComboBox& r) { return r.Items; },
        [list](const ComboBox& r) {
            const QSignalBlocker quiet(list);
            list->clear();
            for (const std::string& item : r.Items) list->addItem(ToUnicode(item));
        }));
    steps.push_back(OnChange(
        record, [](const ComboBox& r) { return std::make_pair(r.ListIndex, r.Text); },
        [list](const ComboBox& r) {
            const QSignalBlocker quiet(list);
            list->setCurrentIndex(r.ListIndex);
            if (r.Editable) list->setEditText(ToUnicode(r.Text));
        }));
}

}  // namespace cumeron
