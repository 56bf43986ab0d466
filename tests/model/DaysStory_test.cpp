#include "model/records/KWChecklistItem.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/KWTagService.h"
#include "model/store/KWTaskCopier.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskMerger.h"
#include "model/store/KWTaskMover.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/KWTrashDataService.h"
#include "model/store/TimeZoneAdaptation.h"
#include "support/FailingWrites.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

struct Contents {
    QList<KWTaskModel> tasks;
    QList<KWChecklistItemModel> items;
    QList<KWTagModel> tags;
    bool operator==(const Contents &) const = default;
};

// As a reader of its own finds them.
Contents contentsOf(StoreFixture &store)
{
    Contents found;
    const auto read = KWCoreDataService{store.kit().manager()}.sync_perform([&found](ObjectContext &context) {
        found = {context.models<KWTask>({.orderBy = "sid"}),
                 context.models<KWChecklistItem>({.orderBy = "sid"}),
                 context.models<KWTag>({.orderBy = "sid"})};
        return Result<void>{};
    });
    if (!read) qFatal("The store cannot be read");
    return found;
}

// What a person does, step by step.
class PersonsDay {
public:
    explicit PersonsDay(StoreFixture &store) : m_store(store) {}

    using Step = std::function<Result<void>()>;
    QList<Step> steps()
    {
        return {[this] { return add(); },
                [this] { return m_editor.setTitle(m_task, u"Water the plants"_s); },
                [this] { return m_editor.setContent(m_task, u"In the kitchen"_s); },
                [this] { return tick(); },
                [this] { return m_undo.undo(manager()); },
                [this] { return tick(); },
                [this] { return kept(m_mover.move({m_task}, m_otherList, KWTaskMover::From::Lists)); },
                [this] { return m_undo.undo(manager()); },
                [this] { return trash(); },
                [this] { return kept(m_trash.restore({m_task})); },
                [this] { return done(m_tags.create({u"Garden"_s})); },
                [this] { return m_tags.setParent(u"errand"_s, u"garden"_s); },
                [this] { return done(m_tags.rename(u"errand"_s, u"Way"_s)); },
                [this] { return done(m_tags.rename(u"way"_s, u"garden"_s)); }, // the two become one
                [this] { return m_tags.remove(u"garden"_s); },
                [this] { return travel("Asia/Tokyo"); },
                [this] { return travel("America/New_York"); },
                [this] { return copy(); },
                [this] {
                    return kept(m_merger.merge({m_task, m_copy}));
                },
                [this] { return m_undo.undo(manager()); },
                [this] {
                    return kept(m_merger.merge({m_task, m_copy}));
                },
                [this] { return trash(); },
                [this] { return m_trash.empty(); }};
    }

    bool isShownAsStored()
    {
        const Contents stored = contentsOf(m_store);
        for (const KWTaskModel &each : stored.tasks)
            if (m_store.context().find<KWTask>(each.sid)->model() != each) return false;
        return !m_store.context().hasChanges();
    }

private:
    KWCoreDataManager &manager() { return m_store.kit().manager(); }

    Result<void> add()
    {
        return KWCoreDataService{manager()}.sync_save([this](ObjectContext &context) -> Result<void> {
            KWTaskModel task = aTask("Water").dueOn("2030-05-01").in(m_list).model();
            task.userID = m_store.userID();
            task.repeatRule = u"FREQ=WEEKLY"_s;
            task.tags = {
                KWTag::createNewTagWithName(u"Errand"_s, m_store.userID(), TagUniqueness::MustBeNew, context)
                    ->model()
                    .name};
            m_task = context.insert<KWTask>(task).sid();
            task.title = u"Below"_s;
            task.repeatRule.clear();
            task.parentId = m_task;
            context.insert<KWTask>(task);
            KWChecklistItemModel item;
            item.taskID = m_task;
            context.insert<KWChecklistItem>(item);
            return {};
        });
    }
    Result<void> trash()
    {
        return KWCoreDataService{manager()}.sync_save([this](ObjectContext &context) -> Result<void> {
            KWTask::trashTaskAndDescendants({context.find<KWTask>(m_task)}, context);
            return {};
        });
    }
    Result<void> kept(const Result<UndoToken> &done)
    {
        if (!done) return done.error();
        m_undo = *done;
        return {};
    }
    static Result<void> done(const Result<QString> &named) { return named ? Result<void>{} : named.error(); }
    Result<void> travel(const char *zone)
    {
        const CXTimeZone last = m_store.clock.zone();
        m_store.clock.setZone(zone);
        const auto adapted =
            KWCoreDataService{manager()}.sync_save([&last](ObjectContext &context) -> Result<void> {
                adaptDatesToLocalTimeZone(last, context);
                return {};
            });
        if (!adapted) m_store.clock.setZone(last);
        return adapted;
    }
    Result<void> copy()
    {
        const Result<QString> copied = KWTaskCopier{manager(), m_store.kit().center()}.copy(m_task);
        if (copied) m_copy = *copied;
        return done(copied);
    }
    Result<void> tick()
    {
        const auto ticked = m_ticker.tick(m_task);
        return ticked ? kept(ticked->undo) : ticked.error();
    }

    StoreFixture &m_store;
    QString m_list = m_store.makeList(u"Home"_s);
    QString m_otherList = m_store.makeList(u"Garden"_s);
    KWTaskEditor m_editor{manager()};
    KWTaskTicker m_ticker{manager()};
    KWTaskMover m_mover{manager()};
    KWTrashDataService m_trash{manager(), m_store.account()};
    KWTagService m_tags{manager(), m_store.userID()};
    KWTaskMerger m_merger{manager()};
    QString m_task;
    QString m_copy;
    UndoToken m_undo;
};

} // namespace

class DaysStory_test : public QObject {
    Q_OBJECT

    // Lives the day with one write that fails; what failed is done again. Answers whether any failed.
    void live(int failingWrite, bool &hasFailed)
    {
        FailingWrites writes;
        StoreFixture store;
        Contents last;
        {
            PersonsDay day{store};
            last = contentsOf(store);
            writes.failAt(failingWrite);
            for (const PersonsDay::Step &step : day.steps()) {
                if (const Result<void> done = step(); !done) {
                    QVERIFY2(writes.hasFailed(), qUtf8Printable(done.error().sentence));
                    QVERIFY(done.error().sentence.endsWith(u'.'));
                    QVERIFY(contentsOf(store) == last);
                    QVERIFY(day.isShownAsStored());
                    QVERIFY(step());
                }
                QVERIFY(contentsOf(store) != last);
                last = contentsOf(store);
                QVERIFY(day.isShownAsStored());
            }
        }
        hasFailed = writes.hasFailed();
        writes.failAt(0);
        store.reopen();
        QVERIFY(contentsOf(store) == last);
        QCOMPARE(last.tasks.size(), 2); // the finished occurrence and what was below it
        QCOMPARE(store.context().number(
                     "SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
                 0);
    }

private Q_SLOTS:
    void losesNothingWhicheverWriteFails()
    {
        int failingWrite = 0;
        bool hasFailed = true;
        while (hasFailed && !QTest::currentTestFailed()) {
            live(++failingWrite, hasFailed);
            if (QTest::currentTestFailed()) qWarning("when write %d failed", failingWrite);
        }
        QVERIFY(failingWrite > 50);
    }
};

ORVANE_TEST(DaysStory_test)
#include "DaysStory_test.moc"
