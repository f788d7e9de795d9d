#include "acquisition/FrmSelectInput.h"

#include "acquisition/DataSource.h"
#include "platform/IniFile.h"
#include "tests/PseudoTerminal.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(DataSourceWords, EachMissingSourceIsToldInItsWords) {
    ScriptedPrompts prompts;
    struct Case {
        const char* descriptor;
        const char* words;
        Icon icon;
        float timeBase;
    };
    const Case cases[] = {{"", "No data source has been specified", Icon::Information, kLiveTimeBase},
                          {",1", "No data source has been specified", Icon::Information, kLiveTimeBase},
                          {"TCP,1", "No data source has been specified", Icon::Information, kLiveTimeBase},
                          {"GSM,1,9600,5", "Not yet implemented", Icon::None, kLiveTimeBase}};
    for (const Case& c : cases) {
        DataSourceDescriptor = QString::fromLatin1(c.descriptor);
        EXPECT_FALSE(OpenDataSource());
        EXPECT_EQ(prompts.messages.back().icon, c.icon) << c.descriptor;
        EXPECT_EQ(TimeBase, c.timeBase) << c.descriptor;
        std::vector<std::uint8_t> bytes;
        ReadDataSource(bytes);
        EXPECT_EQ(prompts.takeWords(), QStringList({c.words, c.words})) << c.descriptor;
    }
    for (const char* silent : {"SER,77,9600", "SER", "FIL", "FIL,/no/such.run"}) {
        DataSourceDescriptor = QString::fromLatin1(silent);
        EXPECT_FALSE(OpenDataSource());
    }
    EXPECT_TRUE(prompts.takeWords().isEmpty());
}

class FrmSelectInputTest : public testing::Test {
protected:
    FrmSelectInputTest() {
        SettingsPath = dir.filePath(QStringLiteral("vxvis.cfg"));
        for (int port = 1; port <= 16; ++port) useDevice(port, QStringLiteral("/dev/none"));
    }
    static void useDevice(int port, const QString& device) {
        writeIniValue(SettingsPath, QStringLiteral("PORTS"), QString::number(port), device);
    }
    void open() {
        window.show();
        ASSERT_TRUE(QTest::qWaitFor([&] {
            return window.windowTitle() == QStringLiteral("Select data source") && window.isEnabled() &&
                   shown();
        }));
    }
    bool shown() {
        QTest::qWait(50); // the ports are tried behind the first show
        return true;
    }
    template <typename Widget>
    Widget* child(const char* name) {
        return window.findChild<Widget*>(QLatin1String(name));
    }
    void click(const char* name) { QTest::mouseClick(child<QWidget>(name), Qt::LeftButton); }

    QTemporaryDir dir;
    ScriptedPrompts prompts;
    FrmSelectInput window;
};

TEST_F(FrmSelectInputTest, ListsThePortsThatOpenAndChoosesTheOneInUse) {
    const PseudoTerminal first;
    const PseudoTerminal second;
    useDevice(3, first.device());
    useDevice(12, second.device());
    DataSourceDescriptor = QStringLiteral("SER,12,57600");
    open();
    auto* ports = child<QComboBox>("PortNumberCombo");
    ASSERT_EQ(ports->count(), 2);
    EXPECT_EQ(ports->itemText(0), "Port 3");
    EXPECT_EQ(ports->itemData(0, Qt::ToolTipRole).toString(), first.device());
    EXPECT_EQ(ports->currentText(), "Port 12");
    EXPECT_EQ(child<QComboBox>("SerialSpeedCmbo")->currentText(), "57600");
    EXPECT_EQ(child<QComboBox>("SerialSpeedCmbo")->count(), 8);
    EXPECT_TRUE(prompts.takeWords().isEmpty());
    ports->setCurrentIndex(0);
    click("OkCmd");
    EXPECT_EQ(DataSourceDescriptor, "SER,3,57600");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmSelectInputTest, ChoosesAFileWhenThereIsNoPort) {
    open();
    EXPECT_EQ(prompts.takeWords(), QStringList{"Cannot find any accessible serial ports!"});
    EXPECT_FALSE(child<QWidget>("SetNewFileCmd")->isEnabled());
    EXPECT_TRUE(child<QWidget>("SerialSpeedCmbo")->isEnabled());
    child<QRadioButton>("InputSelectorOption1")->click();
    EXPECT_TRUE(child<QWidget>("SetNewFileCmd")->isEnabled());
    EXPECT_FALSE(child<QWidget>("SerialSpeedCmbo")->isEnabled());
    prompts.files = {QStringLiteral("/runs/a.run")};
    click("SetNewFileCmd");
    ASSERT_EQ(prompts.fileRequests.size(), 1U);
    EXPECT_EQ(prompts.fileRequests[0].title, "Import file as data source");
    EXPECT_EQ(prompts.fileRequests[0].filter, "Run analysis files (*.run )|*.run|Show All Files (*.*)|*.*");
    QTest::keyClicks(child<QLineEdit>("FileNameTxt"), QStringLiteral("x"));
    click("OkCmd");
    EXPECT_EQ(DataSourceDescriptor, "FIL,/runs/a.runx");
}

TEST_F(FrmSelectInputTest, ShowsAFileAndAModem) {
    DataSourceDescriptor = QStringLiteral("FIL,/runs/b,c.run");
    open();
    EXPECT_TRUE(child<QRadioButton>("InputSelectorOption1")->isChecked());
    EXPECT_EQ(child<QLineEdit>("FileNameTxt")->text(), "/runs/b,c.run");
    child<QRadioButton>("InputSelectorOption0")->click();
    EXPECT_FALSE(child<QWidget>("GsmTelephoneNumber")->isEnabled());
    child<QCheckBox>("UseGsmCheck")->click();
    QTest::keyClicks(child<QLineEdit>("GsmTelephoneNumber"), QStringLiteral("0123"));
    click("OkCmd");
    EXPECT_EQ(DataSourceDescriptor, "GSM,0,115200,0123");
    window.close();
}

TEST_F(FrmSelectInputTest, CancelChangesNothing) {
    DataSourceDescriptor = QStringLiteral("FIL,/a.run");
    open();
    QTest::keyClicks(child<QLineEdit>("FileNameTxt"), QStringLiteral("zzz"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(DataSourceDescriptor, "FIL,/a.run");
}

} // namespace
} // namespace vistor
