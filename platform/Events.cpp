#include "platform/Events.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace vistor {
namespace {

using Steady = std::chrono::steady_clock;
Steady::time_point nextPump;
int held = 0;

} // namespace

void pumpEvents() {
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(held > 0 ? QEventLoop::ExcludeUserInputEvents
                                                 : QEventLoop::AllEvents);
    // Taken after the events, so that slow handlers do not make every further message pump again.
    nextPump = Steady::now() + std::chrono::milliseconds(1);
}

bool DoEvents() {
    if (Steady::now() < nextPump) return false;
    pumpEvents();
    return true;
}

InputHeld::InputHeld() {
    ++held;
}

InputHeld::~InputHeld() {
    --held;
}

bool inputIsHeld() {
    return held > 0;
}

InputReleased::InputReleased() : m_before(std::exchange(held, 0)) {}

InputReleased::~InputReleased() {
    held = m_before;
}

} // namespace vistor
