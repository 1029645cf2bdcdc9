// Pictures of surfaces, read back byte by byte.
#include "pictures.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>

namespace cumeron {
namespace {

Surface Painted(int width, int height) {
    Surface surface;
    surface.Width = width;
    surface.Height = height;
    surface.BackColor = 0x030201;  // blue, green, red
    surface.Cls();
    surface.PSet(1, 0, 0xFFFEFD);
    return surface;
}

std::uint32_t Number(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

// Division of polynomials, bit by bit from the highest power; the writer goes the other way round.
std::uint32_t Crc(const std::string& bytes) {
    std::uint32_t remainder = 0xFFFFFFFF;
    for (const char c : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            const std::uint32_t in = static_cast<unsigned char>(c) >> bit & 1;
            const bool over = (remainder >> 31) != in;
            remainder = remainder << 1 ^ (over ? 0x04C11DB7U : 0U);
        }
    }
    std::uint32_t reversed = 0;
    for (int bit = 0; bit < 32; ++bit) reversed |= (~remainder >> bit & 1) << (31 - bit);
    return reversed;
}

// Chunks by name, in one piece each; the sums are checked.
std::map<std::string, std::string> Chunks(const std::string& file) {
    std::map<std::string, std::string> chunks;
    EXPECT_EQ(file.substr(0, 8), "\x89PNG\r\n\x1A\n");
    std::size_t at = 8;
    while (at + 12 <= file.size()) {
        const std::size_t length = Number(file, at);
        const std::string name = file.substr(at + 4, 4);
        chunks[name] = file.substr(at + 8, length);
        EXPECT_EQ(Number(file, at + 8 + length), Crc(name + chunks[name])) << name;
        at += 12 + length;
    }
    EXPECT_EQ(at, file.size());
    EXPECT_EQ(file.substr(at - 8, 4), "IEND");
    return chunks;
}

// What a reader of zlib streams finds in one of stored blocks.
std::string Unpacked(const std::string& stream) {
    EXPECT_EQ((static_cast<unsigned char>(stream[0]) * 256 + stream[1]) % 31, 0);
    EXPECT_EQ(stream[0] & 0x0F, 8);
    std::string bytes;
    std::size_t at = 2;
    bool last = false;
    while (!last) {
        last = stream[at] == 1;
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(stream[at + i]); };
        const std::size_t length = byte(1) + byte(2) * 256U;
        EXPECT_EQ(length ^ 0xFFFF, byte(3) + byte(4) * 256U);
        bytes += stream.substr(at + 5, length);
        at += 5 + length;
    }
    std::uint64_t low = 1, high = 0;
    for (const char c : bytes) {
        low += static_cast<unsigned char>(c);
        high += low;
    }
    EXPECT_EQ(Number(stream, at), (high % 65521) << 16 | low % 65521);
    EXPECT_EQ(at + 4, stream.size());
    return bytes;
}

TEST(Pictures, SumOverTheEndChunkIsTheKnownOne) { EXPECT_EQ(Crc("IEND"), 0xAE426082U); }

TEST(Pictures, PixmapHoldsRedGreenBlue) {
    EXPECT_EQ(PpmOf(Painted(3, 1)), "P6\n3 1\n255\n\x01\x02\x03\xFD\xFE\xFF\x01\x02\x03");
}

TEST(Pictures, PngHoldsTheSameRows) {
    const auto chunks = Chunks(PngOf(Painted(3, 2)));
    EXPECT_EQ(chunks.at("IHDR"), std::string("\0\0\0\x03\0\0\0\x02\x08\x02\0\0\0", 13));
    EXPECT_EQ(Unpacked(chunks.at("IDAT")), std::string("\0\x01\x02\x03\xFD\xFE\xFF\x01\x02\x03"
                                                       "\0\x01\x02\x03\x01\x02\x03\x01\x02\x03",
                                                       20));
    EXPECT_EQ(chunks.at("IEND"), "");
}

// A stored block holds 65535 bytes at most.
TEST(Pictures, LargePngGoesOverSeveralBlocks) {
    for (const int height : {84, 85, 86, 300}) {
        const Surface surface = Painted(257, height);
        const std::string rows = Unpacked(Chunks(PngOf(surface)).at("IDAT"));
        EXPECT_EQ(rows.size(), static_cast<std::size_t>(height) * (1 + 3 * 257));
        EXPECT_EQ(rows.substr(4, 3), "\xFD\xFE\xFF");
    }
    EXPECT_EQ(Unpacked(Chunks(PngOf(Painted(4369, 5))).at("IDAT")).size(), 65540U);
}

}  // namespace
}  // namespace cumeron
