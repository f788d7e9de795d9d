// Lets the window system's pending events run in the middle of long work.
#pragma once

namespace vistor {

/// Lets pending events run. It may be called for every message of a burst: it looks at the clock and really
/// pumps at most once a millisecond, so that a call costs nanoseconds. Without an application object it does
/// nothing. True when it really pumped.
bool DoEvents();

/// Lets pending events run now, however recently that was done: where a window has to be seen before work
/// goes on.
void pumpEvents();

/// While one lives, keys, mouse and closing wait: DoEvents() and pumpEvents() let everything else run. For
/// work that comes round all the time and must not be held up by a window that a person opens in the middle
/// of it.
class InputHeld {
public:
    InputHeld();
    ~InputHeld();
    InputHeld(const InputHeld&) = delete;
    InputHeld& operator=(const InputHeld&) = delete;
};
bool inputIsHeld();

/// While one lives, nothing is held: for a question that such work asks a person.
class InputReleased {
public:
    InputReleased();
    ~InputReleased();
    InputReleased(const InputReleased&) = delete;
    InputReleased& operator=(const InputReleased&) = delete;

private:
    int m_before;
};

} // namespace vistor
