#include "model/events/NotificationNames.h"
#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskCopier.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskMerger.h"
#include "model/store/KWTaskMover.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/KWTrashDataService.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Moving, duplicating, merging, and the trash.
class TaskOperations_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_home;
    QString m_work;

    KWCoreDataManager &manager() { return m_store->kit().manager(); }
    KWTask &task(const QString &id) { return *m_store->context().find<KWTask>(id); }
    QString make(const char *title, const QString &parentID = {}, int order = 0)
    {
        TaskBuilder builder = aTask(title).in(m_home).ordered(order * KWSortOrderStep);
        const QString id = builder.with(&KWTaskModel::parentId, parentID).savedIn(*m_store);
        if (parentID.isEmpty()) return id;
        const QStringList children = task(parentID)->childIds + QStringList{id};
        setSaved<KWTask>(*m_store, parentID, &KWTaskModel::childIds, children);
        return id;
    }
    // "Title<Parent" in their manual order.
    QString tasksOf(const QString &list, const char *where = "isTrashed = 0")
    {
        const std::string condition = std::string{"projectID = ? AND isDeleted = 0 AND "} + where;
        const auto found = m_store->context().fetch<KWTask>(
            {.where = condition.c_str(), .values = {list}, .orderBy = "sortOrder, id"});
        return joined(found, [this](const KWTask *each) {
            const KWTask *parent = m_store->context().find<KWTask>((*each)->parentId);
            return (*each)->title + (parent ? u"<"_s + (*parent)->title : QString{});
        });
    }
    QString trash() { return tasksOf(m_home, "isTrashed = 1"); }
    Result<KWTaskCopier::Copied> copy(const QStringList &ids)
    {
        return KWTaskCopier{manager(), m_store->kit().center()}.copy(ids);
    }
    Result<UndoToken> merge(const QStringList &ids) { return KWTaskMerger{manager()}.merge(ids); }
    Result<UndoToken> move(const QStringList &ids, const QString &list)
    {
        return KWTaskMover{manager()}.move(ids, list, KWTaskMover::From::Lists);
    }
    void throwAway(const QStringList &ids)
    {
        saved(*m_store, [&ids](ObjectContext &context) {
            for (const QString &each : ids)
                KWTask::trashTaskAndDescendants({context.find<KWTask>(each)}, context);
        });
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_home = m_store->makeList(u"Home"_s);
        m_work = m_store->makeList(u"Work"_s);
    }

    void movesToTheTopWithAllThatIsBelow()
    {
        const QString parent = make("Parent", {}, 1);
        const QString child = make("Child", parent, 2);
        make("Leaf", child, 3);
        const QString other = make("Other", {}, 4);
        aTask("There").in(m_work).savedIn(*m_store);
        setSaved<KWTask>(*m_store, child, &KWTaskModel::columnID, u"column"_s);

        const auto moved = move({other, child}, m_work);
        QVERIFY(moved);
        QCOMPARE(tasksOf(m_home), u"Parent"_s);
        QCOMPARE(tasksOf(m_work), u"Other Child There Leaf<Child"_s);
        QVERIFY(task(parent)->childIds.isEmpty() && task(child)->columnID.isEmpty());
        QVERIFY(move({other, child}, m_work)->isEmpty()); // there already
        const auto setHomeDeleted = [this](bool isDeleted) {
            saved(*m_store, [&](ObjectContext &context) {
                KWProject *home = context.find<KWProject>(m_home);
                isDeleted ? home->markDelete() : home->unmarkDelete();
            });
        };
        setHomeDeleted(true);
        QVERIFY(!moved->undo(manager())); // nowhere to go back to
        setHomeDeleted(false);
        QVERIFY(moved->undo(manager()));
        QCOMPARE(tasksOf(m_home), u"Parent Child<Parent Leaf<Child Other"_s);
        QCOMPARE(task(child)->columnID, u"column"_s);
    }

    void movesOnlyWhereItMay()
    {
        const QString id = make("Task");
        const auto isRefusedTo = [&](const QString &list) {
            return isRefused(move({id}, list)) && tasksOf(m_home) == u"Task";
        };
        for (const QString &list : {m_home, m_work}) {
            setSaved<KWProject>(*m_store, list, &KWProjectModel::permission, KWProjectPermissionComment);
            QVERIFY(isRefusedTo(m_work));
            setSaved<KWProject>(*m_store, list, &KWProjectModel::permission, KWProjectPermissionWrite);
        }
        setSaved<KWProject>(*m_store, m_work, &KWProjectModel::closed, true);
        QVERIFY(isRefusedTo(m_work) && isRefusedTo(u"gone"_s));
    }

    void duplicatesWithItsParts()
    {
        const QString parent = make("Parent", {}, 1);
        make("Open", parent, 3);
        setSaved<KWTask>(*m_store, make("Done", parent, 4), &KWTaskModel::status, KWTaskStatusCompleted);
        make("Next", {}, 2);
        KWTaskEditor editor{manager()};
        QVERIFY(editor.tickItem(*editor.addItem(parent, {}, u"item"_s)));
        saved(*m_store, [&parent](ObjectContext &context) {
            KWAttachmentModel attachment;
            attachment.taskID = parent;
            attachment.fileName = u"plan.pdf"_s;
            context.insert<KWAttachment>(attachment);
            context.find<KWTask>(parent)->updateStatus(KWTaskStatusCompleted);
        });
        QString announced;
        const auto observation = m_store->kit().center().addObserver(
            KWWillDuplicateTaskNotification, [&](const auto &each) { announced = each.object.toString(); });

        const auto copied = copy({parent});
        QCOMPARE(announced, parent);
        QCOMPARE(tasksOf(m_home), u"Parent Parent Next Open<Parent Open<Parent Done<Parent"_s);
        QCOMPARE(task(copied->taskIDs.first())->status, KWTaskStatusOpen);
        QCOMPARE(task(copied->taskIDs.first()).orderedChecklistItems().size(), 1);
        QCOMPARE(m_store->context().models<KWAttachment>({}).size(), 2);
        for (int i = 0; i < 45; ++i) // until there is no room between two
            QVERIFY(copy({parent}));
        QVERIFY(tasksOf(m_home).startsWith(u"Parent Parent"_s));
        for (const char *each : {"A", "B", "C"}) // at one place
            make(each, {}, -1);
        QStringList ids;
        for (const KWTask *each : m_store->context().fetch<KWTask>({.where = "title IN ('A', 'B', 'C')"}))
            ids.prepend(each->sid());
        const auto several = copy(ids);
        QVERIFY(tasksOf(m_home).startsWith(u"A A B B C C Parent"_s));
        QVERIFY(several->undo.undo(manager()));
        QVERIFY(tasksOf(m_home).startsWith(u"A B C Parent"_s));
    }

    void duplicatesNoRemindersThatWereMissed()
    {
        TaskBuilder builder = aTask("Task").startingAt("2030-05-01 10:00").in(m_home);
        builder.with(&KWTaskModel::reminders, {u"TRIGGER:PT0S"_s, u"TRIGGER:-PT30M"_s});
        builder.with(&KWTaskModel::snoozedRemindDate, at("2030-05-01 09:45"));
        builder.with(&KWTaskModel::serverStartDate, at("2030-05-01 09:00"));
        const QString id = builder.withItem("item", "2030-05-01 09:10").savedIn(*m_store);
        m_store->clock.advance(std::chrono::minutes{40});
        const KWTask &copied = task(copy({id})->taskIDs.first());
        QCOMPARE(copied->remindTime, copied->startDate);
        QVERIFY(!copied->snoozedRemindDate && !copied->serverStartDate);
        QVERIFY(!copied.orderedChecklistItems().first()->model().remindTime);
    }

    void refusesWhatIsInTheTrash()
    {
        const QString live = make("Live");
        const QString gone = make("Gone");
        throwAway({gone});
        QVERIFY(!copy({live, gone}) && !merge({live, gone}) && !merge({gone, live}) && !move({gone}, m_work));
        QVERIFY(!KWTaskTicker{manager()}.tick({gone}) && !KWTaskTicker{manager()}.tick({u"unknown"_s}));
        QCOMPARE(tasksOf(m_home), u"Live"_s);
    }

    void mergesWithoutLosingAWord()
    {
        TaskBuilder one = aTask("First").startingAt("2030-06-01 10:00").in(m_home);
        one.with(&KWTaskModel::tags, {u"a"_s, u"b"_s}).with(&KWTaskModel::content, u"one"_s);
        TaskBuilder two = aTask("Second").dueOn("2030-05-20").prioritized(KWTaskPriorityHigh).in(m_home);
        two.with(&KWTaskModel::tags, {u"b"_s, u"c"_s}).with(&KWTaskModel::content, u"two"_s);
        two.with(&KWTaskModel::reminders, {u"TRIGGER:PT9H"_s}).ordered(2);
        two.with(&KWTaskModel::status, KWTaskStatusAbandoned);
        const QString first = one.savedIn(*m_store), second = two.savedIn(*m_store);
        make("Below", second, 3);
        make("First child", first, 4);
        KWTaskEditor editor{manager()};
        QVERIFY(editor.addItem(second, {}, u"item"_s));
        const auto merged = merge({first, second});
        QVERIFY(merged);

        const KWTaskModel task = this->task(first).model();
        QCOMPARE(task.desc, u"one\n\ntwo"_s);
        QCOMPARE(task.tags, QStringList({u"a"_s, u"b"_s, u"c"_s}));
        QCOMPARE(task.priority, KWTaskPriorityHigh);
        QCOMPARE(task.startDate, at("2030-05-20 00:00"));
        QCOMPARE(task.reminders, QStringList{u"TRIGGER:PT9H"_s});
        const auto read = editor.read(first);
        QCOMPARE(joined(read->items, &KWChecklistItemModel::title), u"Second item"_s);
        QVERIFY(read->items.first().isCompleted());
        QCOMPARE(tasksOf(m_home), u"First Below<First First child<First"_s);
        QCOMPARE(trash(), u"Second"_s);
        QVERIFY(merged->undo(manager()));
        QCOMPARE(tasksOf(m_home), u"First Second Below<Second First child<First"_s);
        QVERIFY(!merge({first, first}));
    }

    void mergesAFamilyWithoutACircle()
    {
        const QString root = make("Root");
        const QString top = make("Top", root, 1);
        const QString last = make("Last", root, 5);
        const QString low = make("Low", make("Middle", top, 2), 3);
        make("Child", low, 4);
        setSaved<KWTask>(*m_store, low, &KWTaskModel::kind, KWTaskKindNote);
        QVERIFY(merge({low, top}));
        QCOMPARE(tasksOf(m_home), u"Root Middle<Low Low<Root Child<Low Last<Root"_s);
        QCOMPARE(task(root)->childIds, QStringList({low, last})); // in the place of the highest
        QCOMPARE(task(low)->content, u"Top"_s);
    }

    void restoresFromTheTrash()
    {
        const QString parent = make("Parent", {}, 1);
        const QString child = make("Child", parent, 2);
        make("Leaf", child, 3);
        KWTrashDataService service{manager(), m_store->account()};
        throwAway({parent});
        QCOMPARE(trash(), u"Parent Child<Parent Leaf<Child"_s);
        QVERIFY(service.restore({parent}));
        QCOMPARE(tasksOf(m_home), u"Parent Child<Parent Leaf<Child"_s);
        throwAway({child});
        QVERIFY(service.restore({child})); // back below its parent
        QCOMPARE(task(child)->parentId, parent);
        throwAway({parent});
        QVERIFY(service.restore({child})); // the parent stays in the trash
        QCOMPARE(tasksOf(m_home), u"Child Leaf<Child"_s);
        QCOMPARE(trash(), u"Parent"_s);

        setSaved<KWProject>(*m_store, m_home, &KWProjectModel::closed, true);
        QVERIFY(service.restore({parent}));
        QVERIFY(task(parent).project()->isInbox());
        throwAway({parent});
        QVERIFY(service.restore({parent}, m_work));
        QCOMPARE(tasksOf(m_work), u"Parent"_s);
    }

    void showsTheTrashPageByPage()
    {
        QStringList ids;
        for (int i = 0; i < 70; ++i)
            ids << make(qPrintable(u"Task %1"_s.arg(i)));
        throwAway(ids);
        KWTrashDataService service{manager(), m_store->account()};
        QVERIFY(service.refresh());
        QCOMPARE(service.tasks().size(), KWTrashDataService::pageSize);
        QVERIFY(service.deleteForever({ids[69], ids[68], ids[21]})); // between two pages
        throwAway({make("Another")});
        QVERIFY(service.hasMore() && service.loadNextPage());
        QVERIFY(!service.hasMore());
        QCOMPARE(service.tasks().first().title, u"Another"_s);
        QStringList shown;
        for (const KWTaskModel &each : service.tasks().mid(1))
            shown.prepend(each.sid);
        ids.removeIf([this](const QString &each) { return !m_store->context().find<KWTask>(each); });
        QCOMPARE(shown, ids); // each once, none left out
    }

    void deletesForGoodOnlyFromTheTrashAndWhereItMay()
    {
        const QString live = make("Live");
        const QString read = make("Read");
        const QString gone = aTask("Gone").in(m_work).savedIn(*m_store);
        throwAway({read, gone});
        setSaved<KWProject>(*m_store, m_home, &KWProjectModel::permission, KWProjectPermissionRead);
        KWTrashDataService service{manager(), m_store->account()};
        QVERIFY(isRefused(service.deleteForever({gone, read}), u"Home"));
        QVERIFY(service.deleteForever({live}));
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks"), 3);
        QVERIFY(service.empty() && !service.empty());
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks"), 2);
        QCOMPARE(tasksOf(m_home) + u' ' + trash(), u"Live Read"_s);
    }
};

ORVANE_TEST(TaskOperations_test)
#include "TaskOperations_test.moc"
