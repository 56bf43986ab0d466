#pragma once

#include "app/ports/UserNotificationPorts.h"
#include "model/store/KWReminderService.h"

class CXClock;

/// The words of reminders.
class ReminderText {
public:
    inline static const QString digestIdentifier = QStringLiteral("digest");
    inline static const QString openAction = QStringLiteral("default");
    inline static const QString completeAction = QStringLiteral("complete");
    /// Followed by the minutes.
    inline static const QString snoozeAction = QStringLiteral("snooze-");
    inline static const QString tomorrowAction = QStringLiteral("snooze-tomorrow");

    explicit ReminderText(const CXClock &clock) : m_clock(clock) {}

    /// The identifier of a reminder's message: one for each subject.
    static QString identifierOf(const ReminderSubject &subject);

    /// One reminder: the title, below it the task of an item, the list and the time, and what can be done.
    UserNotification notificationOf(const DueReminder &reminder) const;
    /// Those that came late, together.
    UserNotification digestOf(const QList<DueReminder> &reminders) const;

private:
    QString dayText(Day day) const;
    QString whenText(const DueReminder &reminder) const;

    const CXClock &m_clock;
};
