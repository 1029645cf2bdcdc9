// The serial line of the machine: a device behind a QSerialPort. Nothing here blocks. A device
// that vanishes leaves the port open in the program's eyes; it is opened again, quietly, when it
// comes back. Part of the host platform.
#pragma once

#include <QSerialPort>
#include <QTimer>
#include <memory>

#include "platform/host/line_settings.h"
#include "platform/serial_line.h"

namespace cumeron {

// The run-time error for a device that cannot be opened, from the system's error code: 68 missing
// or in use, 70 not permitted, 57 anything else.
int OpenErrorNumber(int systemCode);
// What the operator reads then: what is wrong and what to do.
std::string OpenErrorText(int systemCode, const std::string& device);

class HostSerialLine : public SerialLine {
public:
    // deviceOf gives the device behind the number of a port, "" for none.
    explicit HostSerialLine(std::function<std::string(int)> deviceOf);
    ~HostSerialLine() override;

    std::string Settings() const override { return settings; }
    void SetSettings(const std::string& text) override;
    int CommPort() const override { return commPort; }
    void SetCommPort(int number) override;
    bool PortOpen() const override { return portOpen; }
    void SetPortOpen(bool open) override;

    int InBufferCount() override { return static_cast<int>(received.size()); }
    void ClearInput() override { received.clear(); }
    std::string Input() override;
    void Output(std::string_view text) override;

    bool CDHolding() override;
    bool DTREnable() const override { return dtr; }
    void SetDTREnable(bool on) override;
    bool RTSEnable() const override { return rts; }
    void SetRTSEnable(bool on) override;

private:
    int Connect();     // 0 or the system's error code
    int TakeDevice();  // opens and locks it: 0 or the system's error code
    void Disconnect();
    void Configure();
    void Receive();
    void Raise(int event);
    void Watch();  // once a second while the port is open
    void WatchFaults();
    void SetModemLine(int line, bool on);

    std::function<std::string(int)> deviceOf;
    std::string settings = "19200,N,8,1";
    LineSettings shape;
    int commPort = 1;
    bool portOpen = false;
    bool dtr = true;
    bool rts = false;

    std::string device;
    int handle = -1;  // holds the lock, and answers for the modem lines and the counters
    std::unique_ptr<QSerialPort> port;  // none while the device is away
    std::string received;
    FaultCounts faults;
    QTimer watch;
};

}  // namespace cumeron
