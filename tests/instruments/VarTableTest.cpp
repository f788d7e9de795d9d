#include "instruments/VXAGAUGE.h"
#include "instruments/VXXYGRAPH.h"
#include "instruments/displays/AngularGaugeProperties.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/StripTable.h"
#include "instruments/frmVarTableGraph.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vistor {
namespace {

void fillTable() {
    VariableTable.assign(8001, {});
    const struct {
        std::size_t row;
        const char* name;
        int type;
        bool enabled;
    } rows[] = {{10, "EngineSpeed", 1, true},
                {11, "Gone", 1, false},
                {12, "RoadSpeed", 1, true},
                {40, "OilTemp", 2, true},
                {41, "Latitude", 3, true}};
    for (const auto& r : rows) {
        VariableTable[r.row].PhysicalName = QLatin1String(r.name);
        VariableTable[r.row].VariableType = static_cast<decltype(VariableTable[0].VariableType)>(r.type);
        VariableTable[r.row].Enabled = r.enabled ? kTrue16 : kFalse16;
    }
    tableChanged();
}

/// The shown window, its parts by their names.
struct Window {
    QDialog& dialog;

    QComboBox& list(const char* name) const { return *dialog.findChild<QComboBox*>(QLatin1String(name)); }
    void choose(const char* name, const QString& text) const {
        list(name).setFocus();
        for (int steps = 0; list(name).currentText() != text && steps < 20; ++steps)
            QTest::keyClick(&list(name), Qt::Key_Down);
        EXPECT_EQ(list(name).currentText(), text);
    }
    void press(const char* name) const {
        QTest::keyClick(dialog.findChild<QPushButton*>(QLatin1String(name)), Qt::Key_Space);
    }
    QTableWidget& grid() const { return *dialog.findChild<QTableWidget*>("grd"); }
    QStringList row(int row) const {
        QStringList cells;
        for (int column = 0; column < grid().columnCount(); ++column)
            cells << grid().item(row, column)->text();
        return cells;
    }
    QStringList headers() const {
        QStringList texts;
        for (int column = 0; column < grid().columnCount(); ++column)
            texts << grid().horizontalHeaderItem(column)->text();
        return texts;
    }
};

void inWindow(Instrument& instrument, const std::function<void(const Window&)>& act) {
    bool opened = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<frmVarTable*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = true;
        act({*dialog});
        if (dialog->isVisible()) dialog->reject();
    });
    instrument.mnuVariables_Click();
    EXPECT_EQ(opened, instrument.kind() != Kind::TextTag);
}

TEST(frmVarTable, BindsAndUnbindsPinsOneByOne) {
    fillTable();
    VXAGAUGE gauge(nullptr);
    gauge.inCTRL().properties().setNumber(GaugeNeedles, 3);
    gauge.AssignPin(2, "Unknown");
    gauge.TagOn(true);
    gauge.show();
    ScriptedPrompts prompts;
    inWindow(gauge, [&](const Window& window) {
        EXPECT_EQ(window.dialog.windowTitle(), "Variable Table : Angular Gauge");
        EXPECT_EQ(window.headers(), (QStringList{"NEEDLE", "VARIABLE", "VARIABLE TYPE"}));
        EXPECT_EQ(window.grid().rowCount(), 3);
        EXPECT_EQ(window.row(0), (QStringList{"1", "", ""}));
        EXPECT_EQ(window.row(1), (QStringList{"2", "Unknown", ""}));
        window.press("cmdApply");
        window.press("cmdRemove");
        EXPECT_EQ(prompts.takeWords(),
                  (QStringList{"Please fill all fields", "Select an input and try again"}));
        QStringList groups;
        for (int i = 0; i < window.list("cmbGroup").count(); ++i)
            groups << window.list("cmbGroup").itemText(i);
        EXPECT_EQ(groups, (QStringList{"Standard variables", "External inputs", "GPS variables",
                                       "User defined variables", "Serial variables", "External variables",
                                       "Debugging variables"}));
        window.choose("cmbPin", "1");
        window.choose("cmbGroup", "Standard variables");
        EXPECT_EQ(window.list("cmbVariable").count(), 2) << "a variable that is off is not offered";
        window.press("cmdApply");
        EXPECT_EQ(prompts.takeWords(), QStringList{"Please fill all fields"});
        window.choose("cmbVariable", "RoadSpeed");
        window.press("cmdApply");
        EXPECT_EQ(window.row(0), (QStringList{"1", "RoadSpeed", "Standard variables"}));
        EXPECT_EQ(gauge.curVarTable().count(), 2) << "applied at once";
        window.choose("cmbPin", "2");
        window.press("cmdRemove");
        EXPECT_EQ(window.row(1), (QStringList{"2", "", ""}));
        window.press("cmdExit");
        EXPECT_FALSE(window.dialog.isVisible());
    });
    EXPECT_EQ(gauge.curVarTable().at(1), "RoadSpeed");
    EXPECT_EQ(gauge.curVarTable().count(), 1);
    EXPECT_EQ(gauge.tagText(), "[1] RoadSpeed");
}

TEST(frmVarTable, ALineOfTheGridFillsTheFields) {
    fillTable();
    VXAGAUGE gauge(nullptr);
    gauge.AssignPin(1, "OilTemp");
    gauge.show();
    inWindow(gauge, [](const Window& window) {
        QTest::mouseClick(window.grid().viewport(), Qt::LeftButton, {},
                          window.grid().visualItemRect(window.grid().item(0, 1)).center());
        EXPECT_EQ(window.list("cmbPin").currentText(), "1");
        EXPECT_EQ(window.list("cmbGroup").currentText(), "External inputs");
        EXPECT_EQ(window.list("cmbVariable").currentText(), "OilTemp");
    });
}

TEST(frmVarTable, APinBeyondTheNeedlesIsShownAsSuchAndCanBeRemoved) {
    fillTable();
    VXAGAUGE gauge(nullptr);
    gauge.inCTRL().properties().setNumber(GaugeNeedles, 3);
    gauge.AssignPin(1, "EngineSpeed");
    gauge.AssignPin(3, "RoadSpeed");
    gauge.inCTRL().properties().setNumber(GaugeNeedles, 2);
    gauge.show();
    inWindow(gauge, [&](const Window& window) {
        ASSERT_EQ(window.grid().rowCount(), 3);
        EXPECT_EQ(window.row(2), (QStringList{"3 (no needle)", "RoadSpeed", "Standard variables"}));
        window.choose("cmbPin", "3 (no needle)");
        window.choose("cmbGroup", "Standard variables");
        window.choose("cmbVariable", "EngineSpeed");
        EXPECT_FALSE(window.dialog.findChild<QPushButton*>("cmdApply")->isEnabled());
        window.press("cmdRemove");
        EXPECT_EQ(window.grid().rowCount(), 2);
        EXPECT_EQ(window.list("cmbPin").count(), 2);
        EXPECT_TRUE(window.dialog.findChild<QPushButton*>("cmdApply")->isEnabled());
    });
    EXPECT_EQ(gauge.curVarTable().upperBound(), 1);
    EXPECT_EQ(gauge.curVarTable().count(), 1);
}

TEST(frmVarTable, RemoveIsGreyWhereNothingIsBound) {
    fillTable();
    VXAGAUGE gauge(nullptr);
    gauge.inCTRL().properties().setNumber(GaugeNeedles, 2);
    gauge.AssignPin(1, "EngineSpeed");
    gauge.show();
    ScriptedPrompts prompts;
    inWindow(gauge, [&](const Window& window) {
        auto* remove = window.dialog.findChild<QPushButton*>("cmdRemove");
        window.choose("cmbPin", "2");
        EXPECT_FALSE(remove->isEnabled());
        for (int i = 0; i < 3; ++i) remove->click();
        EXPECT_EQ(gauge.curVarTable().count(), 1) << "what is bound still gets its values";
        window.list("cmbPin").setCurrentIndex(0);
        EXPECT_TRUE(remove->isEnabled());
        remove->setFocus();
        window.press("cmdRemove");
        EXPECT_FALSE(remove->isEnabled());
        EXPECT_EQ(window.dialog.focusWidget(), &window.list("cmbPin")) << "the next press closes nothing";
    });
    EXPECT_EQ(gauge.curVarTable().count(), 0);

    VXXYGRAPH graph(nullptr);
    graph.AssignPin(1, std::uint8_t{0}, "EngineSpeed");
    graph.show();
    inWindow(graph, [&](const Window& window) {
        window.choose("cmbPin", "1");
        EXPECT_FALSE(window.dialog.findChild<QPushButton*>("cmdRemove")->isEnabled()) << "Y of it";
        QTest::keyClick(&window.list("cmbAxis"), Qt::Key_Home);
        EXPECT_TRUE(window.dialog.findChild<QPushButton*>("cmdRemove")->isEnabled());
    });
}

TEST(frmVarTableGraph, BindsTheAxesOfTracks) {
    fillTable();
    VXXYGRAPH graph(nullptr);
    graph.inCTRL().properties().setNumber(StripTraceCount, 2);
    graph.show();
    inWindow(graph, [&](const Window& window) {
        EXPECT_EQ(window.dialog.windowTitle(), "Variable Table : XY Graph");
        EXPECT_EQ(window.headers(), (QStringList{"TRACK", "AXIS", "VARIABLE", "VARIABLE TYPE"}));
        EXPECT_EQ(window.grid().rowCount(), 4);
        window.list("cmbPin").setFocus();
        QTest::keyClick(&window.list("cmbPin"), Qt::Key_Tab);
        EXPECT_EQ(window.dialog.focusWidget(), &window.list("cmbAxis"));
        QTest::keyClick(&window.list("cmbAxis"), Qt::Key_Tab);
        EXPECT_EQ(window.dialog.focusWidget(), &window.list("cmbGroup"));
        EXPECT_EQ(window.list("cmbAxis").width(), window.list("cmbPin").width());
        window.choose("cmbPin", "2");
        window.choose("cmbGroup", "GPS variables");
        window.choose("cmbVariable", "Latitude");
        QTest::keyClick(&window.list("cmbAxis"), Qt::Key_Home);
        window.press("cmdApply");
        EXPECT_EQ(window.row(2), (QStringList{"2", "X", "Latitude", "GPS variables"}));
        EXPECT_EQ(window.row(3), (QStringList{"2", "Y", "", ""}));
    });
    EXPECT_EQ(graph.curVarTable().at(2, 0), "Latitude");
    inWindow(graph, [&](const Window& window) {
        window.choose("cmbPin", "2");
        QTest::keyClick(&window.list("cmbAxis"), Qt::Key_Home);
        window.press("cmdRemove");
    });
    EXPECT_EQ(graph.curVarTable().at(2, 0), "");
}

TEST(frmVarTable, EveryKindWithPinsHasOne) {
    fillTable();
    for (const KindInfo& info : kInstrumentKinds) {
        const auto instrument = makeInstrument(info.kind, nullptr);
        if (!instrument) continue;
        instrument->show();
        if (info.kind == Kind::TextTag) {
            instrument->mnuVariables_Click(); // opens nothing that would wait
            continue;
        }
        inWindow(*instrument, [&](const Window& window) {
            EXPECT_EQ(window.dialog.windowTitle(),
                      QStringLiteral("Variable Table : ") + QLatin1String(info.title));
            EXPECT_EQ(window.headers().first(), QLatin1String(info.pinLabel));
        });
    }
}

} // namespace
} // namespace vistor
