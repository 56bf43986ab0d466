#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/ListIcon.h"
#include "views/sidebar/SidebarView.h"
#include "views/tasklist/TaskMimeData.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Lists, folders and tags made, changed, arranged and removed in the sidebar of the client.
class Sidebar_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString lists() { return rowsBelow(listSection(KWSmartProject::project())); }
    QString tags() { return rowsBelow(listSection(KWSmartProject::tag())); }
    QString selectedTitle() { return m_client->rooms().sidebar().titleOfSelectedList(); }
    bool dropRow(const QString &title, const QModelIndex &onto, double share = 0.5)
    {
        return dropOnList(SidebarMimeData::writeItems(*treeModel().nodeAt(listRow(title))), onto, share);
    }
    bool dropTask(const QString &taskID, const QString &title)
    {
        return dropOnList(TaskMimeData::make({taskID}, {}), listRow(title), 0.5);
    }
    const KWTask &task(const QString &id) { return *m_client->kit().context().find<KWTask>(id); }

private Q_SLOTS:
    void init() { startClient(); }
    void cleanup() { endClient(); }

    void countsAreSpoken()
    {
        const auto spoken = [this](const QString &title) {
            return listRow(title).data(Qt::AccessibleTextRole).toString();
        };
        QCOMPARE(spoken(u"Inbox"_s), u"Inbox"_s);
        QVERIFY(m_client->rooms().newTasks().add(u"Rent today"_s));
        QTRY_COMPARE(spoken(u"Inbox"_s), u"Inbox, 1 task"_s);
        QVERIFY(m_client->rooms().newTasks().add(u"Bread"_s));
        QTRY_COMPARE(spoken(u"Inbox"_s), u"Inbox, 2 tasks"_s);
        QCOMPARE(spoken(u"Today"_s), u"Today, 1 task"_s);
    }

    void namesAreTypedInPlaceAndRefusedWithTheirText()
    {
        QCOMPARE(lists(), u"No lists yet"_s);
        addTo(KWSmartProject::project(), u"Work"_s);
        QCOMPARE(lists(), u"Work"_s);
        QCOMPARE(selectedTitle(), u"Work"_s);
        chooseInSidebar(listSection(KWSmartProject::project()), u"New Folder"_s);
        typeName(u"Home"_s);
        chooseInSidebar(listRow(u"Home"_s), u"New Note List"_s);
        typeName(u"work"_s); // there is one
        QCOMPARE(tree().findChild<QLineEdit *>(u"nameEditor"_s)->text(), u"work"_s);
        typeName(u"Ideas"_s);
        QCOMPARE(lists(), u"Work Home(Ideas)"_s);
        QVERIFY(KWProject::findProjectNamed(u"Ideas"_s, m_client->kit().account().currentUserID(),
                                            m_client->kit().context())
                    ->isNoteKind());
        const auto icon = [this](const QString &list) {
            return iconOfNode(*treeModel().nodeAt(listRow(list)), false);
        };
        QVERIFY(icon(u"Ideas"_s) == Icon::Note && !icon(u"Work"_s));
        m_client->press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(lists(), u"Work Home(Ideas )"_s); // beside the selected one
        m_client->press(Qt::Key_Escape);
        QCOMPARE(lists(), u"Work Home(Ideas)"_s);

        m_client->press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        m_client->type(u"Plans"_s);
        m_client->press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(lists(), u"Work Home(Ideas Plans )"_s); // what was typed is a list, and another begins
        m_client->type(u"Work"_s);
        m_client->press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        const auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(editor);
        QCOMPARE(editor->text(), u"Work"_s); // there is one
        m_client->press(Qt::Key_Escape);
        QCOMPARE(lists(), u"Work Home(Ideas Plans)"_s);

        addTo(KWSmartProject::tag(), u"Errand"_s);
        goToList(listRow(u"Errand"_s));
        m_client->press(Qt::Key_F2);
        typeName(u"two words"_s);
        typeName(u"Way"_s);
        m_client->press(Qt::Key_Insert);
        typeName(u"shop"_s);
        QCOMPARE(tags(), u"Way(shop)"_s);
        chooseInSidebar(listRow(u"shop"_s), u"Green"_s);
        QVERIFY(!treeModel().nodeAt(listRow(u"shop"_s))->color().isEmpty());
    }

    void rowsStayTheSameRowsWhereverTheyGo()
    {
        for (const QString &each : {u"Garden"_s, u"Work"_s})
            addTo(KWSmartProject::project(), each);
        chooseInSidebar(listSection(KWSmartProject::project()), u"New Folder"_s);
        typeName(u"Home"_s);
        const QPersistentModelIndex work = listRow(u"Work"_s); // it is selected
        QVERIFY(dropRow(u"Work"_s, listRow(u"Home"_s)));
        QCOMPARE(lists(), u"Garden Home(Work)"_s);
        QCOMPARE(work.data().toString(), u"Work"_s);
        QVERIFY(tree().selectionModel()->isSelected(work));
        undo();
        QCOMPARE(lists(), u"Garden Work Home"_s);
        QVERIFY(dropRow(u"Home"_s, listRow(u"Garden"_s), 0.05));
        QVERIFY(!dropRow(u"Home"_s, listRow(u"Today"_s)));
        goToList(listRow(u"Garden"_s));
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(lists(), u"Home Work Garden"_s);
        chooseInSidebar(listRow(u"Garden"_s), u"Home"_s); // of the folders
        QCOMPARE(lists(), u"Home(Garden) Work"_s);
        chooseInSidebar(listRow(u"Home"_s), u"Delete"_s);
        QCOMPARE(lists(), u"Garden Work"_s);
        undo();
        QCOMPARE(lists(), u"Home(Garden) Work"_s);

        m_client->restart();
        QCOMPARE(lists(), u"Home(Garden) Work"_s);
        QCOMPARE(selectedTitle(), u"Work"_s);
    }

    void tasksAreDroppedOnRows()
    {
        addTo(KWSmartProject::project(), u"Work"_s);
        addTo(KWSmartProject::tag(), u"Errand"_s);
        const auto added = m_client->rooms().newTasks().add(u"Pay rent ~Inbox"_s);
        QVERIFY(added);
        const QString id = added->sid;
        QVERIFY(dropTask(id, u"Work"_s));
        QCOMPARE(task(id).project()->model().name, u"Work"_s);
        undo();
        QVERIFY(task(id).project()->isInbox());
        QVERIFY(dropTask(id, u"Errand"_s));
        QCOMPARE(task(id)->tags, QStringList{u"errand"_s});
        QVERIFY(dropTask(id, u"Tomorrow"_s));
        QCOMPARE(m_client->clock.zone().dayOf(*task(id)->startDate),
                 m_client->clock.today() + std::chrono::days{1});
        QVERIFY(dropTask(id, u"Completed"_s));
        QVERIFY(task(id).isCompleted());
        QVERIFY(!dropTask(id, u"Lists"_s));
        QVERIFY(dropTask(id, u"Trash"_s));
        QVERIFY(m_client->rooms().deletes().containsTask(id));
    }

    void listsAreArchivedHiddenAndDeleted()
    {
        addTo(KWSmartProject::project(), u"Work"_s);
        chooseInSidebar(listRow(u"Work"_s), u"Archive"_s);
        QCOMPARE(lists(), u"Archive(Work)"_s);
        QVERIFY(!tree().isExpanded(listRow(u"Archive"_s)));
        QCOMPARE(selectedTitle(), u"Today"_s);
        chooseInSidebar(listRow(u"Work"_s), u"Reopen"_s);
        QCOMPARE(lists(), u"Work"_s);

        chooseInSidebar(listSection(KWSmartProject::tag()), u"Hide"_s);
        QTRY_VERIFY(!listSection(KWSmartProject::tag()).isValid());
        undo();
        QTRY_VERIFY(listSection(KWSmartProject::tag()).isValid());
        chooseInSidebar(listRow(u"Tomorrow"_s), u"Show Only If Not Empty"_s);
        QTRY_VERIFY(!listRow(u"Tomorrow"_s).isValid());
        QVERIFY(m_client->rooms().newTasks().add(u"Walk tomorrow"_s));
        QTRY_VERIFY(listRow(u"Tomorrow"_s).isValid());
        chooseInSidebar(listRow(u"Tomorrow"_s), u"Hide"_s);
        QTRY_VERIFY(!listRow(u"Tomorrow"_s).isValid());
        undo(); // as it was shown before
        QTRY_VERIFY(listRow(u"Tomorrow"_s).isValid());
        const auto &presenter = m_client->rooms().sidebar();
        QVERIFY(presenter.isShownIfNotEmpty(*treeModel().nodeAt(listRow(u"Tomorrow"_s))));
        chooseInSidebar(listRow(u"Tomorrow"_s), u"Show Only If Not Empty"_s);
        QTRY_VERIFY(!presenter.isShownIfNotEmpty(*treeModel().nodeAt(listRow(u"Tomorrow"_s))));

        m_client->openList(u"Work"_s);
        goToList(listRow(u"Work"_s));
        QString asked;
        QTimer::singleShot(0, qApp, [&asked] {
            const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box) asked = box->text() + u'/' + box->informativeText();
        });
        answerNextAlert(Qt::Key_Escape);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(asked, u"Delete List/All tasks in the list will be permanently deleted"_s);
        QCOMPARE(lists(), u"Work"_s);
        goToList(listRow(u"Work"_s));
        answerNextAlert(Qt::Key_Return, u"alertButton0"_s);
        m_client->press(Qt::Key_Delete);
        QTRY_COMPARE(lists(), u"No lists yet"_s); // in the background
        QCOMPARE(selectedTitle(), u"Today"_s);
    }
};

ORVANE_TEST(Sidebar_test)
#include "Sidebar_test.moc"
