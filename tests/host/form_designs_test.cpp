#include "platform/host/form_designs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <stdexcept>

#include "platform/host/colours.h"
#include "platform/host/form_steps.h"
#include "platform/host/form_view.h"
#include "view_support.h"

namespace cumeron {
namespace {

std::unique_ptr<FormView> ViewOf(Form& form) {
    return std::make_unique<FormView>(form, ViewCalls{}, BarHeights{});
}

bool IsDesigned(const Form& form) {
    const std::vector<std::string> names = DesignedForms();
    return std::find(names.begin(), names.end(), form.Name) != names.end();
}

// Those that the operator can reach; parts of other widgets do not count.
QList<QWidget*> FocusableWidgets(FormWindow& window) {
    QList<QWidget*> found;
    for (auto* widget : window.Client()->findChildren<QWidget*>()) {
        const bool isPart = widget->objectName().isEmpty() ||
                            widget->objectName().startsWith("qt_") || widget->focusProxy();
        if (widget->focusPolicy() != Qt::NoFocus && !isPart) found.append(widget);
    }
    return found;
}

struct EveryForm : testing::Test, ViewBench {};

TEST_F(EveryForm, FindsAWidgetOfTheRightKindForEachControl) {
    int designed = 0;
    for (Form* each : w.Forms()) {
        EXPECT_NO_THROW(ViewOf(*each)) << each->Name;
        designed += IsDesigned(*each) ? 1 : 0;
    }
    EXPECT_EQ(designed, static_cast<int>(DesignedForms().size())) << "a design without a form";
}

TEST_F(EveryForm, HasNoWidgetToReachThatNoControlStandsFor) {
    for (Form* each : w.Forms()) {
        const auto formView = ViewOf(*each);
        QStringList names;
        for (const NamedControl& named : each->Controls()) names.append(WidgetName(named));
        for (QWidget* widget : FocusableWidgets(formView->Window())) {
            if (widget->inherits("QScrollArea")) continue;  // only scrolls what has one
            EXPECT_TRUE(names.contains(widget->objectName()))
                << each->Name << " " << widget->objectName().toStdString();
        }
    }
}

TEST_F(EveryForm, HasANameForAssistiveSoftwareOnEachWidgetToReach) {
    for (Form* each : w.Forms()) {
        const auto formView = ViewOf(*each);
        formView->Sync();
        for (QWidget* widget : FocusableWidgets(formView->Window())) {
            const QString spoken = SpokenName(widget);
            EXPECT_FALSE(spoken.isEmpty())
                << each->Name << " " << widget->objectName().toStdString();
            EXPECT_NE(spoken, widget->objectName()) << each->Name;
        }
    }
}

TEST_F(EveryForm, WithADesignHasOneDefaultButton) {
    for (Form* each : w.Forms()) {
        if (!IsDesigned(*each)) continue;
        const auto formView = ViewOf(*each);
        int defaults = 0;
        for (const auto* button : formView->Window().findChildren<QPushButton*>()) {
            defaults += button->isDefault() ? 1 : 0;
        }
        EXPECT_EQ(defaults, 1) << each->Name;
    }
}

// Has the name of a form with a design, and controls of its own.
struct Mistaken : Form {
    Label label;
    Button button;
    std::string name;
    bool asButton = false;
    Mistaken() { Name = "frmAbout"; }
    ControlList Controls() override {
        if (asButton) return {{name, -1, "", &button}};
        return {{name, -1, "", &label}};
    }
    void Reset() override {}
};

TEST(FormDesigns, AMissingOrWrongWidgetIsAnErrorOfTheProgram) {
    Mistaken form;
    form.name = "lblVersion";
    EXPECT_NO_THROW(ViewOf(form));
    form.asButton = true;
    EXPECT_THROW(ViewOf(form), std::logic_error);
    form.name = "noSuchWidget";
    EXPECT_THROW(ViewOf(form), std::logic_error);
}

struct DesignedForm : testing::Test, ViewBench {
    FormWindow& Window() { return *view.WindowOf(w.frmStart); }
    void Show() {
        ShowForm(w, w.frmStart);
        view.Sync();
        Settle();
    }
};

TEST_F(DesignedForm, TakesTheRecordsSizeOrWhatItsLayoutNeeds) {
    w.frmStart.Width = 700 * TwipsPerPixel;
    w.frmStart.Height = 500 * TwipsPerPixel;
    Show();
    EXPECT_EQ(Window().Client()->size(), QSize(700, 500));
    w.frmStart.Width = w.frmStart.Height = 10 * TwipsPerPixel;
    view.Sync();
    Settle();
    const QSize needed = Window().Client()->size();
    EXPECT_EQ(needed, Window().Client()->minimumSizeHint());
    EXPECT_EQ(w.frmStart.ScaleHeight(), needed.height());
    int resizes = 0;
    w.frmStart.Resize = [&](Workstation&) { ++resizes; };
    for (int i = 0; i < 3; ++i) {
        view.Sync();
        Settle();
    }
    EXPECT_EQ(resizes, 0);
    EXPECT_EQ(Window().Client()->size(), needed);
}

TEST_F(DesignedForm, GrowsWithTheFontOfTheDesktop) {
    const QFont usual = QApplication::font();
    w.frmStart.Width = w.frmStart.Height = 10 * TwipsPerPixel;
    Show();
    const QSize small = Window().size();
    QFont large = usual;
    large.setPointSize(usual.pointSize() * 2);
    QApplication::setFont(large);
    EXPECT_TRUE(WaitUntil([&] { return Window().height() > small.height() * 5 / 4; }));
    QApplication::setFont(usual);
}

TEST_F(DesignedForm, ControlsFollowTheLayoutNotTheRecordsPlace) {
    Show();
    const QRect place = FindIn<QLineEdit>(w.frmStart, "txtCaption")->geometry();
    w.frmStart.txtCaption.Left = 500;
    w.frmStart.txtCaption.Width = 5;
    view.Sync();
    EXPECT_EQ(FindIn<QLineEdit>(w.frmStart, "txtCaption")->geometry(), place);
}

TEST_F(DesignedForm, BlackIsTheTextColourOfTheTheme) {
    const QPalette usual = QApplication::palette();
    QPalette dark(QColor(0x20, 0x24, 0x28));
    QApplication::setPalette(dark);
    ShowForm(w, w.frmAbout);
    view.Sync();
    auto* label = FindIn<QLabel>(w.frmAbout, "lblVersion");
    EXPECT_EQ(label->palette().color(QPalette::WindowText), dark.color(QPalette::WindowText));
    w.frmAbout.lblVersion.ForeColor = 0x000080;
    view.Sync();
    EXPECT_NE(label->palette().color(QPalette::WindowText), dark.color(QPalette::WindowText));
    EXPECT_GE(Contrast(dark.color(QPalette::Window), label->palette().color(QPalette::WindowText)),
              4.5);
    QApplication::setPalette(usual);
}

TEST_F(DesignedForm, OpensWithTheKeysOnItsFirstControl) {
    Show();
    Window().activateWindow();
    Settle();
    EXPECT_EQ(Window().focusWidget()->objectName(), "Check1");
    FindIn<QPushButton>(w.frmStart, "CmdOK")->setFocus();
    HideForm(w.frmStart);
    view.Sync();
    Show();
    EXPECT_EQ(Window().focusWidget()->objectName(), "Check1");
}

}  // namespace
}  // namespace cumeron
