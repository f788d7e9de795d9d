#include "instruments/displays/ScaleTics.h"

#include <gtest/gtest.h>
#include <limits>

namespace vistor {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kHuge = 1.7e308;

TEST(ScaleTics, TicsRunFromStartToStop) {
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

TEST(ScaleTics, LabelsTellTicsApart) {
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

TEST(ScaleTics, CrowdedLabelsAreThinnedOut) {
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

} // namespace
} // namespace vistor
