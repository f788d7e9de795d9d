#include "maths/FrmCalculusSetup.h"

#include "variables/GlobalVarsAndTypes.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

QComboBox* comboOf(QDialog& window) {
    return window.findChild<QComboBox*>(QStringLiteral("CalcCombo"));
}

QStringList itemsOf(QDialog& window) {
    QStringList items;
    for (int i = 0; i < comboOf(window)->count(); ++i) items += comboOf(window)->itemText(i);
    return items;
}

void clickOk(QDialog& window) {
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("OkayCmd")), Qt::LeftButton);
}

TEST(FrmCalculusSetup, StoresTheModeChosen) {
    VariableDefinition row;
    row.Calculus = 2;
    FrmCalculusSetup window(row);
    window.show();
    EXPECT_EQ(
        itemsOf(window),
        QStringList({"None", "Integrate variable against time", "Differentiate variable against time",
                     "Integrate variable against distance", "Differentiate variable against distance"}));
    EXPECT_EQ(comboOf(window)->currentIndex(), 2);
    QTest::keyClick(comboOf(window), Qt::Key_Down);
    EXPECT_EQ(row.Calculus, 2);
    QTest::keyClick(&window, Qt::Key_Return); // the default button
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(row.Calculus, 3);
}

TEST(FrmCalculusSetup, AModeOutsideTheListSelectsNothing) {
    for (const int mode : {-1, 5, 2'000'000'000}) {
        VariableDefinition row;
        row.Calculus = mode;
        FrmCalculusSetup window(row);
        window.show();
        EXPECT_EQ(comboOf(window)->currentIndex(), -1);
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_EQ(row.Calculus, mode);
    }
}

TEST(CorrectionStandardChoice, KeepsTheStandardInItsByte) {
    VariableDefinition row;
    row.Misc = 4;
    {
        CorrectionStandardChoice window(row);
        window.show();
        EXPECT_EQ(itemsOf(window),
                  QStringList({"None", "SAE J1349", "DIN 70020", "EEC 80/1269", "JIS D1001"}));
        EXPECT_EQ(comboOf(window)->currentText(), "JIS D1001");
        QTest::keyClick(comboOf(window), Qt::Key_Home);
        QTest::keyClick(comboOf(window), Qt::Key_Down);
        clickOk(window);
    }
    EXPECT_EQ(row.Misc, 1);
    row.Misc = 200; // another program's
    CorrectionStandardChoice window(row);
    window.show();
    clickOk(window);
    EXPECT_EQ(row.Misc, 200);
}

} // namespace
} // namespace vistor
