// The program: the machine, a workstation on it, and the view of its forms.
#include <QApplication>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "platform/host/guard.h"
#include "platform/host/host_view.h"
#include "platform/host/locale_formats.h"
#include "platform/host/unicode.h"
#include "platform/host/way_out.h"
#include "workstation.h"

namespace {

constexpr const char* Help =
    "Usage: cumeron [NUMBER]\n"
    "Watches a ceilometer on a serial port: cloud heights, backscatter profile and status.\n"
    "\n"
    "  NUMBER      1 to 99: the settings file CUMERON<NUMBER>.INI of the settings folder\n"
    "  --help      tells this\n"
    "  --version   tells the version\n"
    "\n"
    "CUMERON_COM1 to CUMERON_COM16 of the environment name the devices behind the port numbers.\n";

void TellSettingsFile() {
    std::printf("Settings of the first copy: %s/CUMERON1.INI\n",
                cumeron::HostFiles().SettingsFolder().c_str());
}

// Answers a word that asks for text only; true when there was one.
bool TellAndLeave(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const bool help = std::strcmp(argv[i], "--help") == 0;
        if (!help && std::strcmp(argv[i], "--version") != 0) continue;
        if (help) {
            std::fputs(Help, stdout);
        } else {
            std::printf("Cumeron %s\n", CUMERON_VERSION);
        }
        TellSettingsFile();
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (TellAndLeave(argc, argv)) return 0;
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);  // a file at its limit counts as a full disk
    QApplication application(argc, argv);
    QApplication::setApplicationName("cumeron");
    QApplication::setDesktopFileName("cumeron");
    // The end comes from the program, not from a window that closes.
    QApplication::setQuitOnLastWindowClosed(false);
    cumeron::UseLocaleFormats();

    const QString words = QCoreApplication::arguments().mid(1).join(' ');
    cumeron::HostMachine machine(cumeron::FromUnicode(words));
    cumeron::Workstation workstation(machine.platform);
    cumeron::HostView view(workstation, machine, workstation.Forms());
    const cumeron::WayOut wayOut(workstation, machine);
    cumeron::Guarded([&] { cumeron::StartProgram(workstation); });
    view.Sync();
    return QApplication::exec();
}
