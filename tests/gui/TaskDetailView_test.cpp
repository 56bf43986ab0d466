#include "views/taskdetail/TaskDetailView.h"

#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskMover.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The detail of the selected task, in the real window: what is typed there is in the store.
class TaskDetailView_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    std::optional<KWTaskEditor> m_editor;
    QString m_taskID;

    TaskListView &list() { return m_client->window()->listPane().list(); }
    CommittingTextEdit &title() { return m_client->find<CommittingTextEdit>("taskTitle"); }
    CommittingTextEdit &content() { return m_client->find<CommittingTextEdit>("taskContent"); }
    KWTaskModel task() { return m_editor->read(m_taskID)->task; }

    QList<CommittingTextEdit *> rows()
    {
        QApplication::sendPostedEvents(); // lays out, and takes away what was dropped
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QWidget *window = m_client->window();
        auto found = window->findChildren<CommittingTextEdit *>(u"checklistItemTitle"_s);
        std::ranges::sort(found, {}, [window](const auto *row) { return row->mapTo(window, QPoint{}).y(); });
        return found;
    }
    QString shown() { return joined(rows(), &CommittingTextEdit::text); }
    QString stored()
    {
        const auto task = m_editor->read(m_taskID);
        return joined(task->items, &KWChecklistItemModel::title);
    }
    void addItems(const QStringList &titles)
    {
        QString last;
        for (const QString &each : titles)
            last = *m_editor->addItem(m_taskID, last, each);
    }
    void putCaret(int row, int position)
    {
        CommittingTextEdit *edit = rows().at(row);
        edit->setFocus();
        QTextCursor caret = edit->textCursor();
        caret.setPosition(position);
        edit->setTextCursor(caret);
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        m_client->openList(u"Inbox"_s);
        m_taskID = m_client->rooms().newTasks().add(u"Write the announcement"_s)->sid;
        m_editor.emplace(m_client->kit().manager());
        QVERIFY(m_editor->setContent(m_taskID, u"One page"_s));
        list().selectTask(m_taskID);
    }
    void cleanup()
    {
        m_editor.reset();
        m_client.reset();
    }

    void losesNothingOfWhatIsTyped()
    {
        title().setFocus();
        m_client->type(u"x"_s);
        content().setFocus();
        QCOMPARE(task().title, u"xWrite the announcement"_s);
        m_client->type(u"y"_s);
        m_client->clock.advance(1s);
        QCOMPARE(task().content, u"yOne page"_s);
        m_client->type(u"z"_s);
        m_client->rooms().mainWindow().select(KWListIdentifier::todayProject());
        QCOMPARE(task().content, u"yzOne page"_s);
        QVERIFY(!title().isVisible());
    }

    void listThatMayOnlyBeReadTakesNothing()
    {
        const QString plan =
            KWProject::createProjectNamed(u"Plan"_s, m_client->kit().account().currentUserID(),
                                          m_client->kit().context())
                .sid();
        QVERIFY(m_client->kit().context().save());
        QVERIFY(KWTaskEditor{m_client->kit().manager()}.addTag(m_taskID, u"errand"_s));
        QVERIFY(KWTaskMover{m_client->kit().manager()}.move({m_taskID}, plan, KWTaskMover::From::Lists));
        m_client->kit().context().find<KWProject>(plan)->set(&KWProjectModel::permission,
                                                             KWProjectPermissionRead);
        QVERIFY(m_client->kit().context().save());
        m_client->openList(u"Plan"_s);
        QTRY_COMPARE(m_client->shownTitles().size(), 1);
        list().selectTask(m_taskID);
        title().setFocus();
        m_client->type(u"x"_s);
        content().setFocus();
        m_client->type(u"y"_s);
        QCOMPARE(title().text() + content().text(), u"Write the announcementOne page"_s);
        for (const char *each : {"addChecklistItem", "addField", "addTag", "addSubtask"})
            QVERIFY2(!m_client->find<QWidget>(each).isVisible(), each);
        for (const char *each : {"tagPill", "detailList", "detailDate", "detailPriority", "detailCheckbox"})
            QVERIFY2(!m_client->find<QWidget>(each).isEnabled(), each);
        QCOMPARE(m_client->find<QWidget>("tagPill").accessibleName(), u"Tag: errand"_s);
        m_client->find<QAbstractButton>("detailMore").click();
        for (const QAction *each : m_client->find<QMenu>("detailMenu").actions())
            QVERIFY2(each->text() != u"Delete" && each->text() != u"Note", qPrintable(each->text()));
    }

    void enterGoesOnToTheNextItem()
    {
        addItems({u"First"_s, u"Last"_s});
        putCaret(0, 5);
        m_client->press(Qt::Key_Return);
        QCOMPARE(shown(), u"First  Last"_s);
        m_client->type(u"Middle"_s);
        m_client->press(Qt::Key_Return);
        QCOMPARE(stored(), u"First Middle Last"_s);
        // Enter in the empty one ends the list and leaves nothing behind.
        m_client->press(Qt::Key_Return);
        QCOMPARE(shown(), u"First Middle Last"_s);
        QCOMPARE(stored(), shown());
    }

    void enterWithinAnItemPartsIt()
    {
        addItems({u"Bread and milk"_s});
        putCaret(0, 5);
        m_client->press(Qt::Key_Return);
        QCOMPARE(stored(), u"Bread and milk"_s);
        QCOMPARE(shown(), stored());
        QCOMPARE(rows().size(), 2);
        QVERIFY(rows().at(1)->hasFocus());
        QCOMPARE(rows().at(1)->textCursor().position(), 0);
    }

    void enterAtTheBeginningMakesRoomAbove()
    {
        addItems({u"Milk"_s});
        putCaret(0, 0);
        m_client->press(Qt::Key_Return);
        QVERIFY(rows().at(0)->hasFocus());
        m_client->type(u"Bread"_s);
        m_client->clock.advance(1s);
        QCOMPARE(stored(), u"Bread Milk"_s);
        QCOMPARE(shown(), stored());
    }

    void anEmptiedItemIsFilledAgain()
    {
        addItems({u"Milk"_s});
        for (const bool pressesEnter : {false, true}) {
            putCaret(0, 0);
            rows().at(0)->selectAll();
            m_client->press(Qt::Key_Delete);
            if (pressesEnter) m_client->press(Qt::Key_Return);
            title().setFocus();
            QCOMPARE(stored(), u"Milk"_s);
            QCOMPARE(shown(), stored());
        }
    }

    void newItemIsKeptAndTypedOn()
    {
        QTest::mouseClick(&m_client->find<QWidget>("addChecklistItem"), Qt::LeftButton);
        m_client->type(u"Oat "_s);
        m_client->clock.advance(1s);
        QCOMPARE(stored(), u"Oat"_s);
        m_client->type(u"milk"_s);
        m_client->clock.advance(1s);
        QCOMPARE(stored(), u"Oat milk"_s);
        QCOMPARE(shown(), stored());
    }

    void backspaceInAnEmptyItemRemovesIt()
    {
        addItems({u"First"_s, u"x"_s});
        putCaret(1, 1);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(rows().size(), 2);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(stored(), u"First"_s);
        QCOMPARE(shown(), u"First"_s);
        QVERIFY(rows().at(0)->hasFocus());
    }

    void typedTextOutlivesItsItem()
    {
        addItems({u"First"_s, u"Second"_s});
        putCaret(1, 0);
        m_client->type(u"My "_s);
        // Somebody else removes the item meanwhile.
        QVERIFY(m_editor->removeItem(m_editor->read(m_taskID)->items.last().sid));
        QCOMPARE(shown(), u"First My Second"_s);
        m_client->clock.advance(1s);
        QCOMPARE(stored(), u"First My Second"_s);
    }

    void ticksItemsAndTask()
    {
        addItems({u"First"_s});
        verifyControlsHaveNames(*m_client->window());
        QTest::mouseClick(&m_client->find<QWidget>("checklistItemCheckbox"), Qt::LeftButton);
        QVERIFY(m_editor->read(m_taskID)->items.first().status != 0);
        QTest::mouseClick(&m_client->find<QWidget>("detailCheckbox"), Qt::LeftButton);
        QCOMPARE(task().status, KWTaskStatusCompleted);
    }
};

ORVANE_TEST(TaskDetailView_test)
#include "TaskDetailView_test.moc"
