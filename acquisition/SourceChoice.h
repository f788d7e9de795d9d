// The rules of the window in which a data source is chosen, without the window: a descriptor as fields and
// back.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace vistor {

/// Line speeds offered, in bits per second; the last one is the default.
inline constexpr std::int32_t kLineSpeeds[] = {4800, 9600, 14400, 19200, 28800, 38400, 57600, 115200};
inline constexpr std::int32_t kDefaultLineSpeed = 115200;
inline constexpr std::int32_t kHighestPort = 16;

/// What stands in the window's fields.
struct SourceChoice {
    bool file = false; ///< a run file, else a serial line
    bool gsm = false;
    QString port;  ///< text of the chosen entry, "Port n"
    QString speed; ///< bits per second as text
    QString telephone;
    QString fileName;
};

/// The fields for a descriptor. The port is left empty: it depends on what is present.
SourceChoice choiceOf(const QString& descriptor);

/// The descriptor for the fields.
QString descriptorOf(const SourceChoice& choice);

/// The port number that a descriptor names; 0 when it names none.
std::int32_t portOf(const QString& descriptor);

/// The ports from 1 to 16 that can be opened now. Closes whatever source is open.
std::vector<std::int32_t> detectPorts();

} // namespace vistor
