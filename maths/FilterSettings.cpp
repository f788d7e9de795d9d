#include "maths/FilterSettings.h"

#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <cmath>

namespace vistor {
namespace {

constexpr float kUnusedCorner = -1;

std::int32_t typeOf(float lowHz, float highHz) {
    if (lowHz > 0) return highHz > 0 ? kBandPass : kHighPass;
    return kLowPass;
}

/// A number that went through an overflow counts as 0, below every range.
double finite(double value) {
    return std::isfinite(value) ? value : 0;
}

} // namespace

FilterSettings filterSettingsOf(const VariableDefinition& row) {
    const bool known = row.FilterDesign == kButterworth || row.FilterDesign == kChebyshev;
    return {known ? row.FilterDesign : kNoFilter,   typeOf(row.FilterLowVal, row.FilterHighVal),
            static_cast<double>(row.FilterHighVal), static_cast<double>(row.FilterLowVal),
            static_cast<double>(row.FilterOrder),   static_cast<double>(row.FilterRipple)};
}

void storeFilterSettings(const FilterSettings& settings, VariableDefinition& row) {
    row.FilterDesign = settings.model;
    row.FilterLowVal = settings.type == kLowPass ? kUnusedCorner : static_cast<float>(settings.lowHz);
    row.FilterHighVal = settings.type == kHighPass ? kUnusedCorner : static_cast<float>(settings.highHz);
    row.FilterOrder = static_cast<std::int32_t>(settings.order);
    row.FilterRipple = static_cast<float>(settings.ripple);
}

bool takesOrderTwoOnly(const FilterSettings& settings) {
    const bool highTooLow = settings.highHz < kLowestCornerOfHigherOrders;
    const bool lowTooLow = settings.lowHz < kLowestCornerOfHigherOrders;
    if (settings.type == kLowPass) return highTooLow;
    if (settings.type == kHighPass) return lowTooLow;
    return highTooLow || lowTooLow;
}

bool hasBand(const FilterSettings& settings) {
    return settings.type != kBandPass || settings.lowHz < settings.highHz;
}

void clampFilterSettings(FilterSettings& settings) {
    settings.highHz = Clamp(1, finite(settings.highHz), 50);
    settings.lowHz = Clamp(1, finite(settings.lowHz), 50);
    settings.order = Clamp(2, std::nearbyint(finite(settings.order) / 2) * 2, 10);
    if (takesOrderTwoOnly(settings)) settings.order = 2;
    settings.ripple = Clamp(0.01, finite(settings.ripple), 3);
}

ResponseTable responseTable(const FilterSettings& settings) {
    const auto order = static_cast<std::int32_t>(settings.order);
    std::vector<FilterSection> sections;
    DesignFilter(sections, settings.model, settings.type, order, static_cast<float>(settings.ripple),
                 kFilterSampleRate, kFilterNyquist, settings.lowHz, settings.highHz);
    const std::vector<double> response = FrequencyResponse(sections);
    ResponseTable table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = {static_cast<double>(i) / 50, std::pow(10.0, response[i])};
    return table;
}

} // namespace vistor
