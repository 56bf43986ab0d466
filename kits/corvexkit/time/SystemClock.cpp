#include "corvexkit/time/SystemClock.h"

#include "corvexkit/time/CallQueue.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

using namespace std::chrono;

// A timer of the kernel that becomes readable at an absolute time of its clock. On the wall clock it
// follows every setting of that clock and fires on wake when its time passed during sleep, which a timer
// counting an interval does not.
class SystemClock::KernelTimer {
public:
    KernelTimer(clockid_t clock, const std::function<void()> &onTime)
        : m_descriptor{timerfd_create(clock, TFD_NONBLOCK | TFD_CLOEXEC)}
        , m_notifier{m_descriptor, QSocketNotifier::Read}
    {
        if (m_descriptor < 0) qFatal("No timer can be made: %s", std::strerror(errno));
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this, onTime] {
            // Only read to make it unreadable again; the count does not matter.
            quint64 expirations = 0;
            [[maybe_unused]] const auto size = ::read(m_descriptor, &expirations, sizeof expirations);
            m_armedFor.reset();
            onTime();
        });
    }
    ~KernelTimer()
    {
        m_notifier.setEnabled(false);
        ::close(m_descriptor);
    }
    KernelTimer(const KernelTimer &) = delete;
    KernelTimer &operator=(const KernelTimer &) = delete;

    void arm(std::optional<milliseconds> due)
    {
        if (due == m_armedFor) return;
        m_armedFor = due;
        itimerspec setting{};
        if (due) {
            // All zero would mean never, and times before the epoch are refused.
            const milliseconds when = std::max(*due, 1ms);
            setting.it_value.tv_sec = time_t(floor<seconds>(when).count());
            setting.it_value.tv_nsec = long(nanoseconds{when % 1s}.count());
        }
        timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME, &setting, nullptr);
    }

private:
    const int m_descriptor;
    QSocketNotifier m_notifier;
    std::optional<milliseconds> m_armedFor;
};

namespace {

CallQueue::Reading readingOf(const SystemClock &clock)
{
    return {clock.now().time_since_epoch(), clock.monotonicNow()};
}

} // namespace

SystemClock::SystemClock(std::optional<CXTimeZone> zone)
    : m_zone{zone ? *zone : CXTimeZone::system()}
    , m_followsSystemZone{!zone}
    , m_calls{std::make_shared<CallQueue>([this] { arm(); })}
{
}

SystemClock::~SystemClock() { m_calls->close(); }

Instant SystemClock::now() const { return floor<milliseconds>(system_clock::now()); }

milliseconds SystemClock::monotonicNow() const
{
    return floor<milliseconds>(steady_clock::now().time_since_epoch());
}

ClockCall SystemClock::callAt(Instant when, std::function<void()> action)
{
    return m_calls->add(CallQueue::Base::Wall, when.time_since_epoch(), std::move(action));
}

ClockCall SystemClock::callAfter(milliseconds delay, std::function<void()> action)
{
    // Upwards, so that the whole delay has gone by.
    const milliseconds start = ceil<milliseconds>(steady_clock::now().time_since_epoch());
    const milliseconds due = delay > milliseconds::max() - start ? milliseconds::max() : start + delay;
    return m_calls->add(CallQueue::Base::Monotonic, due, std::move(action));
}

bool SystemClock::refreshZone()
{
    if (!m_followsSystemZone) return false;
    const CXTimeZone zone = CXTimeZone::system();
    return m_zone.exchange(zone) != zone;
}

void SystemClock::arm()
{
    const auto armOne = [this](std::unique_ptr<KernelTimer> &timer, clockid_t clock, CallQueue::Base base) {
        const std::optional<milliseconds> due = m_calls->nextDue(base);
        if (due && !timer) timer = std::make_unique<KernelTimer>(clock, [this] { runDue(); });
        if (timer) timer->arm(due);
    };
    armOne(m_wallTimer, CLOCK_REALTIME, CallQueue::Base::Wall);
    armOne(m_monotonicTimer, CLOCK_MONOTONIC, CallQueue::Base::Monotonic);
}

void SystemClock::runDue()
{
    // Calls that these calls ask for wait for the next turn of the loop, so that input has its turn too.
    const quint64 limit = m_calls->nextNumber();
    while (m_calls->runNext(readingOf(*this), limit)) {
    }
    // When the wall clock was set back in this very moment, nothing ran and its timer is spent.
    arm();
}
