#include "gui/CalendarHands.h"
#include "gui/CalendarMaking.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "support/TestMain.h"
#include "views/calendar/CalendarPane.h"
#include "views/calendar/CalendarTray.h"
#include "views/calendar/TimeGridView.h"
#include "views/main/MainWindow.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListView.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// The calendar in the client's window: what is done there is stored and can be taken back.
class CalendarPane_test : public QObject, private CalendarHands {
    Q_OBJECT

    void select(const QString &title) const
    {
        const auto &items = view().content().items;
        const auto found = std::ranges::find(items, title, &CalendarItem::title);
        if (found == items.end()) qFatal("there is no item %s", qUtf8Printable(title));
        view().select(std::size_t(found - items.begin()));
    }
    /// What repeats, on that day.
    void selectOn(Day day) const
    {
        const auto &items = view().content().items;
        const auto found = std::ranges::find_if(items, [day](const CalendarItem &item) {
            return item.repeats && floor<days>(item.start) == day;
        });
        if (found == items.end()) qFatal("nothing repeats there");
        view().select(std::size_t(found - items.begin()));
    }
    /// "18:10 19:10": days and hours, in their order.
    QString hoursOf(const QString &title) const
    {
        QStringList texts;
        for (const CalendarItem &each : view().content().items)
            if (each.title == title)
                texts += u"%1:%2"_s.arg((floor<days>(each.start) - november(0)).count())
                             .arg(floor<hours>(each.start - floor<days>(each.start)).count());
        texts.sort();
        return texts.join(u' ');
    }
    /// "Walk 18:14".
    QString selectedText() const
    {
        const CalendarItem *item = view().selectedItem();
        if (!item) return {};
        const Day day = floor<days>(item->start);
        return item->title +
               u" %1:%2"_s.arg((day - november(0)).count()).arg(floor<hours>(item->start - day).count());
    }
    KWTaskModel taskNamed(const QString &title) const
    {
        for (const KWTaskModel &each : m_client->kit().context().models<KWTask>({}))
            if (each.title == title) return each;
        qFatal("there is no task %s", qUtf8Printable(title));
    }
    /// Drags the selected item.
    void dragBy(int columns, int hours) const
    {
        const auto &grid = static_cast<TimeGridView &>(view()).geometryOfPage();
        const QPoint from = view().boundsOf(*view().selected()).center();
        const QPoint to = from + QPoint{columns * grid.head(0).width(), hours * grid.hourHeight()};
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, from);
        for (const QPoint &point : {(from + to) / 2, to}) {
            QMouseEvent move{
                QEvent::MouseMove, QPointF{point}, view().viewport()->mapToGlobal(QPointF{point}),
                Qt::NoButton,      Qt::LeftButton, {}};
            QCoreApplication::sendEvent(view().viewport(), &move);
        }
        QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, to);
    }
    QString message() const { return m_client->find<QLabel>("toastMessage").text(); }

private Q_SLOTS:
    void init() { startWithTasks(); }
    void cleanup() { m_client.reset(); }

    void showsWhatHasADateAndFollowsIt()
    {
        openWeek();
        QTRY_COMPARE(titles().join(u' '), u"Stand up Stand up Stand up Stand up Stand up Trip Walk"_s);
        m_client->press(Qt::Key_D);
        QTRY_COMPARE(titles().join(u' '), u"Stand up Walk"_s);
        m_client->press(Qt::Key_PageDown);
        QTRY_COMPARE(titles().join(u' '), u"Stand up"_s);
        m_client->press(Qt::Key_T);
        QTRY_COMPARE(view().spot().day, november(18));
        m_client->press(Qt::Key_M);
        QTRY_COMPARE(view().content().page.kind, CalendarPage::Kind::Month);

        m_client->restart();
        QVERIFY(m_client->window()->isCalendarShown());
        QTRY_COMPARE(view().content().page.kind, CalendarPage::Kind::Month);
    }

    void keysGoOnAfterAPressInTheHead()
    {
        openWeek();
        for (const char *each : {"calendarAfter", "calendarToday", "calendarTrayButton"}) {
            auto &button = m_client->find<QWidget>(each);
            button.setFocus(Qt::TabFocusReason);
            QVERIFY(button.hasFocus());
            QTest::mouseClick(&button, Qt::LeftButton);
            QVERIFY2(view().hasFocus(), each);
        }
        auto &grid = static_cast<TimeGridView &>(view());
        grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
        m_client->press(Qt::Key_T);
        const TimeGridGeometry &now = grid.geometryOfPage();
        QTRY_VERIFY(now.hours().contains(QPoint{0, now.yOf(9h)}));
    }

    void hiddenDaysAreNeverCurrent()
    {
        KWCalendarDisplayConfigurationManager stored{m_client->kit().manager(), m_client->kit().center(),
                                                     m_client->kit().account().currentUserID()};
        auto configuration = stored.configuration();
        configuration.showsWeekends = false;
        QVERIFY(stored.save(configuration));
        m_client->clock.advance(72h); // to a Saturday
        openWeek();
        m_client->press(Qt::Key_T);
        QTRY_COMPARE(view().spot().day, november(23));
        m_client->press(Qt::Key_Left);
        QTRY_COMPARE(view().spot().day, november(20));
        view().setSpot({.day = november(21), .time = 11h});
        QCOMPARE(view().spot().day, november(20)); // the page ends with it
        m_client->press(Qt::Key_N);
        m_client->type(u"Call"_s);
        m_client->press(Qt::Key_Return);
        QCOMPARE(taskNamed(u"Call"_s).startDate, at("2026-11-20 11:00"));
        m_client->press(Qt::Key_D);
        QTRY_COMPARE(view().content().page.kind, CalendarPage::Kind::SingleDay);
        m_client->press(Qt::Key_Right);
        QTRY_COMPARE(view().spot().day, november(21)); // alone it is shown
    }

    void aDragIsStoredAndTakenBack()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        select(u"Walk"_s);
        dragBy(1, 2);
        QTRY_COMPARE(taskNamed(u"Walk"_s).startDate, at("2026-11-19 16:00"));
        QVERIFY(!taskNamed(u"Walk"_s).endDate);
        select(u"Trip"_s);
        dragBy(-1, 0);
        QTRY_COMPARE(taskNamed(u"Trip"_s).startDate, at("2026-11-19 00:00"));
        QVERIFY(taskNamed(u"Trip"_s).isAllDay && !taskNamed(u"Trip"_s).endDate);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(taskNamed(u"Walk"_s).startDate, at("2026-11-18 14:00"));
        QCOMPARE(taskNamed(u"Trip"_s).startDate, at("2026-11-20 00:00"));
    }

    void aTaskIsMadeInPlace()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        view().setSpot({.day = november(19), .time = 11h});
        m_client->press(Qt::Key_N);
        m_client->type(u"Call tomorrow !high"_s);
        m_client->press(Qt::Key_Return);
        const KWTaskModel made = taskNamed(u"Call tomorrow"_s);
        QCOMPARE(made.startDate, at("2026-11-19 11:00"));
        QCOMPARE(made.endDate, at("2026-11-19 12:00"));
        QCOMPARE(made.priority, KWTaskPriorityHigh);
        QTRY_COMPARE(selectedText(), u"Call tomorrow 19:11"_s);
        QVERIFY(view().hasFocus());
    }

    void keysCompleteDeleteAndOpen()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        select(u"Trip"_s);
        m_client->press(Qt::Key_Return);
        TaskDetailView &detail = m_client->window()->detail();
        QVERIFY(detail.isVisible() && detail.isAncestorOf(QApplication::focusWidget()));
        m_client->press(Qt::Key_Escape);
        QVERIFY(!detail.isVisible() && view().hasFocus());
        m_client->press(Qt::Key_Space);
        QTRY_COMPARE(taskNamed(u"Trip"_s).status, KWTaskStatusCompleted);
        select(u"Walk"_s);
        m_client->press(Qt::Key_Delete);
        QTRY_VERIFY(!titles().contains(u"Walk"_s));
        m_client->press(Qt::Key_2, Qt::ControlModifier); // Today: the detail is beside the list again
        QVERIFY(!m_client->window()->isCalendarShown() && detail.isVisible());
    }

    void commandsActOnWhatIsSelected()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        select(u"Walk"_s);
        m_client->press(Qt::Key_3, Qt::AltModifier);
        QCOMPARE(taskNamed(u"Walk"_s).priority, KWTaskPriorityHigh);
        QCOMPARE(taskNamed(u"Trip"_s).priority, KWTaskPriorityNone);
    }

    void oneDateOfARepeatingTaskIsMoved()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        selectOn(november(20));
        dragBy(0, 3);
        QVERIFY(view().isDropAsked());
        QApplication::activePopupWidget()->close(); // no answer
        QTRY_VERIFY(!view().isDropAsked());
        QCOMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:10 21:10 22:10"_s);
        activate();
        dragBy(0, 3);
        chooseInMenu(u"Only This One"_s);
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:13 21:10 22:10"_s);
        QCOMPARE(selectedText(), u"Stand up 20:13"_s);
        QVERIFY2(message().startsWith(u"Date: "_s), qPrintable(message()));
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:10 21:10 22:10"_s);
        selectOn(november(20));
        dragBy(0, 3);
        chooseInMenu(u"This and Later Ones"_s);
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:13 21:13 22:13"_s);
        QTRY_COMPARE(selectedText(), u"Stand up 20:13"_s);
    }

    void oneDateOfARepeatingTaskIsLeftOut()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        selectOn(november(21));
        m_client->press(Qt::Key_Delete);
        chooseInMenu(u"Only This One"_s);
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:10 22:10"_s);
        selectOn(november(20));
        m_client->press(Qt::Key_Delete);
        chooseInMenu(u"This and Later Ones"_s);
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10"_s);
        selectOn(november(19));
        m_client->press(Qt::Key_Space);
        QTRY_VERIFY(std::ranges::any_of(view().content().items, [](const CalendarItem &item) {
            return item.isClosed && item.start == LocalTime{november(19)} + 10h;
        }));
        QCOMPARE(taskNamed(u"Stand up"_s).status, KWTaskStatusOpen);
        QCOMPARE(selectedText(), u"Stand up 19:10"_s);
    }

    void theMenuOfAnItemKnowsItsOccurrence()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        selectOn(november(20));
        QContextMenuEvent key{QContextMenuEvent::Keyboard, {}, {}};
        QCoreApplication::sendEvent(view().viewport(), &key);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction *each : menu->findChild<QMenu *>()->actions())
            if (each->text() == u"Make It the Last One"_s) each->trigger();
        menu->close();
        QTRY_COMPARE(hoursOf(u"Stand up"_s), u"18:10 19:10 20:10"_s);
    }

    void theTrayPutsTasksOnADay()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        view().setSpot({.day = november(20), .time = 9h});
        pane().setTrayShown(true);
        QTRY_COMPARE(pane().tray().list().model()->rowCount(), 1);
        pane().tray().list().setFocus();
        pane().tray().list().setCurrentIndex(pane().tray().list().model()->index(0, 0));
        m_client->press(Qt::Key_Return);
        QCOMPARE(taskNamed(u"Someday"_s).startDate, at("2026-11-20 09:00"));
        QTRY_COMPARE(pane().tray().list().model()->rowCount(), 0);
    }

    void theMenuChangesHowAPageIsDrawn()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        const int column = static_cast<TimeGridView &>(view()).geometryOfPage().head(0).width();
        QTest::mouseClick(&m_client->find<QWidget>("calendarMenuButton"), Qt::LeftButton);
        chooseInMenu(u"Show Weekends"_s);
        QTRY_VERIFY(static_cast<TimeGridView &>(view()).geometryOfPage().head(0).width() > column);
    }

    void eventsAreToldOfAndStay()
    {
        openWeek();
        CalendarItem event = timed("Concert", 18, 19, 21);
        event.kind = CalendarItem::Kind::Event;
        event.isReadOnly = true;
        CalendarEdits &edits = pane().edits();
        Q_EMIT edits.openRequested(event, {100, 100, 50, 20});
        QWidget *popover = QApplication::activePopupWidget();
        QVERIFY(popover);
        QCOMPARE(popover->accessibleName(), u"Concert, Wednesday 18 November, 19:00 to 21:00, read only"_s);
        QTest::keyClick(popover, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        Q_EMIT edits.moveRequested(event, timed("Concert", 19, 19, 21));
        QCOMPARE(message(), u"This can only be read."_s);
    }

    void theSearchComesAndGoes()
    {
        openWeek();
        m_client->press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(!m_client->window()->isCalendarShown());
        m_client->press(Qt::Key_Escape);
        m_client->press(Qt::Key_Escape);
        QTRY_VERIFY(m_client->window()->isCalendarShown());
    }
};

ORVANE_TEST(CalendarPane_test)
#include "CalendarPane_test.moc"
