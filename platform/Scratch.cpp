#include "platform/Scratch.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <memory>

namespace vistor {
namespace {

constexpr int kTries = 8;

QString parentIn(const QString& workingFolder) {
    return QDir(workingFolder).filePath(QStringLiteral("scratch"));
}

QString lockIn(const QString& folder) {
    return folder + QStringLiteral("/lock");
}

std::unique_ptr<QLockFile> locked(const QString& folder) {
    auto lock = std::make_unique<QLockFile>(lockIn(folder));
    lock->setStaleLockTime(0); // only the end of its process makes it stale, not its age
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

/// Of a folder whose lock is held. What is no bitmap was not put there by this program.
void deleteFolder(const QString& folder, QLockFile& lock) {
    const QDir dir(folder);
    for (const QString& name : dir.entryList({QStringLiteral("*.bmp")}, QDir::Files | QDir::Hidden))
        QFile::remove(dir.filePath(name));
    lock.unlock();
    QDir().rmdir(folder);
}

class OwnFolder {
public:
    ~OwnFolder() { drop(); }

    QString in(const QString& workingFolder) {
        if (m_lock && m_parent == parentIn(workingFolder) && QFileInfo(m_path).isDir()) return m_path + u'/';
        drop();
        m_parent = parentIn(workingFolder);
        QDir().mkpath(m_parent);
        for (int i = 0; i < kTries && !m_lock; ++i) make();
        return m_lock ? m_path + u'/' : QString();
    }
    void drop() {
        if (m_lock) deleteFolder(m_path, *m_lock);
        m_lock.reset();
    }
    bool is(const QString& folder) const { return m_lock && m_path == folder; }

private:
    /// Who clears up just now may take a folder that is not locked yet.
    void make() {
        QTemporaryDir made(m_parent + QStringLiteral("/XXXXXX"));
        made.setAutoRemove(false);
        if (!made.isValid()) return;
        m_path = made.path();
        m_lock = locked(m_path);
    }

    QString m_parent;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};

OwnFolder own;

} // namespace

QString scratchFolder(const QString& workingFolder) {
    return workingFolder.isEmpty() ? QString() : own.in(workingFolder);
}

void deleteScratchFolder() {
    own.drop();
}

void deleteForsakenScratch(const QString& workingFolder) {
    if (workingFolder.isEmpty()) return;
    const QDir parent(parentIn(workingFolder));
    for (const QString& name : parent.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        const QString folder = parent.filePath(name);
        if (own.is(folder)) continue;
        const QFileInfo lockFile(lockIn(folder));
        if (!lockFile.exists()) {
            QDir().rmdir(folder); // only an empty one goes
        } else if (lockFile.isFile() && !lockFile.isSymLink()) {
            if (const auto lock = locked(folder)) deleteFolder(folder, *lock);
        }
    }
}

} // namespace vistor
