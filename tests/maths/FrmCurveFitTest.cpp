#include "maths/frmCurveFit.h"

#include "maths/QtPointGrid.h"
#include "maths/QtThemedChart.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QtCharts/QXYSeries>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class FrmCurveFitTest : public testing::Test {
protected:
    FrmCurveFitTest() {
        window.show();
        QApplication::setActiveWindow(&window);
        grid = window.findChild<QtPointGrid*>(QStringLiteral("grdInput"));
        grid->setFocus();
    }
    QLineEdit* entryBox() { return grid->findChild<QLineEdit*>(QStringLiteral("txtCell")); }
    /// Keys go to the entry box when it is open, as they do for a person.
    void press(const QString& keys) {
        for (const QChar key : keys) QTest::keyClick(target(), key.toLatin1());
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(target(), key, modifiers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QWidget* target() {
        QLineEdit* box = entryBox();
        return box && box->isVisible() ? static_cast<QWidget*>(box) : grid;
    }
    void trigger(const char* entry) { window.findChild<QAction*>(QLatin1String(entry))->trigger(); }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        trigger("mnuPaste");
    }
    QString cell(int row, int column) {
        return grid->item(row, column) ? grid->item(row, column)->text() : QString();
    }
    void goTo(int row, int column) { grid->setCurrentCell(row, column, QItemSelectionModel::ClearAndSelect); }
    QString label() { return window.findChild<QLabel*>(QStringLiteral("lblEquationLabel"))->text(); }
    qsizetype seriesSize(int index) {
        auto* chart = window.findChild<QtThemedChart*>(QStringLiteral("chtPolyFit"));
        return qobject_cast<QXYSeries*>(chart->chart()->series().at(index))->count();
    }
    void clickButton(QDialogButtonBox::StandardButton which) {
        QTest::mouseClick(window.findChild<QDialogButtonBox*>()->button(which), Qt::LeftButton);
    }

    frmCurveFit window;
    QtPointGrid* grid = nullptr;
};

TEST_F(FrmCurveFitTest, PointsAreTypedCellByCell) {
    EXPECT_EQ(grid->horizontalHeaderItem(0)->text(), "Input X (Volts)");
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text(), "Output Y");
    EXPECT_EQ(label(), "Not enough data");
    press("1a");
    ASSERT_NE(entryBox(), nullptr);
    EXPECT_EQ(entryBox()->text(), "1");
    press(".5x");
    press(Qt::Key_Tab);
    press("-20");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(0, 0), "1.5");
    EXPECT_EQ(cell(0, 1), "-20");
    EXPECT_EQ(label(), "y = -20     std dev=0");
    EXPECT_EQ(grid->currentRow(), 1);
    EXPECT_EQ(seriesSize(1), 1);
    press("7");
    press(Qt::Key_Escape); // leaves the cell, not the window
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(cell(1, 1), "");
    press(Qt::Key_Return);
    EXPECT_EQ(grid->currentRow(), 2);
    press("z");
    EXPECT_EQ(entryBox(), nullptr);
    clickButton(QDialogButtonBox::Ok);
    EXPECT_EQ(window.formulaText(), "(0) * x^3 + (0) * x^2 + (0) * x + (-20)");
}

TEST_F(FrmCurveFitTest, TheMenuMovesCellsToAndFromTheClipboard) {
    paste(QStringLiteral("0\t1\r\n1\t3\r\n2\t5\r\n"));
    EXPECT_EQ(label(), "y = 2x + 1     std dev=0");
    EXPECT_EQ(seriesSize(1), 3);
    EXPECT_GT(seriesSize(0), 50);
    grid->setRangeSelected({1, 0, 2, 1}, true);
    grid->setRangeSelected({0, 0, 0, 1}, false);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1\t3\r\n2\t5\r\n");
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(cell(1, 0), "");
    EXPECT_EQ(label(), "y = 1     std dev=0");
    goTo(3, 0);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cell(4, 1), "5");
    EXPECT_EQ(label(), "y = 2x + 1     std dev=0");
    press(Qt::Key_Delete);
    EXPECT_EQ(cell(3, 0), "");
    goTo(0, 1);
    paste(QStringLiteral("9\t8")); // the second has no column
    EXPECT_EQ(cell(0, 1), "9");
    EXPECT_EQ(cell(0, 0), "0");
    for (const char* entry : {"mnuCut", "mnuCopy", "mnuDelete", "mnuPaste"})
        EXPECT_TRUE(grid->actions().contains(window.findChild<QAction*>(QLatin1String(entry)))) << entry;
}

TEST_F(FrmCurveFitTest, APasteOfAThousandRowsIsHeldAndTold) {
    QString rows;
    for (int i = 0; i < 1000; ++i) rows += QStringLiteral("%1\t%2\r\n").arg(i).arg(2 * i);
    paste(rows);
    EXPECT_EQ(label(), "Maxmium of 25 data points");
    EXPECT_EQ(cell(999, 1), "1998");
    EXPECT_GT(grid->rowCount(), 1000);
    clickButton(QDialogButtonBox::Ok);
    EXPECT_TRUE(window.formulaText().isEmpty());
}

TEST_F(FrmCurveFitTest, TheFormulaLastBuiltStandsUntilCancelled) {
    QString rows;
    for (int i = 0; i < 25; ++i) rows += QStringLiteral("%1\t%2\n").arg(i).arg(2 * i);
    paste(rows);
    const QString formula = window.formulaText();
    EXPECT_EQ(formula, "(0) * x^3 + (0) * x^2 + (2) * x + (0)");
    goTo(25, 0);
    paste(QStringLiteral("25\t7"));
    EXPECT_EQ(label(), "Maxmium of 25 data points");
    EXPECT_EQ(window.formulaText(), formula);
    EXPECT_EQ(seriesSize(0), 0);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.formulaText().isEmpty());
}

TEST_F(FrmCurveFitTest, AnOpenEntryBoxDoesNotBringBackWhatWasCancelled) {
    paste(QStringLiteral("0\t1\n1\t3"));
    goTo(2, 0);
    press("2"); // neither Enter nor Tab
    ASSERT_NE(entryBox(), nullptr);
    window.close();
    EXPECT_TRUE(window.formulaText().isEmpty());
    auto dropped = std::make_unique<frmCurveFit>();
    dropped->show();
    auto* other = dropped->findChild<QtPointGrid*>(QStringLiteral("grdInput"));
    other->setFocus();
    QTest::keyClick(other, '7');
    dropped.reset(); // with its box still open
}

TEST_F(FrmCurveFitTest, OkTakesTheEntryBoxAlong) {
    paste(QStringLiteral("0\t1"));
    goTo(0, 1);
    press("5");
    ASSERT_NE(entryBox(), nullptr);
    window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); // by its letter: no focus
    EXPECT_EQ(window.formulaText(), "(0) * x^3 + (0) * x^2 + (0) * x + (5)");
}

TEST_F(FrmCurveFitTest, TakesWhatIsNoNumber) {
    paste(QStringLiteral("Volts\tmm\n1e300\t-1e300\n1e300\t1e300\n\xC2\xA0\t3\n2V\t3"));
    EXPECT_EQ(cell(0, 0), "Volts");
    EXPECT_FALSE(grid->item(0, 0)->toolTip().isEmpty());
    EXPECT_TRUE(grid->item(1, 0)->toolTip().isEmpty());
    EXPECT_TRUE(label().startsWith(QStringLiteral("y = "))) << label().toStdString();
    window.grab();
}

TEST_F(FrmCurveFitTest, ALocalesMarkIsTypedAsAPoint) {
    DecimalSeparator = QStringLiteral(",");
    press("2,5");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(0, 0), "2.5");
}

} // namespace
} // namespace vistor
