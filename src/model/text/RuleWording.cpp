#include "model/text/RuleWording.h"

#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/ListWording.h"
#include "model/text/RuleDayWording.h"

using namespace std::chrono;

namespace {

using Rule = CXRecurrenceRule;
using Frequency = CXRecurrenceRule::Frequency;

QString added(const QString &text, const char *pattern, const QString &value)
{
    return KWLocalizedString(pattern).arg(text, value);
}

QString frequencyText(const Rule &rule)
{
    const auto every = [&](const char *one, const char *several) {
        return rule.interval == 1 ? KWLocalizedString(one) : KWLocalizedString(several).arg(rule.interval);
    };
    switch (rule.frequency) {
    case Frequency::Secondly:
        return every("Every second", "Every %1 seconds");
    case Frequency::Minutely:
        return every("Every minute", "Every %1 minutes");
    case Frequency::Hourly:
        return every("Every hour", "Every %1 hours");
    case Frequency::Daily:
        return every("Every day", "Every %1 days");
    case Frequency::Weekly:
        return every("Every week", "Every %1 weeks");
    case Frequency::Monthly:
        return every("Every month", "Every %1 months");
    case Frequency::Yearly:
        break;
    }
    return every("Every year", "Every %1 years");
}

template <class Set>
QStringList numbers(const Set &set)
{
    QStringList texts;
    set.forEach([&](int number) { texts.append(QString::number(number)); });
    return texts;
}

// "at 9:00 and 17:30": where hours and minutes make a few readings of the clock.
QString withTimes(const QString &text, const Rule &rule, const QLocale &locale)
{
    QStringList times;
    rule.byHour.forEach([&](int hour) {
        rule.byMinute.forEach(
            [&](int minute) { times.append(ClockFormat::timeOfDay(hours{hour} + minutes{minute}, locale)); });
    });
    return added(text, "%1 at %2", ListWording::allOf(times));
}

template <class Set>
QString withNumbers(const QString &text, const Set &set, const char *one, const char *several)
{
    if (set.isEmpty()) return text;
    const QStringList texts = numbers(set);
    return added(text, texts.size() == 1 ? one : several, ListWording::allOf(texts));
}

QString withClock(QString text, const Rule &rule, const QLocale &locale)
{
    constexpr int mostTimes = 6;
    const int times = std::popcount(rule.byHour.bits()) * std::popcount(rule.byMinute.bits());
    if (rule.frequency >= Frequency::Daily && times > 0 && times <= mostTimes) {
        text = withTimes(text, rule, locale);
    } else {
        text = withNumbers(text, rule.byHour, "%1 in hour %2", "%1 in hours %2");
        text = withNumbers(text, rule.byMinute, "%1 in minute %2", "%1 in minutes %2");
    }
    return withNumbers(text, rule.bySecond, "%1 in second %2", "%1 in seconds %2");
}

QString withPositions(const QString &text, const Rule &rule)
{
    if (rule.bySetPos.isEmpty()) return text;
    QStringList places;
    rule.bySetPos.forEach([&](int place) { places.append(ListWording::ordinal(place)); });
    return added(text, "%1, only the %2 of them", ListWording::allOf(places));
}

QString withTimesInWeek(const QString &text, const Rule &rule)
{
    if (rule.timesInWeekly == 0) return text;
    if (rule.timesInWeekly == 1) return KWLocalizedString("%1 on any day").arg(text);
    return added(text, "%1 on any %2 days", QString::number(rule.timesInWeekly));
}

QString withSkip(const QString &text, const Rule &rule)
{
    switch (rule.skip) {
    case Rule::Skip::Omit:
        break;
    case Rule::Skip::Backward:
        return KWLocalizedString("%1, the day before where there is no such day").arg(text);
    case Rule::Skip::Forward:
        return KWLocalizedString("%1, the day after where there is no such day").arg(text);
    }
    return text;
}

// Where it decides which days these are.
QString withWeekStart(const QString &text, const Rule &rule, const QLocale &locale)
{
    const bool decides = rule.frequency == Frequency::Weekly ? rule.interval > 1 || !rule.bySetPos.isEmpty()
                                                             : !rule.byWeekNo.isEmpty();
    if (!rule.weekStart || !decides) return text;
    return added(text, "%1, weeks begin on %2",
                 locale.standaloneDayName(int(rule.weekStart->iso_encoding())));
}

QString momentText(LocalTime moment, const QLocale &locale)
{
    const Day day = floor<days>(moment);
    const QString date = DayText::dayMonthAndYear(day, locale);
    const milliseconds time = moment - day;
    if (time >= days{1} - seconds{1}) return date; // its last second: the whole day
    return KWLocalizedString("%1, %2").arg(date, ClockFormat::timeOfDay(time, locale));
}

QString untilText(const Rule::Until &until, const CXTimeZone &zone, const QLocale &locale)
{
    if (const Day *day = std::get_if<Day>(&until)) return DayText::dayMonthAndYear(*day, locale);
    if (const auto *moment = std::get_if<LocalTime>(&until)) return momentText(*moment, locale);
    return momentText(zone.toLocal(std::get<Instant>(until)), locale);
}

QString withEnd(const QString &text, const Rule &rule, const CXTimeZone &zone, const QLocale &locale)
{
    if (rule.until) return added(text, "%1 until %2", untilText(*rule.until, zone, locale));
    if (!rule.count) return text;
    if (*rule.count == 1) return KWLocalizedString("%1, once").arg(text);
    return added(text, "%1, %2 times", QString::number(*rule.count));
}

} // namespace

QString RuleWording::words(const CXRecurrenceRule &rule, const CXTimeZone &zone, const QLocale &locale)
{
    QString text = RuleDayWording{rule, locale}.addedTo(frequencyText(rule));
    text = withTimesInWeek(text, rule);
    text = withClock(text, rule, locale);
    text = withPositions(text, rule);
    text = withSkip(text, rule);
    text = withWeekStart(text, rule, locale);
    return withEnd(text, rule, zone, locale);
}
