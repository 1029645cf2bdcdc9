// cumeron-zip: the zip program that Cumeron starts for each finished log. It takes the switches
// that the log settings have always used and turns them into a call of the system's zip.
#include <cstring>
#include <exception>
#include <iostream>

#include "pack.h"

namespace {

constexpr const char* Usage =
    "Usage: cumeron-zip -a|-m ARCHIVE LOG\n"
    "Adds LOG to the zip archive ARCHIVE, whose name gets .zip where that is missing.\n"
    "  -a   keeps LOG\n"
    "  -m   removes LOG once it is packed, unless it has changed meanwhile\n"
    "A member of the archive is never replaced: a second A6111514.DAT goes in as\n"
    "A6111514-2.DAT. Exit status: 0 packed, 1 not packed and LOG left alone, 2 wrong\n"
    "arguments.\n";

int WrongArguments() {
    std::cerr << Usage;
    return 2;
}

}  // namespace

// Three words, taken by their places: names may begin with "-".
int main(int count, char** words) {
    if (count == 2 && std::strcmp(words[1], "--help") == 0) {
        std::cout << Usage;
        return 0;
    }
    if (count != 4) return WrongArguments();
    const bool remove = std::strcmp(words[1], "-m") == 0;
    if (!remove && std::strcmp(words[1], "-a") != 0) return WrongArguments();
    using cumeron::zip::Afterwards;
    try {
        const auto afterwards = remove ? Afterwards::Remove : Afterwards::Keep;
        if (!cumeron::zip::Pack(words[2], words[3], afterwards)) {
            std::cerr << "cumeron-zip: " << words[3] << " has changed meanwhile and stays\n";
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "cumeron-zip: " << error.what() << "\n";
        return 1;
    }
}
