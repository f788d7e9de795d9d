#include "instruments/displays/PercentGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(PercentGeometry, PortionsFollowTheirRule) {
    const PortionRule stacked{.range = {0, 100}};
    const PortionRule beside{.range = {0, 100}, .ratio = false, .stacked = false};
    const PortionRule ratio{.range = {0, 100}, .ratio = true, .stacked = true};
    const PortionRule ratioBeside{.range = {0, 100}, .ratio = true, .stacked = false};
    const struct {
        PortionRule rule;
        std::vector<double> values;
        std::vector<PortionSpan> spans;
    } cases[] = {
        {stacked, {25, 50}, {{0, 0.25}, {0.25, 0.75}}},
        {stacked, {75, 50, 10}, {{0, 0.75}, {0.75, 1}, {1, 1}}},
        {stacked, {-5, kNotANumber, 30}, {{0, 0}, {0, 0}, {0, 0.3}}},
        {beside, {25, 50, 1e9}, {{0, 0.25}, {0, 0.5}, {0, 1}}},
        {{.range = {100, 0}}, {25}, {{0, 0.75}}},
        {{.range = {20, 20}}, {25}, {{0, 0}}},
        {{.range = {-50, 50}}, {0}, {{0, 0.5}}},
        {ratio, {1, 3}, {{0, 0.25}, {0.25, 1}}},
        {ratio, {0, 0}, {{0, 0}, {0, 0}}},
        {ratio, {-3, 3, kNotANumber}, {{0, 0}, {0, 1}, {1, 1}}},
        {ratio, {kInfinite, kInfinite}, {{0, 0.5}, {0.5, 1}}},
        {ratioBeside, {1, 3}, {{0, 0.25}, {0, 0.75}}},
        {stacked, {}, {}},
    };
    for (const auto& c : cases) {
        std::vector<PortionSpan> spans(c.values.size());
        placePortions(c.rule, c.values, spans);
        EXPECT_EQ(spans, c.spans) << (c.values.empty() ? 0 : c.values[0]);
    }
    EXPECT_EQ(percentOf(stacked, 130, {0, 1}), 130) << "the number tells what the bar cannot";
    EXPECT_EQ(percentOf(stacked, -20, {0, 0}), -20);
    EXPECT_EQ(percentOf(ratio, 3, {0.25, 1}), 75);
    EXPECT_TRUE(std::isnan(percentOf(stacked, kInfinite, {0, 1})));
    EXPECT_TRUE(std::isnan(percentOf({.range = {20, 20}}, 5, {})));
}

TEST(PercentGeometry, BarsShareTheirRoom) {
    const QRectF room(10, 20, 200, 100);
    for (const bool vertical : {false, true}) {
        for (const bool backward : {false, true}) {
            const auto bars = straightBars(room, vertical, backward, 3, 0.2);
            ASSERT_EQ(bars.size(), 3U);
            EXPECT_EQ(bars[0].bounds().united(bars[2].bounds()), room);
            EXPECT_FALSE(bars[0].bounds().intersects(bars[1].bounds()));
            const QPointF start = bars[0].middle(0);
            if (vertical)
                EXPECT_EQ(start.y(), backward ? 20 : 120);
            else
                EXPECT_EQ(start.x(), backward ? 210 : 10);
            EXPECT_EQ(bars[0].part(0, 1).boundingRect(), bars[0].bounds());
        }
    }
    EXPECT_EQ(straightBars(QRectF(), false, false, 256, 0.2).size(), 256U);
}

TEST(PercentGeometry, RingsKeepToTheirRoomAndTurn) {
    const QRectF room(0, 0, 200, 100);
    const struct {
        RingForm form;
        bool backward;
        QPointF quarter; ///< from the centre, where a quarter of the outermost ring stands
    } cases[] = {{{}, false, {1, 0}},
                 {{}, true, {-1, 0}},
                 {{.startAngle = -90, .sweep = 180}, false, {-std::sqrt(0.5), -std::sqrt(0.5)}},
                 {{.startAngle = 90, .sweep = 1e300, .width = 1}, false, {0, 1}}};
    for (const auto& c : cases) {
        for (const int count : {1, 4, 256}) {
            const auto bars = ringBars(room, c.form, c.backward, count);
            ASSERT_EQ(bars.size(), std::size_t(count));
            const PercentBar& ring = bars.front();
            EXPECT_TRUE(room.adjusted(-1, -1, 1, 1).contains(ring.part(0, 1).boundingRect()));
            const QPointF quarter = ring.middle(0.25) - ring.place.centre;
            const double size = std::hypot(quarter.x(), quarter.y());
            EXPECT_NEAR(quarter.x() / size, c.quarter.x(), 1e-6);
            EXPECT_NEAR(quarter.y() / size, c.quarter.y(), 1e-6);
            for (std::size_t i = 1; i < bars.size(); ++i) EXPECT_LE(bars[i].outer, bars[i - 1].inner);
            EXPECT_GE(bars.back().inner, 0);
        }
    }
}

} // namespace
} // namespace vistor
