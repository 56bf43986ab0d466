#include "calendar/SourceModel.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "model/store/RepeatingTask.h"
#include "model/store/TaskSchedule.h"

#include <algorithm>

namespace {

/// A polynomial over 64 bits that wraps.
class Fingerprint {
public:
    void add(std::int64_t value) { m_hash = 31 * m_hash + std::uint64_t(value); }
    void add(Instant moment) { add(std::int64_t{moment.time_since_epoch().count() / 1000}); } // whole seconds
    /// By its 32-bit hash, over UTF-16 units.
    void add(QStringView text)
    {
        std::uint32_t hash = 0;
        for (const QChar unit : text)
            hash = 31 * hash + unit.unicode();
        add(std::int64_t{std::int32_t(hash)});
    }

    std::int64_t value() const { return std::int64_t(m_hash); }

private:
    std::uint64_t m_hash = 1;
};

// More than a task may have in the hours of one day. `dates` ascend.
bool floodsADay(const std::vector<Instant> &dates)
{
    constexpr std::size_t most = TaskSchedule::mostOccurrencesOnADay;
    for (std::size_t i = most; i < dates.size(); ++i)
        if (dates[i] - dates[i - most] < std::chrono::days{1}) return true;
    return false;
}

} // namespace

SourceModel SourceModel::ofTask(RepeatingTask task, const QString &userID)
{
    const bool hasZone = !task.isAllDay && !task.isFloating;
    return {.userID = userID,
            .entityID = std::move(task.sid),
            .startDate = task.startDate,
            .endDate = task.endDate,
            .completedDate = task.completionDate,
            .isAllDay = task.isAllDay,
            .recurrenceRule = std::move(task.repeatRule),
            .recurrenceFrom = task.repeatFrom,
            .exDate = std::move(task.exDates),
            .timeZone = hasZone ? CXTimeZone::named(task.timeZone) : std::nullopt,
            .instanceType = KWRepeatInstanceTypeTask};
}

SourceModel SourceModel::ofEvent(KWCalSubscriptionEvent::Repeating event, const QString &userID)
{
    return {.userID = userID,
            .entityID = std::move(event.entityID),
            .startDate = event.startDate,
            .endDate = event.endDate,
            .completedDate = std::nullopt,
            .isAllDay = event.isAllDay,
            .recurrenceRule = std::move(event.repeatRule),
            .recurrenceFrom = CXRecurrenceFromDefault,
            .exDate = std::move(event.exDates),
            .timeZone = event.timeZone.isEmpty() ? std::nullopt : CXTimeZone::named(event.timeZone),
            .instanceType = KWRepeatInstanceTypeEvent};
}

std::int64_t SourceModel::hashTag() const
{
    Fingerprint fingerprint;
    if (startDate) fingerprint.add(*startDate);
    if (endDate) fingerprint.add(*endDate);
    fingerprint.add(std::int64_t{isAllDay});
    if (!recurrenceRule.isEmpty()) {
        fingerprint.add(recurrenceRule);
        fingerprint.add(QString{textOf(recurrenceFrom)});
    }
    QList<Instant> excluded = exDate;
    std::ranges::sort(excluded);
    for (const Instant each : std::as_const(excluded))
        fingerprint.add(each);
    return fingerprint.value();
}

CXTimeZone SourceModel::timeZoneAsRecurringObject(const CXTimeZone &local) const
{
    return isAllDay ? local : timeZone.value_or(local);
}

std::set<Instant> SourceModel::excludedOccurrenceDatesAsRecurringObject() const
{
    return {exDate.begin(), exDate.end()};
}

std::chrono::milliseconds SourceModel::duration() const
{
    return startDate && endDate ? *endDate - *startDate : std::chrono::milliseconds{0};
}

// Of events the calendar bounds them when it is read; of tasks an import does not.
std::optional<std::size_t> SourceModel::mostOccurrences(Instant from, Instant to) const
{
    if (instanceType != KWRepeatInstanceTypeTask || to < from) return std::nullopt;
    const auto days = std::chrono::ceil<std::chrono::days>(to - from).count() + 1;
    return std::size_t(days) * TaskSchedule::mostOccurrencesOnADay;
}

std::vector<Instant> SourceModel::laterOccurrences(Instant from, Instant to, const CXTimeZone &local,
                                                   std::chrono::weekday firstWeekday) const
{
    if (!startDate || recurrenceFrom == CXRecurrenceFromCompletionDate) return {};
    const CXRecurringObject object{.startDate = startDate,
                                   .isAllDay = isAllDay,
                                   .recurrenceRuleString = recurrenceRule,
                                   .excludedOccurrenceDates = excludedOccurrenceDatesAsRecurringObject(),
                                   .timeZone = timeZoneAsRecurringObject(local),
                                   .firstWeekday = firstWeekday};
    const auto most = mostOccurrences(from, to);
    std::vector<Instant> dates =
        CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(object, from, to, true, most);
    if (most && (dates.size() == *most || floodsADay(dates))) return {};
    std::erase_if(dates, [&](Instant date) {
        return date == *startDate || object.excludedOccurrenceDates.contains(date);
    });
    return dates;
}
