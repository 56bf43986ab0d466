#pragma once

#include "model/records/HabitFrequency.h"
#include "model/records/KWHabitModel.h"
#include "model/records/ManagedRecord.h"

#include <set>

class KWHabitCheckin;
class KWHabitSkip;

/// Which of a user's habits are meant.
enum class HabitScope { Active, Archived, ActiveAndArchived };

/// A habit in a context. What it answers about its days takes in what was changed in the context and is
/// not saved yet. Days are stamps, see DayStamp.h.
class KWHabit : public ManagedRecord<KWHabitModel> {
public:
    /// The user's habits that are not deleted, in their manual order.
    static QList<KWHabit *> fetchAll(const QString &userID, HabitScope scope, ObjectContext &context);

    /// How many of the user's habits are due on that day and open still: not done, not skipped, not said to
    /// be unachieved. Archived ones are none of the day's.
    static int countOpenOn(Day day, const QString &userID, ObjectContext &context);

    HabitFrequency frequency() const { return HabitFrequency::ofRule(model().repeatRule); }
    bool isDueOn(Day day) const { return frequency().isDueOn(day, firstDay()); }
    bool isSkippedOn(Day day) const;

    /// The check-in of that day; none when nothing was entered, or when it was deleted.
    KWHabitCheckin *checkInAtDateStamp(int stamp) const;
    /// The same, or a new one with the habit's goal of now.
    KWHabitCheckin &makeCheckInAtDateStamp(int stamp);
    /// The skipped days, earliest first; those not saved yet behind.
    QList<KWHabitSkip *> skips() const;

    /// Counts the current and the longest streak anew, from all check-ins up to today.
    void updateStreaks();

private:
    void willSave() override;

    Day firstDay() const;
    std::set<Day> doneDays() const;
};
