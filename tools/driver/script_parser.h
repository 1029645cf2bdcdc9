// Cuts the text of a scenario into lines and words. Takes any bytes.
#pragma once

#include <deque>
#include <istream>
#include <optional>
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

// Reads a script line by line and no further than it is asked for, so that a script of a month
// takes no more memory than one of a day. Empty lines and comments are left out. A line ends with
// LF or CR LF.
class ScriptReader {
public:
    explicit ScriptReader(std::istream& in) : input(in) {}

    // Nothing at the end.
    std::optional<ScriptLine> Next();
    // The line that stands count lines behind the next one; null when the script ends before it.
    const ScriptLine* Ahead(std::size_t count);
    // The number of the line that Next gave last, 0 before the first.
    int LastNumber() const { return lastNumber; }

private:
    bool ReadOne();

    std::istream& input;
    int linesRead = 0;
    int lastNumber = 0;
    std::deque<ScriptLine> ahead;
};

// text in double quotes as a script would write it: what is not printable ASCII is escaped.
std::string Quoted(std::string_view text);
// A word with its quotes taken off and its escapes carried out; another word as it stands.
std::string Unquoted(std::string_view word);

}  // namespace cumeron
