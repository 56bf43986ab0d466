#include "OccurrenceText.h"

#include <QtGlobal>

using namespace Qt::StringLiterals;
using namespace std::chrono;

OccurrenceText::OccurrenceText(const QString &text, LocalTime start)
{
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (word == u"...")
            goesOn = true;
        else
            append(word, start - floor<days>(start));
    }
}

void OccurrenceText::append(const QString &word, milliseconds usualTime)
{
    const QString before = times.empty() ? QString{} : TimeText::fromDay(floor<days>(times.back()));
    const auto dayOf = [&](const QString &date) {
        const std::optional<Day> day =
            TimeText::toDay(before.chopped(std::min(before.size(), date.size())) + date);
        if (!day) qFatal("%s is no occurrence", qUtf8Printable(word));
        return *day;
    };
    const qsizetype clock = word.indexOf(u'T');
    const QString date = clock < 0 ? word : word.first(clock);
    const qsizetype range = date.indexOf(u"..");
    const Day first = dayOf(range < 0 ? date : date.first(range));
    const Day last = range < 0 ? first : dayOf(TimeText::fromDay(first).first(8) + date.sliced(range + 2));
    const auto time = clock < 0 ? usualTime : TimeText::toTimeOfDay(word.sliced(clock + 1)).value_or(24h);
    if (time >= 24h) qFatal("%s has no time of day", qUtf8Printable(word));
    for (Day day = first; day <= last; day += days{1})
        times.push_back(day + time);
}
