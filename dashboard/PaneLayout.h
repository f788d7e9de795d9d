// How the panes share the window: an order of cuts, each giving one pane a side of what is left. In:
// rectangles as stored or dropped. Out: rectangles that fill the window without overlap. Pixels throughout.
#pragma once

#include <QPoint>
#include <QRect>

#include <array>
#include <cstdint>
#include <vector>

namespace vistor {

inline constexpr int kPaneCount = 3;
/// The panes' numbers.
inline constexpr int kPagesPane = 0;
inline constexpr int kVariablePane = 1;
inline constexpr int kPalettePane = 2;

inline constexpr int kPaneGap = 5;       ///< between two panes; the border that the mouse drags
inline constexpr int kSmallestPane = 72; ///< width and height, where the window has room for it

enum class Side : std::uint8_t { Left, Top, Right, Bottom };

/// One pane takes a side of the room that is left.
struct PaneCut {
    int pane = 0;
    Side side = Side::Left;
    double share = 0.5; ///< of that room less the gap

    bool operator==(const PaneCut&) const = default;
};

/// The cuts from the outside in; `rest` takes what they leave, -1 when there is no pane at all.
struct PaneLayout {
    std::vector<PaneCut> cuts;
    int rest = -1;
};

using PaneRects = std::array<QRect, kPaneCount>;
using PaneFlags = std::array<bool, kPaneCount>;

/// The layout that is nearest to some rectangles, overlapping or not: the one in which the panes must be
/// pushed least to stand apart. Rectangles that fill a room keep their exact sizes in it.
PaneLayout layoutOf(const PaneRects& rects, const PaneFlags& present);

/// The rectangles of a layout in a room; of panes outside the layout they are empty.
PaneRects applyLayout(const PaneLayout& layout, const QRect& room);

/// The gap beside each cut's pane, in the order of the cuts.
std::vector<QRect> bordersOf(const PaneLayout& layout, const QRect& room);

/// The layout after the border of a cut was dragged to a place; no pane gets smaller than it may be.
PaneLayout withBorderAt(PaneLayout layout, const QRect& room, std::size_t cut, const QPoint& place);

/// The layout after a pane was dropped at a place: near an edge of the room it takes that whole side, else
/// the side of the pane below the mouse that is nearest. A drop on itself changes nothing.
PaneLayout withPaneDropped(const PaneLayout& layout, const QRect& room, int pane, const QPoint& place);

} // namespace vistor
