#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/TaskBatch.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The trash in the main window: back, for good, empty.
class TrashPage_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    qsizetype storedTasks() { return m_client->kit().context().models<KWTask>({}).size(); }
    void openTrash() { m_client->press(Qt::Key_0, Qt::ControlModifier); }
    void goToFirstRow()
    {
        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Home);
    }
    QAbstractButton &offer() { return m_client->find<QAbstractButton>("pageAction"); }

    void chooseInRowMenu(const QString &entry)
    {
        auto &list = m_client->find<QWidget>("taskList");
        list.setFocus();
        QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(&list, &event);
        const QList<QMenu *> menus = list.findChildren<QMenu *>(u"taskMenu"_s);
        QVERIFY(!menus.isEmpty());
        const QList<QAction *> actions = menus.last()->actions();
        const auto found = std::ranges::find(actions, entry, &QAction::text);
        QVERIFY2(found != actions.end(), qPrintable(entry));
        menus.last()->close();
        (*found)->trigger();
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        m_client->openList(u"Inbox"_s);
        for (const QString &each : {u"Pay rent"_s, u"Water the plants"_s}) {
            QVERIFY(m_client->rooms().newTasks().add(each));
            goToFirstRow();
            m_client->press(Qt::Key_Delete);
            m_client->clock.advance(std::chrono::seconds{5});
        }
        openTrash();
    }

    void givesTasksBack()
    {
        QCOMPARE(m_client->shownTitles(), QStringList({u"Water the plants"_s, u"Pay rent"_s}));
        goToFirstRow();
        chooseInRowMenu(u"Restore"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
        m_client->openList(u"Inbox"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Water the plants"_s});
        QVERIFY(!offer().isVisible());
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_client->shownTitles(), QStringList{});
    }

    void urgesToNothing()
    {
        m_client->openList(u"Inbox"_s);
        const auto added = m_client->rooms().newTasks().add(u"Renew the card #errand"_s);
        QVERIFY(TaskBatch{m_client->kit().manager()}.setDay({added->sid},
                                                            m_client->clock.today() - std::chrono::days{1}));
        goToFirstRow();
        m_client->press(Qt::Key_Delete);
        m_client->clock.advance(std::chrono::seconds{5});
        openTrash();
        goToFirstRow();
        const TaskListModel &rows = m_client->window()->listPane().model();
        const TaskListRow &row = rows.rowAt(m_client->window()->listPane().list().currentIndex());
        QCOMPARE(row.task.title, u"Renew the card"_s);
        QVERIFY(rows.dateTextOf(row).tone == TaskDateText::Tone::Plain);
        for (const char *each : {"addChecklistItem", "addSubtask", "addTag"})
            QVERIFY2(!m_client->find<QWidget>(each).isVisible(), each);
        QVERIFY(!m_client->find<QWidget>("tagPill").isEnabled());
    }

    void deletesForGoodOnlyWhenSure()
    {
        goToFirstRow();
        answerNextAlert(Qt::Key_Return);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(storedTasks(), 2);
        goToFirstRow();
        answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
        QCOMPARE(storedTasks(), 1);
    }

    void isEmptiedAsAWhole()
    {
        QVERIFY(offer().isVisible());
        answerNextAlert(Qt::Key_Escape);
        offer().click();
        QCOMPARE(storedTasks(), 2);
        answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
        offer().click();
        QCOMPARE(storedTasks(), 0);
        QVERIFY(!offer().isVisible());
    }
};

ORVANE_TEST(TrashPage_test)
#include "TrashPage_test.moc"
