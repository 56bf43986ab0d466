#pragma once

#include "corvexkit/time/CXClock.h"

class KWNotificationCenter;

/// Announces minutes, hours and days as they begin: KWNewMinuteComesNotification at second 0 of every
/// minute, KWNewHourComesNotification and KWNewDayComesNotification when the hour or the day on the wall
/// is another one than at the last look. Their object is the moment, a QDateTime. After a sleep, a
/// setting of the clock or a journey to another zone the minutes go on and what changed is announced
/// once, however much was passed over. Main thread.
class DayClock {
public:
    /// `onMinute` is called after the minute and before the hour and the day are announced.
    DayClock(
        CXClock &clock, KWNotificationCenter &center, std::function<void()> onMinute = [] {});

    /// Takes now as the last look, announces nothing yet.
    void start();
    void stop();
    bool isRunning() const { return m_isRunning; }

    /// Looks now and waits for the next minute. Does nothing while stopped.
    void minuteLevelTimerAction();
    /// Waits for the next minute, no longer for the one before. Does nothing while stopped.
    void startMinuteLevelTimer();

    Instant dateForNewHourChecking() const { return m_lastHour.instant; }
    Instant dateForNewDayChecking() const { return m_lastDay.instant; }

private:
    /// A moment and what the wall said then.
    struct Look {
        Instant instant;
        LocalTime local;
    };
    Look look() const;
    void announceHour(const Look &now);
    void announceDay(const Look &now);

    CXClock &m_clock;
    KWNotificationCenter &m_center;
    std::function<void()> m_onMinute;
    bool m_isRunning = false;
    Look m_lastHour;
    Look m_lastDay;
    ClockCall m_nextMinute;
    ClockCall m_lateMinute;
};
