// What stands before the start: settings, clock, screen, files, other copies, and the start.
#include <algorithm>
#include <cmath>

#include "commands.h"
#include "names.h"
#include "platform/runtime/text.h"
#include "values.h"

namespace cumeron {

namespace {

constexpr std::string_view SectionLine = "[CUMERON]\r\n";

bool NamesSettingsFile(const std::string& commandLine) {
    if (!IsNumeric(commandLine)) return false;
    const double number = std::floor(ToDouble(commandLine));
    return number > 0 && number < 100;
}

// A word of a line that has not run yet, with what stands for it now.
std::string Defined(const Session& session, const ScriptWord& word) {
    if (word.quoted || !word.text.starts_with('$')) return word.text;
    const auto found = session.definitions.find(word.text.substr(1));
    return found == session.definitions.end() ? word.text : found->second;
}

// The bare name of the file that the next start in the script will choose, with the copies that
// the lines up to there put beside it.
std::string SettingsFileOfNextStart(Session& session) {
    bool anotherRuns = session.machine.copies.anotherRuns;
    std::set<int> marks = session.machine.copies.marks;
    std::string commandLine;
    for (std::size_t i = 0; const ScriptLine* line = session.script.Ahead(i); ++i) {
        const std::vector<ScriptWord>& words = line->words;
        const std::string name = words.empty() ? "" : words[0].text;
        const std::string argument = words.size() > 1 ? Defined(session, words[1]) : "";
        if (const auto number = WholeNumberOf(argument);
            number && (name == "other-copy" || name == "stale-mark")) {
            marks.insert(*number);
            anotherRuns = anotherRuns || name == "other-copy";
        }
        if (name == "start") {
            commandLine = argument;
            break;
        }
    }
    if (NamesSettingsFile(commandLine)) return "CUMERON" + commandLine + ".INI";
    if (!anotherRuns) std::erase_if(marks, [](int mark) { return mark >= 1 && mark <= 10; });
    int number = 1;
    while (marks.contains(number)) ++number;
    return "CUMERON" + std::to_string(number) + ".INI";
}

// The lines of one start stand in their order right behind the section's line, so that they come
// before what an earlier run saved.
void RunSetting(Session& session, const Words& arguments) {
    if (session.machine.Running()) throw CommandError{"the program has read its settings already"};
    MemoryFiles& files = session.machine.files;
    const std::string name = ProgramFileName(session, SettingsFileOfNextStart(session));
    std::string text = files.Content(name).value_or("");
    if (text.find(SectionLine) == std::string::npos) text += SectionLine;
    std::size_t at = text.find(SectionLine) + SectionLine.size();
    if (text.compare(at, session.settingLines.size(), session.settingLines) == 0) {
        at += session.settingLines.size();
    }
    const std::string line = arguments[0] + "=" + arguments[1] + "\r\n";
    text.insert(at, line);
    session.settingLines += line;
    files.Put(name, text);
}

void RunClock(Session& session, const Words& arguments) {
    session.machine.time.SetNow(TimeArgument(arguments[0]));
}

void RunScreen(Session& session, const Words& arguments) {
    session.machine.platform.screen = {PixelsArgument(arguments[0]), PixelsArgument(arguments[1])};
}

void RunPaths(Session& session, const Words& arguments) {
    if (arguments[0] != "windows" && arguments[0] != "posix") {
        throw CommandError{Quoted(arguments[0]) + " is neither windows nor posix"};
    }
    if (session.machine.Program()) throw CommandError{"the program has been started"};
    session.machine.files.SetStyle(arguments[0] == "windows" ? PathStyle::Windows
                                                             : PathStyle::Posix);
}

void RunFolder(Session& session, const Words& arguments) {
    session.machine.files.MakeFolder(arguments[0]);
}

void RunOtherCopy(Session& session, const Words& arguments) {
    session.machine.copies.AddMark(IntegerArgument(arguments[0]));
    session.machine.copies.anotherRuns = true;
}

void RunStaleMark(Session& session, const Words& arguments) {
    session.machine.copies.AddMark(IntegerArgument(arguments[0]));
}

void RunStart(Session& session, const Words& arguments) {
    if (session.machine.Running()) throw CommandError{"the program runs already"};
    session.settingLines.clear();
    session.machine.Start(arguments.empty() ? "" : arguments[0]);
}

void RunLet(Session& session, const Words& arguments) {
    session.definitions[arguments[0]] = Joined(arguments, 1);
}

constexpr Command Commands[] = {
    {"setting", "KEY VALUE", 2, 2, RunSetting},
    {"clock", "TIME", 1, 1, RunClock},
    {"screen", "WIDTH HEIGHT", 2, 2, RunScreen},
    {"paths", "windows|posix", 1, 1, RunPaths},
    {"folder", "NAME", 1, 1, RunFolder},
    {"other-copy", "N", 1, 1, RunOtherCopy},
    {"stale-mark", "N", 1, 1, RunStaleMark},
    {"start", "[COMMANDLINE]", 0, 1, RunStart},
    {"let", "NAME VALUE...", 2, AnyNumber, RunLet},
};

}  // namespace

std::span<const Command> CommandsBeforeStart() { return Commands; }

}  // namespace cumeron
