#include "app/DayClock.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/TimeText.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr CXLogger dayClockLog{u"clock"};

QDateTime asDateTime(Instant instant)
{
    return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC);
}

QString readable(LocalTime time)
{
    return TimeText::fromLocalTime(time, TimeText::Fraction::Never).replace(u'T', u' ');
}

Day dayOf(LocalTime time) { return floor<days>(time); }

hours hourOf(LocalTime time) { return floor<hours>(time - dayOf(time)); }

} // namespace

DayClock::DayClock(CXClock &clock, KWNotificationCenter &center, std::function<void()> onMinute)
    : m_clock(clock)
    , m_center(center)
    , m_onMinute(std::move(onMinute))
    , m_lastHour(look())
    , m_lastDay(m_lastHour)
{
}

void DayClock::start()
{
    m_isRunning = true;
    m_lastHour = m_lastDay = look();
    startMinuteLevelTimer();
}

void DayClock::stop()
{
    m_isRunning = false;
    m_nextMinute.cancel();
    m_lateMinute.cancel();
}

void DayClock::startMinuteLevelTimer()
{
    if (!m_isRunning) return;
    const Look now = look();
    const milliseconds left = 1min - (now.local - floor<minutes>(now.local));
    m_nextMinute = m_clock.callAt(now.instant + left, [this] { minuteLevelTimerAction(); });
    // A clock that is set back must not silence the minutes until it has caught up.
    m_lateMinute = m_clock.callAfter(left + 1s, [this] { minuteLevelTimerAction(); });
}

void DayClock::minuteLevelTimerAction()
{
    if (!m_isRunning) return;
    const Look now = look();
    m_center.post(KWNewMinuteComesNotification, asDateTime(now.instant));
    m_onMinute();
    if (!m_isRunning) return; // whoever heard of the minute has signed out
    if (hourOf(now.local) != hourOf(m_lastHour.local)) announceHour(now);
    if (dayOf(now.local) != dayOf(m_lastDay.local)) announceDay(now);
    startMinuteLevelTimer();
}

DayClock::Look DayClock::look() const
{
    const Instant now = m_clock.now();
    return {now, m_clock.zone().toLocal(now)};
}

void DayClock::announceHour(const Look &now)
{
    m_lastHour = now;
    m_center.post(KWNewHourComesNotification, asDateTime(now.instant));
    dayClockLog.info(u"New Hour: "_s + readable(now.local));
}

void DayClock::announceDay(const Look &now)
{
    m_lastDay = now;
    m_center.post(KWNewDayComesNotification, asDateTime(now.instant));
    dayClockLog.info(u"New Day: "_s + readable(now.local));
}
