#include "dashboard/PaneLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vistor {
namespace {

constexpr int kEdgeZone = 28; ///< this near to the room's edge a drop takes the whole side
constexpr double kSmallestShare = 0.05;
constexpr double kDroppedShare = 0.4; ///< a dropped pane takes no more of its new room

constexpr Side kSides[] = {Side::Right, Side::Bottom, Side::Left, Side::Top};
/// Which pane is cut off first where several orders fit equally well.
constexpr int kCutOrder[] = {kVariablePane, kPalettePane, kPagesPane};

bool isSideways(Side side) {
    return side == Side::Left || side == Side::Right;
}

int extent(const QRect& rect, Side side) {
    return isSideways(side) ? rect.width() : rect.height();
}

/// How far `rect` must be pushed to stand wholly on that side of `other`.
int pushNeeded(const QRect& rect, const QRect& other, Side side) {
    switch (side) {
    case Side::Left:
        return std::max(0, rect.x() + rect.width() - other.x());
    case Side::Top:
        return std::max(0, rect.y() + rect.height() - other.y());
    case Side::Right:
        return std::max(0, other.x() + other.width() - rect.x());
    case Side::Bottom:
        return std::max(0, other.y() + other.height() - rect.y());
    }
    return 0;
}

double shareOf(const QRect& rect, const QRect& room, Side side) {
    const double available = std::max(1, extent(room, side) - kPaneGap);
    return std::clamp(extent(rect, side) / available, kSmallestShare, 1 - kSmallestShare);
}

/// Takes `size` pixels and the gap off a side of `room`; answers what was taken.
QRect takeSide(QRect& room, Side side, int size) {
    QRect taken = room;
    switch (side) {
    case Side::Left:
        taken.setWidth(size);
        room.setLeft(room.left() + size + kPaneGap);
        break;
    case Side::Right:
        taken.setLeft(room.left() + room.width() - size);
        room.setWidth(room.width() - size - kPaneGap);
        break;
    case Side::Top:
        taken.setHeight(size);
        room.setTop(room.top() + size + kPaneGap);
        break;
    case Side::Bottom:
        taken.setTop(room.top() + room.height() - size);
        room.setHeight(room.height() - size - kPaneGap);
        break;
    }
    return taken;
}

int sizeOfCut(const PaneCut& cut, const QRect& room) {
    const int available = std::max(0, extent(room, cut.side) - kPaneGap);
    const int wanted = static_cast<int>(std::lround(cut.share * available));
    if (available < 2 * kSmallestPane) return available / 2;
    return std::clamp(wanted, kSmallestPane, available - kSmallestPane);
}

QRect bordersRect(const QRect& taken, Side side) {
    switch (side) {
    case Side::Left:
        return {taken.left() + taken.width(), taken.top(), kPaneGap, taken.height()};
    case Side::Right:
        return {taken.left() - kPaneGap, taken.top(), kPaneGap, taken.height()};
    case Side::Top:
        return {taken.left(), taken.top() + taken.height(), taken.width(), kPaneGap};
    case Side::Bottom:
        return {taken.left(), taken.top() - kPaneGap, taken.width(), kPaneGap};
    }
    return {};
}

struct Steps {
    PaneRects rects;
    std::vector<QRect> rooms; ///< what each cut cut from
    std::vector<QRect> borders;
};

Steps walk(const PaneLayout& layout, QRect room) {
    Steps steps;
    for (const PaneCut& cut : layout.cuts) {
        steps.rooms.push_back(room);
        const QRect taken = takeSide(room, cut.side, sizeOfCut(cut, room));
        steps.rects[static_cast<std::size_t>(cut.pane)] = taken;
        steps.borders.push_back(bordersRect(taken, cut.side));
    }
    if (layout.rest >= 0) steps.rects[static_cast<std::size_t>(layout.rest)] = room;
    return steps;
}

/// A way to part the panes, and what it costs in pushing.
struct Candidate {
    PaneLayout layout;
    int cost = std::numeric_limits<int>::max();
};

const QRect& rectOf(const PaneRects& rects, int pane) {
    return rects[static_cast<std::size_t>(pane)];
}

QRect bounds(const PaneRects& rects, const std::vector<int>& panes) {
    QRect all;
    for (const int pane : panes) all = all.united(rectOf(rects, pane));
    return all;
}

/// Tries every order and side for the panes that are left, the cheapest into `best`.
void search(const PaneRects& rects, const std::vector<int>& panes, const QRect& room, const PaneLayout& soFar,
            int cost, Candidate& best) {
    if (cost >= best.cost) return;
    if (panes.size() <= 1) {
        best = {soFar, cost};
        best.layout.rest = panes.empty() ? -1 : panes.front();
        return;
    }
    for (const int pane : panes) {
        const QRect& rect = rectOf(rects, pane);
        std::vector<int> others = panes;
        std::erase(others, pane);
        for (const Side side : kSides) {
            int push = cost;
            for (const int other : others) push += pushNeeded(rect, rectOf(rects, other), side);
            PaneLayout next = soFar;
            next.cuts.push_back({pane, side, shareOf(rect, room, side)});
            QRect left = room;
            takeSide(left, side, std::min(extent(rect, side), extent(room, side) / 2));
            search(rects, others, left, next, push, best);
        }
    }
}

Side nearestSide(const QRect& rect, const QPoint& place) {
    const std::pair<int, Side> distances[] = {
        {place.x() - rect.left(), Side::Left},
        {place.y() - rect.top(), Side::Top},
        {rect.right() - place.x(), Side::Right},
        {rect.bottom() - place.y(), Side::Bottom},
    };
    return std::min_element(std::begin(distances), std::end(distances))->second;
}

int distanceToEdge(const QRect& room, const QPoint& place) {
    return std::min({place.x() - room.left(), place.y() - room.top(), room.right() - place.x(),
                     room.bottom() - place.y()});
}

/// A rectangle on a side of another, as large as the dropped pane was but not too large.
QRect beside(const QRect& target, Side side, const QSize& size) {
    QRect room = target;
    const int wanted = isSideways(side) ? size.width() : size.height();
    const int most = static_cast<int>(extent(target, side) * kDroppedShare);
    return takeSide(room, side, std::clamp(wanted, 1, std::max(1, most)));
}

PaneLayout without(const PaneLayout& layout, int pane) {
    PaneLayout left = layout;
    std::erase_if(left.cuts, [=](const PaneCut& cut) { return cut.pane == pane; });
    if (left.rest == pane) {
        left.rest = left.cuts.empty() ? -1 : left.cuts.back().pane;
        if (!left.cuts.empty()) left.cuts.pop_back();
    }
    return left;
}

int paneAt(const PaneRects& rects, const QPoint& place) {
    for (int pane = 0; pane < kPaneCount; ++pane) {
        if (rectOf(rects, pane).contains(place)) return pane;
    }
    return -1;
}

} // namespace

PaneLayout layoutOf(const PaneRects& rects, const PaneFlags& present) {
    std::vector<int> panes;
    for (const int pane : kCutOrder) {
        if (present[static_cast<std::size_t>(pane)]) panes.push_back(pane);
    }
    Candidate best;
    search(rects, panes, bounds(rects, panes), {}, 0, best);
    return best.layout;
}

PaneRects applyLayout(const PaneLayout& layout, const QRect& room) {
    return walk(layout, room).rects;
}

std::vector<QRect> bordersOf(const PaneLayout& layout, const QRect& room) {
    return walk(layout, room).borders;
}

PaneLayout withBorderAt(PaneLayout layout, const QRect& room, std::size_t cut, const QPoint& place) {
    if (cut >= layout.cuts.size()) return layout;
    const QRect from = walk(layout, room).rooms[cut];
    PaneCut& changed = layout.cuts[cut];
    int size = 0;
    switch (changed.side) {
    case Side::Left:
        size = place.x() - from.left();
        break;
    case Side::Right:
        size = from.left() + from.width() - place.x() - kPaneGap;
        break;
    case Side::Top:
        size = place.y() - from.top();
        break;
    case Side::Bottom:
        size = from.top() + from.height() - place.y() - kPaneGap;
        break;
    }
    const double available = std::max(1, extent(from, changed.side) - kPaneGap);
    changed.share = std::clamp(size / available, 0.0, 1.0);
    changed.share = sizeOfCut(changed, from) / available;
    return layout;
}

PaneLayout withPaneDropped(const PaneLayout& layout, const QRect& room, int pane, const QPoint& place) {
    const PaneRects before = applyLayout(layout, room);
    const QSize size = rectOf(before, pane).size();
    PaneLayout others = without(layout, pane);
    if (others.rest < 0) return layout;
    const bool atEdge = distanceToEdge(room, place) < kEdgeZone;
    const int target = paneAt(before, place);
    if (!atEdge && (target == pane || target < 0)) return layout;
    if (atEdge) {
        const Side side = nearestSide(room, place);
        const QRect rect = beside(room, side, size);
        others.cuts.insert(others.cuts.begin(), {pane, side, shareOf(rect, room, side)});
        return others;
    }
    // The pane goes beside one other: its new rectangle is cut from that one, and the cheapest way to part
    // the three gives the order of the cuts.
    PaneRects rects = applyLayout(others, room);
    QRect& shrunk = rects[static_cast<std::size_t>(target)];
    const Side side = nearestSide(rectOf(before, target), place);
    const QRect dropped = beside(shrunk, side, size);
    shrunk = [&] {
        QRect left = shrunk;
        takeSide(left, side, extent(dropped, side));
        return left;
    }();
    rects[static_cast<std::size_t>(pane)] = dropped;
    PaneFlags present{};
    present[static_cast<std::size_t>(pane)] = true;
    present[static_cast<std::size_t>(others.rest)] = true;
    for (const PaneCut& cut : others.cuts) present[static_cast<std::size_t>(cut.pane)] = true;
    return layoutOf(rects, present);
}

} // namespace vistor
