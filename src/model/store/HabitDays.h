#pragma once

#include "model/records/HabitDay.h"
#include "model/store/DatedThings.h"

#include <QList>

class KWHabit;

/// The days of the habit from the first to the last one, both included. On the thread of its context.
QList<HabitDay> readHabitDays(const KWHabit &habit, Day first, Day last);

/// Habits as all-day things on the days from `first` until before `end`: where they were done or said to be
/// unachieved, and where they are due and not skipped. One on so many days a week stands on other days than
/// those it was done only today, while its week lacks some. None where the account does not show habits on
/// the calendar.
std::vector<DatedThing> readHabitThings(Day first, Day end, const QString &userID, ObjectContext &context);
