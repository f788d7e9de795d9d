#include "dashboard/PlacingRules.h"

#include "platform/Twips.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vistor {
namespace {

/// Where one coordinate of a corner comes from.
enum class From : std::uint8_t { Near, Far, Mouse };

/// The corner that a handle moves, and the one that stays.
struct HandleCorners {
    From x1, y1, x2, y2;
};

constexpr std::array<HandleCorners, 8> kHandleCorners{{
    {From::Mouse, From::Mouse, From::Far, From::Far},
    {From::Near, From::Mouse, From::Far, From::Far},
    {From::Mouse, From::Mouse, From::Near, From::Far},
    {From::Mouse, From::Near, From::Far, From::Far},
    {From::Mouse, From::Near, From::Near, From::Far},
    {From::Mouse, From::Mouse, From::Far, From::Near},
    {From::Far, From::Mouse, From::Near, From::Near},
    {From::Mouse, From::Mouse, From::Near, From::Near},
}};

float coordinate(From from, float start, float length, float mouse) {
    return start + (from == From::Near ? 0 : from == From::Far ? length : mouse);
}

float snapped(float value, float origin, int pitch) {
    const auto step = static_cast<float>(pitch);
    return std::floor((value - origin) / step) * step + origin;
}

/// The furthest place along a side of the page at which enough of a box is left on it.
float furthest(float page) {
    return std::max(page - kLeastReach, 0.0F);
}

PlacedBox boundedBox(PlacedBox box, TwipsPoint page) {
    box.left = std::clamp(box.left, 0.0F, furthest(page.x));
    box.top = std::clamp(box.top, 0.0F, furthest(page.y));
    return box;
}

/// One coordinate a step further. A box within half a pixel of a line stands on it, since windows stand on
/// whole pixels.
float stepped(float place, int direction, bool fine, float origin, const SnapGrid& grid) {
    constexpr auto kPixel = static_cast<float>(kTwipsPerPixel);
    if (direction == 0) return place;
    const auto way = static_cast<float>(direction);
    if (fine || grid.pitch <= 0) return place + way * kPixel;
    const auto pitch = static_cast<float>(grid.pitch);
    const float step = pitch * std::ceil(kPixel / pitch);
    if (!grid.on) return place + way * step;
    const float lines = (place - origin) / pitch;
    const float near = std::min(kPixel, pitch) / 2 / pitch;
    const float line = direction > 0 ? std::floor(lines + near) : std::ceil(lines - near);
    return line * pitch + origin + way * step;
}

} // namespace

TwipsPoint snappedPoint(const SnapGrid& grid, TwipsPoint point) {
    if (grid.pitch == 0) return point;
    return {snapped(point.x, grid.left, grid.pitch), snapped(point.y, grid.top, grid.pitch)};
}

PlacedBox movedBox(const PlacedBox& box, TwipsPoint start, TwipsPoint mouse, TwipsPoint page,
                   const SnapGrid& grid) {
    PlacedBox moved = box;
    moved.left = box.left + mouse.x - start.x;
    moved.top = box.top + mouse.y - start.y;
    moved = boundedBox(moved, page);
    if (!grid.on) return moved;
    const TwipsPoint corner = snappedPoint(grid, {moved.left, moved.top});
    moved.left = corner.x;
    moved.top = corner.y;
    return moved;
}

TwipsPoint handleCorner(const PlacedBox& box, std::uint8_t handle) {
    if (handle >= kHandleCorners.size()) return {};
    const HandleCorners& corners = kHandleCorners[handle];
    return {corners.x2 == From::Near ? box.width : 0, corners.y2 == From::Near ? box.height : 0};
}

PlacedBox sizedBox(const PlacedBox& box, std::uint8_t handle, TwipsPoint start, TwipsPoint mouse,
                   TwipsPoint page, const SnapGrid& grid) {
    if (handle >= kHandleCorners.size()) return box;
    const HandleCorners& corners = kHandleCorners[handle];
    const TwipsPoint corner = handleCorner(box, handle);
    // A corner at the mouse itself would jump to it from where in the handle it was grasped.
    const TwipsPoint at = {std::max(corner.x + mouse.x - start.x, -box.left),
                           std::max(corner.y + mouse.y - start.y, -box.top)};
    TwipsPoint moving = {coordinate(corners.x1, box.left, box.width, at.x),
                         coordinate(corners.y1, box.top, box.height, at.y)};
    const TwipsPoint staying = {coordinate(corners.x2, box.left, box.width, at.x),
                                coordinate(corners.y2, box.top, box.height, at.y)};
    if (grid.on) moving = snappedPoint(grid, moving);
    return {std::min({moving.x, staying.x, furthest(page.x)}),
            std::min({moving.y, staying.y, furthest(page.y)}),
            std::max(std::abs(moving.x - staying.x), kLeastSide),
            std::max(std::abs(moving.y - staying.y), kLeastSide)};
}

PlacedBox steppedBox(const PlacedBox& box, int columns, int rows, bool fine, TwipsPoint page,
                     const SnapGrid& grid) {
    PlacedBox moved = box;
    moved.left = stepped(box.left, columns, fine, grid.left, grid);
    moved.top = stepped(box.top, rows, fine, grid.top, grid);
    return boundedBox(moved, page);
}

} // namespace vistor
