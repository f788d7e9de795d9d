#include "tools/LiveLine.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace vistor {
namespace {

constexpr struct {
    int bitsPerSecond;
    speed_t code;
} kSpeeds[] = {{4800, B4800},   {9600, B9600},   {19200, B19200},
               {38400, B38400}, {57600, B57600}, {115200, B115200}};

/// 8 data bits, no parity, one stop bit, nothing interpreted. Speed 0 leaves the speed as it is.
bool makeRaw(int line, speed_t speed) {
    termios settings{};
    if (tcgetattr(line, &settings) != 0) return false;
    cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    if (speed != 0) cfsetspeed(&settings, speed);
    return tcsetattr(line, TCSANOW, &settings) == 0;
}

} // namespace

LiveLine::~LiveLine() {
    if (m_heldOpen >= 0) close(m_heldOpen);
    if (m_line >= 0) close(m_line);
}

bool LiveLine::fail(const QString& what) {
    m_error = QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

bool LiveLine::openDevice(const QString& path, int bitsPerSecond) {
    speed_t code = 0;
    for (const auto& speed : kSpeeds)
        if (speed.bitsPerSecond == bitsPerSecond) code = speed.code;
    if (code == 0) {
        m_error = QStringLiteral("%1 bits per second is no speed of a line").arg(bitsPerSecond);
        return false;
    }
    m_line = open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_line < 0 || !makeRaw(m_line, code)) return fail(path);
    return true;
}

bool LiveLine::makePseudoTerminal() {
    m_line = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_line < 0 || grantpt(m_line) != 0 || unlockpt(m_line) != 0 ||
        fcntl(m_line, F_SETFL, O_NONBLOCK) != 0)
        return fail(QStringLiteral("pseudo terminal"));
    const char* name = ptsname(m_line);
    if (name == nullptr) return fail(QStringLiteral("pseudo terminal"));
    m_otherEnd = QFile::decodeName(name);
    m_heldOpen = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_heldOpen < 0 || !makeRaw(m_heldOpen, 0)) return fail(m_otherEnd);
    return true;
}

bool LiveLine::send(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(m_line, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && errno == EAGAIN) return true;
        if (written <= 0) return fail(QStringLiteral("the line"));
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace vistor
