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

int shownBar(const SplitterState& state) {
    const bool vertical = state.orientation == kVerticalBar;
    const int room = vertical ? state.width - state.barWidth : state.height - state.barHeight;
    return std::clamp(vertical ? state.barLeft : state.barTop, 0, std::max(room, 0));
}

} // namespace vistor
