// Text and number conversions with the semantics that the program's texts follow. Text is one
// byte per character (code page 1252), positions are 1-based.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cumeron {

// length characters at position; what lies beyond the end is left out. A position of 0 or less,
// or a length of 0 or less, gives "". Without a length: to the end.
std::string Mid(std::string_view text, long position, long length);
std::string Mid(std::string_view text, long position);
// The first position of needle, 0 when it is not there or empty.
long InStr(std::string_view text, std::string_view needle);

// A number as a person writes it: blanks around, one sign in front or behind, digits with at most
// one decimal point, an exponent (e E d D). Not: "", a lone sign or point, letters, "1 2".
bool IsNumeric(std::string_view text);
// The value of such a text; raises 13 otherwise, 6 when no double holds it.
double ToDouble(std::string_view text);
// To the nearest integer, halves to even. Raise 6 when it does not fit (also NaN), 13 for a text
// that is no number.
std::int16_t ToInt16(double value);
std::int16_t ToInt16(std::string_view text);
std::int32_t ToInt32(double value);
std::int32_t ToInt32(std::string_view text);
double RoundHalfEven(double value);

// 16-bit arithmetic: raises 6 when the result does not fit.
std::int16_t Add16(std::int16_t a, int b);
std::int16_t Multiply16(std::int16_t a, int b);

std::string StrOf(double value);  // with the leading blank of a positive number: " 15"
// Shortest decimal form of at most 15 significant digits: "-0.5", "15"; with an exponent, "1E+20",
// when the whole number or the decimals take more than 15 places.
std::string NumberText(double value);
std::string Hex(std::uint32_t value);  // capitals, no leading noughts
// left-padded with pad to width characters; longer texts stay as they are
std::string PadLeft(std::string_view text, std::size_t width, char pad);
std::string LowerCase(std::string_view text);  // ASCII letters
std::string UpperCase(std::string_view text);
std::string Trim(std::string_view text);  // blanks at both ends

}  // namespace cumeron
