// Cuts the text of a scenario into lines and words. Pure; takes any bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cumeron {

// A word as it stands, or what stood between double quotes with its escapes carried out.
struct ScriptWord {
    std::string text;
    bool quoted = false;  // "$" and "@" mean themselves
};

struct ScriptLine {
    int number = 0;  // from 1
    std::vector<ScriptWord> words;
    std::string error;  // what is malformed; words is empty then
};

ScriptLine ParseLine(std::string_view line, int number);
// Empty lines and comments are left out. A line ends with LF or CR LF.
std::vector<ScriptLine> ParseScript(std::string_view text);

// text in double quotes as a script would write it: what is not printable ASCII is escaped.
std::string Quoted(std::string_view text);
// A word with its quotes taken off and its escapes carried out; another word as it stands.
std::string Unquoted(std::string_view word);

}  // namespace cumeron
