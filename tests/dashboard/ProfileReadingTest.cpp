// What counts as a damaged Profile, and what does not.
#include "dashboard/ProfileReading.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vistor {
namespace {

class ProfileReadingTest : public testing::Test {
protected:
    ProfileReading reading(const QByteArray& bytes) const {
        const QString path = folder.filePath(QStringLiteral("a.vis"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return readProfileFile(path);
    }
    /// "whole", or what is wrong.
    std::string verdict(const QByteArray& bytes) const {
        const ProfileReading read = reading(bytes);
        if (!read.problem.isEmpty()) return read.problem.toStdString();
        return read.profile.damage.isEmpty() ? "whole" : read.profile.damage.toStdString();
    }
    static QByteArray demo() {
        QFile file(QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/demo.vis"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};

/// Two tabs, a lamp on each, a text; as the program writes it but for the line ends.
const QByteArray kSmall = "[TABS]\nWIDTH=15000\nHEIGHT=9000\nPIC=2\nVXLED=2\nVXTEXTTAG=1\n"
                          "[SYSTEM]\nPORT=SER,1,57600\n[TAB]\n0=One\n1=Two\n"
                          "[VXLED/0]\n1=VXLED/0/1\n[VXLED/0/1]\nLEFT=0\nTOP=0\nMEM=2\n0=600\n1=600\n2=\n"
                          "[VXLED/1]\n2=VXLED/1/2\n[VXLED/1/2]\nLEFT=0\nTOP=0\nMEM=0\n0=600\n"
                          "[VXTEXTTAG/1]\n1=VXTEXTTAG/1/1\n[VXTEXTTAG/1/1]\nLEFT=0\nTOP=0\nMEM=1\n0=a\n1=b\n";

TEST_F(ProfileReadingTest, DamageIsToldInWords) {
    const auto with = [](const char* part, const QByteArray& other) {
        QByteArray text = kSmall;
        EXPECT_TRUE(text.contains(part)) << part;
        return text.replace(part, other);
    };
    const std::string whole = "whole";
    const std::string lost = "1 of its instruments cannot be shown";
    const std::string list = "the settings of 1 instruments are incomplete";
    const std::string broken = "its last line has no end and may be cut off";
    const std::string junk = "it holds bytes that are no text";
    const struct {
        QByteArray text;
        std::string verdict;
    } cases[] = {
        {kSmall, whole},
        // By hand: captions, comments, blank lines, other line ends or none at the end, an instrument taken
        // out, sections in another order, a byte mark, notes.
        {with("0=One", "0=Driver's page; red"), whole},
        {with("[SYSTEM]", "; mine\n\n  \n[SYSTEM]"), whole},
        {with("[SYSTEM]", "# mine\nand a note\n[SYSTEM]"), whole},
        {with("\n", "\r\n"), whole},
        {kSmall.chopped(1), whole},
        {kSmall + "# and a note", whole},
        {kSmall + "[MINE]\nx=1\n", whole},
        {kSmall + "\x1A", whole},
        {with("WIDTH=15000\nHEIGHT=9000\n", ""), whole},
        {with("[SYSTEM]\nPORT=SER,1,57600\n", ""), whole},
        {with("0=One\n1=Two\n", ""), whole},
        {with("[VXLED/0]\n1=VXLED/0/1\n", "[VXLED/0]\n"), whole},
        {with("MEM=1\n0=a\n1=b\n", "MEM=1\n0=a\tb\n1=b\x01\n2=more\n"), whole},
        {"[TAB]\n0=Mine\n", whole},
        {"[TABS]\nPIC=0\n", whole},
        // Counts that the file has nothing for, and more than it counts.
        {with("VXLED=2", "VXLED=3"), lost},
        {with("VXLED=2", "VXLED=1"), lost},
        {with("VXTEXTTAG=1\n", ""), lost},
        {with("PIC=2", "PIC=1"), "2 of its instruments cannot be shown"},
        {"[TABS]\nPIC=3\n[TAB]\n0=One\n", "tabs that it counts are missing: 2"},
        {"[TABS]\nPIC=999999\n[TAB]\n0=One\n", "tabs that it counts are missing: 999743"},
        // Lists that end early, or have a hole, or are not there.
        {with("MEM=2", "MEM=3"), list},
        {with("1=600\n2=\n", "2=\n"), list},
        {with("[VXLED/1/2]\nLEFT=0\nTOP=0\nMEM=0\n0=600\n", ""), list},
        // Text that is none.
        {with("[SYSTEM]", QByteArray("\0\0\0\n[SYSTEM]", 12)), junk},
        {with("PORT=SER", QByteArray("PORT=S\0R", 8)), junk},
        {with("[SYSTEM]", "\x01\x7F\x80\n[SYSTEM]"), junk},
        {kSmall + "[VXL", broken},
        {kSmall + "VXL", broken},
        {with("\n", "\r\n").chopped(2), broken},
        {with("\n", "\r\n").chopped(1), whole},
        // None at all.
        {"", "it is no profile"},
        {"time,speed\n1,2\n", "it is no profile"},
        {QByteArray(5000, '\0'), "it is no profile"},
    };
    for (const auto& c : cases) EXPECT_EQ(verdict(c.text), c.verdict) << c.text.toStdString();
}

TEST_F(ProfileReadingTest, EveryCutOfTheDemoIsSeen) {
    const QByteArray whole = demo();
    ASSERT_GT(whole.size(), 20000);
    EXPECT_EQ(verdict(whole), "whole");
    QByteArray plain = whole;
    EXPECT_EQ(verdict(plain.replace("\r\n", "\n")), "whole");
    // Every byte of the head, whose lines differ, and of the tail; in between every so many.
    for (qsizetype size = 0; size < whole.size() - 1;
         size += size < 600 || size > whole.size() - 60 ? 1 : 997)
        EXPECT_NE(verdict(whole.first(size)), "whole") << size;
    for (qsizetype at = 0; at + 512 < whole.size(); at += 4096) { // a lost sector
        QByteArray holed = whole;
        EXPECT_NE(verdict(holed.replace(at, 512, QByteArray(512, '\0'))), "whole") << at;
    }
}

TEST_F(ProfileReadingTest, OnlyAPlainFileThatCanBeReadIsRead) {
    const QString pipe = folder.filePath(QStringLiteral("pipe.vis"));
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    for (const QString& path :
         {folder.filePath(QStringLiteral("none.vis")), folder.path(), pipe, QStringLiteral("/dev/zero")}) {
        const ProfileReading read = readProfileFile(path);
        EXPECT_FALSE(read.problem.isEmpty()) << path.toStdString();
        EXPECT_TRUE(read.profile.captions.isEmpty());
    }
}

} // namespace
} // namespace vistor
