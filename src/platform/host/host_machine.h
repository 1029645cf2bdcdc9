// The real machine as the program sees it: all of platform/host but the view, put together. main
// and the tests of the host make one.
#pragma once

#include "platform/host/clock.h"
#include "platform/host/dialogs.h"
#include "platform/host/event_loop.h"
#include "platform/host/files.h"
#include "platform/host/pictures.h"
#include "platform/host/port_map.h"
#include "platform/host/printer.h"
#include "platform/host/process.h"
#include "platform/host/running_copies.h"
#include "platform/host/serial_line.h"
#include "platform/platform.h"

namespace cumeron {

struct HostMachine {
    // Needs the QApplication.
    explicit HostMachine(std::string commandLine);

    HostClock clock;
    HostEventLoop events;
    HostFiles files;
    HostSerialLine line;
    HostDialogs dialogs;
    HostProcess process;
    HostRunningCopies copies;
    HostPorts ports;
    HostPrinter printer;
    HostClipboard clipboard;
    HostPictures pictures;
    Platform platform;
};

}  // namespace cumeron
