#include "platform/IniFile.h"

#include "platform/CodePage.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

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
    EXPECT_EQ(file.toBytes(),
              "; mine\r\n[One]\r\nB=9\r\nodd line\r\nc=3\r\n\r\n[Two]\r\na=2\r\n[Three]\r\nd=4\r\n");
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
    EXPECT_EQ(file.toBytes(), "[A]\r\na=1=y\r\na = b = c = 2\r\nx=y=\"\"q\"\"\r\n");
    EXPECT_EQ(file.value("A", "x=y", "none", 200), "\"q\"");
    file.removeKey("A", "a=1");
    EXPECT_EQ(file.value("A", "a", "none", 200), "b = c = 2");
    for (const char* unreadable : {"", " ", "[A]", ";k"}) file.setValue("A", QLatin1String(unreadable), "1");
    EXPECT_EQ(file.toBytes(), "[A]\r\na = b = c = 2\r\nx=y=\"\"q\"\"\r\n");
}

TEST(IniFile, TakesKeysAndSectionsOut) {
    IniFile file = IniFile::parse("k=0\n[A]\n;k=1\nK=1\nl=2\nk=3\n\n[B]\nk=4\n[a]\nk=5\nm=6\n");
    file.removeKey("a", "k");
    file.removeKey("a", "absent");
    file.removeKey("absent", "k");
    EXPECT_EQ(file.value("A", "k", "none", 200), "none");
    EXPECT_EQ(file.value("A", "l", "none", 200), "2");
    EXPECT_EQ(file.toBytes(), "k=0\r\n[A]\r\n;k=1\r\nl=2\r\n\r\n[B]\r\nk=4\r\n[a]\r\nm=6\r\n");
    file.removeSection("A");
    file.removeSection("absent");
    file.removeSection("");
    EXPECT_EQ(file.toBytes(), "k=0\r\n[B]\r\nk=4\r\n");
    EXPECT_EQ(file.value("A", "m", "none", 200), "none");
    EXPECT_EQ(file.keyCount(), 1);
    file.setValue("A", "n", "7");
    EXPECT_EQ(file.keys("a"), QStringList("n"));
    EXPECT_EQ(file.toBytes(), "k=0\r\n[B]\r\nk=4\r\n[A]\r\nn=7\r\n");
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

TEST(CodePage, EveryByteSurvives) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(toCodePage(fromCodePage(all)).toStdString(), all);
    EXPECT_EQ(fromCodePage("\x80"), QStringLiteral("\u20AC"));
    EXPECT_EQ(toCodePage(QStringLiteral("\u03A9\U0001F600x")), "??x");
}

} // namespace
} // namespace vistor
