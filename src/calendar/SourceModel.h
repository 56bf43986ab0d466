#pragma once

#include "corvexkit/recurrence/CXRecurringObject.h"
#include "model/records/KWCalSubscriptionEvent.h"

#include <QList>

#include <vector>

struct RepeatingTask;

/// A repeating task, or a repeating event of a subscribed calendar, as what its occurrences are made from.
/// A plain value.
struct SourceModel {
    QString userID;
    QString entityID; ///< of the task or event
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::optional<Instant> completedDate; ///< of a task
    bool isAllDay = false;
    QString recurrenceRule;
    CXRecurrenceFrom recurrenceFrom = CXRecurrenceFromDefault;
    QList<Instant> exDate;
    std::optional<CXTimeZone> timeZone; ///< in which the times were set
    KWRepeatInstanceType instanceType = KWRepeatInstanceTypeTask;

    static SourceModel ofTask(RepeatingTask task, const QString &userID);
    static SourceModel ofEvent(KWCalSubscriptionEvent::Repeating event, const QString &userID);

    /// What decides about the occurrences in one number: another one means that they are to be made anew. The
    /// zone is not in it, so that a journey alone makes nothing anew.
    std::int64_t hashTag() const;

    /// The starts of the occurrences in [from, to] behind the first one, which is the source itself. None for
    /// what repeats from its completion: it has no next one before; none for a task that has more of them
    /// there on a day than one may have, see TaskSchedule.
    /// `local` is the zone in force; `firstWeekday` starts the weeks of a rule that does not say.
    std::vector<Instant> laterOccurrences(Instant from, Instant to, const CXTimeZone &local,
                                          std::chrono::weekday firstWeekday) const;
    std::chrono::milliseconds duration() const;

    // As the recurrence library sees it.
    CXTimeZone timeZoneAsRecurringObject(const CXTimeZone &local) const;
    std::set<Instant> excludedOccurrenceDatesAsRecurringObject() const;

private:
    std::optional<std::size_t> mostOccurrences(Instant from, Instant to) const;
};
