#include "LibicalDifferences.h"

#include <array>

using namespace std::chrono;

namespace {

using Rule = CXRecurrenceRule;
using Frequency = CXRecurrenceRule::Frequency;

template <class Set>
int sizeOf(const Set &set)
{
    int size = 0;
    set.forEach([&size](int) { ++size; });
    return size;
}

template <class Set>
bool countsFromEnd(const Set &set)
{
    bool result = false;
    set.forEach([&result](int ordinal) { result |= ordinal < 0; });
    return result;
}

template <class Set>
bool countsFromStart(const Set &set)
{
    bool result = false;
    set.forEach([&result](int ordinal) { result |= ordinal > 0; });
    return result;
}

bool limitsDays(const Rule &rule)
{
    return !rule.byMonth.isEmpty() || !rule.byMonthDay.isEmpty() || !rule.byYearDay.isEmpty() ||
           !rule.byDay.isEmpty();
}

// It goes step by step, however far the next allowed day is.
bool walksThroughForbiddenDays(const Rule &rule)
{
    const seconds unit = rule.frequency == Frequency::Secondly ? 1s : 60s;
    return rule.frequency < Frequency::Hourly && limitsDays(rule) && rule.interval * unit < 600s;
}

bool choosesTimesByPosition(const Rule &rule)
{
    const bool hasTimes = sizeOf(rule.byHour) > 1 || sizeOf(rule.byMinute) > 1 || sizeOf(rule.bySecond) > 1;
    return !rule.bySetPos.isEmpty() && (rule.frequency < Frequency::Monthly || hasTimes);
}

// A day that is named from both ends counts as two.
bool choosesFromDaysNamedTwice(const Rule &rule)
{
    const auto mayNameTwice = [](const auto &days) { return countsFromStart(days) && countsFromEnd(days); };
    return countsFromEnd(rule.bySetPos) && (mayNameTwice(rule.byMonthDay) || mayNameTwice(rule.byYearDay));
}

bool limitsDaysFromTheEnd(const Rule &rule)
{
    return rule.frequency <= Frequency::Daily &&
           (countsFromEnd(rule.byMonthDay) || countsFromEnd(rule.byYearDay));
}

bool namesDaysOfYearInSeveralWays(const Rule &rule)
{
    const bool namesDates = !rule.byMonth.isEmpty() || !rule.byMonthDay.isEmpty();
    return rule.frequency == Frequency::Yearly &&
           int(!rule.byWeekNo.isEmpty()) + int(!rule.byYearDay.isEmpty()) + int(namesDates) > 1;
}

bool namesDaysOfEveryMonthOfYear(const Rule &rule)
{
    return rule.frequency == Frequency::Yearly && !rule.byMonthDay.isEmpty() && rule.byMonth.isEmpty();
}

bool countsWeeksFromTheEnd(const Rule &rule) { return countsFromEnd(rule.byWeekNo); }
bool countsWeeksWithoutWeekday(const Rule &rule) { return !rule.byWeekNo.isEmpty() && rule.byDay.isEmpty(); }
bool countsWeeksFromOtherThanMonday(const Rule &rule)
{
    return !rule.byWeekNo.isEmpty() && rule.weekStart != Monday;
}

bool passesOverWeeksFromMidweek(const Rule &rule)
{
    return rule.frequency == Frequency::Weekly && rule.interval > 1 && rule.weekStart != Monday &&
           rule.weekStart != Sunday;
}

// BYHOUR for hours, BYMINUTE for minutes, BYSECOND for seconds.
bool namesOwnUnit(const Rule &rule)
{
    return (rule.frequency == Frequency::Hourly && !rule.byHour.isEmpty()) ||
           (rule.frequency == Frequency::Minutely && !rule.byMinute.isEmpty()) ||
           (rule.frequency == Frequency::Secondly && !rule.bySecond.isEmpty());
}
bool namesLargerTimeUnit(const Rule &rule)
{
    return rule.frequency < Frequency::Hourly &&
           (!rule.byHour.isEmpty() || (rule.frequency == Frequency::Secondly && !rule.byMinute.isEmpty()));
}
bool passesOverLimitedTimes(const Rule &rule)
{
    return rule.interval > 1 && (namesOwnUnit(rule) || namesLargerTimeUnit(rule));
}
bool countsStartTwice(const Rule &rule) { return namesOwnUnit(rule) && rule.count; }

bool limitsDaysThatMoved(const Rule &rule)
{
    return rule.skip != Rule::Skip::Omit && !(rule.byDay.isEmpty() && rule.bySetPos.isEmpty());
}
bool movesOutOfMonths(const Rule &rule)
{
    return rule.skip != Rule::Skip::Omit && rule.frequency == Frequency::Monthly && !rule.byMonth.isEmpty();
}

struct Difference {
    bool (*holds)(const Rule &);
    const char *name;
};

constexpr std::array differences{
    Difference{walksThroughForbiddenDays, "walks through forbidden days"},
    Difference{choosesTimesByPosition, "chooses times by position"},
    Difference{choosesFromDaysNamedTwice, "chooses from days named twice"},
    Difference{limitsDaysFromTheEnd, "limits days from the end"},
    Difference{namesDaysOfYearInSeveralWays, "names days of the year in several ways"},
    Difference{namesDaysOfEveryMonthOfYear, "names days of every month of the year"},
    Difference{countsWeeksFromTheEnd, "counts weeks from the end"},
    Difference{countsWeeksWithoutWeekday, "counts weeks without a weekday"},
    Difference{countsWeeksFromOtherThanMonday, "counts weeks from another day than Monday"},
    Difference{passesOverWeeksFromMidweek, "passes over weeks from midweek"},
    Difference{passesOverLimitedTimes, "passes over limited times"},
    Difference{countsStartTwice, "counts the start twice"},
    Difference{limitsDaysThatMoved, "limits days that moved"},
    Difference{movesOutOfMonths, "moves out of months"},
};

} // namespace

const char *libicalDifference(const Rule &rule)
{
    for (const Difference &each : differences)
        if (each.holds(rule)) return each.name;
    return nullptr;
}
