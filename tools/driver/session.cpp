#include "session.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace cumeron {

std::ifstream OpenHostFile(const std::string& path) {
    std::error_code noMatter;
    if (std::filesystem::is_directory(path, noMatter)) return {};
    return std::ifstream(path, std::ios::binary);
}

std::optional<std::string> ReadHostFile(const std::string& path) {
    std::ifstream file = OpenHostFile(path);
    if (!file.is_open()) return std::nullopt;
    return std::string{std::istreambuf_iterator<char>(file), {}};
}

Session::Session(std::string file, std::istream& text, std::string scenarioFolder,
                 std::ostream& output)
    : fileName(std::move(file)),
      folder(std::move(scenarioFolder)),
      out(output),
      script(text),
      variables(ListVariables()) {}

void Session::Check(bool holds, const std::string& expected, const std::string& got) {
    if (holds) {
        ++counts.passed;
    } else {
        Fail("expected " + expected + ", got " + got);
    }
}

void Session::Fail(const std::string& text) {
    ++counts.failed;
    out << fileName << ':' << line << ": " << command << ": " << text << '\n';
}

Workstation& Session::Program() {
    if (!machine.Program()) throw CommandError{"the program has not been started"};
    return *machine.Program();
}

Workstation& Session::Running() {
    Workstation& w = Program();
    if (!machine.Running()) throw CommandError{"the program has ended"};
    return w;
}

std::string Session::HostPath(const std::string& path) const {
    return (std::filesystem::path(folder) / path).string();
}

}  // namespace cumeron
