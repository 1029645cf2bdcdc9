// One run of a scenario: its machine, where the script stands, and what has passed and failed.
#pragma once

#include <fstream>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/scripted/scripted_machine.h"
#include "script_parser.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {

// A command cannot be carried out as it stands. It never crosses the program's procedures.
struct CommandError {
    std::string text;
};

// The run of this file is over; the failure has been told. It is no std::exception, so that no
// trap of the program takes it.
struct StopRun {};

// The script has come to its end while a form is shown modally: the way out of the program's calls.
// No std::exception either.
struct ScriptEnd {};

struct Counts {
    int passed = 0;
    int failed = 0;
};

// A file of the host; not open when it cannot be read, as a folder cannot.
std::ifstream OpenHostFile(const std::string& path);
// All its bytes; nothing when it cannot be read.
std::optional<std::string> ReadHostFile(const std::string& path);

struct Session {
    // text is read as the run goes on, and stays where it is while the session lives.
    Session(std::string file, std::istream& text, std::string folder, std::ostream& output);

    const std::string fileName;  // as messages name it
    const std::string folder;    // names of host files are relative to it
    std::ostream& out;
    ScriptReader script;  // gives the lines that are still to run
    std::map<std::string, std::string> definitions;
    const VariableList variables;
    ScriptedMachine machine;
    // The lines that `setting` made since the last start.
    std::string settingLines;

    Counts counts;
    int line = 0;         // of the command that runs
    std::string command;  // its name

    // The outcome of one expectation.
    void Check(bool holds, const std::string& expected, const std::string& got);
    void Fail(const std::string& text);

    // The program's records; throws CommandError before the first start.
    Workstation& Program();
    // The same while the program runs; throws CommandError otherwise.
    Workstation& Running();
    // A name of the host, relative to the scenario's folder.
    std::string HostPath(const std::string& path) const;
};

}  // namespace cumeron
