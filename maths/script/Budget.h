// What one run may take: memory and time. Everything that grows asks here before it grows, so that any script
// ends in bounded memory and time.
#pragma once

#include <chrono>
#include <cstddef>

namespace vistor::script {

/// Must outlive every value that was charged to it.
class Budget {
public:
    explicit Budget(std::size_t bytes) : m_limit(bytes) {}
    Budget(const Budget&) = delete;
    Budget& operator=(const Budget&) = delete;

    /// Sets the time from now on after which work() ends the run.
    void start(std::chrono::nanoseconds duration);

    /// Takes memory; raises "Out of memory" when it is not there. Filling memory counts as work.
    void take(std::size_t bytes);
    void give(std::size_t bytes) noexcept { m_used -= bytes; }
    /// To be asked before a text of so many characters is built, which counts as work. Raises "Out of string
    /// space" for one that can never fit, "Out of memory" for one that does not fit into what is left.
    void checkText(std::size_t characters);

    /// Counts work done, one unit being about one simple statement, and now and then looks at the clock.
    void work(std::size_t units = 1) {
        m_work += units;
        if (m_work >= kSlice) lookAtClock();
    }

    std::size_t used() const { return m_used; }
    std::size_t left() const { return m_limit - m_used; }

private:
    static constexpr std::size_t kSlice = 4096;

    void lookAtClock();

    std::size_t m_limit;
    std::size_t m_used = 0;
    std::size_t m_work = 0;
    std::chrono::steady_clock::time_point m_end = std::chrono::steady_clock::time_point::max();
};

} // namespace vistor::script
