#pragma once

#include "habits/HabitDetailContent.h"
#include "habits/HabitPageContent.h"

#include <optional>

class KWHabit;
class ObjectContext;

/// Reads habits as views show them. On the thread of the context.
namespace HabitReader {

HabitPageContent readPage(const QString &userID, ObjectContext &context);

/// None when the habit is gone. The month is any day of it.
std::optional<HabitDetailContent> readDetail(const QString &habitID, Day month, ObjectContext &context);

/// The days from the first to the last one, both included.
QList<HabitDay> readDays(const KWHabit &habit, Day first, Day last);

/// What is due of the user's habits on a day, done ones too, in the order of the page; archived ones are not,
/// nor are skipped days. A weekly habit is due until its week has its days.
QList<HabitRow> readDueOn(Day day, const QString &userID, ObjectContext &context);

} // namespace HabitReader
