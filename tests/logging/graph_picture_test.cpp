// What is where on the composed picture: graph, labels, titles and frames by their colours.
#include "logging/graph_picture.h"

#include <gtest/gtest.h>

#include "graphs/graph_station.h"

namespace cumeron {
namespace {

constexpr int GraphInk = 0x112233, ProfileInk = 0x445566, HeightsInk = 0x0000FF,
              TimesInk = 0x00FF00, TimesBackInk = 0x00FFFF, HeightsBackInk = 0xFF00FF,
              CornerInk = 0xFF0000, TitleInk = 0x808000, CaptionInk = 0x008080;

// Fills the caption and the drawing with inks of their own, so that their places can be found.
class InkPainter : public TextPainter {
public:
    void Paint(Surface& surface, const PrintedText& text) override {
        surface.Fill(0, 0, surface.PixelWidth(), surface.PixelHeight(), CaptionInk);
        texts.push_back(text.text);
    }
    void PaintDrawing(Surface& surface, const std::string& name) override {
        surface.Fill(0, 0, surface.PixelWidth(), surface.PixelHeight(), TitleInk);
        drawings.push_back(name);
    }
    int TextWidth(const std::string&) override { return 1; }
    int TextHeight() override { return 1; }
    std::vector<std::string> texts, drawings;
};

// Graph 300 x 200, labels as on the window: 44 wide, 34 high; title 24 x 160, caption 240 x 20.
struct Composed : testing::Test, GraphStation {
    InkPainter painter;
    FrmMain& form = w.frmMain;
    const Surface& page = form.picPrinting;

    Composed() : GraphStation(300, 200) {
        Ink(form.picCombination, 300, 200, GraphInk);
        Ink(form.picLines, 300, 200, ProfileInk);
        Ink(form.picYLabels, 44, 198, HeightsInk);
        Ink(form.picYLabelsBack, 44, 198, HeightsBackInk);
        Ink(form.picXLabels, 298, 34, TimesInk);
        Ink(form.picXLabelsBack, 298, 34, TimesBackInk);
        Ink(form.picCorner, 69, 35, CornerInk);
        form.picPrintXlabel.painter = &painter;
        form.picPrintAltitude.painter = &painter;
    }
    static void Ink(Surface& surface, int width, int height, int colour) {
        Size(surface, width, height);
        surface.Fill(0, 0, width, height, colour);
    }
    std::string PageSizes() const {
        return std::to_string(page.PixelWidth()) + " x " + std::to_string(page.PixelHeight());
    }
    // First and last pixel of the ink, "x1 y1 x2 y2", in what is visible of it.
    std::string PlaceOf(int ink) const {
        int x1 = 99999, y1 = 99999, x2 = -1, y2 = -1;
        for (int y = 0; y < page.PixelHeight(); ++y) {
            for (int x = 0; x < page.PixelWidth(); ++x) {
                if (page.Pixel(x, y) != ink) continue;
                x1 = std::min(x1, x), y1 = std::min(y1, y);
                x2 = std::max(x2, x), y2 = std::max(y2, y);
            }
        }
        return std::to_string(x1) + " " + std::to_string(y1) + " " + std::to_string(x2) + " " +
               std::to_string(y2);
    }
    // Whether the four edges of a frame are there and black.
    bool HasFrame(int x1, int y1, int x2, int y2) const {
        for (int x = x1; x <= x2; ++x) {
            if (page.Pixel(x, y1) != 0 || page.Pixel(x, y2) != 0) return false;
        }
        for (int y = y1; y <= y2; ++y) {
            if (page.Pixel(x1, y) != 0 || page.Pixel(x2, y) != 0) return false;
        }
        return true;
    }
};

TEST_F(Composed, SingleGraphHasEverythingInItsPlace) {
    ComposeView(w);
    EXPECT_EQ(PageSizes(), "370 x 256");
    EXPECT_EQ(PlaceOf(GraphInk), "69 1 368 200");
    // The corner lies over the lower left, and in the top row; the title of the axis over it.
    EXPECT_EQ(PlaceOf(HeightsInk), "24 1 67 198");
    EXPECT_EQ(PlaceOf(TimesInk), "69 201 366 233");
    EXPECT_EQ(PlaceOf(CornerInk), "0 0 67 233");
    EXPECT_EQ(page.Pixel(44, 210), CornerInk);
    EXPECT_EQ(page.Pixel(45, 210), 0xFFFFFF);
    EXPECT_EQ(PlaceOf(TitleInk), "0 36 23 195");
    EXPECT_EQ(PlaceOf(CaptionInk), "105 232 344 251");
    EXPECT_TRUE(HasFrame(68, 0, 369, 202));
    EXPECT_EQ(PlaceOf(ProfileInk), "99999 99999 -1 -1");
}

TEST_F(Composed, ProfileViewTakesTheProfileAndItsLabels) {
    form.mnuLinePlot.Checked = true;
    ComposeView(w);
    EXPECT_EQ(PlaceOf(ProfileInk), "69 1 368 200");
    EXPECT_EQ(PlaceOf(HeightsBackInk), "24 1 67 198");
    EXPECT_EQ(PlaceOf(TimesBackInk), "69 201 366 233");
    EXPECT_EQ(PlaceOf(GraphInk), "99999 99999 -1 -1");
    ComposeCloudGraph(w);
    EXPECT_EQ(PlaceOf(GraphInk), "69 1 368 200") << "whatever the view";
}

TEST_F(Composed, SplitViewHasBothInTheSizeOfTheCloudGraph) {
    form.mnuLinePlot.Checked = form.mnuSplitScreen.Checked = true;
    const struct {
        const char* what;
        int cloudWidth, profileWidth;
        const char* size;
        const char* cloud;
        const char* profile;
        const char* profileLabels;
        int border;
    } cases[] = {
        {"equal", 150, 150, "370 x 256", "69 1 217 200", "220 1 368 200", "219 203 366 235", 218},
        {"wide profile", 100, 200, "370 x 256", "69 1 167 200", "170 1 268 200", "169 203 266 235",
         168},
        {"narrow profile", 200, 100, "370 x 256", "69 1 267 200", "270 1 368 200",
         "269 203 366 235", 268},
    };
    for (const auto& c : cases) {
        Ink(form.picCombination, c.cloudWidth, 200, GraphInk);
        Ink(form.picLines, c.profileWidth, 200, ProfileInk);
        Ink(form.picXLabels, c.cloudWidth - 2, 34, TimesInk);
        Ink(form.picXLabelsBack, c.profileWidth - 2, 34, TimesBackInk);
        form.picPrintXlabel.Width = 10;  // out of the way
        form.lblXaxis.Left = 20;
        form.lblXaxisBack.Left = 40;
        ComposeView(w);
        EXPECT_EQ(PageSizes(), c.size) << c.what;
        EXPECT_EQ(PlaceOf(GraphInk), c.cloud) << c.what;
        EXPECT_EQ(PlaceOf(ProfileInk), c.profile) << c.what;
        EXPECT_EQ(PlaceOf(TimesBackInk), c.profileLabels) << c.what;
        EXPECT_EQ(PlaceOf(CaptionInk), "20 232 49 251") << c.what;
        EXPECT_EQ(PlaceOf(TitleInk), "0 36 23 195") << c.what;
        EXPECT_TRUE(HasFrame(68, 0, c.border, 202)) << c.what;
        EXPECT_TRUE(HasFrame(c.border + 1, 0, 369, 202)) << c.what;
    }
}

TEST_F(Composed, TitlesFollowTheView) {
    const std::string time = "                   TIME (h)";
    const std::string profile = "Backscatter (100*srad*km)^-1";
    const struct {
        bool automatic, linePlot, split;
        std::vector<std::string> texts;
    } cases[] = {
        {false, false, false, {time}},
        {false, true, false, {profile}},
        {true, true, false, {time}},
        {true, false, false, {time}},
        {false, true, true, {time, "Backscatter "}},
    };
    for (const auto& c : cases) {
        form.mnuAutoPrint.Checked = c.automatic;
        form.mnuLinePlot.Checked = c.linePlot;
        form.mnuSplitScreen.Checked = c.split;
        painter.texts.clear();
        ComposeView(w);
        EXPECT_EQ(painter.texts, c.texts);
        EXPECT_EQ(form.lblPrintXlabel.Caption, c.texts.back());
    }
}

TEST_F(Composed, TheTitleOfTheHeightsFollowsUnitAndTilt) {
    const struct {
        int units, tilted;
        std::string drawing;
    } cases[] = {
        {0, 0, "imgYaxisaltftBW"},
        {1, 0, "imgYaxisaltMbw"},
        {0, 1, "imgYaxisdisFTBW"},
        {1, 1, "imgYaxisdisMbw"},
    };
    for (const auto& c : cases) {
        w.settings.Units = static_cast<std::int16_t>(c.units);
        w.readings.Tilted = static_cast<std::int16_t>(c.tilted);
        painter.drawings.clear();
        ComposeView(w);
        EXPECT_EQ(painter.drawings, std::vector{c.drawing});
        std::string visible;
        for (const Image* image : {&form.imgYaxisaltftBW, &form.imgYaxisaltMbw,
                                   &form.imgYaxisdisFTBW, &form.imgYaxisdisMbw}) {
            if (image->Visible) visible += image->Picture;
        }
        EXPECT_EQ(visible, c.drawing);
    }
}

TEST_F(Composed, ASecondPictureShowsNothingOfTheFirst) {
    ComposeView(w);
    Ink(form.picCombination, 100, 50, 0x123456);
    Ink(form.picYLabels, 44, 48, HeightsInk);
    Ink(form.picXLabels, 98, 34, TimesInk);
    form.picPrinting.ScaleMode = 0;
    form.picPrinting.ScaleWidth = form.picPrinting.ScaleHeight = 1;
    ComposeView(w);
    EXPECT_EQ(PageSizes(), "170 x 106");
    EXPECT_EQ(PlaceOf(GraphInk), "99999 99999 -1 -1");
    EXPECT_TRUE(HasFrame(68, 0, 169, 52));
}

TEST_F(Composed, GraphsOfNoSizeLeaveThePageStanding) {
    for (Surface* surface : {&form.picCombination, &form.picLines, &form.picXLabels,
                             &form.picXLabelsBack, &form.picYLabels, &form.picYLabelsBack}) {
        surface->Width = surface->Height = 0;
    }
    ComposeView(w);
    EXPECT_EQ(PageSizes(), "26 x 22");
    form.mnuSplitScreen.Checked = true;
    ComposeView(w);
    EXPECT_EQ(PageSizes(), "26 x 22");
}

TEST(WhiteLabels, AreWhiteMeanwhileAndGreyAgainWhateverHappens) {
    GraphStation station(300, 200);
    FrmMain& form = station.w.frmMain;
    const std::vector<Surface*> labels{&form.picYLabels, &form.picXLabels, &form.picYLabelsBack,
                                       &form.picXLabelsBack, &form.picCorner};
    constexpr int grey = 0xC0C0C0;
    for (Surface* surface : labels) {
        surface->BackColor = grey;
        surface->Cls();
    }
    // No x axis can be drawn for such limits.
    station.Graphs().ProfileXLow = station.Graphs().ProfileXHigh = 0;
    try {
        const WhiteLabels white(station.w);
        for (Surface* surface : labels) {
            EXPECT_EQ(surface->Pixel(1, 1), 0xFFFFFF);
            if (surface != &form.picCorner && surface != &form.picXLabelsBack) {
                EXPECT_FALSE(surface->Printed().empty());
            }
        }
        throw RuntimeError(482);
    } catch (const RuntimeError&) {
    }
    for (Surface* surface : labels) {
        EXPECT_EQ(surface->BackColor, grey);
        EXPECT_EQ(surface->Pixel(1, 1), grey);
        if (surface != &form.picCorner && surface != &form.picXLabelsBack) {
            EXPECT_FALSE(surface->Printed().empty()) << "the labels are there again";
        }
    }
}

TEST(WhiteLabels, ProfileLabelsAreDrawnOnThemOnce) {
    GraphStation station(300, 200);
    station.w.frmMain.picXLabelsBack.Print("old");
    const WhiteLabels white(station.w);
    const auto texts = TextsOf(station.w.frmMain.picXLabelsBack);
    EXPECT_FALSE(texts.empty());
    EXPECT_NE(texts.front(), "old");
}

}  // namespace
}  // namespace cumeron
