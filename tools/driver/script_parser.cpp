#include "script_parser.h"

#include <optional>

namespace cumeron {

namespace {

struct Escape {
    char letter, meaning;
};
constexpr Escape Escapes[] = {{'"', '"'}, {'\\', '\\'}, {'r', '\r'}, {'n', '\n'}, {'t', '\t'}};

struct Malformed {
    std::string text;
};

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The character that the escape behind the backslash at line[at] stands for; at goes behind it.
char TakeEscape(std::string_view line, std::size_t& at) {
    const char letter = at + 1 < line.size() ? line[at + 1] : '\0';
    for (const Escape& escape : Escapes) {
        if (escape.letter == letter) {
            at += 2;
            return escape.meaning;
        }
    }
    if (letter == 'x' && at + 3 < line.size()) {
        const int high = HexDigit(line[at + 2]);
        const int low = HexDigit(line[at + 3]);
        if (high >= 0 && low >= 0) {
            at += 4;
            return static_cast<char>(high * 16 + low);
        }
    }
    throw Malformed{"unknown escape; known are \\\" \\\\ \\r \\n \\t \\xHH"};
}

// at stands on the opening quote and goes behind the closing one.
std::string TakeQuoted(std::string_view line, std::size_t& at) {
    std::string text;
    ++at;
    while (at < line.size() && line[at] != '"') {
        text += line[at] == '\\' ? TakeEscape(line, at) : line[at++];
    }
    if (at == line.size()) throw Malformed{"a quote is not closed"};
    ++at;
    return text;
}

// A word that does not begin with a quote stays raw, also with quotes in it: IsNumeric("1 2").
std::string TakeBare(std::string_view line, std::size_t& at) {
    const std::size_t begin = at;
    while (at < line.size() && !IsBlank(line[at])) {
        if (line[at] == '"') {
            TakeQuoted(line, at);
        } else {
            ++at;
        }
    }
    return std::string(line.substr(begin, at - begin));
}

std::vector<ScriptWord> TakeWords(std::string_view line) {
    std::vector<ScriptWord> words;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && IsBlank(line[at])) ++at;
        if (at == line.size() || line[at] == '#') return words;
        if (line[at] == '"') {
            words.push_back({TakeQuoted(line, at), true});
            if (at < line.size() && !IsBlank(line[at])) {
                throw Malformed{"a blank is missing behind a closing quote"};
            }
        } else {
            words.push_back({TakeBare(line, at), false});
        }
    }
}

}  // namespace

ScriptLine ParseLine(std::string_view line, int number) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    try {
        return {number, TakeWords(line), ""};
    } catch (const Malformed& malformed) {
        return {number, {}, malformed.text};
    }
}

// Brings one line with words or an error into ahead; false at the end.
bool ScriptReader::ReadOne() {
    std::string text;
    while (std::getline(input, text)) {
        ScriptLine line = ParseLine(text, ++linesRead);
        if (line.words.empty() && line.error.empty()) continue;
        ahead.push_back(std::move(line));
        return true;
    }
    return false;
}

std::optional<ScriptLine> ScriptReader::Next() {
    if (ahead.empty() && !ReadOne()) return std::nullopt;
    ScriptLine line = std::move(ahead.front());
    ahead.pop_front();
    lastNumber = line.number;
    return line;
}

const ScriptLine* ScriptReader::Ahead(std::size_t count) {
    while (ahead.size() <= count) {
        if (!ReadOne()) return nullptr;
    }
    return &ahead[count];
}

std::string Quoted(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (const char c : text) {
        std::optional<char> letter;
        for (const Escape& escape : Escapes) {
            if (escape.meaning == c) letter = escape.letter;
        }
        const auto byte = static_cast<unsigned char>(c);
        if (letter) {
            quoted += {'\\', *letter};
        } else if (byte < 32 || byte > 126) {
            quoted += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
        } else {
            quoted += c;
        }
    }
    return quoted + "\"";
}

std::string Unquoted(std::string_view word) {
    if (!word.starts_with('"')) return std::string(word);
    std::size_t at = 0;
    return TakeQuoted(word, at);
}

}  // namespace cumeron
