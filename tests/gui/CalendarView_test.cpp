#include "gui/CalendarMaking.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/calendar/MonthGridView.h"
#include "views/calendar/TimeGridView.h"
#include "views/tasklist/TaskMimeData.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTime>

#include <memory>
#include <set>

using namespace Qt::StringLiterals;
using namespace std::chrono;
using Kind = CalendarPage::Kind;

namespace {

std::vector<CalendarItem> usualItems()
{
    return {allDay("Trip", 17, 18), timed("Plan", 17, 9, 10), timed("Call", 17, 15, 16),
            timed("Walk", 19, 14, 15)};
}

QString hourText(LocalTime time)
{
    return QString::number(double((time - floor<days>(time)).count()) / 3'600'000);
}

} // namespace

/// The views of the calendar under mouse and keyboard.
class CalendarView_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2026-11-21 09:30"};
    CalendarEdits m_edits;
    std::unique_ptr<CalendarView> m_view;

    void show(Kind kind, std::vector<CalendarItem> items = usualItems(),
              Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        ThemeConfigurator::shared().apply();
        if (kind == Kind::Month)
            m_view = std::make_unique<MonthGridView>(m_edits);
        else
            m_view = std::make_unique<TimeGridView>(m_edits, m_clock);
        m_view->setLayoutDirection(direction);
        m_view->resize(1000, 700);
        m_view->setContent(pageOf(std::move(items), kind));
        m_view->show();
        m_view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_view->setFocus();
    }
    std::size_t indexOf(const QString &title) const
    {
        const auto &items = m_view->content().items;
        return std::size_t(std::ranges::find(items, title, &CalendarItem::title) - items.begin());
    }
    QPoint centreOf(const QString &title) const { return m_view->boundsOf(indexOf(title)).center(); }

    // Real presses and moves, in steps as a hand makes them.
    void drag(const QPoint &from, const QPoint &to, bool isReleased = true)
    {
        QWidget *page = m_view->viewport();
        QTest::mousePress(page, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) {
            const QPoint point = from + (to - from) * step / 4;
            QMouseEvent move{QEvent::MouseMove, QPointF{point}, page->mapToGlobal(QPointF{point}),
                             Qt::NoButton,      Qt::LeftButton, {}};
            QCoreApplication::sendEvent(page, &move);
        }
        if (isReleased) QTest::mouseRelease(page, Qt::LeftButton, {}, to);
    }
    // "17 9-10.5", of a whole day "17".
    static QString textOf(const CalendarItem &item)
    {
        const int day = int((floor<days>(item.start) - november(1)).count()) + 1;
        const QString text = QString::number(day);
        return item.isAllDay ? text : text + u' ' + hourText(item.start) + u'-' + hourText(item.end);
    }
    int hour() const { return static_cast<TimeGridView &>(*m_view).geometryOfPage().hourHeight(); }
    int column() const { return static_cast<TimeGridView &>(*m_view).geometryOfPage().head(0).width(); }

private Q_SLOTS:
    void cleanup() { m_view.reset(); }

    void leavesAloneWhatIsScrolledAway()
    {
        show(Kind::Week, {timed("Shift", 19, 0, 20)});
        m_view->verticalScrollBar()->setValue(2 * hour());
        const QRect seen = m_view->boundsOf(0);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, {seen.center().x(), seen.top() - 8});
        QVERIFY(!m_view->selectedItem());
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, seen.center());
        QVERIFY(m_view->selectedItem());
    }

    void dragsMove_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("columns");
        QTest::addColumn<double>("hours");
        QTest::addColumn<QString>("there");
        QTest::newRow("to another time") << u"Walk"_s << 0 << 1.6 << u"19 15.5-16.5"_s;
        QTest::newRow("to another day") << u"Walk"_s << 2 << 0.0 << u"21 14-15"_s;
        QTest::newRow("back") << u"Walk"_s << -3 << -2.0 << u"16 12-13"_s;
        QTest::newRow("whole days") << u"Trip"_s << 2 << 0.0 << u"19"_s;
        QTest::newRow("too little") << u"Walk"_s << 0 << 0.02 << QString{};
    }
    void dragsMove()
    {
        QFETCH(const QString, title);
        QFETCH(const int, columns);
        QFETCH(const double, hours);
        QFETCH(const QString, there);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            show(Kind::Week, usualItems(), direction);
            QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
            const int forwards = direction == Qt::LeftToRight ? 1 : -1;
            const QRect bounds = m_view->boundsOf(indexOf(title));
            const QPoint from{bounds.left() + 20, bounds.center().y()}; // not between two days
            drag(from, from + QPoint{forwards * columns * column(), int(hours * hour())});
            QCOMPARE(moves.count(), there.isEmpty() ? 0 : 1);
            if (moves.isEmpty()) continue;
            QCOMPARE(moves[0][0].value<CalendarItem>().title, title);
            QCOMPARE(textOf(moves[0][1].value<CalendarItem>()), there);
        }
    }

    void dragsBetweenTheLaneAndTheHours()
    {
        show(Kind::Week);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        drag(centreOf(u"Walk"_s), {centreOf(u"Walk"_s).x(), centreOf(u"Trip"_s).y()});
        drag(centreOf(u"Trip"_s), {centreOf(u"Walk"_s).x(), centreOf(u"Plan"_s).y()});
        QCOMPARE(moves.count(), 2);
        QCOMPARE(textOf(moves[0][1].value<CalendarItem>()), u"19"_s);
        const auto there = moves[1][1].value<CalendarItem>();
        QVERIFY(!there.isAllDay && there.end == there.start);
        QVERIFY(textOf(there).startsWith(u"1"_s) && textOf(there).contains(u" 9.5"_s));
    }

    // Until the page tells where it is, or until the answer when somebody is asked.
    void whatWasDroppedStaysThere()
    {
        show(Kind::Week);
        const QImage before = m_view->grab().toImage();
        const auto dropWalk = [&](bool isAsked) {
            const QPoint from = centreOf(u"Walk"_s);
            const auto asking = connect(&m_edits, &CalendarEdits::moveRequested, m_view.get(),
                                        [&] { m_view->setDropAsked(isAsked); });
            drag(from, from + QPoint{column(), hour()});
            disconnect(asking);
            m_view->select(indexOf(u"Walk"_s));
            return m_view->grab().toImage();
        };
        m_view->select(indexOf(u"Walk"_s));
        const QImage selected = m_view->grab().toImage();
        QVERIFY(selected != before);
        const QImage dropped = dropWalk(false);
        QVERIFY(dropped != selected);
        m_view->setContent(pageOf(usualItems(), Kind::Week));
        QCOMPARE(m_view->grab().toImage(), selected);
        QCOMPARE(dropWalk(true), dropped);
        m_view->setContent(pageOf(usualItems(), Kind::Week)); // read again meanwhile
        QCOMPARE(m_view->grab().toImage(), dropped);
        m_view->letGoOfDrop();
        QCOMPARE(m_view->grab().toImage(), selected);
    }

    void theLowerEdgeMakesLonger()
    {
        show(Kind::Week);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        const QRect bounds = m_view->boundsOf(indexOf(u"Walk"_s));
        const QPoint edge{bounds.center().x(), bounds.bottom() - 2};
        drag(edge, edge + QPoint{0, hour()});
        QCOMPARE(moves.count(), 1);
        QCOMPARE(textOf(moves[0][1].value<CalendarItem>()), u"19 14-16"_s);
    }

    void whatCanOnlyBeReadStays()
    {
        std::vector<CalendarItem> items = usualItems();
        items[3].isReadOnly = true;
        show(Kind::Week, items);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        const QRect bounds = m_view->boundsOf(indexOf(u"Walk"_s));
        for (const QPoint &from : {bounds.center(), QPoint{bounds.center().x(), bounds.bottom() - 1}})
            drag(from, from + QPoint{column(), hour()});
        QCOMPARE(moves.count(), 0);
        QCOMPARE(m_view->selectedItem()->title, u"Walk"_s);
    }

    void escapeGivesTheDragUp()
    {
        show(Kind::Week);
        QSignalSpy moves{&m_edits, &CalendarEdits::moveRequested};
        const QPoint from = centreOf(u"Walk"_s);
        drag(from, from + QPoint{0, hour()}, false);
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, from + QPoint{0, hour()});
        QCOMPARE(moves.count(), 0);
    }

    void aDragOverNothingMakes()
    {
        show(Kind::Week);
        QSignalSpy made{&m_edits, &CalendarEdits::createRequested};
        const QRect beside = m_view->boundsOf(indexOf(u"Walk"_s));
        const QPoint from{beside.center().x() + column(), beside.top() + 2};
        drag(from, from + QPoint{0, 2 * hour()});
        auto *field = m_view->findChild<QLineEdit *>(u"calendarTitle"_s);
        QVERIFY(field && field->hasFocus());
        QTest::keyClicks(field, u"Call d"_s); // D turns no page here
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(made.count(), 1);
        QCOMPARE(made[0][0].toString(), u"Call d"_s);
        QCOMPARE(textOf(made[0][1].value<CalendarItem>()), u"20 14-16"_s);
        QVERIFY(m_view->hasFocus());

        m_view->createHere();
        field = m_view->findChild<QLineEdit *>(u"calendarTitle"_s);
        QTest::keyClicks(m_view->window()->focusWidget(), u"No"_s);
        QTest::keyClick(m_view->window()->focusWidget(), Qt::Key_Escape);
        QCOMPARE(made.count(), 1);
    }

    void tasksCanBeDropped()
    {
        for (const Kind kind : {Kind::Week, Kind::Month}) {
            show(kind);
            QSignalSpy drops{&m_edits, &CalendarEdits::scheduleRequested};
            const std::unique_ptr<QMimeData> data{TaskMimeData::make({u"one"_s}, {u"One"_s})};
            const QPoint place = centreOf(u"Walk"_s);
            QDragEnterEvent enter{place, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
            QCoreApplication::sendEvent(m_view->viewport(), &enter);
            QDragMoveEvent over{place, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
            QCoreApplication::sendEvent(m_view->viewport(), &over);
            QVERIFY(over.isAccepted());
            const QImage ghost = m_view->grab().toImage();
            data->setText(u"Another"_s);
            QCoreApplication::sendEvent(m_view->viewport(), &over);
            QVERIFY(m_view->grab().toImage() != ghost); // it bears the title
            QDropEvent drop{QPointF{place}, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
            QCoreApplication::sendEvent(m_view->viewport(), &drop);
            QCOMPARE(drops.count(), 1);
            const auto spot = drops[0][1].value<CalendarSpot>();
            QCOMPARE(spot.day, november(19));
            QCOMPARE(spot.time.has_value(), kind == Kind::Week);
        }
    }

    void keysLead_data() { addCaseRows("gui/calendar-keys.txt", 3); }
    void keysLead()
    {
        QFETCH(const QStringList, cells);
        const bool isMonth = cells[0] == u"month"_s;
        show(isMonth ? Kind::Month : Kind::Week);
        m_view->setSpot({.day = november(16), .time = isMonth ? std::nullopt : std::optional{minutes{9h}}});
        QSignalSpy leaves{m_view.get(), &CalendarView::dayLeftFor};
        for (const QString &each : cells[1].split(u' '))
            QTest::keyClick(m_view.get(), Qt::Key(QKeySequence{each}[0].key()));
        const auto numberOf = [](Day day) { return QString::number(unsigned(year_month_day{day}.day())); };
        QString led = numberOf(m_view->spot().day);
        if (!leaves.isEmpty())
            led = u"leaves "_s + numberOf(leaves[0][0].value<Day>());
        else if (const CalendarItem *item = m_view->selectedItem())
            led += u' ' + item->title;
        else if (m_view->spot().time)
            led +=
                u' ' + QTime{0, 0}.addSecs(int(seconds{*m_view->spot().time}.count())).toString(u"HH:mm"_s);
        QCOMPARE(led, cells[2]);
    }

    void keysActOnWhatIsSelected()
    {
        show(Kind::Week);
        QStringList asked;
        connect(&m_edits, &CalendarEdits::completeRequested, m_view.get(),
                [&](const CalendarItem &item) { asked += u"complete "_s + item.title; });
        connect(&m_edits, &CalendarEdits::deleteRequested, m_view.get(),
                [&](const CalendarItem &item) { asked += u"delete "_s + item.title; });
        connect(&m_edits, &CalendarEdits::openRequested, m_view.get(),
                [&](const CalendarItem &item) { asked += u"open "_s + item.title; });
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete}) // nothing is selected
            QTest::keyClick(m_view.get(), key);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, centreOf(u"Call"_s));
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete, Qt::Key_Return})
            QTest::keyClick(m_view.get(), key);
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, centreOf(u"Plan"_s));
        QCOMPARE(asked.join(u", "_s), u"complete Call, delete Call, open Call, open Plan"_s);
    }

    void staysWhereItIsWhenReadAgain()
    {
        show(Kind::Week);
        m_view->select(indexOf(u"Walk"_s));
        m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum() / 3);
        const int scrolled = m_view->verticalScrollBar()->value();
        QSignalSpy changes{m_view.get(), &CalendarView::selectionChanged};
        std::vector<CalendarItem> more = usualItems();
        more.insert(more.begin(), {allDay("One", 17, 17), timed("First", 16, 1, 2)});
        m_view->setContent(pageOf(more, Kind::Week));
        QCOMPARE(m_view->selectedItem()->title, u"Walk"_s);
        QVERIFY(std::abs(m_view->verticalScrollBar()->value() - scrolled) <= 1);
        QCOMPARE(changes.count(), 0);
        more.pop_back();
        m_view->setContent(pageOf(more, Kind::Week));
        QVERIFY(!m_view->selectedItem());
        QCOMPARE(changes.count(), 1);
    }

    void opensBeforeTheFirstItemOfTheMorning()
    {
        show(Kind::Week);
        const auto &grid = static_cast<TimeGridView &>(*m_view).geometryOfPage();
        QVERIFY(grid.hours().contains(QPoint{0, grid.yOf(8h)}) && grid.yOf(6h) < grid.hours().top());
        m_view.reset();
        show(Kind::Week, {timed("Train", 18, 4, 5)});
        QVERIFY(m_view->boundsOf(0).height() > hour() / 2);
    }

    void theLineMovesWithTheClock()
    {
        show(Kind::Week);
        const QImage before = m_view->grab().toImage();
        m_clock.advance(59min);
        QVERIFY(m_view->grab().toImage() != before);
        m_view->hide();
        QVERIFY(m_clock.isIdle());
    }

    void keysReachWhatIsOnlyCounted()
    {
        std::vector<CalendarItem> items;
        for (int i = 0; i < 12; ++i)
            items.push_back(timed("One", 18, 9, 10));
        show(Kind::Month, items);
        m_view->setSpot({.day = november(18), .time = {}});
        std::set<std::size_t> reached;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(m_view.get(), Qt::Key_Down);
            if (m_view->selected()) reached.insert(*m_view->selected());
            QVERIFY(!m_view->boundsOf(*m_view->selected()).isEmpty());
        }
        QCOMPARE(reached.size(), std::size_t{12});
    }

    void screenReadersAreToldAll()
    {
        std::vector<CalendarItem> items = usualItems();
        items[2].repeats = items[2].isClosed = true;
        show(Kind::Week, items);
        QAccessible::setActive(true);
        QAccessibleInterface *list = QAccessible::queryAccessibleInterface(m_view.get());
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->childCount(), 4);
        QCOMPARE(list->child(0)->text(QAccessible::Name),
                 u"Trip, Tuesday 17 November, to Wednesday 18 November, all day"_s);
        QCOMPARE(list->child(2)->text(QAccessible::Name),
                 u"Call, Tuesday 17 November, 15:00 to 16:00, repeats, completed"_s);
        QCOMPARE(list->child(1)->rect().size(), m_view->boundsOf(1).size());
        m_view->select(3);
        QVERIFY(list->focusChild() == list->child(3) && list->child(3)->state().focused);
        m_view->setContent(pageOf({}, Kind::Week));
        QCOMPARE(list->childCount(), 0);
    }
};

ORVANE_TEST(CalendarView_test)
#include "CalendarView_test.moc"
