// What this process holds in memory.
#pragma once

#include <QFile>

namespace vistor {

/// Resident memory of this process, in MiB.
inline double residentMiB() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) return line.mid(6).simplified().split(' ').value(0).toDouble() / 1024;
    }
    return 0;
}

} // namespace vistor
