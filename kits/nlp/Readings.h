#pragma once

namespace nlp {

class Match;
struct Fragment;

/// The meanings that grammar rules give. Each looks its values up by symbol and answers false when they
/// make no sense together. `inner` and its like take over what the products of the pattern mean.
namespace readings {

// Any product.
bool inner(const Match &match, Fragment &fragment);
bool bygone(const Match &match, Fragment &fragment);

// What is no single date: it keeps its words and says nothing.
bool unclear(const Match &match, Fragment &fragment);
bool unclearDay(const Match &match, Fragment &fragment); ///< nor does a time have a day then
bool movedDay(const Match &match, Fragment &fragment);   ///< "the call to friday": nor is any day the task's

// Amounts: a number or "a", halves included, and a unit.
bool quantity(const Match &match, Fragment &fragment);
bool uncountedQuantity(const Match &match, Fragment &fragment); ///< without a counter: "3天"
bool decimalQuantity(const Match &match, Fragment &fragment);
bool halfQuantity(const Match &match, Fragment &fragment);
bool fortnight(const Match &match, Fragment &fragment);
bool quantityAndHalf(const Match &match, Fragment &fragment);
bool hoursAndMinutes(const Match &match, Fragment &fragment);
bool duration(const Match &match, Fragment &fragment);
bool uncountedDuration(const Match &match, Fragment &fragment); ///< below a day: "2小时"
bool durationAfterTime(const Match &match, Fragment &fragment); ///< "3pm 1h"

// Times of day.
bool writtenTime(const Match &match, Fragment &fragment); ///< hour, minute, perhaps a.m. or p.m.
bool spokenTime(const Match &match, Fragment &fragment);  ///< hour, perhaps minutes or a part of the day
bool halfPast(const Match &match, Fragment &fragment);
bool quarterPast(const Match &match, Fragment &fragment);
bool quarterTo(const Match &match, Fragment &fragment);
bool minutesPast(const Match &match, Fragment &fragment);
bool minutesTo(const Match &match, Fragment &fragment);      ///< "at ten to six"
bool minutesLacking(const Match &match, Fragment &fragment); ///< "差五分十点"
bool spelledTime(const Match &match, Fragment &fragment);    ///< "at five thirty"
bool namedTime(const Match &match, Fragment &fragment);
bool clockRange(const Match &match, Fragment &fragment);
bool namedTimeToHour(const Match &match, Fragment &fragment); ///< "noon to 2"
bool dayPart(const Match &match, Fragment &fragment);
bool dayWithPart(const Match &match, Fragment &fragment);
bool thisPart(const Match &match, Fragment &fragment);
bool eveningOfDay(const Match &match, Fragment &fragment); ///< "周五晚"
bool dayAndHour(const Match &match, Fragment &fragment);   ///< "tonight 9"
bool timeAndDay(const Match &match, Fragment &fragment);   ///< "6:15 tomorrow morning"
bool dayAndHours(const Match &match, Fragment &fragment);  ///< "friday 3-5"
bool partAndHours(const Match &match, Fragment &fragment); ///< "tonight 8-9"

// Days.
bool relativeDay(const Match &match, Fragment &fragment);
bool weekday(const Match &match, Fragment &fragment);
bool numberedWeekday(const Match &match, Fragment &fragment); ///< "周4"
bool thisWeekday(const Match &match, Fragment &fragment);
bool nextWeekday(const Match &match, Fragment &fragment);
bool weekdayOfWeek(const Match &match, Fragment &fragment); ///< "friday next week"
bool weekdayWithDate(const Match &match, Fragment &fragment);
bool weekend(const Match &match, Fragment &fragment);
bool monthAndDay(const Match &match, Fragment &fragment);
bool yearMonthDay(const Match &match, Fragment &fragment); ///< numbers in this order
bool numericDate(const Match &match, Fragment &fragment);  ///< numbers in the order of the settings
bool numberedMonthAndDay(const Match &match, Fragment &fragment);
bool dayAndMonth(const Match &match, Fragment &fragment); ///< with a time: "30.11. 14:30"
bool firstOfYear(const Match &match, Fragment &fragment);
bool dayOfMonth(const Match &match, Fragment &fragment);
bool dayOfMonthWithTime(const Match &match, Fragment &fragment);
bool nthWeekdayOfMonth(const Match &match, Fragment &fragment);
bool holiday(const Match &match, Fragment &fragment);
bool weekAfterWeekday(const Match &match, Fragment &fragment); ///< "friday week"
bool firstOfPeriod(const Match &match, Fragment &fragment);
bool lastOfPeriod(const Match &match, Fragment &fragment);
bool lastDayOfPeriod(const Match &match, Fragment &fragment); ///< "last day of the month"
bool comingPeriod(const Match &match, Fragment &fragment);    ///< the first day of the next one: "月初"
bool endOfPeriod(const Match &match, Fragment &fragment);     ///< of the one that a PeriodEnd names
bool daysAhead(const Match &match, Fragment &fragment);
bool minutesAhead(const Match &match, Fragment &fragment);
bool quantityBesideDay(const Match &match, Fragment &fragment); ///< "2 days before christmas"
bool edgeOfMonth(const Match &match, Fragment &fragment);       ///< "end of may"
bool partOfPeriod(const Match &match, Fragment &fragment);      ///< "middle of next month"
bool dayRange(const Match &match, Fragment &fragment);
bool daysOfMonthRange(const Match &match, Fragment &fragment);
bool daysOfComingMonthRange(const Match &match, Fragment &fragment);
bool numberedDayRange(const Match &match, Fragment &fragment); ///< "10.1-10.7"
bool dayToDayOfMonth(const Match &match, Fragment &fragment);
bool neighbouringDays(const Match &match, Fragment &fragment); ///< "today and tomorrow"
bool neighbouringDaysOfMonth(const Match &match, Fragment &fragment);
bool partedDays(const Match &match, Fragment &fragment); ///< no neighbours: no single date
bool partedDaysOfMonth(const Match &match, Fragment &fragment);
bool unclosedDay(const Match &match, Fragment &fragment);         ///< something else follows
bool weekdayBeforeNumber(const Match &match, Fragment &fragment); ///< "friday 8"
bool neighbouringWeekdays(const Match &match, Fragment &fragment);
bool weekdaysOfWeek(const Match &match, Fragment &fragment); ///< "mon-wed next week"
bool weekendDays(const Match &match, Fragment &fragment);

// Repeats.
bool weekdays(const Match &match, Fragment &fragment);
bool weekdaySpan(const Match &match, Fragment &fragment);
bool weekdayNumbers(const Match &match, Fragment &fragment);
bool listedWeekdays(const Match &match, Fragment &fragment);       ///< three or more
bool listedWeekdayNumbers(const Match &match, Fragment &fragment); ///< no neighbours
bool partedWeekdays(const Match &match, Fragment &fragment);       ///< two that are no neighbours
bool everyUnit(const Match &match, Fragment &fragment);
bool everySkippedUnit(const Match &match, Fragment &fragment);
bool frequency(const Match &match, Fragment &fragment);
bool repeatAlone(const Match &match, Fragment &fragment);
bool everyWeekdays(const Match &match, Fragment &fragment);
bool weekdaysEveryDay(const Match &match, Fragment &fragment);  ///< "周一到周五每天"
bool weekdaysEveryPart(const Match &match, Fragment &fragment); ///< "周一到周五每天早上"
bool weekdaysEveryWeek(const Match &match, Fragment &fragment); ///< "mon and thu every week"
bool unclearRepeat(const Match &match, Fragment &fragment);     ///< with a time
bool dayBesideRepeat(const Match &match, Fragment &fragment);   ///< no list such as that
bool everyNthWeekdayOfMonth(const Match &match, Fragment &fragment);
bool everyNthDay(const Match &match, Fragment &fragment);       ///< "every year on the last monday of may"
bool unclearNthWeekday(const Match &match, Fragment &fragment); ///< that of no month: "every year on the ..."
bool pluralWeekday(const Match &match, Fragment &fragment);
bool everyDayExcept(const Match &match, Fragment &fragment);
bool exceptWeekdays(const Match &match, Fragment &fragment);
bool everyWorkday(const Match &match, Fragment &fragment); ///< with a time, if one stands with it
bool everyWeekend(const Match &match, Fragment &fragment);
bool everyPart(const Match &match, Fragment &fragment);
bool everyDayOfMonth(const Match &match, Fragment &fragment);
bool everyLastDayOfMonth(const Match &match, Fragment &fragment);
bool everyEdgeOfMonth(const Match &match, Fragment &fragment); ///< "end of every month"
bool everyDate(const Match &match, Fragment &fragment);
bool everyHoliday(const Match &match, Fragment &fragment); ///< one of a fixed date
bool timesARound(const Match &match, Fragment &fragment); ///< "每周3次": on no known days; each day has one
bool untilDay(const Match &match, Fragment &fragment);
bool untilMonth(const Match &match, Fragment &fragment); ///< its first day included
bool countOfTimes(const Match &match, Fragment &fragment);

// Reminders.
bool lead(const Match &match, Fragment &fragment);
bool reminder(const Match &match, Fragment &fragment);

} // namespace readings

} // namespace nlp
