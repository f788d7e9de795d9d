// Where an instrument goes when it is dragged, sized or moved by keys, and which points the grid holds. In:
// its place and the mouse, in twips. Out: the new place.
#pragma once

#include <cstdint>

namespace vistor {

/// Twips on the page.
struct PlacedBox {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    bool operator==(const PlacedBox&) const = default;
};

struct TwipsPoint {
    float x = 0;
    float y = 0;

    bool operator==(const TwipsPoint&) const = default;
};

/// The grid to which points snap.
struct SnapGrid {
    bool on = false;
    int pitch = 0; ///< twips; not above 0: points stay
    float left = 0;
    float top = 0;
};

inline constexpr float kLeastSide = 180;  ///< twips, of an instrument that is sized
inline constexpr float kLeastReach = 300; ///< twips that stay on the page of one that is dragged

/// The crossing of grid lines on the left of and above a point, never the nearest; the point itself without a
/// pitch. It does not ask whether snapping is on.
TwipsPoint snappedPoint(const SnapGrid& grid, TwipsPoint point);

/// A drag from `start` to `mouse`, both in the box's own coordinates. The top left corner stays on the page,
/// so far from its right and lower edges that the box can be grasped again; snapping is last.
PlacedBox movedBox(const PlacedBox& box, TwipsPoint start, TwipsPoint mouse, TwipsPoint page,
                   const SnapGrid& grid);

/// The place in the box's own coordinates that a handle (0 to 7, row by row) moves: a corner, or a point of
/// the edge whose other coordinate does not matter.
TwipsPoint handleCorner(const PlacedBox& box, std::uint8_t handle);

/// A drag of one handle from `start` to `mouse`, both in the box's own coordinates: its corner goes as far as
/// the mouse, but not above or left of the page. Across the opposite edge the box turns over. It is kept in
/// reach like one that is moved. A number above 7 changes nothing.
PlacedBox sizedBox(const PlacedBox& box, std::uint8_t handle, TwipsPoint start, TwipsPoint mouse,
                   TwipsPoint page, const SnapGrid& grid);

/// One step of an arrow key, -1 to 1 each way: to the next grid line with snapping on, by the pitch without,
/// by one pixel when `fine`, and never by less than that. Bounded like a drag.
PlacedBox steppedBox(const PlacedBox& box, int columns, int rows, bool fine, TwipsPoint page,
                     const SnapGrid& grid);

} // namespace vistor
