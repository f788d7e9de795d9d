// The language's random numbers: a generator of 24 bits that every run starts from the same seed.
#pragma once

#include <cstdint>

namespace vistor::script {

class Random {
public:
    /// The next number, 0 to below 1.
    float next();
    float last() const { return static_cast<float>(m_state) / 16777216.0F; }
    /// Starts the row that belongs to a negative argument of Rnd: the same one for the same argument.
    void restart(float argument);
    /// Mixes a number into the state, as Randomize does.
    void mix(double number);

private:
    std::uint32_t m_state = 0x50000;
};

} // namespace vistor::script
