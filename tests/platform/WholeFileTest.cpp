#include "platform/WholeFile.h"

#include "platform/Notices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vistor {
namespace {

class WholeFile : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QByteArray local(const char* name) const { return QFile::encodeName(path(name)); }
    QString make(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    QByteArray read(const char* name) const { return readWholeFile(path(name), 1 << 20).bytes; }
    struct stat statusOf(const char* name) const {
        struct stat status = {};
        EXPECT_EQ(lstat(local(name), &status), 0) << name;
        return status;
    }
    void makeOld(const char* name) const {
        const timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
        EXPECT_EQ(utimensat(AT_FDCWD, local(name), times, 0), 0);
    }
    QStringList names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    QTemporaryDir folder;
};

TEST_F(WholeFile, WhatIsNoPlainFileIsRefusedAndStays) {
    QDir(folder.path()).mkdir("folder");
    ASSERT_EQ(mkfifo(local("pipe"), 0600), 0);
    sockaddr_un address{AF_UNIX, "socket"};
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    const int home = open(".", O_PATH | O_DIRECTORY);
    ASSERT_EQ(chdir(QFile::encodeName(folder.path())), 0); // such a name has room for a hundred characters
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(fchdir(home), 0);
    close(home);
    ASSERT_EQ(symlink("pipe", local("link")), 0);
    ASSERT_EQ(symlink("/dev/zero", local("zeros")), 0);
    ASSERT_EQ(symlink("circle", local("circle")), 0);
    const QStringList before = names();
    for (const char* name : {"folder", "pipe", "socket", "link", "zeros", "circle"}) {
        const mode_t mode = statusOf(name).st_mode;
        const FileBytes file = readWholeFile(path(name), 100);
        EXPECT_FALSE(file.problem.isEmpty() || file.missing) << name;
        EXPECT_FALSE(isPlainFile(path(name))) << name;
        QFile opened;
        EXPECT_FALSE(openPlainFile(opened, path(name)).isEmpty()) << name;
        EXPECT_FALSE(writeWholeFile(path(name), "new").isEmpty()) << name;
        EXPECT_EQ(statusOf(name).st_mode, mode) << name;
    }
    for (const QString& none : {QString(), path("none/a"), path("a") + QChar(u'\0') + "b", path(".") + "/"})
        EXPECT_FALSE(writeWholeFile(none, "new").isEmpty()) << none.toStdString();
    EXPECT_EQ(names(), before);
    close(listening);
}

TEST_F(WholeFile, ReadsAllOrTellsWhyNot) {
    make("a", "12345");
    EXPECT_EQ(readWholeFile(path("a"), 5).bytes, "12345");
    EXPECT_EQ(readWholeFile(path("a"), 4).problem, "it is larger than 0 MB");
    EXPECT_TRUE(readWholeFile(path("a"), 4).bytes.isEmpty());
    const FileBytes none = readWholeFile(path("none"), 5);
    EXPECT_TRUE(none.missing);
    EXPECT_EQ(none.problem, "there is no such file or folder");
    EXPECT_GT(readWholeFile("/proc/self/status", 1 << 20).bytes.size(), 100) << "its size says 0";
    QFile piecewise;
    ASSERT_EQ(openPlainFile(piecewise, path("a")), "");
    EXPECT_EQ(piecewise.size(), 5);
    EXPECT_EQ(piecewise.readAll(), "12345");
}

TEST_F(WholeFile, AFailureAtAnyCallLeavesTheOldFileAndNothingElse) {
    for (const bool exists : {true, false}) {
        int calls = 0;
        for (int n = 1;; ++n) {
            QFile::remove(path("a"));
            if (exists) make("a", "old");
            failFileCall(n);
            const QString problem = writeWholeFile(path("a"), QByteArray(200'000, 'n'));
            if (failFileCall(0) > 0) break; // it came through before the failure
            ++calls;
            EXPECT_EQ(problem, "the disk is full, make room on it") << n;
            EXPECT_EQ(read("a"), exists ? "old" : "") << n;
            EXPECT_EQ(names().size(), exists ? 1 : 0) << n;
        }
        EXPECT_GE(calls, 6) << "making, writing, syncing, looking, closing, renaming";
        EXPECT_EQ(read("a"), QByteArray(200'000, 'n'));
        EXPECT_EQ(names(), QStringList("a"));
    }
    failFileCall(1);
    EXPECT_FALSE(writeOrTell(path("a"), "x", "The settings"));
    EXPECT_EQ(notices().back().text,
              QString("The settings could not be saved to %1: the disk is full, make room "
                      "on it. Nothing there was changed.")
                  .arg(path("a")));
}

TEST_F(WholeFile, WhatHoldsTheBytesAlreadyIsNotTouched) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("same"), QByteArray(200'000, 's')}) {
        make("a", bytes);
        makeOld("a");
        const ino_t before = statusOf("a").st_ino;
        EXPECT_EQ(writeWholeFile(path("a"), bytes), "");
        EXPECT_EQ(statusOf("a").st_ino, before);
        EXPECT_EQ(statusOf("a").st_mtime, 1'000'000'000);
        EXPECT_EQ(writeWholeFile(path("a"), bytes + "."), "");
        EXPECT_EQ(read("a"), bytes + ".");
    }
}

TEST_F(WholeFile, LinksModesAndLongNamesStay) {
    QDir(folder.path()).mkdir("far");
    const QString target = make("far/target", "old");
    ASSERT_EQ(symlink("far/second", local("first")), 0);
    ASSERT_EQ(symlink("target", local("far/second")), 0);
    for (const mode_t mode : {0640U, 0400U, 0666U}) {
        ASSERT_EQ(chmod(local("far/target"), mode), 0);
        ASSERT_EQ(writeWholeFile(path("first"), "new" + QByteArray::number(mode)), "");
        EXPECT_EQ(read("far/target"), "new" + QByteArray::number(mode));
        EXPECT_EQ(statusOf("far/target").st_mode & 07777, mode);
    }
    EXPECT_TRUE(S_ISLNK(statusOf("first").st_mode));
    EXPECT_TRUE(S_ISLNK(statusOf("far/second").st_mode));
    ASSERT_EQ(symlink("far/new", local("ahead")), 0);
    EXPECT_EQ(writeWholeFile(path("ahead"), "x"), "");
    EXPECT_EQ(read("far/new"), "x") << "a link may lead to a file that is not there yet";

    const mode_t before = umask(027);
    const QString longest = folder.filePath(QString(85, QChar(0x6CB9))); // 255 bytes
    EXPECT_EQ(writeWholeFile(longest, "long"), "");
    umask(before);
    EXPECT_EQ(readWholeFile(longest, 10).bytes, "long");
    EXPECT_EQ(QFile::permissions(longest) & 0xFFF, QFile::Permissions(0x6640) & 0xFFF);
    EXPECT_EQ(writeWholeFile(longest + "x", "long"), "the name is too long");
}

TEST_F(WholeFile, RightsOfTheFolderDecide) {
    QDir(folder.path()).mkdir("open");
    QDir(folder.path()).mkdir("closed");
    for (const char* name : {"open/a", "closed/a"}) make(name, "old");
    ASSERT_EQ(chmod(local("."), 0755), 0);
    ASSERT_EQ(chmod(local("open"), 0777), 0);
    ASSERT_EQ(chmod(local("closed"), 0555), 0);
    ASSERT_EQ(chmod(local("open/a"), 0444), 0);
    ASSERT_EQ(chmod(local("closed/a"), 0666), 0);
    const uid_t person = geteuid();
    ASSERT_EQ(person == 0 ? seteuid(65534) : 0, 0); // the mightiest is stopped by no permission
    const QString open = writeWholeFile(path("open/a"), "new");
    const QString closed = writeWholeFile(path("closed/a"), "new");
    ASSERT_EQ(person == 0 ? seteuid(person) : 0, 0);
    EXPECT_EQ(open, "");
    EXPECT_EQ(closed, "permission denied, look at the rights of the file and of its folder");
    EXPECT_EQ(read("open/a"), "new");
    EXPECT_EQ(read("closed/a"), "old");
    ASSERT_EQ(chmod(local("closed"), 0755), 0);
}

TEST_F(WholeFile, TakesAwayWhatKilledProcessesLeft) {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    const auto name = [](pid_t process, const char* rest) {
        return ".vistor-" + std::to_string(process) + rest;
    };
    const std::string left = name(child, "-1");
    const std::string young = name(child, "-2");
    const std::string alive = name(getpid(), "-1");
    const std::string linked = name(child, "-3");
    const std::string others[] = {name(child, ""), name(child, "-x"), name(child, "-1.txt"), ".vistor-",
                                  "vistor-1-1"};
    for (const std::string& one : others) make(one.c_str(), "mine");
    for (const std::string& one : {left, young, alive}) make(one.c_str(), "half");
    ASSERT_EQ(symlink("vistor-1-1", local(linked.c_str())), 0);
    for (const std::string& one : others) makeOld(one.c_str());
    for (const std::string& one : {left, alive}) makeOld(one.c_str());
    const qsizetype before = names().size();
    EXPECT_EQ(writeWholeFile(path("a"), "x"), "");
    EXPECT_FALSE(names().contains(QString::fromStdString(left)));
    EXPECT_EQ(names().size(), before) << "one gone, one new";
}

} // namespace
} // namespace vistor
