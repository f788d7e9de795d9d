// The one periodic piece of work: reads the source, decodes, and hands each updated variable on. In: the
// source's bytes and the clock. Out: calls of the dashboard's refreshControls.
#pragma once

#include "acquisition/HandleSerialData.h"

#include <QString>

#include <functional>

namespace vistor {

/// Takes a variable's PhysicalName and its newest value.
using RefreshFunction = std::function<void(const QString& name, float value)>;

/// The tick with what lives between two of them.
class AcquisitionTick {
public:
    /// Does one tick, unless PlayMode is off or a tick is being done already: events that run inside a tick
    /// may fire the timer again, and such a firing is lost.
    void run(const RefreshFunction& refreshControls);

private:
    void decode(double now); // the clock as the tick began
    void sweep(const RefreshFunction& refreshControls);

    bool InTick = false;
    float StreamStartTime = -1; ///< s; stream time of the first time message of a recorded file
    TickValueArray TickValues{};
    TickFlagArray TickUpdated{};
};

} // namespace vistor
