#include "dashboard/SplitterRules.h"
#include "dashboard/VXSPLITTER.h"
#include "tests/ScriptedPrompts.h"

#include <QSplitter>
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

TEST(VXSPLITTER, PanesFillTheControl) {
    struct Case {
        int style, orientation;
        int left, top; ///< of the bar, twips
        QRect pane0, pane1;
    };
    const Case cases[] = {
        {kTwoPanes, kVerticalBar, 1500, 0, {0, 0, 100, 200}, {104, 0, 296, 200}},
        {kTwoPanes, kHorizontalBar, 0, 900, {0, 0, 400, 60}, {0, 64, 400, 136}},
        {kTwoPanes, kVerticalBar, 150, 0, {0, 0, 10, 200}, {14, 0, 386, 200}}, // nearer than a drag may go
        {kSinglePaneLeft, kVerticalBar, 1500, 0, {0, 0, 400, 200}, {}},
        {kSinglePaneBottom, kHorizontalBar, 0, 900, {}, {0, 0, 400, 200}},
    };
    for (const Case& c : cases) {
        VXSPLITTER splitter;
        splitter.Size(6000, 3000);
        splitter.show();
        splitter.setStyle(c.style);
        splitter.setSplitterOrientation(c.orientation);
        splitter.setSplitterLeft(c.left);
        splitter.setSplitterTop(c.top);
        for (const auto& [number, place] : {std::pair(0, c.pane0), std::pair(1, c.pane1)}) {
            EXPECT_EQ(splitter.pane(number)->isVisible(), !place.isEmpty()) << c.left << ' ' << number;
            if (place.isEmpty()) continue;
            EXPECT_EQ(splitter.pane(number)->geometry(), place) << c.left;
        }
        splitter.Size(7500, 3000);
        EXPECT_EQ(splitter.SplitterLeft(), c.left) << "only the second pane grows";
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
    QWidget* bar = splitter.findChild<QSplitter*>()->handle(1);
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
