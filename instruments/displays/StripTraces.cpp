#include "instruments/displays/StripTraces.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

void takeBlocks(Extremes& found, const std::vector<Extremes>& blocks, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i < last; ++i) found.take(blocks[i]);
}

} // namespace

void TraceRing::setCapacity(std::size_t capacity) {
    capacity = std::clamp<std::size_t>(capacity, 1, kMostPoints);
    if (capacity == m_capacity) return;
    TraceRing other;
    other.m_capacity = capacity;
    for (std::size_t i = size() - std::min(size(), capacity); i < size(); ++i) other.add(x(i), y(i));
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
        std::vector<Extremes>& blocks = m_levels[level];
        if (block == blocks.size()) blocks.push_back(block == 0 ? children(level, 0) : Extremes{});
        blocks[block].take(y);
    }
}

void TraceRing::replaceOldest(double x, double y) {
    const std::size_t slot = m_head;
    const double before = m_y[slot];
    m_x[slot] = x;
    m_y[slot] = y;
    m_head = slot + 1 == m_x.size() ? 0 : slot + 1;
    refreshLevels(slot, before, y);
}

void TraceRing::refreshLevels(std::size_t slot, double before, double after) {
    std::size_t block = slot;
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        block /= kFan;
        Extremes& held = m_levels[level][block];
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
    if (level == 0) {
        for (std::size_t i = first; i < last; ++i) found.take(m_y[i]);
    } else {
        takeBlocks(found, m_levels[level - 1], first, last);
    }
    return found;
}

Extremes TraceRing::extremes() const {
    return m_levels.empty() ? Extremes{} : m_levels.back().front();
}

Extremes TraceRing::extremes(std::size_t first, std::size_t last) const {
    Extremes found;
    last = std::min(last, size());
    if (first >= last) return found;
    const std::size_t beforeWrap = m_x.size() - m_head; // points before the ring's end
    if (first < beforeWrap) takeSlots(found, m_head + first, m_head + std::min(last, beforeWrap));
    if (last > beforeWrap) takeSlots(found, first > beforeWrap ? first - beforeWrap : 0, last - beforeWrap);
    return found;
}

void TraceRing::takeSlots(Extremes& found, std::size_t first, std::size_t last) const {
    if (last - first <= 2 * kFan) {
        for (std::size_t i = first; i < last; ++i) found.take(m_y[i]);
        return;
    }
    // The ragged ends at each level, and what lies between them one level up.
    for (; first % kFan != 0; ++first) found.take(m_y[first]);
    for (; last % kFan != 0; --last) found.take(m_y[last - 1]);
    for (std::size_t level = 0; first < last; ++level) {
        const std::vector<Extremes>& blocks = m_levels[level];
        first /= kFan;
        last /= kFan;
        if (last - first <= 2 * kFan || level + 1 == m_levels.size())
            return takeBlocks(found, blocks, first, last);
        for (; first % kFan != 0; ++first) found.take(blocks[first]);
        for (; last % kFan != 0; --last) found.take(blocks[last - 1]);
    }
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
    if (size() == 0 || jumpedBack) {
        m_newestRun = (m_newestRun + 1) % kMostRuns;
        m_runStarts[m_newestRun] = m_added;
        m_runCount = std::min(m_runCount + 1, kMostRuns);
    }
    const std::uint64_t oldest = m_added + 1 - std::min<std::uint64_t>(m_added + 1, m_capacity);
    while (m_runCount > 1 && runStart(m_runCount - 2) <= oldest) --m_runCount;
}

PointRun TraceRing::run(std::size_t number) const {
    if (number >= m_runCount) return {};
    const std::uint64_t oldest = m_added - size();
    const std::uint64_t first = std::max(runStart(number), oldest);
    const std::uint64_t last = number == 0 ? m_added : runStart(number - 1);
    return {static_cast<std::size_t>(first - oldest), static_cast<std::size_t>(last - oldest)};
}

} // namespace vistor
