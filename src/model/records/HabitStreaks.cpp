#include "model/records/HabitStreaks.h"

#include "model/records/HabitFrequency.h"

#include <algorithm>

using namespace std::chrono;

namespace {

void goOn(HabitStreaks &streaks) { streaks.longest = std::max(streaks.longest, ++streaks.current); }

HabitStreaks dayByDay(const HabitHistory &history, const HabitFrequency &frequency)
{
    HabitStreaks streaks;
    for (Day day = *history.done.begin(); day <= history.today; day += days{1}) {
        if (history.skipped.contains(day) || !frequency.isDueOn(day, history.firstDay)) continue;
        if (history.done.contains(day))
            goOn(streaks);
        else if (day < history.today || history.isTodayUnAchieved)
            streaks.current = 0;
    }
    return streaks;
}

struct HabitWeek {
    int done = 0;
    int skipped = 0;
};

HabitWeek weekFrom(Day firstOfWeek, const HabitHistory &history)
{
    HabitWeek week;
    for (Day day = firstOfWeek; day < firstOfWeek + days{7}; day += days{1})
        if (history.skipped.contains(day))
            ++week.skipped;
        else if (day <= history.today && history.done.contains(day))
            ++week.done;
    return week;
}

HabitStreaks weekByWeek(const HabitHistory &history, int timesInWeekly)
{
    HabitStreaks streaks;
    const Day first = *history.done.begin();
    for (Day start = first - (weekday{first} - history.firstWeekday); start <= history.today;
         start += days{7}) {
        const HabitWeek week = weekFrom(start, history);
        const int target = std::min(timesInWeekly, 7 - week.skipped);
        if (target == 0) continue;
        if (week.done >= target)
            goOn(streaks);
        else if (start + days{7} <= history.today)
            streaks.current = 0;
    }
    return streaks;
}

} // namespace

HabitStreaks HabitStreaks::of(const HabitHistory &history, const HabitFrequency &frequency)
{
    if (history.done.empty()) return {};
    return frequency.kind == HabitFrequency::Kind::Weekly ? weekByWeek(history, frequency.timesInWeekly)
                                                          : dayByDay(history, frequency);
}
