#include "views/calendar/CalendarWording.h"

#include "gui/CalendarMaking.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/wording/CalendarDay.h"

using namespace Qt::StringLiterals;

class CalendarWording_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void titles_data() { addCaseRows("gui/calendar-titles.txt", 5); }
    void titles()
    {
        QFETCH(const QStringList, cells);
        const QLocale locale{cells[1]};
        using enum CalendarPage::Kind;
        const QString kind = cells[0].section(u' ', 0, 0);
        const Day day = dayOf(QDate::fromString(cells[0].section(u' ', 1), Qt::ISODate));
        const auto page = CalendarPage::around(day,
                                               kind == u"day"_s    ? SingleDay
                                               : kind == u"week"_s ? Week
                                                                   : Month,
                                               std::chrono::Monday);
        QCOMPARE(CalendarWording::title(page, locale), cells[2]);
        QCOMPARE(CalendarWording::shortTitle(page, locale), cells[3]);
        QCOMPARE(QString::number(CalendarWording::weekNumber(page.firstDay, std::chrono::Monday)), cells[4]);
    }

    void saysWhen_data()
    {
        QTest::addColumn<CalendarItem>("item");
        QTest::addColumn<QString>("time");
        QTest::newRow("a moment") << timed("", 17, 9, 9) << u"09:00"_s;
        QTest::newRow("an hour") << timed("", 17, 9, 10.5) << u"09:00 – 10:30"_s;
        QTest::newRow("until midnight") << timed("", 17, 23, 24) << u"23:00 – 00:00"_s;
        QTest::newRow("over midnight") << timed("", 17, 23, 25) << u"17 Nov 23:00 – 18 Nov 01:00"_s;
        QTest::newRow("a day") << allDay("", 17, 17) << u"All day"_s;
        QTest::newRow("days") << allDay("", 17, 19) << u"17 Nov – 19 Nov"_s;
    }
    void saysWhen()
    {
        QFETCH(const CalendarItem, item);
        QFETCH(const QString, time);
        QCOMPARE(CalendarWording::time(item, QLocale{u"en_GB"_s}), time);
    }

    void saysWhatWasFocusedOn()
    {
        CalendarItem item = timed("Weekly plan", 17, 9.5, 10);
        item.kind = CalendarItem::Kind::Focus;
        const QLocale locale{u"en_GB"_s};
        QCOMPARE(CalendarWording::spoken(item, locale), u"Focus, Weekly plan, 09:30 to 10:00"_s);
        item.title = u"Focus"_s;
        QCOMPARE(CalendarWording::spoken(item, locale), u"Focus, 09:30 to 10:00"_s);
    }
};

ORVANE_TEST(CalendarWording_test)
#include "CalendarWording_test.moc"
