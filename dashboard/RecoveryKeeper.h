// Keeps copies of the work of one run, and puts down which of them holds what is not saved. In: layouts and
// tables that are about to go or have changed. Out: files in the folder of copies, a notice when there are
// none.
#pragma once

#include "dashboard/Recovery.h"
#include "platform/RunMarker.h"

#include <functional>

namespace vistor {

/// Work that may be kept. What is costly is made only when it is written.
struct Work {
    bool isTable = false;
    int tabs = 0;
    int items = 0;
    QString from; ///< path of the layout's file; may be empty
    QString hash; ///< of recoveryHash()
    std::function<QByteArray()> bytes;
    std::function<QByteArray()> picture; ///< PNG; may be null
};

class RecoveryKeeper {
public:
    /// Makes the folder where it is missing. Without a folder nothing is kept.
    explicit RecoveryKeeper(const QString& folder);

    /// Keeps a copy, unless an equal one is there that says as much. A failure is told once, until a copy
    /// succeeds again. The name of the file that holds the work, empty when none does.
    QString keep(RecoveryReason reason, const Work& work);

    /// The work in `copy` now stands in the window with that hash: it needs no copy of its own.
    void recovered(const RecoveryCopy& copy, const QString& hash);

    /// Which copy holds what is not saved, should the program not come to its end; empty for none.
    void setUnsaved(const QString& name) { m_marker.setNote(name); }

    /// How many runs ended without their end and left work behind; they are told of once.
    std::size_t lostRuns() const { return m_lostRuns; }

private:
    void tell(const QString& problem);

    QString m_folder;
    std::size_t m_lostRuns;
    RunMarker m_marker;
    QString m_recoveredHash; ///< as it is in the window
    QString m_fileHash;      ///< as the file's name has it
    bool m_isTold = false;
};

/// Tells that a copy that was chosen cannot be read.
void tellUnreadable(const QString& problem);

} // namespace vistor
