#include "dashboard/frmOptions.h"

#include "dashboard/WindowSettings.h"
#include "dashboard/frmInterface.h"
#include "instruments/ColourBox.h"
#include "instruments/Colours.h"
#include "instruments/Instrument.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class FrmOptionsTest : public testing::Test {
protected:
    FrmOptionsTest() {
        SettingsPath = folder.filePath("vxvis.cfg");
        dashboard.Form_Load();
    }
    template <typename Widget = QAbstractButton>
    static Widget* find(frmOptions& options, const char* name) {
        return options.findChild<Widget*>(QLatin1String(name));
    }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface dashboard;
};

TEST_F(FrmOptionsTest, OkHandsEverythingOutAndKeepsIt) {
    prompts.inputs = {QStringLiteral("Two"), QStringLiteral("Three")};
    dashboard.mnuNewTab_Click();
    dashboard.mnuNewTab_Click();
    frmOptions options(dashboard, nullptr);
    options.show();
    auto* size = find<QLineEdit>(options, "txtGridSize");
    EXPECT_EQ(size->text(), "80");
    size->selectAll();
    QTest::keyClicks(size, "1x2+0");
    EXPECT_EQ(size->text(), "120") << "other keys are not taken";
    QTest::keyClick(find(options, "chkShowGrid"), Qt::Key_Space);
    prompts.colours = {0x112233, std::nullopt};
    find(options, "picBackColour")->click();
    find(options, "picLabelColour")->click(); // given up
    find(options, "cmdResetLabelColour")->click();
    QTest::keyClick(size, Qt::Key_Return);
    EXPECT_FALSE(options.isVisible());
    EXPECT_EQ(dashboard.GridSize, 120);
    EXPECT_EQ(dashboard.ShowGrid, 0);
    EXPECT_EQ(dashboard.SnapToGrid, 1);
    EXPECT_EQ(dashboard.CurBackColour, 0x112233);
    EXPECT_EQ(dashboard.CurLabelColour, 0);
    EXPECT_FALSE(dashboard.pic[0]->hasDrawing());
    EXPECT_TRUE(dashboard.pic[1]->hasDrawing()) << "the others keep their dots until their next redraw";
    const WindowSettings stored = readWindowSettings(IniFile::load(SettingsPath));
    EXPECT_EQ(stored.gridSize, 120);
    EXPECT_EQ(stored.showGrid, 0);
    EXPECT_EQ(stored.backColour, 0x112233);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(FrmOptionsTest, AWrongSizeKeepsTheWindowAndCancelKeepsNothing) {
    frmOptions options(dashboard, nullptr);
    options.show();
    auto* size = find<QLineEdit>(options, "txtGridSize");
    for (const char* wrong : {"0", "1001", "-3", "", "."}) {
        size->setText(QLatin1String(wrong));
        QTest::keyClick(size, Qt::Key_Return);
        EXPECT_EQ(prompts.takeWords(), QStringList("Please enter valid grid size")) << wrong;
        EXPECT_EQ(prompts.messages.back().icon, Icon::Notice);
        EXPECT_TRUE(options.isVisible());
    }
    size->setText(QStringLiteral("500"));
    find(options, "cmdResetBackColour")->click();
    EXPECT_EQ(find<ColourBox>(options, "picBackColour")->colour(), kButtonFaceColour);
    QTest::keyClick(&options, Qt::Key_Escape);
    EXPECT_EQ(dashboard.GridSize, 80);
    EXPECT_FALSE(QFile::exists(SettingsPath));
}

TEST_F(FrmOptionsTest, AGridOfEveryPitchIsDrawnWithoutDelay) {
    Page page(0, nullptr);
    page.resize(1600, 900);
    for (const int pitch : {1, 15, 16, 80, 1000, 32767}) {
        page.drawGrid(pitch);
        QElapsedTimer watch;
        watch.start();
        const QImage picture = page.grab().toImage();
        EXPECT_LT(watch.elapsed(), 250) << pitch; // a dot at a time would take seconds at the finest
        for (const int line : {1, 2, 5}) {
            const QPoint dot(qRound(line * pitch / 15.0), qRound(line * pitch / 15.0));
            if (!picture.rect().contains(dot)) continue;
            EXPECT_EQ(picture.pixelColor(dot), QColor(Qt::black)) << pitch;
        }
        const bool full = pitch <= 15;
        EXPECT_EQ(picture.pixelColor(8, 0) == QColor(Qt::black), full) << pitch;
    }
}

} // namespace
} // namespace vistor
