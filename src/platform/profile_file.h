// The private profile (INI) format over the text of a file: pure functions. The settings store
// and the port map use them.
#pragma once

#include <string>
#include <string_view>

namespace cumeron {

// The value of key in section, ignoring case of both; blanks around it and one pair of quotes
// around it are taken off; at most 2047 characters. fallback when the key is absent.
std::string ProfileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view fallback);
// text with the key set: a known key is replaced in place, a new one comes at the section's end, a
// missing section at the end of the text. Comments, foreign sections and order stay byte for byte.
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

}  // namespace cumeron
