#include "platform/WholeFile.h"

#include "platform/Notices.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vistor {
namespace {

constexpr int kMostLinks = 40; // as the kernel follows
constexpr int kMostNames = 100;
constexpr std::time_t kLeftOverAge = 60; ///< s; what is younger may be another machine's, still at work
constexpr std::string_view kBeside = ".vistor-"; ///< then the process, "-" and a number

int callsToFailure = 0;

/// The result of a file system call, made again while signals interrupt it; -1 where a test wants it to fail.
template <typename Call>
auto tried(Call call) {
    using Result = decltype(call());
    if (callsToFailure != 0 && --callsToFailure == 0) {
        errno = ENOSPC;
        return static_cast<Result>(-1);
    }
    Result result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

QString inWords(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("there is no such file or folder");
    case EACCES:
    case EPERM:
        return QStringLiteral("permission denied, look at the rights of the file and of its folder");
    case EROFS:
        return QStringLiteral("the disk is read-only");
    case ENOSPC:
    case EDQUOT:
        return QStringLiteral("the disk is full, make room on it");
    case EFBIG:
        return QStringLiteral("the file would be larger than is allowed here");
    case ENAMETOOLONG:
        return QStringLiteral("the name is too long");
    case ELOOP:
        return QStringLiteral("its links lead in a circle");
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

QString notPlain() {
    return QStringLiteral("it is not a plain file");
}

QString tooLarge(qint64 largest) {
    return QStringLiteral("it is larger than %1 MB").arg(largest >> 20);
}

/// The name as the system takes it; empty for a text that is no name.
QByteArray systemName(const QString& path) {
    return path.contains(QChar(u'\0')) ? QByteArray() : QFile::encodeName(path);
}

/// A descriptor that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) ::close(m_number);
    }
    Descriptor(Descriptor&& other) noexcept : m_number(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    int release() { return std::exchange(m_number, -1); }
    /// Interrupted, it is closed all the same.
    int close() {
        const int result = ::close(release());
        return result == -1 && errno == EINTR ? 0 : result;
    }

private:
    int m_number;
};

/// An open plain file, or why there is none.
struct PlainFile {
    Descriptor descriptor;
    struct stat status = {};
    QString problem;
    bool missing = false;
};

PlainFile openPlain(const QByteArray& name) {
    PlainFile file;
    const auto fail = [&file] {
        file.missing = errno == ENOENT || errno == ENOTDIR;
        file.problem = inWords(errno);
    };
    // Asked first, since opening alone wakes some devices; asked again, since the name may have changed
    // hands.
    if (::stat(name.constData(), &file.status) != 0) {
        fail();
        return file;
    }
    if (S_ISREG(file.status.st_mode))
        file.descriptor = Descriptor(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    else
        file.problem = notPlain();
    if (!file.problem.isEmpty()) return file;
    if (!file.descriptor.isOpen() || ::fstat(file.descriptor.number(), &file.status) != 0)
        fail();
    else if (!S_ISREG(file.status.st_mode))
        file.problem = notPlain();
    return file;
}

/// Reads up to `size` bytes; less only at the end, -1 on failure.
ssize_t readUpTo(int descriptor, char* bytes, std::size_t size) {
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got = ::read(descriptor, bytes + filled, size - filled);
        if (got == -1 && errno == EINTR) continue;
        if (got < 0) return -1;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(filled);
}

/// All that is left, which may be more or less than was said; what is beyond `largest` only as far as to see
/// it.
bool readAll(int descriptor, QByteArray& bytes, qint64 size, qint64 largest) {
    constexpr qint64 kMore = 4096;
    qint64 filled = 0;
    bytes.resize(size + 1);
    while (true) {
        const ssize_t got =
            readUpTo(descriptor, bytes.data() + filled, static_cast<std::size_t>(bytes.size() - filled));
        if (got < 0) return false;
        filled += got;
        if (filled < bytes.size() || filled > largest) break;
        bytes.resize(filled + kMore);
    }
    bytes.resize(filled);
    return true;
}

/// True when the plain file of that name holds these bytes already.
bool holds(const QByteArray& name, const QByteArray& bytes) {
    const PlainFile file = openPlain(name);
    if (!file.problem.isEmpty() || file.status.st_size != bytes.size()) return false;
    std::array<char, 1 << 16> piece{};
    qint64 same = 0;
    while (true) {
        const ssize_t got = readUpTo(file.descriptor.number(), piece.data(), piece.size());
        if (got <= 0) return got == 0 && same == bytes.size();
        if (got > bytes.size() - same || !std::equal(piece.data(), piece.data() + got, bytes.data() + same))
            return false;
        same += got;
    }
}

bool writeAll(int descriptor, const QByteArray& bytes) {
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t put = tried([&] {
            return ::write(descriptor, bytes.constData() + done,
                           static_cast<std::size_t>(bytes.size() - done));
        });
        if (put <= 0) return false;
        done += put;
    }
    return true;
}

QByteArray folderOf(const QByteArray& name) {
    const qsizetype slash = name.lastIndexOf('/');
    return slash < 0 ? QByteArray("./") : name.left(slash + 1);
}

/// Where the bytes really lie, at the end of a chain of links; the links need not end at a file. False, and
/// errno set, where they have no end.
bool followLinks(QByteArray& name) {
    for (int i = 0; i < kMostLinks; ++i) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t size = ::readlink(name.constData(), target.data(), PATH_MAX);
        if (size < 0) return true; // no link
        target.truncate(size);
        name = target.startsWith('/') ? target : folderOf(name) + target;
    }
    errno = ELOOP;
    return false;
}

/// The process that a file beside another belongs to by its name; 0 for any other file.
pid_t writerOf(std::string_view name) {
    if (!name.starts_with(kBeside)) return 0;
    name.remove_prefix(kBeside.size());
    pid_t process = 0;
    std::uint64_t number = 0;
    const char* const end = name.data() + name.size();
    const auto first = std::from_chars(name.data(), end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return 0;
    const auto second = std::from_chars(first.ptr + 1, end, number);
    return second.ec == std::errc() && second.ptr == end && process > 0 ? process : 0;
}

/// Takes away what processes left here that were killed while they wrote. Once for each folder: this program
/// leaves nothing itself.
void takeLeftOversAway(const QByteArray& folder) {
    static QSet<QByteArray> seen;
    if (seen.contains(folder)) return;
    seen.insert(folder);
    DIR* const listing = ::opendir(folder.constData());
    if (!listing) return;
    const int home = ::dirfd(listing);
    while (const dirent* entry = ::readdir(listing)) {
        const pid_t writer = writerOf(entry->d_name);
        struct stat status = {};
        if (writer == 0 || ::fstatat(home, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) continue;
        const bool ours = S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == ::geteuid();
        const bool old = std::time(nullptr) - status.st_mtime > kLeftOverAge;
        const bool gone = ::kill(writer, 0) == -1 && errno == ESRCH;
        if (ours && old && gone) ::unlinkat(home, entry->d_name, 0);
    }
    ::closedir(listing);
}

/// A new file in a folder, under a name that nobody has; gone with its scope unless it took its place.
class FileBeside {
public:
    /// What it shall replace, null for nothing: the mode is that of any new file then.
    FileBeside(const QByteArray& folder, const struct stat* before) {
        const mode_t mode = before ? 0600 : 0666; // nobody else reads it before it has its own mode
        for (int i = 0; i < kMostNames; ++i) {
            m_name = folder + kBeside.data() + QByteArray::number(::getpid()) + '-' +
                     QByteArray::number(QRandomGenerator::global()->generate());
            m_file = Descriptor(tried([&] {
                return ::open(m_name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
            }));
            if (m_file.isOpen() || errno != EEXIST) break;
        }
        m_made = m_file.isOpen();
    }
    ~FileBeside() {
        if (m_made) ::unlink(m_name.constData());
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    /// Writes all, to the disk itself. False, and errno set, when that failed.
    bool fill(const QByteArray& bytes, const struct stat* before) {
        struct stat after = {};
        return m_made && (!before || takeOver(*before)) && writeAll(m_file.number(), bytes) &&
               tried([&] { return ::fsync(m_file.number()); }) == 0 &&
               tried([&] { return ::fstat(m_file.number(), &after); }) == 0 && isWhole(after, bytes) &&
               tried([&] { return m_file.close(); }) == 0;
    }
    bool replace(const QByteArray& name) {
        if (tried([&] { return std::rename(m_name.constData(), name.constData()); }) != 0) return false;
        m_made = false;
        return true;
    }

private:
    static bool isWhole(const struct stat& status, const QByteArray& bytes) {
        errno = EIO;
        return status.st_size == bytes.size();
    }
    bool takeOver(const struct stat& before) {
        // Only the mightiest may give a file away; everybody else's new file is their own.
        const bool given = ::fchown(m_file.number(), before.st_uid, before.st_gid) == 0;
        return tried([&] { return ::fchmod(m_file.number(), before.st_mode & (given ? 07777U : 0777U)); }) ==
               0;
    }

    QByteArray m_name;
    Descriptor m_file;
    bool m_made = false;
};

/// The file is new already; a folder that cannot be synced makes that less lasting, not less true.
void syncFolder(const QByteArray& folder) {
    const Descriptor home(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (home.isOpen()) ::fsync(home.number());
}

} // namespace

FileBytes readWholeFile(const QString& path, qint64 largest) {
    PlainFile file = openPlain(systemName(path));
    FileBytes read{{}, file.problem, file.missing};
    if (!read.problem.isEmpty()) return read;
    const bool fits = file.status.st_size <= largest;
    if (fits && !readAll(file.descriptor.number(), read.bytes, file.status.st_size, largest))
        read.problem = inWords(errno);
    else if (!fits || read.bytes.size() > largest)
        read.problem = tooLarge(largest);
    if (!read.problem.isEmpty()) read.bytes.clear();
    return read;
}

QString openPlainFile(QFile& file, const QString& path) {
    PlainFile plain = openPlain(systemName(path));
    if (plain.problem.isEmpty() &&
        !file.open(plain.descriptor.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        plain.problem = file.errorString();
    return plain.problem;
}

bool isPlainFile(const QString& path) {
    struct stat status = {};
    return ::stat(systemName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

QString writeWholeFile(const QString& path, const QByteArray& bytes) {
    // Beyond a limit on sizes a write shall fail as on a full disk, and not end the program.
    [[maybe_unused]] static const auto before = std::signal(SIGXFSZ, SIG_IGN);
    QByteArray name = systemName(path);
    if (!followLinks(name)) return inWords(errno);
    struct stat status = {};
    const bool exists = ::stat(name.constData(), &status) == 0;
    if (!exists && errno != ENOENT) return inWords(errno);
    if (name.isEmpty() || (exists && !S_ISREG(status.st_mode))) return notPlain();
    if (exists && holds(name, bytes)) return {};
    const QByteArray folder = folderOf(name);
    takeLeftOversAway(folder);
    const struct stat* const replaced = exists ? &status : nullptr;
    FileBeside made(folder, replaced);
    if (!made.fill(bytes, replaced) || !made.replace(name)) return inWords(errno);
    syncFolder(folder);
    return {};
}

bool writeOrTell(const QString& path, const QByteArray& bytes, const QString& what) {
    const QString problem = writeWholeFile(path, bytes);
    if (!problem.isEmpty()) notifyNotSaved(path, what, problem);
    return problem.isEmpty();
}

void notifyNotSaved(const QString& path, const QString& what, const QString& problem) {
    notify(QStringLiteral("%1 could not be saved to %2: %3. Nothing there was changed.")
               .arg(what, path, problem));
}

int failFileCall(int n) {
    return std::exchange(callsToFailure, n);
}

} // namespace vistor
