// The folder of scratch pictures: one for each process, gone with it, and nothing else is touched.
#include "platform/Scratch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace vistor {
namespace {

class Scratch : public testing::Test {
protected:
    ~Scratch() override { deleteScratchFolder(); }
    QString working() const { return root.path() + u'/'; }
    void write(const QString& path, const QByteArray& bytes = "x") const {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QStringList left() const {
        QStringList names;
        const QDir dir(root.filePath("scratch"));
        for (const QString& name : dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System))
            names += name;
        return names;
    }
    /// What a process of that number leaves that was killed.
    void leave(const char* name, const QByteArray& process) const {
        const QString own = scratchFolder(working());
        QFile lock(own + "lock");
        ASSERT_TRUE(lock.open(QIODevice::ReadOnly));
        QByteArrayList lines = lock.readAll().split('\n');
        lines[0] = process;
        const QString folder = root.filePath(QLatin1String("scratch/") + QLatin1String(name));
        write(folder + "/a.bmp");
        write(folder + "/lock", lines.join('\n'));
    }

    QTemporaryDir root;
};

TEST_F(Scratch, AFolderOfItsOwnThatGoesWithItsBitmaps) {
    const QString folder = scratchFolder(working());
    ASSERT_TRUE(folder.startsWith(root.filePath("scratch/")));
    EXPECT_EQ(scratchFolder(working()), folder);
    write(folder + "1.bmp");
    deleteScratchFolder();
    EXPECT_TRUE(left().isEmpty());
    EXPECT_NE(scratchFolder(working()), folder);
    write(scratchFolder(working()) + "a person's.txt");
    deleteScratchFolder();
    ASSERT_EQ(left().size(), 1) << "what is no bitmap stays";
    EXPECT_TRUE(QFile::exists(root.filePath("scratch/" + left().front() + "/a person's.txt")));
    EXPECT_EQ(scratchFolder({}), QString());
    EXPECT_EQ(scratchFolder(QStringLiteral("/proc/none/")), QString());
}

TEST_F(Scratch, OnlyWhatDeadProcessesLeftIsClearedUp) {
    const QString own = scratchFolder(working());
    write(own + "mine.bmp");
    leave("dead", "99999999");
    leave("alive", QByteArray::number(static_cast<qint64>(getpid())));
    QDir().mkpath(root.filePath("scratch/empty"));
    write(root.filePath("elsewhere/theirs.bmp"));
    write(root.filePath("scratch/person/theirs.bmp"));
    write(root.filePath("scratch/theirs.bmp"));
    ASSERT_TRUE(QFile::link(root.filePath("elsewhere"), root.filePath("scratch/link")));
    deleteForsakenScratch(working());
    QStringList expected = {"alive", "link", "person", "theirs.bmp", QFileInfo(own).dir().dirName()};
    expected.sort();
    QStringList found = left();
    found.sort();
    EXPECT_EQ(found, expected);
    EXPECT_TRUE(QFile::exists(own + "mine.bmp"));
    EXPECT_TRUE(QFile::exists(root.filePath("elsewhere/theirs.bmp")));
    EXPECT_TRUE(QFile::exists(root.filePath("scratch/person/theirs.bmp")));
}

} // namespace
} // namespace vistor
