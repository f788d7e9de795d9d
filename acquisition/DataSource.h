// The one data source: a serial line or a recorded run file. In: DataSourceDescriptor. Out: bytes; it owns
// TimeBase, RunFileHandle and EmptyReadCount.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace vistor {

/// Opens what DataSourceDescriptor names, after closing what is open. False when that failed; only a missing
/// or unknown kind of source, and the one that is not built, say so in a message box.
bool OpenDataSource();

/// Gets what the source has now, without waiting: of a serial line what has arrived, of a run file all of it,
/// with a 0 behind it. A serial line that brought nothing leaves `bytes` as it is; one that
/// was silent for eleven reads in a row is opened again.
void ReadDataSource(std::vector<std::uint8_t>& bytes);

/// Closes whatever is open and drops what was not decoded.
void CloseDataSource();

/// How often a source was opened: who lets events run tells by it whether the source is still the same.
std::uint32_t dataSourceOpenings();

/// True for a file that begins as a run file does: 7576, then 200, 201 or 203, 32 bits each, little-endian.
bool IsRunFile(const QString& path);

} // namespace vistor
