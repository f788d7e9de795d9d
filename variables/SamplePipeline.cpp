#include "variables/SamplePipeline.h"

#include "maths/ConvertUnits.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <array>
#include <cmath>

namespace vistor {
namespace {

constexpr double kNoLimit = 1e20;

/// The unit conversion of a row, kept until the row names another one or the tables change.
struct KnownUnit {
    QString key;
    std::uint64_t revision = 0;
    std::size_t unit = 0;
};

std::array<KnownUnit, kVariableCount> knownUnits;
const VariableDefinition kNoSettings;
const QString kNoFormula;

const VariableDefinition& rowOf(std::size_t number) {
    return number < VariableTable.size() ? VariableTable[number] : kNoSettings;
}

/// Stores a result rounded to 32 bits, unless the arithmetic behind it failed: then the place keeps what it
/// had.
void storeIfFinite(float& place, double result) {
    const auto rounded = static_cast<float>(result);
    if (std::isfinite(rounded)) place = rounded;
}

const QString& conversionOf(std::size_t number, const VariableDefinition& row) {
    if (UnitConversions.empty()) return kNoFormula;
    KnownUnit& last = knownUnits[number];
    const QString& key = row.ApplyTransformation;
    if (last.revision != tableRevision || last.key.constData() != key.constData() ||
        last.key.size() != key.size())
        last = {key, tableRevision, static_cast<std::size_t>(FindUnit(key))};
    return last.unit < UnitConversions.size() ? UnitConversions[last.unit].Conversion : kNoFormula;
}

/// The current distance. A table without its row supplies none, and a number that is no variable's neither.
void noteDistance(double& place) {
    if (VariableTable.size() <= kDistanceRow) return;
    const std::int32_t number = VariableTable[kDistanceRow].IndexNumber;
    if (number < 0 || number >= kVariableCount) return;
    place = static_cast<double>(LastValue[static_cast<std::size_t>(number)]);
}

/// A sample that comes too long after the one before it is thrown away and the last value repeated; the
/// change in value takes no part.
void rateStage(float& v, const VariableDefinition& row, double oldTime, double newTime, double last) {
    if (!(row.MaximumROC > 0)) return;
    float limit = 0;
    storeIfFinite(limit, static_cast<double>(row.MaximumROC) * std::fabs(oldTime - newTime));
    if (limit > row.MaximumROC) v = static_cast<float>(last);
}

/// First-order low-pass with the row's time constant over the real spacing of the samples.
void smoothingStage(float& v, const VariableDefinition& row, double dt, double last) {
    if (!(row.SmoothingTime > 0)) return;
    float weight = 0;
    storeIfFinite(weight, std::exp(-dt / static_cast<double>(row.SmoothingTime)));
    const auto a = static_cast<double>(weight);
    storeIfFinite(v, a * last + (1 - a) * static_cast<double>(v));
}

/// Integrates (odd modes) into, or differentiates (even modes) against, the last output over a step of time
/// or distance.
void calculusStage(float& v, std::int32_t calculus, double timeStep, double distanceStep, double last) {
    if (calculus > 4) return;
    const double step = calculus <= 2 ? timeStep : distanceStep;
    const auto value = static_cast<double>(v);
    if (calculus == 1 || calculus == 3)
        storeIfFinite(v, value * step + last);
    else if (step != 0)
        storeIfFinite(v, (value - last) / step);
}

float clamped(float v, const VariableDefinition& row) {
    const bool limited = row.DefaultMax > row.DefaultMin;
    const float low = limited ? row.DefaultMin : static_cast<float>(-kNoLimit);
    const float high = limited ? row.DefaultMax : static_cast<float>(kNoLimit);
    if (v < low) return low;
    return v > high ? high : v;
}

} // namespace

double timeStamp(double now) {
    constexpr double kFineUpTo = 131072;
    constexpr double kSteps = 128;
    return now < kFineUpTo ? static_cast<double>(static_cast<float>(now))
                           : std::nearbyint(now * kSteps) / kSteps;
}

void TransformSample(std::int32_t number, float value, float& output) {
    if (number < 0 || number >= kVariableCount) return;
    const auto index = static_cast<std::size_t>(number);
    const VariableDefinition& row = rowOf(index);
    const QString& formula = row.UseCustomTrans ? row.CustomTransformation : conversionOf(index, row);
    float converted = value;
    if (ConvertValue(formula, number, converted, false)) output = converted;
}

float ProcessSample(const std::int32_t& number, const float& value, const double& now) {
    if (number < 0 || number >= kVariableCount) return value;
    const auto index = static_cast<std::size_t>(number);
    const VariableDefinition& row = rowOf(index);
    const double oldTime = SampleTime[index];
    const auto last = static_cast<double>(LastValue[index]);
    const double oldDistance = SampleDistance[index];
    const double dt = now - oldTime;
    const double newTime = timeStamp(now);
    SampleTime[index] = newTime;
    noteDistance(SampleDistance[index]);

    float v = value;
    rateStage(v, row, oldTime, newTime, last);
    smoothingStage(v, row, dt, last);
    if (oldTime != 0 && row.Available && row.Calculus > 0)
        calculusStage(v, row.Calculus, newTime - oldTime, SampleDistance[index] - oldDistance, last);
    return clamped(v, row);
}

} // namespace vistor
