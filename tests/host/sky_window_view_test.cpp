// The sky window and its dialog as the desktop shows them: size, order of the windows, the blinking
// alarm and the symbols.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <set>

#include "platform/host/colours.h"
#include "platform/host/widgets.h"
#include "shell/indicators.h"
#include "view_support.h"

namespace cumeron {
namespace {

struct SkyWindowViewTest : testing::Test, ViewBench {
    SkyWindowViewTest() {
        w.settings.CEILOMETER = 30;
        LoadModel(w, LoadedBy::Start);
    }
    FormWindow& Window() { return *view.WindowOf(w.frmSkyCond); }
    void ShowSky(std::int16_t look) {
        w.settings.Cloud_Amount = look;
        ShowMain();
        mnuSkyCond_Click(w);
        Receive("  1 0450  2 1200  0 ////  8 9000");
        Update();
    }
    void Receive(std::string_view block) {
        ParseSkyCondition(w.sky, block, 3, 4);
        ShowSkyCondition(w);
        UpDateSkyCond(w);
    }
    void Update() {
        view.Sync();
        Settle();
    }
    template <class Kind = QLabel>
    Kind* Find(const char* name) {
        return FindIn<Kind>(w.frmSkyCond, name);
    }
    QColor Behind(const char* name) {
        const QLabel* label = Find(name);
        return label->palette().color(QPalette::Window);
    }
};

// What the drawing of a symbol looks like in a window of these colours.
QImage Drawn(const QString& picture, const QColor& paper, const QColor& ink, int side) {
    QWidget parent;
    PictureWidget widget(&parent);
    QPalette palette(paper);
    palette.setColor(QPalette::WindowText, ink);
    widget.setPalette(palette);
    widget.resize(side, side);
    widget.SetPicture(picture);
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    widget.render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

int Inked(const QImage& image, const QColor& ink) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == ink ? 1 : 0;
        }
    }
    return count;
}

TEST_F(SkyWindowViewTest, GrowsAndShrinksAsAWhole) {
    ShowSky(AmountSymbols);
    const QRect amount = Find("lblSkyCond(6)")->geometry();
    const QRect symbol = Find<PictureWidget>("imgSky(3)")->geometry();
    const int font = Find("lblStatus")->font().pixelSize();
    const QSize usual = Window().Client()->size();
    Window().resize(Window().size() + usual);
    Settle();
    EXPECT_EQ(Window().Client()->size(), usual * 2);
    const QRect twice = Find("lblSkyCond(6)")->geometry();
    EXPECT_NEAR(twice.x(), amount.x() * 2, 2);
    EXPECT_NEAR(twice.y(), amount.y() * 2, 2);
    EXPECT_NEAR(twice.width(), amount.width() * 2, 2);
    EXPECT_NEAR(twice.height(), amount.height() * 2, 2);
    EXPECT_NEAR(Find<PictureWidget>("imgSky(3)")->width(), symbol.width() * 2, 2);
    EXPECT_EQ(Find("lblStatus")->font().pixelSize(), font * 2);
    // Wider alone changes nothing: the smaller ratio counts.
    Window().resize(Window().width() + 200, Window().height());
    Settle();
    EXPECT_EQ(Find("lblSkyCond(6)")->geometry(), twice);
}

TEST_F(SkyWindowViewTest, StaysInFrontWhenTheSettingSaysSo) {
    ShowSky(AmountNumbers);
    for (const bool top : {true, false}) {
        w.settings.Sky_Cond_On_Top = top ? 1 : 0;
        SetTop(w);
        Update();
        EXPECT_EQ(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint), top);
        EXPECT_TRUE(Window().isVisible());
    }
}

TEST_F(SkyWindowViewTest, LetsTheDialogBeInFrontMeanwhile) {
    w.settings.Sky_Cond_On_Top = 1;
    w.settings.Show_Sky_Cond = 1;
    ShowSky(AmountNumbers);
    EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    InModal(w.frmSkyCondSettings,
            {[&] {
                 EXPECT_FALSE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
                 auto* top = FindIn<QCheckBox>(w.frmSkyCondSettings, "chkSkyCondTop");
                 EXPECT_TRUE(top->isVisible());
                 FindIn<QCheckBox>(w.frmSkyCondSettings, "chkShowSkyCond")->click();
                 view.Sync();
                 EXPECT_FALSE(top->isVisible());
             },
             [&] { w.frmSkyCondSettings.cmdOk.Click(w); }});
    Update();
    EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(SkyWindowViewTest, AnAlarmTurnsRedAndBack) {
    ShowSky(AmountNumbers);
    const QColor quiet = Behind("lblDateTime");
    SetStatusPanel(w, "Status: ALARM", Red);
    ASSERT_TRUE(w.frmSkyCond.tmrAlarm.Enabled());
    const QColor red(0x80, 0, 0);
    for (const QColor& expected : {red, quiet, red}) {
        Update();
        QLabel* status = Find("lblStatus");
        EXPECT_EQ(Behind("lblStatus"), expected);
        const QPalette& colours = status->palette();
        EXPECT_GE(Contrast(expected, colours.color(QPalette::WindowText)), 4.5);
        w.frmSkyCond.tmrAlarm.Tick(w);
    }
    SetStatusPanel(w, "Status: OK", Black);
    Update();
    EXPECT_EQ(Behind("lblStatus"), quiet);
}

TEST_F(SkyWindowViewTest, TextsFitIntoTheirColumns) {
    for (const std::int16_t look : {AmountNumbers, AmountTexts, AmountSymbols}) {
        ShowSky(look);
        Receive(" 99 9999 -1 9999  8 9999  4 9999");
        Update();
        for (int i = 0; i < 8; ++i) {
            const QString name = QString("lblSkyCond(%1)").arg(i);
            const QLabel* label = Find(name.toLatin1());
            const int text = QFontMetrics(label->font()).horizontalAdvance(label->text());
            EXPECT_LE(text, label->width()) << i;
            EXPECT_GE(label->font().pixelSize(), 16) << i;
        }
        mnuSkyCond_Click(w);
    }
}

TEST_F(SkyWindowViewTest, WordsAreAllOfOneSize) {
    ShowSky(AmountTexts);
    Receive("  2 0450  4 1200  7 2000  8 2500");
    Update();
    for (const char* name : {"lblSkyCond(0)", "lblSkyCond(2)", "lblSkyCond(4)", "lblSkyCond(6)"}) {
        EXPECT_EQ(Find(name)->font().pixelSize(), 24) << Find(name)->text().toStdString();
    }
}

TEST_F(SkyWindowViewTest, SymbolsAreSeenOnlyWhereTheyAreWanted) {
    ShowSky(AmountSymbols);
    EXPECT_TRUE(Find<PictureWidget>("imgSky(4)")->isVisible());
    mnuSkyCond_Click(w);
    w.settings.Cloud_Amount = AmountTexts;
    ApplySkySettings(w);
    mnuSkyCond_Click(w);
    Update();
    EXPECT_FALSE(Find<PictureWidget>("imgSky(4)")->isVisible());
    EXPECT_EQ(Find("lblSkyCond(0)")->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

TEST(SkySymbols, EachIsItsOwnInEveryTheme) {
    const struct {
        QColor paper, ink;
    } themes[] = {{QColor(0xF0, 0xF0, 0xF0), Qt::black}, {QColor(0x20, 0x24, 0x28), Qt::white}};
    for (const auto& theme : themes) {
        std::set<std::vector<uchar>> different;
        for (int i = 0; i < 10; ++i) {
            const QImage image =
                Drawn(QString("imgSkyCond(%1)").arg(i), theme.paper, theme.ink, 40);
            different.insert({image.constBits(), image.constBits() + image.sizeInBytes()});
            EXPECT_EQ(Inked(image, theme.ink) > 50, i != 2) << i;
        }
        EXPECT_EQ(different.size(), 10U);
    }
}

TEST(SkySymbols, TheMoreCloudTheMoreInk) {
    int before = 0;
    for (const int i : {0, 1, 3, 4, 5, 6, 7, 8}) {
        const int ink =
            Inked(Drawn(QString("imgSkyCond(%1)").arg(i), Qt::white, Qt::black, 96), Qt::black);
        EXPECT_GT(ink, before) << i;
        before = ink;
    }
}

}  // namespace
}  // namespace cumeron
