#include "dashboard/SplitterRules.h"

#include <algorithm>

namespace vistor {
namespace {

bool wantsHorizontal(int style) {
    return style == kSinglePaneTop || style == kSinglePaneBottom;
}

bool wantsVertical(int style) {
    return style == kSinglePaneLeft || style == kSinglePaneRight;
}

SplitterBoxes singlePane(const SplitterState& state) {
    const SplitterBox all{0, 0, state.width, state.height};
    const bool first = state.style == kSinglePaneLeft || state.style == kSinglePaneTop;
    return first ? SplitterBoxes{all, {}, {}} : SplitterBoxes{{}, {}, all};
}

} // namespace

int limitedBar(int place, int minimum, int extent) {
    if (place < minimum) return minimum;
    return place > extent - minimum ? extent - minimum : place;
}

void applyStyle(SplitterState& state, int style) {
    state.style = style;
    if (wantsHorizontal(style)) state.orientation = kHorizontalBar;
    if (wantsVertical(style)) state.orientation = kVerticalBar;
    state.barLeft = limitedBar(state.barLeft, state.minVerticalSize, state.width);
    state.barTop = limitedBar(state.barTop, state.minHorizontalSize, state.height);
}

QString applyOrientation(SplitterState& state, int orientation) {
    if (orientation == kHorizontalBar && wantsVertical(state.style)) {
        return QStringLiteral("Cannot Set Orientation to Horizontal while the Style property is set to "
                              "vbSinglePaneLeft or vbuSinglePaneRight");
    }
    if (orientation == kVerticalBar && wantsHorizontal(state.style)) {
        return QStringLiteral("Cannot Set Orientation to Vertical while the Style property is set to "
                              "vbSinglePaneTop or vbuSinglePaneBottom");
    }
    state.orientation = orientation;
    return {};
}

void dragBar(SplitterState& state, int move) {
    if (state.orientation == kVerticalBar)
        state.barLeft = limitedBar(state.barLeft + move, state.minVerticalSize, state.width);
    else
        state.barTop = limitedBar(state.barTop + move, state.minHorizontalSize, state.height);
}

SplitterBoxes arrange(const SplitterState& state) {
    if (state.style != kTwoPanes) return singlePane(state);
    SplitterBoxes boxes;
    if (state.orientation == kVerticalBar) {
        const int bar = std::clamp(state.barWidth, 0, state.width);
        const int left = std::clamp(state.barLeft, 0, state.width - bar);
        boxes.pane0 = {0, 0, left, state.height};
        boxes.bar = {left, 0, bar, state.height};
        boxes.pane1 = {left + bar, 0, state.width - left - bar, state.height};
    } else {
        const int bar = std::clamp(state.barHeight, 0, state.height);
        const int top = std::clamp(state.barTop, 0, state.height - bar);
        boxes.pane0 = {0, 0, state.width, top};
        boxes.bar = {0, top, state.width, bar};
        boxes.pane1 = {0, top + bar, state.width, state.height - top - bar};
    }
    return boxes;
}

} // namespace vistor
