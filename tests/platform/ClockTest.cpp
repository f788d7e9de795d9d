#include "platform/Clock.h"

#include "acquisition/AcquisitionTick.h"
#include "platform/IniFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(Clock, RunsOnFromTheStartOfPlayPastMidnightAndWhateverIsSet) {
    struct Case {
        const char* kept; ///< behind "MIDNIGHT"
        double day, expected;
    };
    const Case cases[] = {
        {"", 10, 86404.5},      // past midnight
        {"no", 10, 86404.5},    //
        {"", 82800, 86404.5},   // summer time ended
        {"", 86399.9, 86404.5}, // the clock was set back
        {"wrap", 10, 10},       // the old reckoning
        {"WRAP", 82800, 82800},
    };
    QTemporaryDir dir;
    SettingsPath = dir.filePath(QStringLiteral("vxvis.cfg"));
    for (const Case& c : cases) {
        double day = 86399.5;
        double steady = 7;
        setClock([&day] { return day; }, [&steady] { return steady; });
        EXPECT_EQ(Timer(), 86399.5) << "that of the day, before anything is played";
        writeIniValue(SettingsPath, QStringLiteral("VXVISTOR"), QStringLiteral("MIDNIGHT"),
                      QLatin1String(c.kept));
        startPlayClock();
        EXPECT_EQ(Timer(), 86399.5);
        steady += 5;
        day = c.day;
        EXPECT_EQ(Timer(), c.expected) << c.kept << ' ' << c.day;
        EXPECT_EQ(steadySeconds(), 12);
    }
    setClock({});
}

TEST(Clock, TheMachinesOwnClocksGoOn) {
    startClock(false);
    const double before = Timer();
    const double steady = steadySeconds();
    EXPECT_GE(before, 0);
    EXPECT_LE(before, 86400);
    while (steadySeconds() < steady + 0.002) {
    }
    EXPECT_GE(Timer(), before + 0.0019);
    EXPECT_LT(Timer(), before + 10);
    setClock({});
}

} // namespace
} // namespace vistor
