#pragma once

#include "model/records/HabitFrequency.h"
#include "model/records/KWHabitModel.h"
#include "model/records/ManagedRecord.h"

#include <vector>

class KWHabitCheckin;
class KWHabitFocus;
class KWHabitRecord;
class KWHabitSkip;
struct HabitHistory;

/// Which of a user's habits are meant.
enum class HabitScope { Active, Archived, ActiveAndArchived };

/// A habit in a context. What it answers about its days takes in what was changed in the context and is
/// not saved yet. Days are stamps, see DayStamp.h.
class KWHabit : public ManagedRecord<KWHabitModel> {
public:
    /// The user's habits that are not deleted, in their manual order.
    static QList<KWHabit *> fetchAll(const QString &userID, HabitScope scope, ObjectContext &context);

    /// How many of the user's habits are open today, see isOpenOn(). Archived ones are none of the day's.
    static int countOpenToday(const QString &userID, ObjectContext &context);

    HabitFrequency frequency() const { return HabitFrequency::ofRule(model().repeatRule); }
    bool isDueOn(Day day) const { return frequency().isDueOn(day, firstDay()); }
    bool isSkippedOn(Day day) const;
    /// Whether the person means to do it on that day: it is due, not skipped, and the days before have not
    /// been all that a weekly habit asks for in its week.
    bool isWantedOn(Day day) const;
    /// Whether that is to be done still: not done by now, nor said to be unachieved.
    bool isOpenOn(Day day) const;

    /// The day that it is for the habits of this account.
    Day today() const;
    /// Before which the habit is not due.
    Day firstDay() const;

    /// The check-in of that day; none when nothing was entered, or when it was deleted.
    KWHabitCheckin *checkInAtDateStamp(int stamp) const;
    /// Those of the days from `first` to `last`, both included, earliest first.
    QList<KWHabitCheckin *> checkInsBetween(Day first, Day last) const;
    /// That of a day, or a new one with the habit's goal of now. A habit begins with the first day that is
    /// checked in: on an earlier day than its own it begins as much earlier as its rule has it due then.
    KWHabitCheckin &makeCheckInAtDateStamp(int stamp);
    /// The note on that day, or none.
    KWHabitRecord *recordAtDateStamp(int stamp) const;
    /// The skip of that day, or none.
    KWHabitSkip *skipAtDateStamp(int stamp) const;
    /// The skipped days, earliest first; those not saved yet behind.
    QList<KWHabitSkip *> skips() const;

    /// The focus of that day, or none.
    KWHabitFocus *focusAtDateStamp(int stamp) const;
    /// Adds so many seconds of focus to that day; a day is never left with less than none.
    void appendTimeInerval(std::int64_t seconds, int stamp);

    /// Counts the current and the longest streak anew, from all check-ins up to today.
    void updateStreaks();
    /// The same after a change of one day, from the days around it as far as these tell.
    void updateStreaksAround(Day day);

private:
    void willSave() override;
    bool isModified() const override;

    void beginNoLaterThan(Day day);
    HabitHistory historySince(Day since) const;
    std::vector<Day> doneDaysSince(Day since) const;
};
