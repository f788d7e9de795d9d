// The points that a strip holds, a ring a trace, with their extremes at every scale. In: points one by one,
// from data. Out: extremes of any stretch in logarithmic time, so that a picture of a million points costs
// little more than one of ten thousand.
#pragma once

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
    void take(double value) {
        if (value < low) low = value;
        if (value > high) high = value;
    }
    void take(const Extremes& other) {
        if (other.low < low) low = other.low;
        if (other.high > high) high = other.high;
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
    void clear();

    std::size_t size() const { return m_x.size(); }
    double x(std::size_t index) const { return m_x[slot(index)]; }
    double y(std::size_t index) const { return m_y[slot(index)]; }
    /// Of Y, over all points and over points first to last, that one not among them.
    Extremes extremes() const;
    Extremes extremes(std::size_t first, std::size_t last) const;

    /// The first of the points `from` to `last` of one run that is not left of x; `last` if all are. It is
    /// likely `guess` points on, and found the sooner the nearer it is to that.
    std::size_t firstFrom(std::size_t from, std::size_t last, double x, std::size_t guess) const;

    std::size_t runCount() const { return m_runCount; }
    /// A stretch without a jump back; number 0 is the newest.
    PointRun run(std::size_t number) const;

private:
    static constexpr std::size_t kFan = 8;

    std::size_t slot(std::size_t index) const {
        const std::size_t at = m_head + index;
        return at < m_x.size() ? at : at - m_x.size();
    }
    void append(double x, double y);
    void replaceOldest(double x, double y);
    void refreshLevels(std::size_t slot, double before, double after);
    Extremes children(std::size_t level, std::size_t block) const;
    void takeSlots(Extremes& found, std::size_t first, std::size_t last) const;
    void noteRun(double x);
    std::uint64_t runStart(std::size_t number) const; ///< counted since the last clear

    std::size_t m_capacity = 10'000;
    std::size_t m_head = 0;    ///< slot of the oldest point
    std::uint64_t m_added = 0; ///< since the last clear
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<std::vector<Extremes>> m_levels; ///< level n: a block of kFan to the power n + 1 slots
    std::array<std::uint64_t, kMostRuns> m_runStarts{};
    std::size_t m_newestRun = 0;
    std::size_t m_runCount = 0;
};

} // namespace vistor
