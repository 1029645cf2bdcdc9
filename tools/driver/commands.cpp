#include "commands.h"

#include <algorithm>
#include <array>

namespace cumeron {

namespace {

using Table = std::span<const Command> (*)();
constexpr std::array<Table, 7> Tables = {
    CommandsBeforeStart, CommandsOfLine,         CommandsOfTime,   CommandsOfOperator,
    CommandsOfMachine,   CommandsOfExpectations, CommandsOfShowing};

std::string ContentOfHostFile(const Session& session, const std::string& path) {
    if (auto content = ReadHostFile(session.HostPath(path))) return *content;
    throw CommandError{"cannot read the host file " + session.HostPath(path)};
}

std::string ReplaceWord(const Session& session, const ScriptWord& word) {
    if (word.quoted || word.text.size() < 2) return word.text;
    if (word.text[0] == '@') return ContentOfHostFile(session, Unquoted(word.text.substr(1)));
    if (word.text[0] != '$') return word.text;
    const auto found = session.definitions.find(word.text.substr(1));
    if (found != session.definitions.end()) return found->second;
    std::string known;
    for (const auto& [name, value] : session.definitions) known += " $" + name;
    throw CommandError{"unknown name " + word.text +
                       (known.empty() ? "; nothing is defined yet" : "; defined are" + known)};
}

Words ReplaceWords(const Session& session, const std::vector<ScriptWord>& words) {
    Words replaced;
    for (const ScriptWord& word : words) replaced.push_back(ReplaceWord(session, word));
    return replaced;
}

// What runs inside another command (at a time, in a turn that the program gives) is told under its
// own line.
class Place {
public:
    Place(Session& at, int line, const std::string& command)
        : session(at), outerLine(at.line), outerCommand(at.command) {
        session.line = line;
        session.command = command;
    }
    ~Place() {
        session.line = outerLine;
        session.command = outerCommand;
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

private:
    Session& session;
    int outerLine;
    std::string outerCommand;
};

template <class Run>
void TellWhatGoesWrong(Session& session, Run run) {
    try {
        run();
    } catch (const CommandError& error) {
        session.Fail(error.text);
    } catch (const RuntimeError& error) {
        session.Fail("error " + std::to_string(error.Number) + ", " + error.what());
    } catch (const UnansweredBox& box) {
        session.Fail("no answer for the box " + Quoted(box.text) + "; the run of this file ends");
        throw StopRun{};
    }
}

}  // namespace

const Command* FindCommand(std::string_view name) {
    for (const Table table : Tables) {
        for (const Command& command : table()) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

std::vector<std::string_view> CommandNames() {
    std::vector<std::string_view> names;
    for (const Table table : Tables) {
        for (const Command& command : table()) names.push_back(command.name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

const Command& CheckWords(const Words& words) {
    const Command* command = FindCommand(words[0]);
    if (!command) {
        std::string known;
        for (const std::string_view name : CommandNames()) known += " " + std::string(name);
        throw CommandError{"unknown command; known are" + known};
    }
    const std::size_t arguments = words.size() - 1;
    if (arguments < command->least || arguments > command->most) {
        throw CommandError{"malformed line, it should be: " + words[0] + " " +
                           std::string(command->usage)};
    }
    return *command;
}

void RunWords(Session& session, int line, const Words& words) {
    const Place place(session, line, words[0]);
    TellWhatGoesWrong(
        session, [&] { CheckWords(words).run(session, Words(words.begin() + 1, words.end())); });
}

void RunLine(Session& session, const ScriptLine& line) {
    const Place place(session, line.number, line.words.empty() ? "line" : line.words[0].text);
    if (!line.error.empty()) {
        session.Fail("malformed line, " + line.error);
        return;
    }
    TellWhatGoesWrong(session,
                      [&] { RunWords(session, line.number, ReplaceWords(session, line.words)); });
}

std::string Joined(const Words& arguments, std::size_t first) {
    std::string text;
    for (std::size_t i = first; i < arguments.size(); ++i) text += arguments[i];
    return text;
}

}  // namespace cumeron
