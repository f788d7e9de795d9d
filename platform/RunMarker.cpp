#include "platform/RunMarker.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vistor {
namespace {

constexpr int kAttempts = 5; ///< another start may take a marker away before it is locked
constexpr std::size_t kLongestNote = 4096;

bool lock(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// A plain file that still has a name.
bool isNamed(int file) {
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink > 0;
}

bool isPlain(const QByteArray& path) {
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Empty for one that runs.
QString takeDeadNote(const QByteArray& path) {
    if (!isPlain(path)) return {};
    const int file = ::open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return {};
    QString note;
    if (lock(file) && isNamed(file)) {
        std::array<char, kLongestNote> bytes{};
        const ssize_t size = ::pread(file, bytes.data(), bytes.size(), 0);
        if (size > 0) note = QString::fromUtf8(bytes.data(), size);
        ::unlink(path.constData());
    }
    ::close(file);
    return note;
}

} // namespace

RunMarker::RunMarker(const QString& folder) {
    if (folder.isEmpty()) return;
    const QByteArray form = QFile::encodeName(folder + QStringLiteral("running-%1-XXXXXX").arg(::getpid()));
    for (int i = 0; i < kAttempts && m_file < 0; ++i) {
        m_path = form;
        const int file = ::mkostemp(m_path.data(), O_CLOEXEC);
        if (file < 0) return;
        if (lock(file) && isNamed(file)) {
            m_file = file;
        } else {
            ::unlink(m_path.constData());
            ::close(file);
        }
    }
}

RunMarker::~RunMarker() {
    if (m_file < 0) return;
    ::unlink(m_path.constData());
    ::close(m_file);
}

void RunMarker::setNote(const QString& note) {
    if (m_file < 0 || note == m_note) return;
    const QByteArray bytes = note.toUtf8().left(kLongestNote - 1);
    const bool done =
        ::ftruncate(m_file, 0) == 0 &&
        ::pwrite(m_file, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0) == bytes.size();
    m_note = done ? note : QString(); // tried again the next time
}

QStringList takeDeadNotes(const QString& folder) {
    static const QRegularExpression form(QStringLiteral("\\Arunning-\\d{1,10}-[A-Za-z0-9]{6}\\z"));
    QStringList notes;
    const QStringList names =
        QDir(folder).entryList({QStringLiteral("running-*")}, QDir::Files | QDir::NoSymLinks | QDir::System);
    for (const QString& name : names) {
        if (!form.match(name).hasMatch()) continue;
        const QString note = takeDeadNote(QFile::encodeName(folder + name));
        if (!note.isEmpty()) notes += note;
    }
    return notes;
}

} // namespace vistor
