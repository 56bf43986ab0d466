#include "habits/HabitPageContent.h"

#include <algorithm>

namespace {

const HabitRow *rowIn(const QList<HabitRow> &rows, const QString &habitID)
{
    const auto found = std::ranges::find(rows, habitID, [](const HabitRow &each) { return each.habit.sid; });
    return found == rows.end() ? nullptr : &*found;
}

} // namespace

bool HabitPageContent::hasHabits() const
{
    return std::ranges::any_of(sections, [](const HabitSection &each) { return !each.rows.isEmpty(); });
}

const HabitRow *HabitPageContent::rowOf(const QString &habitID) const
{
    for (const HabitSection &each : sections)
        if (const HabitRow *row = rowIn(each.rows, habitID)) return row;
    return rowIn(archived, habitID);
}
