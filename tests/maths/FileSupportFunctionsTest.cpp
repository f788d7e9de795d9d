#include "maths/FileSupportFunctions.h"

#include "variables/GlobalVarsAndTypes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(FileSupportFunctions, PathsAreCleanedAndFound) {
    QTemporaryDir dir;
    const QString full = dir.filePath("two words.cfg");
    const QString empty = dir.filePath("empty.cfg");
    put(full, "x");
    put(empty, {});
    const QString nul(QChar(u'\0'));
    struct Case {
        QString path;
        QString cleaned;
        bool isPath;
        bool isFile;
    };
    const Case cases[] = {
        {full, full, true, true},
        {"\"" + full + "\"", full, true, true},
        {"  \" " + full + " \"  " + nul + "tail", full, true, true},
        {empty, empty, true, false},
        {dir.path(), dir.path(), true, false},
        {dir.path() + "/", dir.path() + "/", true, false},
        {dir.filePath("none"), dir.filePath("none"), false, false},
        {full + "\n", full + "\n", false, false},
        {" \" \" ", "", false, false},
        {nul + full, "", false, false},
        {"", "", false, false},
    };
    for (const Case& c : cases) {
        QString asPath = c.path;
        QString asFile = c.path;
        EXPECT_EQ(PathExists(asPath), c.isPath) << qPrintable(c.path);
        EXPECT_EQ(FileExists(asFile), c.isFile) << qPrintable(c.path);
        EXPECT_EQ(asPath, c.cleaned);
        EXPECT_EQ(asFile, c.cleaned);
    }
}

TEST(FileSupportFunctions, ConfigValuesAreReadInPairs) {
    QTemporaryDir dir;
    const QString path = dir.filePath("Car.cfg");
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"CARMASS,1250\r\n", 1250},
        {"CARMASS\n1250\n", 1250},
        {"CARMASS,1250", 1250},
        {"A,1\r\n\r\n  CARMASS , 7.5 \r\n", 7.5},
        {"\"CARMASS\",\"1,250.5\"\n", 1250.5},
        {"CARMASS,1\nCARMASS,2\n", 1},
        {"carmass,5\nCARMASSX,6\n", 0},
        {"1,CARMASS\n5,6\n", 0},    // a value is no key
        {"CARMASS,\nOTHER,9\n", 0}, // an empty value does not take the next line
        {"A,2\nCARMASS", 0},
        {"\"CARMASS", 0},
        {"CARMASS,-1.5E2", -150},
        {",,,,\n,", 0},
    };
    for (const Case& c : cases) {
        put(path, c.text);
        EXPECT_EQ(ReadConfigValue(path, "CARMASS"), c.value) << c.text;
    }
    DecimalSeparator = ",";
    put(path, "CARMASS,\"1,5\"");
    EXPECT_EQ(ReadConfigValue(path, "CARMASS"), 1.5);
}

TEST(FileSupportFunctions, MissingConfigFileIsMadeEmpty) {
    QTemporaryDir dir;
    const QString path = dir.filePath("Car.cfg");
    EXPECT_EQ(ReadConfigValue(path, "CARMASS"), 0);
    EXPECT_TRUE(PathExists(QString(path)));
    EXPECT_FALSE(FileExists(QString(path)));
    EXPECT_EQ(ReadConfigValue(dir.filePath("no/such/Car.cfg"), "CARMASS"), 0);
    EXPECT_EQ(ReadConfigValue(dir.path(), "CARMASS"), 0);
}

TEST(FileSupportFunctions, UserDataFolderFollowsTheEnvironment) {
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    const QByteArray home = qgetenv("HOME");
    qputenv("XDG_CONFIG_HOME", "/data/settings");
    EXPECT_EQ(GetUserDataFolder(), "/data/settings/Kelvane/");
    qunsetenv("XDG_CONFIG_HOME");
    qputenv("HOME", "/people/ann");
    EXPECT_EQ(GetUserDataFolder(), "/people/ann/.config/Kelvane/");
    qunsetenv("HOME");
    EXPECT_EQ(GetUserDataFolder(), "");
    qputenv("HOME", home);
    if (!config.isNull()) qputenv("XDG_CONFIG_HOME", config);
}

} // namespace
} // namespace vistor
