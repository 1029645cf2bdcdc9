#include "driver.h"

#include <filesystem>
#include <istream>
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

bool RunNextLine(Session& session) {
    const std::optional<ScriptLine> line = session.script.Next();
    if (!line) return false;
    RunLine(session, *line);
    return true;
}

// A line that opens a form modally runs those behind it before it comes back.
void RunLines(Session& session) {
    try {
        while (RunNextLine(session)) {
        }
    } catch (const ScriptEnd&) {
        // A form was still open; nothing is left to be done in it.
    }
}

void CheckEnd(Session& session) {
    session.line = session.script.LastNumber();
    session.command = "end";
    while (const auto box = session.machine.dialogs.TakeBox()) {
        session.Fail("expected no box, got " + Quoted(*box));
    }
}

}  // namespace

void RunScript(Session& session) {
    session.machine.time.ServeMeanwhile = [&session] {
        if (!RunNextLine(session)) throw ScriptEnd{};
    };
    try {
        RunLines(session);
        CheckEnd(session);
    } catch (const StopRun&) {
        // Told where it happened.
    }
}

Counts RunScenario(const std::string& file, std::istream& text, const std::string& folder,
                   std::ostream& out) {
    Session session(file, text, folder, out);
    RunScript(session);
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
        std::ifstream hostFile;
        if (file != "-") hostFile = OpenHostFile(file);
        if (file != "-" && !hostFile.is_open()) {
            errors << "cumeron-drive: cannot read " << file << '\n';
            unreadable = true;
            continue;
        }
        const std::string folder = std::filesystem::path(file).parent_path().string();
        const Counts counts = RunScenario(file, file == "-" ? in : hostFile, folder, out);
        total.passed += counts.passed;
        total.failed += counts.failed;
    }
    PrintCounts(out, total);
    return unreadable ? 2 : total.failed > 0 ? 1 : 0;
}

}  // namespace cumeron
