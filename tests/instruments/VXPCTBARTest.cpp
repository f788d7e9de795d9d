#include "instruments/VXPCTBAR.h"

#include "ShownGauge.h"
#include "instruments/Colours.h"
#include "instruments/displays/PercentLayout.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QSignalSpy>

#include <limits>

namespace vistor {
namespace {

constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

TEST(VXPCTBAR, FeedsThePropertiesWindow) {
    VXPCTBAR bar(nullptr);
    bar.show();
    PropertyStore& p = bar.inCTRL().properties();
    QSignalSpy shown(&bar, &Instrument::propertiesShown);
    PropertiesWindowShown = true;
    QTest::mouseMove(bar.windowHandle(), QPoint(60, 30));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.at(0).at(0).toString(), "Percentage Bar");
    EXPECT_EQ(shown.at(0).at(1).toStringList(), (QStringList{"Direction", "Orientation", "Display Mode",
                                                             "Percent Mode", "Start Angle", "Min", "Max"}));
    EXPECT_EQ(shown.at(0).at(2).toStringList(),
              (QStringList{"Forward", "Horizontal", "Linear", "Percentage", "0", "0", "100"}));
    for (const int number : {PercentDirection, PercentOrientation, PercentDisplayMode, PercentPercentMode})
        p.setNumber(number, 1);
    QTest::mouseMove(bar.windowHandle(), QPoint(61, 31));
    EXPECT_EQ(shown.last().at(2).toStringList().first(4),
              (QStringList{"Backward", "Vertical", "Radial", "Ratio"}));
    for (const int number : {PercentDirection, PercentOrientation, PercentDisplayMode, PercentPercentMode})
        p.setNumber(number, -3);
    QTest::mouseMove(bar.windowHandle(), QPoint(62, 32));
    EXPECT_EQ(shown.last().at(2).toStringList().first(4),
              (QStringList{"Forward", "Vertical", "Radial", "Ratio"}));
}

/// A bar to look at, without texts, with the places that its display paints to.
struct ShownBar {
    VXPCTBAR bar{nullptr};
    PropertyStore& p = bar.inCTRL().properties();

    explicit ShownBar(int portions) {
        bar.setSizeTwips(220 * 15, 220 * 15);
        p.setNumber(PercentPortions, portions);
        for (int i = 0; i < portions; ++i) p.setNumber(PortionText, i, int(PortionTextForm::None));
    }
    void set(std::initializer_list<double> values) {
        std::int16_t pin = 0;
        for (const double value : values) bar.refreshValue(++pin, float(value));
    }
    /// Which portion's colour, by its pin from 0 on, stands at a share of the bar of portion `in`; -1: none.
    int at(double share, std::size_t in = 0) {
        const PercentPlan plan = layOutPercent(p, bar.inCTRL().rect(), Qt::white);
        const QColor seen = pictureOf(bar).pixelColor(plan.barOf(in).middle(share).toPoint());
        for (std::size_t i = 0; i < plan.portions.size(); ++i)
            if (isNearly(seen, plan.portions[i].colour)) return int(i);
        EXPECT_TRUE(isNearly(seen, plan.track)) << share;
        return -1;
    }
};

TEST(VXPCTBAR, PortionsStandInEveryFormAndDirection) {
    for (int form = 0; form < 8; ++form) {
        ShownBar shown(3);
        shown.p.setNumber(PercentDirection, form & 1);
        shown.p.setNumber(PercentOrientation, form >> 1 & 1);
        shown.p.setNumber(PercentDisplayMode, form >> 2);
        shown.set({20, 40, 10});
        for (const auto& [share, section] : {std::pair(0.1, 0), {0.3, 1}, {0.55, 1}, {0.65, 2}, {0.8, -1}})
            EXPECT_EQ(shown.at(share), section) << form << ": " << share;
        shown.p.setNumber(PercentPercentMode, 1);
        for (const auto& [share, section] : {std::pair(0.2, 0), {0.4, 1}, {0.8, 1}, {0.95, 2}})
            EXPECT_EQ(shown.at(share), section) << form << ": " << share;
        shown.p.setNumber(PercentPercentMode, 0);
        shown.p.setNumber(PercentLayout, int(PortionLayout::SideBySide));
        for (const auto& [share, section] : {std::pair(0.1, 1), {0.35, 1}, {0.5, -1}})
            EXPECT_EQ(shown.at(share, 1), section) << form << ": " << share;
        shown.set({-10, kNotANumber, 1e300});
        EXPECT_EQ(shown.at(0.1, 0), -1) << form;
        EXPECT_EQ(shown.at(0.1, 1), -1) << form;
        EXPECT_EQ(shown.at(0.9, 2), 2) << form;
    }
}

TEST(VXPCTBAR, TextsTellPortions) {
    ShownBar shown(1);
    const auto text = [&](PortionTextForm form, double value) {
        shown.p.setNumber(PortionText, 0, int(form));
        const PercentPlan plan = layOutPercent(shown.p, shown.bar.inCTRL().rect(), Qt::white);
        PortionSpan span;
        placePortions(plan.rule, {&value, 1}, {&span, 1});
        return portionText(plan, 0, value, span);
    };
    shown.p.setNumber(PercentMax, 8);
    shown.p.setText(PercentUnit, u" bar");
    shown.p.setText(PortionName, 0, u"Oil");
    EXPECT_EQ(text(PortionTextForm::Percent, 2), "25 %");
    EXPECT_EQ(text(PortionTextForm::Percent, 10), "125 %");
    EXPECT_EQ(text(PortionTextForm::Percent, double(kNotANumber)), "–");
    EXPECT_EQ(text(PortionTextForm::Value, 2), "2.0 bar");
    EXPECT_EQ(text(PortionTextForm::Value, -1e300), "-1e+300 bar");
    EXPECT_EQ(text(PortionTextForm::Name, 2), "Oil");
    EXPECT_EQ(text(PortionTextForm::None, 2), "");
}

TEST(VXPCTBAR, TextStandsOutOnBarAndTrack) {
    ShownBar shown(1);
    shown.p.setNumber(PortionText, 0, int(PortionTextForm::Percent));
    const auto pixels = [&](const QColor& colour) {
        const QImage picture = pictureOf(shown.bar);
        int found = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) found += picture.pixelColor(x, y) == colour ? 1 : 0;
        return found;
    };
    const QColor off = colourOf(shown.p.integer(PercentTextColour));
    const QColor on = colourOf(shown.p.integer(PortionTextColour));
    shown.set({0});
    EXPECT_GT(pixels(off), 50);
    shown.set({100});
    EXPECT_EQ(pixels(off), 0);
    EXPECT_GT(pixels(on), 50);
    shown.set({50});
    EXPECT_GT(pixels(off), 20) << "half of it on the track";
    EXPECT_GT(pixels(on), 20);
}

TEST(VXPCTBAR, ValuesGoToThePortionOfTheirPin) {
    VXPCTBAR bar(nullptr);
    PropertyStore& p = bar.inCTRL().properties();
    p.setNumber(PercentPortions, 3);
    EXPECT_EQ(bar.pinCount(), 3);
    for (const int pin : {1, 2, 3}) bar.refreshValue(std::int16_t(pin), float(pin));
    EXPECT_EQ(p.number(PortionValue, 1), 1);
    EXPECT_EQ(p.number(PortionValue, 2), 2);
    EXPECT_EQ(p.number(PortionValue, 0), 3) << "the last pin wraps round";
    for (const int pin : {0, 4, 5, 6, -1}) bar.refreshValue(std::int16_t(pin), 99);
    for (const int section : {0, 1, 2}) EXPECT_NE(p.number(PortionValue, section), 99) << "no such portion";
}

TEST(VXPCTBAR, MovingPortionsLeaveNoTrace) {
    for (int form = 0; form < 8; ++form) {
        VXPCTBAR bar(nullptr);
        PropertyStore& p = bar.inCTRL().properties();
        bar.setSizeTwips(3000, 3000);
        p.setNumber(PercentPortions, 2);
        p.setNumber(PercentDisplayMode, form & 1);
        p.setNumber(PercentLayout, form >> 1 & 1);
        p.setNumber(PercentPercentMode, form >> 2);
        bar.mode(false);
        bar.show();
        QTest::qWait(20);
        for (const float value : {3.0F, 97.0F, 41.0F, 250.0F, kNotANumber, -3.0F}) {
            bar.refreshValue(1, value);
            bar.refreshValue(2, 100 - value);
            expectNoTrace(bar, value);
        }
    }
}

} // namespace
} // namespace vistor
