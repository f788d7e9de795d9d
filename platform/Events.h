// Lets the window system's pending events run in the middle of long work.
#pragma once

namespace vistor {

/// Lets pending events run. It may be called for every message of a burst: it looks at the clock and really
/// pumps at most once a millisecond, so that a call costs nanoseconds. Without an application object it does
/// nothing.
void DoEvents();

/// Lets pending events run now, however recently that was done: where a window has to be seen before work
/// goes on.
void pumpEvents();

} // namespace vistor
