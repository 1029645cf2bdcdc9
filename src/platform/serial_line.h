// The serial control `comCTLine`: one line, its properties as the program sets them, and what
// has arrived. The intake's tick, the port menu and the modem routines call it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace cumeron {

inline constexpr int CommEventOverrun = 1006;
inline constexpr int CommEventReceiveParity = 1009;
inline constexpr int CommEventReceive = 2;

class SerialLine {
public:
    virtual ~SerialLine() = default;

    // "19200,N,8,1": baud, parity (N E O M S, either case), data bits, stop bits.
    // Raises 380 for anything else; the old settings stay.
    virtual std::string Settings() const = 0;
    virtual void SetSettings(const std::string& settings) = 0;

    // 1 to 16, else 380. A change while the port is open takes effect at the next opening.
    virtual int CommPort() const = 0;
    virtual void SetCommPort(int number) = 0;

    // Opening raises 68 when there is no device or it is in use, 70 when it is not permitted
    // (the text says what to do), 57 when the device fails; the port is closed then.
    virtual bool PortOpen() const = 0;
    virtual void SetPortOpen(bool open) = 0;

    virtual int InBufferCount() = 0;            // bytes that wait
    virtual void ClearInput() = 0;              // InBufferCount = 0
    virtual std::string Input() = 0;            // takes everything that waits
    virtual void Output(std::string_view) = 0;  // 57 when the device fails, 8018 with a closed port

    virtual bool CDHolding() = 0;  // a carrier is there

    virtual bool DTREnable() const = 0;
    virtual void SetDTREnable(bool on) = 0;
    virtual bool RTSEnable() const = 0;
    virtual void SetRTSEnable(bool on) = 0;

    int RThreshold = 1;  // bytes that raise OnComm; 0: reception raises none
    int SThreshold = 1;
    int InputLen = 0;
    std::string ParityReplace;
    int CommEvent = 0;             // what the last OnComm told
    std::function<void()> OnComm;  // set at the start to DispatchOnComm
};

}  // namespace cumeron
