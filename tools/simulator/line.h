// The line to the workstation: a pseudo terminal of our own, or a serial device. POSIX. Nothing
// here waits or ends the program: a line without a listener swallows what is sent.
#pragma once

#include <string>
#include <string_view>

namespace cumeron::sim {

struct Line {
    int fd = -1;
    bool pseudo = false;  // a pseudo terminal, whose listener can be seen to come and go
    std::string name;     // what the workstation opens
    std::string link;     // symbolic link to it, empty without one
};

// Both throw std::system_error when the line cannot be had. OpenDevice also throws
// std::invalid_argument for a speed that no serial line has.
Line OpenPseudoTerminal();
Line OpenDevice(const std::string& path, int baud);

// True for the speeds that OpenDevice takes.
bool IsLineSpeed(int baud);

// Makes path a symbolic link to the line, in place of an older symbolic link; throws
// std::system_error when something else stands there or the link cannot be made.
void LinkLine(Line& line, const std::string& path);

// Closes the line and removes its link, if that still leads to it.
void CloseLine(Line& line);

// Whether somebody has the other end open. Always true on a device.
bool HasListener(const Line& line);

// What has come in, empty for nothing.
std::string ReadLine(const Line& line);

// Sends what fits and tells how many bytes that were. Without a listener all of them are lost,
// which counts as sent.
std::size_t WriteLine(const Line& line, std::string_view bytes);

// Returns when something has come in, when the time is up or when a signal arrives.
void WaitForInput(const Line& line, int milliseconds);

}  // namespace cumeron::sim
