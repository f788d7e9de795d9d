// Designs recursive digital filters: an analogue prototype, brought over by the bilinear transformation. In:
// model, type, order, ripple and corners. Out: the coefficients of the transfer function and its response.
#pragma once

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

/// Zeros and poles in rows 1 to `order`; rows 0 to `order` + 1 are there. Zeros lie on the real axis.
/// `ripple` is in dB, frequencies are in Hz; the sample rate is passed along unused.
void DesignPolesAndZeros(std::vector<double>& zeros, std::vector<double>& polesRe,
                         std::vector<double>& polesIm, std::int32_t model, std::int32_t type,
                         std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                         double highHz);

/// The numerator `a` and denominator `b`, rows 0 to `order`; row k goes with z to the power -k, and b[0]
/// is 1.
void DesignFilter(std::vector<double>& a, std::vector<double>& b, std::int32_t model, std::int32_t type,
                  std::int32_t order, float ripple, double sampleRate, double nyquist, double lowHz,
                  double highHz);

/// The magnitudes in dB, rows 0 to 100, relative to the highest of them. Scales `a` so that the highest gain
/// is 1. All 0 when the arrays are shorter than the order says.
std::vector<double> FrequencyResponse(std::vector<double>& a, const std::vector<double>& b,
                                      std::int32_t order);

bool IsOdd(std::int32_t n);
double Square(double x);

} // namespace vistor
