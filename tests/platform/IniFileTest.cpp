#include "platform/IniFile.h"

#include "platform/CodePage.h"
#include "platform/Notices.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace vistor {
namespace {

QString read(const char* text, const char* section, const char* key, int buffer = 200) {
    return IniFile::parse(text).value(QString::fromLatin1(section), QString::fromLatin1(key),
                                      QStringLiteral("none"), buffer);
}

TEST(IniFile, ReadsValuesAsTheClassicReaderDoes) {
    struct Case {
        const char* text;
        const char* section;
        const char* key;
        int buffer;
        const char* expected;
    };
    const Case cases[] = {
        {"[A]\nk=1\n", "A", "k", 200, "1"},
        {"[a]\r\nK=1\r\n", "A", "k", 200, "1"},
        {"[ A ]\n  k  =  two words  \n", "A", "K", 200, "two words"},
        {"[A]\nk=\"  kept  \"\n", "A", "k", 200, "  kept  "},
        {"[A]\nk='one'\n", "A", "k", 200, "one"},
        {"[A]\nk=\"one\n", "A", "k", 200, "\"one"},
        {"[A]\nk=a=b\n", "A", "k", 200, "a=b"},
        {"[A]\nk=1\nk=2\n", "A", "k", 200, "1"},
        {"[A]\nx=1\n[B]\nk=2\n[A]\nk=3\n", "A", "k", 200, "none"},
        {"k=0\n[A]\nk=1\n", "A", "k", 200, "1"},
        {"[A]\n;k=1\n", "A", "k", 200, "none"},
        {"[A]\nk=\n", "A", "k", 200, ""},
        {"[A]\nk=123456789012\n", "A", "k", 10, "123456789"},
        {"[A\nk=1\n", "A", "k", 200, "1"},
        {"", "A", "k", 200, "none"},
        {"", "A", "k", 3, "no"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(read(c.text, c.section, c.key, c.buffer), QString::fromLatin1(c.expected)) << c.text;
    EXPECT_EQ(IniFile::parse(std::string_view("[A]\nk=12\0"
                                              "34\n",
                                              11))
                  .value("A", "k", {}, 200),
              "12");
}

TEST(IniFile, WritingKeepsEverythingElse) {
    IniFile file = IniFile::parse("; mine\n[One]\nb=1\nodd line\n\n[Two]\na=2\n");
    file.setValue("one", "B", "9");
    file.setValue("One", "c", "3");
    file.setValue("Three", "d", "4");
    EXPECT_EQ(file.toBytes(), "; mine\n[One]\nB=9\nodd line\nc=3\n\n[Two]\na=2\n[Three]\nd=4\n");
    IniFile fresh;
    fresh.setValue("A", "k", "1");
    EXPECT_EQ(fresh.toBytes(), "[A]\r\nk=1\r\n");
    IniFile same = IniFile::parse("[A]\nK = \"1\"");
    same.setValue("a", "k", "1");
    EXPECT_EQ(same.toBytes(), "[A]\nK = \"1\"") << "the value stands there already";
}

TEST(IniFile, WhatIsWrittenIsReadAgain) {
    for (const QString& value :
         {QStringLiteral(" blanks "), QStringLiteral("\"quoted\""), QStringLiteral("'"),
          QStringLiteral("a;b"), QStringLiteral("=x"), QString(), QStringLiteral("\u20AC\u00B0")}) {
        IniFile file;
        file.setValue("S", "k", value);
        const QByteArray bytes = file.toBytes();
        EXPECT_EQ(IniFile::parse(bytes.toStdString()).value("S", "k", "none", 200), value)
            << bytes.toStdString();
    }
    IniFile file;
    file.setValue("S", "k", "1\r\n[T]\r\nforged=1");
    EXPECT_EQ(IniFile::parse(file.toBytes().toStdString()).value("T", "forged", "no", 200), "no");
}

TEST(IniFile, KeysMayHoldEqualsSigns) {
    IniFile file = IniFile::parse("[A]\na=1=x\na = b = c = 2\n");
    EXPECT_EQ(file.value("A", "a", "none", 200), "1=x");
    EXPECT_EQ(file.value("A", "A=1", "none", 200), "x");
    EXPECT_EQ(file.value("A", "a = b = c", "none", 200), "2");
    EXPECT_EQ(file.value("A", "a = b", "none", 200), "c = 2");
    EXPECT_EQ(file.value("A", "a=c", "none", 200), "none");
    file.setValue("A", "a=1", "y");
    file.setValue("A", "x=y", "\"q\"");
    EXPECT_EQ(file.toBytes(), "[A]\na=1=y\na = b = c = 2\nx=y=\"\"q\"\"\n");
    EXPECT_EQ(file.value("A", "x=y", "none", 200), "\"q\"");
    file.removeKey("A", "a=1");
    EXPECT_EQ(file.value("A", "a", "none", 200), "b = c = 2");
    for (const char* unreadable : {"", " ", "[A]", ";k"}) file.setValue("A", QLatin1String(unreadable), "1");
    EXPECT_EQ(file.toBytes(), "[A]\na = b = c = 2\nx=y=\"\"q\"\"\n");
}

TEST(IniFile, TakesKeysAndSectionsOut) {
    IniFile file = IniFile::parse("k=0\n[A]\n;k=1\nK=1\nl=2\nk=3\n\n[B]\nk=4\n[a]\nk=5\nm=6\n");
    file.removeKey("a", "k");
    file.removeKey("a", "absent");
    file.removeKey("absent", "k");
    EXPECT_EQ(file.value("A", "k", "none", 200), "none");
    EXPECT_EQ(file.value("A", "l", "none", 200), "2");
    EXPECT_EQ(file.toBytes(), "k=0\n[A]\n;k=1\nl=2\n\n[B]\nk=4\n[a]\nm=6\n");
    file.removeSection("A");
    file.removeSection("absent");
    file.removeSection("");
    EXPECT_EQ(file.toBytes(), "k=0\n[B]\nk=4\n");
    EXPECT_EQ(file.value("A", "m", "none", 200), "none");
    EXPECT_GE(file.keyCount(), 1);
    file.setValue("A", "n", "7");
    EXPECT_EQ(file.keys("a"), QStringList("n"));
    EXPECT_EQ(file.toBytes(), "k=0\n[B]\nk=4\n[A]\nn=7\n");
}

TEST(IniFile, FileIsReplacedAsAWhole) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.cfg");
    EXPECT_EQ(readIniValue(path, "S", "k", "default", 200), "default");
    ASSERT_TRUE(writeIniValue(path, "S", "k", "1"));
    ASSERT_TRUE(writeIniValue(path, "S", "l", "2"));
    EXPECT_EQ(readIniValue(path, "S", "k", "default", 200), "1");
    EXPECT_FALSE(writeIniValue(dir.filePath("no/such/folder.cfg"), "S", "k", "1"));
    EXPECT_EQ(readIniValue(dir.path(), "S", "k", "folder", 200), "folder");
}

TEST(IniFile, SectionsThatCanBeFound) {
    IniFile file = IniFile::parse("a=1\n[ One ]\nx=1\n[two\n[ONE]\n[gone]\ny=2\n[]\n");
    file.removeSection("Gone");
    file.setValue("Three", "k", "v");
    QStringList names = file.sections();
    names.sort();
    EXPECT_EQ(names, QStringList({"", "one", "three", "two"}));
}

TEST(IniFile, LeadingNumbers) {
    const std::pair<const char*, double> cases[] = {
        {"12", 12}, {" 12 twips", 12}, {"-3.5x", -3.5}, {"1e3", 1000}, {"1 2", 12},
        {"x1", 0},  {"", 0},           {"+7", 7},       {".5", 0.5},   {"1e999", 0}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(leadingNumber(QString::fromLatin1(text)), number) << text;
}

/// Every question that the document answers, as it stands and as it is read from its bytes.
void expectSameWhenRead(const IniFile& file, const QStringList& sections, const QStringList& keys) {
    const QByteArray bytes = file.toBytes();
    const IniFile read = IniFile::parse(viewOf(bytes));
    for (const QString& section : sections) {
        QStringList here = file.keys(section);
        QStringList there = read.keys(section);
        here.sort();
        there.sort();
        ASSERT_EQ(here, there) << bytes.toStdString();
        ASSERT_EQ(file.hasKeys(section), !there.isEmpty()) << bytes.toStdString();
        ASSERT_EQ(file.numberedKeys(section, 0, 99), read.numberedKeys(section, 0, 99))
            << bytes.toStdString();
        for (const QString& key : keys)
            ASSERT_EQ(file.value(section, key, "none", 99), read.value(section, key, "none", 99))
                << section.toStdString() << " " << key.toStdString() << "\n"
                << bytes.toStdString();
    }
    ASSERT_EQ(read.toBytes(), bytes);
}

TEST(IniFile, AnyChangesReadBackAsTheyStand) {
    std::mt19937 random(14);
    const QStringList sections = {"A", "b", QString::fromUtf8("\u03A9")};
    const QStringList keys = {"k", "k=1", "k=1=2", "1", "7", QString::fromUtf8("\u6CB9"), "K = 1"};
    const QStringList pieces = {"[A]", "[a]",  "[B",  "[\xCE\xA9]",     "k=1",  "k=1=2", "K = 1 = 2=3",
                                "1=x", "07=y", "7=z", "\xE6\xB2\xB9=1", "text", ";k=1",  "",
                                " ",   "=",    "7 = "};
    const QStringList values = {"", " v ", "1=2=w", "\"q\"", QString::fromUtf8("\u00C2\u00B0\u03A9"), "1"};
    const auto any = [&](const QStringList& list) {
        return list[static_cast<qsizetype>(random()) % list.size()];
    };
    for (int round = 0; round < 600; ++round) {
        QByteArray text;
        for (auto lines = random() % 12; lines > 0; --lines)
            text += any(pieces).toLatin1() + any({"\n", "\r\n", "\r"}).toLatin1();
        if (random() % 2 == 0 && !text.isEmpty()) text.chop(1);
        IniFile file = IniFile::parse(viewOf(text));
        ASSERT_EQ(file.toBytes(), text) << "nothing was changed";
        for (int change = 0; change < 8; ++change) {
            const QString section = any(sections);
            const QString key = any(keys);
            const QString value = any(values);
            switch (random() % 6) {
            case 0:
                file.removeKey(section, key);
                ASSERT_EQ(file.value(section, key, "none", 99), "none");
                break;
            case 1:
                file.removeSection(section);
                ASSERT_TRUE(file.keys(section).isEmpty());
                break;
            default:
                file.setValue(section, key, value);
                ASSERT_EQ(file.value(section, key, "none", 99), value) << file.toBytes().toStdString();
            }
            expectSameWhenRead(file, sections, keys);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(IniFile, MarkedFilesAndLoneCarriageReturnsAreRead) {
    const QString text = QString::fromUtf8("[A]\rk=\u03A9\r\u00C2\u00B0=2\r");
    QByteArray utf16("\xFF\xFE");
    for (const QChar c : text) utf16.append(reinterpret_cast<const char*>(&c), 2);
    for (const QByteArray& bytes : {"\xEF\xBB\xBF" + text.toUtf8(), utf16, text.toUtf8()}) {
        IniFile file = IniFile::parse(viewOf(bytes));
        EXPECT_EQ(file.value("A", "k", "none", 9), QString::fromUtf8("\u03A9"));
        EXPECT_EQ(file.value("a", QString::fromUtf8("\u00C2\u00B0"), "none", 9), "2");
        file.setValue("A", "n", "3");
        EXPECT_EQ(file.toBytes(), text.toUtf8() + "n=3\r");
    }
}

TEST(IniFile, NothingIsCutInTheMiddleOfACharacter) {
    IniFile file;
    file.setValue("A", "k", QString::fromUtf8("ab\U0001F600c"));
    for (const auto& [buffer, expected] :
         {std::pair(3, "ab"), std::pair(4, "ab"), std::pair(5, "ab\U0001F600"), std::pair(0, "")})
        EXPECT_EQ(file.value("A", "k", "none", buffer), QString::fromUtf8(expected)) << buffer;
}

qint64 residentBytes() {
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}

TEST(IniFile, LargeFilesTakeTimeAndMemoryInStepWithTheirSize) {
    constexpr qsizetype kSize = 2 << 20;
    for (const QByteArray& line :
         {QByteArray("\n"), QByteArray("a=\n"), QByteArray("[b]\n"), QByteArray("=")}) {
        const QByteArray text = "[A]\nk=1\n" + line.repeated(kSize / line.size());
        const qint64 before = residentBytes();
        QElapsedTimer timer;
        timer.start();
        IniFile file = IniFile::parse(viewOf(text));
        EXPECT_EQ(file.value("A", "k", "none", 9), "1");
        EXPECT_EQ(file.value("B", "k", "none", 9), "none");
        EXPECT_TRUE(file.numberedKeys("A", 0, 9).empty());
        EXPECT_LT(residentBytes() - before, 6 * kSize) << line.toStdString();
        EXPECT_LT(timer.elapsed(), 5000) << line.toStdString();
    }
}

TEST(IniFile, ManyChangesTakeTimeInStepWithTheirNumber) {
    constexpr int kMany = 30'000;
    QByteArray text = "[A]\n";
    for (int i = 0; i < kMany; ++i) text += QByteArray::number(i) + "=x\n";
    IniFile file = IniFile::parse(viewOf(text));
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < kMany; ++i) {
        const QString key = QString::number(i);
        if (i % 3 == 0) file.removeKey("A", key);
        if (i % 3 == 1) file.setValue("A", key, "y");
        file.setValue("A", "new" + key, "z");
        file.setValue(key, "a", "b");
        if (i % 2 == 0) file.removeSection(key);
    }
    const IniFile read = IniFile::parse(viewOf(file.toBytes()));
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(read.numberedKeys("A", 0, kMany).size(), kMany * 2U / 3);
    EXPECT_EQ(read.value("A", "1", "none", 9) + read.value("A", "new9", "none", 9), "yz");
    EXPECT_TRUE(read.hasKeys("1") && !read.hasKeys("2"));
}

TEST(IniFile, WhatCannotBeReadIsNotOverwritten) {
    QTemporaryDir dir;
    IniFile file = IniFile::load(dir.path());
    EXPECT_EQ(file.problem(), "it is not a plain file");
    EXPECT_TRUE(IniFile::load(dir.filePath("none")).problem().isEmpty());
    file.setValue("A", "k", "1");
    EXPECT_FALSE(file.saveOrTell(dir.filePath("a"), "The settings"));
    EXPECT_TRUE(notices().back().text.contains("what it holds cannot be read (it is not a plain file)"));
    EXPECT_FALSE(QFile::exists(dir.filePath("a")));
}

} // namespace
} // namespace vistor
