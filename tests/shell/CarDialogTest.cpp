// The car's numbers: the file, the window that edits it, what is told while they are missing.
#include "shell/CarDialog.h"

#include "instruments/NumberBox.h"
#include "maths/ConvertUnits.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"
#include "shell/Startup.h"
#include "tests/TestTables.h"
#include "tests/shell/FreshAccount.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace vistor {
namespace {

class CarTest : public FreshAccount {
protected:
    CarTest() { findWorkingFolder(); }
    void type(const char* key, const char* text) {
        auto* box = dialog->findChild<NumberBox*>(QLatin1String(key));
        ASSERT_NE(box, nullptr) << key;
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(text));
        if (!*text) QTest::keyClick(box, Qt::Key_Delete);
    }
    void open() {
        dialog = std::make_unique<CarDialog>(nullptr);
        dialog->show();
    }
    /// Presses OK; true when the window closed.
    bool accepts() {
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        return !dialog->isVisible();
    }
    QString words() { return dialog->findChild<QLabel*>("problem")->text(); }

    std::unique_ptr<CarDialog> dialog;
};

TEST_F(CarTest, WhatIsEnteredIsAtWorkAtOnceAndTheFileKeepsItsOtherLines) {
    write(carFile(), "# the red one\nCARMASS,900 ; wet\nCARCONSTANT2,7\nTYRES,soft\n");
    makeTable();
    readCarConstants();
    createFormulaEvaluators();
    open();
    type("IGNTIONPULSESREV", "2,5");
    type("CARMASS", "812.5");
    type("CARCONSTANT1", "-4");
    type("CARCONSTANT2", "");
    EXPECT_TRUE(accepts());
    EXPECT_EQ(read(carFile()), "# the red one\nCARMASS,812.5 ; wet\nCARCONSTANT2,0\nTYRES,soft\n"
                               "IGNTIONPULSESREV,2.5\nCDAVAL,0\nROLLINGVAL,0\nCARCONSTANT1,-4\n");
    EXPECT_EQ(IgnitionPulsesPerRev, 2.5F);
    float value = 1;
    EXPECT_TRUE(ConvertValue(QStringLiteral("Mass + x + CAR_1 + CAR_2"), 5, value, false));
    EXPECT_EQ(value, 809.5F);
    const QByteArray written = read(carFile());
    open();
    EXPECT_TRUE(accepts());
    EXPECT_EQ(read(carFile()), written) << "nothing was changed";
}

TEST_F(CarTest, AWrongNumberStaysInItsBoxAndIsTold) {
    open();
    EXPECT_FALSE(accepts()) << "no pulses";
    EXPECT_FALSE(words().isEmpty());
    for (const char* pulses : {"two", "0", "25", "0.05", "1.2.3"}) {
        type("IGNTIONPULSESREV", pulses);
        EXPECT_TRUE(words().isEmpty());
        EXPECT_FALSE(accepts()) << pulses;
        EXPECT_FALSE(words().isEmpty()) << pulses;
        EXPECT_EQ(dialog->findChild<NumberBox*>("IGNTIONPULSESREV")->text(), pulses);
        EXPECT_EQ(dialog->focusWidget(), dialog->findChild<NumberBox*>("IGNTIONPULSESREV"));
    }
    EXPECT_FALSE(QFile::exists(carFile()));
    type("IGNTIONPULSESREV", "2");
    failFileCall(2);
    EXPECT_FALSE(accepts());
    EXPECT_TRUE(words().contains("cannot be written")) << words().toStdString();
    EXPECT_EQ(IgnitionPulsesPerRev, 1) << "as before";
    failFileCall(0);
    EXPECT_TRUE(accepts());
    EXPECT_EQ(IgnitionPulsesPerRev, 2);
}

TEST_F(CarTest, WhatIsMissingIsTold) {
    const struct {
        const char* file;
        const char* told; ///< null: nothing is
    } cases[] = {
        {"", "ignition pulses per turn, aerodynamic resistance, rolling resistance, vehicle mass. The engine "
             "speed"},
        {"IGNTIONPULSESREV,2\nCDAVAL,0\n", "rolling resistance, vehicle mass. Formulas take 0"},
        {"IGNTIONPULSESREV,2\nCDAVAL,0.7\nROLLINGVAL,1\nCARMASS,900\n", nullptr},
    };
    for (const auto& c : cases) {
        write(carFile(), c.file);
        clearNotices();
        setNoticeListener([](const Notice&) {});
        tellMissingCarNumbers();
        ASSERT_EQ(notices().size(), c.told ? 1U : 0U);
        EXPECT_TRUE(!c.told || notices().back().text.contains(QLatin1String(c.told)));
    }
}

} // namespace
} // namespace vistor
