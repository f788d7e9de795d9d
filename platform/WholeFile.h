// Files as a whole. In: a path, and bytes to write. Out: the bytes of a plain file, or a file that holds
// either what it held before or all of the new bytes, whatever happens in between.
#pragma once

#include <QByteArray>
#include <QString>

namespace vistor {

/// What a file holds, or why that is not known.
struct FileBytes {
    QByteArray bytes;
    QString problem;      ///< empty when all bytes are here; else why not, in words that a person can act on
    bool missing = false; ///< the problem is that there is no such file
};

/// All bytes of a plain file. A folder, pipe, socket or device is refused without being opened for long: no
/// call waits for what may never come. So is a file of more than `largest` bytes.
FileBytes readWholeFile(const QString& path, qint64 largest);

/// Puts `bytes` in place of what the file at `path` holds, or makes the file. They are written beside it,
/// synced, and take its place in one step, so that a full disk, a kill or a power cut leaves the old file or
/// the new one. A file that holds these bytes already is not touched. Of a link the target is replaced; mode
/// bits stay. Empty when that is done; else why not, in words that a person can act on, and the old file
/// stands.
QString writeWholeFile(const QString& path, const QByteArray& bytes);

/// For tests: lets the n-th file system call from now on fail, as on a full disk; 0 lets none fail.
void failFileCall(int n);

} // namespace vistor
