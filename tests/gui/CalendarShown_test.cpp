#include "focus/FocusRecordEditor.h"
#include "gui/CalendarHands.h"
#include "model/OrvaneKit.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "support/TestMain.h"
#include "views/calendar/CalendarPane.h"
#include "views/calendar/CalendarTray.h"
#include "views/calendar/TimeGridView.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QListView>
#include <QMenu>
#include <QSplitter>

#include <algorithm>

using namespace Qt::StringLiterals;

/// What is shown on the calendar, and how it finds room, in the client's window.
class CalendarShown_test : public QObject, private CalendarHands {
    Q_OBJECT

private Q_SLOTS:
    void init() { startWithTasks(); }
    void cleanup() { m_client.reset(); }

    void listsAreHiddenAndShown()
    {
        QVERIFY(m_client->rooms().newTasks().add(u"Dig today 4pm ^Garden"_s));
        QVERIFY(m_client->rooms().newTasks().add(u"Sow ^Garden"_s));
        openWeek();
        pane().setTrayShown(true);
        QTRY_COMPARE(titles().join(u' '), u"Dig Stand up Stand up Stand up Stand up Stand up Trip Walk"_s);
        QTRY_COMPARE(pane().tray().list().model()->rowCount(), 2);
        auto &button = m_client->find<QWidget>("calendarShownButton");
        QCOMPARE(button.accessibleName(), u"Shown"_s);
        m_client->press(Qt::Key_S);
        QWidget *popover = QApplication::activePopupWidget();
        QVERIFY(popover);
        auto *rows = popover->findChild<QListView *>(u"shownList"_s);
        QVERIFY(rows->hasFocus());
        const auto toggle = [rows](const QString &title, Qt::CheckState then) {
            const QModelIndexList found =
                rows->model()->match(rows->model()->index(0, 0), Qt::DisplayRole, title);
            QVERIFY2(!found.isEmpty(), qPrintable(title));
            rows->setCurrentIndex(found.first());
            QTest::keyClick(rows, Qt::Key_Space);
            QCOMPARE(rows->currentIndex().data().toString(), title); // it stays open, and there
            QCOMPARE(rows->currentIndex().data(Qt::CheckStateRole).toInt(), int(then));
        };
        toggle(u"Garden"_s, Qt::Unchecked);
        QTRY_VERIFY(!titles().contains(u"Dig"_s));
        QTRY_COMPARE(pane().tray().list().model()->rowCount(), 1);
        QCOMPARE(button.accessibleName(), u"Shown: something is hidden"_s);
        toggle(u"Later Dates of What Repeats"_s, Qt::Unchecked);
        QTRY_COMPARE(titles().join(u' '), u"Stand up Trip Walk"_s);
        auto &showAll = *popover->findChild<QAbstractButton *>(u"shownShowAll"_s);
        QTest::mouseClick(&showAll, Qt::LeftButton);
        QTRY_COMPARE(titles().size(), 8);
        QVERIFY(!showAll.isVisible());
        QCOMPARE(button.accessibleName(), u"Shown"_s);
        QTest::keyClick(rows, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget() && view().hasFocus());
    }

    void focusIsShownWhenWantedAndOpensItsPage()
    {
        const Instant start = m_client->clock.now() - std::chrono::minutes{45};
        QVERIFY(FocusRecordEditor{m_client->kit()}.add(
            {.startDate = start, .endDate = start + std::chrono::minutes{25}}));
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        m_client->press(Qt::Key_S);
        auto *rows = QApplication::activePopupWidget()->findChild<QListView *>(u"shownList"_s);
        rows->setCurrentIndex(
            rows->model()->match(rows->model()->index(0, 0), Qt::DisplayRole, u"Focus"_s)[0]);
        QCOMPARE(rows->currentIndex().data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QTest::keyClick(rows, Qt::Key_Space);
        QTest::keyClick(rows, Qt::Key_Escape);
        activate();
        QTRY_VERIFY(titles().contains(u"Focus"_s));

        const auto &items = view().content().items;
        const auto index = std::size_t(
            std::ranges::find(items, CalendarItem::Kind::Focus, &CalendarItem::kind) - items.begin());
        view().select(index);
        const QPoint place = view().boundsOf(index).center();
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseMove(view().viewport(), place + QPoint{0, 100});
        QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, place + QPoint{0, 100});
        QVERIFY(m_client->window()->isCalendarShown()); // that was no click, and it cannot be dragged
        QCOMPARE(items[index].start.time_since_epoch(), start.time_since_epoch());
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, place);
        QVERIFY(m_client->window()->isFocusShown());

        openCalendar();
        QTRY_VERIFY(titles().contains(u"Focus"_s));
        view().select(index);
        m_client->press(Qt::Key_Space);
        m_client->press(Qt::Key_Delete);
        QVERIFY(m_client->window()->isCalendarShown() && titles().contains(u"Focus"_s));
        m_client->press(Qt::Key_Return);
        QVERIFY(m_client->window()->isFocusShown());
    }

    void colorsAreChosenAndKept()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        const QImage byList = view().grab().toImage();
        m_client->press(Qt::Key_S);
        auto *popover = QApplication::activePopupWidget();
        QTest::mouseClick(
            popover->findChild<QWidget *>(u"shownColors"_s)->findChildren<QAbstractButton *>().last(),
            Qt::LeftButton);
        QTest::keyClick(popover, Qt::Key_Escape);
        QTRY_VERIFY(view().grab().toImage() != byList);
        const KWCalendarDisplayConfigurationManager stored{
            m_client->kit().manager(), m_client->kit().center(), m_client->kit().account().currentUserID()};
        QCOMPARE(stored.configuration().colorBy, KWCalendarColorByPriority);
    }

    void aNarrowPageKeepsItsRoom()
    {
        openWeek();
        QTRY_COMPARE(titles().size(), 7);
        pane().setTrayShown(true);
        m_client->window()->resize(720, 700);
        QTRY_VERIFY(pane().tray().geometry().top() >= view().geometry().bottom());
        QVERIFY(static_cast<TimeGridView &>(view()).geometryOfPage().head(0).width() > 50);
        for (const char *each : {"calendarTrayButton", "calendarShownButton", "calendarKind"})
            QVERIFY2(m_client->find<QWidget>(each).isVisible(), each);
        QTest::mouseClick(&m_client->find<QWidget>("calendarKind"), Qt::LeftButton);
        chooseInMenu(u"Day"_s);
        QTRY_COMPARE(view().content().page.kind, CalendarPage::Kind::SingleDay);
        m_client->window()->resize(1280, 800);
        QTRY_VERIFY(m_client->find<QWidget>("calendarKinds").isVisible());
        QTRY_VERIFY(pane().tray().width() < pane().width() / 2);
    }

    void whatStandsBesideThePageIsKept()
    {
        openWeek();
        pane().setTrayShown(true);
        auto &splitter = m_client->find<QSplitter>("columns");
        QTest::mousePress(splitter.handle(1), Qt::LeftButton, {}, {});
        QTest::mouseMove(splitter.handle(1), {60, 0});
        QTest::mouseRelease(splitter.handle(1), Qt::LeftButton, {}, {60, 0});
        const int width = splitter.sizes().first();
        QVERIFY(width > 260);
        m_client->openList(u"Inbox"_s);
        QCOMPARE(splitter.sizes().first(), width);
        openCalendar();
        m_client->restart();
        QTRY_COMPARE(m_client->find<QSplitter>("columns").sizes().first(), width);
        QVERIFY(pane().isTrayShown());
    }
};

ORVANE_TEST(CalendarShown_test)
#include "CalendarShown_test.moc"
