// Logs made for a test, and a program that replays them: for the tests of the replay.
#pragma once

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "logging/playback.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/dispatch.h"

namespace cumeron {

using namespace std::string_literals;

inline const std::string A = "C:\\LOG\\A.DAT", B = "C:\\LOG\\B.DAT", C = "C:\\LOG\\C.DAT";
inline const double Noon = DateSerial(2026, 5, 1) + 0.5;

inline std::string KnWithHeight(const std::string& height) {
    return SealedKN("KN021015\x02\r\n10 " + height +
                    " ///// ///// 000000000000\r\n      10              098 +02"
                    "                  \r\n\x03");
}

inline std::string RecordAt(int seconds, const std::string& frame) {
    return "-" + Format(Noon + seconds / 86400.0, "yyyy-mm-dd hh:nn:ss") + "\r\n" + frame + "\r\n";
}

inline std::string Height(int number) { return PadLeft(std::to_string(number * 10), 5, '0'); }

// Records 15 s apart, the n-th with the height of n tens.
inline std::string KnLog(int records, int first = 1) {
    std::string log = "-Ceilometer Logfile \r\n-File created: 01.05.2026 12:00:00\r\n";
    for (int i = first; i < first + records; ++i) {
        log += RecordAt(15 * i, KnWithHeight(Height(i)));
    }
    return log + "-File Closed: 01.05.2026 20:00:00\r\n";
}

// The shortest record that every family but KN takes for a frame.
inline std::string ShortLog(int records, int model = 20) {
    const std::string frame = model == 60 ? "\x02X\r\n\x04" : "\x01RV\r\n\x03\r\n";
    std::string log;
    for (int i = 0; i < records; ++i) log += RecordAt(15 * (i % 4000), frame);
    return log;
}

// A KN message of 385 samples that all have this value.
inline std::string KnProfile(int value) {
    std::string body = Padded("KN021012\x02\r\n10 01230 ///// ///// 000000000000\r\n      20", 95);
    for (int i = 0; i < 385; ++i) body += PadLeft(Hex(static_cast<std::uint32_t>(value)), 5, '0');
    return SealedKN(Padded(body, 85 + 1945 - 8) + "\x03");
}

struct Replay {
    ScriptedMachine machine;

    explicit Replay(int model = 30, const std::string& settings = "") {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=" + std::to_string(model) + "\r\n" + settings);
        machine.Start("");
        machine.Advance(MicrosPerSecond);
        machine.Enter([&] { ShowCloudHitView(w()); });
    }
    Workstation& w() { return *machine.Program(); }
    OfflineState& State() { return w().offline; }
    FrmMain& Form() { return w().frmMain; }
    FrmMain::ToolBar& Bar() { return w().frmMain.Toolbar1; }
    // As the operator does it: a disabled button takes no click.
    void Click(Control& control) {
        ASSERT_TRUE(control.Enabled && control.Visible);
        machine.Enter([&] { DispatchEvent(w(), control.Click); });
    }
    // What is chosen is opened at once and played.
    void Open(const std::string& chosen) {
        machine.dialogs.ChooseNext(chosen);
        Click(Form().mnuFileOpen);
    }
    void OpenLog(const std::string& text) {
        machine.files.Put(A, text);
        Open(A);
    }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
    std::string Shown() { return Form().CloudValue[0].Caption; }
    const std::string& Window() { return w().frmDebug.txtMessage.Text; }
    int Seconds() { return static_cast<int>((w().graphs.MessageTime - Noon) * 86400 + 0.5); }
    std::string Buttons() {
        std::string on;
        for (const auto& [name, button] :
             {std::pair{"S", &Bar().Start}, std::pair{"B", &Bar().Back},
              std::pair{"F", &Bar().Forward}, std::pair{"P", &Bar().Play},
              std::pair{"X", &Bar().Stop}, std::pair{"C", &Bar().CloseFile}}) {
            if (button->Enabled) on += name;
        }
        return on;
    }
};

}  // namespace cumeron
