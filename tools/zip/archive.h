// What a zip archive holds, read from its directory; and the checksum by which it knows contents.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cumeron::zip {

struct Member {
    std::string name;
    std::uint32_t size = 0;  // bytes, unpacked
    std::uint32_t checksum = 0;
};

// None for a file that is not there. Throws std::runtime_error for one that is no archive.
std::vector<Member> MembersOf(const std::string& archive);
// The name under which a log goes into the archive: its own or, when that is taken, with a number
// behind it, "A6111514-2.DAT".
std::string FreeName(const std::string& logName, const std::vector<Member>& members);
// CRC-32.
std::uint32_t Checksum(std::string_view text);

// The whole file. Throws std::system_error.
std::string ReadWhole(const std::string& path);

}  // namespace cumeron::zip
