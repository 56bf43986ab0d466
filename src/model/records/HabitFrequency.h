#pragma once

#include "corvexkit/recurrence/NumberSet.h"
#include "corvexkit/time/Instant.h"

class QString;

/// How often a habit is to be done, as its rule says. A plain value.
struct HabitFrequency {
    enum class Kind {
        Daily,  ///< on some weekdays or all
        Weekly, ///< on a number of days of each week, whichever they are
        Repeat, ///< every so many days
    };

    Kind kind = Kind::Daily;
    NumberSet<0, 6> weekdays{}; ///< of the daily kind, Sunday is 0; none means all
    int timesInWeekly = 0;      ///< of the weekly kind, 1 to 7
    int interval = 1;           ///< of the repeat kind, days from one to the next

    /// A rule of no such kind counts as a daily one with the weekdays it has; one that cannot be read means
    /// every day.
    static HabitFrequency ofRule(const QString &repeatRule);
    /// The rule of it, as CXRecurrenceRule::toIcal() writes one.
    QString toRule() const;

    /// From `firstDay` on, from which those of the repeat kind are counted. Every day of a weekly habit is
    /// one.
    bool isDueOn(Day day, Day firstDay) const;
};
