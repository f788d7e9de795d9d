// A file that stands in a folder while one process runs and is locked by it: what a process left behind that
// did not come to its own end. In: a folder. Out: the notes of processes that are no more.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace vistor {

/// The marker of one run. The kernel gives the lock up with the process, however that ends, so that a marker
/// without a lock is one of a crash; no other process can be taken for it, whatever its number.
class RunMarker {
public:
    /// Makes and locks a marker. Without a folder, or in one that takes none, the run has none.
    explicit RunMarker(const QString& folder);
    /// The run's own end: takes the marker away.
    ~RunMarker();
    RunMarker(const RunMarker&) = delete;
    RunMarker& operator=(const RunMarker&) = delete;

    bool isThere() const { return m_file >= 0; }
    /// Puts down what the next start is to be told should this run not come to its end; up to 4095 bytes.
    void setNote(const QString& note);

private:
    QByteArray m_path;
    int m_file = -1;
    QString m_note;
};

/// The notes that are not empty of all runs whose process is no more, and takes their markers away.
QStringList takeDeadNotes(const QString& folder);

} // namespace vistor
