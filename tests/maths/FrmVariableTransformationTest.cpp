#include "maths/frmVariableTransformation.h"

#include "maths/ConvertUnits.h"
#include "maths/QtPointGrid.h"
#include "platform/Events.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class FrmVariableTransformationTest : public testing::Test {
protected:
    FrmVariableTransformationTest() {
        makeTable();
        UnitConversions.push_back({"km/h", "Kilometres", "$3.6$0", "km/h"});
        UnitConversions.push_back({"mph", "Miles", "$2.2$0", "mi"});
        SetupVariables();
        createFormulaEvaluators();
        VariableTableEdit = VariableTable;
        row = VariableTable[2];
        row.AllowTransformations = QStringList{"km/h", "mph"};
        row.ApplyTransformation = "km/h";
    }
    void open() {
        window = std::make_unique<frmVariableTransformation>(row, 2);
        window->show();
        pumpEvents();
    }
    template <typename Widget>
    Widget& part(const char* name) {
        return *window->findChild<Widget*>(QLatin1String(name));
    }
    QPlainTextEdit& formula() { return part<QPlainTextEdit>("UserFunctionTxt"); }
    bool isCustom() { return part<QRadioButton>("Option11").isChecked(); }
    void doubleClick(const char* grid, int line) {
        auto& table = part<QTableWidget>(grid);
        table.scrollToItem(table.item(line, 1));
        const QPoint place = table.visualItemRect(table.item(line, 1)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place); // else it counts as held down
    }
    void ok() { QTest::mouseClick(&part<QPushButton>("OkCmd"), Qt::LeftButton); }

    ScriptedPrompts prompts;
    VariableDefinition row;
    std::unique_ptr<frmVariableTransformation> window;
};

TEST_F(FrmVariableTransformationTest, ChoosesAStandardConversionByKeys) {
    open();
    auto& combo = part<QComboBox>("StandardTransCombo");
    EXPECT_EQ(window->windowTitle(), "Set units for B2");
    EXPECT_EQ(part<QLabel>("UnitLabel").text(), "[km/h]");
    EXPECT_TRUE(combo.hasFocus());
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(part<QLabel>("UnitLabel").text(), "[mi]");
    QTest::keyClick(window.get(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isCustom(); }, 2000));
    EXPECT_EQ(window->windowTitle(), "Edit equation for B2");
    EXPECT_EQ(combo.currentText(), "mph (not applied)");
    EXPECT_EQ(combo.itemText(0), "km/h");
    QTest::keyClick(window.get(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isCustom(); }, 2000));
    EXPECT_EQ(combo.currentText(), "mph");
    QTest::keyClick(&combo, Qt::Key_Return);
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_EQ(row.ApplyTransformation, "mph");
    EXPECT_FALSE(row.UseCustomTrans);
}

TEST_F(FrmVariableTransformationTest, GridsInsertAtTheCaretAndGiveTheFocusBack) {
    row.CustomTransformation = "ab";
    open();
    formula().moveCursor(QTextCursor::Start);
    formula().moveCursor(QTextCursor::Right);
    doubleClick("MathFunctGrid", 8);
    EXPECT_EQ(formula().toPlainText(), "a{SIN}b");
    EXPECT_TRUE(formula().hasFocus());
    EXPECT_TRUE(isCustom()) << "a change chooses the custom option";
    EXPECT_EQ(part<QLabel>("HelpLabel").text(),
              "sinus function which can be used as SIN(X), X is in radians. ");
    doubleClick("MathFunctGrid", 0);
    doubleClick("MathFunctGrid", 3);
    doubleClick("MSFlexGridVarNames", 1);
    auto& constants = part<QTableWidget>("MSFlexGridConstants");
    constants.setFocus();
    constants.setCurrentCell(6, 0);
    QTest::keyClick(&constants, Qt::Key_Return);
    EXPECT_EQ(formula().toPlainText(), "a{SIN}+{/}VAR_0002CAR_1b");
    EXPECT_TRUE(formula().hasFocus());
    EXPECT_TRUE(window->isVisible()) << "Enter on a grid is not OK";
}

TEST_F(FrmVariableTransformationTest, AWrongFormulaKeepsTheWindowOpenWithItsText) {
    open();
    formula().setFocus();
    QTest::keyClicks(&formula(), "x*[2]");
    QTest::keyClick(&formula(), Qt::Key_Return); // on one line Enter is OK
    EXPECT_EQ(prompts.takeWords(), QStringList{"The formula contains illegal characters"});
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(formula().toPlainText(), "x*[2]");
    EXPECT_EQ(row.CustomTransformation, QString());
    formula().selectAll();
    QTest::keyClicks(&formula(), "x*2");
    QTest::keyClicks(&part<QLineEdit>("UserUnits"), "V");
    ok();
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_EQ(row.CustomTransformation, "x*2");
    EXPECT_EQ(row.ConstantName, "B2 [V]");
}

TEST_F(FrmVariableTransformationTest, AScriptStandsOverSeveralLinesAndKeepsThem) {
    row.UseCustomTrans = kTrue16;
    row.CustomTransformation = "Function Output\r\nOutput = InputValue * 2\r\nEnd Function";
    open();
    auto& several = part<QCheckBox>("ShowMultiLinesChk");
    EXPECT_TRUE(several.isChecked());
    EXPECT_TRUE(QFontInfo(formula().font()).fixedPitch());
    EXPECT_TRUE(formula().hasFocus());
    const int high = formula().height();
    QTest::mouseClick(&several, Qt::LeftButton, {}, QPoint(8, several.height() / 2));
    EXPECT_LT(formula().height() * 3, high);
    ok();
    EXPECT_TRUE(row.CustomTransformation.contains("\r\n")) << "untouched";

    several.setChecked(true);
    QTest::keyClick(&formula(), Qt::Key_Return);
    EXPECT_EQ(formula().blockCount(), 4) << "Enter is a new line";
    QTest::keyClick(&formula(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(row.CustomTransformation, "Function Output\r\nOutput = InputValue * 2\r\nEnd Function\r\n");
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(FrmVariableTransformationTest, CancelAndBareRows) {
    row.AllowTransformations.reset();
    open();
    EXPECT_EQ(part<QComboBox>("StandardTransCombo").count(), 0);
    EXPECT_EQ(part<QLabel>("UnitLabel").text(), "");
    QTest::keyClicks(&formula(), "x*2");
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_FALSE(row.UseCustomTrans);
    EXPECT_EQ(row.CustomTransformation, QString());
}

TEST_F(FrmVariableTransformationTest, AFittedCurveReplacesTheFormula) {
    row.CustomTransformation = "x";
    open();
    const auto fitCurve = [this](bool cancelled) {
        QTimer::singleShot(0, window.get(), [cancelled] {
            auto* fit = QApplication::activeModalWidget();
            ASSERT_TRUE(fit);
            auto* grid = fit->findChild<QtPointGrid*>();
            ASSERT_TRUE(grid);
            QApplication::clipboard()->setText("7\t7\r\n");
            grid->setCurrentCell(0, 0);
            grid->pasteAtCurrent();
            if (cancelled)
                QTest::keyClick(fit, Qt::Key_Escape);
            else
                static_cast<QDialog*>(fit)->accept();
        });
        QTest::mouseClick(&part<QPushButton>("EnterAsTableBtn"), Qt::LeftButton);
    };
    fitCurve(true);
    EXPECT_EQ(formula().toPlainText(), "x") << "cancelled";
    EXPECT_FALSE(isCustom());
    fitCurve(false);
    EXPECT_EQ(formula().toPlainText(), "(0) * x^3 + (0) * x^2 + (0) * x + (7)");
    EXPECT_TRUE(isCustom());
    ok();
    EXPECT_EQ(row.CustomTransformation, "(0) * x^3 + (0) * x^2 + (0) * x + (7)");
}

TEST_F(FrmVariableTransformationTest, TheVariablesAreNarrowedDown) {
    open();
    auto& grid = part<QTableWidget>("MSFlexGridVarNames");
    auto& words = part<QLineEdit>("VariableFilter");
    const auto shown = [&grid] {
        int count = 0;
        for (int line = 0; line < grid.rowCount(); ++line) count += grid.isRowHidden(line) ? 0 : 1;
        return count;
    };
    EXPECT_GT(shown(), 200);
    QTest::keyClicks(&words, "B2001");
    EXPECT_EQ(shown(), 1);
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(part<QLabel>("HelpLabel").text(), "B2001 [-]");
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(formula().toPlainText(), "VAR_2001");
    words.clear();
    part<QComboBox>("VariableGroup").setCurrentText("GPS variables");
    EXPECT_EQ(shown(), 0);
    QTest::keyClick(&grid, Qt::Key_Return); // on a line that is hidden now
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(formula().toPlainText(), "VAR_2001");
    EXPECT_TRUE(window->isVisible());
}

} // namespace
} // namespace vistor
