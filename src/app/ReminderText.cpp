#include "app/ReminderText.h"

#include "corvexkit/time/CXClock.h"
#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"

#include <QDate>
#include <QLocale>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr int linesOfDigest = 5;

QString joined(QStringList parts)
{
    parts.removeAll(QString{});
    return parts.join(u" · "_s);
}

} // namespace

QString ReminderText::identifierOf(const ReminderSubject &subject)
{
    if (subject.isHabit()) return u"habit:"_s + subject.habitID;
    return subject.itemID.isEmpty() ? u"task:"_s + subject.taskID : u"item:"_s + subject.itemID;
}

QString ReminderText::dayText(Day day) const
{
    if (day == m_clock.today()) return KWLocalizedString("Today");
    if (day == m_clock.today() + days{1}) return KWLocalizedString("Tomorrow");
    const year_month_day date{sys_days{day.time_since_epoch()}};
    return QLocale{}.toString(QDate{int(date.year()), int(unsigned(date.month())), int(unsigned(date.day()))},
                              QLocale::ShortFormat);
}

QString ReminderText::whenText(const DueReminder &reminder) const
{
    if (!reminder.startDate) return {};
    const LocalTime start = m_clock.zone().toLocal(*reminder.startDate);
    const Day day = floor<days>(start);
    if (reminder.isAllDay) return dayText(day);
    const QString time = ClockFormat::timeOfDay(start - day, QLocale{});
    return day == m_clock.today() ? time : dayText(day) + u", "_s + time;
}

UserNotification ReminderText::notificationOf(const DueReminder &reminder) const
{
    const bool isHabit = reminder.subject.isHabit();
    QList<UserNotification::Action> actions{
        {openAction, KWLocalizedString("Open")},
        {completeAction, isHabit ? KWLocalizedString("Done") : KWLocalizedString("Complete")},
        {snoozeAction + u"10"_s, KWLocalizedString("In 10 Minutes")},
        {snoozeAction + u"30"_s, KWLocalizedString("In 30 Minutes")},
        {snoozeAction + u"60"_s, KWLocalizedString("In 1 Hour")}};
    if (!isHabit) actions.append({tomorrowAction, KWLocalizedString("Tomorrow")}); // it has a day of its own
    return {.identifier = identifierOf(reminder.subject),
            .title = displayTitle(reminder.title),
            .body = joined({reminder.taskTitle, reminder.listName, whenText(reminder)}),
            .actions = actions};
}

UserNotification ReminderText::digestOf(const QList<DueReminder> &reminders) const
{
    QStringList lines;
    for (const DueReminder &each : reminders.first(std::min<qsizetype>(linesOfDigest, reminders.size())))
        lines.append(joined({displayTitle(each.title), whenText(each)}));
    if (const auto more = reminders.size() - lines.size(); more > 0)
        lines.append(KWLocalizedString("and %1 more").arg(more));
    return {.identifier = digestIdentifier,
            .title = KWLocalizedString("%1 reminders while you were away").arg(reminders.size()),
            .body = lines.join(u'\n'),
            .actions = {{openAction, KWLocalizedString("Open")}}};
}
