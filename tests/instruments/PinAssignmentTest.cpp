#include "SampleTable.h"
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/StripTable.h"
#include "instruments/frmPinAssignmentGraph.h"
#include "tests/ScriptedPrompts.h"
#include "tests/TestTables.h"

#include <QApplication>
#include <QComboBox>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vistor {
namespace {

QStringList cells(const QTableWidget& grid) {
    QStringList all;
    for (int column = 0; column < grid.columnCount(); ++column)
        all << grid.horizontalHeaderItem(column)->text();
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) all << grid.item(row, column)->text();
    }
    return all;
}

class PinAssignment : public testing::Test {
protected:
    PinAssignment() {
        makeTable();
        VariableTable[2].VariableType = 1;
        VariableTable[300].VariableType = 8;
    }
    /// Drops a variable while `act` plays the person in front of the window that opens.
    void drop(Instrument& instrument, const char* variable, const std::function<void(QDialog&)>& act) {
        bool opened = false;
        QTimer::singleShot(0, &instrument, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            opened = true;
            act(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        instrument.FunctionDrop(QLatin1String(variable));
        QCoreApplication::processEvents();
        EXPECT_TRUE(opened);
    }
    static QComboBox* combo(QDialog& dialog, const char* name) { return dialog.findChild<QComboBox*>(name); }

    ScriptedPrompts prompts;
};

TEST_F(PinAssignment, AGaugeShowsItsBoundPinsAndTakesTheChosenOne) {
    const auto gauge = makeInstrument(Kind::AngularGauge, nullptr);
    PropertyStore several = gauge->inCTRL().properties();
    several.setNumber(several.table().parts().pinCountProperty, 3);
    gauge->inCTRL().setProperties(several);
    ASSERT_EQ(gauge->pinCount(), 3);
    gauge->AssignPin(3, QStringLiteral("P2"));
    gauge->AssignPin(1, QStringLiteral("gone"));
    gauge->TagOn(true);
    drop(*gauge, "P300", [&](QDialog& dialog) {
        EXPECT_EQ(cells(*dialog.findChild<QTableWidget*>("grd")),
                  (QStringList{"NEEDLE", "VARIABLE", "VARIABLE TYPE", "1", "gone", "", "3", "P2",
                               "Standard variables"}));
        EXPECT_EQ(combo(dialog, "cmbPin")->count(), 3);
        QTest::keyClick(&dialog, Qt::Key_Return); // nothing chosen
        EXPECT_EQ(prompts.takeWords(), QStringList("Please select an input"));
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(combo(dialog, "cmbPin"), Qt::Key_2);
        QTest::keyClick(combo(dialog, "cmbPin"), Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(gauge->curVarTable().at(2), "P300");
    EXPECT_EQ(gauge->curVarTable().count(), 3);
    EXPECT_EQ(gauge->tagText(), "[2] P300") << "the caption follows";
    drop(*gauge, "P5", [&](QDialog& dialog) {
        dialog.findChild<QTableWidget*>("grd")->selectRow(2);
        EXPECT_EQ(combo(dialog, "cmbPin")->currentText(), "3") << "a line chooses its pin";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(gauge->curVarTable().at(3), "P2") << "given up";
}

TEST_F(PinAssignment, GraphsAskForTrackAndAxis) {
    const auto strip = makeInstrument(Kind::TimeGraph, nullptr);
    strip->inCTRL().properties().setNumber(StripTraceCount, 2);
    strip->AssignPin(1, std::uint8_t{1}, QStringLiteral("P2"));
    drop(*strip, "P300", [&](QDialog& dialog) {
        EXPECT_EQ(cells(*dialog.findChild<QTableWidget*>("grd")),
                  (QStringList{"TRACK", "AXIS", "VARIABLE", "VARIABLE TYPE", "1", "Y", "P2",
                               "Standard variables", "2", "Y", "", ""}));
        combo(dialog, "cmbPin")->setCurrentIndex(1);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(strip->curVarTable().at(2, 1), "P300");

    const auto graph = makeInstrument(Kind::XYGraph, nullptr);
    drop(*graph, "P300", [&](QDialog& dialog) {
        auto* grid = dialog.findChild<QTableWidget*>("grd");
        EXPECT_EQ(cells(*grid), (QStringList{"TRACK", "AXIS", "VARIABLE", "VARIABLE TYPE", "1", "X", "", "",
                                             "1", "Y", "", ""}));
        EXPECT_EQ(combo(dialog, "cmbAxis")->currentText(), "X");
        grid->selectRow(1);
        EXPECT_EQ(combo(dialog, "cmbAxis")->currentText(), "Y");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(graph->curVarTable().at(1, 1), "P300");
    EXPECT_EQ(graph->curVarTable().at(1, 0), "");
}

} // namespace
} // namespace vistor
