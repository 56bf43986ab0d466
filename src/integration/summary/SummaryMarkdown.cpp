#include "integration/summary/SummaryMarkdown.h"

#include "corvexkit/time/CXTimeZone.h"
#include "integration/summary/SummaryReader.h"
#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/MarkdownText.h"

#include <map>

using namespace Qt::StringLiterals;
using namespace std::chrono;
using Detail = SummaryChoice::Detail;
using MarkdownText::escaped;

namespace {

/// Groups in their order, each with the heading it has.
struct GroupKey {
    std::int64_t place;
    QString heading;
    bool operator<(const GroupKey &other) const
    {
        return std::tie(place, heading) < std::tie(other.place, other.heading);
    }
};

QString fullDay(Day day, const QLocale &locale)
{
    return locale.dayName(dateOf(day).dayOfWeek()) + u' ' + DayText::dayAndFullMonth(day, locale);
}

QString lengthText(seconds length, const QLocale &locale)
{
    const minutes whole = round<minutes>(length);
    const QString inMinutes = KWLocalizedString("%1 min").arg(locale.toString(whole.count() % 60));
    if (whole < hours{1}) return inMinutes;
    const QString inHours = KWLocalizedString("%1 h").arg(locale.toString(whole.count() / 60));
    return whole % hours{1} == 0min ? inHours : inHours + u' ' + inMinutes;
}

class SummaryWriting {
public:
    SummaryWriting(const SummaryContent &content, const CXTimeZone &zone, const QLocale &locale)
        : m_content(content), m_choice(content.choice), m_zone(zone), m_locale(locale)
    {
    }

    QString text()
    {
        m_text = u"# "_s + escaped(summaryTitle(m_content, m_locale)) + u'\n';
        writeTasks();
        if (m_choice.fields.testFlag(Detail::Focus)) writeFocus();
        if (m_choice.fields.testFlag(Detail::Habits)) writeHabits();
        if (m_content.tasks.empty() && m_content.habits.empty() && m_content.focused == 0s)
            m_text +=
                u'\n' + KWLocalizedString("Nothing was done in these days, and nothing is planned.") + u'\n';
        return m_text;
    }

private:
    void heading(const QString &text) { m_text += u"\n## "_s + escaped(text) + u"\n\n"_s; }

    GroupKey keyOf(const SummaryTask &task) const
    {
        switch (m_choice.group) {
        case SummaryChoice::Group::ByList:
            return {task.listPlace, task.listName};
        case SummaryChoice::Group::ByStatus:
            return task.isClosed() ? GroupKey{0, KWLocalizedString("Completed")}
                                   : GroupKey{1, KWLocalizedString("Open")};
        case SummaryChoice::Group::ByDay:
            break;
        }
        const Day day = task.day.value_or(m_choice.last);
        return {day.time_since_epoch().count(), fullDay(day, m_locale)};
    }

    void writeTasks()
    {
        std::map<GroupKey, std::vector<const SummaryTask *>> sections;
        for (const SummaryTask &each : m_content.tasks)
            sections[keyOf(each)].push_back(&each);
        for (const auto &[key, tasks] : sections) {
            heading(key.heading);
            for (const SummaryTask *each : tasks)
                writeTask(*each);
        }
    }

    void writeTask(const SummaryTask &task)
    {
        const KWTaskModel &model = task.task;
        const QString title = model.title.isEmpty() ? KWLocalizedString("Untitled") : model.title;
        m_text += MarkdownText::taskItem(title, task.isClosed(), model.status == KWTaskStatusAbandoned);
        const QStringList details = detailsOf(task);
        if (!details.isEmpty()) m_text += u" — "_s + details.join(u" · "_s);
        m_text += u'\n';
        if (!m_choice.fields.testFlag(Detail::Text)) return;
        for (const QString &line : model.content.split(u'\n', Qt::SkipEmptyParts))
            m_text += u"  - "_s + escaped(line.trimmed()) + u'\n';
    }

    QStringList detailsOf(const SummaryTask &task) const
    {
        const KWTaskModel &model = task.task;
        const auto wants = [this](Detail field) { return m_choice.fields.testFlag(field); };
        QStringList details;
        if (wants(Detail::List) && m_choice.group != SummaryChoice::Group::ByList && !task.listName.isEmpty())
            details.append(escaped(task.listName));
        if (wants(Detail::Tags))
            for (const QString &each : task.tagLabels)
                details.append(u"\\#"_s + escaped(each));
        if (task.isClosed() && wants(Detail::Completion) && model.completionDate)
            details.append(timeText(*model.completionDate, false));
        if (!task.isClosed() && wants(Detail::Date) && model.startDate)
            if (const QString date = timeText(*model.startDate, model.isAllDay); !date.isEmpty())
                details.append(date);
        if (wants(Detail::FocusTime) && task.focused >= 30s)
            details.append(KWLocalizedString("%1 of focus").arg(lengthText(task.focused, m_locale)));
        return details;
    }

    // Its day stands above in sections of days.
    QString timeText(Instant date, bool isAllDay) const
    {
        const LocalTime local = m_zone.toLocal(date);
        const Day day{floor<days>(local)};
        const bool hasDayAbove = m_choice.group == SummaryChoice::Group::ByDay && day >= m_choice.first;
        QStringList words;
        if (!hasDayAbove) words.append(DayText::dayAndMonth(day, m_locale));
        if (!isAllDay) words.append(ClockFormat::timeOfDay(local - floor<days>(local), m_locale));
        return words.join(u' ');
    }

    void writeFocus()
    {
        if (m_content.focused == 0s) return;
        heading(KWLocalizedString("Focus"));
        const QString sessions =
            m_content.sessions == 1
                ? KWLocalizedString("%1 in one session")
                : KWLocalizedString("%1 in %2 sessions").arg(u"%1"_s, m_locale.toString(m_content.sessions));
        m_text += sessions.arg(lengthText(m_content.focused, m_locale)) + u'\n';
    }

    void writeHabits()
    {
        if (m_content.habits.empty()) return;
        heading(KWLocalizedString("Habits"));
        for (const SummaryHabit &each : m_content.habits) {
            const QString done = each.doneDays == 1
                                     ? KWLocalizedString("1 day")
                                     : KWLocalizedString("%1 days").arg(m_locale.toString(each.doneDays));
            m_text += u"- "_s + escaped(each.name) + u" — "_s + done;
            if (each.amount > 0)
                m_text += u", "_s + m_locale.toString(each.amount, 'g', 6) + u' ' + escaped(each.unit);
            m_text = m_text.trimmed() + u'\n';
        }
    }

    const SummaryContent &m_content;
    const SummaryChoice &m_choice;
    const CXTimeZone &m_zone;
    const QLocale &m_locale;
    QString m_text;
};

} // namespace

QString summaryTitle(const SummaryContent &content, const QLocale &locale)
{
    const QString last =
        fullDay(content.choice.last, locale) + u' ' + QString::number(dateOf(content.choice.last).year());
    if (content.choice.first == content.choice.last) return last;
    const int year = dateOf(content.choice.first).year();
    const QString first = fullDay(content.choice.first, locale);
    return (year == dateOf(content.choice.last).year() ? first : first + u' ' + QString::number(year)) +
           u" – "_s + last;
}

QString summaryMarkdown(const SummaryContent &content, const CXTimeZone &zone, const QLocale &locale)
{
    return SummaryWriting{content, zone, locale}.text();
}
