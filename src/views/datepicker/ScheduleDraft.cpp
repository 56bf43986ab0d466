#include "views/datepicker/ScheduleDraft.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"

using namespace std::chrono;

namespace {

minutes timeOfDay(LocalTime time) { return floor<minutes>(time - floor<days>(time)); }

} // namespace

ScheduleDraft::ScheduleDraft(const TaskSchedule &schedule, const CXTimeZone &zone)
    : reminders(schedule.dates.alarmTriggers)
    , repeatRule(schedule.dates.repeatRule)
    , repeatFrom(schedule.dates.repeatFrom)
    , m_before(schedule)
    , m_whenBefore(read(schedule, zone))
    , m_when(m_whenBefore)
{
}

ScheduleDraft::When ScheduleDraft::read(const TaskSchedule &schedule, const CXTimeZone &zone)
{
    When when{.day = {}, .time = {}, .endTime = {}, .zone = zone, .isFloating = schedule.isFloating};
    const KWTaskDateTimeReminderModel &dates = schedule.dates;
    if (!dates.startDateTime) return when;
    const LocalTime start = zone.toLocal(dates.startDateTime->date);
    when.day = floor<days>(start);
    if (!dates.isAllDay()) when.time = timeOfDay(start);
    if (!dates.endDateTime) return when;
    // The end of an all-day range is the midnight behind its last day.
    const LocalTime end =
        zone.toLocal(dates.endDateTime->date) - (dates.isAllDay() ? minutes{1} : minutes{0});
    when.daysLater = std::max(0, int((floor<days>(end) - *when.day).count()));
    if (!dates.isAllDay()) when.endTime = timeOfDay(end);
    return when;
}

void ScheduleDraft::clear()
{
    m_when = {.day = {}, .time = {}, .endTime = {}, .zone = m_when.zone, .isFloating = false};
    reminders.clear();
    repeatRule.clear();
}

void ScheduleDraft::setTime(std::optional<minutes> time, const std::set<CXAlarmTrigger> &usual)
{
    if (time.has_value() != m_when.time.has_value()) {
        reminders = usual;
        m_when.endTime.reset();
    } else if (time && m_when.endTime) {
        const minutes end = *m_when.endTime + days{m_when.daysLater} + (*time - *m_when.time);
        m_when.daysLater = int(floor<days>(end).count());
        m_when.endTime = end - floor<days>(end);
    }
    m_when.time = time;
}

void ScheduleDraft::setEnd(std::optional<minutes> time, int daysLater)
{
    m_when.endTime = time;
    m_when.daysLater = time ? daysLater : 0;
    if (time && m_when.time && daysLater == 0 && *time < *m_when.time) m_when.daysLater = 1;
}

void ScheduleDraft::setDuration(minutes duration)
{
    if (!m_when.time) return;
    const minutes end = *m_when.time + duration;
    setEnd(end - floor<days>(end), int(floor<days>(end).count()));
}

void ScheduleDraft::setDaysLater(int days)
{
    if (m_when.time && m_when.endTime)
        setEnd(m_when.endTime, days);
    else if (!m_when.time)
        m_when.daysLater = days;
}

void ScheduleDraft::setZone(const CXTimeZone &zone, bool isFloating)
{
    m_when.zone = zone;
    m_when.isFloating = isFloating;
}

Instant ScheduleDraft::start() const
{
    if (!m_when.time) return m_when.zone.startOfDay(*m_when.day);
    return m_when.zone.toInstant(LocalTime{*m_when.day} + *m_when.time);
}

TaskSchedule ScheduleDraft::schedule() const
{
    TaskSchedule chosen = m_before;
    chosen.dates.alarmTriggers = reminders;
    chosen.dates.repeatRule = repeatRule;
    chosen.dates.repeatFrom = repeatFrom;
    if (m_when == m_whenBefore) return chosen;
    chosen.dates.startDateTime.reset();
    chosen.dates.endDateTime.reset();
    chosen.isFloating = m_when.isFloating;
    chosen.timeZone = m_when.day ? m_when.zone.identifier() : QString{};
    if (!m_when.day) return chosen;
    chosen.dates.startDateTime = KWDateTime::dateTimeWithDate(start(), m_when.time.has_value());
    const Day lastDay = *m_when.day + days{m_when.daysLater};
    if (!m_when.time && m_when.daysLater > 0)
        chosen.dates.endDateTime =
            KWDateTime::dateTimeWithDate(m_when.zone.startOfDay(lastDay + days{1}), false);
    if (m_when.time && m_when.endTime)
        chosen.dates.endDateTime =
            KWDateTime::dateTimeWithDate(m_when.zone.toInstant(LocalTime{lastDay} + *m_when.endTime), true);
    return chosen;
}

std::vector<Instant> ScheduleDraft::occurrences(std::size_t count, weekday firstWeekday) const
{
    if (!m_when.day || repeatRule.isEmpty()) return {};
    const CXRecurringObject object{.startDate = start(),
                                   .isAllDay = !m_when.time,
                                   .recurrenceRuleString = repeatRule,
                                   .excludedOccurrenceDates = {},
                                   .timeZone = m_when.zone,
                                   .firstWeekday = firstWeekday};
    return CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
        object, start(), start() + days{366 * 100}, true, count);
}
