#include "instruments/VXAGAUGE.h"

#include "ShownGauge.h"
#include "instruments/Colours.h"
#include "instruments/PropertyEditors.h"
#include "instruments/PropertyModel.h"
#include "instruments/PropertySheet.h"
#include "instruments/displays/AngularGaugeDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

TEST(VXAGAUGE, ValuesGoToTheNeedleOfTheirPin) {
    const struct {
        int needles;
        int pin;
        int section; ///< -1: none
    } cases[] = {{1, 1, 0}, {1, 7, -1}, {3, 1, 1}, {3, 2, 2}, {3, 3, 0}, {3, 5, -1}, {2, -1, -1}, {0, 1, -1}};
    for (const auto& c : cases) {
        VXAGAUGE gauge(nullptr);
        PropertyStore& p = gauge.inCTRL().properties();
        p.setNumber(GaugeNeedles, c.needles);
        gauge.refreshValue(std::int16_t(c.pin), 12.5F);
        for (int i = 0; i < c.needles; ++i)
            EXPECT_EQ(p.number(NeedleValue, i), i == c.section ? 12.5 : 0) << c.pin;
    }
}

TEST(VXAGAUGE, FeedsThePropertiesWindowFromTheCurrentSections) {
    VXAGAUGE gauge(nullptr);
    gauge.show();
    PropertyStore& p = gauge.inCTRL().properties();
    p.setNumber(TicStep, 1, 2.5);
    p.setNumber(TicStopValue, 1, 40);
    p.setNumber(TicSelector, 1);
    QSignalSpy shown(&gauge, &Instrument::propertiesShown);
    PropertiesWindowShown = true;
    QTest::mouseMove(gauge.windowHandle(), QPoint(50, 50));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(0).toString(), "Angular Gauge");
    EXPECT_EQ(shown.at(0).at(1).toStringList(),
              (QStringList{"Tic Start Value", "Tic Stop Value", "Tic Default Value", "Tic Labels",
                           "Scale Start Angle", "Scale Stop Angle", "Annuler Inner Radius",
                           "Annuler Outer Radius", "Annuler Start Value", "Annuler Stop Value"}));
    EXPECT_EQ(shown.at(0).at(2).toStringList(),
              (QStringList{"0", "40", "2.5", "Off", "-135", "135", "0.935", "0.975", "80", "100"}));
}

/// A gauge to look at, with the places that its display paints to.
struct ShownGauge {
    VXAGAUGE gauge{nullptr};
    PropertyStore& p = gauge.inCTRL().properties();

    explicit ShownGauge(int size) { gauge.setSizeTwips(size * 15, size * 15); }
    /// The colour at a share of the radius and an angle, so many pixels to the left of that ray.
    QColor at(double share, double angle, double aside = 0) {
        const DialLayout layout = layOutDial(p, gauge.inCTRL().rect(), Qt::white);
        const QPointF left = dialPoint({}, aside, angle - 90);
        const QPointF place = dialPoint(layout.dial.centre, share * layout.dial.radius, angle) + left;
        return pictureOf(gauge).pixelColor(int(place.x()), int(place.y()));
    }
};

TEST(VXAGAUGE, NeedlePointsAtItsValue) {
    const struct {
        double value;
        double angle;
    } cases[] = {{0, -135}, {25, -67.5}, {50, 0}, {75, 67.5}, {100, 135}, {250, 135}, {-1e300, -135}};
    for (const int size : {300, 800}) {
        ShownGauge shown(size);
        const QColor needle = colourOf(shown.p.integer(NeedleColour, 0));
        const double aside = size * 0.006;
        for (const auto& c : cases) {
            shown.gauge.refreshValue(1, float(std::max(c.value, -1e30)));
            EXPECT_TRUE(isNearly(shown.at(0.5, c.angle, aside), needle)) << size << ": " << c.value;
            EXPECT_FALSE(isNearly(shown.at(0.5, c.angle + 30, aside), needle)) << size << ": " << c.value;
            EXPECT_FALSE(isNearly(shown.at(0.5, c.angle + 180, aside), needle)) << "the tail is short";
        }
    }
    ShownGauge lost(300);
    lost.gauge.refreshValue(1, std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE(isNearly(lost.at(0.5, -135, 2), colourOf(lost.p.integer(NeedleColour, 0))));
}

TEST(VXAGAUGE, MovingNeedlesLeaveNoTrace) {
    ShownGauge shown(300);
    shown.p.setNumber(GaugeNeedles, 2);
    shown.gauge.mode(false);
    shown.gauge.show();
    QTest::qWait(20);
    for (const float value : {3.0F, 97.0F, 40.0F, 41.0F, 250.0F}) {
        shown.gauge.refreshValue(1, value);
        shown.gauge.refreshValue(2, 100 - value);
        expectNoTrace(shown.gauge, value);
    }
}

TEST(VXAGAUGE, PartsStandWhereTheyAreAsked) {
    ShownGauge shown(400);
    shown.gauge.setColour(0x00C864, 0);
    EXPECT_EQ(pictureOf(shown.gauge).pixelColor(1, 1), colourOf(0x00C864)) << "the page behind";
    const auto angle = [](double value) { return -135 + 2.7 * value; };
    const QColor band = colourOf(shown.p.integer(AnnularColour, 0));
    EXPECT_EQ(shown.at(0.955, angle(91)), band);
    EXPECT_NE(shown.at(0.955, angle(79)), band);
    EXPECT_NE(shown.at(0.89, angle(91)), band);
    EXPECT_EQ(shown.at(0.82, angle(70)), colourOf(shown.p.integer(TicColour, 0)));
    EXPECT_EQ(shown.at(0.89, angle(72)), colourOf(shown.p.integer(TicColour, 1)));
    shown.p.setNumber(ScaleStopAngle, 0, 45);
    EXPECT_EQ(shown.at(0.955, -135 + 1.8 * 91), band) << "all parts follow their scale";
    shown.p.setNumber(GaugeOnPage, 0);
    EXPECT_EQ(pictureOf(shown.gauge).pixelColor(1, 1), colourOf(shown.p.integer(GaugeBackColour)));
}

TEST(VXAGAUGE, ScaleRunsOverTheValuesOfItsTics) {
    ShownGauge shown(300);
    PropertyStore& p = shown.p;
    const auto scale = [&](std::size_t i) {
        const DialScale s = layOutDial(p, QRectF(0, 0, 300, 300), Qt::white).scales.at(i).scale;
        return std::pair(s.startValue, s.stopValue);
    };
    EXPECT_EQ(scale(0), std::pair(0.0, 100.0));
    p.setNumber(TicStopValue, 0, 8000);
    EXPECT_EQ(scale(0), std::pair(0.0, 8000.0));
    p.setNumber(TicStartValue, 1, -500);
    p.setNumber(TicStopValue, 1, 500);
    EXPECT_EQ(scale(0), std::pair(-500.0, 8000.0));
    p.setNumber(GaugeScales, 2);
    p.setNumber(TicScale, 1, 1);
    EXPECT_EQ(scale(0), std::pair(0.0, 8000.0));
    EXPECT_EQ(scale(1), std::pair(-500.0, 500.0));
    p.setNumber(TicStartValue, 0, 9000);
    EXPECT_EQ(scale(0), std::pair(9000.0, 8000.0)) << "downwards as its tics run";
}

TEST(VXAGAUGE, ScalesThatAreNotThereGiveWayToTheNearest) {
    for (const int scales : {0, 1, 3}) {
        ShownGauge shown(300);
        shown.p.setNumber(GaugeScales, scales);
        shown.p.setNumber(TicScale, 0, 7);
        shown.p.setNumber(TicStopValue, 0, 8000);
        shown.p.setNumber(NeedleScale, 0, 7);
        const DialLayout layout = layOutDial(shown.p, QRectF(0, 0, 300, 300), Qt::white);
        EXPECT_EQ(layout.needles.at(0).on.scale.stopValue, 8000) << scales << " scales";
    }
}

TEST(VXAGAUGE, WhatNamesASectionFollowsIt) {
    PropertyStore start(kAngularGaugeTable);
    start.setNumber(GaugeScales, 3);
    start.setNumber(GaugeTics, 4);
    for (int tic = 0; tic < 4; ++tic) start.setNumber(TicScale, tic, tic == 3 ? 99 : tic);
    const auto named = [](const PropertyStore& p) {
        std::vector<int> scales;
        for (int tic = 0; tic < 4; ++tic) scales.push_back(p.sectionNamed(TicScale, tic));
        return scales;
    };
    const std::size_t scales = 1;
    const struct {
        bool adds;
        int row;
        std::vector<int> after;
    } cases[] = {{true, 0, {0, 2, 3, 3}},
                 {true, 2, {0, 1, 2, 2}},
                 {false, 0, {0, 0, 1, 1}},
                 {false, 1, {0, 1, 1, 1}},
                 {false, 2, {0, 1, 1, 1}}};
    for (const auto& c : cases) {
        PropertyModel model(start);
        if (c.adds)
            model.addSection({scales, c.row});
        else
            model.removeSection({scales, c.row});
        EXPECT_EQ(named(model.draft()), c.after) << (c.adds ? "behind " : "without ") << c.row;
        EXPECT_EQ(model.draft().sectionNamed(CaptionFont, 0), 1) << "other lists are left alone";
    }
    PropertyModel model(start);
    const auto lines = model.match(model.index(0, 0), Qt::DisplayRole, "Tic Scale", -1, Qt::MatchRecursive);
    ASSERT_EQ(lines.size(), 4);
    const QModelIndex last = lines.last().siblingAtColumn(PropertyModel::ValueColumn);
    EXPECT_EQ(last.data(), "Scale 3");
    EXPECT_EQ(last.data(PropertyModel::WordsRole), (QStringList{"Scale 1", "Scale 2", "Scale 3"}));
}

TEST(VXAGAUGE, SheetAddsAndRemovesNeedles) {
    VXAGAUGE gauge(nullptr);
    gauge.show();
    gauge.refreshValue(1, 40);
    const auto press = [](PropertySheet& sheet, const QString& line, const QString& button) {
        auto* view = sheet.findChild<PropertyView*>();
        const QModelIndexList found = view->model()->match(view->model()->index(0, 0), Qt::DisplayRole, line,
                                                           1, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << line.toStdString();
        view->setCurrentIndex(found.first());
        for (auto* push : sheet.findChildren<QPushButton*>())
            if (push->text() == button) return QTest::mouseClick(push, Qt::LeftButton);
        ADD_FAILURE() << button.toStdString();
    };
    int previewed = 0;
    QTimer::singleShot(0, [&] {
        auto* sheet = qobject_cast<PropertySheet*>(QApplication::activeModalWidget());
        ASSERT_NE(sheet, nullptr);
        press(*sheet, "Needles (1)", "Add Needle");
        press(*sheet, "Needles (2)", "Add Needle");
        previewed = gauge.inCTRL().properties().integer(GaugeNeedles);
        press(*sheet, "Needle 2", "Remove Needle 2");
        sheet->accept();
    });
    gauge.mnuProperties_Click();
    EXPECT_EQ(previewed, 3);
    EXPECT_EQ(gauge.pinCount(), 2);
    EXPECT_EQ(gauge.inCTRL().properties().number(NeedleValue, 1), 40) << "pin 1 keeps its needle";
    gauge.refreshValue(2, 70);
    EXPECT_EQ(gauge.inCTRL().properties().number(NeedleValue, 0), 70);
}

TEST(VXAGAUGE, DropOnOneNeedleTakesPinOne) {
    VXAGAUGE gauge(nullptr);
    gauge.FunctionDrop("first");
    gauge.FunctionDrop("second");
    EXPECT_EQ(gauge.curVarTable().count(), 1);
    EXPECT_EQ(gauge.curVarTable().at(1), "second");
}

} // namespace
} // namespace vistor
