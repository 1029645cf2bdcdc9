// The virtual machine: everything that a Workstation asks of the platform, made up and in the hands
// of a script. cumeron-drive runs scenarios on it; tests of the core make one per case:
//     ScriptedMachine machine;
//     Workstation w(machine.platform);
// or, for the whole program, machine.Start("").
#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/memory_files.h"
#include "platform/scripted/scripted_dialogs.h"
#include "platform/scripted/scripted_line.h"
#include "platform/scripted/scripted_printer.h"
#include "platform/scripted/scripted_time.h"

namespace cumeron {

class ScriptedProcess : public Process {
public:
    explicit ScriptedProcess(const Files& disk) : files(disk) {}
    std::string CommandLine() const override { return commandLine; }
    std::string ApplicationFolder() const override {
        return files.Style() == PathStyle::Windows ? "C:\\CUMERON" : "/usr/bin";
    }

    void Start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& line) override {
        if (const int error = std::exchange(nextStartError, 0)) throw RuntimeError(error);
        started.push_back(line);
        startedWords = arguments;
        startedWords.insert(startedWords.begin(), program);
    }
    void Help(const std::string& file, int command, int topic) override {
        if (const int error = std::exchange(nextStartError, 0)) throw RuntimeError(error);
        started.push_back("help " + file + " " + std::to_string(command) + " " +
                          std::to_string(topic));
    }

    std::string commandLine;
    std::deque<std::string> started;        // not yet asked about, the oldest first
    std::vector<std::string> startedWords;  // program and arguments of the last start
    int nextStartError = 0;                 // what the next start of a program raises; 0: nothing

private:
    const Files& files;
};

// A map without devices until a script puts some there.
class ScriptedPorts : public PortMap {
public:
    std::vector<SerialDevice> Devices() override { return devices; }
    std::string DeviceOf(int number) override { return pairs[number]; }
    bool IsPresent(int number) override {
        return std::any_of(devices.begin(), devices.end(), [&](const SerialDevice& device) {
            return device.name == pairs[number];
        });
    }
    void Pair(int number, const std::string& device) override { pairs[number] = device; }

    std::vector<SerialDevice> devices;
    std::map<int, std::string> pairs;
};

class ScriptedCopies : public RunningCopies {
public:
    bool AnotherRuns() override { return anotherRuns; }
    bool HasMark(int number) override { return marks.contains(number); }
    void AddMark(int number) override { marks.insert(number); }
    void DeleteMark(int number) override { marks.erase(number); }

    bool anotherRuns = false;
    std::set<int> marks;
};

class ScriptedMachine {
public:
    ScriptedMachine();
    ~ScriptedMachine();
    ScriptedMachine(const ScriptedMachine&) = delete;
    ScriptedMachine& operator=(const ScriptedMachine&) = delete;

    ScriptedTime time;
    ScriptedLine line{time};
    MemoryFiles files;
    ScriptedDialogs dialogs;
    ScriptedProcess process{files};
    ScriptedCopies copies;
    ScriptedPorts ports;
    ScriptedPrinter printer;
    ScriptedClipboard clipboard;
    ScriptedPictures pictures;
    Platform platform{time,   time,  line, files,   dialogs,   process,
                      copies, ports, {},   printer, clipboard, pictures};

    // Starts the program afresh; the clock, the files and the marks stay as they are.
    void Start(const std::string& commandLine);
    // The records of the running program, or of the one that ended last; null before any start.
    Workstation* Program() { return workstation.get(); }
    bool Running() const { return running; }
    bool Ended() const { return workstation && !running; }
    // Calls into the program. When the program ends its process, the outermost call notes that,
    // lets the rest of an advance pass that the end cut short, and returns.
    template <class Call>
    void Enter(Call call);
    // Lets virtual time pass, also when the program ends in it, at whatever depth.
    void Advance(Micros duration);

private:
    void EndProcess();
    void FinishAdvance();

    std::unique_ptr<Workstation> workstation;
    bool running = false;
    int depth = 0;                     // calls of Enter under way
    std::optional<Micros> advanceEnd;  // the latest end of the advances under way
};

template <class Call>
void ScriptedMachine::Enter(Call call) {
    struct Depth {
        int& depth;
        explicit Depth(int& d) : depth(d) { ++depth; }
        ~Depth() { --depth; }
    } const guard(depth);
    try {
        call();
    } catch (const ProcessEnd&) {
        if (depth > 1) throw;
        EndProcess();
        FinishAdvance();
    }
}

}  // namespace cumeron
