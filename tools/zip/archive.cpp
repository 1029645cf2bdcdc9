// The end of an archive, numbers with the lowest byte first:
//
//     for each member: "PK" 1 2, ... 16 checksum (4), 24 size (4), 28 length of name (2),
//                      30 length of extra (2), 32 length of comment (2), 46 name, extra, comment
//     "PK" 5 6, ... 10 number of members (2), 16 place of the first of them (4),
//                      20 length of comment (2), 22 comment
#include "archive.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace cumeron::zip {
namespace {

constexpr std::string_view EndMark = "PK\x05\x06";
constexpr std::string_view MemberMark = "PK\x01\x02";
constexpr std::size_t EndLength = 22, MemberLength = 46;

[[noreturn]] void NoArchive(const std::string& archive) {
    throw std::runtime_error(archive + " is no zip archive");
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t length) {
    std::uint32_t number = 0;
    for (std::size_t i = length; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return number;
}

std::array<std::uint32_t, 256> ChecksumTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ (value & 1 ? 0xEDB88320U : 0);
        table[byte] = value;
    }
    return table;
}

}  // namespace

std::vector<Member> MembersOf(const std::string& archive) {
    if (!std::filesystem::exists(archive)) return {};
    const std::string bytes = ReadWhole(archive);
    const std::size_t end = bytes.rfind(EndMark);
    if (end == bytes.npos || end + EndLength > bytes.size()) NoArchive(archive);
    std::vector<Member> members;
    std::size_t at = NumberAt(bytes, end + 16, 4);
    for (std::uint32_t left = NumberAt(bytes, end + 10, 2); left > 0; --left) {
        if (at + MemberLength > end || bytes.compare(at, 4, MemberMark) != 0) NoArchive(archive);
        const std::size_t nameLength = NumberAt(bytes, at + 28, 2);
        members.push_back({bytes.substr(at + MemberLength, nameLength), NumberAt(bytes, at + 24, 4),
                           NumberAt(bytes, at + 16, 4)});
        at += MemberLength + nameLength + NumberAt(bytes, at + 30, 2) + NumberAt(bytes, at + 32, 2);
    }
    return members;
}

std::string FreeName(const std::string& logName, const std::vector<Member>& members) {
    const auto isTaken = [&](const std::string& name) {
        return std::ranges::any_of(members, [&](const Member& m) { return m.name == name; });
    };
    const std::filesystem::path log(logName);
    std::string name = logName;
    for (int number = 2; isTaken(name); ++number) {
        name = log.stem().string() + "-" + std::to_string(number) + log.extension().string();
    }
    return name;
}

std::uint32_t Checksum(std::string_view text) {
    static const std::array<std::uint32_t, 256> table = ChecksumTable();
    std::uint32_t value = 0xFFFFFFFFU;
    for (const char c : text) {
        value = value >> 8 ^ table[(value ^ static_cast<unsigned char>(c)) & 0xFF];
    }
    return ~value;
}

std::string ReadWhole(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) throw std::system_error(errno, std::generic_category(), path);
    return text;
}

}  // namespace cumeron::zip
