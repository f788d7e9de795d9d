// A serial line without hardware: the test writes at one end, the program opens the other as a port.
#pragma once

#include <QString>

#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <span>
#include <termios.h>
#include <unistd.h>

namespace vistor {

class PseudoTerminal {
public:
    PseudoTerminal() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        grantpt(m_master);
        unlockpt(m_master);
        termios settings{};
        tcgetattr(m_master, &settings);
        cfmakeraw(&settings);
        tcsetattr(m_master, TCSANOW, &settings);
    }
    ~PseudoTerminal() { hangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// The device to open.
    QString device() const { return QString::fromLocal8Bit(ptsname(m_master)); }

    /// Writes what the line takes now; answers how much that was.
    std::size_t write(std::span<const std::uint8_t> bytes) {
        const ssize_t written = ::write(m_master, bytes.data(), bytes.size());
        return written < 0 ? 0 : static_cast<std::size_t>(written);
    }

    /// Whether the last one to close the device would drop DTR.
    bool hangsUpOnClose() const {
        termios settings{};
        return tcgetattr(m_master, &settings) == 0 && (settings.c_cflag & HUPCL) != 0;
    }

    void hangUpOnClose() {
        termios settings{};
        tcgetattr(m_master, &settings);
        settings.c_cflag |= HUPCL;
        tcsetattr(m_master, TCSANOW, &settings);
    }

    /// Pulls the plug.
    void hangUp() {
        if (m_master >= 0) ::close(m_master);
        m_master = -1;
    }

private:
    int m_master;
};

} // namespace vistor
