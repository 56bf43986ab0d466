#include "calendar/CalendarItem.h"
#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWSmartProject.h"
#include "support/EventBuilder.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/calendar/CalendarPane.h"
#include "views/main/MainWindow.h"
#include "views/main/MainWindowController.h"
#include "views/sidebar/SidebarDropTarget.h"
#include "views/tasklist/PageHeader.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;

/// Events of subscribed calendars in the lists, and the lists of their calendars. It is Saturday, 21
/// November 2026.
class CalendarEvents_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString m_calendar;
    QString m_market;

    QModelIndex firstCalendar() { return treeModel().index(0, 0, listSection(KWSmartProject::subcal())); }
    QString calendars() { return rowsBelow(listSection(KWSmartProject::subcal())); }
    static QString popoverText()
    {
        QWidget *popover = QApplication::activePopupWidget();
        if (!popover || popover->objectName() != u"eventPopover") return {};
        QStringList lines;
        for (const QLabel *each : popover->findChildren<QLabel *>())
            lines += each->text();
        return lines.join(u'|');
    }

private Q_SLOTS:
    void init()
    {
        startClient();
        m_calendar = makeCalendar(*m_client, "Town");
        m_market =
            anEvent("Market").from("2026-11-21 08:00", "2026-11-21 12:00").in(m_calendar).savedIn(*m_client);
        anEvent("Fair").on("2026-11-22", "2026-11-24").in(m_calendar).savedIn(*m_client);
        QVERIFY(m_client->rooms().newTasks().add(u"Water today"_s));
        m_client->openList(u"Today"_s);
        QTRY_COMPARE(shown(), u"[Today] Water Market"_s);
    }
    void cleanup() { endClient(); }

    void areToldOfAndNothingElse()
    {
        goTo(taskRow(u"Market"_s));
        QVERIFY(list().selectionModel()->isSelected(taskRow(u"Market"_s)));
        QCOMPARE(list().currentTask(), QString{});
        QCOMPARE(list().selectedIDs(), QStringList{});
        const QString spoken = pane().model().data(taskRow(u"Market"_s), Qt::AccessibleTextRole).toString();
        QCOMPARE(spoken, u"Market, Event, 08:00 – 12:00, Calendar: Town, read only"_s);

        m_client->press(Qt::Key_Return);
        QCOMPARE(popoverText().section(u'|', 0, 2), u"Market|Saturday 21 November|08:00 – 12:00"_s);
        m_client->press(Qt::Key_Return);
        QCOMPARE(popoverText(), QString{});
        const QPoint middle = list().visualRect(taskRow(u"Market"_s)).center();
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, middle);
        QVERIFY(popoverText().startsWith(u"Market"_s));
        m_client->press(Qt::Key_Escape);

        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete, Qt::Key_F2})
            m_client->press(key);
        m_client->press(Qt::Key_Up, Qt::AltModifier);
        const QPoint mark = taskRow(u"Market"_s).isValid()
                                ? QPoint{20, list().visualRect(taskRow(u"Market"_s)).center().y()}
                                : QPoint{};
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, mark);
        QContextMenuEvent menuKey{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(&list(), &menuKey);
        QVERIFY(!list().findChild<QMenu *>(u"taskMenu"_s));
        QVERIFY(!(pane().model().flags(taskRow(u"Market"_s)) & (Qt::ItemIsEditable | Qt::ItemIsDragEnabled)));
        QCOMPARE(shown(), u"[Today] Water Market"_s);
    }

    void areLeftAloneAmongSelectedTasks()
    {
        QVERIFY(m_client->rooms().newTasks().add(u"Sweep today"_s));
        goTo(taskRow(u"Market"_s));
        m_client->press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list().selectedIDs().size(), 2);
        m_client->press(Qt::Key_3, Qt::AltModifier);
        for (const KWTaskListItemModel &each : pane().model().tasks())
            QVERIFY(each.priority != KWTaskPriorityNone);
        m_client->press(Qt::Key_Delete);
        QTRY_COMPARE(shown(), u"[Today] Market"_s);
        undo();
        QTRY_COMPARE(shown().count(u' '), 3);
    }

    void areLeftOutByTheMenuOfThePage()
    {
        chooseOfPage(u"Show Events"_s);
        QCOMPARE(shown(), u"[Today] Water"_s);
        m_client->restart();
        QTRY_COMPARE(shown(), u"[Today] Water"_s);
        chooseOfPage(u"Show Events"_s);
        QCOMPARE(shown(), u"[Today] Water Market"_s);
    }

    void haveAListOfTheirCalendar()
    {
        m_client->openList(u"Town"_s);
        QTRY_COMPARE(shown(), u"[Today] Market [Tomorrow] Fair"_s);
        QVERIFY(!pane().addField().isVisible());
        QCOMPARE(pane().header().accessibleName(), u"Town"_s);
        goToList(firstCalendar());
        m_client->press(Qt::Key_Return);
        QVERIFY(list().hasFocus());
        QVERIFY(list().currentIndex().isValid());
        m_client->press(Qt::Key_Return);
        QVERIFY(popoverText().startsWith(u"Market"_s));
        m_client->press(Qt::Key_Escape);
        m_client->press(Qt::Key_Space);

        m_client->restart();
        QTRY_COMPARE(shown(), u"[Today] Market [Tomorrow] Fair"_s);
        // Tasks are made elsewhere.
        goToList(firstCalendar());
        m_client->press(Qt::Key_N, Qt::ControlModifier);
        QTRY_COMPARE(shown(), u"[Today] Water Market"_s);
        m_client->openList(u"Town"_s);
        goToList(firstCalendar());
        m_client->press(Qt::Key_Delete);
        QTRY_COMPARE(shown(), u"[Today] Water"_s);
    }

    void calendarsArePutInOrder()
    {
        makeCalendar(*m_client, "Sports");
        QCOMPARE(calendars(), u"Town Sports"_s);
        goToList(firstCalendar());
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(calendars(), u"Sports Town"_s);
        undo();
        QCOMPARE(calendars(), u"Town Sports"_s);
        const auto dropped = [this](const QString &title, const QModelIndex &onto) {
            return dropOnList(SidebarMimeData::writeItems(*treeModel().nodeAt(listRow(title))), onto, 0.05);
        };
        QVERIFY(dropped(u"Sports"_s, firstCalendar()));
        QCOMPARE(calendars(), u"Sports Town"_s);
        QVERIFY(!dropped(u"Sports"_s, listRow(u"Today"_s)));
    }

    void linksLeadToTheirDay()
    {
        const QString fair = anEvent("Old fair").on("2026-08-15").in(m_calendar).savedIn(*m_client);
        const auto follow = [this](const QString &event) {
            Q_EMIT m_client->rooms().mainWindow().linkRequested(u"orvane://event/"_s + event);
        };
        const auto selected = [this] {
            const CalendarItem *item = m_client->window()->calendarPane().view().selectedItem();
            return item ? item->title : QString{};
        };
        follow(fair);
        QVERIFY(m_client->window()->isCalendarShown());
        QTRY_COMPARE(selected(), u"Old fair"_s);
        follow(m_market);
        QTRY_COMPARE(selected(), u"Market"_s);
        m_client->rooms().mainWindow().showCalendar(CalendarPage::Kind::Month);
        follow(fair);
        QTRY_COMPARE(selected(), u"Old fair"_s);
        m_client->press(Qt::Key_Return); // the keyboard is there
        QVERIFY(popoverText().startsWith(u"Old fair"_s));
        m_client->press(Qt::Key_Escape);
    }
};

ORVANE_TEST(CalendarEvents_test)
#include "CalendarEvents_test.moc"
