#include "acquisition/Serial_API.h"

#include "platform/IniFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCollator>
#include <QFile>
#include <QSerialPort>
#include <QSerialPortInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <memory>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace vistor {
namespace {

constexpr qint64 kLargestRead = 31000;

std::unique_ptr<QSerialPort> thePort;
QString theDevice; ///< its path

/// Adapters that people plug in come before the ports of the board.
int rankOf(const QString& device) {
    static const char* const kPrefixes[] = {"ttyUSB", "ttyACM", "rfcomm", "ttyS"};
    const auto* found = std::find_if(std::begin(kPrefixes), std::end(kPrefixes), [&](const char* prefix) {
        return device.startsWith(QLatin1String(prefix));
    });
    return static_cast<int>(found - std::begin(kPrefixes));
}

QStringList presentDevices() {
    QStringList names;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) names += info.portName();
    QCollator natural(QLocale::c());
    natural.setNumericMode(true);
    std::sort(names.begin(), names.end(), [&](const QString& a, const QString& b) {
        return rankOf(a) != rankOf(b) ? rankOf(a) < rankOf(b) : natural.compare(a, b) < 0;
    });
    return names;
}

/// A device held open, without waiting for a carrier.
class Probe {
public:
    explicit Probe(const QString& device)
        : m_file(::open(QFile::encodeName(device).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)),
          m_error(m_file < 0 ? errno : 0) {
        if (m_file >= 0) prepare();
    }
    ~Probe() {
        if (m_file >= 0) ::close(m_file);
    }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    int error() const { return m_error; }

private:
    void prepare() {
        int taken = 0;
        termios settings{};
        if (tcgetattr(m_file, &settings) != 0) {
            m_error = ENOTTY;
        } else if (ioctl(m_file, TIOCGEXCL, &taken) == 0 &&
                   taken != 0) { // the system lets root in all the same
            m_error = EBUSY;
        } else {
            // The last to close a line would drop DTR otherwise. The port takes over these settings, and
            // gives them back when it is closed: they have to stand before it is opened.
            settings.c_cflag &= ~static_cast<tcflag_t>(HUPCL);
            tcsetattr(m_file, TCSANOW, &settings);
        }
    }

    int m_file;
    int m_error;
};

/// The group that may use a device; empty where there is none beside the administrator's.
QString groupOf(const QString& device) {
    struct stat status {};
    if (::stat(QFile::encodeName(device).constData(), &status) != 0) return {};
    const bool helps = status.st_gid != 0 && (status.st_mode & (S_IRGRP | S_IWGRP)) == (S_IRGRP | S_IWGRP);
    const group* entry = helps ? ::getgrgid(status.st_gid) : nullptr;
    return entry ? QString::fromLocal8Bit(entry->gr_name) : QString();
}

bool setUp(QSerialPort& port, std::int32_t speed) {
    port.setReadBufferSize(kLargestRead * 8); // what a tick cannot take waits in the line, not in memory
    if (!port.open(QIODevice::ReadWrite)) return false;
    // Whether the line takes these settings does not change the answer: a pseudo terminal lacks most of them.
    port.setBaudRate(speed);
    port.setDataBits(QSerialPort::Data8);
    port.setParity(QSerialPort::NoParity);
    port.setStopBits(QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);
    port.setDataTerminalReady(false);
    port.setRequestToSend(false);
    port.clear(QSerialPort::Input);
    return true;
}

} // namespace

QString portDevice(std::int32_t port) {
    const QString named = readIniValue(SettingsPath, QStringLiteral("PORTS"), QString::number(port), {}, 260);
    if (!named.isEmpty()) return named;
    const QString name = presentDevices().value(port - 1);
    return name.isEmpty() ? name : QStringLiteral("/dev/") + name;
}

QString deviceProblem(std::int32_t port, const QString& device, int error, const QString& group) {
    if (device.isEmpty())
        return QStringLiteral("There is no port %1. Plug in the adapter, or choose another port (File > Set "
                              "Data Source).")
            .arg(port);
    const QString name = QStringLiteral("Port %1 (%2)").arg(QString::number(port), device);
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return name + QStringLiteral(" is not there. Plug in the cable, or choose another port (File > Set "
                                     "Data Source).");
    case EACCES:
    case EPERM:
        if (group.isEmpty())
            return name + QStringLiteral(": permission denied. Ask who administers this computer for access "
                                         "to it.");
        return name + QStringLiteral(": permission denied. Join the group %1 (sudo usermod -aG %1 $USER) and "
                                     "log in again.")
                          .arg(group);
    case EBUSY:
        return name + QStringLiteral(" is in use by another program. End that one, then play again.");
    case ENOTTY:
    case EISDIR:
        return name + QStringLiteral(" is no serial line. Choose another port (File > Set Data Source).");
    default:
        return name + QStringLiteral(" cannot be opened: %1.").arg(QString::fromLocal8Bit(strerror(error)));
    }
}

QString openLine(std::int32_t port, std::int32_t speed) {
    ClosePort();
    const QString device = portDevice(port);
    if (device.isEmpty()) return deviceProblem(port, device, ENOENT, {});
    const Probe probe(device);
    if (probe.error() != 0) return deviceProblem(port, device, probe.error(), groupOf(device));
    auto opened = std::make_unique<QSerialPort>(device);
    if (!setUp(*opened, speed))
        return QStringLiteral("Port %1 (%2) cannot be opened: %3.")
            .arg(QString::number(port), device, opened->errorString());
    thePort = std::move(opened);
    theDevice = device;
    return {};
}

bool OpenPort(std::int32_t port, std::int32_t speed) {
    return openLine(port, speed).isEmpty();
}

void ClosePort() {
    thePort.reset();
}

bool portStands() {
    if (!thePort) return false;
    struct stat opened {};
    struct stat named {};
    return ::fstat(thePort->handle(), &opened) == 0 &&
           ::stat(QFile::encodeName(theDevice).constData(), &named) == 0 && opened.st_rdev == named.st_rdev;
}

bool ReadPort(std::vector<std::uint8_t>& bytes) {
    if (!thePort) return false;
    thePort->waitForReadyRead(0); // takes what the line holds, without waiting for the event loop to see it
    const QByteArray arrived = thePort->read(kLargestRead);
    if (arrived.isEmpty()) {
        // A device that was pulled out would wake the event loop without end; the caller opens it again in
        // time.
        const auto error = thePort->error();
        if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError) ClosePort();
        return false;
    }
    bytes.assign(arrived.begin(), arrived.end());
    bytes.push_back(0);
    return true;
}

} // namespace vistor
