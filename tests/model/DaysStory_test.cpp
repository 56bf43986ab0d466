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
    const auto context = std::move(*store.kit().store().makeContext());
    return {context->models<KWTask>({.orderBy = "sid"}), context->models<KWChecklistItem>({.orderBy = "sid"}),
            context->models<KWTag>({.orderBy = "sid"})};
}

// What a person does, step by step.
class PersonsDay {
public:
    explicit PersonsDay(StoreFixture &store) : m_store(store) {}

    using Step = Result<void> (PersonsDay::*)();
    static QList<Step> steps()
    {
        using Day = PersonsDay;
        return {&Day::add,    &Day::name,        &Day::write,     &Day::tick,     &Day::undo,
                &Day::tick,   &Day::move,        &Day::undo,      &Day::trash,    &Day::restore,
                &Day::addTag, &Day::putTagBelow, &Day::renameTag, &Day::joinTags, &Day::removeTag,
                &Day::travel, &Day::travel,      &Day::copy,      &Day::merge,    &Day::undo,
                &Day::merge,  &Day::trash,       &Day::emptyTrash};
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

    Result<void> save(const std::function<void(ObjectContext &)> &block)
    {
        return KWCoreDataService{manager()}.sync_save([&block](ObjectContext &context) -> Result<void> {
            block(context);
            return {};
        });
    }
    Result<void> add()
    {
        return save([this](ObjectContext &context) {
            KWTaskModel task = aTask("Water").dueOn("2030-05-01").in(m_list).tagged("errand").model();
            task.userID = m_store.userID();
            KWTag::createNewTagWithName(u"Errand"_s, task.userID, TagUniqueness::MustBeNew, context);
            task.repeatRule = u"FREQ=WEEKLY"_s;
            m_task = context.insert<KWTask>(task).sid();
            task.title = u"Below"_s;
            task.repeatRule.clear();
            task.parentId = m_task;
            context.insert<KWTask>(task);
            KWChecklistItemModel item;
            item.taskID = m_task;
            context.insert<KWChecklistItem>(item);
        });
    }
    Result<void> trash()
    {
        return save([this](ObjectContext &context) {
            KWTask::trashTaskAndDescendants({context.find<KWTask>(m_task)}, context);
        });
    }
    Result<void> name() { return m_editor.setTitle(m_task, u"Water the plants"_s); }
    Result<void> write() { return m_editor.setContent(m_task, u"In the kitchen"_s); }
    Result<void> tick()
    {
        const auto ticked = m_ticker.tick({m_task});
        return ticked ? kept(ticked->undo) : ticked.error();
    }
    Result<void> undo() { return m_undo.undo(manager()); }
    Result<void> move() { return kept(m_mover.move({m_task}, m_otherList, KWTaskMover::From::Lists)); }
    Result<void> restore() { return kept(m_trash.restore({m_task})); }
    Result<void> emptyTrash() { return m_trash.empty(); }
    Result<void> addTag() { return done(m_tags.create({u"Garden"_s})); }
    Result<void> putTagBelow() { return m_tags.setParent(u"errand"_s, u"garden"_s); }
    Result<void> renameTag() { return done(m_tags.rename(u"errand"_s, u"Way"_s)); }
    Result<void> joinTags() { return done(m_tags.rename(u"way"_s, u"garden"_s)); }
    Result<void> removeTag() { return done(m_tags.remove(u"garden"_s)); }
    Result<void> merge() { return kept(m_merger.merge({m_task, m_copy})); }
    Result<void> copy()
    {
        const auto copied = KWTaskCopier{manager(), m_store.kit().center()}.copy({m_task});
        if (copied) m_copy = copied->taskIDs.first();
        return copied ? Result<void>{} : copied.error();
    }
    Result<void> travel() // east, then west
    {
        const CXTimeZone last = m_store.clock.zone();
        m_store.clock.setZone(last == CXTimeZone{} ? "Asia/Tokyo" : "America/New_York");
        const auto adapted =
            save([&last](ObjectContext &context) { adaptDatesToLocalTimeZone(last, context); });
        if (!adapted) m_store.clock.setZone(last);
        return adapted;
    }
    Result<void> kept(const Result<UndoToken> &done)
    {
        if (!done) return done.error();
        m_undo = *done;
        return {};
    }
    template <class Answer>
    static Result<void> done(const Result<Answer> &answered)
    {
        return answered ? Result<void>{} : answered.error();
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
            for (const PersonsDay::Step step : PersonsDay::steps()) {
                if (const Result<void> done = (day.*step)(); !done) {
                    QVERIFY2(writes.hasFailed(), qUtf8Printable(done.error().sentence));
                    QVERIFY(done.error().sentence.endsWith(u'.'));
                    QVERIFY(contentsOf(store) == last);
                    QVERIFY(day.isShownAsStored());
                    QVERIFY((day.*step)());
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
