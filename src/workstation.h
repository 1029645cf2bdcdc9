// The whole state of one workstation: a member for each module's variables, each form, and the
// platform. Every procedure that needs more than its arguments takes Workstation& w first.
#pragma once

#include <vector>

#include "graphs/backscatter_settings.h"
#include "graphs/cloud_settings.h"
#include "graphs/graph_history.h"
#include "intake/intake.h"
#include "intake/models.h"
#include "logging/export.h"
#include "logging/log_file.h"
#include "logging/log_settings.h"
#include "logging/playback.h"
#include "logging/print_setup.h"
#include "platform/platform.h"
#include "readings/instant_values.h"
#include "readings/sky_condition.h"
#include "shell/about.h"
#include "shell/main_window.h"
#include "shell/message_windows.h"
#include "shell/model_dialog.h"
#include "shell/port_dialog.h"
#include "shell/settings.h"
#include "shell/sky_settings.h"
#include "shell/sky_window.h"
#include "shell/start_options.h"
#include "shell/startup.h"
#include "terminal/terminal.h"

namespace cumeron {

struct Workstation {
    explicit Workstation(Platform& machine) : platform(machine) {}

    Platform& platform;  // the only way out: line, clock, files, boxes

    Settings settings;
    ModelTable model;  // the row of settings.CEILOMETER
    IntakeState intake;
    ReadingsState readings;
    SkyState sky;
    GraphState graphs;
    LogState logging;
    OfflineState offline;
    ExportState exporting;
    PrintState printing;
    ShellState shell;
    TerminalState terminal;

    FrmMain frmMain;
    FrmDebug frmDebug;
    FrmStatus frmStatus;
    FrmSmsg frmSmsg;
    FrmSkyCond frmSkyCond;
    FrmStart frmStart;
    FrmAbout frmAbout;
    FrmConfigScrn ConfigScrn;
    FrmCType frmCType;
    FrmBackScatter frmBackScatter;
    FrmClouds frmClouds;
    FrmSetLog frmSetLog;
    FrmSkyCondSettings frmSkyCondSettings;
    FrmTerminal frmTerminal;

    SerialLine& comCTLine() { return platform.line; }
    // Every form, frmMain first.
    std::vector<Form*> Forms() {
        return {&frmMain,   &frmDebug,  &frmStatus,          &frmSmsg,    &frmSkyCond,
                &frmStart,  &frmAbout,  &ConfigScrn,         &frmCType,   &frmBackScatter,
                &frmClouds, &frmSetLog, &frmSkyCondSettings, &frmTerminal};
    }
};

}  // namespace cumeron
