// The points that a strip holds, a ring a trace, with their extremes at every scale. In: points one by one,
// from data. Out: extremes of any stretch in logarithmic time, so that a picture of a million points costs
// little more than one of ten thousand.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace vistor {

/// Lowest and highest of some numbers; of none, low is above high.
struct Extremes {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    bool empty() const { return low > high; }
    // Written so that no branch is left: on noisy points it would be guessed wrong every other time.
    void take(double value) {
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    void take(const Extremes& other) {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
    bool operator==(const Extremes&) const = default;
};

/// Points first (counted from the oldest, 0) to last, that one not among them, whose X never falls.
struct PointRun {
    std::size_t first = 0;
    std::size_t last = 0;
};

/// The newest points of one trace.
class TraceRing {
public:
    static constexpr std::size_t kMostPoints = 4'000'000;
    /// Where X jumped back more often than this, the oldest jumps are forgotten with what lies before them.
    static constexpr std::size_t kMostRuns = 1024;

    /// How many points are held, 1 to kMostPoints; the newest stay.
    void setCapacity(std::size_t capacity);
    std::size_t capacity() const { return m_capacity; }
    /// Adds a point; one that is not finite is left out. Takes memory only until the ring is full.
    bool add(double x, double y);
    /// No line leads from the points so far to the next one: what lay between is not known.
    void interrupt() { m_interrupted = size() > 0; }
    void clear();

    std::size_t size() const { return m_x.size(); }
    /// How many points have come since the last clear or change of capacity, the lost ones counted too.
    std::uint64_t added() const { return m_added; }
    double x(std::size_t index) const { return m_x[slot(index)]; }
    double y(std::size_t index) const { return m_y[slot(index)]; }
    /// Of Y, over all points.
    Extremes extremes() const;

    /// The first of the points `from` to `last` of one run that is not left of x; `last` if all are. It is
    /// likely `guess` points on, and found the sooner the nearer it is to that.
    std::size_t firstFrom(std::size_t from, std::size_t last, double x, std::size_t guess) const;

    std::size_t runCount() const { return m_runCount; }
    /// A stretch without a jump back and without a gap; number 0 is the newest.
    PointRun run(std::size_t number) const;

    /// Interruptions among the points held.
    std::size_t gapCount() const { return m_gaps.size(); }
    /// The points between two gaps, wherever X goes; number 0 is the newest of gapCount() + 1.
    PointRun stretch(std::size_t number) const;
    /// Whether an interruption lies behind the first `count` of the points added since the last clear.
    bool gapSince(std::uint64_t count) const { return !m_gaps.empty() && m_gaps.back() >= count; }

    /// Goes along points of a run from coarse to fine. `walker.block(x0, x1, extremes)` is asked about
    /// stretches of points, the first at x0 and the one behind the last at x1; where it answers false, about
    /// their parts, and at the bottom told `walker.step(x0, y0, x1, y1)` from each point to the next. In the
    /// end comes `walker.end(x, y)` with the last point.
    template <class Walker>
    void walk(const PointRun& run, Walker& walker) const;

private:
    static constexpr std::size_t kFan = 8;

    /// Slots that stand together, of which only the ring's head may part old ones from new ones.
    struct Block {
        double firstX = 0;
        Extremes y;
    };

    std::size_t slot(std::size_t index) const {
        const std::size_t at = m_head + index;
        return at < m_x.size() ? at : at - m_x.size();
    }
    void append(double x, double y);
    void replaceOldest(double x, double y);
    void refreshLevels(std::size_t slot, double before, double after);
    Extremes children(std::size_t level, std::size_t block) const;
    template <class Walker>
    void walkSlots(std::size_t first, std::size_t last, Walker& walker) const;
    template <class Walker>
    void walkBlock(std::size_t level, std::size_t block, Walker& walker) const;
    template <class Walker>
    void walkStep(std::size_t slot, Walker& walker) const;
    void noteRun(double x);
    void noteGap();
    // Counted since the last clear: the oldest point that is held, and that will be with the next one.
    std::uint64_t oldest() const { return m_added - m_x.size(); }
    std::uint64_t oldestThen() const { return m_x.size() < m_capacity ? oldest() : oldest() + 1; }
    std::uint64_t runStart(std::size_t number) const; ///< counted since the last clear

    std::size_t m_capacity = 10'000;
    std::size_t m_head = 0;    ///< slot of the oldest point
    std::uint64_t m_added = 0; ///< since the last clear
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<std::vector<Block>> m_levels; ///< level n: a block of kFan to the power n + 1 slots
    std::array<std::uint64_t, kMostRuns> m_runStarts{};
    std::size_t m_newestRun = 0;
    std::size_t m_runCount = 0;
    std::vector<std::uint64_t> m_gaps; ///< the first points behind gaps, counted since the last clear
    bool m_interrupted = false;
};

template <class Walker>
void TraceRing::walkStep(std::size_t slot, Walker& walker) const {
    const std::size_t next = slot + 1 == m_x.size() ? 0 : slot + 1;
    walker.step(m_x[slot], m_y[slot], m_x[next], m_y[next]);
}

template <class Walker>
void TraceRing::walkBlock(std::size_t level, std::size_t block, Walker& walker) const {
    const std::vector<Block>& blocks = m_levels[level];
    const double behind = block + 1 < blocks.size() ? blocks[block + 1].firstX : m_x.front();
    if (walker.block(blocks[block].firstX, behind, blocks[block].y)) return;
    const std::size_t first = block * kFan;
    for (std::size_t i = first; i < first + kFan; ++i) {
        if (level == 0)
            walkStep(i, walker);
        else
            walkBlock(level - 1, i, walker);
    }
}

/// Every slot from first to last, that one not among them, has its next point in the slot behind it.
template <class Walker>
void TraceRing::walkSlots(std::size_t first, std::size_t last, Walker& walker) const {
    while (first < last) {
        std::size_t level = 0;
        std::size_t span = 1; // of the largest block that begins here and ends in time
        while (first % (span * kFan) == 0 && first + span * kFan <= last) {
            span *= kFan;
            ++level;
        }
        if (level == 0)
            walkStep(first, walker);
        else
            walkBlock(level - 1, first / span, walker);
        first += span;
    }
}

template <class Walker>
void TraceRing::walk(const PointRun& run, Walker& walker) const {
    if (run.first >= run.last || run.last > size()) return;
    const std::size_t end = run.last - 1;
    const std::size_t beforeWrap = m_x.size() - m_head;
    if (run.first < beforeWrap) walkSlots(m_head + run.first, m_head + std::min(end, beforeWrap), walker);
    if (end > beforeWrap) walkSlots(std::max(run.first, beforeWrap) - beforeWrap, end - beforeWrap, walker);
    walker.end(x(end), y(end));
}

} // namespace vistor
