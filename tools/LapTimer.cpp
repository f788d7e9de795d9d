#include "tools/LapTimer.h"

#include <cstddef>

namespace vistor {
namespace {

constexpr double kSectorEnds[] = {0.34, 0.68, 1.0}; // parts of a lap

} // namespace

void LapTimer::advance(double distance, double time) {
    const double line =
        (m_times.lap - 1 + kSectorEnds[static_cast<std::size_t>(m_times.sector - 1)]) * m_lapLength;
    if (distance >= line && distance > m_distance)
        endSector(m_time + (time - m_time) * (line - m_distance) / (distance - m_distance));
    m_distance = distance;
    m_time = time;
    m_times.lapTime = time - m_lapStart;
    m_times.sectorTime = time - m_sectorStart;
}

void LapTimer::endSector(double time) {
    m_times.lastSectors[static_cast<std::size_t>(m_times.sector - 1)] = time - m_sectorStart;
    m_sectorStart = time;
    if (++m_times.sector <= static_cast<int>(std::size(kSectorEnds))) return;
    m_times.sector = 1;
    ++m_times.lap;
    m_times.lastLap = time - m_lapStart;
    if (m_times.bestLap == 0 || m_times.lastLap < m_times.bestLap) m_times.bestLap = m_times.lastLap;
    m_lapStart = time;
}

} // namespace vistor
