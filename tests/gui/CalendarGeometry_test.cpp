#include "gui/CalendarMaking.h"
#include "support/TestMain.h"
#include "views/calendar/ItemDays.h"
#include "views/calendar/MonthGeometry.h"
#include "views/calendar/TimeGridGeometry.h"

#include <QLocale>

#include <map>

using namespace std::chrono;
using Kind = CalendarPage::Kind;
using Weekends = DayColumns::Weekends;

namespace {

std::vector<CalendarItem> crowd(int count)
{
    std::vector<CalendarItem> items;
    for (int i = 0; i < count; ++i)
        items.push_back(timed(qPrintable(QString::number(i)), 18, 9 + i % 7 * 0.25, 11 + i % 5));
    return items;
}

TimeGridGeometry timeGrid(const CalendarPageContent &content, Weekends weekends, const QSize &size)
{
    return {content, DayColumns{content.page, weekends, QLocale::c()}, size};
}

MonthGeometry monthGrid(const CalendarPageContent &content, Weekends weekends, const QSize &size)
{
    return {content.page, DayColumns{content.page, weekends, QLocale::c()}, MonthGeometry::WeekNumbers::Shown,
            size};
}

// Nothing covers anything else, and nothing is lost.
void verifyPlaces(const CalendarPlaces &places)
{
    std::vector<QRect> all;
    for (const ItemPlace &each : places.items)
        all.push_back(each.bounds);
    for (const MorePlace &each : places.more)
        all.push_back(each.bounds);
    for (std::size_t one = 0; one < all.size(); ++one) {
        QVERIFY2(all[one].width() > 4 && all[one].height() > 8, "too small");
        for (std::size_t other = 0; other < one; ++other)
            QVERIFY(!all[one].intersects(all[other]));
    }
}

int counted(const CalendarPlaces &places)
{
    int count = int(places.items.size());
    for (const MorePlace &each : places.more)
        count += each.count;
    return count;
}

} // namespace

/// Where the items of a calendar stand, and what is below a point.
class CalendarGeometry_test : public QObject {
    Q_OBJECT

    static void addSizes()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("hasWeekends");
        for (const QSize &size : {QSize{300, 400}, QSize{640, 560}, QSize{1100, 740}})
            for (const bool hasWeekends : {true, false})
                QTest::addRow("%d %d", size.width(), int(hasWeekends)) << size << hasWeekends;
    }

private Q_SLOTS:
    void finds_data() { addSizes(); }
    void finds()
    {
        QFETCH(const QSize, size);
        QFETCH(const bool, hasWeekends);
        const Weekends weekends = hasWeekends ? Weekends::Shown : Weekends::Hidden;
        const auto content = pageOf({timed("Early", 16, 0, 1), timed("Late", 20, 23, 24),
                                     timed("Night", 17, 22, 30), allDay("Trip", 18, 20)},
                                    Kind::Week);
        TimeGridGeometry grid = timeGrid(content, weekends, size);
        for (const int offset : {0, grid.scrollRange() / 2, grid.scrollRange()}) {
            grid.scrollTo(offset);
            const CalendarPlaces places = grid.places(content);
            QCOMPARE(places.items.size(), std::size_t{5}); // the night has two parts
            for (const ItemPlace &each : places.items) {
                const QPoint middle = each.bounds.center();
                if (each.shape == ItemPlace::Shape::Box && !grid.hours().contains(middle)) continue;
                const CalendarItem &item = content.items[each.item];
                const auto spot = grid.spotAt(middle, content.page);
                QVERIFY(spot && ItemDays::of(item).hold(spot->day));
                QCOMPARE(spot->time.has_value(), !item.isAllDay);
                QVERIFY(spot->at() >= item.start && spot->at() < item.end);
            }
            QVERIFY(!grid.spotAt({grid.gutter() - 1, size.height() - 1}, content.page));
        }
        grid.scrollTo(grid.offsetOf(8h));
        if (grid.offsetOf(8h) < grid.scrollRange()) QVERIFY(grid.hours().contains(QPoint{0, grid.yOf(8h)}));
        QCOMPARE(grid.timeOf(grid.offsetOf(2h)), 2h);
    }

    void losesNothingInACrowd_data() { addSizes(); }
    void losesNothingInACrowd()
    {
        QFETCH(const QSize, size);
        QFETCH(const bool, hasWeekends);
        const Weekends weekends = hasWeekends ? Weekends::Shown : Weekends::Hidden;
        for (const int count : {1, 3, 12, 40}) {
            const auto content = pageOf(crowd(count), Kind::Week);
            const CalendarPlaces places = timeGrid(content, weekends, size).places(content);
            verifyPlaces(places);
            QCOMPARE(counted(places), count);
            for (const ItemPlace &each : places.items) // wide enough to be read, where the window is
                QVERIFY(size.width() < 1000 || each.bounds.width() > 32);
            QVERIFY(count > 1 || places.more.empty());
        }
    }

    void countsWhatTheLaneHasNoRoomFor()
    {
        std::vector<CalendarItem> items;
        for (int i = 0; i < 9; ++i)
            items.push_back(allDay("Trip", 17, 18));
        const auto content = pageOf(items, Kind::Week);
        const TimeGridGeometry grid = timeGrid(content, Weekends::Shown, {900, 600});
        const CalendarPlaces places = grid.places(content);
        verifyPlaces(places);
        QCOMPARE(places.items.size(), std::size_t(TimeGridGeometry::mostLanes - 1));
        QCOMPARE(places.more.size(), std::size_t{2}); // one for each day
        QCOMPARE(places.more[0].count, 5);
        QCOMPARE(places.more[1].day, november(18));
        QVERIFY(grid.lanes().contains(places.more[1].bounds));
    }

    void countsWhatADayHasNoRoomFor_data() { addSizes(); }
    void countsWhatADayHasNoRoomFor()
    {
        QFETCH(const QSize, size);
        QFETCH(const bool, hasWeekends);
        const Weekends weekends = hasWeekends ? Weekends::Shown : Weekends::Hidden;
        std::vector<CalendarItem> items = crowd(12);
        items.push_back(allDay("Trip", 16, 20));
        items.push_back(timed("Alone", 24, 9, 10));
        const auto content = pageOf(items, Kind::Month);
        const MonthGeometry grid = monthGrid(content, weekends, size);
        const CalendarPlaces places = grid.places(content.bars, content.page);
        verifyPlaces(places);
        std::map<Day, int> counts;
        for (const ItemPlace &each : places.items) {
            const auto spot = grid.spotAt(each.bounds.center(), content.page);
            QVERIFY(spot && ItemDays::of(content.items[each.item]).hold(spot->day));
            const auto days = ItemDays::of(content.items[each.item]);
            for (Day day = days.first; day <= days.last; day += std::chrono::days{1})
                ++counts[day];
        }
        for (const MorePlace &each : places.more) {
            QCOMPARE(grid.spotAt(each.bounds.center(), content.page)->day, each.day);
            counts[each.day] += each.count;
        }
        QCOMPARE(counts[november(18)], 13);
        QCOMPARE(counts[november(24)], 1);
    }

    void countsBesideTheNumberInALowMonth()
    {
        const auto content = pageOf(crowd(3), Kind::Month);
        const MonthGeometry grid = monthGrid(content, Weekends::Shown, {900, 230});
        const CalendarPlaces places = grid.places(content.bars, content.page);
        QVERIFY(places.items.empty());
        QCOMPARE(places.more.size(), std::size_t{1});
        const QRect &row = places.more.front().bounds;
        for (const QPoint &each : {row.topLeft(), row.bottomRight()})
            QCOMPARE(grid.spotAt(each, content.page)->day, places.more.front().day);
        QCOMPARE(places.more.front().count, 3);
    }

    void leavesHiddenDaysOut()
    {
        const std::vector<CalendarItem> items{allDay("Over it", 20, 23), timed("On Saturday", 21, 9, 10)};
        for (const Kind kind : {Kind::Week, Kind::Month}) {
            const auto content = pageOf(items, kind);
            const bool isWeek = kind == Kind::Week;
            const CalendarPlaces places =
                isWeek ? timeGrid(content, Weekends::Hidden, {900, 600}).places(content)
                       : monthGrid(content, Weekends::Hidden, {900, 600}).places(content.bars, content.page);
            QCOMPARE(places.items.size(), std::size_t(isWeek ? 1 : 2));
            for (const ItemPlace &each : places.items)
                QCOMPARE(each.item, std::size_t{0});
        }
        const auto saturday = pageOf(items, Kind::SingleDay, 21);
        QCOMPARE(timeGrid(saturday, Weekends::Hidden, {900, 600}).places(saturday).items.size(),
                 std::size_t{2});
    }
};

ORVANE_TEST(CalendarGeometry_test)
#include "CalendarGeometry_test.moc"
