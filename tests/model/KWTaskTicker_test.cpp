#include "model/store/KWTaskTicker.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWComment.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWTask.h"
#include "model/records/TaskRepetition.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

// Everything that is stored of tasks and checklists, but for the marks of sync.
template <class Record>
QList<typename Record::Model> contents(StoreFixture &store)
{
    auto found = store.context().models<Record>({.orderBy = "sid"});
    for (auto &each : found) {
        each.modifiedTime.reset();
        each.syncStatus = {};
        each.pendingChanges = {};
    }
    return found;
}

// As the tables write it.
QString textOf(const TaskRepetition &next, const KWTaskModel &task, const CXTimeZone &zone)
{
    const auto text = [&](Instant instant) {
        const LocalTime local = zone.toLocal(instant);
        if (task.isAllDay) return TimeText::fromDay(std::chrono::floor<std::chrono::days>(local));
        return TimeText::fromLocalTime(local).replace(u'T', u' ').chopped(3);
    };
    const std::chrono::milliseconds last{task.isAllDay ? 1 : 0};
    return text(next.startDate) + (next.endDate ? u" .. "_s + text(*next.endDate - last) : QString{});
}

} // namespace

class KWTaskTicker_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    KWTaskTicker ticker() { return KWTaskTicker{m_store->kit().manager()}; }
    KWTaskModel task(const QString &id) { return m_store->context().find<KWTask>(id)->model(); }

    KWTaskModel copyOf(const QString &id)
    {
        const SqlCondition copies{.where = "repeatTaskID = ? AND isDeleted = 0", .values = {id}};
        return m_store->context().models<KWTask>(copies).value(0);
    }
    // Its checklist and subtasks with their status, the subtasks with their day.
    QString partsOf(const QString &taskID)
    {
        KWTask &parent = *m_store->context().find<KWTask>(taskID);
        const auto item = [](const KWChecklistItem *each) {
            return u"%1 %2"_s.arg((*each)->title).arg((*each)->status);
        };
        const auto subtask = [](const KWTask *each) {
            const auto date = (*each)->startDate;
            return u"%1 %2 %3"_s.arg((*each)->title)
                .arg((*each)->status)
                .arg(date ? TimeText::fromDay(CXTimeZone{}.dayOf(*date)) : u"-"_s);
        };
        return joined(parent.orderedChecklistItems(), item) + u", "_s +
               joined(KWTask::children(parent, m_store->context()), subtask);
    }
    QString addItem(const QString &taskID, const QString &title)
    {
        return *KWTaskEditor{m_store->kit().manager()}.addItem(taskID, u"last"_s, title);
    }
    // A weekly task with a checklist and two subtasks, one of them done.
    QString makeWeeklyReview()
    {
        TaskBuilder review = aTask("Review").dueOn("2030-05-01").tagged("work");
        review.with(&KWTaskModel::content, u"All lists"_s).with(&KWTaskModel::repeatRule, u"FREQ=WEEKLY"_s);
        review.with(&KWTaskModel::reminders, {u"TRIGGER:PT9H"_s});
        review.with(&KWTaskModel::snoozedRemindDate, at("2030-05-01 10:00"));
        const QString id = review.with(&KWTaskModel::pinnedDate, at("2030-04-01 10:00")).savedIn(*m_store);
        addItem(id, u"Inbox"_s);
        if (!KWTaskEditor{m_store->kit().manager()}.tickItem(addItem(id, u"Lists"_s))) qFatal("No tick");
        TaskBuilder print = aTask("Print").dueOn("2030-04-30").with(&KWTaskModel::parentId, id);
        print.savedIn(*m_store);
        TaskBuilder file = aTask("File").completedAt("2030-05-01 08:00").with(&KWTaskModel::parentId, id);
        file.ordered(1).savedIn(*m_store);
        return id;
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "UTC"); }

    void findsTheNextOccurrence_data() { addCaseRows("model/repetitions.txt", 7); }

    void findsTheNextOccurrence()
    {
        QFETCH(QStringList, cells);
        const QByteArray zone = cells.at(0).toLatin1();
        KWTaskModel task = aTask("Task", zone).when(cells.at(1)).model();
        task.repeatRule = cells.at(2);
        task.repeatFrom = *valueOf<CXRecurrenceFrom>(cells.at(3));
        const CXTimeZone local = *CXTimeZone::named(cells.at(0));
        const auto next =
            TaskRepetition::next(task, {at(cells.at(4).toLatin1(), zone), local, std::chrono::Monday});
        QCOMPARE(next ? textOf(*next, task, local) : u"-"_s, cells.at(5));
        if (next) QCOMPARE(next->repeatRule, cells.at(6) == u"-" ? cells.at(2) : cells.at(6));
    }

    void leavesOutExcludedDatesAndFollowsItsZone()
    {
        KWTaskModel task = aTask("Call", "Asia/Tokyo").startingAt("2030-05-01 08:00").model();
        task.repeatRule = u"FREQ=DAILY"_s;
        task.exDates = {at("2030-05-02 08:00", "Asia/Tokyo")};
        const TaskRepetition::Now now{at("2030-05-01 09:00", "Asia/Tokyo"),
                                      *CXTimeZone::named(u"America/New_York"_s), std::chrono::Monday};
        QCOMPARE(TaskRepetition::next(task, now)->startDate, at("2030-05-03 08:00", "Asia/Tokyo"));
        task.exDates.clear();
        const Instant day = at("2030-05-01 00:00", "America/New_York");
        QCOMPARE(TaskRepetition::next(task, now)->movedAlong(day, true), day + std::chrono::days{1});
        task.isFloating = true; // 19:00 in New York
        QCOMPARE(TaskRepetition::next(task, now)->startDate, at("2030-05-01 19:00", "America/New_York"));
    }

    void leavesACopyAndGoesOn()
    {
        const QString id = makeWeeklyReview();
        TaskBuilder ownWay = aTask("Water").dueOn("2030-05-01").ordered(2).inState(u"repeating"_s, {});
        ownWay.with(&KWTaskModel::parentId, id).savedIn(*m_store);
        const auto ticked = ticker().tick({id});
        QCOMPARE(ticked->status, KWTaskStatusCompleted);
        QCOMPARE(ticked->nextDate, at("2030-05-08 00:00"));
        m_store->reopen();

        QCOMPARE(task(id).status, KWTaskStatusOpen);
        QCOMPARE(task(id).startDate, at("2030-05-08 00:00"));
        QCOMPARE(task(id).reminders, QStringList{u"TRIGGER:PT9H"_s});
        QVERIFY(!task(id).snoozedRemindDate);
        const KWTaskModel copy = copyOf(id);
        QCOMPARE(copy.completionDate, at("2030-05-01 09:00"));
        QCOMPARE(copy.startDate, at("2030-05-01 00:00"));
        QCOMPARE(copy.tags, QStringList{u"work"_s});
        QCOMPARE(copy.desc, u"All lists"_s);
        QVERIFY(copy.repeatRule.isEmpty() && copy.reminders.isEmpty() && !copy.pinnedDate);
        QCOMPARE(partsOf(id), u"Inbox 0 Lists 0, Print 0 2030-05-07 File 0 - Water 0 2030-05-01"_s);
        QCOMPARE(partsOf(copy.sid), u"Inbox 0 Lists 2, Print 2 2030-04-30 File 2 -"_s);
    }

    void takesEveryTickBack_data() { addCaseRows("model/ticks.txt", 5); }
    void takesEveryTickBack()
    {
        QFETCH(QStringList, cells);
        const QString rule = cells.at(1) == u"-" ? QString{} : cells.at(1);
        const QString id = makeWeeklyReview();
        setSaved<KWTask>(*m_store, id, &KWTaskModel::repeatRule, QString{});
        QVERIFY(ticker().updateStatus(KWTaskStatus(cells.at(2).toInt()), {id}));
        setSaved<KWTask>(*m_store, id, &KWTaskModel::repeatRule, rule);
        const auto tasks = contents<KWTask>(*m_store);
        const auto items = contents<KWChecklistItem>(*m_store);

        m_store->clock.advance(std::chrono::hours{2}); // the snoozed reminder is due
        const auto ticked = ticker().updateStatus(KWTaskStatus(cells.at(3).toInt()), {id});
        QVERIFY(ticked && contents<KWTask>(*m_store) != tasks);
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks WHERE status = 0"),
                 cells.at(4).toInt());
        QVERIFY(ticker().undo(ticked->undo));
        QVERIFY(contents<KWTask>(*m_store) == tasks);
        QVERIFY(contents<KWChecklistItem>(*m_store) == items);
        QVERIFY(isRefused(ticker().undo(ticked->undo))); // once
    }

    void keepsWhatWasChangedSinceTheTick()
    {
        const QString id = makeWeeklyReview();
        KWTaskEditor editor{m_store->kit().manager()};
        auto ticked = ticker().tick({id});
        QVERIFY(editor.setTitle(id, u"Weekly review"_s));
        QVERIFY(ticker().undo(ticked->undo));
        QCOMPARE(task(id).title, u"Weekly review"_s);
        QCOMPARE(task(id).startDate, at("2030-05-01 00:00"));

        ticked = ticker().tick({id});
        QVERIFY(editor.setTitle(copyOf(id).sid, u"Done with care"_s));
        QVERIFY(!ticker().undo(ticked->undo));
        QCOMPARE(task(id).startDate, at("2030-05-08 00:00"));
        QCOMPARE(copyOf(id).title, u"Done with care"_s);
    }

    void keepsWhatWasPutIntoTheCopySinceTheTick()
    {
        const QString id = makeWeeklyReview();
        const auto ticked = ticker().tick({id});
        const QString copyID = copyOf(id).sid;
        const auto keeps = [&]<class Record>(std::type_identity<Record>, auto owner) {
            QString part;
            saved(*m_store, [&](ObjectContext &context) {
                typename Record::Model model;
                model.*owner = copyID;
                if constexpr (std::same_as<Record, KWTask>)
                    model.projectID = context.find<KWTask>(id)->model().projectID;
                part = context.insert<Record>(model).sid();
            });
            const bool isKept = !ticker().undo(ticked->undo) && m_store->context().find<Record>(part);
            saved(*m_store, [&](ObjectContext &context) { context.remove(*context.find<Record>(part)); });
            return isKept;
        };
        QVERIFY(keeps(std::type_identity<KWTask>{}, &KWTaskModel::parentId));
        QVERIFY(keeps(std::type_identity<KWChecklistItem>{}, &KWChecklistItemModel::taskID));
        QVERIFY(keeps(std::type_identity<KWAttachment>{}, &KWAttachmentModel::taskID));
        QVERIFY(keeps(std::type_identity<KWComment>{}, &KWCommentModel::taskID));
        QVERIFY(keeps(std::type_identity<KWFocusSummary>{}, &KWFocusSummaryModel::taskID));
        QVERIFY(ticker().undo(ticked->undo));
        QVERIFY(copyOf(id).sid.isEmpty());
    }

    void takesAllDayPartsOverMidnight()
    {
        KWTaskModel task = aTask("Watch").startingAt("2030-05-01 23:00").model();
        task.repeatRule = u"FREQ=HOURLY"_s;
        for (const auto &[now, day] : {std::pair{"2030-05-01 22:00", "2030-05-02 00:00"},
                                       std::pair{"2030-05-03 10:30", "2030-05-03 00:00"}}) {
            const auto next = TaskRepetition::next(task, {at(now), CXTimeZone{}, std::chrono::Monday});
            QCOMPARE(next->movedAlong(at("2030-05-01 00:00"), true), at(day));
        }
    }

    void closesWhatRepeatsBelowATaskThatDoesNot()
    {
        const QString id = aTask("Project").savedIn(*m_store);
        TaskBuilder below = aTask("Daily").dueOn("2030-05-01").inState(u"repeating"_s, {});
        const QString daily = below.with(&KWTaskModel::parentId, id).savedIn(*m_store);
        const auto tasks = contents<KWTask>(*m_store);
        const auto ticked = ticker().tick({id});
        QCOMPARE(task(daily).status, KWTaskStatusCompleted);
        QVERIFY(ticker().undo(ticked->undo));
        QVERIFY(contents<KWTask>(*m_store) == tasks);
    }
};

ORVANE_TEST(KWTaskTicker_test)
#include "KWTaskTicker_test.moc"
