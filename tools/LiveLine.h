// The sending end of a line: a serial device, or a pseudo terminal whose other end a program may open as a
// serial device. In: bytes. Out: the line.
#pragma once

#include <QString>

#include <cstdint>
#include <span>

namespace vistor {

class LiveLine {
public:
    LiveLine() = default;
    LiveLine(const LiveLine&) = delete;
    LiveLine& operator=(const LiveLine&) = delete;
    ~LiveLine();

    /// Opens a serial device, 8 data bits, no parity, one stop bit. On failure false, and error() says why.
    bool openDevice(const QString& path, int bitsPerSecond);
    /// Makes a pseudo terminal; otherEnd() is the path to open.
    bool makePseudoTerminal();

    /// Sends what the line takes. As on any line, what does not fit while nobody reads is lost; false when
    /// the line is gone.
    bool send(std::span<const std::uint8_t> bytes);

    QString otherEnd() const { return m_otherEnd; }
    QString error() const { return m_error; }

private:
    bool fail(const QString& what);

    int m_line = -1;
    int m_heldOpen =
        -1; ///< the other end of a pseudo terminal, so that it outlives those who open and close it
    QString m_otherEnd;
    QString m_error;
};

} // namespace vistor
