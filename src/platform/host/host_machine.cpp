#include "platform/host/host_machine.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "graphs/graph_history.h"
#include "platform/host/port_map.h"

namespace cumeron {
namespace {

// A row of screens wider than the history can count gets the longest history that there is.
ScreenSize ScreensOfDesktop() {
    const QScreen* first = QGuiApplication::primaryScreen();
    if (first == nullptr) return {};
    return {first->size().width(), first->size().height(),
            std::min(first->virtualSize().width(), WidestHistory)};
}

}  // namespace

HostMachine::HostMachine(std::string commandLine)
    : line([this](int number) { return PortDevice(files, number); }),
      process(std::move(commandLine)),
      copies(MarksFolder()),
      ports(files),
      printer(files),
      platform{
          clock,   events,    line,    files, dialogs, process, copies, ports, ScreensOfDesktop(),
          printer, clipboard, pictures} {}

}  // namespace cumeron
