#include "dashboard/SplitterRules.h"
#include "dashboard/VXSPLITTER.h"
#include "tests/ScriptedPrompts.h"

#include <QTest>

#include <gtest/gtest.h>

namespace vistor {
namespace {

SplitterState stateOf(int style, int orientation, int left = 1000, int top = 800) {
    SplitterState state;
    state.style = style;
    state.orientation = orientation;
    state.barLeft = left;
    state.barTop = top;
    state.width = 3000;
    state.height = 2000;
    return state;
}

TEST(SplitterRules, StyleTurnsTheBarAndKeepsItInside) {
    struct Case {
        int style;
        int before;
        int orientation;
        int left, top;
        int leftAfter, topAfter;
    };
    const Case cases[] = {
        {kTwoPanes, kVerticalBar, kVerticalBar, 100, 1900, 300, 1700},
        {kSinglePaneLeft, kHorizontalBar, kVerticalBar, 2701, 299, 2700, 300},
        {kSinglePaneRight, kHorizontalBar, kVerticalBar, 2700, 300, 2700, 300},
        {kSinglePaneTop, kVerticalBar, kHorizontalBar, -5, 5000, 300, 1700},
        {kSinglePaneBottom, kVerticalBar, kHorizontalBar, 1500, 1000, 1500, 1000},
    };
    for (const Case& c : cases) {
        SplitterState state = stateOf(kTwoPanes, c.before, c.left, c.top);
        applyStyle(state, c.style);
        EXPECT_EQ(state.orientation, c.orientation) << c.style;
        EXPECT_EQ(state.barLeft, c.leftAfter) << c.style;
        EXPECT_EQ(state.barTop, c.topAfter) << c.style;
    }
}

TEST(SplitterRules, PanesFillTheControl) {
    struct Case {
        SplitterState state;
        SplitterBox pane0, bar, pane1;
    };
    const Case cases[] = {
        {stateOf(kTwoPanes, kVerticalBar), {0, 0, 1000, 2000}, {1000, 0, 60, 2000}, {1060, 0, 1940, 2000}},
        {stateOf(kTwoPanes, kHorizontalBar), {0, 0, 3000, 800}, {0, 800, 3000, 60}, {0, 860, 3000, 1140}},
        {stateOf(kTwoPanes, kVerticalBar, 9999), {0, 0, 2940, 2000}, {2940, 0, 60, 2000}, {3000, 0, 0, 2000}},
        {stateOf(kTwoPanes, kVerticalBar, -7), {0, 0, 0, 2000}, {0, 0, 60, 2000}, {60, 0, 2940, 2000}},
        {stateOf(kSinglePaneLeft, kVerticalBar), {0, 0, 3000, 2000}, {}, {}},
        {stateOf(kSinglePaneBottom, kHorizontalBar), {}, {}, {0, 0, 3000, 2000}},
    };
    for (const Case& c : cases) {
        const SplitterBoxes boxes = arrange(c.state);
        EXPECT_EQ(boxes.pane0, c.pane0);
        EXPECT_EQ(boxes.bar, c.bar);
        EXPECT_EQ(boxes.pane1, c.pane1);
    }
}

TEST(VXSPLITTER, RefusesAnOrientationThatTheStyleForbids) {
    ScriptedPrompts prompts;
    VXSPLITTER splitter;
    EXPECT_EQ(splitter.SplitterOrientation(), kHorizontalBar);
    EXPECT_EQ(splitter.SplitterLeft(), 3165 / 2);
    EXPECT_EQ(splitter.SplitterTop(), 2498 / 2);
    splitter.setStyle(kSinglePaneRight);
    splitter.setSplitterOrientation(kHorizontalBar);
    EXPECT_EQ(splitter.SplitterOrientation(), kVerticalBar);
    splitter.setStyle(kSinglePaneTop);
    splitter.setSplitterOrientation(kVerticalBar);
    EXPECT_EQ(splitter.SplitterOrientation(), kHorizontalBar);
    EXPECT_EQ(prompts.takeWords(),
              QStringList({"Cannot Set Orientation to Horizontal while the Style property is set to "
                           "vbSinglePaneLeft or vbuSinglePaneRight",
                           "Cannot Set Orientation to Vertical while the Style property is set to "
                           "vbSinglePaneTop or vbuSinglePaneBottom"}));
    EXPECT_EQ(prompts.messages.at(0).title, "vbuSplitter");
    splitter.setStyle(kTwoPanes);
    splitter.setSplitterOrientation(kVerticalBar);
    EXPECT_EQ(splitter.SplitterOrientation(), kVerticalBar);
    EXPECT_TRUE(prompts.takeWords().isEmpty());
}

TEST(VXSPLITTER, TheBarFollowsTheMouseWithinItsLimits) {
    VXSPLITTER splitter;
    splitter.setSplitterOrientation(kVerticalBar);
    splitter.Size(6000, 3000);
    splitter.setSplitterLeft(3000);
    splitter.show();
    auto* bar = splitter.findChild<QWidget*>("bar");
    ASSERT_EQ(bar->x(), 200);
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(1, 20));
    QTest::mouseMove(bar, QPoint(1 - 50, 20));
    EXPECT_EQ(splitter.SplitterLeft(), 2250);
    QTest::mouseMove(bar, QPoint(-500, 20));
    EXPECT_EQ(splitter.SplitterLeft(), 300);
    QTest::mouseMove(bar, QPoint(2000, 20));
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(1, 20));
    EXPECT_EQ(splitter.SplitterLeft(), 5700);
    EXPECT_EQ(splitter.pane(0)->width(), 380);
    EXPECT_EQ(splitter.pane(1)->geometry(), QRect(384, 0, 16, 200));
}

} // namespace
} // namespace vistor
