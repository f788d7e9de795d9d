#include "instruments/displays/StripAxes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kHuge = std::numeric_limits<double>::max();

TEST(StripAxes, TicsStandOnRoundNumbers) {
    const struct {
        AxisRange range;
        int most;
        const char* texts;
    } cases[] = {
        {{0, 100}, 6, "0 20 40 60 80 100"},
        {{0, 100}, 11, "0 10 20 30 40 50 60 70 80 90 100"},
        {{-3.2, 7.9}, 5, "0 5"},
        {{0.13, 0.87}, 5, "0.2 0.4 0.6 0.8"},
        {{-0.3, 0.3}, 7, "-0.3 -0.2 -0.1 0.0 0.1 0.2 0.3"},
        {{40000.5, 40030.5}, 4, "40010 40020 40030"},
        {{0.001, 0.0024}, 4, "0.0010 0.0015 0.0020"},
        {{0, 5e8}, 3, "0 5e+08"},
        {{1e12, 1e12 + 40}, 3, "1e+12 1.00000000002e+12 1.00000000004e+12"},
        {{0, 4e-7}, 3, "0 2e-07 4e-07"},
    };
    for (const auto& c : cases) {
        const Tics tics = ticsOf(c.range, c.most);
        QStringList texts;
        for (int i = 0; i < tics.count; ++i) texts << ticText(tics, i);
        EXPECT_EQ(texts.join(u' ').toStdString(), c.texts) << c.range.low << " to " << c.range.high;
    }
    const Tics halves = ticsOf({0, 1}, 3);
    EXPECT_EQ(ticText(halves, 1, 0), "0.5") << "never fewer than tell them apart";
    EXPECT_EQ(ticText(halves, 1, 3), "0.500");
}

TEST(StripAxes, AnyRangeCanBePaintedOn) {
    const double ends[] = {0, 1, -5, 1e-320, 1e-12, 3e38, -kHuge, kHuge, kInfinite, -kInfinite, kNotANumber};
    for (const double low : ends)
        for (const double high : ends) {
            const AxisRange range = paintable({low, high});
            ASSERT_TRUE(std::isfinite(range.length()) && range.length() > 0) << low << " to " << high;
            const Tics tics = ticsOf(range, 8);
            ASSERT_TRUE(tics.count >= 0 && tics.count <= 8 && std::isfinite(tics.at(tics.count)))
                << low << " to " << high;
            for (int i = 0; i < tics.count; ++i) ASSERT_LT(ticText(tics, i).size(), 24);
            const AxisMap map(range, 0, 300);
            ASSERT_LE(std::abs(map(kHuge)), AxisMap::kFar);
        }
    EXPECT_EQ(paintable({7, 7}), (AxisRange{6.65, 7.35}));
    EXPECT_EQ(paintable({9, 2}), (AxisRange{2, 9}));
    EXPECT_EQ(paintable({40000, 40030}), (AxisRange{40000, 40030}));
}

TEST(StripAxes, VisibleXEndsOrBeginsAtTheOrigin) {
    EXPECT_EQ(visibleX(100, 30, true), (AxisRange{70, 100}));
    EXPECT_EQ(visibleX(100, 30, false), (AxisRange{100, 130}));
    EXPECT_EQ(visibleX(100, -30, true), (AxisRange{100, 100}));
    EXPECT_EQ(visibleX(kNotANumber, kInfinite, false), (AxisRange{0, 0}));
}

TEST(StripAxes, NumbersAndLegendGiveWayToTheGrid) {
    const struct {
        QSizeF size;
        bool numbersX, numbersY, legend;
    } cases[] = {{{600, 300}, true, true, true},
                 {{160, 80}, true, true, false},
                 {{160, 50}, false, true, false},
                 {{90, 300}, true, false, true},
                 {{3, 3}, false, false, false}};
    for (const auto& c : cases) {
        const QRectF room(QPointF(1, 1), c.size);
        const StripLayout layout = layOutStrip(room, {.legend = true, .lineHeight = 12, .widestY = 30});
        const QRectF fine = layOutStrip(room, {.lineHeight = 12, .widestY = 30.3, .ratio = 1.25}).frame;
        for (const double edge : {fine.left(), fine.top(), fine.right(), fine.bottom()})
            EXPECT_TRUE(c.size.width() < 4 || edge * 1.25 == std::round(edge * 1.25)) << edge;
        EXPECT_EQ(layout.numbersX, c.numbersX) << c.size.width();
        EXPECT_EQ(layout.numbersY, c.numbersY) << c.size.width();
        EXPECT_EQ(!layout.legend.isEmpty(), c.legend) << c.size.width();
        EXPECT_TRUE(layout.frame.isValid() && layout.data.isValid()) << c.size.width();
        EXPECT_TRUE(room.adjusted(-1, -1, 1, 1).contains(layout.frame)) << c.size.width();
    }
}

} // namespace
} // namespace vistor
