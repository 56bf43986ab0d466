#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <QString>

#include <compare>
#include <optional>

/// When to remind, relative to the start of a task: the TRIGGER of RFC 5545 section 3.8.6.3, with a
/// duration of section 3.3.6. A value: equal triggers have equal hashes, and the order is the order in
/// which they fire for one start.
///
/// For an all-day start the duration counts from the midnight that begins the day, and the trigger has
/// a remind time: "TRIGGER:-P0DT15H0M0S" is 09:00 of the day before. An all-day trigger whose text
/// names no time ("TRIGGER:-P1D", "TRIGGER:PT0S") reminds at 09:00.
class CXAlarmTrigger {
public:
    /// The numbers are part of the contract: weeks are 2 and days are 3 wherever a unit is a number.
    enum class Unit { Weeks = 2, Days = 3, Hours = 4, Minutes = 5, Seconds = 6 };

    /// On time.
    CXAlarmTrigger() = default;

    /// Reads a TRIGGER line. A text that is none (or an absolute one, one relative to the end, or one
    /// more than 68 years away) gives an invalid trigger that keeps the text and never fires.
    static CXAlarmTrigger triggerWithRepresentation(const QString &text, bool isAllDay);

    /// `value` units before the start; below zero, after it. With a remind time (time since midnight,
    /// below 24 hours) the trigger is an all-day one: `value` days or weeks before, at that time; with
    /// a smaller unit the remind time is passed over. More than 68 years are cut to 68.
    static CXAlarmTrigger triggerWithUnit(Unit unit, int value,
                                          std::optional<std::chrono::seconds> remindTime = std::nullopt);

    static CXAlarmTrigger onTime() { return {}; }
    /// 09:00 of the day.
    static CXAlarmTrigger onTime_AllDay();

    bool isValid() const { return m_invalidText.isNull(); }
    bool isAllDay() const { return m_isAllDay; }

    /// The canonical text, which reads back as an equal trigger: "TRIGGER:PT0S", "TRIGGER:-PT10M",
    /// "TRIGGER:-P1D"; for all-day triggers "TRIGGER:P0DT9H0M0S" (their weeks read back as days). Of an
    /// invalid trigger, the text it was made from.
    QString representation() const;

    /// Weeks as they were given; else the largest unit that says the trigger in one whole number. Minutes
    /// for on time, seconds for an invalid one.
    Unit unit() const { return m_unit; }
    /// How many units before the start; below zero, after it.
    int value() const;
    /// The time of day an all-day trigger reminds at; nothing for the others.
    std::optional<std::chrono::seconds> remindTime() const;

    /// The instant to remind at. Days and weeks are days of the calendar in `zone`, smaller units are
    /// exact. Of an all-day start only its day in `zone` counts. Nothing for an invalid trigger.
    std::optional<Instant> fireInstant(Instant start, bool isAllDay, const CXTimeZone &zone) const;

    bool operator==(const CXAlarmTrigger &) const = default;
    std::strong_ordering operator<=>(const CXAlarmTrigger &other) const;
    friend size_t qHash(const CXAlarmTrigger &trigger, size_t seed);

private:
    enum class Kind { Timed, AllDay };
    CXAlarmTrigger(std::chrono::days calendarDays, std::chrono::seconds time, Unit calendarUnit, Kind kind);

    std::chrono::days m_days{0};    // calendar days from the start, below zero before it
    std::chrono::seconds m_time{0}; // added after the days: a remind time, or an exact length
    Unit m_unit = Unit::Minutes;
    bool m_isAllDay = false;
    QString m_invalidText;
};

size_t qHash(const CXAlarmTrigger &trigger, size_t seed = 0);
