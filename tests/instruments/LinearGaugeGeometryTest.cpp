#include "instruments/displays/LinearGaugeGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(LinearGaugeGeometry, ValuesStandAlongTheirScale) {
    const struct {
        ValueRange range;
        double start, stop;
        double value;
        double along;
    } cases[] = {
        {{0, 100}, 200, 0, 0, 200},           {{0, 100}, 200, 0, 25, 150},       {{0, 100}, 200, 0, 1e9, 0},
        {{0, 100}, 200, 0, -5, 200},          {{0, 100}, 10, 90, 50, 50},        {{100, 0}, 10, 90, 75, 30},
        {{0, 100}, 10, 90, kNotANumber, 10},  {{0, 100}, 10, 90, kInfinite, 90}, {{5, 5}, 10, 90, 5, 10},
        {{-1.7e308, 1.7e308}, 0, 100, 0, 50},
    };
    for (const auto& c : cases) {
        const LinearScale scale{.range = c.range, .start = c.start, .stop = c.stop};
        EXPECT_DOUBLE_EQ(scale.along(c.value), c.along) << c.value;
    }
    const LinearScale upright{.range = {}, .vertical = true, .middle = 50, .unit = 100};
    EXPECT_EQ(upright.point(7, upright.across(0.25)), QPointF(25, 7));
    const LinearScale lying{.range = {}, .vertical = false, .middle = 50, .unit = 99};
    EXPECT_EQ(lying.point(7, lying.across(1)), QPointF(7, 100)) << "on whole pixels";
    EXPECT_EQ(lying.rect(9, 3, 8, 2), QRectF(3, 2, 6, 6));
}

/// An upright bar of 20 by 100 that begins at the bottom, and the same lying from the left.
constexpr BarSpan kUpright{.vertical = true, .from = 100, .to = 0, .near = 40, .far = 60};
constexpr BarSpan kLying{.vertical = false, .from = 0, .to = 100, .near = 40, .far = 60};

TEST(LinearGaugeGeometry, FormsKeepToTheirBars) {
    for (const BarSpan& bar : {kUpright, kLying}) {
        const QRectF whole = bar.rect(bar.from, bar.to);
        EXPECT_EQ(ellipsePart(bar, bar.from, bar.to).boundingRect(), whole);
        EXPECT_EQ(roundedPart(bar, bar.from, bar.to, 5, 5).boundingRect(), whole);
        const double sign = bar.to < bar.from ? -1 : 1;
        const QRectF vessel = thermometer(bar, bar.to - bar.from, true).boundingRect();
        EXPECT_EQ(vessel.united(bar.rect(bar.from - sign * bulbReach(20), bar.to)).width(), vessel.width());
        EXPECT_EQ(vessel.united(bar.rect(bar.from - sign * bulbReach(20), bar.to)).height(), vessel.height());
        const double depth = tankDepth(20);
        EXPECT_EQ(tank(bar).boundingRect(), bar.rect(bar.from - sign * depth, bar.to + sign * depth));
        EXPECT_EQ(tankEnd(bar).center(), bar.point(bar.to, 50));
    }
}

TEST(LinearGaugeGeometry, PartsAreCutStraight) {
    const struct {
        double from, to;
        double width; ///< of the ellipse's part
    } cases[] = {{100, 50, 20}, {50, 0, 20}, {60, 40, 20},  {100, 90, 12},
                 {100, 100, 0}, {20, 0, 16}, {300, -50, 20}};
    for (const auto& c : cases) {
        const QRectF bounds = ellipsePart(kUpright, c.from, c.to).boundingRect();
        EXPECT_NEAR(bounds.width(), c.width, 0.2) << c.from << " " << c.to;
        EXPECT_NEAR(bounds.bottom(), std::min(c.from, 100.0), 1e-9);
        EXPECT_NEAR(bounds.top(), std::max(c.to, 0.0), 1e-9);
    }
    const BarSpan flat{.vertical = true, .from = 7, .to = 7, .near = 3, .far = 3};
    EXPECT_TRUE(ellipsePart(flat, 7, 9).boundingRect().isEmpty());
    EXPECT_TRUE(std::isfinite(roundedPart(flat, 0, 9, 4, 4).boundingRect().width()));
}

TEST(LinearGaugeGeometry, MarksPointAtTheirPlace) {
    const BarSpan at{.vertical = true, .from = 30, .to = 30, .near = 80, .far = 60};
    EXPECT_EQ(triangleMark(at, 4).boundingRect(), QRectF(60, 26, 20, 8));
    EXPECT_EQ(triangleMark(at, 4).front(), QPointF(80, 30)) << "the tip";
    EXPECT_EQ(diamondMark(at, 4).boundingRect(), QRectF(60, 26, 20, 8));
}

} // namespace
} // namespace vistor
