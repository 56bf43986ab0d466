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
    : now_{now}, zone_{zone}, calls_{std::make_shared<CallQueue>()}
{
}

ManualClock::ManualClock(const char *localTime, const char *zone)
    : ManualClock{at(localTime, zone), zoneOf(zone)}
{
}

ManualClock::~ManualClock() { calls_->close(); }

ClockCall ManualClock::callAt(Instant when, std::function<void()> action)
{
    return calls_->add(CallQueue::Base::Wall, when.time_since_epoch(), std::move(action));
}

ClockCall ManualClock::callAfter(milliseconds delay, std::function<void()> action)
{
    return calls_->add(CallQueue::Base::Monotonic, monotonic_ + delay, std::move(action));
}

void ManualClock::advance(milliseconds duration)
{
    if (duration < 0ms) qFatal("Time only goes on: use setNow() to set the clock back");
    const auto pass = [this](milliseconds step) {
        now_ += step;
        monotonic_ += step;
    };
    milliseconds left = duration;
    for (;;) {
        const CallQueue::Reading reading{now_.time_since_epoch(), monotonic_};
        const auto wait = calls_->untilNext(reading);
        if (!wait || *wait > left) break;
        pass(*wait);
        left -= *wait;
        calls_->runNext({now_.time_since_epoch(), monotonic_});
    }
    pass(left);
}

void ManualClock::advanceTo(Instant when) { advance(when - now_); }

void ManualClock::sleep(milliseconds duration) { setNow(now_ + duration); }

void ManualClock::setNow(Instant now)
{
    now_ = now;
    while (calls_->runNext({now_.time_since_epoch(), monotonic_})) {
    }
}

void ManualClock::setZone(const char *identifier) { zone_ = zoneOf(identifier); }

bool ManualClock::isIdle() const { return calls_->isEmpty(); }
