#include "views/calendar/DayPopover.h"

#include "gui/CalendarMaking.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/calendar/MonthGridView.h"
#include "views/calendar/TimeGridView.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAbstractButton>
#include <QListView>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono;
using Kind = CalendarPage::Kind;

namespace {

std::vector<CalendarItem> twelve(bool areAllDay)
{
    std::vector<CalendarItem> items;
    for (int i = 0; i < 12; ++i) {
        const QByteArray title = "Item " + QByteArray::number(i);
        items.push_back(areAllDay ? allDay(title, 18, 18) : timed(title, 18, 9 + i * 0.25, 12));
    }
    return items;
}

} // namespace

/// What a day has more than there is room for, under mouse and keyboard.
class DayPopover_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2026-11-21 09:30"};
    CalendarEdits m_edits;
    std::unique_ptr<QWidget> m_window;
    CalendarView *m_view = nullptr; // in it
    QStringList m_asked;

    void show(Kind kind, bool areAllDay = false)
    {
        ThemeConfigurator::shared().apply();
        m_window = std::make_unique<QWidget>();
        if (kind == Kind::Month)
            m_view = new MonthGridView{m_edits, m_window.get()};
        else
            m_view = new TimeGridView{m_edits, m_clock, m_window.get()};
        m_window->resize(1000, 700);
        m_view->resize(1000, 700);
        m_view->setContent(pageOf(twelve(areAllDay), kind));
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_view->setFocus();
    }
    DayPopover *popover() const { return m_view->findChild<DayPopover *>(); }
    QListView &list() const { return *popover()->findChild<QListView *>(); }
    void open() const
    {
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                          m_view->places().more.at(0).bounds.center());
        if (!popover() || !popover()->isVisible()) qFatal("nothing opened");
    }
    QPoint rowOf(int row) const { return list().visualRect(list().model()->index(row, 0)).center(); }
    // With the button held down in the list, which hears of the mouse wherever it is.
    void carry(int row, const QPoint &toInPage) const
    {
        QWidget *rows = list().viewport();
        QTest::mousePress(rows, Qt::LeftButton, {}, rowOf(row));
        const QPoint to = m_view->viewport()->mapToGlobal(toInPage);
        for (const QPoint &point : {rows->mapToGlobal(rowOf(row) + QPoint{40, 0}), to}) {
            QMouseEvent move{QEvent::MouseMove, QPointF{rows->mapFromGlobal(point)},
                             QPointF{point},    Qt::NoButton,
                             Qt::LeftButton,    {}};
            QCoreApplication::sendEvent(rows, &move);
        }
    }
    void letGo(const QPoint &inPage) const
    {
        QWidget *rows = list().viewport();
        QTest::mouseRelease(rows, Qt::LeftButton, {},
                            rows->mapFromGlobal(m_view->viewport()->mapToGlobal(inPage)));
    }

private Q_SLOTS:
    void initTestCase()
    {
        const auto note = [this](auto signal, const QString &what) {
            connect(&m_edits, signal, this,
                    [this, what](const CalendarItem &item) { m_asked << what + u' ' + item.title; });
        };
        note(&CalendarEdits::completeRequested, u"complete"_s);
        note(&CalendarEdits::deleteRequested, u"delete"_s);
        note(&CalendarEdits::openRequested, u"open"_s);
    }
    void cleanup()
    {
        m_window.reset();
        m_asked.clear();
    }

    void tellsAllOfTheDay_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<bool>("areAllDay");
        QTest::newRow("month") << Kind::Month << false;
        QTest::newRow("lane of a week") << Kind::Week << true;
        QTest::newRow("hours of a week") << Kind::Week << false;
        QTest::newRow("lane of a day") << Kind::SingleDay << true;
    }
    void tellsAllOfTheDay()
    {
        QFETCH(const Kind, kind);
        QFETCH(const bool, areAllDay);
        show(kind, areAllDay);
        if (kind == Kind::SingleDay) m_view->setContent(pageOf(twelve(areAllDay), kind, 18));
        open();
        QCOMPARE(popover()->day(), november(18));
        QCOMPARE(list().model()->rowCount(), 12);
        QVERIFY(list().hasFocus());
        const QModelIndex first = list().model()->index(0, 0);
        QVERIFY(first.data(Qt::AccessibleTextRole).toString().startsWith(u"Item 0, Wednesday 18 November"_s));
        QTest::keyClick(&list(), Qt::Key_Escape);
        QVERIFY(m_view->hasFocus());
        QTRY_VERIFY(!popover());
    }

    void keysActOnAnItem()
    {
        show(Kind::Month);
        m_view->setSpot({.day = november(18), .time = {}});
        QTest::keyClick(m_view, Qt::Key_Up); // the last one, which is only counted
        QTest::keyClick(m_view, Qt::Key_Return);
        QVERIFY(popover());
        QCOMPARE(list().currentIndex().row(), 11);
        QTest::keyClick(&list(), Qt::Key_Up);
        QTest::keyClick(&list(), Qt::Key_Space);
        QTest::keyClick(&list(), Qt::Key_Delete);
        QTest::keyClick(&list(), Qt::Key_Return);
        QCOMPARE(m_asked.join(u", "_s), u"complete Item 10, delete Item 10, open Item 10"_s);
        QTRY_VERIFY(!popover());
        QTest::keyClick(m_view, Qt::Key_Space); // it is selected, and counted
        QVERIFY(popover());
        QCOMPARE(list().currentIndex().row(), 10);
    }

    void theMouseCompletesAndOpens()
    {
        show(Kind::Month);
        open();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, {6, rowOf(3).y()});
        QCOMPARE(m_asked, QStringList{u"complete Item 3"_s});
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, rowOf(2));
        QCOMPARE(m_asked.last(), u"open Item 2"_s);
        QTRY_VERIFY(!popover());

        open();
        QSignalSpy opens{m_view, &CalendarView::dayOpened};
        QTest::mouseClick(popover()->findChild<QAbstractButton *>(u"openDay"_s), Qt::LeftButton);
        QCOMPARE(opens.count(), 1);
        QCOMPARE(opens[0][0].value<Day>(), november(18));
        QTRY_VERIFY(!popover());
    }

    void anItemIsDraggedOut()
    {
        show(Kind::Month);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        const auto &month = static_cast<MonthGridView &>(*m_view).geometryOfPage();
        const QPoint monday = month.cell(2, 0).center();
        open();
        carry(4, monday);
        QTest::keyClick(&list(), Qt::Key_Escape); // gives up the drag alone
        QVERIFY(popover()->isVisible());
        letGo(monday);
        QCOMPARE(moves.count(), 0);
        carry(4, monday);
        letGo(monday);
        QCOMPARE(moves.count(), 1);
        const auto there = moves[0][1].value<CalendarItem>();
        QCOMPARE(there.title, u"Item 4"_s);
        QVERIFY(there.start == LocalTime{november(9)} + 10h && !there.isAllDay);
        QTRY_VERIFY(!popover());
    }

    void aTimedOneIsDraggedToItsMinute()
    {
        show(Kind::Week);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        const auto &grid = static_cast<TimeGridView &>(*m_view).geometryOfPage();
        const QPoint monday{grid.head(0).center().x(), grid.yOf(14h) + 1};
        open();
        carry(0, monday);
        letGo(monday);
        QCOMPARE(moves.count(), 1);
        QVERIFY(moves[0][1].value<CalendarItem>().start == LocalTime{november(16)} + 14h);
    }

    void followsThePage()
    {
        show(Kind::Month);
        open();
        list().setCurrentIndex(list().model()->index(5, 0));
        std::vector<CalendarItem> items = twelve(false);
        items.erase(items.begin() + 1);
        m_view->setContent(pageOf(items, Kind::Month));
        QCOMPARE(list().model()->rowCount(), 11);
        QCOMPARE(list().currentIndex().data().toString(), u"Item 5"_s);
        m_view->setContent(pageOf({}, Kind::Month));
        QTRY_VERIFY(!popover());
    }
};

ORVANE_TEST(DayPopover_test)
#include "DayPopover_test.moc"
