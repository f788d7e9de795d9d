// The one data source: a serial line or a recorded run file. In: DataSourceDescriptor. Out: bytes; it owns
// TimeBase, RunFileHandle and EmptyReadCount. What goes wrong is told in a notice, once.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace vistor {

/// Opens what DataSourceDescriptor names, after closing what is open. False when that failed: a missing or
/// unknown kind of source, and the one that is not built, say so in a message box, everything else in a
/// notice.
bool OpenDataSource();

/// Gets what the source has now, without waiting: of a serial line what has arrived, of a run file its next
/// megabyte, with a 0 behind it. What brought nothing leaves `bytes` as it is. A serial line that was silent
/// for eleven reads in a row is looked at: it stays open while its device is there, so that nothing half
/// received is lost and no board is reset, else it is opened again.
void ReadDataSource(std::vector<std::uint8_t>& bytes);

/// Closes whatever is open and drops what was not decoded.
void CloseDataSource();

namespace detail {
extern std::uint32_t sourceOpenings;
}

/// How often OpenDataSource was called: who lets events run tells by it whether the source is still the same.
inline std::uint32_t dataSourceOpenings() {
    return detail::sourceOpenings;
}

/// True for a file that begins as a run file does: 7576, then 200, 201 or 203, 32 bits each, little-endian.
bool IsRunFile(const QString& path);

/// What keeps a path from being played, and what to do, in words; empty for a run file that can be read.
QString runFileProblem(const QString& path);

} // namespace vistor
