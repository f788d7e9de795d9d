#include "instruments/displays/AngularGaugeGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kHuge = 1.7e308;

TEST(AngularGaugeGeometry, ValuesStandAtTheirAngles) {
    const struct {
        DialScale scale;
        double value;
        double angle;
    } cases[] = {
        {{0, 100, -135, 135}, 0, -135},
        {{0, 100, -135, 135}, 50, 0},
        {{0, 100, -135, 135}, 100, 135},
        {{0, 100, -135, 135}, -1, -135},
        {{0, 100, -135, 135}, 1e9, 135},
        {{0, 100, -135, 135}, kInfinite, 135},
        {{0, 100, -135, 135}, -kInfinite, -135},
        {{0, 100, -135, 135}, kNotANumber, -135},
        {{100, 0, -90, 90}, 75, -45},
        {{100, 0, -90, 90}, 150, -90},
        {{100, 0, -90, 90}, kInfinite, -90},
        {{0, 10, 130, 20}, 5, 75},
        {{0, 10, 0, 720}, 7.5, 540},
        {{5, 5, -90, 90}, 5, -90},
        {{-kHuge, kHuge, -90, 90}, 0, 0},
        {{0, 100, kNotANumber, 1e300}, 100, 3600},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(dialAngle(c.scale, c.value), c.angle) << c.value;
    const QPointF right = dialPoint({10, 10}, 5, 90);
    EXPECT_NEAR(right.x(), 15, 1e-9);
    EXPECT_NEAR(right.y(), 10, 1e-9);
}

TEST(AngularGaugeGeometry, DialFillsItsRoom) {
    const QRectF disc(-1, -1, 2, 2);
    EXPECT_EQ(placeFor(disc, QRectF(0, 0, 300, 200)).radius, 100);
    EXPECT_EQ(placeFor(disc, QRectF(0, 0, 300, 200)).centre, QPointF(150, 100));
    EXPECT_EQ(placeFor(disc, QRectF()).radius, 0);

    const DialSpan quarter[] = {{{0, 0}, 1, -90, 0}};
    const QRectF bounds = sectorOutline(quarter).boundingRect();
    EXPECT_NEAR(bounds.left(), -1, 0.01);
    EXPECT_NEAR(bounds.top(), -1, 0.01);
    EXPECT_LT(bounds.width(), 1.3);
    const DialPlace place = placeFor(bounds, QRectF(0, 0, 100, 100));
    EXPECT_GT(place.radius, 75) << "a quarter grows beyond half of its room";
    EXPECT_TRUE(QRectF(-1, -1, 102, 102).contains(place.centre - QPointF(place.radius, 0)));
    const DialSpan wild[] = {{{3, -3}, 4, 1e300, kNotANumber}};
    EXPECT_TRUE(std::isfinite(sectorOutline(wild).boundingRect().width()));
}

TEST(AngularGaugeGeometry, NeedlesKeepToTheirLength) {
    for (int shape = 0; shape <= int(NeedleShape::Mark); ++shape) {
        const QPolygonF half = needleHalf({NeedleShape(shape), 100, 20, 8, 2});
        EXPECT_EQ(half.boundingRect().top(), -100) << shape;
        EXPECT_LE(half.boundingRect().bottom(), 20) << shape;
        EXPECT_EQ(half.boundingRect().left(), 0) << shape;
        EXPECT_EQ(half.front().x(), 0) << shape;
        EXPECT_EQ(half.back().x(), 0) << shape;
    }
}

} // namespace
} // namespace vistor
