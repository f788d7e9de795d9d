#include "platform/EndSignals.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace vistor {
namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGHUP, SIGINT};

// What a signal's handler may touch.
std::atomic<int> wakeUp{-1}; ///< the descriptor that wakes the event loop
std::atomic<int> taken{0};   ///< the signal
timer_t deadline;
std::atomic<bool> hasDeadline{false};
static_assert(std::atomic<int>::is_always_lock_free);

void setDeadline(double seconds) {
    if (!hasDeadline) return;
    itimerspec time = {};
    time.it_value.tv_sec = static_cast<time_t>(seconds);
    time.it_value.tv_nsec = static_cast<long>((seconds - static_cast<double>(time.it_value.tv_sec)) * 1e9);
    ::timer_settime(deadline, 0, &time, nullptr);
}

/// As if the program had never taken the signal over.
void endBy(int number) {
    std::signal(number, SIG_DFL);
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, number);
    ::sigprocmask(SIG_UNBLOCK, &set, nullptr);
    std::raise(number);
}

extern "C" void onEndSignal(int number) {
    const int before = errno;
    taken = number;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp, &one, sizeof one);
    setDeadline(kSignalSeconds);
    errno = before;
}

extern "C" void onDeadline(int) {
    endBy(taken);
}

void setHandler(int number, void (*handler)(int), int flags) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(number, &action, nullptr);
}

bool isIgnored(int number) {
    struct sigaction before = {};
    return ::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
}

} // namespace

EndSignals::EndSignals(std::function<void()> store) : m_store(std::move(store)) {
    wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeUp < 0) return; // the signals end the program as they always do
    m_notifier = std::make_unique<QSocketNotifier>(wakeUp, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { take(); });
    setHandler(SIGALRM, onDeadline, 0);
    hasDeadline = ::timer_create(CLOCK_MONOTONIC, nullptr, &deadline) == 0; // it sends SIGALRM
    for (const int number : kEndSignals)
        if (!isIgnored(number)) setHandler(number, onEndSignal, static_cast<int>(SA_RESTART | SA_RESETHAND));
}

EndSignals::~EndSignals() {
    if (!m_notifier) return;
    for (const int number : kEndSignals)
        if (!isIgnored(number)) std::signal(number, SIG_DFL);
    if (hasDeadline.exchange(false)) ::timer_delete(deadline);
    m_notifier.reset();
    ::close(wakeUp.exchange(-1));
}

void EndSignals::take() {
    m_notifier->setEnabled(false); // whatever events storing lets run
    setDeadline(kStoreSeconds);
    m_store();
    endBy(taken);
}

} // namespace vistor
