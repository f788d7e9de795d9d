// What of a graph's tracks its picture holds already, so that a new point costs no more than itself. In: the
// look that the picture has, and the traces. Out: whether it can grow, and the lines to add to it.
#pragma once

#include "instruments/displays/StripAxes.h"
#include "instruments/displays/StripTraces.h"

#include <QPointF>

#include <vector>

namespace vistor {

/// A track has been painted for good up to its anchor. Its tail from there to the newest point is painted
/// afresh with every picture until it is long enough: the ends of lines overlap, and many short ones laid
/// over each other would look bolder than one long one.
class KeptTracks {
public:
    /// Whether a picture of this look only lacks the newest points. Points that the rings have lost since it
    /// was painted stay in it until they are a sixteenth of what a ring holds: painting them all for each one
    /// that goes would be the cost that this saves.
    bool canGrow(const std::vector<double>& look, const std::vector<TraceRing>& traces) const;
    /// The picture was painted anew and holds every point.
    void begin(std::vector<double> look, const std::vector<TraceRing>& traces);
    /// The tail of a track in pixels by these maps; empty where there is none to see.
    std::vector<QPointF> tail(std::size_t trace, const TraceRing& ring, const AxisMap& x,
                              const AxisMap& y) const;
    /// Whether it is to be painted for good; then `settle` is due.
    static bool isLong(const std::vector<QPointF>& tail);
    void settle(std::size_t trace, const TraceRing& ring) { m_tracks[trace].anchored = ring.added(); }
    /// The next picture is painted anew whatever stays the same.
    void forget() { m_look.clear(); }

private:
    struct Track {
        std::uint64_t anchored = 0; ///< points that had come when the anchor was the newest
        std::uint64_t dropped = 0;  ///< points that had been lost when the picture was painted anew
    };

    static bool onlyLacksNew(const TraceRing& ring, const Track& track);

    std::vector<double> m_look; ///< empty: there is no picture
    std::vector<Track> m_tracks;
};

} // namespace vistor
