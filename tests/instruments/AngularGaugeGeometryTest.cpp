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

TEST(AngularGaugeGeometry, TicsRunFromStartToStop) {
    const struct {
        double start, stop, step;
        double size;
        int count;
    } cases[] = {
        {0, 8000, 1000, 1000, 9}, {0, 8000, 0, 1000, 9},   {0, 1, 0.1, 0.1, 11},
        {100, 0, 25, -25, 5},     {0, 10, -5, 5, 3},       {0, 10, 3, 3, 4},
        {0, 1e6, 1, 1e5, 11},     {7, 7, 1, 1, 1},         {0, 100, kNotANumber, 10, 11},
        {-2, 2, 0, 0.5, 9},       {0, kHuge, 0, 2e307, 9}, {0, 100, kInfinite, 10, 11},
    };
    for (const auto& c : cases) {
        const TicRun run = ticRun(c.start, c.stop, c.step);
        EXPECT_DOUBLE_EQ(run.step, c.size) << c.stop;
        EXPECT_EQ(run.count, c.count) << c.stop;
    }
    EXPECT_EQ(ticRun(-kHuge, kHuge, 1).count, 1) << "a range beyond all numbers";
    EXPECT_EQ(ticRun(0, kInfinite, 1).count, 1);
    for (const auto& [step, part] :
         {std::pair(1000, 200), {20, 5}, {25, 5}, {50, 10}, {30, 10}, {40, 10}, {60, 20}})
        EXPECT_DOUBLE_EQ(partOfStep(step), part) << step;
}

TEST(AngularGaugeGeometry, LabelsTellTicsApart) {
    const struct {
        TicRun run;
        double divisor;
        int decimals;
        const char* second;
    } cases[] = {
        {{0, 1000, 9}, 1, 0, "1000"},  {{0, 1000, 9}, 1000, 0, "1"},  {{0, 500, 9}, 1000, 1, "0.5"},
        {{0.25, 1, 9}, 1, 2, "1.25"},  {{-0.1, 0.1, 9}, 1, 1, "0.0"}, {{0, 1.0 / 3, 9}, 1, 6, "0.333333"},
        {{0, 4e11, 9}, 1, 0, "4e+11"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(labelDecimals(c.run, c.divisor), c.decimals) << c.second;
        EXPECT_EQ(labelText(c.run.value(1) / c.divisor, c.decimals).toStdString(), c.second);
    }
    EXPECT_EQ(labelText(-1e-9, 1), "0.0") << "no negative zero";
}

TEST(AngularGaugeGeometry, CrowdedLabelsAreThinnedOut) {
    const auto row = [](int count, double pitch) {
        std::vector<QRectF> boxes;
        for (int i = 0; i < count; ++i) boxes.emplace_back(i * pitch, 0, 10, 10);
        return boxes;
    };
    EXPECT_EQ(labelsWithRoom(row(5, 12)), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(labelsWithRoom(row(5, 6)), (std::vector<int>{0, 2, 4}));
    EXPECT_EQ(labelsWithRoom(row(11, 2.5)), (std::vector<int>{0, 5, 10}));
    EXPECT_EQ(labelsWithRoom(row(4, 0)), (std::vector<int>{0}));
    EXPECT_TRUE(labelsWithRoom({}).empty());
    std::vector<QRectF> turn = row(4, 12);
    turn.push_back(turn.front());
    EXPECT_EQ(labelsWithRoom(turn), (std::vector<int>{0, 1, 2, 3})) << "360 stands where 0 does";
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
