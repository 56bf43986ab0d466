#include "calendar/CalendarPage.h"

#include "corvexkit/time/TimeText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

class CalendarPage_test : public QObject {
    Q_OBJECT

    static QString daysOf(const CalendarPage &page)
    {
        return TimeText::fromDay(page.firstDay) + u".."_s + TimeText::fromDay(page.endDay() - days{1});
    }
    static QString textOf(CalendarPage::Kind kind)
    {
        return kind == CalendarPage::Kind::SingleDay ? u"day"_s
               : kind == CalendarPage::Kind::Week    ? u"week"_s
                                                     : u"month"_s;
    }
    static CalendarPage page(const QString &kind, Day day, weekday first)
    {
        for (const auto each :
             {CalendarPage::Kind::SingleDay, CalendarPage::Kind::Week, CalendarPage::Kind::Month})
            if (textOf(each) == kind) return CalendarPage::around(day, each, first);
        qFatal("%s is no kind of page", qUtf8Printable(kind));
    }

private Q_SLOTS:
    void showsDays_data() { addCaseRows("calendar/pages.txt", 7); }
    void showsDays()
    {
        QFETCH(const QStringList, cells);
        const Day day = *TimeText::toDay(cells.at(1));
        const weekday first{cells.at(2).toUInt()};
        const CalendarPage page = this->page(cells.at(0), day, first);
        QCOMPARE(daysOf(page), cells.at(3));
        const auto [start, end] = page.generatedRange(CXTimeZone::utc(), first);
        const auto dayOf = [](Instant each) { return TimeText::fromDay(CXTimeZone::utc().dayOf(each)); };
        QCOMPARE(dayOf(start) + u".."_s + dayOf(end), cells.at(4));
        QCOMPARE(daysOf(page.moved(-1, first)), cells.at(5));
        QCOMPARE(daysOf(page.moved(1, first)), cells.at(6));
        QVERIFY(page.holds(day) && !page.holds(page.endDay()) && !page.holds(page.firstDay - days{1}));
        QCOMPARE(page.moved(1, first).moved(-1, first), page);
        QCOMPARE(CalendarPage::around(page.begin, page.kind, first), page);
    }

    // Clocks go forward on the 10th, at 2 in the morning.
    void isGeneratedByTheDaysOfTheZone()
    {
        const CXTimeZone zone = *CXTimeZone::named(u"America/New_York"_s);
        const CalendarPage page =
            CalendarPage::around(Day{2030y / 3 / 10}, CalendarPage::Kind::SingleDay, Monday);
        const auto [start, end] = page.generatedRange(zone, Monday);
        QCOMPARE(TimeText::fromInstant(start), u"2030-03-10T05:00:00Z"_s);
        QCOMPARE(TimeText::fromInstant(end), u"2030-03-11T04:00:00Z"_s);
    }
};

ORVANE_TEST(CalendarPage_test)
#include "CalendarPage_test.moc"
