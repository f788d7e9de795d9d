#include "platform/WholeFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vistor {
namespace {

constexpr int kMostLinks = 40; // as the kernel follows

int callsToFailure = 0;

/// The result of a file system call, or -1 where a test wants it to fail.
template <typename Result>
Result tried(Result result) {
    if (callsToFailure == 0 || --callsToFailure > 0) return result;
    errno = ENOSPC;
    return -1;
}

QString inWords(int error) {
    switch (error) {
    case ENOENT:
        return QStringLiteral("there is no such file or folder");
    case EACCES:
    case EPERM:
        return QStringLiteral("permission denied");
    case EROFS:
        return QStringLiteral("the disk is read-only");
    case ENOSPC:
    case EDQUOT:
        return QStringLiteral("the disk is full");
    case ENAMETOOLONG:
        return QStringLiteral("the name is too long");
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

/// A descriptor that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

QString notPlain() {
    return QStringLiteral("it is not a plain file");
}

bool readAll(int descriptor, QByteArray& bytes, qint64 size, qint64 largest) {
    bytes.resize(size);
    qint64 filled = 0;
    while (true) {
        if (filled == bytes.size()) {
            if (filled > largest) return true; // it grew meanwhile; the caller looks
            bytes.resize(filled + 4096);
        }
        const ssize_t got =
            ::read(descriptor, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        filled += got;
    }
    bytes.resize(filled);
    return true;
}

bool writeAll(int descriptor, const QByteArray& bytes) {
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t put = tried(
            ::write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done)));
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return false;
        done += put;
    }
    return true;
}

/// Where the bytes really lie, at the end of a chain of links; the links need not end at a file.
QString behindLinks(QString path) {
    for (int i = 0; i < kMostLinks; ++i) {
        const QFileInfo info(path);
        if (!info.isSymLink()) break;
        path = info.symLinkTarget();
    }
    return path;
}

} // namespace

FileBytes readWholeFile(const QString& path, qint64 largest) {
    FileBytes file;
    const Descriptor descriptor(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat status = {};
    if (!descriptor.isOpen() || ::fstat(descriptor.number(), &status) != 0) {
        file.missing = errno == ENOENT || errno == ENOTDIR;
        file.problem = errno == ENXIO ? notPlain() : inWords(errno);
    } else if (!S_ISREG(status.st_mode)) {
        file.problem = notPlain();
    } else if (status.st_size > largest) {
        file.problem = QStringLiteral("it is larger than %1 MB").arg(largest >> 20);
    } else if (!readAll(descriptor.number(), file.bytes, status.st_size, largest)) {
        file.problem = inWords(errno);
    } else if (file.bytes.size() > largest) {
        file.problem = QStringLiteral("it is larger than %1 MB").arg(largest >> 20);
    }
    if (!file.problem.isEmpty()) file.bytes.clear();
    return file;
}

QString writeWholeFile(const QString& path, const QByteArray& bytes) {
    const QString target = behindLinks(path);
    const QByteArray name = QFile::encodeName(target);
    struct stat before = {};
    const bool exists = ::stat(name.constData(), &before) == 0;
    if (!exists && errno != ENOENT) return inWords(errno);
    if (exists && !S_ISREG(before.st_mode)) return notPlain();
    if (exists && before.st_size == bytes.size() && readWholeFile(target, bytes.size()).bytes == bytes &&
        (!bytes.isEmpty() || before.st_size == 0))
        return {};
    const QByteArray folder = QFile::encodeName(QFileInfo(target).absolutePath());
    QByteArray beside = folder + "/.vistor-XXXXXX";
    Descriptor made(tried(::mkostemp(beside.data(), O_CLOEXEC)));
    if (!made.isOpen()) return inWords(errno);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const mode_t mode = exists ? before.st_mode & 07777 : 0666 & ~mask;
    bool done = ::fchmod(made.number(), mode) == 0 && writeAll(made.number(), bytes) &&
                tried(::fsync(made.number())) == 0;
    done = done && tried(made.close() ? 0 : -1) == 0 && tried(0) == 0 &&
           std::rename(beside.constData(), name.constData()) == 0;
    if (!done) {
        const int error = errno;
        ::unlink(beside.constData());
        return inWords(error);
    }
    // The file is new already; a folder that cannot be synced makes that less lasting, not less true.
    const Descriptor home(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (home.isOpen()) ::fsync(home.number());
    return {};
}

void failFileCall(int n) {
    callsToFailure = n;
}

} // namespace vistor
