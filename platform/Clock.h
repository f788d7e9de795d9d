// The machine's clock as the program reads it. In: the system clock. Out: seconds, to the tick and the sample
// stamps.
#pragma once

#include <functional>

namespace vistor {

/// Seconds since local midnight, 0 to 86400, with the resolution of the system clock (microseconds or
/// better). Cheap enough to be read once for every sample.
double Timer();

/// Puts another clock in place of the machine's; an empty function puts the machine's back. For tests.
void setClock(std::function<double()> clock);

} // namespace vistor
