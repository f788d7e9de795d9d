// The machine's clocks as the program reads them. In: the system clocks. Out: seconds, to the tick, the
// sample stamps and the status.
#pragma once

#include <functional>

namespace vistor {

/// The program's clock, in seconds with the resolution of the system clock (microseconds or better): seconds
/// since local midnight, 0 to 86400, until startClock() is called; from then on it runs on evenly from the
/// time of that call, past 86400 and whatever the machine's clock is set to. Cheap enough to be read once for
/// every sample.
double Timer();

/// Starts the program's clock at the seconds since local midnight. One that `wraps` goes by the machine's
/// clock instead: back to 0 at midnight, and wherever that clock is set.
void startClock(bool wraps);

/// Seconds of a clock that nobody sets, from any start: for ages and spans. It stands while the machine
/// sleeps.
double steadySeconds();

/// Puts other clocks in place of the machine's, that of the day (0 to 86400) and the steady one; without the
/// second, the first is the program's clock as it is. Empty functions put the machine's back. For tests.
void setClock(std::function<double()> clock, std::function<double()> steady = {});

} // namespace vistor
