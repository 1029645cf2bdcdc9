// Messages as an instrument sends them, and workstations to take them: for the tests of the intake
// and of what it feeds.
#pragma once

#include <string>
#include <string_view>

#include "intake/intake.h"
#include "intake/models.h"
#include "intake/port.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/indicators.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {

// A workstation with a model and a short history, without the start of the program.
struct Station {
    ScriptedMachine machine;
    Workstation w{machine.platform};

    explicit Station(int model) {
        w.settings.CEILOMETER = static_cast<std::int16_t>(model);
        w.settings.Start_Of_Information = 87;
        w.settings.Message_Interval = 15;
        LoadModel(w, LoadedBy::Start);
        CreateHistory(w, 10);
        DimensionProfiles(w);
    }
};

// The whole program after its start, with the port open and the message window shown. A tick is
// due at each whole second.
struct RunningStation {
    ScriptedMachine machine;

    explicit RunningStation(int model, const std::string& settings = "") {
        machine.files.Put(machine.files.SettingsFolder() + "\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=" + std::to_string(model) + "\r\n" + settings);
        machine.Start("");
        machine.Enter([&] { mnuShowMessage_Click(w()); });
        machine.Enter([&] { mnuOpenPort_Click(w()); });
    }
    Workstation& w() { return *machine.Program(); }
    void Seconds(double count) {
        machine.Advance(static_cast<Micros>(count * static_cast<double>(MicrosPerSecond)));
    }
    // The bytes arrive, and the next tick takes them.
    void Receive(const std::string& bytes) {
        machine.Enter([&] { machine.line.Arrive(bytes); });
        Seconds(1);
    }
    // In two pieces, the second without a frame's start, so that nothing stays behind.
    void ReceiveMessage(const std::string& frame) {
        Receive(frame.substr(0, frame.size() - 1));
        Receive(frame.substr(frame.size() - 1));
    }
    const std::string& Errors() { return w().frmMain.sbaStatus.Errors.Text; }
    bool ErrorShown() { return w().frmMain.sbaStatus.Errors_Image.Visible; }
    const std::string& MessageWindow() { return w().frmDebug.txtMessage.Text; }
};

// The checksum as the instrument's makers describe it, bit by bit.
inline unsigned ChecksumBitByBit(std::string_view text) {
    unsigned rest = 0xFFFF;
    for (const char character : text) {
        rest ^= static_cast<unsigned>(static_cast<unsigned char>(character)) * 256;
        for (int i = 0; i < 8; ++i) {
            const bool top = (rest & 0x8000U) != 0;
            rest = rest * 2 & 0xFFFFU;
            if (top) rest ^= 4129;
        }
    }
    return rest ^ 0xFFFFU;
}

// counted is what stands from the header through the ETX.
inline std::string SealedKN(const std::string& counted) {
    constexpr std::string_view digits = "0123456789abcdef";
    const unsigned checksum = ChecksumBitByBit(counted);
    std::string frame = "\x01" + counted;
    for (int shift = 12; shift >= 0; shift -= 4) frame += digits[checksum >> shift & 15];
    return frame + "\x04\r\n";
}

// A KN message without a profile. The status word has 12 digits.
inline std::string ShortKN(const std::string& number,
                           const std::string& statusWord = "000000000000") {
    return SealedKN("KN0210" + number + "\x02\r\n10 01230 ///// ///// " + statusWord +
                    "\r\n      10              098 +02                  \r\n\x03");
}

// start, and blanks up to length characters.
inline std::string Padded(std::string start, std::size_t length) {
    start.resize(length, ' ');
    return start;
}

}  // namespace cumeron
