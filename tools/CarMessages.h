// What the logger in the simulated car sends. In: the car. Out: the frames of one moment, fast channels often
// and slow ones seldom, with the noise of the sensors.
//
// All values go out in the units of the delivered definitions, but for three: the engine speed goes as
// message 18 in pulses (two each turn: IGNTIONPULSESREV=2), and the two brake pressures as the volts of their
// sensors, 0.5 to 4.5 for 0 to 100 bar.
#pragma once

#include "acquisition/StreamEncoder.h"
#include "tools/CarSimulation.h"

#include <cstdint>
#include <vector>

namespace vistor {

inline constexpr double kPulsesPerRev = 2;
inline constexpr int kMessageMilliseconds = kMostMillisecondsBetweenTimes; ///< between two time messages

class CarMessages {
public:
    explicit CarMessages(std::uint64_t seed) : m_random(seed) {}

    /// The frame of a time alone, in seconds.
    static std::vector<std::uint8_t> timeFrame(double time);
    /// The frames of now, the time first, each with both its delimiters. Call it each kMessageMilliseconds.
    std::vector<std::vector<std::uint8_t>> next(const CarSimulation& car);

private:
    Random m_random;
    int m_calls = 0;
};

} // namespace vistor
