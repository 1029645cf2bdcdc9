// The serial line of the scripted platform: what the script lets arrive, what the program sent, and
// the faults that the script asks for. cumeron-drive and the tests of the core drive it.
#pragma once

#include <string>
#include <vector>

#include "platform/scripted/scripted_time.h"
#include "platform/serial_line.h"

namespace cumeron {

// "19200,N,8,1": a usual baud rate, one letter of parity in either case, 4 to 8 data bits, 1, 1.5
// or 2 stop bits.
bool AreLineSettings(const std::string& settings);

inline constexpr std::size_t LongestTrigger = 4096;

class ScriptedLine : public SerialLine {
public:
    explicit ScriptedLine(ScriptedTime& clock) : time(clock) {}

    std::string Settings() const override { return settings; }
    void SetSettings(const std::string& text) override;
    int CommPort() const override { return commPort; }
    void SetCommPort(int number) override;
    bool PortOpen() const override { return portOpen; }
    void SetPortOpen(bool open) override;
    int InBufferCount() override { return static_cast<int>(waiting.size()); }
    void ClearInput() override { waiting.clear(); }
    std::string Input() override;
    void Output(std::string_view text) override;
    bool CDHolding() override { return carrier; }
    bool DTREnable() const override { return dtrEnable; }
    void SetDTREnable(bool on) override { dtrEnable = on; }
    bool RTSEnable() const override { return rtsEnable; }
    void SetRTSEnable(bool on) override { rtsEnable = on; }

    // These bytes arrive now, as one piece; they are lost while the port is closed.
    void Arrive(const std::string& bytes);
    // The control raises OnComm with this CommEvent.
    void RaiseFault(int commEvent);
    void SetCarrier(bool on) { carrier = on; }
    // Each time what was sent ends in trigger, value arrives that much later. The same trigger
    // again takes the earlier one's place. A trigger of more than LongestTrigger bytes never comes.
    void ReplyTo(const std::string& trigger, const std::string& value, Micros delay);
    // The next opening, or the next assignment to Settings or CommPort, raises this error.
    void FailNextOpening(int error) { openingError = error; }
    void FailNextSettings(int error) { settingsError = error; }
    // The next output raises this error, as behind a device that has vanished.
    void FailNextOutput(int error) { outputError = error; }
    // What was sent since the last call.
    std::string TakeSent();
    // Sent and not yet taken.
    const std::string& Sent() const { return sent; }
    // A new process has a control of its own; wires, carrier and replies stay.
    void BeginProcess();

private:
    void RaiseSettingsError();

    struct Reply {
        std::string trigger, value;
        Micros delay;
    };

    ScriptedTime& time;
    std::string settings = "19200,N,8,1";
    int commPort = 1;
    bool portOpen = false;
    bool dtrEnable = true, rtsEnable = false;
    bool carrier = false;
    std::string waiting;
    std::string transcript;  // the end of all that was ever sent, for the triggers
    std::string sent;
    std::vector<Reply> replies;
    int openingError = 0;   // 0: none
    int settingsError = 0;  // 0: none
    int outputError = 0;    // 0: none
};

}  // namespace cumeron
