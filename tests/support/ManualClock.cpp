#include "support/ManualClock.h"

#include "corvexkit/time/CallQueue.h"
#include "corvexkit/time/TimeText.h"

using namespace std::chrono;

namespace {

CXTimeZone zoneOf(const char *identifier)
{
    const auto zone = CXTimeZone::named(QString::fromLatin1(identifier));
    if (!zone) qFatal("There is no time zone %s", identifier);
    return *zone;
}

} // namespace

Instant at(const char *localTime, const char *zone)
{
    const auto time = TimeText::toLocalTime(QString::fromLatin1(localTime));
    if (!time) qFatal("%s is no local time such as 2030-03-09 23:59", localTime);
    return zoneOf(zone).toInstant(*time);
}

ManualClock::ManualClock(Instant now, CXTimeZone zone)
    : m_now{now}, m_zone{zone}, m_calls{std::make_shared<CallQueue>()}
{
}

ManualClock::ManualClock(const char *localTime, const char *zone)
    : ManualClock{at(localTime, zone), zoneOf(zone)}
{
}

ManualClock::~ManualClock() { m_calls->close(); }

ClockCall ManualClock::callAt(Instant when, std::function<void()> action)
{
    return m_calls->add(CallQueue::Base::Wall, when.time_since_epoch(), std::move(action));
}

ClockCall ManualClock::callAfter(milliseconds delay, std::function<void()> action)
{
    return m_calls->add(CallQueue::Base::Monotonic, m_monotonic + delay, std::move(action));
}

void ManualClock::advance(milliseconds duration)
{
    if (duration < 0ms) qFatal("Time only goes on: use setNow() to set the clock back");
    const auto pass = [this](milliseconds step) {
        m_now += step;
        m_monotonic += step;
    };
    milliseconds left = duration;
    for (;;) {
        const CallQueue::Reading reading{m_now.time_since_epoch(), m_monotonic};
        const auto wait = m_calls->untilNext(reading);
        if (!wait || *wait > left) break;
        pass(*wait);
        left -= *wait;
        m_calls->runNext({m_now.time_since_epoch(), m_monotonic});
    }
    pass(left);
}

void ManualClock::advanceTo(Instant when) { advance(when - m_now); }

void ManualClock::sleep(milliseconds duration) { setNow(m_now + duration); }

void ManualClock::setNow(Instant now)
{
    m_now = now;
    while (m_calls->runNext({m_now.time_since_epoch(), m_monotonic})) {
    }
}

void ManualClock::setZone(const char *identifier) { m_zone = zoneOf(identifier); }

bool ManualClock::isIdle() const { return m_calls->isEmpty(); }
