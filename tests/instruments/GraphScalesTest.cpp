#include "instruments/GraphScales.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(GraphScales, FollowTheDataAndTheAspectRule) {
    // X 0 to 10 and Y 2 to 6 were plotted; axes stood at X 100 to 120 and Y -1 to 1.
    const GraphAxes before{.origin = 100, .length = 20, .lowestY = -1, .highestY = 1};
    const GraphData data{.lowestX = 0, .highestX = 10, .lowestY = 2, .highestY = 6};
    const struct {
        const char* name;
        bool autoX, autoY, fixAspect;
        double width, height;
        GraphAxes after;
    } cases[] = {
        {"none", false, false, true, 100, 100, before},
        {"Y", false, true, false, 100, 100, {100, 20, 2, 6}},
        {"X", true, false, false, 100, 100, {0, 10, -1, 1}},
        {"both", true, true, false, 100, 100, {0, 10, 2, 6}},
        // Shape 0.25, data 0.4: k = 0.8, X becomes Y's range widened by 3.2 either way.
        {"flat display widens X", true, true, true, 400, 100, {-1.2, 10.4, 2, 6}},
        // Shape 0.8, data 0.4: k = 1, Y widens by its 4 either way.
        {"tall display widens Y", true, true, true, 100, 80, {0, 10, -2, 10}},
        // Shape 1, data 4 / 20: k = 2.5.
        {"Y alone", false, true, true, 100, 100, {100, 20, -8, 16}},
        {"Y alone, X not widened", false, true, true, 1000, 100, {100, 20, 2, 6}},
        // Shape 0.1, data 2 / 10: k = 1, from the Y range that stands.
        {"X alone", true, false, true, 1000, 100, {-3, 6, -1, 1}},
        {"X alone, Y not widened", true, false, true, 100, 100, {0, 10, -1, 1}},
        {"no display", true, true, true, 0, 0, {0, 10, 2, 6}},
    };
    for (const auto& c : cases) {
        const GraphAxes after = scaledAxes(before, data, {c.autoX, c.autoY, c.fixAspect, c.width, c.height});
        EXPECT_NEAR(after.origin, c.after.origin, 1e-12) << c.name;
        EXPECT_NEAR(after.length, c.after.length, 1e-12) << c.name;
        EXPECT_NEAR(after.lowestY, c.after.lowestY, 1e-12) << c.name;
        EXPECT_NEAR(after.highestY, c.after.highestY, 1e-12) << c.name;
    }
    const GraphAxes backward{.origin = 10, .length = -5, .lowestY = 0, .highestY = 1};
    EXPECT_EQ(scaledAxes(backward, data, {false, true, true, 100, 100}), (GraphAxes{10, -5, 2, 6}))
        << "nothing is visible of a negative length";
    const GraphData one{.lowestX = 5, .highestX = 5, .lowestY = 2, .highestY = 2};
    EXPECT_EQ(scaledAxes(before, one, {true, true, true, 100, 100}), (GraphAxes{5, 0, 2, 2})) << "one point";
}

} // namespace
} // namespace vistor
