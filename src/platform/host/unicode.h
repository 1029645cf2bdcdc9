// Texts of the program (one byte per character, code page 1252) to Unicode and back, and file
// names to the bytes of the file system. Everything in platform/host that shows or names goes
// through here.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace cumeron {

// Never fails: the five bytes without a character keep their number.
QString ToUnicode(std::string_view text);
// A character outside the code page becomes "?".
std::string FromUnicode(const QString& text);

// The bytes by which the file system knows the name. A name that is UTF-8 already (a folder that
// the environment gave) stays as it is; any other is taken as a text of the program.
std::string ToFileName(std::string_view name);
// The name for those bytes: a text of the program where the code page has all of it, else the bytes
// themselves.
std::string FromFileName(const std::string& bytes);

}  // namespace cumeron
