// Lap and sector times of the simulated car. In: distance and time of each step. Out: the times, to a
// fraction of a step.
#pragma once

#include <array>

namespace vistor {

struct LapTimes {
    int lap = 1;
    int sector = 1;        ///< 1 to 3
    double lapTime = 0;    ///< s since the line
    double sectorTime = 0; ///< s since the sector's beginning
    double lastLap = 0;    ///< s; 0 before the first lap is done, as the others below
    double bestLap = 0;
    std::array<double, 3> lastSectors{};
};

class LapTimer {
public:
    explicit LapTimer(double lapLength) : m_lapLength(lapLength) {}

    /// The car went to `distance` (m since the start) and it is `time` now.
    void advance(double distance, double time);
    const LapTimes& times() const { return m_times; }

private:
    void endSector(double time);

    double m_lapLength;
    double m_distance = 0;
    double m_time = 0;
    double m_lapStart = 0;
    double m_sectorStart = 0;
    LapTimes m_times;
};

} // namespace vistor
