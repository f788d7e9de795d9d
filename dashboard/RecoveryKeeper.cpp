#include "dashboard/RecoveryKeeper.h"

#include "platform/Notices.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace vistor {
namespace {

QString madeFolder(const QString& folder) {
    if (!folder.isEmpty()) QDir().mkpath(folder);
    return folder;
}

/// Only of work that can still be found.
std::size_t lostRunsIn(const QString& folder) {
    if (folder.isEmpty()) return 0;
    const QStringList notes = takeDeadNotes(folder);
    return static_cast<std::size_t>(std::count_if(notes.begin(), notes.end(), [&](const QString& name) {
        return readRecoveryName(name) && QFile::exists(folder + name);
    }));
}

} // namespace

RecoveryKeeper::RecoveryKeeper(const QString& folder)
    : m_folder(madeFolder(folder)), m_lostRuns(lostRunsIn(folder)), m_marker(folder) {}

QString RecoveryKeeper::keep(RecoveryReason reason, const Work& work) {
    if (m_folder.isEmpty()) return {};
    const bool isRecovered = !work.isTable && work.hash == m_recoveredHash;
    RecoveryCopy copy{QDateTime::currentDateTimeUtc(),
                      reason,
                      work.isTable,
                      std::min(work.tabs, 9999),
                      std::min(work.items, 9999),
                      isRecovered ? m_fileHash : work.hash,
                      recoverySource(work.from)};
    const std::vector<RecoveryCopy> kept = recoveryCopies(m_folder);
    const auto equal = std::find_if(kept.begin(), kept.end(), [&copy](const RecoveryCopy& other) {
        return other.hash == copy.hash && other.isTable == copy.isTable;
    });
    if (equal != kept.end()) {
        const bool isNewest = equal == kept.begin() && equal->reason != RecoveryReason::Minute;
        if (reason == RecoveryReason::Minute || isNewest) return recoveryName(*equal);
    }
    const QString problem =
        writeRecovery(m_folder, copy, work.bytes(), work.picture ? work.picture() : QByteArray());
    tell(problem);
    return problem.isEmpty() ? recoveryName(copy) : QString();
}

void RecoveryKeeper::recovered(const RecoveryCopy& copy, const QString& hash) {
    m_recoveredHash = hash;
    m_fileHash = copy.hash;
    setUnsaved(recoveryName(copy));
}

void tellUnreadable(const QString& problem) {
    notify(QStringLiteral("The copy cannot be opened: %1. Choose another one with File > Recover...")
               .arg(problem));
}

void RecoveryKeeper::tell(const QString& problem) {
    if (!problem.isEmpty() && !m_isTold)
        notify(QStringLiteral("No copy of the unsaved work can be kept in %1: %2. Save it yourself, and mend "
                              "that folder.")
                   .arg(QDir::toNativeSeparators(m_folder), problem));
    m_isTold = !problem.isEmpty();
}

} // namespace vistor
