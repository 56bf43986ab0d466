#include "nlp/DateBuilder.h"

#include "nlp/RepeatSchedule.h"

#include <algorithm>

namespace nlp {

using namespace std::chrono;

namespace {

constexpr minutes halfDay{720};

std::wstring triggerText(const Quantity &lead)
{
    const std::wstring amount = std::to_wstring(lead.amount);
    switch (lead.unit) {
    case Unit::Minute:
        return L"TRIGGER:-PT" + amount + L'M';
    case Unit::Hour:
        return L"TRIGGER:-PT" + amount + L'H';
    case Unit::Week:
        return L"TRIGGER:-P" + amount + L'W';
    default:
        return L"TRIGGER:-P" + amount + L'D';
    }
}

minutes minutesOf(const ClockReference &clock) { return hours{clock.hour} + minutes{clock.minute}; }

minutes minutesOf(const TimeOfDay &time) { return hours{time.hour} + minutes{time.minute}; }

minutes minutesOf(const Quantity &length)
{
    return length.unit == Unit::Hour ? minutes{hours{length.amount}} : minutes{length.amount};
}

bool isMoment(const Fragment &date)
{
    return (date.slots & DaySlot) != 0 && date.day.offset.amount != 0 && date.day.offset.isBelowOneDay();
}

// Beside a part of the day no clock has 24 hours: "下午2:30-3:30".
ClockReference endClock(const Fragment &date)
{
    using Certainty = ClockReference::Certainty;
    ClockReference clock = date.endClock;
    if ((date.slots & PartSlot) != 0 && clock.certainty == Certainty::Written)
        clock.certainty = Certainty::Spoken;
    return clock;
}

bool isRangeOfTimes(const Fragment &date)
{
    return (date.slots & EndClockSlot) != 0 && (date.slots & LengthSlot) == 0;
}

int roughDays(Unit unit, int amount)
{
    return amount * (unit == Unit::Year ? 365 : unit == Unit::Month ? 30 : unit == Unit::Week ? 7 : 1);
}

// "Every day for two weeks" ends after them, "every friday for three days" takes three days each time.
bool limitsRepeat(const Fragment &date)
{
    if ((date.slots & RepeatSlot) == 0 || (date.slots & LengthSlot) == 0) return false;
    if (date.length.isBelowOneDay()) return false;
    return roughDays(date.length.unit, date.length.amount) >
           roughDays(date.repeat.unit, date.repeat.interval);
}

bool isInCalendar(LocalTime time)
{
    return Calendar::validated(year_month_day{floor<days>(time)}).has_value();
}

// The one of the two possible times that lies before noon.
minutes morningReading(const ClockReference &clock) { return hours{clock.hour % 12} + minutes{clock.minute}; }

} // namespace

bool DateBuilder::build(std::span<const Ranking::Candidate> chosen, Answer &answer) const
{
    Fragment date;
    for (const auto &candidate : chosen)
        date.merge(candidate.phrase->fragment);
    if ((date.slots & (DaySlot | PartSlot | ClockSlot | RepeatSlot)) == 0) return false;
    if ((date.slots & ExceptSlot) != 0 && !date.repeat.leaveOut(date.exceptWeekdays)) return false;

    const auto time = startTime(date);
    const auto day = startDay(date, time);
    if (!day) return false;
    answer.isFound = true;
    answer.isAllDay = !time;
    answer.start = *day + time.value_or(minutes{0});
    answer.due = due(date, answer.start, answer.isAllDay);
    if (answer.due && !isInCalendar(*answer.due)) answer.due.reset();
    if ((date.slots & RepeatSlot) != 0)
        answer.repeatRule = RepeatSchedule{date.repeat}.rule(date.count, untilDay(date, *day));
    addReminders(date, answer);
    return true;
}

std::optional<minutes> DateBuilder::startTime(const Fragment &date) const
{
    if (isMoment(date)) {
        const LocalTime moment = m_now + minutesOf(date.day.offset);
        return moment - floor<days>(moment);
    }
    if ((date.slots & ClockSlot) == 0)
        return (date.slots & PartSlot) != 0 ? std::optional{timeOf(date.part)} : std::nullopt;
    const ClockReference clock = (date.slots & PartSlot) != 0 ? date.clock.within(date.part) : date.clock;
    return isRangeOfTimes(date) ? resolvedBefore(clock, date.endClock) : resolved(clock);
}

// The day from which the time counts: a night's end at 1:00 has 25 hours.
std::optional<LocalDay> DateBuilder::startDay(const Fragment &date, std::optional<minutes> time) const
{
    const LocalDay today = m_calendar.today();
    const bool isStillAhead = time && today + *time > m_now;
    const bool hasPassed = time && !isStillAhead;
    const auto plainWeekday = isStillAhead ? Calendar::Today::Included : Calendar::Today::Excluded;
    std::optional<LocalDay> day = hasPassed ? today + days{1} : today;
    if (isMoment(date))
        day = floor<days>(m_now + minutesOf(date.day.offset));
    else if ((date.slots & DaySlot) != 0)
        day = m_calendar.resolve(date.day, plainWeekday);
    if (day && (date.slots & RepeatSlot) != 0) day = RepeatSchedule{date.repeat}.firstDay(*day);
    if (!day || !isInCalendar(*day + time.value_or(minutes{0}))) return std::nullopt;
    return day;
}

std::optional<LocalDay> DateBuilder::untilDay(const Fragment &date, LocalDay start) const
{
    if (limitsRepeat(date)) {
        const auto end = Calendar::moved(start, date.length);
        return end ? std::optional{*end - days{1}} : std::nullopt;
    }
    if ((date.slots & UntilSlot) == 0) return std::nullopt;
    return Calendar{start, m_settings.firstWeekday}.resolve(date.untilDay, Calendar::Today::Included);
}

std::optional<LocalTime> DateBuilder::due(const Fragment &date, LocalTime start, bool isAllDay) const
{
    if (limitsRepeat(date)) return std::nullopt;
    if ((date.slots & LengthSlot) != 0) return dueOfLength(date.length, start, isAllDay);
    if ((date.slots & (EndDaySlot | EndClockSlot)) == 0) return std::nullopt;
    const LocalDay first = floor<days>(start);
    const auto last = (date.slots & EndDaySlot) != 0 ? lastDay(date.endDay, first) : first;
    if (!last) return std::nullopt;
    const minutes time = start - first;
    return *last + (isRangeOfTimes(date) ? resolvedAfter(endClock(date), time) : time);
}

std::optional<LocalTime> DateBuilder::dueOfLength(const Quantity &length, LocalTime start,
                                                  bool isAllDay) const
{
    if (length.isBelowOneDay()) return start + minutesOf(length);
    const LocalDay day = floor<days>(start);
    const auto end = Calendar::moved(day, length);
    if (!end) return std::nullopt;
    return *end + (start - day) - (isAllDay ? days{1} : days{0});
}

std::optional<LocalDay> DateBuilder::lastDay(const DayReference &reference, LocalDay first) const
{
    const bool isCounted =
        reference.kind == DayReference::Kind::Ahead || reference.kind == DayReference::Kind::NextWeekday;
    const Calendar fromFirst{first, m_settings.firstWeekday};
    const auto last = (isCounted ? m_calendar : fromFirst).resolve(reference, Calendar::Today::Excluded);
    return last && *last >= first ? last : std::nullopt;
}

bool DateBuilder::isAmbiguous(const ClockReference &clock) const
{
    using Certainty = ClockReference::Certainty;
    return clock.certainty == Certainty::Spoken ||
           (clock.certainty == Certainty::Written && m_settings.clockFace == ClockFace::TwelveHours);
}

// Of the two times people mean the one in the waking day, from 7 in the morning to 6:59 in the evening.
minutes DateBuilder::resolved(const ClockReference &clock) const
{
    if (!isAmbiguous(clock)) return minutesOf(clock);
    const minutes morning = morningReading(clock);
    return morning < hours{7} ? morning + halfDay : morning;
}

minutes DateBuilder::resolvedBefore(const ClockReference &clock, const ClockReference &end) const
{
    if (!isAmbiguous(clock) || isAmbiguous(end)) return resolved(clock);
    const minutes morning = morningReading(clock);
    return morning + halfDay < minutesOf(end) ? morning + halfDay : morning;
}

minutes DateBuilder::resolvedAfter(const ClockReference &clock, minutes start) const
{
    minutes end = isAmbiguous(clock) ? morningReading(clock) : minutesOf(clock);
    const minutes step = isAmbiguous(clock) ? halfDay : minutes{days{1}};
    while (end <= start)
        end += step;
    return end;
}

minutes DateBuilder::timeOf(DayPart part) const
{
    switch (part) {
    case DayPart::Noon:
        return hours{12};
    case DayPart::Afternoon:
        return minutesOf(m_settings.afternoon);
    case DayPart::Evening:
        return minutesOf(m_settings.evening);
    case DayPart::Night:
        return minutesOf(m_settings.night);
    default:
        return minutesOf(m_settings.morning);
    }
}

void DateBuilder::addReminders(const Fragment &date, Answer &answer) const
{
    const bool isNamed = (date.slots & ReminderSlot) != 0;
    for (std::size_t i = 0; i < date.leadCount; ++i)
        answer.reminders.push_back(triggerText(date.leads[i]));
    if (date.leadCount > 0) return;
    if (!answer.isAllDay) {
        if (isNamed || m_implicitReminder == ImplicitReminder::Marked)
            answer.reminders.emplace_back(L"TRIGGER:-PT0S");
    } else if (isNamed) {
        // At the time of midnight nobody wants to hear of the day.
        answer.reminders.push_back(L"TRIGGER:P0DT" + std::to_wstring(m_settings.morning.hour) + L'H' +
                                   std::to_wstring(m_settings.morning.minute) + L"M0S");
    }
}

} // namespace nlp
