// Everything that the program asks of the machine, as one record of small contracts. A
// Workstation holds it; platform/host and platform/scripted fill it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/serial_line.h"

namespace cumeron {

class Clock {
public:
    virtual ~Clock() = default;
    // Local date and time as a day count with the time of day as its fraction; day 0 is
    // 1899-12-30.
    virtual double Now() = 0;
};

class EventLoop {
public:
    virtual ~EventLoop() = default;
    // One turn for pending events; never sleeps.
    virtual void DoEvents() = 0;
    // The same turn for waiting loops; may sleep up to 10 ms when nothing is pending.
    virtual void WaitEvents() = 0;
    // Turns until done() says so: a form is shown modally. The scripted machine serves its script
    // meanwhile.
    virtual void WaitUntil(const std::function<bool()>& done) = 0;
};

enum class BoxButtons { Ok, YesNo, YesNoCancel, RetryCancel };
enum class BoxSign { None, Exclamation, Stop };
enum class Answer { Ok, Yes, No, Cancel, Retry };

struct FileQuestion {
    std::string title;
    std::string filter;    // "Data files (*.dat)|*.dat|All Files (*.*)|*.*"
    std::string fileName;  // chosen at first
    bool several = false;  // more than one may be chosen
    bool forWriting = false;
    bool endingByKind = false;  // the kind of files that is chosen gives the name its ending
    bool asksItself = false;    // the program asks before it replaces a file, the dialog does not
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual Answer MessageBox(const std::string& text, BoxButtons buttons,
                              BoxSign sign = BoxSign::None) = 0;
    virtual void Beep() = 0;
    // A full name; of several chosen files the folder and each name, a NUL between them. Raises
    // 32755 when the operator cancels.
    virtual std::string ChooseFiles(const FileQuestion& question) = 0;
};

class Process {
public:
    virtual ~Process() = default;
    virtual std::string CommandLine() const = 0;
    // Folder of the program, without a separator at its end.
    virtual std::string ApplicationFolder() const = 0;
    // Starts a program and does not wait for it. commandLine is how the call reads in one line; no
    // shell sees it. Raises 53 when there is no such program.
    virtual void Start(const std::string& program, const std::vector<std::string>& arguments,
                       const std::string& commandLine) = 0;
    // Shows the manual: command 3 its contents, 1 the page of a topic. Raises 53 when there is
    // nothing to show it with.
    virtual void Help(const std::string& file, int command, int topic) = 0;
};

// A serial device that is present now.
struct SerialDevice {
    std::string name;  // the one that outlives replugging, where there is one
    std::string description, serialNumber;
};

// Which device stands behind the number of a port.
class PortMap {
public:
    virtual ~PortMap() = default;
    virtual std::vector<SerialDevice> Devices() = 0;
    virtual std::string DeviceOf(int number) = 0;  // "" when there is none
    virtual bool IsPresent(int number) = 0;        // the device behind the number is there
    // The number stands for that device from the next opening on, in this and later runs. Raises
    // as Files::Replace.
    virtual void Pair(int number, const std::string& device) = 0;
};

// Marks of running copies: named, system-wide, countable; a mark goes when it is deleted.
class RunningCopies {
public:
    virtual ~RunningCopies() = default;
    virtual bool AnotherRuns() = 0;        // another copy of this program runs now
    virtual bool HasMark(int number) = 0;  // also marks that a crash left behind
    virtual void AddMark(int number) = 0;
    virtual void DeleteMark(int number) = 0;
};

struct ScreenSize {
    int width = 1024, height = 768;  // pixels of the first screen
    int desktopWidth = 0;            // pixels of all screens together; 0: there is only the one
};

struct Platform {
    Clock& clock;
    EventLoop& events;
    SerialLine& line;
    Files& files;
    Dialogs& dialogs;
    Process& process;
    RunningCopies& copies;
    PortMap& ports;
    ScreenSize screen;
    Printer& printer;
    Clipboard& clipboard;
    Pictures& pictures;
};

}  // namespace cumeron
