// The stream of the simulated car as it comes over the line, with damage when wished. In: options. Out:
// bytes, 20 milliseconds a call, the same for the same options on every machine.
#pragma once

#include "tools/CarMessages.h"

namespace vistor {

struct SimulationOptions {
    int laps = 3; ///< until the end; 0 is endless
    std::uint64_t seed = 1;
    double corruptPercent = 0; ///< of the frames are damaged, 0 to 100
    bool dropOut = false;      ///< the line falls silent for a moment now and then
};

class SimulatedStream {
public:
    explicit SimulatedStream(const SimulationOptions& options);

    /// The next 20 milliseconds; nothing in a drop-out.
    std::vector<std::uint8_t> next();
    /// All laps are done, and their times have been sent.
    bool finished() const;
    double time() const { return m_car.state().time; } ///< s, of the next bytes
    const CarSimulation& car() const { return m_car; }

private:
    void damage(std::vector<std::uint8_t>& frame);
    bool silent();

    SimulationOptions m_options;
    CarSimulation m_car;
    CarMessages m_messages;
    Random m_random; ///< for damage alone, so that the car drives alike with and without
    double m_silenceBegins = 0, m_silenceEnds = 0;
    double m_lapsDone = -1; ///< time at which the last lap ended
};

/// The whole run, with the head of a run file; in a drop-out its times go on. `options.laps` must be above 0.
std::vector<std::uint8_t> simulateRunFile(const SimulationOptions& options);

} // namespace vistor
