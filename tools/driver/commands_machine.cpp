// The machine: files, the disk, programs and the printer.
#include "commands.h"
#include "names.h"
#include "values.h"

namespace cumeron {

namespace {

void RunPutFile(Session& session, const Words& arguments) {
    session.machine.files.Put(ProgramFileName(session, arguments[0]), Joined(arguments, 1));
}

void RunFileError(Session& session, const Words& arguments) {
    session.machine.files.FailNextOpen(ProgramFileName(session, arguments[0]),
                                       IntegerArgument(arguments[1]));
}

void RunDiskFree(Session& session, const Words& arguments) {
    const double bytes = NumberArgument(arguments[1]);
    session.machine.files.SetFreeDiskSpace(
        arguments[0], bytes == -1 ? std::nullopt : std::optional<double>(bytes));
}

void RunDiskFull(Session& session, const Words& arguments) {
    MemoryFiles& files = session.machine.files;
    const std::string& how = arguments[0];
    if ((how == "after") != (arguments.size() == 2)) {
        throw CommandError{"BYTES stand behind after, and only there"};
    }
    if (how == "on") {
        files.FillDisk();
    } else if (how == "off") {
        files.EmptyDisk();
    } else if (how == "once") {
        files.FailNextWrite();
    } else if (how == "after") {
        const int bytes = IntegerArgument(arguments[1]);
        if (bytes < 0) throw CommandError{"BYTES are 0 or more"};
        files.FillDiskAfter(static_cast<std::size_t>(bytes));
    } else {
        throw CommandError{Quoted(how) + " is none of on, off, after, once"};
    }
}

void RunShellError(Session& session, const Words& arguments) {
    session.machine.process.nextStartError = IntegerArgument(arguments[0]);
}

void RunPrinterError(Session& session, const Words& arguments) {
    session.machine.printer.nextError = IntegerArgument(arguments[0]);
}

constexpr Command Commands[] = {
    {"put-file", "NAME VALUE...", 2, AnyNumber, RunPutFile},
    {"file-error", "NAME NUMBER", 2, 2, RunFileError},
    {"disk-free", "DRIVE BYTES", 2, 2, RunDiskFree},
    {"disk-full", "on|off|after BYTES|once", 1, 2, RunDiskFull},
    {"shell-error", "NUMBER", 1, 1, RunShellError},
    {"printer-error", "NUMBER", 1, 1, RunPrinterError},
};

}  // namespace

std::span<const Command> CommandsOfMachine() { return Commands; }

}  // namespace cumeron
