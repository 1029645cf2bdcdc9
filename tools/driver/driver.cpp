#include "driver.h"

#include <filesystem>
#include <istream>
#include <iterator>
#include <optional>

#include "commands.h"

namespace cumeron {

namespace {

constexpr const char* Help =
    "Usage: cumeron-drive [FILE...]\n"
    "Runs Cumeron by a script, on a machine that is made up: a virtual clock, a scripted line,\n"
    "files in memory. Reads scenarios from each FILE, or from standard input when there is none\n"
    "or it is -. Each FILE is a fresh machine; the last line counts what passed and failed.\n"
    "\n"
    "  --help      shows this text\n"
    "\n"
    "Exit status: 0 nothing failed, 1 something did, 2 a file could not be read or an argument\n"
    "is off.\n"
    "\n"
    "Commands:\n";

void PrintHelp(std::ostream& out) {
    out << Help;
    for (const std::string_view name : CommandNames()) {
        out << "  " << name << ' ' << FindCommand(name)->usage << '\n';
    }
}

void PrintCounts(std::ostream& out, const Counts& counts) {
    out << counts.passed << " passed, " << counts.failed << " failed" << std::endl;
}

void CheckEnd(Session& session) {
    session.line = session.script.empty() ? 0 : session.script.back().number;
    session.command = "end";
    while (const auto box = session.machine.dialogs.TakeBox()) {
        session.Fail("expected no box, got " + Quoted(*box));
    }
}

}  // namespace

Counts RunScenario(const std::string& file, const std::string& text, const std::string& folder,
                   std::ostream& out) {
    Session session(file, text, folder, out);
    try {
        for (const ScriptLine& line : session.script) {
            session.position = static_cast<std::size_t>(&line - session.script.data());
            RunLine(session, line);
        }
        CheckEnd(session);
    } catch (const StopRun&) {
        // Told where it happened.
    }
    return session.counts;
}

int RunDriver(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
              std::ostream& errors) {
    std::vector<std::string> files;
    for (const std::string& argument : arguments) {
        if (argument == "--help") {
            PrintHelp(out);
            return 0;
        }
        if (argument.size() > 1 && argument[0] == '-') {
            errors << "cumeron-drive: unknown option " << argument
                   << "; --help shows what is known\n";
            PrintCounts(out, {});
            return 2;
        }
        files.push_back(argument);
    }
    if (files.empty()) files.emplace_back("-");

    Counts total;
    bool unreadable = false;
    for (const std::string& file : files) {
        const std::optional<std::string> text =
            file == "-" ? std::string{std::istreambuf_iterator<char>(in), {}} : ReadHostFile(file);
        if (!text) {
            errors << "cumeron-drive: cannot read " << file << '\n';
            unreadable = true;
            continue;
        }
        const std::string folder = std::filesystem::path(file).parent_path().string();
        const Counts counts = RunScenario(file, *text, folder, out);
        total.passed += counts.passed;
        total.failed += counts.failed;
    }
    PrintCounts(out, total);
    return unreadable ? 2 : total.failed > 0 ? 1 : 0;
}

}  // namespace cumeron
