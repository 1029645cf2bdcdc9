#include <gtest/gtest.h>

#include <QMenu>
#include <QToolButton>

#include "logging/recent_files.h"
#include "platform/host/bars.h"
#include "platform/host/form_steps.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct MainWindowViewTest : testing::Test, ViewBench {
    MainWindowViewTest() { ShowMain(); }
    FormWindow& Window() { return *view.WindowOf(w.frmMain); }
    QWidget* Bar(const char* name) { return Window().findChild<QWidget*>(name); }
    QToolButton* Tool(const char* key) { return Bar("Toolbar1")->findChild<QToolButton*>(key); }
    StatusPanel* Foot(const char* key) {
        return static_cast<StatusPanel*>(Bar("sbaStatus")->findChild<QLabel*>(key));
    }
    // The entries of a menu without its separators.
    QStringList Names(const QMenu& menu) {
        QStringList names;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator()) names.append(action->objectName());
        }
        return names;
    }
};

TEST_F(MainWindowViewTest, TheMenuTreeIsComplete) {
    std::map<std::string, QStringList> children;
    for (const NamedControl& named : w.frmMain.Controls()) {
        auto* const* entry = std::get_if<MenuEntry*>(&named.control);
        if (entry == nullptr) continue;
        children[named.parent].append(WidgetName(named));
        if (named.parent.empty()) continue;
        auto* action = Window().findChild<QAction*>(WidgetName(named));
        ASSERT_NE(action, nullptr) << named.name;
        EXPECT_EQ(action->text().toStdString(), (*entry)->Caption);
        EXPECT_EQ(action->isChecked(), (*entry)->Checked) << named.name;
        EXPECT_EQ(action->isVisible(), (*entry)->Visible) << named.name;
    }
    ASSERT_EQ(children[""].size(), 6);
    ASSERT_EQ(Window().MenuBar()->actions().size(), 6);
    for (qsizetype i = 0; i < 6; ++i) {
        const QMenu* menu = Window().MenuBar()->actions()[i]->menu();
        EXPECT_EQ(menu->objectName(), children[""][i]);
        EXPECT_EQ(Names(*menu), children[menu->objectName().toStdString()]);
    }
}

TEST_F(MainWindowViewTest, AnOpenedLogAppearsInTheFileMenu) {
    auto* action = Window().findChild<QAction*>("mnuRecent(0)");
    ASSERT_NE(action, nullptr);
    EXPECT_FALSE(action->isVisible());
    NoteRecentFile(w, "/tmp/a & b.DAT");
    view.Sync();
    EXPECT_TRUE(action->isVisible());
    EXPECT_EQ(action->text(), "&1 a && b.DAT");
}

TEST_F(MainWindowViewTest, EveryToolButtonHasItsIconAndIsReachedByTheKeyboard) {
    int count = 0;
    for (const NamedControl& named : w.frmMain.Controls()) {
        if (!std::holds_alternative<ToolButton*>(named.control)) continue;
        ++count;
        QToolButton* button = Tool(named.name.c_str());
        ASSERT_NE(button, nullptr) << named.name;
        EXPECT_FALSE(button->icon().pixmap(24, 24).isNull()) << named.name;
        EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << named.name;
        EXPECT_FALSE(button->toolTip().isEmpty()) << named.name;
        EXPECT_EQ(button->accessibleName(), button->toolTip()) << named.name;
        EXPECT_EQ(button->isEnabled(), std::get<ToolButton*>(named.control)->Enabled);
    }
    EXPECT_EQ(count, 18);
}

TEST_F(MainWindowViewTest, ToolButtonsFitIntoANarrowWindow) {
    w.frmMain.Width = 480 * TwipsPerPixel;
    view.Sync();
    Settle();
    view.Sync();
    EXPECT_EQ(Bar("Toolbar1")->geometry(), QRect(0, 0, 480, 44));
    for (const auto* button : Bar("Toolbar1")->findChildren<QToolButton*>()) {
        EXPECT_LE(button->geometry().right(), 480) << button->objectName().toStdString();
    }
}

TEST_F(MainWindowViewTest, ACheckButtonTurnsBeforeItsHandlerRuns) {
    int seen = -1;
    w.frmMain.Toolbar1.Log.Click = [&](Workstation& ws) { seen = ws.frmMain.Toolbar1.Log.Value; };
    Tool("Log")->click();
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(Tool("Log")->isChecked());
    Tool("Log")->click();
    EXPECT_EQ(seen, 0);
    EXPECT_FALSE(Tool("Log")->isChecked());
}

TEST_F(MainWindowViewTest, APushButtonStaysUpUnlessTheRecordHasItDown) {
    w.frmMain.Toolbar1.Message.Click = nullptr;
    Tool("Message")->click();
    EXPECT_EQ(w.frmMain.Toolbar1.Message.Value, 0);
    EXPECT_FALSE(Tool("Message")->isChecked());
    w.frmMain.Toolbar1.Message.Value = 1;
    view.Sync();
    EXPECT_TRUE(Tool("Message")->isChecked());
}

TEST_F(MainWindowViewTest, APictureAndItsEmptyTwinTakeTurnsAtOneWidth) {
    auto& bar = w.frmMain.sbaStatus;
    EXPECT_TRUE(Foot("Errors_Image")->isHidden());
    const QRect empty = Foot("Errors_Image_Void")->geometry();
    const QRect next = Foot("Status")->geometry();
    EXPECT_EQ(empty.width(), static_cast<int>(bar.Errors_Image.Width));
    bar.Errors.Text = "Checksum Error";
    bar.Errors_Image.Visible = true;
    bar.Errors_Image_Void.Visible = false;
    view.Sync();
    EXPECT_EQ(Foot("Errors")->FullText(), "Checksum Error");
    EXPECT_EQ(Foot("Errors")->accessibleName(), "Checksum Error");
    EXPECT_EQ(Foot("Errors_Image")->geometry(), empty);
    EXPECT_FALSE(Foot("Errors_Image")->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_TRUE(Foot("Errors_Image_Void")->isHidden());
    EXPECT_EQ(Foot("Status")->geometry(), next);
}

TEST_F(MainWindowViewTest, PanelsFillTheFootOfTheWindow) {
    const QSize client = Client(w.frmMain)->size();
    const int height = static_cast<int>(w.frmMain.sbaStatus.Height);
    EXPECT_EQ(Bar("sbaStatus")->geometry(),
              QRect(0, client.height() - height, client.width(), height));
    EXPECT_EQ(Foot("Log")->x(), 0);
    EXPECT_EQ(Foot("Battery_Image_Void")->geometry().right() + 1, client.width());
}

TEST_F(MainWindowViewTest, InANarrowWindowTextsTakeTheRoomOfEmptyPanels) {
    w.frmMain.sbaStatus.Errors.Text = "Msg21, No Errors";
    w.frmMain.Width = 560 * TwipsPerPixel;
    view.Sync();
    Settle();
    view.Sync();
    for (const char* key : {"Log", "Errors"}) EXPECT_EQ(Foot(key)->text(), Foot(key)->FullText());
    EXPECT_EQ(Foot("Battery_Image_Void")->geometry().right() + 1, 560);
}

TEST_F(MainWindowViewTest, APanelsTextTooWideEndsWithAnEllipsis) {
    w.frmMain.sbaStatus.Action.Text = std::string(200, 'M');
    view.Sync();
    EXPECT_EQ(Foot("Action")->text().back(), QChar(0x2026));
    EXPECT_EQ(Foot("Action")->FullText().size(), 200);
}

TEST_F(MainWindowViewTest, AResizeLaysTheWindowOutAnew) {
    Window().resize(Window().size() + QSize(100, 50));
    Settle();
    auto* graph = Window().findChild<QWidget*>("picCombination");
    EXPECT_EQ(w.frmMain.ScaleWidth(), 900);
    EXPECT_EQ(graph->width(), static_cast<int>(w.frmMain.picCombination.Width));
    EXPECT_GT(graph->width(), 600);
}

}  // namespace
}  // namespace cumeron
