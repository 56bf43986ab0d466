#include "views/calendar/CalendarWording.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/DisplayTitle.h"
#include "views/calendar/ItemDays.h"
#include "views/wording/CalendarDay.h"
#include "views/wording/DateWording.h"

#include <QStringList>

using namespace Qt::StringLiterals;
using namespace std::chrono;

QString CalendarWording::title(const CalendarPage &page, const QLocale &locale)
{
    const QDate first = dateOf(page.kind == CalendarPage::Kind::Week ? page.firstDay : page.begin);
    if (page.kind == CalendarPage::Kind::SingleDay)
        return DateWording::fullDay(page.begin, locale) + u' ' + locale.toString(first, u"yyyy"_s);
    const QDate last = dateOf(page.endDay() - days{1});
    const bool isWithinMonth = page.kind == CalendarPage::Kind::Month || last.month() == first.month();
    if (isWithinMonth) return locale.standaloneMonthName(first.month()) + locale.toString(first, u" yyyy"_s);
    const QString year = first.year() == last.year() ? QString{} : locale.toString(first, u" yyyy"_s);
    return locale.standaloneMonthName(first.month(), QLocale::ShortFormat) + year + u" – "_s +
           locale.standaloneMonthName(last.month(), QLocale::ShortFormat) + locale.toString(last, u" yyyy"_s);
}

QString CalendarWording::shortTitle(const CalendarPage &page, const QLocale &locale)
{
    if (page.kind == CalendarPage::Kind::SingleDay) return DayText::dayMonthAndYear(page.begin, locale);
    const QDate first = dateOf(page.kind == CalendarPage::Kind::Week ? page.firstDay : page.begin);
    return locale.standaloneMonthName(first.month(), QLocale::ShortFormat) +
           locale.toString(first, u" yyyy"_s);
}

QString CalendarWording::time(const CalendarItem &item, const QLocale &locale)
{
    const ItemDays itemDays = ItemDays::of(item);
    const auto moment = [&](LocalTime time) {
        const QString clock = DateWording::timeOfDay(time, locale);
        return itemDays.isOne() ? clock : DayText::dayAndMonth(floor<days>(time), locale) + u' ' + clock;
    };
    if (item.isAllDay)
        return itemDays.isOne() ? KWLocalizedString("All day")
                                : DayText::dayAndMonth(itemDays.first, locale) + u" – "_s +
                                      DayText::dayAndMonth(itemDays.last, locale);
    return item.end > item.start ? moment(item.start) + u" – "_s + moment(item.end) : moment(item.start);
}

QString CalendarWording::spoken(const CalendarItem &item, const QLocale &locale)
{
    const ItemDays itemDays = ItemDays::of(item);
    const QString begin = DateWording::timeOfDay(item.start, locale);
    const QString end = DateWording::timeOfDay(item.end, locale);
    const QString times = item.end > item.start ? KWLocalizedString("%1 to %2").arg(begin, end) : begin;
    if (item.kind == CalendarItem::Kind::Focus) {
        QStringList parts{KWLocalizedString("Focus"), displayTitle(item.title), times};
        parts.removeDuplicates(); // one that was spent on nothing in particular is called so
        return parts.join(u", "_s);
    }
    QStringList parts{displayTitle(item.title), DateWording::fullDay(itemDays.first, locale)};
    if (!itemDays.isOne())
        parts += KWLocalizedString("to %1").arg(DateWording::fullDay(itemDays.last, locale));
    if (item.isAllDay)
        parts += KWLocalizedString("All day").toLower();
    else
        parts += times;
    if (item.repeats) parts += KWLocalizedString("repeats");
    if (item.isClosed) parts += KWLocalizedString("completed");
    if (item.kind == CalendarItem::Kind::Habit)
        parts += KWLocalizedString("habit");
    else if (item.isReadOnly)
        parts += KWLocalizedString("read only");
    return parts.join(u", "_s);
}

int CalendarWording::weekNumber(Day day, weekday firstWeekday)
{
    const Day firstDay = CalendarPage::around(day, CalendarPage::Kind::Week, firstWeekday).begin;
    // A week that begins on any day has the Thursday of its ISO week in it, but for one that begins on Friday
    // or later: most of that is in the week after.
    return dateOf(firstDay + days{3}).weekNumber();
}
