#include "instruments/displays/StripTraces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistor {
void TraceRing::setCapacity(std::size_t capacity) {
    capacity = std::clamp<std::size_t>(capacity, 1, kMostPoints);
    if (capacity == m_capacity) return;
    TraceRing other;
    other.m_capacity = capacity;
    for (std::size_t i = size() - std::min(size(), capacity); i < size(); ++i) {
        if (std::binary_search(m_gaps.begin(), m_gaps.end(), oldest() + i)) other.interrupt();
        other.add(x(i), y(i));
    }
    other.m_interrupted = m_interrupted;
    *this = std::move(other);
}

void TraceRing::clear() {
    TraceRing other;
    other.m_capacity = m_capacity;
    *this = std::move(other);
}

bool TraceRing::add(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return false;
    noteRun(x);
    if (m_interrupted || !m_gaps.empty()) noteGap();
    if (m_x.size() < m_capacity)
        append(x, y);
    else
        replaceOldest(x, y);
    ++m_added;
    return true;
}

void TraceRing::append(double x, double y) {
    const std::size_t slot = m_x.size();
    m_x.push_back(x);
    m_y.push_back(y);
    std::size_t block = slot;
    for (std::size_t level = 0; level == 0 || block > 0; ++level) {
        block /= kFan;
        if (level == m_levels.size()) m_levels.emplace_back();
        std::vector<Block>& blocks = m_levels[level];
        if (block == blocks.size())
            blocks.push_back(block == 0 ? Block{m_x.front(), children(level, 0)} : Block{x, {}});
        blocks[block].y.take(y);
    }
}

void TraceRing::replaceOldest(double x, double y) {
    const std::size_t slot = m_head;
    const double before = m_y[slot];
    m_x[slot] = x;
    m_y[slot] = y;
    m_head = slot + 1 == m_x.size() ? 0 : slot + 1;
    std::size_t block = slot;
    for (std::size_t level = 0; level < m_levels.size() && block % kFan == 0; ++level)
        m_levels[level][block /= kFan].firstX = x;
    refreshLevels(slot, before, y);
}

void TraceRing::refreshLevels(std::size_t slot, double before, double after) {
    std::size_t block = slot;
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        block /= kFan;
        Extremes& held = m_levels[level][block].y;
        const bool wasInside = before > held.low && before < held.high;
        Extremes now = held;
        if (wasInside)
            now.take(after);
        else
            now = children(level, block);
        if (now == held) return; // so nothing changes above
        held = now;
    }
}

Extremes TraceRing::children(std::size_t level, std::size_t block) const {
    const std::size_t below = level == 0 ? m_y.size() : m_levels[level - 1].size();
    const std::size_t first = block * kFan;
    const std::size_t last = std::min(first + kFan, below);
    Extremes found;
    for (std::size_t i = first; i < last; ++i) {
        if (level == 0)
            found.take(m_y[i]);
        else
            found.take(m_levels[level - 1][i].y);
    }
    return found;
}

Extremes TraceRing::extremes() const {
    return m_levels.empty() ? Extremes{} : m_levels.back().front().y;
}

std::size_t TraceRing::firstFrom(std::size_t from, std::size_t last, double x, std::size_t guess) const {
    std::size_t low = from;
    std::size_t high = last;
    std::size_t probe = std::min(from + guess, last);
    std::size_t step = 1;
    if (probe < last && this->x(probe) < x) {
        for (low = probe + 1; low + step < last && this->x(low + step) < x; step *= 2) low += step + 1;
        high = std::min(low + step, last);
    } else {
        for (high = probe; high - low > step && this->x(high - step) >= x; step *= 2) high -= step;
        if (high - low > step) low = high - step;
    }
    while (low < high) {
        probe = low + (high - low) / 2;
        if (this->x(probe) < x)
            low = probe + 1;
        else
            high = probe;
    }
    return low;
}

std::uint64_t TraceRing::runStart(std::size_t number) const {
    return m_runStarts[(m_newestRun + kMostRuns - number) % kMostRuns];
}

void TraceRing::noteRun(double x) {
    const bool jumpedBack = size() > 0 && x < this->x(size() - 1);
    if (size() == 0 || jumpedBack || m_interrupted) {
        m_newestRun = (m_newestRun + 1) % kMostRuns;
        m_runStarts[m_newestRun] = m_added;
        m_runCount = std::min(m_runCount + 1, kMostRuns);
    }
    while (m_runCount > 1 && runStart(m_runCount - 2) <= oldestThen()) --m_runCount;
}

/// A gap before the point that comes, and none any more before the oldest that will be held with it.
void TraceRing::noteGap() {
    const std::uint64_t kept = oldestThen();
    while (!m_gaps.empty() && m_gaps.front() <= kept) m_gaps.erase(m_gaps.begin());
    if (std::exchange(m_interrupted, false) && m_added > kept) m_gaps.push_back(m_added);
}

PointRun TraceRing::run(std::size_t number) const {
    if (number >= m_runCount) return {};
    const std::uint64_t first = std::max(runStart(number), oldest());
    const std::uint64_t last = number == 0 ? m_added : runStart(number - 1);
    return {static_cast<std::size_t>(first - oldest()), static_cast<std::size_t>(last - oldest())};
}

PointRun TraceRing::stretch(std::size_t number) const {
    if (number > m_gaps.size()) return {};
    const std::size_t behind = m_gaps.size() - number; // gaps before its end
    const std::uint64_t first = behind == 0 ? oldest() : m_gaps[behind - 1];
    const std::uint64_t last = number == 0 ? m_added : m_gaps[behind];
    return {static_cast<std::size_t>(first - oldest()), static_cast<std::size_t>(last - oldest())};
}

} // namespace vistor
