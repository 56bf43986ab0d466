#include "model/records/KWHabitCheckin.h"

void KWHabitCheckin::updateValue(double value)
{
    const bool isReached = model().goal <= value;
    set(&KWHabitCheckinModel::value, value);
    set(&KWHabitCheckinModel::checkinTime, isReached ? std::optional{context().clock().now()} : std::nullopt);
    set(&KWHabitCheckinModel::status, isReached ? KWHabitCheckinStatusDone : KWHabitCheckinStatusNotDone);
    markUpdate();
}

void KWHabitCheckin::markUnAchieved()
{
    set(&KWHabitCheckinModel::checkinTime, std::nullopt);
    set(&KWHabitCheckinModel::status, KWHabitCheckinStatusUnAchieved);
    markUpdate();
}
