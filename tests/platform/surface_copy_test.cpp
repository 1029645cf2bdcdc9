#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "platform/surface.h"

namespace cumeron {
namespace {

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

// 4 by 3 pixels, each of its own colour: column + 16 times the row.
Surface Numbered() {
    Surface surface = Sized(4, 3);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x) surface.PSet(x, y, x + 16 * y);
    }
    return surface;
}

// Row by row in hexadecimal, "--" for white.
std::string NumbersOf(const Surface& surface) {
    constexpr char Digits[] = "0123456789ABCDEF";
    std::string text;
    for (int y = 0; y < surface.PixelHeight(); ++y) {
        for (int x = 0; x < surface.PixelWidth(); ++x) {
            const int pixel = surface.Pixel(x, y);
            text += pixel == White ? std::string("--")
                                   : std::string{Digits[pixel / 16 % 16], Digits[pixel % 16]};
        }
        text += '/';
    }
    return text;
}

TEST(BitBlt, CopiesWhatBothHave) {
    const struct {
        const char* what;
        int x, y, width, height, sourceX, sourceY;
        const char* numbers;
    } cases[] = {
        {"whole", 0, 0, 4, 3, 0, 0, "00010203--/10111213--/20212223--/----------/"},
        {"moved", 1, 1, 2, 2, 1, 0, "----------/--0102----/--1112----/----------/"},
        {"more than the source", 3, 2, 9, 9, 2, 1, "----------/----------/------1213/------2223/"},
        {"more than the target", 4, 3, 4, 3, 0, 0, "----------/----------/----------/--------00/"},
        {"before the source", 0, 0, 3, 2, -1, -1, "----------/--0001----/----------/----------/"},
        {"before the target", -2, -1, 4, 3, 0, 0, "1213------/2223------/----------/----------/"},
        {"before both", -1, 0, 4, 1, -2, 0, "--0001----/----------/----------/----------/"},
        {"behind the source", 0, 0, 3, 3, 4, 0, "----------/----------/----------/----------/"},
        {"far behind the source", 0, 0, 3, 3, 9, 0, "----------/----------/----------/----------/"},
        {"nothing", 0, 0, 0, 3, 0, 0, "----------/----------/----------/----------/"},
        {"negative", 3, 3, -2, -2, 0, 0, "----------/----------/----------/----------/"},
        {"huge", 0, 0, LargestInt, LargestInt, 3, 2,
         "23--------/----------/----------/----------/"},
        {"far off", LargestInt, LeastInt, LargestInt, LargestInt, LargestInt, LeastInt,
         "----------/----------/----------/----------/"},
    };
    const Surface source = Numbered();
    for (const auto& c : cases) {
        Surface surface = Sized(5, 4);
        surface.DrawMode = DrawInvert;  // of no account for a copy
        surface.BitBlt(c.x, c.y, c.width, c.height, source, c.sourceX, c.sourceY);
        EXPECT_EQ(NumbersOf(surface), c.numbers) << c.what;
    }
}

TEST(BitBlt, ScrollsWithinOneSurface) {
    const struct {
        const char* what;
        int x, y, sourceX, sourceY;
        const char* numbers;
    } cases[] = {
        {"left", 0, 0, 1, 0, "01020303/11121313/21222323/"},
        {"right", 1, 0, 0, 0, "00000102/10101112/20202122/"},
        {"up", 0, 0, 0, 1, "10111213/20212223/20212223/"},
        {"down", 0, 1, 0, 0, "00010203/00010203/10111213/"},
        {"down and left", 0, 1, 1, 0, "00010203/01020313/11121323/"},
    };
    for (const auto& c : cases) {
        Surface surface = Numbered();
        surface.BitBlt(c.x, c.y, 4, 3, surface, c.sourceX, c.sourceY);
        EXPECT_EQ(NumbersOf(surface), c.numbers) << c.what;
    }
}

TEST(BitBlt, TakesASourceInItsNewSize) {
    Surface source = Numbered();
    source.Width = 1;
    Surface surface = Sized(3, 1);
    surface.BitBlt(0, 0, 3, 1, source, 0, 0);
    EXPECT_EQ(NumbersOf(surface), "00----/");
}

TEST(Fill, FillsWhatLiesInside) {
    const struct {
        const char* what;
        int x, y, width, height;
        const char* picture;
    } cases[] = {
        {"inside", 1, 1, 2, 1, "..../.##./..../"},
        {"across an edge", -1, 2, 3, 9, "..../..../##../"},
        {"everything", LeastInt / 2, LeastInt / 2, LargestInt, LargestInt, "####/####/####/"},
        {"outside", 4, 0, 3, 3, "..../..../..../"},
        {"below", 0, 3, 3, 3, "..../..../..../"},
        {"nothing", 0, 0, 0, 3, "..../..../..../"},
        {"negative", 2, 2, -2, -2, "..../..../..../"},
    };
    for (const auto& c : cases) {
        Surface surface = Sized(4, 3);
        surface.DrawMode = DrawInvert;  // of no account for a fill
        surface.Fill(c.x, c.y, c.width, c.height, 0x123456);
        EXPECT_EQ(PictureOf(surface), c.picture) << c.what;
    }
    Surface surface = Sized(1, 1);
    surface.Fill(0, 0, 1, 1, 0x123456);
    EXPECT_EQ(surface.Pixel(0, 0), 0x123456);
}

TEST(Changes, CountEveryDrawing) {
    Surface surface = Sized(4, 4);
    const Surface source = Numbered();
    unsigned last = surface.Changes();
    const auto changed = [&] {
        return std::exchange(last, surface.Changes()) != surface.Changes();
    };
    EXPECT_FALSE(changed());
    surface.Cls();
    EXPECT_TRUE(changed());
    surface.PSet(0, 0, Black);
    EXPECT_TRUE(changed());
    surface.Line(0, 0, 3, 3, Black);
    EXPECT_TRUE(changed());
    surface.Print("text");
    EXPECT_TRUE(changed());
    surface.BitBlt(0, 0, 4, 4, source, 0, 0);
    EXPECT_TRUE(changed());
    surface.Fill(0, 0, 1, 1, White);
    EXPECT_TRUE(changed());
    surface.PixelsToPaint();
    EXPECT_TRUE(changed());
    surface.Width = 5;
    EXPECT_TRUE(changed());
    surface.Pixel(0, 0);
    surface.Pixels();
    EXPECT_FALSE(changed());
}

}  // namespace
}  // namespace cumeron
