#include "platform/host/host_machine.h"

#include <QGuiApplication>
#include <QScreen>

#include "platform/host/port_map.h"

namespace cumeron {
namespace {

ScreenSize WholeDesktop() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return {};
    const QSize size = screen->virtualGeometry().size();
    return {size.width(), size.height()};
}

}  // namespace

HostMachine::HostMachine(std::string commandLine)
    : line([this](int number) { return PortDevice(files, number); }),
      process(std::move(commandLine)),
      copies(MarksFolder()),
      platform{clock, events, line, files, dialogs, process, copies, WholeDesktop()} {}

}  // namespace cumeron
