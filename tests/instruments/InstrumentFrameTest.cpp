#include "instruments/InstrumentFrame.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

TEST(InstrumentFrame, HandlesStandRoundTheEdge) {
    const HandleRects rects = handleRects(0, 0, 3015, 1515);
    const int corners[kHandleCount][2] = {{0, 0},      {1467, 0}, {2935, 0},    {0, 717},
                                          {2935, 717}, {0, 1435}, {1467, 1435}, {2935, 1435}};
    for (std::size_t i = 0; i < rects.size(); ++i) {
        EXPECT_EQ(rects[i].left, corners[i][0]) << i;
        EXPECT_EQ(rects[i].top, corners[i][1]) << i;
        EXPECT_EQ(rects[i].right - rects[i].left, 80) << i;
        EXPECT_EQ(rects[i].bottom - rects[i].top, 80) << i;
    }
}

TEST(InstrumentFrame, FirstHandleUnderTheMouseWins) {
    const HandleRects wide = handleRects(0, 0, 3000, 1500);
    const HandleRects tiny = handleRects(0, 0, 90, 90);
    const struct {
        const HandleRects& rects;
        float x;
        float y;
        int handle;
        Qt::CursorShape pointer;
    } cases[] = {
        {wide, 0, 0, 0, Qt::SizeFDiagCursor},     {wide, 80, 80, 0, Qt::SizeFDiagCursor},
        {wide, 80.5F, 40, -1, Qt::SizeAllCursor}, {wide, 1500, 10, 1, Qt::SizeVerCursor},
        {wide, 2950, 5, 2, Qt::SizeBDiagCursor},  {wide, 5, 750, 3, Qt::SizeHorCursor},
        {wide, 2990, 750, 4, Qt::SizeHorCursor},  {wide, 10, 1490, 5, Qt::SizeBDiagCursor},
        {wide, 1500, 1490, 6, Qt::SizeVerCursor}, {wide, 3000, 1500, 7, Qt::SizeFDiagCursor},
        {tiny, 45, 45, 0, Qt::SizeFDiagCursor},   {wide, -1, 0, -1, Qt::SizeAllCursor},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(handleAt(c.rects, c.x, c.y), c.handle) << c.x << ", " << c.y;
        EXPECT_EQ(pointerOver(c.handle), c.pointer) << c.handle;
    }
}

TEST(InstrumentFrame, LayoutLeavesTheMarginAndTheTagsBand) {
    EXPECT_FALSE(frameLayout(160, 1000, false));
    EXPECT_FALSE(frameLayout(1000, 160, true));
    const auto plain = frameLayout(3000, 1500, false);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->display, QRectF(80, 80, 2840, 1340));
    EXPECT_TRUE(plain->tag.isEmpty());
    const auto tagged = frameLayout(3000, 1500, true);
    EXPECT_EQ(tagged->tag, QRectF(80, 80, 2840, 200));
    EXPECT_EQ(tagged->display, QRectF(80, 280, 2840, 1140));
    EXPECT_EQ(pixelsOf(plain->display), QRect(5, 5, 190, 90)) << "the margin is the same on all sides";
}

} // namespace
} // namespace vistor
