#include "platform/Clock.h"

#include <cstdint>
#include <ctime>
#include <utility>

namespace vistor {
namespace {

std::function<double()> otherClock;

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

} // namespace

double Timer() {
    if (otherClock) return otherClock();
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec < midnight.validFrom || now.tv_sec >= midnight.validTo) midnight.renew(now.tv_sec);
    return static_cast<double>((now.tv_sec - midnight.at) % kSecondsOfDay) +
           static_cast<double>(now.tv_nsec) * 1e-9;
}

void setClock(std::function<double()> clock) {
    otherClock = std::move(clock);
}

} // namespace vistor
