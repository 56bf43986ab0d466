#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/DatedThings.h"
#include "model/store/FocusRows.h"
#include "model/store/KWFilterService.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/KWTagService.h"
#include "model/store/KWTaskFinder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// The latest statement of a connection, which keeps all of them.
sqlite3_stmt *latestOf(Connection &connection)
{
    return sqlite3_next_stmt(connection.database().getHandle(), nullptr);
}

// The steps of the plans of what the connection has read after `known`.
QStringList plansAfter(sqlite3_stmt *known, Connection &connection)
{
    QStringList steps;
    sqlite3 *handle = connection.database().getHandle();
    for (auto *each = latestOf(connection); each != known; each = sqlite3_next_stmt(handle, each)) {
        const std::string sql = sqlite3_sql(each);
        if (!sql.starts_with("SELECT")) continue;
        SQLite::Statement plan{connection.database(), "EXPLAIN QUERY PLAN " + sql};
        while (plan.executeStep())
            steps << QString::fromUtf8(plan.getColumn(3).getText());
    }
    return steps;
}

// The one that the next save works on.
Connection &connectionLyingReady(Store &store)
{
    Result<Store::Loan> loan = store.borrowConnection();
    if (!loan) qFatal("The store cannot be opened");
    return **loan;
}

} // namespace

/// A long list and many years of closed tasks cost nothing where they are not asked for.
class QueryPlans_test : public QObject {
    Q_OBJECT

    using Operation = std::function<void(StoreFixture &, ObjectContext &)>;

private Q_SLOTS:
    void walksTheIndexMadeForIt_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("indexes");
        const auto row = [](const char *name, const QStringList &indexes, const Operation &operation) {
            QTest::newRow(name) << operation << indexes;
        };
        const auto inbox = [](StoreFixture &store, ObjectContext &context) -> KWProject & {
            return *KWProject::findInboxOfUser(store.userID(), context);
        };
        row("tasks of a list", {u"openTasksByList"_s},
            [inbox](auto &store, auto &context) { inbox(store, context).orderedTasks(); });
        row("number of a list", {u"openTasksByList"_s},
            [inbox](auto &store, auto &context) { inbox(store, context).numberOfUncompletedTasks(); });
        row("found in a list", {u"openTasksByList"_s}, [](auto &store, auto &context) {
            KWTaskFinder::findAllTasksInProject(u"list"_s, {store.userID()}, {}, context);
        });
        row("repeating", {u"repeatingTasks"_s, u"repeatingTasks (projectID=?)"_s},
            [](auto &store, auto &context) {
                for (const QString &list : {QString{}, u"list"_s})
                    KWTaskFinder::findAllTasksWillRepeatOfUser({store.userID()}, list, context);
            });
        row("events of a page",
            {u"calSubscriptionEventsByStart (userID=? AND startDate>? AND startDate<?)"_s,
             u"longCalSubscriptionEvents (userID=? AND endDate>?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(readDatedEvents({.userID = store.userID(),
                                         .from = Instant{},
                                         .to = store.clock.now(),
                                         .includeRepeat = false},
                                        context.connection()));
            });
        row("repeating events", {u"repeatingCalSubscriptionEvents (userID=?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(KWCalSubscriptionEvent::eventsWillRepeatOfUser(store.userID(), context));
            });
        row("completed without a date", {u"closedTasksInOrder (<expr>>? AND <expr><?)"_s},
            [](auto &store, auto &context) {
                KWTaskFinder::fetchCompletedAndNoDateBetween(Instant{}, store.clock.now(), {store.userID()},
                                                             context);
            });
        row("a page of completed tasks", {u"closedTasksInOrder (<expr><?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(KWListDataFetcher{store.clock}.completedTasks(
                    {.userID = store.userID(), .after = CompletionCursor{Instant{}, 1}, .limit = 50},
                    context.connection()));
            });
        row("one task of a list", {u"sqlite_autoindex_tasks_1 (sid=?)"_s}, [](auto &store, auto &context) {
            QVERIFY(KWListDataFetcher{store.clock}.reloadDataModel(
                {.userID = store.userID(),
                 .selection = KWListIdentifier::project(u"list"_s),
                 .condition = {.taskIDs = {u"task"_s}}},
                context.connection()));
        });
        row("the days of the calendar",
            {u"openTasksInOrder (startDate>? AND startDate<?)"_s,
             u"closedTasksByDate (startDate>? AND startDate<?)"_s,
             u"repeatInstancesByStart (userID=? AND startDate>? AND startDate<?)"_s,
             u"longRepeatInstances (userID=? AND endDate>?)"_s, u"sqlite_autoindex_tasks_1 (sid=?)"_s,
             u"openChecklistItemsByDate (startDate>? AND startDate<?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(readDatedThings({.userID = store.userID(),
                                         .from = Instant{},
                                         .to = store.clock.now(),
                                         .includeCompleted = true,
                                         .includeChecklist = true,
                                         .includeRepeat = true},
                                        context));
            });
        row("checklist items by date", {u"openChecklistItemsByDate (startDate>? AND startDate<?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(KWListDataFetcher{store.clock}.reloadDataModel(
                    {.userID = store.userID(),
                     .selection = KWListIdentifier::todayProject(),
                     .limit = 25,
                     .includeChecklist = true},
                    context.connection()));
            });
        row("checklist items of a task", {u"checklistItemsByTask (taskID=?)"_s},
            [](auto &store, auto &context) {
                QVERIFY(KWListDataFetcher{store.clock}.reloadDataModel(
                    {.userID = store.userID(),
                     .selection = KWListIdentifier::todayProject(),
                     .condition = {.taskIDs = {u"task"_s}},
                     .includeChecklist = true},
                    context.connection()));
            });
        row("later occurrences in a list",
            {u"repeatInstancesByStart (userID=? AND startDate>? AND startDate<?)"_s,
             u"repeatInstancesBySource (referenceID=? AND startDate>? AND startDate<?)"_s},
            [](auto &store, auto &context) {
                ListDataRequest request{store.userID(), KWListIdentifier::todayProject()};
                request.includeRepeat = true;
                for (const QStringList &each : {QStringList{}, {u"task"_s}}) {
                    request.condition.taskIDs = each;
                    QVERIFY(KWListDataFetcher{store.clock}.reloadDataModel(request, context.connection()));
                }
            });
        const auto filtered = [](const char16_t *rule) {
            return [filter = *CXSmartFilter::parse(QString::fromUtf16(rule))](auto &store, auto &) {
                QVERIFY(KWFilterService(store.kit().manager(), store.userID()).countOfTasks(filter));
            };
        };
        row("a filter of lists", {u"openTasksByList (projectID=?)"_s},
            filtered(uR"({"all":[{"priority":[5]},{"list":["a","b"]}]})"));
        row("a filter of days", {u"openTasksInOrder (startDate<?)"_s},
            filtered(uR"({"date":["overdue","today"]})"));
        row("habits",
            {u"habitsInOrder (userID=?)"_s, u"habitCheckinsByDay (habitID=? AND checkinStamp=?)"_s,
             u"habitCheckinsByDay (habitID=? AND checkinStamp>?)"_s},
            [](auto &store, auto &context) {
                KWHabit::fetchAll(store.userID(), HabitScope::Active, context);
                context.template insert<KWHabit>({}).updateStreaks();
            });
        row("focus of days and the latest",
            {u"pomodorosByStart (userID=? AND startDate>? AND startDate<?)"_s,
             u"longPomodoros (userID=? AND endDate>?)"_s, u"focusSlicesBySession (pomodoroID=?)"_s,
             u"sqlite_autoindex_tasks_1 (sid=?)"_s, u"sqlite_autoindex_habits_1 (sid=?)"_s},
            [](auto &store, auto &context) {
                const FocusRowsRequest request{store.userID(), Instant{}, store.clock.now()};
                QVERIFY(readFocusRows(request, context) && readLatestFocusRows(request, 50, context));
            });
        row("places of a tag",
            {u"taskTagSortOrdersByTag (tagName=?)"_s,
             u"projectPinnedSortOrdersByList (userID=? AND listID=?)"_s},
            [](auto &store, auto &) {
                KWTagService tags{store.kit().manager(), store.userID()};
                QVERIFY(tags.create({u"one"_s}) && tags.remove(u"one"_s));
            });
    }

    void walksTheIndexMadeForIt()
    {
        QFETCH(const Operation, operation);
        QFETCH(const QStringList, indexes);
        StoreFixture store;
        Connection &reads = store.context().connection();
        Connection &saves = connectionLyingReady(store.kit().store());
        auto *const lastRead = latestOf(reads);
        auto *const lastSaved = latestOf(saves);
        operation(store, store.context());
        const QStringList plans = plansAfter(lastRead, reads) + plansAfter(lastSaved, saves);
        for (const QString &each : indexes)
            QVERIFY2(plans.join(u'\n').contains(u"INDEX "_s + each), qPrintable(plans.join(u'\n')));
        QVERIFY2(!plans.contains(u"SCAN tasks"), qPrintable(plans.join(u'\n')));
    }
};

ORVANE_TEST(QueryPlans_test)
#include "QueryPlans_test.moc"
