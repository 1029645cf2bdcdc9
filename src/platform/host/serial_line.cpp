#include "platform/host/serial_line.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/host/guard.h"
#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

constexpr int WatchInterval = 1000;  // ms
// More than any program leaves waiting; what comes beyond is lost as in any receive buffer.
constexpr std::size_t ReceiveLimit = std::size_t{1} << 20;

QSerialPort::Parity ParityOf(char letter) {
    switch (letter) {
        case 'E':
            return QSerialPort::EvenParity;
        case 'O':
            return QSerialPort::OddParity;
        case 'M':
            return QSerialPort::MarkParity;
        case 'S':
            return QSerialPort::SpaceParity;
        default:
            return QSerialPort::NoParity;
    }
}

FaultCounts ReadFaults(int handle) {
    serial_icounter_struct counts{};
    if (ioctl(handle, TIOCGICOUNT, &counts) != 0) return {};
    return {counts.parity, static_cast<long>(counts.overrun) + counts.buf_overrun};
}

bool IsDeviceError(QSerialPort::SerialPortError error) {
    return error == QSerialPort::ResourceError || error == QSerialPort::ReadError ||
           error == QSerialPort::WriteError || error == QSerialPort::DeviceNotFoundError;
}

}  // namespace

int OpenErrorNumber(int systemCode) {
    switch (systemCode) {
        case ENOENT:
        case ENODEV:
        case ENXIO:
        case ENOTDIR:
        case EBUSY:
            return 68;
        case EACCES:
        case EPERM:
            return 70;
        default:
            return 57;
    }
}

std::string OpenErrorText(int systemCode, const std::string& device) {
    const int number = OpenErrorNumber(systemCode);
    if (systemCode == EBUSY) return ErrorText(number) + ": another program uses " + device;
    if (number == 68) {
        return ErrorText(number) + ": there is no " + (device.empty() ? "device" : device);
    }
    if (number == 70) {
        return ErrorText(number) + ": " + device +
               " is for members of its group. Add yourself to the group dialout "
               "(sudo adduser USER dialout) and log in again.";
    }
    return ErrorText(number) + ": " + device + ": " + std::strerror(systemCode);
}

HostSerialLine::HostSerialLine(std::function<std::string(int)> map) : deviceOf(std::move(map)) {
    watch.setInterval(WatchInterval);
    QObject::connect(&watch, &QTimer::timeout, &watch, [this] { Watch(); });
}

HostSerialLine::~HostSerialLine() { Disconnect(); }

void HostSerialLine::SetSettings(const std::string& text) {
    const auto parsed = ParseLineSettings(text);
    if (!parsed) throw RuntimeError(380);
    settings = text;
    shape = *parsed;
    if (port) Configure();
}

void HostSerialLine::SetCommPort(int number) {
    if (number < 1 || number > 16) throw RuntimeError(380);
    commPort = number;
}

void HostSerialLine::SetPortOpen(bool open) {
    if (open == portOpen) return;
    if (!open) {
        portOpen = false;
        watch.stop();
        Disconnect();
        received.clear();
        return;
    }
    device = deviceOf(commPort);
    if (const int code = Connect()) {
        throw RuntimeError(OpenErrorNumber(code), OpenErrorText(code, device), code);
    }
    portOpen = true;
    watch.start();
}

// A descriptor of its own carries the lock: it is taken before anything on the line is changed,
// so that a program that uses the device does not notice the attempt.
int HostSerialLine::TakeDevice() {
    if (device.empty()) return ENOENT;
    handle = ::open(ToFileName(device).c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) return errno;
    if (flock(handle, LOCK_EX | LOCK_NB) != 0) return errno == EWOULDBLOCK ? EBUSY : errno;
    termios mode{};
    return tcgetattr(handle, &mode) == 0 ? 0 : errno;
}

int HostSerialLine::Connect() {
    int code = TakeDevice();
    if (code == 0) {
        port = std::make_unique<QSerialPort>(QString::fromStdString(ToFileName(device)));
        Configure();
        if (!port->open(QIODevice::ReadWrite)) code = EIO;
    }
    if (code != 0) {
        Disconnect();
        return code;
    }
    // Both queued, since the port cannot go while it reports: whoever hears of received bytes may
    // let other events run, in which the port is closed or the device vanishes.
    QObject::connect(
        port.get(), &QSerialPort::readyRead, &watch, [this] { Receive(); }, Qt::QueuedConnection);
    QObject::connect(
        port.get(), &QSerialPort::errorOccurred, &watch,
        [this, failing = port.get()](QSerialPort::SerialPortError error) {
            if (IsDeviceError(error) && port.get() == failing) Disconnect();
        },
        Qt::QueuedConnection);
    faults = ReadFaults(handle);
    SetModemLine(TIOCM_DTR, dtr);
    SetModemLine(TIOCM_RTS, rts);
    return 0;
}

void HostSerialLine::Disconnect() {
    if (port && port->isOpen()) port->flush();
    port.reset();
    if (handle >= 0) ::close(handle);
    handle = -1;
}

void HostSerialLine::Configure() {
    port->setBaudRate(shape.baud);
    port->setParity(ParityOf(shape.parity));
    port->setDataBits(static_cast<QSerialPort::DataBits>(shape.dataBits));
    port->setStopBits(shape.stopBits == 1 ? QSerialPort::OneStop : QSerialPort::TwoStop);
    port->setFlowControl(QSerialPort::NoFlowControl);
}

void HostSerialLine::Receive() {
    if (!port) return;
    const QByteArray bytes = port->readAll();
    received.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (received.size() > ReceiveLimit) received.resize(ReceiveLimit);
    if (RThreshold > 0 && InBufferCount() >= RThreshold) Raise(CommEventReceive);
}

void HostSerialLine::Raise(int event) {
    CommEvent = event;
    if (OnComm) Guarded(OnComm);
}

std::string HostSerialLine::Input() { return std::exchange(received, {}); }

void HostSerialLine::Output(std::string_view text) {
    if (!portOpen) throw RuntimeError(8018);
    if (!port) throw RuntimeError(57);
    if (port->write(text.data(), static_cast<qint64>(text.size())) < 0) throw RuntimeError(57);
}

bool HostSerialLine::CDHolding() {
    int lines = 0;
    return handle >= 0 && ioctl(handle, TIOCMGET, &lines) == 0 && (lines & TIOCM_CD) != 0;
}

void HostSerialLine::SetDTREnable(bool on) {
    dtr = on;
    SetModemLine(TIOCM_DTR, on);
}

void HostSerialLine::SetRTSEnable(bool on) {
    rts = on;
    SetModemLine(TIOCM_RTS, on);
}

// A device without modem lines refuses, and nothing is lost by that.
void HostSerialLine::SetModemLine(int line, bool on) {
    if (handle >= 0) ioctl(handle, on ? TIOCMBIS : TIOCMBIC, &line);
}

void HostSerialLine::Watch() {
    if (!port) {
        Connect();
        return;
    }
    termios mode{};
    if (tcgetattr(handle, &mode) != 0) {
        Disconnect();
        return;
    }
    WatchFaults();
}

void HostSerialLine::WatchFaults() {
    const FaultCounts now = ReadFaults(handle);
    const FaultCounts before = std::exchange(faults, now);
    for (const int event : FaultEvents(before, now)) Raise(event);
}

}  // namespace cumeron
