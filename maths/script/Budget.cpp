#include "maths/script/Budget.h"

#include "maths/script/Fault.h"

namespace vistor::script {

void Budget::start(std::chrono::nanoseconds duration) {
    m_end = std::chrono::steady_clock::now() + duration;
    m_work = 0;
}

void Budget::take(std::size_t bytes) {
    work(bytes >> 8); // asking in vain counts too
    if (bytes > left()) raise(kOutOfMemory);
    m_used += bytes;
}

void Budget::checkText(std::size_t characters) {
    work(characters >> 7);
    if (characters > m_limit / sizeof(char16_t)) raise(kOutOfStringSpace);
    if (characters > left() / sizeof(char16_t)) raise(kOutOfMemory);
}

void Budget::lookAtClock() {
    m_work = 0;
    if (std::chrono::steady_clock::now() < m_end) return;
    Fault fault{kTimedOut, errorWords(kTimedOut), {}, 0, true};
    throw fault;
}

} // namespace vistor::script
