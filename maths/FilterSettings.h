// The rules behind the filter design window. In: a variable's filter fields and what a person enters. Out:
// settings that can be designed, their response as a table, and the fields again.
#pragma once

#include "maths/AdvancedFiltering.h"

#include <array>
#include <cstdint>

namespace vistor {

struct VariableDefinition;

/// What the window edits.
struct FilterSettings {
    std::int32_t model = kNoFilter; ///< kNoFilter, kButterworth or kChebyshev
    std::int32_t type = kLowPass;   ///< kLowPass, kHighPass or kBandPass
    double highHz = 0;
    double lowHz = 0;
    double order = 0;
    double ripple = 0; ///< dB

    friend bool operator==(const FilterSettings&, const FilterSettings&) = default;
};

inline constexpr double kFilterSampleRate = 100.0;         ///< Hz
inline constexpr double kFilterNyquist = 100.0 / 2;        ///< Hz
inline constexpr double kLowestCornerOfHigherOrders = 5.0; ///< Hz; below it only the order 2 is designed

/// A row's settings. The type follows from the corners: both above 0 make a band-pass, the lower alone a
/// high-pass. A FilterDesign that is no model is none.
FilterSettings filterSettingsOf(const VariableDefinition& row);

/// Puts the settings into a row. The corner that the type does not use becomes -1.
void storeFilterSettings(const FilterSettings& settings, VariableDefinition& row);

/// Whether a corner that the type uses lies too low for orders above 2.
bool takesOrderTwoOnly(const FilterSettings& settings);

/// Whether there is a filter between the corners: not for a band-pass whose high corner is not above the low
/// one.
bool hasBand(const FilterSettings& settings);

/// Brings the numbers into their ranges: corners 1 to 50 Hz, an even order 2 to 10, ripple 0.01 to 3 dB.
void clampFilterSettings(FilterSettings& settings);

/// One row of the chart.
struct ResponsePoint {
    double place = 0;  ///< 0 to 2 from 0 Hz to the Nyquist frequency
    double height = 0; ///< 10 to the power of the response in dB, 1 at its highest
};
using ResponseTable = std::array<ResponsePoint, kResponseRows>;

/// Designs the filter and gives its response.
ResponseTable responseTable(const FilterSettings& settings);

} // namespace vistor
