#include "pictures.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace cumeron {

namespace {

// Red, green and blue of one row.
std::string RowOf(const Surface& surface, int y) {
    std::string row;
    for (int x = 0; x < surface.PixelWidth(); ++x) {
        const int colour = surface.Pixel(x, y);  // 00BBGGRR
        for (const int shift : {0, 8, 16}) row += static_cast<char>(colour >> shift & 0xFF);
    }
    return row;
}

std::string BigEndian(std::uint32_t number) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

std::string LittleEndian16(std::size_t number) {
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8 & 0xFF)};
}

std::uint32_t Crc32(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

std::uint32_t Adler32(std::string_view bytes) {
    std::uint32_t low = 1, high = 0;
    for (const char c : bytes) {
        low = (low + static_cast<unsigned char>(c)) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

// zlib stream of stored blocks: 1 for the last, length, its complement, the bytes.
std::string Stored(std::string_view bytes) {
    constexpr std::size_t longestBlock = 65535;
    std::string stream = "\x78\x01";
    const std::uint32_t sum = Adler32(bytes);
    while (!bytes.empty()) {
        const std::size_t length = std::min(bytes.size(), longestBlock);
        stream += length == bytes.size() ? '\1' : '\0';
        stream += LittleEndian16(length) + LittleEndian16(~length);
        stream += bytes.substr(0, length);
        bytes.remove_prefix(length);
    }
    return stream + BigEndian(sum);
}

// Length, name, data, and the sum over name and data.
std::string Chunk(const std::string& name, const std::string& data) {
    return BigEndian(static_cast<std::uint32_t>(data.size())) + name + data +
           BigEndian(Crc32(name + data));
}

}  // namespace

std::string PpmOf(const Surface& surface) {
    std::string file = "P6\n" + std::to_string(surface.PixelWidth()) + ' ' +
                       std::to_string(surface.PixelHeight()) + "\n255\n";
    for (int y = 0; y < surface.PixelHeight(); ++y) file += RowOf(surface, y);
    return file;
}

std::string PngOf(const Surface& surface) {
    const std::string size = BigEndian(static_cast<std::uint32_t>(surface.PixelWidth())) +
                             BigEndian(static_cast<std::uint32_t>(surface.PixelHeight()));
    // 8 bits, true colour, the one compression and filter method that there are, not interlaced.
    const std::string kind("\x08\x02\x00\x00\x00", 5);
    std::string rows;
    for (int y = 0; y < surface.PixelHeight(); ++y) rows += '\0' + RowOf(surface, y);  // no filter
    return "\x89PNG\r\n\x1A\n" + Chunk("IHDR", size + kind) + Chunk("IDAT", Stored(rows)) +
           Chunk("IEND", "");
}

}  // namespace cumeron
