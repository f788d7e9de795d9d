// The one periodic piece of work: reads the source, decodes, and hands each updated variable on. In: the
// source's bytes and the clock. Out: calls of the dashboard's refreshControls, and how the stream is doing.
#pragma once

#include "acquisition/HandleSerialData.h"

#include <QString>

#include <functional>

namespace vistor {

/// Takes a variable's PhysicalName and its newest value.
using RefreshFunction = std::function<void(const QString& name, float value)>;

/// Starts the program's clock for a play. With key "MIDNIGHT" at "wrap" in section "VXVISTOR" of the settings
/// it goes back to 0 at midnight and follows the machine's clock when that is set.
void startPlayClock();

/// How the stream of the source that is open is doing.
struct StreamState {
    std::uint64_t messages = 0; ///< decoded since the source was opened
    double lastMessage = 0;     ///< steadySeconds() when the last one came
    bool ended = false;         ///< a recording is read to its end
    bool waits = false;         ///< a tick is stopped by a message that waits for its answer
};

/// The tick with what lives between two of them.
class AcquisitionTick {
public:
    /// Does one tick, unless PlayMode is off or a tick is being done already: events that run inside a tick
    /// may fire the timer again, and such a firing is lost. It decodes for about kSliceMilliseconds at most;
    /// what is left waits for the next. No input of the person comes through inside a tick.
    void run(const RefreshFunction& refreshControls);

    StreamState state() const;

    static constexpr int kSliceMilliseconds = 50;

private:
    void begin();
    void decode(double now); // the clock as the tick began
    void decodeLive();
    void decodeFirst(double now);
    void decodeOn(double now);
    SliceEnd decodeRecorded(float& target);
    void tellOfJunk(bool unread);
    void tellOfEnd();
    void tellOnce(const QString& text);
    void sweep(const RefreshFunction& refreshControls);

    bool InTick = false;
    float StreamStartTime = -1; ///< s; stream time of the first time message of a recorded file
    TickValueArray TickValues{};
    TickFlagArray TickUpdated{};
    std::uint32_t m_opening = 0;     ///< the opening that the rest is about
    std::uint64_t m_countBefore = 0; ///< messages decoded before it
    StreamState m_state;
    bool m_told = false; ///< that something is in the way
};

} // namespace vistor
