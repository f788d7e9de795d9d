// The rules of the kept copies: their names, which stay, and folders that hold anything at all.
#include "dashboard/Recovery.h"

#include "dashboard/ProfileFile.h"
#include "dashboard/RecoverDialog.h"
#include "dashboard/RecoveryKeeper.h"
#include "platform/Notices.h"
#include "platform/RunMarker.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vistor {
namespace {

const QDateTime kNoon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);

RecoveryCopy copyAt(int seconds, RecoveryReason reason = RecoveryReason::ClearAll) {
    return {kNoon.addSecs(seconds), reason, false, 2, 7, recoveryHash(QByteArray::number(seconds)), "demo"};
}

class RecoveryTest : public testing::Test {
protected:
    void write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QStringList names() const {
        QStringList all;
        for (const RecoveryCopy& copy : recoveryCopies(folder)) all += recoveryName(copy);
        return all;
    }
    Work work(const QByteArray& bytes) const {
        return {false, 1, 2, "/home/a b/My: Lay<out>.vis", recoveryHash(bytes), [bytes] { return bytes; },
                {}};
    }

    QTemporaryDir root;
    QString folder = root.filePath("Recovered/");
};

TEST_F(RecoveryTest, NamesReadBackToTheLetterOrNotAtAll) {
    for (const RecoveryReason reason : {RecoveryReason::Minute, RecoveryReason::RestoreVariables}) {
        RecoveryCopy copy = copyAt(1, reason);
        for (const char* from : {"", "/x/Ölstand 3.vis", "../../etc/<b>&passwd\n.vis", "/x/-----.vis"}) {
            copy.from = recoverySource(QString::fromUtf8(from));
            copy.isTable = *from == 0;
            const QString name = recoveryName(copy);
            EXPECT_FALSE(name.contains(u'/') || name.contains(u'<') || name.contains(u'\n'))
                << qPrintable(name);
            const auto back = readRecoveryName(name);
            ASSERT_TRUE(back) << qPrintable(name);
            EXPECT_EQ(recoveryName(*back), name);
            EXPECT_EQ(back->time, copy.time);
            EXPECT_EQ(back->isTable, copy.isTable);
        }
    }
    EXPECT_LE(recoverySource(QString(5000, u'x')).size(), 40);
    const QString good = "20240501-120000000_clear-all_2-7_0123456789abcdef_demo.vis";
    ASSERT_TRUE(readRecoveryName(good));
    for (const auto& [from, to] :
         std::initializer_list<std::pair<const char*, const char*>>{{".vis", ".png"},
                                                                    {".vis", ".vis\n"},
                                                                    {"demo", "../demo"},
                                                                    {"demo", ""},
                                                                    {"0501", "1331"},
                                                                    {"clear-all", "clear"},
                                                                    {"2-7", "02-7"},
                                                                    {"2-7", "-2-7"},
                                                                    {"2024", " 2024"},
                                                                    {"abcdef", "ABCDEF"}})
        EXPECT_FALSE(readRecoveryName(QString(good).replace(from, to))) << to;
}

TEST_F(RecoveryTest, TheNewestThirtyStayAndMinutesDoNotPushOutTheRest) {
    std::vector<RecoveryCopy> copies;
    const auto kept = [&](const RecoveryCopy& now) {
        QStringList gone;
        for (const RecoveryCopy& copy : surplusCopies(copies, now))
            gone += QString::number(kNoon.secsTo(copy.time));
        return gone.join(u' ');
    };
    for (int i = 30; i > 0; --i) copies.push_back(copyAt(i));
    EXPECT_EQ(kept(copyAt(40)), "1");
    EXPECT_EQ(kept(copyAt(40, RecoveryReason::Minute)), "1");
    EXPECT_EQ(kept(copyAt(28, RecoveryReason::LoadOver)), "29") << "one from the future counts as the oldest";
    EXPECT_EQ(kept(copies.front()), "") << "it is among them already";
    for (std::size_t i = 0; i < 12; ++i) copies[i].reason = RecoveryReason::Minute;
    EXPECT_EQ(kept(copyAt(40)), "20 19");
    EXPECT_EQ(kept(copyAt(40, RecoveryReason::Minute)), "21 20 19");
}

TEST_F(RecoveryTest, AFolderOfAnythingIsReadAtOnceAndOnlyOurOwnIsTouched) {
    ASSERT_EQ(writeRecovery(folder, copyAt(0), "layout", "no picture"), "");
    const QString outside = root.filePath("outside.vis");
    QFile(folder + recoveryName(copyAt(0))).copy(outside);
    const auto path = [this](int i) { return QFile::encodeName(folder + recoveryName(copyAt(i))); };
    ASSERT_EQ(::symlink(QFile::encodeName(outside).constData(), path(-1).constData()), 0);
    ASSERT_EQ(::symlink("/dev/zero", path(-2).constData()), 0);
    ASSERT_EQ(::mkfifo(path(-3).constData(), 0600), 0);
    QDir(folder).mkdir(recoveryName(copyAt(-4)));
    for (int i = 0; i < 1000; ++i) write(QStringLiteral("other%1.vis").arg(i), "x");
    for (int i = 100; i < 400; ++i) write(recoveryName(copyAt(i)), "x");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(recoveryCopies(folder).size(), 301U);
    for (int i = -4; i < 0; ++i) EXPECT_FALSE(readRecovery(folder, copyAt(i)).problem.isEmpty()) << i;
    EXPECT_EQ(writeRecovery(folder, copyAt(1000), "layout", {}), "");
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_EQ(names().size(), 30);
    EXPECT_EQ(names().constFirst(), recoveryName(copyAt(1000)));
    EXPECT_FALSE(QFile::exists(folder + recoveryPictureName(copyAt(0)))) << "it goes with its copy";
    EXPECT_EQ(QDir(folder).entryList({"other*"}).size(), 1000);
    EXPECT_TRUE(QFile::exists(outside));
    struct stat status = {};
    for (int i = -4; i < 0; ++i) EXPECT_EQ(::lstat(path(i).constData(), &status), 0) << i;
}

TEST_F(RecoveryTest, PicturesAreBelievedToABound) {
    QByteArray png;
    QBuffer buffer(&png);
    QImage(320, 200, QImage::Format_RGB32).save(&buffer, "PNG");
    EXPECT_EQ(safePicture(png).size(), QSize(320, 200));
    for (const int place : {18, 22}) { // of width and height in the head
        QByteArray huge = png;
        huge[place] = 0x7F;
        EXPECT_TRUE(safePicture(huge).isNull());
    }
    EXPECT_TRUE(safePicture({}).isNull());
    EXPECT_TRUE(safePicture("<svg/>").isNull());
    ASSERT_EQ(writeRecovery(folder, copyAt(0), "layout", png), "");
    EXPECT_EQ(readRecoveryPicture(folder, copyAt(0)), png);
    QFile(folder + recoveryPictureName(copyAt(0))).resize(kLargestPicture + 1);
    EXPECT_EQ(readRecoveryPicture(folder, copyAt(0)), "");
}

TEST_F(RecoveryTest, EqualWorkTakesOnePlace) {
    RecoveryKeeper keeper(folder);
    const QString first = keeper.keep(RecoveryReason::Minute, work("one"));
    EXPECT_EQ(names(), QStringList(first));
    EXPECT_TRUE(first.endsWith("_My-Lay-out.vis"));
    EXPECT_EQ(keeper.keep(RecoveryReason::Minute, work("one")), first);
    const QString cleared = keeper.keep(RecoveryReason::ClearAll, work("one"));
    EXPECT_EQ(names(), QStringList(cleared)) << "the better reason takes the place";
    EXPECT_EQ(keeper.keep(RecoveryReason::NewLayout, work("one")), cleared);
    keeper.keep(RecoveryReason::Minute, work("two"));
    // What came out of the file may read a little otherwise when it stands in the window.
    keeper.recovered(*readRecoveryName(cleared), recoveryHash("one, loaded"));
    EXPECT_EQ(keeper.keep(RecoveryReason::Minute, work("one, loaded")), cleared);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(RecoveryTest, AFailureIsToldOnceAndLeavesNothingHalf) {
    RecoveryKeeper keeper(folder);
    for (int i = 0; i < 3; ++i) {
        failFileCall(2); // the disk is full
        EXPECT_EQ(keeper.keep(RecoveryReason::Minute, work("one")), "");
    }
    EXPECT_EQ(notices().size(), 1U);
    EXPECT_TRUE(notices().back().text.contains("the disk is full"));
    EXPECT_TRUE(names().isEmpty());
    failFileCall(0);
    EXPECT_NE(keeper.keep(RecoveryReason::Minute, work("one")), "");
    failFileCall(2);
    keeper.keep(RecoveryReason::Minute, work("two"));
    EXPECT_EQ(notices().size(), 1U) << "the same text takes the place of the last";
    failFileCall(0);

    write("../none", "a file");
    RecoveryKeeper nowhere(root.filePath("none/"));
    EXPECT_EQ(nowhere.keep(RecoveryReason::Minute, work("one")), "");
    RecoveryKeeper none{QString()};
    EXPECT_EQ(none.keep(RecoveryReason::Minute, work("one")), "");
}

TEST_F(RecoveryTest, ACrashIsToldOfOnceAndNeverTakenForARunningProgram) {
    QDir().mkpath(folder);
    RunMarker running(folder);
    running.setNote("of one that runs");
    {
        RunMarker ended(folder);
        ended.setNote("of one that came to its end");
    }
    EXPECT_EQ(takeDeadNotes(folder), QStringList());
    for (const char* note : {"kept", ""}) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            auto* crashed = new RunMarker(folder);
            crashed->setNote("a longer one before");
            crashed->setNote(QString::fromLatin1(note));
            ::_exit(crashed->isThere() ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }
    QDir(folder).mkdir("running-1-abcdef");
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder + "running-1-ghijkl").constData(), 0600), 0);
    ASSERT_EQ(::symlink("/dev/zero", QFile::encodeName(folder + "running-1-mnopqr").constData()), 0);
    write("running-notes.txt", "of a person");
    EXPECT_EQ(takeDeadNotes(folder), QStringList("kept"));
    EXPECT_EQ(takeDeadNotes(folder), QStringList());
    EXPECT_EQ(QDir(folder).entryList({"running-*"}, QDir::AllEntries | QDir::System).size(), 5)
        << "the one that runs, and four that are no markers";
}

TEST_F(RecoveryTest, ANoteCountsWhileItsCopyIsThere) {
    QDir().mkpath(folder);
    ASSERT_EQ(writeRecovery(folder, copyAt(0), "layout", {}), "");
    for (const QString& note :
         {recoveryName(copyAt(0)), recoveryName(copyAt(9)), QString("../../etc/passwd")})
        write("running-1-" + recoveryHash(note.toUtf8()).left(6), note.toUtf8());
    EXPECT_EQ(RecoveryKeeper(folder).lostRuns(), 1U);
    EXPECT_EQ(RecoveryKeeper(folder).lostRuns(), 0U);
}

TEST_F(RecoveryTest, SaysWhenAndWhatInWords) {
    const QDateTime now(QDate(2024, 5, 3), QTime(9, 30));
    const auto at = [&](qint64 seconds) { return timeInWords(now.addSecs(-seconds).toUTC(), now); };
    EXPECT_EQ(at(59), "Today, 09:29:01 (less than a minute ago)");
    EXPECT_EQ(at(60), "Today, 09:29:00 (1 minute ago)");
    EXPECT_EQ(at(3 * 3600), "Today, 06:30:00 (3 hours ago)");
    EXPECT_EQ(at(10 * 3600), "Yesterday, 23:30:00 (10 hours ago)");
    EXPECT_EQ(at(3 * 86400), "Tuesday, 30 April 2024, 09:30:00");
    EXPECT_EQ(at(-30), "Today, 09:30:30");
    RecoveryCopy copy = copyAt(0);
    EXPECT_EQ(contentsInWords(copy), "2 tabs with 7 instruments");
    copy.tabs = copy.items = 1;
    EXPECT_EQ(contentsInWords(copy), "1 tab with 1 instrument");
    copy.isTable = true;
    EXPECT_EQ(contentsInWords(copy), "Variable table with 1 variable");
}

} // namespace
} // namespace vistor
