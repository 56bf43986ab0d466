#include "model/store/TaskOccurrences.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

// Its days of May 2030: "1 2 4", "3x" when it is closed.
QString daysOf(const KWTaskModel &task)
{
    const CXRecurringObject object{.startDate = task.startDate,
                                   .isAllDay = task.isAllDay,
                                   .recurrenceRuleString = task.repeatRule,
                                   .excludedOccurrenceDates = {task.exDates.begin(), task.exDates.end()},
                                   .timeZone = {}};
    std::vector<Instant> dates{*task.startDate};
    if (!task.repeatRule.isEmpty())
        dates = CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
            object, at("2030-04-01 00:00"), at("2030-05-31 23:59"), true);
    const auto day = [&](Instant date) {
        const std::chrono::year_month_day ymd{CXTimeZone{}.dayOf(date)};
        return QString::number(unsigned(ymd.day())) + (task.status == KWTaskStatusOpen ? QString{} : u"x"_s);
    };
    return joined(dates, day);
}

OccurrenceScope scopeOf(const QString &word)
{
    if (word == u"only") return OccurrenceScope::OnlyThis;
    return word == u"later" ? OccurrenceScope::ThisAndLater : OccurrenceScope::All;
}

Instant momentOf(const QString &cell)
{
    return at((cell.contains(u':') ? cell : cell + u" 00:00"_s).toLatin1());
}

} // namespace

class TaskOccurrences_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    TaskOccurrences occurrences() { return TaskOccurrences{m_store->kit().manager()}; }

    QString allDays()
    {
        const auto tasks = m_store->context().models<KWTask>(
            {.where = "isDeleted = 0 AND parentId = ''", .orderBy = "startDate, sid"});
        QStringList days;
        for (const KWTaskModel &each : tasks)
            days << daysOf(each);
        return days.join(u", "_s);
    }
    Result<UndoToken> perform(const QString &action, const TaskOccurrence &occurrence, const QString &movedTo)
    {
        if (action == u"skip") return occurrences().skip(occurrence);
        if (action == u"end with") return occurrences().endWith(occurrence);
        if (action == u"end before") return occurrences().endBefore(occurrence);
        const auto changed = [&] {
            if (action == u"close") return occurrences().close(occurrence, KWTaskStatusCompleted);
            if (movedTo == u"-") return occurrences().part(occurrence, scopeOf(action));
            const TaskOccurrences::Dates to{.startDate = momentOf(movedTo),
                                            .isAllDay = !movedTo.contains(u':')};
            return occurrences().move(occurrence, scopeOf(action), to);
        }();
        if (!changed) return changed.error();
        return changed->undo;
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "UTC"); }

    void changesOccurrences_data() { addCaseRows("model/occurrences.txt", 6); }

    void changesOccurrences()
    {
        QFETCH(QStringList, cells);
        TaskBuilder task = aTask("Water").when(cells.at(0));
        if (cells.at(1) != u"-") task.with(&KWTaskModel::repeatRule, cells.at(1));
        const QString id = task.savedIn(*m_store);
        const KWTaskModel before = m_store->context().find<KWTask>(id)->model();

        const auto done = perform(cells.at(2), {id, momentOf(cells.at(3))}, cells.at(4));
        m_store->reopen();
        if (cells.at(5) == u"refused") {
            QVERIFY(isRefused(done));
            QCOMPARE(m_store->context().find<KWTask>(id)->model(), before);
            return;
        }
        QCOMPARE(done ? allDays() : done.error().sentence, cells.at(5));
        const auto undone = done->undo(m_store->kit().manager());
        QCOMPARE(undone ? allDays() : undone.error().sentence, daysOf(before));
    }

    void takesAlongWhatBelongsToIt()
    {
        TaskBuilder review = aTask("Review").dueOn("2030-05-01").tagged("work");
        review.withItem("Inbox", "2030-05-01 10:00").with(&KWTaskModel::repeatRule, u"FREQ=WEEKLY"_s);
        const QString id = review.with(&KWTaskModel::reminders, {u"TRIGGER:PT9H"_s}).savedIn(*m_store);
        TaskBuilder print = aTask("Print").dueOn("2030-04-30").with(&KWTaskModel::parentId, id);
        print.savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) {
            KWAttachmentModel file;
            file.userID = m_store->userID();
            file.taskID = id;
            context.insert<KWAttachment>(file);
        });

        const auto parted = occurrences().part({id, at("2030-05-15 00:00")}, OccurrenceScope::OnlyThis);
        m_store->reopen();
        KWTask &single = *m_store->context().find<KWTask>(parted->taskID);
        QVERIFY(single.sid() != id && single->repeatRule.isEmpty());
        QCOMPARE(single->tags, QStringList{u"work"_s});
        QCOMPARE(single->reminders, QStringList{u"TRIGGER:PT9H"_s});
        QCOMPARE(single->remindTime, at("2030-05-15 09:00"));
        QCOMPARE((*single.orderedChecklistItems().value(0))->startDate, at("2030-05-15 10:00"));
        QCOMPARE(single.attachments().size(), 1);
        const QList<KWTask *> below = KWTask::children(single, m_store->context());
        QCOMPARE(below.size(), 1);
        QCOMPARE((*below.first())->startDate, at("2030-05-14 00:00"));
        QCOMPARE((*m_store->context().find<KWTask>(id))->exDates, QList{at("2030-05-15 00:00")});
    }

    void leavesOutTheSameOnesWhereverTheyGo()
    {
        TaskBuilder water =
            aTask("Water").dueOn("2030-05-01").with(&KWTaskModel::repeatRule, u"FREQ=DAILY;COUNT=9"_s);
        const QString id = water.with(&KWTaskModel::exDates, {at("2030-05-03 00:00"), at("2030-05-07 00:00")})
                               .savedIn(*m_store);
        const auto parted = occurrences().part({id, at("2030-05-05 00:00")}, OccurrenceScope::ThisAndLater);
        QCOMPARE(allDays(), u"1 2 4, 5 6 8 9"_s);
        QVERIFY(occurrences().move({parted->taskID, at("2030-05-06 00:00")}, OccurrenceScope::All,
                                   {.startDate = at("2030-05-07 00:00"), .isAllDay = true}));
        QCOMPARE(allDays(), u"1 2 4, 6 7 9 10"_s);
    }

    // What the date picker answers: the date, and at once other reminders.
    void schedulesTheFirstOneOrAll()
    {
        for (const OccurrenceScope scope : {OccurrenceScope::OnlyThis, OccurrenceScope::All}) {
            TaskBuilder water = aTask("Water").dueOn("2030-05-01");
            const QString id =
                water.with(&KWTaskModel::repeatRule, u"FREQ=WEEKLY;BYDAY=WE;COUNT=3"_s).savedIn(*m_store);
            const TaskSchedule shown = TaskSchedule::ofTask(m_store->context().find<KWTask>(id)->model());
            TaskSchedule chosen = shown;
            chosen.dates.startDateTime = KWDateTime::dateTimeWithDate(at("2030-05-02 18:00"), true);
            chosen.dates.alarmTriggers = {CXAlarmTrigger::onTime()};
            const auto changed = occurrences().schedule(id, scope, chosen, shown);
            QCOMPARE(allDays(), scope == OccurrenceScope::All ? u"2 9 16"_s : u"2, 8 15"_s);
            const KWTaskModel task = m_store->context().find<KWTask>(changed->taskID)->model();
            QCOMPARE(task.startDate, at("2030-05-02 18:00"));
            QVERIFY(!task.isAllDay && task.remindTime == task.startDate);
            QVERIFY(changed->undo.undo(m_store->kit().manager()));
            QCOMPARE(allDays(), u"1 8 15"_s);
            init();
        }
    }

    void keepsTheTimeOnTheWall()
    {
        m_store = std::make_unique<StoreFixture>("2030-03-01 09:00", "Europe/Berlin");
        TaskBuilder call =
            aTask("Call", "Europe/Berlin").startingAt("2030-03-04 09:00").endingAt("2030-03-04 10:00");
        const QString id = call.with(&KWTaskModel::repeatRule, u"FREQ=WEEKLY;BYDAY=MO"_s).savedIn(*m_store);
        const auto moved = occurrences().move(
            {id, at("2030-04-01 09:00", "Europe/Berlin")}, OccurrenceScope::All,
            {at("2030-04-02 11:00", "Europe/Berlin"), at("2030-04-02 11:30", "Europe/Berlin")});
        QCOMPARE(moved->taskID, id);
        const KWTaskModel task = m_store->context().find<KWTask>(id)->model();
        QCOMPARE(task.startDate, at("2030-03-05 11:00", "Europe/Berlin"));
        QCOMPARE(task.endDate, at("2030-03-05 11:30", "Europe/Berlin"));
        QCOMPARE(task.repeatRule, u"RRULE:FREQ=WEEKLY;INTERVAL=1;BYDAY=TU"_s);
    }
};

ORVANE_TEST(TaskOccurrences_test)
#include "TaskOccurrences_test.moc"
