// Files as a whole. In: a path, and bytes to write. Out: the bytes of a plain file, or a file that holds
// either what it held before or all of the new bytes, whatever happens in between.
#pragma once

#include <QByteArray>
#include <QString>

class QFile;

namespace vistor {

/// What a file holds, or why that is not known.
struct FileBytes {
    QByteArray bytes;
    QString problem;      ///< empty when all bytes are here; else why not, in words that a person can act on
    bool missing = false; ///< the problem is that there is no such file
};

/// All bytes of a plain file. A folder, pipe, socket or device is refused without being opened, so that no
/// call waits for what may never come and no device is woken. So is a file of more than `largest` bytes.
FileBytes readWholeFile(const QString& path, qint64 largest);

/// Opens a plain file for reading piece by piece; anything else is refused as above. Empty when `file` is
/// open; else why not.
QString openPlainFile(QFile& file, const QString& path);

/// True for a plain file, also behind links: what may be handed to code that opens files by itself.
bool isPlainFile(const QString& path);

/// Puts `bytes` in place of what the file at `path` holds, or makes the file. They are written beside it,
/// synced, and take its place in one step, so that a full disk, a kill or a power cut leaves the old file or
/// the new one. A file that holds these bytes already is not touched. Of a link the target is replaced, not
/// the link; mode bits stay, and the owner where that is allowed. What is no plain file is refused. Empty
/// when that is done; else why not, in words that a person can act on, and the old file stands.
QString writeWholeFile(const QString& path, const QByteArray& bytes);

/// The same, telling a person in a notice when it failed; `what` is what the bytes are, as the beginning of
/// a sentence ("The settings"). False when it failed.
bool writeOrTell(const QString& path, const QByteArray& bytes, const QString& what);
/// That notice, for a `problem` in the words of the above.
void notifyNotSaved(const QString& path, const QString& what, const QString& problem);

/// For tests: lets the n-th file system call of a write from now on fail, as on a full disk; 0 lets none
/// fail. Answers how many calls were still to go.
int failFileCall(int n);

} // namespace vistor
