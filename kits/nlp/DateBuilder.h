#pragma once

#include "nlp/Answer.h"
#include "nlp/Calendar.h"
#include "nlp/Ranking.h"

namespace nlp {

/// Puts the chosen phrases together into one date.
class DateBuilder {
public:
    enum class ImplicitReminder { Unmarked, Marked };

    DateBuilder(const Settings &settings, LocalTime now, ImplicitReminder implicitReminder)
        : m_settings{settings}
        , m_now{now}
        , m_calendar{std::chrono::floor<std::chrono::days>(now), settings.firstWeekday}
        , m_implicitReminder{implicitReminder}
    {
    }

    /// Fills `answer` with all but the recognised strings. False when the phrases name a day that does not
    /// exist, or none; then `answer` is as it was.
    bool build(std::span<const Ranking::Candidate> chosen, Answer &answer) const;

private:
    using TimeOfDayMinutes = std::chrono::minutes; ///< from the start of the day; may reach into the next

    std::optional<TimeOfDayMinutes> startTime(const Fragment &date) const;
    std::optional<LocalDay> startDay(const Fragment &date, std::optional<TimeOfDayMinutes> time) const;
    std::optional<LocalDay> untilDay(const Fragment &date, LocalDay start) const;
    std::optional<LocalTime> due(const Fragment &date, LocalTime start, bool isAllDay) const;
    std::optional<LocalTime> dueOfLength(const Quantity &length, LocalTime start, bool isAllDay) const;
    std::optional<LocalDay> lastDay(const DayReference &reference, LocalDay first) const;
    TimeOfDayMinutes resolved(const ClockReference &clock) const;
    TimeOfDayMinutes resolvedBefore(const ClockReference &clock, const ClockReference &end) const;
    TimeOfDayMinutes resolvedAfter(const ClockReference &clock, TimeOfDayMinutes start) const;
    bool isAmbiguous(const ClockReference &clock) const;
    TimeOfDayMinutes timeOf(DayPart part) const;
    void addReminders(const Fragment &date, Answer &answer) const;

    const Settings &m_settings;
    LocalTime m_now;
    Calendar m_calendar;
    ImplicitReminder m_implicitReminder;
};

} // namespace nlp
