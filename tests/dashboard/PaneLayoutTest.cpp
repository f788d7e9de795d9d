#include "dashboard/PaneLayout.h"

#include "dashboard/WindowSettings.h"
#include "platform/Twips.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

constexpr PaneFlags kAll = {true, true, true};

QRect pixels(const TwipsBox& box) {
    return {toPixels(box.left), toPixels(box.top), toPixels(box.width), toPixels(box.height)};
}

PaneRects defaultRects() {
    const WindowSettings settings = readWindowSettings(IniFile());
    return {pixels(settings.box(LayoutBox::Pages)), pixels(settings.box(LayoutBox::VariableFrame)),
            pixels(settings.box(LayoutBox::Palette))};
}

/// Fails unless the panes and the borders between them cover the room exactly once.
void expectFilled(const PaneLayout& layout, const QRect& room, const char* what) {
    std::vector<QRect> parts = bordersOf(layout, room);
    for (const QRect& rect : applyLayout(layout, room)) {
        if (!rect.isNull()) parts.push_back(rect);
    }
    int area = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        EXPECT_TRUE(room.contains(parts[i])) << what;
        area += parts[i].width() * parts[i].height();
        for (std::size_t j = i + 1; j < parts.size(); ++j)
            EXPECT_FALSE(parts[i].intersects(parts[j])) << what;
    }
    EXPECT_EQ(area, room.width() * room.height()) << what;
}

TEST(PaneLayout, DefaultPutsTreeRightAndPaletteBelowThePages) {
    const PaneLayout layout = layoutOf(defaultRects(), kAll);
    for (const QRect room : {QRect(0, 0, 1020, 537), QRect(0, 0, 1920, 1000), QRect(3, 4, 500, 400)}) {
        expectFilled(layout, room, "default");
        const PaneRects rects = applyLayout(layout, room);
        EXPECT_EQ(rects[kVariablePane].height(), room.height());
        EXPECT_EQ(rects[kVariablePane].right(), room.right());
        EXPECT_GT(rects[kPalettePane].top(), rects[kPagesPane].bottom());
        EXPECT_EQ(rects[kPalettePane].width(), rects[kPagesPane].width());
        EXPECT_GT(rects[kPagesPane].width() * rects[kPagesPane].height(),
                  room.width() * room.height() * 2 / 5);
    }
}

TEST(PaneLayout, GeometryThatFillsTheRoomComesBack) {
    const QRect room(0, 0, 1417, 803);
    const PaneLayout layouts[] = {
        {{{kVariablePane, Side::Right, 0.213}, {kPalettePane, Side::Bottom, 0.27}}, kPagesPane},
        {{{kVariablePane, Side::Left, 0.31}, {kPalettePane, Side::Top, 0.17}}, kPagesPane},
        {{{kPalettePane, Side::Bottom, 0.2}, {kVariablePane, Side::Right, 0.3}}, kPagesPane},
        {{{kPagesPane, Side::Top, 0.61}, {kVariablePane, Side::Left, 0.5}}, kPalettePane},
        {{{kVariablePane, Side::Right, 0.2}, {kPalettePane, Side::Right, 0.2}}, kPagesPane},
    };
    for (const PaneLayout& layout : layouts) {
        const PaneRects rects = applyLayout(layout, room);
        EXPECT_EQ(applyLayout(layoutOf(rects, kAll), room), rects);
    }
}

TEST(PaneLayout, ARemovedPaneLeavesItsRoomToTheOthers) {
    const QRect room(0, 0, 1200, 800);
    for (int bits = 0; bits < 8; ++bits) {
        const PaneFlags present = {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        const PaneLayout layout = layoutOf(defaultRects(), present);
        const PaneRects rects = applyLayout(layout, room);
        for (std::size_t pane = 0; pane < rects.size(); ++pane)
            EXPECT_EQ(!rects[pane].isNull(), present[pane]);
        if (bits) expectFilled(layout, room, "removed");
    }
}

TEST(PaneLayout, OddStoredGeometryStillFills) {
    const PaneRects cases[] = {
        {QRect(0, 0, 100, 100), QRect(0, 0, 100, 100), QRect(0, 0, 100, 100)},
        {QRect(0, 0, 0, 0), QRect(0, 0, 0, 0), QRect(0, 0, 0, 0)},
        {QRect(-32000, 0, 10, 10), QRect(32000, 32000, 32000, 1), QRect(5, 5, 32000, 32000)},
        {QRect(10, 10, -50, -50), QRect(0, 0, -1, 5), QRect(900, 20, 30, 30)},
    };
    for (const PaneRects& rects : cases) {
        for (const QRect room : {QRect(0, 0, 1000, 700), QRect(0, 0, 60, 40), QRect(0, 0, 30, 30)})
            expectFilled(layoutOf(rects, kAll), room, "odd");
    }
}

TEST(PaneLayout, DraggedBordersStopAtTheSmallestPane) {
    const QRect room(0, 0, 1200, 800);
    const PaneLayout layout = layoutOf(defaultRects(), kAll);
    struct Case {
        std::size_t cut;
        QPoint place;
        int pane;
        QRect expected;
    };
    const Case cases[] = {
        {0, {900, 300}, kVariablePane, QRect(905, 0, 295, 800)},
        {0, {5000, 300}, kVariablePane, QRect(1200 - kSmallestPane, 0, kSmallestPane, 800)},
        {0, {-50, 300}, kVariablePane, QRect(kSmallestPane + kPaneGap, 0, 1195 - kSmallestPane, 800)},
        {1, {10, 600}, kPalettePane, QRect(0, 605, 956, 195)},
    };
    for (const Case& c : cases) {
        const PaneLayout changed = withBorderAt(layout, room, c.cut, c.place);
        expectFilled(changed, room, "dragged");
        const QRect rect = applyLayout(changed, room)[static_cast<std::size_t>(c.pane)];
        EXPECT_EQ(rect, c.expected);
    }
    EXPECT_EQ(withBorderAt(layout, room, 7, {1, 1}).cuts, layout.cuts);
}

TEST(PaneLayout, ADroppedPaneDocksWhereItWasDropped) {
    const QRect room(0, 0, 1200, 800);
    const PaneLayout layout = layoutOf(defaultRects(), kAll);
    const PaneRects before = applyLayout(layout, room);
    struct Case {
        const char* what;
        int pane;
        QPoint place;
        QPoint inside; ///< a place that the pane covers afterwards
    };
    const Case cases[] = {
        {"tree to the left edge", kVariablePane, {4, 400}, {4, 790}},
        {"tree to the top edge", kVariablePane, {500, 3}, {1190, 3}},
        {"palette to the bottom edge", kPalettePane, {600, 797}, {1190, 797}},
        {"palette left of the pages", kPalettePane, {60, 300}, {60, 790}},
        {"palette above the tree", kPalettePane, {1100, 60}, {1100, 60}},
        {"pages below the tree", kPagesPane, {1100, 760}, {1100, 790}},
    };
    for (const Case& c : cases) {
        const PaneLayout dropped = withPaneDropped(layout, room, c.pane, c.place);
        expectFilled(dropped, room, c.what);
        EXPECT_TRUE(applyLayout(dropped, room)[static_cast<std::size_t>(c.pane)].contains(c.inside))
            << c.what;
    }
    const PaneLayout onItself = withPaneDropped(layout, room, kPagesPane, before[kPagesPane].center());
    EXPECT_EQ(onItself.cuts, layout.cuts);
    const PaneLayout alone = layoutOf(before, {true, false, false});
    EXPECT_EQ(withPaneDropped(alone, room, kPagesPane, {3, 3}).rest, kPagesPane);
}

} // namespace
} // namespace vistor
