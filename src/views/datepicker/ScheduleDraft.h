#pragma once

#include "model/store/TaskSchedule.h"

/// A schedule while it is being chosen: days and times on the wall clock of its zone. A plain value.
class ScheduleDraft {
public:
    /// Reads the schedule in `zone`: its own where the person chooses zones, else the one in force.
    ScheduleDraft(const TaskSchedule &schedule, const CXTimeZone &zone);

    std::optional<Day> day() const { return m_when.day; }
    /// None: all day, or no date.
    std::optional<std::chrono::minutes> time() const { return m_when.time; }
    /// How many days the end is behind the day: 0 for one day.
    int daysLater() const { return m_when.daysLater; }
    /// None: it has no end of its own.
    std::optional<std::chrono::minutes> endTime() const { return m_when.endTime; }
    const CXTimeZone &zone() const { return m_when.zone; }
    bool isFloating() const { return m_when.isFloating; }

    /// A time and a length stay.
    void setDay(Day day) { m_when.day = day; }
    /// Nothing repeats or reminds then.
    void clear();
    /// The length stays. Without a time it is all day; reminders of the other sort are replaced by `usual`.
    void setTime(std::optional<std::chrono::minutes> time, const std::set<CXAlarmTrigger> &usual);
    /// At that time, `daysLater` days later; one more where that would be before the start.
    void setEnd(std::optional<std::chrono::minutes> time, int daysLater);
    void setDuration(std::chrono::minutes duration);
    void setDaysLater(int days);
    /// The readings of the clock stay.
    void setZone(const CXTimeZone &zone, bool isFloating);

    std::set<CXAlarmTrigger> reminders;
    QString repeatRule;
    CXRecurrenceFrom repeatFrom;

    /// What was not touched is as it was.
    TaskSchedule schedule() const;
    /// The dates on which it occurs, the first `count` from its own on; none where the rule cannot be read.
    std::vector<Instant> occurrences(std::size_t count, std::chrono::weekday firstWeekday) const;

private:
    struct When {
        std::optional<Day> day;
        std::optional<std::chrono::minutes> time;
        int daysLater = 0;
        std::optional<std::chrono::minutes> endTime;
        CXTimeZone zone;
        bool isFloating = false;
        bool operator==(const When &) const = default;
    };
    static When read(const TaskSchedule &schedule, const CXTimeZone &zone);
    Instant start() const;

    TaskSchedule m_before;
    When m_whenBefore;
    When m_when;
};
