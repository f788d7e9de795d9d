// The rule under which the dialogs' arithmetic runs: a statement that fails has no effect and the next one
// runs.
#pragma once

#include <cmath>

namespace vistor {

/// Stores `value` unless its arithmetic failed: overflow, division by zero, a root or logarithm that does not
/// exist.
inline void putUnlessFailed(double& target, double value) {
    if (std::isfinite(value)) target = value;
}

} // namespace vistor
