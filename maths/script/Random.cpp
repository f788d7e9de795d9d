#include "maths/script/Random.h"

#include <bit>

namespace vistor::script {
namespace {

constexpr std::uint32_t kMask = 0xFFFFFF;

} // namespace

float Random::next() {
    m_state = (m_state * 0x43FD43FDU + 0xC39EC3U) & kMask;
    return last();
}

void Random::restart(float argument) {
    const auto bits = std::bit_cast<std::uint32_t>(argument);
    m_state = (bits + (bits >> 24)) & kMask;
}

void Random::mix(double number) {
    const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
    m_state = (m_state & 0xFF0000FFU) | (((high & 0xFFFFU) ^ (high >> 16)) << 8);
    m_state &= kMask;
}

} // namespace vistor::script
