#include "maths/ConfigPairs.h"

#include "platform/CodePage.h"
#include "variables/GlobalVarsAndTypes.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

double numberBehind(const QByteArray& file, const char* key) {
    for (const ConfigPair& pair : configPairs(unmarked(file)))
        if (pair.key == QLatin1String(key)) return pair.number;
    return -1;
}

QByteArray wide(const char* text) {
    QByteArray bytes("\xFF\xFE");
    for (const char* c = text; *c; ++c) bytes += QByteArray(c, 1) + '\0';
    return bytes;
}

TEST(ConfigPairs, NothingBesideAPairShiftsIt) {
    const QByteArray files[] = {
        "MASS,2,5\nNEXT,7",
        "\xEF\xBB\xBFMASS,2.5\r\nNEXT,7\r\n",
        wide("MASS,2.5\r\nNEXT,7\r\n"),
        "# the car\nMASS,2.5 # with driver\n; more\nNEXT,7 // end\n",
        "The car\nMASS,2.5\nlast year, the other\nNEXT,7\n",
        "\"MASS\",\"2,5\"\n\n\"NEXT\", 7 kg\n",
        "MASS\n2,5\nNEXT\n7\n",
        "MASS,2.5,NEXT,7",
        "MASS,2,5,NEXT,7",
        "LOST,\nMASS,2.5\rNEXT,7\r",
        "'really', see \"MASS\n MASS , 2.5 m2\n\tNEXT\t,7E0",
    };
    for (const char* mark : {".", ",", ""}) {
        DecimalSeparator = QLatin1String(mark);
        for (const QByteArray& file : files) {
            EXPECT_EQ(numberBehind(file, "MASS"), 2.5) << file.toStdString() << mark;
            EXPECT_EQ(numberBehind(file, "NEXT"), 7) << file.toStdString() << mark;
        }
    }
}

TEST(ConfigPairs, AChangedNumberLeavesAllElseToTheByte) {
    const struct {
        QByteArray before;
        QByteArray after;
    } cases[] = {
        {"# mine\r\nMASS , 900 kg ; wet\r\nX,\"\xE4\"\r\n",
         "# mine\r\nMASS , 812.5 kg ; wet\r\nX,\"\xE4\"\r\n"},
        {"\"MASS\",\"9,5\"", "\"MASS\",\"812.5\""},
        {"MASS,9,5\nMASS,3\n", "MASS,812.5\nMASS,3\n"},
        {"MASS\n900\n", "MASS\n812.5\n"},
        {"", "MASS,812.5\n"},
        {"A,1\r\nMASS,", "A,1\r\nMASS,\r\nMASS,812.5\r\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(withConfigNumber(c.before, QStringLiteral("MASS"), 812.5), c.after);
        EXPECT_EQ(numberBehind(c.after, "MASS"), 812.5) << c.after.toStdString();
    }
}

} // namespace
} // namespace vistor
