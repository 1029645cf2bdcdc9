// Run-time errors with the number and text of the run-time library, and the two ways to treat
// them: a handler (catch) or going on with the next statement (ResumeNext).
#pragma once

#include <exception>
#include <string>

namespace cumeron {

// Known numbers: 5 6 9 11 13 53 55 57 61 67 68 70 75 76 380 482 8018 32755; another number has
// the text "Application-defined or object-defined error".
std::string ErrorText(int number);

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(int number, int systemCode = 0);
    // With a text of the platform's own, such as what to do about a missing permission.
    RuntimeError(int number, std::string text, int systemCode = 0);
    const char* what() const noexcept override;

    int Number;
    int SystemCode;  // last error code of the operating system, 0 if none

private:
    std::string text;
};

// The end of the process, at once. No handler, no trap and no ResumeNext takes it.
struct ProcessEnd {
    int status = 0;
};

// Runs one statement and goes on: true when no error came.
template <class Statement>
bool ResumeNext(Statement statement) {
    try {
        statement();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace cumeron
