#include "platform/surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int LargestInt = std::numeric_limits<int>::max();
constexpr int LeastInt = std::numeric_limits<int>::min();
constexpr int White = 0xFFFFFF;
constexpr int Black = 0;

Surface Sized(double width, double height) {
    Surface surface;
    surface.Width = width;
    surface.Height = height;
    return surface;
}

// The picture as rows of '#' for what is not white and '.' for white, each closed by a '/'.
std::string PictureOf(const Surface& surface) {
    std::string picture;
    for (int y = 0; y < surface.PixelHeight(); ++y) {
        for (int x = 0; x < surface.PixelWidth(); ++x) {
            picture += surface.Pixel(x, y) == White ? '.' : '#';
        }
        picture += '/';
    }
    return picture;
}

TEST(QBColor, IsTheUsualPalette) {
    const int palette[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                           0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                           0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    for (int number = 0; number < 16; ++number) EXPECT_EQ(QBColor(number), palette[number]);
    for (const int number : {-1, 16, LargestInt, LeastInt}) {
        try {
            QBColor(number);
            ADD_FAILURE() << number;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, 5) << number;
        }
    }
}

TEST(SurfaceSize, FollowsWidthAndHeight) {
    Surface surface = Sized(3, 2);
    surface.Line(0, 0, 2, 1, Black);
    const std::string before = PictureOf(surface);
    EXPECT_EQ(before, "#../.##/");

    surface.BackColor = 0x0000FF;
    surface.Width = 4;
    surface.Height = 3;
    EXPECT_EQ(surface.PixelWidth(), 4);
    EXPECT_EQ(surface.PixelHeight(), 3);
    EXPECT_EQ(PictureOf(surface), "#..#/.###/####/");
    EXPECT_EQ(surface.Pixel(3, 0), 0x0000FF);
    EXPECT_EQ(surface.Pixel(0, 2), 0x0000FF);

    surface.Width = 2;
    surface.Height = 1;
    EXPECT_EQ(PictureOf(surface), "#./");
}

TEST(SurfaceSize, IsThereAtTheFirstUseOfAnyKind) {
    Surface cleared = Sized(1, 1);
    cleared.BackColor = 0x0000FF;
    cleared.Cls();
    cleared.BackColor = Black;
    EXPECT_EQ(cleared.Pixel(0, 0), 0x0000FF);

    EXPECT_EQ(Sized(2, 1).Pixel(1, 0), White);
    EXPECT_EQ(Sized(2, 1).PixelHeight(), 1);

    const Surface read = Sized(1, 1);
    ASSERT_NE(read.Pixels(), nullptr);
    EXPECT_EQ(*read.Pixels(), 0xFFFFFFFFU);

    Surface painted = Sized(1, 1);
    ASSERT_NE(painted.PixelsToPaint(), nullptr);
    *painted.PixelsToPaint() = 0xFF000000;
    EXPECT_EQ(painted.Pixel(0, 0), Black);

    Surface printed = Sized(10, 10);
    printed.ScaleMode = 0;
    printed.ScaleWidth = printed.ScaleHeight = 1;
    printed.CurrentX = printed.CurrentY = 0.5;
    printed.Print("text");
    EXPECT_EQ(printed.Printed().front().x, 5);
}

TEST(SurfaceSize, StandsAnySize) {
    const struct {
        const char* what;
        double width, height;
        int pixelWidth, pixelHeight;
    } cases[] = {
        {"nothing", 0, 0, 0, 0},
        {"no height", 5, 0, 5, 0},
        {"negative", -5, 5, 0, 5},
        {"to the nearest", 4.4, 4.5, 4, 5},
        {"no number", NotANumber, 3, 0, 3},
        {"endless", Inf, 2, 32767, 2},
        {"very high", 2, 1e300, 2, 32767},
        {"too many pixels", 32767, 32767, 32767, 1953},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(c.width, c.height);
        surface.Cls();
        surface.PSet(0, 0, Black);
        EXPECT_EQ(surface.PixelWidth(), c.pixelWidth) << c.what;
        EXPECT_EQ(surface.PixelHeight(), c.pixelHeight) << c.what;
        EXPECT_EQ(surface.Pixel(0, 0), c.pixelWidth * c.pixelHeight > 0 ? Black : -1) << c.what;
    }
}

TEST(Pixel, IsTheColourOrNothing) {
    Surface surface = Sized(3, 2);
    surface.PSet(2, 1, 0x123456);
    EXPECT_EQ(surface.Pixel(2, 1), 0x123456);
    EXPECT_EQ(surface.Pixel(0, 0), White);
    for (const auto& [x, y] : std::vector<std::pair<int, int>>{
             {-1, 0}, {0, -1}, {3, 0}, {0, 2}, {LargestInt, LargestInt}, {LeastInt, 0}}) {
        EXPECT_EQ(surface.Pixel(x, y), -1) << x << " " << y;
    }
}

TEST(Pixels, AreOpaqueWithRedFirst) {
    Surface surface = Sized(2, 2);
    surface.PSet(1, 1, 0x123456);
    EXPECT_EQ(surface.Pixels()[3], 0xFF563412U);
    EXPECT_EQ(surface.Pixels()[0], 0xFFFFFFFFU);
    surface.PSet(0, 1, static_cast<int>(0x80000000U));  // what lies above the colour is left out
    EXPECT_EQ(surface.Pixels()[2], 0xFF000000U);
}

TEST(Cls, FillsForgetsAndGoesHome) {
    Surface surface = Sized(2, 1);
    surface.Line(0, 0, 1, 0, Black);
    surface.Print("gone");
    surface.BackColor = 0x00FF00;
    surface.DrawMode = DrawInvert;
    surface.CurrentX = 1;
    surface.CurrentY = 7;
    surface.Cls();
    EXPECT_EQ(surface.Pixel(0, 0), 0x00FF00);
    EXPECT_EQ(surface.Pixel(1, 0), 0x00FF00);
    EXPECT_TRUE(surface.Printed().empty());
    EXPECT_EQ(surface.CurrentX, 0);
    EXPECT_EQ(surface.CurrentY, 0);
}

TEST(PSet, IsASquareThatLiesUpAndLeft) {
    const struct {
        int drawWidth;
        const char* picture;
    } cases[] = {
        {1, "...../...../..#../...../...../"},  {2, "...../.##../.##../...../...../"},
        {3, "...../.###./.###./.###./...../"},  {4, "####./####./####./####./...../"},
        {5, "#####/#####/#####/#####/#####/"},  {0, "...../...../..#../...../...../"},
        {-3, "...../...../..#../...../...../"}, {LargestInt, "#####/#####/#####/#####/#####/"},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(5, 5);
        surface.DrawWidth = c.drawWidth;
        surface.PSet(2, 2, Black);
        EXPECT_EQ(PictureOf(surface), c.picture) << c.drawWidth;
    }
}

TEST(PSet, DropsWhatLiesOutsidePerPixel) {
    Surface surface = Sized(3, 3);
    surface.DrawWidth = 3;
    surface.PSet(0, 3, Black);
    EXPECT_EQ(PictureOf(surface), ".../.../##./");
    surface.PSet(-2, 0, Black);
    surface.PSet(1, 5, Black);
    surface.PSet(NotANumber, 0, Black);
    surface.PSet(0, Inf, Black);
    EXPECT_EQ(PictureOf(surface), ".../.../##./");
}

TEST(Line, DrawsBothEndPoints) {
    const struct {
        const char* what;
        double x1, y1, x2, y2;
        const char* picture;
    } cases[] = {
        {"across", 1, 1, 3, 1, "...../.###./...../...../"},
        {"down", 2, 0, 2, 3, "..#../..#../..#../..#../"},
        {"up", 2, 3, 2, 1, "...../..#../..#../..#../"},
        {"no length", 4, 3, 4, 3, "...../...../...../....#/"},
        {"diagonal", 0, 0, 3, 3, "#..../.#.../..#../...#./"},
        {"gentle", 0, 0, 4, 1, "##.../..###/...../...../"},
        {"gentle upwards", 0, 3, 4, 1, "...../....#/..##./##.../"},
        {"steep", 0, 0, 1, 3, "#..../#..../.#.../.#.../"},
        {"down the last column", 4, 0, 4, 3, "....#/....#/....#/....#/"},
        {"partly outside", -3, 2, 1, 2, "...../...../##.../...../"},
        {"wholly outside", -3, 5, 9, 5, "...../...../...../...../"},
        {"no number", 0, 0, NotANumber, 0, "...../...../...../...../"},
        {"from no number", NotANumber, 0, 0, 0, "...../...../...../...../"},
        {"endless", 1, 1, Inf, 1, "...../.####/...../...../"},
        {"endless both ways", -1e300, 2, 1e300, 2, "...../...../#####/...../"},
        {"endless down", 0, -Inf, 0, Inf, "#..../#..../#..../#..../"},
        {"very far diagonal", -1e300, -1e300, 1e300, 1e300, "#..../.#.../..#../...#./"},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(5, 4);
        surface.Line(c.x1, c.y1, c.x2, c.y2, Black);
        EXPECT_EQ(PictureOf(surface), c.picture) << c.what;
    }
}

TEST(Line, StaysInAPictureThatIsHigherThanWide) {
    Surface surface = Sized(2, 5);
    surface.Line(0, -9, 0, 9, Black);
    surface.Line(-9, 4, 9, 4, Black);
    EXPECT_EQ(PictureOf(surface), "#./#./#./#./##/");
}

TEST(Line, MovesTheCurrentPointToItsEnd) {
    Surface surface = Sized(5, 4);
    surface.Line(0, 0, 2.5, -7, Black);
    EXPECT_EQ(surface.CurrentX, 2.5);
    EXPECT_EQ(surface.CurrentY, -7);
    surface.PSet(1, 1, Black);
    EXPECT_EQ(surface.CurrentX, 2.5);
}

TEST(Line, IsWidenedToSquares) {
    const struct {
        const char* what;
        int drawWidth;
        double x1, y1, x2, y2;
        const char* picture;
    } cases[] = {
        {"even across", 2, 2, 2, 4, 2, "....../.####./.####./....../....../"},
        {"even down", 2, 2, 1, 2, 3, ".##.../.##.../.##.../.##.../....../"},
        {"odd across", 3, 2, 2, 3, 2, "....../.####./.####./.####./....../"},
        {"even diagonal", 2, 1, 1, 3, 3, "##..../###.../.###../..##../....../"},
        {"odd steep", 3, 2, 1, 3, 3, ".###../.####./.####./..###./..###./"},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(6, 5);
        surface.DrawWidth = c.drawWidth;
        surface.Line(c.x1, c.y1, c.x2, c.y2, Black);
        EXPECT_EQ(PictureOf(surface), c.picture) << c.what;
        // The same pixels in the other direction.
        Surface back = Sized(6, 5);
        back.DrawWidth = c.drawWidth;
        back.Line(c.x2, c.y2, c.x1, c.y1, Black);
        EXPECT_EQ(PictureOf(back), c.picture) << c.what << ", backwards";
    }
}

// Any line is the union of the pen's squares along the line that is one pixel wide.
TEST(Line, IsTheUnionOfItsSquares) {
    std::mt19937 random(7);
    const auto any = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 400; ++round) {
        const int points[] = {any(-5, 25), any(-5, 25), any(-5, 25), any(-5, 25)};
        const int drawWidth = any(1, 6);
        constexpr int Edge = 16;  // room for what reaches in from outside
        Surface thin = Sized(20 + 2 * Edge, 20 + 2 * Edge);
        thin.Line(points[0] + Edge, points[1] + Edge, points[2] + Edge, points[3] + Edge, Black);
        Surface squares = Sized(20, 20);
        squares.DrawWidth = drawWidth;
        for (int y = 0; y < thin.PixelHeight(); ++y) {
            for (int x = 0; x < thin.PixelWidth(); ++x) {
                if (thin.Pixel(x, y) == Black) squares.PSet(x - Edge, y - Edge, Black);
            }
        }
        Surface wide = Sized(20, 20);
        wide.DrawWidth = drawWidth;
        wide.Line(points[0], points[1], points[2], points[3], Black);
        ASSERT_EQ(PictureOf(wide), PictureOf(squares)) << "round " << round;
    }
}

TEST(DrawStyle, DotsCountFromTheFirstEndPoint) {
    const struct {
        const char* what;
        int drawStyle, drawWidth;
        double x1, y1, x2, y2;
        const char* picture;
    } cases[] = {
        {"forwards", 2, 1, 0, 0, 5, 0, "#.#.#./....../....../"},
        {"backwards", 2, 1, 5, 0, 0, 0, ".#.#.#/....../....../"},
        {"down", 2, 1, 1, 0, 1, 2, ".#..../....../.#..../"},
        {"up", 2, 1, 1, 3, 1, 0, "....../.#..../....../"},
        {"from outside", 2, 1, -3, 0, 5, 0, ".#.#.#/....../....../"},
        {"from far outside", 2, 1, -1000000001, 0, 5, 0, "#.#.#./....../....../"},
        {"no length", 2, 1, 3, 1, 3, 1, "....../...#../....../"},
        {"wide is solid", 2, 2, 1, 1, 5, 1, "######/######/....../"},
        {"another style is solid", 1, 1, 0, 0, 5, 0, "######/....../....../"},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(6, 3);
        surface.DrawStyle = c.drawStyle;
        surface.DrawWidth = c.drawWidth;
        surface.Line(c.x1, c.y1, c.x2, c.y2, Black);
        EXPECT_EQ(PictureOf(surface), c.picture) << c.what;
    }
}

TEST(DrawMode, MixesPenAndPicture) {
    const struct {
        const char* what;
        int drawMode, paper, pen, result;
    } cases[] = {
        {"copy", DrawCopy, 0x00FF00, 0x123456, 0x123456},
        {"invert white", DrawInvert, 0xFFFFFF, 0x123456, 0x000000},
        {"invert", DrawInvert, 0x123456, 0x000000, 0xEDCBA9},
        {"green on white", DrawNotXor, 0xFFFFFF, 0x008000, 0x008000},
        {"white on anything", DrawNotXor, 0x123456, 0xFFFFFF, 0x123456},
        {"black inverts", DrawNotXor, 0x123456, 0x000000, 0xEDCBA9},
        {"each bit", DrawNotXor, 0x0000CC, 0x0000AA, 0xFFFF99},
        {"unknown copies", 99, 0x00FF00, 0x123456, 0x123456},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(1, 1);
        surface.BackColor = c.paper;
        surface.DrawMode = c.drawMode;
        surface.PSet(0, 0, c.pen);
        EXPECT_EQ(surface.Pixel(0, 0), c.result) << c.what;
        EXPECT_EQ(surface.Pixels()[0] >> 24, 0xFFU) << c.what;
    }
}

TEST(DrawMode, DrawnTwiceRestoresThePicture) {
    for (const int drawMode : {DrawInvert, DrawNotXor}) {
        for (const int drawWidth : {1, 2, 5}) {
            Surface surface = Sized(20, 20);
            surface.Line(0, 0, 19, 7, 0x8000FF);
            const std::vector<std::uint32_t> before(surface.Pixels(), surface.Pixels() + 400);
            surface.DrawMode = drawMode;
            surface.DrawWidth = drawWidth;
            surface.Line(2, 18, 17, 3, 0x008000);
            EXPECT_NE(surface.Pixel(10, 10), White);  // each pixel is mixed once, not per square
            surface.Line(17, 3, 2, 18, 0x008000);
            EXPECT_EQ(std::vector<std::uint32_t>(surface.Pixels(), surface.Pixels() + 400), before);
        }
    }
}

// A line of no length at (x, y) of the scale shows where that point falls.
TEST(UserScale, FallsOnTheNearestPixel) {
    const struct {
        const char* what;
        double left, top, width, height;  // of the scale
        double x, y;
        int pixelX, pixelY;
    } cases[] = {
        {"upwards, top", 0, 9, 10, -9, 4, 9, 4, 0},
        {"upwards, middle", 0, 9, 10, -9, 4, 4.5, 4, 5},
        {"upwards, above the foot", 0, 9, 10, -9, 4, 1, 4, 9},
        {"left edge", 100, 0, 50, 10, 100, 0, 0, 0},
        {"just before the half", 100, 0, 50, 10, 102.4, 0, 0, 0},
        {"the half goes on", 100, 0, 50, 10, 102.5, 0, 1, 0},
        {"negative half goes on", 0, 0, 10, 10, -0.5, 0, 0, 0},
        {"mirrored", 10, 0, -10, 10, 7, 3, 3, 3},
        {"no width given: pixels", 2, 0, 0, 10, 7, 3, 5, 3},
        {"no height given: pixels", 0, 2, 10, 0, 7, 5, 7, 3},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(10, 10);
        surface.ScaleMode = 0;
        surface.ScaleLeft = c.left;
        surface.ScaleTop = c.top;
        surface.ScaleWidth = c.width;
        surface.ScaleHeight = c.height;
        surface.PSet(c.x, c.y, Black);
        EXPECT_EQ(surface.Pixel(c.pixelX, c.pixelY), Black) << c.what;
    }
}

TEST(UserScale, LosesWhatLiesOutside) {
    Surface surface = Sized(10, 10);
    surface.ScaleMode = 0;
    surface.ScaleWidth = 10;
    surface.ScaleTop = 9;
    surface.ScaleHeight = -9;
    const struct { double x, y; } outside[] = {{4, 0}, {-0.51, 5}, {9.5, 5}, {4, 9.5}};
    for (const auto& at : outside) surface.PSet(at.x, at.y, Black);
    EXPECT_EQ(PictureOf(surface).find('#'), std::string::npos);
}

TEST(UserScale, CountsInModeNoughtOnly) {
    Surface surface = Sized(10, 10);
    surface.ScaleLeft = 5;
    surface.ScaleTop = 5;
    surface.ScaleWidth = surface.ScaleHeight = 1;
    surface.PSet(2.5, 7.4, Black);
    EXPECT_EQ(surface.Pixel(3, 7), Black);
}

TEST(UserScale, StandsNonsense) {
    for (const double nonsense : {NotANumber, Inf, -Inf, 1e-320, -1e308}) {
        Surface surface = Sized(4, 4);
        surface.ScaleMode = 0;
        surface.ScaleLeft = surface.ScaleWidth = nonsense;
        surface.ScaleTop = surface.ScaleHeight = nonsense;
        surface.Line(-1, -1, 5, 5, Black);
        surface.PSet(1, 1, Black);
        surface.Print("text");
        EXPECT_EQ(surface.PixelWidth(), 4);
        EXPECT_EQ(surface.CurrentX, 5);
    }
}

// Blackens the corner of what is printed.
class CornerPainter : public TextPainter {
public:
    void Paint(Surface& surface, const PrintedText& text) override {
        if (text.x < 0 || text.y < 0) return;
        surface.PixelsToPaint()[text.y * surface.PixelWidth() + text.x] = 0xFF000000;
        painted += text.text + ";";
    }
    int TextWidth(const std::string&) override { return 1; }
    int TextHeight() override { return 1; }

    std::string painted;
};

TEST(Print, RecordsAndPaintsAtThePixel) {
    CornerPainter painter;
    Surface surface = Sized(10, 10);
    surface.painter = &painter;
    surface.ForeColor = 0x0000FF;
    surface.CurrentX = 3;
    surface.CurrentY = 4;
    surface.Print("3K");
    surface.ScaleMode = 0;
    surface.ScaleWidth = 20;
    surface.ScaleTop = 100;
    surface.ScaleHeight = -100;
    surface.ForeColor = 0x00FF00;
    surface.CurrentX = 10;
    surface.CurrentY = 80;
    surface.Print("6K");
    surface.CurrentX = -20;
    surface.Print("outside");
    surface.CurrentX = NotANumber;
    surface.Print("nowhere");

    const auto& printed = surface.Printed();
    ASSERT_EQ(printed.size(), 3U);
    const struct {
        const char* text;
        int x, y, colour;
    } expected[] = {{"3K", 3, 4, 0x0000FF}, {"6K", 5, 2, 0x00FF00}, {"outside", -10, 2, 0x00FF00}};
    for (std::size_t i = 0; i < printed.size(); ++i) {
        EXPECT_EQ(printed[i].text, expected[i].text);
        EXPECT_EQ(printed[i].x, expected[i].x) << expected[i].text;
        EXPECT_EQ(printed[i].y, expected[i].y) << expected[i].text;
        EXPECT_EQ(printed[i].colour, expected[i].colour) << expected[i].text;
    }
    EXPECT_EQ(painter.painted, "3K;6K;");
    EXPECT_EQ(surface.Pixel(3, 4), Black);
    EXPECT_EQ(surface.Pixel(5, 2), Black);
}

}  // namespace
}  // namespace cumeron
