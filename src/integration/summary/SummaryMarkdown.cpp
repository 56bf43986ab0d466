#include "integration/summary/SummaryMarkdown.h"

#include "corvexkit/time/CXTimeZone.h"
#include "integration/summary/SummaryReader.h"
#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/MarkdownText.h"

#include <cmath>
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

constexpr qsizetype mostTasks = 3000; // what a person can still read, and a page lay out

QString withDayName(Day day, const QString &date, const QLocale &locale)
{
    return locale.dayName(dateOf(day).dayOfWeek()) + u' ' + date;
}

QString fullDay(Day day, const QLocale &locale)
{
    return withDayName(day, DayText::dayAndFullMonth(day, locale), locale);
}

QString fullDayAndYear(Day day, const QLocale &locale)
{
    return withDayName(day, DayText::dayFullMonthAndYear(day, locale), locale);
}

QString lengthText(seconds length, const QLocale &locale)
{
    const minutes whole = round<minutes>(length);
    const QString inMinutes = KWLocalizedString("%1 min").arg(locale.toString(whole.count() % 60));
    if (whole < hours{1}) return inMinutes;
    const QString inHours = KWLocalizedString("%1 h").arg(locale.toString(whole.count() / 60));
    return whole % hours{1} == 0min ? inHours : inHours + u' ' + inMinutes;
}

// Two digits behind the point at most.
QString amountText(double amount, const QLocale &locale)
{
    const double hundredths = std::round(amount * 100);
    const int digits = std::fmod(hundredths, 100) == 0 ? 0 : std::fmod(hundredths, 10) == 0 ? 1 : 2;
    return locale.toString(amount, 'f', digits);
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
        if (!m_hasAnything)
            m_text +=
                u'\n' + KWLocalizedString("Nothing was done in these days, and nothing is planned.") + u'\n';
        return m_text;
    }

private:
    void heading(const QString &text)
    {
        m_text += u"\n## "_s + escaped(text) + u"\n\n"_s;
        m_hasAnything = true;
    }

    // It goes without saying.
    bool isOfLastYear(Day day) const { return dateOf(day).year() == dateOf(m_choice.last).year(); }

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
        return {day.time_since_epoch().count(),
                isOfLastYear(day) ? fullDay(day, m_locale) : fullDayAndYear(day, m_locale)};
    }

    void writeTasks()
    {
        std::map<GroupKey, std::vector<const SummaryTask *>> sections;
        for (const SummaryTask &each : m_content.tasks)
            sections[keyOf(each)].push_back(&each);
        for (const auto &[key, tasks] : sections) {
            heading(key.heading);
            for (const SummaryTask *each : tasks)
                if (m_written++ < mostTasks) writeTask(*each);
            if (m_written > mostTasks) return writeRest();
        }
    }

    void writeRest()
    {
        const qsizetype rest = qsizetype(m_content.tasks.size()) - mostTasks;
        m_text += u'\n' + KWLocalizedString("… and %1 more tasks").arg(m_locale.toString(rest)) + u'\n';
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
        if (!hasDayAbove)
            words.append(isOfLastYear(day) ? DayText::dayAndMonth(day, m_locale)
                                           : DayText::dayMonthAndYear(day, m_locale));
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
            QStringList words;
            if (each.doneDays == 1) words.append(KWLocalizedString("1 day"));
            if (each.doneDays > 1)
                words.append(KWLocalizedString("%1 days").arg(m_locale.toString(each.doneDays)));
            if (each.amount > 0)
                words.append((amountText(each.amount, m_locale) + u' ' + escaped(each.unit)).trimmed());
            m_text += u"- "_s + escaped(each.name) + u" — "_s + words.join(u", "_s) + u'\n';
        }
    }

    const SummaryContent &m_content;
    const SummaryChoice &m_choice;
    const CXTimeZone &m_zone;
    const QLocale &m_locale;
    QString m_text;
    bool m_hasAnything = false;
    qsizetype m_written = 0;
};

} // namespace

QString summaryTitle(const SummaryContent &content, const QLocale &locale)
{
    const auto [first, last] = std::pair{content.choice.first, content.choice.last};
    const QString end = fullDayAndYear(last, locale);
    if (first == last) return end;
    const bool isOneYear = dateOf(first).year() == dateOf(last).year();
    return (isOneYear ? fullDay(first, locale) : fullDayAndYear(first, locale)) + u" – "_s + end;
}

QString summaryMarkdown(const SummaryContent &content, const CXTimeZone &zone, const QLocale &locale)
{
    return SummaryWriting{content, zone, locale}.text();
}
