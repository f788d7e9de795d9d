// The rules of the two-pane control, without a window: its properties, their limits and where its bar stands.
// Twips throughout.
#pragma once

#include <QString>

#include <cstdint>

namespace vistor {

/// Values of `Style`.
inline constexpr int kTwoPanes = 0;
inline constexpr int kSinglePaneLeft = 1;
inline constexpr int kSinglePaneTop = 2;
inline constexpr int kSinglePaneRight = 3;
inline constexpr int kSinglePaneBottom = 4;
/// Values of `SplitterOrientation`.
inline constexpr int kHorizontalBar = 0;
inline constexpr int kVerticalBar = 1;

struct SplitterState {
    int style = kTwoPanes;
    int orientation = kHorizontalBar;
    int minHorizontalSize = 300; ///< least distance of a horizontal bar from top and bottom
    int minVerticalSize = 300;   ///< least distance of a vertical bar from left and right
    int barHeight = 60;
    int barWidth = 60;
    int barTop = 0;
    int barLeft = 0;
    int width = 0; ///< of the control
    int height = 0;
};

/// A bar's place within its limits: below the minimum it becomes that, above `extent` less the minimum that.
int limitedBar(int place, int minimum, int extent);

/// Stores a style, turns the bar as the style asks, and brings both places within their limits.
void applyStyle(SplitterState& state, int style);

/// Stores an orientation. Where the style forbids it, nothing changes and the answer is what to tell.
QString applyOrientation(SplitterState& state, int orientation);

/// The bar's place after the mouse moved it.
void dragBar(SplitterState& state, int move);

/// Where the bar is shown: its place as far as that lies inside the control.
int shownBar(const SplitterState& state);

} // namespace vistor
