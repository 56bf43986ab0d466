#include "views/calendar/CalendarDrag.h"

#include "gui/CalendarMaking.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/calendar/ItemDays.h"

#include <QTime>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

CalendarSpot spotOf(const QString &cell)
{
    CalendarSpot spot{.day = november(cell.left(2).toInt())};
    if (cell.size() > 2) spot.time = hours{cell.mid(3, 2).toInt()} + minutes{cell.mid(6, 2).toInt()};
    return spot;
}

CalendarItem itemOf(const QString &cell)
{
    const CalendarSpot start = spotOf(cell.left(cell.contains(u':') ? 8 : 2));
    CalendarItem item;
    item.isAllDay = !start.time;
    item.start = item.end = start.at();
    if (cell.contains(u".."_s)) item.end = november(cell.right(2).toInt() + 1);
    if (const QString end = cell.section(u'-', 1); !end.isEmpty())
        item.end = spotOf(end.size() > 5 ? end : cell.left(3) + end).at();
    return item;
}

QString momentText(LocalTime time)
{
    const auto days = floor<std::chrono::days>(time);
    const int minute = int(floor<minutes>(time - days).count());
    const int day = int((days - november(1)).count()) + 1;
    return u"%1 "_s.arg(day) + QTime{minute / 60, minute % 60}.toString(u"HH:mm"_s);
}

QString textOf(const CalendarItem &item)
{
    const ItemDays days = ItemDays::of(item);
    const QString start = momentText(item.start);
    const QString end = momentText(item.end);
    if (item.isAllDay)
        return item.end > item.start ? start.left(2) + u".."_s + momentText(days.last).left(2)
                                     : start.left(2);
    if (item.end == item.start) return start;
    return start + u'-' + (end.left(2) == start.left(2) ? end.mid(3) : end);
}

} // namespace

class CalendarDrag_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void drags_data() { addCaseRows("gui/calendar-drags.txt", 5); }
    void drags()
    {
        QFETCH(const QStringList, cells);
        const CalendarSpot from = spotOf(cells[2]);
        const auto dragged = [&] {
            if (cells[1] == u"span"_s) return CalendarDrag::spanned(from, spotOf(cells[3]));
            if (cells[1] == u"new"_s) return CalendarDrag::newAt(from);
            const CalendarItem item = itemOf(cells[0]);
            return cells[1] == u"move"_s ? CalendarDrag::moved(item, from, spotOf(cells[3]))
                                         : CalendarDrag::resized(item, spotOf(cells[3]));
        };
        QCOMPARE(textOf(dragged()), cells[4]);
    }
};

ORVANE_TEST(CalendarDrag_test)
#include "CalendarDrag_test.moc"
