#include "platform/runtime/errors.h"

#include <utility>

namespace cumeron {

namespace {

struct KnownError {
    int number;
    const char* text;
};

constexpr KnownError KnownErrors[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {9, "Subscript out of range"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {61, "Disk full"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {380, "Invalid property value"},
    {482, "Printer error"},
    {8018, "Operation valid only when the port is open"},
    {32755, "Cancel was selected"},
};

}  // namespace

std::string ErrorText(int number) {
    for (const KnownError& known : KnownErrors) {
        if (known.number == number) return known.text;
    }
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(int number, int systemCode)
    : RuntimeError(number, ErrorText(number), systemCode) {}

RuntimeError::RuntimeError(int number, std::string ownText, int systemCode)
    : Number(number), SystemCode(systemCode), text(std::move(ownText)) {}

const char* RuntimeError::what() const noexcept { return text.c_str(); }

}  // namespace cumeron
