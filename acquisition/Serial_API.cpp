#include "acquisition/Serial_API.h"

#include "platform/IniFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCollator>
#include <QSerialPort>
#include <QSerialPortInfo>

#include <algorithm>
#include <memory>

namespace vistor {
namespace {

constexpr qint64 kLargestRead = 31000;

std::unique_ptr<QSerialPort> thePort;

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

} // namespace

QString portDevice(std::int32_t port) {
    const QString named = readIniValue(SettingsPath, QStringLiteral("PORTS"), QString::number(port), {}, 260);
    if (!named.isEmpty()) return named;
    const QString name = presentDevices().value(port - 1);
    return name.isEmpty() ? name : QStringLiteral("/dev/") + name;
}

bool OpenPort(std::int32_t port, std::int32_t speed) {
    ClosePort();
    const QString device = portDevice(port);
    if (device.isEmpty()) return false;
    auto opened = std::make_unique<QSerialPort>(device);
    opened->setReadBufferSize(kLargestRead * 8); // what a tick cannot take waits in the line, not in memory
    if (!opened->open(QIODevice::ReadWrite)) return false;
    // Whether the line takes these settings does not change the answer: a pseudo terminal lacks most of them.
    opened->setBaudRate(speed);
    opened->setDataBits(QSerialPort::Data8);
    opened->setParity(QSerialPort::NoParity);
    opened->setStopBits(QSerialPort::OneStop);
    opened->setFlowControl(QSerialPort::NoFlowControl);
    opened->setDataTerminalReady(false);
    opened->setRequestToSend(false);
    opened->clear(QSerialPort::Input);
    thePort = std::move(opened);
    return true;
}

void ClosePort() {
    thePort.reset();
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
