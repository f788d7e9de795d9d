// The signals with which others end the program: SIGTERM, SIGHUP, SIGINT. In: the signals. Out: a call on the
// event loop, in which work can be stored as at any other moment, and the end by that signal.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace vistor {

/// Takes the signals over for as long as it lives; one at a time in a process. A signal that whoever started
/// the program has it ignore stays ignored. The same signal a second time ends the program on the spot.
class EndSignals {
public:
    /// `store` is called once, from the event loop that is running, a dialog's too; then the program ends by
    /// the signal, as its parent sees. Should no event loop take it up within kSignalSeconds, the program
    /// ends without the call.
    explicit EndSignals(std::function<void()> store);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    void take();

    std::function<void()> m_store;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

inline constexpr double kSignalSeconds = 5; ///< a large load or a slow script may hold the loop so long
inline constexpr double kStoreSeconds = 5;  ///< what storing may take before the program ends all the same

} // namespace vistor
