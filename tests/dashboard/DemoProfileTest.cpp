// The delivered demo dashboard: what it shows, and that it is as the program writes it.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "maths/VariableFiles.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr QRect kSmallestPage(0, 0, 1090, 630); ///< what a screen of 1366 by 768 leaves of a page

class DemoProfileTest : public testing::Test {
protected:
    DemoProfileTest() {
        SettingsPath = folder.filePath("vxvis.cfg");
        loadVariables(QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/VistorVars.cfg"));
        window.Form_Load();
        window.LoadProfileFile(kDemo);
        for (const InstrumentElement& element : window.instruments.all())
            if (element.number != 0) placed.push_back(element.instrument.get());
    }
    /// A file's lines without those of the window's size.
    static QList<QByteArray> linesOf(const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return {};
        QList<QByteArray> lines = file.readAll().split('\n');
        lines.removeIf(
            [](const QByteArray& line) { return line.startsWith("WIDTH") || line.startsWith("HEIGHT"); });
        return lines;
    }
    /// Its place and what it shows, for a person who reads of a failure.
    static std::string nameOf(const Instrument& instrument) {
        return QStringLiteral("%1 of %2 at %3, %4")
            .arg(QLatin1String(kindInfo(instrument.kind()).className), instrument.curVarTable().at(1))
            .arg(instrument.x())
            .arg(instrument.y())
            .toStdString();
    }

    const QString kDemo = QStringLiteral(VISTOR_SOURCE_DIR "/OtherFiles/demo.vis");
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface window;
    std::vector<const Instrument*> placed;
};

TEST_F(DemoProfileTest, ShowsEveryKindOnPagesThatFitASmallScreen) {
    QSet<int> kinds;
    for (const Instrument* one : placed) {
        kinds.insert(int(one->kind()));
        EXPECT_TRUE(kSmallestPage.contains(one->geometry())) << nameOf(*one);
        for (const Instrument* other : placed)
            EXPECT_FALSE(one != other && pageOf(*one) == pageOf(*other) &&
                         one->geometry().adjusted(1, 1, -1, -1).intersects(other->geometry()))
                << nameOf(*one) << " lies on " << nameOf(*other);
    }
    EXPECT_EQ(kinds.size(), qsizetype(kInstrumentKinds.size()));
}

TEST_F(DemoProfileTest, PinsNameDeliveredVariables) {
    for (const Instrument* one : placed) {
        const PinTable pins = one->curVarTable();
        for (int column = 0; column < pins.nameColumns(); ++column)
            for (int pin = 1; pin <= pins.upperBound(); ++pin)
                EXPECT_NE(FindVariableByPhysicalName(pins.at(pin, column)), kNoVariable) << nameOf(*one);
        EXPECT_TRUE(one->kind() == Kind::TextTag || pins.upperBound() > 0) << nameOf(*one);
    }
}

TEST_F(DemoProfileTest, FileIsAsTheProgramWritesIt) {
    const QString copy = folder.filePath("copy.vis");
    prompts.files = {copy};
    window.mnuSaveAs_Click();
    const QList<QByteArray> written = linesOf(copy);
    const QList<QByteArray> delivered = linesOf(kDemo);
    EXPECT_GT(delivered.size(), 1000);
    EXPECT_EQ(written.size(), delivered.size());
    const auto [one, other] =
        std::mismatch(written.begin(), written.end(), delivered.begin(), delivered.end());
    EXPECT_TRUE(one == written.end()) << "from line " << one - written.begin() << " on, without the sizes";
}

} // namespace
} // namespace vistor
