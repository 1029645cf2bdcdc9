// The controls of a form view into which the operator puts something: texts, options, check boxes,
// lists of items, drives and folders, pages. What was put in goes to the record first, then its
// handler runs.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "platform/host/form_steps.h"
#include "platform/host/form_view.h"
#include "platform/host/lines_box.h"
#include "platform/host/unicode.h"
#include "platform/host/widgets.h"

namespace cumeron {
namespace {

constexpr int FixedFontPixels = 15;

QFont FontOf(const std::string& name) {
    if (name.empty()) return QApplication::font();
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(FixedFontPixels);
    return font;
}

// A label of the design that belongs to the widget says what it is.
void NameAfterControl(const NamedControl& named, QWidget* widget, bool designed) {
    if (!designed) widget->setAccessibleName(SpokenName(named));
}

void ShowChoice(QRadioButton* option, bool chosen) {
    if (option->isChecked() == chosen) return;
    // While it is exclusive, the chosen one of a group cannot be put out.
    option->setAutoExclusive(false);
    option->setChecked(chosen);
    option->setAutoExclusive(true);
}

void ShowItems(const ComboBox& record, QComboBox* list) {
    const QSignalBlocker quiet(list);
    list->clear();
    for (const std::string& item : record.Items) list->addItem(ToUnicode(item));
}

void ShowChosen(const ComboBox& record, QComboBox* list) {
    const QSignalBlocker quiet(list);
    if (list->currentIndex() != record.ListIndex) list->setCurrentIndex(record.ListIndex);
    const QString text = ToUnicode(record.Text);
    if (record.Editable && list->currentText() != text) list->setEditText(text);
}

// A text with a mask shows a line where a place is still empty.
QString LineText(const QLineEdit& edit) {
    return edit.inputMask().isEmpty() ? edit.text() : edit.displayText();
}

// Enter opens the folder under the cursor, and is then no press of the default button.
class EnterOpens : public QObject {
public:
    explicit EnterOpens(QListWidget* folders) : QObject(folders), list(folders) {
        list->installEventFilter(this);
    }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        if (list->currentItem() != nullptr) emit list->itemActivated(list->currentItem());
        return true;
    }

    QListWidget* list;
};

void ShowDrives(const DriveList& record, std::vector<std::string> drives, QComboBox* list) {
    if (std::find(drives.begin(), drives.end(), record.Drive) == drives.end()) {
        drives.push_back(record.Drive);
    }
    list->clear();
    for (const std::string& drive : drives) list->addItem(ToUnicode(drive));
    list->setCurrentText(ToUnicode(record.Drive));
}

// One more folder of the list, as deep below the first as it lies there.
QListWidgetItem* AddFolder(QListWidget* list, const std::string& path, int depth) {
    const std::size_t name = path == "/" ? 0 : path.rfind('/') + 1;
    auto* item = new QListWidgetItem(QString(2 * depth, ' ') + ToUnicode(path.substr(name)), list);
    item->setData(Qt::UserRole, QByteArray::fromStdString(path));
    return item;
}

// The way down to the folder, the folder, and what lies in it.
void ShowFolders(const std::string& folder, const std::vector<std::string>& inside,
                 QListWidget* list) {
    list->clear();
    QListWidgetItem* last = AddFolder(list, "/", 0);
    int depth = 0;
    for (std::size_t end = 0; end < folder.size() && folder != "/";) {
        end = std::min(folder.find('/', end + 1), folder.size());
        last = AddFolder(list, folder.substr(0, end), ++depth);
    }
    const std::string start = folder.ends_with('/') ? folder : folder + "/";
    for (const std::string& name : inside) AddFolder(list, start + name, depth + 1);
    list->setCurrentItem(last);
}

}  // namespace

void FormView::Bind(const NamedControl& named, TextBox& record) {
    if (record.MultiLine) {
        BindLines(named, record);
    } else {
        BindLine(named, record);
    }
}

std::function<int(int)> FormView::GateOf(TextBox& record) {
    return [this, &record](int code) {
        int used = code;
        Run([&record, &used, code](Workstation& w) { used = record.KeyPress(w, code); });
        return used;
    };
}

std::function<bool(const std::string&)> FormView::PasteGateOf(TextBox& record) {
    return [this, &record](const std::string& text) {
        bool taken = false;
        Run([&record, &taken, &text](Workstation& w) { taken = record.Paste(w, text); });
        return taken;
    };
}

// A text that the record holds already came from there.
void FormView::TakeText(TextBox& record, const std::string& typed) {
    if (typed == record.Text) return;
    record.Text = typed;
    Run(record.Change);
}

void FormView::BindLine(const NamedControl& named, TextBox& record) {
    auto* edit = WidgetFor<QLineEdit>(named);
    Follow(named, record, edit);
    NameAfterControl(named, edit, designed);
    if (!record.FontName.empty()) edit->setFont(FontOf(record.FontName));
    if (record.KeyPress) new LineGate(edit, GateOf(record));
    if (!record.Mask.empty()) edit->setInputMask(ToUnicode(record.Mask).replace('#', '9') + ";_");
    connect(edit, &QLineEdit::textEdited, this,
            [this, &record, edit] { TakeText(record, FromUnicode(LineText(*edit))); });
    steps.push_back([&record, edit] {
        const QString text = ToUnicode(record.Text);
        if (LineText(*edit) != text) edit->setText(text);
    });
    steps.push_back(OnChange(
        record, [](const TextBox& r) { return r.SelStart; },
        [edit](const TextBox& r) { edit->setCursorPosition(r.SelStart); }));
}

void FormView::BindLines(const NamedControl& named, TextBox& record) {
    auto* edit = WidgetFor<GatedTextEdit>(named);
    Follow(named, record, edit);
    NameAfterControl(named, edit, designed);
    edit->setFont(FontOf(record.FontName));
    const auto putCursor = [edit](const TextBox& r) { PutCursor(r.Text, r.SelStart, *edit); };
    if (record.KeyPress) {
        edit->Gate = [gate = GateOf(record), putCursor, &record](int code) {
            const int used = gate(code);
            // Where the record's cursor is at the end, so is the widget's, wherever the operator
            // had put it.
            if (used == 0 && record.SelStart == static_cast<int>(record.Text.size())) {
                putCursor(record);
            }
            return used;
        };
    }
    if (record.Paste) edit->PasteGate = PasteGateOf(record);
    // A change that comes from the record does not go back there.
    connect(edit, &QPlainTextEdit::textChanged, this, [this, &record, edit] {
        if (edit->property("following").toBool()) return;
        TakeText(record, TakeLines(*edit, record.Text));
    });
    steps.push_back(OnChange(
        record, [](const TextBox& r) { return r.Text; },
        [edit, putCursor](const TextBox& r) {
            if (ShownLines(r.Text) == LinesOf(*edit)) return;
            edit->setProperty("following", true);
            ShowLines(r.Text, *edit);
            edit->setProperty("following", false);
            putCursor(r);
        }));
    steps.push_back(OnChange(
        record, [](const TextBox& r) { return r.SelStart; }, putCursor));
}

void FormView::Bind(const NamedControl& named, OptionButton& record) {
    auto* option = WidgetFor<QRadioButton>(named);
    Follow(named, record, option);
    connect(option, &QRadioButton::clicked, this, [this, &record] {
        Run([this, &record](Workstation& w) { ChooseOption(w, form, record); });
    });
    steps.push_back([&record, option] {
        if (option->text() != ToUnicode(record.Caption)) option->setText(ToUnicode(record.Caption));
        ShowChoice(option, record.Value);
    });
}

void FormView::Bind(const NamedControl& named, CheckBox& record) {
    auto* box = WidgetFor<QCheckBox>(named);
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
    auto* list = WidgetFor<QComboBox>(named);
    list->setEditable(record.Editable);
    Follow(named, record, list);
    NameAfterControl(named, list, designed);
    connect(list, &QComboBox::activated, this, [this, &record](int index) {
        Run([&record, index](Workstation& w) { SelectItem(w, record, index); });
    });
    if (record.Editable) {
        // What is typed stays as it is: it is neither completed nor added to the list.
        list->setCompleter(nullptr);
        list->setInsertPolicy(QComboBox::NoInsert);
        connect(list->lineEdit(), &QLineEdit::textEdited, this,
                [this, &record](const QString& text) {
                    const std::string typed = FromUnicode(text);
                    Run([&record, typed](Workstation& w) { TypeItem(w, record, typed); });
                });
    }
    steps.push_back(OnChange(
        record, [](const ComboBox& r) { return r.Items; },
        [list](const ComboBox& r) { ShowItems(r, list); }));
    steps.push_back([&record, list] { ShowChosen(record, list); });
}

// What is there may have changed since the form was open last.
void FormView::Bind(const NamedControl& named, DriveList& record) {
    auto* list = WidgetFor<QComboBox>(named);
    Follow(named, record, list);
    NameAfterControl(named, list, designed);
    connect(list, &QComboBox::activated, this, [this, &record, list] {
        record.Drive = FromUnicode(list->currentText());
        Run(record.Change);
    });
    steps.push_back(OnChange(
        record, [this](const DriveList& r) { return std::make_tuple(r.Drive, form.Loaded); },
        [this, list](const DriveList& r) {
            ShowDrives(r, calls.drives ? calls.drives() : std::vector<std::string>(), list);
        }));
}

void FormView::Bind(const NamedControl& named, FolderList& record) {
    auto* list = WidgetFor<QListWidget>(named);
    Follow(named, record, list);
    NameAfterControl(named, list, designed);
    new EnterOpens(list);
    connect(list, &QListWidget::itemActivated, this, [this, &record](QListWidgetItem* item) {
        record.Path = item->data(Qt::UserRole).toByteArray().toStdString();
        Run(record.Change);
    });
    connect(list, &QListWidget::itemClicked, this, [this, &record] { Run(record.Click); });
    steps.push_back(OnChange(
        record, [this](const FolderList& r) { return std::make_tuple(r.Path, form.Loaded); },
        [this, list](const FolderList& r) {
            const std::vector<std::string> none;
            ShowFolders(r.Path, calls.foldersIn ? calls.foldersIn(r.Path) : none, list);
        }));
}

void FormView::Bind(const NamedControl& named, TabStrip& record) {
    auto* strip = WidgetFor<QTabBar>(named);
    Follow(named, record, strip);
    NameAfterControl(named, strip, designed);
    for (const std::string& page : record.Pages) strip->addTab(ToUnicode(page));
    // The keys go from page to page, and bring a hidden one into sight by themselves.
    for (auto* arrow : strip->findChildren<QToolButton*>()) arrow->setFocusPolicy(Qt::NoFocus);
    connect(strip, &QTabBar::currentChanged, this, [this, &record](int page) {
        if (page == record.Selected) return;
        record.Selected = page;
        Run(record.Click);
    });
    steps.push_back([&record, strip] {
        if (strip->currentIndex() != record.Selected) strip->setCurrentIndex(record.Selected);
    });
}

}  // namespace cumeron
