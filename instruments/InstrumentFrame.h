// Geometry of an instrument's frame: where the display, the tag and the eight sizing handles lie, and which
// handle is under the mouse. In: sizes and places in twips. Out: rectangles in twips or in logical pixels.
#pragma once

#include "platform/Twips.h"

#include <QPainterPath>
#include <QRect>
#include <QRectF>

#include <array>
#include <cstdint>
#include <optional>

namespace vistor {

inline constexpr int kFrameTwips = 80; ///< the margin on every side
inline constexpr int kTagTwips = 200;  ///< the band that the tag takes away from the display
inline constexpr int kHandleCount = 8;

/// Bounds in twips, all four inside.
struct HandleRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};
using HandleRects = std::array<HandleRect, kHandleCount>;

/// The handles from top left, row by row, to bottom right.
HandleRects handleRects(double left, double top, double width, double height);
/// The first handle that holds the place; -1 when there is none.
int handleAt(const HandleRects& handles, float x, float y);
/// The pointer over a handle, or for any other number the one that moves all.
Qt::CursorShape pointerOver(int handle);

/// Display and tag in twips; the tag is empty while it is off.
struct FrameLayout {
    QRectF display;
    QRectF tag;
};
/// No value for a size that leaves no room inside the frame.
std::optional<FrameLayout> frameLayout(double width, double height, bool tagOn);

/// The diagonal bands of the frame in edit mode as a tile, in logical pixels: they repeat after this size
/// each way.
inline constexpr int kHatchTilePixels = 28;
QPainterPath frameHatchTile();

/// Twips to the nearest logical pixels, edge by edge.
QRect pixelsOf(const QRectF& twips);

} // namespace vistor
