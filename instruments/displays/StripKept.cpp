#include "instruments/displays/StripKept.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistor {
namespace {

constexpr std::uint64_t kMostNew = 1024;  ///< points; with more, painting all with thinning is no slower
constexpr std::uint64_t kStaleShare = 16; ///< one point in so many may have gone from its ring
constexpr double kLeastStep = 0.5;        ///< pixels
constexpr double kLongTail = 48;          ///< pixels
constexpr std::size_t kTailPoints = 96;

} // namespace

bool KeptTracks::canGrow(const std::vector<double>& look, const std::vector<TraceRing>& traces) const {
    if (m_look.empty() || look != m_look || traces.size() != m_tracks.size()) return false;
    for (std::size_t i = 0; i < traces.size(); ++i) {
        if (!onlyLacksNew(traces[i], m_tracks[i])) return false;
    }
    return true;
}

bool KeptTracks::onlyLacksNew(const TraceRing& ring, const Track& track) {
    if (ring.added() == track.anchored) return true;
    if (ring.added() < track.anchored) return false; // the ring has begun again
    if (ring.gapSince(track.anchored)) return false;
    const std::uint64_t fresh = ring.added() - track.anchored;
    const std::uint64_t dropped = ring.added() - ring.size();
    return fresh <= kMostNew && fresh < ring.size() && dropped <= track.dropped + ring.size() / kStaleShare;
}

void KeptTracks::begin(std::vector<double> look, const std::vector<TraceRing>& traces) {
    m_look = std::move(look);
    m_tracks.clear();
    for (const TraceRing& ring : traces) m_tracks.push_back({ring.added(), ring.added() - ring.size()});
}

std::vector<QPointF> KeptTracks::tail(std::size_t trace, const TraceRing& ring, const AxisMap& x,
                                      const AxisMap& y) const {
    const auto fresh = static_cast<std::size_t>(ring.added() - m_tracks[trace].anchored);
    if (fresh == 0) return {};
    const auto place = [&](std::size_t index) { return QPointF(x(ring.x(index)), y(ring.y(index))); };
    std::vector<QPointF> line{place(ring.size() - fresh - 1)};
    for (std::size_t i = ring.size() - fresh; i < ring.size(); ++i) {
        const QPointF next = place(i);
        const QPointF way = next - line.back();
        if (std::max(std::abs(way.x()), std::abs(way.y())) >= kLeastStep) line.push_back(next);
    }
    if (line.size() == 1) line.clear();
    return line;
}

bool KeptTracks::isLong(const std::vector<QPointF>& tail) {
    if (tail.size() > kTailPoints) return true;
    double length = 0;
    for (std::size_t i = 0; i + 1 < tail.size(); ++i)
        length += std::hypot(tail[i + 1].x() - tail[i].x(), tail[i + 1].y() - tail[i].y());
    return length > kLongTail;
}

} // namespace vistor
