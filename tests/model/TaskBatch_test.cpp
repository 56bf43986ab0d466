#include "model/store/TaskBatch.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskTicker.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <functional>

using namespace Qt::StringLiterals;

class TaskBatch_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00"};
    TaskBatch m_batch{m_store.kit().manager()};

    const KWTaskModel &taskWith(const QString &id) { return m_store.context().find<KWTask>(id)->model(); }

private Q_SLOTS:
    void changesAllInOneSaveAndTakesAllBack()
    {
        const QString one = aTask("One").startingAt("2030-04-20 16:00").tagged("home").savedIn(m_store);
        const QString two = aTask("Two").prioritized(KWTaskPriorityHigh).savedIn(m_store);
        const QStringList both{one, two, u"gone"_s};
        const Day today = m_store.clock.today();
        const std::function<Result<UndoToken>()> changes[] = {
            [&] { return m_batch.setDay(both, today); },
            [&] { return m_batch.clearDate(both); },
            [&] { return m_batch.setPriority(both, KWTaskPriorityLow); },
            [&] { return m_batch.setTag(both, u"errand"_s, TaskBatch::Tagging::Add); },
            [&] { return m_batch.setTag(both, u"home"_s, TaskBatch::Tagging::Remove); },
            [&] { return m_batch.setPinned(both, TaskBatch::Pinning::Pin); },
            [&] { return m_batch.setKind(both, KWTaskKindNote); },
        };
        int saves = 0;
        const auto registration =
            m_store.kit().bus().registerEventBus([&saves](const StoreChange &) { ++saves; });
        for (const auto &change : changes) {
            const KWTaskModel before = taskWith(one);
            saves = 0;
            const auto done = change();
            QVERIFY(done && !done->isEmpty());
            QCOMPARE(saves, 1);
            QVERIFY(done->undo(m_store.kit().manager()));
            QCOMPARE(taskWith(one).startDate, before.startDate);
            QCOMPARE(taskWith(one).tags, before.tags);
            QCOMPARE(taskWith(one).priority, before.priority);
            QCOMPARE(taskWith(one).pinnedDate, before.pinnedDate);
            QCOMPARE(taskWith(one).kind, before.kind);
        }
        for (const auto &change : changes)
            QVERIFY(change());
        QVERIFY(!taskWith(one).startDate && taskWith(one).pinnedDate && taskWith(two).pinnedDate);
        QCOMPARE(taskWith(one).tags, QStringList{u"errand"_s});
        QCOMPARE(taskWith(two).priority, KWTaskPriorityLow);
        QVERIFY(m_batch.setPriority(both, KWTaskPriorityLow)->isEmpty());
        QVERIFY(m_batch.setDay({one, two}, today));
        QCOMPARE(taskWith(one).startDate, taskWith(two).startDate);
    }

    void changesChecklistItemsWithTasks()
    {
        const QString task = aTask("Task").savedIn(m_store);
        const QString owner = aTask("Owner").withItem("Item", "2030-04-20 16:00").savedIn(m_store);
        const auto item = [this] { return m_store.context().models<KWChecklistItem>({}).first(); };
        const KWChecklistItemModel before = item();
        const QStringList both{task, before.sid};
        KWTaskTicker ticker{m_store.kit().manager()};
        const auto isAsBefore = [&] {
            return item().startDate == before.startDate && item().status == before.status &&
                   !item().isDeleted && !taskWith(task).startDate && !taskWith(task).isTrashed &&
                   taskWith(task).status == KWTaskStatusOpen;
        };
        const auto takesBack = [&](const UndoToken &done) {
            return done.undo(m_store.kit().manager()) && isAsBefore();
        };

        auto done = m_batch.setDay(both, m_store.clock.today());
        QCOMPARE(item().startDate, at("2030-05-01 16:00"));
        QCOMPARE(taskWith(task).startDate, at("2030-05-01 00:00"));
        QVERIFY(takesBack(*done));
        done = m_batch.clearDate(both);
        QVERIFY(!item().startDate);
        QVERIFY(m_batch.setDay({before.sid}, m_store.clock.today()));
        QVERIFY(item().isAllDay && item().startDate == at("2030-05-01 00:00"));
        setSaved<KWChecklistItem>(m_store, before.sid, &KWChecklistItemModel::startDate, before.startDate);
        setSaved<KWChecklistItem>(m_store, before.sid, &KWChecklistItemModel::isAllDay, false);

        done = m_batch.remove(both);
        QVERIFY(taskWith(task).isTrashed && item().isDeleted);
        QVERIFY(takesBack(*done));
        auto ticked = ticker.tick(both);
        QVERIFY(item().isCompleted() && item().completionDate && taskWith(task).status != KWTaskStatusOpen);
        QVERIFY(takesBack(ticked->undo));
        QVERIFY(ticker.updateStatus(KWTaskStatusAbandoned, both));
        QCOMPARE(item().status, KWTaskStatusOpen);
        QVERIFY(ticker.tick({before.sid}) && item().isCompleted());
        QVERIFY(ticker.tick({before.sid}) && !item().isCompleted());

        QVERIFY(isRefused(m_batch.setPriority({before.sid}, KWTaskPriorityHigh)));
        setSaved<KWTask>(m_store, owner, &KWTaskModel::isTrashed, true);
        QVERIFY(isRefused(m_batch.setDay({before.sid}, m_store.clock.today()), u"trash"));
        QVERIFY(isRefused(ticker.tick({before.sid}), u"trash"));
    }

    void changesNoneWhereOneMayNotBeChanged()
    {
        const QString list = m_store.makeList(u"Office"_s);
        const QString free = aTask("Free").savedIn(m_store);
        const QString bound = aTask("Bound").in(list).savedIn(m_store);
        const QString thrown = aTask("Thrown").inState(u"trashed"_s, {}).savedIn(m_store);
        setSaved<KWProject>(m_store, list, &KWProjectModel::permission, KWProjectPermissionRead);
        KWTaskTicker ticker{m_store.kit().manager()};
        QVERIFY(isRefused(m_batch.setPriority({free, bound}, KWTaskPriorityHigh), u"Office"));
        QVERIFY(isRefused(m_batch.setPriority({free, thrown}, KWTaskPriorityHigh), u"trash"));
        QVERIFY(isRefused(m_batch.setPriority({u"gone"_s}, KWTaskPriorityHigh)));
        QVERIFY(isRefused(ticker.updateStatus(KWTaskStatusCompleted, {free, bound}), u"Office"));
        QCOMPARE(taskWith(free).priority, KWTaskPriorityNone);
        QCOMPARE(taskWith(free).status, KWTaskStatusOpen);
    }

    void completesSeveralWithWhatIsBelowThem()
    {
        const QString parent = aTask("Parent").savedIn(m_store);
        const QString child = aTask("Child").with(&KWTaskModel::parentId, parent).savedIn(m_store);
        const QString other = aTask("Other").savedIn(m_store);
        KWTaskTicker ticker{m_store.kit().manager()};
        const auto done = ticker.updateStatus(KWTaskStatusCompleted, {child, parent, other, u"gone"_s});
        QVERIFY(done);
        for (const QString &each : {parent, child, other})
            QCOMPARE(taskWith(each).status, KWTaskStatusCompleted);
        QVERIFY(ticker.undo(done->undo));
        for (const QString &each : {parent, child, other})
            QCOMPARE(taskWith(each).status, KWTaskStatusOpen);
    }
};

ORVANE_TEST(TaskBatch_test)
#include "TaskBatch_test.moc"
