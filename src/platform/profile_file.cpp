#include "platform/profile_file.h"

#include <algorithm>
#include <optional>

#include "platform/runtime/text.h"

namespace cumeron {

namespace {

constexpr std::size_t LongestValue = 2047;
// A line end that was converted twice leaves a second carriage return, which is a blank too.
constexpr std::string_view Blanks = " \t\r";
// Some editors put this mark before the first line of what they save.
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && LowerCase(a) == LowerCase(b);
}

// One line of the text: [begin, end) is its content, [begin, next) the line with its line end.
struct Line {
    std::size_t begin, end, next;
};

Line LineAt(std::string_view text, std::size_t begin) {
    const std::size_t feed = text.find('\n', begin);
    if (feed == text.npos) return {begin, text.size(), text.size()};
    const bool afterReturn = feed > begin && text[feed - 1] == '\r';
    return {begin, afterReturn ? feed - 1 : feed, feed + 1};
}

std::string_view ContentOf(std::string_view text, const Line& line) {
    std::string_view content = text.substr(line.begin, line.end - line.begin);
    if (line.begin == 0 && content.starts_with(ByteOrderMark)) {
        content.remove_prefix(ByteOrderMark.size());
    }
    return WithoutBlanks(content);
}

// The name of the section that the line begins, if it does.
std::optional<std::string_view> SectionName(std::string_view content) {
    if (!content.starts_with('[')) return std::nullopt;
    content.remove_prefix(1);
    return WithoutBlanks(content.substr(0, content.find(']')));
}

bool IsLineOfKey(std::string_view content, std::string_view key) {
    if (content.starts_with(';')) return false;
    const std::size_t equals = content.find('=');
    return equals != content.npos && SameName(WithoutBlanks(content.substr(0, equals)), key);
}

// Where a key stands, or where it would go.
struct Place {
    bool sectionFound = false;
    std::optional<Line> keyLine;
    std::size_t sectionEnd = 0;  // behind the last line of the section that is not blank
};

// The first section of the name counts, and in it the first line of the key.
Place FindKey(std::string_view text, std::string_view section, std::string_view key) {
    Place place;
    for (std::size_t at = 0; at < text.size();) {
        const Line line = LineAt(text, at);
        const std::string_view content = ContentOf(text, line);
        const std::optional<std::string_view> name = SectionName(content);
        if (place.sectionFound) {
            if (name) break;
            if (IsLineOfKey(content, key)) {
                place.keyLine = line;
                break;
            }
            if (!content.empty()) place.sectionEnd = line.next;
        } else if (name && SameName(*name, section)) {
            place.sectionFound = true;
            place.sectionEnd = line.next;
        }
        at = line.next;
    }
    return place;
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view LineEndOf(std::string_view text) {
    const std::size_t feed = text.find('\n');
    const bool feedOnly = feed != text.npos && (feed == 0 || text[feed - 1] != '\r');
    return feedOnly ? "\n" : "\r\n";
}

// Puts whole lines at a place between two lines. At the end of a text without a last line end the
// new last line has none either.
std::string WithLines(std::string_view text, std::size_t at, const std::string& lines,
                      std::string_view lineEnd) {
    std::string result(text.substr(0, at));
    if (result.empty() || result.ends_with('\n')) {
        result.append(lines).append(lineEnd);
    } else {
        result.append(lineEnd).append(lines);
    }
    return result.append(text.substr(at));
}

}  // namespace

std::string ProfileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view fallback) {
    const std::optional<Line> line = FindKey(text, section, key).keyLine;
    if (!line) return std::string(fallback);
    const std::string_view content = ContentOf(text, *line);
    const std::string_view value = WithoutBlanks(content.substr(content.find('=') + 1));
    return std::string(WithoutQuotes(value).substr(0, LongestValue));
}

std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    // A line end in a value would make its rest another line, so it is written as a blank.
    std::string written(value);
    std::replace_if(
        written.begin(), written.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    const Place place = FindKey(text, section, key);
    if (place.keyLine) {
        const std::size_t valueAt = text.find('=', place.keyLine->begin) + 1;
        std::string result(text.substr(0, valueAt));
        return result.append(written).append(text.substr(place.keyLine->end));
    }
    const std::string_view lineEnd = LineEndOf(text);
    std::string lines = std::string(key).append("=").append(written);
    if (place.sectionFound) return WithLines(text, place.sectionEnd, lines, lineEnd);
    lines = std::string("[").append(section).append("]").append(lineEnd).append(lines);
    return WithLines(text, text.size(), lines, lineEnd);
}

}  // namespace cumeron
