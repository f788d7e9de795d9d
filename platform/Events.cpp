#include "platform/Events.h"

#include <QCoreApplication>

#include <chrono>

namespace vistor {
namespace {

using Steady = std::chrono::steady_clock;
Steady::time_point nextPump;

} // namespace

void pumpEvents() {
    if (QCoreApplication::instance()) QCoreApplication::processEvents();
    // Taken after the events, so that slow handlers do not make every further message pump again.
    nextPump = Steady::now() + std::chrono::milliseconds(1);
}

void DoEvents() {
    if (Steady::now() >= nextPump) pumpEvents();
}

} // namespace vistor
