#include "app/KWDelayDeleteManager.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct RecordingToast final : ToastPort {
    Offer showUndo(const QString &message, std::function<void()> undo) override
    {
        lines << message;
        press = std::move(undo);
        return ++lastOffer;
    }
    void showFailure(const QString &sentence) override { lines << sentence; }
    void endUndo(Offer offer, std::function<void()> restore) override
    {
        if (offer == lastOffer) press = {};
        later = std::move(restore);
    }
    bool isUndoHeld(Offer offer) const override { return isHeld && offer == lastOffer; }

    QStringList lines;
    std::function<void()> press;
    std::function<void()> later; // what takes back the last delete, once it is done
    bool isHeld = false;
    Offer lastOffer = 0;
};

} // namespace

class KWDelayDeleteManager_test : public QObject {
    Q_OBJECT

    struct Scene {
        Scene()
        {
            observation = store.kit().center().addObserver(
                delayDeleteStatusChangedNotification, [this](const KWNotification &each) {
                    statuses << each.userInfo.value(u"status"_s).toInt();
                    told = each.userInfo.value(u"taskIDs"_s).toStringList();
                });
        }
        QString make(const QString &title) { return aTask(qUtf8Printable(title)).savedIn(store); }
        bool isTrashed(const QString &id) { return store.context().find<KWTask>(id)->model().isTrashed; }

        StoreFixture store;
        RecordingToast toast;
        KWSyncManager sync;
        KWDelayDeleteManager manager{
            {store.clock, store.kit().manager(), store.kit().center(), store.kit().bus(), sync, toast}};
        KWNotificationCenter::Observation observation;
        QList<int> statuses;
        QStringList told;
    };
    enum { Started, Undone, Committed };

private Q_SLOTS:
    void namesWhatIsDeleted()
    {
        Scene scene;
        const QString astronaut = u"👩‍🚀"_s;
        for (const auto &[title, text] : {std::pair{u"0123456789"_s, u"0123456789 deleted"_s},
                                          {u"0123456789a"_s, u"0123456789... deleted"_s},
                                          {astronaut.repeated(11), astronaut.repeated(10) + u"... deleted"_s},
                                          {QString{}, u"No Title deleted"_s}}) {
            scene.manager.deleteTasks({u"gone"_s, scene.make(title)});
            QCOMPARE(scene.toast.lines.last(), text);
        }
        scene.manager.deleteTasks({scene.make(u"a"_s), scene.make(u"b"_s)});
        QCOMPARE(scene.toast.lines.last(), u"Deleted"_s);
    }

    void hidesAtOnceAndDeletesWhenTheTimeIsOver()
    {
        Scene scene;
        bool isOverWhenTold = false;
        const auto registration = scene.store.kit().bus().registerEventBus(
            [&](const StoreChange &) { isOverWhenTold = !scene.manager.isToastShown(); });
        const QString parent = scene.make(u"Parent"_s);
        const QString child = scene.make(u"Child"_s);
        setSaved<KWTask>(scene.store, child, &KWTaskModel::parentId, parent);
        scene.manager.deleteTasks({parent});
        QVERIFY(scene.manager.isToastShown() && scene.manager.containsTask(child));
        QCOMPARE(scene.told, QStringList({parent, child}));

        scene.store.clock.advance(KWDelayDeleteManager::undoTime - 1ms);
        QVERIFY(!scene.isTrashed(parent));
        scene.toast.isHeld = true;
        scene.store.clock.advance(10s);
        QVERIFY(!scene.isTrashed(parent));
        scene.toast.isHeld = false;
        scene.store.clock.advance(KWDelayDeleteManager::undoTime);
        QVERIFY(scene.isTrashed(parent) && scene.isTrashed(child) && isOverWhenTold);
        QVERIFY(!scene.manager.isToastShown() && !scene.manager.containsTask(child) && !scene.toast.press);
        QCOMPARE(scene.statuses, (QList<int>{Started, Committed}));

        scene.manager.deleteTasks({scene.make(u"Next"_s)});
        scene.toast.showUndo(u"Completed"_s, [] {});
        scene.toast.isHeld = true; // the keyboard is in the offer of another
        scene.store.clock.advance(KWDelayDeleteManager::undoTime);
        QVERIFY(!scene.manager.isToastShown() && scene.toast.press);
    }

    void undoesAndCommitsTheOneBefore()
    {
        Scene scene;
        const QString first = scene.make(u"First"_s), second = scene.make(u"Second"_s),
                      third = scene.make(u"Third"_s);
        scene.manager.deleteTasks({first});
        scene.manager.deleteTasks({second});
        QVERIFY(scene.isTrashed(first));
        QVERIFY(!scene.manager.containsTask(first) && scene.manager.containsTask(second));
        scene.toast.press();
        scene.store.clock.advance(10s);
        QVERIFY(!scene.isTrashed(second) && !scene.manager.containsTask(second));
        QCOMPARE(scene.statuses, (QList<int>{Started, Committed, Started, Undone}));

        scene.manager.deleteTasks({second});
        scene.store.kit().center().post(KWUserDidSignOutNotification);
        QVERIFY(scene.isTrashed(second));

        scene.manager.deleteTasks({third});
        QVERIFY(scene.manager.deleteTaskAndDescendantsForever(third));
        QVERIFY(!scene.store.context().find<KWTask>(third) && !scene.manager.isToastShown());
    }

    void showsAgainWhatCannotBeDeleted()
    {
        Scene scene;
        const QString id = scene.make(u"Rent"_s);
        const QString inbox = KWProject::inboxIDOfUser(scene.store.userID());
        setSaved<KWProject>(scene.store, inbox, &KWProjectModel::permission, KWProjectPermissionRead);
        scene.manager.deleteTasks({id});
        QVERIFY(!scene.manager.containsTask(id) && scene.toast.lines.takeLast().endsWith(u'.'));
        setSaved<KWProject>(scene.store, inbox, &KWProjectModel::permission, KWProjectPermissionWrite);

        scene.manager.deleteTasks({id});
        Connection &connection = **scene.store.kit().store().borrowConnection(); // the one lent next
        connection.execute("PRAGMA query_only = 1");
        scene.manager.commitPending();
        QVERIFY(!scene.isTrashed(id) && !scene.manager.containsTask(id));
        QCOMPARE(scene.statuses, (QList<int>{Started, Undone}));
        QVERIFY(scene.toast.lines.last().endsWith(u'.'));
        connection.execute("PRAGMA query_only = 0");
        QVERIFY(!scene.toast.later); // nothing was done that could be taken back
    }

    void callsTheBlocksOfChecklistsAndEvents()
    {
        Scene scene;
        QStringList calls;
        for (const int count : {0, 1, 2}) {
            scene.manager.deleteChecklistItemsWithCount(
                count, scene.toast, [&] { calls << u"delete"_s; }, [&] { calls << u"undo"_s; },
                [&] { calls << u"timeout"_s; });
            if (count != 1) continue;
            scene.store.clock.advance(5s);
            scene.toast.later();
            QCOMPARE(calls.takeLast(), u"undo"_s);
        }
        scene.toast.press();
        QCOMPARE(calls.join(u' '), u"delete timeout delete undo"_s);
        QVERIFY(!scene.toast.later); // it is taken back already
        QCOMPARE(scene.toast.lines, QStringList({u"Deleted"_s, u"Deleted"_s}));

        scene.manager.deleteEvents({u"event"_s}, u"Meeting"_s, [] { return Result<void>{}; });
        QVERIFY(scene.manager.containsEvent(u"event"_s) && !scene.manager.containsTask(u"event"_s));
        QCOMPARE(scene.toast.lines.last(), u"Meeting deleted"_s);
        scene.manager.commitPending();
        QVERIFY(scene.manager.delayDeletedEventSet().isEmpty());
    }

    void canBeTakenBackOnceItIsDone()
    {
        Scene scene;
        const QString id = scene.make(u"Idea"_s);
        scene.manager.deleteTasks({id});
        scene.toast.press(); // in time
        QVERIFY(!scene.toast.later);
        scene.manager.deleteTasks({id});
        scene.store.clock.advance(1min);
        QVERIFY(scene.isTrashed(id));
        scene.toast.later();
        QVERIFY(!scene.isTrashed(id));
    }
};

ORVANE_TEST(KWDelayDeleteManager_test)
#include "KWDelayDeleteManager_test.moc"
