#include "platform/Clock.h"

#include <cstdint>
#include <ctime>
#include <utility>

namespace vistor {
namespace {

std::function<double()> otherClock;
std::function<double()> otherSteady;

constexpr std::int64_t kSecondsOfDay = 86400;

/// Local midnight is asked of the time zone rules only when a quarter of an hour has passed: that covers the
/// change of the day as well as changes of summer time, which all fall on quarters.
struct Midnight {
    std::int64_t validFrom = 0;
    std::int64_t validTo = 0;
    std::int64_t at = 0;

    void renew(std::int64_t now) {
        std::tm local{};
        const std::time_t seconds = now;
        localtime_r(&seconds, &local);
        at = now - (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
        validFrom = now - now % 900;
        validTo = validFrom + 900;
    }
};

Midnight midnight;

/// What the program's clock was at a moment of the steady one, once it was started.
struct Start {
    bool runs = false;
    double clock = 0;
    double steady = 0;
};

Start start;

double secondsOfDay() {
    if (otherClock) return otherClock();
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec < midnight.validFrom || now.tv_sec >= midnight.validTo) midnight.renew(now.tv_sec);
    return static_cast<double>((now.tv_sec - midnight.at) % kSecondsOfDay) +
           static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

double steadySeconds() {
    if (otherSteady) return otherSteady();
    if (otherClock) return otherClock();
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double Timer() {
    if (!start.runs || (otherClock && !otherSteady)) return secondsOfDay();
    return start.clock + (steadySeconds() - start.steady);
}

void startClock(bool wraps) {
    start = {!wraps, secondsOfDay(), steadySeconds()};
}

void setClock(std::function<double()> clock, std::function<double()> steady) {
    otherClock = std::move(clock);
    otherSteady = std::move(steady);
    start = {};
}

} // namespace vistor
