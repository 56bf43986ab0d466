#include "cli/TaskLine.h"

#include "cli/TerminalText.h"
#include "corvexkit/time/TimeText.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestID = 6;
constexpr int dateWidth = 16; // "2030-05-01 09:00"

QString priorityMark(KWTaskPriority priority)
{
    switch (priority) {
    case KWTaskPriorityHigh:
        return u" !high"_s;
    case KWTaskPriorityMedium:
        return u" !medium"_s;
    case KWTaskPriorityLow:
        return u" !low"_s;
    default:
        return {};
    }
}

// Of whatever has these fields.
template <class Task>
QString lineOf(const Task &task, const QString &shortID, const CXTimeZone &zone)
{
    QString line = shortID + u"  "_s +
                   localDateText(task.startDate, task.isAllDay, zone).leftJustified(dateWidth) + u"  "_s +
                   task.title;
    for (const QString &tag : task.tags)
        line += u" #"_s + tag;
    return line + priorityMark(task.priority);
}

} // namespace

QStringList shortIDs(const QStringList &ids)
{
    for (qsizetype length = shortestID;; ++length) {
        QStringList endings;
        for (const QString &each : ids)
            endings.append(each.right(length));
        const bool areDistinct = QSet<QString>{endings.begin(), endings.end()}.size() == endings.size();
        if (areDistinct || endings == ids) return endings;
    }
}

QString localDateText(const std::optional<Instant> &date, bool isAllDay, const CXTimeZone &zone)
{
    if (!date) return {};
    if (isAllDay) return TimeText::fromDay(zone.dayOf(*date));
    const LocalTime local = zone.toLocal(*date);
    const Day day = std::chrono::floor<std::chrono::days>(local);
    return TimeText::fromDay(day) + u' ' + TimeText::fromTimeOfDay(local - day);
}

QString taskLine(const KWTaskListItemModel &task, const QString &shortID, const CXTimeZone &zone)
{
    return terminalText(lineOf(task, shortID, zone));
}

QString addedTaskLine(const KWTaskModel &task, const QString &list, const QStringList &notes,
                      const CXTimeZone &zone)
{
    QString line = lineOf(task, task.sid.right(shortestID), zone) + u" ~"_s + list;
    if (!notes.isEmpty()) line += u" (%1)"_s.arg(notes.join(u", "_s));
    return terminalText(line);
}
