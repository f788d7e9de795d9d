#include "dashboard/CustomLibrary.h"

#include "dashboard/Thumbnails.h"
#include "platform/IniFile.h"
#include "platform/Scratch.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr Kind kLed = Kind::Led;

QStringList keysOf(const IniFile& file, Kind kind) {
    QStringList keys;
    for (const CustomEntry& entry : customEntries(file, kind))
        keys += QString::number(entry.number) + entry.key;
    return keys;
}

TEST(CustomLibrary, NamesBecomeKeysThatTheFileCanHold) {
    const std::pair<QString, QString> cases[] = {
        {"Oil Lamp", "coil lamp"},
        {"  x  ", "cx"},
        {"", ""},
        {" \n", ""},
        {"two\r\nlines", "ctwo  lines"},
        {QStringLiteral("\u03A9\u20AC"), QStringLiteral("c\u03C9\u20AC")},
        {QString(300, u'N'), u'c' + QString(48, u'n')},
        {QStringLiteral("a\0b").leftJustified(3, u'x'), "ca"},
    };
    for (const auto& [name, key] : cases) EXPECT_EQ(customKey(kLed, name), key) << name.toStdString();
    EXPECT_EQ(customKey(Kind::TextTag, "X"), "hx");
}

TEST(CustomLibrary, AnEntryIsWrittenUnderItsKeysAndReadBack) {
    IniFile file;
    addCustomEntry(file, kLed, "coil", {"3000", "3000", "a=b", ""}, 2, "one.bmp");
    EXPECT_EQ(file.toBytes(),
              "[VXLED]\r\nCNT=1\r\ncoil=1\r\n1=coil\r\n[VXLED_MEM]\r\n1=2\r\n"
              "[VXLED_FILE]\r\n1=one.bmp\r\n[VXLED/1]\r\n0=3000\r\n1=3000\r\n2=a=b\r\n3=\r\n");
    EXPECT_EQ(customNumber(file, kLed, "coil"), 1);
    EXPECT_EQ(customNumber(file, kLed, "c"), 0);
    EXPECT_EQ(customNumber(file, Kind::LinearGauge, "coil"), 0);
    EXPECT_EQ(customList(file, kLed, 1), QStringList({"3000", "3000", "a=b"}));
    EXPECT_EQ(customList(file, kLed, 2), QStringList("0"));
    EXPECT_EQ(customThumbnail(file, kLed, 1), "one.bmp");
    EXPECT_TRUE(customEntries(IniFile(), kLed).empty());
}

TEST(CustomLibrary, DeletingMovesTheOthersUp) {
    IniFile file;
    addCustomEntry(file, kLed, "cone", {"11", "12", "13"}, 2, "1.bmp");
    addCustomEntry(file, kLed, "ctwo", {"21", "22", "23", "24", "25"}, 4, "2.bmp");
    addCustomEntry(file, kLed, "cthree", {"31", "32"}, 1, "3.bmp");
    addCustomEntry(file, Kind::LinearGauge, "done", {"1"}, 0, "d.bmp");
    removeCustomEntry(file, kLed, {2, "ctwo"});
    EXPECT_EQ(file.value("VXLED", "CNT", {}, 50), "2");
    EXPECT_EQ(keysOf(file, kLed), QStringList({"1cone", "2cthree"}));
    EXPECT_EQ(file.value("VXLED", "cthree", {}, 50), "2");
    EXPECT_EQ(file.value("VXLED", "ctwo", "gone", 50), "gone");
    EXPECT_EQ(customList(file, kLed, 2), QStringList({"31", "32"}));
    EXPECT_EQ(file.keys("VXLED/2").size(), 2) << "nothing of the longer list is left";
    EXPECT_EQ(customThumbnail(file, kLed, 2), "3.bmp");
    for (const char* section : {"VXLED/3", "VXLED_MEM", "VXLED_FILE", "VXLED"})
        EXPECT_FALSE(file.keys(QLatin1String(section)).contains("3")) << section;
    EXPECT_TRUE(file.keys("VXLED/3").isEmpty());
    EXPECT_EQ(customNumber(file, Kind::LinearGauge, "done"), 1);
    removeCustomEntry(file, kLed, {2, "cthree"});
    removeCustomEntry(file, kLed, {1, "cone"});
    EXPECT_EQ(file.value("VXLED", "CNT", {}, 50), "0");
    EXPECT_TRUE(customEntries(file, kLed).empty());
}

/// "nt" makes the count's own key, "a=1" reads as "a".
TEST(CustomLibrary, NamesThatReadAsOtherKeysKeepTheirEntries) {
    IniFile file;
    const QStringList names = {"nt", "a=1", "a", "b[c]", ";d", "1"};
    for (const QString& name : names)
        addCustomEntry(file, kLed, customKey(kLed, name), {name}, 0, name + ".bmp");
    const IniFile read = IniFile::parse(file.toBytes().toStdString());
    ASSERT_EQ(customEntries(read, kLed).size(), std::size_t(names.size()));
    for (const QString& name : names) {
        const int number = customNumber(read, kLed, customKey(kLed, name));
        EXPECT_EQ(number, names.indexOf(name) + 1) << name.toStdString();
        EXPECT_EQ(customList(read, kLed, number), QStringList(name));
    }
    removeCustomEntry(file, kLed, {1, "cnt"});
    EXPECT_EQ(keysOf(file, kLed), QStringList({"1ca=1", "2ca", "3cb[c]", "4c;d", "5c1"}));
    EXPECT_EQ(customNumber(file, kLed, "ca"), 2);
}

TEST(CustomLibrary, ForgedCountsAndMissingPartsLeaveWhatCanBeUsed) {
    struct Case {
        const char* text;
        QStringList entries;
    };
    const Case cases[] = {
        {"[VXLED]\nCNT=1999999999\n1=cone\n3=cthree\n", {"1cone", "3cthree"}},
        {"[VXLED]\nCNT=1\n1=cone\n2=ctwo\n", {"1cone"}},
        {"[VXLED]\nCNT=-5\n1=cone\n", {}},
        {"[VXLED]\nCNT=x\n1=cone\n", {}},
        {"[VXLED]\n1=cone\n", {}},
        {"[VXLED]\nCNT=4\n1=awrong\n2=\n3=c\n4=cfour\n", {"4cfour"}},
        {"[VXLED]\nCNT=1e99\n2000000000=cfar\n1=cone\n", {"1cone"}},
    };
    for (const Case& c : cases) {
        IniFile file = IniFile::parse(c.text);
        EXPECT_EQ(keysOf(file, kLed), c.entries) << c.text;
        addCustomEntry(file, kLed, "cnew", {"9"}, 0, "n.bmp");
        EXPECT_EQ(keysOf(file, kLed).size(), c.entries.size() + 1) << "what stood there stays: " << c.text;
        EXPECT_EQ(customList(file, kLed, customNumber(file, kLed, "cnew")), QStringList("9"));
    }
    const IniFile greedy = IniFile::parse("[VXLED]\nCNT=1\n1=cone\n[VXLED_MEM]\n1=1999999999\n");
    EXPECT_LT(customList(greedy, kLed, 1).size(), 10000);
}

TEST(Thumbnails, OnlyBitmapsInsideTheirFolderAreReadOrDeleted) {
    QTemporaryDir root;
    WorkingFolder = root.path() + u'/';
    const QDir folder(scratchFolder(WorkingFolder));
    folder.mkpath("inner.bmp");
    folder.mkpath("x");
    ASSERT_TRUE(QFile::link(root.filePath("out.bmp"), folder.filePath("link.bmp")));
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(root.filePath("out.bmp"), "BMP"));
    for (const char* name : {"in.bmp", "Big.BMP", ".hidden.bmp"})
        ASSERT_TRUE(image.save(folder.filePath(QLatin1String(name)), "BMP"));
    QFile(folder.filePath("vistor")).open(QIODevice::WriteOnly);
    QFile text(folder.filePath("text.bmp"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    ASSERT_TRUE(QImage(5000, 4, QImage::Format_RGB32).save(folder.filePath("wide.bmp"), "BMP"));

    EXPECT_EQ(loadThumbnail("in.bmp").size(), QSize(20, 10));
    const QStringList bad = {"",
                             "0",
                             "../../out.bmp",
                             "x/../../../out.bmp",
                             root.filePath("out.bmp"),
                             "..\\out.bmp",
                             "vistor",
                             ".hidden.bmp",
                             "absent.bmp",
                             "link.bmp",
                             "inner.bmp"};
    for (const QString& name : bad) {
        EXPECT_TRUE(loadThumbnail(name).isNull()) << name.toStdString();
        deleteThumbnail(name);
    }
    EXPECT_TRUE(loadThumbnail("text.bmp").isNull());
    EXPECT_TRUE(loadThumbnail("wide.bmp").isNull());
    EXPECT_TRUE(QFile::exists(root.filePath("out.bmp")));
    for (const char* name : {"inner.bmp", "vistor", ".hidden.bmp", "link.bmp"})
        EXPECT_TRUE(folder.exists(QLatin1String(name))) << name;
    deleteThumbnail("in.bmp");
    deleteThumbnail("Big.BMP");
    EXPECT_FALSE(QFile::exists(folder.filePath("in.bmp")));
    EXPECT_FALSE(QFile::exists(folder.filePath("Big.BMP")));
    deleteScratchFolder();
}

} // namespace
} // namespace vistor
