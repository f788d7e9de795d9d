#include "platform/Events.h"

#include <QAbstractEventDispatcher>
#include <QThread>

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// Keeps with which flags events were asked for.
class Asked final : public QAbstractEventDispatcher {
public:
    explicit Asked(std::vector<QEventLoop::ProcessEventsFlags>& flags) : m_flags(flags) {}
    bool processEvents(QEventLoop::ProcessEventsFlags flags) override {
        m_flags.push_back(flags);
        return false;
    }
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void registerTimer(int, qint64, Qt::TimerType, QObject*) override {}
    bool unregisterTimer(int) override { return false; }
    bool unregisterTimers(QObject*) override { return false; }
    QList<TimerInfo> registeredTimers(QObject*) const override { return {}; }
    int remainingTime(int) override { return -1; }
    void wakeUp() override {}
    void interrupt() override {}

private:
    std::vector<QEventLoop::ProcessEventsFlags>& m_flags;
};

TEST(Events, ThePersonsInputWaitsWhileItIsHeld) {
    std::vector<QEventLoop::ProcessEventsFlags> flags;
    const std::unique_ptr<QThread> thread(QThread::create([] {
        const InputHeld held;
        pumpEvents();
        { const InputHeld inner; }
        pumpEvents();
        {
            const InputReleased question;
            EXPECT_FALSE(inputIsHeld());
            pumpEvents();
        }
        pumpEvents();
    }));
    thread->setEventDispatcher(new Asked(flags));
    thread->start();
    ASSERT_TRUE(thread->wait(5000));
    const QEventLoop::ProcessEventsFlags held = QEventLoop::ExcludeUserInputEvents;
    EXPECT_EQ(flags, (std::vector<QEventLoop::ProcessEventsFlags>{held, held, QEventLoop::AllEvents, held}));
    EXPECT_FALSE(inputIsHeld());
}

} // namespace
} // namespace vistor
