#include "instruments/frmProperties.h"

#include "platform/IniFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

QStringList rowsOf(const frmProperties& window) {
    QStringList rows;
    const auto* grid = window.findChild<QTableWidget*>("grdProperties");
    for (int row = 0; row < grid->rowCount(); ++row)
        rows << grid->item(row, 0)->text() + '=' + grid->item(row, 1)->text();
    return rows;
}

TEST(frmProperties, ShowsVariablesAndLabels) {
    const QTemporaryDir folder;
    SettingsPath = folder.filePath("vxvis.cfg");
    frmProperties window(nullptr);
    PinTable pins;
    window.DisplayData({"Mode"}, {"Bitwise"}, pins, "LED");
    EXPECT_EQ(window.windowTitle(), "Properties - LED");
    EXPECT_EQ(rowsOf(window), (QStringList{"Variable(s)=-", "Mode=Bitwise"}));
    pins.assign(1, "EngineSpeed");
    pins.assign(3, "OilTemp");
    window.DisplayData({"Mode"}, {"Bitwise"}, pins, "LED");
    EXPECT_EQ(rowsOf(window), (QStringList{"Variable(s)=", "1=EngineSpeed", "3=OilTemp", "Mode=Bitwise"}));
    PinTable tracks(PinTable::kGraphColumns);
    tracks.assign(1, "Time", 0);
    tracks.assign(2, "Speed", 1);
    window.DisplayGraphData({"Grid", "lost"}, {"NoGrid"}, tracks, "XY Graph");
    EXPECT_EQ(rowsOf(window), (QStringList{"Variable(s)=", "1 X=Time", "2 Y=Speed", "Grid=NoGrid"}));
    window.DisplayTextData({"Text"}, {"Oil"}, "Text Tag");
    EXPECT_EQ(rowsOf(window), QStringList{"Text=Oil"});
    const auto* grid = window.findChild<QTableWidget*>();
    const int narrow = grid->columnWidth(0);
    window.DisplayTextData({"A label of quite another length"}, {"Oil"}, "Text Tag");
    EXPECT_GT(grid->columnWidth(0), 2 * narrow) << "no label is cut off";
    window.ClearAll();
    EXPECT_EQ(rowsOf(window), QStringList());
}

TEST(frmProperties, KeepsItsPlaceAndStartsOnTheScreen) {
    const QTemporaryDir folder;
    SettingsPath = folder.filePath("vxvis.cfg");
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    {
        const frmProperties window(nullptr);
        EXPECT_EQ(window.size(), QSize(217, 185));
        EXPECT_TRUE(screen.contains(window.geometry()));
        window.Form_Unload();
    }
    const auto key = [](const char* name) {
        return readIniValue(SettingsPath, "VXVISTOR", QLatin1String(name), "?", 20);
    };
    EXPECT_EQ(key("PROPERTYWINDOWWIDTH"), "3255");
    EXPECT_EQ(key("PROPERTYWINDOWHEIGHT"), "2775");
    const struct {
        const char* left;
        const char* width;
        QRect place;
    } cases[] = {{"1500", "4500", {100, 50, 300, 185}},
                 {"-99999999", "4500", {screen.left(), 50, 300, 185}},
                 {"99999999", "4500", {screen.right() + 1 - 300, 50, 300, 185}},
                 {"0", "1e30", {screen.left(), 50, screen.width(), 185}},
                 {"x", "-5", {screen.left(), 50, 120, 185}}};
    for (const auto& c : cases) {
        writeIniValue(SettingsPath, "VXVISTOR", "PROPERTYWINDOWLEFT", QLatin1String(c.left));
        writeIniValue(SettingsPath, "VXVISTOR", "PROPERTYWINDOWTOP", "750");
        writeIniValue(SettingsPath, "VXVISTOR", "PROPERTYWINDOWWIDTH", QLatin1String(c.width));
        EXPECT_EQ(frmProperties(nullptr).geometry(), c.place) << c.left;
    }
}

} // namespace
} // namespace vistor
