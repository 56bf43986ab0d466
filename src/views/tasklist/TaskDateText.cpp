#include "views/tasklist/TaskDateText.h"

#include "model/settings/KWLocalizedString.h"
#include "views/wording/DateWording.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

// A task's dates on the wall of the person's zone.
class LocalSpan {
public:
    LocalSpan(const TaskDates &dates, Instant now, const CXTimeZone &zone)
        : m_start(zone.toLocal(*dates.start))
        , m_end(dates.end ? std::optional{zone.toLocal(*dates.end)} : std::nullopt)
        , m_now(zone.toLocal(now))
        , m_isAllDay(dates.isAllDay)
        , m_isClosed(dates.isClosed)
    {
    }

    LocalTime start() const { return m_start; }
    std::optional<LocalTime> end() const { return m_end; }
    bool isAllDay() const { return m_isAllDay; }
    Day today() const { return floor<days>(m_now); }
    Day firstDay() const { return floor<days>(m_start); }
    // The end is exclusive when all-day; a timed range that ends at midnight ends the day before, too.
    Day lastDay() const
    {
        if (!m_end || *m_end <= m_start) return firstDay();
        return std::max(firstDay(), floor<days>(*m_end - milliseconds{1}));
    }
    bool hasSeveralDays() const { return lastDay() > firstDay(); }

    TaskDateText::Tone tone() const
    {
        using enum TaskDateText::Tone;
        if (m_isClosed) return Plain;
        const bool passed =
            m_isAllDay ? lastDay() < today() : std::max(m_start, m_end.value_or(m_start)) < m_now;
        if (passed) return Overdue;
        return firstDay() <= today() ? Today : Plain;
    }

    DateWording::PastWeekdays pastWeekdays() const
    {
        return tone() == TaskDateText::Tone::Overdue ? DateWording::PastWeekdays::Named
                                                     : DateWording::PastWeekdays::Dated;
    }

private:
    LocalTime m_start;
    std::optional<LocalTime> m_end;
    LocalTime m_now;
    bool m_isAllDay;
    bool m_isClosed;
};

QString joined(const QString &from, const QString &to) { return from + u" – "_s + to; }

QString rowWords(const LocalSpan &span, const QLocale &locale)
{
    const auto day = [&](Day which) {
        return DateWording::relativeDay(which, span.today(), locale, span.pastWeekdays());
    };
    if (span.hasSeveralDays()) return joined(day(span.firstDay()), day(span.lastDay()));
    if (span.isAllDay()) return day(span.firstDay());
    const QString time = DateWording::timeOfDay(span.start(), locale);
    return span.firstDay() == span.today() ? time : day(span.firstDay()) + u' ' + time;
}

QString detailDay(Day day, Day today, const QLocale &locale)
{
    const bool isNear = day >= today - days{1} && day <= today + days{1};
    return isNear ? DateWording::relativeDay(day, today, locale)
                  : DateWording::weekdayAndDay(day, today, locale);
}

QString detailWords(const LocalSpan &span, const QLocale &locale)
{
    const QString first = detailDay(span.firstDay(), span.today(), locale);
    if (span.isAllDay())
        return span.hasSeveralDays() ? joined(first, detailDay(span.lastDay(), span.today(), locale)) : first;

    const QString start = first + u", "_s + DateWording::timeOfDay(span.start(), locale);
    if (!span.end() || *span.end() <= span.start()) return start;
    const QString end = DateWording::timeOfDay(*span.end(), locale);
    const Day endDay = floor<days>(*span.end());
    return joined(start,
                  endDay == span.firstDay() ? end : detailDay(endDay, span.today(), locale) + u", "_s + end);
}

QString eventWords(const LocalSpan &span, bool isUnderItsDay, const QLocale &locale)
{
    const auto day = [&](Day which) {
        return DateWording::relativeDay(which, span.today(), locale, DateWording::PastWeekdays::Dated);
    };
    const bool saysDay = !isUnderItsDay && span.firstDay() != span.today();
    if (span.isAllDay()) {
        if (span.hasSeveralDays()) return joined(day(span.firstDay()), day(span.lastDay()));
        return saysDay ? day(span.firstDay()) : KWLocalizedString("All day");
    }
    const LocalTime end = span.end().value_or(span.start());
    const bool isLong = end - span.start() >= days{1};
    const auto moment = [&](LocalTime time, bool withDay) {
        const QString clock = DateWording::timeOfDay(time, locale);
        return withDay ? day(floor<days>(time)) + u' ' + clock : clock;
    };
    const QString begin = moment(span.start(), saysDay || isLong);
    return end > span.start() ? joined(begin, moment(end, isLong)) : begin;
}

} // namespace

TaskDateText rowDateText(const TaskDates &dates, Instant now, const CXTimeZone &zone, const QLocale &locale)
{
    if (!dates.start) return {};
    const LocalSpan span{dates, now, zone};
    return {rowWords(span, locale), span.tone()};
}

TaskDateText detailDateText(const TaskDates &dates, Instant now, const CXTimeZone &zone,
                            const QLocale &locale)
{
    if (!dates.start) return {};
    const LocalSpan span{dates, now, zone};
    return {detailWords(span, locale), span.tone()};
}

TaskDateText dateText(const KWTaskListItemModel &item, Instant now, const CXTimeZone &zone,
                      const QLocale &locale)
{
    return rowDateText({item.startDate, item.endDate, item.isAllDay, item.isClosed()}, now, zone, locale);
}

TaskDateText eventDateText(const KWTaskListItemModel &event, bool isUnderItsDay, Instant now,
                           const CXTimeZone &zone, const QLocale &locale)
{
    if (!event.startDate) return {};
    const LocalSpan span{{event.startDate, event.endDate, event.isAllDay, false}, now, zone};
    return {eventWords(span, isUnderItsDay, locale)};
}
