// What every sample runs through: formula, stamps, rate stage, smoothing, calculus, clamp. In: raw values
// from the stream or a calculated row, and the table's row at that moment. Out: the value; stamps in
// SampleTime, SampleDistance.
#pragma once

#include <cstdint>

namespace vistor {

/// Turns a raw value into engineering units by the row's formula or unit conversion. `output` keeps what it
/// had when the conversion produced no value. A row that the table lacks counts as one without settings.
void TransformSample(std::int32_t number, float value, float& output);

/// A clock value as the stamps keep it: rounded to 32 bits, as long as these tell 1/128 s apart (up to 131072
/// s, a day and a half), beyond that to 1/128 s.
double timeStamp(double now);

/// Runs the stages of the row over a value, `now` being the program's clock in seconds, and keeps its stamps.
/// The caller stores the result in LastValue. A stage whose arithmetic fails (overflow, invalid, division by
/// zero) hands on what it received. Numbers outside 0 to 8000 give the value back.
float ProcessSample(const std::int32_t& number, const float& value, const double& now);

} // namespace vistor
