#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Everything about a task but its texts, edited in the detail of the real window.
class TaskDetailParts_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    std::optional<KWTaskEditor> m_editor;
    QString m_taskID;

    TaskWithParts stored() { return *m_editor->read(m_taskID); }
    template <class Widget>
    Widget &find(const char *name)
    {
        return m_client->find<Widget>(name);
    }
    void press(const char *button) { QTest::keyClick(&find<QWidget>(button), Qt::Key_Space); }
    // The item of the menu behind the button.
    void choose(const char *button, const QString &item)
    {
        press(button);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction *each : menu->actions())
            if (each->text() == item && each->isEnabled()) each->trigger();
        menu->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QString toast()
    {
        const QWidget &shown = find<QWidget>("toast");
        return shown.isVisible() ? shown.accessibleName() : QString{};
    }
    QString kindOf()
    {
        return stored().task.kind == KWTaskKindChecklist ? u"checklist"_s : stored().task.content;
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        m_client->openList(u"Inbox"_s);
        m_taskID = m_client->rooms().newTasks().add(u"Bake a cake"_s)->sid;
        m_editor.emplace(m_client->kit().manager());
        m_client->find<TaskListView>("taskList").selectTask(m_taskID);
    }
    void cleanup()
    {
        m_editor.reset();
        m_client.reset();
    }

    void switchesTheKindAndKeepsWhatIsBeingTyped()
    {
        find<QWidget>("taskContent").setFocus();
        m_client->type(u"Flour"_s);
        m_client->press(Qt::Key_Return);
        m_client->type(u"Eggs"_s);
        choose("detailMore", u"Checklist"_s);
        QCOMPARE(joined(stored().items, &KWChecklistItemModel::title), u"Flour Eggs"_s);
        QCOMPARE(find<CommittingTextEdit>("taskContent").text(), QString{});
        QCOMPARE(m_client->window()->findChildren<QWidget *>(u"checklistItem"_s).size(), 2);
        choose("detailMore", u"Note"_s);
        QCOMPARE(stored().task.content, u"- [ ] Flour\n- [ ] Eggs"_s);
        QVERIFY(!find<QWidget>("checklist").isVisible() && !find<QWidget>("addSubtask").isVisible());
        QVERIFY(m_client->window()->takeBack());
        QCOMPARE(kindOf(), u"checklist"_s);
    }

    void addsAndRemovesTagsByKeyboard()
    {
        find<QWidget>("addTag").setFocus();
        m_client->type(u"#Errand"_s);
        m_client->press(Qt::Key_Return);
        m_client->type(u"home "_s);
        QCOMPARE(stored().task.tags, (QStringList{u"errand"_s, u"home"_s}));
        m_client->type(u"a/b"_s);
        m_client->press(Qt::Key_Return);
        QVERIFY(toast().contains(u"letters, digits"));
        QCOMPARE(find<QLineEdit>("addTag").text(), u"a/b"_s);
        m_client->press(Qt::Key_Escape);
        QCOMPARE(find<QLineEdit>("addTag").text(), QString{});
        verifyControlsHaveNames(*m_client->window());
        m_client->press(Qt::Key_Backspace); // to the last tag
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(stored().task.tags, QStringList{u"errand"_s});
        QVERIFY(find<QWidget>("addTag").hasFocus());
    }

    void addsTicksAndOpensSubtasks()
    {
        find<QWidget>("addSubtask").setFocus();
        m_client->type(u"Buy eggs"_s);
        m_client->press(Qt::Key_Return);
        m_client->type(u"Whip"_s);
        find<QWidget>("taskTitle").setFocus(); // what is typed is kept
        QCOMPARE(joined(stored().subtasks, &KWTaskModel::title), u"Buy eggs Whip"_s);
        QTest::mouseClick(&find<QWidget>("subtaskCheckbox"), Qt::LeftButton);
        QCOMPARE(stored().subtasks.first().status, KWTaskStatusCompleted);
        QTest::keyClick(&find<QWidget>("subtaskTitle"), Qt::Key_Return);
        QCOMPARE(find<CommittingTextEdit>("taskTitle").text(), u"Buy eggs"_s);
        QTest::keyClick(&find<QWidget>("openParent"), Qt::Key_Space);
        QCOMPARE(find<CommittingTextEdit>("taskTitle").text(), u"Bake a cake"_s);
    }

    void tabFollowsTheEye()
    {
        QVERIFY(m_editor->addSubtask(m_taskID, u"Buy eggs"_s) && m_editor->addTag(m_taskID, u"errand"_s));
        QVERIFY(m_editor->addItem(m_taskID, {}, u"Flour"_s));
        QApplication::sendPostedEvents(); // shows the rows
        QStringList names;
        QWidget *control = &find<QWidget>("detailCheckbox");
        for (; names.size() < 14; control = control->nextInFocusChain())
            if (control->focusPolicy() & Qt::TabFocus && control->isVisible())
                names.append(control->objectName());
        QCOMPARE(
            names.join(u' '),
            u"detailCheckbox detailDate detailPriority taskTitle taskContent checklistItemCheckbox "
            "checklistItemTitle checklistItemDate addChecklistItem subtaskCheckbox subtaskTitle addSubtask "
            "detailList tagPill"_s);
    }

    void attachesFilesThatAreDroppedOnIt()
    {
        QTemporaryDir folder;
        write(folder.filePath(u"plan.txt"_s), "Flour");
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(folder.filePath(u"plan.txt"_s))});
        QDragEnterEvent enter{{10, 10}, Qt::CopyAction, &files, Qt::LeftButton, {}};
        QApplication::sendEvent(&find<QWidget>("taskDetail"), &enter);
        QDropEvent drop{{10, 10}, Qt::CopyAction, &files, Qt::LeftButton, {}};
        QApplication::sendEvent(&find<QWidget>("taskDetail"), &drop);
        QTRY_COMPARE(stored().attachments.size(), 1);
        QTRY_COMPARE(find<QAbstractButton>("attachment").text(), u"plan.txt"_s);
        QTest::keyClick(&find<QWidget>("attachment"), Qt::Key_Delete);
        QVERIFY(stored().attachments.isEmpty());
        QVERIFY(m_client->window()->takeBack());
        QCOMPARE(stored().attachments.size(), 1);
    }

    void movesToTheListThatIsTyped()
    {
        saved(u"Groceries"_s);
        saved(u"Office"_s);
        press("detailList");
        QTest::keyClicks(&find<QWidget>("choiceField"), u"off"_s);
        QTest::keyClick(&find<QWidget>("choiceField"), Qt::Key_Return);
        const auto *list = m_client->kit().context().find<KWProject>(stored().task.projectID);
        QCOMPARE((*list)->name, u"Office"_s);
        QVERIFY(m_client->window()->takeBack());
    }

    void setsPriorityPinAndLink()
    {
        choose("detailPriority", u"High"_s);
        QCOMPARE(stored().task.priority, KWTaskPriorityHigh);
        choose("detailMore", u"Pin"_s);
        QVERIFY(stored().task.pinnedDate);
        choose("detailMore", u"Copy Link"_s);
        QCOMPARE(QApplication::clipboard()->text(), u"orvane://task/"_s + m_taskID);
        choose("detailMore", u"Duplicate"_s);
        QCOMPARE(m_client->shownTitles().size(), 2);
        choose("detailMore", u"Abandon"_s); // the copy, which is selected now
        QCOMPARE(stored().task.status, KWTaskStatusOpen);
        QCOMPARE(m_client->kit().context().number("SELECT count(*) FROM tasks WHERE status = -1"), 1);
    }

    void endsTheMessageOfAFailureThatIsOver()
    {
        auto &title = find<CommittingTextEdit>("taskTitle");
        const QString before = title.text();
        title.setFocus();
        title.selectAll();
        m_client->press(Qt::Key_Delete);
        find<QWidget>("taskContent").setFocus();
        QCOMPARE(toast(), u"A task needs a title."_s);
        QCOMPARE(title.text(), before);
        title.setFocus();
        title.selectAll();
        m_client->type(u"Bake"_s);
        m_client->clock.advance(1s);
        QCOMPARE(stored().task.title, u"Bake"_s);
        QCOMPARE(toast(), QString{});
    }

private:
    void saved(const QString &listName)
    {
        KWProject::createProjectNamed(listName, m_client->kit().account().currentUserID(),
                                      m_client->kit().context());
        QVERIFY(m_client->kit().context().save());
    }
};

ORVANE_TEST(TaskDetailParts_test)
#include "TaskDetailParts_test.moc"
