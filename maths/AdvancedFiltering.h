// Designs recursive digital filters: an analogue prototype, brought over by the bilinear transformation. In:
// model, type, order, ripple and corners. Out: the second-order sections of the transfer function and its
// response.
#pragma once

#include <array>
#include <complex>
#include <cstdint>
#include <vector>

namespace vistor {

inline constexpr std::int32_t kNoFilter = 0;
inline constexpr std::int32_t kButterworth = 4;
inline constexpr std::int32_t kChebyshev = 5; ///< with ripple in the pass band

inline constexpr std::int32_t kLowPass = 1;
inline constexpr std::int32_t kHighPass = 2;
inline constexpr std::int32_t kBandPass = 3;

inline constexpr int kResponseRows = 101;           ///< from 0 to the Nyquist frequency in equal steps
inline constexpr std::int32_t kHighestOrder = 1000; ///< beyond it, or below 0, results are empty

/// One factor of the transfer function: two zeros on the real axis over two poles, which are conjugate or
/// both real. A root at 0 changes no magnitude; the one section of an odd order's real pole has such. Roots
/// hold what the coefficients of one polynomial lose: poles near z = 1 or -1 lie too close together for
/// those.
struct FilterSection {
    std::array<double, 2> zeros{};
    std::array<std::complex<double>, 2> poles{};
    double gain = 1;
};

/// Zeros and poles in rows 1 to `order`; rows 0 to `order` + 1 are there. Zeros lie on the real axis.
/// `ripple` is in dB, frequencies are in Hz; the sample rate is passed along unused.
void DesignPolesAndZeros(std::vector<double>& zeros, std::vector<double>& polesRe,
                         std::vector<double>& polesIm, std::int32_t model, std::int32_t type,
                         std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                         double highHz);

/// The filter as sections, one for each two of `order`, one more where that is odd; none outside 0 to
/// kHighestOrder.
void DesignFilter(std::vector<FilterSection>& sections, std::int32_t model, std::int32_t type,
                  std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                  double highHz);

/// The magnitudes in dB, rows 0 to 100, relative to the highest of them. Scales the first section's gain so
/// that the highest gain is 1. All 0 without sections.
std::vector<double> FrequencyResponse(std::vector<FilterSection>& sections);

bool IsOdd(std::int32_t n);
double Square(double x);

} // namespace vistor
