// The copies that are kept of work before it goes: their names, which of them stay, and how a folder of them
// is read. In: the folder, which anybody may have put anything into. Out: plain data; no window.
#pragma once

#include "platform/WholeFile.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vistor {

struct Profile;

/// What took the work away, or was about to.
enum class RecoveryReason {
    Minute, ///< nothing did: kept while it was being changed
    NewLayout,
    LoadOver,
    ClearTab,
    ClearAll,
    CloseTab,
    CloseAll,
    NotSaved,
    Ended, ///< by a signal or the end of the session
    LoadVariables,
    RestoreVariables,
};

inline constexpr std::size_t kCopiesKept = 30;
/// No more of them than these were kept by the minute, so that an hour's work leaves room for the others.
inline constexpr std::size_t kMinuteCopiesKept = 10;
inline constexpr qint64 kLargestCopy = 64 << 20; ///< bytes; what an initialisation file is read up to
inline constexpr qint64 kLargestPicture = 1 << 20;

/// One copy. All of this is told by the name of its file.
struct RecoveryCopy {
    QDateTime time; ///< to the millisecond
    RecoveryReason reason = RecoveryReason::Minute;
    bool isTable = false; ///< the variable table; else a layout
    int tabs = 0;         ///< of a layout
    int items = 0;        ///< instruments, or variables
    QString hash;         ///< 16 hexadecimal digits: equal for equal work
    QString from;         ///< the layout's name as far as a file name takes it; may be empty
};

/// "Recovered/" in the working folder; empty without one.
QString recoveryFolder();

QString recoveryName(const RecoveryCopy& copy);
/// What a name tells; none of a name that is not one of ours to the letter.
std::optional<RecoveryCopy> readRecoveryName(const QString& name);
/// The name of the picture beside a copy.
QString recoveryPictureName(const RecoveryCopy& copy);

/// What takes part in the name of a copy of `layout`: its last part, letters and digits of it.
QString recoverySource(const QString& path);
/// 16 hexadecimal digits of bytes, and of all in a layout but the size of its window.
QString recoveryHash(const QByteArray& bytes);
QString recoveryHash(const Profile& profile);

/// The copies in a folder, the newest first. Plain files with a name of ours; all else is passed over.
std::vector<RecoveryCopy> recoveryCopies(const QString& folder);
/// Those that have to go so that kCopiesKept stay, `kept` among them: the oldest, where one from the future
/// counts as older than all, for the clock may have been put back.
std::vector<RecoveryCopy> surplusCopies(std::vector<RecoveryCopy> copies, const RecoveryCopy& kept);

/// Writes a copy and its picture (may be empty), then deletes equal ones and the surplus. Makes the folder.
/// Empty when it is kept; else why not, in words.
QString writeRecovery(const QString& folder, const RecoveryCopy& copy, const QByteArray& bytes,
                      const QByteArray& picture);
/// What a copy holds; a problem when its file is no plain file any more.
FileBytes readRecovery(const QString& folder, const RecoveryCopy& copy);
/// The bytes of its picture; empty without one.
QByteArray readRecoveryPicture(const QString& folder, const RecoveryCopy& copy);
/// False when the copy is still there.
bool deleteRecovery(const QString& folder, const RecoveryCopy& copy);

/// "Before all tabs were closed"; "3 tabs with 12 instruments", "812 variables"; "Today, 14:03:22 (5 minutes
/// ago)", both times local.
QString reasonInWords(RecoveryReason reason);
QString contentsInWords(const RecoveryCopy& copy);
QString timeInWords(const QDateTime& time, const QDateTime& now);

} // namespace vistor
