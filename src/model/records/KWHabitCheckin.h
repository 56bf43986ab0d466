#pragma once

#include "model/records/KWHabitCheckinModel.h"
#include "model/records/ManagedRecord.h"

/// The check-in of a habit on one day, in a context. Who changes one lets the habit update its streaks.
class KWHabitCheckin : public ManagedRecord<KWHabitCheckinModel> {
public:
    bool isDone() const { return model().status == KWHabitCheckinStatusDone; }

    /// Enters the amount of the day, which decides: from the goal on the day is done, as of now; below it
    /// the day is not done. Takes markUnAchieved() back.
    void updateValue(double value);

    /// The person says that the day was not achieved, whatever was entered; what was entered stays.
    void markUnAchieved();
    bool isMarkUnAchieved() const { return model().status == KWHabitCheckinStatusUnAchieved; }
};
