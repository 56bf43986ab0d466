#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"
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
class Sidebar_test : public QObject {
    Q_OBJECT

    using Type = KWProjectListNodeType;

    std::unique_ptr<ClientFixture> m_client;

    KWProjectListView &tree() { return m_client->window()->sidebar().tree(); }
    ProjectListTreeModel &model() { return tree().treeModel(); }

    /// "Home(Garden Work) Errand": the rows below, those below them in brackets.
    QString rowsBelow(const QModelIndex &parent)
    {
        QStringList titles;
        for (int row = 0; row < model().rowCount(parent); ++row) {
            const QModelIndex index = model().index(row, 0, parent);
            const QString inner = rowsBelow(index);
            titles << index.data().toString() + (inner.isEmpty() ? QString{} : u'(' + inner + u')');
        }
        return titles.join(u' ');
    }
    QModelIndex section(const KWSmartProject &smart)
    {
        return model().find(Type::smartProject, smart.identifier());
    }
    QString lists() { return rowsBelow(section(KWSmartProject::project())); }
    QString tags() { return rowsBelow(section(KWSmartProject::tag())); }
    QModelIndex row(const QString &title)
    {
        const auto found = model().match(model().index(0, 0), Qt::DisplayRole, title, 1,
                                         Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }
    QString selectedTitle() { return m_client->rooms().sidebar().titleOfSelectedList(); }

    void goTo(const QModelIndex &index)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // an editor that has closed
        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        tree().setFocus();
        tree().selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    }
    /// Into the field that is open for a name.
    void typeName(const QString &name)
    {
        auto *editor = tree().findChild<QLineEdit *>(u"nameEditor"_s);
        QVERIFY2(editor && editor->hasFocus(), qPrintable(name));
        editor->selectAll();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void choose(const QModelIndex &index, const QString &entry)
    {
        goTo(index);
        QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(tree().viewport(), &event);
        auto *menu = tree().findChild<QMenu *>(u"sidebarMenu"_s);
        QVERIFY(menu);
        QList<QAction *> actions = menu->actions();
        for (const QAction *each : menu->actions())
            if (each->menu()) actions += each->menu()->actions();
        const auto found = std::ranges::find(actions, entry, &QAction::text);
        QVERIFY2(found != actions.end(), qPrintable(entry));
        (*found)->trigger();
        delete menu;
    }
    void addTo(const KWSmartProject &smart, const QString &name)
    {
        goTo(section(smart));
        m_client->press(Qt::Key_Insert);
        typeName(name);
    }

    /// At a share of the row's height.
    bool drop(QMimeData *carried, const QModelIndex &index, double share)
    {
        const std::unique_ptr<QMimeData> data{carried};
        tree().scrollTo(index);
        const QRect bounds = tree().visualRect(index);
        const QPoint place{bounds.center().x(), bounds.top() + int(bounds.height() * share)};
        QDragEnterEvent enter{place, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
        QApplication::sendEvent(tree().viewport(), &enter);
        QDragMoveEvent move{place, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
        QApplication::sendEvent(tree().viewport(), &move);
        QDropEvent end{QPointF{place}, Qt::MoveAction, data.get(), Qt::LeftButton, {}};
        QApplication::sendEvent(tree().viewport(), &end);
        return move.isAccepted() && end.isAccepted();
    }
    bool dropRow(const QString &title, const QModelIndex &index, double share = 0.5)
    {
        return drop(SidebarMimeData::make(*model().nodeAt(row(title))), index, share);
    }
    bool dropTask(const QString &taskID, const QString &title)
    {
        return drop(TaskMimeData::make({taskID}, {}), row(title), 0.5);
    }
    const KWTask &task(const QString &id) { return *m_client->kit().context().find<KWTask>(id); }
    void undo() { m_client->press(Qt::Key_Z, Qt::ControlModifier); }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
    }
    void cleanup() { m_client.reset(); }

    void namesAreTypedInPlaceAndRefusedWithTheirText()
    {
        QCOMPARE(lists(), u"No lists yet"_s);
        addTo(KWSmartProject::project(), u"Work"_s);
        QCOMPARE(lists(), u"Work"_s);
        QCOMPARE(selectedTitle(), u"Work"_s);
        choose(section(KWSmartProject::project()), u"New Folder"_s);
        typeName(u"Home"_s);
        choose(row(u"Home"_s), u"New Note List"_s);
        typeName(u"work"_s); // there is one
        QCOMPARE(tree().findChild<QLineEdit *>(u"nameEditor"_s)->text(), u"work"_s);
        typeName(u"Ideas"_s);
        QCOMPARE(lists(), u"Work Home(Ideas)"_s);
        QVERIFY(KWProject::findProjectNamed(u"Ideas"_s, m_client->kit().account().currentUserID(),
                                            m_client->kit().context())
                    ->isNoteKind());
        m_client->press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(lists(), u"Work Home(Ideas )"_s); // beside the selected one
        m_client->press(Qt::Key_Escape);
        QCOMPARE(lists(), u"Work Home(Ideas)"_s);

        addTo(KWSmartProject::tag(), u"Errand"_s);
        goTo(row(u"Errand"_s));
        m_client->press(Qt::Key_F2);
        typeName(u"two words"_s);
        typeName(u"Way"_s);
        m_client->press(Qt::Key_Insert);
        typeName(u"shop"_s);
        QCOMPARE(tags(), u"Way(shop)"_s);
        choose(row(u"shop"_s), u"Green"_s);
        QVERIFY(!model().nodeAt(row(u"shop"_s))->color().isEmpty());
    }

    void rowsStayTheSameRowsWhereverTheyGo()
    {
        for (const QString &each : {u"Garden"_s, u"Work"_s})
            addTo(KWSmartProject::project(), each);
        choose(section(KWSmartProject::project()), u"New Folder"_s);
        typeName(u"Home"_s);
        const QPersistentModelIndex work = row(u"Work"_s); // it is selected
        QVERIFY(dropRow(u"Work"_s, row(u"Home"_s)));
        QCOMPARE(lists(), u"Garden Home(Work)"_s);
        QCOMPARE(work.data().toString(), u"Work"_s);
        QVERIFY(tree().selectionModel()->isSelected(work));
        undo();
        QCOMPARE(lists(), u"Garden Work Home"_s);
        QVERIFY(dropRow(u"Home"_s, row(u"Garden"_s), 0.05));
        QVERIFY(!dropRow(u"Home"_s, row(u"Today"_s)));
        goTo(row(u"Garden"_s));
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(lists(), u"Home Work Garden"_s);
        choose(row(u"Garden"_s), u"Home"_s); // of the folders
        QCOMPARE(lists(), u"Home(Garden) Work"_s);
        choose(row(u"Home"_s), u"Delete"_s);
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
        choose(row(u"Work"_s), u"Archive"_s);
        QCOMPARE(lists(), u"Archive(Work)"_s);
        QVERIFY(!tree().isExpanded(row(u"Archive"_s)));
        QCOMPARE(selectedTitle(), u"Today"_s);
        choose(row(u"Work"_s), u"Reopen"_s);
        QCOMPARE(lists(), u"Work"_s);

        choose(section(KWSmartProject::tag()), u"Hide"_s);
        QTRY_VERIFY(!section(KWSmartProject::tag()).isValid());

        m_client->openList(u"Work"_s);
        goTo(row(u"Work"_s));
        QString asked;
        QTimer::singleShot(0, qApp, [&asked] {
            const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box) asked = box->text() + u'/' + box->informativeText();
        });
        answerNextAlert(Qt::Key_Escape);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(asked, u"Delete List/All tasks in the list will be permanently deleted"_s);
        QCOMPARE(lists(), u"Work"_s);
        goTo(row(u"Work"_s));
        answerNextAlert(Qt::Key_Return, u"alertButton0"_s);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(lists(), u"No lists yet"_s);
        QCOMPARE(selectedTitle(), u"Today"_s);
    }
};

ORVANE_TEST(Sidebar_test)
#include "Sidebar_test.moc"
