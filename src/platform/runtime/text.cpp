#include "platform/runtime/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

#include "platform/runtime/errors.h"

namespace cumeron {

namespace {

constexpr int ErrorOverflow = 6;
constexpr int ErrorTypeMismatch = 13;
constexpr int SignificantDigits = 15;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The parts of a number as a person writes it, views into the text.
struct WrittenNumber {
    bool negative = false;
    std::string_view mantissa;  // digits with at most one point
    std::string_view exponent;  // digits with an optional sign, "" for none
};

std::size_t CountDigits(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) -
                                    text.begin());
}

// Takes one sign from the front or the end of text; true for a minus.
bool TakeSign(std::string_view& text) {
    const auto isSign = [](char c) { return c == '+' || c == '-'; };
    bool negative = false;
    if (!text.empty() && isSign(text.front())) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    } else if (!text.empty() && isSign(text.back())) {
        negative = text.back() == '-';
        text.remove_suffix(1);
    }
    return negative;
}

std::optional<WrittenNumber> ParseNumber(std::string_view text) {
    WrittenNumber number;
    text = WithoutBlanks(text);
    number.negative = TakeSign(text);

    const std::size_t whole = CountDigits(text);
    std::size_t length = whole;
    std::size_t digits = whole;
    if (length < text.size() && text[length] == '.') {
        const std::size_t decimals = CountDigits(text.substr(length + 1));
        length += 1 + decimals;
        digits += decimals;
    }
    if (digits == 0) return std::nullopt;
    number.mantissa = text.substr(0, length);
    text.remove_prefix(length);
    if (text.empty()) return number;

    if (std::string_view("eEdD").find(text.front()) == std::string_view::npos) return std::nullopt;
    number.exponent = text.substr(1);
    if (number.exponent.starts_with('+')) number.exponent.remove_prefix(1);
    const std::string_view unsignedExponent =
        number.exponent.substr(number.exponent.starts_with('-') ? 1 : 0);
    if (unsignedExponent.empty() || CountDigits(unsignedExponent) != unsignedExponent.size()) {
        return std::nullopt;
    }
    return number;
}

// Whether a number that no double can hold is too large (not: too near to zero).
bool IsTooLarge(const WrittenNumber& number) {
    const std::size_t point = std::min(number.mantissa.find('.'), number.mantissa.size());
    const std::size_t leading =
        std::min(number.mantissa.find_first_not_of("0."), number.mantissa.size());
    const double placesBeforePoint = static_cast<double>(point) - static_cast<double>(leading);
    constexpr long long Beyond = std::numeric_limits<long long>::max();
    long long exponent = 0;
    const char* const end = number.exponent.data() + number.exponent.size();
    if (std::from_chars(number.exponent.data(), end, exponent).ec ==
        std::errc::result_out_of_range) {
        exponent = number.exponent.front() == '-' ? -Beyond : Beyond;
    }
    return placesBeforePoint + static_cast<double>(exponent) > 0;
}

template <class Integer>
Integer ToInteger(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() &&
          rounded <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorOverflow);
    }
    return static_cast<Integer>(rounded);
}

std::int16_t Fit16(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        throw RuntimeError(ErrorOverflow);
    }
    return static_cast<std::int16_t>(value);
}

template <class Change>
std::string WithEachLetter(std::string_view text, Change change) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), change);
    return result;
}

// A decimal number in plain form; exponent is the power of ten of the first digit.
std::string PlainForm(const std::string& digits, int exponent) {
    if (exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) return digits + std::string(whole - digits.size(), '0');
    return digits.substr(0, whole) + "." + digits.substr(whole);
}

std::string ExponentForm(const std::string& digits, int exponent) {
    std::string text = digits.substr(0, 1);
    if (digits.size() > 1) text += "." + digits.substr(1);
    return text + (exponent < 0 ? "E-" : "E+") +
           PadLeft(std::to_string(std::abs(exponent)), 2, '0');
}

}  // namespace

std::string Mid(std::string_view text, long position, long length) {
    if (position <= 0 || length <= 0) return {};
    const std::size_t start = static_cast<std::size_t>(position) - 1;
    if (start >= text.size()) return {};
    return std::string(text.substr(start, static_cast<std::size_t>(length)));
}

std::string Mid(std::string_view text, long position) {
    return Mid(text, position, std::numeric_limits<long>::max());
}

long InStr(std::string_view text, std::string_view needle) {
    if (needle.empty()) return 0;
    const std::size_t at = text.find(needle);
    return at == text.npos ? 0 : static_cast<long>(at) + 1;
}

bool IsNumeric(std::string_view text) { return ParseNumber(text).has_value(); }

double ToDouble(std::string_view text) {
    const std::optional<WrittenNumber> number = ParseNumber(text);
    if (!number) throw RuntimeError(ErrorTypeMismatch);
    std::string written(number->mantissa);
    if (!number->exponent.empty()) written.append("e").append(number->exponent);
    double value = 0;
    const std::from_chars_result result =
        std::from_chars(written.data(), written.data() + written.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (IsTooLarge(*number)) throw RuntimeError(ErrorOverflow);
        value = 0;
    }
    return number->negative ? -value : value;
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

std::int16_t ToInt16(double value) { return ToInteger<std::int16_t>(value); }
std::int16_t ToInt16(std::string_view text) { return ToInt16(ToDouble(text)); }
std::int32_t ToInt32(double value) { return ToInteger<std::int32_t>(value); }
std::int32_t ToInt32(std::string_view text) { return ToInt32(ToDouble(text)); }

std::int16_t Add16(std::int16_t a, int b) { return Fit16(std::int64_t{a} + b); }
std::int16_t Multiply16(std::int16_t a, int b) { return Fit16(std::int64_t{a} * b); }

std::string StrOf(double value) {
    std::string text = NumberText(value);
    return text.front() == '-' ? text : " " + text;
}

std::string NumberText(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    if (value == 0) return "0";
    char form[SignificantDigits + 16];  // "d.ddddddddddddddE-308"
    const std::to_chars_result end =
        std::to_chars(form, form + sizeof form, std::abs(value), std::chars_format::scientific,
                      SignificantDigits - 1);
    const std::string_view written(form, static_cast<std::size_t>(end.ptr - form));
    const std::size_t mark = written.find('e');
    std::string digits(1, written[0]);
    digits += written.substr(2, mark - 2);
    digits.erase(digits.find_last_not_of('0') + 1);
    const std::size_t sign = written[mark + 1] == '+' ? 1 : 0;
    int exponent = 0;
    std::from_chars(written.data() + mark + 1 + sign, end.ptr, exponent);

    // Plain as long as all places before or behind the point fit into the significant digits.
    const int decimals = static_cast<int>(digits.size()) - 1 - exponent;
    const bool plain = exponent < SignificantDigits && decimals <= SignificantDigits;
    const std::string text = plain ? PlainForm(digits, exponent) : ExponentForm(digits, exponent);
    return value < 0 ? "-" + text : text;
}

std::string Hex(std::uint32_t value) {
    char digits[8];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value, 16);
    return UpperCase(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

std::string PadLeft(std::string_view text, std::size_t width, char pad) {
    std::string result(width > text.size() ? width - text.size() : 0, pad);
    return result.append(text);
}

std::string LowerCase(std::string_view text) {
    return WithEachLetter(
        text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

std::string UpperCase(std::string_view text) {
    return WithEachLetter(
        text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

std::string Trim(std::string_view text) { return std::string(WithoutBlanks(text)); }

}  // namespace cumeron
