// Random numbers that are the same on every machine for the same seed. The distributions of the standard
// library are not.
#pragma once

#include <cstdint>

namespace vistor {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t bits() {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }

    /// 0 to below 1.
    double uniform() { return static_cast<double>(bits() >> 11) * 0x1.0p-53; }

    /// Bell-shaped round 0 with a deviation of 1, never beyond 3.5.
    double noise() { return (uniform() + uniform() + uniform() + uniform() - 2.0) * 1.7320508075688772; }

private:
    std::uint64_t m_state;
};

} // namespace vistor
