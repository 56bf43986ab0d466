#include "habits/HabitDetailContent.h"

#include <cmath>

std::optional<int> HabitFigures::rate() const
{
    if (due == 0) return {};
    return int(std::lround(100.0 * doneOfDue / due));
}

QList<HabitDay> HabitDetailContent::monthDays() const
{
    using namespace std::chrono;
    const year_month_day first{month};
    const Day last{first.year() / first.month() / std::chrono::last};
    if (year.isEmpty()) return {};
    return year.sliced((month - year.first().day).count(), (last - month).count() + 1);
}
