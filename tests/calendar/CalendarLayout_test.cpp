#include "calendar/CalendarLayout.h"

#include "corvexkit/time/TimeText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QMap>
#include <QRegularExpression>

#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// Where items stand beside each other. How items are written stands in tests/data/calendar/boxes.txt.
class CalendarLayout_test : public QObject {
    Q_OBJECT

    static constexpr Day may{2030y / 5 / 1};

    static CalendarPage page(const QString &what)
    {
        const auto kind = what == u"day"_s    ? CalendarPage::Kind::SingleDay
                          : what == u"week"_s ? CalendarPage::Kind::Week
                                              : CalendarPage::Kind::Month;
        return CalendarPage::around(may + days{5}, kind, Monday);
    }

    static LocalTime timeOf(const QString &day, const QString &time)
    {
        return may + days{day.toInt() - 1} + hours{time.left(2).toInt()} + minutes{time.mid(3).toInt()};
    }
    static std::vector<CalendarItem> itemsOf(const QString &cell)
    {
        // A name, the first day, the last one of an all-day item, and the two times, the second with a day.
        static const QRegularExpression pattern{
            u"^(\\w) (\\d\\d)(?:\\.\\.(\\d\\d))?(?: (\\d\\d:\\d\\d)-(?:(\\d\\d) )?(\\d\\d:\\d\\d))?$"_s};
        std::vector<CalendarItem> items;
        for (const QString &each : cell.split(u", "_s)) {
            const auto match = pattern.match(each);
            if (!match.hasMatch()) qFatal("%s is no item", qUtf8Printable(each));
            const auto captured = [&match](int group, const QString &otherwise) {
                return match.hasCaptured(group) ? match.captured(group) : otherwise;
            };
            const QString first = match.captured(2);
            CalendarItem item{};
            item.entityID = match.captured(1);
            if (item.entityID[0].isUpper()) item.kind = CalendarItem::Kind::Focus;
            item.isAllDay = !match.hasCaptured(4);
            item.start = timeOf(first, captured(4, u"00:00"_s));
            item.end = timeOf(captured(3, captured(5, first)), captured(6, u"24:00"_s));
            items.push_back(std::move(item));
        }
        return items;
    }

    static QString dayText(int day, const CalendarPage &page)
    {
        return TimeText::fromDay(page.firstDay + days{day}).right(2);
    }
    static QString timeText(int minute)
    {
        return minute == 1440 ? u"24:00"_s : TimeText::fromTimeOfDay(minutes{minute});
    }
    static QString marks(bool beginsBefore, bool goesOn)
    {
        const QString text = QString{beginsBefore ? u"<"_s : QString{}} + (goesOn ? u">"_s : QString{});
        return text.isEmpty() ? text : u' ' + text;
    }
    static QString textOf(const std::vector<TimedBox> &boxes, const std::vector<CalendarItem> &items,
                          const CalendarPage &page)
    {
        QStringList texts;
        for (const TimedBox &each : boxes) {
            const int last = each.column + each.span;
            const QString place =
                each.span == 1 ? QString::number(last) : u"%1-%2"_s.arg(each.column + 1).arg(last);
            texts << u"%1 %2 %3-%4 %5/%6"_s.arg(items[each.item].entityID, dayText(each.day, page),
                                                timeText(each.fromMinute), timeText(each.toMinute), place,
                                                QString::number(each.columns)) +
                         marks(each.beginsBefore, each.goesOn);
        }
        return texts.isEmpty() ? u"-"_s : texts.join(u", "_s);
    }
    static QString textOf(const std::vector<LaneBar> &bars, const std::vector<CalendarItem> &items,
                          const CalendarPage &page)
    {
        QStringList texts;
        for (const LaneBar &each : bars) {
            QString days = dayText(each.firstDay, page);
            if (each.lastDay > each.firstDay) days += u".."_s + dayText(each.lastDay, page);
            texts << u"%1 %2 %3"_s.arg(items[each.item].entityID, days).arg(each.lane) +
                         marks(each.beginsBefore, each.goesOn);
        }
        return texts.join(u", "_s);
    }

    static bool overlap(const TimedBox &a, const TimedBox &b)
    {
        return a.day == b.day && a.fromMinute < b.toMinute && b.fromMinute < a.toMinute;
    }

private Q_SLOTS:
    void placesTimedItems_data() { addCaseRows("calendar/boxes.txt", 2); }
    void placesTimedItems()
    {
        QFETCH(const QStringList, cells);
        const auto items = itemsOf(cells.at(0));
        const CalendarPage week = page(u"week"_s);
        QCOMPARE(textOf(timedBoxes(items, week, 30), items, week), cells.at(1));
    }

    void placesBars_data() { addCaseRows("calendar/bars.txt", 3); }
    void placesBars()
    {
        QFETCH(const QStringList, cells);
        const auto items = itemsOf(cells.at(1));
        const CalendarPage page = this->page(cells.at(0));
        const auto bars = cells.at(0) == u"month"_s ? monthBars(items, page) : allDayBars(items, page);
        QCOMPARE(textOf(bars, items, page), cells.at(2));
    }

    // Nothing covers another, and nothing could be wider to its right.
    void fillsTheWidth()
    {
        std::mt19937 random{20300501};
        const auto number = [&random](int most) { return std::uniform_int_distribution{0, most}(random); };
        const CalendarPage week = page(u"week"_s);
        int wide = 0;
        for (int round = 0; round < 200; ++round) {
            std::vector<CalendarItem> items(std::size_t(1 + number(60)));
            for (CalendarItem &each : items) {
                each.start = week.firstDay + minutes{15 * number(2 * 96)};
                each.end = each.start + minutes{15 * number(number(1) ? 8 : 60)};
            }
            const auto boxes = timedBoxes(items, week, 20);
            for (const TimedBox &box : boxes) {
                wide += box.span > 1;
                const int right = box.column + box.span;
                QVERIFY(box.column >= 0 && box.span > 0 && right <= box.columns);
                bool isBounded = right == box.columns;
                for (const TimedBox &other : boxes) {
                    if (&other == &box || !overlap(box, other)) continue;
                    QCOMPARE(other.columns, box.columns);
                    QVERIFY(other.column >= right || other.column + other.span <= box.column);
                    isBounded |= other.column == right;
                }
                QVERIFY(isBounded);
            }
        }
        QVERIFY(wide > 100);
    }

    void keepsBarsApart()
    {
        std::mt19937 random{20300501};
        const auto number = [&random](int most) { return std::uniform_int_distribution{0, most}(random); };
        const CalendarPage month = page(u"month"_s);
        for (int round = 0; round < 100; ++round) {
            std::vector<CalendarItem> items(std::size_t(1 + number(80)));
            for (CalendarItem &each : items) {
                each.isAllDay = number(2) > 0;
                each.start = month.firstDay + days{number(45) - 5};
                each.end = each.start + days{each.isAllDay ? 1 : 0} + days{number(2) ? 0 : number(20)};
            }
            QMap<std::pair<int, int>, std::size_t> taken; // day and lane
            const auto bars = monthBars(items, month);
            for (const LaneBar &bar : bars) {
                QCOMPARE(bar.firstDay / 7, bar.lastDay / 7);
                for (int day = bar.firstDay; day <= bar.lastDay; ++day) {
                    QVERIFY(!taken.contains({day, bar.lane}));
                    taken.insert({day, bar.lane}, bar.item);
                }
            }
            for (const LaneBar &bar : bars) { // none could stand higher
                bool isHeld = bar.lane == 0;
                for (int day = bar.firstDay; day <= bar.lastDay; ++day)
                    isHeld |= taken.contains({day, bar.lane - 1});
                QVERIFY(isHeld);
            }
        }
    }
};

ORVANE_TEST(CalendarLayout_test)
#include "CalendarLayout_test.moc"
