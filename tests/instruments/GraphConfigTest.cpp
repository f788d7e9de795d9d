#include "instruments/GraphConfig.h"

#include "instruments/PropertySheet.h"
#include "instruments/VXSTRIP.h"
#include "instruments/VXXYGRAPH.h"
#include "instruments/displays/StripDisplay.h"
#include "tests/ScriptedPrompts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vistor {
namespace {

/// Opens a graph's window and lets `act` work in it.
void inDialog(Instrument& graph, const std::function<void(QDialog&)>& act) {
    bool opened = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = true;
        act(*dialog);
        if (dialog->isVisible()) dialog->reject();
    });
    graph.mnuProperties_Click();
    EXPECT_TRUE(opened);
}

void type(QDialog& dialog, const char* name, const char* text) {
    auto* box = dialog.findChild<QLineEdit*>(QLatin1String(name));
    ASSERT_NE(box, nullptr) << name;
    box->selectAll();
    QTest::keyClicks(box, QLatin1String(text));
}

void press(QDialog& dialog, const char* name, Qt::Key key = Qt::Key_Space) {
    auto* widget = dialog.findChild<QWidget*>(QLatin1String(name));
    ASSERT_NE(widget, nullptr) << name;
    QTest::keyClick(widget, key);
}

TEST(frmStripConfig, EditsTheGraphByKeys) {
    VXSTRIP strip(nullptr);
    strip.show();
    PropertyStore& p = strip.inCTRL().properties();
    ScriptedPrompts prompts;
    prompts.colours = {0x111111, 0x222222, 0x333333};
    QSignalSpy changed(&strip, &Instrument::layoutChanged);
    inDialog(strip, [&](QDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QLineEdit*>("ConfigValueTxt1")->isEnabled());
        press(dialog, "AutoScaleYChk");
        EXPECT_TRUE(dialog.findChild<QLineEdit*>("ConfigValueTxt2")->isEnabled());
        type(dialog, "ConfigValueTxt0", "12.5");
        type(dialog, "ConfigValueTxt1", "-5");
        type(dialog, "ConfigValueTxt2", "2,5");
        press(dialog, "chkShowNum");
        press(dialog, "cmbGrid", Qt::Key_Home);
        press(dialog, "cmbLine", Qt::Key_End);
        press(dialog, "cmbSymbol", Qt::Key_Down);
        for (const char* box : {"picBackCol", "picForeCol", "picTraceCol"}) press(dialog, box);
        press(dialog, "ConfigValueTxt0", Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(changed.count(), 1);
    const struct {
        int number;
        double value;
    } expected[] = {{StripLength, 12.5},
                    {StripMinimumY, -5},
                    {StripMaximumY, 2.5},
                    {GraphAutoScaleY, 0},
                    {StripGrid, 0},
                    {StripLineStyle, 4},
                    {StripSymbolView, 1},
                    {StripShowNumbersX, 0},
                    {StripShowNumbersY, 0},
                    {StripBackColour, 0x111111},
                    {StripForeColour, 0x222222},
                    {StripTraceColour, 0x333333},
                    {StripMinimumX, 17.5},
                    {StripMaximumX, 30}};
    for (const auto& e : expected) EXPECT_EQ(p.number(e.number), e.value) << e.number;
}

TEST(frmXYGraph, EditsTheGraphByKeys) {
    VXXYGRAPH graph(nullptr);
    graph.show();
    PropertyStore& p = graph.inCTRL().properties();
    inDialog(graph, [&](QDialog& dialog) {
        for (const char* box : {"txtMinX", "txtMaxX", "txtMinY", "txtMaxY"})
            EXPECT_FALSE(dialog.findChild<QLineEdit*>(box)->isEnabled()) << box;
        press(dialog, "AutoScaleXChk");
        type(dialog, "txtMinX", "-10");
        type(dialog, "txtMaxX", "30");
        type(dialog, "txtBufSize", "500");
        type(dialog, "txtSymbolSize", "1a2b ");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("txtSymbolSize")->text(), "12");
        press(dialog, "cmbSymbol", Qt::Key_End);
        for (const char* box : {"chkGridX", "chkShowMarker", "chkShowNumX", "chkFixAspect"})
            press(dialog, box);
        press(dialog, "cmdApply");
    });
    const struct {
        int number;
        double value;
    } expected[] = {{GraphAutoScaleX, 0},    {GraphAutoScaleY, -1}, {StripOrigin, -10},
                    {StripLength, 40},       {StripMinimumX, -10},  {StripMaximumX, 30},
                    {StripBufferSize, 500},  {StripSymbolSize, 12}, {StripSymbolView, 4},
                    {StripGrid, 1},          {StripShowMarker, 0},  {StripShowNumbersX, 0},
                    {StripShowNumbersY, -1}, {GraphFixAspect, -1}};
    for (const auto& e : expected) EXPECT_EQ(p.number(e.number), e.value) << e.number;
}

TEST(GraphConfig, WhatWasNotTouchedStaysAsItWas) {
    for (const Kind kind : {Kind::TimeGraph, Kind::XYGraph}) {
        const auto graph = makeInstrument(kind, nullptr);
        graph->show();
        PropertyStore& p = graph->inCTRL().properties();
        for (const int number : {StripLineStyle, StripSymbolView}) p.setNumber(number, 77); // of no word
        if (kind == Kind::TimeGraph) p.setNumber(StripGrid, 9);
        p.setNumber(StripShowMarker, 2);
        p.setNumber(StripOrigin, 0.1);
        p.setNumber(StripLength, 0.2);
        p.setNumber(GraphAutoScaleX, 0);
        static_cast<StripDisplay&>(graph->inCTRL()).tellVisible();
        QStringList before;
        graph->Serialise(before);
        inDialog(*graph, [&](QDialog& dialog) { press(dialog, "cmdApply"); });
        QStringList after;
        graph->Serialise(after);
        for (qsizetype i = 0; i < before.size(); ++i) EXPECT_EQ(after.value(i), before.value(i)) << i;
    }
}

TEST(GraphConfig, WhatIsNoNumberStaysInTheWindowAndIsMarked) {
    VXXYGRAPH graph(nullptr);
    graph.show();
    PropertyStore& p = graph.inCTRL().properties();
    p.setNumber(GraphAutoScaleX, 0);
    p.setNumber(StripOrigin, 1.1);
    p.setNumber(StripLength, 1.8);
    inDialog(graph, [&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("txtMaxX")->text(), "2.9");
        type(dialog, "txtMinY", "ten"); // locked: it takes no part
        const auto reddest = [&] {
            const QImage box = dialog.findChild<QLineEdit*>("txtMaxX")->grab().toImage();
            int most = 0;
            for (int x = 0; x < box.width(); ++x)
                most = qMax(most, box.pixelColor(x, 1).red() - box.pixelColor(x, 1).blue());
            return most;
        };
        const int before = reddest();
        for (const char* wrong : {"ten", "", "2,5,1", "1e999"}) {
            type(dialog, "txtMaxX", wrong);
            if (!*wrong) press(dialog, "txtMaxX", Qt::Key_Delete);
            EXPECT_GT(reddest(), before + 50) << wrong;
            press(dialog, "cmdApply");
            EXPECT_TRUE(dialog.isVisible()) << wrong;
            EXPECT_EQ(dialog.findChild<QLineEdit*>("txtMaxX")->text(), wrong);
            EXPECT_FALSE(dialog.findChild<QLabel*>("problem")->text().isEmpty()) << wrong;
            EXPECT_EQ(dialog.focusWidget()->objectName(), "txtMaxX") << wrong;
        }
        type(dialog, "txtMaxX", "5,9");
        EXPECT_TRUE(dialog.findChild<QLabel*>("problem")->text().isEmpty());
        press(dialog, "cmdApply");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(p.number(StripLength), 5.9 - 1.1);
    EXPECT_EQ(p.number(StripMinimumY), VXXYGRAPH(nullptr).inCTRL().properties().number(StripMinimumY));
}

TEST(GraphConfig, CancelChangesNothing) {
    for (const Kind kind : {Kind::TimeGraph, Kind::XYGraph}) {
        const auto graph = makeInstrument(kind, nullptr);
        graph->show();
        graph->inCTRL().properties().setNumber(StripGrid, 77); // which no word stands for
        QStringList before;
        graph->Serialise(before);
        inDialog(*graph, [&](QDialog& dialog) {
            press(dialog, "cmbSymbol", Qt::Key_End);
            press(dialog, "AutoScaleYChk");
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QStringList after;
        graph->Serialise(after);
        EXPECT_EQ(after, before);
    }
}

TEST(GraphConfig, AllPropertiesOpenTheSheet) {
    VXSTRIP strip(nullptr);
    strip.show();
    bool sheet = false;
    inDialog(strip, [&](QDialog& dialog) {
        QTimer::singleShot(0, [&] {
            auto* opened = qobject_cast<PropertySheet*>(QApplication::activeModalWidget());
            sheet = opened != nullptr;
            if (opened) opened->reject();
        });
        type(dialog, "ConfigValueTxt0", "7");
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->text() == "All Properties...") return button->click();
        ADD_FAILURE();
    });
    EXPECT_TRUE(sheet);
    EXPECT_EQ(strip.inCTRL().properties().number(StripLength), 7) << "the fields are applied";
}

} // namespace
} // namespace vistor
