#include "model/records/HabitStreaks.h"

#include "model/records/HabitFrequency.h"

#include <algorithm>

using namespace std::chrono;

namespace {

bool contains(const std::vector<Day> &sorted, Day day) { return std::ranges::binary_search(sorted, day); }

enum class StreakPart { Counts, Neither, Breaks };

// The days of a habit, or its weeks, one after the other. Each is named by its first day.
class StreakParts {
public:
    StreakParts(const HabitHistory &history, const HabitFrequency &frequency)
        : m_history(history)
        , m_frequency(frequency)
        , m_length(frequency.kind == HabitFrequency::Kind::Weekly ? days{7} : days{1})
    {
    }

    days length() const { return m_length; }
    Day first() const { return partOf(m_history.firstDay); }
    Day last() const { return partOf(m_history.today); }
    bool isKnown(Day part) const { return part >= m_history.since; }
    Day partOf(Day day) const
    {
        return m_length == days{1} ? day : day - (weekday{day} - m_history.firstWeekday);
    }
    StreakPart operator[](Day part) const { return m_length == days{1} ? ofDay(part) : ofWeek(part); }

private:
    StreakPart ofDay(Day day) const
    {
        if (contains(m_history.skipped, day) || !m_frequency.isDueOn(day, m_history.firstDay))
            return StreakPart::Neither;
        if (contains(m_history.done, day)) return StreakPart::Counts;
        const bool isOver = day < m_history.today || m_history.isTodayUnAchieved;
        return isOver ? StreakPart::Breaks : StreakPart::Neither;
    }

    StreakPart ofWeek(Day start) const
    {
        int done = 0, left = 0;
        for (Day day = start; day < start + m_length; day += days{1}) {
            if (day < m_history.firstDay || contains(m_history.skipped, day)) continue;
            ++left;
            done += day <= m_history.today && contains(m_history.done, day);
        }
        const int target = std::min(m_frequency.timesInWeekly, left);
        if (target == 0) return StreakPart::Neither;
        if (done >= target) return StreakPart::Counts;
        return start + m_length <= m_history.today ? StreakPart::Breaks : StreakPart::Neither;
    }

    const HabitHistory &m_history;
    const HabitFrequency &m_frequency;
    const days m_length;
};

// Those that count before `part` without a break; nothing when the row may begin before what is known.
std::optional<int> rowBefore(Day part, const StreakParts &parts)
{
    int row = 0;
    for (Day each = part - parts.length(); each >= parts.first(); each -= parts.length()) {
        if (!parts.isKnown(each)) return {};
        const StreakPart what = parts[each];
        if (what == StreakPart::Breaks) break;
        row += what == StreakPart::Counts;
    }
    return row;
}

int rowBehind(Day part, const StreakParts &parts)
{
    int row = 0;
    for (Day each = part + parts.length(); each <= parts.last(); each += parts.length()) {
        const StreakPart what = parts[each];
        if (what == StreakPart::Breaks) break;
        row += what == StreakPart::Counts;
    }
    return row;
}

} // namespace

HabitStreaks HabitStreaks::of(const HabitHistory &all, const HabitFrequency &frequency)
{
    if (all.done.empty()) return {};
    const StreakParts parts{all, frequency};
    HabitStreaks streaks;
    for (Day each = std::max(parts.first(), parts.partOf(all.done.front())); each <= parts.last();
         each += parts.length()) {
        const StreakPart what = parts[each];
        if (what == StreakPart::Counts) streaks.longest = std::max(streaks.longest, ++streaks.current);
        if (what == StreakPart::Breaks) streaks.current = 0;
    }
    return streaks;
}

std::optional<HabitStreaks> HabitStreaks::afterChangeOf(Day day, const HabitHistory &part,
                                                        const HabitFrequency &frequency) const
{
    const StreakParts parts{part, frequency};
    const std::optional<int> untilNow = rowBefore(parts.last() + parts.length(), parts);
    const Day changed = parts.partOf(day);
    if (!untilNow || !parts.isKnown(changed)) return {};
    HabitStreaks streaks{.current = *untilNow, .longest = longest};
    if (changed > parts.last()) return streaks;

    const std::optional<int> before = rowBefore(changed, parts);
    if (!before) return {};
    const int behind = rowBehind(changed, parts);
    const int longestWithIt = *before + 1 + behind; // before the change or after it
    if (longest > longestWithIt) return streaks;
    switch (parts[changed]) {
    case StreakPart::Counts:
        streaks.longest = longestWithIt;
        break;
    case StreakPart::Neither:
        streaks.longest = *before + behind;
        break;
    case StreakPart::Breaks:
        streaks.longest = std::max(*before, behind);
        break;
    }
    if (streaks.longest < longest) return {};
    return streaks;
}
